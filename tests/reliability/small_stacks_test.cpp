// Every converter on a thread with a stack of 64 KiB, and how much of it that takes.

#include <gtest/gtest.h>
#include <pthread.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <clocale>
#include <cstdint>
#include <cstdio>
#include <functional>
#include <string>

#include "fuzz/converters.h"
#include "places.h"
#include "testing/json.h"
#include "vkprotocolstack/JsonParser.h"

namespace reliability {
namespace {

using fuzz::Memory;
using fuzz::Reader;
using fuzz::Writer;

#ifndef __has_feature
#define __has_feature(feature) 0
#endif
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__) || __has_feature(address_sanitizer) || \
    __has_feature(thread_sanitizer)
constexpr bool kFramesAreLarger = true;
#else
constexpr bool kFramesAreLarger = false;
#endif

constexpr std::size_t kStack = 64 * 1024;
constexpr unsigned char kUnused = 0xC3;

/// Memory for a stack, with a page below it that cannot be touched. The C library puts thread-local data at its upper
/// end, which is no part of what a thread may use.
class Stack {
  public:
    Stack() : page_(static_cast<std::size_t>(sysconf(_SC_PAGESIZE))) {
        void* const memory =
            mmap(nullptr, page_ + size(), PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_STACK, -1, 0);
        EXPECT_NE(memory, MAP_FAILED);
        low_ = static_cast<unsigned char*>(memory) + page_;
        EXPECT_EQ(mprotect(memory, page_, PROT_NONE), 0);
    }
    ~Stack() { munmap(low_ - page_, page_ + size()); }
    Stack(const Stack&) = delete;
    Stack& operator=(const Stack&) = delete;

    /// Runs call on a thread with this stack, of which it has kStack bytes.
    /// @return how many of these it took
    std::size_t run(const std::function<void()>& call) {
        call_ = &call;
        std::fill_n(low_, size(), kUnused);
        pthread_attr_t attributes;
        EXPECT_EQ(pthread_attr_init(&attributes), 0);
        EXPECT_EQ(pthread_attr_setstack(&attributes, low_, size()), 0);
        pthread_t thread;
        const auto start = [](void* stack) -> void* {
            static_cast<Stack*>(stack)->converted();
            return nullptr;
        };
        EXPECT_EQ(pthread_create(&thread, &attributes, start, this), 0);
        EXPECT_EQ(pthread_join(thread, nullptr), 0);
        EXPECT_EQ(pthread_attr_destroy(&attributes), 0);
        const auto isUsed = [](unsigned char byte) { return byte != kUnused; };
        return static_cast<std::size_t>(begin_ - std::find_if(low_, begin_, isUsed));
    }

  private:
    /// What is above the usable part is at most this, rounded up to pages.
    static constexpr std::size_t kThreadLocal = 64 * 1024;
    std::size_t size() const { return kStack + kThreadLocal; }

    /// The lowest part goes unused, so that the call has kStack bytes from here on.
    void converted() {
        unsigned char here = 0;
        begin_ = low_ + (&here - low_);
        const auto excess = static_cast<std::size_t>(begin_ - low_) - kStack;
        const std::size_t closed = (excess + page_ - 1) / page_ * page_;
        EXPECT_EQ(mprotect(low_, closed, PROT_NONE), 0);
        (*call_)();
        EXPECT_EQ(mprotect(low_, closed, PROT_READ | PROT_WRITE), 0);
    }

    std::size_t page_;
    unsigned char* low_ = nullptr;
    unsigned char* begin_ = nullptr;
    const std::function<void()>* call_ = nullptr;
};

/// Arrays in arrays, or objects in objects.
Json::Value Nested(Json::ArrayIndex depth, bool isObject) {
    Json::Value value = 1;
    for (Json::ArrayIndex i = 1; i < depth; ++i) {
        Json::Value outer;
        (isObject ? outer["a"] : outer[0U]) = std::move(value);
        value = std::move(outer);
    }
    return value;
}

struct Most {
    std::size_t bytes = 0;
    std::string of;

    void add(std::size_t taken, std::string_view name) {
        if (taken <= bytes) return;
        bytes = taken;
        of = name;
    }
    void show(const char* what) const {
        std::printf("%s: at most %zu bytes of stack, by %s\n", what, bytes, of.c_str());
    }
};

class SmallStacks : public testing::TestWithParam<const char*> {
  protected:
    SmallStacks() { EXPECT_NE(std::setlocale(LC_ALL, GetParam()), nullptr) << GetParam(); }
    ~SmallStacks() override { std::setlocale(LC_ALL, "C"); }
    void SetUp() override {
        if (kFramesAreLarger) GTEST_SKIP() << "sanitizers make frames larger";
    }

