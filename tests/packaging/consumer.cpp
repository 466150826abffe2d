// What a client links: one converter, with the support functions behind it.
#include <vkprotocolstack/JsonParser.h>

#include <cstdio>
#include <cstring>

int main() {
    Json::Value vehicle;
    vehicle["PlateNumber"] = "A12345";
    jsonparser::Owned<tagDEV_EVENT_TRAFFIC_TRAFFICCAR_INFO> car;
    if (ParseStrtoTrafficCar(vehicle, car.get()) != 0) return 1;
    std::printf("%s\n", car->szPlateNumber);
    return std::strcmp(car->szPlateNumber, "A12345") == 0 ? 0 : 1;
}
