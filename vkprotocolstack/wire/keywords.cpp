#include "vkprotocolstack/wire/keywords.h"

#include <algorithm>

#include "vkprotocolstack/wire/place.h"

namespace jsonparser {
namespace {

char Lower(char letter) { return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter; }

template <class Row, class Matches>
const Keyword* FirstOf(Row begin, Row end, Matches matches) {
    // Not std::find_if, which holds matches four times: tables are short, and its frame is then larger than its work.
    for (; begin != end; ++begin) {
        if (matches(*begin)) return &*begin;
    }
    return nullptr;
}

/// Of texts without NULs.
bool SameIgnoringCase(std::string_view a, std::string_view b) {
    return a.size() == b.size() &&
           std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) { return x == y || Lower(x) == Lower(y); });
}

}  // namespace

bool EqualIgnoringCase(std::string_view a, std::string_view b) { return SameIgnoringCase(UpToNul(a), UpToNul(b)); }

const Keyword* FirstExact(Keywords table, std::string_view text) {
    return FirstOf(table.begin(), table.end(), [text](const Keyword& row) { return row.text == text; });
}

const Keyword* FirstIgnoringCase(Keywords table, std::string_view text) {
    return FirstOf(table.begin(), table.end(),
                   [text = UpToNul(text)](const Keyword& row) { return SameIgnoringCase(row.text, text); });
}

const Keyword* LastIgnoringCase(Keywords table, std::string_view text) {
    return FirstOf(table.rbegin(), table.rend(),
                   [text = UpToNul(text)](const Keyword& row) { return SameIgnoringCase(row.text, text); });
}

const Keyword* FirstContained(Keywords table, std::string_view text) {
    return FirstOf(table.begin(), table.end(), [text = UpToNul(text)](const Keyword& row) {
        return text.find(row.text) != std::string_view::npos;
    });
}

const Keyword* FirstWithCode(Keywords table, int code) {
    return FirstOf(table.begin(), table.end(), [code](const Keyword& row) { return row.code == code; });
}

}  // namespace jsonparser
