// Every place where any reader looks, holding every hostile value.

#include <gtest/gtest.h>

#include <algorithm>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <functional>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "fuzz/converters.h"
#include "fuzz/text_road_case.h"
#include "places.h"
#include "testing/json.h"
#include "vkprotocolstack/JsonParser.h"
#include "vkprotocolstack/message_text.h"

namespace reliability {
namespace {

using fuzz::Memory;
using fuzz::Reader;

Json::Value Nested(int depth) {
    Json::Value value = 1;
    for (int i = 0; i < depth; ++i) {
        Json::Value outer;
        outer.append(std::move(value));
        value = std::move(outer);
    }
    return value;
}

/// The shared values, and longer ones.
std::vector<Json::Value> Hostile() {
    std::vector<Json::Value> values = testing_tools::HostileValues();
    values.emplace_back(std::string(1 << 20, 'x'));
    Json::Value many(Json::arrayValue);
    for (int i = 0; i < 10000; ++i) many.append(i);
    values.push_back(many);
    values.push_back(Nested(64));
    return values;
}

/// At every address that the target may have.
void Read(const Reader& reader, Json::Value& node) {
    for (const std::size_t placement : {0U, 4U}) {
        if (placement % reader.target.alignment != 0) continue;
        Memory memory(reader.target, placement);
        ASSERT_NO_THROW(reader.value(node, memory.get()));
        ASSERT_TRUE(memory.guardsIntact()) << "written outside";
    }
}

class EveryReader : public testing::TestWithParam<const Reader*> {};

TEST_P(EveryReader, TakesAnyValueWhereverItLooks) {
    const Reader& reader = *GetParam();
    const Places& places = PlacesOf(reader);
    std::vector<Json::Value> values = Hostile();
    ASSERT_GE(values.size(), 24U);
    for (const auto& [path, filling] : places) {
        Json::Value message = Message(places, filling);
        Json::Value& place = testing_tools::At(message, Pointer(path));
        for (std::size_t i = 0; i < values.size(); ++i) {
            place.swap(values[i]);
            Read(reader, message);
            ASSERT_FALSE(HasFatalFailure()) << reader.name << " at " << Pointer(path) << ", hostile value " << i;
            place.swap(values[i]);
        }
    }
}

TEST_P(EveryReader, TakesAnyTextWhereverItLooks) {
    const Reader& reader = *GetParam();
    const Places& places = PlacesOf(reader);
    constexpr fuzz::Way kRoot{"", "", ""};
    std::vector<Json::Value> values;
    for (const Json::Value& value : Hostile()) {
        const bool isLarge = value.isArray() ? value.size() > 100 : value.isString() && value.asString().size() > 1000;
        if (!isLarge) values.push_back(value);
    }
    ASSERT_GE(values.size(), 24U);
    unsigned form = 0;
    for (const auto& [path, filling] : places) {
        Json::Value message = Message(places, filling);
        Json::Value& place = testing_tools::At(message, Pointer(path));
        for (Json::Value& value : values) {
            place.swap(value);
            const fuzz::Case test{&reader, &kRoot, testing_tools::Text(message), {}, form++ % 3, false};
            place.swap(value);
            ASSERT_EQ(fuzz::DifferenceOf(test), "") << Pointer(path);
        }
    }
}

/// Without this, a reader that looks at something only beside something else would go untested unnoticed.
TEST_P(EveryReader, LooksNowhereElseInTheSamples) {
    const Places& places = PlacesOf(*GetParam());
    for (const Json::Value& sample : Samples(*GetParam())) {
        for (const Path& path : Looks(*GetParam(), sample)) {
            EXPECT_TRUE(places.contains(path)) << GetParam()->name << " at " << Pointer(path);
        }
    }
}

/// Seconds of this thread's time.
double TimeOf(const std::function<void()>& call) {
    const auto now = [] {
        timespec time;
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
    };
    const double begin = now();
    call();
    return now() - begin;
}

/// Steps from one array to the next: as many as their number squared take seconds, as many as their number a
/// millisecond.
constexpr Json::ArrayIndex kManyArrays = 100000;
constexpr double kSecondsForAll = 2;

/// A message with an array of arrays at a place.
std::string WithArraysAt(Json::Value message, const Path& path) {
    testing_tools::At(message, Pointer(path)) = "here";
    std::string arrays = "[[1]";
    for (Json::ArrayIndex i = 1; i < kManyArrays; ++i) arrays += ",[1]";
    arrays += ']';
    std::string text = testing_tools::Text(message);
    return text.replace(text.find("\"here\""), 6, arrays);
}

TEST_P(EveryReader, WalksAnArrayOfArraysOnce) {
    const Places& places = PlacesOf(*GetParam());
    for (const auto& [path, filling] : places) {
        const bool isElement = !path.empty() && std::holds_alternative<Json::ArrayIndex>(path.back());
        if (!isElement || std::get<Json::ArrayIndex>(path.back()) != 0) continue;
        const Path array(path.begin(), path.end() - 1);
        const std::string text = WithArraysAt(Message(places, filling), array);
        Memory memory(GetParam()->target);
        const double seconds = TimeOf([&] {
            jsonparser::MessageText source(text);
            GetParam()->text(source.at(""), memory.get());
            EXPECT_TRUE(source.accepted());
        });
        EXPECT_LT(seconds, kSecondsForAll) << Pointer(array);
    }
}

/// Those that take as many elements as the caller has room for.
TEST(ReadersIntoArrays, WalkAnArrayOfArraysOnce) {
    const std::string text = WithArraysAt(Json::Value(), {});
    constexpr int kAll = kManyArrays;
    int count = 0;
    std::vector<int> types(kManyArrays);
    std::vector<tagVK_TSECT> sections(kManyArrays);
    std::vector<tagCFG_TIME_SECTION> masked(kManyArrays);
    std::vector<tagNET_TIME_SECTION> group(kManyArrays);
    const std::function<void(jsonparser::MessagePlace)> readers[] = {
        [&](jsonparser::MessagePlace at) { GetJsonLogType(at, types.data(), kAll, count); },
        [&](jsonparser::MessagePlace at) { GetJsonTimeSchedule(at, sections.data(), kAll, 1, nullptr); },
        [&](jsonparser::MessagePlace at) { GetJsonTimeSchedule(at, masked.data(), kAll, 1, nullptr); },
        [&](jsonparser::MessagePlace at) { GetJsonTimeGroup(at, masked.data(), kAll); },
        [&](jsonparser::MessagePlace at) { GetJsonTimeGroup(at, group.data(), kAll); },
    };
    for (const auto& read : readers) {
        const double seconds = TimeOf([&] {
            jsonparser::MessageText source(text);
            read(source.at(""));
            EXPECT_TRUE(source.accepted());
        });
        EXPECT_LT(seconds, kSecondsForAll) << &read - readers;
    }
}

std::vector<const Reader*> AllReaders() {
    std::vector<const Reader*> readers;
    for (const Reader& reader : fuzz::Readers()) readers.push_back(&reader);
    return readers;
}

INSTANTIATE_TEST_SUITE_P(All, EveryReader, testing::ValuesIn(AllReaders()), [](const auto& reader) {
    std::string name;
    for (const char byte : reader.param->name) {
        if (std::isalnum(static_cast<unsigned char>(byte)) != 0) name += byte;
    }
    return name;
});

TEST(EveryTextReader, TakesAnyText) {
    for (const fuzz::TextReader& reader : fuzz::TextReaders()) {
        EXPECT_NE(reader.read(std::string(reader.known)), reader.read("")) << reader.name;
        for (const Json::Value& value : Hostile()) {
            if (!value.isString()) continue;
            EXPECT_NO_THROW(reader.read(value.asString())) << reader.name;
        }
    }
}

TEST(EveryNumberConverter, TakesAnyNumber) {
    for (const fuzz::NumberConverter& converter : fuzz::NumberConverters()) {
        EXPECT_NE(converter.convert(converter.known), converter.convert(0)) << converter.name;
        for (const long number : NumbersFor(converter)) EXPECT_NO_THROW(converter.convert(number)) << converter.name;
    }
}

/// Without this, a new function would go untested unnoticed. Releasing what a record owns is tested with every reader.
TEST(Converters, AreAllThatTheContractHasButTheReleaseOfTexts) {
    std::string tested;
    const auto add = [&tested](const auto& converters) {
        for (const auto& converter : converters) tested += std::string(converter.name) + '\n';
    };
    add(fuzz::Readers());
    add(fuzz::Writers());
    add(fuzz::TextReaders());
    add(fuzz::NumberConverters());
    std::ifstream contract(JSONPARSER_CONVERTERS "/JsonParser.h");
    static const std::regex kClass(R"(^(?:class|struct) (?:VK_API )?(\w+) \{)");
    static const std::regex kMember(R"(^    (?:static bool|long long) (\w+)\()");
    static const std::regex kFunction(R"(^VK_API .*?(\w+)\()");
    std::set<std::string> names;
    std::string className;
    for (std::string line; std::getline(contract, line);) {
        std::smatch match;
        if (std::regex_search(line, match, kClass)) className = match[1];
        if (std::regex_search(line, match, kMember)) {
            names.insert(className + (match[1] == "operator" ? "" : "::" + match[1].str()));
        }
        if (std::regex_search(line, match, kFunction)) names.insert(match[1]);
    }
    EXPECT_EQ(names.erase("ReleaseTexts"), 1U);
    EXPECT_GT(names.size(), 70U);
    for (const std::string& name : names) {
        EXPECT_TRUE(std::regex_search(tested, std::regex("\\b" + name + "\\b"))) << name;
    }
}

/// Typed from the contracts.
TEST(PlacesOfReaders, AreFoundHoweverDeep) {
    const std::multimap<std::string, std::string> known{
        {"GetJsonTimeSchedule/2",  "/1/1"                                     },
        {"GetJsonTimeSchedule/1",  "/3/3"                                     },
        {"ParseStrtoObject/3",     "/SynopsisExtra/Direction/0/0"             },
        {"ParseStrtoObject/3",     "/SynopsisExtra/Direction/1/1"             },
        {"ParseStrtoObject/1",     "/Image/FilePath"                          },
        {"ParseStrtoObject/1",     "/Contour/2/1"                             },
        {"ParseStrtoTrafficCar",   "/CarWindow/BoundingBox/3"                 },
        {"ParseStrtoTrafficCar",   "/StereoGarage/DeckNo"                     },
        {"ParseObjectNonMotor",    "/RiderList/1/FaceAttributes/BoundingBox/3"},
        {"ParseObjectNonMotor",    "/RiderList/0/FaceImage/Height"            },
        {"ParseCandidate/1",       "/Person/Image/3/FilePath"                 },
        {"ParseCandidate/2",       "/Person/CustomPersonInfo/0"               },
        {"ParseGPSStatusInfo",     "/Longitude/2"                             },
        {"ParseWirelessInfo",      "/TimeSection/3/3"                         },
        {"ParseErrorCode",         "/error/code"                              },
        {"ParseCommAttr/1",        "/3"                                       },
        {"TransLongitudetoDouble", "/2"                                       },
    };
    std::set<std::string> found;
    for (const Reader& reader : fuzz::Readers()) {
        const std::string name(reader.name);
        for (const auto& [path, filling] : PlacesOf(reader)) found.insert(name + ' ' + Pointer(path));
    }
    std::printf("%zu places, %zu hostile values\n", found.size(), Hostile().size());
    for (const auto& [reader, place] : known)
        EXPECT_TRUE(found.contains(reader + ' ' + place)) << reader << ' ' << place;
}

/// Whatever the readers' names lead to, somebody looked there.
TEST(PlacesOfReaders, HaveEveryNameThatAnyConverterAsksFor) {
    std::set<std::string> found;
    for (const Reader& reader : fuzz::Readers()) {
        for (const auto& [path, filling] : PlacesOf(reader)) {
            for (const Step& step : path) {
                if (const auto* name = std::get_if<std::string>(&step)) found.insert(*name);
            }
        }
    }
    std::set<std::string> asked;
    for (const auto& file : std::filesystem::recursive_directory_iterator(JSONPARSER_CONVERTERS)) {
        const std::filesystem::path folder = file.path().parent_path().filename();
        if (file.path().extension() != ".cpp" || folder == "wire" || folder == "vkprotocolstack") continue;
        std::ostringstream text;
        text << std::ifstream(file.path()).rdbuf();
        const std::string source = text.str();
        static const std::regex kAsked(R"rx(\["(\w+)"\])rx");
        for (std::sregex_iterator match(source.begin(), source.end(), kAsked), end; match != end; ++match) {
            asked.insert((*match)[1]);
        }
    }
    EXPECT_GT(asked.size(), 200U);
    for (const std::string& name : asked) EXPECT_TRUE(found.contains(name)) << name;
}

}  // namespace
}  // namespace reliability
