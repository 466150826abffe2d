#include "vkprotocolstack/wire/scan.h"

#include <cstddef>
#include <limits>

namespace jsonparser {
namespace {

bool IsBlank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// Digits up to last, of which there is at least one, as a number of 64 bits; overflow is set where it does not fit.
unsigned long ScanDigits(const char*& at, const char* last, bool& overflow) {
    constexpr std::ptrdiff_t kSafe = 18;  // so many digits always fit
    constexpr auto kMax = std::numeric_limits<unsigned long>::max();
    unsigned long number = 0;
    for (const char* const safe = last - at > kSafe ? at + kSafe : last; at != safe; ++at) {
        if (!IsDigit(*at)) return number;
        number = number * 10 + static_cast<unsigned long>(*at - '0');
    }
    for (; at != last && IsDigit(*at); ++at) {
        const auto digit = static_cast<unsigned long>(*at - '0');
        overflow = overflow || number > kMax / 10 || (number == kMax / 10 && digit > kMax % 10);
        number = number * 10 + digit;
    }
    return number;
}

/// A number, sign included in its width. It is 64 bits wide while it is read, like the long that sscanf reads into, and
/// keeps its low 32 bits.
bool ScanNumber(const char*& at, const char* end, NumberStep step, Signs signs, int& value) {
    while (at != end && IsBlank(*at)) ++at;
    const char* const last = step.width != 0 && end - at > step.width ? at + step.width : end;
    bool negative = false;
    if (signs == Signs::Allowed && at != last && (*at == '-' || *at == '+')) {
        negative = *at == '-';
        ++at;
    }
    if (at == last || !IsDigit(*at)) return false;
    bool overflow = false;
    unsigned long magnitude = ScanDigits(at, last, overflow);
    const unsigned long limit = std::numeric_limits<unsigned long>::max() / 2 + (negative ? 1 : 0);
    if (step.isSigned && (overflow || magnitude > limit)) {
        magnitude = limit;
    } else if (overflow) {
        magnitude = std::numeric_limits<unsigned long>::max();
        negative = false;
    }
    value = static_cast<int>(static_cast<unsigned>(negative ? 0 - magnitude : magnitude));
    return true;
}

}  // namespace

std::size_t Scan(std::string_view text, std::span<const NumberStep> steps, Signs signs, int* values) {
    // A NUL is no blank, no digit and in no format, so it ends the text without being looked for.
    const char* at = text.data();
    const char* const end = at + text.size();
    for (std::size_t converted = 0; converted < steps.size(); ++converted) {
        const NumberStep step = steps[converted];
        // Blanks, which the format may have too, are skipped before every number anyway.
        if (step.before != '\0' && !IsBlank(step.before)) {
            if (at == end || *at != step.before) return converted;
            ++at;
        }
        if (!ScanNumber(at, end, step, signs, values[converted])) return converted;
    }
    return steps.size();
}

}  // namespace jsonparser
