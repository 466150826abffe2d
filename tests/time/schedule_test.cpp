#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <string>
#include <vector>

#include "testing/json.h"
#include "testing/record.h"
#include "vkprotocolstack/message_text.h"

namespace {

using testing_tools::Fields;
using testing_tools::HostileValues;
using testing_tools::Json;
using testing_tools::Placed;
using testing_tools::Text;

using WordArray = std::array<int, 7>;

template <class Section>
WordArray Words(const Section& section) {
    WordArray words;
    std::memcpy(words.data(), &section, sizeof words);
    return words;
}

template <class Section>
Section SectionOf(const WordArray& words) {
    Section section;
    std::memcpy(&section, words.data(), sizeof words);
    return section;
}

constexpr WordArray kZeros{};
constexpr int kPatternWord = static_cast<int>(0xA5A5A5A5U);
constexpr WordArray kUntouched{kPatternWord, kPatternWord, kPatternWord, kPatternWord,
                               kPatternWord, kPatternWord, kPatternWord};

/// Words that no other row and segment has.
WordArray WordsOf(int row, int segment) {
    return {row * 10 + segment + 1, row, segment, 59, row + 10, segment + 20, 58};
}

std::string TextOf(int row, int segment) {
    const WordArray w = WordsOf(row, segment);
    const auto two = [](int number) { return (number < 10 ? "0" : "") + std::to_string(number); };
    return std::to_string(w[0]) + ' ' + two(w[1]) + ':' + two(w[2]) + ':' + two(w[3]) + '-' + two(w[4]) + ':' +
           two(w[5]) + ':' + two(w[6]);
}

Json::Value Schedule(int rows, int segments) {
    Json::Value schedule(Json::arrayValue);
    for (int r = 0; r < rows; ++r) {
        Json::Value row(Json::arrayValue);
        for (int s = 0; s < segments; ++s) row.append(TextOf(r, s));
        schedule.append(row);
    }
    return schedule;
}

template <class Record>
class ScheduleOf : public testing::Test {};
using Schedules = testing::Types<tagNET_CFG_TIME_SCHEDULE, tagCFG_TIME_SCHEDULE>;
TYPED_TEST_SUITE(ScheduleOf, Schedules, );

/// The record's segments: those before rows with their own words, the rest cleared.
template <class Record>
void ExpectRows(const Record& schedule, int rows, int segments = 6) {
    for (int r = 0; r < 8; ++r) {
        for (int s = 0; s < 6; ++s) {
            EXPECT_EQ(Words(schedule.stuTimeSection[r][s]), r < rows && s < segments ? WordsOf(r, s) : kZeros)
                << "row " << r << ", segment " << s;
        }
    }
}

TYPED_TEST(ScheduleOf, ReadsEverySegmentIntoItsPlace) {
    Placed<TypeParam> schedule;
    EXPECT_EQ(GetJsonTimeSchedule(Json(R"([
        ["1 02:03:04-05:06:07", "8 09:10:11-12:13:14"], ["15 16:17:18-19:20:21"], [], [], [],
        [], ["0 00:00:00-00:00:00", "0 00:00:00-00:00:00", "0 00:00:00-00:00:00", "0 00:00:00-00:00:00",
             "0 00:00:00-00:00:00", "22 23:24:25-26:27:28"]])"),
                                  *schedule),
              1);
    EXPECT_EQ(Words(schedule->stuTimeSection[0][0]), (WordArray{1, 2, 3, 4, 5, 6, 7}));
    EXPECT_EQ(Words(schedule->stuTimeSection[0][1]), (WordArray{8, 9, 10, 11, 12, 13, 14}));
    EXPECT_EQ(Words(schedule->stuTimeSection[1][0]), (WordArray{15, 16, 17, 18, 19, 20, 21}));
    EXPECT_EQ(Words(schedule->stuTimeSection[6][5]), (WordArray{22, 23, 24, 25, 26, 27, 28}));
    EXPECT_FALSE(schedule->bEnableHoliday);
    Json::Value full = Schedule(8, 6);
    EXPECT_EQ(GetJsonTimeSchedule(full, *schedule), 1);
    ExpectRows(*schedule, 8);
}

TYPED_TEST(ScheduleOf, SevenRowsHaveNoHoliday) {
    Placed<TypeParam> schedule;
    EXPECT_EQ(GetJsonTimeSchedule(Schedule(7, 6), *schedule), 1);
    EXPECT_FALSE(schedule->bEnableHoliday);
    ExpectRows(*schedule, 7);
}

