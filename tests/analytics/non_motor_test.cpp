#include <gtest/gtest.h>

#include <algorithm>
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

using Info = tagVA_OBJECT_NONMOTOR;

/// A placed record, cleared unless it is Prefilled.
class NonMotor : public testing_tools::Placed<Info> {
  public:
    explicit NonMotor(const Json::Value& node) {
        clear();
        ParseObjectNonMotor(node, get());
    }
    explicit NonMotor(const std::string& json) : NonMotor(Json(json)) {}
};

class Prefilled : public testing_tools::Placed<Info> {
  public:
    explicit Prefilled(const Json::Value& node) { ParseObjectNonMotor(node, get()); }
    explicit Prefilled(const std::string& json) : Prefilled(Json(json)) {}
};

Json::Value With(const char* name, const Json::Value& value) {
    Json::Value node;
    node[name] = value;
    return node;
}

Json::Value Riders(const Json::Value& rider, unsigned count = 1) {
    Json::Value riders(Json::arrayValue);
    for (unsigned i = 0; i < count; ++i) riders.append(rider);
    return With("RiderList", riders);
}

std::string RiderJson(const std::string& member) { return R"({"RiderList": [{)" + member + "}]}"; }

constexpr const char* kRider = R"({
    "FeatureValid": true, "Sex": "Male", "Age": 1, "Helmet": 2, "Call": 3, "Bag": 4, "CarrierBag": 5, "Umbrella": 6,
    "Glasses": 7, "Mask": 8, "Emotion": "Laugh", "UpClothes": 10, "DownClothes": 11, "UpperBodyColor": "Brown",
    "LowerBodyColor": "Maroon", "FaceImage": {"Offset": 4000000001, "Length": 21, "Width": 22, "Height": 23},
    "FaceAttributes": {"Sex": "Female", "Age": 31, "Eye": 32, "BoundingBox": [41, -42, 43, 44], "Nation": 33}})";

constexpr const char* kFull = R"({
    "ObjectID": 101, "Category": "CoachMotorcycle", "BoundingBox": [11, -12, 13, 14],
    "OriginalBoundingBox": [21, -22, 23, 24], "MainColor": [31, 32, 33, 34], "Color": "Seagreen",
    "Image": {"Offset": 4000000001, "Length": 41, "Width": 42, "Height": 43, "FilePath": "/record/1.jpg"},
    "NumOfCycling": 102, "SceneImage": {"Offset": 4000000002, "Length": 51, "Width": 52, "Height": 53},
    "FaceSceneImage": {"Offset": 4000000003, "Length": 61, "Width": 62, "Height": 63}, "NumOfFace": 103})";

void ExpectRiderOfEveryMember(const tagNONMOTOR_RIDER_INFO& rider) {
    EXPECT_EQ(rider.bFeatureValid, 1);
    EXPECT_EQ(rider.emSex, 1);
    EXPECT_EQ(rider.nAge, 1);
    EXPECT_EQ(rider.nHelmet, 2);
    EXPECT_EQ(rider.nCall, 3);
    EXPECT_EQ(rider.nBag, 4);
    EXPECT_EQ(rider.nCarrierBag, 5);
    EXPECT_EQ(rider.nUmbrella, 6);
    EXPECT_EQ(rider.nGlasses, 7);
    EXPECT_EQ(rider.nMask, 8);
    EXPECT_EQ(rider.emEmotion, 9);
    EXPECT_EQ(rider.nUpClothes, 10);
    EXPECT_EQ(rider.nDownClothes, 11);
    EXPECT_EQ(rider.emUpperBodyColor, 11);
    EXPECT_EQ(rider.emLowerBodyColor, 14);
    EXPECT_EQ(rider.bFaceImage, 1);
    EXPECT_EQ(rider.stuFaceImage.dwOffset, 4000000001U);
    EXPECT_EQ(rider.stuFaceImage.dwFileLength, 21U);
    EXPECT_EQ(rider.stuFaceImage.dwWidth, 22U);
    EXPECT_EQ(rider.stuFaceImage.dwHeight, 23U);
    EXPECT_EQ(rider.bFaceAttributes, 1);
    EXPECT_EQ(rider.stuFaceAttributes.emSex, 2);
    EXPECT_EQ(rider.stuFaceAttributes.nAge, 31);
    EXPECT_EQ(rider.stuFaceAttributes.emEye, 33);
    EXPECT_EQ(rider.stuFaceAttributes.stuBoundingBox.nTop, -42);
    EXPECT_EQ(rider.stuFaceAttributes.emNation, 34);
}

