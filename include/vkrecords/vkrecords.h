// All public records.
#ifndef VKRECORDS_VKRECORDS_H
#define VKRECORDS_VKRECORDS_H

#include "vkrecords/analytics.h"
#include "vkrecords/configuration.h"
#include "vkrecords/device_status.h"
#include "vkrecords/face_recognition.h"
#include "vkrecords/time_and_geometry.h"
#include "vkrecords/traffic.h"

#endif
