#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <functional>
#include <string>
#include <tuple>
#include <type_traits>
#include <vector>

#include "testing/json.h"
#include "testing/locale.h"
#include "testing/record.h"
#include "vkprotocolstack/message_text.h"

namespace {

using testing_tools::Fields;
using testing_tools::HostileValues;
using testing_tools::Json;
using testing_tools::Utf8Texts;

template <class Record>
constexpr bool kIsFirst = std::is_same_v<Record, VK_MSG_OBJECT>;
template <class Record>
constexpr bool kIsThird = std::is_same_v<Record, tagVK_MSG_OBJECT_EX2>;
template <class Record>
constexpr int kSuccess = kIsThird<Record> ? 1 : 0;

/// A placed record that releases its heap text.
template <class Record>
class Object : public testing_tools::Placed<Record> {
  public:
    explicit Object(std::size_t placement) : testing_tools::Placed<Record>(placement) {}
    Object(const Json::Value& node, std::size_t placement) : Object(placement) { read(node); }
    ~Object() { release(); }

    int read(const Json::Value& node) {
        release();
        filled_ = true;
        return ParseStrtoObject(node, this->get());
    }

    /// Names of the fields in which the record differs from expected.
    Fields differences(const Record& expected) {
        std::vector<unsigned char> difference(sizeof(Record));
        const auto* bytes = reinterpret_cast<const unsigned char*>(&expected);
        for (std::size_t i = 0; i < sizeof(Record); ++i) {
            difference[i] = static_cast<unsigned char>(testing_tools::kPattern ^ this->bytes()[i] ^ bytes[i]);
        }
        return testing_tools::ChangedFields(vkrecords::kLayout<Record>, difference.data());
    }

  private:
    void release() {
        if (filled_) jsonparser::ReleaseTexts(**this);
    }
    bool filled_ = false;
};

/// What an empty message gives.
template <class Record>
Record Empty() {
    Record record;
    std::memset(&record, 0, sizeof record);
    if constexpr (kIsThird<Record>) {
        record.dwSize = 2820;
    } else if constexpr (!kIsFirst<Record>) {
        record.dwSize = 752;
    }
    return record;
}

Json::Value With(const char* name, const Json::Value& value) {
    Json::Value node;
    node[name] = value;
    return node;
}

/// What is read: a value, or a text that stands for one.
struct Message {
    Message(const Json::Value& value) : node(value) {}
    Message(const std::string& json) : node(Json(json)) {}
    Message(const char* json) : node(Json(json)) {}

    Json::Value node;
};

/// Behaviour that the three generations share.
template <class Record>
class AnyParseStrtoObject : public testing::Test {
  protected:
    /// Reads message at both placements and compares the whole record with an empty one that change has changed.
    static void expect(const Message& message, const std::function<void(Record&)>& change, const char* path = nullptr) {
        for (const std::size_t placement : {0U, 4U}) {
            Object<Record> object(placement);
            EXPECT_EQ(object.read(message.node), kSuccess<Record>);
            EXPECT_STREQ(object->pszFilePath, path) << testing_tools::Text(message.node);
            Record expected = Empty<Record>();
            change(expected);
            expected.pszFilePath = object->pszFilePath;
            EXPECT_EQ(object.differences(expected), Fields{}) << testing_tools::Text(message.node) << ' ' << placement;
        }
    }
    static void expectNothing(const Message& message) {
        expect(message, [](Record&) {});
    }
};

using Generations = testing::Types<VK_MSG_OBJECT, tagVK_MSG_OBJECT_EX, tagVK_MSG_OBJECT_EX2>;
TYPED_TEST_SUITE(AnyParseStrtoObject, Generations);

constexpr const char* kFull = R"({
    "ObjectID": 101, "RelativeID": 102, "ObjectType": "type", "Category": "category", "Confidence": 103,
    "Action": "Merge", "BoundingBox": [11, -12, 13, 14], "Center": [21, -22],
    "Contour": [[31, 32], [33, -34], [35, 36]], "MainColor": [1, 2, 3, 4], "LowerBodyColor": [5, 6, 7, 8],
    "Text": "text", "SubText": "sub text", "ShotFrame": true,
    "Image": {"Offset": 4000000001, "Length": 4000000002, "Width": 41, "Height": 42, "FilePath": "/record/1.jpg"},
    "CurrentTimeStamp": {"UTC": 1704447000, "UTCMS": 250}, "StartTimeStamp": {"UTC": 1704446990},
    "EndTimeStamp": {"UTC": 1704450661},
    "OriginalBoundingBox": [51, -52, 53, 54], "Sign": {"BoundingBox": [61, -62, 63, 64]},
    "CurrentSequence": 4000000003, "BeginSequence": 4000000004, "EndSequence": 4000000005,
    "BeginFileOffset": 1099511627776.75, "EndFileOffset": -1099511627777.75, "TimeType": "Relative",
    "ColorSimilar":
        {"Red": 1, "Yellow": 2, "Green": 3, "Cyan": 4, "Blue": 5, "Purple": 6, "Black": 7, "White": 8},
    "UpperBodyColorSimilar":
        {"Red": 11, "Yellow": 12, "Green": 13, "Cyan": 14, "Blue": 15, "Purple": 16, "Black": 17, "White": 18},
    "LowerBodyColorSimilar":
        {"Red": 21, "Yellow": 22, "Green": 23, "Cyan": 24, "Blue": 25, "Purple": 26, "Black": 27, "White": 28},
    "SubBrand": 71, "BrandYear": 2019, "CarLogoIndex": 72,
    "Person": {"Stature": 172, "Direction": "RightToLeft"},
    "SynopsisExtra": {"Speed": 81, "Size": 82, "Direction": [[91, -92], [93, 94]]}})";

