#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cstdio>
#include <cstring>
#include <random>
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

using Words = std::vector<unsigned>;

/// A word of a record that was not written.
constexpr unsigned kUntouched = 0xA5A5A5A5U;

/// What a reader returned and the words that it left in a prefilled record: all time records consist of 32-bit words.
struct Outcome {
    bool success;
    Words words;
    bool operator==(const Outcome&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Outcome& outcome) {
    out << (outcome.success ? "true" : "false");
    for (const unsigned word : outcome.words) {
        out << ' ';
        if (word == kUntouched) {
            out << '-';
        } else {
            out << word;
        }
    }
    return out;
}

template <class Record, bool (*Reader)(const Json::Value&, Record&)>
Outcome Run(const Json::Value& value) {
    Placed<Record> record(4);
    const bool success = Reader(value, *record);
    Words words(sizeof(Record) / 4);
    std::memcpy(words.data(), record.bytes(), sizeof(Record));
    return {success, words};
}

struct Reader {
    const char* name;
    Outcome (*run)(const Json::Value& value);
    const char* format;
    std::size_t fields;  ///< that it fills, from the first on
    std::size_t words;   ///< of the record
    bool digitsOnly;
};

constexpr const char* kMilliseconds = "%04d-%02d-%02d %02d:%02d:%02d.%d";
constexpr const char* kPlain = "%04d-%02d-%02d %02d:%02d:%02d";

const Reader kParseEx{
    "JsonTimeEx::parse<tagNET_TIME_EX>", Run<tagNET_TIME_EX, JsonTimeEx::parse>, kMilliseconds, 7, 9, false};
const Reader kParseCfg{
    "JsonTimeEx::parse<tagCFG_NET_TIME_EX>", Run<tagCFG_NET_TIME_EX, JsonTimeEx::parse>, kMilliseconds, 7, 7, false};
const Reader kGetEx{"GetJsonTime(tagNET_TIME_EX)", Run<tagNET_TIME_EX, GetJsonTime>, kMilliseconds, 7, 9, false};
const Reader kGetCfg{
    "GetJsonTime(tagCFG_NET_TIME_EX)", Run<tagCFG_NET_TIME_EX, GetJsonTime>, kMilliseconds, 7, 7, false};
const Reader kGetOfDay{"GetJsonTime(tagCFG_TIME)", Run<tagCFG_TIME, GetJsonTime>, "%02d:%02d:%02d", 3, 3, false};
const Reader kGetB{"GetJsonTimeB", Run<tagNET_TIME, GetJsonTimeB>, "%04d%02d%02d %02d%02d%02d", 6, 6, true};
const Reader kGetDate{"GetJsonDate", Run<tagNET_TIME, GetJsonDate>, "%04u-%02u-%02u", 3, 6, false};
const Reader kGetFromStr{"GetTimeStructFromStr", Run<tagNET_TIME, GetTimeStructFromStr>, kPlain, 6, 6, false};
const Reader kParse{"JsonTime::parse<tagNET_TIME>", Run<tagNET_TIME, JsonTime::parse>, kPlain, 6, 6, false};

const Reader kReaders[] = {kParseEx, kParseCfg, kGetEx, kGetCfg, kGetOfDay, kGetB, kGetDate, kGetFromStr, kParse};

/// The outcome when the reader wrote these leading fields and no more; it succeeds when they are all that it fills.
Outcome Leading(const Reader& reader, Words leading) {
    const bool success = leading.size() == reader.fields;
    leading.resize(reader.words, kUntouched);
    return {success, leading};
}

struct Row {
    std::string text;
    Words leading;
};

void ExpectRows(std::initializer_list<Reader> readers, const std::vector<Row>& rows) {
    for (const Reader& reader : readers) {
        for (const Row& row : rows) {
            EXPECT_EQ(reader.run(row.text), Leading(reader, row.leading)) << reader.name << ": '" << row.text << "'";
        }
    }
}

// ---- every reader

TEST(TimeReaders, AMissingMemberIsTheEmptyTextAndFails) {
    const Json::Value message = Json(R"({"Time": null})");
    for (const Reader& reader : kReaders) {
        EXPECT_EQ(reader.run(message["Missing"]), Leading(reader, {})) << reader.name;
        EXPECT_EQ(reader.run(message["Time"]), Leading(reader, {})) << reader.name;
        EXPECT_EQ(reader.run(""), Leading(reader, {})) << reader.name;
    }
}

TEST(TimeReaders, ABoolAnArrayOrAnObjectFailsAndWritesNothing) {
    for (const char* text :
         {"true", "false", "[]", "{}", R"(["2024-01-05 09:30:00.250"])", R"({"Time": "2024-01-05"})", "[2024, 1, 5]"}) {
        for (const Reader& reader : kReaders) {
            EXPECT_EQ(reader.run(Json(text)), Leading(reader, {})) << reader.name << text;
        }
    }
}

TEST(TimeReaders, AnyValueIsRead) {
    for (const Json::Value& value : HostileValues()) {
        for (const Reader& reader : kReaders) {
            const Outcome outcome = reader.run(value);
            for (std::size_t i = reader.fields; i < reader.words; ++i) {
                EXPECT_EQ(outcome.words[i], kUntouched) << reader.name;
            }
            if (value.isNull() || value.isArray() || value.isObject() || value.isBool()) {
                EXPECT_EQ(outcome, Leading(reader, {})) << reader.name;
            }
        }
    }
}

// ---- the time with milliseconds

TEST(TimeWithMilliseconds, ReadsEveryField) {
    ExpectRows(
        {
            kParseEx, kParseCfg, kGetEx, kGetCfg
    },
        {
            {"2024-01-05 09:30:07.250", {2024, 1, 5, 9, 30, 7, 250}},
            {"1999-12-31 23:59:58.999", {1999, 12, 31, 23, 59, 58, 999}},
        });
}

TEST(TimeWithMilliseconds, FieldsAreThoseOfTheirNames) {
    tagNET_TIME_EX time{};
    EXPECT_TRUE(JsonTimeEx::parse<tagNET_TIME_EX>("2024-01-05 09:30:07.250", time));
    EXPECT_EQ(time.dwYear, 2024U);
    EXPECT_EQ(time.dwMonth, 1U);
    EXPECT_EQ(time.dwDay, 5U);
    EXPECT_EQ(time.dwHour, 9U);
    EXPECT_EQ(time.dwMinute, 30U);
    EXPECT_EQ(time.dwSecond, 7U);
    EXPECT_EQ(time.dwMillisecond, 250U);
    tagCFG_NET_TIME_EX config{};
    EXPECT_TRUE(JsonTimeEx::parse<tagCFG_NET_TIME_EX>("2024-01-05 09:30:07.250", config));
    EXPECT_EQ(config.nYear, 2024);
    EXPECT_EQ(config.nMonth, 1);
    EXPECT_EQ(config.nDay, 5);
    EXPECT_EQ(config.nHour, 9);
    EXPECT_EQ(config.nMinute, 30);
    EXPECT_EQ(config.nSecond, 7);
    EXPECT_EQ(config.nMillisecond, 250);
}

TEST(TimeWithMilliseconds, AFractionOf7IsMillisecond7) {
    ExpectRows(
        {
            kParseEx, kParseCfg, kGetEx, kGetCfg
    },
        {{"2024-01-05 09:30:00.7", {2024, 1, 5, 9, 30, 0, 7}}});
}

TEST(TimeWithMilliseconds, WithoutAFractionItFailsWithYearToSecondWritten) {
    ExpectRows(
        {
            kParseEx, kParseCfg, kGetEx, kGetCfg
    },
        {{"2024-01-05 09:30:00", {2024, 1, 5, 9, 30, 0}}});
}

TEST(TimeWithMilliseconds, TheFractionIsAPlainInteger) {
    ExpectRows(
        {
            kParseEx, kParseCfg, kGetEx, kGetCfg
    },
        {
            {"2024-01-05 09:30:00.25", {2024, 1, 5, 9, 30, 0, 25}},
            {"2024-01-05 09:30:00.250", {2024, 1, 5, 9, 30, 0, 250}},
            {"2024-01-05 09:30:00.025", {2024, 1, 5, 9, 30, 0, 25}},
            {"2024-01-05 09:30:00.000", {2024, 1, 5, 9, 30, 0, 0}},
            {"2024-01-05 09:30:00.123456789", {2024, 1, 5, 9, 30, 0, 123456789}},
            {"2024-01-05 09:30:00. 7", {2024, 1, 5, 9, 30, 0, 7}},
            {"2024-01-05 09:30:00.-7", {2024, 1, 5, 9, 30, 0, 4294967289}},
            {"2024-01-05 09:30:00.+7", {2024, 1, 5, 9, 30, 0, 7}},
            {"2024-01-05 09:30:00.7Z", {2024, 1, 5, 9, 30, 0, 7}},
            {"2024-01-05 09:30:00 .7", {2024, 1, 5, 9, 30, 0}},
            {"2024-01-05 09:30:00,7", {2024, 1, 5, 9, 30, 0}},
            {"2024-01-05 09:30:00.", {2024, 1, 5, 9, 30, 0}},
            {"2024-01-05 09:30:00.x", {2024, 1, 5, 9, 30, 0}},
            {"2024-01-05 09:30:00.-", {2024, 1, 5, 9, 30, 0}},
            {"2024-01-05 09:30:00.00000000007", {2024, 1, 5, 9, 30, 0, 7}},
        });
}

TEST(TimeWithMilliseconds, AnOverflowingFractionKeepsTheLow32BitsOfItsLimit) {
    ExpectRows(
        {
            kParseEx, kParseCfg, kGetEx, kGetCfg
    },
        {
            {"2024-01-05 09:30:00.2147483647", {2024, 1, 5, 9, 30, 0, 2147483647}},
            {"2024-01-05 09:30:00.2147483648", {2024, 1, 5, 9, 30, 0, 2147483648}},
            {"2024-01-05 09:30:00.-2147483649", {2024, 1, 5, 9, 30, 0, 2147483647}},
            {"2024-01-05 09:30:00.4294967295", {2024, 1, 5, 9, 30, 0, 4294967295}},
            {"2024-01-05 09:30:00.4294967303", {2024, 1, 5, 9, 30, 0, 7}},
            {"2024-01-05 09:30:00.99999999999", {2024, 1, 5, 9, 30, 0, 1215752191}},
            {"2024-01-05 09:30:00.9223372036854775806", {2024, 1, 5, 9, 30, 0, 4294967294}},
            {"2024-01-05 09:30:00.9223372036854775807", {2024, 1, 5, 9, 30, 0, 4294967295}},
            {"2024-01-05 09:30:00.9223372036854775808", {2024, 1, 5, 9, 30, 0, 4294967295}},
            {"2024-01-05 09:30:00.-9223372036854775807", {2024, 1, 5, 9, 30, 0, 1}},
            {"2024-01-05 09:30:00.-9223372036854775808", {2024, 1, 5, 9, 30, 0, 0}},
            {"2024-01-05 09:30:00.-9223372036854775809", {2024, 1, 5, 9, 30, 0, 0}},
            {"2024-01-05 09:30:00.18446744073709551616", {2024, 1, 5, 9, 30, 0, 4294967295}},
            {"2024-01-05 09:30:00.-18446744073709551617", {2024, 1, 5, 9, 30, 0, 0}},
            {"2024-01-05 09:30:00." + std::string(400, '9'), {2024, 1, 5, 9, 30, 0, 4294967295}},
        });
}

TEST(TimeWithMilliseconds, EveryPrefixWritesItsLeadingFields) {
    ExpectRows(
        {
            kParseEx, kParseCfg, kGetEx, kGetCfg
    },
        {
            {"x", {}},
            {"-", {}},
            {"2", {2}},
            {"2024", {2024}},
            {"2024-", {2024}},
            {"2024-x", {2024}},
            {"2024/11", {2024}},
            {"2024-11", {2024, 11}},
            {"2024-11-", {2024, 11}},
            {"2024-11 12", {2024, 11}},
            {"2024-11-12", {2024, 11, 12}},
            {"2024-11-12 ", {2024, 11, 12}},
            {"2024-11-12T13", {2024, 11, 12}},
            {"2024-11-12 13", {2024, 11, 12, 13}},
            {"2024-11-12 13:", {2024, 11, 12, 13}},
            {"2024-11-12 13-14", {2024, 11, 12, 13}},
            {"2024-11-12 13:14", {2024, 11, 12, 13, 14}},
            {"2024-11-12 13:14:", {2024, 11, 12, 13, 14}},
            {"2024-11-12 13:14:15", {2024, 11, 12, 13, 14, 15}},
            {"2024-11-12 13:14:15.", {2024, 11, 12, 13, 14, 15}},
            {"2024-11-12 13:14:156.16", {2024, 11, 12, 13, 14, 15}},
        });
}

// ---- the plain time

TEST(PlainTime, ReadsEveryField) {
    ExpectRows(
        {
            kGetFromStr, kParse
    },
        {
            {"2024-01-05 09:30:07", {2024, 1, 5, 9, 30, 7}},
            {"1999-12-31 23:59:58", {1999, 12, 31, 23, 59, 58}},
        });
}

TEST(PlainTime, FieldsAreThoseOfTheirNames) {
    tagNET_TIME time{};
    EXPECT_TRUE(JsonTime::parse<tagNET_TIME>("2024-01-05 09:30:07", time));
    EXPECT_EQ(time.dwYear, 2024U);
    EXPECT_EQ(time.dwMonth, 1U);
    EXPECT_EQ(time.dwDay, 5U);
    EXPECT_EQ(time.dwHour, 9U);
    EXPECT_EQ(time.dwMinute, 30U);
    EXPECT_EQ(time.dwSecond, 7U);
}

TEST(PlainTime, WidthsAreMaxima) {
    ExpectRows(
        {
            kGetFromStr, kParse
    },
        {
            {"2024-1-5 9:3:0", {2024, 1, 5, 9, 3, 0}},
            {"7-1-5 9:3:0", {7, 1, 5, 9, 3, 0}},
            {"0000-00-00 00:00:00", {0, 0, 0, 0, 0, 0}},
            {"20240-1-5 9:3:0", {2024}},
            {"2024-001-5 9:3:0", {2024, 0}},
            {"2024-01-05 09:30:007", {2024, 1, 5, 9, 30, 0}},
            {"2024-01-05 09:30:00.25", {2024, 1, 5, 9, 30, 0}},
            {"2024-01-05 09:30:00xyz", {2024, 1, 5, 9, 30, 0}},
            {"9999-99-99 99:99:99", {9999, 99, 99, 99, 99, 99}},
        });
}

TEST(PlainTime, BlanksBeforeANumberAreSkippedAndABlankStandsForAnyNumberOfThem) {
    ExpectRows(
        {
            kGetFromStr, kParse
    },
        {
            {"  2024-01-05 09:30:07", {2024, 1, 5, 9, 30, 7}},
            {"\t\n\v\f\r 2024-01-05 09:30:07", {2024, 1, 5, 9, 30, 7}},
            {"2024- 1-\t5 \n\n 9:\v3:\f\r 7", {2024, 1, 5, 9, 3, 7}},
            {"2024-01-0509:30:07", {2024, 1, 5, 9, 30, 7}},
            {"2024-01-05\t09:30:07", {2024, 1, 5, 9, 30, 7}},
            {"2024 -01-05 09:30:07", {2024}},
            {"2024-01-05 09 :30:07", {2024, 1, 5, 9}},
            {"2024-01-05\xC2\xA0"
             "09:30:07",
             {2024, 1, 5}},
            {"   ", {}},
        });
}

TEST(PlainTime, ASignCountsInTheWidth) {
    ExpectRows(
        {
            kGetFromStr, kParse
    },
        {
            {"-123-01-05 09:30:07", {4294967173, 1, 5, 9, 30, 7}},
            {"+123-01-05 09:30:07", {123, 1, 5, 9, 30, 7}},
            {"-2024-01-05 09:30:07", {4294967094}},
            {"2024--1-05 09:30:07", {2024, 4294967295, 5, 9, 30, 7}},
            {"2024-+1-+5 +9:-3:-0", {2024, 1, 5, 9, 4294967293, 0}},
            {"2024-- 1-05 09:30:07", {2024}},
            {"2024-01--", {2024, 1}},
            {"+-24-01-05 09:30:07", {}},
            {"2024-01-05 09:30:-12", {2024, 1, 5, 9, 30, 4294967295}},
        });
}

TEST(PlainTime, EveryPrefixWritesItsLeadingFields) {
    ExpectRows(
        {
            kGetFromStr, kParse
    },
        {
            {"x", {}},
            {"2024", {2024}},
            {"2024-", {2024}},
            {"2024-11", {2024, 11}},
            {"2024-11-", {2024, 11}},
            {"2024-11-12", {2024, 11, 12}},
            {"2024-11-12 ", {2024, 11, 12}},
            {"2024-11-12 13", {2024, 11, 12, 13}},
            {"2024-11-12 13:", {2024, 11, 12, 13}},
            {"2024-11-12 13:14", {2024, 11, 12, 13, 14}},
            {"2024-11-12 13:14:", {2024, 11, 12, 13, 14}},
            {"2024-11-12 13:14:15", {2024, 11, 12, 13, 14, 15}},
        });
}

TEST(PlainTime, TheTextEndsAtItsFirstNul) {
    ExpectRows(
        {
            kGetFromStr, kParse
    },
        {
            {std::string("2024-01\0-05 09:30:07", 20), {2024, 1}},
            {std::string("\0"
                         "2024-01-05 09:30:07",
                         20),
             {}},
            {std::string("2024-01-05 09:30:07\0x", 21), {2024, 1, 5, 9, 30, 7}},
        });
}

// ---- the time of day

TEST(TimeOfDay, ReadsEveryField) {
    tagCFG_TIME time{};
    EXPECT_TRUE(GetJsonTime("09:30:07", time));
    EXPECT_EQ(time.nHour, 9);
    EXPECT_EQ(time.nMinute, 30);
    EXPECT_EQ(time.nSecond, 7);
}

TEST(TimeOfDay, TakesNumbersOfOneDigit) {
    ExpectRows(
        {
            kGetOfDay
    },
        {{"9:5:3", {9, 5, 3}}});
}

TEST(TimeOfDay, HyphensFailWithOnlyTheHourWritten) {
    ExpectRows(
        {
            kGetOfDay
    },
        {{"09-05-03", {9}}});
}

TEST(TimeOfDay, EveryPrefixWritesItsLeadingFields) {
    ExpectRows(
        {
            kGetOfDay
    },
        {
            {"x", {}},
            {":", {}},
            {"09", {9}},
            {"09:", {9}},
            {"09:x", {9}},
            {"09:30", {9, 30}},
            {"09:30:", {9, 30}},
            {"09:30:x", {9, 30}},
            {"09:30:07", {9, 30, 7}},
            {"09:30:07.250", {9, 30, 7}},
            {"123:30:07", {12}},
            {" 9: 5: 3", {9, 5, 3}},
            {"9 :5:3", {9}},
            {"-9:-5:-3", {4294967287, 4294967291, 4294967293}},
            {"+9:+5:+3", {9, 5, 3}},
            {"99:99:99", {99, 99, 99}},
        });
}

// ---- the compact time

TEST(CompactTime, ReadsEveryField) {
    ExpectRows(
        {
            kGetB
    },
        {
            {"20240105 093000", {2024, 1, 5, 9, 30, 0}},
            {"19991231 235958", {1999, 12, 31, 23, 59, 58}},
        });
}

TEST(CompactTime, ATimeWithHyphensFailsAtItsMonth) {
    ExpectRows(
        {
            kGetB
    },
        {{"2024-01-05 09:30:00", {2024}}});
}

TEST(CompactTime, SplitsByDigitCounts) {
    ExpectRows(
        {
            kGetB
    },
        {
            {"20240105093000", {2024, 1, 5, 9, 30, 0}},
            {"20240105  \t093000", {2024, 1, 5, 9, 30, 0}},
            {"20240105 0930007", {2024, 1, 5, 9, 30, 0}},
            {"20240105 93000", {2024, 1, 5, 93, 0, 0}},
            {"20240105 9300", {2024, 1, 5, 93, 0}},
            {"2024 1 5 9 3 7", {2024, 1, 5, 9, 3, 7}},
            {" 2024\t1\n5\v9\f3\r7", {2024, 1, 5, 9, 3, 7}},
            {"7 1 5 9 3 7", {7, 1, 5, 9, 3, 7}},
            {"00000000 000000", {0, 0, 0, 0, 0, 0}},
            {"20240105T093000", {2024, 1, 5}},
            {"20240105 09:30:00", {2024, 1, 5, 9}},
        });
}

TEST(CompactTime, TakesDigitsOnly) {
    ExpectRows(
        {
            kGetB
    },
        {
            {"+2024105 093000", {}},
            {"-2024105 093000", {}},
            {"  -204105 093000", {}},
            {"2024+1+5+9+3+7", {2024}},
            {"2024-1-5-9-3-7", {2024}},
            {"2024 -1-5-9-3-7", {2024}},
            {"202411-5 093000", {2024, 11}},
            {"20241112 -93000", {2024, 11, 12}},
            {"20241112 13-300", {2024, 11, 12, 13}},
            {"20241112 1314+7", {2024, 11, 12, 13, 14}},
            {"20241112 131415-", {2024, 11, 12, 13, 14, 15}},
        });
}

TEST(CompactTime, EveryPrefixWritesItsLeadingFields) {
    ExpectRows(
        {
            kGetB
    },
        {
            {"x", {}},
            {"2", {2}},
            {"2024", {2024}},
            {"2024x", {2024}},
            {"20241", {2024, 1}},
            {"202411", {2024, 11}},
            {"2024111", {2024, 11, 1}},
            {"20241112", {2024, 11, 12}},
            {"20241112 ", {2024, 11, 12}},
            {"20241112 1", {2024, 11, 12, 1}},
            {"20241112 13", {2024, 11, 12, 13}},
            {"20241112 131", {2024, 11, 12, 13, 1}},
            {"20241112 1314", {2024, 11, 12, 13, 14}},
            {"20241112 1314x", {2024, 11, 12, 13, 14}},
            {"20241112 13141", {2024, 11, 12, 13, 14, 1}},
            {"20241112 131415", {2024, 11, 12, 13, 14, 15}},
        });
}

// ---- the date

TEST(Date, ReadsYearMonthAndDayAndLeavesHourMinuteAndSecondUnchanged) {
    Placed<tagNET_TIME> time;
    EXPECT_TRUE(GetJsonDate("2024-01-05", *time));
    EXPECT_EQ(time->dwYear, 2024U);
    EXPECT_EQ(time->dwMonth, 1U);
    EXPECT_EQ(time->dwDay, 5U);
    EXPECT_EQ(time.changedFields(), (Fields{"dwYear", "dwMonth", "dwDay"}));
}

TEST(Date, EveryPrefixWritesItsLeadingFields) {
    ExpectRows(
        {
            kGetDate
    },
        {
            {"x", {}},
            {"2024", {2024}},
            {"2024-", {2024}},
            {"2024-x", {2024}},
            {"2024/01/05", {2024}},
            {"20240105", {2024}},
            {"2024-11", {2024, 11}},
            {"2024-11-", {2024, 11}},
            {"2024-11-x", {2024, 11}},
            {"2024-1-5", {2024, 1, 5}},
            {" 2024- 1- 5", {2024, 1, 5}},
            {"2024-01-05 09:30:00", {2024, 1, 5}},
            {"2024-01-056", {2024, 1, 5}},
            {"-123-+1--5", {4294967173, 1, 4294967291}},
            {"9999-99-99", {9999, 99, 99}},
            {"0-0-0", {0, 0, 0}},
        });
}

// ---- numbers as nodes

TEST(TimeReaders, TheTextOfANumberIsScanned) {
    const Json::Value compact(Json::Int64{20240105093007});
    EXPECT_EQ(kGetB.run(compact), Leading(kGetB, {2024, 1, 5, 9, 30, 7}));
    EXPECT_EQ(kGetB.run(20240105), Leading(kGetB, {2024, 1, 5}));
    EXPECT_EQ(kGetB.run(-20240105), Leading(kGetB, {}));
    EXPECT_EQ(kGetDate.run(2024), Leading(kGetDate, {2024}));
    EXPECT_EQ(kGetDate.run(-2024), Leading(kGetDate, {4294967094}));
    EXPECT_EQ(kGetDate.run(20240105), Leading(kGetDate, {2024}));
    EXPECT_EQ(kGetOfDay.run(9.5), Leading(kGetOfDay, {9}));
    EXPECT_EQ(kGetOfDay.run(1e300), Leading(kGetOfDay, {1}));
    EXPECT_EQ(kParseEx.run(compact), Leading(kParseEx, {2024}));
    EXPECT_EQ(kParse.run(Json::Value(Json::UInt64{18446744073709551615U})), Leading(kParse, {1844}));
}

// ---- random texts against the C library's scan

Outcome Reference(const Reader& reader, const std::string& text) {
    // Cutting a text at its first sign is how a scan is made to take digits only.
    const std::string scanned = reader.digitsOnly ? text.substr(0, text.find_first_of("+-")) : text;
    Words words(9, kUntouched);
    const int converted = std::sscanf(scanned.c_str(), reader.format, &words[0], &words[1], &words[2], &words[3],
                                      &words[4], &words[5], &words[6]);
    words.resize(reader.words);
    return {converted == static_cast<int>(reader.fields), words};
}

TEST(TimeReaders, AgreeWithTheCLibraryOnEveryPrefixOfATime) {
    for (const std::string whole : {"2024-01-05 09:30:07.250", "20240105 093007", "09:30:07", "2024-1-5 9:3:7.2",
                                    "  -24-+1--5   +9:-3:-7.-25", "2024 1 5 9 3 7"}) {
        for (std::size_t length = 0; length <= whole.size(); ++length) {
            const std::string text = whole.substr(0, length);
            for (const Reader& reader : kReaders) {
                EXPECT_EQ(reader.run(text), Reference(reader, text)) << reader.name << ": '" << text << "'";
            }
        }
    }
}

TEST(TimeReaders, AgreeWithTheCLibraryOnDamagedTimes) {
    const std::string wholes[] = {"2024-01-05 09:30:07.250", "20240105 093007", "09:30:07"};
    const std::string characters = "0123456789+- :.\t\nx";
    std::mt19937 random(20240105);
    const auto below = [&](std::size_t limit) { return static_cast<std::size_t>(random() % limit); };
    for (int i = 0; i < 6000; ++i) {
        std::string text = wholes[below(3)];
        for (std::size_t changes = 1 + below(4); changes > 0; --changes) {
            const std::size_t at = below(text.size() + 1);
            const std::size_t length = std::min(below(3), text.size() - at);
            text.replace(at, length, below(3), characters[below(characters.size())]);
        }
        for (const Reader& reader : kReaders) {
            ASSERT_EQ(reader.run(text), Reference(reader, text)) << reader.name << ": '" << text << "'";
        }
    }
}

TEST(TimeReaders, AgreeWithTheCLibraryOnRandomFractions) {
    std::mt19937 random(7);
    for (int i = 0; i < 2000; ++i) {
        std::string text = "2024-01-05 09:30:07.";
        if (random() % 2 == 0) text += "-";
        for (auto digits = 1 + random() % 25; digits > 0; --digits) {
            text += static_cast<char>('0' + random() % 10);
        }
        for (const Reader& reader : {kParseEx, kParseCfg}) {
            ASSERT_EQ(reader.run(text), Reference(reader, text)) << reader.name << ": '" << text << "'";
        }
    }
}

// ---- writers

template <class Record, class... Word>
Record Filled(Word... words) {
    const unsigned all[] = {static_cast<unsigned>(words)...};
    static_assert(sizeof all <= sizeof(Record));
    Record record;
    std::memset(&record, 0xA5, sizeof record);
    std::memcpy(&record, all, sizeof all);
    return record;
}

template <class Record, bool (*Writer)(Json::Value&, const Record&)>
std::string Written(const Record& record) {
    Json::Value node;
    EXPECT_TRUE(Writer(node, record));
    EXPECT_EQ(node.type(), Json::stringValue);
    EXPECT_LE(node.asString().size(), 255U);
    return node.asString();
}

std::string PackEx(const tagNET_TIME_EX& time) {
    const std::string text = Written<tagNET_TIME_EX, JsonTimeEx::pack>(time);
    EXPECT_EQ((Written<tagNET_TIME_EX, SetJsonTime>(time)), text);
    return text;
}
std::string PackCfg(const tagCFG_NET_TIME_EX& time) {
    const std::string text = Written<tagCFG_NET_TIME_EX, JsonTimeEx::pack>(time);
    EXPECT_EQ((Written<tagCFG_NET_TIME_EX, SetJsonTime>(time)), text);
    return text;
}
constexpr auto kSetOfDay = Written<tagCFG_TIME, SetJsonTime>;
constexpr auto kSetPacked = Written<_VKDEVTIME, SetJsonTime>;
constexpr auto kSetB = Written<tagNET_TIME, SetJsonTimeB>;
constexpr auto kSetDate = Written<tagNET_TIME, SetJsonDate>;

TEST(PackTimeWithMilliseconds, WritesEveryFieldAndDoesNotPadTheMillisecond) {
    EXPECT_EQ(PackEx(Filled<tagNET_TIME_EX>(2024, 1, 5, 9, 30, 0, 5)), "2024-01-05 09:30:00.5");
    EXPECT_EQ(PackCfg(Filled<tagCFG_NET_TIME_EX>(2024, 1, 5, 9, 30, 0, 5)), "2024-01-05 09:30:00.5");
    EXPECT_EQ(PackEx(Filled<tagNET_TIME_EX>(1999, 12, 31, 23, 59, 58, 250)), "1999-12-31 23:59:58.250");
    EXPECT_EQ(PackCfg(Filled<tagCFG_NET_TIME_EX>(1999, 12, 31, 23, 59, 58, 250)), "1999-12-31 23:59:58.250");
    EXPECT_EQ(PackEx(Filled<tagNET_TIME_EX>(0, 0, 0, 0, 0, 0, 0)), "0000-00-00 00:00:00.0");
    EXPECT_EQ(PackCfg(Filled<tagCFG_NET_TIME_EX>(0, 0, 0, 0, 0, 0, 0)), "0000-00-00 00:00:00.0");
}

TEST(PackTimeWithMilliseconds, WordsPrintAsInts) {
    EXPECT_EQ(PackEx(Filled<tagNET_TIME_EX>(4294967295U, 4294967295U, 4294967286U, 2147483648U, 2147483647, 100,
                                            4294967295U)),
              "-001--1--10 -2147483648:2147483647:100.-1");
    EXPECT_EQ(PackCfg(Filled<tagCFG_NET_TIME_EX>(-1, -1, -10, INT_MIN, INT_MAX, 100, -1)),
              "-001--1--10 -2147483648:2147483647:100.-1");
    EXPECT_EQ(PackEx(Filled<tagNET_TIME_EX>(10000, 100, 100, 100, 100, 100, 1000)), "10000-100-100 100:100:100.1000");
}

TEST(PackTimeWithMilliseconds, TheLongestTextIsWrittenWhole) {
    constexpr auto kLongest = "-2147483648--2147483648--2147483648 -2147483648:-2147483648:-2147483648.-2147483648";
    EXPECT_EQ(PackCfg(Filled<tagCFG_NET_TIME_EX>(INT_MIN, INT_MIN, INT_MIN, INT_MIN, INT_MIN, INT_MIN, INT_MIN)),
              kLongest);
    constexpr unsigned kMin = 2147483648U;
    EXPECT_EQ(PackEx(Filled<tagNET_TIME_EX>(kMin, kMin, kMin, kMin, kMin, kMin, kMin)), kLongest);
}

TEST(SetTimeOfDay, WritesEveryField) {
    EXPECT_EQ(kSetOfDay(Filled<tagCFG_TIME>(9, 5, 3)), "09:05:03");
    EXPECT_EQ(kSetOfDay(Filled<tagCFG_TIME>(23, 59, 58)), "23:59:58");
    EXPECT_EQ(kSetOfDay(Filled<tagCFG_TIME>(0, 0, 0)), "00:00:00");
    EXPECT_EQ(kSetOfDay(Filled<tagCFG_TIME>(-1, -10, 100)), "-1:-10:100");
    EXPECT_EQ(kSetOfDay(Filled<tagCFG_TIME>(INT_MIN, INT_MAX, INT_MIN)), "-2147483648:2147483647:-2147483648");
}

TEST(SetCompactTime, WritesEveryField) {
    EXPECT_EQ(kSetB(Filled<tagNET_TIME>(2024, 1, 5, 9, 30, 0)), "20240105 093000");
    EXPECT_EQ(kSetB(Filled<tagNET_TIME>(1999, 12, 31, 23, 59, 58)), "19991231 235958");
    EXPECT_EQ(kSetB(Filled<tagNET_TIME>(0, 0, 0, 0, 0, 0)), "00000000 000000");
    EXPECT_EQ(kSetB(Filled<tagNET_TIME>(4294967295U, 4294967286U, 2147483648U, 100, 4294967295U, 2147483647)),
              "-001-10-2147483648 100-12147483647");
}

TEST(SetDate, WritesYearMonthAndDay) {
    EXPECT_EQ(kSetDate(Filled<tagNET_TIME>(2024, 1, 5, 9, 30, 0)), "2024-01-05");
    EXPECT_EQ(kSetDate(Filled<tagNET_TIME>(1999, 12, 31)), "1999-12-31");
    EXPECT_EQ(kSetDate(Filled<tagNET_TIME>(0, 0, 0)), "0000-00-00");
    EXPECT_EQ(kSetDate(Filled<tagNET_TIME>(7, 100, 100)), "0007-100-100");
}

TEST(SetDate, WordsPrintAsUnsigned) {
    EXPECT_EQ(kSetDate(Filled<tagNET_TIME>(4294967295U, 2147483648U, 4294967286U)), "4294967295-2147483648-4294967286");
}

// ---- the packed time

std::string Packed(unsigned word) {
    static_assert(sizeof(_VKDEVTIME) == sizeof word);
    _VKDEVTIME time;
    std::memcpy(&time, &word, sizeof word);
    return kSetPacked(time);
}

TEST(SetPackedTime, WritesTheYearAsItIsStored) {
    _VKDEVTIME time{};
    time.year = 24;
    time.month = 1;
    time.day = 5;
    time.hour = 9;
    time.minute = 30;
    time.second = 0;
    EXPECT_EQ(kSetPacked(time), "24-01-05 09:30:00");
}

TEST(SetPackedTime, TheYearIsNotPadded) {
    _VKDEVTIME time{};
    time.year = 5;
    time.month = 1;
    time.day = 5;
    EXPECT_EQ(kSetPacked(time), "5-01-05 00:00:00");
}

TEST(SetPackedTime, FieldsAreTheBitsOfTheWord) {
    EXPECT_EQ(Packed(0), "0-00-00 00:00:00");
    EXPECT_EQ(Packed(4294967295U), "63-15-31 31:63:63");
    EXPECT_EQ(Packed(1615501184U), "24-01-05 09:30:00");
    EXPECT_EQ(Packed(1U), "0-00-00 00:00:01");
    EXPECT_EQ(Packed(1U << 5), "0-00-00 00:00:32");
    EXPECT_EQ(Packed(1U << 6), "0-00-00 00:01:00");
    EXPECT_EQ(Packed(1U << 11), "0-00-00 00:32:00");
    EXPECT_EQ(Packed(1U << 12), "0-00-00 01:00:00");
    EXPECT_EQ(Packed(1U << 16), "0-00-00 16:00:00");
    EXPECT_EQ(Packed(1U << 17), "0-00-01 00:00:00");
    EXPECT_EQ(Packed(1U << 21), "0-00-16 00:00:00");
    EXPECT_EQ(Packed(1U << 22), "0-01-00 00:00:00");
    EXPECT_EQ(Packed(1U << 25), "0-08-00 00:00:00");
    EXPECT_EQ(Packed(1U << 26), "1-00-00 00:00:00");
    EXPECT_EQ(Packed(1U << 31), "32-00-00 00:00:00");
}

// ---- every writer

TEST(TimeWriters, ReplaceWhateverTheNodeHeld) {
    const auto time = Filled<tagNET_TIME_EX>(2024, 1, 5, 9, 30, 0, 250);
    const auto config = Filled<tagCFG_NET_TIME_EX>(2024, 1, 5, 9, 30, 0, 250);
    const auto ofDay = Filled<tagCFG_TIME>(9, 30, 0);
    const auto plain = Filled<tagNET_TIME>(2024, 1, 5, 9, 30, 0);
    const auto packed = Filled<_VKDEVTIME>(1615501184U);
    for (const Json::Value& value : HostileValues()) {
        const auto after = [&](auto write, const auto& record) {
            Json::Value node = value;
            EXPECT_TRUE(write(node, record));
            return Text(node);
        };
        const auto setJsonTime = [](Json::Value& node, const auto& record) { return SetJsonTime(node, record); };
        const auto pack = [](Json::Value& node, const auto& record) { return JsonTimeEx::pack(node, record); };
        EXPECT_EQ(after(pack, time), R"("2024-01-05 09:30:00.250")");
        EXPECT_EQ(after(pack, config), R"("2024-01-05 09:30:00.250")");
        EXPECT_EQ(after(setJsonTime, time), R"("2024-01-05 09:30:00.250")");
        EXPECT_EQ(after(setJsonTime, config), R"("2024-01-05 09:30:00.250")");
        EXPECT_EQ(after(setJsonTime, ofDay), R"("09:30:00")");
        EXPECT_EQ(after(setJsonTime, packed), R"("24-01-05 09:30:00")");
        EXPECT_EQ(after(SetJsonTimeB, plain), R"("20240105 093000")");
        EXPECT_EQ(after(SetJsonDate, plain), R"("2024-01-05")");
    }
}

TEST(TimesOfText, AreReadLikeThoseOfValues) {
    jsonparser::MessageText text(R"(["2024-01-05 09:30:07", "10:20:30", "no time"])");
    tagNET_TIME time = {};
    EXPECT_TRUE(JsonTime::parse(text.at("/0"), time));
    EXPECT_EQ(time.dwSecond, 7U);
    EXPECT_FALSE(JsonTime::parse(text.at("/2"), time));
    tagCFG_TIME ofDay = {};
    EXPECT_TRUE(GetJsonTime(text.at("/1"), ofDay));
    EXPECT_EQ(ofDay.nSecond, 30);
    EXPECT_FALSE(GetJsonTime(text.at("/2"), ofDay));
}

}  // namespace
