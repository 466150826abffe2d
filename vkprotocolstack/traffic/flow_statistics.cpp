#include "vkprotocolstack/JsonParser.h"
#include "vkprotocolstack/time/utc.h"
#include "vkprotocolstack/traffic/flow_statistics_keywords.h"
#include "vkprotocolstack/wire/message_node.h"
#include "vkprotocolstack/wire/node.h"

using jsonparser::kRoadRanks;
using jsonparser::Members;
using jsonparser::MessagePlace;
using jsonparser::NameList;
using jsonparser::Node;
using jsonparser::NodeAt;
using jsonparser::SetUtc;

namespace {

constexpr NameList kNames{"DrivingDirection",
                          "Lane",
                          "MachineAddress",
                          "MachineName",
                          "Period",
                          "UTC",
                          "UTCMS",
                          "Vehicles",
                          "AverageSpeed",
                          "AverageLength",
                          "TimeOccupyRatio",
                          "SpaceOccupyRatio",
                          "SpaceHeadway",
                          "TimeHeadway",
                          "Density",
                          "OverSpeedVehicles",
                          "UnderSpeedVehicles",
                          "LargeVehicles",
                          "MediumVehicles",
                          "SmallVehicles",
                          "MotoVehicles",
                          "LongVehicles"};

constexpr NameList kQueueNames{"BackOfQueue", "State", "Rank"};

void ReadDrivingDirection(Node directions, char (&slots)[3][32]) {
    // The first direction is stored as it was sent, the other two in the local encoding.
    directions.at(0).rawTo(slots[0], 31);
    directions.at(1).utf8To(slots[1], 32);
    directions.at(2).utf8To(slots[2], 32);
}

template <class Record>
void ReadStatistics(Node node, Record& info) {
    const Members<kNames> in(node);
    // Before "Lane": a third direction of 32 bytes or more ends in nLane.
    if (auto v = in["DrivingDirection"]) ReadDrivingDirection(v, info.szDrivingDirection);
    if (auto v = in["Lane"]) info.nLane = v.asInt();
    if (auto v = in["MachineAddress"]) v.utf8To(info.szMachineAddress, 256);
    // Of 256 bytes or more, this ends in the first driving direction, which was read above.
    if (auto v = in["MachineName"]) v.utf8To(info.szMachineName, 256);
    if (auto v = in["Period"]) info.nPeriod = v.asInt();
    if (auto v = in["UTC"]) SetUtc(info.stuTime, v.unsignedUtcSeconds());
    if (auto v = in["UTCMS"]) info.stuTime.dwMillisecond = v.asUInt();
    if (auto v = in["Vehicles"]) info.nVehicles = v.asInt();
    if (auto v = in["AverageSpeed"]) info.fAverageSpeed = v.asFloat();
    if (auto v = in["AverageLength"]) info.fAverageLength = v.asFloat();
    if (auto v = in["TimeOccupyRatio"]) info.fTimeOccupyRatio = v.asFloat();
    if (auto v = in["SpaceOccupyRatio"]) info.fSpaceOccupyRatio = v.asFloat();
    if (auto v = in["SpaceHeadway"]) info.fSpaceHeadway = v.asFloat();
    if (auto v = in["TimeHeadway"]) info.fTimeHeadway = v.asFloat();
    if (auto v = in["Density"]) info.fDensity = v.asFloat();
    if (auto v = in["OverSpeedVehicles"]) info.nOverSpeedVehicles = v.asInt();
    if (auto v = in["UnderSpeedVehicles"]) info.nUnderSpeedVehicles = v.asInt();
    if (auto v = in["LargeVehicles"]) info.nLargeVehicles = v.asInt();
    if (auto v = in["MediumVehicles"]) info.nMediumVehicles = v.asInt();
    if (auto v = in["SmallVehicles"]) info.nSmallVehicles = v.asInt();
    if (auto v = in["MotoVehicles"]) info.nMotoVehicles = v.asInt();
    if (auto v = in["LongVehicles"]) info.nLongVehicles = v.asInt();
}

void Read(Node node, tagVK_TRAFFICFLOWSTAT& info) { ReadStatistics(node, info); }

void Read(Node node, tagNET_TRAFFICFLOWSTATINFO& info) {
    ReadStatistics(node, info);
    const Members<kQueueNames> in(node);
    if (auto v = in["BackOfQueue"]) info.dBackOfQueue = v.asDouble();
    if (auto v = in["State"]) info.nState = v.asInt();
    info.emRank = in["Rank"].firstExact(kRoadRanks, 0);
}

}  // namespace

int ParseTrafficStatInfo(const Json::Value& node, tagVK_TRAFFICFLOWSTAT* info) {
    if (info == nullptr) return -1;
    Read(Node(node), *info);
    return 0;
}

int ParseTrafficStatInfo(const MessagePlace& place, tagVK_TRAFFICFLOWSTAT* info) {
    if (info == nullptr) return -1;
    const auto node = NodeAt(place, kNames);
    if (!node) return -1;
    Read(*node, *info);
    return 0;
}

int ParseTrafficStatInfoEx(const Json::Value& node, tagNET_TRAFFICFLOWSTATINFO* info) {
    if (info == nullptr) return -1;
    Read(Node(node), *info);
    return 0;
}

int ParseTrafficStatInfoEx(const MessagePlace& place, tagNET_TRAFFICFLOWSTATINFO* info) {
    if (info == nullptr) return -1;
    const auto node = NodeAt(place, kNames);
    if (!node) return -1;
    Read(*node, *info);
    return 0;
}
