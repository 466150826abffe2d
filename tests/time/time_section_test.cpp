#include <gtest/gtest.h>

#include <climits>
#include <vector>

#include "testing/json.h"
#include "testing/record.h"

namespace {

using testing_tools::Fields;
using testing_tools::HostileValues;
using testing_tools::Json;
using testing_tools::Placed;
using testing_tools::Text;

std::vector<int> Words(const tagVK_TSECT& section) {
    return {section.bEnable,  section.nBeginHour, section.nBeginMin, section.nBeginSec,
            section.nEndHour, section.nEndMin,    section.nEndSec};
}

TEST(TimeSectionParse, ReadsEveryWord) {
    Placed<tagVK_TSECT> section;
    EXPECT_TRUE(TimeSection::parse(Json(R"("1 08:09:10-17:30:45")"), *section));
    EXPECT_EQ(section->bEnable, 1);
    EXPECT_EQ(section->nBeginHour, 8);
    EXPECT_EQ(section->nBeginMin, 9);
    EXPECT_EQ(section->nBeginSec, 10);
    EXPECT_EQ(section->nEndHour, 17);
    EXPECT_EQ(section->nEndMin, 30);
    EXPECT_EQ(section->nEndSec, 45);
}

struct Row {
    const char* text;
    std::vector<int> words;
};

const Row kConverting[] = {
    {"1 8:0:0-17:30:0",           {1, 8, 0, 0, 17, 30, 0}     },
    {"  1  8: 0: 0-17: 30: 0",    {1, 8, 0, 0, 17, 30, 0}     },
    {"\t-3\n08:00:00-17:30:00",   {-3, 8, 0, 0, 17, 30, 0}    },
    {"25 25:99:99-99:99:99",      {25, 25, 99, 99, 99, 99, 99}},
    {"1 -1:+2:-3--4:5:6",         {1, -1, 2, -3, -4, 5, 6}    },
    {"2147483648 0:0:0-0:0:0",    {INT_MIN, 0, 0, 0, 0, 0, 0} },
    {"0 00:00:00-00:00:00 extra", {0, 0, 0, 0, 0, 0, 0}       },
    {"7 00:00:00-00:00:005",      {7, 0, 0, 0, 0, 0, 0}       },
    {"12345 08:00:00-17:30:00",   {12345, 8, 0, 0, 17, 30, 0} },
};

TEST(TimeSectionParse, TakesWhatTheFormatTakes) {
    for (const Row& row : kConverting) {
        Placed<tagVK_TSECT> section;
        EXPECT_TRUE(TimeSection::parse(Json::Value(row.text), *section)) << row.text;
        EXPECT_EQ(Words(*section), row.words) << row.text;
    }
}

const char* const kFailing[] = {
    "108:00:00-17:30:00",
    "x",
    "1",
    "1 008:00:00-17:30:00",
    "1 08:000:00-17:30:00",
    "1 08:00:000-17:30:00",
    "1 08:00:00-017:30:00",
    "1 08:00:00-17:030:00",
    "1 08-00-00-17:30:00",
    "1 08:00:00 17:30:00",
    "1 08:00:00-17:30",
    "1 08:00:00-17:30:",
    "one 08:00:00-17:30:00",
};

TEST(TimeSectionParse, ThreeDigitsOfATimeAndOtherShapesDoNotConvert) {
    for (const char* text : kFailing) {
        Placed<tagVK_TSECT> section;
        EXPECT_FALSE(TimeSection::parse(Json::Value(text), *section)) << text;
        EXPECT_EQ(std::vector<unsigned char>(section.bytes() + 24, section.bytes() + 28),
                  std::vector<unsigned char>(4, testing_tools::kPattern))
            << text;
    }
}

TEST(TimeSectionParse, ATextThatFailsPartWayLeavesTheWordsBehindTheFailure) {
    Placed<tagVK_TSECT> section;
    EXPECT_FALSE(TimeSection::parse(Json(R"("1 08:00:00 17:30:00")"), *section));
    EXPECT_EQ(section.changedFields(), (Fields{"bEnable", "nBeginHour", "nBeginMin", "nBeginSec"}));
}

TEST(TimeSectionParse, OfAnEmptyTextReturnsFalseWithoutTouchingTheRecord) {
    for (const char* text :
         {R"("")", "null", "[]", R"(["1 08:00:00-17:30:00"])", R"({"a": 1})", "true", R"("\u0000 1")"}) {
        Placed<tagVK_TSECT> section;
        EXPECT_FALSE(TimeSection::parse(Json(text), *section)) << text;
        EXPECT_EQ(section.changedFields(), Fields{}) << text;
    }
}

TEST(TimeSectionParse, ANumberIsItsText) {
    Placed<tagVK_TSECT> section;
    EXPECT_FALSE(TimeSection::parse(Json("12"), *section));
    EXPECT_EQ(section->bEnable, 12);
    EXPECT_EQ(section.changedFields(), Fields{"bEnable"});
}

TEST(TimeSectionParse, IsDefinedForEveryValue) {
    for (const Json::Value& value : HostileValues()) {
        Placed<tagVK_TSECT> section;
        EXPECT_NO_THROW(EXPECT_FALSE(TimeSection::parse(value, *section)));
    }
}

TEST(TimeSectionPack, PrintsTheTimesWithTwoDigits) {
    Json::Value node;
    EXPECT_TRUE(TimeSection::pack(node, tagVK_TSECT{1, 8, 9, 10, 17, 30, 5}));
    EXPECT_EQ(Text(node), R"("1 08:09:10-17:30:05")");
}

TEST(TimeSectionPack, ReplacesWhateverTheNodeHeld) {
    for (Json::Value node : HostileValues()) {
        EXPECT_TRUE(TimeSection::pack(node, tagVK_TSECT{}));
        EXPECT_EQ(Text(node), R"("0 00:00:00-00:00:00")");
    }
}

TEST(TimeSectionPack, PrintsWhatIsOutOfRangeAsItIs) {
    Json::Value node;
    EXPECT_TRUE(TimeSection::pack(node, tagVK_TSECT{-1, 25, 99, 100, -5, -10, 60}));
    EXPECT_EQ(Text(node), R"("-1 25:99:100--5:-10:60")");
    EXPECT_TRUE(TimeSection::pack(node, tagVK_TSECT{INT_MIN, INT_MIN, INT_MIN, INT_MIN, INT_MIN, INT_MIN, INT_MIN}));
    EXPECT_EQ(Text(node), R"("-2147483648 -2147483648:-2147483648:-2147483648--2147483648:-2147483648:-2147483648")");
}

TEST(GetTimeScheduleFromStr, ReadsEveryWordOfAPlainText) {
    Placed<tagVK_TSECT> section;
    EXPECT_TRUE(getTimeScheduleFromStr(*section, "1 08:09:10-17:30:45"));
    EXPECT_EQ(Words(*section), (std::vector<int>{1, 8, 9, 10, 17, 30, 45}));
}

TEST(GetTimeScheduleFromStr, TakesWhatTheParserOfSectionsTakes) {
    for (const Row& row : kConverting) {
        Placed<tagVK_TSECT> section;
        EXPECT_TRUE(getTimeScheduleFromStr(*section, row.text)) << row.text;
        EXPECT_EQ(Words(*section), row.words) << row.text;
    }
    for (const char* text : kFailing) {
        Placed<tagVK_TSECT> section;
        EXPECT_FALSE(getTimeScheduleFromStr(*section, text)) << text;
    }
}

TEST(GetTimeScheduleFromStr, AnEmptyOrNullTextDoesNotConvert) {
    Placed<tagVK_TSECT> section;
    EXPECT_FALSE(getTimeScheduleFromStr(*section, ""));
    EXPECT_FALSE(getTimeScheduleFromStr(*section, nullptr));
    EXPECT_EQ(section.changedFields(), Fields{});
}

}  // namespace
