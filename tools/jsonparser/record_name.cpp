#include "record_name.h"

#include <fmt/format.h>

#include <vector>

#include "console.h"
#include "utf8.h"

namespace tool {

const CatalogueEntry* EntryOf(const std::string& record) {
    std::vector<std::string> alternatives;
    const CatalogueEntry* entry = FindEntry(record, alternatives);
    if (entry != nullptr) return entry;
    if (alternatives.empty()) {
        Complain(fmt::format("found {}, expected the name of a record (see: jsonparser records)", QuotedText(record)));
    } else {
        Complain(fmt::format("found {}, expected one of {}", QuotedText(record), fmt::join(alternatives, ", ")));
    }
    return nullptr;
}

}  // namespace tool
