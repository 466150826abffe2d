// The known name that a mistyped one was probably meant to be.
#ifndef VKPROTOCOLSTACK_WIRE_NEAREST_H
#define VKPROTOCOLSTACK_WIRE_NEAREST_H

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>

namespace jsonparser {

/// Edits that make a into b: a byte inserted, left out or replaced, or two neighbours swapped (Damerau-Levenshtein, no
/// stretch edited twice). ASCII letters of the other case are equal.
std::size_t EditDistance(std::string_view a, std::string_view b);

/// The candidate with the fewest edits to word; the first of several. One that needs more edits than a third of the
/// longer name's bytes (one edit is always allowed), or that keeps no byte of the word, is no candidate: a far-fetched
/// proposal is worse than none. Takes time by the candidates' lengths, however long word is.
/// @return a view of the candidate's own bytes, nothing when none is near
std::optional<std::string_view> Nearest(std::string_view word, std::span<const std::string_view> candidates);

}  // namespace jsonparser

#endif