TYPED_TEST(AnyParseStrtoObject, ReadsEveryMember) {
    const auto change = [](TypeParam& e) {
        e.nObjectID = 101;
        std::strcpy(e.szObjectType, "type");
        e.nConfidence = 103;
        e.nAction = 7;
        e.stuBoundingBox = {11, -12, 13, 14};
        e.stuCenter = {21, -22};
        e.nPointNum = 3;
        e.stuContour[0] = {31, 32};
        e.stuContour[1] = {33, -34};
        e.stuContour[2] = {35, 36};
        e.dwMainColor = 0x01020304;
        std::strcpy(e.szText, "text");
        std::strcpy(e.szObjectCategory, "category");
        e.bPicEnable = 1;
        e.dwOffset = 4000000001U;
        e.dwFileLength = 4000000002U;
        e.wWidth = 41;
        e.wHeight = 42;
        e.bShotFrame = 1;
        e.bColor = 1;
        e.byTimeType = 1;
        e.stuCurrentTime = {2024, 1, 5, 9, 30, 0, 250, 0, 0};
        e.stuStartTime = {2024, 1, 5, 9, 29, 50, 0, 0, 0};
        e.stuEndTime = {2024, 1, 5, 10, 31, 1, 0, 0, 0};
        e.stuOriginalBoundingBox = {51, -52, 53, 54};
        e.stuSignBoundingBox = {61, -62, 63, 64};
        e.dwCurrentSequence = 4000000003U;
        e.dwBeginSequence = 4000000004U;
        e.dwEndSequence = 4000000005U;
        e.nBeginFileOffset = 1099511627776;
        e.nEndFileOffset = -1099511627777;
        for (int i = 0; i < 8; ++i) {
            e.byColorSimilar[i] = static_cast<unsigned char>(1 + i);
            e.byUpperBodyColorSimilar[i] = static_cast<unsigned char>(11 + i);
            e.byLowerBodyColorSimilar[i] = static_cast<unsigned char>(21 + i);
        }
        e.nRelativeID = 102;
        std::strcpy(e.szSubText, "sub text");
        if constexpr (kIsFirst<TypeParam>) {
            e.wCarLogoIndex = 72;
            e.wSubBrand = 71;
            e.wBrandYear = 2019;
        } else {
            e.bLowerBodyColor = 1;
            e.nStature = 172;
            e.emDirection = 2;
            e.dwLowerBodyColor = 0x05060708;
        }
        if constexpr (kIsThird<TypeParam>) {
            e.nSynopsisSpeed = 81;
            e.nSynopsisSize = 82;
            e.bSynopsisDirection = 1;
            e.stuSynopsisStartPoint = {91, -92};
            e.stuSynopsisEndPoint = {93, 94};
        }
    };
    this->expect(kFull, change, "/record/1.jpg");
}

TYPED_TEST(AnyParseStrtoObject, AnEmptyMessageGivesZerosButForTheSize) {
    for (const char* empty : {"{}", "null", "[]", "[1, 2]", "7", R"("text")", "true", R"({"objectID": 7})"}) {
        this->expectNothing(empty);
    }
}

TYPED_TEST(AnyParseStrtoObject, NullMembersAreMissing) {
    Json::Value node;
    for (const std::string& name : Json(kFull).getMemberNames()) node[name] = Json::Value();
    this->expectNothing(node);
}

TYPED_TEST(AnyParseStrtoObject, AnotherMessageLeavesNothingOfTheOneBefore) {
    Object<TypeParam> object(4);
    object.read(Json(kFull));
    EXPECT_EQ(object.read(Json("{}")), kSuccess<TypeParam>);
    EXPECT_EQ(object.differences(Empty<TypeParam>()), Fields{});
}

TYPED_TEST(AnyParseStrtoObject, ANullRecordIsReportedByTheOppositeOfSuccess) {
    EXPECT_EQ(ParseStrtoObject(Json(kFull), static_cast<TypeParam*>(nullptr)), 1 - kSuccess<TypeParam>);
}

TYPED_TEST(AnyParseStrtoObject, NumbersKeepTheirLowBits) {
    using Record = TypeParam;
    this->expect(R"({"ObjectID": 4026990592})", [](Record& e) { e.nObjectID = -267976704; });
    this->expect(R"({"ObjectID": 1.9})", [](Record& e) { e.nObjectID = 1; });
    this->expect(R"({"ObjectID": "5"})", [](Record&) {});
    this->expect(R"({"RelativeID": -5})", [](Record& e) { e.nRelativeID = -5; });
    this->expect(R"({"Confidence": 3e9})", [](Record& e) { e.nConfidence = 2147483647; });
    this->expect(R"({"CurrentSequence": -1})", [](Record& e) { e.dwCurrentSequence = 4294967295U; });
    this->expect(R"({"BeginSequence": 4294967297})", [](Record& e) { e.dwBeginSequence = 1; });
    this->expect(R"({"EndSequence": 5e9})", [](Record& e) { e.dwEndSequence = 4294967295U; });
}

TYPED_TEST(AnyParseStrtoObject, AnObjectTypeIsTakenTo128BytesAndNeverChangesTheConfidence) {
    using Record = TypeParam;
    for (const std::size_t length : {0U, 1U, 127U, 128U, 129U, 300U}) {
        const std::string text(length, 't');
        const auto type = [&](Record& e) {
            std::memcpy(e.szObjectType, text.data(), std::min<std::size_t>(length, 128));
        };
        Json::Value node = With("ObjectType", text);
        this->expect(node, type);
        node["Confidence"] = 0x01020304;
        this->expect(node, [&](Record& e) {
            type(e);
            e.nConfidence = 0x01020304;
        });
    }
}

