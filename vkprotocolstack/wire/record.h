// Whole records.
#ifndef VKPROTOCOLSTACK_WIRE_RECORD_H
#define VKPROTOCOLSTACK_WIRE_RECORD_H

#include <cstring>
#include <type_traits>

namespace jsonparser {

/// Sets every byte of record to zero, padding and reserved stretches included.
template <class Record>
void Clear(Record& record) {
    static_assert(std::is_trivially_copyable_v<Record>);
    std::memset(static_cast<void*>(&record), 0, sizeof record);
}

/// Whether a caller's flag is set: every byte but 0 sets it. Loading a bool from a byte other than 0 and 1 is
/// undefined.
inline bool Flag(const bool& flag) {
    unsigned char byte = 0;
    std::memcpy(&byte, &flag, sizeof byte);
    return byte != 0;
}

}  // namespace jsonparser

#endif
