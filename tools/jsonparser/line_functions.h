// What --lines does with one line.
#ifndef TOOLS_JSONPARSER_LINE_FUNCTIONS_H
#define TOOLS_JSONPARSER_LINE_FUNCTIONS_H

#include <string>

#include "catalogue.h"
#include "lines.h"

namespace tool {

/// From message to record: the record at the JSON pointer in the message, on one line. A record that is not whole is a
/// finding and no output.
LineFunction DecodeLine(const CatalogueEntry& entry, const std::string& at);

/// From record to message, on one line.
LineFunction EncodeLine(const CatalogueEntry& entry);

}  // namespace tool

#endif
