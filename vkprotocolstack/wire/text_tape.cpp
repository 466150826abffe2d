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

bool TextTape::grow() {
    if (entries == nullptr && spare.entries != nullptr) {
        entries = std::exchange(spare.entries, nullptr);
        capacity = spare.capacity;
        closed = capacity;
        return true;
    }
    const std::size_t newCapacity = std::max(kSmallest, 2 * capacity);
    auto* const newEntries = static_cast<TextEntry*>(std::malloc(newCapacity * sizeof(TextEntry)));
    if (newEntries == nullptr) return false;
    const std::size_t newClosed = newCapacity - (capacity - closed);
    std::copy_n(entries, open, newEntries);
    std::copy(entries + closed, entries + capacity, newEntries + newClosed);
    const auto moveChildren = [&](TextEntry& entry) {
        const bool isContainer = entry.type == TextType::Array || entry.type == TextType::Object;
        if (!isContainer || entry.size == TextEntry::kStillOpen) return;
        entry.children = newEntries + newCapacity - (entries + capacity - entry.children);
    };
    for (std::size_t i = 0; i < open; ++i) moveChildren(newEntries[i]);
    for (std::size_t i = newClosed; i < newCapacity; ++i) moveChildren(newEntries[i]);
    std::free(entries);
    entries = newEntries;
    capacity = newCapacity;
    closed = newClosed;
    return true;
}

void TextTape::close(std::size_t container) {
    const std::size_t count = open - container - 1;
    TextEntry* const first = entries + container + 1;
    std::copy_backward(first, first + count, entries + closed);
    closed -= count;
    open = container + 1;
    entries[container].children = entries + closed;
    entries[container].size = static_cast<std::uint32_t>(count);
}

}  // namespace jsonparser
