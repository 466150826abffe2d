#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <tuple>

#include "testing/json.h"
#include "testing/record.h"

namespace {

using namespace std::string_literals;
using testing_tools::Fields;
using testing_tools::HostileValues;
using testing_tools::Json;
using testing_tools::Placed;

using Face = Placed<tagNET_FACE_ATTRIBUTE_EX>;

constexpr const char* kFull = R"({
    "Sex": "Female", "Age": 31, "Complexion": 32, "Eye": 33, "Mouth": 34, "Mask": 35, "Beard": 36, "Attractive": 37,
    "Glass": 38, "Emotion": "Confused", "BoundingBox": [41, -42, 43, 44], "Nation": 39})";

Json::Value With(const char* name, const Json::Value& value) {
    Json::Value node;
    node[name] = value;
    return node;
}

TEST(ParseFaceAttributes, ReadsEveryMember) {
    Face face;
    EXPECT_TRUE(ParseFaceAttributes(Json(kFull), *face));
    EXPECT_EQ(face->emSex, 2);
    EXPECT_EQ(face->nAge, 31);
    EXPECT_EQ(face->nComplexion, 32);
    EXPECT_EQ(face->emEye, 34);
    EXPECT_EQ(face->emMouth, 35);
    EXPECT_EQ(face->emMask, 36);
    EXPECT_EQ(face->emBeard, 37);
    EXPECT_EQ(face->nAttractive, 37);
    EXPECT_EQ(face->emGlass, 38);
    EXPECT_EQ(face->emEmotion, 11);
    EXPECT_EQ(face->stuBoundingBox.nLeft, 41);
    EXPECT_EQ(face->stuBoundingBox.nTop, -42);
    EXPECT_EQ(face->stuBoundingBox.nRight, 43);
    EXPECT_EQ(face->stuBoundingBox.nBottom, 44);
    EXPECT_EQ(face->emNation, 40);
}

const Fields kAllFields{"emSex",
                        "nAge",
                        "nComplexion",
                        "emEye",
                        "emMouth",
                        "emMask",
                        "emBeard",
                        "nAttractive",
                        "emGlass",
                        "emEmotion",
                        "stuBoundingBox.nLeft",
                        "stuBoundingBox.nTop",
                        "stuBoundingBox.nRight",
                        "stuBoundingBox.nBottom",
                        "emNation"};

TEST(ParseFaceAttributes, NoFieldOfAnEarlierFaceSurvives) {
    for (const char* empty : {"{}", "null", "[]", "7", R"("text")", "true", R"({"sex": "Male", "Age": null})"}) {
        Face face;
        EXPECT_FALSE(ParseFaceAttributes(Json(empty), *face)) << empty;
        EXPECT_EQ(face.changedFields(), kAllFields) << empty;
        std::memset(face.bytes() + 76, 0, 4);  // the padding behind the last field
        const tagNET_FACE_ATTRIBUTE_EX zeros{};
        EXPECT_EQ(std::memcmp(face.bytes(), &zeros, sizeof zeros), 0) << empty;
    }
}

TEST(ParseFaceAttributes, CodesAreShiftedByOneButForGlass) {
    Face face;
    ParseFaceAttributes(Json(R"({"Eye": 0, "Glass": 0})"), *face);
    EXPECT_EQ(face->emEye, 1);
    EXPECT_EQ(face->emGlass, 0);
    EXPECT_EQ(face->emMouth, 0);
    const std::tuple<const char*, int> rows[] = {
        {"0",           0              },
        {"1",           1              },
        {"-1",          -1             },
        {"2147483646",  2147483646     },
        {"2147483647",  2147483647     },
        {"4294967295",  -1             },
        {"-2147483648", -2147483647 - 1},
        {"1e300",       2147483647     },
        {"2.9",         2              },
        {"true",        1              },
        {R"("5")",      0              },
        {"[5]",         0              }
    };
    for (const auto& [code, unshifted] : rows) {
        std::string json = R"({"Eye": C, "Mouth": C, "Mask": C, "Beard": C, "Nation": C, "Glass": C})";
        for (std::size_t at; (at = json.find('C')) != std::string::npos;) json.replace(at, 1, code);
        const int shifted = unshifted == 2147483647 ? -2147483647 - 1 : unshifted + 1;
        ParseFaceAttributes(Json(json), *face);
        EXPECT_EQ(face->emEye, shifted) << code;
        EXPECT_EQ(face->emMouth, shifted) << code;
        EXPECT_EQ(face->emMask, shifted) << code;
        EXPECT_EQ(face->emBeard, shifted) << code;
        EXPECT_EQ(face->emNation, shifted) << code;
        EXPECT_EQ(face->emGlass, unshifted) << code;
    }
}

