#include "vkprotocolstack/wire/text_utf8.h"

#include <cstdint>
#include <cstring>

namespace jsonparser {
namespace {

/// Bytes of the character that begins at p; 0 when none does.
std::size_t CharacterLength(const unsigned char* p, std::size_t left) {
    const auto follows = [p, left](std::size_t i) { return i < left && (p[i] & 0xC0U) == 0x80U; };
    const unsigned lead = p[0];
    if (lead < 0x80) return 1;
    if (lead >= 0xC2 && lead <= 0xDF) return follows(1) ? 2 : 0;
    if (lead >= 0xE0 && lead <= 0xEF) {
        if (!follows(1) || !follows(2)) return 0;
        const bool overlong = lead == 0xE0 && p[1] < 0xA0;
        const bool surrogate = lead == 0xED && p[1] > 0x9F;
        return overlong || surrogate ? 0 : 3;
    }
    if (lead >= 0xF0 && lead <= 0xF4) {
        if (!follows(1) || !follows(2) || !follows(3)) return 0;
        const bool overlong = lead == 0xF0 && p[1] < 0x90;
        const bool beyond = lead == 0xF4 && p[1] > 0x8F;
        return overlong || beyond ? 0 : 4;
    }
    return 0;
}

}  // namespace

std::size_t WellFormedUtf8(std::string_view text) {
    const auto* const begin = reinterpret_cast<const unsigned char*>(text.data());
    std::size_t i = 0;
    while (i < text.size()) {
        while (text.size() - i >= 16) {
            std::uint64_t words[2];
            std::memcpy(words, begin + i, sizeof words);
            if (((words[0] | words[1]) & 0x8080808080808080U) != 0) break;
            i += sizeof words;
        }
        if (i == text.size()) break;
        const std::size_t length = CharacterLength(begin + i, text.size() - i);
        if (length == 0) break;
        i += length;
    }
    return i;
}

}  // namespace jsonparser
