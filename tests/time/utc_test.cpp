#include <gtest/gtest.h>

#include <array>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include "testing/zone.h"
#include "vkprotocolstack/JsonParser.h"
#include "vkprotocolstack/time/utc.h"

namespace {

using jsonparser::SetUtc;
using testing_tools::TimeZone;

/// Year, month, day, hour, minute, second, as the records hold them.
using Calendar = std::array<unsigned, 6>;

constexpr Calendar kNoTime{1900, 1, 1, 0, 0, 0};

/// Both breakdowns; the fields that only one record has are 0.
Calendar Broken(long seconds) {
    const tagNET_TIME plain = GetNetTimeByUTCTimeNew(seconds);
    const Calendar calendar{plain.dwYear, plain.dwMonth, plain.dwDay, plain.dwHour, plain.dwMinute, plain.dwSecond};
    const tagNET_TIME_EX time = GetNetTimeByUTCTime(seconds);
    EXPECT_EQ((Calendar{time.dwYear, time.dwMonth, time.dwDay, time.dwHour, time.dwMinute, time.dwSecond}), calendar);
    EXPECT_EQ(time.dwMillisecond, 0U);
    EXPECT_EQ(time.dwUTC, 0U);
    EXPECT_EQ(time.dwReserved, 0U);
    return calendar;
}

bool IsLeap(long year) { return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0); }

