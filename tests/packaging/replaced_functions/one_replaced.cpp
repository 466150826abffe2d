// The argument names the one support function that one_function.cpp defines in this program: it is called, and of the
// others the defaults are.
#include <vkprotocolstack/JsonParser.h>
#include <vkprotocolstack/message_text.h>

#include <cstdio>
#include <set>
#include <string>

namespace {

struct Traced {
    int messages = 0;
    int line = 0;
};

void Trace(const jsonparser::TraceMessage& message, void* context) {
    auto& traced = *static_cast<Traced*>(context);
    ++traced.messages;
    traced.line = message.line;
}

/// The functions that do not what the defaults do.
std::set<std::string> Own() {
    std::set<std::string> own;

    Json::Value vehicle;
    for (const char* name : {"PlateNumber", "VehicleSign", "DefendCode"}) vehicle[name] = "message";
    jsonparser::Owned<tagDEV_EVENT_TRAFFIC_TRAFFICCAR_INFO> car;
    ParseStrtoTrafficCar(vehicle, car.get());
    const auto ownOf = [&car] {
        std::set<std::string> found;
        if (car->szPlateNumber != std::string("message")) found.insert("Change_Utf8_Assic");
        if (car->szVehicleSign != std::string("message")) found.insert("GetJsonString");
        if (car->szDefendCode != std::string("message")) found.insert("parseJsonNodeToStr");
        return found;
    };
    own = ownOf();
    jsonparser::MessageText body(R"({"PlateNumber": "message", "VehicleSign": "message", "DefendCode": "message"})");
    ParseStrtoTrafficCar(body.at(""), car.get());
    if (ownOf() != own) own.insert("others when reading from text");

    Json::Value text;
    char local[] = "local";
    packetAssicToUtf8Jason(text, local, 5);
    if (text != "local") own.insert("Change_Assic_UTF8");

    Traced traced;
    jsonparser::SetTraceSink(Trace, &traced);
    tagNET_NETAPP_WIRELESS wireless{};
    Json::Value mobile;
    PacketWirelessInfo(wireless, mobile);
    jsonparser::SetTraceSink(nullptr, nullptr);
    if (mobile["UserName"] != "") own.insert("SetJsonString");
    if (traced.messages == 0) own.insert("SDKLogTraceOut");
    if (traced.messages != 0 && traced.line == 0) own.insert("SetBasicInfo");

    jsonparser::Owned<tagFACERECOGNITION_PERSON_INFOEX> person;
    Json::Value packed;
    PacketPersonInfo(packed, *person);
    if (packed["UID"] != "") own.insert("packetStrToJsonNode");

    Json::Value status;
    status["AlarmPoints"].append(7);
    _NET_GPS_STATUS_INFO info{};
    ParseGPSStatusInfo(status, &info);
    if (info.nAlarmTypes[0] != 7) own.insert("TranslateAlarmType");

    // The converters do the work of these two themselves; the program's own calls are what can differ.
    if (_stricmp("Word", "wORD") != 0) own.insert("_stricmp");
    char buffer[8];
    if (_snprintf(buffer, sizeof buffer, "%d", 7) != 1) own.insert("_snprintf");
    return own;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) return 2;
    const std::set<std::string> own = Own();
    for (const std::string& function : own) std::printf("own: %s\n", function.c_str());
    return own == std::set<std::string>{argv[1]} ? 0 : 1;
}
