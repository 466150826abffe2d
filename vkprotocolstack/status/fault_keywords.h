// Faults of disks and disk arrays.
#ifndef VKPROTOCOLSTACK_STATUS_FAULT_KEYWORDS_H
#define VKPROTOCOLSTACK_STATUS_FAULT_KEYWORDS_H

#include "vkprotocolstack/wire/keywords.h"

namespace jsonparser {

/// Faults of storage.
inline constexpr Keyword kStorageErrors[] = {
    {1, "Partition"   },
    {2, "InitializeFS"},
    {3, "ReadData"    },
    {4, "WriteData"   },
    {5, "RaidFailed"  },
    {6, "RaidDegraded"},
    {7, "ISCSIFailed" },
};
static_assert(std::size(kStorageErrors) == 7);

/// Faults of an array: words of the storage table under codes of their own.
inline constexpr Keyword kRaidErrors[] = {
    {1, "RaidFailed"  },
    {2, "RaidDegraded"},
};
static_assert(std::size(kRaidErrors) == 2);

}  // namespace jsonparser

#endif
