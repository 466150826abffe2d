#include "utf8.h"

#include <fmt/format.h>

#include <iterator>

namespace tool {
namespace {

bool IsControl(char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; }

}  // namespace

std::size_t CharacterLength(std::string_view text) {
    const auto byte = [text](std::size_t i) { return i < text.size() ? static_cast<unsigned char>(text[i]) : 0U; };
    const auto continues = [byte](std::size_t i) { return (byte(i) & 0xC0U) == 0x80U; };
    const unsigned lead = byte(0);
    if (lead < 0x80) return 1;
    if (lead >= 0xC2 && lead <= 0xDF) return continues(1) ? 2 : 0;
    if (lead >= 0xE0 && lead <= 0xEF) {
        const bool overlong = lead == 0xE0 && byte(1) < 0xA0;
        const bool surrogate = lead == 0xED && byte(1) >= 0xA0;
        return continues(1) && continues(2) && !overlong && !surrogate ? 3 : 0;
    }
    if (lead >= 0xF0 && lead <= 0xF4) {
        const bool overlong = lead == 0xF0 && byte(1) < 0x90;
        const bool beyond = lead == 0xF4 && byte(1) >= 0x90;
        return continues(1) && continues(2) && continues(3) && !overlong && !beyond ? 4 : 0;
    }
    return 0;
}

char32_t CodePoint(std::string_view character) {
    const auto lead = static_cast<unsigned char>(character.front());
    char32_t number = character.size() == 1 ? lead : lead & (0x7FU >> character.size());
    for (const char c : character.substr(1)) number = (number << 6U) | (static_cast<unsigned char>(c) & 0x3FU);
    return number;
}

bool IsUtf8(std::string_view text) {
    while (!text.empty()) {
        const std::size_t length = CharacterLength(text);
        if (length == 0) return false;
        text.remove_prefix(length);
    }
    return true;
}

std::string QuotedText(std::string_view text) {
    std::string quoted = "\"";
    while (!text.empty()) {
        const std::size_t length = CharacterLength(text);
        if (length == 0 || IsControl(text.front())) {
            fmt::format_to(std::back_inserter(quoted), "\\x{:02x}", static_cast<unsigned char>(text.front()));
            text.remove_prefix(1);
            continue;
        }
        if (text.front() == '"' || text.front() == '\\') quoted += '\\';
        quoted += text.substr(0, length);
        text.remove_prefix(length);
    }
    return quoted + '"';
}

std::string Harmless(std::string_view text) {
    const std::string quoted = QuotedText(text);
    return quoted.substr(1, quoted.size() - 2);
}

std::string QuotedJson(std::string_view text) {
    std::string quoted = "\"";
    for (const char c : text) {
        if (c == '"' || c == '\\') {
            quoted += '\\';
            quoted += c;
        } else if (IsControl(c)) {
            fmt::format_to(std::back_inserter(quoted), "\\u{:04x}", static_cast<unsigned char>(c));
        } else {
            quoted += c;
        }
    }
    return quoted + '"';
}

}  // namespace tool
