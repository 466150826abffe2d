#include "vkprotocolstack/wire/nearest.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace jsonparser {
namespace {

char Folded(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool SameLetter(char a, char b) { return Folded(a) == Folded(b); }

}  // namespace

std::size_t EditDistance(std::string_view a, std::string_view b) {
    // Rows of the table of distances between the first i bytes of a and the first j bytes of b.
    std::vector<std::size_t> beforePrevious(b.size() + 1);
    std::vector<std::size_t> previous(b.size() + 1);
    std::vector<std::size_t> current(b.size() + 1);
    for (std::size_t j = 0; j <= b.size(); ++j) current[j] = j;
    for (std::size_t i = 1; i <= a.size(); ++i) {
        std::swap(beforePrevious, previous);
        std::swap(previous, current);
        current[0] = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const bool same = SameLetter(a[i - 1], b[j - 1]);
            current[j] = std::min({previous[j] + 1, current[j - 1] + 1, previous[j - 1] + (same ? 0U : 1U)});
            const bool swapped = i > 1 && j > 1 && SameLetter(a[i - 1], b[j - 2]) && SameLetter(a[i - 2], b[j - 1]);
            if (swapped) current[j] = std::min(current[j], beforePrevious[j - 2] + 1);
        }
    }
    return current[b.size()];
}

std::optional<std::string_view> Nearest(std::string_view word, std::span<const std::string_view> candidates) {
    std::optional<std::string_view> nearest;
    std::size_t fewest = 0;
    for (const std::string_view candidate : candidates) {
        if (candidate == word) return candidate;
        const auto [shorter, longer] = std::minmax({word.size(), candidate.size()});
        const std::size_t allowed = std::max<std::size_t>(longer / 3, 1);
        if (longer - shorter > allowed) continue;
        const std::size_t edits = EditDistance(word, candidate);
        if (edits > allowed || edits >= longer || (nearest && edits >= fewest)) continue;
        nearest = candidate;
        fewest = edits;
    }
    return nearest;
}

}  // namespace jsonparser
