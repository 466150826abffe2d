// The record that the user named.
#ifndef TOOLS_JSONPARSER_RECORD_NAME_H
#define TOOLS_JSONPARSER_RECORD_NAME_H

#include <string>

#include "catalogue.h"

namespace tool {

/// The entry of a record that the user named; null, with a complaint, when there is none.
const CatalogueEntry* EntryOf(const std::string& record);

}  // namespace tool

#endif