TYPED_TEST(ScheduleOf, EightRowsHaveAHoliday) {
    Placed<TypeParam> schedule;
    EXPECT_EQ(GetJsonTimeSchedule(Schedule(8, 6), *schedule), 1);
    EXPECT_TRUE(schedule->bEnableHoliday);
    ExpectRows(*schedule, 8);
}

TYPED_TEST(ScheduleOf, OfNineRowsTheFirstEightAreRead) {
    Placed<TypeParam> schedule;
    EXPECT_EQ(GetJsonTimeSchedule(Schedule(9, 6), *schedule), 1);
    EXPECT_TRUE(schedule->bEnableHoliday);
    ExpectRows(*schedule, 8);
}

TYPED_TEST(ScheduleOf, SixRowsFailAndAreKept) {
    Placed<TypeParam> schedule;
    EXPECT_EQ(GetJsonTimeSchedule(Schedule(6, 6), *schedule), 0);
    EXPECT_FALSE(schedule->bEnableHoliday);
    ExpectRows(*schedule, 6);
}

TYPED_TEST(ScheduleOf, ASeventhSegmentIsIgnored) {
    Placed<TypeParam> schedule;
    EXPECT_EQ(GetJsonTimeSchedule(Schedule(7, 7), *schedule), 1);
    ExpectRows(*schedule, 7);
}

TYPED_TEST(ScheduleOf, FewerSegmentsLeaveTheRestOfTheirRowsZero) {
    Placed<TypeParam> schedule;
    EXPECT_EQ(GetJsonTimeSchedule(Schedule(7, 5), *schedule), 1);
    ExpectRows(*schedule, 7, 5);
}

TYPED_TEST(ScheduleOf, ARowThatIsNoArrayOrEmptyStaysZeroAndDoesNotFail) {
    for (const char* row : {"5", "[]", "null", "{}", R"({"0": "1 02:03:04-05:06:07"})", R"("1 02:03:04-05:06:07")"}) {
        Placed<TypeParam> schedule;
        Json::Value value = Schedule(8, 6);
        value[2] = Json(row);
        EXPECT_EQ(GetJsonTimeSchedule(value, *schedule), 1) << row;
        EXPECT_TRUE(schedule->bEnableHoliday) << row;
        for (int s = 0; s < 6; ++s) {
            EXPECT_EQ(Words(schedule->stuTimeSection[1][s]), WordsOf(1, s)) << row;
            EXPECT_EQ(Words(schedule->stuTimeSection[2][s]), kZeros) << row;
            EXPECT_EQ(Words(schedule->stuTimeSection[3][s]), WordsOf(3, s)) << row;
        }
    }
}

TYPED_TEST(ScheduleOf, ASegmentWithoutNumbersFailsAndLeavesWhatFollowsZero) {
    for (const char* segment : {R"("closed")", R"("")", "null", "[]", "{}", "true"}) {
        Placed<TypeParam> schedule;
        Json::Value value = Schedule(8, 6);
        value[3][2] = Json(segment);
        EXPECT_EQ(GetJsonTimeSchedule(value, *schedule), 0) << segment;
        EXPECT_FALSE(schedule->bEnableHoliday) << segment;
        for (int i = 0; i < 48; ++i) {
            EXPECT_EQ(Words(schedule->stuTimeSection[i / 6][i % 6]), i < 20 ? WordsOf(i / 6, i % 6) : kZeros)
                << segment << ' ' << i;
        }
    }
}

TYPED_TEST(ScheduleOf, AThirdDigitOfATimeIsAccepted) {
    for (const char* text : {"1 8:0:0-17:30:0", "1 008:00:00-17:30:00"}) {
        Placed<TypeParam> schedule;
        Json::Value value = Schedule(7, 6);
        value[6][5] = text;
        EXPECT_EQ(GetJsonTimeSchedule(value, *schedule), 1) << text;
        EXPECT_EQ(Words(schedule->stuTimeSection[6][5]), (WordArray{1, 8, 0, 0, 17, 30, 0})) << text;
    }
}

TYPED_TEST(ScheduleOf, NoNumberIsTestedAgainstItsRange) {
    Placed<TypeParam> schedule;
    Json::Value value = Schedule(7, 6);
    value[0][0] = "-1 25:99:99-1000:-5:+6";
    EXPECT_EQ(GetJsonTimeSchedule(value, *schedule), 1);
    EXPECT_EQ(Words(schedule->stuTimeSection[0][0]), (WordArray{-1, 25, 99, 99, 1000, -5, 6}));
}

