#include <cstring>
#include <ctime>
#include <new>
#include <string>

#include "benchmarks/literal/literal.h"
#include "vkprotocolstack/support/support.h"

namespace literal {

void ReadText(const Json::Value& value, char* destination, int limit) {
    if (value.isNull()) return;
    const std::string text = value.asString();
    const int length = static_cast<int>(text.size()) < limit ? static_cast<int>(text.size()) : limit;
    char* buffer = new (std::nothrow) char[static_cast<std::size_t>(length) + 1];
    if (buffer == nullptr) return;
    std::memset(buffer, 0, static_cast<std::size_t>(length) + 1);
    std::strncpy(buffer, text.c_str(), static_cast<std::size_t>(length));
    Change_Utf8_Assic(reinterpret_cast<unsigned char*>(buffer), destination);
    delete[] buffer;
}

template <class Time>
Time TimeOf(long seconds) {
    Time time = {};
    std::time_t moment = seconds;
    std::tm parts = {};
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
template tagNET_TIME TimeOf(long);
template tagNET_TIME_EX TimeOf(long);

}  // namespace literal
