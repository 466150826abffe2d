// jsoncpp's reader, and behind it the literal converters or this library's.
#include <json/reader.h>

#include <stdexcept>

#include "benchmarks/literal/literal.h"
#include "benchmarks/text_to_record/road.h"
#include "vkprotocolstack/JsonParser.h"

namespace benchmarks {
namespace {

/// A reader and a tree that are used again.
class Jsoncpp {
  public:
    Jsoncpp() {
        Json::CharReaderBuilder builder;
        builder["collectComments"] = false;
        reader_.reset(builder.newCharReader());
    }

    Json::Value& parse(const Message& message) {
        const std::string_view text = message.text();
        if (!reader_->parse(text.data(), text.data() + text.size(), &root_, nullptr)) {
            throw std::runtime_error("no JSON");
        }
        return message.isEvent() ? root_["params"]["Events"][0]["TrafficCar"] : root_;
    }

  private:
    std::unique_ptr<Json::CharReader> reader_;
    Json::Value root_;
};

class Converters : public Road {
  public:
    Converters() : Road("jsoncpp, converters", Kind::Ours, Checks::Everything) {}

    void read(const Message& message, Car& car) override { ParseStrtoTrafficCar(tree_.parse(message), &car); }
    void read(const Message& message, DetectedObject& object) override {
        ParseStrtoObject(tree_.parse(message), &object);
    }
    void read(const Message& message, Person& person) override {
        ParsePersonInfo(std::move(tree_.parse(message)), person);
    }
    void read(const Message& message, Schedule& schedule) override {
        GetJsonTimeSchedule(tree_.parse(message), schedule);
    }

  private:
    Jsoncpp tree_;
};

class Literal : public Road {
  public:
    Literal() : Road("jsoncpp, literal converters", Kind::Literal, Checks::Everything) {}

    void read(const Message& message, Car& car) override { literal::ParseStrtoTrafficCar(tree_.parse(message), &car); }
    void read(const Message& message, DetectedObject& object) override {
        literal::ParseStrtoObject(tree_.parse(message), &object);
    }
    void read(const Message& message, Person& person) override {
        literal::ParsePersonInfo(tree_.parse(message), person);
    }
    void read(const Message& message, Schedule& schedule) override {
        literal::GetJsonTimeSchedule(tree_.parse(message), schedule);
    }

  private:
    Jsoncpp tree_;
};

}  // namespace

void AddJsoncpp(Roads& roads) {
    roads.push_back(std::make_unique<Converters>());
    roads.push_back(std::make_unique<Literal>());
}

}  // namespace benchmarks
