// Face attributes, as other converters read them.
#ifndef VKPROTOCOLSTACK_ANALYTICS_FACE_ATTRIBUTES_H
#define VKPROTOCOLSTACK_ANALYTICS_FACE_ATTRIBUTES_H

#include "vkprotocolstack/wire/node.h"
#include "vkrecords/analytics.h"

namespace jsonparser {

/// As ParseFaceAttributes.
bool Read(Node node, tagNET_FACE_ATTRIBUTE_EX& face);

}  // namespace jsonparser

#endif
