#include "vkprotocolstack/wire/text_tape.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace jsonparser {
namespace {

struct Block {
    TextEntry* entries;
    std::size_t capacity;
};

/// The thread's spare block. Larger ones are not kept: one long message should not hold memory for good.
constinit thread_local Block spare{nullptr, 0};
constexpr std::size_t kSmallest = 256;
constexpr std::size_t kLargestSpare = 4096;

/// Apart from the block, so that this can be used, and is filled again, even by what runs later at the thread's end.
struct FreeAtThreadEnd {
    ~FreeAtThreadEnd() {
        std::free(spare.entries);
        spare = {nullptr, 0};
    }
};

}  // namespace

TextTape::~TextTape() {
    if (entries == nullptr) return;
    if (spare.entries == nullptr && capacity <= kLargestSpare) {
        static thread_local const FreeAtThreadEnd freeing;
        spare = {entries, capacity};
    } else {
        std::free(entries);
    }
}

bool TextTape::grow(std::size_t used) {
    if (entries == nullptr && spare.entries != nullptr) {
        entries = std::exchange(spare.entries, nullptr);
        capacity = spare.capacity;
        return true;
    }
    const std::size_t newCapacity = std::max(kSmallest, 2 * capacity);
    auto* const newEntries = static_cast<TextEntry*>(std::malloc(newCapacity * sizeof(TextEntry)));
    if (newEntries == nullptr) return false;
    std::copy_n(entries, used, newEntries);
    std::free(entries);
    entries = newEntries;
    capacity = newCapacity;
    return true;
}

}  // namespace jsonparser
