#include "vkprotocolstack/face/person.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <string>
#include <type_traits>

#include "vkprotocolstack/JsonParser.h"
#include "vkprotocolstack/face/person_keywords.h"
#include "vkprotocolstack/face/picture.h"
#include "vkprotocolstack/wire/message_node.h"
#include "vkprotocolstack/wire/write.h"

namespace jsonparser {
namespace {

constexpr NameList kNames{"Name",      "Province",        "City",         "ID",       "Important",
                          "Sex",       "CertificateType", "Type",         "Birthday", "Image",
                          "UID",       "Country",         "IsCustomType", "Comment",  "GroupID",
                          "GroupName", "FeatureValue",    "Glasses",      "Age",      "Emotion"};

constexpr NameList kNamesEx{"Name",
                            "Province",
                            "City",
                            "ID",
                            "Important",
                            "Sex",
                            "CertificateType",
                            "Type",
                            "Birthday",
                            "Image",
                            "UID",
                            "Country",
                            "IsCustomType",
                            "Comment",
                            "GroupID",
                            "GroupName",
                            "Glasses",
                            "Age",
                            "Emotion",
                            "HomeAddress",
                            "GlassesType",
                            "Race",
                            "Eye",
                            "Mouth",
                            "Mask",
                            "Beard",
                            "Attractive",
                            "FeatureState",
                            "CustomPersonInfo"};

template <class Person>
constexpr bool kIsFirstGeneration = std::is_same_v<Person, tagFACERECOGNITION_PERSON_INFO>;

// ---- reading

/// The code of the keyword that the text is, or the code that the field has.
unsigned char CodeOf(Node text, Keywords table, unsigned char code) {
    return static_cast<unsigned char>(text.firstIgnoringCase(table, code));
}

template <class Person>
void ReadBirthday(Node date, Person& info) {
    int year = 0;
    int month = 0;
    int day = 0;
    date.scan("%04d-%02d-%02d", Signs::Allowed, year, month, day);
    info.wYear = static_cast<unsigned short>(year);
    info.byMonth = static_cast<unsigned char>(month);
    info.byDay = static_cast<unsigned char>(day);
}

template <class Person>
void ReadPictures(Node pictures, Person& info) {
    info.wFacePicNum = static_cast<unsigned short>(
        pictures.forElements(48, [&](Node picture, std::size_t i) { Read(picture, info.stuFacePicInfo[i]); }));
}

/// Fills a buffer of the caller's, which has length bytes; null when the caller does not want the text.
void ReadCallerText(Node text, char* buffer, unsigned char length) {
    if (!text.isString() || buffer == nullptr) return;
    const int size = text.textSize(length);
    std::fill_n(buffer, size, '\0');
    text.stringTo(buffer, size);
}

/// The rows that both generations have, and where they keep a text in different places.
template <const auto& List, class Person>
void ReadShared(const Members<List>& in, Person& info) {
    if (auto v = in["Name"]) {
        if constexpr (kIsFirstGeneration<Person>) {
            v.renderTo(info.szPersonNameEx, 64);
        } else {
            v.renderTo(info.szPersonName, 64);
        }
    }
    if (auto v = in["Province"]) v.renderTo(info.szProvince, 64);
    if (auto v = in["City"]) v.renderTo(info.szCity, 64);
    if (auto v = in["ID"]) v.renderTo(info.szID, 32);
    if (auto v = in["Important"]) info.byImportant = v.intLow8();
    if (auto v = in["Sex"]) info.bySex = CodeOf(v, kSexes, info.bySex);
    if (auto v = in["CertificateType"]) info.byCertificateType = CodeOf(v, kCertificateTypes, info.byCertificateType);
    if (auto v = in["Type"]) info.byType = CodeOf(v, kPersonTypes, info.byType);
    if (auto v = in["Birthday"]) ReadBirthday(v, info);
    if (auto v = in["Image"]) ReadPictures(v, info);
    if (auto v = in["UID"]; v.isString()) v.renderTo(info.szUID, 32);
    if (auto v = in["Country"]) v.renderTo(info.szCountry, 3);
    if (auto v = in["IsCustomType"]) {
        info.byIsCustomType = v.intLow8();
        if (info.byIsCustomType == 1) {
            if constexpr (kIsFirstGeneration<Person>) {
                in["Type"].renderTo(info.szPersonName, 16);
            } else {
                in["Type"].renderTo(info.szCustomType, 16);
            }
        }
    }
    if constexpr (kIsFirstGeneration<Person>) {
        ReadCallerText(in["Comment"], info.pszComment, info.byCommentLen);
        ReadCallerText(in["GroupID"], info.pszGroupID, info.byGroupIdLen);
        ReadCallerText(in["GroupName"], info.pszGroupName, info.byGroupNameLen);
        ReadCallerText(in["FeatureValue"], info.pszFeatureValue, info.byFeatureValueLen);
    } else {
        if (auto v = in["Comment"]; v.isString()) v.stringTo(info.szComment, v.textSize(100));
        if (auto v = in["GroupID"]; v.isString()) v.stringTo(info.szGroupID, v.textSize(64));
        if (auto v = in["GroupName"]; v.isString()) v.stringTo(info.szGroupName, v.textSize(128));
    }
    info.byGlasses = in["Glasses"].uintLow8();
    info.byAge = in["Age"].uintLow8();
    info.emEmotion = in["Emotion"].firstExact(kFeatureTypes, 0);
}

void ReadCustomInfo(Node texts, tagFACERECOGNITION_PERSON_INFOEX& info) {
    info.nCustomPersonInfoNum = static_cast<int>(texts.forElements(
        4, [&info](Node text, std::size_t i) { text.renderTo(info.stuCustomPersonInfo[i].szPersonInfo, 64); }));
}

// ---- writing

/// Element i of the array at offset in the record. A count may exceed its array, whose bound must not stand between.
template <class Element, class Person>
Element ElementAt(const Person& info, std::size_t offset, std::size_t i) {
    Element element;
    std::memcpy(&element, reinterpret_cast<const unsigned char*>(&info) + offset + i * sizeof element, sizeof element);
    return element;
}

/// Writes the keyword of the code, or nothing when it has none.
void PutKeyword(Json::Value& person, std::string_view name, Keywords table, int code) {
    if (const Keyword* row = FirstWithCode(table, code)) Put(person, name, std::string(row->text));
}

/// Writes the keyword of the code as a text; nothing for 0, which has the empty one.
void PutGlassesType(Json::Value& person, int code) {
    const Keyword* row = code == 0 ? nullptr : FirstWithCode(kGlassesTypes, code);
    if (row == nullptr) return;
    const std::string text(row->text);
    packetStrToJsonNode(Member(person, "GlassesType"), text.c_str(), static_cast<int>(text.size() + 1));
}

/// Writes a code that the record keeps one higher; nothing for 0.
void PutMinusOne(Json::Value& person, std::string_view name, int code) {
    if (code != 0) Put(person, name, static_cast<int>(static_cast<unsigned>(code) - 1U));
}

template <class Person>
void PutBirthday(Json::Value& person, const Person& info) {
    if (info.wYear == 0 || info.byMonth == 0 || info.byDay == 0) return;
    char text[64] = {};
    std::snprintf(text, sizeof text - 1, "%d-%d-%d", info.wYear, info.byMonth, info.byDay);
    Put(person, "Birthday", text);
}

template <class Person>
void PutPictures(Json::Value& person, const Person& info) {
    for (unsigned i = 0; i < info.wFacePicNum; ++i) {
        const auto picture = ElementAt<VK_PIC_INFO>(info, offsetof(Person, stuFacePicInfo), i);
        Json::Value& image = Element(Member(person, "Image"), i);
        Put(image, "Offset", picture.dwOffset);
        Put(image, "Length", picture.dwFileLength);
        Put(image, "Width", picture.wWidth);
        Put(image, "Height", picture.wHeight);
        Put(image, "IsDetected", picture.bIsDetected);
    }
}

/// The rows that both generations have.
template <class Person>
void WriteShared(Json::Value& person, const Person& info) {
    packetStrToJsonNode(Member(person, "Name"), info.szPersonName, 16);
    if constexpr (kIsFirstGeneration<Person>) {
        if (info.szPersonNameEx[0] != '\0') packetStrToJsonNode(Member(person, "Name"), info.szPersonNameEx, 64);
    } else {
        if (info.szPersonName[0] != '\0') packetStrToJsonNode(Member(person, "Name"), info.szPersonName, 64);
    }
    PutKeyword(person, "Sex", kSexes, info.bySex);
    PutBirthday(person, info);
    packetStrToJsonNode(Member(person, "Province"), info.szProvince, 64);
    packetStrToJsonNode(Member(person, "City"), info.szCity, 64);
    PutKeyword(person, "CertificateType", kCertificateTypes, info.byCertificateType);
    char id[64] = {};  // terminated also when all bytes of the field are used
    std::memcpy(id, info.szID, 32);
    packetStrToJsonNode(Member(person, "ID"), id, 32);
    if (info.byImportant != 0) Put(person, "Important", info.byImportant);
    Put(person, "IsCustomType", info.byIsCustomType);
    if (info.byIsCustomType == 0) PutKeyword(person, "Type", kPersonTypes, info.byType);
    if (info.byIsCustomType == 1) {
        if constexpr (kIsFirstGeneration<Person>) {
            packetStrToJsonNode(Member(person, "Type"), info.szPersonName, 16);
        } else {
            packetStrToJsonNode(Member(person, "Type"), info.szCustomType, 16);
        }
    }
    PutPictures(person, info);
    packetStrToJsonNode(Member(person, "UID"), info.szUID, 32);
    packetStrToJsonNode(Member(person, "Country"), info.szCountry, 3);
    if constexpr (kIsFirstGeneration<Person>) {
        // Up to 100 bytes of the comment, whatever its length says.
        if (info.pszComment) packetStrToJsonNode(Member(person, "Comment"), info.pszComment, 100);
        if (info.pszGroupID) packetStrToJsonNode(Member(person, "GroupID"), info.pszGroupID, info.byGroupIdLen);
        if (info.pszGroupName) packetStrToJsonNode(Member(person, "GroupName"), info.pszGroupName, info.byGroupNameLen);
        if (info.pszFeatureValue) {
            packetStrToJsonNode(Member(person, "FeatureValue"), info.pszFeatureValue, info.byFeatureValueLen);
        }
    } else {
        packetStrToJsonNode(Member(person, "Comment"), info.szComment, 100);
        packetStrToJsonNode(Member(person, "GroupID"), info.szGroupID, 64);
        packetStrToJsonNode(Member(person, "GroupName"), info.szGroupName, 128);
    }
    Put(person, "Glasses", info.byGlasses);
}

void PutEmotions(Json::Value& person, const tagFACERECOGNITION_PERSON_INFOEX& info) {
    // Unsigned: a negative number of emotions is all of them.
    const unsigned count = std::min(static_cast<unsigned>(info.nEmotionValidNum), 32U);
    for (unsigned i = 0; i < count; ++i) {
        const Keyword* row = FirstWithCode(kFeatureTypes, info.emEmotions[i]);
        const std::string_view text = info.emEmotions[i] == 0 ? "*" : row == nullptr ? "" : row->text;
        Put(Member(person, "Emotion"), i, std::string(text));
    }
}

void PutCustomInfo(Json::Value& person, const tagFACERECOGNITION_PERSON_INFOEX& info) {
    for (unsigned i = 0; i < static_cast<unsigned>(info.nCustomPersonInfoNum); ++i) {
        const auto custom =
            ElementAt<tagCUSTOM_PERSON_INFO>(info, offsetof(tagFACERECOGNITION_PERSON_INFOEX, stuCustomPersonInfo), i);
        Json::Value& element = Element(Member(person, "CustomPersonInfo"), i);
        packetStrToJsonNode(Member(element, "PersonInfo"), custom.szPersonInfo, 64);
    }
}

void Write(Json::Value& person, const tagFACERECOGNITION_PERSON_INFOEX& info) {
    WriteShared(person, info);
    packetStrToJsonNode(Member(person, "HomeAddress"), info.szHomeAddress, 128);
    PutGlassesType(person, info.emGlassesType);
    PutMinusOne(person, "Race", info.emRace);
    PutMinusOne(person, "Eye", info.emEye);
    PutMinusOne(person, "Mouth", info.emMouth);
    PutMinusOne(person, "Mask", info.emMask);
    PutMinusOne(person, "Beard", info.emBeard);
    if (info.nAttractive >= 0) Put(person, "Attractive", info.nAttractive);
    if (info.emFeatureState != 0) Put(person, "FeatureState", info.emFeatureState);
    if (info.bAgeEnable != 0) {
        Json::Value& age = Member(person, "Age");
        Put(age, 0, info.nAgeRange[0]);
        Put(age, 1, info.nAgeRange[1]);
    }
    PutEmotions(person, info);
    PutCustomInfo(person, info);
}

}  // namespace

void Read(Node node, tagFACERECOGNITION_PERSON_INFO& info) { ReadShared(Members<kNames>(node), info); }

void Read(Node node, tagFACERECOGNITION_PERSON_INFOEX& info) {
    const Members<kNamesEx> in(node);
    ReadShared(in, info);
    if (auto v = in["HomeAddress"]; v.isString()) v.stringTo(info.szHomeAddress, 128);
    if (auto v = in["GlassesType"]) info.emGlassesType = v.firstExact(kGlassesTypes, 0);
    if (auto v = in["Race"]) info.emRace = v.intPlusOne();
    if (auto v = in["Eye"]) info.emEye = v.intPlusOne();
    if (auto v = in["Mouth"]) info.emMouth = v.intPlusOne();
    if (auto v = in["Mask"]) info.emMask = v.intPlusOne();
    if (auto v = in["Beard"]) info.emBeard = v.intPlusOne();
    info.nAttractive = -1;
    if (auto v = in["Attractive"]) info.nAttractive = v.asInt();
    if (auto v = in["FeatureState"]) info.emFeatureState = v.asInt();
    if (auto v = in["CustomPersonInfo"]) ReadCustomInfo(v, info);
}

}  // namespace jsonparser

using jsonparser::MessagePlace;
using jsonparser::Node;
using jsonparser::NodeAt;

void ParsePersonInfo(Json::Value person, tagFACERECOGNITION_PERSON_INFO& info) { Read(Node(person), info); }

void ParsePersonInfo(const MessagePlace& person, tagFACERECOGNITION_PERSON_INFO& info) {
    if (const auto node = NodeAt(person, jsonparser::kNames)) Read(*node, info);
}

void ParsePersonInfo(Json::Value person, tagFACERECOGNITION_PERSON_INFOEX& info) { Read(Node(person), info); }

void ParsePersonInfo(const MessagePlace& person, tagFACERECOGNITION_PERSON_INFOEX& info) {
    if (const auto node = NodeAt(person, jsonparser::kNamesEx)) Read(*node, info);
}

bool PacketPersonInfo(Json::Value& person, const tagFACERECOGNITION_PERSON_INFO& info) {
    jsonparser::WriteShared(person, info);
    return true;
}

bool PacketPersonInfo(Json::Value& person, const tagFACERECOGNITION_PERSON_INFOEX& info) {
    jsonparser::Write(person, info);
    return true;
}
