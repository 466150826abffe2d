// Reading numbers out of a text by a format, as sscanf does.
#ifndef VKPROTOCOLSTACK_WIRE_SCAN_H
#define VKPROTOCOLSTACK_WIRE_SCAN_H

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <string_view>
#include <tuple>
#include <type_traits>

#include "vkprotocolstack/wire/number_format.h"

namespace jsonparser {

enum class Signs {
    Allowed,  ///< a number may begin with + or -, which counts in its width
    Refused   ///< a number is digits only
};

/// Scans text, up to its first NUL, with sscanf's results: blanks before a number are skipped, a blank in the format
/// takes any number of blanks, a number beyond the range keeps the low 32 bits of the 64-bit limit.
/// @param values one for each step
/// @return how many numbers were stored in values, in order
std::size_t Scan(std::string_view text, std::span<const NumberStep> steps, Signs signs, int* values);

/// One number of ScanPlain and what stands before it.
[[gnu::always_inline]] inline bool ScanPlainNumber(const char*& at, const char* end, NumberStep step, int& value) {
    constexpr std::ptrdiff_t kSafe = 9;  // so many digits always fit
    if (step.before != '\0' && (at == end || *at++ != step.before)) return false;
    const char* const begin = at;
    const char* const last = step.width != 0 && end - at > step.width ? at + step.width : end;
    unsigned number = 0;
    for (; at != last && *at >= '0' && *at <= '9'; ++at) number = number * 10 + static_cast<unsigned>(*at - '0');
    value = static_cast<int>(number);
    return at != begin && at - begin <= kSafe;
}

/// Three numbers of ScanPlain at once, from the eight bytes of 00:00:00.
[[gnu::always_inline]] inline bool ScanTime(const char* at, int& hours, int& minutes, int& seconds) {
    static_assert(std::endian::native == std::endian::little);
    constexpr std::uint64_t kZero = 0x30303A30303A3030;    // 00:00:00
    constexpr std::uint64_t kAbove9 = 0x7676007676007676;  // takes what is more than 9 to the highest bit
    constexpr std::uint64_t kNone = 0x8080FF8080FF8080;    // the bits that only something else sets
    std::uint64_t digits = 0;
    std::memcpy(&digits, at, sizeof digits);
    digits ^= kZero;
    if (((digits | (digits + kAbove9)) & kNone) != 0) return false;
    const std::uint64_t numbers = digits * 10 + (digits >> 8);
    hours = static_cast<int>(numbers & 0xFF);
    minutes = static_cast<int>(numbers >> 24 & 0xFF);
    seconds = static_cast<int>(numbers >> 48 & 0xFF);
    return true;
}

/// Scans what texts look like as a rule: numbers without signs, those between colons of two digits, no number of very
/// many, and before each what the format has and no more. The compiler unrolls it for each format.
/// @param values a tuple of as many int; for an array the compiler would guard the caller's frame
/// @return whether the text is such a one; what is in values counts only then
template <std::size_t I = 0, std::size_t N, class Values>
[[gnu::always_inline]] inline bool ScanPlain(const char* at, const char* end, const NumberFormat<N>& format,
                                             Values& values) {
    if constexpr (I == N) {
        return true;
    } else {
        if constexpr (I + 3 <= N) {
            if (format.isTime(I)) {
                const NumberStep first = format.steps()[I];
                const std::ptrdiff_t length = first.before == '\0' ? 8 : 9;
                if (end - at < length || (first.before != '\0' && *at != first.before)) return false;
                const char* const behind = at + length;
                bool isWhole = format.steps()[I + 2].width != 0;
                if constexpr (I + 3 < N) isWhole |= format.steps()[I + 3].before != '\0';
                isWhole = isWhole || behind == end || *behind < '0' || *behind > '9';
                return isWhole &&
                       ScanTime(behind - 8, std::get<I>(values), std::get<I + 1>(values), std::get<I + 2>(values)) &&
                       ScanPlain<I + 3>(behind, end, format, values);
            }
        }
        return ScanPlainNumber(at, end, format.steps()[I], std::get<I>(values)) &&
               ScanPlain<I + 1>(at, end, format, values);
    }
}

/// Scans such a text into the words of a record, which are left as they were where it is another.
template <class... Word>
[[gnu::always_inline]] inline bool ScanPlainInto(std::string_view text, const NumberFormat<sizeof...(Word)>& format,
                                                 Word&... words) {
    std::tuple<decltype(sizeof(Word), int())...> values;
    if (!ScanPlain(text.data(), text.data() + text.size(), format, values)) return false;
    std::apply([&](auto... value) { ((words = static_cast<Word>(value)), ...); }, values);
    return true;
}

/// Scan into the words of a record; those that do not convert are left as they were.
/// @return how many were converted
template <class... Word>
[[gnu::always_inline]] inline std::size_t ScanInto(std::string_view text, const NumberFormat<sizeof...(Word)>& format,
                                                   Signs signs, Word&... words) {
    if (ScanPlainInto(text, format, words...)) return sizeof...(Word);
    std::array<int, sizeof...(Word)> values;
    const std::size_t converted = Scan(text, format.steps(), signs, values.data());
    std::size_t i = 0;
    const auto store = [&](auto& word) {
        if (i < converted) word = static_cast<std::remove_reference_t<decltype(word)>>(values[i]);
        ++i;
    };
    (store(words), ...);
    return converted;
}

}  // namespace jsonparser

#endif
