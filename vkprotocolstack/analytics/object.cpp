
#include "vkprotocolstack/JsonParser.h"
#include "vkprotocolstack/analytics/object_keywords.h"
#include "vkprotocolstack/foundation/box.h"
#include "vkprotocolstack/foundation/geometry.h"
#include "vkprotocolstack/time/utc.h"
#include "vkprotocolstack/wire/message_node.h"
#include "vkprotocolstack/wire/node.h"
#include "vkprotocolstack/wire/record.h"

using jsonparser::BoxOf;
using jsonparser::Clear;
using jsonparser::FirstIgnoringCase;
using jsonparser::Keyword;
using jsonparser::kObjectActions;
using jsonparser::kObjectTimeTypes;
using jsonparser::kReferenceColors;
using jsonparser::kWalkingDirections;
using jsonparser::Members;
using jsonparser::MessagePlace;
using jsonparser::NameList;
using jsonparser::Node;
using jsonparser::NodeAt;
using jsonparser::PointOf;
using jsonparser::SetUtc;

namespace {

constexpr NameList kNames{"ObjectID",
                          "RelativeID",
                          "ObjectType",
                          "Category",
                          "Confidence",
                          "Action",
                          "BoundingBox",
                          "Center",
                          "Contour",
                          "MainColor",
                          "LowerBodyColor",
                          "Text",
                          "SubText",
                          "ShotFrame",
                          "Image",
                          "CurrentTimeStamp",
                          "StartTimeStamp",
                          "EndTimeStamp",
                          "OriginalBoundingBox",
                          "Sign",
                          "CurrentSequence",
                          "BeginSequence",
                          "EndSequence",
                          "BeginFileOffset",
                          "EndFileOffset",
                          "TimeType",
                          "ColorSimilar",
                          "UpperBodyColorSimilar",
                          "LowerBodyColorSimilar",
                          "SubBrand",
                          "BrandYear",
                          "CarLogoIndex",
                          "Person",
                          "SynopsisExtra"};

constexpr NameList kImageNames{"Offset", "Length", "Width", "Height", "FilePath"};
constexpr NameList kTimeNames{"UTC", "UTCMS"};
constexpr NameList kPersonNames{"Stature", "Direction"};
constexpr NameList kSynopsisNames{"Speed", "Size", "Direction"};

/// As GetJsonRect, by value: the boxes of packed records take no reference.
VK_RECT ExactBoxOf(Node node) {
    VK_RECT box;
    Read(node, box);
    return box;
}

/// The first component in the highest byte; one that is no byte runs over into its neighbours.
unsigned ColorOf(Node components) {
    const auto component = components.first<4>();
    unsigned color = 0;
    for (unsigned i = 0; i < 4; ++i) color |= static_cast<unsigned>(component[i].asInt()) << (24 - 8 * i);
    return color;
}

template <class Object>
void ReadImage(Node node, Object& object) {
    const Members<kImageNames> in(node);
    object.bPicEnable = 1;
    if (auto v = in["Offset"]) object.dwOffset = v.asUInt();
    if (auto v = in["Length"]) object.dwFileLength = v.asUInt();
    if (auto v = in["Width"]) object.wWidth = v.uintLow16();
    if (auto v = in["Height"]) object.wHeight = v.uintLow16();
    if (auto v = in["FilePath"]; v.isString()) object.pszFilePath = v.heapString();
}

/// Whichever stamp it is, its milliseconds go to the current time.
void ReadStamp(Node node, tagNET_TIME_EX& time, tagNET_TIME_EX& currentTime) {
    const Members<kTimeNames> in(node);
    if (auto v = in["UTC"]) SetUtc(time, v.utcSeconds());
    if (auto v = in["UTCMS"]) currentTime.dwMillisecond = static_cast<unsigned>(v.asInt());
}

void ReadSimilarity(Node colors, unsigned char* out, int count) {
    const Members<kReferenceColors> in(colors);
    for (int i = 0; i < 8 && i < count; ++i) {
        if (auto v = in.at(static_cast<std::size_t>(i))) out[i] = v.intLow8();
    }
}

/// What all generations have in common.
template <class Object>
void ReadCommon(const Members<kNames>& in, Object& object) {
    Clear(object);
    if (auto v = in["ObjectID"]) object.nObjectID = v.asInt();
    if (auto v = in["RelativeID"]) object.nRelativeID = v.asInt();
    if (auto v = in["ObjectType"]) v.utf8To(object.szObjectType, 128);
    // Of 62 bytes or more, this goes on behind its field.
    if (auto v = in["Category"]) v.utf8To(object.szObjectCategory, 64);
    if (auto v = in["Confidence"]) object.nConfidence = v.asInt();
    if (auto v = in["Action"]) object.nAction = v.firstIgnoringCase(kObjectActions, 0);
    if (auto v = in["BoundingBox"]; v.size() >= 4) object.stuBoundingBox = BoxOf(v);
    if (auto v = in["Center"]; v.size() >= 2) object.stuCenter = PointOf(v);
    if (auto v = in["Contour"]) {
        object.nPointNum = static_cast<int>(v.forElements(16, [&](Node point, std::size_t i) {
            if (point.size() >= 2) object.stuContour[i] = PointOf(point);
        }));
    }
    if (auto v = in["MainColor"]; v.size() >= 4) {
        object.dwMainColor = ColorOf(v);
        object.bColor = 1;
    }
    // Of 128 bytes or more, this ends in the category, which was read above.
    if (auto v = in["Text"]) v.utf8To(object.szText, 128);
    if (auto v = in["SubText"]) v.utf8To(object.szSubText, 20);
    if (auto v = in["ShotFrame"]) object.bShotFrame = v.asBool();
    if (auto v = in["Image"]) ReadImage(v, object);
    if (auto v = in["CurrentTimeStamp"]) ReadStamp(v, object.stuCurrentTime, object.stuCurrentTime);
    if (auto v = in["StartTimeStamp"]) ReadStamp(v, object.stuStartTime, object.stuCurrentTime);
    if (auto v = in["EndTimeStamp"]) ReadStamp(v, object.stuEndTime, object.stuCurrentTime);
    object.stuOriginalBoundingBox = ExactBoxOf(in["OriginalBoundingBox"]);
    object.stuSignBoundingBox = ExactBoxOf(in["Sign"]["BoundingBox"]);
    object.dwCurrentSequence = in["CurrentSequence"].asUInt();
    object.dwBeginSequence = in["BeginSequence"].asUInt();
    object.dwEndSequence = in["EndSequence"].asUInt();
    object.nBeginFileOffset = in["BeginFileOffset"].realToInt64();
    object.nEndFileOffset = in["EndFileOffset"].realToInt64();
    if (auto v = in["TimeType"]; v.isString()) {
        object.byTimeType = static_cast<unsigned char>(v.firstIgnoringCase(kObjectTimeTypes, 0));
    }
    if (auto v = in["ColorSimilar"]) ReadSimilarity(v, object.byColorSimilar, 8);
    if (auto v = in["UpperBodyColorSimilar"]) ReadSimilarity(v, object.byUpperBodyColorSimilar, 8);
    if (auto v = in["LowerBodyColorSimilar"]) ReadSimilarity(v, object.byLowerBodyColorSimilar, 8);
}

template <class Object>
void ReadPerson(Node node, Object& object) {
    const Members<kPersonNames> in(node);
    object.nStature = in["Stature"].asInt();
    if (auto v = in["Direction"]) object.emDirection = v.firstExactUpToNul(kWalkingDirections, 0);
}

/// What the second and the third generation have in common.
template <class Object>
void ReadExtended(const Members<kNames>& in, Object& object) {
    ReadCommon(in, object);
    object.dwSize = sizeof object;
    if (auto v = in["LowerBodyColor"]; v.size() >= 4) {
        object.dwLowerBodyColor = ColorOf(v);
        object.bLowerBodyColor = 1;
    }
    if (auto v = in["Person"]) ReadPerson(v, object);
}

void ReadSynopsis(Node node, tagVK_MSG_OBJECT_EX2& object) {
    const Members<kSynopsisNames> in(node);
    object.nSynopsisSpeed = in["Speed"].asInt();
    object.nSynopsisSize = in["Size"].asInt();
    if (auto v = in["Direction"]; v.size() == 2) {
        object.bSynopsisDirection = 1;
        Read(v.at(0), object.stuSynopsisStartPoint);
        Read(v.at(1), object.stuSynopsisEndPoint);
    }
}

void Read(Node node, VK_MSG_OBJECT& object) {
    const Members<kNames> in(node);
    ReadCommon(in, object);
    if (auto v = in["SubBrand"]) object.wSubBrand = v.uintLow16();
    if (auto v = in["BrandYear"]) object.wBrandYear = v.uintLow16();
    object.wCarLogoIndex = in["CarLogoIndex"].uintLow16();
}

void Read(Node node, tagVK_MSG_OBJECT_EX& object) { ReadExtended(Members<kNames>(node), object); }

void Read(Node node, tagVK_MSG_OBJECT_EX2& object) {
    const Members<kNames> in(node);
    ReadExtended(in, object);
    if (auto v = in["SynopsisExtra"]) ReadSynopsis(v, object);
}

template <class Object>
bool ReadAt(const MessagePlace& place, Object* object) {
    if (object == nullptr) return false;
    const auto start = NodeAt(place, kNames);
    if (start) Read(*start, *object);
    return start.isAccepted;
}

}  // namespace

