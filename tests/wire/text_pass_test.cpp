#include "vkprotocolstack/wire/text_pass.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

#include "taken.h"
#include "vkprotocolstack/wire/names.h"
#include "vkprotocolstack/wire/text_entry.h"

namespace {

using jsonparser::IsStepTo;
using jsonparser::NameIndex;
using jsonparser::NameList;
using jsonparser::TakeStep;
using jsonparser::TextEntry;
using jsonparser::TextPassForm;
using jsonparser::TextStep;
using jsonparser::TextType;
using jsonparser::TreeOf;
using testing_tools::Taken;

TEST(TakeStep, TakesNamesAndIndexesOffAPointer) {
    constexpr std::size_t kNone = TextStep::kNoIndex;
    const struct {
        std::string_view pointer;
        std::string_view name;
        bool escaped;
        std::size_t index;
        std::string_view rest;
    } rows[] = {
        {"/",            "",           false, kNone,     ""   },
        {"//",           "",           false, kNone,     "/"  },
        {"/a",           "a",          false, kNone,     ""   },
        {"/ab/c",        "ab",         false, kNone,     "/c" },
        {"/0",           "0",          false, 0,         ""   },
        {"/00",          "00",         false, kNone,     ""   },
        {"/01",          "01",         false, kNone,     ""   },
        {"/10/2",        "10",         false, 10,        "/2" },
        {"/999999999/x", "999999999",  false, 999999999, "/x" },
        {"/1000000000",  "1000000000", false, kNone,     ""   },
        {"/1a",          "1a",         false, kNone,     ""   },
        {"/-1",          "-1",         false, kNone,     ""   },
        {"/~0/~1",       "~0",         true,  kNone,     "/~1"},
        {"/a~1b",        "a~1b",       true,  kNone,     ""   },
    };
    for (const auto& row : rows) {
        std::string_view pointer = row.pointer;
        const TextStep step = TakeStep(pointer);
        EXPECT_EQ(std::string_view(step.name, step.size), row.name) << row.pointer;
        EXPECT_EQ(step.escaped, row.escaped) << row.pointer;
        EXPECT_EQ(step.index, row.index) << row.pointer;
        EXPECT_EQ(pointer, row.rest) << row.pointer;
    }
}

TEST(IsStepTo, ComparesWithEscapesResolved) {
    const struct {
        std::string_view pointer;
        std::string_view name;
        bool same;
    } rows[] = {
        {"/",     "",     true },
        {"/",     "a",    false},
        {"/a",    "",     false},
        {"/ab",   "ab",   true },
        {"/ab",   "a",    false},
        {"/a",    "ab",   false},
        {"/~0",   "~",    true },
        {"/~1",   "/",    true },
        {"/~01",  "~1",   true },
        {"/~1~0", "/~",   true },
        {"/~1~0", "/",    false},
        {"/~1",   "/a",   false},
        {"/a~1b", "a/b",  true },
        {"/a~1b", "a~1b", false},
        {"/~2",   "~2",   true },
        {"/~",    "~",    true },
        {"/a~",   "a~",   true },
        {"/~0",   "",     false},
    };
    for (const auto& row : rows) {
        std::string_view pointer = row.pointer;
        const TextStep step = TakeStep(pointer);
        EXPECT_EQ(IsStepTo(step, row.name.data(), row.name.size()), row.same) << row.pointer << ' ' << row.name;
    }
}

class EveryForm : public testing::TestWithParam<TextPassForm> {
  protected:
    void SetUp() override {
        if (!jsonparser::UseTextPassForm(GetParam())) GTEST_SKIP() << "this machine has no such form";
    }
    ~EveryForm() override { jsonparser::UseBestTextPassForm(); }
};

std::string NameOf(const testing::TestParamInfo<TextPassForm>& form) {
    constexpr const char* kForms[] = {"Plain", "Sse2", "Avx2"};
    return kForms[static_cast<int>(form.param)];
}

INSTANTIATE_TEST_SUITE_P(Of, EveryForm, testing::Values(TextPassForm::Plain, TextPassForm::Sse2, TextPassForm::Avx2),
                         NameOf);

TEST_P(EveryForm, FindsTheEndOfATextWhereverBlocksEnd) {
    for (std::size_t before = 0; before < 70; before += 3) {
        for (std::size_t size = 0; size < 140; ++size) {
            const std::string plain(size, 'x');
            const Taken taken(std::string(before, ' ') + "[\"" + plain + "\",\"y\"]");
            ASSERT_EQ(taken.root().size, 2U) << before << ' ' << size;
            const jsonparser::TextEntry& first = *taken.root().element(0);
            ASSERT_EQ(std::string_view(first.text, first.size), plain);
            ASSERT_EQ(first.type, TextType::Text);
        }
    }
}

// Endings are found for some kilobytes at once, then for the next from where the pass stands.
TEST_P(EveryForm, FindsTheEndsOfManyTextsAndOfLongOnes) {
    for (const std::size_t length : {1U, 7U, 56U, 57U, 63U, 64U, 65U, 250U, 2046U, 2047U, 2048U, 2049U, 5000U}) {
        std::string text = "[";
        for (std::size_t i = 0; i < 80; ++i) text += '"' + std::string(length + i % 9, 'x') + "\",";
        const Taken taken(text + "0]");
        ASSERT_EQ(taken.root().size, 81U) << length;
        for (std::size_t i = 0; i < 80; ++i) ASSERT_EQ(taken.root().element(i)->size, length + i % 9) << i;
    }
}

TEST_P(EveryForm, TakesNoEscapedQuoteForTheEndWhereverBlocksEnd) {
    for (std::size_t size = 0; size < 140; ++size) {
        for (const std::string escapes : {"\\\"", "\\\\", "\\\\\\\"", "\\u0022\\\\"}) {
            const std::string text = std::string(size, 'x') + escapes;
            const Taken taken("[\"" + text + "\",\"y\"]");
            ASSERT_TRUE(taken.accepted()) << text;
            const jsonparser::TextEntry& first = *taken.root().element(0);
            ASSERT_EQ(std::string_view(first.text, first.size), text);
            ASSERT_EQ(first.type, TextType::EscapedText);
            ASSERT_EQ(taken.root().element(1)->size, 1U);
        }
    }
}

TEST_P(EveryForm, DeclinesAControlCharacterInATextWhereverItStands) {
    for (std::size_t at = 0; at < 140; ++at) {
        for (const char byte : {'\0', '\x01', '\t', '\n', '\x1F'}) {
            std::string text(150, 'x');
            text[at] = byte;
            ASSERT_FALSE(Taken('"' + text + '"').accepted()) << at;
            text[at] = '\x7F';
            ASSERT_TRUE(Taken('"' + text + '"').accepted()) << at;
            text[at] = '\x80';  // whether it is UTF-8 is not the pass's to say
            ASSERT_TRUE(Taken('"' + text + '"').accepted()) << at;
        }
    }
}

TEST_P(EveryForm, AllowsAsManyLevelsAsItIsTold) {
    for (const std::size_t levels : {2U, 3U, 64U, 65U, 127U, 128U, 999U, 1000U}) {
        const std::string arrays = std::string(levels, '[') + std::string(levels, ']');
        EXPECT_TRUE(Taken(arrays, levels).accepted()) << levels;
        EXPECT_FALSE(Taken(arrays, levels - 1).accepted()) << levels;
        EXPECT_FALSE(Taken(std::string(levels, '[') + "1" + std::string(levels, ']'), levels).accepted()) << levels;
        std::string objects = "{}";
        for (std::size_t i = 1; i < levels; ++i) objects = R"({"a":)" + objects + '}';
        EXPECT_TRUE(Taken(objects, levels).accepted()) << levels;
        EXPECT_FALSE(Taken(objects, levels - 1).accepted()) << levels;
    }
}

TEST_P(EveryForm, SaysWhereItStopped) {
    const struct {
        std::string_view text;
        std::size_t stop;
    } rows[] = {
        {"",            0},
        {"  ",          0},
        {"[1,]",        3},
        {"[1 2]",       3},
        {R"({"a" 1})",  5},
        {R"({"a":1,})", 7},
        {"[1]x",        0},
        {"nul",         0},
        {"[tru]",       1},
        {"{1}",         1},
    };
    for (const auto& row : rows) {
        const Taken taken{std::string(row.text)};
        EXPECT_FALSE(taken.accepted()) << row.text;
        EXPECT_EQ(static_cast<std::size_t>(taken.pass().stop - taken.pass().begin), row.stop) << row.text;
        EXPECT_FALSE(taken.pass().noMemory);
    }
}

TEST_P(EveryForm, DeclinesEveryBeginningOfAMessage) {
    const std::string text = R"({"a":[1,-2.5e3,"x\n",{"b":null,"c":[true,false]}],"d":{"e":"\ud83d\ude00"}})";
    for (std::size_t size = 0; size < text.size(); ++size) {
        const std::vector<char> bytes(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(size));
        EXPECT_FALSE(Taken(std::string(bytes.begin(), bytes.end())).accepted()) << size;
    }
    EXPECT_TRUE(Taken(text).accepted());
}

constexpr NameList kExpected{"First", "Second", "UpperBodyColorSimilarity", "T", ""};

/// An object that is matched against the list.
class Expected {
  public:
    explicit Expected(std::string text)
        : index_(kExpected.index()), taken_(std::move(text), 128, TextType::Text, &index_) {}

