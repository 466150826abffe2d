#include <algorithm>
#include <cstdio>
#include <cstring>
#include <new>
#include <string>

#include "benchmarks/literal/literal.h"
#include "vkprotocolstack/support/support.h"

namespace literal {
namespace {

void ParseImageInfo(Json::Value image, VK_PIC_INFO& info) {
    if (!image["Offset"].isNull()) info.dwOffset = static_cast<unsigned>(image["Offset"].asInt());
    if (!image["Length"].isNull()) info.dwFileLength = static_cast<unsigned>(image["Length"].asInt());
    if (!image["Width"].isNull()) info.wWidth = static_cast<unsigned short>(image["Width"].asInt());
    if (!image["Height"].isNull()) info.wHeight = static_cast<unsigned short>(image["Height"].asInt());
    if (image["FilePath"].isString()) {
        const std::size_t size = image["FilePath"].asString().size() + 1;
        info.pszFilePath = new (std::nothrow) char[size];
        if (info.pszFilePath != nullptr) {
            std::memset(info.pszFilePath, 0, size);
            GetJsonString(image["FilePath"], info.pszFilePath, static_cast<int>(size), true);
        }
    }
    if (image["IsDetected"].isBool()) info.bIsDetected = image["IsDetected"].asBool();
}

int IndexOf(const std::string* table, int rows, const std::string& text) {
    for (int i = 0; i < rows; ++i) {
        if (text == table[i]) return i;
    }
    return 0;
}

int SizeWithin(const Json::Value& text, int capacity) {
    const int size = static_cast<int>(text.asString().size()) + 1;
    return size < capacity ? size : capacity;
}

}  // namespace

void ParsePersonInfo(Json::Value person, tagFACERECOGNITION_PERSON_INFOEX& info) {
    if (!person["Name"].isNull()) parseJsonNodeToStr(person["Name"], info.szPersonName, 64);
    if (!person["Province"].isNull()) parseJsonNodeToStr(person["Province"], info.szProvince, 64);
    if (!person["City"].isNull()) parseJsonNodeToStr(person["City"], info.szCity, 64);
    if (!person["ID"].isNull()) parseJsonNodeToStr(person["ID"], info.szID, 32);
    if (!person["Important"].isNull()) info.byImportant = static_cast<unsigned char>(person["Important"].asInt());
    if (!person["Sex"].isNull()) {
        if (_stricmp(person["Sex"].asString().c_str(), "Male") == 0) {
            info.bySex = 1;
        } else if (_stricmp(person["Sex"].asString().c_str(), "Female") == 0) {
            info.bySex = 2;
        }
    }
    if (!person["CertificateType"].isNull()) {
        if (_stricmp(person["CertificateType"].asString().c_str(), "IC") == 0) {
            info.byCertificateType = 1;
        } else if (_stricmp(person["CertificateType"].asString().c_str(), "Passport") == 0) {
            info.byCertificateType = 2;
        }
    }
    if (!person["Type"].isNull()) {
        static const char* const kTypes[] = {"Normal", "Suspicion", "Thief", "VIP", "FateCheck", "Staff"};
        for (int i = 0; i < 6; ++i) {
            if (_stricmp(person["Type"].asString().c_str(), kTypes[i]) == 0) {
                info.byType = static_cast<unsigned char>(i + 1);
                break;
            }
        }
    }
    if (!person["Birthday"].isNull()) {
        int year = 0;
        int month = 0;
        int day = 0;
        std::sscanf(person["Birthday"].asString().c_str(), "%04d-%02d-%02d", &year, &month, &day);
        info.wYear = static_cast<unsigned short>(year);
        info.byMonth = static_cast<unsigned char>(month);
        info.byDay = static_cast<unsigned char>(day);
    }
    if (!person["Image"].isNull()) {
        const unsigned count = std::min(person["Image"].size(), 48U);
        info.wFacePicNum = static_cast<unsigned short>(count);
        for (unsigned i = 0; i < count; ++i) {
            Json::Value image = person["Image"][i];
            ParseImageInfo(image, info.stuFacePicInfo[i]);
        }
    }
    if (person["UID"].isString()) parseJsonNodeToStr(person["UID"], info.szUID, 32);
    if (!person["Country"].isNull()) parseJsonNodeToStr(person["Country"], info.szCountry, 3);
    if (!person["IsCustomType"].isNull()) {
        info.byIsCustomType = static_cast<unsigned char>(person["IsCustomType"].asInt());
        if (info.byIsCustomType == 1) parseJsonNodeToStr(person["Type"], info.szCustomType, 16);
    }
    if (person["Comment"].isString()) {
        GetJsonString(person["Comment"], info.szComment, SizeWithin(person["Comment"], 100), true);
    }
    if (person["GroupID"].isString()) {
        GetJsonString(person["GroupID"], info.szGroupID, SizeWithin(person["GroupID"], 64), true);
    }
    if (person["GroupName"].isString()) {
        GetJsonString(person["GroupName"], info.szGroupName, SizeWithin(person["GroupName"], 128), true);
    }
    info.byGlasses = static_cast<unsigned char>(person["Glasses"].asUInt());
    info.byAge = static_cast<unsigned char>(person["Age"].asUInt());
    static const std::string kFeatures[] = {"",          "WearGlasses", "Smile",    "Anger",   "Sadness",
                                            "Disgust",   "Fear",        "Surprise", "Neutral", "Laugh",
                                            "NoGlasses", "Happy",       "Confused", "Scream",  "SunGlasses"};
    info.emEmotion = IndexOf(kFeatures, 15, person["Emotion"].asString());
    if (person["HomeAddress"].isString()) GetJsonString(person["HomeAddress"], info.szHomeAddress, 128, true);
    if (!person["GlassesType"].isNull()) {
        static const std::string kGlasses[] = {"", "SunGlasses", "Glasses"};
        info.emGlassesType = IndexOf(kGlasses, 3, person["GlassesType"].asString());
    }
    if (!person["Race"].isNull()) info.emRace = person["Race"].asInt() + 1;
    if (!person["Eye"].isNull()) info.emEye = person["Eye"].asInt() + 1;
    if (!person["Mouth"].isNull()) info.emMouth = person["Mouth"].asInt() + 1;
    if (!person["Mask"].isNull()) info.emMask = person["Mask"].asInt() + 1;
    if (!person["Beard"].isNull()) info.emBeard = person["Beard"].asInt() + 1;
    info.nAttractive = -1;
    if (!person["Attractive"].isNull()) info.nAttractive = person["Attractive"].asInt();
    if (!person["FeatureState"].isNull()) info.emFeatureState = person["FeatureState"].asInt();
    if (!person["CustomPersonInfo"].isNull()) {
        const unsigned count = std::min(person["CustomPersonInfo"].size(), 4U);
        info.nCustomPersonInfoNum = static_cast<int>(count);
        for (unsigned i = 0; i < count; ++i) {
            parseJsonNodeToStr(person["CustomPersonInfo"][i], info.stuCustomPersonInfo[i].szPersonInfo, 64);
        }
    }
}

}  // namespace literal
