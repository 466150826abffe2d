// Instructions of every converter while its input doubles, for scripts/growth: dumped by callgrind under
// "<length> <converter>, <what grows>", each length followed by its double.

#include <valgrind/callgrind.h>

#include <cstdlib>
#include <functional>
#include <set>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "fuzz/converters.h"
#include "places.h"
#include "testing/json.h"
#include "vkprotocolstack/JsonParser.h"

namespace reliability {
namespace {

using fuzz::Memory;
using fuzz::Reader;

/// Lengths within what records hold, as a rule, and beyond. From some length between on, the C library moves memory by
/// an instruction that counts once for each byte: no pair of lengths stands on both sides of that. Memory for a
/// message's values begins with 256 and doubles, and what was in it is copied: many are so many that this beginning no
/// longer shows.
constexpr Json::ArrayIndex kFew = 8;
constexpr Json::ArrayIndex kMany = 2048;
constexpr Json::ArrayIndex kShortText = 16;
constexpr Json::ArrayIndex kLongText = 4096;

/// Counts one call of convert, behind one that is not counted; prepare goes before each. Each is on a thread of its
/// own: what a thread keeps for the next call, and only up to some length, is none of it.
void Count(const std::string& name, std::size_t length, const std::function<void()>& prepare,
           const std::function<void()>& convert) {
    prepare();
    std::thread(convert).join();
    prepare();
    std::thread([&convert] {
        CALLGRIND_TOGGLE_COLLECT;
        convert();
        CALLGRIND_TOGGLE_COLLECT;
    }).join();
    const std::string trigger = std::to_string(length) + ' ' + name;
    CALLGRIND_DUMP_STATS_AT(trigger.c_str());
}

/// Counts what the reader takes for messages of a length and its double, by both roads.
void CountReader(const Reader& reader, const std::string& what, Json::ArrayIndex length,
                 const std::function<Json::Value(Json::ArrayIndex)>& messageOf) {
    Memory memory(reader.target);
    const std::string name = std::string(reader.name) + ", " + what;
    const auto clear = [&memory] { memory.fill(""); };
    for (const Json::ArrayIndex n : {length, 2 * length}) {
        Json::Value node = messageOf(n);
        Count(name + ", value", n, clear, [&] { reader.value(node, memory.get()); });
    }
    for (const Json::ArrayIndex n : {length, 2 * length}) {
        const std::string text = testing_tools::Text(messageOf(n));
        Count(name + ", text", n, clear, [&] {
            jsonparser::MessageText source(text);
            reader.text(source.at(""), memory.get());
        });
    }
}

/// The arrays that a reader looks into.
std::set<Path> ArraysOf(const Places& places) {
    std::set<Path> arrays;
    for (const auto& [path, filling] : places) {
        if (!path.empty() && std::holds_alternative<Json::ArrayIndex>(path.back())) {
            arrays.emplace(path.begin(), path.end() - 1);
        }
    }
    return arrays;
}

/// Elements of an array of these are found by steps from one to the next.
const Json::Value kArray = testing_tools::Json("[[1]]");

void CountReader(const Reader& reader) {
    const Places& places = PlacesOf(reader);
    const Filling segments{"1 08:00:00-17:30:00", 4, true};
    for (const Json::ArrayIndex length : {kShortText, kLongText}) {
        CountReader(reader, "texts", length, [&](Json::ArrayIndex n) {
            return Message(places, {std::string(n, 'x'), 4, true});
        });
        CountReader(reader, "texts of two-byte characters", length, [&](Json::ArrayIndex n) {
            std::string text;
            for (Json::ArrayIndex i = 0; i < n; i += 2) text += "é";
            return Message(places, {text, 4, true});
        });
    }
    // Twice as many again: members that are read stand beside these, and one array at many places.
    for (const Json::ArrayIndex length : {kFew, 2 * kMany}) {
        CountReader(reader, "unknown members", length, [&](Json::ArrayIndex n) {
            Json::Value message = Message(places, {"x", 4, false});
            if (!message.isObject()) message = Json::Value(Json::objectValue);
            for (Json::ArrayIndex i = 0; i < n; ++i) message["Unknown" + std::to_string(10000 + i)] = 1;
            return message;
        });
        CountReader(reader, "arrays in place of scalars", length, [&](Json::ArrayIndex n) {
            Json::Value array(Json::arrayValue);
            for (Json::ArrayIndex i = 0; i < n; ++i) array.append(1);
            return Message(places, {array, 4, true});
        });
    }
    for (const Json::ArrayIndex length : {kFew, kMany}) {
        for (const Path& path : ArraysOf(places)) {
            const auto ofLength = [&](Json::ArrayIndex n, const Json::Value* element) {
                Json::Value message = Message(places, segments);
                Json::Value& array = testing_tools::At(message, Pointer(path));
                const Json::Value repeated = element == nullptr ? array[3] : *element;
                array.resize(3);
                while (array.size() < n) array.append(repeated);
                return message;
            };
            CountReader(reader, "array " + Pointer(path), length,
                        [&](Json::ArrayIndex n) { return ofLength(n, nullptr); });
            CountReader(reader, "arrays in array " + Pointer(path), length,
                        [&](Json::ArrayIndex n) { return ofLength(n, &kArray); });
        }
    }
}

/// Readers that take as many elements as the caller has room for.
void CountReadersIntoArrays() {
    const auto count = [](const std::string& name, auto read) {
        for (const bool ofArrays : {false, true}) {
            for (const Json::ArrayIndex length : {kFew, kMany}) {
                for (const Json::ArrayIndex n : {length, 2 * length}) {
                    Json::Value value(Json::arrayValue);
                    for (Json::ArrayIndex i = 0; i < n; ++i) value.append(ofArrays ? kArray : Json::Value("Log"));
                    const std::string text = testing_tools::Text(value);
                    Count(
                        name + (ofArrays ? ", arrays" : ", texts"), n, [] {},
                        [&] {
                            jsonparser::MessageText source(text);
                            read(source.at(""), static_cast<int>(n));
                        });
                }
            }
        }
    };
    std::vector<int> types(2 * kMany);
    std::vector<tagVK_TSECT> sections(2 * kMany);
    std::vector<tagCFG_TIME_SECTION> maskedSections(2 * kMany);
    std::vector<tagNET_TIME_SECTION> group(2 * kMany);
    using jsonparser::MessagePlace;
    count("GetJsonLogType, all", [&](MessagePlace place, int n) { GetJsonLogType(place, types.data(), n, n); });
    count("GetJsonTimeSchedule, rows",
          [&](MessagePlace place, int n) { GetJsonTimeSchedule(place, sections.data(), n, 1, nullptr); });
    count("GetJsonTimeSchedule, masked rows",
          [&](MessagePlace place, int n) { GetJsonTimeSchedule(place, maskedSections.data(), n, 1, nullptr); });
    count("GetJsonTimeGroup/1, segments",
          [&](MessagePlace place, int n) { GetJsonTimeGroup(place, maskedSections.data(), n); });
    count("GetJsonTimeGroup/2, segments", [&](MessagePlace place, int n) { GetJsonTimeGroup(place, group.data(), n); });
}

/// Writers whose input has a length.
void CountWriters() {
    const auto count = [](const std::string& name, std::size_t length,
                          const std::function<void(Json::Value&, int)>& write) {
        for (const std::size_t n : {length, 2 * length}) {
            Json::Value node;
            Count(
                name, n, [&node] { node = Json::Value(); }, [&] { write(node, static_cast<int>(n)); });
        }
    };
    std::string text(2 * kLongText, 'x');
    const std::vector<tagVK_TSECT> sections(2 * kMany);
    const std::vector<tagCFG_TIME_SECTION> maskedSections(2 * kMany);
    const std::vector<tagNET_TIME_SECTION> group(2 * kMany);
    for (const std::size_t length : {kShortText, kLongText}) {
        count("packetAssicToUtf8Jason", length,
              [&text](Json::Value& node, int n) { packetAssicToUtf8Jason(node, text.data(), n); });
    }
    for (const std::size_t length : {kFew, kMany}) {
        count("SetJsonTimeSchedule, rows", length,
              [&](Json::Value& node, int n) { SetJsonTimeSchedule(node, sections.data(), n, 1); });
        count("SetJsonTimeSchedule, segments", length,
              [&](Json::Value& node, int n) { SetJsonTimeSchedule(node, maskedSections.data(), 1, n); });
        count("SetJsonTimeGroup/1", length,
              [&](Json::Value& node, int n) { SetJsonTimeGroup(node, maskedSections.data(), n); });
        count("SetJsonTimeGroup/2", length, [&](Json::Value& node, int n) { SetJsonTimeGroup(node, group.data(), n); });
    }
    jsonparser::Owned<tagFACERECOGNITION_PERSON_INFO> person;
    count("PacketPersonInfo/1, pictures", 24, [&person](Json::Value& node, int n) {
        person->wFacePicNum = static_cast<unsigned short>(n);
        PacketPersonInfo(node, *person);
    });
    jsonparser::Owned<tagFACERECOGNITION_PERSON_INFOEX> personEx;
    count("PacketPersonInfo/2, pictures", 24, [&personEx](Json::Value& node, int n) {
        personEx->wFacePicNum = static_cast<unsigned short>(n);
        PacketPersonInfo(node, *personEx);
    });
}

void CountTextReaders() {
    for (const fuzz::TextReader& reader : fuzz::TextReaders()) {
        for (const std::size_t length : {kShortText, kLongText}) {
            for (const std::size_t n : {length, 2 * length}) {
                const std::string text(n, 'x');
                Count(
                    std::string(reader.name), n, [] {}, [&] { reader.read(text); });
            }
        }
    }
}

}  // namespace
}  // namespace reliability

/// Arguments name the readers to count; without them it is all, and what is no reader.
int main(int argc, char** argv) {
    const std::set<std::string_view> chosen(argv + 1, argv + argc);
    std::vector<const fuzz::Reader*> readers;
    for (const fuzz::Reader& reader : fuzz::Readers()) {
        if (!chosen.empty() && !chosen.contains(reader.name)) continue;
        readers.push_back(&reader);
        reliability::PlacesOf(reader);
    }
    CALLGRIND_START_INSTRUMENTATION;
    for (const fuzz::Reader* reader : readers) reliability::CountReader(*reader);
    if (!chosen.empty()) return 0;
    reliability::CountReadersIntoArrays();
    reliability::CountWriters();
    reliability::CountTextReaders();
    return 0;
}
