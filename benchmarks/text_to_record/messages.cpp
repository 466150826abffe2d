#include "benchmarks/text_to_record/messages.h"

#include <fstream>
#include <nlohmann/json.hpp>
#include <random>
#include <stdexcept>
#include <vector>

namespace benchmarks {
namespace {

/// Keeps members in the order of the text.
using Json = nlohmann::ordered_json;

Json Sample(const std::string& file) {
    const std::string path = JSONPARSER_MESSAGES "/" + file;
    std::ifstream stream(path);
    if (!stream) throw std::runtime_error(path + ": cannot be read; expected a sample message");
    return Json::parse(stream);
}

Json Sample(const std::string& file, const std::string& place) { return Sample(file).at(Json::json_pointer(place)); }

Message MessageOf(const Json& record, Order order = Order::Sample) {
    if (order == Order::Sample) return Message(record.dump());
    std::vector<std::pair<std::string, Json>> members;
    for (const auto& [name, value] : record.items()) members.emplace_back(name, value);
    std::shuffle(members.begin(), members.end(), std::mt19937(20240105));
    Json shuffled;
    for (const auto& [name, value] : members) shuffled[name] = value;
    return Message(shuffled.dump());
}

Json Car() { return Sample("traffic_event.json", kCarInEvent); }
/// A traffic car with text behind its opening brace.
Message TrafficBehind(const std::string& text) { return Message('{' + text + Car().dump().substr(1)); }

Json Object() { return Sample("object_event.json", "/params/Events/0/Object"); }
Json Person() { return Sample("person_query.json", "/params/Persons/0"); }

/// What devices send in a traffic event besides what the sample has, before the traffic car and behind it.
constexpr const char* kBeforeCar = R"({
    "Class": "Traffic", "GroupID": 117, "Name": "中山路超速检测", "Sequence": 1, "Mark": null,
    "Vehicle": {
        "ObjectID": 8842, "ObjectType": "Vehicle", "Category": "SaloonCar", "Action": "Appear", "Confidence": 96,
        "BoundingBox": [2560, 3200, 4608, 5632], "Center": [3584, 4416], "MainColor": [255, 255, 255, 0],
        "OriginalBoundingBox": [800, 562, 1440, 990], "Speed": 87, "Text": "Passat", "SubText": "2019",
        "BrandYear": 2019, "CarLogoIndex": 43
    },
    "Seats": [
        {"Type": "Main", "SafeBelt": "WithSafeBelt", "Smoking": false, "Calling": null, "SunShade": "WithSunShade",
         "Face": {"Age": 41, "Sex": "Male", "Glasses": 0, "BoundingBox": [3312, 3712, 3440, 3904]}},
        {"Type": "Slave", "SafeBelt": "WithoutSafeBelt", "Smoking": false, "Calling": null,
         "Face": {"Age": 38, "Sex": "Female", "Glasses": 1, "BoundingBox": [3712, 3720, 3832, 3916]}}
    ]
})";
constexpr const char* kBehindCar = R"({
    "Pictures": [
        {"Kind": "Scene", "Offset": 0, "Length": 183542, "Width": 2560, "Height": 1440,
         "Path": "/mnt/dvr/2024-01-05/0/jpg/09/30/00[R][0@0][0].jpg", "Overlay": ["时间", "地点", "车牌", "限速"]},
        {"Kind": "Scene", "Offset": 183542, "Length": 180027, "Width": 2560, "Height": 1440,
         "Path": "/mnt/dvr/2024-01-05/0/jpg/09/30/00[R][0@0][1].jpg", "Overlay": ["时间", "地点", "车牌", "限速"]},
        {"Kind": "Plate", "Offset": 363569, "Length": 6120, "Width": 240, "Height": 80,
         "Path": "/mnt/dvr/2024-01-05/0/jpg/09/30/00[R][0@0][2].jpg", "Overlay": []}
    ],
    "Signals": [
        {"Direction": "Straight", "Light": "Green", "Since": 12, "Left": 31},
        {"Direction": "TurnLeft", "Light": "Red", "Since": 40, "Left": 18},
        {"Direction": "TurnRight", "Light": "Unknown", "Since": 0, "Left": 0}
    ],
    "Region": [[512, 1024], [7680, 1024], [7680, 7168], [512, 7168]],
    "Feature": "q83vASNFZ4mrze8BI0VniavN7wEjRWeJq83vASNFZ4mrze8BI0VniavN7wEjRWeJq83vASNFZ4mrze8BI0VniavN7wEjRWeJ",
    "Device": {
        "Type": "ITC", "Serial": "2H04C1DPAG00042", "Version": "2.800.0000000.18.R", "Address": "192.168.1.108",
        "Longitude": 120.155073, "Latitude": 30.274084, "Note": "路口 \"中山路\\解放路\" 杆 3\n二期"
    }
})";

