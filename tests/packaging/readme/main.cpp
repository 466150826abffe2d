#include <vkprotocolstack/JsonParser.h>

#include <cstdio>
#include <string>

int main() {
    const std::string text = R"({"TrafficCar": {"PlateNumber": "D12345", "Speed": 87, "VehicleSize": "Medium"}})";
    jsonparser::MessageText message(text);
    jsonparser::Owned<tagDEV_EVENT_TRAFFIC_TRAFFICCAR_INFO> car;  // releases its heap texts when it goes
    if (ParseStrtoTrafficCar(message.at("/TrafficCar"), car.get()) != 0) return 1;
    std::printf("%s at %d, size %d\n", car->szPlateNumber, car->nSpeed, car->nVehicleSize);
}