TEST(ParseFaceAttributes, EverySexHasItsCode) {
    const std::tuple<std::string, int> rows[] = {
        {"",        0},
        {"Male",    1},
        {"Female",  2},
        {"female",  0},
        {"MALE",    0},
        {"Mal",     0},
        {"Males",   0},
        {"Male\0"s, 0}
    };
    for (const auto& [sex, code] : rows) {
        Face face;
        ParseFaceAttributes(With("Sex", sex), *face);
        EXPECT_EQ(face->emSex, code) << sex;
    }
}

TEST(ParseFaceAttributes, EveryEmotionHasItsCode) {
    const std::tuple<const char*, int> rows[] = {
        {"",         0 },
        {"Normal",   1 },
        {"Smile",    2 },
        {"Anger",    3 },
        {"Sadness",  4 },
        {"Disgust",  5 },
        {"Fear",     6 },
        {"Surprise", 7 },
        {"Neutral",  8 },
        {"Laugh",    9 },
        {"Happy",    10},
        {"Confused", 11},
        {"Scream",   12},
        {"scream",   0 },
        {"Calm",     0 }
    };
    for (const auto& [emotion, code] : rows) {
        Face face;
        ParseFaceAttributes(With("Emotion", emotion), *face);
        EXPECT_EQ(face->emEmotion, code) << emotion;
    }
}

TEST(ParseFaceAttributes, TheResultSaysWhetherTheBoxHasFourElements) {
    for (const char* box : {"[1, 2, 3]", "[1, 2, 3, 4, 5]", "[]", "{}", "null", R"("1234")"}) {
        Face face;
        EXPECT_FALSE(ParseFaceAttributes(Json(std::string(R"({"Age": 5, "BoundingBox": )") + box + "}"), *face)) << box;
        EXPECT_EQ(face.changedFields(), kAllFields) << box;
        EXPECT_EQ(face->nAge, 5);
        EXPECT_EQ(face->stuBoundingBox.nLeft, 0);
        EXPECT_EQ(face->stuBoundingBox.nTop, 0);
        EXPECT_EQ(face->stuBoundingBox.nRight, 0);
        EXPECT_EQ(face->stuBoundingBox.nBottom, 0);
    }
    Face face;
    EXPECT_TRUE(ParseFaceAttributes(Json(R"({"BoundingBox": ["x", null, -3, 4.9]})"), *face));
    EXPECT_EQ(face->stuBoundingBox.nLeft, 0);
    EXPECT_EQ(face->stuBoundingBox.nTop, 0);
    EXPECT_EQ(face->stuBoundingBox.nRight, -3);
    EXPECT_EQ(face->stuBoundingBox.nBottom, 4);
}

TEST(ParseFaceAttributes, AnyValueAnywhereIsRead) {
    for (const Json::Value& value : HostileValues()) {
        Face face;
        ParseFaceAttributes(value, *face);
        EXPECT_EQ(face.changedFields(), kAllFields);
        for (const std::string& member : Json(kFull).getMemberNames()) {
            Face other;
            ParseFaceAttributes(With(member.c_str(), value), *other);
            EXPECT_EQ(other.changedFields().back(), "emNation");
        }
    }
}

TEST(FaceAttributeRecord, HasItsPlaces) {
    EXPECT_EQ(sizeof(tagNET_FACE_ATTRIBUTE_EX), 80U);
    EXPECT_EQ(offsetof(tagNET_FACE_ATTRIBUTE_EX, emGlass), 32U);
    EXPECT_EQ(offsetof(tagNET_FACE_ATTRIBUTE_EX, stuBoundingBox), 40U);
    EXPECT_EQ(offsetof(tagNET_FACE_ATTRIBUTE_EX, emNation), 72U);
}

}  // namespace
