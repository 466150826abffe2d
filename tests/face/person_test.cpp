#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cstddef>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "testing/json.h"
#include "testing/locale.h"
#include "testing/record.h"

namespace {

using jsonparser::Owned;
using testing_tools::Fields;
using testing_tools::HostileValues;
using testing_tools::Json;
using testing_tools::kPattern;
using testing_tools::Placed;
using testing_tools::Text;
using testing_tools::Utf8Texts;

using First = tagFACERECOGNITION_PERSON_INFO;
using Second = tagFACERECOGNITION_PERSON_INFOEX;

template <class Person>
constexpr bool kIsFirst = std::is_same_v<Person, First>;

const char* NameOf(const First& info) { return info.szPersonNameEx; }
const char* NameOf(const Second& info) { return info.szPersonName; }
const char* CustomTypeOf(const First& info) { return info.szPersonName; }
const char* CustomTypeOf(const Second& info) { return info.szCustomType; }

/// What a message without members changes.
template <class Person>
Fields AlwaysWritten() {
    if (kIsFirst<Person>) return {"byGlasses", "byAge", "emEmotion"};
    return {"byGlasses", "byAge", "emEmotion", "nAttractive"};
}

/// AlwaysWritten and one more, in the order of the record.
template <class Person>
Fields AlwaysWrittenAnd(const Fields& more) {
    Fields all;
    const Fields always = AlwaysWritten<Person>();
    for (const vkrecords::Field& field : vkrecords::kLayout<Person>) {
        const auto has = [&](const Fields& names) {
            return std::find(names.begin(), names.end(), field.name) != names.end();
        };
        if (has(always) || has(more)) all.emplace_back(field.name);
    }
    return all;
}

/// A message of one member, its value as JSON.
Json::Value With(const char* name, const std::string& json) {
    Json::Value person;
    person[name] = Json(json);
    return person;
}

Json::Value WithText(const char* name, const std::string& text) {
    Json::Value person;
    person[name] = text;
    return person;
}

template <class Person>
Json::Value Packed(const Person& info) {
    Json::Value person;
    EXPECT_TRUE(PacketPersonInfo(person, info));
    return person;
}

template <class Person>
class BothPersons : public testing::Test {};
using Persons = testing::Types<First, Second>;
TYPED_TEST_SUITE(BothPersons, Persons);

// ---- reading

constexpr const char* kPerson = R"({
    "Name": "王小明", "Province": "浙江", "City": "杭州", "ID": "330100199005031234", "Important": 21, "Sex": "Female",
    "CertificateType": "Passport", "Type": "Thief", "Birthday": "1990-05-03",
    "Image": [{"Offset": 31, "FilePath": "/a.jpg"}, {"Offset": 32, "IsDetected": true}],
    "UID": "000041", "Country": "CN", "IsCustomType": 0, "Comment": "comment", "GroupID": "group 1",
    "GroupName": "第一组", "FeatureValue": "AAEC", "Glasses": 22, "Age": 23, "Emotion": "Smile",
    "HomeAddress": "西湖区", "GlassesType": "Glasses", "Race": 1, "Eye": 2, "Mouth": 3, "Mask": 4, "Beard": 5,
    "Attractive": 24, "FeatureState": 25, "CustomPersonInfo": ["one", "two"]})";

TYPED_TEST(BothPersons, ReadEverySharedMember) {
    const Utf8Texts utf8;
    Owned<TypeParam> info;
    ParsePersonInfo(Json(kPerson), *info);
    EXPECT_STREQ(NameOf(*info), "王小明");
    EXPECT_STREQ(CustomTypeOf(*info), "");
    EXPECT_STREQ(info->szProvince, "浙江");
    EXPECT_STREQ(info->szCity, "杭州");
    EXPECT_STREQ(info->szID, "330100199005031234");
    EXPECT_EQ(info->byImportant, 21);
    EXPECT_EQ(info->bySex, 2);
    EXPECT_EQ(info->byCertificateType, 2);
    EXPECT_EQ(info->byType, 3);
    EXPECT_EQ(info->wYear, 1990);
    EXPECT_EQ(info->byMonth, 5);
    EXPECT_EQ(info->byDay, 3);
    EXPECT_EQ(info->wFacePicNum, 2);
    EXPECT_EQ(info->stuFacePicInfo[0].dwOffset, 31U);
    EXPECT_STREQ(info->stuFacePicInfo[0].pszFilePath, "/a.jpg");
    EXPECT_EQ(info->stuFacePicInfo[1].dwOffset, 32U);
    EXPECT_EQ(info->stuFacePicInfo[1].pszFilePath, nullptr);
    EXPECT_EQ(info->stuFacePicInfo[1].bIsDetected, 1);
    EXPECT_STREQ(info->szUID, "000041");
    EXPECT_STREQ(info->szCountry, "CN");
    EXPECT_EQ(info->byIsCustomType, 0);
    EXPECT_EQ(info->byGlasses, 22);
    EXPECT_EQ(info->byAge, 23);
    EXPECT_EQ(info->emEmotion, 2);
}

TEST(ParsePersonInfo, ReadsTheOtherMembersOfTheSecondGeneration) {
    const Utf8Texts utf8;
    Owned<Second> info;
    ParsePersonInfo(Json(kPerson), *info);
    EXPECT_STREQ(info->szComment, "comment");
    EXPECT_STREQ(info->szGroupID, "group 1");
    EXPECT_STREQ(info->szGroupName, "第一组");
    EXPECT_STREQ(info->szHomeAddress, "西湖区");
    EXPECT_EQ(info->emGlassesType, 2);
    EXPECT_EQ(info->emRace, 2);
    EXPECT_EQ(info->emEye, 3);
    EXPECT_EQ(info->emMouth, 4);
    EXPECT_EQ(info->emMask, 5);
    EXPECT_EQ(info->emBeard, 6);
    EXPECT_EQ(info->nAttractive, 24);
    EXPECT_EQ(info->emFeatureState, 25);
    EXPECT_EQ(info->nCustomPersonInfoNum, 2);
    EXPECT_STREQ(info->stuCustomPersonInfo[0].szPersonInfo, "one");
    EXPECT_STREQ(info->stuCustomPersonInfo[1].szPersonInfo, "two");
    EXPECT_STREQ(info->stuCustomPersonInfo[2].szPersonInfo, "");
}

TYPED_TEST(BothPersons, ReadInMissingMembersTouchOnlyWhatIsReadWithoutATest) {
    Json::Value nulls;
    for (const std::string& name : Json(kPerson).getMemberNames()) nulls[name] = Json::Value();
    for (const Json::Value& person :
         {Json("{}"), Json("null"), Json("[]"), Json("[1]"), Json("7"), Json("\"Name\""), nulls}) {
        Placed<TypeParam> info;
        ParsePersonInfo(person, *info);
        EXPECT_EQ(info.changedFields(), AlwaysWritten<TypeParam>());
    }
}

TYPED_TEST(BothPersons, GlassesAndAgeAreZeroWhenMissing) {
    Placed<TypeParam> info;
    ParsePersonInfo(Json("{}"), *info);
    EXPECT_EQ(info->byGlasses, 0);
    EXPECT_EQ(info->byAge, 0);
}

TYPED_TEST(BothPersons, BytesKeepTheLow8BitsOfTheirNumbers) {
    struct Row {
        const char* number;
        unsigned char ofInt;
        unsigned char ofUnsigned;
    };
    const Row rows[] = {
        {"0",          0,   0  },
        {"255",        255, 255},
        {"256",        0,   0  },
        {"300",        44,  44 },
        {"-1",         255, 255},
        {"4294967295", 255, 255},
        {"2.9",        2,   2  },
        {"-2.9",       254, 0  },
        {"3e9",        255, 0  },
        {"true",       1,   1  },
        {R"("21")",    0,   0  },
        {"[21]",       0,   0  },
    };
    for (const Row& row : rows) {
        Placed<TypeParam> info;
        Json::Value person;
        for (const char* name : {"Important", "IsCustomType", "Glasses", "Age"}) person[name] = Json(row.number);
        ParsePersonInfo(person, *info);
        EXPECT_EQ(info->byImportant, row.ofInt) << row.number;
        EXPECT_EQ(info->byIsCustomType, row.ofInt) << row.number;
        EXPECT_EQ(info->byGlasses, row.ofUnsigned) << row.number;
        EXPECT_EQ(info->byAge, row.ofUnsigned) << row.number;
    }
}

