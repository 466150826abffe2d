// Boxes and points of analytics objects, which may have more elements than they need.
#ifndef VKPROTOCOLSTACK_FOUNDATION_BOX_H
#define VKPROTOCOLSTACK_FOUNDATION_BOX_H

#include "vkprotocolstack/wire/node.h"
#include "vkrecords/time_and_geometry.h"

namespace jsonparser {

/// left, top, right, bottom from elements 0 to 3. By value: fields of packed records take no reference.
inline VK_RECT BoxOf(Node node) {
    return {node.at(0).asInt(), node.at(1).asInt(), node.at(2).asInt(), node.at(3).asInt()};
}

/// x, y from elements 0 and 1, low 16 bits of each.
inline VK_POINT PointOf(Node node) {
    return {static_cast<short>(node.at(0).intLow16()), static_cast<short>(node.at(1).intLow16())};
}

}  // namespace jsonparser

#endif
