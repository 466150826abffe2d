// Pictures, as other converters read them.
#ifndef VKPROTOCOLSTACK_FACE_PICTURE_H
#define VKPROTOCOLSTACK_FACE_PICTURE_H

#include "vkprotocolstack/wire/node.h"
#include "vkrecords/face_recognition.h"

namespace jsonparser {

/// As ParseImageInfo.
void Read(Node node, VK_PIC_INFO& info);
void Read(Node node, VK_PIC_INFO_EX3& info);

}  // namespace jsonparser

#endif
