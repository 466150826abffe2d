// What a record's reader did with a message.
#ifndef TOOLS_JSONPARSER_EXPLAIN_H
#define TOOLS_JSONPARSER_EXPLAIN_H

#include <string>
#include <vector>

#include "catalogue.h"
#include "document.h"
#include "style.h"
#include "vkprotocolstack/explain.h"

namespace tool {

/// A record that was read while it was watched.
struct Explained {
    jsonparser::Explanation explanation;
    bool whole;  ///< what the converter says of its success
};

/// entry.decode, watched.
Explained DecodeExplained(const CatalogueEntry& entry, Json::Value& node, void* record);

/// The findings of an explanation at their places in the document; those of members that nothing reads at their names.
void AddFindings(const Document& document, const jsonparser::Explanation& explanation, std::vector<Finding>& findings);

/// entry.decode; what it says of a record that is not whole is a finding. Under strict, it is watched, and so is
/// whatever the record has otherwise than the message.
/// @return whether the record is whole
bool DecodeWithFindings(const CatalogueEntry& entry, const Document& document, bool strict, void* record,
                        std::vector<Finding>& findings);

/// For people: a table of all values that were looked for, what nothing reads, and a line that counts; where nothing of
/// the record was found in the whole document, also a place where it may be.
std::string ExplanationAsText(const CatalogueEntry& entry, const Document& document, const Explained& explained,
                              const Styler& style);

/// For programs: one JSON object, ending with a line end.
std::string ExplanationAsJson(const CatalogueEntry& entry, const Document& document, const Explained& explained);

}  // namespace tool

#endif