    Stack stack_;
};

INSTANTIATE_TEST_SUITE_P(In, SmallStacks, testing::Values("C", "zh_CN.GBK"),
                         [](const auto& locale) { return std::string(locale.param[0] == 'C' ? "C" : "GBK"); });

std::vector<Json::Value> MessagesFor(const Reader& reader) {
    const Places& places = PlacesOf(reader);
    std::vector<Json::Value> messages = Samples(reader);
    for (const Json::Value& scalar : {Json::Value("路"), Json::Value("1 08:00:00-17:30:00"), Json::Value(1.5)}) {
        messages.push_back(Message(places, {scalar, 4, true}));
    }
    return messages;
}

TEST_P(SmallStacks, SufficeForReadersOfValues) {
    Most most;
    for (const Reader& reader : fuzz::Readers()) {
        for (const Json::Value& message : MessagesFor(reader)) {
            Json::Value node = message;
            Memory memory(reader.target);
            most.add(stack_.run([&] { reader.value(node, memory.get()); }), reader.name);
        }
    }
    most.show("readers of values");
}

TEST_P(SmallStacks, SufficeForReadersOfTexts) {
    Most most;
    for (const Reader& reader : fuzz::Readers()) {
        for (const Json::Value& message : MessagesFor(reader)) {
            const std::string text = testing_tools::Text(message);
            Memory memory(reader.target);
            most.add(stack_.run([&] {
                jsonparser::MessageText source(text);
                reader.text(source.at(""), memory.get());
            }),
                     reader.name);
        }
    }
    most.show("readers of texts");
}

TEST_P(SmallStacks, SufficeForWriters) {
    Most most;
    for (const Writer& writer : fuzz::Writers()) {
        for (const char* bytes : {"\1", "x", "\xC2\xB7\1", "\x7F"}) {
            Memory memory(writer.source);
            memory.fill(bytes);
            Json::Value written;
            most.add(stack_.run([&] { writer.write(written, memory.get()); }), writer.name);
        }
    }
    most.show("writers");
}

TEST_P(SmallStacks, SufficeForConvertersThatTakeNoMessage) {
    Most most;
    for (const fuzz::TextReader& reader : fuzz::TextReaders()) {
        for (const std::string& text : TextsFor(reader)) most.add(stack_.run([&] { reader.read(text); }), reader.name);
    }
    for (const fuzz::NumberConverter& converter : fuzz::NumberConverters()) {
        for (const long number : NumbersFor(converter)) {
            most.add(stack_.run([&] { converter.convert(number); }), converter.name);
        }
    }
    most.show("converters that take no message");
}

// ---- nested messages: what jsoncpp copies and reads, it does by calling itself

TEST_P(SmallStacks, SufficeForValuesOf400Levels) {
    Most most;
    for (const bool isObject : {false, true}) {
        for (const Reader& reader : fuzz::Readers()) {
            Json::Value node = Nested(400, isObject);
            Memory memory(reader.target);
            most.add(stack_.run([&] { reader.value(node, memory.get()); }), reader.name);
        }
    }
    most.show("values of 400 levels");
}

TEST_P(SmallStacks, SufficeForTextsOfAsManyLevelsAsAreAccepted) {
    Most most;
    for (const bool isObject : {false, true}) {
        for (const Reader& reader : fuzz::Readers()) {
            const std::string text = testing_tools::Text(Nested(128, isObject));
            Memory memory(reader.target);
            most.add(stack_.run([&] {
                jsonparser::MessageText source(text);
                reader.text(source.at(""), memory.get());
                EXPECT_TRUE(source.accepted());
            }),
                     reader.name);
        }
    }
    most.show("texts of 128 levels");
}

TEST_P(SmallStacks, SufficeFor64LevelsWhereATextNeedsJsoncppsReader) {
    Most most;
    for (const bool isObject : {false, true}) {
        for (const Reader& reader : fuzz::Readers()) {
            const std::string text = testing_tools::Text(Nested(64, isObject)) + "//";
            Memory memory(reader.target);
            most.add(stack_.run([&] {
                jsonparser::MessageTextOptions options;
                options.maxDepth = 64;
                jsonparser::MessageText source(text, options);
                reader.text(source.at(""), memory.get());
                EXPECT_TRUE(source.accepted());
            }),
                     reader.name);
        }
    }
    most.show("texts of 64 levels by jsoncpp's reader");
}

}  // namespace
}  // namespace reliability
