#include "vkprotocolstack/JsonParser.h"
#include "vkprotocolstack/foundation/geometry.h"
#include "vkprotocolstack/time/utc.h"
#include "vkprotocolstack/traffic/vehicle_size_keywords.h"
#include "vkprotocolstack/wire/message_node.h"
#include "vkprotocolstack/wire/node.h"
#include "vkprotocolstack/wire/record.h"
#include "vkprotocolstack/wire/write.h"

using jsonparser::Clear;
using jsonparser::InsertNulls;
using jsonparser::kVehicleSizes;
using jsonparser::Members;
using jsonparser::MembersAt;
using jsonparser::MessagePlace;
using jsonparser::NameList;
using jsonparser::Node;
using jsonparser::SetUtc;

namespace {

constexpr NameList kNames{"PlateNumber",
                          "PlateType",
                          "PlateColor",
                          "VehicleColor",
                          "Speed",
                          "Event",
                          "ViolationCode",
                          "ViolationDesc",
                          "ViolationName",
                          "LowerSpeedLimit",
                          "UpperSpeedLimit",
                          "OverSpeedMargin",
                          "UnderSpeedMargin",
                          "Lane",
                          "CustomParkNo",
                          "VehicleSize",
                          "VehicleLength",
                          "DrivingDirection",
                          "SnapshotMode",
                          "ChannelName",
                          "MachineName",
                          "MachineGroup",
                          "RoadwayNo",
                          "CustomRoadwayDirection",
                          "DeviceAddress",
                          "DetailedAddress",
                          "VehicleSign",
                          "Redundance",
                          "MachineAddress",
                          "ActualShutter",
                          "ActualGain",
                          "Direction",
                          "DefendCode",
                          "TrafficBlackListID",
                          "VehicleColorRGB",
                          "UTC",
                          "RecNo",
                          "StereoGarage",
                          "Weight",
                          "PhysicalLane",
                          "MovingDirection",
                          "EleTagInfoUTC",
                          "CarWindow"};

constexpr NameList kGarageNames{"DeckNo", "FreeDeckCount", "FullDeckCount", "TotalDeckCount"};

void Read(Node node, tagSTEREO_GARAGE_INFO& garage) {
    const Members<kGarageNames> in(node);
    if (auto v = in["DeckNo"]) garage.nDeckNo = v.asInt();
    if (auto v = in["FreeDeckCount"]) garage.nFreeDeckCount = v.asInt();
    if (auto v = in["FullDeckCount"]) garage.nFullDeckCount = v.asInt();
    if (auto v = in["TotalDeckCount"]) garage.nTotalDeckCount = v.asInt();
}

void ReadDrivingDirection(Node directions, char (&slots)[3][256]) {
    // The first direction is stored as it was sent, the other two in the local encoding.
    directions.forElements(3, [&slots](Node direction, std::size_t i) {
        if (i > 0) {
            direction.utf8To(slots[i], 256);
        } else if (direction) {
            direction.rawTo(slots[0], 255);
        }
    });
}

void Read(const Members<kNames>& in, tagDEV_EVENT_TRAFFIC_TRAFFICCAR_INFO& car) {
    Clear(car);
    if (auto v = in["PlateNumber"]) v.utf8To(car.szPlateNumber, 32);
    if (auto v = in["PlateType"]) v.rawTo(car.szPlateTypeText, 31);
    if (auto v = in["PlateColor"]) v.utf8To(car.szPlateColor, 32);
    if (auto v = in["VehicleColor"]) v.utf8To(car.szVehicleColor, 32);
    car.nSpeed = in["Speed"].asInt();
    if (auto v = in["Event"]) v.rawTo(car.szEvent, 63);
    if (auto v = in["ViolationCode"]) v.rawTo(car.szViolationCode, 31);
    if (auto v = in["ViolationDesc"]) v.utf8To(car.szViolationDesc, 64);
    in["ViolationName"].utf8To(car.szViolationName, 64);
    car.nLowerSpeedLimit = in["LowerSpeedLimit"].asInt();
    car.nUpperSpeedLimit = in["UpperSpeedLimit"].asInt();
    car.nOverSpeedMargin = in["OverSpeedMargin"].asInt();
    car.nUnderSpeedMargin = in["UnderSpeedMargin"].asInt();
    car.nLane = in["Lane"].asInt();
    if (auto v = in["CustomParkNo"]) v.stringTo(car.szCustomParkNo, 33);
    car.nVehicleSize = -1;
    if (auto v = in["VehicleSize"]) car.nVehicleSize = v.firstExact(kVehicleSizes, -1);
    car.fVehicleLength = in["VehicleLength"].asFloat();
    if (auto v = in["DrivingDirection"]) ReadDrivingDirection(v, car.szDrivingDirection);
    car.nSnapshotMode = in["SnapshotMode"].asInt();
    if (auto v = in["ChannelName"]) v.utf8To(car.szChannelName, 32);
    if (auto v = in["MachineName"]) v.utf8To(car.szMachineName, 256);
    if (auto v = in["MachineGroup"]) v.utf8To(car.szMachineGroup, 256);
    // Of 64 bytes or more, this ends in the first driving direction, which was read above.
    if (auto v = in["RoadwayNo"]) v.utf8To(car.szRoadwayNo, 64);
    if (auto v = in["CustomRoadwayDirection"]) v.utf8To(car.szCustomRoadwayDirection, 32);
    if (auto v = in["DeviceAddress"]) car.pszDeviceAddress = v.heapUtf8();
    if (auto v = in["DetailedAddress"]; v.isMember()) car.pszDetailedAddress = v.heapUtf8();
    if (auto v = in["VehicleSign"]; v.isMember()) v.stringTo(car.szVehicleSign, 32);
    if (auto v = in["Redundance"]) {
        v.forElements(8, [&car](Node element, std::size_t i) { car.byRedundance[i] = element.uintLow8(); });
    }
    if (auto v = in["MachineAddress"]; v.isMember()) car.pszMachineAddress = v.heapUtf8();
    if (auto v = in["ActualShutter"]) car.fActualShutter = v.asFloat();
    if (auto v = in["ActualGain"]) car.byActualGain = v.intLow8();
    car.byDirection = 8;
    if (auto v = in["Direction"]) car.byDirection = v.intLow8();
    if (auto v = in["DefendCode"]) v.renderTo(car.szDefendCode, 64);
    if (auto v = in["TrafficBlackListID"]) car.nTrafficBlackListID = v.asInt();
    if (auto v = in["VehicleColorRGB"]; v.isArray() && v.size() == 4) {
        const auto components = v.first<4>();
        for (std::size_t i = 0; i < 4; ++i) car.dwVehicleColorRGB[i] = components[i].asUInt();
    }
    if (auto v = in["UTC"]; v.isInt()) SetUtc(car.stuUTC, v.utcSeconds());
    car.dwRecNo = in["RecNo"].asUInt();
    if (auto v = in["StereoGarage"]) Read(v, car.stuStereoGarage);
    if (auto v = in["Weight"]; v.isInt()) car.nWeight = v.asInt();
    if (auto v = in["PhysicalLane"]; v.isInt()) car.byPhysicalLane = v.intLow8();
    if (auto v = in["MovingDirection"]; v.isUInt()) car.emMovingDirection = v.asUInt();
    // The electronic tag has the event's time, whatever its own member holds.
    if (in["EleTagInfoUTC"]) SetUtc(car.stuEleTagInfoUTC, in["UTC"].utcSeconds());
    if (auto v = in["CarWindow"]) Read(v["BoundingBox"], car.stuCarWindowBox);
}

}  // namespace

int ParseStrtoTrafficCar(Json::Value& node, tagDEV_EVENT_TRAFFIC_TRAFFICCAR_INFO* info) {
    if (info == nullptr) return 1;
    const Members<kNames> in{Node(node)};
    Read(in, *info);
    // What the converter looks for stays in the object, but for the members of which it asks isMember.
    InsertNulls(node, in, {"DetailedAddress", "VehicleSign", "MachineAddress"});
    return 0;
}

int ParseStrtoTrafficCar(const MessagePlace& place, tagDEV_EVENT_TRAFFIC_TRAFFICCAR_INFO* info) {
    if (info == nullptr) return 1;
    const MembersAt<kNames> in(place);
    if (!in) return 1;
    Read(*in, *info);
    return 0;
}
