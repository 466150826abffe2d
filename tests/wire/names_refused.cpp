// Compiled by tests as it is, and with each of the breaches, which must not compile.
#include "vkprotocolstack/wire/node.h"

namespace {

#ifdef NAME_TWICE
constexpr jsonparser::NameList kNames{"Speed", "Lane", "Speed"};
#elif defined(NAME_TOO_LONG)
constexpr jsonparser::NameList kNames{"Lane", "NameOfTwentySevenBytes12345"};
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
