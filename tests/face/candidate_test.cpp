#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "testing/json.h"
#include "testing/locale.h"
#include "testing/record.h"

namespace {

using testing_tools::Fields;
using testing_tools::HostileValues;
using testing_tools::Json;
using testing_tools::Placed;
using testing_tools::Text;
using testing_tools::Utf8Texts;

constexpr const char* kCandidate = R"({
    "Similarity": 91, "Channel": 92, "Range": 93, "Time": "2024-01-05 09:30:07", "Address": "人民广场东门",
    "Person": {"Name": "李四", "Age": 34, "Image": [{"FilePath": "/a.jpg"}, {"FilePath": "/b.jpg", "Width": 64}]},
    "IsHit": true, "SceneImage": {"Offset": 94, "Length": 95, "FilePath": "/scene.jpg"}})";

const char* NameOf(const tagFACERECOGNITION_PERSON_INFO& person) { return person.szPersonNameEx; }
const char* NameOf(const tagFACERECOGNITION_PERSON_INFOEX& person) { return person.szPersonName; }

template <class Candidate>
class ParseCandidateOfBoth : public testing::Test {};
using Candidates = testing::Types<tagCANDIDATE_INFO, tagCANDIDATE_INFOEX>;
TYPED_TEST_SUITE(ParseCandidateOfBoth, Candidates);

TYPED_TEST(ParseCandidateOfBoth, ReadsEveryMember) {
    const Utf8Texts utf8;
    const jsonparser::Owned<TypeParam> zero;
    Placed<TypeParam> info;
    *info = *zero;
    ParseCandidate(Json(kCandidate), *info);
    EXPECT_EQ(info->bySimilarity, 91);
    EXPECT_EQ(info->nChannelID, 92);
    EXPECT_EQ(info->byRange, 93);
    EXPECT_EQ(info->stuTime.dwYear, 2024U);
    EXPECT_EQ(info->stuTime.dwMonth, 1U);
    EXPECT_EQ(info->stuTime.dwDay, 5U);
    EXPECT_EQ(info->stuTime.dwHour, 9U);
    EXPECT_EQ(info->stuTime.dwMinute, 30U);
    EXPECT_EQ(info->stuTime.dwSecond, 7U);
    EXPECT_STREQ(info->szAddress, "人民广场东门");
    EXPECT_STREQ(NameOf(info->stuPersonInfo), "李四");
    EXPECT_EQ(info->stuPersonInfo.byAge, 34);
    EXPECT_EQ(info->stuPersonInfo.wFacePicNum, 2);
    EXPECT_STREQ(info->stuPersonInfo.stuFacePicInfo[0].pszFilePath, "/a.jpg");
    EXPECT_STREQ(info->stuPersonInfo.stuFacePicInfo[1].pszFilePath, "/b.jpg");
    EXPECT_EQ(info->stuPersonInfo.stuFacePicInfo[1].wWidth, 64);
    EXPECT_EQ(info->bIsHit, 1);
    EXPECT_EQ(info->stuSceneImage.dwOffset, 94U);
    EXPECT_EQ(info->stuSceneImage.dwFileLength, 95U);
    EXPECT_STREQ(info->stuSceneImage.szFilePath, "/scene.jpg");
    jsonparser::ReleaseTexts(*info);
}

TYPED_TEST(ParseCandidateOfBoth, SimilarityAndRangeKeepTheirLow8Bits) {
    struct Row {
        const char* number;
        unsigned char low;
    };
    for (const Row& row : {
             Row{"300",     44 },
             Row{"255",     255},
             Row{"256",     0  },
             Row{"-1",      255},
             Row{"99.9",    99 },
             Row{"3e9",     255},
             Row{"-2.9",    254},
             Row{"true",    1  },
             Row{R"("91")", 0  },
             Row{"[91]",    0  }
    }) {
        Placed<TypeParam> info;
        Json::Value candidate;
        candidate["Similarity"] = candidate["Range"] = Json(row.number);
        ParseCandidate(candidate, *info);
        EXPECT_EQ(info->bySimilarity, row.low) << row.number;
        EXPECT_EQ(info->byRange, row.low) << row.number;
    }
}

TYPED_TEST(ParseCandidateOfBoth, SimilarityOf300Stores44) {
    Placed<TypeParam> info;
    ParseCandidate(Json(R"({"Similarity": 300})"), *info);
    EXPECT_EQ(info->bySimilarity, 44);
    EXPECT_EQ(info.changedFields(), Fields{"bySimilarity"});
}

TYPED_TEST(ParseCandidateOfBoth, WithoutAPersonLeavesThePersonUntouched) {
    for (const char* text : {R"({"Similarity": 1})", R"({"Similarity": 1, "Person": null})"}) {
        Placed<TypeParam> info;
        ParseCandidate(Json(text), *info);
        EXPECT_EQ(info.changedFields(), Fields{"bySimilarity"}) << text;
    }
}

TYPED_TEST(ParseCandidateOfBoth, AnEmptyPersonWritesWhatAPersonAlwaysWrites) {
    for (const char* text : {R"({"Person": {}})", R"({"Person": 7})", R"({"Person": []})"}) {
        Placed<TypeParam> info;
        ParseCandidate(Json(text), *info);
        Fields expected{"stuPersonInfo.byGlasses", "stuPersonInfo.byAge", "stuPersonInfo.emEmotion"};
        if (std::is_same_v<TypeParam, tagCANDIDATE_INFOEX>) expected.emplace_back("stuPersonInfo.nAttractive");
        EXPECT_EQ(info.changedFields(), expected) << text;
    }
}