TYPED_TEST(ScheduleOf, ANodeThatIsNoArrayOrEmptyFailsWithTheRecordCleared) {
    for (const char* text :
         {"null", "[]", "{}", "7", R"("1 02:03:04-05:06:07")", R"({"0": ["1 02:03:04-05:06:07"]})"}) {
        Placed<TypeParam> schedule;
        EXPECT_EQ(GetJsonTimeSchedule(Json(text), *schedule), 0) << text;
        EXPECT_TRUE(std::all_of(schedule.bytes(), schedule.bytes() + sizeof(TypeParam), [](unsigned char byte) {
            return byte == 0;
        })) << text;
    }
}

TYPED_TEST(ScheduleOf, ReadingIsDefinedForEveryValue) {
    for (const Json::Value& hostile : HostileValues()) {
        Placed<TypeParam> root;
        EXPECT_NO_THROW(GetJsonTimeSchedule(hostile, *root));
        ExpectRows(*root, 0);
        Placed<TypeParam> row;
        Json::Value rows = Schedule(8, 6);
        rows[4] = hostile;
        EXPECT_NO_THROW(GetJsonTimeSchedule(rows, *row));
        EXPECT_EQ(Words(row->stuTimeSection[3][5]), WordsOf(3, 5));
        Placed<TypeParam> segment;
        Json::Value segments = Schedule(8, 6);
        segments[4][1] = hostile;
        EXPECT_NO_THROW(EXPECT_EQ(GetJsonTimeSchedule(segments, *segment), 0));
        EXPECT_EQ(Words(segment->stuTimeSection[4][0]), WordsOf(4, 0));
    }
}

template <class Record>
void Fill(Record& schedule) {
    for (int r = 0; r < 8; ++r) {
        for (int s = 0; s < 6; ++s) {
            auto& section = schedule.stuTimeSection[r][s];
            section = SectionOf<std::remove_reference_t<decltype(section)>>(WordsOf(r, s));
        }
    }
}

TYPED_TEST(ScheduleOf, WritesExactlySevenRowsOfSixWithoutAHoliday) {
    Placed<TypeParam> schedule;
    Fill(*schedule);
    schedule->bEnableHoliday = false;
    Json::Value node;
    EXPECT_TRUE(SetJsonTimeSchedule(node, *schedule));
    EXPECT_EQ(Text(node), Text(Schedule(7, 6)));
}

TYPED_TEST(ScheduleOf, WritesTheEighthRowWithAHoliday) {
    Placed<TypeParam> schedule;
    Fill(*schedule);
    schedule->bEnableHoliday = true;
    Json::Value node;
    EXPECT_TRUE(SetJsonTimeSchedule(node, *schedule));
    EXPECT_EQ(Text(node), Text(Schedule(8, 6)));
}

TYPED_TEST(ScheduleOf, AHolidayFlagOfAnyByteButZeroIsSet) {
    Placed<TypeParam> schedule;
    Fill(*schedule);
    Json::Value node;
    EXPECT_TRUE(SetJsonTimeSchedule(node, *schedule));
    EXPECT_EQ(node.size(), 8U);
}

TYPED_TEST(ScheduleOf, AnEmptyWeekIsWrittenInFull) {
    const std::string row = R"(["0 00:00:00-00:00:00","0 00:00:00-00:00:00","0 00:00:00-00:00:00",)"
                            R"("0 00:00:00-00:00:00","0 00:00:00-00:00:00","0 00:00:00-00:00:00"])";
    Json::Value node;
    EXPECT_TRUE(SetJsonTimeSchedule(node, TypeParam{}));
    EXPECT_EQ(Text(node), '[' + row + ',' + row + ',' + row + ',' + row + ',' + row + ',' + row + ',' + row + ']');
}

TYPED_TEST(ScheduleOf, WritingKeepsFurtherRowsAndElements) {
    Json::Value node;
    node[9] = "ninth";
    node[0][6] = "seventh";
    node[1] = "no row";
    EXPECT_TRUE(SetJsonTimeSchedule(node, TypeParam{}));
    EXPECT_EQ(node.size(), 10U);
    EXPECT_EQ(Text(node[9]), R"("ninth")");
    EXPECT_EQ(Text(node[7]), "null");
    EXPECT_EQ(node[0].size(), 7U);
    EXPECT_EQ(Text(node[0][6]), R"("seventh")");
    EXPECT_EQ(Text(node[0][5]), R"("0 00:00:00-00:00:00")");
    EXPECT_EQ(node[1].size(), 6U);
}