TYPED_TEST(BothPersons, TextsAreCutToTheirFields) {
    struct Row {
        const char* member;
        std::size_t capacity;
        const char* (*field)(const TypeParam& info);
    };
    const Row rows[] = {
        {"Name",     64, [](const TypeParam& info) { return NameOf(info); }                  },
        {"Province", 64, [](const TypeParam& info) -> const char* { return info.szProvince; }},
        {"City",     64, [](const TypeParam& info) -> const char* { return info.szCity; }    },
        {"ID",       32, [](const TypeParam& info) -> const char* { return info.szID; }      },
        {"UID",      32, [](const TypeParam& info) -> const char* { return info.szUID; }     },
        {"Country",  3,  [](const TypeParam& info) -> const char* { return info.szCountry; } },
    };
    for (const Row& row : rows) {
        for (std::size_t length = row.capacity - 2; length <= row.capacity + 1; ++length) {
            Placed<TypeParam> info;
            ParsePersonInfo(WithText(row.member, std::string(length, 't')), *info);
            EXPECT_EQ(row.field(*info), std::string(std::min(length, row.capacity - 1), 't')) << row.member;
            EXPECT_EQ(info.changedFields().size(), AlwaysWritten<TypeParam>().size() + 1) << row.member;
        }
    }
}

TYPED_TEST(BothPersons, TextsOfAnyValueExceptTheUid) {
    Owned<TypeParam> info;
    ParsePersonInfo(Json(R"({"Name": 17, "Province": [1, "a"], "City": {"a": true}, "ID": 330100, "Country": 86,
                             "UID": 41})"),
                    *info);
    EXPECT_STREQ(NameOf(*info), "17");
    EXPECT_STREQ(info->szProvince, R"([1,"a"])");
    EXPECT_STREQ(info->szCity, R"({"a":true})");
    EXPECT_STREQ(info->szID, "330100");
    EXPECT_STREQ(info->szCountry, "86");
    EXPECT_STREQ(info->szUID, "");
}

TYPED_TEST(BothPersons, UidThatIsNoTextLeavesTheField) {
    for (const char* json : {"41", "true", "[]", R"(["41"])", "{}"}) {
        Placed<TypeParam> info;
        ParsePersonInfo(With("UID", json), *info);
        EXPECT_EQ(info.changedFields(), AlwaysWritten<TypeParam>()) << json;
    }
}

TYPED_TEST(BothPersons, KeywordsOfSexCertificateAndTypeInAnyCase) {
    struct Row {
        const char* member;
        const char* keyword;
        unsigned char code;
        unsigned char TypeParam::*field;
    };
    const Row rows[] = {
        {"Sex",             "Male",      1, &TypeParam::bySex            },
        {"Sex",             "Female",    2, &TypeParam::bySex            },
        {"CertificateType", "IC",        1, &TypeParam::byCertificateType},
        {"CertificateType", "Passport",  2, &TypeParam::byCertificateType},
        {"Type",            "Normal",    1, &TypeParam::byType           },
        {"Type",            "Suspicion", 2, &TypeParam::byType           },
        {"Type",            "Thief",     3, &TypeParam::byType           },
        {"Type",            "VIP",       4, &TypeParam::byType           },
        {"Type",            "FateCheck", 5, &TypeParam::byType           },
        {"Type",            "Staff",     6, &TypeParam::byType           },
    };
    for (const Row& row : rows) {
        std::string other(row.keyword);
        for (char& c : other) c = static_cast<char>(c ^ 0x20);
        for (const std::string& text : {std::string(row.keyword), other}) {
            Placed<TypeParam> info;
            ParsePersonInfo(WithText(row.member, text), *info);
            EXPECT_EQ((*info).*row.field, row.code) << row.member << ' ' << text;
            EXPECT_EQ(info.changedFields().size(), AlwaysWritten<TypeParam>().size() + 1) << row.member;
        }
    }
}

TYPED_TEST(BothPersons, SexMaleInLowerCaseIs1AndMLeavesTheField) {
    Placed<TypeParam> info;
    ParsePersonInfo(With("Sex", R"("male")"), *info);
    EXPECT_EQ(info->bySex, 1);
    Placed<TypeParam> other;
    ParsePersonInfo(With("Sex", R"("M")"), *other);
    EXPECT_EQ(other->bySex, kPattern);
}

TYPED_TEST(BothPersons, UnknownKeywordsLeaveTheirFields) {
    for (const char* member : {"Sex", "CertificateType", "Type"}) {
        for (const char* json :
             {R"("")", R"("Other")", R"("Male ")", R"("Norma")", "1", "true", "[]", "{}", R"(["Male"])"}) {
            Placed<TypeParam> info;
            ParsePersonInfo(With(member, json), *info);
            EXPECT_EQ(info.changedFields(), AlwaysWritten<TypeParam>()) << member << ' ' << json;
        }
    }
}

TYPED_TEST(BothPersons, EmotionIsARowOfTheFaceFeaturesGlassesIncluded) {
    const char* const keywords[] = {"",          "WearGlasses", "Smile",    "Anger",   "Sadness",
                                    "Disgust",   "Fear",        "Surprise", "Neutral", "Laugh",
                                    "NoGlasses", "Happy",       "Confused", "Scream",  "SunGlasses"};
    static_assert(std::size(keywords) == 15);
    for (int code = 0; code < 15; ++code) {
        Placed<TypeParam> info;
        ParsePersonInfo(WithText("Emotion", keywords[code]), *info);
        EXPECT_EQ(info->emEmotion, code) << keywords[code];
    }
}

TYPED_TEST(BothPersons, EmotionMindsTheCaseAndIs0WhenUnknownOrMissing) {
    struct Row {
        const char* text;
        int code;
    };
    for (const Row& row : {
             Row{R"({"Emotion": "Smile"})",   2},
             Row{R"({"Emotion": "smile"})",   0},
             Row{R"({"Emotion": "Smiles"})",  0},
             Row{R"({"Emotion": 2})",         0},
             Row{R"({"Emotion": ["Smile"]})", 0},
             Row{R"({"Emotion": null})",      0},
             Row{"{}",                        0}
    }) {
        Placed<TypeParam> info;
        info->emEmotion = 7;
        ParsePersonInfo(Json(row.text), *info);
        EXPECT_EQ(info->emEmotion, row.code) << row.text;
    }
}

TYPED_TEST(BothPersons, BirthdayIsScanned) {
    struct Row {
        const char* json;
        unsigned short year;
        unsigned char month;
        unsigned char day;
    };
    const Row rows[] = {
        {R"("1985-07-09")",          1985,  7,  9 },
        {R"("1990-5-3")",            1990,  5,  3 },
        {R"("1990-05-03 12:00:00")", 1990,  5,  3 },
        {R"(" 1990- 05- 03")",       1990,  5,  3 },
        {R"("1990-05")",             1990,  5,  0 },
        {R"("1990/05/03")",          1990,  0,  0 },
        {R"("19900503")",            1990,  0,  0 },
        {R"("no date")",             0,     0,  0 },
        {R"("")",                    0,     0,  0 },
        {R"("-1-5-3")",              65535, 5,  3 },
        {R"("9999-99-99")",          9999,  99, 99},
        {"1990",                     1990,  0,  0 },
        {"true",                     0,     0,  0 },
        {"[1990, 5, 3]",             0,     0,  0 },
        {"{}",                       0,     0,  0 },
    };
    for (const Row& row : rows) {
        Placed<TypeParam> info;
        ParsePersonInfo(With("Birthday", row.json), *info);
        EXPECT_EQ(info->wYear, row.year) << row.json;
        EXPECT_EQ(info->byMonth, row.month) << row.json;
        EXPECT_EQ(info->byDay, row.day) << row.json;
    }
}

TYPED_TEST(BothPersons, BirthdayWithoutDigitsIsAllZero) {
    Placed<TypeParam> info;
    ParsePersonInfo(With("Birthday", R"("unknown")"), *info);
    EXPECT_EQ(info->wYear, 0);
    EXPECT_EQ(info->byMonth, 0);
    EXPECT_EQ(info->byDay, 0);
    EXPECT_EQ(info.changedFields(), AlwaysWrittenAnd<TypeParam>({"wYear", "byMonth", "byDay"}));
}

