// Reading a record from its JSON form, as RecordAsJson prints it.
#ifndef TOOLS_JSONPARSER_RECORD_INPUT_H
#define TOOLS_JSONPARSER_RECORD_INPUT_H

#include <json/value.h>

#include <string_view>
#include <vector>

#include "finding.h"
#include "record_buffer.h"

namespace tool {

/// Fills a cleared record. Fields that the form lacks stay zero; a field that the record lacks, a value that its field
/// cannot hold, a text longer than its field, are findings: nothing is silently cut.
/// @param document the text that the offsets of form's values count in
/// @return whether there were no findings
bool ReadRecord(const Json::Value& form, std::string_view document, RecordBuffer& record,
                std::vector<Finding>& findings);

/// The same for a record that a converter is to write: a count beyond the array that it counts is a finding too, since
/// writers read as many elements as it says.
bool ReadRecordToWrite(const Json::Value& form, std::string_view document, RecordBuffer& record,
                       std::vector<Finding>& findings);

}  // namespace tool

#endif
