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

/// What a field, or each of its elements, holds.
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

/// One field of a record.
struct Field {
    const char* name;            ///< as the struct has it
    const char* meaning;         ///< unit, range, special values
    std::size_t offset;          ///< from the start of the record, in bytes
    FieldKind kind;              ///< of one element
    std::size_t elementSize;     ///< of one element, in bytes; the capacity of a Text, terminator included
    std::size_t alignment;       ///< natural alignment of an element
    std::size_t rank;            ///< number of array dimensions (a Text's own is not one): 0 to 2
    std::size_t extents[2];      ///< elements in each dimension; 1 where there is none
    const RecordLayout* record;  ///< layout of a nested record, else null
    const char* lengthField;     ///< field with the capacity of a CallerText, else null
    unsigned bit;                ///< lowest bit of a Bits field
    unsigned width;              ///< number of bits of a Bits field

    constexpr std::size_t count() const { return extents[0] * extents[1]; }  ///< elements in all dimensions
    constexpr std::size_t size() const { return elementSize * count(); }     ///< of all elements, in bytes
};

/// The layout of a record: its fields in the order of their offsets.
struct RecordLayout {
    const char* name;        ///< of the struct
    std::size_t size;        ///< sizeof the record
    const Field* fields;     ///< the first field
    std::size_t fieldCount;  ///< number of fields, reserved stretches among them

