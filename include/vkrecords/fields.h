// The fields of every record as compile-time data: name, place, type, extents, meaning.
//
// Each row states the field's offset as a literal; compiling this header proves every offset, every size, and that each
// byte of a record is a field, a reserved stretch or alignment padding. Walk a record through its layout by memcpy from
// its bytes, never by a reference to a member: records may be packed.
#ifndef VKRECORDS_FIELDS_H
#define VKRECORDS_FIELDS_H

#include <cstddef>
#include <iterator>
#include <type_traits>

#include "vkrecords/vkrecords.h"

namespace vkrecords {

enum class FieldKind : unsigned char {
    Bool,        ///< bool, one byte
    Int16,       ///< signed 16-bit
    Int32,       ///< signed 32-bit
    Int64,       ///< signed 64-bit
    UInt8,       ///< unsigned 8-bit
    UInt16,      ///< unsigned 16-bit
    UInt32,      ///< unsigned 32-bit
    Bits,        ///< some bits of an unsigned 32-bit word
    Float,       ///< 32-bit float
    Double,      ///< 64-bit float
    Text,        ///< char array, NUL-terminated
    HeapText,    ///< char pointer: NUL-terminated text from new char[], owned by the record
    CallerText,  ///< char pointer: buffer of the caller, its capacity in another field
    Record,      ///< nested record
    Reserved     ///< bytes that no converter writes, except where a record is cleared
};

struct RecordLayout;

struct Field {
    const char* name;
    const char* meaning;
    std::size_t offset;  ///< from the start of the record, in bytes
    FieldKind kind;
    std::size_t elementSize;     ///< of one element, in bytes; the capacity of a Text, terminator included
    std::size_t alignment;       ///< natural alignment of an element
    std::size_t rank;            ///< number of array dimensions (a Text's own is not one): 0 to 2
    std::size_t extents[2];      ///< elements in each dimension; 1 where there is none
    const RecordLayout* record;  ///< layout of a nested record, else null
    const char* lengthField;     ///< field with the capacity of a CallerText, else null
    unsigned bit;                ///< lowest bit of a Bits field
    unsigned width;              ///< number of bits of a Bits field

    constexpr std::size_t count() const { return extents[0] * extents[1]; }
    constexpr std::size_t size() const { return elementSize * count(); }
};

struct RecordLayout {
    const char* name;
    std::size_t size;  ///< sizeof the record
    const Field* fields;
    std::size_t fieldCount;

