#include <algorithm>
#include <cfloat>
#include <cstddef>

#include "vkprotocolstack/JsonParser.h"
#include "vkprotocolstack/status/gps_keywords.h"
#include "vkprotocolstack/wire/message_node.h"
#include "vkprotocolstack/wire/node.h"
#include "vkprotocolstack/wire/numbers.h"
#include "vkprotocolstack/wire/write.h"

using jsonparser::kDateSources;
using jsonparser::Members;
using jsonparser::MessagePlace;
using jsonparser::NameList;
using jsonparser::Node;
using jsonparser::NodeAt;
using jsonparser::Put;
using jsonparser::Truncate;

namespace {

constexpr NameList kNames{"Longitude", "Latitude", "Altitude", "Speed", "Bearing"};

constexpr NameList kStatusNames{
    "Altitude",   "Speed",          "Longitude",   "Latitude", "Bearing", "AntennasStatus", "PositioningResult",
    "WorkStatus", "SatelliteCount", "AlarmPoints", "Time",     "SNR",     "Source"};

static_assert(FLT_EVAL_METHOD == 0, "every step of a single-precision coordinate is rounded to single precision");

/// The coordinate [degrees, minutes, seconds] in millionths of a degree, each step computed in Real.
template <class Real>
Real Millionths(Node node) {
    if (node.size() < 3) return 0;
    const auto degrees = static_cast<Real>(node.at(0).asUInt());
    const auto minutes = static_cast<Real>(node.at(1).asUInt());
    const auto seconds = static_cast<Real>(node.at(2).asDouble());
    return (degrees + minutes / Real{60} + seconds / Real{3600}) * Real{1000000};
}

unsigned WholeMillionths(Node node) { return Truncate<unsigned>(Millionths<float>(node)); }

void Read(Node node, tagNET_GPS_INFO& info) {
    const Members<kNames> in(node);
    info.nLongitude = WholeMillionths(in["Longitude"]);
    info.nLatitude = WholeMillionths(in["Latitude"]);
    info.dbAltitude = in["Altitude"].asDouble();
    info.dbSpeed = in["Speed"].asDouble();
    info.dbBearing = in["Bearing"].asDouble();
}

void Read(Node node, tagGPS_TIME& time) {
    time.nYear = node.at(0).asInt();
    time.nMonth = node.at(1).asInt();
    time.nDay = node.at(2).asInt();
    time.nHour = node.at(3).asInt();
    time.nMinute = node.at(4).asInt();
    time.nSecond = node.at(5).asInt();
}

void ReadAlarms(Node alarms, _NET_GPS_STATUS_INFO& info) {
    const std::size_t count = std::min<std::size_t>(alarms.size(), 128);
    info.nAlarmCount = static_cast<int>(count);
    for (std::size_t i = 0; i < count; ++i) info.nAlarmTypes[i] = TranslateAlarmType(alarms.at(i).asInt());
}

void Read(Node node, _NET_GPS_STATUS_INFO& info) {
    const Members<kStatusNames> in(node);
    if (auto v = in["Altitude"]) info.dbAltitude = v.asDouble();
    if (auto v = in["Speed"]) info.dbSpeed = v.asDouble();
    if (auto v = in["Longitude"]) info.dbLongitude = Millionths<double>(v);
    if (auto v = in["Latitude"]) info.dbLatitude = Millionths<double>(v);
    if (auto v = in["Bearing"]) info.dbBearing = v.asDouble();
    info.bAntennasStatus = 2;
    if (auto v = in["AntennasStatus"]) info.bAntennasStatus = v.asBool();
    info.bPositioningResult = 2;
    if (auto v = in["PositioningResult"]) info.bPositioningResult = v.asBool();
    if (auto v = in["WorkStatus"]) info.nWorkStatus = v.asInt();
    if (auto v = in["SatelliteCount"]) info.wSatelliteCount = v.intLow16();
    if (auto v = in["AlarmPoints"]) ReadAlarms(v, info);
    if (auto v = in["Time"]; v.size() >= 6) Read(v, info.stuGpsTime);
    info.bySNR = in["SNR"].intLow8();
    info.emDateSource = in["Source"].firstExact(kDateSources, 0);
}

}  // namespace

unsigned int TransLongitudetoUInt(const Json::Value& coordinate) { return WholeMillionths(Node(coordinate)); }

unsigned int TransLongitudetoUInt(const MessagePlace& coordinate) {
    const auto node = NodeAt(coordinate);
    return node ? WholeMillionths(*node) : 0;
}

double TransLongitudetoDouble(const Json::Value& coordinate) { return Millionths<double>(Node(coordinate)); }

double TransLongitudetoDouble(const MessagePlace& coordinate) {
    const auto node = NodeAt(coordinate);
    return node ? Millionths<double>(*node) : 0.0;
}

void TransLongitudeToJson(Json::Value& coordinate, double degrees) {
    const int wholeDegrees = Truncate<int>(degrees);
    const double minutes = (degrees - wholeDegrees) * 60.0;
    const int wholeMinutes = Truncate<int>(minutes);
    const int hundredths = Truncate<int>((minutes - wholeMinutes) * 60.0 * 100.0);
    Put(coordinate, 0, wholeDegrees);
    Put(coordinate, 1, wholeMinutes);
    Put(coordinate, 2, hundredths / 100.0);
}

void ParseGPSInfo(const Json::Value& position, tagNET_GPS_INFO& info) { Read(Node(position), info); }

void ParseGPSInfo(const MessagePlace& position, tagNET_GPS_INFO& info) {
    if (const auto node = NodeAt(position, kNames)) Read(*node, info);
}

void ParseGPSStatusInfo(Json::Value status, _NET_GPS_STATUS_INFO* info) { Read(Node(status), *info); }

void ParseGPSStatusInfo(const MessagePlace& status, _NET_GPS_STATUS_INFO* info) {
    if (const auto node = NodeAt(status, kStatusNames)) Read(*node, *info);
}
