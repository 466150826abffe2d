#include "catalogue.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <iterator>

#include "vkprotocolstack/JsonParser.h"
#include "vkprotocolstack/face/person_keywords.h"
#include "vkprotocolstack/support/support.h"
#include "vkprotocolstack/wire/keywords.h"

namespace tool {

// What converters of single nodes give, as records.

struct Code {
    int nCode;
};

struct Codes {
    int nCount;
    int nCodes[64];
};

struct State {
    unsigned char byState;
};

struct LibraryCode {
    unsigned int nCode;
};

struct Color {
    unsigned int nColor;
};

struct Similarities {
    unsigned char bySimilarities[8];
};

struct Microdegrees {
    unsigned int nCoordinate;
};

struct Degrees {
    double dbDegrees;
};

}  // namespace tool

namespace vkrecords {

template <>
struct FieldsOf<tool::Code> {
    static constexpr const char* name = "Code";
    static constexpr Field list[] = {detail::MakeField<decltype(tool::Code::nCode), 0, 0>("nCode", "code of the word")};
};

template <>
struct FieldsOf<tool::Codes> {
    static constexpr const char* name = "Codes";
    static constexpr Field list[] = {detail::MakeField<int, 0, 0>("nCount", "number of codes"),
                                     detail::MakeField<int[64], offsetof(tool::Codes, nCodes), 4>(
                                         "nCodes", "codes of the first 64 words without repeats")};
};

template <>
struct FieldsOf<tool::State> {
    static constexpr const char* name = "State";
    static constexpr Field list[] = {
        detail::MakeField<decltype(tool::State::byState), 0, 0>("byState", "code of the word")};
};

template <>
struct FieldsOf<tool::LibraryCode> {
    static constexpr const char* name = "LibraryCode";
    static constexpr Field list[] = {
        detail::MakeField<decltype(tool::LibraryCode::nCode), 0, 0>("nCode", "error code of the library")};
};

template <>
struct FieldsOf<tool::Color> {
    static constexpr const char* name = "Color";
    static constexpr Field list[] = {
        detail::MakeField<decltype(tool::Color::nColor), 0, 0>("nColor", "component i in bits 8i to 8i + 7")};
};

template <>
struct FieldsOf<tool::Similarities> {
    static constexpr const char* name = "Similarities";
    static constexpr Field list[] = {detail::MakeField<decltype(tool::Similarities::bySimilarities), 0, 0>(
        "bySimilarities", "to red, yellow, green, cyan, blue, purple, black, white")};
};

template <>
struct FieldsOf<tool::Microdegrees> {
    static constexpr const char* name = "Microdegrees";
    static constexpr Field list[] = {
        detail::MakeField<decltype(tool::Microdegrees::nCoordinate), 0, 0>("nCoordinate", "millionths of a degree")};
};

template <>
struct FieldsOf<tool::Degrees> {
    static constexpr const char* name = "Degrees";
    static constexpr Field list[] = {detail::MakeField<decltype(tool::Degrees::dbDegrees), 0, 0>(
        "dbDegrees", "read: millionths of a degree; written: degrees")};
};

}  // namespace vkrecords

