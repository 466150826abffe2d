// What it costs to get from a Json::Value to a record, and back for schedules: the library's converters against literal
// ones, as ratios. The records that both make of the sample messages are compared before anything is timed.
//
// Contenders run in random order, several times; the least time of each counts. Ends with 1 when a ratio is above its
// bar, with 2 when the records differ. With --calls ROAD CONTENDER COUNT it converts that many times and reports
// nothing, for tools that count instructions:
//     valgrind --tool=callgrind --toggle-collect='*SecondsEach*' jsonparser_value_road --calls traffic ours 1000

#include <benchmark/benchmark.h>
#include <json/reader.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "benchmarks/literal/literal.h"
#include "vkprotocolstack/JsonParser.h"

namespace {

using Car = tagDEV_EVENT_TRAFFIC_TRAFFICCAR_INFO;
using Object = tagVK_MSG_OBJECT_EX2;
using Person = tagFACERECOGNITION_PERSON_INFOEX;
using Schedule = tagCFG_TIME_SCHEDULE;

/// Conversions between two looks at the clock: so many that the looks cost nothing, so few that all nodes stay in
/// cache.
constexpr std::size_t kBatch = 8;

/// Reads a sample message.
Json::Value Sample(const char* file) {
    const std::string path = std::string(JSONPARSER_MESSAGES) + "/" + file;
    std::ifstream stream(path);
    Json::Value message;
    std::string errors;
    if (!Json::parseFromStream(Json::CharReaderBuilder(), stream, &message, &errors)) {
        std::fprintf(stderr, "%s: %s; expected a sample message\n", path.c_str(), errors.c_str());
        std::exit(2);
    }
    return message;
}

/// Converts kBatch times.
/// @return seconds for one conversion
using Contender = std::function<double()>;

struct Road {
    std::string name;
    double bar;  ///< of the ratio of ours to the literal one
    Contender ours;
    Contender literal;
    std::function<bool()> agrees;  ///< whether both make the same of the sample
};

/// Not inlined, so that tools that count instructions find what is timed.
template <class Work>
[[gnu::noinline]] double SecondsEach(Work work) {
    const auto begin = std::chrono::steady_clock::now();
    for (std::size_t i = 0; i < kBatch; ++i) work(i);
    const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - begin;
    return passed.count() / static_cast<double>(kBatch);
}

/// The texts that a record owns, each with its terminator, and "-" for one that is missing. They are released.
std::string TakeTexts(const vkrecords::RecordLayout& layout, void* record) {
    std::string texts;
    for (const vkrecords::Field& field : layout) {
        auto* element = static_cast<unsigned char*>(record) + field.offset;
        for (std::size_t i = 0; i < field.count(); ++i, element += field.elementSize) {
            if (field.kind == vkrecords::FieldKind::Record) texts += TakeTexts(*field.record, element);
            if (field.kind != vkrecords::FieldKind::HeapText) continue;
            char* text = nullptr;
            std::memcpy(&text, element, sizeof text);
            texts += text == nullptr ? "-" : text;
            texts += '\0';
        }
    }
    return texts;
}

/// All bytes of a record, and the texts that it owns in place of their addresses.
template <class Record, class Convert>
std::string Made(const Json::Value& message, Convert convert) {
    const auto record = std::make_unique<Record>();
    Json::Value node = message;
    convert(node, *record);
    std::string bytes = TakeTexts(vkrecords::kLayout<Record>, record.get());
    jsonparser::ReleaseTexts(*record);
    bytes.append(reinterpret_cast<const char*>(record.get()), sizeof(Record));
    return bytes;
}

/// Converts the same node again and again.
template <class Record, class Convert>
Contender Reading(const Json::Value& message, Convert convert) {
    return [node = message, records = std::vector<Record>(kBatch), convert]() mutable {
        const double seconds = SecondsEach([&](std::size_t i) { convert(node, records[i]); });
        for (Record& record : records) jsonparser::ReleaseTexts(record);
        return seconds;
    };
}

/// Converts fresh nodes, since each conversion uses its node up.
template <class Record, class Convert>
Contender ReadingFresh(const Json::Value& message, Convert convert) {
    return [message, records = std::vector<Record>(kBatch), convert]() mutable {
        std::vector<Json::Value> nodes(kBatch, message);
        const double seconds = SecondsEach([&](std::size_t i) { convert(nodes[i], records[i]); });
        for (Record& record : records) jsonparser::ReleaseTexts(record);
        return seconds;
    };
}

template <class Record, class Ours, class Literal>
Road Reader(std::string name, double bar, const Json::Value& message, Ours ours, Literal literal) {
    return {std::move(name), bar, Reading<Record>(message, ours), Reading<Record>(message, literal),
            [=] { return Made<Record>(message, ours) == Made<Record>(message, literal); }};
}

template <class Record, class Ours, class Literal>
Road FreshReader(std::string name, double bar, const Json::Value& message, Ours ours, Literal literal) {
    return {std::move(name), bar, ReadingFresh<Record>(message, ours), ReadingFresh<Record>(message, literal),
            [=] { return Made<Record>(message, ours) == Made<Record>(message, literal); }};
}

/// Writes the record into null nodes.
template <class Record, class Convert>
Contender Writing(const Record& record, Convert convert) {
    return [record, convert] {
        std::vector<Json::Value> nodes(kBatch);
        return SecondsEach([&](std::size_t i) { convert(nodes[i], record); });
    };
}

template <class Record, class Ours, class Literal>
Road Writer(std::string name, double bar, const Record& record, Ours ours, Literal literal) {
    return {std::move(name), bar, Writing(record, ours), Writing(record, literal), [=] {
                Json::Value oursNode;
                Json::Value literalNode;
                ours(oursNode, record);
                literal(literalNode, record);
                return oursNode == literalNode && !oursNode.isNull();
            }};
}

std::vector<Road> Roads() {
    const Json::Value car = Sample("traffic_event.json")["params"]["Events"][0]["TrafficCar"];
    const Json::Value object = Sample("object_event.json")["params"]["Events"][0]["Object"];
    const Json::Value person = Sample("person_query.json")["params"]["Persons"][0];
    const Json::Value rows = Sample("schedule.json")["params"]["config"]["Recording"][0]["TimeSection"];
    Schedule schedule;
    GetJsonTimeSchedule(rows, schedule);

    return {
        Reader<Car>(
            "traffic", 0.28, car, [](Json::Value& node, Car& record) { ParseStrtoTrafficCar(node, &record); },
            [](Json::Value& node, Car& record) { literal::ParseStrtoTrafficCar(node, &record); }),
        Reader<Object>(
            "object", 0.40, object, [](Json::Value& node, Object& record) { ParseStrtoObject(node, &record); },
            [](Json::Value& node, Object& record) { literal::ParseStrtoObject(node, &record); }),
        FreshReader<Person>(
            "person_moved", 0.16, person,
            [](Json::Value& node, Person& record) { ParsePersonInfo(std::move(node), record); },
            [](Json::Value& node, Person& record) { literal::ParsePersonInfo(std::move(node), record); }),
        Reader<Person>(
            "person_copied", 0.42, person, [](Json::Value& node, Person& record) { ParsePersonInfo(node, record); },
            [](Json::Value& node, Person& record) { literal::ParsePersonInfo(node, record); }),
        Reader<Schedule>(
            "schedule", 0.11, rows, [](Json::Value& node, Schedule& record) { GetJsonTimeSchedule(node, record); },
            [](Json::Value& node, Schedule& record) { literal::GetJsonTimeSchedule(node, record); }),
        Writer(
            "schedule_write", 0.45, schedule,
            [](Json::Value& node, const Schedule& record) { SetJsonTimeSchedule(node, record); },
            [](Json::Value& node, const Schedule& record) { literal::SetJsonTimeSchedule(node, record); }),
    };
}

/// Keeps the least time of each contender.
class LeastTimes : public benchmark::BenchmarkReporter {
  public:
    bool ReportContext(const Context& context) override {
        PrintBasicContext(&GetErrorStream(), context);
        return true;
    }

    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            if (run.run_type != Run::RT_Iteration || run.error_occurred) continue;
            const double nanoseconds = 1e9 * run.real_accumulated_time / static_cast<double>(run.iterations);
            const auto [least, isNew] = times_.try_emplace(run.run_name.function_name, nanoseconds);
            if (!isNew) least->second = std::min(least->second, nanoseconds);
        }
    }

    /// @return null for a contender that was not asked for
    const double* of(const std::string& contender) const {
        const auto found = times_.find(contender);
        return found == times_.end() ? nullptr : &found->second;
    }

  private:
    std::map<std::string, double> times_;
};

