#include "vkprotocolstack/wire/text_tape.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "taken.h"

namespace {

using jsonparser::TextEntry;
using jsonparser::TextTape;
using jsonparser::TextType;
using testing_tools::Taken;

/// Tests run on threads of their own, which have nothing from before.
template <class Test>
void OnNewThread(Test test) {
    std::thread(test).join();
}

/// The capacity that a tape which begins with nothing gets, after growing so often.
std::size_t Grown(TextTape& tape, int times) {
    for (int i = 0; i < times; ++i) EXPECT_TRUE(tape.grow(0));
    return tape.capacity;
}

TEST(TextTape, GrowsFromNothingByDoublingAndKeepsWhatIsUsed) {
    OnNewThread([] {
        TextTape tape(nullptr, 0);
        EXPECT_EQ(Grown(tape, 1), 256U);
        for (std::size_t i = 0; i < 256; ++i) tape.entries[i].span = i;
        EXPECT_TRUE(tape.grow(256));
        EXPECT_EQ(tape.capacity, 512U);
        for (std::size_t i = 0; i < 256; ++i) EXPECT_EQ(tape.entries[i].span, i);
        tape.entries[511].span = 511;  // under the address sanitizer: there is room for all
        EXPECT_TRUE(tape.grow(512));
        EXPECT_EQ(tape.capacity, 1024U);
        EXPECT_EQ(tape.entries[255].span, 255U);
        EXPECT_EQ(tape.entries[511].span, 511U);
    });
}

TEST(TextTape, TakesTheMemoryThatTheThreadsLastOneLeft) {
    OnNewThread([] {
        const TextEntry* left = nullptr;
        {
            TextTape tape(nullptr, 0);
            EXPECT_EQ(Grown(tape, 3), 1024U);
            left = tape.entries;
        }
        for (int i = 0; i < 2; ++i) {
            TextTape tape(nullptr, 0);
            EXPECT_EQ(Grown(tape, 1), 1024U);
            EXPECT_EQ(tape.entries, left);
            tape.entries[0].span = 7;  // as a message's first value overwrites it
            tape.entries[1023].span = 7;
        }
    });
}

TEST(TextTape, LeavesOneBlockHoweverManyThereWere) {
    OnNewThread([] {
        {
            TextTape first(nullptr, 0);
            TextTape second(nullptr, 0);
            EXPECT_EQ(Grown(first, 1), 256U);
            EXPECT_EQ(Grown(second, 2), 512U);
        }  // the second goes first, and is kept
        TextTape first(nullptr, 0);
        TextTape second(nullptr, 0);
        EXPECT_EQ(Grown(first, 1), 512U);
        EXPECT_EQ(Grown(second, 1), 256U);
    });
}

TEST(TextTape, LeavesNoBlockOfMoreThan4096Entries) {
    OnNewThread([] {
        {
            TextTape tape(nullptr, 0);
            EXPECT_EQ(Grown(tape, 6), 8192U);
        }
        {
            TextTape tape(nullptr, 0);
            EXPECT_EQ(Grown(tape, 1), 256U);
            EXPECT_EQ(Grown(tape, 4), 4096U);
        }
        TextTape tape(nullptr, 0);
        EXPECT_EQ(Grown(tape, 1), 4096U);
    });
}

TEST(TextTape, LeavesItsMemoryToTheThreadThatEndsIt) {
    OnNewThread([] {
        std::optional<TextTape> tape(std::in_place, nullptr, 0);
        EXPECT_EQ(Grown(*tape, 2), 512U);
        OnNewThread([&tape] {
            {
                TextTape other(nullptr, 0);
                EXPECT_EQ(Grown(other, 1), 256U);
            }
            tape.reset();  // one is there: this goes
            TextTape next(nullptr, 0);
            EXPECT_EQ(Grown(next, 1), 256U);
        });
        TextTape next(nullptr, 0);
        EXPECT_EQ(Grown(next, 1), 256U);
    });
}

TEST(TextTape, MayOutliveTheThreadThatItTookItsMemoryFrom) {
    std::optional<TextTape> tape;
    OnNewThread([&tape] {
        { Taken first("[1]"); }
        tape.emplace(nullptr, 0);
        EXPECT_EQ(Grown(*tape, 1), 256U);
    });
    for (std::size_t i = 0; i < 256; ++i) tape->entries[i].span = i;
    EXPECT_TRUE(tape->grow(256));
    EXPECT_EQ(tape->entries[255].span, 255U);
}

TEST(TextEntry, AnArrayOfScalarsHasOneEntryForEach) {
    const Taken taken(R"([1, "a", null, 2.5, true])");
    const TextEntry& array = taken.root();
    EXPECT_EQ(array.type, TextType::Array);
    EXPECT_EQ(array.size, 5U);
    EXPECT_EQ(array.behind() - &array, 6);
    const TextType types[] = {TextType::Integer, TextType::Text, TextType::Null, TextType::Real, TextType::True};
    for (std::size_t i = 0; i < 5; ++i) {
        EXPECT_EQ(array.element(i), &array + 1 + i);
        EXPECT_EQ(array.element(i)->type, types[i]);
    }
}

TEST(TextEntry, ElementsBehindNestedOnesAreFoundByStepping) {
    const Taken taken(R"([[], 1, [[2, [3]], {}], {"a": [4, 5], "b": {"c": 6}}, 7, [[[]]], 8])");
    const TextEntry& array = taken.root();
    ASSERT_EQ(array.size, 7U);
    const std::size_t spans[] = {1, 1, 6, 6, 1, 3, 1};
    const TextEntry* stepped = array.first();
    for (std::size_t i = 0; i < 7; ++i, stepped = stepped->next()) {
        EXPECT_EQ(array.element(i), stepped) << i;
        EXPECT_EQ(stepped->next() - stepped, static_cast<std::ptrdiff_t>(spans[i])) << i;
    }
    EXPECT_EQ(stepped, array.behind());
    EXPECT_EQ(array.element(1)->integer, 1);
    EXPECT_EQ(array.element(2)->element(0)->element(1)->element(0)->integer, 3);
    EXPECT_EQ(array.element(2)->element(1)->type, TextType::Object);
    EXPECT_EQ(array.element(4)->integer, 7);
    EXPECT_EQ(array.element(6)->integer, 8);
    const TextEntry* const a = array.element(3)->first();
    EXPECT_EQ(std::string(a->name, a->nameSize), "a");
    EXPECT_EQ(a->element(1)->integer, 5);
    const TextEntry* const b = a->next();
    EXPECT_EQ(std::string(b->name, b->nameSize), "b");
    EXPECT_EQ(b->first()->integer, 6);
}

TEST(TextEntry, OfAMessageThatOutgrowsTheTapeStaysWhole) {
    std::string text = "[";
    for (int i = 0; i < 3000; ++i) text += "[" + std::to_string(i) + "],";
    const Taken taken(text + "3000]");
    const TextEntry& array = taken.root();
    ASSERT_EQ(array.size, 3001U);
    EXPECT_EQ(array.behind() - &array, 6002);
    const TextEntry* element = array.first();
    for (int i = 0; i < 3000; ++i, element = element->next()) {
        ASSERT_EQ(element->size, 1U);
        ASSERT_EQ(element->first()->integer, i);
    }
    EXPECT_EQ(element->integer, 3000);
}

}  // namespace
