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

}  // namespace jsonparser

#endif