TYPED_TEST(BothPersons, OfTheImagesTheFirst48AreRead) {
    for (const unsigned count : {0U, 1U, 47U, 48U, 49U, 50U}) {
        Placed<TypeParam> info;
        Json::Value person;
        person["Image"] = Json::Value(Json::arrayValue);
        for (unsigned i = 0; i < count; ++i) person["Image"][i]["Offset"] = 1000 + i;
        ParsePersonInfo(person, *info);
        const unsigned read = std::min(count, 48U);
        EXPECT_EQ(info->wFacePicNum, read);
        for (unsigned i = 0; i < read; ++i) EXPECT_EQ(info->stuFacePicInfo[i].dwOffset, 1000 + i);
        EXPECT_EQ(info.changedFields().size(), AlwaysWritten<TypeParam>().size() + 1 + read);
    }
}

TYPED_TEST(BothPersons, AnImageThatIsNoArraySetsTheCountTo0) {
    for (const char* json : {"[]", "7", R"("/a.jpg")", R"({"Offset": 1})"}) {
        Placed<TypeParam> info;
        ParsePersonInfo(With("Image", json), *info);
        EXPECT_EQ(info->wFacePicNum, 0) << json;
        EXPECT_EQ(info.changedFields(), AlwaysWrittenAnd<TypeParam>({"wFacePicNum"})) << json;
    }
}

TYPED_TEST(BothPersons, OwnThePathsOf48PicturesAndDoNotFreeOlderOnes) {
    Json::Value person;
    for (unsigned i = 0; i < 50; ++i) person["Image"][i]["FilePath"] = std::to_string(i) + ".jpg";
    const std::unique_ptr<char[]> mine(new char[4]{'o', 'l', 'd', '\0'});
    Owned<TypeParam> info;
    info->stuFacePicInfo[47].pszFilePath = mine.get();
    ParsePersonInfo(person, *info);
    for (unsigned i = 0; i < 48; ++i) {
        EXPECT_EQ(info->stuFacePicInfo[i].pszFilePath, std::to_string(i) + ".jpg");
    }
    EXPECT_STREQ(mine.get(), "old");
}

TYPED_TEST(BothPersons, CustomTypeThatIsNoKeywordLeavesTheTypeAndKeepsTheText) {
    Placed<TypeParam> info;
    ParsePersonInfo(Json(R"({"IsCustomType": 1, "Type": "Visitor"})"), *info);
    EXPECT_EQ(info->byType, kPattern);
    EXPECT_EQ(info->byIsCustomType, 1);
    EXPECT_STREQ(CustomTypeOf(*info), "Visitor");
    EXPECT_EQ(info.changedFields(),
              AlwaysWrittenAnd<TypeParam>({kIsFirst<TypeParam> ? "szPersonName" : "szCustomType", "byIsCustomType"}));
}

TYPED_TEST(BothPersons, CustomTypeThatIsAKeywordSetsTheTypeToo) {
    Placed<TypeParam> info;
    ParsePersonInfo(Json(R"({"IsCustomType": 257, "Type": "vip"})"), *info);
    EXPECT_EQ(info->byType, 4);
    EXPECT_STREQ(CustomTypeOf(*info), "vip");
}

TYPED_TEST(BothPersons, CustomTypeIsTakenOnlyWhenTheMessageSaysSo) {
    for (const char* text : {R"({"Type": "Visitor"})", R"({"IsCustomType": null, "Type": "Visitor"})"}) {
        Placed<TypeParam> info;
        info->byIsCustomType = 1;
        const Fields before = info.changedFields();
        ParsePersonInfo(Json(text), *info);
        EXPECT_EQ(info.changedFields(), AlwaysWrittenAnd<TypeParam>(before)) << text;
    }
    for (const char* text : {R"({"IsCustomType": 0, "Type": "Visitor"})", R"({"IsCustomType": 2, "Type": "Visitor"})",
                             R"({"IsCustomType": "1", "Type": "Visitor"})"}) {
        Placed<TypeParam> info;
        ParsePersonInfo(Json(text), *info);
        EXPECT_EQ(info.changedFields(), AlwaysWrittenAnd<TypeParam>({"byIsCustomType"})) << text;
    }
}

TYPED_TEST(BothPersons, CustomTypeIsCutTo16BytesAndEmptyWhenMissing) {
    for (const std::size_t length : {14U, 15U, 16U, 17U}) {
        Placed<TypeParam> info;
        Json::Value person = Json(R"({"IsCustomType": true})");
        person["Type"] = std::string(length, 'c');
        ParsePersonInfo(person, *info);
        EXPECT_EQ(CustomTypeOf(*info), std::string(std::min<std::size_t>(length, 15), 'c'));
    }
    Placed<TypeParam> info;
    ParsePersonInfo(Json(R"({"IsCustomType": 1})"), *info);
    EXPECT_STREQ(CustomTypeOf(*info), "");
}

TEST(ParsePersonInfo, FirstGenerationNeverPutsTheNameInTheShortName) {
    Placed<First> info;
    ParsePersonInfo(With("Name", R"("Li Si")"), *info);
    EXPECT_STREQ(info->szPersonNameEx, "Li Si");
    EXPECT_EQ(info.changedFields(), AlwaysWrittenAnd<First>({"szPersonNameEx"}));
}

// ---- reading into the caller's buffers

struct CallerText {
    const char* member;
    char* First::*buffer;
    unsigned char First::*length;
};

constexpr CallerText kCallerTexts[] = {
    {"Comment",      &First::pszComment,      &First::byCommentLen     },
    {"GroupID",      &First::pszGroupID,      &First::byGroupIdLen     },
    {"GroupName",    &First::pszGroupName,    &First::byGroupNameLen   },
    {"FeatureValue", &First::pszFeatureValue, &First::byFeatureValueLen},
};

/// What a buffer of 300 bytes of the pattern holds after a text was read into it as one of length bytes.
std::string BufferAfter(const CallerText& text, const Json::Value& person, unsigned char length) {
    std::string buffer(300, static_cast<char>(kPattern));
    Owned<First> info;
    (*info).*text.buffer = buffer.data();
    (*info).*text.length = length;
    ParsePersonInfo(person, *info);
    EXPECT_EQ((*info).*text.buffer, buffer.data());
    EXPECT_EQ((*info).*text.length, length);
    return buffer;
}

/// A buffer that holds these bytes and the pattern behind them.
std::string Filled(std::string bytes) { return bytes + std::string(300 - bytes.size(), static_cast<char>(kPattern)); }

TEST(ParsePersonInfo, CallersBufferTakesWhatFitsAndNoByteMore) {
    struct Row {
        std::size_t textLength;
        unsigned char bufferLength;
        std::size_t kept;   ///< characters of the text
        std::size_t zeros;  ///< behind them
    };
    const Row rows[] = {
        {10,  0,   0,   0}, // nothing is written
        {10,  1,   0,   1}, // a terminator
        {10,  5,   4,   1}, // shorter
        {10,  10,  9,   1}, // exactly the text without its terminator
        {10,  11,  10,  1}, // exactly the text
        {10,  12,  10,  1}, // longer: zeroed to the text's terminator only
        {10,  255, 10,  1}, //
        {0,   0,   0,   0},
        {0,   1,   0,   1},
        {0,   255, 0,   1},
        {254, 255, 254, 1},
        {255, 255, 254, 1},
        {256, 255, 254, 1},
        {300, 50,  49,  1},
    };
    for (const CallerText& text : kCallerTexts) {
        for (const Row& row : rows) {
            const std::string expected = Filled(std::string(row.kept, 't') + std::string(row.zeros, '\0'));
            EXPECT_EQ(BufferAfter(text, WithText(text.member, std::string(row.textLength, 't')), row.bufferLength),
                      expected)
                << text.member << ' ' << row.textLength << " into " << int{row.bufferLength};
        }
    }
}

