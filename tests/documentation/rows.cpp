// What stands around the rows of a converter that a page shows.
#include "vkprotocolstack/traffic/flow_statistics_keywords.h"
#include "vkprotocolstack/wire/node.h"

namespace {

using jsonparser::kRoadRanks;

struct Record {
    unsigned short wWidth;
    int nLane;
    int nWeight;
    char szAddress[260];
    int emRank;
};

constexpr jsonparser::NameList kNames{"Width", "Lane", "Weight", "Address", "Rank"};

[[maybe_unused]] void Read(jsonparser::Node node, Record& info, Record& car) {
    const jsonparser::Members<kNames> in(node);
#include "block.h"
}

}  // namespace
