// Types of a face database.
#ifndef VKPROTOCOLSTACK_FACE_DATABASE_TYPE_KEYWORDS_H
#define VKPROTOCOLSTACK_FACE_DATABASE_TYPE_KEYWORDS_H

#include "vkprotocolstack/wire/keywords.h"

namespace jsonparser {

inline constexpr Keyword kFaceDatabaseTypes[] = {
    {1, "HistoryDB"  },
    {2, "BlackListDB"},
    {3, "WhiteListDB"},
    {4, "AlarmDB"    },
};
static_assert(std::size(kFaceDatabaseTypes) == 4);

}  // namespace jsonparser

#endif