    bool accepted() const { return taken_.accepted(); }
    const TextEntry& root() const { return taken_.root(); }
    /// The member in the slot of that name, or null.
    const TextEntry* member(std::string_view name) const {
        EXPECT_EQ(root().matched, index_.names);
        const jsonparser::MarkedEntry* const slots = jsonparser::SlotsOf(&root(), index_.count);
        for (std::size_t i = 0; i < index_.count; ++i) {
            if (index_.names[i] != name || slots[i] == 0) continue;
            return reinterpret_cast<const TextEntry*>(slots[i] - jsonparser::kOnTape);
        }
        return nullptr;
    }
    std::int64_t integer(std::string_view name) const {
        const TextEntry* const found = member(name);
        if (found == nullptr || found->type != TextType::Integer) return -1;
        EXPECT_EQ(std::string_view(found->name, found->nameSize), name);
        return found->integer;
    }

  private:
    NameIndex index_;
    Taken taken_;
};

TEST_P(EveryForm, FindsExpectedMembersInAnyOrderAndWithBlanks) {
    for (const std::string between : {"", " ", "  ", "\n\t"}) {
        const auto member = [&](std::string_view name, int value) {
            return between + '"' + std::string(name) + '"' + between + ':' + between + std::to_string(value) + between;
        };
        const std::string_view names[] = {"First", "Second", "UpperBodyColorSimilarity", "T", ""};
        for (std::size_t begin = 0; begin < 5; ++begin) {
            for (const std::size_t step : {1U, 2U, 3U, 4U}) {
                std::string text = between + '{';
                for (std::size_t i = 0; i < 5; ++i) {
                    const std::size_t which = (begin + i * step) % 5;
                    text += member(names[which], static_cast<int>(which)) + ',' + member("Firs", 8) + ',' +
                            member("Firstly", 9) + (i < 4 ? "," : "}");
                }
                const Expected object(text);
                ASSERT_EQ(object.root().size, 15U) << text;
                for (int i = 0; i < 5; ++i) ASSERT_EQ(object.integer(names[i]), i) << text;
            }
        }
    }
}

TEST_P(EveryForm, LeavesTheSlotsOfMissingMembersEmpty) {
    for (const std::string text : {"{}", "{ }", R"({"A":1})", R"({"firsT":1,"First ":2})"}) {
        const Expected object(text);
        for (const std::string_view name : kExpected.names) EXPECT_EQ(object.member(name), nullptr) << text << name;
    }
}

TEST_P(EveryForm, DeclinesEveryBeginningOfAnObjectOfExpectedMembers) {
    const std::string text = R"({"First":[1,{"a":2}],"Second":{"b":"x"},"T":"y","Other":[3],"":-4.5})";
    for (std::size_t size = 0; size < text.size(); ++size) {
        EXPECT_FALSE(Expected(text.substr(0, size)).accepted()) << size;
    }
    EXPECT_TRUE(Expected(text).accepted());
}

TEST_P(EveryForm, TakesTheLastOfExpectedMembersThatStandSeveralTimes) {
    const Expected object(R"({"First":1,"Second":2,"First":3,"T":4,"T":5,"":6,"First":7,"":8})");
    EXPECT_EQ(object.root().size, 8U);
    EXPECT_EQ(object.integer("First"), 7);
    EXPECT_EQ(object.integer("Second"), 2);
    EXPECT_EQ(object.integer("T"), 5);
    EXPECT_EQ(object.integer(""), 8);
}

/// Expects the integers of an object with these members, among others.
void FindFirstToFourth(const std::string& text) {
    const Expected object(text);
    ASSERT_EQ(object.integer("First"), 1) << text;
    ASSERT_EQ(object.integer("Second"), 2) << text;
    ASSERT_EQ(object.integer("T"), 3) << text;
    ASSERT_EQ(object.integer(""), 4) << text;
    std::uint32_t children = 0;
    for (const TextEntry* child = object.root().first(); child != object.root().behind(); child = child->next()) {
        ++children;
    }
    ASSERT_EQ(object.root().size, children) << text;
}

// On threads of their own: the tape begins with 256 entries and doubles. Then it moves, and the slots with it.
TEST_P(EveryForm, KeepsTheSlotsOfExpectedMembersWhereverTheTapeMoves) {
    for (std::size_t others = 230; others < 260; ++others) {
        std::string members;
        for (std::size_t i = 0; i < others; ++i) members += R"("x":0,)";
        std::string elements = "0";
        for (std::size_t i = 1; i < others; ++i) elements += ",0";
        for (const std::string& text : {R"({"First":1,)" + members + R"("Second":2,"T":3,"":4})",
                                        R"({"First":1,"x":[)" + elements + R"(],"Second":2,"T":3,"":4})",
                                        R"({"First":1,"x":{)" + members + R"("y":[)" + elements + R"(]},"x":[)" +
                                            elements + R"(],"Second":2,"T":3,"":4})"}) {
            std::thread(FindFirstToFourth, text).join();
        }
    }
}

/// Where the pass declines the bytes, matched against the list, with nothing behind them; 0 where it accepts them.
std::size_t StopOf(const std::vector<char>& bytes, const NameIndex& index) {
    jsonparser::TextTape tape{nullptr, 0};
    jsonparser::TextPass pass{};
    pass.begin = pass.stop = bytes.data();
    pass.end = pass.begin + bytes.size();
    pass.maxDepth = 128;
    pass.plainText = TextType::Text;
    pass.expected = &index;
    pass.tape = &tape;
    return jsonparser::RunTextPass(pass) ? 0 : static_cast<std::size_t>(pass.stop - pass.begin);
}

// Behind the last name of a list stands one of no bytes.
TEST_P(EveryForm, TakesNoBytesForNoName) {
    static constexpr NameList kEmpty{""};
    static constexpr NameIndex kIndex = kEmpty.index();
    for (const std::size_t blanks : {0U, 1U, 20U, 40U}) {
        std::string text = R"({)" + std::string(blanks, ' ') + R"("":1,)";
        const std::size_t before = text.size();
        text += std::string(5, '\0') + '}';
        EXPECT_EQ(StopOf({text.begin(), text.end()}, kIndex), before) << blanks;
    }
}

// Wherever the last member begins.
TEST_P(EveryForm, ReadsNothingBehindExpectedMembersThatAreCutOff) {
    static constexpr NameList kLong{"First", "abcdefghijklmnopqrstuvwxyz", "T"};
    static constexpr NameIndex kIndex = kLong.index();
    const std::string text = R"({"First":1,"abcdefghijklmnopqrstuvwxyz":"two","T":3})";
    for (std::size_t size = 0; size < text.size(); ++size) {
        std::vector<char> bytes(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(size));
        EXPECT_LE(StopOf(bytes, kIndex), size);
        for (const char last : {'}', ']', '"', ':'}) {
            if (bytes.empty()) continue;
            bytes.back() = last;
            EXPECT_LE(StopOf({bytes.begin(), bytes.end()}, kIndex), size);
        }
    }
    const Taken taken(text, 128, TextType::Text, &kIndex);
    EXPECT_TRUE(taken.accepted());
    for (std::size_t i = 0; i < kIndex.count; ++i) EXPECT_NE(jsonparser::SlotsOf(&taken.root(), 3)[i], 0U) << i;
}

/// The text of an object whose members have these names, and as values their places.
std::string ObjectOf(const std::vector<std::string_view>& names) {
    std::string text = "{";
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (i > 0) text += ',';
        text += '"' + std::string(names[i]) + "\":" + std::to_string(i);
    }
    return text + '}';
}

