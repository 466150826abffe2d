#include "vkprotocolstack/support/charset.h"

#include <algorithm>
#include <cstring>

namespace jsonparser::support {
namespace {

bool IsContinuation(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; }

/// Bytes of the character that this byte begins; 1 for a byte that begins none.
std::size_t SequenceLength(char byte) {
    const auto lead = static_cast<unsigned char>(byte);
    if (lead >= 0xF0) return 4;
    if (lead >= 0xE0) return 3;
    if (lead >= 0xC0) return 2;
    return 1;
}

}  // namespace

std::string_view UpToNul(std::string_view text) { return text.substr(0, text.find('\0')); }

std::size_t WholeCharacters(std::string_view text, std::size_t limit) {
    if (text.size() <= limit) return text.size();
    std::size_t begin = limit;
    while (begin > 0 && limit - begin < 3 && IsContinuation(text[begin])) --begin;
    return begin + SequenceLength(text[begin]) > limit && begin < limit ? begin : limit;
}

void CopyCut(std::string_view text, char* buffer, std::size_t size) {
    const std::size_t length = WholeCharacters(text, size - 1);
    std::copy_n(text.data(), length, buffer);
    buffer[length] = '\0';
}

}  // namespace jsonparser::support
