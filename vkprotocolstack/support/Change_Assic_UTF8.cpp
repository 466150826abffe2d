#include <string_view>

#include "vkprotocolstack/support/charset.h"
#include "vkprotocolstack/support/support.h"

using jsonparser::support::ToUtf8;
using jsonparser::support::UpToNul;

void Change_Assic_UTF8(const char* source, int sourceLength, char* destination, int destinationSize) {
    if (destinationSize <= 0) return;
    const std::size_t length = sourceLength > 0 ? static_cast<std::size_t>(sourceLength) : 0;
    ToUtf8(UpToNul({source, length}), destination, static_cast<std::size_t>(destinationSize));
}