// What followed a name in one message is expected there in the next.
TEST_P(EveryForm, FindsExpectedMembersWhateverOrderTheMessagesBeforeHad) {
    std::mt19937 random(20240105);
    std::vector<std::string_view> names(kExpected.names.begin(), kExpected.names.end());
    names.insert(names.end(), {"First", "T", "Other", "Firs", "UpperBodyColorSimilarityX"});
    for (int round = 0; round < 2000; ++round) {
        if (random() % 3 == 0) std::shuffle(names.begin(), names.end(), random);
        const std::vector<std::string_view> some(names.begin(), names.begin() + static_cast<long>(random() % 11));
        const Expected object(ObjectOf(some));
        ASSERT_EQ(object.root().size, some.size());
        for (const std::string_view name : kExpected.names) {
            const auto last = std::find(some.rbegin(), some.rend(), name);
            ASSERT_EQ(object.integer(name), last == some.rend() ? -1 : some.rend() - last - 1) << ObjectOf(some);
        }
    }
}

// On a thread of its own: the tape begins with 256 entries, and the first message leaves it the order.
TEST_P(EveryForm, MakesRoomForMembersThatKeepComingInTheOrderOfTheMessageBefore) {
    std::thread([] {
        std::vector<std::string_view> names{"T", "First", "T", "First", "Second", "First", ""};
        EXPECT_EQ(Expected(ObjectOf(names)).integer(""), 6);
        names.clear();
        for (int i = 0; i < 1000; ++i) names.emplace_back(i % 2 == 0 ? "T" : "First");
        const Expected object(ObjectOf(names));
        EXPECT_EQ(object.root().size, 1000U);
        EXPECT_EQ(object.integer("T"), 998);
        EXPECT_EQ(object.integer("First"), 999);
    }).join();
}

