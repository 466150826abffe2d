// From message text to record: the roads of this library, and programs written with other JSON libraries. Before
// anything is timed, all of them must make the same records, byte for byte.
#include "benchmarks/text_to_record/text_to_record_benchmark.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstring>
#include <stdexcept>

#include "benchmarks/text_to_record/road.h"
#include "vkprotocolstack/JsonParser.h"

namespace benchmarks {
namespace {

Roads AllRoads() {
    Roads roads;
    AddJsoncpp(roads);
    AddText(roads);
    AddNlohmann(roads);
    AddRapidJson(roads);
#ifdef BENCHMARKS_BOOST_JSON
    AddBoostJson(roads);
#endif
    AddSimdjson(roads);
    AddSimdjsonNative(roads);
#ifdef BENCHMARKS_YYJSON
    AddYyjson(roads);
#endif
#ifdef BENCHMARKS_GLAZE
    AddGlaze(roads);
#endif
    return roads;
}

Roads& TheRoads() {
    static Roads roads = AllRoads();
    return roads;
}

template <class Wanted>
std::vector<Road*> RoadsOf(Wanted wanted) {
    std::vector<Road*> found;
    for (const auto& road : TheRoads()) {
        if (wanted(*road)) found.push_back(road.get());
    }
    return found;
}

/// What scripts/bench_report.py needs to know of a road.
std::string LabelOf(const Road& road) {
    constexpr const char* kKinds[] = {"ours", "literal", "debian", "other"};
    const char* checks = road.checks() == Road::Checks::Everything ? "everything" : "what is read";
    return std::string(kKinds[static_cast<int>(road.kind())]) + ", checks " + checks;
}

// ---- heap texts, released in the timed part: by hand, since that costs the least

void Release(Car& car) {
    delete[] car.pszDeviceAddress;
    delete[] car.pszMachineAddress;
    delete[] car.pszDetailedAddress;
}

void Release(DetectedObject& object) { delete[] object.pszFilePath; }

void Release(Person& person) {
    for (unsigned i = 0; i < person.wFacePicNum; ++i) {
        delete[] person.stuFacePicInfo[i].pszFilePath;
        person.stuFacePicInfo[i].pszFilePath = nullptr;
    }
}

void Release(Schedule&) {}

// ---- the same records

/// The texts that a record owns, each with its terminator; their addresses become null.
std::string TakeTexts(const vkrecords::RecordLayout& layout, unsigned char* record) {
    std::string texts;
    for (const vkrecords::Field& field : layout) {
        unsigned char* element = record + field.offset;
        for (std::size_t i = 0; i < field.count(); ++i, element += field.elementSize) {
            if (field.kind == vkrecords::FieldKind::Record) texts += TakeTexts(*field.record, element);
            if (field.kind != vkrecords::FieldKind::HeapText) continue;
            char* text = nullptr;
            std::memcpy(&text, element, sizeof text);
            if (text != nullptr) texts.append(text, std::strlen(text) + 1);
            delete[] text;
            std::memset(element, 0, sizeof text);
        }
    }
    return texts;
}

/// A record's bytes, and the texts that it owns in place of their addresses.
template <class Record>
std::string Made(Road& road, const Message& message) {
    Record record;
    auto* const bytes = reinterpret_cast<unsigned char*>(&record);
    std::memset(bytes, 0, sizeof record);
    road.read(message, record);
    const std::string texts = TakeTexts(vkrecords::kLayout<Record>, bytes);
    return std::string(reinterpret_cast<const char*>(bytes), sizeof record) + texts;
}

struct Difference : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// Throws Difference when one of the roads does not make the record that the first one makes.
template <class Record>
void Compare(const std::string& name, const Message& message, const std::vector<Road*>& roads) {
    const std::string expected = Made<Record>(*roads.front(), message);
    for (Road* road : roads) {
        std::string made;
        try {
            made = Made<Record>(*road, message);
        } catch (const std::exception& error) {
            throw Difference(name + ": " + road->name() + " does not read it: " + error.what());
        }
        if (made == expected) continue;
        const auto place =
            std::mismatch(made.begin(), made.end(), expected.begin(), expected.end()).first - made.begin();
        throw Difference(name + ": " + road->name() + " makes another record, from byte " + std::to_string(place) +
                         " on, than " + roads.front()->name());
    }
}

// ---- measuring

template <class Record>
void Measure(benchmark::State& state, Road& road, const Message& message) {
    Record record;
    std::memset(static_cast<void*>(&record), 0, sizeof record);
    for (auto _ : state) {
        road.read(message, record);
        benchmark::DoNotOptimize(record);
        Release(record);
    }
    state.SetLabel(LabelOf(road));
}

/// Registers message/NAME/ROAD for every road.
template <class Record>
void Register(const std::string& name, const Message& message) {
    const std::vector<Road*> roads = RoadsOf([](const Road&) { return true; });
    Compare<Record>(name, message, roads);
    for (Road* road : roads) {
        benchmark::RegisterBenchmark(
            ("message/" + name + "/" + road->name()).c_str(),
            [road, message](benchmark::State& state) { Measure<Record>(state, *road, message); });
    }
}

/// Registers growth/NAME/ROAD/SIZE for our roads, for sizes that double.
template <class Record>
void RegisterGrowth(const std::string& name, std::size_t from, std::size_t to, Message (*make)(std::size_t)) {
    const std::vector<Road*> ours = RoadsOf([](const Road& road) { return road.kind() == Road::Kind::Ours; });
    for (std::size_t size = from; size <= to; size *= 2) {
        const Message message = make(size);
        Compare<Record>(name + " of " + std::to_string(size), message, ours);
        for (Road* road : ours) {
            benchmark::RegisterBenchmark(
                ("growth/" + name + "/" + road->name() + "/" + std::to_string(size)).c_str(),
                [road, message](benchmark::State& state) { Measure<Record>(state, *road, message); });
        }
    }
}

}  // namespace

void RegisterTextToRecord() {
    Register<Car>("traffic", TrafficMessage());
    Register<DetectedObject>("object", ObjectMessage());
    Register<Person>("person", PersonMessage());
    Register<Schedule>("schedule", ScheduleMessage());
    Register<Car>("event", EventMessage());
    Register<Car>("traffic shuffled", TrafficMessage(Order::Shuffled));
    Register<DetectedObject>("object shuffled", ObjectMessage(Order::Shuffled));
    Register<Person>("person shuffled", PersonMessage(Order::Shuffled));
    RegisterGrowth<Car>("unread members", 64, 4096, TrafficOfUnreadMembers);
    RegisterGrowth<Car>("duplicates", 64, 4096, TrafficOfDuplicates);
    RegisterGrowth<Car>("blanks", 1024, 65536, TrafficOfBlanks);
    RegisterGrowth<Car>("deep members", 16, 1024, TrafficOfDeepMembers);
    RegisterGrowth<Car>("escapes", 256, 16384, TrafficOfEscapes);
    RegisterGrowth<Car>("unread text", 4096, 262144, EventOfUnreadText);
    RegisterGrowth<DetectedObject>("points", 64, 4096, ObjectOfPoints);
    RegisterGrowth<Person>("pictures", 64, 4096, PersonOfPictures);
}

}  // namespace benchmarks
