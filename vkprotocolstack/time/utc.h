// Seconds of UTC as calendar fields, for other converters.
#ifndef VKPROTOCOLSTACK_TIME_UTC_H
#define VKPROTOCOLSTACK_TIME_UTC_H

#include "vkrecords/time_and_geometry.h"

namespace jsonparser {

/// As GetNetTimeByUTCTimeNew and GetNetTimeByUTCTime. Their result is written field by field and copied in larger
/// parts: the copy has to wait until the fields are in memory.
void SetUtc(tagNET_TIME& time, long seconds);
void SetUtc(tagNET_TIME_EX& time, long seconds);

}  // namespace jsonparser

#endif