TEST(ParseObjectNonMotor, ReadsEveryMember) {
    NonMotor object{std::string(kFull)};
    EXPECT_EQ(object->nObjectID, 101);
    EXPECT_EQ(object->emCategory, 12);
    EXPECT_EQ(object->stuBoundingBox.nLeft, 11);
    EXPECT_EQ(object->stuBoundingBox.nTop, -12);
    EXPECT_EQ(object->stuBoundingBox.nRight, 13);
    EXPECT_EQ(object->stuBoundingBox.nBottom, 14);
    EXPECT_EQ(object->stuOriginalBoundingBox.nLeft, 21);
    EXPECT_EQ(object->stuOriginalBoundingBox.nTop, -22);
    EXPECT_EQ(object->stuOriginalBoundingBox.nRight, 23);
    EXPECT_EQ(object->stuOriginalBoundingBox.nBottom, 24);
    EXPECT_EQ(object->stuMainColor.nRed, 31);
    EXPECT_EQ(object->stuMainColor.nGreen, 32);
    EXPECT_EQ(object->stuMainColor.nBlue, 33);
    EXPECT_EQ(object->stuMainColor.nAlpha, 34);
    EXPECT_EQ(object->emColor, 26);
    EXPECT_EQ(object->bPicEnable, 1);
    EXPECT_EQ(object->stuImage.dwOffset, 4000000001U);
    EXPECT_EQ(object->stuImage.dwFileLength, 41U);
    EXPECT_EQ(object->stuImage.dwWidth, 42U);
    EXPECT_EQ(object->stuImage.dwHeight, 43U);
    EXPECT_STREQ(object->stuImage.szFilePath, "/record/1.jpg");
    EXPECT_EQ(object->nNumOfCycling, 102);
    EXPECT_EQ(object->stuSceneImage.dwOffset, 4000000002U);
    EXPECT_EQ(object->stuSceneImage.dwFileLength, 51U);
    EXPECT_EQ(object->stuSceneImage.dwWidth, 52U);
    EXPECT_EQ(object->stuSceneImage.dwHeight, 53U);
    EXPECT_EQ(object->stuFaceSceneImage.dwOffset, 4000000003U);
    EXPECT_EQ(object->stuFaceSceneImage.dwFileLength, 61U);
    EXPECT_EQ(object->stuFaceSceneImage.dwWidth, 62U);
    EXPECT_EQ(object->stuFaceSceneImage.dwHeight, 63U);
    EXPECT_EQ(object->nNumOfFace, 103);
}

TEST(ParseObjectNonMotor, ReadsEveryMemberOfEveryRider) {
    NonMotor object(Riders(Json(kRider), 16));
    for (const tagNONMOTOR_RIDER_INFO& rider : object->stuRiderList) ExpectRiderOfEveryMember(rider);
}

const Fields kWithoutTest{"nObjectID", "emCategory", "emColor", "nNumOfCycling", "nNumOfFace"};

TEST(ParseObjectNonMotor, AnEmptyMessageWritesZerosToWhatIsReadWithoutATestAndNothingElse) {
    for (const char* empty : {"{}", "null", "[]", "7", R"("text")", "true", R"({"objectID": 7})"}) {
        Prefilled object{std::string(empty)};
        EXPECT_EQ(object.changedFields(), kWithoutTest) << empty;
        EXPECT_EQ(object->nObjectID, 0);
        EXPECT_EQ(object->emCategory, 0);
        EXPECT_EQ(object->emColor, 0);
        EXPECT_EQ(object->nNumOfCycling, 0);
        EXPECT_EQ(object->nNumOfFace, 0);
    }
}

TEST(ParseObjectNonMotor, NullMembersAreMissing) {
    Json::Value node = With("RiderList", Json::Value());
    for (const std::string& name : Json(kFull).getMemberNames()) node[name] = Json::Value();
    EXPECT_EQ(Prefilled(node).changedFields(), kWithoutTest);
}

