#include <chrono>
#include <climits>
#include <ctime>

#include "vkprotocolstack/JsonParser.h"

namespace {

/// A number divided, rounded down, and the rest, which is never negative.
struct Division {
    long quotient;
    long rest;
};

Division Divided(long number, long divisor) {
    const long rest = number % divisor;
    return rest < 0 ? Division{number / divisor - 1, rest + divisor} : Division{number / divisor, rest};
}

/// Fills the six calendar fields that both records have in common, as gmtime_r would, which looks at the zone too.
template <class Time>
Time FromUtc(long seconds) {
    constexpr long kDaysOf400Years = 146097;  // then the calendar repeats
    const Division day = Divided(seconds, 86400);
    const Division era = Divided(day.quotient, kDaysOf400Years);
    const std::chrono::year_month_day date(std::chrono::sys_days(std::chrono::days(era.rest)));
    const long year = 400 * era.quotient + static_cast<int>(date.year());
    Time time{};
    // gmtime_r counts years from 1900 in an int, and fails where they do not fit.
    if (year - 1900 > INT_MAX || year - 1900 < INT_MIN) {
        time.dwYear = 1900;
        time.dwMonth = 1;
        time.dwDay = 1;
        return time;
    }
    time.dwYear = static_cast<unsigned>(year);
    time.dwMonth = static_cast<unsigned>(date.month());
    time.dwDay = static_cast<unsigned>(date.day());
    time.dwHour = static_cast<unsigned>(day.rest / 3600);
    time.dwMinute = static_cast<unsigned>(day.rest / 60 % 60);
    time.dwSecond = static_cast<unsigned>(day.rest % 60);
    return time;
}

/// mktime of the calendar fields: local time, daylight saving decided by the zone; -1 when there is no such time.
template <class Time>
long LocalSeconds(const Time& time) {
    std::tm parts{};
    parts.tm_year = static_cast<int>(time.dwYear - 1900U);
    parts.tm_mon = static_cast<int>(time.dwMonth - 1U);
    parts.tm_mday = static_cast<int>(time.dwDay);
    parts.tm_hour = static_cast<int>(time.dwHour);
    parts.tm_min = static_cast<int>(time.dwMinute);
    parts.tm_sec = static_cast<int>(time.dwSecond);
    parts.tm_isdst = -1;
    return std::mktime(&parts);
}

long NotNegative(long seconds) { return seconds < 0 ? 0 : seconds; }

/// The zone's standard offset. ftime, which once gave it, leaves its zone field 0 in current C libraries.
long MinutesWest() {
    tzset();
    return timezone / 60;
}

}  // namespace

tagNET_TIME_EX GetNetTimeByUTCTime(long seconds) { return FromUtc<tagNET_TIME_EX>(seconds); }

tagNET_TIME GetNetTimeByUTCTimeNew(long seconds) { return FromUtc<tagNET_TIME>(seconds); }

long GetUTCTimebyNetTime(const tagNET_TIME_EX& time) { return NotNegative(LocalSeconds(time)); }

long GetUTCTimebyNetTimeNew(const tagNET_TIME& time) { return NotNegative(LocalSeconds(time)); }

long GetLocalTimebyNetTimeNew(const tagNET_TIME& time) {
    const long minutesWest = MinutesWest();
    const long seconds = LocalSeconds(time);
    return seconds == -1 ? 0 : NotNegative(seconds - 60 * minutesWest);
}