    constexpr const Field* begin() const { return fields; }             ///< the first field
    constexpr const Field* end() const { return fields + fieldCount; }  ///< behind the last field
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

template <>
struct FieldsOf<VK_MSG_OBJECT> {
    VK_RECORD(VK_MSG_OBJECT, 740);
    static constexpr Field list[] = {
        VK_FIELD(0, nObjectID, "object identifier"),
        VK_FIELD(4, szObjectType, "object type word"),
        VK_FIELD(132, nConfidence, "detection confidence, device unit"),
        VK_FIELD(136, nAction,
                 "1 appear, 2 move, 3 stay, 4 remove, 5 disappear, 6 split, 7 merge, 8 rename, 0 unknown"),
        VK_FIELD(140, stuBoundingBox, "box in the picture"),
        VK_FIELD(172, stuCenter, "centre"),
        VK_FIELD(176, nPointNum, "points of the outline, 0 to 16"),
        VK_FIELD(180, stuContour, "outline"),
        VK_FIELD(244, dwMainColor, "main colour, first component in the highest byte"),
        VK_FIELD(248, szText, "recognised text"),
        VK_FIELD(376, szObjectCategory, "object sub-type word"),
        VK_FIELD(438, wCarLogoIndex, "index of the vehicle maker's logo"),
        VK_FIELD(440, wSubBrand, "vehicle sub-brand number"),
        VK_RESERVED(442, byReserved1),
        VK_FIELD(443, bPicEnable, "1 has a picture"),
        VK_FIELD(444, dwOffset, "place of the picture in the event's data, bytes"),
        VK_FIELD(448, dwFileLength, "length of the picture, bytes"),
        VK_FIELD(452, wWidth, "width of the picture, pixels"),
        VK_FIELD(454, wHeight, "height of the picture, pixels"),
        VK_RESERVED(456, byReserved2),
        VK_FIELD(460, pszFilePath, "path of the picture file"),
        VK_RESERVED(468, byReserved3),
        VK_FIELD(484, bShotFrame, "1 the picture is a snapshot frame"),
        VK_FIELD(485, bColor, "1 dwMainColor was sent"),
        VK_RESERVED(486, byReserved4),
        VK_FIELD(487, byTimeType, "0 absolute, 1 relative"),
        VK_FIELD(488, stuCurrentTime, "time of the frame, UTC; milliseconds of any of the three stamps"),
        VK_FIELD(524, stuStartTime, "begin of the track, UTC, without milliseconds"),
        VK_FIELD(560, stuEndTime, "end of the track, UTC, without milliseconds"),
        VK_FIELD(596, stuOriginalBoundingBox, "box in the full source picture"),
        VK_FIELD(628, stuSignBoundingBox, "box of a sign at the object"),
        VK_FIELD(660, dwCurrentSequence, "frame sequence number"),
        VK_FIELD(664, dwBeginSequence, "frame sequence number of the track's begin"),
        VK_FIELD(668, dwEndSequence, "frame sequence number of the track's end"),
        VK_FIELD(672, nBeginFileOffset, "place of the track's begin in the recorded file, bytes"),
        VK_FIELD(680, nEndFileOffset, "place of the track's end in the recorded file, bytes"),
        VK_FIELD(688, byColorSimilar, "similarity to red, yellow, green, cyan, blue, purple, black, white"),
        VK_FIELD(696, byUpperBodyColorSimilar, "the same of the upper body"),
        VK_FIELD(704, byLowerBodyColorSimilar, "the same of the lower body"),
        VK_FIELD(712, nRelativeID, "identifier of a related object"),
        VK_FIELD(716, szSubText, "secondary recognised text"),
        VK_FIELD(736, wBrandYear, "model year of the vehicle brand"),
        VK_RESERVED(738, byReserved5),
    };
};

template <>
struct FieldsOf<tagVK_MSG_OBJECT_EX> {
    VK_RECORD(tagVK_MSG_OBJECT_EX, 752);
    static constexpr Field list[] = {
        VK_FIELD(0, dwSize, "size of the record, 752"),
        VK_FIELD(4, nObjectID, "object identifier"),
        VK_FIELD(8, szObjectType, "object type word"),
        VK_FIELD(136, nConfidence, "detection confidence, device unit"),
        VK_FIELD(140, nAction,
                 "1 appear, 2 move, 3 stay, 4 remove, 5 disappear, 6 split, 7 merge, 8 rename, 0 unknown"),
        VK_FIELD(144, stuBoundingBox, "box in the picture"),
        VK_FIELD(176, stuCenter, "centre"),
        VK_FIELD(180, nPointNum, "points of the outline, 0 to 16"),
        VK_FIELD(184, stuContour, "outline"),
        VK_FIELD(248, dwMainColor, "main colour, first component in the highest byte"),
        VK_FIELD(252, szText, "recognised text"),
        VK_FIELD(380, szObjectCategory, "object sub-type word"),
        VK_RESERVED(442, byReserved1),
        VK_FIELD(447, bPicEnable, "1 has a picture"),
        VK_FIELD(448, dwOffset, "place of the picture in the event's data, bytes"),
        VK_FIELD(452, dwFileLength, "length of the picture, bytes"),
        VK_FIELD(456, wWidth, "width of the picture, pixels"),
        VK_FIELD(458, wHeight, "height of the picture, pixels"),
        VK_RESERVED(460, byReserved2),
        VK_FIELD(464, pszFilePath, "path of the picture file"),
        VK_RESERVED(472, byReserved3),
        VK_FIELD(488, bShotFrame, "1 the picture is a snapshot frame"),
        VK_FIELD(489, bColor, "1 dwMainColor was sent"),
        VK_FIELD(490, bLowerBodyColor, "1 dwLowerBodyColor was sent"),
        VK_FIELD(491, byTimeType, "0 absolute, 1 relative"),
        VK_FIELD(492, stuCurrentTime, "time of the frame, UTC; milliseconds of any of the three stamps"),
        VK_FIELD(528, stuStartTime, "begin of the track, UTC, without milliseconds"),
        VK_FIELD(564, stuEndTime, "end of the track, UTC, without milliseconds"),
        VK_FIELD(600, stuOriginalBoundingBox, "box in the full source picture"),
        VK_FIELD(632, stuSignBoundingBox, "box of a sign at the object"),
        VK_FIELD(664, dwCurrentSequence, "frame sequence number"),
        VK_FIELD(668, dwBeginSequence, "frame sequence number of the track's begin"),
        VK_FIELD(672, dwEndSequence, "frame sequence number of the track's end"),
        VK_FIELD(676, nBeginFileOffset, "place of the track's begin in the recorded file, bytes"),
        VK_FIELD(684, nEndFileOffset, "place of the track's end in the recorded file, bytes"),
        VK_FIELD(692, byColorSimilar, "similarity to red, yellow, green, cyan, blue, purple, black, white"),
        VK_FIELD(700, byUpperBodyColorSimilar, "the same of the upper body"),
        VK_FIELD(708, byLowerBodyColorSimilar, "the same of the lower body"),
        VK_FIELD(716, nRelativeID, "identifier of a related object"),
        VK_FIELD(720, szSubText, "secondary recognised text"),
        VK_FIELD(740, nStature, "a person's height, device unit"),
        VK_FIELD(744, emDirection, "0 unknown, 1 left to right, 2 right to left"),
        VK_FIELD(748, dwLowerBodyColor, "colour of the lower body, packed like dwMainColor"),
    };
};

template <>
struct FieldsOf<tagVK_MSG_OBJECT_EX2> {
    VK_RECORD(tagVK_MSG_OBJECT_EX2, 2820);
    static constexpr Field list[] = {
        VK_FIELD(0, dwSize, "size of the record, 2820"),
        VK_FIELD(4, nObjectID, "object identifier"),
        VK_FIELD(8, szObjectType, "object type word"),
        VK_FIELD(136, nConfidence, "detection confidence, device unit"),
        VK_FIELD(140, nAction,
                 "1 appear, 2 move, 3 stay, 4 remove, 5 disappear, 6 split, 7 merge, 8 rename, 0 unknown"),
        VK_FIELD(144, stuBoundingBox, "box in the picture"),
        VK_FIELD(176, stuCenter, "centre"),
        VK_FIELD(180, nPointNum, "points of the outline, 0 to 16"),
        VK_FIELD(184, stuContour, "outline"),
        VK_FIELD(248, dwMainColor, "main colour, first component in the highest byte"),
        VK_FIELD(252, szText, "recognised text"),
        VK_FIELD(380, szObjectCategory, "object sub-type word"),
        VK_RESERVED(442, byReserved1),
        VK_FIELD(447, bPicEnable, "1 has a picture"),
        VK_FIELD(448, dwOffset, "place of the picture in the event's data, bytes"),
        VK_FIELD(452, dwFileLength, "length of the picture, bytes"),
        VK_FIELD(456, wWidth, "width of the picture, pixels"),
        VK_FIELD(458, wHeight, "height of the picture, pixels"),
        VK_RESERVED(460, byReserved2),
        VK_FIELD(464, pszFilePath, "path of the picture file"),
        VK_RESERVED(472, byReserved3),
        VK_FIELD(488, bShotFrame, "1 the picture is a snapshot frame"),
        VK_FIELD(489, bColor, "1 dwMainColor was sent"),
        VK_FIELD(490, bLowerBodyColor, "1 dwLowerBodyColor was sent"),
        VK_FIELD(491, byTimeType, "0 absolute, 1 relative"),
        VK_FIELD(492, stuCurrentTime, "time of the frame, UTC; milliseconds of any of the three stamps"),
        VK_FIELD(528, stuStartTime, "begin of the track, UTC, without milliseconds"),
        VK_FIELD(564, stuEndTime, "end of the track, UTC, without milliseconds"),
        VK_FIELD(600, stuOriginalBoundingBox, "box in the full source picture"),
        VK_FIELD(632, stuSignBoundingBox, "box of a sign at the object"),
        VK_FIELD(664, dwCurrentSequence, "frame sequence number"),
        VK_FIELD(668, dwBeginSequence, "frame sequence number of the track's begin"),
        VK_FIELD(672, dwEndSequence, "frame sequence number of the track's end"),
        VK_FIELD(676, nBeginFileOffset, "place of the track's begin in the recorded file, bytes"),
        VK_FIELD(684, nEndFileOffset, "place of the track's end in the recorded file, bytes"),
        VK_FIELD(692, byColorSimilar, "similarity to red, yellow, green, cyan, blue, purple, black, white"),
        VK_FIELD(700, byUpperBodyColorSimilar, "the same of the upper body"),
        VK_FIELD(708, byLowerBodyColorSimilar, "the same of the lower body"),
        VK_FIELD(716, nRelativeID, "identifier of a related object"),
        VK_FIELD(720, szSubText, "secondary recognised text"),
        VK_FIELD(740, nStature, "a person's height, device unit"),
        VK_FIELD(744, emDirection, "0 unknown, 1 left to right, 2 right to left"),
        VK_FIELD(748, dwLowerBodyColor, "colour of the lower body, packed like dwMainColor"),
        VK_FIELD(752, nSynopsisSpeed, "speed, device unit"),
        VK_FIELD(756, nSynopsisSize, "size, device unit"),
        VK_FIELD(760, bSynopsisDirection, "1 the two points were sent"),
        VK_RESERVED(761, byReserved4),
        VK_FIELD(762, stuSynopsisStartPoint, "where the direction of motion starts"),
        VK_FIELD(766, stuSynopsisEndPoint, "where the direction of motion ends"),
        VK_RESERVED(770, byReserved5),
    };
};

template <>
struct FieldsOf<tagNET_FACE_ATTRIBUTE_EX> {
    VK_RECORD(tagNET_FACE_ATTRIBUTE_EX, 80);
    static constexpr Field list[] = {
        VK_FIELD(0, emSex, "0 unknown, 1 male, 2 female"),
        VK_FIELD(4, nAge, "years"),
        VK_FIELD(8, nComplexion, "complexion, device code"),
        VK_FIELD(12, emEye, "eyes: 0 unknown, else device code plus 1"),
        VK_FIELD(16, emMouth, "mouth: 0 unknown, else device code plus 1"),
        VK_FIELD(20, emMask, "mask: 0 unknown, else device code plus 1"),
        VK_FIELD(24, emBeard, "beard: 0 unknown, else device code plus 1"),
        VK_FIELD(28, nAttractive, "attractiveness, device score"),
        VK_FIELD(32, emGlass, "glasses, device code"),
        VK_FIELD(36, emEmotion, "index of the emotion, 0 unknown"),
        VK_FIELD(40, stuBoundingBox, "box of the face"),
        VK_FIELD(72, emNation, "nation: 0 unknown, else device code plus 1"),
    };
};

template <>
struct FieldsOf<tagNONMOTOR_COLOR> {
    VK_RECORD(tagNONMOTOR_COLOR, 16);
    static constexpr Field list[] = {
        VK_FIELD(0, nRed, "red"),
        VK_FIELD(4, nGreen, "green"),
        VK_FIELD(8, nBlue, "blue"),
        VK_FIELD(12, nAlpha, "alpha"),
    };
};

template <>
struct FieldsOf<tagNONMOTOR_IMAGE> {
    VK_RECORD(tagNONMOTOR_IMAGE, 788);
    static constexpr Field list[] = {
        VK_FIELD(0, dwOffset, "place in the event's data, bytes"),
        VK_FIELD(4, dwFileLength, "length, bytes"),
        VK_FIELD(8, dwWidth, "width, pixels"),
        VK_FIELD(12, dwHeight, "height, pixels"),
        VK_FIELD(16, szFilePath, "path of the file"),
        VK_RESERVED(276, byReserved),
    };
};

template <>
struct FieldsOf<tagNONMOTOR_SCENE_IMAGE> {
    VK_RECORD(tagNONMOTOR_SCENE_IMAGE, 72);
    static constexpr Field list[] = {
        VK_FIELD(0, dwOffset, "place in the event's data, bytes"),
        VK_FIELD(4, dwFileLength, "length, bytes"),
        VK_FIELD(8, dwWidth, "width, pixels"),
        VK_FIELD(12, dwHeight, "height, pixels"),
        VK_RESERVED(16, byReserved),
    };
};

template <>
struct FieldsOf<tagNONMOTOR_FACE_IMAGE> {
    VK_RECORD(tagNONMOTOR_FACE_IMAGE, 16);
    static constexpr Field list[] = {
        VK_FIELD(0, dwOffset, "place in the event's data, bytes"),
        VK_FIELD(4, dwFileLength, "length, bytes"),
        VK_FIELD(8, dwWidth, "width, pixels"),
        VK_FIELD(12, dwHeight, "height, pixels"),
    };
};

template <>
struct FieldsOf<tagNONMOTOR_RIDER_INFO> {
    VK_RECORD(tagNONMOTOR_RIDER_INFO, 600);
    static constexpr Field list[] = {
        VK_FIELD(0, bFeatureValid, "1 the attributes are valid"),
        VK_FIELD(4, emSex, "0 unknown, 1 male, 2 female"),
        VK_FIELD(8, nAge, "years"),
        VK_FIELD(12, nHelmet, "helmet, device code"),
        VK_FIELD(16, nCall, "making a phone call, device code"),
        VK_FIELD(20, nBag, "bag, device code"),
        VK_FIELD(24, nCarrierBag, "carrier bag, device code"),
        VK_FIELD(28, nUmbrella, "umbrella, device code"),
        VK_FIELD(32, nGlasses, "glasses, device code"),
        VK_FIELD(36, nMask, "mask, device code"),
        VK_FIELD(40, emEmotion, "index of the emotion, 0 unknown"),
        VK_FIELD(44, nUpClothes, "upper clothing, device code"),
        VK_FIELD(48, nDownClothes, "lower clothing, device code"),
        VK_FIELD(52, emUpperBodyColor, "index of the upper body's colour, 0 unknown"),
        VK_FIELD(56, emLowerBodyColor, "index of the lower body's colour, 0 unknown"),
        VK_FIELD(60, bFaceImage, "1 stuFaceImage was sent"),
        VK_FIELD(64, stuFaceImage, "face picture"),
        VK_RESERVED(80, byReserved1),
        VK_FIELD(128, bFaceAttributes, "1 stuFaceAttributes was sent"),
        VK_FIELD(136, stuFaceAttributes, "face attributes"),
        VK_RESERVED(216, byReserved2),
    };
};

template <>
struct FieldsOf<tagVA_OBJECT_NONMOTOR> {
    VK_RECORD(tagVA_OBJECT_NONMOTOR, 10640);
    static constexpr Field list[] = {
        VK_FIELD(0, nObjectID, "object identifier"),
        VK_FIELD(4, emCategory, "index of the category, 0 unknown"),
        VK_FIELD(8, stuBoundingBox, "box in the picture"),
        VK_FIELD(40, stuOriginalBoundingBox, "box in the full source picture"),
        VK_FIELD(72, stuMainColor, "main colour"),
        VK_FIELD(88, emColor, "index of the colour, 0 unknown"),
        VK_FIELD(92, bPicEnable, "1 stuImage was sent"),
        VK_FIELD(96, stuImage, "picture of the vehicle"),
        VK_FIELD(884, nNumOfCycling, "people riding, the device's count"),
        VK_FIELD(888, stuRiderList, "riders"),
        VK_FIELD(10488, stuSceneImage, "scene"),
        VK_FIELD(10560, stuFaceSceneImage, "scene in which the faces were found"),
        VK_FIELD(10632, nNumOfFace, "faces, the device's count"),
    };
};

template <>
struct FieldsOf<tagNET_BULLET_HOLES_INFO> {
    VK_RECORD(tagNET_BULLET_HOLES_INFO, 696);
    static constexpr Field list[] = {
        VK_FIELD(0, nObjectID, "identifier of the hole"),
        VK_FIELD(4, szObjectType, "object type word"),
        VK_FIELD(136, stuBoundingBox, "box"),
        VK_FIELD(168, stuCenter, "centre"),
        VK_FIELD(172, nSequence, "sequence number"),
        VK_FIELD(176, nScore, "score"),
        VK_RESERVED(180, byReserved),
    };
};

// ---- face recognition
// ------------------------------------------------------------------------------------------------

template <>
struct FieldsOf<VK_PIC_INFO> {
    VK_RECORD(VK_PIC_INFO, 40);
    static constexpr Field list[] = {
        VK_FIELD(0, dwOffset, "offset in the binary data, bytes"),
        VK_FIELD(4, dwFileLength, "length, bytes"),
        VK_FIELD(8, wWidth, "width, pixels"),
        VK_FIELD(10, wHeight, "height, pixels"),
        VK_FIELD(16, pszFilePath, "path on the device"),
        VK_FIELD(24, bIsDetected, "a face was detected"),
        VK_RESERVED(25, byReserved),
    };
};

template <>
struct FieldsOf<VK_PIC_INFO_EX3> {
    VK_RECORD(VK_PIC_INFO_EX3, 88);
    static constexpr Field list[] = {
        VK_FIELD(0, dwOffset, "offset in the binary data, bytes"),
        VK_FIELD(4, dwFileLength, "length, bytes"),
        VK_FIELD(8, wWidth, "width, pixels"),
        VK_FIELD(10, wHeight, "height, pixels"),
        VK_FIELD(12, szFilePath, "path on the device"),
        VK_FIELD(76, bIsDetected, "a face was detected"),
        VK_RESERVED(77, byReserved),
    };
};

template <>
struct FieldsOf<tagFACERECOGNITION_PERSON_INFO> {
    VK_RECORD(tagFACERECOGNITION_PERSON_INFO, 2248);
    static constexpr Field list[] = {
        VK_FIELD(0, szPersonName, "short name; when read, the custom category"),
        VK_FIELD(16, wYear, "year of birth"),
        VK_FIELD(18, byMonth, "month of birth"),
        VK_FIELD(19, byDay, "day of birth"),
        VK_FIELD(20, szID, "certificate number"),
        VK_FIELD(52, byImportant, "importance rank"),
        VK_FIELD(53, bySex, "0 unknown, 1 male, 2 female"),
        VK_FIELD(54, wFacePicNum, "face pictures, 0 to 48"),
        VK_FIELD(56, stuFacePicInfo, "face pictures"),
        VK_FIELD(1976, byType, "1 normal, 2 suspicion, 3 thief, 4 VIP, 5 fate check, 6 staff"),
        VK_FIELD(1977, byCertificateType, "0 unknown, 1 identity card, 2 passport"),
        VK_FIELD(1978, byGlasses, "glasses, device code"),
        VK_FIELD(1979, byAge, "age, years"),
        VK_FIELD(1980, szProvince, "province"),
        VK_FIELD(2044, szCity, "city"),
        VK_FIELD(2108, szPersonNameEx, "name"),
        VK_FIELD(2172, szUID, "identifier in the database"),
        VK_FIELD(2204, szCountry, "country code"),
        VK_FIELD(2207, byIsCustomType, "1 when the category is the text in szPersonName"),
        VK_CALLER_TEXT(2208, pszComment, byCommentLen, "comment"),
        VK_CALLER_TEXT(2216, pszGroupID, byGroupIdLen, "identifier of the group"),
        VK_CALLER_TEXT(2224, pszGroupName, byGroupNameLen, "name of the group"),
        VK_CALLER_TEXT(2232, pszFeatureValue, byFeatureValueLen, "feature value"),
        VK_FIELD(2240, byGroupIdLen, "bytes at pszGroupID"),
        VK_FIELD(2241, byGroupNameLen, "bytes at pszGroupName"),
        VK_FIELD(2242, byFeatureValueLen, "bytes at pszFeatureValue"),
        VK_FIELD(2243, byCommentLen, "bytes at pszComment"),
        VK_FIELD(2244, emEmotion, "face feature, 0 to 14"),
    };
};

template <>
struct FieldsOf<tagCUSTOM_PERSON_INFO> {
    VK_RECORD(tagCUSTOM_PERSON_INFO, 188);
    static constexpr Field list[] = {
        VK_FIELD(0, szPersonInfo, "text"),
        VK_RESERVED(64, byReserved),
    };
};

template <>
struct FieldsOf<tagFACERECOGNITION_PERSON_INFOEX> {
    VK_RECORD(tagFACERECOGNITION_PERSON_INFOEX, 4712);
    static constexpr Field list[] = {
        VK_FIELD(0, szPersonName, "name"),
        VK_FIELD(64, wYear, "year of birth"),
        VK_FIELD(66, byMonth, "month of birth"),
        VK_FIELD(67, byDay, "day of birth"),
        VK_FIELD(68, byImportant, "importance rank"),
        VK_FIELD(69, bySex, "0 unknown, 1 male, 2 female"),
        VK_FIELD(70, szID, "certificate number"),
        VK_FIELD(102, wFacePicNum, "face pictures, 0 to 48"),
        VK_FIELD(104, stuFacePicInfo, "face pictures"),
        VK_FIELD(2024, byType, "1 normal, 2 suspicion, 3 thief, 4 VIP, 5 fate check, 6 staff"),
        VK_FIELD(2025, byCertificateType, "0 unknown, 1 identity card, 2 passport"),
        VK_FIELD(2026, byGlasses, "glasses, device code"),
        VK_FIELD(2027, byAge, "age, years"),
        VK_FIELD(2028, szProvince, "province"),
        VK_FIELD(2092, szCity, "city"),
        VK_FIELD(2156, szUID, "identifier in the database"),
        VK_FIELD(2188, szCountry, "country code"),
        VK_FIELD(2191, byIsCustomType, "1 when the category is the text in szCustomType"),
        VK_FIELD(2192, szCustomType, "custom category"),
        VK_FIELD(2208, szComment, "comment"),
        VK_FIELD(2308, szGroupID, "identifier of the group"),
        VK_FIELD(2372, szGroupName, "name of the group"),
        VK_FIELD(2500, emEmotion, "face feature, 0 to 14"),
        VK_FIELD(2504, szHomeAddress, "home address"),
        VK_FIELD(2632, emGlassesType, "0 unknown, 1 sunglasses, 2 glasses"),
        VK_FIELD(2636, emRace, "device code plus one, 0 not reported"),
        VK_FIELD(2640, emEye, "device code plus one, 0 not reported"),
        VK_FIELD(2644, emMouth, "device code plus one, 0 not reported"),
        VK_FIELD(2648, emMask, "device code plus one, 0 not reported"),
        VK_FIELD(2652, emBeard, "device code plus one, 0 not reported"),
        VK_FIELD(2656, nAttractive, "attractiveness score, -1 not reported"),
        VK_FIELD(2660, emFeatureState, "feature extraction, device code"),
        VK_FIELD(2664, bAgeEnable, "nAgeRange is valid; written only"),
        VK_FIELD(2668, nAgeRange, "lowest and highest age, years; written only"),
        VK_FIELD(2676, nEmotionValidNum, "valid entries of emEmotions; written only"),
        VK_FIELD(2680, emEmotions, "face features, 0 to 14; written only"),
        VK_FIELD(2808, nCustomPersonInfoNum, "custom information, 0 to 4"),
        VK_FIELD(2812, stuCustomPersonInfo, "custom information"),
        VK_RESERVED(3564, byReserved),
    };
};

template <>
struct FieldsOf<tagCANDIDATE_INFO> {
    VK_RECORD(tagCANDIDATE_INFO, 2632);
    static constexpr Field list[] = {
        VK_FIELD(0, stuPersonInfo, "the person"),
        VK_FIELD(2248, bySimilarity, "similarity score"),
        VK_FIELD(2249, byRange, "range, device code"),
        VK_FIELD(2252, stuTime, "time of the match"),
        VK_FIELD(2276, szAddress, "place of the match"),
        VK_FIELD(2536, bIsHit, "the match counts"),
        VK_FIELD(2540, stuSceneImage, "picture of the scene"),
        VK_FIELD(2628, nChannelID, "channel number"),
    };
};

template <>
struct FieldsOf<tagCANDIDATE_INFOEX> {
    VK_RECORD(tagCANDIDATE_INFOEX, 5352);
    static constexpr Field list[] = {
        VK_FIELD(0, stuPersonInfo, "the person"),
        VK_FIELD(4712, bySimilarity, "similarity score"),
        VK_FIELD(4713, byRange, "range, device code"),
        VK_FIELD(4716, stuTime, "time of the match"),
        VK_FIELD(4740, szAddress, "place of the match"),
        VK_FIELD(5000, bIsHit, "the match counts"),
        VK_FIELD(5004, stuSceneImage, "picture of the scene"),
        VK_FIELD(5092, nChannelID, "channel number"),
        VK_FIELD(5096, szSceneImagePath, "path of the scene's picture"),
    };
};

template <>
struct FieldsOf<tagNET_EXTENSION_INFO> {
    VK_RECORD(tagNET_EXTENSION_INFO, 52);
    static constexpr Field list[] = {
        VK_FIELD(0, szEventLongID, "long identifier of the event"),
    };
};

template <>
struct FieldsOf<tagNET_HUMANTRAIT_EXTENSION_INFO> {
    VK_RECORD(tagNET_HUMANTRAIT_EXTENSION_INFO, 36);
    static constexpr Field list[] = {
        VK_FIELD(0, szAdditionalCode, "additional code of the event"),
    };
};

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
    static constexpr const RecordLayout* list[] = {&kLayout<R>...};  ///< one layout for each record
};