/// The Gregorian calendar, counted.
Calendar Counted(long seconds) {
    constexpr long kDaysOf400Years = 146097;
    long days = seconds / 86400;
    long second = seconds % 86400;
    if (second < 0) {
        second += 86400;
        --days;
    }
    long eras = days / kDaysOf400Years;
    days %= kDaysOf400Years;
    if (days < 0) {
        days += kDaysOf400Years;
        --eras;
    }
    long year = 1970;
    for (; days >= (IsLeap(year) ? 366 : 365); ++year) days -= IsLeap(year) ? 366 : 365;
    const int lengths[] = {31, IsLeap(year) ? 29 : 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    unsigned month = 0;
    for (; days >= lengths[month]; ++month) days -= lengths[month];
    return {static_cast<unsigned>(year + 400 * eras), month + 1,
            static_cast<unsigned>(days) + 1,          static_cast<unsigned>(second / 3600),
            static_cast<unsigned>(second / 60 % 60),  static_cast<unsigned>(second % 60)};
}

// The calendar's ends: the years that a breakdown can name.
constexpr long kLast = 67768036191676799;
constexpr long kFirst = -67768040609740800;

struct Moment {
    long seconds;
    Calendar calendar;
};

const Moment kMoments[] = {
    {0,            {1970, 1, 1, 0, 0, 0}           },
    {-1,           {1969, 12, 31, 23, 59, 59}      },
    {1,            {1970, 1, 1, 0, 0, 1}           },
    {59,           {1970, 1, 1, 0, 0, 59}          },
    {60,           {1970, 1, 1, 0, 1, 0}           },
    {86399,        {1970, 1, 1, 23, 59, 59}        },
    {86400,        {1970, 1, 2, 0, 0, 0}           },
    {1704447000,   {2024, 1, 5, 9, 30, 0}          },
    {1709164799,   {2024, 2, 28, 23, 59, 59}       },
    {1709164800,   {2024, 2, 29, 0, 0, 0}          },
    {1709251200,   {2024, 3, 1, 0, 0, 0}           },
    {1677628799,   {2023, 2, 28, 23, 59, 59}       },
    {1677628800,   {2023, 3, 1, 0, 0, 0}           },
    {951782400,    {2000, 2, 29, 0, 0, 0}          },
    {4107542400,   {2100, 3, 1, 0, 0, 0}           },
    {4107542399,   {2100, 2, 28, 23, 59, 59}       },
    {-2208988800,  {1900, 1, 1, 0, 0, 0}           },
    {-2208988801,  {1899, 12, 31, 23, 59, 59}      },
    {2147483647,   {2038, 1, 19, 3, 14, 7}         },
    {2147483648,   {2038, 1, 19, 3, 14, 8}         },
    {-2147483648,  {1901, 12, 13, 20, 45, 52}      },
    {4294967295,   {2106, 2, 7, 6, 28, 15}         },
    {4294967296,   {2106, 2, 7, 6, 28, 16}         },
    {253402300799, {9999, 12, 31, 23, 59, 59}      },
    {253402300800, {10000, 1, 1, 0, 0, 0}          },
    {-62135596800, {1, 1, 1, 0, 0, 0}              },
    {-62135596801, {0, 12, 31, 23, 59, 59}         },
    {-62167219201, {4294967295, 12, 31, 23, 59, 59}},
    {kLast,        {2147485547, 12, 31, 23, 59, 59}},
    {kFirst,       {2147485548, 1, 1, 0, 0, 0}     }, // year -2147481748
};

constexpr const char* kZones[] = {"UTC",          "CST-8",       "EST5",     "America/New_York", "Europe/Berlin",
                                  "Asia/Kolkata", "<-0330>3:30", "<+14>-14", "<-12>12",          ""};

TEST(SetUtc, ClearsWhatItDoesNotSet) {
    for (const long seconds : {0L, 1704447000L, 99999999999L, kLast, kLast + 1}) {
        tagNET_TIME_EX time;
        std::memset(&time, 0xA5, sizeof time);
        SetUtc(time, seconds);
        const tagNET_TIME_EX expected = GetNetTimeByUTCTime(seconds);
        EXPECT_EQ(std::memcmp(&time, &expected, sizeof time), 0) << seconds;
        EXPECT_EQ(time.dwMillisecond, 0U);
        EXPECT_EQ(time.dwUTC, 0U);
        EXPECT_EQ(time.dwReserved, 0U);
        tagNET_TIME plain;
        std::memset(&plain, 0xA5, sizeof plain);
        SetUtc(plain, seconds);
        const Calendar calendar{plain.dwYear, plain.dwMonth, plain.dwDay, plain.dwHour, plain.dwMinute, plain.dwSecond};
        EXPECT_EQ(calendar, Broken(seconds)) << seconds;
    }
}

TEST(GetNetTimeByUTCTime, Gives19700101For0WhateverTheZone) {
    for (const char* zone : kZones) {
        const TimeZone scope(zone);
        const tagNET_TIME_EX time = GetNetTimeByUTCTime(0);
        EXPECT_EQ(time.dwYear, 1970U) << zone;
        EXPECT_EQ(time.dwMonth, 1U) << zone;
        EXPECT_EQ(time.dwDay, 1U) << zone;
        EXPECT_EQ(time.dwHour, 0U) << zone;
        EXPECT_EQ(time.dwMinute, 0U) << zone;
        EXPECT_EQ(time.dwSecond, 0U) << zone;
        EXPECT_EQ(time.dwMillisecond, 0U) << zone;
    }
}

TEST(GetNetTimeByUTCTime, BreaksDownAsUtcWhateverTheZone) {
    for (const char* zone : kZones) {
        const TimeZone scope(zone);
        for (const Moment& moment : kMoments) {
            EXPECT_EQ(Broken(moment.seconds), moment.calendar) << zone << ' ' << moment.seconds;
        }
    }
}

TEST(GetNetTimeByUTCTime, SecondsBeyondTheCalendarGive19000101) {
    const TimeZone scope("CST-8");
    for (const long seconds : {LONG_MAX, LONG_MIN, LONG_MAX - 1, LONG_MIN + 1, kLast + 1, kFirst - 1}) {
        EXPECT_EQ(Broken(seconds), kNoTime) << seconds;
    }
}

TEST(GetNetTimeByUTCTime, AgreesWithTheCalendarOverItsWholeRange) {
    const TimeZone scope("America/New_York");
    std::mt19937_64 random(1970);
    std::uniform_int_distribution<long> whole(kFirst, kLast);
    std::uniform_int_distribution<long> near(-100000000000, 300000000000);
    for (int i = 0; i < 20000; ++i) {
        const long seconds = i % 2 == 0 ? whole(random) : near(random);
        ASSERT_EQ(Broken(seconds), Counted(seconds)) << seconds;
    }
}

/// By the C library, and what a breakdown that fails gives.
Calendar ByGmtime(long seconds) {
    std::tm parts{};
    if (gmtime_r(&seconds, &parts) == nullptr) return kNoTime;
    const auto word = [](int number, unsigned plus) { return static_cast<unsigned>(number) + plus; };
    return {word(parts.tm_year, 1900), word(parts.tm_mon, 1), word(parts.tm_mday, 0),
            word(parts.tm_hour, 0),    word(parts.tm_min, 0), word(parts.tm_sec, 0)};
}

TEST(GetNetTimeByUTCTime, AgreesWithTheCLibraryOverTheWholeRangeOfSecondsAndBeyondTheCalendar) {
    const TimeZone scope("Asia/Kolkata");
    std::mt19937_64 random(2024);
    std::uniform_int_distribution<long> any(LONG_MIN, LONG_MAX);
    std::uniform_int_distribution<long> calendar(kFirst - 1000000, kLast + 1000000);
    std::uniform_int_distribution<long> now(-100000000000, 300000000000);
    for (int i = 0; i < 100000; ++i) {
        for (const long seconds : {any(random), calendar(random), now(random)}) {
            ASSERT_EQ(Broken(seconds), ByGmtime(seconds)) << seconds;
        }
    }
    for (const long border : {kFirst, kLast, 0L, -62135596800L, -62167219200L, 951782400L}) {
        for (long seconds = border - 100000; seconds < border + 100000; seconds += 97) {
            ASSERT_EQ(Broken(seconds), ByGmtime(seconds)) << seconds;
        }
    }
    for (const long seconds : {LONG_MIN, LONG_MIN + 1, LONG_MAX - 1, LONG_MAX, kFirst - 1, kFirst, kLast, kLast + 1}) {
        EXPECT_EQ(Broken(seconds), ByGmtime(seconds)) << seconds;
    }
}

TEST(GetNetTimeByUTCTime, AgreesWithTheCLibraryOnEveryDayOf400Years) {
    const TimeZone scope("CST-8");
    for (long day = -146097 / 2; day <= 146097 / 2 + 1; ++day) {
        ASSERT_EQ(Broken(day * 86400 + 86399), ByGmtime(day * 86400 + 86399)) << day;
    }
}

TEST(GetNetTimeByUTCTime, AgreesWithTheCalendarAtEveryEndOfAMonth) {
    const TimeZone scope("CST-8");
    long day = 0;
    for (; day < 140 * 366L; ++day) {  // 1970 to 2110
        if (Counted(day * 86400)[2] != 1) continue;
        ASSERT_EQ(Broken(day * 86400), Counted(day * 86400)) << day;
        ASSERT_EQ(Broken(day * 86400 - 1), Counted(day * 86400 - 1)) << day;
    }
}

TEST(GetNetTimeByUTCTime, ThreadsDoNotDisturbEachOther) {
    const TimeZone scope("CST-8");
    std::vector<std::thread> threads;
    std::array<bool, 4> right{};
    for (std::size_t i = 0; i < right.size(); ++i) {
        threads.emplace_back([i, &right] {
            const Moment& moment = kMoments[i * 7];
            bool same = true;
            for (int turn = 0; turn < 20000; ++turn) {
                const tagNET_TIME time = GetNetTimeByUTCTimeNew(moment.seconds);
                same = same && Calendar{time.dwYear, time.dwMonth,  time.dwDay,
                                        time.dwHour, time.dwMinute, time.dwSecond} == moment.calendar;
            }
            right[i] = same;
        });
    }
    for (std::thread& thread : threads) thread.join();
    for (const bool same : right) EXPECT_TRUE(same);
}

// ---- calendar to seconds

tagNET_TIME Plain(const Calendar& calendar) {
    return {calendar[0], calendar[1], calendar[2], calendar[3], calendar[4], calendar[5]};
}

/// Of both records; milliseconds and what is behind them count for nothing.
long Seconds(const Calendar& calendar) {
    const long seconds = GetUTCTimebyNetTimeNew(Plain(calendar));
    for (const unsigned other : {0U, 999U, 4294967295U}) {
        tagNET_TIME_EX time{calendar[0], calendar[1], calendar[2], calendar[3], calendar[4],
                            calendar[5], other,       other,       other};
        EXPECT_EQ(GetUTCTimebyNetTime(time), seconds);
    }
    return seconds;
}

long ClockSeconds(const Calendar& calendar) { return GetLocalTimebyNetTimeNew(Plain(calendar)); }

struct Local {
    const char* zone;
    Calendar calendar;
    long seconds;       ///< since 1970-01-01 00:00:00 UTC
    long clockSeconds;  ///< the same, plus the standard offset
};

void Expect(const std::vector<Local>& rows) {
    for (const Local& row : rows) {
        const TimeZone scope(row.zone);
        EXPECT_EQ(Seconds(row.calendar), row.seconds) << row.zone << ' ' << testing::PrintToString(row.calendar);
        EXPECT_EQ(ClockSeconds(row.calendar), row.clockSeconds)
            << row.zone << ' ' << testing::PrintToString(row.calendar);
    }
}

constexpr Calendar kEpoch{1970, 1, 1, 0, 0, 0};
constexpr Calendar kWinter{2024, 1, 15, 12, 0, 0};
constexpr Calendar kSummer{2024, 7, 15, 12, 0, 0};
constexpr long kWinterClock = 1705320000;  // the wall clock as if it were UTC
constexpr long kSummerClock = 1721044800;

TEST(GetUTCTimebyNetTime, ReadsTheCalendarAsLocalTime) {
    Expect({
        {"UTC",               kWinter, 1705320000, kWinterClock},
        {"UTC",               kSummer, 1721044800, kSummerClock},
        {"CST-8",             kWinter, 1705291200, kWinterClock},
        {"CST-8",             kSummer, 1721016000, kSummerClock},
        {"EST5",              kWinter, 1705338000, kWinterClock},
        {"EST5",              kSummer, 1721062800, kSummerClock},
        {"Asia/Kolkata",      kWinter, 1705300200, kWinterClock},
        {"Asia/Kolkata",      kSummer, 1721025000, kSummerClock},
        {"Asia/Kathmandu",    kWinter, 1705299300, kWinterClock},
        {"Pacific/Marquesas", kWinter, 1705354200, kWinterClock},
        {"<-0330>3:30",       kSummer, 1721057400, kSummerClock},
        {"<+14>-14",          kSummer, 1720994400, kSummerClock},
    });
}

TEST(GetUTCTimebyNetTime, TheZoneDecidesAboutDaylightSavingWhichClockSecondsDoNotAdd) {
    Expect({
        {"America/New_York",       kWinter, 1705338000, kWinterClock       },
        {"America/New_York",       kSummer, 1721059200, kSummerClock - 3600},
        {"EST5EDT,M3.2.0,M11.1.0", kSummer, 1721059200, kSummerClock - 3600},
        {"Europe/Berlin",          kWinter, 1705316400, kWinterClock       },
        {"Europe/Berlin",          kSummer, 1721037600, kSummerClock - 3600},
        {"America/St_Johns",       kWinter, 1705332600, kWinterClock       },
        {"America/St_Johns",       kSummer, 1721053800, kSummerClock - 3600},
        {"Australia/Lord_Howe",    kWinter, 1705280400, kWinterClock - 1800},
        {"Australia/Lord_Howe",    kSummer, 1721007000, kSummerClock       },
    });
}

TEST(GetUTCTimebyNetTime, BothSidesOfAChangeToAndFromDaylightSaving) {
    Expect({
        {"America/New_York", {2024, 3, 10, 1, 59, 59},  1710053999, 1710053999 - 18000},
        {"America/New_York", {2024, 3, 10, 3, 0, 0},    1710054000, 1710054000 - 18000},
        {"America/New_York", {2024, 11, 3, 0, 59, 59},  1730609999, 1730609999 - 18000},
        {"America/New_York", {2024, 11, 3, 2, 0, 0},    1730617200, 1730617200 - 18000},
        {"Europe/Berlin",    {2024, 3, 31, 1, 59, 59},  1711846799, 1711846799 + 3600 },
        {"Europe/Berlin",    {2024, 3, 31, 3, 0, 0},    1711846800, 1711846800 + 3600 },
        {"Europe/Berlin",    {2024, 10, 27, 1, 59, 59}, 1729987199, 1729987199 + 3600 },
        {"Europe/Berlin",    {2024, 10, 27, 3, 0, 0},   1729994400, 1729994400 + 3600 },
    });
}

TEST(GetUTCTimebyNetTime, AClockTimeThatIsSkippedOrComesTwiceGivesOneOfItsTwoReadings) {
    struct Row {
        const char* zone;
        Calendar calendar;
        long daylight;
        long standard;
        long offset;
    };
    const Row rows[] = {
        {"America/New_York", {2024, 3, 10, 2, 30, 0},  1710052200, 1710055800, -18000},
        {"America/New_York", {2024, 11, 3, 1, 30, 0},  1730611800, 1730615400, -18000},
        {"Europe/Berlin",    {2024, 3, 31, 2, 30, 0},  1711845000, 1711848600, 3600  },
        {"Europe/Berlin",    {2024, 10, 27, 2, 30, 0}, 1729989000, 1729992600, 3600  },
    };
    for (const Row& row : rows) {
        const TimeZone scope(row.zone);
        const long seconds = GetUTCTimebyNetTimeNew(Plain(row.calendar));
        EXPECT_TRUE(seconds == row.daylight || seconds == row.standard) << row.zone << ' ' << seconds;
        const long clock = ClockSeconds(row.calendar);
        EXPECT_TRUE(clock == row.daylight + row.offset || clock == row.standard + row.offset) << row.zone << clock;
    }
}

TEST(GetUTCTimebyNetTimeNew, TheEpochIs0AtUtcPlus8And18000AtUtcMinus5) {
    Expect({
        {"UTC",   kEpoch, 0,     0},
        {"CST-8", kEpoch, 0,     0},
        {"EST5",  kEpoch, 18000, 0},
    });
}

TEST(GetUTCTimebyNetTime, ANegativeResultIs0) {
    Expect({
        {"UTC",   {1970, 1, 1, 0, 0, 1},      1,     1    },
        {"UTC",   {1969, 12, 31, 23, 59, 59}, 0,     0    },
        {"UTC",   {1969, 12, 31, 23, 59, 58}, 0,     0    },
        {"UTC",   {1900, 1, 1, 0, 0, 0},      0,     0    },
        {"UTC",   {0, 0, 0, 0, 0, 0},         0,     0    },
        {"CST-8", {1970, 1, 1, 8, 0, 0},      0,     28800},
        {"CST-8", {1970, 1, 1, 8, 0, 1},      1,     28801},
        {"CST-8", {1969, 12, 31, 23, 59, 59}, 0,     0    },
        {"EST5",  {1969, 12, 31, 19, 0, 0},   0,     0    },
        {"EST5",  {1969, 12, 31, 19, 0, 1},   1,     0    },
        {"EST5",  {1969, 12, 31, 23, 59, 59}, 17999, 0    },
        {"EST5",  {1970, 1, 1, 0, 0, 1},      18001, 1    },
    });
}

TEST(GetLocalTimebyNetTimeNew, AddsTheOffsetToNegativeSecondsToo) {
    Expect({
        {"CST-8", {1970, 1, 1, 7, 59, 58}, 0, 28798},
        {"CST-8", {1970, 1, 1, 0, 0, 1},   0, 1    },
    });
}

TEST(GetLocalTimebyNetTimeNew, SecondsOfMinus1CountAsAFailure) {
    Expect({
        {"CST-8", {1970, 1, 1, 7, 59, 59}, 0, 0},
    });
}

TEST(GetLocalTimebyNetTimeNew, TheOffsetCountsInWholeMinutes) {
    Expect({
        {"<EEE>-0:30:45", kWinter, kWinterClock - 1845, kWinterClock - 45},
        {"<WWW>0:30:45",  kWinter, kWinterClock + 1845, kWinterClock + 45},
        {"<EEE>-0:00:59", kWinter, kWinterClock - 59,   kWinterClock - 59},
    });
}

TEST(GetUTCTimebyNetTime, FollowsTheZoneFromCallToCall) {
    Expect({
        {"CST-8",            kWinter, 1705291200, kWinterClock},
        {"America/New_York", kWinter, 1705338000, kWinterClock},
        {"CST-8",            kWinter, 1705291200, kWinterClock},
        {"UTC",              kWinter, 1705320000, kWinterClock},
    });
}

TEST(GetLocalTimebyNetTimeNew, FollowsAZoneThatTheProgramSetWithoutTelling) {
    const TimeZone scope("CST-8");
    setenv("TZ", "EST5", 1);
    EXPECT_EQ(ClockSeconds(kWinter), kWinterClock);
    EXPECT_EQ(ClockSeconds(kEpoch), 0);
}

TEST(GetLocalTimebyNetTimeNew, DoesNotDependOnTheTimesAskedForBefore) {
    const TimeZone scope("Europe/Berlin");
    for (const Calendar& before : {
             Calendar{1970, 1,  1,     12, 0, 0},
             kSummer, kWinter, Calendar{2100,   7,    15,         12, 0, 0},
             Calendar{1900, 1,1}
    }) {
        Seconds(before);
        EXPECT_EQ(ClockSeconds(kWinter), kWinterClock);
        Seconds(before);
        EXPECT_EQ(ClockSeconds(kSummer), kSummerClock - 3600);
    }
}

TEST(GetUTCTimebyNetTime, TimesThatDoNotExistCountOn) {
    const auto words = [](long number) { return static_cast<unsigned>(number); };
    Expect({
        {"UTC", {2024, 0, 10, 0, 0, 0},         1702166400,       1702166400      }, // 2023-12-10
        {"UTC", {2024, 13, 10, 0, 0, 0},        1736467200,       1736467200      }, // 2025-01-10
        {"UTC", {2024, 2, 31, 0, 0, 0},         1709337600,       1709337600      }, // 2024-03-02
        {"UTC", {2023, 2, 31, 0, 0, 0},         1677801600,       1677801600      }, // 2023-03-03
        {"UTC", {2023, 2, 29, 0, 0, 0},         1677628800,       1677628800      }, // 2023-03-01
        {"UTC", {2024, 3, 0, 0, 0, 0},          1709164800,       1709164800      }, // 2024-02-29
        {"UTC", {2024, 1, 1, 24, 0, 0},         1704153600,       1704153600      }, // 2024-01-02
        {"UTC", {2024, 1, 1, 0, 60, 60},        1704070860,       1704070860      }, // 01:01:00
        {"UTC", {2024, 1, 1, 0, 0, words(-1)},  1704067199,       1704067199      }, // 2023-12-31 23:59:59
        {"UTC", {2024, words(-1), 10, 0, 0, 0}, 1699574400,       1699574400      }, // 2023-11-10
        {"UTC", {2024, 1, 1, 0, 0, 2147483647}, 3851550847,       3851550847      }, // 2092-01-19 03:14:07
        {"UTC", {2024, 1, 1, 0, 0, 2147483648}, 0,                0               }, // 1955-12-13 20:45:52
        {"UTC", {0, 2147483647, 1, 0, 0, 0},    5647274360841600, 5647274360841600},
    });
}

TEST(GetUTCTimebyNetTime, HugeYears) {
    Expect({
        {"UTC", {9999, 12, 31, 23, 59, 59},                                               253402300799,      253402300799     },
        {"UTC", {10000, 1, 1, 0, 0, 0},                                                   253402300800,      253402300800     },
        {"UTC", {2147483647, 1, 1, 0, 0, 0},                                              67767976201996800, 67767976201996800},
        {"UTC", {2147485547, 12, 31, 23, 59, 59},                                         kLast,             kLast            },
        {"UTC", {2147485547, 12, 31, 23, 59, 60},                                         0,                 0                }, // no such year
        {"UTC", {2147485548, 1, 1, 0, 0, 0},                                              0,                 0                }, // a negative year
        {"UTC", {4294967295, 12, 31, 23, 59, 59},                                         0,                 0                },
        {"UTC", {4294967295, 4294967295, 4294967295, 4294967295, 4294967295, 4294967295}, 0,                 0                },
    });
}

TEST(GetUTCTimebyNetTime, AnyWordsAreTaken) {
    const TimeZone scope("America/New_York");
    std::mt19937 random(3);
    constexpr unsigned kBorders[] = {0, 1, 1899, 1900, 2147483647, 2147483648, 2147485547, 2147485548, 4294967295};
    for (int i = 0; i < 20000; ++i) {
        Calendar calendar{};
        for (unsigned& word : calendar) {
            word = random() % 2 == 0 ? kBorders[random() % std::size(kBorders)] : static_cast<unsigned>(random());
        }
        ASSERT_GE(GetUTCTimebyNetTimeNew(Plain(calendar)), 0);
        ASSERT_GE(ClockSeconds(calendar), 0);
    }
}

TEST(GetUTCTimebyNetTime, TakesBackTheBreakdownAtUtcOnly) {
    std::mt19937_64 random(11);
    std::uniform_int_distribution<long> future(28800, 300000000000);
    for (int i = 0; i < 5000; ++i) {
        const long seconds = future(random);
        {
            const TimeZone scope("UTC");
            ASSERT_EQ(GetUTCTimebyNetTimeNew(GetNetTimeByUTCTimeNew(seconds)), seconds);
            ASSERT_EQ(GetUTCTimebyNetTime(GetNetTimeByUTCTime(seconds)), seconds);
        }
        const TimeZone scope("CST-8");
        ASSERT_EQ(GetUTCTimebyNetTimeNew(GetNetTimeByUTCTimeNew(seconds)), seconds - 28800);
        ASSERT_EQ(GetUTCTimebyNetTime(GetNetTimeByUTCTime(seconds)), seconds - 28800);
        ASSERT_EQ(GetLocalTimebyNetTimeNew(GetNetTimeByUTCTimeNew(seconds)), seconds);
    }
}

}  // namespace