/// @return whether no ratio is above its bar
bool PrintRatios(const std::vector<Road>& roads, const LeastTimes& times) {
    bool within = true;
    std::printf("| road | ours, ns | literal, ns | ratio | bar |\n|---|---:|---:|---:|---:|\n");
    for (const Road& road : roads) {
        const double* ours = times.of(road.name + ":ours");
        const double* literal = times.of(road.name + ":literal");
        if (ours == nullptr || literal == nullptr) continue;
        const double ratio = *ours / *literal;
        within = within && ratio <= road.bar;
        std::printf("| %s | %.0f | %.0f | %.3f | %.2f%s |\n", road.name.c_str(), *ours, *literal, ratio, road.bar,
                    ratio <= road.bar ? "" : ", missed");
    }
    return within;
}

int Call(const std::vector<Road>& roads, const std::string& name, const std::string& contender, const char* count) {
    const auto road = std::find_if(roads.begin(), roads.end(), [&](const Road& each) { return each.name == name; });
    const unsigned long calls = std::strtoul(count, nullptr, 10);
    if (road == roads.end() || (contender != "ours" && contender != "literal") || calls == 0 || calls % kBatch != 0) {
        std::fprintf(stderr, "--calls %s %s %s: expected a road, ours or literal, and a multiple of %zu\n",
                     name.c_str(), contender.c_str(), count, kBatch);
        return 2;
    }
    const Contender& convert = contender == "ours" ? road->ours : road->literal;
    for (unsigned long i = 0; i < calls; i += kBatch) convert();
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    const std::vector<Road> roads = Roads();
    for (const Road& road : roads) {
        if (road.agrees()) continue;
        std::fprintf(stderr, "%s: the literal converter's result differs; expected the same bytes\n",
                     road.name.c_str());
        return 2;
    }
    if (argc == 5 && std::string(argv[1]) == "--calls") return Call(roads, argv[2], argv[3], argv[4]);

    // Google Benchmark's own arguments come behind these and so have the last word.
    std::vector<std::string> defaults{"--benchmark_repetitions=20", "--benchmark_min_time=0.02",
                                      "--benchmark_enable_random_interleaving=true"};
    std::vector<char*> arguments{argv[0]};
    for (std::string& argument : defaults) arguments.push_back(argument.data());
    arguments.insert(arguments.end(), argv + 1, argv + argc);
    int count = static_cast<int>(arguments.size());
    arguments.push_back(nullptr);
    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) return 2;

    const auto measure = [](benchmark::State& state, const Contender& convert) {
        for (auto _ : state) state.SetIterationTime(convert());
    };
    for (const Road& road : roads) {
        benchmark::RegisterBenchmark((road.name + ":ours").c_str(), measure, road.ours)->UseManualTime();
        benchmark::RegisterBenchmark((road.name + ":literal").c_str(), measure, road.literal)->UseManualTime();
    }
    LeastTimes times;
    benchmark::RunSpecifiedBenchmarks(&times);
    return PrintRatios(roads, times) ? 0 : 1;
}