TEST(ParseObjectNonMotor, BoxesTakeTheFirstFourElementsOrStayAsTheyWere) {
    for (const char* box : {"[1, 2147483648, -3, 4.9, 5]", R"([1, 2147483648, -3, 4])"}) {
        NonMotor object(std::string(R"({"BoundingBox": )") + box + R"(, "OriginalBoundingBox": )" + box + "}");
        for (const VK_RECT& read : {object->stuBoundingBox, object->stuOriginalBoundingBox}) {
            EXPECT_EQ(read.nLeft, 1);
            EXPECT_EQ(read.nTop, -2147483648LL);
            EXPECT_EQ(read.nRight, -3);
            EXPECT_EQ(read.nBottom, 4);
        }
    }
    for (const char* box : {"[1, 2, 3]", "[]", R"({"a": 1, "b": 2, "c": 3, "d": 4})", R"("1234")"}) {
        Prefilled object(std::string(R"({"BoundingBox": )") + box + R"(, "OriginalBoundingBox": )" + box + "}");
        EXPECT_EQ(object.changedFields(), kWithoutTest) << box;
    }
}

TEST(ParseObjectNonMotor, AMainColorTakesTheFirstFourElementsAsUnsignedOrStaysAsItWas) {
    NonMotor object{std::string(R"({"MainColor": [4294967295, -2, -3.5, 1e300, 5]})")};
    EXPECT_EQ(object->stuMainColor.nRed, -1);
    EXPECT_EQ(object->stuMainColor.nGreen, -2);
    EXPECT_EQ(object->stuMainColor.nBlue, 0);
    EXPECT_EQ(object->stuMainColor.nAlpha, -1);
    for (const char* color : {"[10, 20, 30]", "[]", R"({"a": 1, "b": 2, "c": 3, "d": 4})", R"("White")"}) {
        EXPECT_EQ(Prefilled(std::string(R"({"MainColor": )") + color + "}").changedFields(), kWithoutTest) << color;
    }
}

TEST(ParseObjectNonMotor, EveryCategoryHasItsCode) {
    const std::tuple<std::string, int> rows[] = {
        {"",                       0 },
        {"Tricycle",               1 },
        {"Motorcycle",             2 },
        {"Non-Motor",              3 },
        {"Bicycle",                4 },
        {"DualTriWheelMotorcycle", 5 },
        {"LightMotorcycle",        6 },
        {"EmbassyMotorcycle",      7 },
        {"MarginalMotorcycle",     8 },
        {"AreaoutMotorcycle",      9 },
        {"ForeignMotorcycle",      10},
        {"TrialMotorcycle",        11},
        {"CoachMotorcycle",        12},
        {"non-motor",              0 },
        {"NonMotor",               0 },
        {"Bicycles",               0 },
        {"Bicycle\0"s,             0 }
    };
    for (const auto& [category, code] : rows) {
        EXPECT_EQ(NonMotor(With("Category", category))->emCategory, code) << category;
    }
}

TEST(ParseObjectNonMotor, EveryColorHasItsCodeOnTheObjectAndItsRiders) {
    const std::tuple<std::string, int> rows[] = {
        {"",               0 },
        {"White",          1 },
        {"Orange",         2 },
        {"Pink",           3 },
        {"Black",          4 },
        {"Red",            5 },
        {"Yellow",         6 },
        {"Gray",           7 },
        {"Blue",           8 },
        {"Green",          9 },
        {"Purple",         10},
        {"Brown",          11},
        {"Sliver",         12},
        {"Darkviolet",     13},
        {"Maroon",         14},
        {"Dimgray",        15},
        {"Whitesmoke",     16},
        {"Darkorange",     17},
        {"Mistyrose",      18},
        {"Tomato",         19},
        {"Olive",          20},
        {"Gold",           21},
        {"Darkolivegreen", 22},
        {"Chartreuse",     23}, // 27 too, which nothing gives
        {"Greenyellow",    24},
        {"Forestgreen",    25},
        {"Seagreen",       26},
        {"Deepskyblue",    28},
        {"Cyan",           29},
        {"Other",          30},
        {"Silver",         0 },
        {"white",          0 },
        {"WHITE",          0 },
        {"DarkOrange",     0 },
        {"Whites",         0 }
    };
    for (const auto& [color, code] : rows) {
        EXPECT_EQ(NonMotor(With("Color", color))->emColor, code) << color;
        EXPECT_EQ(NonMotor(Riders(With("UpperBodyColor", color)))->stuRiderList[0].emUpperBodyColor, code) << color;
        EXPECT_EQ(NonMotor(Riders(With("LowerBodyColor", color)))->stuRiderList[0].emLowerBodyColor, code) << color;
    }
}

