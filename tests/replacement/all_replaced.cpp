// The converters call a client's own support functions, all of them.
#include <json/reader.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "own_functions.h"
#include "vkprotocolstack/JsonParser.h"
#include "vkprotocolstack/message_text.h"

namespace {

int failures = 0;

void Expect(bool holds, const char* what) {
    if (holds) return;
    std::printf("FAILED: %s\n", what);
    ++failures;
}

/// How often the own function of that name was called since the last question about it.
std::ptrdiff_t Calls(const char* name) {
    const std::ptrdiff_t calls = std::count(OwnCalls().begin(), OwnCalls().end(), name);
    std::erase(OwnCalls(), name);
    return calls;
}

/// The alarm types that the status of a positioning receiver with those alarm points gives.
std::vector<int> AlarmTypes(const std::string& points) {
    const std::string text = R"({"AlarmPoints": )" + points + "}";
    Json::Value status;
    const std::unique_ptr<Json::CharReader> reader(Json::CharReaderBuilder().newCharReader());
    Expect(reader->parse(text.data(), text.data() + text.size(), &status, nullptr), "the points are JSON");
    _NET_GPS_STATUS_INFO info{};
    ParseGPSStatusInfo(status, &info);
    return {info.nAlarmTypes, info.nAlarmTypes + info.nAlarmCount};
}

}  // namespace

int main() {
    Json::Value vehicle;
    for (const char* name : {"PlateNumber", "VehicleSign", "DefendCode", "DeviceAddress"}) vehicle[name] = "message";
    jsonparser::Owned<tagDEV_EVENT_TRAFFIC_TRAFFICCAR_INFO> car;
    ParseStrtoTrafficCar(vehicle, car.get());
    Expect(std::strcmp(car->szPlateNumber, "own") == 0, "Change_Utf8_Assic fills a field");
    Expect(Calls("Change_Utf8_Assic") == 2, "Change_Utf8_Assic is called for field and address");
    Expect(std::strcmp(car->szVehicleSign, "own") == 0 && Calls("GetJsonString") == 1, "GetJsonString");
    Expect(std::strcmp(car->szDefendCode, "own") == 0 && Calls("parseJsonNodeToStr") == 1, "parseJsonNodeToStr");

    jsonparser::MessageText body(
        R"({"PlateNumber": "message", "VehicleSign": "message", "DefendCode": "message", "DeviceAddress": "message"})");
    jsonparser::Owned<tagDEV_EVENT_TRAFFIC_TRAFFICCAR_INFO> fromText;
    ParseStrtoTrafficCar(body.at(""), fromText.get());
    Expect(std::strcmp(fromText->szPlateNumber, "own") == 0, "Change_Utf8_Assic fills a field from text");
    Expect(Calls("Change_Utf8_Assic") == 2, "Change_Utf8_Assic is called for field and address from text");
    Expect(std::strcmp(fromText->szVehicleSign, "own") == 0 && Calls("GetJsonString") == 1, "GetJsonString from text");
    Expect(std::strcmp(fromText->szDefendCode, "own") == 0 && Calls("parseJsonNodeToStr") == 1,
           "parseJsonNodeToStr from text");

    Json::Value text;
    char local[] = "local";
    packetAssicToUtf8Jason(text, local, 5);
    Expect(text == "own" && Calls("Change_Assic_UTF8") == 1, "Change_Assic_UTF8");

    tagNET_NETAPP_WIRELESS wireless{};
    Json::Value mobile;
    PacketWirelessInfo(wireless, mobile);
    Expect(mobile["UserName"] == "own" && Calls("SetJsonString") == 4, "SetJsonString");
    Expect(Calls("SetBasicInfo") == 4 && Calls("SDKLogTraceOut") == 4, "the trace pair");

    jsonparser::Owned<tagFACERECOGNITION_PERSON_INFOEX> person;
    Json::Value packed;
    PacketPersonInfo(packed, *person);
    Expect(packed["UID"] == "own" && Calls("packetStrToJsonNode") > 0, "packetStrToJsonNode");

    Expect(AlarmTypes(R"([7, -8, "9", 4294967297])") == std::vector<int>{1007, 992, 1000, 1001}, "TranslateAlarmType");
    Expect(Calls("TranslateAlarmType") == 4, "TranslateAlarmType is called for each alarm point");
    for (const char* none : {"null", "[]", R"({"0": 7})", "7"}) {
        Expect(AlarmTypes(none).empty() && Calls("TranslateAlarmType") == 0, "no alarm point, no TranslateAlarmType");
    }
    std::string many = "[0";
    for (int i = 1; i < 200; ++i) many += "," + std::to_string(i);
    const std::vector<int> first = AlarmTypes(many + "]");
    Expect(first.size() == 128 && first.back() == 1127 && Calls("TranslateAlarmType") == 128,
           "TranslateAlarmType is called for the first 128 alarm points");

    std::printf("%d failed\n", failures);
    return failures == 0 ? 0 : 1;
}
