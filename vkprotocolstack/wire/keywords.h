// Keyword tables: the words of a vocabulary and the codes that records keep for them. The scan rule is the lookup's
// name.
#ifndef VKPROTOCOLSTACK_WIRE_KEYWORDS_H
#define VKPROTOCOLSTACK_WIRE_KEYWORDS_H

#include <cstddef>
#include <span>
#include <string_view>

#include "vkprotocolstack/vocabulary.h"

namespace jsonparser {

/// A vocabulary in table order. Duplicate texts and codes are allowed: the lookup says which row counts.
using Keywords = std::span<const Keyword>;

/// Whether each row's code is its index.
constexpr bool CodesAreIndexes(Keywords table) {
    for (std::size_t i = 0; i < table.size(); ++i) {
        if (table[i].code != static_cast<int>(i)) return false;
    }
    return true;
}

/// Whether a and b, each up to its first NUL, are equal but for the case of ASCII letters.
bool EqualIgnoringCase(std::string_view a, std::string_view b);

/// The first row whose text has the same length and bytes; null when there is none.
const Keyword* FirstExact(Keywords table, std::string_view text);

/// The first row whose text is equal but for the case of ASCII letters; null when there is none.
const Keyword* FirstIgnoringCase(Keywords table, std::string_view text);

/// The last such row; null when there is none.
const Keyword* LastIgnoringCase(Keywords table, std::string_view text);

/// The first row whose text stands anywhere in text, up to its first NUL; null when there is none.
const Keyword* FirstContained(Keywords table, std::string_view text);

/// The first row with this code; null when there is none.
const Keyword* FirstWithCode(Keywords table, int code);

}  // namespace jsonparser

#endif
