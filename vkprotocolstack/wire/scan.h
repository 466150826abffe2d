// Reading numbers out of a text by a format, as sscanf does.
#ifndef VKPROTOCOLSTACK_WIRE_SCAN_H
#define VKPROTOCOLSTACK_WIRE_SCAN_H

#include <array>
#include <cstddef>
#include <span>
#include <string_view>

namespace jsonparser {

enum class Signs {
    Allowed,  ///< a number may begin with + or -, which counts in its width
    Refused   ///< a number is digits only
};

/// Scans text, up to its first NUL, by a format of %d, %u, widths, blanks and literal characters, with sscanf's
/// results: blanks before a number are skipped, a blank in the format takes any number of blanks, a number beyond the
/// range keeps the low 32 bits of the 64-bit limit.
/// @return how many numbers were stored in values, in order
std::size_t Scan(std::string_view text, std::string_view format, std::span<int> values, Signs signs);

/// The same into the words of a record; those that do not convert are left as they were.
/// @return how many were converted
template <class... Word>
std::size_t ScanInto(std::string_view text, std::string_view format, Signs signs, Word&... words) {
    std::array<int, sizeof...(Word)> values{};
    const std::size_t converted = Scan(text, format, values, signs);
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