TYPED_TEST(AnyParseStrtoObject, ATextOf128BytesErasesTheFirstByteOfTheCategory) {
    using Record = TypeParam;
    for (const std::size_t length : {127U, 128U, 129U, 300U}) {
        Json::Value node = With("Text", std::string(length, 't'));
        node["Category"] = "category";
        this->expect(node, [&](Record& e) {
            std::memset(e.szText, 't', std::min<std::size_t>(length, 128));
            std::memcpy(e.szObjectCategory, "category", 8);
            if (length >= 128) e.szObjectCategory[0] = '\0';
        });
    }
}

TYPED_TEST(AnyParseStrtoObject, ASubTextIsTakenTo20BytesAndNeverChangesTheFieldBehindIt) {
    using Record = TypeParam;
    for (const std::size_t length : {19U, 20U, 21U, 100U}) {
        const auto text = [&](Record& e) { std::memset(e.szSubText, 's', std::min<std::size_t>(length, 20)); };
        Json::Value node = With("SubText", std::string(length, 's'));
        this->expect(node, text);
        node["BrandYear"] = 0x0102;
        node["Person"]["Stature"] = 0x01020304;
        this->expect(node, [&](Record& e) {
            text(e);
            if constexpr (kIsFirst<Record>) {
                e.wBrandYear = 0x0102;
            } else {
                e.nStature = 0x01020304;
            }
        });
    }
}

TYPED_TEST(AnyParseStrtoObject, TextsStopAtANulAndTakeNumbersAndBoolsAsText) {
    using Record = TypeParam;
    this->expect(R"({"Text": "ab\u0000cd"})", [](Record& e) { std::strcpy(e.szText, "ab"); });
    this->expect(R"({"Category": "ab\u0000cd"})", [](Record& e) { std::strcpy(e.szObjectCategory, "ab"); });
    this->expect(R"({"ObjectType": 42})", [](Record& e) { std::strcpy(e.szObjectType, "42"); });
    this->expect(R"({"SubText": true})", [](Record& e) { std::strcpy(e.szSubText, "true"); });
    this->expectNothing(R"({"ObjectType": [1], "Category": {"a": 1}, "Text": [], "SubText": {}})");
}

TYPED_TEST(AnyParseStrtoObject, EveryActionHasItsCodeInUpperAndLowerCase) {
    const std::tuple<const char*, int> rows[] = {
        {R"("Appear")",          1},
        {R"("Move")",            2},
        {R"("Stay")",            3},
        {R"("Remove")",          4},
        {R"("Disappear")",       5},
        {R"("Split")",           6},
        {R"("Merge")",           7},
        {R"("Rename")",          8},
        {R"("merge")",           7},
        {R"("RENAME")",          8},
        {R"("merges")",          0},
        {R"("Merg")",            0},
        {R"("")",                0},
        {R"("Merge\u0000tail")", 7},
        {"7",                    0},
        {"true",                 0},
        {R"(["Merge"])",         0},
        {R"({"Merge": 1})",      0}
    };
    for (const auto& [action, code] : rows) {
        this->expect(std::string(R"({"Action": )") + action + "}", [sent = code](TypeParam& e) { e.nAction = sent; });
    }
    // Only the first 127 bytes count: no keyword is that long.
    this->expectNothing(With("Action", "Move" + std::string(123, ' ')));
    this->expectNothing(With("Action", std::string(100000, 'M')));
}

TYPED_TEST(AnyParseStrtoObject, TheBoundingBoxTakesTheFirstFourElements) {
    using Record = TypeParam;
    this->expect(R"({"BoundingBox": [1, 2, 3, 4, 5]})", [](Record& e) { e.stuBoundingBox = {1, 2, 3, 4}; });
    this->expect(R"({"BoundingBox": [-1, 2147483648, "3", 4.9]})", [](Record& e) {
        e.stuBoundingBox = {-1, -2147483648LL, 0, 4};
    });
    this->expectNothing(R"({"BoundingBox": [1, 2, 3]})");
    this->expectNothing(R"({"BoundingBox": {"0": 1, "1": 2, "2": 3, "3": 4}})");
    this->expectNothing(R"({"BoundingBox": "1234"})");
}

TYPED_TEST(AnyParseStrtoObject, TheOtherBoxesNeedExactlyFourElements) {
    using Record = TypeParam;
    this->expect(R"({"OriginalBoundingBox": [1, 2, 3, -4]})", [](Record& e) {
        e.stuOriginalBoundingBox = {1, 2, 3, -4};
    });
    this->expect(R"({"Sign": {"BoundingBox": [1, 2, 3, -4]}})", [](Record& e) {
        e.stuSignBoundingBox = {1, 2, 3, -4};
    });
    for (const char* box : {"[1, 2, 3]", "[1, 2, 3, 4, 5]", "{}", "7", "null"}) {
        this->expectNothing(std::string(R"({"OriginalBoundingBox": )") + box + R"(, "Sign": {"BoundingBox": )" + box +
                            "}}");
    }
    for (const char* sign : {"[1, 2, 3, 4]", "7", R"("text")", "{}"}) {
        this->expectNothing(std::string(R"({"Sign": )") + sign + "}");
    }
}

TYPED_TEST(AnyParseStrtoObject, TheCenterTakesTheLowBitsOfTheFirstTwoElements) {
    using Record = TypeParam;
    this->expect(R"({"Center": [70000, -1, 9]})", [](Record& e) { e.stuCenter = {4464, -1}; });
    this->expect(R"({"Center": [32768, 4294967295]})", [](Record& e) { e.stuCenter = {-32768, -1}; });
    this->expectNothing(R"({"Center": [5]})");
    this->expectNothing(R"({"Center": {"a": 5, "b": 6}})");
}

