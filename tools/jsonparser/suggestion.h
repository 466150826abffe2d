// The name that a mistyped one was probably meant to be.
#ifndef TOOLS_JSONPARSER_SUGGESTION_H
#define TOOLS_JSONPARSER_SUGGESTION_H

#include <string>
#include <string_view>
#include <vector>

namespace tool {

/// What a complaint about word ends with: ; did you mean "NAME"? of the nearest name, nothing when none is near.
std::string DidYouMean(std::string_view word, const std::vector<std::string>& names);

}  // namespace tool

#endif
