// From a record's form to its message.
#ifndef TOOLS_JSONPARSER_ENCODE_H
#define TOOLS_JSONPARSER_ENCODE_H

#include <json/value.h>

#include <vector>

#include "catalogue.h"
#include "document.h"
#include "finding.h"

namespace tool {

/// Reads the record from the form that the document is, and writes its message to node.
/// @return false, with what is wrong in findings, when the form is none, its record cannot be written, or the message
///         has not all that the form states; findings may have remarks otherwise
bool EncodeWithFindings(const CatalogueEntry& entry, const Document& document, Json::Value& node,
                        std::vector<Finding>& findings);

}  // namespace tool

#endif