constexpr char kPairs[] =
    "a0a1a2a3a4a5a6a7a8a9b0b1b2b3b4b5b6b7b8b9c0c1c2c3c4c5c6c7c8c9d0d1d2d3d4d5d6d7d8d9e0e1e2e3e4e5e6e7e8e9"
    "f0f1f2f3f4f5f6f7f8f9g0g1g2g3g4g5g6g7g8g9";
template <std::size_t... I>
consteval auto PairsList(std::index_sequence<I...>) {
    return NameList(std::string_view(kPairs + 2 * I, 2)...);
}

/// Reads members in the list's order and backwards, twice each, and expects all to be found.
template <const auto& List>
void FindAllBothWays() {
    const NameIndex index = List.index();
    std::vector<std::string_view> names(List.names.begin(), List.names.end());
    for (int round = 0; round < 8; ++round) {
        if (round % 2 == 0) std::reverse(names.begin(), names.end());
        const Taken taken(ObjectOf(names), 128, TextType::Text, &index);
        const jsonparser::MarkedEntry* const slots = jsonparser::SlotsOf(&taken.root(), index.count);
        for (std::size_t i = 0; i < index.count; ++i) {
            ASSERT_NE(slots[i], 0U) << index.names[i];
            const auto& entry = *reinterpret_cast<const TextEntry*>(slots[i] - jsonparser::kOnTape);
            ASSERT_EQ(std::string_view(entry.name, entry.nameSize), index.names[i]);
        }
    }
}

