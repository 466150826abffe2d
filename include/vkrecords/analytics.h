// Records of video-analytics objects.
#ifndef VKRECORDS_ANALYTICS_H
#define VKRECORDS_ANALYTICS_H

#include "vkrecords/time_and_geometry.h"

#endif