TEST(ParseObjectNonMotor, EverySexOfARiderHasItsCode) {
    const std::tuple<const char*, int> rows[] = {
        {"",       0},
        {"Male",   1},
        {"Female", 2},
        {"male",   0},
        {"Man",    0}
    };
    for (const auto& [sex, code] : rows) {
        EXPECT_EQ(NonMotor(Riders(With("Sex", sex)))->stuRiderList[0].emSex, code) << sex;
    }
}

TEST(ParseObjectNonMotor, EveryEmotionOfARiderHasItsCode) {
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
        {"happy",    0 }
    };
    for (const auto& [emotion, code] : rows) {
        EXPECT_EQ(NonMotor(Riders(With("Emotion", emotion)))->stuRiderList[0].emEmotion, code) << emotion;
    }
}

TEST(ParseObjectNonMotor, AnEmptyImageWritesZerosAndAnEmptyPath) {
    for (const char* image : {"{}", "7", "[]", R"("text")", "false", R"({"FilePath": 7})"}) {
        Prefilled object(std::string(R"({"Image": )") + image + "}");
        EXPECT_EQ(object->bPicEnable, 1);
        EXPECT_EQ(object->stuImage.dwOffset, 0U);
        EXPECT_EQ(object->stuImage.dwFileLength, 0U);
        EXPECT_EQ(object->stuImage.dwWidth, 0U);
        EXPECT_EQ(object->stuImage.dwHeight, 0U);
        EXPECT_STREQ(object->stuImage.szFilePath, "");
        EXPECT_EQ(object->stuImage.byReserved[0], testing_tools::kPattern);
    }
}

TEST(ParseObjectNonMotor, AFilePathIsCutTo259Bytes) {
    for (const std::size_t length : {0U, 258U, 259U, 260U, 261U, 1000U}) {
        Prefilled object(With("Image", With("FilePath", std::string(length, 'p'))));
        EXPECT_EQ(std::string(object->stuImage.szFilePath), std::string(std::min<std::size_t>(length, 259), 'p'));
        EXPECT_EQ(object->stuImage.byReserved[0], testing_tools::kPattern);
    }
}

TEST(ParseObjectNonMotor, WithoutAnImageThePictureFlagStays) {
    Prefilled object{std::string("{}")};
    EXPECT_EQ(object->bPicEnable, testing_tools::kPattern);
    ParseObjectNonMotor(Json(R"({"Image": {"Width": 5}})"), object.get());
    ParseObjectNonMotor(Json("{}"), object.get());
    EXPECT_EQ(object->bPicEnable, 1);
    EXPECT_EQ(object->stuImage.dwWidth, 5U);
}

TEST(ParseObjectNonMotor, ScenesHaveFourNumbersEach) {
    EXPECT_EQ(Prefilled(std::string(R"({"SceneImage": {}})")).changedFields(),
              (Fields{"nObjectID", "emCategory", "emColor", "nNumOfCycling", "stuSceneImage.dwOffset",
                      "stuSceneImage.dwFileLength", "stuSceneImage.dwWidth", "stuSceneImage.dwHeight", "nNumOfFace"}));
    EXPECT_EQ(Prefilled(std::string(R"({"FaceSceneImage": {"Width": -1}})")).changedFields(),
              (Fields{"nObjectID", "emCategory", "emColor", "nNumOfCycling", "stuFaceSceneImage.dwOffset",
                      "stuFaceSceneImage.dwFileLength", "stuFaceSceneImage.dwWidth", "stuFaceSceneImage.dwHeight",
                      "nNumOfFace"}));
}

TEST(ParseObjectNonMotor, RidersBehindTheSixteenthAreDropped) {
    for (const unsigned count : {0U, 1U, 15U, 16U, 17U, 20U}) {
        Json::Value riders(Json::arrayValue);
        for (unsigned i = 0; i < count; ++i) riders.append(With("Age", 1 + i));
        Prefilled object(With("RiderList", riders));
        for (unsigned i = 0; i < 16; ++i) {
            EXPECT_EQ(object->stuRiderList[i].nAge, static_cast<int>(i < count ? 1 + i : 0xA5A5A5A5U)) << count;
        }
    }
}

