#include <algorithm>
#include <cstring>
#include <new>
#include <string>

#include "benchmarks/literal/literal.h"
#include "vkprotocolstack/support/support.h"

namespace literal {
namespace {

int ActionCode(const char* text) {
    static const char* const kActions[] = {"Appear", "Move", "Stay", "Remove", "Disappear", "Split", "Merge", "Rename"};
    for (int i = 0; i < 8; ++i) {
        if (_stricmp(text, kActions[i]) == 0) return i + 1;
    }
    return 0;
}

VK_RECT Box(const Json::Value& value) {
    VK_RECT box = {};
    if (!value.isArray() || value.size() != 4) return box;
    box.nLeft = value[0].asInt();
    box.nTop = value[1].asInt();
    box.nRight = value[2].asInt();
    box.nBottom = value[3].asInt();
    return box;
}

void ReadPoint(const Json::Value& value, VK_POINT& point) {
    if (!value.isArray() || value.size() != 2) return;
    point.nx = static_cast<short>(value[0].asInt());
    point.ny = static_cast<short>(value[1].asInt());
}

unsigned Color(const Json::Value& value) {
    unsigned color = 0;
    color |= static_cast<unsigned>(value[0].asInt()) << 24;
    color |= static_cast<unsigned>(value[1].asInt()) << 16;
    color |= static_cast<unsigned>(value[2].asInt()) << 8;
    color |= static_cast<unsigned>(value[3].asInt());
    return color;
}

void ReadStamp(const Json::Value& stamp, tagNET_TIME_EX& time, tagNET_TIME_EX& currentTime) {
    if (!stamp["UTC"].isNull()) time = TimeOf<tagNET_TIME_EX>(stamp["UTC"].asInt());
    if (!stamp["UTCMS"].isNull()) currentTime.dwMillisecond = static_cast<unsigned>(stamp["UTCMS"].asInt());
}

void ReadSimilarity(const Json::Value& value, unsigned char* out, int count) {
    static const char* const kColors[] = {"Red", "Yellow", "Green", "Cyan", "Blue", "Purple", "Black", "White"};
    for (int i = 0; i < 8; ++i) {
        if (count > i && !value[kColors[i]].isNull()) out[i] = static_cast<unsigned char>(value[kColors[i]].asInt());
    }
}

}  // namespace

int ParseStrtoObject(const Json::Value& root, tagVK_MSG_OBJECT_EX2* object) {
    if (object == nullptr) return 0;
    std::memset(static_cast<void*>(object), 0, sizeof *object);
    object->dwSize = sizeof *object;
    if (!root["ObjectID"].isNull()) object->nObjectID = root["ObjectID"].asInt();
    if (!root["RelativeID"].isNull()) object->nRelativeID = root["RelativeID"].asInt();
    if (!root["ObjectType"].isNull()) ReadText(root["ObjectType"], object->szObjectType, 128);
    if (!root["Category"].isNull()) ReadText(root["Category"], object->szObjectCategory, 64);
    if (!root["Confidence"].isNull()) object->nConfidence = root["Confidence"].asInt();
    if (!root["Action"].isNull()) {
        char action[128] = {};
        std::strncpy(action, root["Action"].asString().c_str(), 127);
        object->nAction = ActionCode(action);
    }
    if (!root["BoundingBox"].isNull() && root["BoundingBox"].size() >= 4) {
        object->stuBoundingBox.nLeft = root["BoundingBox"][0].asInt();
        object->stuBoundingBox.nTop = root["BoundingBox"][1].asInt();
        object->stuBoundingBox.nRight = root["BoundingBox"][2].asInt();
        object->stuBoundingBox.nBottom = root["BoundingBox"][3].asInt();
    }
    if (!root["Center"].isNull() && root["Center"].size() >= 2) {
        object->stuCenter.nx = static_cast<short>(root["Center"][0].asInt());
        object->stuCenter.ny = static_cast<short>(root["Center"][1].asInt());
    }
    if (!root["Contour"].isNull()) {
        const Json::Value& contour = root["Contour"];
        object->nPointNum = static_cast<int>(std::min(contour.size(), 16U));
        for (int i = 0; i < object->nPointNum; ++i) {
            if (contour[i].isNull() || contour[i].size() < 2) continue;
            object->stuContour[i].nx = static_cast<short>(contour[i][0].asInt());
            object->stuContour[i].ny = static_cast<short>(contour[i][1].asInt());
        }
    }
    if (root["MainColor"].size() >= 4) {
        object->dwMainColor = Color(root["MainColor"]);
        object->bColor = 1;
    }
    if (root["LowerBodyColor"].size() >= 4) {
        object->dwLowerBodyColor = Color(root["LowerBodyColor"]);
        object->bLowerBodyColor = 1;
    }
    if (!root["Text"].isNull()) ReadText(root["Text"], object->szText, 128);
    if (!root["SubText"].isNull()) ReadText(root["SubText"], object->szSubText, 20);
    if (!root["ShotFrame"].isNull()) object->bShotFrame = root["ShotFrame"].asBool();
    if (!root["Image"].isNull()) {
        const Json::Value& image = root["Image"];
        object->bPicEnable = 1;
        if (!image["Offset"].isNull()) object->dwOffset = image["Offset"].asUInt();
        if (!image["Length"].isNull()) object->dwFileLength = image["Length"].asUInt();
        if (!image["Width"].isNull()) object->wWidth = static_cast<unsigned short>(image["Width"].asUInt());
        if (!image["Height"].isNull()) object->wHeight = static_cast<unsigned short>(image["Height"].asUInt());
        if (image["FilePath"].isString()) {
            const std::size_t size = image["FilePath"].asString().size() + 1;
            char* path = new (std::nothrow) char[size];
            object->pszFilePath = path;
            if (path != nullptr) {
                std::memset(path, 0, size);
                GetJsonString(image["FilePath"], path, static_cast<int>(size), true);
            }
        }
    }
    if (!root["CurrentTimeStamp"].isNull()) {
        ReadStamp(root["CurrentTimeStamp"], object->stuCurrentTime, object->stuCurrentTime);
    }
    if (!root["StartTimeStamp"].isNull()) {
        ReadStamp(root["StartTimeStamp"], object->stuStartTime, object->stuCurrentTime);
    }
    if (!root["EndTimeStamp"].isNull()) {
        ReadStamp(root["EndTimeStamp"], object->stuEndTime, object->stuCurrentTime);
    }
    object->stuOriginalBoundingBox = Box(root["OriginalBoundingBox"]);
    object->stuSignBoundingBox = Box(root["Sign"]["BoundingBox"]);
    object->dwCurrentSequence = root["CurrentSequence"].asUInt();
    object->dwBeginSequence = root["BeginSequence"].asUInt();
    object->dwEndSequence = root["EndSequence"].asUInt();
    object->nBeginFileOffset = static_cast<long long>(root["BeginFileOffset"].asDouble());
    object->nEndFileOffset = static_cast<long long>(root["EndFileOffset"].asDouble());
    if (root["TimeType"].isString()) {
        if (_stricmp(root["TimeType"].asString().c_str(), "Absolute") == 0) {
            object->byTimeType = 0;
        } else if (_stricmp(root["TimeType"].asString().c_str(), "Relative") == 0) {
            object->byTimeType = 1;
        }
    }
    if (!root["ColorSimilar"].isNull()) ReadSimilarity(root["ColorSimilar"], object->byColorSimilar, 8);
    if (!root["UpperBodyColorSimilar"].isNull()) {
        ReadSimilarity(root["UpperBodyColorSimilar"], object->byUpperBodyColorSimilar, 8);
    }
    if (!root["LowerBodyColorSimilar"].isNull()) {
        ReadSimilarity(root["LowerBodyColorSimilar"], object->byLowerBodyColorSimilar, 8);
    }
    if (!root["Person"].isNull()) {
        const Json::Value& person = root["Person"];
        object->nStature = person["Stature"].asInt();
        if (!person["Direction"].isNull()) {
            if (std::strcmp(person["Direction"].asCString(), "LeftToRight") == 0) {
                object->emDirection = 1;
            } else if (std::strcmp(person["Direction"].asCString(), "RightToLeft") == 0) {
                object->emDirection = 2;
            }
        }
    }
    if (!root["SynopsisExtra"].isNull()) {
        const Json::Value& synopsis = root["SynopsisExtra"];
        object->nSynopsisSpeed = synopsis["Speed"].asInt();
        object->nSynopsisSize = synopsis["Size"].asInt();
        if (!synopsis["Direction"].isNull() && synopsis["Direction"].size() == 2) {
            object->bSynopsisDirection = 1;
            ReadPoint(synopsis["Direction"][0], object->stuSynopsisStartPoint);
            ReadPoint(synopsis["Direction"][1], object->stuSynopsisEndPoint);
        }
    }
    return 1;
}

}  // namespace literal
