// What a program makes of a message with a JSON library of the peers: one pass over an object's members, a switch over
// their names, and straight into the record. It is the same for all of them, so that only the libraries differ.
//
// Value is a library's value, wrapped; it has
//     members(use)      calls use(name, value) for an object's members, in the library's order
//     elements(use)     calls use(value) for an array's elements, in order
//     integer(), real(), boolean(), text()
//     member(name), element(index)
// The records are those of the converters for the messages of the benchmark, and for what is like them: a value of
// another type than its member's is an error of the library's.
#ifndef BENCHMARKS_TEXT_TO_RECORD_PEER_H
#define BENCHMARKS_TEXT_TO_RECORD_PEER_H

#include <algorithm>
#include <chrono>
#include <cstring>
#include <iterator>
#include <string_view>
#include <utility>

#include "benchmarks/text_to_record/name_table.h"
#include "benchmarks/text_to_record/road.h"

// Each contender has its own copy: one of them is compiled for this machine's instructions.
namespace benchmarks {
namespace {

/// Copies what fits with a terminator, whole characters only.
inline void PutText(char* field, std::size_t size, std::string_view text) {
    std::size_t length = text.size();
    if (length >= size) {
        length = size - 1;
        while (length > 0 && (static_cast<unsigned char>(text[length]) & 0xC0U) == 0x80U) --length;
    }
    std::memcpy(field, text.data(), length);
    field[length] = '\0';
}

template <std::size_t Size>
void PutText(char (&field)[Size], std::string_view text) {
    PutText(field, Size, text);
}

inline char* HeapText(std::string_view text) {
    char* copy = new char[text.size() + 1];
    PutText(copy, text.size() + 1, text);
    return copy;
}

template <class Time>
Time UtcTime(long long seconds) {
    using namespace std::chrono;
    const sys_seconds moment{std::chrono::seconds(seconds)};
    const auto day = floor<days>(moment);
    const year_month_day date{day};
    const hh_mm_ss clock{moment - day};
    Time time{};
    time.dwYear = static_cast<unsigned>(static_cast<int>(date.year()));
    time.dwMonth = static_cast<unsigned>(date.month());
    time.dwDay = static_cast<unsigned>(date.day());
    time.dwHour = static_cast<unsigned>(clock.hours().count());
    time.dwMinute = static_cast<unsigned>(clock.minutes().count());
    time.dwSecond = static_cast<unsigned>(clock.seconds().count());
    return time;
}

/// The numbers of text, each up to a character that is not its own and is passed over.
template <class... Number>
void Scan(std::string_view text, Number&... numbers) {
    const char* at = text.data();
    const char* const end = at + text.size();
    const auto next = [&at, end] {
        unsigned number = 0;
        for (; at != end && static_cast<unsigned>(*at - '0') < 10; ++at) {
            number = 10 * number + static_cast<unsigned>(*at - '0');
        }
        if (at != end) ++at;
        return number;
    };
    ((numbers = static_cast<Number>(next())), ...);
}

/// The place of text in words, or otherwise when it is none of them.
template <std::size_t N>
int WordOf(const NameTable<N>& words, std::string_view text, int otherwise) {
    const std::size_t place = words.find(text);
    return place < N ? static_cast<int>(place) : otherwise;
}

/// Puts at most Size numbers into an array.
template <std::size_t Size, class Number, class Value>
void PutNumbers(Number (&numbers)[Size], Value values) {
    std::size_t i = 0;
    values.elements([&](auto value) {
        if (i < Size) numbers[i++] = static_cast<Number>(value.integer());
    });
}

template <class Rect, class Value>
Rect RectOf(Value value) {
    int edges[4] = {};
    PutNumbers(edges, value);
    return {edges[0], edges[1], edges[2], edges[3]};
}

template <class Value>
VK_POINT PointOf(Value value) {
    VK_POINT point{};
    short* coordinate[] = {&point.nx, &point.ny};
    std::size_t i = 0;
    value.elements([&](auto v) {
        if (i < 2) *coordinate[i++] = static_cast<short>(v.integer());
    });
    return point;
}

template <class Value>
unsigned ColorOf(Value value) {
    unsigned components[4] = {};
    PutNumbers(components, value);
    return components[0] << 24 | components[1] << 16 | components[2] << 8 | components[3];
}

// ---- traffic

inline constexpr NameTable kCarNames{"PlateNumber",
                                     "PlateType",
                                     "PlateColor",
                                     "VehicleColor",
                                     "Speed",
                                     "Event",
                                     "ViolationCode",
                                     "ViolationDesc",
                                     "ViolationName",
                                     "LowerSpeedLimit",
                                     "UpperSpeedLimit",
                                     "Lane",
                                     "OverSpeedMargin",
                                     "CustomParkNo",
                                     "UnderSpeedMargin",
                                     "VehicleSize",
                                     "VehicleLength",
                                     "DrivingDirection",
                                     "SnapshotMode",
                                     "ChannelName",
                                     "MachineName",
                                     "MachineGroup",
                                     "RoadwayNo",
                                     "DeviceAddress",
                                     "CustomRoadwayDirection",
                                     "DetailedAddress",
                                     "VehicleSign",
                                     "Redundance",
                                     "MachineAddress",
                                     "ActualShutter",
                                     "ActualGain",
                                     "Direction",
                                     "DefendCode",
                                     "VehicleColorRGB",
                                     "TrafficBlackListID",
                                     "UTC",
                                     "RecNo",
                                     "StereoGarage",
                                     "Weight",
                                     "PhysicalLane",
                                     "MovingDirection",
                                     "EleTagInfoUTC",
                                     "CarWindow"};
inline constexpr NameTable kVehicleSizes{"Light-duty", "Medium", "Oversize", "Minisize", "Largesize"};
inline constexpr NameTable kGarageNames{"DeckNo", "FreeDeckCount", "FullDeckCount", "TotalDeckCount"};

template <class Value>
void Fill(Value value, tagSTEREO_GARAGE_INFO& garage) {
    value.members([&](std::string_view name, auto v) {
        switch (kGarageNames.find(name)) {
            case kGarageNames["DeckNo"]:
                garage.nDeckNo = static_cast<int>(v.integer());
                break;
            case kGarageNames["FreeDeckCount"]:
                garage.nFreeDeckCount = static_cast<int>(v.integer());
                break;
            case kGarageNames["FullDeckCount"]:
                garage.nFullDeckCount = static_cast<int>(v.integer());
                break;
            case kGarageNames["TotalDeckCount"]:
                garage.nTotalDeckCount = static_cast<int>(v.integer());
                break;
            default:
                break;
        }
    });
}

template <class Value>
void Fill(Value value, Car& car) {
    std::memset(&car, 0, sizeof car);
    car.nVehicleSize = -1;
    car.byDirection = 8;
    bool hasTag = false;
    value.members([&](std::string_view name, auto v) {
        switch (kCarNames.find(name)) {
            case kCarNames["PlateNumber"]:
                PutText(car.szPlateNumber, v.text());
                break;
            case kCarNames["PlateType"]:
                PutText(car.szPlateTypeText, v.text());
                break;
            case kCarNames["PlateColor"]:
                PutText(car.szPlateColor, v.text());
                break;
            case kCarNames["VehicleColor"]:
                PutText(car.szVehicleColor, v.text());
                break;
            case kCarNames["Speed"]:
                car.nSpeed = static_cast<int>(v.integer());
                break;
            case kCarNames["Event"]:
                PutText(car.szEvent, v.text());
                break;
            case kCarNames["ViolationCode"]:
                PutText(car.szViolationCode, v.text());
                break;
            case kCarNames["ViolationDesc"]:
                PutText(car.szViolationDesc, v.text());
                break;
            case kCarNames["ViolationName"]:
                PutText(car.szViolationName, v.text());
                break;
            case kCarNames["LowerSpeedLimit"]:
                car.nLowerSpeedLimit = static_cast<int>(v.integer());
                break;
            case kCarNames["UpperSpeedLimit"]:
                car.nUpperSpeedLimit = static_cast<int>(v.integer());
                break;
            case kCarNames["OverSpeedMargin"]:
                car.nOverSpeedMargin = static_cast<int>(v.integer());
                break;
            case kCarNames["UnderSpeedMargin"]:
                car.nUnderSpeedMargin = static_cast<int>(v.integer());
                break;
            case kCarNames["Lane"]:
                car.nLane = static_cast<int>(v.integer());
                break;
            case kCarNames["CustomParkNo"]:
                PutText(car.szCustomParkNo, v.text());
                break;
            case kCarNames["VehicleSize"]: {
                const int place = WordOf(kVehicleSizes, v.text(), -1);
                car.nVehicleSize = place < 0 ? -1 : 1 << place;
                break;
            }
            case kCarNames["VehicleLength"]:
                car.fVehicleLength = static_cast<float>(v.real());
                break;
            case kCarNames["DrivingDirection"]: {
                std::size_t i = 0;
                v.elements([&](auto direction) {
                    if (i < 3) PutText(car.szDrivingDirection[i++], direction.text());
                });
                break;
            }
            case kCarNames["SnapshotMode"]:
                car.nSnapshotMode = static_cast<int>(v.integer());
                break;
            case kCarNames["ChannelName"]:
                PutText(car.szChannelName, v.text());
                break;
            case kCarNames["MachineName"]:
                PutText(car.szMachineName, v.text());
                break;
            case kCarNames["MachineGroup"]:
                PutText(car.szMachineGroup, v.text());
                break;
            case kCarNames["RoadwayNo"]:
                PutText(car.szRoadwayNo, v.text());
                break;
            case kCarNames["CustomRoadwayDirection"]:
                PutText(car.szCustomRoadwayDirection, v.text());
                break;
            case kCarNames["DeviceAddress"]:
                car.pszDeviceAddress = HeapText(v.text());
                break;
            case kCarNames["DetailedAddress"]:
                car.pszDetailedAddress = HeapText(v.text());
                break;
            case kCarNames["VehicleSign"]:
                PutText(car.szVehicleSign, v.text());
                break;
            case kCarNames["Redundance"]:
                PutNumbers(car.byRedundance, v);
                break;
            case kCarNames["MachineAddress"]:
                car.pszMachineAddress = HeapText(v.text());
                break;
            case kCarNames["ActualShutter"]:
                car.fActualShutter = static_cast<float>(v.real());
                break;
            case kCarNames["ActualGain"]:
                car.byActualGain = static_cast<unsigned char>(v.integer());
                break;
            case kCarNames["Direction"]:
                car.byDirection = static_cast<unsigned char>(v.integer());
                break;
            case kCarNames["DefendCode"]:
                PutText(car.szDefendCode, v.text());
                break;
            case kCarNames["TrafficBlackListID"]:
                car.nTrafficBlackListID = static_cast<int>(v.integer());
                break;
            case kCarNames["VehicleColorRGB"]:
                PutNumbers(car.dwVehicleColorRGB, v);
                break;
            case kCarNames["UTC"]:
                car.stuUTC = UtcTime<tagNET_TIME>(v.integer());
                break;
            case kCarNames["RecNo"]:
                car.dwRecNo = static_cast<unsigned>(v.integer());
                break;
            case kCarNames["StereoGarage"]:
                Fill(v, car.stuStereoGarage);
                break;
            case kCarNames["Weight"]:
                car.nWeight = static_cast<int>(v.integer());
                break;
            case kCarNames["PhysicalLane"]:
                car.byPhysicalLane = static_cast<unsigned char>(v.integer());
                break;
            case kCarNames["MovingDirection"]:
                car.emMovingDirection = static_cast<unsigned>(v.integer());
                break;
            case kCarNames["EleTagInfoUTC"]:
                hasTag = true;
                break;
            case kCarNames["CarWindow"]:
                car.stuCarWindowBox = RectOf<tagNET_RECT>(v.member("BoundingBox"));
                break;
            default:
                break;
        }
    });
    if (hasTag) car.stuEleTagInfoUTC = car.stuUTC;
}

// ---- object

inline constexpr NameTable kObjectNames{"ObjectID",
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
                                        "StartTimeStamp",
                                        "Sign",
                                        "EndTimeStamp",
                                        "EndSequence",
                                        "OriginalBoundingBox",
                                        "BeginSequence",
                                        "TimeType",
                                        "EndFileOffset",
                                        "ColorSimilar",
                                        "CurrentTimeStamp",
                                        "BeginFileOffset",
                                        "Person",
                                        "SynopsisExtra",
                                        "CurrentSequence",
                                        "UpperBodyColorSimilar",
                                        "LowerBodyColorSimilar"};
inline constexpr NameTable kActions{"", "Appear", "Move", "Stay", "Remove", "Disappear", "Split", "Merge", "Rename"};
inline constexpr NameTable kTimeTypes{"Absolute", "Relative"};
inline constexpr NameTable kImageNames{"Offset", "Length", "Width", "Height", "FilePath", "IsDetected"};
inline constexpr NameTable kStampNames{"UTC", "UTCMS"};
inline constexpr NameTable kColors{"Red", "Yellow", "Green", "Cyan", "Blue", "Purple", "Black", "White"};
inline constexpr NameTable kWalkerNames{"Stature", "Direction"};
inline constexpr NameTable kWalkingDirections{"", "LeftToRight", "RightToLeft"};
inline constexpr NameTable kSynopsisNames{"Speed", "Size", "Direction"};

template <class Value>
void FillImage(Value value, DetectedObject& object) {
    object.bPicEnable = 1;
    value.members([&](std::string_view name, auto v) {
        switch (kImageNames.find(name)) {
            case kImageNames["Offset"]:
                object.dwOffset = static_cast<unsigned>(v.integer());
                break;
            case kImageNames["Length"]:
                object.dwFileLength = static_cast<unsigned>(v.integer());
                break;
            case kImageNames["Width"]:
                object.wWidth = static_cast<unsigned short>(v.integer());
                break;
            case kImageNames["Height"]:
                object.wHeight = static_cast<unsigned short>(v.integer());
                break;
            case kImageNames["FilePath"]:
                object.pszFilePath = HeapText(v.text());
                break;
            default:
                break;
        }
    });
}

/// A stamp's time, without its milliseconds, which the latest stamp of the record keeps.
template <class Value>
tagNET_TIME_EX StampOf(Value value, unsigned& milliseconds) {
    tagNET_TIME_EX time{};
    value.members([&](std::string_view name, auto v) {
        switch (kStampNames.find(name)) {
            case kStampNames["UTC"]:
                time = UtcTime<tagNET_TIME_EX>(v.integer());
                break;
            case kStampNames["UTCMS"]:
                milliseconds = static_cast<unsigned>(v.integer());
                break;
            default:
                break;
        }
    });
    return time;
}

template <class Value>
void FillSimilarity(Value value, unsigned char (&similarity)[8]) {
    value.members([&](std::string_view name, auto v) {
        const int place = WordOf(kColors, name, -1);
        if (place >= 0) similarity[place] = static_cast<unsigned char>(v.integer());
    });
}

template <class Value>
void FillWalker(Value value, DetectedObject& object) {
    value.members([&](std::string_view name, auto v) {
        switch (kWalkerNames.find(name)) {
            case kWalkerNames["Stature"]:
                object.nStature = static_cast<int>(v.integer());
                break;
            case kWalkerNames["Direction"]:
                object.emDirection = WordOf(kWalkingDirections, v.text(), 0);
                break;
            default:
                break;
        }
    });
}

template <class Value>
void FillSynopsis(Value value, DetectedObject& object) {
    value.members([&](std::string_view name, auto v) {
        switch (kSynopsisNames.find(name)) {
            case kSynopsisNames["Speed"]:
                object.nSynopsisSpeed = static_cast<int>(v.integer());
                break;
            case kSynopsisNames["Size"]:
                object.nSynopsisSize = static_cast<int>(v.integer());
                break;
            case kSynopsisNames["Direction"]: {
                VK_POINT ends[2] = {};
                std::size_t i = 0;
                v.elements([&](auto point) {
                    if (i < 2) ends[i] = PointOf(point);
                    ++i;
                });
                if (i == 2) {
                    object.bSynopsisDirection = 1;
                    object.stuSynopsisStartPoint = ends[0];
                    object.stuSynopsisEndPoint = ends[1];
                }
                break;
            }
            default:
                break;
        }
    });
}

template <class Value>
void Fill(Value value, DetectedObject& object) {
    std::memset(&object, 0, sizeof object);
    object.dwSize = sizeof object;
    constexpr unsigned kNotSent = ~0U;
    unsigned milliseconds[3] = {kNotSent, kNotSent, kNotSent};
    value.members([&](std::string_view name, auto v) {
        switch (kObjectNames.find(name)) {
            case kObjectNames["ObjectID"]:
                object.nObjectID = static_cast<int>(v.integer());
                break;
            case kObjectNames["RelativeID"]:
                object.nRelativeID = static_cast<int>(v.integer());
                break;
            case kObjectNames["ObjectType"]:
                PutText(object.szObjectType, v.text());
                break;
            case kObjectNames["Category"]:
                PutText(object.szObjectCategory, v.text());
                break;
            case kObjectNames["Confidence"]:
                object.nConfidence = static_cast<int>(v.integer());
                break;
            case kObjectNames["Action"]:
                object.nAction = WordOf(kActions, v.text(), 0);
                break;
            case kObjectNames["BoundingBox"]:
                object.stuBoundingBox = RectOf<VK_RECT>(v);
                break;
            case kObjectNames["Center"]:
                object.stuCenter = PointOf(v);
                break;
            case kObjectNames["Contour"]:
                v.elements([&](auto point) {
                    if (object.nPointNum < 16) object.stuContour[object.nPointNum++] = PointOf(point);
                });
                break;
            case kObjectNames["MainColor"]:
                object.dwMainColor = ColorOf(v);
                object.bColor = 1;
                break;
            case kObjectNames["LowerBodyColor"]:
                object.dwLowerBodyColor = ColorOf(v);
                object.bLowerBodyColor = 1;
                break;
            case kObjectNames["Text"]:
                PutText(object.szText, v.text());
                break;
            case kObjectNames["SubText"]:
                PutText(object.szSubText, v.text());
                break;
            case kObjectNames["ShotFrame"]:
                object.bShotFrame = v.boolean();
                break;
            case kObjectNames["Image"]:
                FillImage(v, object);
                break;
            case kObjectNames["CurrentTimeStamp"]:
                object.stuCurrentTime = StampOf(v, milliseconds[0]);
                break;
            case kObjectNames["StartTimeStamp"]:
                object.stuStartTime = StampOf(v, milliseconds[1]);
                break;
            case kObjectNames["EndTimeStamp"]:
                object.stuEndTime = StampOf(v, milliseconds[2]);
                break;
            case kObjectNames["OriginalBoundingBox"]:
                object.stuOriginalBoundingBox = RectOf<VK_RECT>(v);
                break;
            case kObjectNames["Sign"]:
                object.stuSignBoundingBox = RectOf<VK_RECT>(v.member("BoundingBox"));
                break;
            case kObjectNames["CurrentSequence"]:
                object.dwCurrentSequence = static_cast<unsigned>(v.integer());
                break;
            case kObjectNames["BeginSequence"]:
                object.dwBeginSequence = static_cast<unsigned>(v.integer());
                break;
            case kObjectNames["EndSequence"]:
                object.dwEndSequence = static_cast<unsigned>(v.integer());
                break;
            case kObjectNames["BeginFileOffset"]:
                object.nBeginFileOffset = v.integer();
                break;
            case kObjectNames["EndFileOffset"]:
                object.nEndFileOffset = v.integer();
                break;
            case kObjectNames["TimeType"]:
                object.byTimeType = static_cast<unsigned char>(WordOf(kTimeTypes, v.text(), 0));
                break;
            case kObjectNames["ColorSimilar"]:
                FillSimilarity(v, object.byColorSimilar);
                break;
            case kObjectNames["UpperBodyColorSimilar"]:
                FillSimilarity(v, object.byUpperBodyColorSimilar);
                break;
            case kObjectNames["LowerBodyColorSimilar"]:
                FillSimilarity(v, object.byLowerBodyColorSimilar);
                break;
            case kObjectNames["Person"]:
                FillWalker(v, object);
                break;
            case kObjectNames["SynopsisExtra"]:
                FillSynopsis(v, object);
                break;
            default:
                break;
        }
    });
    for (const unsigned sent : milliseconds) {
        if (sent != kNotSent) object.stuCurrentTime.dwMillisecond = sent;
    }
}

// ---- person

inline constexpr NameTable kPersonNames{"Name",
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
                                        "Comment",
                                        "GroupID",
                                        "IsCustomType",
                                        "GroupName",
                                        "Glasses",
                                        "Age",
                                        "Emotion",
                                        "HomeAddress",
                                        "Race",
                                        "Eye",
                                        "GlassesType",
                                        "Mouth",
                                        "Mask",
                                        "Beard",
                                        "Attractive",
                                        "FeatureState",
                                        "CustomPersonInfo"};
inline constexpr NameTable kSexes{"", "Male", "Female"};
inline constexpr NameTable kCertificates{"", "IC", "Passport"};
inline constexpr NameTable kPersonTypes{"", "Normal", "Suspicion", "Thief", "VIP", "FateCheck", "Staff"};
inline constexpr NameTable kEmotions{"",          "WearGlasses", "Smile",    "Anger",   "Sadness",
                                     "Disgust",   "Fear",        "Surprise", "Neutral", "Laugh",
                                     "NoGlasses", "Happy",       "Confused", "Scream",  "SunGlasses"};
inline constexpr NameTable kGlasses{"", "SunGlasses", "Glasses"};

template <class Value>
void Fill(Value value, VK_PIC_INFO& picture) {
    value.members([&](std::string_view name, auto v) {
        switch (kImageNames.find(name)) {
            case kImageNames["Offset"]:
                picture.dwOffset = static_cast<unsigned>(v.integer());
                break;
            case kImageNames["Length"]:
                picture.dwFileLength = static_cast<unsigned>(v.integer());
                break;
            case kImageNames["Width"]:
                picture.wWidth = static_cast<unsigned short>(v.integer());
                break;
            case kImageNames["Height"]:
                picture.wHeight = static_cast<unsigned short>(v.integer());
                break;
            case kImageNames["FilePath"]:
                picture.pszFilePath = HeapText(v.text());
                break;
            case kImageNames["IsDetected"]:
                picture.bIsDetected = v.boolean();
                break;
            default:
                break;
        }
    });
}

template <class Value>
void Fill(Value value, Person& person) {
    person.nAttractive = -1;
    std::string_view type;
    value.members([&](std::string_view name, auto v) {
        switch (kPersonNames.find(name)) {
            case kPersonNames["Name"]:
                PutText(person.szPersonName, v.text());
                break;
            case kPersonNames["Province"]:
                PutText(person.szProvince, v.text());
                break;
            case kPersonNames["City"]:
                PutText(person.szCity, v.text());
                break;
            case kPersonNames["ID"]:
                PutText(person.szID, v.text());
                break;
            case kPersonNames["Important"]:
                person.byImportant = static_cast<unsigned char>(v.integer());
                break;
            case kPersonNames["Sex"]:
                person.bySex = static_cast<unsigned char>(WordOf(kSexes, v.text(), 0));
                break;
            case kPersonNames["CertificateType"]:
                person.byCertificateType = static_cast<unsigned char>(WordOf(kCertificates, v.text(), 0));
                break;
            case kPersonNames["Type"]:
                type = v.text();
                person.byType = static_cast<unsigned char>(WordOf(kPersonTypes, type, 0));
                break;
            case kPersonNames["Birthday"]:
                Scan(v.text(), person.wYear, person.byMonth, person.byDay);
                break;
            case kPersonNames["Image"]: {
                unsigned short count = 0;
                v.elements([&](auto picture) {
                    if (count < 48) Fill(picture, person.stuFacePicInfo[count++]);
                });
                person.wFacePicNum = count;
                break;
            }
            case kPersonNames["UID"]:
                PutText(person.szUID, v.text());
                break;
            case kPersonNames["Country"]:
                PutText(person.szCountry, v.text());
                break;
            case kPersonNames["IsCustomType"]:
                person.byIsCustomType = static_cast<unsigned char>(v.integer());
                break;
            case kPersonNames["Comment"]:
                PutText(person.szComment, v.text());
                break;
            case kPersonNames["GroupID"]:
                PutText(person.szGroupID, v.text());
                break;
            case kPersonNames["GroupName"]:
                PutText(person.szGroupName, v.text());
                break;
            case kPersonNames["Glasses"]:
                person.byGlasses = static_cast<unsigned char>(v.integer());
                break;
            case kPersonNames["Age"]:
                person.byAge = static_cast<unsigned char>(v.integer());
                break;
            case kPersonNames["Emotion"]:
                person.emEmotion = WordOf(kEmotions, v.text(), 0);
                break;
            case kPersonNames["HomeAddress"]:
                PutText(person.szHomeAddress, v.text());
                break;
            case kPersonNames["GlassesType"]:
                person.emGlassesType = WordOf(kGlasses, v.text(), 0);
                break;
            case kPersonNames["Race"]:
                person.emRace = static_cast<int>(v.integer() + 1);
                break;
            case kPersonNames["Eye"]:
                person.emEye = static_cast<int>(v.integer() + 1);
                break;
            case kPersonNames["Mouth"]:
                person.emMouth = static_cast<int>(v.integer() + 1);
                break;
            case kPersonNames["Mask"]:
                person.emMask = static_cast<int>(v.integer() + 1);
                break;
            case kPersonNames["Beard"]:
                person.emBeard = static_cast<int>(v.integer() + 1);
                break;
            case kPersonNames["Attractive"]:
                person.nAttractive = static_cast<int>(v.integer());
                break;
            case kPersonNames["FeatureState"]:
                person.emFeatureState = static_cast<int>(v.integer());
                break;
            case kPersonNames["CustomPersonInfo"]: {
                int count = 0;
                v.elements([&](auto text) {
                    if (count < 4) PutText(person.stuCustomPersonInfo[count++].szPersonInfo, text.text());
                });
                person.nCustomPersonInfoNum = count;
                break;
            }
            default:
                break;
        }
    });
    if (person.byIsCustomType == 1) PutText(person.szCustomType, type);
}

// ---- schedule

template <class Value>
void Fill(Value value, Schedule& schedule) {
    std::memset(&schedule, 0, sizeof schedule);
    std::size_t row = 0;
    value.elements([&](auto segments) {
        if (row == 8) return;
        std::size_t i = 0;
        segments.elements([&](auto text) {
            if (i == 6) return;
            tagCFG_TIME_SECTION& section = schedule.stuTimeSection[row][i++];
            Scan(text.text(), section.dwRecordMask, section.nBeginHour, section.nBeginMin, section.nBeginSec,
                 section.nEndHour, section.nEndMin, section.nEndSec);
        });
        ++row;
    });
    schedule.bEnableHoliday = row == 8;
}

/// The road of a library, which parses a message: library.parse(message) gives its value, good until the next call.
template <class Library>
class PeerRoad : public Road {
  public:
    using Road::Road;

    void read(const Message& message, Car& record) override { fill(message, record); }
    void read(const Message& message, DetectedObject& record) override { fill(message, record); }
    void read(const Message& message, Person& record) override { fill(message, record); }
    void read(const Message& message, Schedule& record) override { fill(message, record); }

  private:
    template <class Record>
    void fill(const Message& message, Record& record) {
        auto root = library_.parse(message);
        if (message.isEvent()) {
            Fill(root.member("params").member("Events").element(0).member("TrafficCar"), record);
        } else {
            Fill(root, record);
        }
    }

    Library library_;
};

}  // namespace
}  // namespace benchmarks

#endif
