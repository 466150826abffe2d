#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "testing/json.h"
#include "testing/locale.h"
#include "testing/record.h"

namespace {

using testing_tools::HostileValues;
using testing_tools::Json;
using testing_tools::Placed;
using testing_tools::Utf8Texts;

TEST(ParseExtensionInfo, CutsTheIdentifierTo52Bytes) {
    for (const std::size_t length : {0U, 1U, 50U, 51U, 52U, 60U}) {
        Placed<tagNET_EXTENSION_INFO> info;
        Json::Value event;
        event["EventLongID"] = std::string(length, 'e');
        EXPECT_TRUE(ParseExtensionInfo(event, *info));
        EXPECT_EQ(info->szEventLongID, std::string(std::min<std::size_t>(length, 51), 'e'));
    }
}

TEST(ParseExtensionInfo, CutKeepsWholeCharacters) {
    const Utf8Texts utf8;
    Placed<tagNET_EXTENSION_INFO> info;
    Json::Value event;
    event["EventLongID"] = std::string(49, 'e') + "路路";
    EXPECT_TRUE(ParseExtensionInfo(event, *info));
    EXPECT_EQ(info->szEventLongID, std::string(49, 'e'));
}

TEST(ParseExtensionInfo, WhatIsNoTextEmptiesTheField) {
    for (const char* text : {"{}", R"({"EventLongID": null})", R"({"EventLongID": 17})", R"({"EventLongID": ["a"]})",
                             R"({"AdditionalCode": "a"})", "null", "[]", "7", R"("EventLongID")"}) {
        Placed<tagNET_EXTENSION_INFO> info;
        EXPECT_TRUE(ParseExtensionInfo(Json(text), *info)) << text;
        EXPECT_STREQ(info->szEventLongID, "") << text;
    }
}

TEST(ParseExtensionInfo, TakesAnyJson) {
    for (const Json::Value& value : HostileValues()) {
        Placed<tagNET_EXTENSION_INFO> info;
        EXPECT_TRUE(ParseExtensionInfo(value, *info));
        Json::Value event;
        event["EventLongID"] = value;
        EXPECT_TRUE(ParseExtensionInfo(event, *info));
        EXPECT_LT(strnlen(info->szEventLongID, 52), 52U);
    }
}

TEST(ParseHumanTraitExtensionInfo, CutsTheCodeTo36Bytes) {
    for (const std::size_t length : {0U, 1U, 34U, 35U, 36U, 60U}) {
        Placed<tagNET_HUMANTRAIT_EXTENSION_INFO> info;
        Json::Value event;
        event["AdditionalCode"] = std::string(length, 'c');
        EXPECT_TRUE(ParseHumanTraitExtensionInfo(event, *info));
        EXPECT_EQ(info->szAdditionalCode, std::string(std::min<std::size_t>(length, 35), 'c'));
    }
}

TEST(ParseHumanTraitExtensionInfo, WhatIsNoTextEmptiesTheField) {
    for (const char* text : {"{}", R"({"AdditionalCode": null})", R"({"AdditionalCode": 17})",
                             R"({"AdditionalCode": ["a"]})", R"({"EventLongID": "a"})", "null", "[]", "7"}) {
        Placed<tagNET_HUMANTRAIT_EXTENSION_INFO> info;
        EXPECT_TRUE(ParseHumanTraitExtensionInfo(Json(text), *info)) << text;
        EXPECT_STREQ(info->szAdditionalCode, "") << text;
    }
}

TEST(ParseHumanTraitExtensionInfo, TakesAnyJson) {
    for (const Json::Value& value : HostileValues()) {
        Placed<tagNET_HUMANTRAIT_EXTENSION_INFO> info;
        EXPECT_TRUE(ParseHumanTraitExtensionInfo(value, *info));
        Json::Value event;
        event["AdditionalCode"] = value;
        EXPECT_TRUE(ParseHumanTraitExtensionInfo(event, *info));
        EXPECT_LT(strnlen(info->szAdditionalCode, 36), 36U);
    }
}

}  // namespace