TEST(ParsePersonInfo, CommentOf300BytesFillsABufferOf50) {
    const std::string comment(300, 'c');
    EXPECT_EQ(BufferAfter(kCallerTexts[0], WithText("Comment", comment), 50), Filled(std::string(49, 'c') + '\0'));
    Owned<First> info;
    info->byCommentLen = 50;
    ParsePersonInfo(WithText("Comment", comment), *info);
    EXPECT_EQ(info->pszComment, nullptr);
}

TEST(ParsePersonInfo, NullBufferIsSkipped) {
    for (const CallerText& text : kCallerTexts) {
        Placed<First> info;
        (*info).*text.buffer = nullptr;
        const Fields before = info.changedFields();
        ParsePersonInfo(WithText(text.member, "wanted by nobody"), *info);
        EXPECT_EQ(info.changedFields(), AlwaysWrittenAnd<First>(before)) << text.member;
    }
}

TEST(ParsePersonInfo, CallersBufferIsLeftByWhatIsNoText) {
    for (const CallerText& text : kCallerTexts) {
        for (const char* json : {"null", "17", "true", "2.5", "[]", R"(["a"])", R"({"a": "b"})"}) {
            EXPECT_EQ(BufferAfter(text, With(text.member, json), 255), Filled("")) << text.member << ' ' << json;
        }
        EXPECT_EQ(BufferAfter(text, Json("{}"), 255), Filled("")) << text.member;
    }
}

TEST(ParsePersonInfo, CallersBufferIsZeroedBehindAnEmbeddedNulAndACutCharacter) {
    const Utf8Texts utf8;
    const std::string text("ab\0cd", 5);
    EXPECT_EQ(BufferAfter(kCallerTexts[0], WithText("Comment", text), 255), Filled(std::string("ab\0\0\0\0", 6)));
    EXPECT_EQ(BufferAfter(kCallerTexts[0], WithText("Comment", text), 4), Filled(std::string("ab\0\0", 4)));
    EXPECT_EQ(BufferAfter(kCallerTexts[2], WithText("GroupName", "a路"), 4), Filled(std::string("a\0\0\0", 4)));
    EXPECT_EQ(BufferAfter(kCallerTexts[2], WithText("GroupName", "a路"), 5), Filled(std::string("a路\0", 5)));
}

TEST(ParsePersonInfo, EachBufferGetsItsOwnText) {
    const Utf8Texts utf8;
    char comment[16];
    char groupId[16];
    char groupName[16];
    char featureValue[16];
    Owned<First> info;
    info->pszComment = comment;
    info->pszGroupID = groupId;
    info->pszGroupName = groupName;
    info->pszFeatureValue = featureValue;
    info->byCommentLen = info->byGroupIdLen = info->byGroupNameLen = info->byFeatureValueLen = 16;
    ParsePersonInfo(Json(kPerson), *info);
    EXPECT_STREQ(comment, "comment");
    EXPECT_STREQ(groupId, "group 1");
    EXPECT_STREQ(groupName, "第一组");
    EXPECT_STREQ(featureValue, "AAEC");
}

// ---- reading the second generation

TEST(ParsePersonInfo, TextsOfTheSecondGenerationAreTakenToTheirTerminatorOnly) {
    struct Row {
        const char* member;
        const char* field;
        std::size_t offset;
        std::size_t capacity;
    };
    const Row rows[] = {
        {"Comment",     "szComment",     2208, 100},
        {"GroupID",     "szGroupID",     2308, 64 },
        {"GroupName",   "szGroupName",   2372, 128},
        {"HomeAddress", "szHomeAddress", 2504, 128},
    };
    for (const Row& row : rows) {
        for (const std::size_t length : {std::size_t{0}, std::size_t{3}, row.capacity - 2, row.capacity - 1,
                                         row.capacity, row.capacity + 1, std::size_t{300}}) {
            Placed<Second> info;
            ParsePersonInfo(WithText(row.member, std::string(length, 't')), *info);
            const std::size_t kept = std::min(length, row.capacity - 1);
            std::string expected = std::string(kept, 't') + '\0';
            expected.resize(row.capacity, static_cast<char>(kPattern));
            EXPECT_EQ(std::string(reinterpret_cast<char*>(info.bytes()) + row.offset, row.capacity), expected)
                << row.member << ' ' << length;
            EXPECT_EQ(info.changedFields(), AlwaysWrittenAnd<Second>({row.field}));
        }
        for (const char* json : {"17", "true", "[]", R"(["a"])", "{}"}) {
            Placed<Second> info;
            ParsePersonInfo(With(row.member, json), *info);
            EXPECT_EQ(info.changedFields(), AlwaysWritten<Second>()) << row.member << ' ' << json;
        }
    }
}

TEST(ParsePersonInfo, GlassesTypeMindsTheCaseAndIs0WhenUnknown) {
    struct Row {
        const char* json;
        int code;
    };
    for (const Row& row : {
             Row{R"("")",              0},
             Row{R"("SunGlasses")",    1},
             Row{R"("Glasses")",       2},
             Row{R"("glasses")",       0},
             Row{R"("NoGlasses")",     0},
             Row{"1",                  0},
             Row{"[]",                 0},
             Row{R"("Glasses\u0000")", 0}
    }) {
        Placed<Second> info;
        ParsePersonInfo(With("GlassesType", row.json), *info);
        EXPECT_EQ(info->emGlassesType, row.code) << row.json;
    }
}

struct Attribute {
    const char* member;
    int Second::*field;
};

constexpr Attribute kAttributes[] = {
    {"Race",  &Second::emRace },
    {"Eye",   &Second::emEye  },
    {"Mouth", &Second::emMouth},
    {"Mask",  &Second::emMask },
    {"Beard", &Second::emBeard}
};

TEST(ParsePersonInfo, AttributesAreStoredOneHigherAndWrapAtTheLimit) {
    struct Row {
        const char* json;
        int code;
    };
    const Row rows[] = {
        {"0",           1       },
        {"1",           2       },
        {"-1",          0       },
        {"-2",          -1      },
        {"2147483646",  INT_MAX },
        {"2147483647",  INT_MIN },
        {"1e10",        INT_MIN },
        {"-2147483648", -INT_MAX},
        {"4294967295",  0       },
        {"2.9",         3       },
        {R"("4")",      1       },
        {"[]",          1       }
    };
    for (const Attribute& attribute : kAttributes) {
        for (const Row& row : rows) {
            Placed<Second> info;
            ParsePersonInfo(With(attribute.member, row.json), *info);
            EXPECT_EQ((*info).*attribute.field, row.code) << attribute.member << ' ' << row.json;
        }
    }
}

TEST(ParsePersonInfo, Race0Stores1AndAMissingAttractiveLeavesMinus1) {
    Placed<Second> info;
    info->nAttractive = 60;
    ParsePersonInfo(With("Race", "0"), *info);
    EXPECT_EQ(info->emRace, 1);
    EXPECT_EQ(info->nAttractive, -1);
    ParsePersonInfo(With("Attractive", "0"), *info);
    EXPECT_EQ(info->nAttractive, 0);
    ParsePersonInfo(With("Attractive", "null"), *info);
    EXPECT_EQ(info->nAttractive, -1);
}

TEST(ParsePersonInfo, FeatureStateIsStoredAsItStands) {
    Placed<Second> info;
    ParsePersonInfo(With("FeatureState", "-3"), *info);
    EXPECT_EQ(info->emFeatureState, -3);
}

TEST(ParsePersonInfo, OfTheCustomInformationTheFirst4AreRead) {
    for (const unsigned count : {0U, 1U, 3U, 4U, 5U, 6U}) {
        Placed<Second> info;
        Json::Value person;
        person["CustomPersonInfo"] = Json::Value(Json::arrayValue);
        for (unsigned i = 0; i < count; ++i) person["CustomPersonInfo"][i] = "text " + std::to_string(i);
        ParsePersonInfo(person, *info);
        const unsigned read = std::min(count, 4U);
        EXPECT_EQ(info->nCustomPersonInfoNum, static_cast<int>(read));
        for (unsigned i = 0; i < read; ++i) {
            EXPECT_EQ(info->stuCustomPersonInfo[i].szPersonInfo, "text " + std::to_string(i));
        }
        EXPECT_EQ(info.changedFields().size(), AlwaysWritten<Second>().size() + 1 + read);
    }
}

