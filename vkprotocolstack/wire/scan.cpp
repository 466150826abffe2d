#include "vkprotocolstack/wire/scan.h"

#include <limits>

namespace jsonparser {
namespace {

bool IsBlank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }

void SkipBlanks(std::string_view& text) {
    while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
}

/// A number of at most width characters, sign included. It is 64 bits wide while it is read, like the long that sscanf
/// reads into, and keeps its low 32 bits.
bool ScanNumber(std::string_view& text, std::size_t width, bool isSigned, Signs signs, int& value) {
    constexpr auto kMax = std::numeric_limits<unsigned long>::max();
    SkipBlanks(text);
    std::string_view rest = text.substr(0, width);
    bool negative = false;
    if (signs == Signs::Allowed && !rest.empty() && (rest.front() == '-' || rest.front() == '+')) {
        negative = rest.front() == '-';
        rest.remove_prefix(1);
    }
    if (rest.empty() || !IsDigit(rest.front())) return false;
    unsigned long magnitude = 0;
    bool overflow = false;
    while (!rest.empty() && IsDigit(rest.front())) {
        const auto digit = static_cast<unsigned long>(rest.front() - '0');
        overflow = overflow || magnitude > (kMax - digit) / 10;
        magnitude = magnitude * 10 + digit;
        rest.remove_prefix(1);
    }
    text.remove_prefix(static_cast<std::size_t>(rest.data() - text.data()));
    const unsigned long limit = kMax / 2 + (negative ? 1 : 0);
    if (isSigned && (overflow || magnitude > limit)) {
        magnitude = limit;
    } else if (overflow) {
        magnitude = kMax;
        negative = false;
    }
    value = static_cast<int>(static_cast<unsigned>(negative ? 0 - magnitude : magnitude));
    return true;
}

}  // namespace

std::size_t Scan(std::string_view text, std::string_view format, std::span<int> values, Signs signs) {
    text = text.substr(0, text.find('\0'));
    std::size_t converted = 0;
    while (!format.empty()) {
        const char step = format.front();
        format.remove_prefix(1);
        if (IsBlank(step)) {
            SkipBlanks(text);
            continue;
        }
        if (step != '%') {
            if (text.empty() || text.front() != step) return converted;
            text.remove_prefix(1);
            continue;
        }
        std::size_t width = 0;
        for (; IsDigit(format.front()); format.remove_prefix(1)) {
            width = width * 10 + static_cast<std::size_t>(format.front() - '0');
        }
        if (width == 0) width = text.npos;
        const bool isSigned = format.front() == 'd';
        format.remove_prefix(1);
        if (!ScanNumber(text, width, isSigned, signs, values[converted])) return converted;
        ++converted;
    }
    return converted;
}

}  // namespace jsonparser
