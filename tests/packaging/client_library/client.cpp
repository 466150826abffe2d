// What a client library offers its callers, in C: no record and no JSON of ours is in its interface.
#include <json/reader.h>
#include <vkprotocolstack/JsonParser.h>

#include <cstddef>
#include <cstdio>
#include <memory>
#include <string>

/// Stores the plate of the vehicle that the message describes into plate, at most size bytes, terminator included.
/// @return whether the message is JSON
extern "C" __attribute__((visibility("default"))) bool client_plate(const char* message, std::size_t length,
                                                                    char* plate, std::size_t size) {
    Json::CharReaderBuilder builder;
    const std::unique_ptr<Json::CharReader> reader(builder.newCharReader());
    Json::Value vehicle;
    std::string errors;
    if (!reader->parse(message, message + length, &vehicle, &errors)) return false;
    jsonparser::Owned<tagDEV_EVENT_TRAFFIC_TRAFFICCAR_INFO> car;
    ParseStrtoTrafficCar(vehicle, car.get());
    std::snprintf(plate, size, "%s", car->szPlateNumber);
    return true;
}
