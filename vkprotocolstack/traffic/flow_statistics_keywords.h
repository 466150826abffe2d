// Ranks of a road.
#ifndef VKPROTOCOLSTACK_TRAFFIC_FLOW_STATISTICS_KEYWORDS_H
#define VKPROTOCOLSTACK_TRAFFIC_FLOW_STATISTICS_KEYWORDS_H

#include "vkprotocolstack/wire/keywords.h"

namespace jsonparser {

inline constexpr Keyword kRoadRanks[] = {
    {0, ""        },
    {1, "Rapid"   },
    {2, "Trunk"   },
    {3, "SubTrunk"},
    {4, "Branch"  }
};
static_assert(std::size(kRoadRanks) == 5 && CodesAreIndexes(kRoadRanks));

}  // namespace jsonparser

#endif
