#include "record_name.h"

#include <fmt/format.h>

#include <algorithm>
#include <string_view>
#include <vector>

#include "console.h"
#include "suggestion.h"
#include "utf8.h"

namespace tool {
namespace {

/// Names of records, and their words by which a record can be named too.
std::vector<std::string> NamesAndWords() {
    std::vector<std::string> names;
    for (const CatalogueEntry& entry : Catalogue()) {
        names.emplace_back(entry.name);
        for (std::size_t begin = 0, end = 0; begin < entry.name.size(); begin = end + 1) {
            end = std::min(entry.name.find_first_of("_/", begin), entry.name.size());
            const std::string_view word = entry.name.substr(begin, end - begin);
            std::vector<std::string> alternatives;
            if (!word.empty() && FindEntry(word, alternatives) != nullptr) names.emplace_back(word);
        }
    }
    return names;
}

}  // namespace

const CatalogueEntry* EntryOf(const std::string& record) {
    std::vector<std::string> alternatives;
    const CatalogueEntry* entry = FindEntry(record, alternatives);
    if (entry != nullptr) return entry;
    if (alternatives.empty()) {
        Complain(fmt::format("found {}, expected the name of a record{} (see: jsonparser records)", QuotedText(record),
                             DidYouMean(record, NamesAndWords())));
    } else {
        Complain(fmt::format("found {}, expected one of {}", QuotedText(record), fmt::join(alternatives, ", ")));
    }
    return nullptr;
}

}  // namespace tool
