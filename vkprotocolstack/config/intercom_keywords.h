// Callers of an intercom talk and answers to a mission.
#ifndef VKPROTOCOLSTACK_CONFIG_INTERCOM_KEYWORDS_H
#define VKPROTOCOLSTACK_CONFIG_INTERCOM_KEYWORDS_H

#include "vkprotocolstack/wire/keywords.h"
#include "vkrecords/configuration.h"

namespace jsonparser {

inline constexpr Keyword kCallerTypes[] = {
    {1, "Platform"}
};
static_assert(std::size(kCallerTypes) == 1);

inline constexpr Keyword kMissionConfirmations[] = {
    {NET_MISSION_CONFIRM_YES, "Yes"},
    {NET_MISSION_CONFIRM_NO,  "No" }
};
static_assert(std::size(kMissionConfirmations) == 2);

}  // namespace jsonparser

#endif