/// All records of the library.
using AllLayouts = LayoutList<
    // times and geometry
    tagNET_TIME, tagNET_TIME_EX, tagCFG_NET_TIME_EX, tagCFG_TIME, _VKDEVTIME, VK_RECT, tagNET_RECT, VK_POINT, tagRANGE,
    // schedules
    tagVK_TSECT, tagCFG_TIME_SECTION, tagNET_TIME_SECTION, tagNET_CFG_TIME_SCHEDULE, tagCFG_TIME_SCHEDULE,
    // traffic
    tagSTEREO_GARAGE_INFO, tagDEV_EVENT_TRAFFIC_TRAFFICCAR_INFO, tagWEIGH_INFO, tagEVENT_JUNCTION_CUSTOM_INFO,
    tagEVENT_VEHICLE_INFO, tagVK_TRAFFICFLOWSTAT, tagNET_TRAFFICFLOWSTATINFO,
    // analytics
    VK_MSG_OBJECT, tagVK_MSG_OBJECT_EX, tagVK_MSG_OBJECT_EX2, tagNET_FACE_ATTRIBUTE_EX, tagNONMOTOR_COLOR,
    tagNONMOTOR_IMAGE, tagNONMOTOR_SCENE_IMAGE, tagNONMOTOR_FACE_IMAGE, tagNONMOTOR_RIDER_INFO, tagVA_OBJECT_NONMOTOR,
    tagNET_BULLET_HOLES_INFO,
    // face recognition
    VK_PIC_INFO, VK_PIC_INFO_EX3, tagFACERECOGNITION_PERSON_INFO, tagCUSTOM_PERSON_INFO,
    tagFACERECOGNITION_PERSON_INFOEX, tagCANDIDATE_INFO, tagCANDIDATE_INFOEX, tagNET_EXTENSION_INFO,
    tagNET_HUMANTRAIT_EXTENSION_INFO,
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
