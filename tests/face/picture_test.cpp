#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <memory>
#include <new>
#include <string>

#include "testing/json.h"
#include "testing/record.h"

namespace {

/// What the last allocation without exceptions asked for, and whether the next ones fail.
std::size_t lastSize = 0;
bool allocationsFail = false;

}  // namespace

void* operator new[](std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    lastSize = size;
    if (allocationsFail) return nullptr;
    try {
        return ::operator new[](size);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

namespace {

using testing_tools::Fields;
using testing_tools::HostileValues;
using testing_tools::Json;
using testing_tools::kPattern;
using testing_tools::Placed;

constexpr const char* kPicture = R"({"Offset": 11, "Length": 12, "Width": 13, "Height": 14, "FilePath": "/mnt/脸.jpg",
    "IsDetected": true})";

/// Releases the path that the converter gave the record.
std::unique_ptr<char[]> PathOf(const VK_PIC_INFO& info) { return std::unique_ptr<char[]>(info.pszFilePath); }

void Release(VK_PIC_INFO& info) { jsonparser::ReleaseTexts(info); }
void Release(VK_PIC_INFO_EX3& /*info*/) {}

template <class Picture>
class ParseImageInfoOfBoth : public testing::Test {};
using Pictures = testing::Types<VK_PIC_INFO, VK_PIC_INFO_EX3>;
TYPED_TEST_SUITE(ParseImageInfoOfBoth, Pictures);

TYPED_TEST(ParseImageInfoOfBoth, ReadsEveryNumber) {
    Placed<TypeParam> info;
    ParseImageInfo(Json(kPicture), *info);
    EXPECT_EQ(info->dwOffset, 11U);
    EXPECT_EQ(info->dwFileLength, 12U);
    EXPECT_EQ(info->wWidth, 13);
    EXPECT_EQ(info->wHeight, 14);
    EXPECT_EQ(info->bIsDetected, 1);
    const auto* field = std::is_same_v<TypeParam, VK_PIC_INFO> ? "pszFilePath" : "szFilePath";
    EXPECT_EQ(info.changedFields(), (Fields{"dwOffset", "dwFileLength", "wWidth", "wHeight", field, "bIsDetected"}));
    Release(*info);
}

TYPED_TEST(ParseImageInfoOfBoth, NumbersKeepTheirLowBits) {
    struct Row {
        const char* number;
        unsigned offset;
        unsigned short width;
    };
    const Row rows[] = {
        {"70000",      70000,      4464 },
        {"65535",      65535,      65535},
        {"65536",      65536,      0    },
        {"-1",         4294967295, 65535},
        {"4294967295", 4294967295, 65535},
        {"4294967297", 1,          1    },
        {"2.9",        2,          2    },
        {"3e9",        2147483647, 65535},
        {"-2.9",       4294967294, 65534},
        {"1e10",       2147483647, 65535},
        {"-1e10",      2147483648, 0    },
        {"true",       1,          1    },
        {R"("12")",    0,          0    },
        {"[7]",        0,          0    },
        {"{}",         0,          0    },
    };
    for (const Row& row : rows) {
        Placed<TypeParam> info;
        Json::Value picture;
        for (const char* name : {"Offset", "Length", "Width", "Height"}) picture[name] = Json(row.number);
        ParseImageInfo(picture, *info);
        EXPECT_EQ(info->dwOffset, row.offset) << row.number;
        EXPECT_EQ(info->dwFileLength, row.offset) << row.number;
        EXPECT_EQ(info->wWidth, row.width) << row.number;
        EXPECT_EQ(info->wHeight, row.width) << row.number;
    }
}

TYPED_TEST(ParseImageInfoOfBoth, WidthOf70000KeepsItsLow16Bits) {
    Placed<TypeParam> info;
    ParseImageInfo(Json(R"({"Width": 70000})"), *info);
    EXPECT_EQ(info->wWidth, 4464);
    EXPECT_EQ(info.changedFields(), Fields{"wWidth"});
}

TYPED_TEST(ParseImageInfoOfBoth, OnlyABoolSaysWhetherAFaceWasDetected) {
    for (const char* text : {"1", "0", "1.0", R"("true")", "null", "[true]", "{}"}) {
        Placed<TypeParam> info;
        ParseImageInfo(Json(std::string(R"({"IsDetected": )") + text + "}"), *info);
        EXPECT_EQ(info.changedFields(), Fields{}) << text;
    }
    for (const bool detected : {false, true}) {
        Placed<TypeParam> info;
        Json::Value picture;
        picture["IsDetected"] = detected;
        ParseImageInfo(picture, *info);
        EXPECT_EQ(info->bIsDetected, detected ? 1 : 0);
    }
}

TYPED_TEST(ParseImageInfoOfBoth, MissingMembersTouchNothing) {
    for (const char* text : {"{}", "null", "[]", "[1, 2, 3]", "7", R"("Offset")", R"({"offset": 1})",
                             R"({"Offset": null, "Length": null, "Width": null, "Height": null, "FilePath": null})"}) {
        Placed<TypeParam> info;
        ParseImageInfo(Json(text), *info);
        EXPECT_EQ(info.changedFields(), Fields{}) << text;
    }
}

TYPED_TEST(ParseImageInfoOfBoth, TakesAnyJson) {
    for (const Json::Value& value : HostileValues()) {
        Placed<TypeParam> root;
        root.clear();
        ParseImageInfo(value, *root);
        Release(*root);
        for (const char* name : {"Offset", "Length", "Width", "Height", "FilePath", "IsDetected"}) {
            Placed<TypeParam> info;
            info.clear();
            Json::Value picture = Json(kPicture);
            picture[name] = value;
            ParseImageInfo(picture, *info);
            Release(*info);
        }
    }
}

TYPED_TEST(ParseImageInfoOfBoth, LeavesTheCallersNodeAsItWas) {
    const Json::Value picture = Json(R"({"Offset": 1})");
    Placed<TypeParam> info;
    ParseImageInfo(picture, *info);
    EXPECT_EQ(testing_tools::Text(picture), R"({"Offset":1})");
}

TEST(ParseImageInfo, KeepsAPathOfAnyLengthOnTheHeap) {
    for (const std::size_t length : {0U, 1U, 63U, 64U, 100U, 70000U}) {
        Placed<VK_PIC_INFO> info;
        Json::Value picture;
        picture["FilePath"] = std::string(length, 'p');
        ParseImageInfo(picture, *info);
        EXPECT_EQ(lastSize, length + 1);
        EXPECT_EQ(PathOf(*info).get(), std::string(length, 'p'));
    }
}

TEST(ParseImageInfo, PathOf100CharactersAllocates101BytesOrKeeps63) {
    const std::string path = "/" + std::string(98, 'p') + "!";
    Json::Value picture;
    picture["FilePath"] = path;
    Placed<VK_PIC_INFO> heap;
    ParseImageInfo(picture, *heap);
    EXPECT_EQ(lastSize, 101U);
    EXPECT_EQ(PathOf(*heap).get(), path);
    Placed<VK_PIC_INFO_EX3> fixed;
    ParseImageInfo(picture, *fixed);
    EXPECT_EQ(fixed->szFilePath, path.substr(0, 63));
}

TEST(ParseImageInfo, ByteBehindAnEmbeddedNulOfThePathIsZero) {
    Placed<VK_PIC_INFO> info;
    Json::Value picture;
    picture["FilePath"] = std::string("a\0bc", 4);
    ParseImageInfo(picture, *info);
    EXPECT_EQ(std::memcmp(PathOf(*info).get(), "a\0\0\0\0", 5), 0);
}

TEST(ParseImageInfo, PathThatIsNoTextAllocatesNothingAndLeavesThePointer) {
    for (const char* text : {"17", "2.5", "true", "[]", R"(["/a"])", R"({"a": "/a"})", "null"}) {
        Placed<VK_PIC_INFO> info;
        lastSize = 0;
        ParseImageInfo(Json(std::string(R"({"FilePath": )") + text + "}"), *info);
        EXPECT_EQ(info.changedFields(), Fields{}) << text;
        EXPECT_EQ(lastSize, 0U) << text;
    }
}

TEST(ParseImageInfo, PathThatIsNoTextIsRenderedIntoTheFixedField) {
    struct Row {
        const char* json;
        const char* path;
    };
    const Row rows[] = {
        {"17",             "17"           },
        {"true",           "true"         },
        {R"(["/a", 1])",   R"(["/a",1])"  },
        {R"({"a": null})", R"({"a":null})"},
        {"\"\"",           ""             },
    };
    for (const Row& row : rows) {
        Placed<VK_PIC_INFO_EX3> info;
        ParseImageInfo(Json(std::string(R"({"FilePath": )") + row.json + "}"), *info);
        EXPECT_STREQ(info->szFilePath, row.path);
    }
}

TEST(ParseImageInfo, FixedPathIsCutAtItsBorder) {
    for (const std::size_t length : {62U, 63U, 64U, 65U}) {
        Placed<VK_PIC_INFO_EX3> info;
        Json::Value picture;
        picture["FilePath"] = std::string(length, 'p');
        ParseImageInfo(picture, *info);
        EXPECT_EQ(info->szFilePath, std::string(std::min<std::size_t>(length, 63), 'p'));
        EXPECT_EQ(info.changedFields(), Fields{"szFilePath"});
    }
}

TEST(ParseImageInfo, OverwritesAndDoesNotFreeThePathThatWasThere) {
    const std::unique_ptr<char[]> mine(new char[3]{'o', 'l', 'd'});
    Placed<VK_PIC_INFO> info;
    info->pszFilePath = mine.get();
    ParseImageInfo(Json(R"({"FilePath": "new"})"), *info);
    EXPECT_STREQ(PathOf(*info).get(), "new");
    EXPECT_EQ(std::memcmp(mine.get(), "old", 3), 0);
}

TEST(ParseImageInfo, PathIsNullWhenMemoryCannotBeHad) {
    Placed<VK_PIC_INFO> info;
    const Json::Value picture = Json(kPicture);
    allocationsFail = true;
    ParseImageInfo(picture, *info);
    allocationsFail = false;
    EXPECT_EQ(info->pszFilePath, nullptr);
    EXPECT_EQ(info->wHeight, 14);
    EXPECT_EQ(info->bIsDetected, 1);
}

}  // namespace
