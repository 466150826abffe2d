// Records of device status and diagnostics.
#ifndef VKRECORDS_DEVICE_STATUS_H
#define VKRECORDS_DEVICE_STATUS_H

#include "vkrecords/time_and_geometry.h"

#endif
