// A library of a client's, which the program loads and unloads: with the converters in it, and on top of the shared
// ones.

#include <dlfcn.h>
#include <gtest/gtest.h>
#include <pthread.h>

#include <semaphore>
#include <string>
#include <thread>
#include <vector>

#include "testing/locale.h"

#ifndef __has_feature
#define __has_feature(feature) 0
#endif
#if defined(__SANITIZE_ADDRESS__) || __has_feature(address_sanitizer)
constexpr bool kLeaksAreErrors = true;
#else
constexpr bool kLeaksAreErrors = false;
#endif

namespace {

/// The first byte of the name in GBK.
constexpr int kName = 0xC2;

class Plugin {
  public:
    explicit Plugin(const char* file) : handle_(dlopen(file, RTLD_NOW | RTLD_LOCAL)) {
        EXPECT_NE(handle_, nullptr) << dlerror();
        readName_ = reinterpret_cast<int (*)()>(dlsym(handle_, "ReadName"));
        EXPECT_NE(readName_, nullptr);
    }
    ~Plugin() { EXPECT_EQ(dlclose(handle_), 0); }
    Plugin(const Plugin&) = delete;
    Plugin& operator=(const Plugin&) = delete;

    int readName() const { return readName_(); }

  private:
    void* handle_;
    int (*readName_)();
};

bool IsLoaded(const char* file) {
    void* const handle = dlopen(file, RTLD_NOW | RTLD_NOLOAD);
    if (handle != nullptr) dlclose(handle);
    return handle != nullptr;
}

int FreeKeys() {
    std::vector<pthread_key_t> keys;
    pthread_key_t key;
    while (pthread_key_create(&key, nullptr) == 0) keys.push_back(key);
    for (const pthread_key_t created : keys) pthread_key_delete(created);
    return static_cast<int>(keys.size());
}

class Unloading : public testing::TestWithParam<const char*> {
  protected:
    testing_tools::ThreadLocale locale_{"zh_CN.GBK"};
};

INSTANTIATE_TEST_SUITE_P(Of, Unloading, testing::Values(PLUGINS), [](const auto& file) {
    return std::string(file.param).find("static") == std::string::npos ? "Shared" : "Static";
});

TEST_P(Unloading, HappensThoughThreadsHaveConverted) {
    {
        const Plugin plugin(GetParam());
        EXPECT_EQ(plugin.readName(), kName);
        std::thread([&plugin] {
            const testing_tools::ThreadLocale locale("zh_CN.GBK");
            EXPECT_EQ(plugin.readName(), kName);
        }).join();
    }
    EXPECT_FALSE(IsLoaded(GetParam()));
}

TEST_P(Unloading, AThreadThatHasConvertedMayEndAfterIt) {
    if (kLeaksAreErrors && std::string(GetParam()).find("static") != std::string::npos) {
        GTEST_SKIP() << "what such a thread keeps for good is what the leak checker is for";
    }
    std::binary_semaphore converted(0);
    std::binary_semaphore unloaded(0);
    std::thread thread;
    {
        const Plugin plugin(GetParam());
        thread = std::thread([&] {
            const testing_tools::ThreadLocale locale("zh_CN.GBK");
            EXPECT_EQ(plugin.readName(), kName);
            converted.release();
            unloaded.acquire();
        });
        converted.acquire();
    }
    EXPECT_FALSE(IsLoaded(GetParam()));
    unloaded.release();
    thread.join();
}

TEST_P(Unloading, AgainAndAgainTakesNoMoreOfTheProcessesKeys) {
    { EXPECT_EQ(Plugin(GetParam()).readName(), kName); }
    const int before = FreeKeys();
    EXPECT_GT(before, 0);
    for (int i = 0; i < 20; ++i) EXPECT_EQ(Plugin(GetParam()).readName(), kName);
    EXPECT_EQ(FreeKeys(), before);
}

}  // namespace
