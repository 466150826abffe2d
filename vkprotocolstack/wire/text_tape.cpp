#include "vkprotocolstack/wire/text_tape.h"

#include <algorithm>
#include <cstdlib>

#include "vkprotocolstack/support/thread_pointer.h"

namespace jsonparser {
namespace {

/// The thread's spare block, whose first entry has its capacity as its span. Larger ones are not kept: one long message
/// should not hold memory for good.
constinit support::ThreadPointer spare;
constexpr std::size_t kSmallest = 256;
constexpr std::size_t kLargestSpare = 4096;

bool LeaveAsSpare(TextEntry* entries, std::size_t capacity) {
    static const support::ThreadPointer::Lifetime lifetime(spare, std::free);
    if (capacity > kLargestSpare || spare.get() != nullptr) return false;
    entries->span = capacity;
    return spare.set(entries);
}

TextEntry* TakeSpare() {
    auto* const entries = static_cast<TextEntry*>(spare.get());
    if (entries != nullptr) spare.set(nullptr);
    return entries;
}

}  // namespace

TextTape::~TextTape() {
    if (entries != nullptr && !LeaveAsSpare(entries, capacity)) std::free(entries);
}

bool TextTape::grow(std::size_t used) {
    if (entries == nullptr) {
        entries = TakeSpare();
        if (entries != nullptr) {
            capacity = entries->span;
            return true;
        }
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
