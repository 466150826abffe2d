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

// ---- analytics
// -------------------------------------------------------------------------------------------------------

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

// ---- configuration
// ---------------------------------------------------------------------------------------------------

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
    // traffic
    tagSTEREO_GARAGE_INFO, tagDEV_EVENT_TRAFFIC_TRAFFICCAR_INFO, tagWEIGH_INFO, tagEVENT_JUNCTION_CUSTOM_INFO,
    tagEVENT_VEHICLE_INFO,
    // face recognition
    VK_PIC_INFO, VK_PIC_INFO_EX3, tagFACERECOGNITION_PERSON_INFO, tagCUSTOM_PERSON_INFO,
    tagFACERECOGNITION_PERSON_INFOEX, tagCANDIDATE_INFO, tagCANDIDATE_INFOEX, tagNET_EXTENSION_INFO,
    tagNET_HUMANTRAIT_EXTENSION_INFO>;

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
