// Rectangles and points, as other converters read them.
#ifndef VKPROTOCOLSTACK_FOUNDATION_GEOMETRY_H
#define VKPROTOCOLSTACK_FOUNDATION_GEOMETRY_H

#include "vkprotocolstack/wire/node.h"
#include "vkrecords/time_and_geometry.h"

namespace jsonparser {

/// As GetJsonRect: cleared first.
int Read(Node node, VK_RECT& rect);

/// As JsonRect::parse: a node of another shape leaves the record as it was.
bool Read(Node node, tagNET_RECT& rect);

/// As GetJsonPoint: a node of another shape leaves the record as it was.
int Read(Node node, VK_POINT& point);

}  // namespace jsonparser

#endif
