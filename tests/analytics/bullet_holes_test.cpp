#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <tuple>

#include "testing/json.h"
#include "testing/record.h"
#include "vkprotocolstack/message_text.h"

namespace {

using testing_tools::HostileValues;
using testing_tools::Json;

using Info = tagNET_BULLET_HOLES_INFO;

class Hole : public testing_tools::Placed<Info> {
  public:
    explicit Hole(const Json::Value& node) { EXPECT_EQ(ParseBulletHolesInfo(node, get()), 1); }
    explicit Hole(const std::string& json) : Hole(Json(json)) {}

    /// Whether the record is all zero from there on, size bytes.
    bool isZero(std::size_t begin = 0, std::size_t size = sizeof(Info)) {
        return std::all_of(bytes() + begin, bytes() + begin + size, [](unsigned char byte) { return byte == 0; });
    }
};

Json::Value With(const char* name, const Json::Value& value) {
    Json::Value node;
    node[name] = value;
    return node;
}

constexpr const char* kFull = R"({"ObjectID": 11, "ObjectType": "BulletHole", "BoundingBox": [21, -22, 23, 24],
                                  "Center": [31, -32], "Sequence": 12, "Score": 13})";

TEST(ParseBulletHolesInfo, ReadsEveryMember) {
    Hole hole{std::string(kFull)};
    EXPECT_EQ(hole->nObjectID, 11);
    EXPECT_STREQ(hole->szObjectType, "BulletHole");
    EXPECT_EQ(hole->stuBoundingBox.nLeft, 21);
    EXPECT_EQ(hole->stuBoundingBox.nTop, -22);
    EXPECT_EQ(hole->stuBoundingBox.nRight, 23);
    EXPECT_EQ(hole->stuBoundingBox.nBottom, 24);
    EXPECT_EQ(hole->stuCenter.nx, 31);
    EXPECT_EQ(hole->stuCenter.ny, -32);
    EXPECT_EQ(hole->nSequence, 12);
    EXPECT_EQ(hole->nScore, 13);
    EXPECT_TRUE(hole.isZero(180, 516));
}

TEST(ParseBulletHolesInfo, AnEmptyMessageGivesZerosAndSuccess) {
    for (const char* empty : {"{}", "null", "[]", "[1, 2, 3, 4]", "7", R"("text")", "true", R"({"score": 7})"}) {
        EXPECT_TRUE(Hole(std::string(empty)).isZero()) << empty;
    }
}

TEST(ParseBulletHolesInfo, ANullRecordGivesZero) { EXPECT_EQ(ParseBulletHolesInfo(Json(kFull), nullptr), 0); }

TEST(ParseBulletHolesInfo, NumbersKeepTheirLowBits) {
    Hole hole{std::string(R"({"ObjectID": 4294967297, "Sequence": -5, "Score": 1e300})")};
    EXPECT_EQ(hole->nObjectID, 1);
    EXPECT_EQ(hole->nSequence, -5);
    EXPECT_EQ(hole->nScore, 2147483647);
}

TEST(ParseBulletHolesInfo, AnObjectTypeIsTakenTo128Bytes) {
    for (const std::size_t length : {0U, 1U, 127U, 128U, 129U, 300U}) {
        Hole hole(With("ObjectType", std::string(length, 't')));
        const std::size_t taken = std::min<std::size_t>(length, 128);
        EXPECT_EQ(std::string(hole->szObjectType, taken), std::string(taken, 't'));
        EXPECT_TRUE(hole.isZero(4 + taken, sizeof(Info) - 4 - taken)) << length;
    }
    EXPECT_STREQ(Hole(std::string(R"({"ObjectType": "ab\u0000cd"})"))->szObjectType, "ab");
    EXPECT_STREQ(Hole(std::string(R"({"ObjectType": 42})"))->szObjectType, "42");
    EXPECT_STREQ(Hole(std::string(R"({"ObjectType": ["a"]})"))->szObjectType, "");
}

TEST(ParseBulletHolesInfo, ABoxTakesTheFirstFourElements) {
    Hole hole{std::string(R"({"BoundingBox": [1, 2147483648, "3", 4.9, 5]})")};
    EXPECT_EQ(hole->stuBoundingBox.nLeft, 1);
    EXPECT_EQ(hole->stuBoundingBox.nTop, -2147483648LL);
    EXPECT_EQ(hole->stuBoundingBox.nRight, 0);
    EXPECT_EQ(hole->stuBoundingBox.nBottom, 4);
    for (const char* box : {"[1, 2, 3]", "[]", R"({"a": 1, "b": 2, "c": 3, "d": 4})", R"("1234")"}) {
        EXPECT_TRUE(Hole(std::string(R"({"BoundingBox": )") + box + "}").isZero()) << box;
    }
}

TEST(ParseBulletHolesInfo, ACenterTakesTheLowBitsOfTheFirstTwoElements) {
    Hole hole{std::string(R"({"Center": [70000, 32768, 9]})")};
    EXPECT_EQ(hole->stuCenter.nx, 4464);
    EXPECT_EQ(hole->stuCenter.ny, -32768);
    for (const char* center : {"[5]", "[]", R"({"x": 1, "y": 2})", "7"}) {
        EXPECT_TRUE(Hole(std::string(R"({"Center": )") + center + "}").isZero()) << center;
    }
}

TEST(ParseBulletHolesInfo, AnyValueAnywhereIsRead) {
    for (const Json::Value& value : HostileValues()) {
        Hole whole(value);
        for (const std::string& member : Json(kFull).getMemberNames()) {
            Hole hole(With(member.c_str(), value));
            EXPECT_TRUE(hole.isZero(180, 516));
        }
    }
}

TEST(BulletHoleRecord, HasItsPlaces) {
    EXPECT_EQ(sizeof(Info), 696U);
    EXPECT_EQ(offsetof(Info, szObjectType), 4U);
    EXPECT_EQ(offsetof(Info, stuBoundingBox), 136U);
    EXPECT_EQ(offsetof(Info, stuCenter), 168U);
    EXPECT_EQ(offsetof(Info, nSequence), 172U);
    EXPECT_EQ(offsetof(Info, byReserved), 180U);
}

TEST(ParseBulletHolesInfo, ANullRecordOfAMessageTextGivesZero) {
    jsonparser::MessageText text(kFull);
    EXPECT_EQ(ParseBulletHolesInfo(text.at(""), nullptr), 0);
}

}  // namespace
