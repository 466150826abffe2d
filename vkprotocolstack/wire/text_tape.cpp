#include "vkprotocolstack/wire/text_tape.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "vkprotocolstack/support/thread_pointer.h"

namespace jsonparser {
namespace {

/// The thread's spare block: orders, then entries, of which the first one has their number as its span. Larger ones are
/// not kept: one long message should not hold memory for good.
constinit support::ThreadPointer spare;
constexpr std::size_t kSmallest = 256;
constexpr std::size_t kLargestSpare = 4096;

}  // namespace

bool TextTape::leaveAsSpare(TextEntry* block, std::size_t capacity) {
    static const support::ThreadPointer::Lifetime lifetime(spare, std::free);
    if (capacity > kLargestSpare || spare.get() != nullptr) [[unlikely]]
        return false;
    block[kOrderEntries].span = capacity;
    return spare.set(block);
}

TextEntry* TextTape::takeSpare() {
    auto* const block = static_cast<TextEntry*>(spare.get());
    if (block != nullptr) [[likely]]
        spare.set(nullptr);
    return block;
}

void TextTape::GiveBack(TextEntry* block, std::size_t capacity) {
    if (!leaveAsSpare(block, capacity)) [[unlikely]]
        std::free(block);
}

bool TextTape::grow(std::size_t used) {
    if (entries == nullptr) [[likely]] {
        TextEntry* const last = takeSpare();
        if (last != nullptr) [[likely]] {
            entries = last + kOrderEntries;
            capacity = entries->span;
            return true;
        }
    }
    const std::size_t newCapacity = std::max(kSmallest, 2 * capacity);
    auto* const newBlock = static_cast<TextEntry*>(std::malloc((kOrderEntries + newCapacity) * sizeof(TextEntry)));
    if (newBlock == nullptr) return false;
    if (entries == nullptr) {
        std::memset(static_cast<void*>(newBlock), 0, kOrderEntries * sizeof *newBlock);
    } else {
        std::copy_n(block(), kOrderEntries + used, newBlock);
        std::free(block());
    }
    entries = newBlock + kOrderEntries;
    capacity = newCapacity;
    return true;
}

void TextTape::forget(MemberOrder& order, const std::string_view* names) {
    order = {};
    order.names = names;
}

}  // namespace jsonparser
