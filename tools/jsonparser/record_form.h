// A record in the forms in which the tool prints it. Every byte printed is valid UTF-8.
#ifndef TOOLS_JSONPARSER_RECORD_FORM_H
#define TOOLS_JSONPARSER_RECORD_FORM_H

#include <optional>
#include <string>
#include <string_view>

#include "vkrecords/fields.h"

namespace tool {

/// For people: one field a line, names aligned. Reserved bytes are left out.
std::string RecordAsText(const vkrecords::RecordLayout& layout, const void* record);

/// For programs: one JSON object, a member for each field, ending with a line end. Texts run to their terminator; one
/// that is not valid in the local encoding, or would not come back from UTF-8, is {"hex": its bytes}. Null pointers are
/// null. Reserved bytes are left out.
std::string RecordAsJson(const vkrecords::RecordLayout& layout, const void* record);

/// The text that an element of a field of that record holds or points to, up to its terminator; that in a caller's
/// buffer ends with it. Nothing for a null pointer and for what is no text.
std::optional<std::string_view> ElementText(const vkrecords::RecordLayout& layout, const void* record,
                                            const vkrecords::Field& field, const void* element);

/// One element of a field of that record, which is no record itself, as RecordAsJson prints it.
std::string ElementAsJson(const vkrecords::RecordLayout& layout, const void* record, const vkrecords::Field& field,
                          const void* element);

/// Appends what RecordAsJson prints on one line, without blanks.
void AppendRecordLine(std::string& out, const vkrecords::RecordLayout& layout, const void* record);

/// The record's bytes, sixteen a line, with the name of the field in which each line begins.
std::string RecordAsHex(const vkrecords::RecordLayout& layout, const void* record);

/// The layout for people: offset, size, type, name and meaning of every field, reserved ones too.
std::string LayoutAsText(const vkrecords::RecordLayout& layout);

/// The layout as JSON.
std::string LayoutAsJson(const vkrecords::RecordLayout& layout);

}  // namespace tool

#endif
