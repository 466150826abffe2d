#include "testing/json.h"

#include <gtest/gtest.h>
#include <json/reader.h>
#include <json/writer.h>

#include <cmath>
#include <limits>
#include <memory>

namespace testing_tools {

Json::Value Json(const std::string& text) {
    Json::CharReaderBuilder builder;
    builder["collectComments"] = false;
    const std::unique_ptr<Json::CharReader> reader(builder.newCharReader());
    Json::Value value;
    std::string errors;
    if (!reader->parse(text.c_str(), text.c_str() + text.size(), &value, &errors)) {
        ADD_FAILURE() << text << ": " << errors;
        return {};
    }
    return value;
}

std::string Text(const Json::Value& value) {
    Json::StreamWriterBuilder builder;
    builder["indentation"] = "";
    builder["emitUTF8"] = true;
    return Json::writeString(builder, value);
}

std::vector<std::string> Steps(std::string_view pointer) {
    std::vector<std::string> steps;
    for (std::size_t i = 0; i < pointer.size(); ++i) {
        if (pointer[i] == '/') {
            steps.emplace_back();
        } else if (pointer[i] == '~') {
            steps.back() += pointer[++i] == '1' ? '/' : '~';
        } else {
            steps.back() += pointer[i];
        }
    }
    return steps;
}

Json::Value& At(Json::Value& root, std::string_view pointer) {
    Json::Value* value = &root;
    for (const std::string& step : Steps(pointer)) {
        value = value->isArray() ? &(*value)[static_cast<Json::ArrayIndex>(std::stoul(step))] : &(*value)[step];
    }
    return *value;
}

const std::vector<Json::Value>& HostileValues() {
    static const std::vector<Json::Value> values = [] {
        using Int = std::numeric_limits<Json::Int64>;
        std::vector<Json::Value> all{
            Json::Value(),
            true,
            false,
            0,
            1,
            -1,
            127,
            -128,
            255,
            256,
            32767,
            -32768,
            65535,
            65536,
            std::numeric_limits<int>::max(),
            std::numeric_limits<int>::min(),
            Json::Int64{2147483648},
            Json::Int64{-2147483649},
            Json::UInt64{4294967295},
            Json::UInt64{4294967296},
            Json::UInt64{4026990592},
            Int::max(),
            Int::min(),
            std::numeric_limits<Json::UInt64>::max(),
            0.0,
            -0.0,
            0.5,
            -2.9,
            2147483647.5,
            2147483648.0,
            -2147483649.0,
            4294967295.5,
            4294967296.0,
            9.3e18,
            -9.3e18,
            1e308,
            -1e308,
            std::numeric_limits<double>::infinity(),
            -std::numeric_limits<double>::infinity(),
            std::nan(""),
            "",
            "0",
            "text",
            "2024-01-05 09:30:00.250",
            "-",
            "京A·D12345",
            "\xE4\xBA",
            "\xFF\xFE\x80",
            std::string("a\0b", 3),
            std::string(31, 'x'),
            std::string(32, 'x'),
            std::string(33, 'x'),
            std::string(63, 'x'),
            std::string(64, 'x'),
            std::string(65, 'x'),
            std::string(255, 'x'),
            std::string(256, 'x'),
            std::string(257, 'x'),
            std::string(100000, 'x'),
            Json::Value(Json::arrayValue),
            Json::Value(Json::objectValue),
        };
        std::string cut;  // every position in a character meets every border
        for (int i = 0; i < 300; ++i) cut += "路";
        all.emplace_back(cut);
        all.emplace_back("a" + cut);
        all.emplace_back("ab" + cut);
        Json::Value array(Json::arrayValue);
        for (const Json::Value& value : all) array.append(value);
        all.push_back(array);
        Json::Value sparse;
        sparse[5] = 1;
        all.push_back(sparse);
        Json::Value many(Json::arrayValue);
        for (int i = 0; i < 1000; ++i) many.append(i);
        all.push_back(many);
        Json::Value four(Json::arrayValue);
        for (const char* text : {"1", "x", "", "4"}) four.append(text);
        all.push_back(four);
        Json::Value deep = 1;
        for (int i = 0; i < 500; ++i) {
            Json::Value outer;
            if (i % 2 == 0) {
                outer.append(deep);
            } else {
                outer["BoundingBox"] = deep;
            }
            deep = outer;
        }
        all.push_back(deep);
        Json::Value object;
        for (const char* name : {"UTC", "UTCMS", "", "FilePath", "Offset", "code"}) object[name] = "x";
        object[std::string("a\0b", 3)] = array;
        all.push_back(object);
        return all;
    }();
    return values;
}

}  // namespace testing_tools