TYPED_TEST(ParseCandidateOfBoth, MissingMembersTouchNothing) {
    for (const char* text : {"{}", "null", "[]", "7", R"("Person")",
                             R"({"Similarity": null, "Channel": null, "Range": null, "Time": null, "Address": null,
                                 "Person": null, "IsHit": null, "SceneImage": null})"}) {
        Placed<TypeParam> info;
        ParseCandidate(Json(text), *info);
        EXPECT_EQ(info.changedFields(), Fields{}) << text;
    }
}

TYPED_TEST(ParseCandidateOfBoth, TimeThatFailsPartWayLeavesTheRest) {
    Placed<TypeParam> info;
    ParseCandidate(Json(R"({"Time": "2024-01-05"})"), *info);
    EXPECT_EQ(info->stuTime.dwDay, 5U);
    EXPECT_EQ(info.changedFields(), (Fields{"stuTime.dwYear", "stuTime.dwMonth", "stuTime.dwDay"}));
}

TYPED_TEST(ParseCandidateOfBoth, IsHitIsAnyBoolOrNumber) {
    struct Row {
        const char* json;
        unsigned char hit;
    };
    for (const Row& row : {
             Row{"true",      1},
             Row{"false",     0},
             Row{"2",         1},
             Row{"256",       1},
             Row{"0",         0},
             Row{"0.5",       1},
             Row{R"("true")", 0},
             Row{"[]",        0}
    }) {
        Placed<TypeParam> info;
        ParseCandidate(Json(std::string(R"({"IsHit": )") + row.json + "}"), *info);
        EXPECT_EQ(info->bIsHit, row.hit) << row.json;
    }
}

TYPED_TEST(ParseCandidateOfBoth, CutsTheAddressTo260Bytes) {
    for (const std::size_t length : {258U, 259U, 260U, 300U}) {
        Placed<TypeParam> info;
        Json::Value candidate;
        candidate["Address"] = std::string(length, 'a');
        ParseCandidate(candidate, *info);
        EXPECT_EQ(info->szAddress, std::string(std::min<std::size_t>(length, 259), 'a'));
        EXPECT_EQ(info.changedFields(), Fields{"szAddress"});
    }
}

TYPED_TEST(ParseCandidateOfBoth, RendersAnAddressThatIsNoText) {
    Placed<TypeParam> info;
    ParseCandidate(Json(R"({"Address": {"Road": 17}})"), *info);
    EXPECT_STREQ(info->szAddress, R"({"Road":17})");
}

TYPED_TEST(ParseCandidateOfBoth, TakesAnyJson) {
    for (const Json::Value& value : HostileValues()) {
        jsonparser::Owned<TypeParam> root;
        ParseCandidate(value, *root);
        for (const char* name :
             {"Similarity", "Channel", "Range", "Time", "Address", "Person", "IsHit", "SceneImage"}) {
            Placed<TypeParam> info;
            info.clear();
            Json::Value candidate = Json(kCandidate);
            candidate[name] = value;
            ParseCandidate(candidate, *info);
            jsonparser::ReleaseTexts(*info);
        }
    }
}

TYPED_TEST(ParseCandidateOfBoth, LeavesTheCallersNodeAsItWas) {
    const Json::Value candidate = Json(R"({"Person": {}, "SceneImage": {}})");
    Placed<TypeParam> info;
    ParseCandidate(candidate, *info);
    EXPECT_EQ(Text(candidate), R"({"Person":{},"SceneImage":{}})");
}

TEST(ParseCandidate, ScenePathOf100CharactersIsCutInThePictureAndWholeBehindIt) {
    for (const std::size_t length : {63U, 64U, 100U, 254U, 255U, 256U, 300U}) {
        Json::Value candidate;
        candidate["SceneImage"]["FilePath"] = std::string(length, 's');
        Placed<tagCANDIDATE_INFO> first;
        ParseCandidate(candidate, *first);
        EXPECT_EQ(first->stuSceneImage.szFilePath, std::string(63, 's'));
        EXPECT_EQ(first.changedFields(), Fields{"stuSceneImage.szFilePath"});
        Placed<tagCANDIDATE_INFOEX> second;
        ParseCandidate(candidate, *second);
        EXPECT_EQ(second->stuSceneImage.szFilePath, std::string(63, 's'));
        EXPECT_EQ(second->szSceneImagePath, std::string(std::min<std::size_t>(length, 255), 's'));
    }
}

TEST(ParseCandidate, SceneImageWithoutAPathLeavesTheWholePath) {
    for (const char* text : {R"({"SceneImage": {"Width": 5}})", R"({"SceneImage": {"Width": 5, "FilePath": null}})"}) {
        Placed<tagCANDIDATE_INFOEX> info;
        ParseCandidate(Json(text), *info);
        EXPECT_EQ(info.changedFields(), Fields{"stuSceneImage.wWidth"}) << text;
    }
    Placed<tagCANDIDATE_INFOEX> info;
    ParseCandidate(Json(R"({"SceneImage": "FilePath"})"), *info);
    EXPECT_EQ(info.changedFields(), Fields{});
}

TEST(ParseCandidate, WholeScenePathIsAnyValueAsText) {
    Placed<tagCANDIDATE_INFOEX> info;
    ParseCandidate(Json(R"({"SceneImage": {"FilePath": 17}})"), *info);
    EXPECT_STREQ(info->szSceneImagePath, "17");
}

TEST(ParseCandidate, PersonOfTheFirstGenerationFillsTheCallersBuffer) {
    char comment[20];
    jsonparser::Owned<tagCANDIDATE_INFO> info;
    info->stuPersonInfo.pszComment = comment;
    info->stuPersonInfo.byCommentLen = sizeof comment;
    ParseCandidate(Json(R"({"Person": {"Comment": "regular visitor"}})"), *info);
    EXPECT_STREQ(comment, "regular visitor");
}

}  // namespace
