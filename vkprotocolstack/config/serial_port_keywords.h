// Words of a serial port's settings. Codes are their places.
#ifndef VKPROTOCOLSTACK_CONFIG_SERIAL_PORT_KEYWORDS_H
#define VKPROTOCOLSTACK_CONFIG_SERIAL_PORT_KEYWORDS_H

#include "vkprotocolstack/wire/keywords.h"

namespace jsonparser {

inline constexpr Keyword kParities[] = {
    {0, "None" },
    {1, "Odd"  },
    {2, "Even" },
    {3, "Mark" },
    {4, "Space"},
};
static_assert(std::size(kParities) == 5 && CodesAreIndexes(kParities));

inline constexpr Keyword kStopBits[] = {
    {0, "1"  },
    {1, "1.5"},
    {2, "2"  },
};
static_assert(std::size(kStopBits) == 3 && CodesAreIndexes(kStopBits));

}  // namespace jsonparser

#endif
