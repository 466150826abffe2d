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

}  // namespace

bool EqualIgnoringCase(std::string_view a, std::string_view b) {
    a = a.substr(0, a.find('\0'));
    b = b.substr(0, b.find('\0'));
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) { return Lower(x) == Lower(y); });
}

const Keyword* FirstExact(Keywords table, std::string_view text) {
    return FirstOf(table.begin(), table.end(), [text](const Keyword& row) { return row.text == text; });
}

const Keyword* FirstIgnoringCase(Keywords table, std::string_view text) {
    return FirstOf(table.begin(), table.end(),
                   [text](const Keyword& row) { return EqualIgnoringCase(row.text, text); });
}

const Keyword* LastIgnoringCase(Keywords table, std::string_view text) {
    return FirstOf(table.rbegin(), table.rend(),
                   [text](const Keyword& row) { return EqualIgnoringCase(row.text, text); });
}

const Keyword* FirstContained(Keywords table, std::string_view text) {
    text = text.substr(0, text.find('\0'));
    return FirstOf(table.begin(), table.end(),
                   [text](const Keyword& row) { return text.find(row.text) != std::string_view::npos; });
}

const Keyword* FirstWithCode(Keywords table, int code) {
    return FirstOf(table.begin(), table.end(), [code](const Keyword& row) { return row.code == code; });
}

}  // namespace jsonparser