TEST(ParsePersonInfo, CustomInformationIsAnyElementAsTextCutTo64Bytes) {
    Owned<Second> info;
    ParsePersonInfo(Json(R"({"CustomPersonInfo": [{"PersonInfo": "a"}, 17, null]})"), *info);
    EXPECT_STREQ(info->stuCustomPersonInfo[0].szPersonInfo, R"({"PersonInfo":"a"})");
    EXPECT_STREQ(info->stuCustomPersonInfo[1].szPersonInfo, "17");
    EXPECT_STREQ(info->stuCustomPersonInfo[2].szPersonInfo, "");
    for (const std::size_t length : {62U, 63U, 64U, 65U}) {
        Placed<Second> cut;
        Json::Value person;
        person["CustomPersonInfo"][0] = std::string(length, 't');
        ParsePersonInfo(person, *cut);
        EXPECT_EQ(cut->stuCustomPersonInfo[0].szPersonInfo, std::string(std::min<std::size_t>(length, 63), 't'));
    }
}

TEST(ParsePersonInfo, CustomInformationThatIsNoArraySetsTheCountTo0) {
    for (const char* json : {"7", R"("text")", R"({"0": "text"})"}) {
        Placed<Second> info;
        ParsePersonInfo(With("CustomPersonInfo", json), *info);
        EXPECT_EQ(info->nCustomPersonInfoNum, 0) << json;
        EXPECT_EQ(info.changedFields(), AlwaysWrittenAnd<Second>({"nCustomPersonInfoNum"})) << json;
    }
}

// ---- hostile messages

TYPED_TEST(BothPersons, TakeAnyJson) {
    std::vector<std::string> names = Json(kPerson).getMemberNames();
    for (const Json::Value& value : HostileValues()) {
        Owned<TypeParam> root;
        ParsePersonInfo(value, *root);
        for (const std::string& name : names) {
            char buffers[4][40];
            Placed<TypeParam> info;
            info.clear();
            if constexpr (kIsFirst<TypeParam>) {
                for (std::size_t i = 0; i < 4; ++i) {
                    (*info).*kCallerTexts[i].buffer = buffers[i];
                    (*info).*kCallerTexts[i].length = sizeof buffers[i];
                }
            }
            Json::Value person = Json(kPerson);
            person["IsCustomType"] = 1;
            person[name] = value;
            ParsePersonInfo(person, *info);
            jsonparser::ReleaseTexts(*info);
        }
    }
}

TYPED_TEST(BothPersons, LeaveTheCallersNodeAsItWas) {
    const Json::Value person = Json(R"({"Image": [{}], "Type": null})");
    Placed<TypeParam> info;
    ParsePersonInfo(person, *info);
    EXPECT_EQ(Text(person), R"({"Image":[{}],"Type":null})");
}

// ---- writing

TEST(PacketPersonInfo, ClearedRecordOfTheFirstGeneration) {
    const Owned<First> info;
    EXPECT_EQ(Text(Packed(*info)),
              R"({"City":"","Country":"","Glasses":0,"ID":"","IsCustomType":0,"Name":"","Province":"","UID":""})");
}

TEST(PacketPersonInfo, ClearedRecordOfTheSecondGeneration) {
    const Owned<Second> info;
    EXPECT_EQ(Text(Packed(*info)),
              R"({"Attractive":0,"City":"","Comment":"","Country":"","Glasses":0,"GroupID":"","GroupName":"",)"
              R"("HomeAddress":"","ID":"","IsCustomType":0,"Name":"","Province":"","UID":""})");
}

/// Fills the fields that both generations have.
template <class Person>
void FillShared(Person& info) {
    std::strcpy(info.szPersonName, "short");
    info.wYear = 1990;
    info.byMonth = 5;
    info.byDay = 3;
    std::strcpy(info.szID, "330100199005031234");
    info.byImportant = 21;
    info.bySex = 2;
    info.wFacePicNum = 2;
    static char path[] = "/a.jpg";
    info.stuFacePicInfo[0] = {4000000000, 32, 33, 34, path, 1, {}};
    info.stuFacePicInfo[1] = {41, 42, 65535, 44, nullptr, 200, {}};
    info.byType = 3;
    info.byCertificateType = 2;
    info.byGlasses = 22;
    info.byAge = 23;
    std::strcpy(info.szProvince, "浙江");
    std::strcpy(info.szCity, "杭州");
    std::strcpy(info.szUID, "000041");
    std::strcpy(info.szCountry, "CN");
    info.emEmotion = 2;
}

TEST(PacketPersonInfo, WritesEveryFieldOfTheFirstGeneration) {
    const Utf8Texts utf8;
    Placed<First> info;
    info.clear();
    FillShared(*info);
    std::strcpy(info->szPersonNameEx, "王小明");
    char comment[100] = "comment";
    char groupId[] = "group 1";
    char groupName[] = "group name";
    char featureValue[] = "AAEC";
    info->pszComment = comment;
    info->pszGroupID = groupId;
    info->pszGroupName = groupName;
    info->pszFeatureValue = featureValue;
    info->byGroupIdLen = sizeof groupId;
    info->byGroupNameLen = sizeof groupName;
    info->byFeatureValueLen = sizeof featureValue;
    EXPECT_EQ(Text(Packed(*info)),
              R"({"Birthday":"1990-5-3","CertificateType":"Passport","City":"杭州","Comment":"comment","Country":"CN",)"
              R"("FeatureValue":"AAEC","Glasses":22,"GroupID":"group 1","GroupName":"group name",)"
              R"("ID":"330100199005031234","Image":[)"
              R"({"Height":34,"IsDetected":1,"Length":32,"Offset":4000000000,"Width":33},)"
              R"({"Height":44,"IsDetected":200,"Length":42,"Offset":41,"Width":65535}],)"
              R"("Important":21,"IsCustomType":0,"Name":"王小明","Province":"浙江","Sex":"Female","Type":"Thief",)"
              R"("UID":"000041"})");
}

TEST(PacketPersonInfo, WritesEveryFieldOfTheSecondGeneration) {
    const Utf8Texts utf8;
    Placed<Second> info;
    info.clear();
    FillShared(*info);
    std::strcpy(info->szPersonName, "a name of more than sixteen bytes");
    std::strcpy(info->szComment, "comment");
    std::strcpy(info->szGroupID, "group 1");
    std::strcpy(info->szGroupName, "第一组");
    std::strcpy(info->szHomeAddress, "西湖区");
    info->emGlassesType = 1;
    info->emRace = 2;
    info->emEye = 3;
    info->emMouth = 4;
    info->emMask = 5;
    info->emBeard = 6;
    info->nAttractive = 24;
    info->emFeatureState = 25;
    info->bAgeEnable = 1;
    info->nAgeRange[0] = 20;
    info->nAgeRange[1] = 30;
    info->nEmotionValidNum = 2;
    info->emEmotions[0] = 2;
    info->emEmotions[1] = 14;
    info->emEmotions[2] = 3;
    info->nCustomPersonInfoNum = 2;
    std::strcpy(info->stuCustomPersonInfo[0].szPersonInfo, "one");
    std::strcpy(info->stuCustomPersonInfo[1].szPersonInfo, "two");
    EXPECT_EQ(Text(Packed(*info)),
              R"({"Age":[20,30],"Attractive":24,"Beard":5,"Birthday":"1990-5-3","CertificateType":"Passport",)"
              R"("City":"杭州","Comment":"comment","Country":"CN",)"
              R"("CustomPersonInfo":[{"PersonInfo":"one"},{"PersonInfo":"two"}],"Emotion":["Smile","SunGlasses"],)"
              R"("Eye":2,"FeatureState":25,"Glasses":22,"GlassesType":"SunGlasses","GroupID":"group 1",)"
              R"("GroupName":"第一组","HomeAddress":"西湖区","ID":"330100199005031234","Image":[)"
              R"({"Height":34,"IsDetected":1,"Length":32,"Offset":4000000000,"Width":33},)"
              R"({"Height":44,"IsDetected":200,"Length":42,"Offset":41,"Width":65535}],)"
              R"("Important":21,"IsCustomType":0,"Mask":4,"Mouth":3,"Name":"a name of more than sixteen bytes",)"
              R"("Province":"浙江","Race":1,"Sex":"Female","Type":"Thief","UID":"000041"})");
}

