// The road of an event layer: message text to JSON, pick the vehicle, convert it, use it, release its heap texts.
#include <json/reader.h>

#include <cstdio>
#include <fstream>

#include "vkprotocolstack/JsonParser.h"

namespace {

/// Reads a message body; complains on standard error.
bool ReadMessage(const char* path, Json::Value& message) {
    std::ifstream file(path);
    Json::CharReaderBuilder builder;
    builder["collectComments"] = false;
    std::string errors;
    if (file && Json::parseFromStream(builder, file, &message, &errors)) return true;
    std::fprintf(stderr, "%s: %s\n", path, file ? errors.c_str() : "cannot be read");
    return false;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: traffic_event FILE\n");
        return 2;
    }
    Json::Value message;
    if (!ReadMessage(argv[1], message)) return 1;

    // Owned releases the record's heap texts when it goes out of scope.
    jsonparser::Owned<tagDEV_EVENT_TRAFFIC_TRAFFICCAR_INFO> car;
    Json::Value& vehicle = message["params"]["Events"][0]["TrafficCar"];
    if (ParseStrtoTrafficCar(vehicle, car.get()) != 0) return 1;

    std::printf("%.32s on lane %d at %u-%02u-%02u %02u:%02u:%02u UTC, speed %d\n", car->szPlateNumber, car->nLane,
                car->stuUTC.dwYear, car->stuUTC.dwMonth, car->stuUTC.dwDay, car->stuUTC.dwHour, car->stuUTC.dwMinute,
                car->stuUTC.dwSecond, car->nSpeed);
    if (car->pszDeviceAddress != nullptr) std::printf("seen by the device at %s\n", car->pszDeviceAddress);
    return 0;
}