int ParseStrtoObject(const Json::Value& root, VK_MSG_OBJECT* pObject) {
    if (pObject == nullptr) return 1;
    Read(Node(root), *pObject);
    return 0;
}

int ParseStrtoObject(const MessagePlace& root, VK_MSG_OBJECT* pObject) { return ReadAt(root, pObject) ? 0 : 1; }

int ParseStrtoObject(const Json::Value& root, tagVK_MSG_OBJECT_EX* pObject) {
    if (pObject == nullptr) return 1;
    Read(Node(root), *pObject);
    return 0;
}

int ParseStrtoObject(const MessagePlace& root, tagVK_MSG_OBJECT_EX* pObject) { return ReadAt(root, pObject) ? 0 : 1; }

int ParseStrtoObject(const Json::Value& root, tagVK_MSG_OBJECT_EX2* pObject) {
    if (pObject == nullptr) return 0;
    Read(Node(root), *pObject);
    return 1;
}

int ParseStrtoObject(const MessagePlace& root, tagVK_MSG_OBJECT_EX2* pObject) { return ReadAt(root, pObject) ? 1 : 0; }

int ActionToInt(char* text) {
    const Keyword* row = text == nullptr ? nullptr : FirstIgnoringCase(kObjectActions, text);
    return row == nullptr ? 0 : row->code;
}

int ParseColorsimilar(const Json::Value& node, unsigned char* out, int count) {
    if (out != nullptr) ReadSimilarity(Node(node), out, count);
    return 0;
}

int ParseColorsimilar(const MessagePlace& place, unsigned char* out, int count) {
    if (out == nullptr) return 0;
    if (const auto node = NodeAt(place)) ReadSimilarity(*node, out, count);
    return 0;
}
