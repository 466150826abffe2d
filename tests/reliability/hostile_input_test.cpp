// Every place where any reader looks, holding every hostile value.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "fuzz/converters.h"
#include "fuzz/text_road_case.h"
#include "places.h"
#include "testing/json.h"

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
        Json::Value& place = At(message, path);
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
        Json::Value& place = At(message, path);
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
        for (const Json::Value& value : Hostile()) {
            if (!value.isString()) continue;
            EXPECT_NO_THROW(reader.read(value.asString())) << reader.name;
        }
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
