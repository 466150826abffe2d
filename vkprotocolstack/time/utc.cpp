#include <chrono>
#include <climits>
#include <ctime>

#include "vkprotocolstack/JsonParser.h"
#include "vkprotocolstack/time/utc.h"

namespace {

constexpr long kDay = 86400;
constexpr long kCycle = 146097 * kDay;  // then the calendar repeats, 400 years later
constexpr long kNear = 10 * kCycle;     // around 1970, what both the calendar and an unsigned number of days hold

template <class Time>
void SetFarUtc(Time& time, long seconds);

/// Fills the six calendar fields that both records have in common, as gmtime_r would, which looks at the zone too, and
/// clears the others.
template <class Time>
void Set(Time& time, long seconds) {
    const unsigned long shifted = static_cast<unsigned long>(seconds) + kNear;
    if (shifted >= 2 * kNear) [[unlikely]]
        return SetFarUtc(time, seconds);
    const std::chrono::days day(static_cast<int>(shifted / kDay) - static_cast<int>(kNear / kDay));
    const auto second = static_cast<unsigned>(shifted % kDay);
    const std::chrono::year_month_day date{std::chrono::sys_days(day)};
    time = {};
    time.dwYear = static_cast<unsigned>(static_cast<int>(date.year()));
    time.dwMonth = static_cast<unsigned>(date.month());
    time.dwDay = static_cast<unsigned>(date.day());
    time.dwHour = second / 3600;
    time.dwMinute = second / 60 % 60;
    time.dwSecond = second % 60;
}

template <class Time>
[[gnu::noinline]] void SetFarUtc(Time& time, long seconds) {
    Set(time, seconds % kCycle);
    const long year = static_cast<int>(time.dwYear) + 400 * (seconds / kCycle);
    // gmtime_r counts years from 1900 in an int, and fails where they do not fit.
    if (year - 1900 > INT_MAX || year - 1900 < INT_MIN) {
        time = {};
        time.dwYear = 1900;
        time.dwMonth = 1;
        time.dwDay = 1;
        return;
    }
    time.dwYear = static_cast<unsigned>(year);
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

void jsonparser::SetUtc(tagNET_TIME& time, long seconds) { Set(time, seconds); }

void jsonparser::SetUtc(tagNET_TIME_EX& time, long seconds) { Set(time, seconds); }

tagNET_TIME_EX GetNetTimeByUTCTime(long seconds) {
    tagNET_TIME_EX time;
    Set(time, seconds);
    return time;
}

tagNET_TIME GetNetTimeByUTCTimeNew(long seconds) {
    tagNET_TIME time;
    Set(time, seconds);
    return time;
}

long GetUTCTimebyNetTime(const tagNET_TIME_EX& time) { return NotNegative(LocalSeconds(time)); }

long GetUTCTimebyNetTimeNew(const tagNET_TIME& time) { return NotNegative(LocalSeconds(time)); }

long GetLocalTimebyNetTimeNew(const tagNET_TIME& time) {
    const long minutesWest = MinutesWest();
    const long seconds = LocalSeconds(time);
    return seconds == -1 ? 0 : NotNegative(seconds - 60 * minutesWest);
}
