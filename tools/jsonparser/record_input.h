// Reading a record from its JSON form, as RecordAsJson prints it.
#ifndef TOOLS_JSONPARSER_RECORD_INPUT_H
#define TOOLS_JSONPARSER_RECORD_INPUT_H

#include <json/value.h>

#include <string>
#include <vector>

#include "record_buffer.h"

namespace tool {

/// Fills a cleared record. Fields that the form lacks stay zero; a field that the record lacks, a value that its field
/// cannot hold, a text longer than its field, are findings, each beginning with the path: nothing is silently cut.
/// @return whether there were no findings
bool ReadRecord(const Json::Value& form, RecordBuffer& record, std::vector<std::string>& findings);

}  // namespace tool

#endif
