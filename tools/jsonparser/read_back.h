// What a message has of the record that it was written from.
#ifndef TOOLS_JSONPARSER_READ_BACK_H
#define TOOLS_JSONPARSER_READ_BACK_H

#include <json/value.h>

#include <vector>

#include "catalogue.h"
#include "document.h"
#include "finding.h"
#include "record_buffer.h"

namespace tool {

/// Whether the message has every value that the document, the record's form, states; a finding for each that it has
/// not. Such are numbers that JSON has not, texts that are not UTF-8 in the message, and what the record's reader does
/// not read back from the message as it was. Values that are 0, false or empty state nothing, nor do those of fields
/// that the writer never writes. A value that is lost only because another one is, is no finding.
/// @param record the record that the form was read into
/// @param message what the record was written into
bool MessageHasAll(const CatalogueEntry& entry, const Document& document, RecordBuffer& record,
                   const Json::Value& message, std::vector<Finding>& findings);

/// The findings of MessageHasAll that need no message: numbers that JSON has not, texts that are not UTF-8 in a
/// message.
/// @param record what the form was read into, as far as it is one
void FindImpossible(const CatalogueEntry& entry, const Document& document, RecordBuffer& record,
                    std::vector<Finding>& findings);

}  // namespace tool

#endif
