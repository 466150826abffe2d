// Persons, as other converters read them.
#ifndef VKPROTOCOLSTACK_FACE_PERSON_H
#define VKPROTOCOLSTACK_FACE_PERSON_H

#include "vkprotocolstack/wire/node.h"
#include "vkrecords/face_recognition.h"

namespace jsonparser {

/// As ParsePersonInfo.
void Read(Node node, tagFACERECOGNITION_PERSON_INFO& info);
void Read(Node node, tagFACERECOGNITION_PERSON_INFOEX& info);

}  // namespace jsonparser

#endif
