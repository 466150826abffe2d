#include <ctime>

#include "vkprotocolstack/JsonParser.h"

namespace {

/// Fills the six calendar fields that both records have in common.
template <class Time>
Time FromUtc(long seconds) {
    Time time{};
    std::tm parts{};
    const std::time_t moment = seconds;
    if (gmtime_r(&moment, &parts) == nullptr) {
        time.dwYear = 1900;
        time.dwMonth = 1;
        time.dwDay = 1;
        return time;
    }
    time.dwYear = static_cast<unsigned>(parts.tm_year) + 1900U;
    time.dwMonth = static_cast<unsigned>(parts.tm_mon) + 1U;
    time.dwDay = static_cast<unsigned>(parts.tm_mday);
    time.dwHour = static_cast<unsigned>(parts.tm_hour);
    time.dwMinute = static_cast<unsigned>(parts.tm_min);
    time.dwSecond = static_cast<unsigned>(parts.tm_sec);
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
