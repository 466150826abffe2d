#include "fuzz/converters.h"

#include <sanitizer/asan_interface.h>

#include <algorithm>
#include <cstring>
#include <type_traits>

#include "vkprotocolstack/JsonParser.h"

namespace fuzz {
namespace {

using vkrecords::Field;
using vkrecords::FieldKind;
using vkrecords::RecordLayout;

constexpr unsigned char kPattern = 0xA5;

/// A field of text that is no record's.
struct TextField {
    char bytes[48];
};

struct Colors {
    unsigned char bytes[8];
};

struct LogTypes {
    int types[16];
    int count;
};

struct TextOfLength {
    char bytes[40];
    int length;
};

template <class T>
concept HasLayout = requires {
    vkrecords::FieldsOf<T>::list;
};

template <class T>
constexpr Target TargetOf() {
    if constexpr (HasLayout<T>) {
        return {sizeof(T), alignof(T), &vkrecords::kLayout<T>};
    } else {
        return {sizeof(T), alignof(T), nullptr};
    }
}

/// What call returns; 0 for nothing.
template <class Call, class... Argument>
long long ResultOf(Call call, Argument&... arguments) {
    if constexpr (std::is_void_v<decltype(call(arguments...))>) {
        call(arguments...);
        return 0;
    } else {
        return call(arguments...);
    }
}

/// read takes a Json::Value or a place, and what is to be read into.
template <class T, class Read, class Refused>
constexpr Reader Reads(std::string_view name, std::string_view members, Read, Refused) {
    return {name,
            members,
            TargetOf<T>(),
            [](Json::Value& from, void* to) { return ResultOf(Read(), from, *static_cast<T*>(to)); },
            [](const jsonparser::MessagePlace& from, void* to) { return ResultOf(Read(), from, *static_cast<T*>(to)); },
            [](void* to) { return ResultOf(Refused(), *static_cast<T*>(to)); }};
}

/// A reader that leaves what it was given, and returns 0 if anything, of a message that is not accepted.
template <class T, class Read>
constexpr Reader Reads(std::string_view name, std::string_view members, Read read) {
    return Reads<T>(name, members, read, [](T&) {});
}

template <class T, class Write, class Mend>
constexpr Writer Writes(std::string_view name, Write, Mend) {
    return {name, TargetOf<T>(), [](Json::Value& to, void* from) {
                T& source = *static_cast<T*>(from);
                Mend()(source);
                return ResultOf(Write(), to, source);
            }};
}

template <class T, class Write>
constexpr Writer Writes(std::string_view name, Write write) {
    return Writes<T>(name, write, [](T&) {});
}

constexpr Reader kReaders[] = {
    Reads<VK_RECT>("GetJsonRect", "[]", [](auto& from, auto& to) { return GetJsonRect(from, to); }),
    Reads<tagNET_RECT>("JsonRect::parse", "[]", [](auto& from, auto& to) { return JsonRect::parse(from, to); }),
    Reads<VK_POINT>("GetJsonPoint", "[]", [](auto& from, auto& to) { return GetJsonPoint(from, to); }),
    Reads<unsigned>("GetJsonColor", "[]", [](auto& from, auto& to) { return GetJsonColor(from, to); }),
    Reads<tagRANGE>("deserialize_range", "Max Min Default Step",
                    [](auto& from, auto& to) { return deserialize_range(from, to); }),
    Reads<long long>(
        "Json_dimension()", "[]",
        [](auto& from, auto& to) -> long long {
            to = Json_dimension(1)(from);
            return to;
        },
        [](auto& to) { return to = -1; }),
    Reads<long long>(
        "Json_dimension::do_recursion", "[]",
        [](auto& from, auto& to) -> long long {
            to = Json_dimension(31).do_recursion(from);
            return to;
        },
        [](auto& to) { return to = -1; }),
    Reads<TextField>("parseUtf8JasonToAssic", "",
                     [](auto& from, auto& to) { return parseUtf8JasonToAssic(from, to.bytes, 40); }),
    Reads<tagNET_TIME_EX>("JsonTimeEx::parse/1", "", [](auto& from, auto& to) { return JsonTimeEx::parse(from, to); }),
    Reads<tagCFG_NET_TIME_EX>("JsonTimeEx::parse/2", "",
                              [](auto& from, auto& to) { return JsonTimeEx::parse(from, to); }),
    Reads<tagNET_TIME>("JsonTime::parse", "", [](auto& from, auto& to) { return JsonTime::parse(from, to); }),
    Reads<tagNET_TIME_EX>("GetJsonTime/1", "", [](auto& from, auto& to) { return GetJsonTime(from, to); }),
    Reads<tagCFG_NET_TIME_EX>("GetJsonTime/2", "", [](auto& from, auto& to) { return GetJsonTime(from, to); }),
    Reads<tagCFG_TIME>("GetJsonTime/3", "", [](auto& from, auto& to) { return GetJsonTime(from, to); }),
    Reads<tagNET_TIME>("GetJsonTimeB", "", [](auto& from, auto& to) { return GetJsonTimeB(from, to); }),
    Reads<tagNET_TIME>("GetJsonDate", "", [](auto& from, auto& to) { return GetJsonDate(from, to); }),
    Reads<tagNET_TIME>("GetTimeStructFromStr", "", [](auto& from, auto& to) { return GetTimeStructFromStr(from, to); }),
    Reads<tagVK_TSECT>("TimeSection::parse", "", [](auto& from, auto& to) { return TimeSection::parse(from, to); }),
    Reads<tagNET_CFG_TIME_SCHEDULE>("GetJsonTimeSchedule/1", "[]",
                                    [](auto& from, auto& to) { return GetJsonTimeSchedule(from, to); }),
    Reads<tagCFG_TIME_SCHEDULE>("GetJsonTimeSchedule/2", "[]",
                                [](auto& from, auto& to) { return GetJsonTimeSchedule(from, to); }),
    Reads<tagNET_CFG_TIME_SCHEDULE>("GetJsonTimeSchedule/3", "[]",
                                    [](auto& from, auto& to) -> long long {
                                        return GetJsonTimeSchedule(from, to.stuTimeSection[0], 8, 6, nullptr);
                                    }),
    Reads<tagCFG_TIME_SCHEDULE>("GetJsonTimeSchedule/4", "[]",
                                [](auto& from, auto& to) -> long long {
                                    return GetJsonTimeSchedule(from, to.stuTimeSection[0], 7, 5, nullptr);
                                }),
    Reads<tagCFG_TIME_SCHEDULE>("GetJsonTimeGroup/1", "[]",
                                [](auto& from, auto& to) { return GetJsonTimeGroup(from, to.stuTimeSection[0], 6); }),
    Reads<tagNET_TIME_SECTION>("GetJsonTimeGroup/2", "[]",
                               [](auto& from, auto& to) { return GetJsonTimeGroup(from, &to, 1); }),
    Reads<int>("GetJsonPlateColorType", "", [](auto& from, auto& to) { return GetJsonPlateColorType(from, to); }),
    Reads<int>("GetJsonVehicleType", "", [](auto& from, auto& to) { return GetJsonVehicleType(from, to); }),
    Reads<int>("GetJsonVehicleColorType", "", [](auto& from, auto& to) { return GetJsonVehicleColorType(from, to); }),
    Reads<int>("GetJsonPlateType", "", [](auto& from, auto& to) { return GetJsonPlateType(from, to); }),
    Reads<tagEM_VEHICLE_DATA_TYPE>("ParseVehicleDataType", "DataType",
                                   [](auto& from, auto& to) { return ParseVehicleDataType(from, to); }),
    Reads<unsigned char>("ParseStrobeState", "", [](auto& from, auto& to) { return ParseStrobeState(from, to); }),
    Reads<unsigned char>("ParseSeatBelt", "", [](auto& from, auto& to) { return ParseSeatBelt(from, to); }),
    Reads<tagDEV_EVENT_TRAFFIC_TRAFFICCAR_INFO>(
        "ParseStrtoTrafficCar",
        "PlateNumber PlateType PlateColor VehicleColor Speed Event ViolationCode ViolationDesc "
        "ViolationName LowerSpeedLimit UpperSpeedLimit OverSpeedMargin UnderSpeedMargin Lane "
        "CustomParkNo VehicleSize VehicleLength DrivingDirection SnapshotMode ChannelName MachineName "
        "MachineGroup RoadwayNo CustomRoadwayDirection DeviceAddress DetailedAddress VehicleSign "
        "Redundance MachineAddress ActualShutter ActualGain Direction DefendCode TrafficBlackListID "
        "VehicleColorRGB UTC RecNo StereoGarage Weight PhysicalLane MovingDirection EleTagInfoUTC "
        "CarWindow",
        [](auto& from, auto& to) { return ParseStrtoTrafficCar(from, &to); }, [](auto&) { return 1; }),
    Reads<tagEVENT_JUNCTION_CUSTOM_INFO>("ParseCustomInfo", "WeighInfo Rough Tare Net",
                                         [](auto& from, auto& to) { return ParseCustomInfo(from, to); }),
    Reads<tagEVENT_VEHICLE_INFO>("ParseStrtoVehicle", "Category",
                                 [](auto& from, auto& to) { return ParseStrtoVehicle(from, &to); }),
    Reads<tagVK_TRAFFICFLOWSTAT>(
        "ParseTrafficStatInfo",
        "DrivingDirection Lane MachineAddress MachineName Period UTC UTCMS Vehicles AverageSpeed "
        "AverageLength TimeOccupyRatio SpaceOccupyRatio SpaceHeadway TimeHeadway Density "
        "OverSpeedVehicles UnderSpeedVehicles LargeVehicles MediumVehicles SmallVehicles MotoVehicles "
        "LongVehicles",
        [](auto& from, auto& to) { return ParseTrafficStatInfo(from, &to); }, [](auto&) { return -1; }),
    Reads<tagNET_TRAFFICFLOWSTATINFO>(
        "ParseTrafficStatInfoEx",
        "DrivingDirection Lane MachineAddress MachineName Period UTC UTCMS Vehicles AverageSpeed "
        "AverageLength TimeOccupyRatio SpaceOccupyRatio SpaceHeadway TimeHeadway Density "
        "OverSpeedVehicles UnderSpeedVehicles LargeVehicles MediumVehicles SmallVehicles MotoVehicles "
        "LongVehicles BackOfQueue State Rank",
        [](auto& from, auto& to) { return ParseTrafficStatInfoEx(from, &to); }, [](auto&) { return -1; }),
    Reads<VK_MSG_OBJECT>(
        "ParseStrtoObject/1",
        "ObjectID RelativeID ObjectType Category Confidence Action BoundingBox Center Contour MainColor "
        "LowerBodyColor Text SubText ShotFrame Image CurrentTimeStamp StartTimeStamp EndTimeStamp "
        "OriginalBoundingBox Sign CurrentSequence BeginSequence EndSequence BeginFileOffset "
        "EndFileOffset TimeType ColorSimilar UpperBodyColorSimilar LowerBodyColorSimilar SubBrand "
        "BrandYear CarLogoIndex Person SynopsisExtra",
        [](auto& from, auto& to) { return ParseStrtoObject(from, &to); }, [](auto&) { return 1; }),
    Reads<tagVK_MSG_OBJECT_EX>(
        "ParseStrtoObject/2",
        "ObjectID RelativeID ObjectType Category Confidence Action BoundingBox Center Contour MainColor "
        "LowerBodyColor Text SubText ShotFrame Image CurrentTimeStamp StartTimeStamp EndTimeStamp "
        "OriginalBoundingBox Sign CurrentSequence BeginSequence EndSequence BeginFileOffset "
        "EndFileOffset TimeType ColorSimilar UpperBodyColorSimilar LowerBodyColorSimilar SubBrand "
        "BrandYear CarLogoIndex Person SynopsisExtra",
        [](auto& from, auto& to) { return ParseStrtoObject(from, &to); }, [](auto&) { return 1; }),
    Reads<tagVK_MSG_OBJECT_EX2>(
        "ParseStrtoObject/3",
        "ObjectID RelativeID ObjectType Category Confidence Action BoundingBox Center Contour MainColor "
        "LowerBodyColor Text SubText ShotFrame Image CurrentTimeStamp StartTimeStamp EndTimeStamp "
        "OriginalBoundingBox Sign CurrentSequence BeginSequence EndSequence BeginFileOffset "
        "EndFileOffset TimeType ColorSimilar UpperBodyColorSimilar LowerBodyColorSimilar SubBrand "
        "BrandYear CarLogoIndex Person SynopsisExtra",
        [](auto& from, auto& to) { return ParseStrtoObject(from, &to); }),
    Reads<Colors>("ParseColorsimilar", "Red Yellow Green Cyan Blue Purple Black White",
                  [](auto& from, auto& to) { return ParseColorsimilar(from, to.bytes, 8); }),
    Reads<tagVA_OBJECT_NONMOTOR>(
        "ParseObjectNonMotor",
        "ObjectID Category BoundingBox OriginalBoundingBox Color MainColor Image SceneImage "
        "FaceSceneImage NumOfCycling NumOfFace RiderList FeatureValid Helmet FaceAttributes FaceImage",
        [](auto& from, auto& to) { return ParseObjectNonMotor(from, &to); }),
    Reads<tagNET_FACE_ATTRIBUTE_EX>(
        "ParseFaceAttributes", "Sex Age Complexion Eye Mouth Mask Beard Attractive Glass Nation Emotion BoundingBox",
        [](auto& from, auto& to) { return ParseFaceAttributes(from, to); }),
    Reads<tagNET_BULLET_HOLES_INFO>("ParseBulletHolesInfo", "ObjectID ObjectType Sequence Score BoundingBox Center",
                                    [](auto& from, auto& to) { return ParseBulletHolesInfo(from, &to); }),
    Reads<VK_PIC_INFO>("ParseImageInfo/1", "Offset Length Width Height FilePath IsDetected",
                       [](auto& from, auto& to) { return ParseImageInfo(from, to); }),
    Reads<VK_PIC_INFO_EX3>("ParseImageInfo/2", "Offset Length Width Height FilePath IsDetected",
                           [](auto& from, auto& to) { return ParseImageInfo(from, to); }),
    Reads<tagFACERECOGNITION_PERSON_INFO>(
        "ParsePersonInfo/1",
        "Name Province City ID Important Sex CertificateType Type Birthday Image UID Country "
        "IsCustomType Comment GroupID GroupName FeatureValue Glasses Age Emotion",
        [](auto& from, auto& to) { return ParsePersonInfo(from, to); }),
    Reads<tagFACERECOGNITION_PERSON_INFOEX>(
        "ParsePersonInfo/2",
        "Name Province City ID Important Sex CertificateType Type Birthday Image UID Country "
        "IsCustomType Comment GroupID GroupName Glasses Age Emotion HomeAddress GlassesType Race Eye "
        "Mouth Mask Beard Attractive FeatureState CustomPersonInfo",
        [](auto& from, auto& to) { return ParsePersonInfo(from, to); }),
    Reads<tagCANDIDATE_INFO>("ParseCandidate/1", "Similarity Channel Range Time Address Person IsHit SceneImage",
                             [](auto& from, auto& to) { return ParseCandidate(from, to); }),
    Reads<tagCANDIDATE_INFOEX>("ParseCandidate/2", "Similarity Channel Range Time Address Person IsHit SceneImage",
                               [](auto& from, auto& to) { return ParseCandidate(from, to); }),
    Reads<int>("ParseFaceDBType", "", [](auto& from, auto& to) { return ParseFaceDBType(from, to); }),
    Reads<tagNET_EXTENSION_INFO>("ParseExtensionInfo", "EventLongID",
                                 [](auto& from, auto& to) { return ParseExtensionInfo(from, to); }),
    Reads<tagNET_HUMANTRAIT_EXTENSION_INFO>(
        "ParseHumanTraitExtensionInfo", "AdditionalCode",
        [](auto& from, auto& to) { return ParseHumanTraitExtensionInfo(from, to); }),
    Reads<unsigned>(
        "ParseErrorCode", "error code", [](auto& from, auto& to) { to = ParseErrorCode(from); },
        [](auto& to) { to = 0x80000015U; }),
    Reads<LogTypes>("GetJsonLogType", "[]",
                    [](auto& from, auto& to) { return GetJsonLogType(from, to.types, 16, to.count); }),
    Reads<unsigned>(
        "TransLongitudetoUInt", "[]", [](auto& from, auto& to) { to = TransLongitudetoUInt(from); },
        [](auto& to) { to = 0; }),
    Reads<double>(
        "TransLongitudetoDouble", "[]", [](auto& from, auto& to) { to = TransLongitudetoDouble(from); },
        [](auto& to) { to = 0; }),
    Reads<tagNET_GPS_INFO>("ParseGPSInfo", "Longitude Latitude Altitude Speed Bearing",
                           [](auto& from, auto& to) { return ParseGPSInfo(from, to); }),
    Reads<_NET_GPS_STATUS_INFO>("ParseGPSStatusInfo",
                                "Altitude Speed Longitude Latitude Bearing AntennasStatus PositioningResult WorkStatus "
                                "SatelliteCount AlarmPoints Time SNR Source",
                                [](auto& from, auto& to) { return ParseGPSStatusInfo(from, &to); }),
    Reads<tagDEV_SRC_INFO>("ParseSrcInfo", "SrcEvent SrcTime SrcChannel",
                           [](auto& from, auto& to) { return ParseSrcInfo(from, &to); }),
    Reads<tagNET_HDDSMART_INFO>("ParseSyncStateInfo", "ID Name Current Worst Threshold Raw Predict Sync",
                                [](auto& from, auto& to) { return ParseSyncStateInfo(from, &to); }),
    Reads<VK_COMM_PROP>("ParseCommAttr/1", "[]", [](auto& from, auto& to) { return ParseCommAttr(from, to); }),
    Reads<tagCFG_COMM_PROP>("ParseCommAttr/2", "[]", [](auto& from, auto& to) { return ParseCommAttr(from, to); }),
    Reads<tagNET_NETAPP_WIRELESS>(
        "ParseWirelessInfo",
        "Enable Index KeepAlive APN AuthMode UserName Password AutoDial TimeSection 3GFluxTactic "
        "3GFluxUp 3GFlux Day3GFluxTactic Day3GFluxUp Day3GFluxUse Day3GFluxAction WorkMode DailNumber "
        "Activate",
        [](auto& from, auto& to) { return ParseWirelessInfo(from, to); }),
    Reads<tagALARM_TALKING_INVITE_INFO>("ParseTalkingCallerType", "Caller",
                                        [](auto& from, auto& to) { return ParseTalkingCallerType(from, &to); }),
    Reads<tagNET_MISSION_CONFIRM_TYPE>("ParseConfirmAction", "",
                                       [](auto& from, auto& to) { return ParseConfirmAction(from, to); }),
};

constexpr Writer kWriters[] = {
    Writes<TextOfLength>(
        "packetAssicToUtf8Jason",
        [](auto& to, auto& from) { return packetAssicToUtf8Jason(to, from.bytes, from.length); },
        [](auto& from) { from.length %= 41; }),
    Writes<VK_RECT>("SetJsonRect", [](auto& to, auto& from) { return SetJsonRect(to, from); }),
    Writes<VK_POINT>("SetJsonPoint", [](auto& to, auto& from) { return SetJsonPoint(to, from); }),
    Writes<unsigned>("SetJsonColor", [](auto& to, auto& from) { return SetJsonColor(to, from); }),
    Writes<tagRANGE>("serialize_range", [](auto& to, auto& from) { return serialize_range(from, to); }),
    Writes<tagRANGE>("serialize_range_float", [](auto& to, auto& from) { return serialize_range_float(from, to); }),
    Writes<tagNET_TIME_EX>("JsonTimeEx::pack/1", [](auto& to, auto& from) { return JsonTimeEx::pack(to, from); }),
    Writes<tagCFG_NET_TIME_EX>("JsonTimeEx::pack/2", [](auto& to, auto& from) { return JsonTimeEx::pack(to, from); }),
    Writes<tagNET_TIME_EX>("SetJsonTime/1", [](auto& to, auto& from) { return SetJsonTime(to, from); }),
    Writes<tagCFG_NET_TIME_EX>("SetJsonTime/2", [](auto& to, auto& from) { return SetJsonTime(to, from); }),
    Writes<tagCFG_TIME>("SetJsonTime/3", [](auto& to, auto& from) { return SetJsonTime(to, from); }),
    Writes<_VKDEVTIME>("SetJsonTime/4", [](auto& to, auto& from) { return SetJsonTime(to, from); }),
    Writes<tagNET_TIME>("SetJsonTimeB", [](auto& to, auto& from) { return SetJsonTimeB(to, from); }),
    Writes<tagNET_TIME>("SetJsonDate", [](auto& to, auto& from) { return SetJsonDate(to, from); }),
    Writes<tagNET_CFG_TIME_SCHEDULE>("SetJsonTimeSchedule/1",
                                     [](auto& to, auto& from) { return SetJsonTimeSchedule(to, from); }),
    Writes<tagCFG_TIME_SCHEDULE>("SetJsonTimeSchedule/2",
                                 [](auto& to, auto& from) { return SetJsonTimeSchedule(to, from); }),
    Writes<tagNET_CFG_TIME_SCHEDULE>(
        "SetJsonTimeSchedule/3",
        [](auto& to, auto& from) { return SetJsonTimeSchedule(to, from.stuTimeSection[0], 8, 6); }),
    Writes<tagCFG_TIME_SCHEDULE>(
        "SetJsonTimeSchedule/4",
        [](auto& to, auto& from) { return SetJsonTimeSchedule(to, from.stuTimeSection[0], 7, 5); }),
    Writes<tagCFG_TIME_SCHEDULE>("SetJsonTimeGroup/1",
                                 [](auto& to, auto& from) { return SetJsonTimeGroup(to, from.stuTimeSection[0], 6); }),
    Writes<tagNET_TIME_SECTION>("SetJsonTimeGroup/2",
                                [](auto& to, auto& from) { return SetJsonTimeGroup(to, &from, 1); }),
    Writes<tagVK_TSECT>("TimeSection::pack", [](auto& to, auto& from) { return TimeSection::pack(to, from); }),
    Writes<tagFACERECOGNITION_PERSON_INFO>(
        "PacketPersonInfo/1", [](auto& to, auto& from) { return PacketPersonInfo(to, from); },
        [](auto& from) { from.wFacePicNum %= 49; }),
    Writes<tagFACERECOGNITION_PERSON_INFOEX>(
        "PacketPersonInfo/2", [](auto& to, auto& from) { return PacketPersonInfo(to, from); },
        [](auto& from) {
            from.wFacePicNum %= 49;
            from.nCustomPersonInfoNum &= 3;
        }),
    Writes<int>("PacketFaceDBType", [](auto& to, auto& from) { return PacketFaceDBType(to, from); }),
    Writes<double>("TransLongitudeToJson", [](auto& to, auto& from) { return TransLongitudeToJson(to, from); }),
    Writes<VK_COMM_PROP>("PacketCommAttr/1", [](auto& to, auto& from) { return PacketCommAttr(from, to); }),
    Writes<tagCFG_COMM_PROP>("PacketCommAttr/2", [](auto& to, auto& from) { return PacketCommAttr(from, to); }),
    Writes<tagNET_NETAPP_WIRELESS>("PacketWirelessInfo",
                                   [](auto& to, auto& from) { return PacketWirelessInfo(from, to); }),
};

long long ReadSegment(std::string text) {
    tagVK_TSECT section{};
    return getTimeScheduleFromStr(section, text.c_str());
}

long long LibraryCode(long deviceCode) {
    unsigned code = 0;
    return ParseErrorCode(static_cast<unsigned>(deviceCode), code) ? code : 0;
}

long long UtcOfTime(long seconds) { return GetUTCTimebyNetTime(GetNetTimeByUTCTime(seconds)); }
long long UtcOfTimeNew(long seconds) { return GetUTCTimebyNetTimeNew(GetNetTimeByUTCTimeNew(seconds)); }
long long LocalOfTimeNew(long seconds) { return GetLocalTimebyNetTimeNew(GetNetTimeByUTCTimeNew(seconds)); }

constexpr TextReader kTextReaders[] = {
    {"ParseSafeBeltStatue",    "WithSafeBelt",        [](auto text) { return 0LL + ParseSafeBeltStatue(std::move(text)); }},
    {"ActionToInt",            "Appear",              [](auto text) { return 0LL + ActionToInt(text.data()); }            },
    {"ParseStorageError",      "RaidFailed",          [](auto text) { return 0LL + ParseStorageError(text); }             },
    {"ParseRaidError",         "RaidFailed",          [](auto text) { return 0LL + ParseRaidError(text); }                },
    {"ParseResolutionString",  "1920x1080",           [](auto text) { return 0LL + ParseResolutionString(text.c_str()); } },
    {"getTimeScheduleFromStr", "1 08:00:00-17:30:00", ReadSegment                                                         },
};

constexpr NumberConverter kNumberConverters[] = {
    {"ParseErrorCode",                                     0x01003007, LibraryCode   },
    {"GetUTCTimebyNetTime of GetNetTimeByUTCTime",         1704447000, UtcOfTime     },
    {"GetUTCTimebyNetTimeNew of GetNetTimeByUTCTimeNew",   1704447000, UtcOfTimeNew  },
    {"GetLocalTimebyNetTimeNew of GetNetTimeByUTCTimeNew", 1704447000, LocalOfTimeNew},
};

bool IsPointer(const Field& field) { return field.kind == FieldKind::HeapText || field.kind == FieldKind::CallerText; }

/// The size of a caller's buffer that the record states, or the least that the writers count on.
std::size_t StatedSize(const RecordLayout& layout, const unsigned char* record, const Field& buffer) {
    constexpr unsigned char kLeast = 100;
    const Field* const length = std::find_if(layout.begin(), layout.end(), [&buffer](const Field& field) {
        return std::string_view(field.name) == buffer.lengthField;
    });
    return std::max(record[length->offset], kLeast);
}

/// Adds what the record points to, and puts nulls in place of its pointers: it is a copy.
void TakeTexts(const RecordLayout& layout, char* record, std::string& texts) {
    for (const Field& field : layout) {
        char* element = record + field.offset;
        for (std::size_t i = 0; i < field.count(); ++i, element += field.elementSize) {
            if (field.kind == FieldKind::Record) TakeTexts(*field.record, element, texts);
            if (!IsPointer(field)) continue;
            char* text = nullptr;
            std::memcpy(&text, element, sizeof text);
            std::memset(element, 0, field.elementSize);
            if (field.kind == FieldKind::CallerText) {
                texts.append(text, StatedSize(layout, reinterpret_cast<const unsigned char*>(record), field));
            } else {
                texts += text == nullptr ? "(none)" : '"' + std::string(text) + '"';
            }
        }
    }
}

}  // namespace

std::span<const Reader> Readers() { return kReaders; }
std::span<const Writer> Writers() { return kWriters; }
std::span<const TextReader> TextReaders() { return kTextReaders; }
std::span<const NumberConverter> NumberConverters() { return kNumberConverters; }

Memory::Memory(const Target& target, std::size_t placement)
    : target_(target), placement_(placement), bytes_(new unsigned char[whole()]) {
    std::memset(bytes_.get(), kPattern, whole());
    if (target_.layout != nullptr) lend(*target_.layout, get());
    hideGuards(true);
}

Memory::~Memory() {
    if (target_.layout != nullptr) jsonparser::ReleaseTexts(*target_.layout, get());
    hideGuards(false);
}

void Memory::fill(std::string_view bytes) {
    if (target_.layout != nullptr) jsonparser::ReleaseTexts(*target_.layout, get());
    buffers_.clear();
    for (std::size_t i = 0; i < target_.size; ++i) {
        get()[i] = bytes.empty() ? kPattern : static_cast<unsigned char>(bytes[i % bytes.size()]);
    }
    if (target_.layout != nullptr) lend(*target_.layout, get());
}

std::string Memory::contents() const {
    std::string bytes(reinterpret_cast<const char*>(get()), target_.size);
    std::string texts;
    if (target_.layout != nullptr) TakeTexts(*target_.layout, bytes.data(), texts);
    return bytes + texts;
}

bool Memory::guardsIntact() {
    hideGuards(false);
    const auto isGuard = [](unsigned char byte) { return byte == kPattern; };
    const bool intact =
        std::all_of(bytes_.get(), get(), isGuard) && std::all_of(get() + target_.size, bytes_.get() + whole(), isGuard);
    hideGuards(true);
    return intact;
}

/// From the address sanitizer, which then also sees what reads them.
void Memory::hideGuards([[maybe_unused]] bool hidden) {
    [[maybe_unused]] unsigned char* const behind = get() + target_.size;
    [[maybe_unused]] const auto size = static_cast<std::size_t>(bytes_.get() + whole() - behind);
    if (hidden) {
        ASAN_POISON_MEMORY_REGION(bytes_.get(), kGuard + placement_);
        ASAN_POISON_MEMORY_REGION(behind, size);
    } else {
        ASAN_UNPOISON_MEMORY_REGION(bytes_.get(), whole());
    }
}

void Memory::lend(const RecordLayout& layout, unsigned char* record) {
    for (const Field& field : layout) {
        unsigned char* element = record + field.offset;
        for (std::size_t i = 0; i < field.count(); ++i, element += field.elementSize) {
            if (field.kind == FieldKind::Record) lend(*field.record, element);
            if (!IsPointer(field)) continue;
            char* text = nullptr;
            if (field.kind == FieldKind::CallerText) {
                buffers_.emplace_back(StatedSize(layout, record, field), static_cast<char>(kPattern));
                text = buffers_.back().data();
            }
            std::memcpy(element, &text, sizeof text);
        }
    }
}

}  // namespace fuzz
