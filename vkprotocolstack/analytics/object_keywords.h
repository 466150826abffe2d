// Words of detected objects.
#ifndef VKPROTOCOLSTACK_ANALYTICS_OBJECT_KEYWORDS_H
#define VKPROTOCOLSTACK_ANALYTICS_OBJECT_KEYWORDS_H

#include "vkprotocolstack/wire/keywords.h"
#include "vkprotocolstack/wire/names.h"

namespace jsonparser {

/// What an object does; 0 is anything else.
inline constexpr Keyword kObjectActions[] = {
    {1, "Appear"   },
    {2, "Move"     },
    {3, "Stay"     },
    {4, "Remove"   },
    {5, "Disappear"},
    {6, "Split"    },
    {7, "Merge"    },
    {8, "Rename"   }
};
static_assert(std::size(kObjectActions) == 8);

inline constexpr Keyword kObjectTimeTypes[] = {
    {0, "Absolute"},
    {1, "Relative"}
};
static_assert(std::size(kObjectTimeTypes) == 2);

/// Where a person walks; 0 is anything else.
inline constexpr Keyword kWalkingDirections[] = {
    {1, "LeftToRight"},
    {2, "RightToLeft"}
};
static_assert(std::size(kWalkingDirections) == 2);

/// Members of a colour similarity, in the order of the record's bytes.
inline constexpr NameList kReferenceColors("Red", "Yellow", "Green", "Cyan", "Blue", "Purple", "Black", "White");
static_assert(kReferenceColors.names.size() == 8);

}  // namespace jsonparser

#endif
