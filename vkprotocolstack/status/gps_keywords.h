// Where a position comes from.
#ifndef VKPROTOCOLSTACK_STATUS_GPS_KEYWORDS_H
#define VKPROTOCOLSTACK_STATUS_GPS_KEYWORDS_H

#include "vkprotocolstack/wire/keywords.h"

namespace jsonparser {

/// Sources of position data.
inline constexpr Keyword kDateSources[] = {
    {0, "GPS"               },
    {1, "InertialNavigation"},
};
static_assert(std::size(kDateSources) == 2 && CodesAreIndexes(kDateSources));

}  // namespace jsonparser

#endif
