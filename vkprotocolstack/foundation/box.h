// Boxes and points of analytics objects, which may have more elements than they need.
#ifndef VKPROTOCOLSTACK_FOUNDATION_BOX_H
#define VKPROTOCOLSTACK_FOUNDATION_BOX_H

#include "vkprotocolstack/wire/node.h"
#include "vkrecords/time_and_geometry.h"

namespace jsonparser {

/// left, top, right, bottom from elements 0 to 3. By value: fields of packed records take no reference.
inline VK_RECT BoxOf(Node node) {
    const auto [left, top, right, bottom] = node.first<4>();
    return {left.asInt(), top.asInt(), right.asInt(), bottom.asInt()};
}

/// x, y from elements 0 and 1, low 16 bits of each.
inline VK_POINT PointOf(Node node) {
    const auto [x, y] = node.first<2>();
    return {static_cast<short>(x.intLow16()), static_cast<short>(y.intLow16())};
}

}  // namespace jsonparser

#endif
