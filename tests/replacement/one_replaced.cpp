// A client replaces one support function; the others stay the defaults.
#include <json/value.h>

#include <cstdio>
#include <cstring>

#include "vkprotocolstack/JsonParser.h"
#include "vkprotocolstack/message_text.h"

void parseJsonNodeToStr(const Json::Value& /*node*/, char* buffer, int size) {
    std::snprintf(buffer, static_cast<std::size_t>(size), "own");
}

int main() {
    Json::Value vehicle;
    for (const char* name : {"PlateNumber", "VehicleSign", "DefendCode"}) vehicle[name] = "message";
    jsonparser::Owned<tagDEV_EVENT_TRAFFIC_TRAFFICCAR_INFO> car;
    ParseStrtoTrafficCar(vehicle, car.get());
    const auto isGood = [&car] {
        return std::strcmp(car->szPlateNumber, "message") == 0 && std::strcmp(car->szVehicleSign, "message") == 0 &&
               std::strcmp(car->szDefendCode, "own") == 0;
    };
    bool good = isGood();
    jsonparser::MessageText body(R"({"PlateNumber": "message", "VehicleSign": "message", "DefendCode": "message"})");
    ParseStrtoTrafficCar(body.at(""), car.get());
    good = good && isGood();
    std::printf("%d failed\n", good ? 0 : 1);
    return good ? 0 : 1;
}
