#include <algorithm>
#include <cstring>
#include <new>
#include <string>

#include "benchmarks/literal/literal.h"
#include "vkprotocolstack/support/support.h"

namespace literal {
namespace {

char* HeapText(const Json::Value& value) {
    const std::string text = value.asString();
    char* buffer = new (std::nothrow) char[text.size() + 1];
    if (buffer == nullptr) return nullptr;
    std::memset(buffer, 0, text.size() + 1);
    ReadText(value, buffer, static_cast<int>(text.size()));
    return buffer;
}

}  // namespace

int ParseStrtoTrafficCar(Json::Value& node, tagDEV_EVENT_TRAFFIC_TRAFFICCAR_INFO* car) {
    if (car == nullptr) return 1;
    std::memset(static_cast<void*>(car), 0, sizeof *car);
    if (!node["PlateNumber"].isNull()) ReadText(node["PlateNumber"], car->szPlateNumber, 32);
    if (!node["PlateType"].isNull()) std::strncpy(car->szPlateTypeText, node["PlateType"].asString().c_str(), 31);
    if (!node["PlateColor"].isNull()) ReadText(node["PlateColor"], car->szPlateColor, 32);
    if (!node["VehicleColor"].isNull()) ReadText(node["VehicleColor"], car->szVehicleColor, 32);
    car->nSpeed = node["Speed"].asInt();
    if (!node["Event"].isNull()) std::strncpy(car->szEvent, node["Event"].asString().c_str(), 63);
    if (!node["ViolationCode"].isNull()) {
        std::strncpy(car->szViolationCode, node["ViolationCode"].asString().c_str(), 31);
    }
    if (!node["ViolationDesc"].isNull()) ReadText(node["ViolationDesc"], car->szViolationDesc, 64);
    ReadText(node["ViolationName"], car->szViolationName, 64);
    car->nLowerSpeedLimit = node["LowerSpeedLimit"].asInt();
    car->nUpperSpeedLimit = node["UpperSpeedLimit"].asInt();
    car->nOverSpeedMargin = node["OverSpeedMargin"].asInt();
    car->nUnderSpeedMargin = node["UnderSpeedMargin"].asInt();
    car->nLane = node["Lane"].asInt();
    if (!node["CustomParkNo"].isNull()) GetJsonString(node["CustomParkNo"], car->szCustomParkNo, 33, true);
    car->nVehicleSize = -1;
    if (!node["VehicleSize"].isNull()) {
        static const std::string kSizes[] = {"Light-duty", "Medium", "Oversize", "Minisize", "Largesize"};
        const std::string size = node["VehicleSize"].asString();
        for (int i = 0; i < 5; ++i) {
            if (size == kSizes[i]) {
                car->nVehicleSize = 1 << i;
                break;
            }
        }
    }
    car->fVehicleLength = static_cast<float>(node["VehicleLength"].asDouble());
    if (!node["DrivingDirection"].isNull()) {
        const unsigned count = std::min(node["DrivingDirection"].size(), 3U);
        if (!node["DrivingDirection"][0].isNull()) {
            std::strncpy(car->szDrivingDirection[0], node["DrivingDirection"][0].asString().c_str(), 255);
        }
        for (unsigned i = 1; i < count; ++i) ReadText(node["DrivingDirection"][i], car->szDrivingDirection[i], 256);
    }
    car->nSnapshotMode = node["SnapshotMode"].asInt();
    if (!node["ChannelName"].isNull()) ReadText(node["ChannelName"], car->szChannelName, 32);
    if (!node["MachineName"].isNull()) ReadText(node["MachineName"], car->szMachineName, 256);
    if (!node["MachineGroup"].isNull()) ReadText(node["MachineGroup"], car->szMachineGroup, 256);
    if (!node["RoadwayNo"].isNull()) ReadText(node["RoadwayNo"], car->szRoadwayNo, 64);
    if (!node["CustomRoadwayDirection"].isNull()) {
        ReadText(node["CustomRoadwayDirection"], car->szCustomRoadwayDirection, 32);
    }
    if (!node["DeviceAddress"].isNull()) car->pszDeviceAddress = HeapText(node["DeviceAddress"]);
    if (node.isMember("DetailedAddress")) car->pszDetailedAddress = HeapText(node["DetailedAddress"]);
    if (node.isMember("VehicleSign")) GetJsonString(node["VehicleSign"], car->szVehicleSign, 32, true);
    if (!node["Redundance"].isNull()) {
        const unsigned count = std::min(node["Redundance"].size(), 8U);
        for (unsigned i = 0; i < count; ++i) {
            car->byRedundance[i] = static_cast<unsigned char>(node["Redundance"][i].asUInt());
        }
    }
    if (node.isMember("MachineAddress")) car->pszMachineAddress = HeapText(node["MachineAddress"]);
    if (!node["ActualShutter"].isNull()) car->fActualShutter = static_cast<float>(node["ActualShutter"].asDouble());
    if (!node["ActualGain"].isNull()) car->byActualGain = static_cast<unsigned char>(node["ActualGain"].asInt());
    car->byDirection = 8;
    if (!node["Direction"].isNull()) car->byDirection = static_cast<unsigned char>(node["Direction"].asInt());
    if (!node["DefendCode"].isNull()) parseJsonNodeToStr(node["DefendCode"], car->szDefendCode, 64);
    if (!node["TrafficBlackListID"].isNull()) car->nTrafficBlackListID = node["TrafficBlackListID"].asInt();
    if (!node["VehicleColorRGB"].isNull() && node["VehicleColorRGB"].isArray() && node["VehicleColorRGB"].size() == 4) {
        for (unsigned i = 0; i < 4; ++i) car->dwVehicleColorRGB[i] = node["VehicleColorRGB"][i].asUInt();
    }
    if (node["UTC"].isInt()) car->stuUTC = TimeOf<tagNET_TIME>(node["UTC"].asInt());
    car->dwRecNo = node["RecNo"].asUInt();
    if (!node["StereoGarage"].isNull()) {
        tagSTEREO_GARAGE_INFO& garage = car->stuStereoGarage;
        const Json::Value& from = node["StereoGarage"];
        if (!from["DeckNo"].isNull()) garage.nDeckNo = from["DeckNo"].asInt();
        if (!from["FreeDeckCount"].isNull()) garage.nFreeDeckCount = from["FreeDeckCount"].asInt();
        if (!from["FullDeckCount"].isNull()) garage.nFullDeckCount = from["FullDeckCount"].asInt();
        if (!from["TotalDeckCount"].isNull()) garage.nTotalDeckCount = from["TotalDeckCount"].asInt();
    }
    if (node["Weight"].isInt()) car->nWeight = node["Weight"].asInt();
    if (node["PhysicalLane"].isInt()) car->byPhysicalLane = static_cast<unsigned char>(node["PhysicalLane"].asInt());
    if (node["MovingDirection"].isUInt()) car->emMovingDirection = node["MovingDirection"].asUInt();
    if (!node["EleTagInfoUTC"].isNull()) car->stuEleTagInfoUTC = TimeOf<tagNET_TIME>(node["UTC"].asInt());
    if (!node["CarWindow"].isNull()) {
        const Json::Value& box = node["CarWindow"]["BoundingBox"];
        if (box.isArray() && box.size() == 4) {
            car->stuCarWindowBox.nLeft = box[0].asInt();
            car->stuCarWindowBox.nTop = box[1].asInt();
            car->stuCarWindowBox.nRight = box[2].asInt();
            car->stuCarWindowBox.nBottom = box[3].asInt();
        }
    }
    return 0;
}

}  // namespace literal