// Orders of a few lists are kept, and of lists that are not too long.
TEST_P(EveryForm, FindsExpectedMembersOfManyListsAndOfLongOnes) {
    static constexpr auto kFew = PairsList(std::make_index_sequence<3>());
    static constexpr auto kOne = PairsList(std::make_index_sequence<1>());
    static constexpr auto kMany = PairsList(std::make_index_sequence<62>());
    static constexpr auto kMost = PairsList(std::make_index_sequence<63>());
    static constexpr auto kMore = PairsList(std::make_index_sequence<64>());
    static constexpr auto kAll = PairsList(std::make_index_sequence<70>());
    for (int round = 0; round < 3; ++round) {
        FindAllBothWays<kFew>();
        FindAllBothWays<kMost>();
        FindAllBothWays<kOne>();
        FindAllBothWays<kMore>();
        FindAllBothWays<kMany>();
        FindAllBothWays<kAll>();
    }
}

TEST_P(EveryForm, ReadsIntegersOfAnyLengthWhateverIsBehindThem) {
    for (const std::string sign : {"", "-"}) {
        for (std::size_t digits = 1; digits < 25; ++digits) {
            for (const char first : {'1', '9'}) {
                const std::string number = sign + first + std::string("234567890123456789012345").substr(0, digits - 1);
                for (const std::string behind : {",1]", "]", " ]", " ,1]", "\n]"}) {
                    const Taken taken('[' + number + behind);
                    const TextEntry& entry = taken.first();
                    if (entry.type == TextType::Integer) {
                        ASSERT_EQ(std::to_string(entry.integer), number);
                    } else if (entry.type == TextType::Unsigned) {
                        ASSERT_EQ(std::to_string(entry.unsignedInteger), number);
                    } else {
                        ASSERT_EQ(entry.type, TextType::Real);
                        ASSERT_GE(digits, 19U);
                        double expected = 0;
                        std::from_chars(number.data(), number.data() + number.size(), expected);
                        ASSERT_EQ(entry.real, expected);
                    }
                }
                ASSERT_FALSE(Taken("[" + sign + '0' + number.substr(sign.size()) + "]").accepted()) << number;
            }
        }
    }
}

