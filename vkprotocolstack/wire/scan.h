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
    const auto digitAt = [](const char* p) { return static_cast<unsigned char>(*p) - unsigned{'0'}; };
    if (step.before != '\0' && (at == end || *at++ != step.before)) return false;
    const char* const begin = at;
    const char* const last = step.width != 0 && end - at > step.width ? at + step.width : end;
    if (at == last) return false;
    unsigned number = digitAt(at++);
    if (number > 9) return false;
    for (unsigned digit = 0; at != last && (digit = digitAt(at)) <= 9; ++at) [[unlikely]] number = number * 10 + digit;
    value = static_cast<int>(number);
    return at - begin <= kSafe;
}

/// The eight bytes of a time 00:00:00, with the values of its digits.
[[gnu::always_inline]] inline std::uint64_t TimeAt(const char* at) {
    static_assert(std::endian::native == std::endian::little);
    std::uint64_t bytes = 0;
    std::memcpy(&bytes, at, sizeof bytes);
    return bytes ^ 0x30303A30303A3030;  // 00:00:00
}
inline constexpr std::uint64_t kNoTime = 0x8080FF8080FF8080;  ///< bits of OddsOfTime that are 0 of every time
[[gnu::always_inline]] inline std::uint64_t OddsOfTime(std::uint64_t time) {
    constexpr std::uint64_t kAbove9 = 0x7676007676007676;  // takes what is more than 9 to the highest bit
    return time | (time + kAbove9);
}
[[gnu::always_inline]] inline void TakeTime(std::uint64_t time, int& hours, int& minutes, int& seconds) {
    const std::uint64_t numbers = time * 10 + (time >> 8);
    hours = static_cast<int>(numbers & 0xFF);
    minutes = static_cast<int>(numbers >> 24 & 0xFF);
    seconds = static_cast<int>(numbers >> 48 & 0xFF);
}

/// Bytes of the times that follow each other from the numbers at i on, each with what stands before it.
template <std::size_t N>
constexpr std::size_t SizeOfTimes(const NumberFormat<N>& format, std::size_t i) {
    std::size_t size = 0;
    for (; i + 3 <= N && format.isTime(i); i += 3) size += format.steps()[i].before == '\0' ? 8U : 9U;
    return size;
}

/// Scans what texts look like as a rule: numbers without signs, those between colons of two digits, no number of very
/// many, and before each what the format has and no more. The compiler unrolls it for each format.
/// @param values a tuple of as many int; for an array the compiler would guard the caller's frame
/// @param left bytes from at on
/// @param odds OddsOfTime of all times before, together
/// @return whether the text is such a one; what is in values counts only then
template <std::size_t I = 0, std::size_t N, class Values>
[[gnu::always_inline]] inline bool ScanPlain(const char* at, std::size_t left, const NumberFormat<N>& format,
                                             Values& values, std::uint64_t odds = 0) {
    if constexpr (I == N) {
        return (odds & kNoTime) == 0;
    } else {
        const NumberStep step = format.steps()[I];
        if constexpr (I + 3 <= N) {
            if (format.isTime(I)) {
                // Also for the times that follow at once.
                if (left < SizeOfTimes(format, I) || (step.before != '\0' && *at++ != step.before)) return false;
                left -= step.before == '\0' ? 8U : 9U;
                bool isWhole = format.steps()[I + 2].width != 0;
                if constexpr (I + 3 < N) isWhole |= format.steps()[I + 3].before != '\0';
                if (!isWhole && left != 0) [[unlikely]] {
                    if (at[8] >= '0' && at[8] <= '9') return false;
                }
                const std::uint64_t time = TimeAt(at);
                TakeTime(time, std::get<I>(values), std::get<I + 1>(values), std::get<I + 2>(values));
                return ScanPlain<I + 3>(at + 8, left, format, values, odds | OddsOfTime(time));
            }
        }
        const char* const end = at + left;
        return ScanPlainNumber(at, end, step, std::get<I>(values)) &&
               ScanPlain<I + 1>(at, static_cast<std::size_t>(end - at), format, values, odds);
    }
}

/// Scans such a text into the words of a record, which are left as they were where it is another.
template <class... Word>
[[gnu::always_inline]] inline bool ScanPlainInto(std::string_view text, const NumberFormat<sizeof...(Word)>& format,
                                                 Word&... words) {
    std::tuple<decltype(sizeof(Word), int())...> values;
    if (!ScanPlain(text.data(), text.size(), format, values)) return false;
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