TEST(PacketPersonInfo, TwoPicturesAreTwoObjectsOfFiveMembersWithoutAPath) {
    Owned<First> info;
    info->wFacePicNum = 2;
    const Json::Value image = Packed(*info)["Image"];
    ASSERT_EQ(image.size(), 2U);
    for (const Json::Value& picture : image) {
        EXPECT_EQ(Text(picture), R"({"Height":0,"IsDetected":0,"Length":0,"Offset":0,"Width":0})");
        EXPECT_EQ(picture["Offset"].type(), Json::uintValue);
        EXPECT_EQ(picture["Length"].type(), Json::uintValue);
        EXPECT_EQ(picture["Width"].type(), Json::intValue);
        EXPECT_EQ(picture["IsDetected"].type(), Json::intValue);
    }
}

TEST(PacketPersonInfo, NameIsTheLongOneOrElseTheShortOne) {
    Owned<First> info;
    std::strcpy(info->szPersonName, "short");
    EXPECT_EQ(Packed(*info)["Name"], Json::Value("short"));
    std::strcpy(info->szPersonNameEx, "long");
    EXPECT_EQ(Packed(*info)["Name"], Json::Value("long"));
    std::strcpy(info->szPersonNameEx, "L");
    EXPECT_EQ(Packed(*info)["Name"], Json::Value("L"));
}

TYPED_TEST(BothPersons, WriteSexCertificateAndTypeWithAKeywordOnly) {
    struct Row {
        const char* member;
        unsigned char TypeParam::*field;
        std::vector<const char*> keywords;  ///< of the codes from 1 on
    };
    const Row rows[] = {
        {"Sex",             &TypeParam::bySex,             {"Male", "Female"}                                           },
        {"CertificateType", &TypeParam::byCertificateType, {"IC", "Passport"}                                           },
        {"Type",            &TypeParam::byType,            {"Normal", "Suspicion", "Thief", "VIP", "FateCheck", "Staff"}},
    };
    for (const Row& row : rows) {
        for (unsigned code = 0; code < 256; ++code) {
            Owned<TypeParam> info;
            (*info).*row.field = static_cast<unsigned char>(code);
            const Json::Value person = Packed(*info);
            const bool has = code >= 1 && code <= row.keywords.size();
            ASSERT_EQ(person.isMember(row.member), has) << row.member << ' ' << code;
            if (!has) continue;
            EXPECT_EQ(person[row.member], Json::Value(row.keywords[code - 1]));
        }
    }
}

TYPED_TEST(BothPersons, WriteABirthdayWithoutLeadingZerosWhenItIsWhole) {
    struct Row {
        unsigned short year;
        unsigned char month;
        unsigned char day;
        const char* text;  ///< null when it is not written
    };
    const Row rows[] = {
        {1990,  5,   3,   "1990-5-3"     },
        {1990,  12,  31,  "1990-12-31"   },
        {7,     1,   1,   "7-1-1"        },
        {65535, 255, 255, "65535-255-255"},
        {1990,  0,   3,   nullptr        },
        {0,     5,   3,   nullptr        },
        {1990,  5,   0,   nullptr        },
        {0,     0,   0,   nullptr        },
    };
    for (const Row& row : rows) {
        Owned<TypeParam> info;
        info->wYear = row.year;
        info->byMonth = row.month;
        info->byDay = row.day;
        const Json::Value person = Packed(*info);
        EXPECT_EQ(person["Birthday"], row.text == nullptr ? Json::Value() : Json::Value(row.text));
        EXPECT_EQ(person.isMember("Birthday"), row.text != nullptr);
    }
}

TYPED_TEST(BothPersons, WriteTheCustomTypeWhenItIsCustom) {
    Owned<TypeParam> info;
    info->byType = 4;
    std::memcpy(const_cast<char*>(CustomTypeOf(*info)), "Visitor of today", 16);
    info->wYear = 0x6666;
    if constexpr (!kIsFirst<TypeParam>) info->szComment[0] = 'f';
    info->byIsCustomType = 1;
    EXPECT_EQ(Packed(*info)["Type"], Json::Value("Visitor of today"));
    EXPECT_EQ(Packed(*info)["IsCustomType"], Json::Value(1));
    info->byIsCustomType = 0;
    EXPECT_EQ(Packed(*info)["Type"], Json::Value("VIP"));
}

TYPED_TEST(BothPersons, IsCustomType2IsWrittenWithoutAType) {
    for (const int custom : {2, 255}) {
        Owned<TypeParam> info;
        info->byType = 4;
        std::strcpy(const_cast<char*>(CustomTypeOf(*info)), "Visitor");
        info->byIsCustomType = static_cast<unsigned char>(custom);
        EXPECT_EQ(Packed(*info)["IsCustomType"], Json::Value(custom));
        EXPECT_FALSE(Packed(*info).isMember("Type"));
    }
}

TYPED_TEST(BothPersons, WriteFullFieldsWithoutATerminator) {
    Placed<TypeParam> info;
    info.clear();
    const auto fill = [](auto& field) { std::memset(field, 'f', sizeof field); };
    fill(info->szPersonName);
    fill(info->szID);
    fill(info->szProvince);
    fill(info->szCity);
    fill(info->szUID);
    fill(info->szCountry);
    // Behind full fields, so that a text that runs on shows.
    info->wYear = 0x6666;
    info->byImportant = 'f';
    info->byIsCustomType = 'f';
    Json::Value person = Packed(*info);
    EXPECT_EQ(person["Name"], Json::Value(std::string(kIsFirst<TypeParam> ? 16 : 64, 'f')));
    EXPECT_EQ(person["ID"], Json::Value(std::string(32, 'f')));
    EXPECT_EQ(person["Province"], Json::Value(std::string(64, 'f')));
    EXPECT_EQ(person["City"], Json::Value(std::string(64, 'f')));
    EXPECT_EQ(person["UID"], Json::Value(std::string(32, 'f')));
    EXPECT_EQ(person["Country"], Json::Value("fff"));
    if constexpr (kIsFirst<TypeParam>) {
        fill(info->szPersonNameEx);
        EXPECT_EQ(Packed(*info)["Name"], Json::Value(std::string(64, 'f')));
    } else {
        info->nCustomPersonInfoNum = 1;
        fill(info->szCustomType);
        fill(info->szComment);
        fill(info->szGroupID);
        fill(info->szGroupName);
        fill(info->szHomeAddress);
        fill(info->stuCustomPersonInfo[0].szPersonInfo);
        info->emEmotion = 0x66666666;
        info->emGlassesType = 0x66666666;
        info->byIsCustomType = 1;
        person = Packed(*info);
        EXPECT_EQ(person["Type"], Json::Value(std::string(16, 'f')));
        EXPECT_EQ(person["Comment"], Json::Value(std::string(100, 'f')));
        EXPECT_EQ(person["GroupID"], Json::Value(std::string(64, 'f')));
        EXPECT_EQ(person["GroupName"], Json::Value(std::string(128, 'f')));
        EXPECT_EQ(person["HomeAddress"], Json::Value(std::string(128, 'f')));
        EXPECT_EQ(person["CustomPersonInfo"][0]["PersonInfo"], Json::Value(std::string(64, 'f')));
    }
}

TEST(PacketPersonInfo, CommentIsReadTo100BytesWhateverItsLengthSays) {
    const std::unique_ptr<char[]> buffer(new char[100]);
    std::memset(buffer.get(), 'c', 100);
    Owned<First> info;
    info->pszComment = buffer.get();
    for (const unsigned char length : std::initializer_list<unsigned char>{0, 5, 100, 255}) {
        info->byCommentLen = length;
        EXPECT_EQ(Packed(*info)["Comment"], Json::Value(std::string(100, 'c'))) << int{length};
    }
    buffer[7] = '\0';
    info->byCommentLen = 5;
    EXPECT_EQ(Packed(*info)["Comment"], Json::Value("ccccccc"));
    std::string longer(200, 'c');
    info->pszComment = longer.data();
    info->byCommentLen = 200;
    EXPECT_EQ(Packed(*info)["Comment"], Json::Value(std::string(100, 'c')));
}