/// The places of the car before the snapshot.
Json Track() {
    Json track;
    for (int i = 0; i < 26; ++i) {
        track.push_back({
            {"UTC",     1704446974 + i                         },
            {"UTCMS",   (40 + 77 * i) % 1000                   },
            {"Center",  Json::array({7000 - 140 * i, 3144 + i})},
            {"Speed",   80 + i % 9                             },
            {"Heading", 90.25 + i                              },
            {"Hidden",  false                                  }
        });
    }
    return track;
}

Json Event() {
    Json message = Sample("traffic_event.json");
    Json& event = message["params"]["Events"][0];
    Json whole;
    for (const auto& [name, value] : event.items()) {
        if (name == "TrafficCar") {
            whole.update(Json::parse(kBeforeCar));
            whole["Track"] = Track();
        }
        whole[name] = value;
    }
    whole.update(Json::parse(kBehindCar));
    event = whole;
    return message;
}

}  // namespace

Message TrafficMessage(Order order) { return MessageOf(Car(), order); }

Message ObjectMessage(Order order) { return MessageOf(Object(), order); }

Message PersonMessage(Order order) { return MessageOf(Person(), order); }

Message ScheduleMessage() { return MessageOf(Sample("schedule.json", "/params/config/Recording/0/TimeSection")); }

Message EventMessage() { return Message(Event().dump(), true); }

Message TrafficOfUnreadMembers(std::size_t count) {
    Json car;
    for (std::size_t i = 0; i < count; ++i) car["Unread" + std::to_string(i)] = i;
    car.update(Car());
    return MessageOf(car);
}

Message TrafficOfDuplicates(std::size_t count) {
    std::string members;
    for (std::size_t i = 0; i < count; ++i) members += "\"Speed\":1,";
    return TrafficBehind(members);
}

Message TrafficOfBlanks(std::size_t count) { return TrafficBehind(std::string(count, ' ')); }

Message TrafficOfDeepMembers(std::size_t count) {
    const std::string deep = std::string(64, '[') + std::string(64, ']');
    std::string members;
    for (std::size_t i = 0; i < count; ++i) members += "\"Unread" + std::to_string(i) + "\":" + deep + ',';
    return TrafficBehind(members);
}

Message TrafficOfEscapes(std::size_t count) {
    Json car = Car();
    car["DeviceAddress"] = std::string(count, '\n');
    return MessageOf(car);
}

Message EventOfUnreadText(std::size_t count) {
    Json message = Event();
    message["params"]["Events"][0]["Unread"] = std::string(count, 'x');
    return Message(message.dump(), true);
}

Message ObjectOfPoints(std::size_t count) {
    Json object = Object();
    object["Contour"] = Json::array();
    for (std::size_t i = 0; i < count; ++i) object["Contour"].push_back({i % 8192, 4096});
    return MessageOf(object);
}

Message PersonOfPictures(std::size_t count) {
    Json person = Person();
    const Json picture = person["Image"][0];
    person["Image"] = Json::array();
    for (std::size_t i = 0; i < count; ++i) person["Image"].push_back(picture);
    return MessageOf(person);
}

}  // namespace benchmarks
