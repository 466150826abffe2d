// Numbers scanned, numbers printed and the calendar, against sscanf, snprintf and gmtime_r.

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>

#include "vkprotocolstack/JsonParser.h"
#include "vkprotocolstack/wire/scan.h"
#include "vkprotocolstack/wire/write.h"

namespace {

using jsonparser::NumberFormat;
using jsonparser::Signs;

constexpr std::tuple kFormats{
    NumberFormat<6>("%04d-%02d-%02d %02d:%02d:%02d"),
    NumberFormat<7>("%04d-%02d-%02d %02d:%02d:%02d.%d"),
    NumberFormat<6>("%04d%02d%02d %02d%02d%02d"),
    NumberFormat<3>("%02d:%02d:%02d"),
    NumberFormat<3>("%04d-%02d-%02d"),
    NumberFormat<3>("%04u-%02u-%02u"),
    NumberFormat<7>("%d %02d:%02d:%02d-%02d:%02d:%02d"),
    NumberFormat<7>("%d %d:%d:%d-%d:%d:%d"),
    NumberFormat<4>("%u:%02d:%d:%02u"),
    NumberFormat<1>("%d"),
};

void Expect(bool agrees, std::string_view what) {
    if (agrees) return;
    std::fprintf(stderr, "%.*s: the C library's result differs\n", static_cast<int>(what.size()), what.data());
    std::abort();
}

/// Both scans against sscanf. What follows a NUL counts for none of them.
template <std::size_t N>
void Scan(std::string_view text, const NumberFormat<N>& format) {
    constexpr int kUntouched = 0x5A5A5A5A;
    const std::string terminated(text);
    std::array<int, N> expected;
    std::array<int, N> scanned;
    std::array<int, N> into;
    for (auto* values : {&expected, &scanned, &into}) values->fill(kUntouched);
    [&]<std::size_t... I>(std::index_sequence<I...>) {
        const int count = std::sscanf(terminated.c_str(), format.text().data(), &expected[I]...);
        const std::size_t converted = count < 0 ? 0 : static_cast<std::size_t>(count);
        Expect(jsonparser::Scan(text, format.steps(), Signs::Allowed, scanned.data()) == converted, format.text());
        Expect(jsonparser::ScanInto(text, format, Signs::Allowed, into[I]...) == converted, format.text());
    }
    (std::make_index_sequence<N>());
    Expect(scanned == expected && into == expected, format.text());
}

template <std::size_t N>
void Print(const NumberFormat<N>& format, const std::array<unsigned, 7>& numbers) {
    char expected[256];
    [&]<std::size_t... I>(std::index_sequence<I...>) {
        std::snprintf(expected, sizeof expected, format.text().data(), numbers[I]...);
    }
    (std::make_index_sequence<N>());
    Expect(jsonparser::Printed(format.steps(), numbers.data()).asString() == expected, format.text());
}

void BreakDown(long seconds) {
    const tagNET_TIME time = GetNetTimeByUTCTimeNew(seconds);
    std::tm parts{};
    if (gmtime_r(&seconds, &parts) == nullptr) {
        parts = {};  // some fields are set where it fails
        parts.tm_mday = 1;
    }
    const auto word = [](int number, unsigned plus = 0) { return static_cast<unsigned>(number) + plus; };
    Expect(time.dwYear == word(parts.tm_year, 1900) && time.dwMonth == word(parts.tm_mon, 1) &&
               time.dwDay == word(parts.tm_mday) && time.dwHour == word(parts.tm_hour) &&
               time.dwMinute == word(parts.tm_min) && time.dwSecond == word(parts.tm_sec),
           "gmtime_r");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    std::array<unsigned, 7> numbers{};
    if (size > 0) std::memcpy(numbers.data(), data, std::min(size, sizeof numbers));
    std::apply([&](const auto&... format) { ((Scan(text, format), Print(format, numbers)), ...); }, kFormats);
    long seconds = 0;
    if (size > 0) std::memcpy(&seconds, data, std::min(size, sizeof seconds));
    BreakDown(seconds);
    return 0;
}