TYPED_TEST(ScheduleOf, WritingIsDefinedForEveryNode) {
    for (Json::Value node : HostileValues()) {
        EXPECT_NO_THROW(EXPECT_TRUE(SetJsonTimeSchedule(node, TypeParam{})));
        EXPECT_EQ(Text(node[6][5]), R"("0 00:00:00-00:00:00")");
    }
}

// ---- rows of any size

template <class Section>
class RowsOf : public testing::Test {
  public:
    /// Two rows of three segments and one behind them, prefilled.
    RowsOf() { std::memset(sections, testing_tools::kPattern, sizeof sections); }
    Section sections[7];
};
using Sections = testing::Types<tagVK_TSECT, tagCFG_TIME_SECTION>;
TYPED_TEST_SUITE(RowsOf, Sections, );

TYPED_TEST(RowsOf, ReadsRowsAtTheirStride) {
    int rows = -1;
    EXPECT_TRUE(GetJsonTimeSchedule(Schedule(2, 2), this->sections, 2, 3, &rows));
    EXPECT_EQ(rows, 2);
    const WordArray expected[] = {WordsOf(0, 0), WordsOf(0, 1), kUntouched, WordsOf(1, 0),
                                  WordsOf(1, 1), kUntouched,    kUntouched};
    for (int i = 0; i < 7; ++i) EXPECT_EQ(Words(this->sections[i]), expected[i]) << i;
}

TYPED_TEST(RowsOf, IgnoresRowsAndSegmentsBeyondTheMaxima) {
    int rows = -1;
    EXPECT_TRUE(GetJsonTimeSchedule(Schedule(3, 4), this->sections, 2, 3, &rows));
    EXPECT_EQ(rows, 2);
    for (int i = 0; i < 7; ++i) EXPECT_EQ(Words(this->sections[i]), i < 6 ? WordsOf(i / 3, i % 3) : kUntouched) << i;
}

TYPED_TEST(RowsOf, FindsFewerRowsThanTheMaximum) {
    int rows = -1;
    EXPECT_TRUE(GetJsonTimeSchedule(Schedule(1, 3), this->sections, 2, 3, &rows));
    EXPECT_EQ(rows, 1);
    EXPECT_EQ(Words(this->sections[3]), kUntouched);
}

TYPED_TEST(RowsOf, TheCounterMayBeNull) {
    EXPECT_TRUE(GetJsonTimeSchedule(Schedule(2, 3), this->sections, 2, 3, nullptr));
    EXPECT_EQ(Words(this->sections[5]), WordsOf(1, 2));
}

TYPED_TEST(RowsOf, StoresTheRowsFoundBeforeItReads) {
    int rows = -1;
    EXPECT_FALSE(GetJsonTimeSchedule(Json(R"([["bad"], [], []])"), this->sections, 2, 3, &rows));
    EXPECT_EQ(rows, 2);
}

TYPED_TEST(RowsOf, SkipsRowsThatAreNoArrays) {
    for (const char* row : {"7", "null", "[]", "{}", R"("1 02:03:04-05:06:07")"}) {
        std::memset(this->sections, testing_tools::kPattern, sizeof this->sections);
        Json::Value value = Schedule(2, 3);
        value[0] = Json(row);
        EXPECT_TRUE(GetJsonTimeSchedule(value, this->sections, 2, 3, nullptr)) << row;
        for (int i = 0; i < 7; ++i) {
            EXPECT_EQ(Words(this->sections[i]), i < 3 || i == 6 ? kUntouched : WordsOf(1, i - 3)) << row << ' ' << i;
        }
    }
}

TYPED_TEST(RowsOf, StopsAtTheFirstBadSegment) {
    Json::Value value = Schedule(2, 3);
    value[0][1] = "2 closed";
    EXPECT_FALSE(GetJsonTimeSchedule(value, this->sections, 2, 3, nullptr));
    EXPECT_EQ(Words(this->sections[0]), WordsOf(0, 0));
    WordArray partly = Words(this->sections[1]);
    partly[0] = kPatternWord;  // the number in front may be written
    EXPECT_EQ(partly, kUntouched);
    for (int i = 2; i < 7; ++i) EXPECT_EQ(Words(this->sections[i]), kUntouched) << i;
}

