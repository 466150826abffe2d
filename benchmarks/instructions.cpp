// A fixed piece of work for counting instructions under callgrind: each road of this library, its instructions dumped
// under its name. Prints what kind of processor it runs on, since the C library and the roads choose by that.

#include <json/reader.h>
#include <valgrind/callgrind.h>

#include <array>
#include <cstdio>
#include <memory>
#include <stdexcept>
#include <utility>
#include <vector>

#include "benchmarks/text_to_record/messages.h"
#include "vkprotocolstack/JsonParser.h"
#include "vkprotocolstack/message_text.h"

namespace {

using benchmarks::Message;

/// Conversions that are counted: scripts/instructions divides by it.
constexpr int kCalls = 10;

/// Counts kCalls calls of convert, behind one that is not counted.
template <class Convert>
void Count(const char* name, Convert convert) {
    convert();
    CALLGRIND_TOGGLE_COLLECT;
    for (int i = 0; i < kCalls; ++i) convert();
    CALLGRIND_TOGGLE_COLLECT;
    CALLGRIND_DUMP_STATS_AT(name);
}

/// A record for each call, so that clearing and releasing are not counted.
template <class Record>
class Places {
  public:
    Record& next() { return *records_[used_++]; }

  private:
    std::array<jsonparser::Owned<Record>, kCalls + 1> records_;
    std::size_t used_ = 0;
};

Json::Value Tree(const Message& message) {
    Json::Value tree;
    const std::string_view text = message.text();
    const std::unique_ptr<Json::CharReader> reader(Json::CharReaderBuilder().newCharReader());
    if (!reader->parse(text.data(), text.data() + text.size(), &tree, nullptr)) throw std::runtime_error("no JSON");
    return tree;
}

template <class Record, class Convert>
void CountText(const char* name, const Message& message, const char* at, bool skipOthers, Convert convert) {
    Places<Record> places;
    jsonparser::MessageTextOptions options;
    options.skipOthers = skipOthers;
    Count(name, [&] {
        jsonparser::MessageText body(message.text(), options);
        convert(body.at(at), places.next());
    });
}

void CountTextToRecord() {
    using jsonparser::MessagePlace;
    using Car = tagDEV_EVENT_TRAFFIC_TRAFFICCAR_INFO;
    const auto car = [](MessagePlace place, Car& record) { ParseStrtoTrafficCar(place, &record); };
    CountText<Car>("text to record: traffic", benchmarks::TrafficMessage(), "", false, car);
    CountText<Car>("text to record: event", benchmarks::EventMessage(), benchmarks::kCarInEvent, false, car);
    CountText<Car>("text to record: event, skipping", benchmarks::EventMessage(), benchmarks::kCarInEvent, true, car);

    using Object = tagVK_MSG_OBJECT_EX2;
    CountText<Object>("text to record: object", benchmarks::ObjectMessage(), "", false,
                      [](MessagePlace place, Object& record) { ParseStrtoObject(place, &record); });

    using Person = tagFACERECOGNITION_PERSON_INFOEX;
    CountText<Person>("text to record: person", benchmarks::PersonMessage(), "", false,
                      [](MessagePlace place, Person& record) { ParsePersonInfo(place, record); });

    using Schedule = tagCFG_TIME_SCHEDULE;
    CountText<Schedule>("text to record: schedule", benchmarks::ScheduleMessage(), "", false,
                        [](MessagePlace place, Schedule& record) { GetJsonTimeSchedule(place, record); });
}

void CountValueToRecord() {
    Places<tagDEV_EVENT_TRAFFIC_TRAFFICCAR_INFO> car;
    Json::Value node = Tree(benchmarks::TrafficMessage());
    Count("value to record: traffic", [&] { ParseStrtoTrafficCar(node, &car.next()); });

    Places<tagVK_MSG_OBJECT_EX2> object;
    node = Tree(benchmarks::ObjectMessage());
    Count("value to record: object", [&] { ParseStrtoObject(node, &object.next()); });

    Places<tagFACERECOGNITION_PERSON_INFOEX> person;
    node = Tree(benchmarks::PersonMessage());
    Count("value to record: person, copied", [&] { ParsePersonInfo(node, person.next()); });
    Places<tagFACERECOGNITION_PERSON_INFOEX> personMoved;
    std::vector<Json::Value> nodes(kCalls + 1, node);
    std::size_t moved = 0;
    Count("value to record: person, moved", [&] { ParsePersonInfo(std::move(nodes[moved++]), personMoved.next()); });

    Places<tagCFG_TIME_SCHEDULE> schedule;
    node = Tree(benchmarks::ScheduleMessage());
    Count("value to record: schedule", [&] { GetJsonTimeSchedule(node, schedule.next()); });
}

void CountRecordToValue() {
    jsonparser::Owned<tagFACERECOGNITION_PERSON_INFOEX> person;
    ParsePersonInfo(Tree(benchmarks::PersonMessage()), *person);
    Count("record to value: person", [&] {
        Json::Value node;
        PacketPersonInfo(node, *person);
    });

    tagCFG_TIME_SCHEDULE schedule;
    GetJsonTimeSchedule(Tree(benchmarks::ScheduleMessage()), schedule);
    Count("record to value: schedule", [&] {
        Json::Value node;
        SetJsonTimeSchedule(node, schedule);
    });

    const tagNET_TIME_EX time{2024, 1, 5, 9, 30, 0, 250, 0, 0};
    Count("record to value: time", [&] {
        Json::Value node;
        SetJsonTime(node, time);
    });
}

}  // namespace

int main() {
    try {
        CountTextToRecord();
        CountValueToRecord();
        CountRecordToValue();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "instructions: %s\n", error.what());
        return 1;
    }
#ifdef __x86_64__
    std::puts(__builtin_cpu_supports("avx2") ? "x86-64 with AVX2" : "x86-64 without AVX2");
#else
    std::puts("another processor than x86-64");
#endif
    return 0;
}
