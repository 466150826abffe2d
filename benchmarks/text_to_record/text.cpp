// This library's converters on a message's text.
#include "benchmarks/text_to_record/road.h"
#include "vkprotocolstack/JsonParser.h"
#include "vkprotocolstack/message_text.h"

namespace benchmarks {
namespace {

class Text : public Road {
  public:
    Text(std::string name, Checks checks) : Road(std::move(name), Kind::Ours, checks) {
        options_.skipOthers = checks == Checks::WhatIsRead;
    }

    void read(const Message& message, Car& car) override {
        jsonparser::MessageText body(message.text(), options_);
        ParseStrtoTrafficCar(body.at(message.isEvent() ? kCarInEvent : ""), &car);
    }
    void read(const Message& message, DetectedObject& object) override {
        jsonparser::MessageText body(message.text(), options_);
        ParseStrtoObject(body.at(""), &object);
    }
    void read(const Message& message, Person& person) override {
        jsonparser::MessageText body(message.text(), options_);
        ParsePersonInfo(body.at(""), person);
    }
    void read(const Message& message, Schedule& schedule) override {
        jsonparser::MessageText body(message.text(), options_);
        GetJsonTimeSchedule(body.at(""), schedule);
    }

  private:
    jsonparser::MessageTextOptions options_;
};

}  // namespace

void AddText(Roads& roads) {
    roads.push_back(std::make_unique<Text>("text", Road::Checks::Everything));
    roads.push_back(std::make_unique<Text>("text, skipping", Road::Checks::WhatIsRead));
}

}  // namespace benchmarks
