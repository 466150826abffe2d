#include "vkprotocolstack/support/thread_pointer.h"

#include <gtest/gtest.h>

#include <atomic>
#include <optional>
#include <thread>

#include "testing/locale.h"
#include "vkprotocolstack/support/support.h"

namespace {

using jsonparser::support::ThreadPointer;

std::atomic<int> released;

void Release(void* pointer) { released += *static_cast<int*>(pointer); }

class ThreadPointerTest : public testing::Test {
  protected:
    ThreadPointerTest() { released = 0; }

    ThreadPointer pointer_;
    int one_ = 1;
    int ten_ = 10;
};

TEST_F(ThreadPointerTest, IsEachThreadsOwnAndReleasedWhenThatEnds) {
    const ThreadPointer::Lifetime lifetime(pointer_, Release);
    EXPECT_EQ(pointer_.get(), nullptr);
    EXPECT_TRUE(pointer_.set(&one_));
    std::thread([this] {
        EXPECT_EQ(pointer_.get(), nullptr);
        EXPECT_TRUE(pointer_.set(&one_));
        EXPECT_TRUE(pointer_.set(&ten_));
        EXPECT_EQ(pointer_.get(), &ten_);
        EXPECT_EQ(released, 0);
    }).join();
    EXPECT_EQ(released, 10);
    EXPECT_EQ(pointer_.get(), &one_);
}

TEST_F(ThreadPointerTest, OfAThreadThatHasNoneAtItsEndIsNotReleased) {
    const ThreadPointer::Lifetime lifetime(pointer_, Release);
    std::thread([this] {
        EXPECT_TRUE(pointer_.set(&one_));
        EXPECT_TRUE(pointer_.set(nullptr));
    }).join();
    EXPECT_EQ(released, 0);
}

TEST_F(ThreadPointerTest, IsReleasedForTheThreadThatEndsItsLifetimeAndForgotten) {
    {
        const ThreadPointer::Lifetime lifetime(pointer_, Release);
        EXPECT_TRUE(pointer_.set(&one_));
        EXPECT_FALSE(pointer_.isOver());
    }
    EXPECT_EQ(released, 1);
    EXPECT_TRUE(pointer_.isOver());
    EXPECT_EQ(pointer_.get(), nullptr);
    EXPECT_FALSE(pointer_.set(&one_));
    EXPECT_EQ(released, 1);
}

TEST_F(ThreadPointerTest, StaysWithAnotherThreadThatEndsAfterItsLifetime) {
    std::atomic<bool> isSet = false;
    std::atomic<bool> isOver = false;
    std::optional<ThreadPointer::Lifetime> lifetime(std::in_place, pointer_, Release);
    std::thread thread([&] {
        EXPECT_TRUE(pointer_.set(&one_));
        isSet = true;
        isSet.notify_one();
        isOver.wait(false);
        EXPECT_EQ(pointer_.get(), nullptr);
    });
    isSet.wait(false);
    lifetime.reset();
    isOver = true;
    isOver.notify_one();
    thread.join();
    EXPECT_EQ(released, 0);
}

TEST_F(ThreadPointerTest, IsNoneBeforeItsLifetime) {
    EXPECT_EQ(pointer_.get(), nullptr);
    EXPECT_FALSE(pointer_.set(&one_));
    EXPECT_FALSE(pointer_.isOver());
}

TEST_F(ThreadPointerTest, IsNoneWhereTheProcessHasNoKeyLeft) {
    pthread_key_t keys[PTHREAD_KEYS_MAX];
    int count = 0;
    while (pthread_key_create(&keys[count], nullptr) == 0) ++count;
    EXPECT_GT(count, 0);
    {
        const ThreadPointer::Lifetime lifetime(pointer_, Release);
        EXPECT_EQ(pointer_.get(), nullptr);
        EXPECT_FALSE(pointer_.set(&one_));
    }
    while (count > 0) pthread_key_delete(keys[--count]);
    EXPECT_EQ(released, 0);
}

// ---- what the library keeps by it

/// Converts when a thread ends, again and again as long as the C library asks.
pthread_key_t key;

void ConvertAtThreadEnd(void* rounds) {
    const testing_tools::ThreadLocale locale("zh_CN.GBK");
    char name[8];
    GetJsonString(Json::Value("路"), name, sizeof name, true);
    EXPECT_STREQ(name, "\xC2\xB7");
    if (--*static_cast<int*>(rounds) > 0) pthread_setspecific(key, rounds);
}

TEST(LocalEncoding, IsThereForWhatRunsWhenTheThreadsOwnDescriptorsAreClosed) {
    const testing_tools::ThreadLocale mine("zh_CN.GBK");
    char name[8];
    GetJsonString(Json::Value("路"), name, sizeof name, true);  // its keys come before this one
    ASSERT_EQ(pthread_key_create(&key, ConvertAtThreadEnd), 0);
    int rounds = 3;
    std::thread([&rounds] {
        const testing_tools::ThreadLocale locale("zh_CN.GBK");
        char local[8];
        GetJsonString(Json::Value("路"), local, sizeof local, true);
        EXPECT_STREQ(local, "\xC2\xB7");
        ASSERT_EQ(pthread_setspecific(key, &rounds), 0);
    }).join();
    pthread_key_delete(key);
    EXPECT_EQ(rounds, 0);
}

}  // namespace
