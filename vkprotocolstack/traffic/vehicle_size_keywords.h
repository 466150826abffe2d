// Sizes of a vehicle.
#ifndef VKPROTOCOLSTACK_TRAFFIC_VEHICLE_SIZE_KEYWORDS_H
#define VKPROTOCOLSTACK_TRAFFIC_VEHICLE_SIZE_KEYWORDS_H

#include "vkprotocolstack/wire/keywords.h"

namespace jsonparser {

/// One bit for each keyword.
inline constexpr Keyword kVehicleSizes[] = {
    {1,  "Light-duty"},
    {2,  "Medium"    },
    {4,  "Oversize"  },
    {8,  "Minisize"  },
    {16, "Largesize" }
};
static_assert(std::size(kVehicleSizes) == 5);

}  // namespace jsonparser

#endif