TYPED_TEST(AnyParseStrtoObject, AContourGivesItsFirst16Points) {
    for (const int count : {0, 1, 15, 16, 17, 20, 1000}) {
        Json::Value contour(Json::arrayValue);
        for (int i = 0; i < count; ++i) {
            Json::Value point;
            point.append(100 + i);
            point.append(-200 - i);
            contour.append(point);
        }
        this->expect(With("Contour", contour), [count](TypeParam& e) {
            e.nPointNum = std::min(count, 16);
            for (short i = 0; i < e.nPointNum; ++i) {
                e.stuContour[i] = {static_cast<short>(100 + i), static_cast<short>(-200 - i)};
            }
        });
    }
}

TYPED_TEST(AnyParseStrtoObject, ContourPointsThatAreTooShortCountAsOrigins) {
    using Record = TypeParam;
    this->expect(R"({"Contour": [[1, 2], [3], null, 7, "text", {"x": 1, "y": 2}, [], [70000, 5, 6]]})", [](Record& e) {
        e.nPointNum = 8;
        e.stuContour[0] = {1, 2};
        e.stuContour[7] = {4464, 5};
    });
    for (const char* contour : {"7", R"("text")", R"({"0": [1, 2]})", "[]", "true"}) {
        this->expectNothing(std::string(R"({"Contour": )") + contour + "}");
    }
}

TYPED_TEST(AnyParseStrtoObject, TheMainColorHasItsFirstComponentInTheHighestByteUnmasked) {
    const std::tuple<const char*, unsigned> rows[] = {
        {"[255, 0, 0, 255]",              0xFF0000FF},
        {"[1, 2, 3, 4]",                  0x01020304},
        {"[1, 2, 3, 4, 5]",               0x01020304},
        {"[256, 0, 0, 0]",                0         },
        {"[0, 256, 0, 0]",                0x01000000},
        {"[0, 0, 256, 0]",                0x00010000},
        {"[0, 0, 0, 256]",                0x00000100},
        {"[0, 0, 0, -1]",                 0xFFFFFFFF},
        {"[-1, 0, 0, 0]",                 0xFF000000},
        {"[0, -1, 0, 0]",                 0xFFFF0000},
        {"[128, 0, 0, 2147483648]",       0x80000000},
        {"[0, 0, 0, 4294967301]",         0x00000005},
        {"[0, 0, 0, 3e9]",                0x7FFFFFFF},
        {R"(["1", null, [1], {"a": 1}])", 0         }
    };
    for (const auto& [components, color] : rows) {
        this->expect(std::string(R"({"MainColor": )") + components + "}", [sent = color](TypeParam& e) {
            e.dwMainColor = sent;
            e.bColor = 1;
        });
    }
    for (const char* none : {"[1, 2, 3]", "[]", R"({"a": 1, "b": 2, "c": 3, "d": 4})", "16909060", R"("1234")"}) {
        this->expectNothing(std::string(R"({"MainColor": )") + none + "}");
    }
}

TYPED_TEST(AnyParseStrtoObject, AShotFrameIsZeroOrOne) {
    using Record = TypeParam;
    const auto one = [](Record& e) { e.bShotFrame = 1; };
    for (const char* value : {"true", "1", "256", "0.5", "-1"}) {
        this->expect(std::string(R"({"ShotFrame": )") + value + "}", one);
    }
    for (const char* value : {"false", "0", "0.0", R"("true")", "[1]", "{}"}) {
        this->expectNothing(std::string(R"({"ShotFrame": )") + value + "}");
    }
}

TYPED_TEST(AnyParseStrtoObject, AnEmptyImageEnablesThePictureAndGivesZeros) {
    for (const char* image : {"{}", "7", "[]", R"("text")", "false", R"({"Offset": null, "FilePath": null})"}) {
        this->expect(std::string(R"({"Image": )") + image + "}", [](TypeParam& e) { e.bPicEnable = 1; });
    }
}

TYPED_TEST(AnyParseStrtoObject, AnImageKeepsTheLowBitsOfItsNumbers) {
    this->expect(R"({"Image": {"Offset": -1, "Length": 4294967298, "Width": 65537, "Height": -2}})", [](TypeParam& e) {
        e.bPicEnable = 1;
        e.dwOffset = 4294967295U;
        e.dwFileLength = 2;
        e.wWidth = 1;
        e.wHeight = 65534;
    });
}

TYPED_TEST(AnyParseStrtoObject, AFilePathIsNeverCut) {
    const Utf8Texts utf8;
    using Record = TypeParam;
    const auto picture = [](Record& e) { e.bPicEnable = 1; };
    for (const std::size_t length : {0U, 1U, 127U, 128U, 260U, 100000U}) {
        const std::string path(length, 'p');
        this->expect(With("Image", With("FilePath", path)), picture, path.c_str());
    }
    this->expect(R"({"Image": {"FilePath": "图片/一.jpg"}})", picture, "图片/一.jpg");
    this->expect(R"({"Image": {"FilePath": "a\u0000b"}})", picture, "a");
}

TYPED_TEST(AnyParseStrtoObject, AFilePathThatIsNoTextStaysNull) {
    for (const char* path : {"7", "true", "null", "[]", R"(["a"])", "{}"}) {
        this->expect(std::string(R"({"Image": {"FilePath": )") + path + "}}", [](TypeParam& e) { e.bPicEnable = 1; });
    }
}