TYPED_TEST(RowsOf, FailsWithoutSectionsRowsOrSegmentsAndLeavesTheCounter) {
    int rows = -1;
    TypeParam* const none = nullptr;
    EXPECT_FALSE(GetJsonTimeSchedule(Schedule(2, 3), none, 2, 3, &rows));
    for (const int bad : {0, -1, -2147483647 - 1}) {
        EXPECT_FALSE(GetJsonTimeSchedule(Schedule(2, 3), this->sections, bad, 3, &rows)) << bad;
        EXPECT_FALSE(GetJsonTimeSchedule(Schedule(2, 3), this->sections, 2, bad, &rows)) << bad;
    }
    for (const char* text : {"[]", "null", "{}", "1", R"("1 02:03:04-05:06:07")"}) {
        EXPECT_FALSE(GetJsonTimeSchedule(Json(text), this->sections, 2, 3, &rows)) << text;
    }
    EXPECT_EQ(rows, -1);
    for (const TypeParam& section : this->sections) EXPECT_EQ(Words(section), kUntouched);
}

TYPED_TEST(RowsOf, WritesEveryRowAndSegment) {
    for (int i = 0; i < 6; ++i) this->sections[i] = SectionOf<TypeParam>(WordsOf(i / 3, i % 3));
    this->sections[4] = {};
    Json::Value node;
    EXPECT_TRUE(SetJsonTimeSchedule(node, this->sections, 2, 3));
    EXPECT_EQ(Text(node), R"([["1 00:00:59-10:20:58","2 00:01:59-10:21:58","3 00:02:59-10:22:58"],)"
                          R"(["11 01:00:59-11:20:58","0 00:00:00-00:00:00","13 01:02:59-11:22:58"]])");
}

TYPED_TEST(RowsOf, WritingWithoutSectionsRowsOrSegmentsLeavesTheNode) {
    const TypeParam* const none = nullptr;
    for (Json::Value node : {Json("null"), Json("7"), Json(R"([["x"]])")}) {
        const std::string before = Text(node);
        EXPECT_FALSE(SetJsonTimeSchedule(node, none, 2, 3));
        for (const int bad : {0, -1, -2147483647 - 1}) {
            EXPECT_FALSE(SetJsonTimeSchedule(node, this->sections, bad, 3)) << bad;
            EXPECT_FALSE(SetJsonTimeSchedule(node, this->sections, 2, bad)) << bad;
        }
        EXPECT_EQ(Text(node), before);
    }
}

TEST(SetJsonTimeSchedule, AMaskIsPrintedAsASignedNumber) {
    const tagCFG_TIME_SECTION section{0x80000001, 1, 2, 3, 4, 5, 6};
    Json::Value node;
    EXPECT_TRUE(SetJsonTimeSchedule(node, &section, 1, 1));
    EXPECT_EQ(Text(node), R"([["-2147483647 01:02:03-04:05:06"]])");
}

TEST(GetJsonTimeSchedule, ATopBitOfAMaskIsReadFromEitherForm) {
    for (const char* text : {R"([["-2147483647 01:02:03-04:05:06"]])", R"([["2147483649 01:02:03-04:05:06"]])"}) {
        Placed<tagCFG_TIME_SECTION> section;
        EXPECT_TRUE(GetJsonTimeSchedule(Json(text), section.get(), 1, 1, nullptr)) << text;
        EXPECT_EQ(section->dwRecordMask, 0x80000001U) << text;
    }
}

TEST(GetJsonTimeSchedule, OfAMessageTextNeedsSectionsAndNumbersThatAreNot0) {
    jsonparser::MessageText text(R"([["1 01:02:03-04:05:06"]])");
    tagVK_TSECT section;
    std::memset(&section, 0xA5, sizeof section);
    const tagVK_TSECT before = section;
    int rows = 7;
    EXPECT_FALSE(GetJsonTimeSchedule(text.at(""), static_cast<tagVK_TSECT*>(nullptr), 1, 1, &rows));
    EXPECT_FALSE(GetJsonTimeSchedule(text.at(""), &section, 0, 1, &rows));
    EXPECT_FALSE(GetJsonTimeSchedule(text.at(""), &section, 1, 0, &rows));
    EXPECT_EQ(std::memcmp(&section, &before, sizeof section), 0);
    EXPECT_TRUE(GetJsonTimeSchedule(text.at(""), &section, 1, 1, &rows));
    EXPECT_EQ(section.nEndSec, 6);
}

}  // namespace