namespace tool {
namespace {

using vkrecords::kLayout;

/// A record that is only read. read(node, record) says whether it succeeded.
template <class Record, class Read>
constexpr CatalogueEntry Reads(std::string_view name, std::string_view meaning, Read) {
    constexpr auto readAt = [](auto& node, void* record) -> bool {
        return Read{}(node, *static_cast<Record*>(record));
    };
    return {name, meaning, &kLayout<Record>, readAt, readAt, nullptr};
}

/// A record that is only written.
template <class Record, class Write>
constexpr CatalogueEntry Writes(std::string_view name, std::string_view meaning, Write) {
    return {name, meaning, &kLayout<Record>, nullptr, nullptr, [](const void* record, Json::Value& node) -> bool {
                return Write{}(node, *static_cast<const Record*>(record));
            }};
}

/// What is read back as it was written.
struct AsRead {
    template <class Record>
    void operator()(const Json::Value& /*node*/, const Record& /*written*/, Record& /*back*/) const {}
};

/// A record that is read and written. mend(node, written, back) gives back, which read filled from the node that
/// written became, what read does not take, or otherwise than it was written.
template <class Record, class Read, class Write, class Mend = AsRead>
constexpr CatalogueEntry ReadsAndWrites(std::string_view name, std::string_view meaning, Read read, Write write,
                                        std::span<const std::string_view> unwritten = {}, Mend = {}) {
    CatalogueEntry entry = Reads<Record>(name, meaning, read);
    entry.encode = Writes<Record>(name, meaning, write).encode;
    entry.readBack = [](const Json::Value& node, const void* written, void* record) {
        Record& back = *static_cast<Record*>(record);
        Read{}(node, back);
        Mend{}(node, *static_cast<const Record*>(written), back);
    };
    entry.unwritten = unwritten;
    return entry;
}

/// The code of a word that leaves the code as it was when it is unknown: then there is no whole Code.
template <class Read>
constexpr CatalogueEntry ReadsWord(std::string_view name, std::string_view meaning, Read) {
    return Reads<Code>(name, meaning, [](auto& node, auto& code) {
        constexpr int kUnknown = -1;
        int found = kUnknown;
        Read{}(node, found);
        if (found == kUnknown) return false;
        code.nCode = found;
        return true;
    });
}

/// The code of a word whose function takes no node.
template <class Read>
constexpr CatalogueEntry ReadsText(std::string_view name, std::string_view meaning, Read) {
    constexpr auto read = [](Json::Value& node, void* code) {
        if (!node.isString()) return false;
        std::string word = node.asString();
        static_cast<Code*>(code)->nCode = Read{}(word);
        return true;
    };
    return {name, meaning, &kLayout<Code>, read, nullptr, nullptr};
}

std::size_t ElementsOf(const Json::Value& node) { return node.isArray() ? node.size() : 0; }
std::size_t ElementsOf(const jsonparser::MessagePlace& place) { return place.size(); }

// ---- where readers and writers are no mirrors of each other

constexpr std::string_view kUnwrittenOfTimeEx[] = {"dwUTC", "dwReserved"};
constexpr std::string_view kUnwrittenOfDate[] = {"dwHour", "dwMinute", "dwSecond"};
constexpr std::string_view kUnwrittenOfPerson[] = {"byAge", "emEmotion", "stuFacePicInfo/pszFilePath"};
constexpr std::string_view kUnwrittenOfMobileData[] = {"nIndex"};

/// "IsDetected" is written as a number, and read as a bool only.
template <class Person>
void MendPictures(const Json::Value& person, Person& back) {
    for (Json::ArrayIndex i = 0; i < back.wFacePicNum; ++i) {
        back.stuFacePicInfo[i].bIsDetected = static_cast<unsigned char>(person["Image"][i]["IsDetected"].asUInt());
    }
}

/// The short name is written as the name where there is no other, and read into the other. It is read as the custom
/// category, too.
void Mend(const Json::Value& person, const tagFACERECOGNITION_PERSON_INFO& /*written*/,
          tagFACERECOGNITION_PERSON_INFO& back) {
    MendPictures(person, back);
    if (back.byIsCustomType != 1) std::memcpy(back.szPersonName, back.szPersonNameEx, sizeof back.szPersonName);
}

/// "Age" and "Emotion" are written as arrays, from fields that nothing reads, the custom texts as objects.
void Mend(const Json::Value& person, const tagFACERECOGNITION_PERSON_INFOEX& /*written*/,
          tagFACERECOGNITION_PERSON_INFOEX& back) {
    MendPictures(person, back);
    if (const Json::Value& age = person["Age"]; !age.isNull()) {
        back.bAgeEnable = 1;
        back.nAgeRange[0] = age[0].asInt();
        back.nAgeRange[1] = age[1].asInt();
    }
    const Json::Value& emotions = person["Emotion"];
    back.nEmotionValidNum = static_cast<int>(emotions.size());
    for (Json::ArrayIndex i = 0; i < emotions.size(); ++i) {
        const jsonparser::Keyword* row = jsonparser::FirstExact(jsonparser::kFeatureTypes, emotions[i].asString());
        back.emEmotions[i] = row == nullptr ? 0 : row->code;
    }
    const Json::Value& texts = person["CustomPersonInfo"];
    for (Json::ArrayIndex i = 0; i < texts.size(); ++i) {
        char* const text = back.stuCustomPersonInfo[i].szPersonInfo;
        GetJsonString(texts[i]["PersonInfo"], text, sizeof back.stuCustomPersonInfo[i].szPersonInfo, true);
    }
}

/// Read as millionths of a degree, written from degrees and cut to hundredths of a second.
void Mend(const Json::Value& /*coordinate*/, const Degrees& written, Degrees& back) {
    constexpr double kHundredth = 1.001 / 360000;
    back.dbDegrees /= 1000000;
    if (std::abs(back.dbDegrees - written.dbDegrees) < kHundredth) back = written;
}

/// A code that says unknown leaves its member out. What is missing is read as 0, which of these two is another code.
void Mend(const Json::Value& info, const tagNET_NETAPP_WIRELESS& /*written*/, tagNET_NETAPP_WIRELESS& back) {
    if (!info.isMember("WorkMode")) back.emWorkMode = -1;
    if (!info.isMember("3GFluxTactic")) back.em3GFluxTactic = 0;
}

constexpr auto kMend = [](const Json::Value& node, const auto& written, auto& back) { Mend(node, written, back); };

constexpr CatalogueEntry kCatalogue[] = {
    // ---- foundation
    ReadsAndWrites<VK_RECT>(
        "VK_RECT", "rectangle, wide form", [](auto& node, auto& rect) { return GetJsonRect(node, rect); },
        [](auto& node, auto& rect) { return SetJsonRect(node, rect); }),
    Reads<tagNET_RECT>("tagNET_RECT", "rectangle, 32-bit form",
                       [](auto& node, auto& rect) { return JsonRect::parse(node, rect); }),
    ReadsAndWrites<VK_POINT>(
        "VK_POINT", "point", [](auto& node, auto& point) { return GetJsonPoint(node, point); },
        [](auto& node, auto& point) { return SetJsonPoint(node, point); }),
    ReadsAndWrites<tagRANGE>(
        "tagRANGE", "numeric range, written as integers",
        [](auto& node, auto& range) { return deserialize_range(node, range); },
        [](auto& node, auto& range) { return serialize_range(range, node); }),
    ReadsAndWrites<tagRANGE>(
        "tagRANGE/float", "numeric range, written as reals",
        [](auto& node, auto& range) { return deserialize_range(node, range); },
        [](auto& node, auto& range) { return serialize_range_float(range, node); }),

    ReadsAndWrites<Color>(
        "Color", "colour of four components", [](auto& node, auto& color) { return GetJsonColor(node, color.nColor); },
        [](auto& node, auto& color) { return SetJsonColor(node, color.nColor); }),

    // ---- time
    Reads<tagNET_TIME>("tagNET_TIME", "calendar time, 2024-01-05 09:30:00",
                       [](auto& node, auto& time) { return JsonTime::parse(node, time); }),
    ReadsAndWrites<tagNET_TIME>(
        "tagNET_TIME/compact", "calendar time, 20240105 093000",
        [](auto& node, auto& time) { return GetJsonTimeB(node, time); },
        [](auto& node, auto& time) { return SetJsonTimeB(node, time); }),
    ReadsAndWrites<tagNET_TIME>(
        "tagNET_TIME/date", "date, 2024-01-05", [](auto& node, auto& time) { return GetJsonDate(node, time); },
        [](auto& node, auto& time) { return SetJsonDate(node, time); }, kUnwrittenOfDate),
    ReadsAndWrites<tagNET_TIME_EX>(
        "tagNET_TIME_EX", "calendar time with milliseconds, 2024-01-05 09:30:00.250",
        [](auto& node, auto& time) { return GetJsonTime(node, time); },
        [](auto& node, auto& time) { return SetJsonTime(node, time); }, kUnwrittenOfTimeEx),
    ReadsAndWrites<tagCFG_NET_TIME_EX>(
        "tagCFG_NET_TIME_EX", "calendar time with milliseconds of the configuration layer",
        [](auto& node, auto& time) { return GetJsonTime(node, time); },
        [](auto& node, auto& time) { return SetJsonTime(node, time); }),
    ReadsAndWrites<tagCFG_TIME>(
        "tagCFG_TIME", "time of day, 09:30:00", [](auto& node, auto& time) { return GetJsonTime(node, time); },
        [](auto& node, auto& time) { return SetJsonTime(node, time); }),
    Writes<_VKDEVTIME>("_VKDEVTIME", "packed device time, 24-01-05 09:30:00",
                       [](auto& node, auto& time) { return SetJsonTime(node, time); }),

    // ---- schedules
    ReadsAndWrites<tagVK_TSECT>(
        "tagVK_TSECT", "time segment, 1 08:00:00-17:30:00",
        [](auto& node, auto& section) { return TimeSection::parse(node, section); },
        [](auto& node, auto& section) { return TimeSection::pack(node, section); }),
    ReadsAndWrites<tagNET_CFG_TIME_SCHEDULE>(
        "tagNET_CFG_TIME_SCHEDULE", "weekly schedule",
        [](auto& node, auto& schedule) { return GetJsonTimeSchedule(node, schedule); },
        [](auto& node, auto& schedule) { return SetJsonTimeSchedule(node, schedule); }),
    ReadsAndWrites<tagCFG_TIME_SCHEDULE>(
        "tagCFG_TIME_SCHEDULE", "weekly schedule with masks, of the configuration layer",
        [](auto& node, auto& schedule) { return GetJsonTimeSchedule(node, schedule); },
        [](auto& node, auto& schedule) { return SetJsonTimeSchedule(node, schedule); }),
    ReadsAndWrites<tagCFG_TIME_SECTION>(
        "tagCFG_TIME_SECTION", "first segment of a time group, with a mask",
        [](auto& node, auto& section) { return GetJsonTimeGroup(node, &section, 1); },
        [](auto& node, auto& section) { return SetJsonTimeGroup(node, &section, 1); }),
    ReadsAndWrites<tagNET_TIME_SECTION>(
        "tagNET_TIME_SECTION", "first segment of a time group, of whose mask the low byte is written",
        [](auto& node, auto& section) { return GetJsonTimeGroup(node, &section, 1); },
        [](auto& node, auto& section) { return SetJsonTimeGroup(node, &section, 1); }),

    // ---- traffic
    Reads<tagDEV_EVENT_TRAFFIC_TRAFFICCAR_INFO>(
        "tagDEV_EVENT_TRAFFIC_TRAFFICCAR_INFO", "vehicle of an intelligent-traffic event",
        [](auto& node, auto& car) { return ParseStrtoTrafficCar(node, &car) == 0; }),
    Reads<tagEVENT_JUNCTION_CUSTOM_INFO>("tagEVENT_JUNCTION_CUSTOM_INFO", "weighbridge data of a junction event",
                                         [](auto& node, auto& info) { return ParseCustomInfo(node, info); }),
    Reads<tagEVENT_VEHICLE_INFO>("tagEVENT_VEHICLE_INFO", "vehicle of a vehicle event",
                                 [](auto& node, auto& info) { return ParseStrtoVehicle(node, &info); }),
    Reads<tagVK_TRAFFICFLOWSTAT>("tagVK_TRAFFICFLOWSTAT", "flow statistics of a lane",
                                 [](auto& node, auto& info) { return ParseTrafficStatInfo(node, &info) == 0; }),
    Reads<tagNET_TRAFFICFLOWSTATINFO>("tagNET_TRAFFICFLOWSTATINFO", "flow statistics of a lane, with queue and road",
                                      [](auto& node, auto& info) { return ParseTrafficStatInfoEx(node, &info) == 0; }),
    ReadsWord("PlateColor", "colour of a number plate",
              [](auto& node, int& code) { GetJsonPlateColorType(node, code); }),
    ReadsWord("VehicleType", "kind of a vehicle", [](auto& node, int& code) { GetJsonVehicleType(node, code); }),
    ReadsWord("VehicleColor", "body colour of a vehicle",
              [](auto& node, int& code) { GetJsonVehicleColorType(node, code); }),
    ReadsWord("PlateType", "kind of a number plate", [](auto& node, int& code) { GetJsonPlateType(node, code); }),
    Reads<Code>("VehicleDataType", "whether a vehicle record is live: DataType of an object",
                [](auto& node, auto& code) {
                    tagEM_VEHICLE_DATA_TYPE type{};
                    ParseVehicleDataType(node, type);
                    code.nCode = type;
                    return true;
                }),
    Reads<State>("StrobeState", "state of the strobe light",
                 [](auto& node, auto& state) { return ParseStrobeState(node, state.byState); }),
    Reads<State>("SeatBelt", "whether a seat belt is worn",
                 [](auto& node, auto& state) { return ParseSeatBelt(node, state.byState); }),
    ReadsText("SeatBelt/exact", "whether a seat belt is worn; upper and lower case differ",
              [](auto& word) { return ParseSafeBeltStatue(word); }),

    // ---- analytics
    Reads<VK_MSG_OBJECT>("VK_MSG_OBJECT", "detected object, first generation",
                         [](auto& node, auto& object) { return ParseStrtoObject(node, &object) == 0; }),
    Reads<tagVK_MSG_OBJECT_EX>("tagVK_MSG_OBJECT_EX", "detected object, second generation",
                               [](auto& node, auto& object) { return ParseStrtoObject(node, &object) == 0; }),
    Reads<tagVK_MSG_OBJECT_EX2>("tagVK_MSG_OBJECT_EX2", "detected object, third generation",
                                [](auto& node, auto& object) { return ParseStrtoObject(node, &object) == 1; }),
    Reads<tagVA_OBJECT_NONMOTOR>("tagVA_OBJECT_NONMOTOR", "non-motor vehicle and its riders",
                                 [](auto& node, auto& object) {
                                     ParseObjectNonMotor(node, &object);
                                     return true;
                                 }),
    Reads<tagNET_FACE_ATTRIBUTE_EX>("tagNET_FACE_ATTRIBUTE_EX", "attributes of a face",
                                    [](auto& node, auto& face) { return ParseFaceAttributes(node, face); }),
    Reads<tagNET_BULLET_HOLES_INFO>("tagNET_BULLET_HOLES_INFO", "bullet hole of a target analysis",
                                    [](auto& node, auto& hole) { return ParseBulletHolesInfo(node, &hole) == 1; }),
    ReadsText("ObjectAction", "what a detected object does", [](auto& word) { return ActionToInt(word.data()); }),
    Reads<Similarities>("ColorSimilarity", "similarity to eight reference colours",
                        [](auto& node, auto& colors) {
                            ParseColorsimilar(node, colors.bySimilarities, sizeof colors.bySimilarities);
                            return true;
                        }),

    // ---- faces
    Reads<VK_PIC_INFO>("VK_PIC_INFO", "picture with a path of any length",
                       [](auto& node, auto& info) { return ParseImageInfo(node, info), true; }),
    Reads<VK_PIC_INFO_EX3>("VK_PIC_INFO_EX3", "picture with a path of bounded length",
                           [](auto& node, auto& info) { return ParseImageInfo(node, info), true; }),
    ReadsAndWrites<tagFACERECOGNITION_PERSON_INFO>(
        "tagFACERECOGNITION_PERSON_INFO", "person of the face database, first generation",
        [](auto& node, auto& info) { return ParsePersonInfo(node, info), true; },
        [](auto& node, auto& info) { return PacketPersonInfo(node, info); }, kUnwrittenOfPerson, kMend),
    ReadsAndWrites<tagFACERECOGNITION_PERSON_INFOEX>(
        "tagFACERECOGNITION_PERSON_INFOEX", "person of the face database, second generation",
        [](auto& node, auto& info) { return ParsePersonInfo(node, info), true; },
        [](auto& node, auto& info) { return PacketPersonInfo(node, info); }, kUnwrittenOfPerson, kMend),
    Reads<tagCANDIDATE_INFO>("tagCANDIDATE_INFO", "candidate of a recognition, first generation",
                             [](auto& node, auto& info) { return ParseCandidate(node, info), true; }),
    Reads<tagCANDIDATE_INFOEX>("tagCANDIDATE_INFOEX", "candidate of a recognition, second generation",
                               [](auto& node, auto& info) { return ParseCandidate(node, info), true; }),
    Reads<tagNET_EXTENSION_INFO>("tagNET_EXTENSION_INFO", "extension data of an event",
                                 [](auto& node, auto& info) { return ParseExtensionInfo(node, info); }),
    Reads<tagNET_HUMANTRAIT_EXTENSION_INFO>("tagNET_HUMANTRAIT_EXTENSION_INFO", "extension data of a human-trait event",
                                            [](auto& node, auto& info) {
                                                return ParseHumanTraitExtensionInfo(node, info);
                                            }),
    ReadsAndWrites<Code>(
        "FaceDBType", "type of a face database",
        [](auto& node, auto& code) { return ParseFaceDBType(node, code.nCode); },
        [](auto& node, auto& code) { return PacketFaceDBType(node, code.nCode); }),

    // ---- device status
    Reads<tagNET_GPS_INFO>("tagNET_GPS_INFO", "position report",
                           [](auto& node, auto& info) {
                               ParseGPSInfo(node, info);
                               return true;
                           }),
    Reads<_NET_GPS_STATUS_INFO>("_NET_GPS_STATUS_INFO", "status of a positioning receiver",
                                [](auto& node, auto& info) {
                                    ParseGPSStatusInfo(node, &info);
                                    return true;
                                }),
    Reads<tagDEV_SRC_INFO>("tagDEV_SRC_INFO", "event that caused another",
                           [](auto& node, auto& info) {
                               ParseSrcInfo(node, &info);
                               return true;
                           }),
    Reads<tagNET_HDDSMART_INFO>("tagNET_HDDSMART_INFO", "S.M.A.R.T. attribute of a hard disk",
                                [](auto& node, auto& info) {
                                    ParseSyncStateInfo(node, &info);
                                    return true;
                                }),
    ReadsAndWrites<Degrees>(
        "Coordinate", "coordinate, [degrees, minutes, seconds]",
        [](auto& node, auto& coordinate) {
            coordinate.dbDegrees = TransLongitudetoDouble(node);
            return true;
        },
        [](auto& node, auto& coordinate) {
            TransLongitudeToJson(node, coordinate.dbDegrees);
            return true;
        },
        {}, kMend),
    Reads<Microdegrees>("Coordinate/integer", "coordinate in single precision",
                        [](auto& node, auto& coordinate) {
                            coordinate.nCoordinate = TransLongitudetoUInt(node);
                            return true;
                        }),
    Reads<LibraryCode>("ErrorCode", "error code of a reply: code of its member error",
                       [](auto& node, auto& code) {
                           code.nCode = ParseErrorCode(node);
                           return true;
                       }),
    ReadsText("StorageError", "fault of a storage", [](auto& word) { return ParseStorageError(word); }),
    ReadsText("RaidError", "fault of an array of disks", [](auto& word) { return ParseRaidError(word); }),
    ReadsText("Resolution", "video resolution", [](auto& word) { return ParseResolutionString(word.c_str()); }),
    Reads<Codes>("LogType", "kinds of logs",
                 [](auto& node, auto& codes) {
                     GetJsonLogType(node, codes.nCodes, static_cast<int>(std::size(codes.nCodes)), codes.nCount);
                     return ElementsOf(node) <= std::size(codes.nCodes);
                 }),

    // ---- configuration
    ReadsAndWrites<VK_COMM_PROP>(
        "VK_COMM_PROP", "serial port", [](auto& node, auto& port) { return ParseCommAttr(node, port); },
        [](auto& node, auto& port) { return PacketCommAttr(port, node); }),
    ReadsAndWrites<tagCFG_COMM_PROP>(
        "tagCFG_COMM_PROP", "serial port, of the configuration layer",
        [](auto& node, auto& port) { return ParseCommAttr(node, port); },
        [](auto& node, auto& port) { return PacketCommAttr(port, node); }),
    ReadsAndWrites<tagNET_NETAPP_WIRELESS>(
        "tagNET_NETAPP_WIRELESS", "mobile data",
        [](auto& node, auto& info) {
            ParseWirelessInfo(node, info);
            return true;
        },
        [](auto& node, auto& info) { return PacketWirelessInfo(info, node); }, kUnwrittenOfMobileData, kMend),
    Reads<tagALARM_TALKING_INVITE_INFO>("tagALARM_TALKING_INVITE_INFO", "invitation to an intercom talk",
                                        [](auto& node, auto& info) {
                                            ParseTalkingCallerType(node, &info);
                                            return true;
                                        }),
    Reads<Code>("MissionConfirm", "answer to a mission",
                [](auto& node, auto& code) {
                    tagNET_MISSION_CONFIRM_TYPE type{};
                    const bool known = ParseConfirmAction(node, type) == 1;
                    code.nCode = type;
                    return known;
                }),
};

}  // namespace

std::string Folded(std::string_view name) {
    std::string folded(name);
    std::transform(folded.begin(), folded.end(), folded.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return folded;
}

std::span<const CatalogueEntry> Catalogue() { return kCatalogue; }

const CatalogueEntry* FindEntry(std::string_view name, std::vector<std::string>& alternatives) {
    if (name.empty()) return nullptr;  // a part of every name
    const std::string wanted = Folded(name);
    const CatalogueEntry* found = nullptr;
    for (const CatalogueEntry& entry : kCatalogue) {
        const std::string folded = Folded(entry.name);
        if (folded == wanted) {
            alternatives.clear();
            return &entry;
        }
        if (folded.find(wanted) == std::string::npos) continue;
        found = &entry;
        alternatives.emplace_back(entry.name);
    }
    return alternatives.size() == 1 ? found : nullptr;
}

}  // namespace tool
