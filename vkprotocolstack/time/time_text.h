// Time texts, as other converters read them.
#ifndef VKPROTOCOLSTACK_TIME_TIME_TEXT_H
#define VKPROTOCOLSTACK_TIME_TIME_TEXT_H

#include "vkprotocolstack/wire/node.h"
#include "vkrecords/time_and_geometry.h"

namespace jsonparser {

/// As JsonTimeEx::parse.
bool Read(Node node, tagNET_TIME_EX& time);
bool Read(Node node, tagCFG_NET_TIME_EX& time);

/// As JsonTime::parse.
bool Read(Node node, tagNET_TIME& time);

}  // namespace jsonparser

#endif
