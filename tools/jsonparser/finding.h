// What is wrong with a document, and where.
#ifndef TOOLS_JSONPARSER_FINDING_H
#define TOOLS_JSONPARSER_FINDING_H

#include <json/value.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "style.h"

namespace tool {

struct Finding {
    /// The document as a whole, not a place in it.
    static constexpr std::size_t kNowhere = static_cast<std::size_t>(-1);

    std::size_t offset;  ///< in bytes from the start of the document's text, or kNowhere
    std::string path;    ///< JSON pointer to the value, "" for the document itself
    std::string text;    ///< what was found, what was expected
    /// Something to know, about a line or the document as a whole: nothing is wrong.
    bool isRemark = false;
};

/// Whether one of them is no remark.
bool HasDefects(const std::vector<Finding>& findings);

/// A value that is not what was expected of it. Its reader has set its offset.
Finding Unexpected(const Json::Value& value, std::string path, std::string_view expected);

/// What a value is, for messages to the user. Long texts are cut.
std::string Shown(const Json::Value& value);

/// One step of a JSON pointer, "/" included: "~" is written "~0", "/" is "~1".
std::string PointerStep(std::string_view name);

/// The steps of a JSON pointer, names as they are in the document.
std::vector<std::string> PointerSteps(std::string_view pointer);

/// How messages to the user name a file: "-" is <stdin>, an empty name a pair of quotes.
std::string FileName(const std::string& file);

/// A place as editors count it: from 1, columns in characters.
struct Place {
    std::size_t line;
    std::size_t column;
};

/// The places of bytes of text, each offset's at its index, in one walk over the text. A text that ends in a line end
/// has a last, empty line; what is no well-formed UTF-8 counts a character a byte.
std::vector<Place> PlacesOf(std::string_view text, const std::vector<std::size_t>& offsets);

/// The findings about a document in the order of their places, each as file:line:column: path: found, expected, and
/// below it the line of the document around the place with a caret. Lines end with a line end; none is longer than some
/// 90 columns, but for what path, file and finding take. What a terminal would obey is escaped. A remark is one line,
/// without column, path and excerpt.
/// @param firstLine the number of the text's first line
std::string Described(const std::string& file, std::string_view text, std::vector<Finding> findings,
                      std::size_t firstLine = 1, const Styler& style = Styler(false));

}  // namespace tool

#endif