    constexpr const Field* begin() const { return fields; }
    constexpr const Field* end() const { return fields + fieldCount; }
};

/// Specialised below for every record: `name`, `list`.
template <class R>
struct FieldsOf;

namespace detail {

/// Whether the fields tile the record: each begins where the one before it ends, rounded up to its alignment.
template <std::size_t N>
constexpr bool Tiles(const Field (&fields)[N], std::size_t recordSize, std::size_t recordAlignment) {
    std::size_t end = 0;
    for (std::size_t i = 0; i < N; ++i) {
        const Field& field = fields[i];
        const bool sameWord = field.kind == FieldKind::Bits && field.bit != 0;
        if (sameWord) {
            if (field.bit != fields[i - 1].bit + fields[i - 1].width || field.offset != fields[i - 1].offset)
                return false;
            continue;
        }
        const std::size_t alignment = field.alignment < recordAlignment ? field.alignment : recordAlignment;
        if (field.offset != (end + alignment - 1) / alignment * alignment) return false;
        end = field.offset + field.size();
    }
    return recordSize == (end + recordAlignment - 1) / recordAlignment * recordAlignment;
}

}  // namespace detail

/// The layout of record R.
template <class R>
inline constexpr RecordLayout kLayout = {FieldsOf<R>::name, sizeof(R), FieldsOf<R>::list, std::size(FieldsOf<R>::list)};

namespace detail {

template <class T>
constexpr FieldKind KindOf() {
    if constexpr (std::is_same_v<T, bool>) {
        return FieldKind::Bool;
    } else if constexpr (std::is_same_v<T, short>) {
        return FieldKind::Int16;
    } else if constexpr (std::is_same_v<T, int>) {
        return FieldKind::Int32;
    } else if constexpr (std::is_same_v<T, long long>) {
        return FieldKind::Int64;
    } else if constexpr (std::is_same_v<T, unsigned char>) {
        return FieldKind::UInt8;
    } else if constexpr (std::is_same_v<T, unsigned short>) {
        return FieldKind::UInt16;
    } else if constexpr (std::is_same_v<T, unsigned int>) {
        return FieldKind::UInt32;
    } else if constexpr (std::is_same_v<T, float>) {
        return FieldKind::Float;
    } else if constexpr (std::is_same_v<T, double>) {
        return FieldKind::Double;
    } else if constexpr (std::is_same_v<T, char*>) {
        return FieldKind::HeapText;
    } else {
        static_assert(std::is_class_v<T>, "a record has no field of this type");
        return FieldKind::Record;
    }
}

template <class Member, std::size_t Actual, std::size_t Stated>
constexpr Field MakeField(const char* name, const char* meaning) {
    static_assert(Actual == Stated, "the field is not at the stated offset");
    using Innermost = std::remove_all_extents_t<Member>;
    constexpr bool isText = std::is_same_v<Innermost, char>;
    constexpr std::size_t rank = std::rank_v<Member> - (isText ? 1 : 0);
    static_assert(rank <= 2, "a field has at most two dimensions");
    constexpr std::size_t extent0 = rank > 0 ? std::extent_v<Member, 0> : 1;
    constexpr std::size_t extent1 = rank > 1 ? std::extent_v<Member, 1> : 1;
    const RecordLayout* record = nullptr;
    FieldKind kind = FieldKind::Text;
    if constexpr (!isText) {
        kind = KindOf<Innermost>();
        if constexpr (std::is_class_v<Innermost>) record = &kLayout<Innermost>;
    }
    return Field{
        name,
        meaning,
        Stated,
        kind,
        sizeof(Member) / (extent0 * extent1),
        alignof(Innermost),
        rank,
        {extent0, extent1},
        record,
        nullptr,
        0,
        0
    };
}

template <class Member, std::size_t Actual, std::size_t Stated>
constexpr Field MakeReserved(const char* name) {
    static_assert(Actual == Stated, "the reserved bytes are not at the stated offset");
    return Field{
        name, "reserved", Stated, FieldKind::Reserved, sizeof(Member), 1, 0, {1, 1},
               nullptr, nullptr, 0, 0
    };
}

template <class Member, std::size_t Actual, std::size_t Stated>
constexpr Field MakeCallerText(const char* name, const char* lengthField, const char* meaning) {
    static_assert(Actual == Stated, "the field is not at the stated offset");
    static_assert(std::is_same_v<Member, char*>, "a caller's buffer is a char pointer");
    return Field{
        name,        meaning, Stated, FieldKind::CallerText, sizeof(char*), alignof(char*), 0, {1, 1},
                      nullptr,
        lengthField, 0,       0
    };
}

constexpr Field MakeBits(const char* name, std::size_t offset, unsigned bit, unsigned width, const char* meaning) {
    return Field{
        name,    meaning, offset, FieldKind::Bits, sizeof(unsigned), alignof(unsigned), 0, {1, 1},
                  nullptr,
        nullptr, bit,     width
    };
}

}  // namespace detail

#define VK_RECORD(record, bytes)                 \
    using Record = record;                       \
    static constexpr const char* name = #record; \
    static_assert(sizeof(record) == (bytes) && std::is_trivially_copyable_v<record>, "the record has another size")
#define VK_FIELD(place, member, meaning) \
    detail::MakeField<decltype(Record::member), offsetof(Record, member), place>(#member, meaning)
#define VK_RESERVED(place, member) \
    detail::MakeReserved<decltype(Record::member), offsetof(Record, member), place>(#member)
#define VK_CALLER_TEXT(place, member, lengthMember, meaning)                           \
    detail::MakeCallerText<decltype(Record::member), offsetof(Record, member), place>( \
        #member, (static_cast<void>(sizeof(Record::lengthMember)), #lengthMember), meaning)
#define VK_BITS(place, member, bit, width, meaning) \
    detail::MakeBits((static_cast<void>(sizeof(Record::member + 0)), #member), place, bit, width, meaning)

// ---- times and geometry
// ----------------------------------------------------------------------------------------------

template <>
struct FieldsOf<tagNET_TIME> {
    VK_RECORD(tagNET_TIME, 24);
    static constexpr Field list[] = {
        VK_FIELD(0, dwYear, "full year"), VK_FIELD(4, dwMonth, "1 to 12"),   VK_FIELD(8, dwDay, "1 to 31"),
        VK_FIELD(12, dwHour, "0 to 23"),  VK_FIELD(16, dwMinute, "0 to 59"), VK_FIELD(20, dwSecond, "0 to 59"),
    };
};

template <>
struct FieldsOf<tagNET_TIME_EX> {
    VK_RECORD(tagNET_TIME_EX, 36);
    static constexpr Field list[] = {
        VK_FIELD(0, dwYear, "full year"),
        VK_FIELD(4, dwMonth, "1 to 12"),
        VK_FIELD(8, dwDay, "1 to 31"),
        VK_FIELD(12, dwHour, "0 to 23"),
        VK_FIELD(16, dwMinute, "0 to 59"),
        VK_FIELD(20, dwSecond, "0 to 59"),
        VK_FIELD(24, dwMillisecond, "0 to 999"),
        VK_FIELD(28, dwUTC, "UTC seconds, filled by other layers"),
        VK_FIELD(32, dwReserved, "filled by other layers"),
    };
};

template <>
struct FieldsOf<tagCFG_NET_TIME_EX> {
    VK_RECORD(tagCFG_NET_TIME_EX, 28);
    static constexpr Field list[] = {
        VK_FIELD(0, nYear, "full year"),        VK_FIELD(4, nMonth, "1 to 12"),   VK_FIELD(8, nDay, "1 to 31"),
        VK_FIELD(12, nHour, "0 to 23"),         VK_FIELD(16, nMinute, "0 to 59"), VK_FIELD(20, nSecond, "0 to 59"),
        VK_FIELD(24, nMillisecond, "0 to 999"),
    };
};

template <>
struct FieldsOf<tagCFG_TIME> {
    VK_RECORD(tagCFG_TIME, 12);
    static constexpr Field list[] = {
        VK_FIELD(0, nHour, "0 to 23"),
        VK_FIELD(4, nMinute, "0 to 59"),
        VK_FIELD(8, nSecond, "0 to 59"),
    };
};

template <>
struct FieldsOf<_VKDEVTIME> {
    VK_RECORD(_VKDEVTIME, 4);
    static constexpr Field list[] = {
        VK_BITS(0, second, 0, 6, "0 to 59"), VK_BITS(0, minute, 6, 6, "0 to 59"),
        VK_BITS(0, hour, 12, 5, "0 to 23"),  VK_BITS(0, day, 17, 5, "1 to 31"),
        VK_BITS(0, month, 22, 4, "1 to 12"), VK_BITS(0, year, 26, 6, "0 to 63, from a base that is not stored"),
    };
};

template <>
struct FieldsOf<VK_RECT> {
    VK_RECORD(VK_RECT, 32);
    static constexpr Field list[] = {
        VK_FIELD(0, nLeft, "left edge"),
        VK_FIELD(8, nTop, "top edge"),
        VK_FIELD(16, nRight, "right edge"),
        VK_FIELD(24, nBottom, "bottom edge"),
    };
};

template <>
struct FieldsOf<tagNET_RECT> {
    VK_RECORD(tagNET_RECT, 16);
    static constexpr Field list[] = {
        VK_FIELD(0, nLeft, "left edge"),
        VK_FIELD(4, nTop, "top edge"),
        VK_FIELD(8, nRight, "right edge"),
        VK_FIELD(12, nBottom, "bottom edge"),
    };
};

template <>
struct FieldsOf<VK_POINT> {
    VK_RECORD(VK_POINT, 4);
    static constexpr Field list[] = {
        VK_FIELD(0, nx, "horizontal coordinate"),
        VK_FIELD(2, ny, "vertical coordinate"),
    };
};

template <>
struct FieldsOf<tagRANGE> {
    VK_RECORD(tagRANGE, 40);
    static constexpr Field list[] = {
        VK_FIELD(0, fMax, "upper bound"),
        VK_FIELD(4, fMin, "lower bound"),
        VK_FIELD(8, bHasStep, "fStep is valid"),
        VK_FIELD(12, fStep, "increment"),
        VK_FIELD(16, bHasDefault, "fDefault is valid"),
        VK_FIELD(20, fDefault, "default value"),
        VK_RESERVED(24, byReserved),
    };
};

template <>
struct FieldsOf<tagVK_TSECT> {
    VK_RECORD(tagVK_TSECT, 28);
    static constexpr Field list[] = {
        VK_FIELD(0, bEnable, "0 off, else on"), VK_FIELD(4, nBeginHour, "0 to 23"), VK_FIELD(8, nBeginMin, "0 to 59"),
        VK_FIELD(12, nBeginSec, "0 to 59"),     VK_FIELD(16, nEndHour, "0 to 23"),  VK_FIELD(20, nEndMin, "0 to 59"),
        VK_FIELD(24, nEndSec, "0 to 59"),
    };
};

template <>
struct FieldsOf<tagCFG_TIME_SECTION> {
    VK_RECORD(tagCFG_TIME_SECTION, 28);
    static constexpr Field list[] = {
        VK_FIELD(0, dwRecordMask, "kinds of recording or alarm, one bit each"),
        VK_FIELD(4, nBeginHour, "0 to 23"),
        VK_FIELD(8, nBeginMin, "0 to 59"),
        VK_FIELD(12, nBeginSec, "0 to 59"),
        VK_FIELD(16, nEndHour, "0 to 23"),
        VK_FIELD(20, nEndMin, "0 to 59"),
        VK_FIELD(24, nEndSec, "0 to 59"),
    };
};

template <>
struct FieldsOf<tagNET_TIME_SECTION> {
    VK_RECORD(tagNET_TIME_SECTION, 108);
    static constexpr Field list[] = {
        VK_FIELD(0, dwRecordMask, "kinds of recording or alarm, one bit each"),
        VK_FIELD(4, nBeginHour, "0 to 23"),
        VK_FIELD(8, nBeginMin, "0 to 59"),
        VK_FIELD(12, nBeginSec, "0 to 59"),
        VK_FIELD(16, nEndHour, "0 to 23"),
        VK_FIELD(20, nEndMin, "0 to 59"),
        VK_FIELD(24, nEndSec, "0 to 59"),
        VK_RESERVED(28, byReserved),
    };
};

template <>
struct FieldsOf<tagNET_CFG_TIME_SCHEDULE> {
    VK_RECORD(tagNET_CFG_TIME_SCHEDULE, 1348);
    static constexpr Field list[] = {
        VK_FIELD(0, bEnableHoliday, "row 7 is in use"),
        VK_FIELD(4, stuTimeSection, "7 days of the week, then the holiday"),
    };
};

template <>
struct FieldsOf<tagCFG_TIME_SCHEDULE> {
    VK_RECORD(tagCFG_TIME_SCHEDULE, 1348);
    static constexpr Field list[] = {
        VK_FIELD(0, bEnableHoliday, "row 7 is in use"),
        VK_FIELD(4, stuTimeSection, "7 days of the week, then the holiday"),
    };
};

// ---- traffic
// ---------------------------------------------------------------------------------------------------------

template <>
struct FieldsOf<tagSTEREO_GARAGE_INFO> {
    VK_RECORD(tagSTEREO_GARAGE_INFO, 16);
    static constexpr Field list[] = {
        VK_FIELD(0, nDeckNo, "deck number"),
        VK_FIELD(4, nFreeDeckCount, "free decks"),
        VK_FIELD(8, nFullDeckCount, "full decks"),
        VK_FIELD(12, nTotalDeckCount, "decks in all"),
    };
};

template <>
struct FieldsOf<tagDEV_EVENT_TRAFFIC_TRAFFICCAR_INFO> {
    VK_RECORD(tagDEV_EVENT_TRAFFIC_TRAFFICCAR_INFO, 2744);
    static constexpr Field list[] = {
        VK_FIELD(0, szPlateNumber, "plate number"),
        VK_FIELD(32, szPlateTypeText, "plate type, as sent"),
        VK_FIELD(64, szPlateColor, "plate colour"),
        VK_FIELD(96, szVehicleColor, "body colour"),
        VK_FIELD(128, nSpeed, "speed, device unit"),
        VK_FIELD(132, szEvent, "related event, as sent"),
        VK_FIELD(196, szViolationCode, "violation code, as sent"),
        VK_FIELD(228, szViolationDesc, "violation description"),
        VK_FIELD(292, nLowerSpeedLimit, "lower speed limit, device unit"),
        VK_FIELD(296, nUpperSpeedLimit, "upper speed limit, device unit"),
        VK_FIELD(300, nOverSpeedMargin, "tolerance above the upper limit"),
        VK_FIELD(304, nUnderSpeedMargin, "tolerance below the lower limit"),
        VK_FIELD(308, nLane, "lane number"),
        VK_FIELD(312, nVehicleSize, "1 light-duty, 2 medium, 4 oversize, 8 minisize, 16 largesize, -1 unknown"),
        VK_FIELD(316, fVehicleLength, "vehicle length, device unit"),
        VK_FIELD(320, nSnapshotMode, "snapshot mode, device code"),
        VK_FIELD(324, szChannelName, "channel name"),
        VK_FIELD(356, szMachineName, "machine name"),
        VK_FIELD(612, szMachineGroup, "machine group"),
        VK_FIELD(868, szRoadwayNo, "roadway number"),
        VK_FIELD(932, szDrivingDirection, "direction (as sent), from, to"),
        VK_FIELD(1704, pszDeviceAddress, "device address"),
        VK_FIELD(1712, szVehicleSign, "maker's sign"),
        VK_FIELD(1744, byRedundance, "redundant data"),
        VK_RESERVED(1752, byReserved1),
        VK_FIELD(1872, pszMachineAddress, "machine address"),
        VK_FIELD(1880, fActualShutter, "shutter time, device unit"),
        VK_FIELD(1884, byActualGain, "gain, device unit"),
        VK_FIELD(1885, byDirection, "driving direction, device code, 8 unknown"),
        VK_FIELD(1888, pszDetailedAddress, "detailed address"),
        VK_FIELD(1896, szDefendCode, "anti-counterfeiting code"),
        VK_FIELD(1960, nTrafficBlackListID, "id of the matching list entry"),
        VK_FIELD(1964, dwVehicleColorRGB, "body colour: red, green, blue, alpha"),
        VK_FIELD(1980, stuUTC, "event time, UTC"),
        VK_FIELD(2004, dwRecNo, "record number"),
        VK_FIELD(2008, szCustomParkNo, "parking space number"),
        VK_FIELD(2044, stuStereoGarage, "garage in which the car was parked"),
        VK_FIELD(2060, szViolationName, "violation name"),
        VK_FIELD(2124, nWeight, "weight, device unit"),
        VK_FIELD(2128, szCustomRoadwayDirection, "roadway direction, user's name"),
        VK_FIELD(2160, byPhysicalLane, "physical lane number"),
        VK_FIELD(2164, emMovingDirection, "moving direction, device code"),
        VK_FIELD(2168, stuEleTagInfoUTC, "electronic tag: the event time, UTC"),
        VK_FIELD(2192, stuCarWindowBox, "box of the car window"),
        VK_RESERVED(2208, byReserved2),
    };
};

template <>
struct FieldsOf<tagWEIGH_INFO> {
    VK_RECORD(tagWEIGH_INFO, 12);
    static constexpr Field list[] = {
        VK_FIELD(0, dwRough, "gross weight, device unit"),
        VK_FIELD(4, dwTare, "tare weight, device unit"),
        VK_FIELD(8, dwNet, "net weight, device unit"),
    };
};

template <>
struct FieldsOf<tagEVENT_JUNCTION_CUSTOM_INFO> {
    VK_RECORD(tagEVENT_JUNCTION_CUSTOM_INFO, 12);
    static constexpr Field list[] = {
        VK_FIELD(0, stuWeighInfo, "weighbridge data"),
    };
};

template <>
struct FieldsOf<tagEVENT_VEHICLE_INFO> {
    VK_RECORD(tagEVENT_VEHICLE_INFO, 64);
    static constexpr Field list[] = {
        VK_FIELD(0, szVehicleCategory, "vehicle category word"),
    };
};

template <>
struct FieldsOf<tagVK_TRAFFICFLOWSTAT> {
    VK_RECORD(tagVK_TRAFFICFLOWSTAT, 712);
    static constexpr Field list[] = {
        VK_FIELD(0, szMachineAddress, "machine address"),
        VK_FIELD(256, szMachineName, "machine name"),
        VK_FIELD(512, szDrivingDirection, "direction (as sent), from, to"),
        VK_FIELD(608, nLane, "lane number"),
        VK_FIELD(612, stuTime, "time of the report, UTC"),
        VK_FIELD(648, nPeriod, "length of the period, device unit"),
        VK_FIELD(652, nVehicles, "vehicles that passed"),
        VK_FIELD(656, fAverageSpeed, "average speed, device unit"),
        VK_FIELD(660, fAverageLength, "average vehicle length, device unit"),
        VK_FIELD(664, fTimeOccupyRatio, "share of the time that the lane was occupied"),
        VK_FIELD(668, fSpaceOccupyRatio, "share of the lane that was occupied"),
        VK_FIELD(672, fSpaceHeadway, "distance between vehicles, device unit"),
        VK_FIELD(676, fTimeHeadway, "time between vehicles, device unit"),
        VK_FIELD(680, fDensity, "vehicle density, device unit"),
        VK_FIELD(684, nOverSpeedVehicles, "vehicles above the speed limit"),
        VK_FIELD(688, nUnderSpeedVehicles, "vehicles below the speed limit"),
        VK_FIELD(692, nLargeVehicles, "large vehicles"),
        VK_FIELD(696, nMediumVehicles, "medium vehicles"),
        VK_FIELD(700, nSmallVehicles, "small vehicles"),
        VK_FIELD(704, nMotoVehicles, "motorcycles"),
        VK_FIELD(708, nLongVehicles, "long vehicles"),
    };
};

template <>
struct FieldsOf<tagNET_TRAFFICFLOWSTATINFO> {
    VK_RECORD(tagNET_TRAFFICFLOWSTATINFO, 728);
    static constexpr Field list[] = {
        VK_FIELD(0, szMachineAddress, "machine address"),
        VK_FIELD(256, szMachineName, "machine name"),
        VK_FIELD(512, szDrivingDirection, "direction (as sent), from, to"),
        VK_FIELD(608, nLane, "lane number"),
        VK_FIELD(612, stuTime, "time of the report, UTC"),
        VK_FIELD(648, nPeriod, "length of the period, device unit"),
        VK_FIELD(652, nVehicles, "vehicles that passed"),
        VK_FIELD(656, fAverageSpeed, "average speed, device unit"),
        VK_FIELD(660, fAverageLength, "average vehicle length, device unit"),
        VK_FIELD(664, fTimeOccupyRatio, "share of the time that the lane was occupied"),
        VK_FIELD(668, fSpaceOccupyRatio, "share of the lane that was occupied"),
        VK_FIELD(672, fSpaceHeadway, "distance between vehicles, device unit"),
        VK_FIELD(676, fTimeHeadway, "time between vehicles, device unit"),
        VK_FIELD(680, fDensity, "vehicle density, device unit"),
        VK_FIELD(684, nOverSpeedVehicles, "vehicles above the speed limit"),
        VK_FIELD(688, nUnderSpeedVehicles, "vehicles below the speed limit"),
        VK_FIELD(692, nLargeVehicles, "large vehicles"),
        VK_FIELD(696, nMediumVehicles, "medium vehicles"),
        VK_FIELD(700, nSmallVehicles, "small vehicles"),
        VK_FIELD(704, nMotoVehicles, "motorcycles"),
        VK_FIELD(708, nLongVehicles, "long vehicles"),
        VK_FIELD(712, dBackOfQueue, "length of the queue, device unit"),
        VK_FIELD(720, emRank, "road: 1 rapid, 2 trunk, 3 sub-trunk, 4 branch, 0 unknown"),
        VK_FIELD(724, nState, "traffic state, device code"),
    };
};

// ---- analytics
// -------------------------------------------------------------------------------------------------------

// ---- face recognition
// ------------------------------------------------------------------------------------------------

// ---- device status
// ---------------------------------------------------------------------------------------------------

template <>
struct FieldsOf<tagNET_GPS_INFO> {
    VK_RECORD(tagNET_GPS_INFO, 32);
    static constexpr Field list[] = {
        VK_FIELD(0, nLongitude, "longitude, millionths of a degree"),
        VK_FIELD(4, nLatitude, "latitude, millionths of a degree"),
        VK_FIELD(8, dbAltitude, "altitude, device unit"),
        VK_FIELD(16, dbSpeed, "speed, device unit"),
        VK_FIELD(24, dbBearing, "bearing, device unit"),
    };
};

template <>
struct FieldsOf<tagGPS_TIME> {
    VK_RECORD(tagGPS_TIME, 24);
    static constexpr Field list[] = {
        VK_FIELD(0, nYear, "full year"), VK_FIELD(4, nMonth, "1 to 12"),   VK_FIELD(8, nDay, "1 to 31"),
        VK_FIELD(12, nHour, "0 to 23"),  VK_FIELD(16, nMinute, "0 to 59"), VK_FIELD(20, nSecond, "0 to 59"),
    };
};

template <>
struct FieldsOf<_NET_GPS_STATUS_INFO> {
    VK_RECORD(_NET_GPS_STATUS_INFO, 664);
    static constexpr Field list[] = {
        VK_FIELD(0, stuGpsTime, "time of the receiver"),
        VK_RESERVED(24, byReserved1),
        VK_FIELD(80, dbLongitude, "longitude, millionths of a degree"),
        VK_FIELD(88, dbLatitude, "latitude, millionths of a degree"),
        VK_FIELD(96, dbAltitude, "altitude, device unit"),
        VK_FIELD(104, dbBearing, "bearing, device unit"),
        VK_FIELD(112, dbSpeed, "speed, device unit"),
        VK_FIELD(120, wSatelliteCount, "number of satellites"),
        VK_FIELD(124, bAntennasStatus, "antenna in order: 0 false, 1 true, 2 not reported"),
        VK_FIELD(128, bPositioningResult, "positioned: 0 false, 1 true, 2 not reported"),
        VK_FIELD(132, nWorkStatus, "working status, device code"),
        VK_FIELD(136, nAlarmCount, "valid elements of nAlarmTypes"),
        VK_FIELD(140, nAlarmTypes, "the library's alarm type codes"),
        VK_RESERVED(652, byReserved2),
        VK_FIELD(653, bySNR, "signal-to-noise ratio, device unit"),
        VK_FIELD(656, emDateSource, "source of the data: 0 GPS or unknown, 1 inertial navigation"),
    };
};

template <>
struct FieldsOf<tagDEV_SRC_INFO> {
    VK_RECORD(tagDEV_SRC_INFO, 72);
    static constexpr Field list[] = {
        VK_FIELD(0, szSrcEvent, "causing event"),
        VK_FIELD(32, stuSrcTime, "when it happened"),
        VK_FIELD(68, nSrcChannel, "channel on which it happened"),
    };
};

template <>
struct FieldsOf<tagNET_HDDSMART_INFO> {
    VK_RECORD(tagNET_HDDSMART_INFO, 120);
    static constexpr Field list[] = {
        VK_FIELD(0, nID, "attribute number"),
        VK_FIELD(4, nCurrent, "current normalised value"),
        VK_FIELD(8, szName, "attribute name"),
        VK_FIELD(72, nWorst, "worst normalised value so far"),
        VK_FIELD(76, nThreshold, "normalised value that counts as failure"),
        VK_FIELD(80, szRaw, "raw value, as text"),
        VK_FIELD(112, nPredict, "prediction code"),
        VK_FIELD(116, nSync, "synchronisation state, -1 not reported"),
    };
};

// ---- configuration
// ---------------------------------------------------------------------------------------------------

template <>
struct FieldsOf<VK_COMM_PROP> {
    VK_RECORD(VK_COMM_PROP, 4);
    static constexpr Field list[] = {
        VK_FIELD(0, byDataBit, "data bits: 0 to 3 are 5 to 8"),
        VK_FIELD(1, byStopBit, "stop bits: 0, 1, 2 are 1, 1.5, 2"),
        VK_FIELD(2, byParity, "parity: 0 none, 1 odd, 2 even, 3 mark, 4 space"),
        VK_FIELD(3, byBaudRate, "baud rate: 0 to 9 are 300 to 115200"),
    };
};

template <>
struct FieldsOf<tagCFG_COMM_PROP> {
    VK_RECORD(tagCFG_COMM_PROP, 4);
    static constexpr Field list[] = {
        VK_FIELD(0, byDataBit, "data bits: 0 to 3 are 5 to 8"),
        VK_FIELD(1, byStopBit, "stop bits: 0, 1, 2 are 1, 1.5, 2"),
        VK_FIELD(2, byParity, "parity: 0 none, 1 odd, 2 even, 3 mark, 4 space"),
        VK_FIELD(3, byBaudRate, "baud rate: 0 to 9 are 300 to 115200"),
    };
};

template <>
struct FieldsOf<tagNET_NETAPP_WIRELESS> {
    VK_RECORD(tagNET_NETAPP_WIRELESS, 1432);
    static constexpr Field list[] = {
        VK_RESERVED(0, byReserved),
        VK_FIELD(4, bEnable, "mobile data is enabled"),
        VK_FIELD(8, nIndex, "device index, never written"),
        VK_FIELD(12, nKeepAlive, "keep-alive setting, device unit"),
        VK_FIELD(16, emAPN, "access point: -1 none, 0 szAPN, 1 CTNET, 2 CMNET, 3 UNINET"),
        VK_FIELD(20, szAPN, "access point name as sent"),
        VK_FIELD(52, emAuthMode, "authentication: 0 unknown, 1 none, 2 PAP, 3 CHAP"),
        VK_FIELD(56, szUserName, "user name for dialling"),
        VK_FIELD(120, szPassword, "password for dialling"),
        VK_FIELD(184, bAutoDial, "dials by itself"),
        VK_FIELD(188, stuTimeSection, "allowed hours, 7 days of the week"),
        VK_FIELD(1364, em3GFluxTactic, "overall traffic policy: 0 unknown, 1 and 2 the device's 0 and 1"),
        VK_FIELD(1368, dw3GFluxUp, "overall traffic ceiling, device unit"),
        VK_FIELD(1372, dw3GFlux, "overall traffic used, device unit"),
        VK_FIELD(1376, emDay3GFluxTactic, "daily traffic policy: 0 unknown, 1 by traffic, 2 by time"),
        VK_FIELD(1380, dwDay3GFluxUp, "daily traffic ceiling, device unit"),
        VK_FIELD(1384, dwDay3GFluxUse, "daily traffic used, device unit"),
        VK_FIELD(1388, emDay3GFluxAction, "at the daily ceiling: 0 unknown, 1 nothing, 2 link down"),
        VK_FIELD(1392, emWorkMode, "radio mode: -1 unknown, 0 none of these, 1 to 7 CDMA1x to FDD-LTE"),
        VK_FIELD(1396, szDailNumber, "number to dial"),
        VK_FIELD(1428, bActivate, "activated"),
    };
};

template <>
struct FieldsOf<tagALARM_TALKING_INVITE_INFO> {
    VK_RECORD(tagALARM_TALKING_INVITE_INFO, 8);
    static constexpr Field list[] = {
        VK_RESERVED(0, byReserved),
        VK_FIELD(4, emCallerType, "1 the management platform, 0 any other caller"),
    };
};

// ---- all of them
// -----------------------------------------------------------------------------------------------------

/// The layout of every record, in subsystem order. Compiling it proves that each record's fields tile it.
template <class... R>
struct LayoutList {
    static_assert((detail::Tiles(FieldsOf<R>::list, sizeof(R), alignof(R)) && ...), "a record has bytes of no field");
    static constexpr const RecordLayout* list[] = {&kLayout<R>...};
};

using AllLayouts = LayoutList<
    // times and geometry
    tagNET_TIME, tagNET_TIME_EX, tagCFG_NET_TIME_EX, tagCFG_TIME, _VKDEVTIME, VK_RECT, tagNET_RECT, VK_POINT, tagRANGE,
    // schedules
    tagVK_TSECT, tagCFG_TIME_SECTION, tagNET_TIME_SECTION, tagNET_CFG_TIME_SCHEDULE, tagCFG_TIME_SCHEDULE,
    // traffic
    tagSTEREO_GARAGE_INFO, tagDEV_EVENT_TRAFFIC_TRAFFICCAR_INFO, tagWEIGH_INFO, tagEVENT_JUNCTION_CUSTOM_INFO,
    tagEVENT_VEHICLE_INFO, tagVK_TRAFFICFLOWSTAT, tagNET_TRAFFICFLOWSTATINFO,
    // device status
    tagNET_GPS_INFO, tagGPS_TIME, _NET_GPS_STATUS_INFO, tagDEV_SRC_INFO, tagNET_HDDSMART_INFO,
    // configuration
    VK_COMM_PROP, tagCFG_COMM_PROP, tagNET_NETAPP_WIRELESS, tagALARM_TALKING_INVITE_INFO>;

#undef VK_RECORD
#undef VK_FIELD
#undef VK_RESERVED
#undef VK_CALLER_TEXT
#undef VK_BITS

/// Calls visit(layout) for every record.
template <class Visit>
constexpr void ForEachLayout(Visit visit) {
    for (const RecordLayout* layout : AllLayouts::list) visit(*layout);
}

}  // namespace vkrecords

#endif
