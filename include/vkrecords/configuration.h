// Records of device configuration.
#ifndef VKRECORDS_CONFIGURATION_H
#define VKRECORDS_CONFIGURATION_H

#include "vkrecords/time_and_geometry.h"

#endif
