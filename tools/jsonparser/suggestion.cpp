#include "suggestion.h"

#include <fmt/format.h>

#include "utf8.h"
#include "vkprotocolstack/wire/nearest.h"

namespace tool {

std::string DidYouMean(std::string_view word, const std::vector<std::string>& names) {
    const std::vector<std::string_view> candidates(names.begin(), names.end());
    const auto nearest = jsonparser::Nearest(word, candidates);
    return nearest ? fmt::format("; did you mean {}?", QuotedText(*nearest)) : "";
}

}  // namespace tool