TEST(ParseObjectNonMotor, AnEmptyRiderIsWrittenButForItsPictureAndItsFace) {
    for (const char* rider : {"{}", "null", "7", R"("text")", R"([{"Age": 5}])"}) {
        Prefilled object(std::string(R"({"RiderList": [)") + rider + "]}");
        EXPECT_EQ(object.changedFields(), (Fields{"nObjectID",
                                                  "emCategory",
                                                  "emColor",
                                                  "nNumOfCycling",
                                                  "stuRiderList[0].bFeatureValid",
                                                  "stuRiderList[0].emSex",
                                                  "stuRiderList[0].nAge",
                                                  "stuRiderList[0].nHelmet",
                                                  "stuRiderList[0].nCall",
                                                  "stuRiderList[0].nBag",
                                                  "stuRiderList[0].nCarrierBag",
                                                  "stuRiderList[0].nUmbrella",
                                                  "stuRiderList[0].nGlasses",
                                                  "stuRiderList[0].nMask",
                                                  "stuRiderList[0].emEmotion",
                                                  "stuRiderList[0].nUpClothes",
                                                  "stuRiderList[0].nDownClothes",
                                                  "stuRiderList[0].emUpperBodyColor",
                                                  "stuRiderList[0].emLowerBodyColor",
                                                  "stuRiderList[0].bFaceImage",
                                                  "stuRiderList[0].bFaceAttributes",
                                                  "nNumOfFace"}))
            << rider;
        tagNONMOTOR_RIDER_INFO read = object->stuRiderList[0];
        EXPECT_EQ(read.bFeatureValid, 0);
        EXPECT_EQ(read.emSex, 0);
        EXPECT_EQ(read.nAge, 0);
        EXPECT_EQ(read.nMask, 0);
        EXPECT_EQ(read.emLowerBodyColor, 0);
        EXPECT_EQ(read.bFaceImage, 0);
        EXPECT_EQ(read.bFaceAttributes, 0);
    }
}

TEST(ParseObjectNonMotor, ARidersFlagsAreResetButNotThePictureAndTheFace) {
    NonMotor object(Riders(Json(kRider)));
    ParseObjectNonMotor(Riders(Json("{}")), object.get());
    EXPECT_EQ(object->stuRiderList[0].bFaceImage, 0);
    EXPECT_EQ(object->stuRiderList[0].stuFaceImage.dwFileLength, 21U);
    EXPECT_EQ(object->stuRiderList[0].bFaceAttributes, 0);
    EXPECT_EQ(object->stuRiderList[0].stuFaceAttributes.nAge, 31);
}

TEST(ParseObjectNonMotor, AnEmptyFaceImageAndFaceSetTheirFlags) {
    NonMotor object(Riders(Json(kRider)));
    ParseObjectNonMotor(Json(RiderJson(R"("FaceImage": {}, "FaceAttributes": {"Age": 5})")), object.get());
    EXPECT_EQ(object->stuRiderList[0].bFaceImage, 1);
    EXPECT_EQ(object->stuRiderList[0].stuFaceImage.dwOffset, 0U);
    EXPECT_EQ(object->stuRiderList[0].stuFaceImage.dwHeight, 0U);
    EXPECT_EQ(object->stuRiderList[0].bFaceAttributes, 1);  // although the face's reader misses a box
    EXPECT_EQ(object->stuRiderList[0].stuFaceAttributes.nAge, 5);
    EXPECT_EQ(object->stuRiderList[0].stuFaceAttributes.emNation, 0);
    EXPECT_EQ(object->stuRiderList[0].stuFaceAttributes.stuBoundingBox.nTop, 0);
}

TEST(ParseObjectNonMotor, ARidersFeaturesAreZeroOrOne) {
    for (const char* value : {"true", "1", "256", "0.5"}) {
        EXPECT_EQ(NonMotor(RiderJson(std::string(R"("FeatureValid": )") + value))->stuRiderList[0].bFeatureValid, 1);
    }
    for (const char* value : {"false", "0", R"("true")", "[]"}) {
        EXPECT_EQ(Prefilled(RiderJson(std::string(R"("FeatureValid": )") + value))->stuRiderList[0].bFeatureValid, 0);
    }
}