TYPED_TEST(AnyParseStrtoObject, EveryMillisecondGoesToTheCurrentTime) {
    using Record = TypeParam;
    const tagNET_TIME_EX epoch = {1970, 1, 1, 0, 0, 0, 0, 0, 0};
    this->expect(R"({"StartTimeStamp": {"UTC": 0, "UTCMS": 500}})", [&](Record& e) {
        e.stuStartTime = epoch;
        e.stuCurrentTime.dwMillisecond = 500;
    });
    this->expect(R"({"EndTimeStamp": {"UTC": 0, "UTCMS": 600}})", [&](Record& e) {
        e.stuEndTime = epoch;
        e.stuCurrentTime.dwMillisecond = 600;
    });
    const std::tuple<const char*, const char*, const char*, unsigned> rows[] = {
        {"1",    "2",    "3",         3         },
        {"1",    "2",    "null",      2         },
        {"1",    "null", "null",      1         },
        {"1",    "null", "3",         3         },
        {"null", "2",    "null",      2         },
        {"1",    "2",    "0",         0         },
        {"1",    "2",    R"("text")", 0         },
        {"1",    "2",    "-1",        4294967295},
        {"1",    "2.9",  "null",      2         },
        {"1",    "2",    "4e9",       2147483647}
    };
    for (const auto& [current, start, end, expected] : rows) {
        const std::string json = std::string(R"({"CurrentTimeStamp": {"UTC": 0, "UTCMS": )") + current +
                                 R"(}, "StartTimeStamp": {"UTC": 0, "UTCMS": )" + start +
                                 R"(}, "EndTimeStamp": {"UTC": 0, "UTCMS": )" + end + "}}";
        this->expect(json, [&, sent = expected](Record& e) {
            e.stuCurrentTime = epoch;
            e.stuStartTime = epoch;
            e.stuEndTime = epoch;
            e.stuCurrentTime.dwMillisecond = sent;
        });
    }
}

TYPED_TEST(AnyParseStrtoObject, TimeStampsAreSignedSecondsInUtc) {
    using Record = TypeParam;
    this->expect(R"({"CurrentTimeStamp": {"UTC": -1}})",
                 [](Record& e) { e.stuCurrentTime = {1969, 12, 31, 23, 59, 59, 0, 0, 0}; });
    this->expect(R"({"CurrentTimeStamp": {"UTC": 4294967295}})",
                 [](Record& e) { e.stuCurrentTime = {1969, 12, 31, 23, 59, 59, 0, 0, 0}; });
    this->expect(R"({"StartTimeStamp": {"UTC": 2147483647}})",
                 [](Record& e) { e.stuStartTime = {2038, 1, 19, 3, 14, 7, 0, 0, 0}; });
    this->expect(R"({"EndTimeStamp": {"UTC": "text"}})",
                 [](Record& e) { e.stuEndTime = {1970, 1, 1, 0, 0, 0, 0, 0, 0}; });
    for (const char* stamp : {"{}", "7", "[]", R"("2024-01-05 09:30:00")", R"({"UTC": null, "UTCMS": null})"}) {
        this->expectNothing(std::string(R"({"CurrentTimeStamp": )") + stamp + R"(, "StartTimeStamp": )" + stamp +
                            R"(, "EndTimeStamp": )" + stamp + "}");
    }
}

TYPED_TEST(AnyParseStrtoObject, FileOffsetsAreCutTowardZeroAndSaturate) {
    const std::tuple<const char*, long long> rows[] = {
        {"1.9",              1                         },
        {"-1.9",             -1                        },
        {"0.9",              0                         },
        {"4294967296",       4294967296                },
        {"9007199254740993", 9007199254740992          }, // a double in between
        {"1e19",             9223372036854775807       },
        {"-1e19",            -9223372036854775807LL - 1},
        {"true",             1                         },
        {R"("5")",           0                         },
        {"null",             0                         },
        {"[5]",              0                         }
    };
    for (const auto& [value, expected] : rows) {
        this->expect(std::string(R"({"BeginFileOffset": )") + value + "}",
                     [sent = expected](TypeParam& e) { e.nBeginFileOffset = sent; });
        this->expect(std::string(R"({"EndFileOffset": )") + value + "}",
                     [sent = expected](TypeParam& e) { e.nEndFileOffset = sent; });
    }
}

TYPED_TEST(AnyParseStrtoObject, ATimeTypeIsAWordInUpperOrLowerCase) {
    for (const char* relative : {"Relative", "relative", "RELATIVE"}) {
        this->expect(With("TimeType", relative), [](TypeParam& e) { e.byTimeType = 1; });
    }
    for (const char* zero :
         {R"("Absolute")", R"("absolute")", R"("Relatives")", R"("")", "1", "true", R"(["Relative"])"}) {
        this->expectNothing(std::string(R"({"TimeType": )") + zero + "}");
    }
}

TYPED_TEST(AnyParseStrtoObject, ColorSimilaritiesAreKeyedByColourAndKeepTheirLowByte) {
    using Record = TypeParam;
    this->expect(R"({"ColorSimilar": {"Red": 300, "White": 7}})", [](Record& e) {
        e.byColorSimilar[0] = 44;
        e.byColorSimilar[7] = 7;
    });
    this->expect(R"({"UpperBodyColorSimilar": {"Cyan": -1, "Black": 3e9}})", [](Record& e) {
        e.byUpperBodyColorSimilar[3] = 255;
        e.byUpperBodyColorSimilar[6] = 255;
    });
    this->expect(R"({"LowerBodyColorSimilar": {"Blue": 5, "Purple": null, "blue": 6}})",
                 [](Record& e) { e.byLowerBodyColorSimilar[4] = 5; });
    for (const char* none : {"[1, 2, 3, 4, 5, 6, 7, 8]", "{}", "7", R"("Red")"}) {
        this->expectNothing(std::string(R"({"ColorSimilar": )") + none + "}");
    }
}