// An array that begins with a digit is first taken for one of short integers, and one that begins with a quote for one
// of short texts: with a blank before that it never is.
TEST_P(EveryForm, TakesFlatArraysDownAsAnyOthers) {
    NameIndex expected = kExpected.index();
    const std::string bodies[] = {
        "1",
        "0",
        "12,345,6789,12345,0",
        "123456789012345678",
        "1234567890123456789",
        "18446744073709551616",
        "00",
        "1,01",
        "1,2.5",
        "1,2.",
        "1,-2",
        "1,\"x\"",
        "1,[2]",
        "1,{}",
        "1,null",
        "1 ,2",
        "1, 2",
        "1,2 ",
        "1,",
        "1,,2",
        "1}",
        "1e5",
        "1,[2,3],[4,[5,6]]",
        "1,{\"a\":[2,3]}",
        "1x",
        "1\"a\"",
        R"("")",
        R"("a","","bc","")",
        R"("a",1)",
        R"("a",["b"])",
        R"("a",{})",
        R"("a" ,"b")",
        R"("a", "b")",
        R"("a","b" )",
        R"("a",)",
        R"("a",,"b")",
        R"("a"})",
        R"("a":"b")",
        R"("a""b")",
        R"("a","b\n","c")",
        R"("a","\x")",
        "\"a\",\"b\x01\"",
        R"("a","b)",
        R"("a",["b","c"],[["d"],"e"])",
        R"("a",{"a":["b"]})",
    };
    for (const std::string& body : bodies) {
        const auto message = [&body](const std::string& blank) {
            const std::string array = '[' + blank + body + ']';
            return R"({"First":)" + array + R"(,"x":{"y":)" + array + R"(,"z":[)" + array + ',' + array +
                   R"(]},"Second":)" + array + '}';
        };
        for (const NameIndex* names : {&expected, static_cast<NameIndex*>(nullptr)}) {
            for (std::size_t depth = 1; depth < 9; ++depth) {
                const Taken compact(message(""), depth, TextType::Text, names);
                const Taken blank(message(" "), depth, TextType::Text, names);
                ASSERT_EQ(compact.accepted(), blank.accepted()) << body << ' ' << depth;
                if (!compact.accepted()) continue;
                ASSERT_EQ(TreeOf(compact.root()), TreeOf(blank.root())) << body << ' ' << depth;
            }
        }
    }
}

