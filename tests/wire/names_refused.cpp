// Compiled by tests as it is, and with each of the two breaches, which must not compile.
#include "vkprotocolstack/wire/node.h"

namespace {

#ifdef NAME_TWICE
constexpr jsonparser::NameList kNames{"Speed", "Lane", "Speed"};
#else
constexpr jsonparser::NameList kNames{"Speed", "Lane"};
#endif

#ifdef NAME_NOT_LISTED
constexpr char kAsked[] = "Lanes";
#else
constexpr char kAsked[] = "Lane";
#endif

}  // namespace

int Lane(jsonparser::Node node) { return jsonparser::Members<kNames>(node)[kAsked].asInt(); }
