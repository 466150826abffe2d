// What --lines does with one line.
#ifndef TOOLS_JSONPARSER_LINE_FUNCTIONS_H
#define TOOLS_JSONPARSER_LINE_FUNCTIONS_H

#include <string>

#include "catalogue.h"
#include "input.h"
#include "lines.h"

namespace tool {

/// From message to record: the record at the JSON pointer in the message, on one line. A record that is not whole is a
/// finding and no output; under strict, so is whatever it has otherwise than the message, but with the output.
LineFunction DecodeLine(const CatalogueEntry& entry, const std::string& at, bool strict, const ReadingOptions& reading);

/// From record to message, on one line.
LineFunction EncodeLine(const CatalogueEntry& entry, const ReadingOptions& reading);

}  // namespace tool

#endif