TEST(PacketPersonInfo, OtherBuffersAreReadToTheirLengths) {
    for (std::size_t i = 1; i < 4; ++i) {
        const CallerText& text = kCallerTexts[i];
        for (const unsigned char length : std::initializer_list<unsigned char>{0, 1, 9, 10}) {
            const std::unique_ptr<char[]> buffer(new char[10]);
            std::memset(buffer.get(), 't', 10);
            Owned<First> info;
            (*info).*text.buffer = buffer.get();
            (*info).*text.length = length;
            EXPECT_EQ(Packed(*info)[text.member], Json::Value(std::string(length, 't'))) << text.member;
        }
        Owned<First> info;
        (*info).*text.length = 10;
        EXPECT_FALSE(Packed(*info).isMember(text.member));
    }
}

TEST(PacketPersonInfo, GlassesTypeIsWrittenWithAKeywordOnly) {
    struct Row {
        int code;
        const char* text;
    };
    for (const Row& row : {
             Row{0,       nullptr     },
             Row{1,       "SunGlasses"},
             Row{2,       "Glasses"   },
             Row{3,       nullptr     },
             Row{-1,      nullptr     },
             Row{INT_MAX, nullptr     },
             Row{INT_MIN, nullptr     }
    }) {
        Owned<Second> info;
        info->emGlassesType = row.code;
        const Json::Value person = Packed(*info);
        EXPECT_EQ(person["GlassesType"], row.text == nullptr ? Json::Value() : Json::Value(row.text)) << row.code;
        EXPECT_EQ(person.isMember("GlassesType"), row.text != nullptr) << row.code;
    }
}

TEST(PacketPersonInfo, AttributesAreWrittenOneLowerAndNotWhen0) {
    for (const Attribute& attribute : kAttributes) {
        for (const int code : {1, 2, 7, -1, INT_MAX, -INT_MAX}) {
            Owned<Second> info;
            (*info).*attribute.field = code;
            EXPECT_EQ(Packed(*info)[attribute.member], Json::Value(code - 1)) << attribute.member;
        }
        Owned<Second> info;
        EXPECT_FALSE(Packed(*info).isMember(attribute.member));
        (*info).*attribute.field = INT_MIN;
        EXPECT_EQ(Packed(*info)[attribute.member], Json::Value(INT_MAX)) << attribute.member;
    }
}

TEST(PacketPersonInfo, AttractiveIsWrittenUnlessNegativeAndFeatureStateUnless0) {
    for (const int value : {INT_MIN, -1, 0, 1, INT_MAX}) {
        Owned<Second> info;
        info->nAttractive = value;
        info->emFeatureState = value;
        EXPECT_EQ(Packed(*info)["Attractive"], value < 0 ? Json::Value() : Json::Value(value));
        EXPECT_EQ(Packed(*info)["FeatureState"], value == 0 ? Json::Value() : Json::Value(value));
    }
}

TEST(PacketPersonInfo, Race1Packs0AndAttractiveMinus1PacksNothing) {
    Owned<Second> info;
    info->emRace = 1;
    info->nAttractive = -1;
    EXPECT_EQ(Packed(*info)["Race"], Json::Value(0));
    EXPECT_FALSE(Packed(*info).isMember("Attractive"));
    info->emRace = 0;
    info->nAttractive = 0;
    EXPECT_FALSE(Packed(*info).isMember("Race"));
    EXPECT_EQ(Packed(*info)["Attractive"], Json::Value(0));
}

TEST(PacketPersonInfo, AgeIsTheRangeWhenItIsEnabled) {
    Owned<Second> info;
    info->byAge = 25;
    info->nAgeRange[0] = 20;
    info->nAgeRange[1] = 30;
    EXPECT_FALSE(Packed(*info).isMember("Age"));
    for (const unsigned char enable : std::initializer_list<unsigned char>{1, 2, 255}) {
        info->bAgeEnable = enable;
        EXPECT_EQ(Text(Packed(*info)["Age"]), "[20,30]");
    }
}

TEST(PacketPersonInfo, EmotionsAreKeywordsAStarAndEmptyTexts) {
    Owned<Second> info;
    const int codes[] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, -1, INT_MAX, INT_MIN};
    info->nEmotionValidNum = std::size(codes);
    std::copy(std::begin(codes), std::end(codes), info->emEmotions);
    EXPECT_EQ(Text(Packed(*info)["Emotion"]),
              R"(["*","WearGlasses","Smile","Anger","Sadness","Disgust","Fear","Surprise","Neutral","Laugh",)"
              R"("NoGlasses","Happy","Confused","Scream","SunGlasses","","","",""])");
}

TEST(PacketPersonInfo, EmotionCodes0And2And20AreAStarSmileAndAnEmptyText) {
    Owned<Second> info;
    info->nEmotionValidNum = 3;
    info->emEmotions[0] = 0;
    info->emEmotions[1] = 2;
    info->emEmotions[2] = 20;
    EXPECT_EQ(Text(Packed(*info)["Emotion"]), R"(["*","Smile",""])");
}

TEST(PacketPersonInfo, EmotionsAreAtMost32AndANegativeNumberIsAllOfThem) {
    struct Row {
        int count;
        unsigned written;
    };
    for (const Row& row : {
             Row{1,       1 },
             Row{31,      31},
             Row{32,      32},
             Row{33,      32},
             Row{INT_MAX, 32},
             Row{-1,      32},
             Row{INT_MIN, 32}
    }) {
        Owned<Second> info;
        info->nEmotionValidNum = row.count;
        info->emEmotions[31] = 2;
        Json::Value emotion = Packed(*info)["Emotion"];
        EXPECT_EQ(emotion.size(), row.written) << row.count;
        EXPECT_EQ(emotion[31], row.written == 32 ? Json::Value("Smile") : Json::Value());
    }
    const Owned<Second> none;
    EXPECT_FALSE(Packed(*none).isMember("Emotion"));
}

/// A record in a larger stretch of bytes, each of its own value, so that what stands behind the record's arrays shows.
template <class Person>
class Embedded {
  public:
    Embedded() : bytes_(new unsigned char[kSize]) {
        for (std::size_t i = 0; i < kSize; ++i) bytes_[i] = static_cast<unsigned char>(1 + i % 251);
        const Owned<Person> cleared;
        std::memcpy(bytes_.get(), cleared.get(), offsetof(Person, stuFacePicInfo));
    }
    Person& record() { return *reinterpret_cast<Person*>(bytes_.get()); }
    /// The element of an array that begins at offset, whether the array has it or not.
    template <class Element>
    Element at(std::size_t offset, std::size_t i) const {
        Element element;
        EXPECT_LE(offset + (i + 1) * sizeof element, kSize);
        std::memcpy(&element, bytes_.get() + offset + i * sizeof element, sizeof element);
        return element;
    }

  private:
    static constexpr std::size_t kSize = sizeof(Person) + 4096;
    std::unique_ptr<unsigned char[]> bytes_;
};

TYPED_TEST(BothPersons, WriteAsManyPicturesAsTheCountSaysAlsoBehindTheArray) {
    for (const unsigned short count : std::initializer_list<unsigned short>{48, 49, 50, 100}) {
        Embedded<TypeParam> buffer;
        buffer.record().wFacePicNum = count;
        if constexpr (kIsFirst<TypeParam>) {
            for (const CallerText& text : kCallerTexts) buffer.record().*text.buffer = nullptr;
        } else {
            buffer.record().nCustomPersonInfoNum = 0;
        }
        const Json::Value image = Packed(buffer.record())["Image"];
        ASSERT_EQ(image.size(), count);
        for (unsigned i = 0; i < count; ++i) {
            const auto picture = buffer.template at<VK_PIC_INFO>(offsetof(TypeParam, stuFacePicInfo), i);
            Json::Value expected;
            expected["Offset"] = picture.dwOffset;
            expected["Length"] = picture.dwFileLength;
            expected["Width"] = picture.wWidth;
            expected["Height"] = picture.wHeight;
            expected["IsDetected"] = picture.bIsDetected;
            EXPECT_EQ(image[i], expected) << i;
        }
    }
}

