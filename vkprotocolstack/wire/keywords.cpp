#include "vkprotocolstack/wire/keywords.h"

#include <algorithm>

namespace jsonparser {
namespace {

char Lower(char letter) { return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter; }

template <class Row, class Matches>
const Keyword* FirstOf(Row begin, Row end, Matches matches) {
    const auto row = std::find_if(begin, end, matches);
    return row == end ? nullptr : &*row;
}

std::string_view UpToNul(std::string_view text) { return text.substr(0, text.find('\0')); }

/// Of texts without NULs.
bool SameIgnoringCase(std::string_view a, std::string_view b) {
    return a.size() == b.size() &&
           std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) { return Lower(x) == Lower(y); });
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
