#include "vkprotocolstack/wire/text_pass.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "taken.h"

namespace {

using jsonparser::IsStepTo;
using jsonparser::TakeStep;
using jsonparser::TextPassForm;
using jsonparser::TextStep;
using jsonparser::TextType;
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

}  // namespace