TYPED_TEST(AnyParseStrtoObject, AnyValueAnywhereIsRead) {
    const std::vector<std::string> members = Json(kFull).getMemberNames();
    const std::pair<const char*, const char*> nested[] = {
        {"Image",            "Offset"     },
        {"Image",            "Length"     },
        {"Image",            "Width"      },
        {"Image",            "Height"     },
        {"Image",            "FilePath"   },
        {"CurrentTimeStamp", "UTC"        },
        {"CurrentTimeStamp", "UTCMS"      },
        {"StartTimeStamp",   "UTC"        },
        {"EndTimeStamp",     "UTCMS"      },
        {"Sign",             "BoundingBox"},
        {"ColorSimilar",     "Green"      },
        {"Person",           "Stature"    },
        {"Person",           "Direction"  },
        {"SynopsisExtra",    "Speed"      },
        {"SynopsisExtra",    "Size"       },
        {"SynopsisExtra",    "Direction"  }
    };
    const auto read = [](const Json::Value& node, std::size_t placement) {
        Object<TypeParam> object(placement);
        EXPECT_EQ(object.read(node), kSuccess<TypeParam>);
    };
    for (const Json::Value& value : HostileValues()) {
        Json::Value elements;
        elements.append(value);
        elements.append(value);
        for (const std::size_t placement : {0U, 4U}) {
            read(value, placement);
            for (const std::string& member : members) read(With(member.c_str(), value), placement);
            for (const auto& [outer, inner] : nested) read(With(outer, With(inner, value)), placement);
            read(With("Contour", elements), placement);
            read(With("SynopsisExtra", With("Direction", elements)), placement);
        }
    }
}

// ---- what the generations do each in their way

/// Checks a record of either placement against an empty one whose bytes change has changed.
template <class Record>
void ExpectBytes(const Json::Value& node, const std::function<void(unsigned char*)>& change) {
    for (const std::size_t placement : {0U, 4U}) {
        Object<Record> object(node, placement);
        Record expected = Empty<Record>();
        change(reinterpret_cast<unsigned char*>(&expected));
        EXPECT_EQ(object.differences(expected), Fields{}) << testing_tools::Text(node);
    }
}

TEST(ParseStrtoObject, ACategoryRunsIntoTheBrandWordsWhichAreReadAfterIt) {
    for (const std::size_t length : {60U, 61U, 62U, 63U, 64U, 65U, 100U}) {
        const auto category = [length](unsigned char* bytes) {
            std::memset(bytes + 376, 'c', std::min<std::size_t>(length, 62));
        };
        Json::Value node = With("Category", std::string(length, 'c'));
        ExpectBytes<VK_MSG_OBJECT>(node, category);
        node["SubBrand"] = 0x0102;
        ExpectBytes<VK_MSG_OBJECT>(node, [&](unsigned char* bytes) {
            category(bytes);
            bytes[440] = 2;
            bytes[441] = 1;
        });
        node["CarLogoIndex"] = 0x0304;
        ExpectBytes<VK_MSG_OBJECT>(node, [&](unsigned char* bytes) {
            category(bytes);
            bytes[438] = 4;
            bytes[439] = 3;
            bytes[440] = 2;
            bytes[441] = 1;
        });
        node.removeMember("SubBrand");
        ExpectBytes<VK_MSG_OBJECT>(node, [&](unsigned char* bytes) {
            category(bytes);
            bytes[438] = 4;
            bytes[439] = 3;
        });
    }
}

template <class Record>
void ExpectCategoryInReservedBytes() {
    for (const std::size_t length : {60U, 61U, 62U, 63U, 64U, 65U, 100U}) {
        Json::Value node = With("Category", std::string(length, 'c'));
        const auto category = [length](unsigned char* bytes) {
            std::memset(bytes + 380, 'c', std::min<std::size_t>(length, 64));
        };
        ExpectBytes<Record>(node, category);
        node["SubBrand"] = 0x0102;
        node["CarLogoIndex"] = 0x0304;
        ExpectBytes<Record>(node, category);
    }
}

TEST(ParseStrtoObject, ACategoryOfTheLaterGenerationsGoesOnInTheReservedBytes) {
    ExpectCategoryInReservedBytes<tagVK_MSG_OBJECT_EX>();
    ExpectCategoryInReservedBytes<tagVK_MSG_OBJECT_EX2>();
}

TEST(ParseStrtoObject, TheBrandIsReadIntoTheFirstGenerationOnly) {
    const Json::Value node = Json(R"({"CarLogoIndex": 65537, "SubBrand": -1, "BrandYear": 2147485667})");
    ExpectBytes<VK_MSG_OBJECT>(node, [](unsigned char* bytes) {
        bytes[438] = 1;
        bytes[440] = bytes[441] = 0xFF;
        bytes[736] = 0xE3;  // 2019
        bytes[737] = 0x07;
    });
    ExpectBytes<tagVK_MSG_OBJECT_EX>(node, [](unsigned char*) {});
    ExpectBytes<tagVK_MSG_OBJECT_EX2>(node, [](unsigned char*) {});
}

TEST(ParseStrtoObject, TheFirstGenerationKnowsNoPersonLowerBodyColorAndSynopsis) {
    ExpectBytes<VK_MSG_OBJECT>(Json(R"({"Person": {"Stature": 172, "Direction": "LeftToRight"},
                                        "LowerBodyColor": [1, 2, 3, 4], "SynopsisExtra": {"Speed": 5, "Size": 6}})"),
                               [](unsigned char*) {});
}

TEST(ParseStrtoObject, TheSecondGenerationKnowsNoSynopsis) {
    ExpectBytes<tagVK_MSG_OBJECT_EX>(
        Json(R"({"SynopsisExtra": {"Speed": 5, "Size": 6, "Direction": [[1, 2], [3, 4]]}})"), [](unsigned char*) {});
}

/// Behaviour that the second and the third generation share.
template <class Record>
class LaterParseStrtoObject : public AnyParseStrtoObject<Record> {};

