// Records of face recognition.
#ifndef VKRECORDS_FACE_RECOGNITION_H
#define VKRECORDS_FACE_RECOGNITION_H

#include "vkrecords/time_and_geometry.h"

#endif
