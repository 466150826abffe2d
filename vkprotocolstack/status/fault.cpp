#include <string>

#include "vkprotocolstack/JsonParser.h"
#include "vkprotocolstack/status/fault_keywords.h"

using jsonparser::FirstExact;
using jsonparser::Keyword;
using jsonparser::Keywords;
using jsonparser::kRaidErrors;
using jsonparser::kStorageErrors;

namespace {

int CodeOf(Keywords table, const std::string& keyword) {
    const Keyword* row = FirstExact(table, keyword);
    return row == nullptr ? 0 : row->code;
}

}  // namespace

int ParseStorageError(const std::string& keyword) { return CodeOf(kStorageErrors, keyword); }

int ParseRaidError(const std::string& keyword) { return CodeOf(kRaidErrors, keyword); }