using LaterGenerations = testing::Types<tagVK_MSG_OBJECT_EX, tagVK_MSG_OBJECT_EX2>;
TYPED_TEST_SUITE(LaterParseStrtoObject, LaterGenerations);

TYPED_TEST(LaterParseStrtoObject, TheLowerBodyColorIsPackedAsTheMainColor) {
    using Record = TypeParam;
    const auto set = [](unsigned color) {
        return [color](Record& e) {
            e.dwLowerBodyColor = color;
            e.bLowerBodyColor = 1;
        };
    };
    this->expect(R"({"LowerBodyColor": [255, 0, 0, 255]})", set(0xFF0000FF));
    this->expect(R"({"LowerBodyColor": [0, 256, 0, 0, 9]})", set(0x01000000));
    this->expect(R"({"LowerBodyColor": [0, 0, 0, -1]})", set(0xFFFFFFFF));
}

TYPED_TEST(LaterParseStrtoObject, ALowerBodyColorOfThreeElementsIsNoneEvenBesideACompleteMainColor) {
    this->expect(R"({"MainColor": [1, 2, 3, 4], "LowerBodyColor": [1, 2, 3]})", [](TypeParam& e) {
        e.dwMainColor = 0x01020304;
        e.bColor = 1;
    });
    this->expectNothing(R"({"LowerBodyColor": {"a": 1, "b": 2, "c": 3, "d": 4}})");
}

TYPED_TEST(LaterParseStrtoObject, AWalkingDirectionIsTheKeywordAsItIsWritten) {
    const std::tuple<const char*, int> rows[] = {
        {R"("LeftToRight")",           1},
        {R"("RightToLeft")",           2},
        {R"("leftToRight")",           0},
        {R"("RIGHTTOLEFT")",           0},
        {R"("LeftToRights")",          0},
        {R"("LeftToRigh")",            0},
        {R"("")",                      0},
        {R"("RightToLeft\u0000tail")", 2},
        {"1",                          0},
        {"true",                       0},
        {"null",                       0},
        {R"(["LeftToRight"])",         0}
    };
    for (const auto& [direction, code] : rows) {
        this->expect(std::string(R"({"Person": {"Direction": )") + direction + "}}",
                     [sent = code](TypeParam& e) { e.emDirection = sent; });
    }
}

TYPED_TEST(LaterParseStrtoObject, AStatureBelongsToThePersonOnly) {
    this->expectNothing(R"({"Person": null, "Stature": 172, "Direction": "LeftToRight"})");
    this->expect(R"({"Person": {"Stature": -172}})", [](TypeParam& e) { e.nStature = -172; });
    for (const char* person : {"{}", "7", "[]", R"("text")"}) {
        this->expectNothing(std::string(R"({"Person": )") + person + "}");
    }
}

class SynopsisOfParseStrtoObject : public AnyParseStrtoObject<tagVK_MSG_OBJECT_EX2> {};

TEST_F(SynopsisOfParseStrtoObject, MissingNumbersReadAsZero) {
    expect(R"({"SynopsisExtra": {"Speed": -81}})", [](auto& e) { e.nSynopsisSpeed = -81; });
    expect(R"({"SynopsisExtra": {"Size": 4294967295}})", [](auto& e) { e.nSynopsisSize = -1; });
    for (const char* synopsis : {"{}", "7", "[]", R"("text")", "null"}) {
        expectNothing(std::string(R"({"SynopsisExtra": )") + synopsis + "}");
    }
}

TEST_F(SynopsisOfParseStrtoObject, ADirectionHasExactlyTwoElements) {
    for (const char* direction :
         {"[[1, 2], [3, 4], [5, 6]]", "[[1, 2]]", "[]", "null", "7", R"("ab")", R"({"a": [1, 2], "b": [3, 4]})"}) {
        expectNothing(std::string(R"({"SynopsisExtra": {"Direction": )") + direction + "}}");
    }
}

TEST_F(SynopsisOfParseStrtoObject, PointsOfADirectionHaveExactlyTwoElementsEach) {
    expect(R"({"SynopsisExtra": {"Direction": [[1, 2], [3]]}})", [](auto& e) {
        e.bSynopsisDirection = 1;
        e.stuSynopsisStartPoint = {1, 2};
    });
    expect(R"({"SynopsisExtra": {"Direction": [[1, 2, 3], [70000, -4]]}})", [](auto& e) {
        e.bSynopsisDirection = 1;
        e.stuSynopsisEndPoint = {4464, -4};
    });
    expect(R"({"SynopsisExtra": {"Direction": [null, {"x": 1, "y": 2}]}})", [](auto& e) { e.bSynopsisDirection = 1; });
}

// ---- layout