TEST_P(EveryForm, TakesArraysOfTextsDownWhereverTheyStandAndEnd) {
    for (std::size_t before = 0; before < 9; ++before) {
        for (std::size_t size = 0; size < 70; ++size) {
            std::string message = '[' + std::string(before, ' ') + "[";
            for (std::size_t i = 0; i < 400; ++i) message += '"' + std::string(size + i % 3, 'x') + "\",";
            message.back() = ']';
            const Taken taken(message + ",0]");
            ASSERT_EQ(taken.root().size, 2U) << before << ' ' << size;
            const jsonparser::TextEntry& array = taken.first();
            ASSERT_EQ(array.size, 400U) << before << ' ' << size;
            ASSERT_TRUE(array.isFlat());
            for (std::size_t i = 0; i < 400; ++i) ASSERT_EQ(array.element(i)->size, size + i % 3) << before << ' ' << i;
        }
    }
}

// Its bracket is the message's last byte, as one that closes the message would be.
TEST_P(EveryForm, DeclinesAMessageThatEndsWithAFlatArrayInIt) {
    for (const std::string text : {"[[\"a\"]", "[0,[\"a\",\"b\"]", "[[1]", R"([{"a":[1])", "[0,[1,2]", "[[[1]]"}) {
        const Taken taken(text);
        EXPECT_FALSE(taken.accepted()) << text;
        EXPECT_EQ(taken.pass().stop, taken.pass().end) << text;
    }
    const std::string text = R"([{"First":[1])";
    const TextStep step{"0", 1, false, 0};
    const NameIndex expected = kExpected.index();
    jsonparser::TextTape tape(nullptr, 0);
    jsonparser::TextPass pass{};
    pass.begin = text.data();
    pass.end = text.data() + text.size();
    pass.steps = &step;
    pass.stepCount = 1;
    pass.expected = &expected;
    pass.maxDepth = 128;
    pass.plainText = TextType::Text;
    pass.tape = &tape;
    EXPECT_FALSE(jsonparser::RunTextPass(pass));
    EXPECT_EQ(pass.stop, pass.end);
}

/// Whether the pass accepts the message, of which the member is read, and then whether it has met a real.
struct Passed {
    explicit Passed(const std::string& text, std::string_view member) {
        const TextStep step{member.data(), static_cast<std::uint32_t>(member.size()), false, TextStep::kNoIndex};
        const std::unique_ptr<char[]> bytes(new char[text.size()]);  // so that reading behind them shows
        text.copy(bytes.get(), text.size());
        jsonparser::TextTape tape(nullptr, 0);
        jsonparser::TextPass pass{};
        pass.begin = pass.stop = bytes.get();
        pass.end = bytes.get() + text.size();
        pass.steps = &step;
        pass.stepCount = 1;
        pass.maxDepth = 1000;
        pass.plainText = TextType::Text;
        pass.tape = &tape;
        accepted = jsonparser::RunTextPass(pass);
        hasReal = accepted && pass.hasReal;
    }