TEST(ParseObjectNonMotor, ARiderListThatIsNoArrayHasNoRiders) {
    for (const char* riders : {R"({"0": {"Age": 5}})", "7", R"("text")", "[]", "true"}) {
        EXPECT_EQ(Prefilled(std::string(R"({"RiderList": )") + riders + "}").changedFields(), kWithoutTest) << riders;
    }
}

TEST(ParseObjectNonMotor, NumbersKeepTheirLowBits) {
    NonMotor object{std::string(R"({"ObjectID": 4294967297, "NumOfCycling": 1e300, "NumOfFace": -5,
                                    "SceneImage": {"Offset": -1, "Length": 1e300, "Width": -1.5, "Height": 4294967298}})")};
    EXPECT_EQ(object->nObjectID, 1);
    EXPECT_EQ(object->nNumOfCycling, 2147483647);
    EXPECT_EQ(object->nNumOfFace, -5);
    EXPECT_EQ(object->stuSceneImage.dwOffset, 4294967295U);
    EXPECT_EQ(object->stuSceneImage.dwFileLength, 4294967295U);
    EXPECT_EQ(object->stuSceneImage.dwWidth, 0U);
    EXPECT_EQ(object->stuSceneImage.dwHeight, 2U);
}

TEST(ParseObjectNonMotor, AnyValueAnywhereIsRead) {
    const std::vector<std::string> members = Json(kFull).getMemberNames();
    const std::vector<std::string> riderMembers = Json(kRider).getMemberNames();
    for (const Json::Value& value : HostileValues()) {
        const auto reservedStays = [](Prefilled object) {
            return object->stuImage.byReserved[0] == testing_tools::kPattern &&
                   object->stuRiderList[0].byReserved1[0] == testing_tools::kPattern &&
                   object->stuRiderList[0].byReserved2[0] == testing_tools::kPattern &&
                   object->stuSceneImage.byReserved[0] == testing_tools::kPattern;
        };
        EXPECT_TRUE(reservedStays(Prefilled(value)));
        EXPECT_TRUE(reservedStays(Prefilled(With("RiderList", value))));
        EXPECT_TRUE(reservedStays(Prefilled(Riders(value, 2))));
        for (const std::string& member : members) EXPECT_TRUE(reservedStays(Prefilled(With(member.c_str(), value))));
        for (const std::string& member : riderMembers) {
            EXPECT_TRUE(reservedStays(Prefilled(Riders(With(member.c_str(), value)))));
        }
        for (const char* member : {"Offset", "Length", "Width", "Height", "FilePath"}) {
            EXPECT_TRUE(reservedStays(Prefilled(With("Image", With(member, value)))));
        }
    }
}

TEST(NonMotorRecords, HaveTheirPlaces) {
    EXPECT_EQ(sizeof(tagNONMOTOR_RIDER_INFO), 600U);
    EXPECT_EQ(offsetof(tagNONMOTOR_RIDER_INFO, bFaceImage), 60U);
    EXPECT_EQ(offsetof(tagNONMOTOR_RIDER_INFO, byReserved1), 80U);
    EXPECT_EQ(offsetof(tagNONMOTOR_RIDER_INFO, bFaceAttributes), 128U);
    EXPECT_EQ(offsetof(tagNONMOTOR_RIDER_INFO, stuFaceAttributes), 136U);
    EXPECT_EQ(offsetof(tagNONMOTOR_RIDER_INFO, byReserved2), 216U);
    EXPECT_EQ(sizeof(tagNONMOTOR_RIDER_INFO::stuFaceAttributes) + sizeof(tagNONMOTOR_RIDER_INFO::byReserved2), 464U);
    EXPECT_EQ(sizeof(Info), 10640U);
    EXPECT_EQ(offsetof(Info, stuMainColor), 72U);
    EXPECT_EQ(offsetof(Info, stuImage), 96U);
    EXPECT_EQ(offsetof(Info, nNumOfCycling), 884U);
    EXPECT_EQ(offsetof(Info, stuRiderList), 888U);
    EXPECT_EQ(offsetof(Info, stuSceneImage), 10488U);
    EXPECT_EQ(offsetof(Info, stuFaceSceneImage), 10560U);
    EXPECT_EQ(offsetof(Info, nNumOfFace), 10632U);
}

}  // namespace
