// Kinds of log that a device keeps.
#ifndef VKPROTOCOLSTACK_STATUS_LOG_TYPE_KEYWORDS_H
#define VKPROTOCOLSTACK_STATUS_LOG_TYPE_KEYWORDS_H

#include "vkprotocolstack/wire/keywords.h"

namespace jsonparser {

/// In the order of precedence, for a name that contains more than one of them.
inline constexpr Keyword kLogTypes[] = {
    {8, "Playback"    },
    {5, "Record"      },
    {7, "Log"         },
    {9, "RemoteDevice"},
    {3, "Storage"     },
    {4, "Event"       },
    {6, "Account"     },
    {1, "System"      },
    {2, "Config"      },
};
static_assert(std::size(kLogTypes) == 9);

}  // namespace jsonparser

#endif