TEST(ObjectRecords, HaveTheirPlaces) {
    EXPECT_EQ(sizeof(VK_MSG_OBJECT), 740U);
    EXPECT_EQ(alignof(VK_MSG_OBJECT), 4U);
    EXPECT_EQ(offsetof(VK_MSG_OBJECT, stuBoundingBox), 140U);
    EXPECT_EQ(offsetof(VK_MSG_OBJECT, szObjectCategory), 376U);
    EXPECT_EQ(offsetof(VK_MSG_OBJECT, wCarLogoIndex), 438U);
    EXPECT_EQ(offsetof(VK_MSG_OBJECT, wSubBrand), 440U);
    EXPECT_EQ(offsetof(VK_MSG_OBJECT, bPicEnable), 443U);
    EXPECT_EQ(offsetof(VK_MSG_OBJECT, pszFilePath), 460U);
    EXPECT_EQ(offsetof(VK_MSG_OBJECT, bShotFrame), 484U);
    EXPECT_EQ(offsetof(VK_MSG_OBJECT, stuCurrentTime), 488U);
    EXPECT_EQ(offsetof(VK_MSG_OBJECT, nBeginFileOffset), 672U);
    EXPECT_EQ(offsetof(VK_MSG_OBJECT, szSubText), 716U);
    EXPECT_EQ(offsetof(VK_MSG_OBJECT, wBrandYear), 736U);
    EXPECT_EQ(sizeof(tagVK_MSG_OBJECT_EX), 752U);
    EXPECT_EQ(alignof(tagVK_MSG_OBJECT_EX), 4U);
    EXPECT_EQ(offsetof(tagVK_MSG_OBJECT_EX, stuBoundingBox), 144U);
    EXPECT_EQ(offsetof(tagVK_MSG_OBJECT_EX, bPicEnable), 447U);
    EXPECT_EQ(offsetof(tagVK_MSG_OBJECT_EX, pszFilePath), 464U);
    EXPECT_EQ(offsetof(tagVK_MSG_OBJECT_EX, bLowerBodyColor), 490U);
    EXPECT_EQ(offsetof(tagVK_MSG_OBJECT_EX, nBeginFileOffset), 676U);
    EXPECT_EQ(offsetof(tagVK_MSG_OBJECT_EX, nStature), 740U);
    EXPECT_EQ(offsetof(tagVK_MSG_OBJECT_EX, dwLowerBodyColor), 748U);
    EXPECT_EQ(sizeof(tagVK_MSG_OBJECT_EX2), 2820U);
    EXPECT_EQ(alignof(tagVK_MSG_OBJECT_EX2), 4U);
    EXPECT_EQ(offsetof(tagVK_MSG_OBJECT_EX2, dwLowerBodyColor), 748U);
    EXPECT_EQ(offsetof(tagVK_MSG_OBJECT_EX2, bSynopsisDirection), 760U);
    EXPECT_EQ(offsetof(tagVK_MSG_OBJECT_EX2, stuSynopsisStartPoint), 762U);
    EXPECT_EQ(offsetof(tagVK_MSG_OBJECT_EX2, byReserved5), 770U);
}

// ---- ActionToInt, ParseColorsimilar

TEST(ActionToInt, GivesTheCodeOfEveryActionInUpperAndLowerCase) {
    const std::tuple<std::string, int> rows[] = {
        {"Appear",      1},
        {"Move",        2},
        {"Stay",        3},
        {"Remove",      4},
        {"Disappear",   5},
        {"Split",       6},
        {"Merge",       7},
        {"Rename",      8},
        {"merge",       7},
        {"APPEAR",      1},
        {"merges",      0},
        {"",            0},
        {"Appear ",     0},
        {"Disappeared", 0}
    };
    for (auto [text, code] : rows) EXPECT_EQ(ActionToInt(text.data()), code) << text;
}

TEST(ActionToInt, ANullTextIsNoAction) { EXPECT_EQ(ActionToInt(nullptr), 0); }

constexpr const char* kSimilarity =
    R"({"Red": 1, "Yellow": 2, "Green": 3, "Cyan": 4, "Blue": 5, "Purple": 6, "Black": 7, "White": 8})";

TEST(ParseColorsimilar, ReadsAsManyLeadingColoursAsCounted) {
    for (const int count : {-2147483647 - 1, -1, 0, 1, 2, 7, 8, 9, 2147483647}) {
        std::array<unsigned char, 9> out{};
        out.fill(99);
        EXPECT_EQ(ParseColorsimilar(Json(kSimilarity), out.data(), count), 0);
        for (int i = 0; i < 9; ++i) {
            EXPECT_EQ(out[static_cast<std::size_t>(i)], i < 8 && i < count ? 1 + i : 99) << count << ' ' << i;
        }
    }
}

TEST(ParseColorsimilar, MissingColoursKeepTheirBytes) {
    std::array<unsigned char, 8> out{};
    out.fill(99);
    ParseColorsimilar(Json(R"({"Yellow": 300, "Black": null, "White": -1})"), out.data(), 8);
    EXPECT_EQ(out, (std::array<unsigned char, 8>{99, 44, 99, 99, 99, 99, 99, 255}));
}

TEST(ParseColorsimilar, WhatIsNoObjectWritesNothing) {
    for (const Json::Value& value : HostileValues()) {
        std::array<unsigned char, 8> out{};
        out.fill(99);
        const std::array<unsigned char, 8> before = out;
        EXPECT_EQ(ParseColorsimilar(value, out.data(), 8), 0);
        EXPECT_EQ(out, before);
        ParseColorsimilar(With("Red", value), out.data(), 8);
        EXPECT_TRUE(std::equal(out.begin() + 1, out.end(), before.begin() + 1));
    }
}

TEST(ParseColorsimilar, ANullOutIsNotWritten) { EXPECT_EQ(ParseColorsimilar(Json(kSimilarity), nullptr, 8), 0); }

TEST(ParseStrtoObject, ANullRecordOfAMessageTextFails) {
    jsonparser::MessageText text("{}");
    EXPECT_EQ(ParseStrtoObject(text.at(""), static_cast<VK_MSG_OBJECT*>(nullptr)), 1);
    EXPECT_EQ(ParseStrtoObject(text.at(""), static_cast<tagVK_MSG_OBJECT_EX*>(nullptr)), 1);
    EXPECT_EQ(ParseStrtoObject(text.at(""), static_cast<tagVK_MSG_OBJECT_EX2*>(nullptr)), 0);
}

TEST(ParseColorsimilar, ANullOutputOfAMessageTextGives0) {
    jsonparser::MessageText text(R"({"Red": 1})");
    EXPECT_EQ(ParseColorsimilar(text.at(""), nullptr, 8), 0);
}

}  // namespace
