#include "vkprotocolstack/wire/names.h"

namespace jsonparser {

std::size_t NameIndex::find(const char* name, std::size_t size) const {
    for (std::size_t i = HashOfName(name, size) & slotMask; slots[i] != 0; i = (i + 1) & slotMask) {
        const std::string_view candidate = names[slots[i] - 1];
        if (candidate.size() == size && SameBytes(candidate.data(), name, size)) return slots[i];
    }
    return 0;
}

}  // namespace jsonparser