    bool accepted;
    bool hasReal;
};

/// Messages in which the value stands where nobody reads are passed as the value is where it is read.
void ExpectCheckedAsRead(const std::string& value) {
    const Taken taken('[' + value + ']');
    for (const std::string& text :
         {R"({"other":{"a":)" + value + R"(,"b":1},"part":1})", R"({"other":[)" + value + R"(,1],"part":1})",
          R"({"other":[)" + value + R"(],"part":1})", R"({"part":1,"other":{"a":)" + value + "}}",
          R"({"part":1,"other":)" + value + "}"}) {
        const Passed passed(text, "part");
        ASSERT_EQ(passed.accepted, taken.accepted()) << text;
        ASSERT_EQ(passed.hasReal, taken.accepted() && taken.pass().hasReal) << text;
    }
}

TEST_P(EveryForm, ChecksValuesThatNobodyReadsAsThoseThatAreRead) {
    for (std::size_t digits = 1; digits < 130; ++digits) {
        const std::string number(digits, '7');
        for (const std::string sign : {"", "-"}) {
            for (const std::string behind : {"", ".5", ".50", ".", ".e1", "e1", "e+1", "e", "e+", "e99", "e100", "E-99",
                                             "x", ".5e5", "..5", "-"}) {
                ASSERT_NO_FATAL_FAILURE(ExpectCheckedAsRead(sign + number + behind));
            }
            ASSERT_FALSE(Passed(R"({"other":[)" + sign + '0' + number + R"(],"part":1})", "part").accepted);
        }
    }
    for (const std::string value : {"0",
                                    "-0",
                                    "0.5",
                                    "-",
                                    "+1",
                                    ".5",
                                    "true",
                                    "false",
                                    "null",
                                    "tru",
                                    "truex",
                                    "nul",
                                    "fals",
                                    "\"\"",
                                    "\"x\"",
                                    "\"\\n\"",
                                    "\"\\x\"",
                                    "\"\n\"",
                                    "\"",
                                    "[]",
                                    "{}",
                                    "[ ]",
                                    "{ }",
                                    "[[],{}]",
                                    "{\"a\" : [ 1 , 2 ] }",
                                    "[1,]",
                                    "{\"a\"}",
                                    "{1:2}",
                                    "{\"a\":}",
                                    " 1 ",
                                    "18446744073709551615",
                                    "18446744073709551616",
                                    "-9223372036854775808",
                                    "-9223372036854775809",
                                    "99999999999999999999"}) {
        ASSERT_NO_FATAL_FAILURE(ExpectCheckedAsRead(value));
    }
}

TEST_P(EveryForm, PairsTheBracketsOfValuesThatNobodyReads) {
    for (const std::size_t levels : {1U, 2U, 63U, 64U, 65U, 66U, 127U, 128U, 129U, 130U, 191U, 192U, 193U, 256U}) {
        std::string opening;
        std::string closing;
        for (std::size_t i = 0; i < levels; ++i) {
            opening += i % 3 == 0 ? "[" : R"({"a":)";
            closing.insert(closing.begin(), i % 3 == 0 ? ']' : '}');
        }
        const auto passes = [&opening](const std::string& closed) {
            return Passed(R"({"other":)" + opening + '1' + closed + R"(,"part":1})", "part").accepted;
        };
        EXPECT_TRUE(passes(closing)) << levels;
        for (std::size_t i = 0; i < levels; ++i) {
            std::string crossed = closing;
            crossed[i] = crossed[i] == ']' ? '}' : ']';
            EXPECT_FALSE(passes(crossed)) << levels << ' ' << i;
        }
    }
}

}  // namespace
