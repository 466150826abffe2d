// Every record that the library reads or writes, with its converters.
#ifndef TOOLS_JSONPARSER_CATALOGUE_H
#define TOOLS_JSONPARSER_CATALOGUE_H

#include <json/value.h>

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "vkprotocolstack/message_text.h"
#include "vkrecords/fields.h"

namespace tool {

struct CatalogueEntry {
    std::string_view name;  ///< the record's name; "/" and a word behind it tell the forms of one record apart
    std::string_view meaning;
    const vkrecords::RecordLayout* layout;
    /// Fills a cleared record; null where the record is only written. @return what the converter says of its success
    bool (*decode)(Json::Value& node, void* record);
    /// The same from a place in a message's text, of which no tree is built; null where decode is, and where the
    /// converter takes a word and no node.
    bool (*decodeText)(const jsonparser::MessagePlace& place, void* record);
    /// Writes a record; null where the record is only read. @return what the converter says of its success
    bool (*encode)(const void* record, Json::Value& node);
    /// Reads what encode wrote into a cleared record, in the terms of the record that it was written from; null where
    /// nothing reads it. Mends what decode takes otherwise than encode writes it, by the contracts of both.
    void (*readBack)(const Json::Value& node, const void* written, void* record) = nullptr;
    /// The fields that encode never writes, by its contract: names, "/" between that of a record and those of its
    /// fields.
    std::span<const std::string_view> unwritten = {};
};

std::span<const CatalogueEntry> Catalogue();

/// A name in lower case.
std::string Folded(std::string_view name);

/// The entry of that name, upper or lower case, or the one entry whose name contains it.
/// @return null when there is none, or more than one; alternatives then holds the names that it could have been
const CatalogueEntry* FindEntry(std::string_view name, std::vector<std::string>& alternatives);

}  // namespace tool

#endif