TEST(PacketPersonInfo, AsMuchCustomInformationAsTheCountSaysAlsoBehindTheArray) {
    const Utf8Texts utf8;
    for (const int count : {4, 5, 10, 20}) {
        Embedded<Second> buffer;
        buffer.record().nCustomPersonInfoNum = count;
        const Json::Value custom = Packed(buffer.record())["CustomPersonInfo"];
        ASSERT_EQ(custom.size(), static_cast<unsigned>(count));
        for (int i = 0; i < count; ++i) {
            const auto element =
                buffer.at<tagCUSTOM_PERSON_INFO>(offsetof(Second, stuCustomPersonInfo), static_cast<std::size_t>(i));
            const std::string text(element.szPersonInfo, strnlen(element.szPersonInfo, 64));
            EXPECT_EQ(Text(custom[i]), Text(Json::Value(WithText("PersonInfo", text)))) << i;
        }
    }
}

/// Reading a message and writing the record again: what becomes of one member.
struct Asymmetry {
    const char* member;
    const char* message;
    const char* first;   ///< the member that the first generation writes, as JSON; empty when it writes none
    const char* second;  ///< and the second generation
};

constexpr Asymmetry kAsymmetries[] = {
    {"Name",             R"({})",                                                        R"("")",                                                            R"("")"                                                           },
    {"Name",             R"({"Name": "Wang Xiaoming of Hangzhou"})",                     R"("Wang Xiaoming of Hangzhou")",
     R"("Wang Xiaoming of Hangzhou")"                                                                                                                                                                                          },
    {"Name",             R"({"IsCustomType": 1, "Type": "Visitor"})",                    R"("Visitor")",                                                     R"("")"                                                           },
    {"Name",             R"({"IsCustomType": 1, "Type": "Visitor", "Name": "Wang"})",    R"("Wang")",                                                        R"("Wang")"                                                       },
    {"Type",             R"({"IsCustomType": 1, "Type": "Visitor"})",                    R"("Visitor")",                                                     R"("Visitor")"                                                    },
    {"Type",             R"({"IsCustomType": 1, "Type": "Visitor of the day"})",         R"("Visitor of the ")",                                             R"("Visitor of the ")"                                            },
    {"Type",             R"({"IsCustomType": 0, "Type": "Visitor"})",                    "",                                                                 ""                                                                },
    {"Type",             R"({"IsCustomType": 0, "Type": "vip"})",                        R"("VIP")",                                                         R"("VIP")"                                                        },
    {"Birthday",         R"({"Birthday": "1990-05-03"})",                                R"("1990-5-3")",                                                    R"("1990-5-3")"                                                   },
    {"Birthday",         R"({"Birthday": "1990-00-03"})",                                "",                                                                 ""                                                                },
    {"Image",            R"({"Image": [{"FilePath": "/a.jpg", "IsDetected": true}]})",
     R"([{"Height":0,"IsDetected":1,"Length":0,"Offset":0,"Width":0}])",                                                                                     R"([{"Height":0,"IsDetected":1,"Length":0,"Offset":0,"Width":0}])"},
    {"Image",            R"({"Image": [{"IsDetected": 1}]})",                            R"([{"Height":0,"IsDetected":0,"Length":0,"Offset":0,"Width":0}])",
     R"([{"Height":0,"IsDetected":0,"Length":0,"Offset":0,"Width":0}])"                                                                                                                                                        },
    {"Image",            R"({"Image": []})",                                             "",                                                                 ""                                                                },
    {"Comment",          R"({"Comment": "twenty bytes of text"})",                       R"("twent!the rest")",                                              R"("twenty bytes of text")"                                       },
    {"Important",        R"({"Important": 3})",                                          "3",                                                                "3"                                                               },
    {"Important",        R"({"Important": 256})",                                        "",                                                                 ""                                                                },
    {"Age",              R"({"Age": 34})",                                               "",                                                                 ""                                                                },
    {"Emotion",          R"({"Emotion": "Smile"})",                                      "",                                                                 ""                                                                },
    {"Race",             R"({"Race": 0})",                                               "",                                                                 "0"                                                               },
    {"Eye",              R"({"Eye": 6})",                                                "",                                                                 "6"                                                               },
    {"Mouth",            R"({"Mouth": -1})",                                             "",                                                                 ""                                                                },
    {"Mask",             R"({"Mask": 2147483647})",                                      "",                                                                 "2147483647"                                                      },
    {"Beard",            R"({})",                                                        "",                                                                 ""                                                                },
    {"Attractive",       R"({})",                                                        "",                                                                 ""                                                                },
    {"Attractive",       R"({"Attractive": -5})",                                        "",                                                                 ""                                                                },
    {"Attractive",       R"({"Attractive": 60})",                                        "",                                                                 "60"                                                              },
    {"CustomPersonInfo", R"({"CustomPersonInfo": ["a", {"PersonInfo": "b"}, 3, 4, 5]})", "",
     R"([{"PersonInfo":"a"},{"PersonInfo":"{\"PersonInfo\":\"b\"}"},{"PersonInfo":"3"},{"PersonInfo":"4"}])"                                                                                                                   },
};

std::string Member(const Json::Value& person, const char* name) {
    return person.isMember(name) ? Text(person[name]) : "";
}

TEST(PacketPersonInfo, IsNotTheMirrorOfTheReader) {
    for (const Asymmetry& row : kAsymmetries) {
        // The reader keeps to the length that is stated, 6; the writer does not.
        char comment[100] = "......the rest";
        Owned<First> first;
        first->byCommentLen = 6;
        if (row.member == std::string("Comment")) first->pszComment = comment;
        ParsePersonInfo(Json(row.message), *first);
        if (comment[5] == '\0') comment[5] = '!';
        EXPECT_EQ(Member(Packed(*first), row.member), row.first) << row.message;
        Owned<Second> second;
        ParsePersonInfo(Json(row.message), *second);
        EXPECT_EQ(Member(Packed(*second), row.member), row.second) << row.message;
    }
}

TYPED_TEST(BothPersons, KeepWhatTheyDoNotWriteInTheNode) {
    Json::Value person = Json(R"({"Sex": "Male", "Birthday": "1980-01-01", "Other": 1, "Name": [1],
                                  "Image": [{"FilePath": "/a.jpg", "Width": "w"}, 7, {"FilePath": "/c.jpg"}]})");
    Owned<TypeParam> info;
    info->wFacePicNum = 2;
    EXPECT_TRUE(PacketPersonInfo(person, *info));
    EXPECT_EQ(person["Sex"], Json::Value("Male"));
    EXPECT_EQ(person["Birthday"], Json::Value("1980-01-01"));
    EXPECT_EQ(person["Other"], Json::Value(1));
    EXPECT_EQ(person["Name"], Json::Value(""));
    EXPECT_EQ(Text(person["Image"]),
              R"([{"FilePath":"/a.jpg","Height":0,"IsDetected":0,"Length":0,"Offset":0,"Width":0},)"
              R"({"Height":0,"IsDetected":0,"Length":0,"Offset":0,"Width":0},{"FilePath":"/c.jpg"}])");
}

TYPED_TEST(BothPersons, ReplaceANodeThatIsNoContainerOfWhatTheyWrite) {
    for (const Json::Value& value : HostileValues()) {
        Owned<TypeParam> info;
        FillShared(*info);
        info->stuFacePicInfo[0].pszFilePath = nullptr;
        Json::Value root = value;
        EXPECT_TRUE(PacketPersonInfo(root, *info));
        EXPECT_TRUE(root.isObject());
        EXPECT_EQ(root["Sex"], Json::Value("Female"));
        Json::Value person;
        for (const char* name : {"Image", "Age", "Emotion", "CustomPersonInfo", "Name", "Type"}) person[name] = value;
        if constexpr (!kIsFirst<TypeParam>) {
            info->bAgeEnable = 1;
            info->nEmotionValidNum = 1;
            info->nCustomPersonInfoNum = 1;
        }
        EXPECT_TRUE(PacketPersonInfo(person, *info));
        EXPECT_TRUE(person["Image"].isArray());
        EXPECT_EQ(person["Image"][1]["Width"], Json::Value(65535));
        EXPECT_EQ(person["Type"], Json::Value("Thief"));
        if constexpr (!kIsFirst<TypeParam>) {
            EXPECT_EQ(person["Age"][1], Json::Value(0));
            EXPECT_EQ(person["Emotion"][0], Json::Value("*"));
            EXPECT_EQ(person["CustomPersonInfo"][0]["PersonInfo"], Json::Value(""));
        }
    }
}

}  // namespace
