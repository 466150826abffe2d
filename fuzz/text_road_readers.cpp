#include "fuzz/text_road_readers.h"

#include <cstring>
#include <memory>
#include <type_traits>
#include <vector>

#include "vkprotocolstack/JsonParser.h"

namespace fuzz {
namespace {

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

/// A value that is no record.
template <class T>
struct Plain {
    template <class Read>
    static Outcome Run(Read read) {
        T to;
        std::memset(static_cast<void*>(&to), kPattern, sizeof to);
        const long long result = read(to);
        return Holding(to, result);
    }
    static Outcome Holding(const T& to, long long result = 0) {
        return {result, std::string(reinterpret_cast<const char*>(&to), sizeof to)};
    }
    static Outcome Untouched(long long result) {
        return Run([result](T&) { return result; });
    }
};

/// Buffers of a caller, of as many bytes as the pattern says in the fields for their lengths.
using Buffers = std::vector<std::unique_ptr<char[]>>;

void Prepare(const vkrecords::RecordLayout& layout, unsigned char* record, Buffers& buffers) {
    for (const vkrecords::Field& field : layout) {
        unsigned char* element = record + field.offset;
        for (std::size_t i = 0; i < field.count(); ++i, element += field.elementSize) {
            if (field.kind == vkrecords::FieldKind::Record) Prepare(*field.record, element, buffers);
            if (field.kind != vkrecords::FieldKind::HeapText && field.kind != vkrecords::FieldKind::CallerText)
                continue;
            char* text = nullptr;
            if (field.kind == vkrecords::FieldKind::CallerText) {
                buffers.push_back(std::make_unique<char[]>(kPattern));
                text = buffers.back().get();
                std::memset(text, kPattern, kPattern);
            }
            std::memcpy(element, &text, sizeof text);
        }
    }
}

/// Takes what the record points to, and puts nulls there.
std::string TakeTexts(const vkrecords::RecordLayout& layout, unsigned char* record) {
    std::string texts;
    for (const vkrecords::Field& field : layout) {
        unsigned char* element = record + field.offset;
        for (std::size_t i = 0; i < field.count(); ++i, element += field.elementSize) {
            if (field.kind == vkrecords::FieldKind::Record) texts += TakeTexts(*field.record, element);
            if (field.kind != vkrecords::FieldKind::HeapText && field.kind != vkrecords::FieldKind::CallerText)
                continue;
            char* text = nullptr;
            std::memcpy(&text, element, sizeof text);
            std::memset(element, 0, sizeof text);
            if (field.kind == vkrecords::FieldKind::CallerText) {
                if (text != nullptr) texts.append(text, kPattern);
            } else {
                texts += text == nullptr ? "(none)" : "\"" + std::string(text) + "\"";
                delete[] text;
            }
        }
    }
    return texts;
}

template <class T>
struct Record {
    template <class Read>
    static Outcome Run(Read read) {
        const auto bytes = std::make_unique<unsigned char[]>(sizeof(T));  // exactly: the address sanitizer watches
        std::memset(bytes.get(), kPattern, sizeof(T));
        Buffers buffers;
        Prepare(vkrecords::kLayout<T>, bytes.get(), buffers);
        const long long result = read(*reinterpret_cast<T*>(bytes.get()));
        const std::string texts = TakeTexts(vkrecords::kLayout<T>, bytes.get());
        return {result, std::string(reinterpret_cast<const char*>(bytes.get()), sizeof(T)) + texts};
    }
    static Outcome Untouched(long long result) {
        return Run([result](T&) { return result; });
    }
};

/// What read returns; 0 for nothing.
template <class Read, class From, class To>
long long ResultOf(Read read, From& from, To& to) {
    if constexpr (std::is_void_v<decltype(read(from, to))>) {
        read(from, to);
        return 0;
    } else {
        return read(from, to);
    }
}

/// read takes a Json::Value or a place, and what is to be read into. refused is what a message leaves that is not
/// accepted.
template <class Kind, class Read, class Refused>
constexpr Reader Of(std::string_view name, std::string_view members, Read, Refused refused) {
    return {name, members,
            [](Json::Value& from) { return Kind::Run([&from](auto& to) { return ResultOf(Read(), from, to); }); },
            [](const jsonparser::MessagePlace& from) {
                return Kind::Run([&from](auto& to) { return ResultOf(Read(), from, to); });
            },
            refused};
}

/// A reader that leaves what it was given, and returns 0 if anything.
template <class Kind, class Read>
constexpr Reader Of(std::string_view name, std::string_view members, Read read) {
    return Of<Kind>(name, members, read, [] { return Kind::Untouched(0); });
}

constexpr Reader kReaders[] = {
    Of<Record<VK_RECT>>("GetJsonRect", "[]", [](auto& from, auto& to) { return GetJsonRect(from, to); }),
    Of<Record<tagNET_RECT>>("JsonRect::parse", "[]", [](auto& from, auto& to) { return JsonRect::parse(from, to); }),
    Of<Record<VK_POINT>>("GetJsonPoint", "[]", [](auto& from, auto& to) { return GetJsonPoint(from, to); }),
    Of<Plain<unsigned>>("GetJsonColor", "[]", [](auto& from, auto& to) { return GetJsonColor(from, to); }),
    Of<Record<tagRANGE>>("deserialize_range", "Max Min Default Step",
                         [](auto& from, auto& to) { return deserialize_range(from, to); }),
    Of<Plain<long long>>(
        "Json_dimension()", "[]",
        [](auto& from, auto& to) -> long long {
            to = Json_dimension(1)(from);
            return to;
        },
        [] { return Plain<long long>::Holding(-1LL, -1); }),
    Of<Plain<long long>>(
        "Json_dimension::do_recursion", "[]",
        [](auto& from, auto& to) -> long long {
            to = Json_dimension(31).do_recursion(from);
            return to;
        },
        [] { return Plain<long long>::Holding(-1LL, -1); }),
    Of<Plain<TextField>>("parseUtf8JasonToAssic", "",
                         [](auto& from, auto& to) { return parseUtf8JasonToAssic(from, to.bytes, 40); }),
    Of<Record<tagNET_TIME_EX>>("JsonTimeEx::parse/1", "",
                               [](auto& from, auto& to) { return JsonTimeEx::parse(from, to); }),
    Of<Record<tagCFG_NET_TIME_EX>>("JsonTimeEx::parse/2", "",
                                   [](auto& from, auto& to) { return JsonTimeEx::parse(from, to); }),
    Of<Record<tagNET_TIME>>("JsonTime::parse", "", [](auto& from, auto& to) { return JsonTime::parse(from, to); }),
    Of<Record<tagNET_TIME_EX>>("GetJsonTime/1", "", [](auto& from, auto& to) { return GetJsonTime(from, to); }),
    Of<Record<tagCFG_NET_TIME_EX>>("GetJsonTime/2", "", [](auto& from, auto& to) { return GetJsonTime(from, to); }),
    Of<Record<tagCFG_TIME>>("GetJsonTime/3", "", [](auto& from, auto& to) { return GetJsonTime(from, to); }),
    Of<Record<tagNET_TIME>>("GetJsonTimeB", "", [](auto& from, auto& to) { return GetJsonTimeB(from, to); }),
    Of<Record<tagNET_TIME>>("GetJsonDate", "", [](auto& from, auto& to) { return GetJsonDate(from, to); }),
    Of<Record<tagNET_TIME>>("GetTimeStructFromStr", "",
                            [](auto& from, auto& to) { return GetTimeStructFromStr(from, to); }),
    Of<Record<tagVK_TSECT>>("TimeSection::parse", "",
                            [](auto& from, auto& to) { return TimeSection::parse(from, to); }),
    Of<Record<tagNET_CFG_TIME_SCHEDULE>>("GetJsonTimeSchedule/1", "[]",
                                         [](auto& from, auto& to) { return GetJsonTimeSchedule(from, to); }),
    Of<Record<tagCFG_TIME_SCHEDULE>>("GetJsonTimeSchedule/2", "[]",
                                     [](auto& from, auto& to) { return GetJsonTimeSchedule(from, to); }),
    Of<Record<tagNET_CFG_TIME_SCHEDULE>>("GetJsonTimeSchedule/3", "[]",
                                         [](auto& from, auto& to) -> long long {
                                             return GetJsonTimeSchedule(from, to.stuTimeSection[0], 8, 6, nullptr);
                                         }),
    Of<Record<tagCFG_TIME_SCHEDULE>>("GetJsonTimeSchedule/4", "[]",
                                     [](auto& from, auto& to) -> long long {
                                         return GetJsonTimeSchedule(from, to.stuTimeSection[0], 7, 5, nullptr);
                                     }),
    Of<Record<tagCFG_TIME_SCHEDULE>>(
        "GetJsonTimeGroup/1", "[]",
        [](auto& from, auto& to) { return GetJsonTimeGroup(from, to.stuTimeSection[0], 6); }),
    Of<Record<tagNET_TIME_SECTION>>("GetJsonTimeGroup/2", "[]",
                                    [](auto& from, auto& to) { return GetJsonTimeGroup(from, &to, 1); }),
    Of<Plain<int>>("GetJsonPlateColorType", "", [](auto& from, auto& to) { return GetJsonPlateColorType(from, to); }),
    Of<Plain<int>>("GetJsonVehicleType", "", [](auto& from, auto& to) { return GetJsonVehicleType(from, to); }),
    Of<Plain<int>>("GetJsonVehicleColorType", "",
                   [](auto& from, auto& to) { return GetJsonVehicleColorType(from, to); }),
    Of<Plain<int>>("GetJsonPlateType", "", [](auto& from, auto& to) { return GetJsonPlateType(from, to); }),
    Of<Plain<tagEM_VEHICLE_DATA_TYPE>>("ParseVehicleDataType", "DataType",
                                       [](auto& from, auto& to) { return ParseVehicleDataType(from, to); }),
    Of<Plain<unsigned char>>("ParseStrobeState", "", [](auto& from, auto& to) { return ParseStrobeState(from, to); }),
    Of<Plain<unsigned char>>("ParseSeatBelt", "", [](auto& from, auto& to) { return ParseSeatBelt(from, to); }),
    Of<Record<tagDEV_EVENT_TRAFFIC_TRAFFICCAR_INFO>>(
        "ParseStrtoTrafficCar",
        "PlateNumber PlateType PlateColor VehicleColor Speed Event ViolationCode ViolationDesc "
        "ViolationName LowerSpeedLimit UpperSpeedLimit OverSpeedMargin UnderSpeedMargin Lane "
        "CustomParkNo VehicleSize VehicleLength DrivingDirection SnapshotMode ChannelName MachineName "
        "MachineGroup RoadwayNo CustomRoadwayDirection DeviceAddress DetailedAddress VehicleSign "
        "Redundance MachineAddress ActualShutter ActualGain Direction DefendCode TrafficBlackListID "
        "VehicleColorRGB UTC RecNo StereoGarage Weight PhysicalLane MovingDirection EleTagInfoUTC "
        "CarWindow",
        [](auto& from, auto& to) { return ParseStrtoTrafficCar(from, &to); },
        [] { return Record<tagDEV_EVENT_TRAFFIC_TRAFFICCAR_INFO>::Untouched(1); }),
    Of<Record<tagEVENT_JUNCTION_CUSTOM_INFO>>("ParseCustomInfo", "WeighInfo Rough Tare Net",
                                              [](auto& from, auto& to) { return ParseCustomInfo(from, to); }),
    Of<Record<tagEVENT_VEHICLE_INFO>>("ParseStrtoVehicle", "Category",
                                      [](auto& from, auto& to) { return ParseStrtoVehicle(from, &to); }),
    Of<Record<tagVK_TRAFFICFLOWSTAT>>(
        "ParseTrafficStatInfo",
        "DrivingDirection Lane MachineAddress MachineName Period UTC UTCMS Vehicles AverageSpeed "
        "AverageLength TimeOccupyRatio SpaceOccupyRatio SpaceHeadway TimeHeadway Density "
        "OverSpeedVehicles UnderSpeedVehicles LargeVehicles MediumVehicles SmallVehicles MotoVehicles "
        "LongVehicles",
        [](auto& from, auto& to) { return ParseTrafficStatInfo(from, &to); },
        [] { return Record<tagVK_TRAFFICFLOWSTAT>::Untouched(-1); }),
    Of<Record<tagNET_TRAFFICFLOWSTATINFO>>(
        "ParseTrafficStatInfoEx",
        "DrivingDirection Lane MachineAddress MachineName Period UTC UTCMS Vehicles AverageSpeed "
        "AverageLength TimeOccupyRatio SpaceOccupyRatio SpaceHeadway TimeHeadway Density "
        "OverSpeedVehicles UnderSpeedVehicles LargeVehicles MediumVehicles SmallVehicles MotoVehicles "
        "LongVehicles BackOfQueue State Rank",
        [](auto& from, auto& to) { return ParseTrafficStatInfoEx(from, &to); },
        [] { return Record<tagNET_TRAFFICFLOWSTATINFO>::Untouched(-1); }),
    Of<Record<VK_MSG_OBJECT>>(
        "ParseStrtoObject/1",
        "ObjectID RelativeID ObjectType Category Confidence Action BoundingBox Center Contour MainColor "
        "LowerBodyColor Text SubText ShotFrame Image CurrentTimeStamp StartTimeStamp EndTimeStamp "
        "OriginalBoundingBox Sign CurrentSequence BeginSequence EndSequence BeginFileOffset "
        "EndFileOffset TimeType ColorSimilar UpperBodyColorSimilar LowerBodyColorSimilar SubBrand "
        "BrandYear CarLogoIndex Person SynopsisExtra",
        [](auto& from, auto& to) { return ParseStrtoObject(from, &to); },
        [] { return Record<VK_MSG_OBJECT>::Untouched(1); }),
    Of<Record<tagVK_MSG_OBJECT_EX>>(
        "ParseStrtoObject/2",
        "ObjectID RelativeID ObjectType Category Confidence Action BoundingBox Center Contour MainColor "
        "LowerBodyColor Text SubText ShotFrame Image CurrentTimeStamp StartTimeStamp EndTimeStamp "
        "OriginalBoundingBox Sign CurrentSequence BeginSequence EndSequence BeginFileOffset "
        "EndFileOffset TimeType ColorSimilar UpperBodyColorSimilar LowerBodyColorSimilar SubBrand "
        "BrandYear CarLogoIndex Person SynopsisExtra",
        [](auto& from, auto& to) { return ParseStrtoObject(from, &to); },
        [] { return Record<tagVK_MSG_OBJECT_EX>::Untouched(1); }),
    Of<Record<tagVK_MSG_OBJECT_EX2>>(
        "ParseStrtoObject/3",
        "ObjectID RelativeID ObjectType Category Confidence Action BoundingBox Center Contour MainColor "
        "LowerBodyColor Text SubText ShotFrame Image CurrentTimeStamp StartTimeStamp EndTimeStamp "
        "OriginalBoundingBox Sign CurrentSequence BeginSequence EndSequence BeginFileOffset "
        "EndFileOffset TimeType ColorSimilar UpperBodyColorSimilar LowerBodyColorSimilar SubBrand "
        "BrandYear CarLogoIndex Person SynopsisExtra",
        [](auto& from, auto& to) { return ParseStrtoObject(from, &to); }),
    Of<Plain<Colors>>("ParseColorsimilar", "Red Yellow Green Cyan Blue Purple Black White",
                      [](auto& from, auto& to) { return ParseColorsimilar(from, to.bytes, 8); }),
    Of<Record<tagVA_OBJECT_NONMOTOR>>(
        "ParseObjectNonMotor",
        "ObjectID Category BoundingBox OriginalBoundingBox Color MainColor Image SceneImage "
        "FaceSceneImage NumOfCycling NumOfFace RiderList FeatureValid Helmet FaceAttributes FaceImage",
        [](auto& from, auto& to) { return ParseObjectNonMotor(from, &to); }),
    Of<Record<tagNET_FACE_ATTRIBUTE_EX>>(
        "ParseFaceAttributes", "Sex Age Complexion Eye Mouth Mask Beard Attractive Glass Nation Emotion BoundingBox",
        [](auto& from, auto& to) { return ParseFaceAttributes(from, to); }),
    Of<Record<tagNET_BULLET_HOLES_INFO>>("ParseBulletHolesInfo",
                                         "ObjectID ObjectType Sequence Score BoundingBox Center",
                                         [](auto& from, auto& to) { return ParseBulletHolesInfo(from, &to); }),
    Of<Record<VK_PIC_INFO>>("ParseImageInfo/1", "Offset Length Width Height FilePath IsDetected",
                            [](auto& from, auto& to) { return ParseImageInfo(from, to); }),
    Of<Record<VK_PIC_INFO_EX3>>("ParseImageInfo/2", "Offset Length Width Height FilePath IsDetected",
                                [](auto& from, auto& to) { return ParseImageInfo(from, to); }),
    Of<Record<tagFACERECOGNITION_PERSON_INFO>>(
        "ParsePersonInfo/1",
        "Name Province City ID Important Sex CertificateType Type Birthday Image UID Country "
        "IsCustomType Comment GroupID GroupName FeatureValue Glasses Age Emotion",
        [](auto& from, auto& to) { return ParsePersonInfo(from, to); }),
    Of<Record<tagFACERECOGNITION_PERSON_INFOEX>>(
        "ParsePersonInfo/2",
        "Name Province City ID Important Sex CertificateType Type Birthday Image UID Country "
        "IsCustomType Comment GroupID GroupName Glasses Age Emotion HomeAddress GlassesType Race Eye "
        "Mouth Mask Beard Attractive FeatureState CustomPersonInfo",
        [](auto& from, auto& to) { return ParsePersonInfo(from, to); }),
    Of<Record<tagCANDIDATE_INFO>>("ParseCandidate/1", "Similarity Channel Range Time Address Person IsHit SceneImage",
                                  [](auto& from, auto& to) { return ParseCandidate(from, to); }),
    Of<Record<tagCANDIDATE_INFOEX>>("ParseCandidate/2", "Similarity Channel Range Time Address Person IsHit SceneImage",
                                    [](auto& from, auto& to) { return ParseCandidate(from, to); }),
    Of<Plain<int>>("ParseFaceDBType", "", [](auto& from, auto& to) { return ParseFaceDBType(from, to); }),
    Of<Record<tagNET_EXTENSION_INFO>>("ParseExtensionInfo", "EventLongID",
                                      [](auto& from, auto& to) { return ParseExtensionInfo(from, to); }),
    Of<Record<tagNET_HUMANTRAIT_EXTENSION_INFO>>(
        "ParseHumanTraitExtensionInfo", "AdditionalCode",
        [](auto& from, auto& to) { return ParseHumanTraitExtensionInfo(from, to); }),
    Of<Plain<unsigned>>(
        "ParseErrorCode", "error code", [](auto& from, auto& to) { to = ParseErrorCode(from); },
        [] { return Plain<unsigned>::Holding(0x80000015U); }),
    Of<Plain<LogTypes>>("GetJsonLogType", "[]",
                        [](auto& from, auto& to) { return GetJsonLogType(from, to.types, 16, to.count); }),
    Of<Plain<unsigned>>(
        "TransLongitudetoUInt", "[]", [](auto& from, auto& to) { to = TransLongitudetoUInt(from); },
        [] { return Plain<unsigned>::Holding(0U); }),
    Of<Plain<double>>(
        "TransLongitudetoDouble", "[]", [](auto& from, auto& to) { to = TransLongitudetoDouble(from); },
        [] { return Plain<double>::Holding(0.0); }),
    Of<Record<tagNET_GPS_INFO>>("ParseGPSInfo", "Longitude Latitude Altitude Speed Bearing",
                                [](auto& from, auto& to) { return ParseGPSInfo(from, to); }),
    Of<Record<_NET_GPS_STATUS_INFO>>(
        "ParseGPSStatusInfo",
        "Altitude Speed Longitude Latitude Bearing AntennasStatus PositioningResult WorkStatus "
        "SatelliteCount AlarmPoints Time SNR Source",
        [](auto& from, auto& to) { return ParseGPSStatusInfo(from, &to); }),
    Of<Record<tagDEV_SRC_INFO>>("ParseSrcInfo", "SrcEvent SrcTime SrcChannel",
                                [](auto& from, auto& to) { return ParseSrcInfo(from, &to); }),
    Of<Record<tagNET_HDDSMART_INFO>>("ParseSyncStateInfo", "ID Name Current Worst Threshold Raw Predict Sync",
                                     [](auto& from, auto& to) { return ParseSyncStateInfo(from, &to); }),
    Of<Record<VK_COMM_PROP>>("ParseCommAttr/1", "[]", [](auto& from, auto& to) { return ParseCommAttr(from, to); }),
    Of<Record<tagCFG_COMM_PROP>>("ParseCommAttr/2", "[]", [](auto& from, auto& to) { return ParseCommAttr(from, to); }),
    Of<Record<tagNET_NETAPP_WIRELESS>>(
        "ParseWirelessInfo",
        "Enable Index KeepAlive APN AuthMode UserName Password AutoDial TimeSection 3GFluxTactic "
        "3GFluxUp 3GFlux Day3GFluxTactic Day3GFluxUp Day3GFluxUse Day3GFluxAction WorkMode DailNumber "
        "Activate",
        [](auto& from, auto& to) { return ParseWirelessInfo(from, to); }),
    Of<Record<tagALARM_TALKING_INVITE_INFO>>("ParseTalkingCallerType", "Caller",
                                             [](auto& from, auto& to) { return ParseTalkingCallerType(from, &to); }),
    Of<Plain<tagNET_MISSION_CONFIRM_TYPE>>("ParseConfirmAction", "",
                                           [](auto& from, auto& to) { return ParseConfirmAction(from, to); }),
};

}  // namespace

std::span<const Reader> Readers() { return kReaders; }

}  // namespace fuzz
