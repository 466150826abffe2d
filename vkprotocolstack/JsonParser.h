// JsonParser: converts between the JSON message bodies of network video devices and the fixed-layout records of the
// client library.
//
// What holds for every function here:
// - Nothing throws and nothing outside the record is written, whatever JSON a reader is given. (What jsoncpp itself
//   throws when memory runs out may pass.)
// - A member is present when it is neither missing nor null. Reading a missing member gives null.
// - Numbers: null, texts, arrays and objects read as 0; integers keep their low bits; reals are cut toward zero, beyond
//   the field's range to its nearest limit, NaN to 0.
// - Text in messages is UTF-8, text in records is in the local encoding of the process's locale.
// - Writers replace a node that is neither null nor of the container type they write; a container keeps the members and
//   elements that are not written.
// - Functions keep no state and may run on any number of threads at once on separate records and nodes.
#ifndef VKPROTOCOLSTACK_JSONPARSER_H
#define VKPROTOCOLSTACK_JSONPARSER_H

#include <json/value.h>

#include <cstddef>
#include <cstring>
#include <type_traits>
#include <utility>

#include "vkprotocolstack/support/export.h"
#include "vkprotocolstack/support/support.h"
#include "vkrecords/fields.h"
#include "vkrecords/vkrecords.h"

// ======================================================================================================================
// 1. Foundation: text fields, geometry, colour, range, array depth
// ======================================================================================================================

/// Reads a UTF-8 text into a field of local text. Null leaves the field as the caller set it; so does a negative limit,
/// and memory that cannot be had. At most limit bytes of the text (not of the result) are taken, up to the first NUL;
/// the converted text and its terminator are written whole. The local form is never longer than the UTF-8 it comes
/// from, so destination must have room for limit + 1 bytes.
VK_API void parseUtf8JasonToAssic(const Json::Value& value, char* destination, int limit);

/// Writes length bytes of local text, or those before its first NUL, as a UTF-8 text, replacing what value held. The
/// UTF-8 form is cut to 2 x length + 1 bytes. A negative length, or memory that cannot be had, leaves value unchanged.
VK_API void packetAssicToUtf8Jason(Json::Value& value, char* text, int length);

/// Reads [left, top, right, bottom]. Cleared first; stays cleared when the node is no array of exactly 4 elements.
/// @return 1, or 0 when it stayed cleared
VK_API int GetJsonRect(const Json::Value& value, VK_RECT& rect);

/// Writes the low 32 bits of left, top, right, bottom to elements 0 to 3; further elements stay.
/// @return 1
VK_API int SetJsonRect(Json::Value& value, const VK_RECT& rect);

/// Holds the reader of rectangles in the 32-bit form.
class JsonRect {
  public:
    /// Reads [left, top, right, bottom]. A node that is no array of exactly 4 elements leaves the record as the caller
    /// set it, unlike GetJsonRect. Instantiated for tagNET_RECT.
    /// @return whether the record was written
    template <class Rect>
    static bool parse(const Json::Value& value, Rect& rect);
};

/// Reads [x, y], low 16 bits of each. A node that is no array of exactly 2 elements leaves the record as the caller set
/// it.
/// @return 1, or 0 when nothing was written
VK_API int GetJsonPoint(const Json::Value& value, VK_POINT& point);

/// Writes [x, y]; the node has exactly 2 elements afterwards.
/// @return 1
VK_API int SetJsonPoint(Json::Value& value, const VK_POINT& point);

/// Reads four components, low 8 bits of each: element i becomes bits 8i to 8i + 7 of colour. A node that is no array of
/// exactly 4 elements leaves colour as the caller set it.
/// @return 1, or 0 when nothing was written
VK_API int GetJsonColor(const Json::Value& value, unsigned int& color);

/// Writes bits 8i to 8i + 7 of color to element i, for i from 0 to 3; further elements stay.
/// @return 1
VK_API int SetJsonColor(Json::Value& value, unsigned int color);

/// Reads {"Max", "Min", "Default", "Step"}. Cleared first; missing "Max" and "Min" read as 0; "Default" and "Step" set
/// their flags when present.
/// @return 1
VK_API int deserialize_range(const Json::Value& value, tagRANGE& range);

/// Writes "Max", "Min" and, where their flags are set, "Default" and "Step", as integers cut toward zero, beyond 32
/// bits to the nearest limit. The record comes first, unlike in the reader.
/// @return 1
VK_API int serialize_range(const tagRANGE& range, Json::Value& value);

/// serialize_range, but the numbers are written as reals.
/// @return 1
VK_API int serialize_range_float(const tagRANGE& range, Json::Value& value);

/// Measures how deeply a value nests arrays: a scalar 0, a flat array 1, an array of arrays 2. A ragged value measures
/// by the shallowest of the elements that are sampled.
class VK_API Json_dimension {
  public:
    /// shift sets how many elements of an array of n are sampled: every (n >> shift) + 1st, from the first on. 0
    /// samples the first only, 31 all of them.
    explicit Json_dimension(int shift);

    /// @return the depth, or -1 when shift is negative
    long long operator()(const Json::Value& value) const;

    /// The same, with the shift count taken modulo 32. It needs no stack that grows with the depth of value.
    long long do_recursion(const Json::Value& value) const;

  private:
    int nShift;
};

// ======================================================================================================================
// 2. Time and schedules
// ======================================================================================================================
//
// Readers of time texts scan the node's text like sscanf with the format that each names: blanks before a number are
// skipped, widths are maxima, no range is checked. Fields are written as they convert: a text that fails part way
// leaves its leading fields written and the rest as the caller set it. A missing node is the empty text, which fails.
// Writers replace the node with a text.

/// Holds the reader and writer of times with milliseconds. Instantiated for tagNET_TIME_EX and tagCFG_NET_TIME_EX.
class JsonTimeEx {
  public:
    /// Reads "%04d-%02d-%02d %02d:%02d:%02d.%d". The fraction is a plain integer: .25 gives 25 milliseconds.
    /// @return whether all 7 fields converted
    template <class Time>
    static bool parse(const Json::Value& value, Time& time);

    /// Writes "%04d-%02d-%02d %02d:%02d:%02d.%d"; the milliseconds are not padded.
    /// @return true
    template <class Time>
    static bool pack(Json::Value& value, const Time& time);
};

/// Holds the reader of plain times. Instantiated for tagNET_TIME.
class JsonTime {
  public:
    /// Reads "%04d-%02d-%02d %02d:%02d:%02d".
    /// @return whether all 6 fields converted
    template <class Time>
    static bool parse(const Json::Value& value, Time& time);
};

/// JsonTimeEx::parse. Leaves dwUTC and dwReserved as the caller set them.
VK_API bool GetJsonTime(const Json::Value& value, tagNET_TIME_EX& time);
/// JsonTimeEx::parse.
VK_API bool GetJsonTime(const Json::Value& value, tagCFG_NET_TIME_EX& time);
/// Reads "%02d:%02d:%02d".
/// @return whether all 3 fields converted
VK_API bool GetJsonTime(const Json::Value& value, tagCFG_TIME& time);
/// Reads "%04d%02d%02d %02d%02d%02d", split by digit counts; digits only, so a component with a sign does not convert.
/// @return whether all 6 fields converted
VK_API bool GetJsonTimeB(const Json::Value& value, tagNET_TIME& time);
/// Reads "%04u-%02u-%02u" into year, month and day; hour, minute and second are left as the caller set them.
/// @return whether all 3 fields converted
VK_API bool GetJsonDate(const Json::Value& value, tagNET_TIME& time);
/// Reads "%04d-%02d-%02d %02d:%02d:%02d".
/// @return whether all 6 fields converted
VK_API bool GetTimeStructFromStr(const Json::Value& value, tagNET_TIME& time);

/// JsonTimeEx::pack.
VK_API bool SetJsonTime(Json::Value& value, const tagNET_TIME_EX& time);
/// JsonTimeEx::pack.
VK_API bool SetJsonTime(Json::Value& value, const tagCFG_NET_TIME_EX& time);
/// Writes "%02d:%02d:%02d".
/// @return true
VK_API bool SetJsonTime(Json::Value& value, const tagCFG_TIME& time);
/// Writes "%d-%02d-%02d %02d:%02d:%02d". The year is printed as it is stored, 0 to 63, without its base.
/// @return true
VK_API bool SetJsonTime(Json::Value& value, const _VKDEVTIME& time);
/// Writes "%04d%02d%02d %02d%02d%02d".
/// @return true
VK_API bool SetJsonTimeB(Json::Value& value, const tagNET_TIME& time);
/// Writes "%04u-%02u-%02u".
/// @return true
VK_API bool SetJsonDate(Json::Value& value, const tagNET_TIME& time);

/// Breaks seconds since 1970-01-01 00:00:00 UTC down as UTC, whatever the time zone; milliseconds, dwUTC and dwReserved
/// are 0. Seconds beyond the calendar give 1900-01-01 00:00:00.
VK_API tagNET_TIME_EX GetNetTimeByUTCTime(long seconds);
/// The same as tagNET_TIME.
VK_API tagNET_TIME GetNetTimeByUTCTimeNew(long seconds);

/// The seconds since 1970-01-01 00:00:00 UTC of a calendar time in the process's time zone, daylight saving decided by
/// the zone; 0 when they would be negative or the time has none. Not the inverse of the breakdown, which is in UTC.
VK_API long GetUTCTimebyNetTime(const tagNET_TIME_EX& time);
/// The same of a tagNET_TIME.
VK_API long GetUTCTimebyNetTimeNew(const tagNET_TIME& time);
/// GetUTCTimebyNetTimeNew plus the zone's standard offset east of UTC, in whole minutes; daylight saving is not added.
/// 0 when it would be negative or the time has none.
VK_API long GetLocalTimebyNetTimeNew(const tagNET_TIME& time);

// ======================================================================================================================
// 3. Traffic and vehicle events
// ======================================================================================================================

/// Reads the vehicle object of an intelligent-traffic event. Cleared first; then nVehicleSize is -1 unless the message
/// says otherwise, byDirection 8.
/// Texts: UTF-8 members are taken to as many bytes as their field has, so a text that fills its field is terminated in
/// the byte behind it, unless a later member overwrites that byte: a "RoadwayNo" of 64 bytes or more empties the first
/// driving direction. "PlateType", "Event", "ViolationCode" and the first "DrivingDirection" are copied as they stand,
/// unconverted.
/// stuEleTagInfoUTC is taken from "UTC", when "EleTagInfoUTC" is present.
/// node: every member of the object that is looked for exists afterwards, as null where it was missing, except
/// "DetailedAddress", "VehicleSign" and "MachineAddress". A null node becomes an object; any other node that is no
/// object stays as it is and reads as empty. pszDeviceAddress, pszDetailedAddress and pszMachineAddress are texts from
/// new char[], owned by the record; null when the member or the memory is missing. Those that the record held before
/// the call are lost: release them first.
/// @return 0, or 1 when info is null (then nothing is read or inserted)
VK_API int ParseStrtoTrafficCar(Json::Value& node, tagDEV_EVENT_TRAFFIC_TRAFFICCAR_INFO* info);

/// Reads the weighbridge data of a junction event: "Rough", "Tare" and "Net" of the member "WeighInfo". Without
/// "WeighInfo" the record is left as the caller set it; missing weights read as 0.
/// @return true
VK_API bool ParseCustomInfo(const Json::Value& event, tagEVENT_JUNCTION_CUSTOM_INFO& info);

/// Reads "Category" of a vehicle event's vehicle, cut to 64 bytes, terminator included. Without it the record is left
/// as the caller set it.
/// @return true without "Category", else whether it is a text
VK_API bool ParseStrtoVehicle(const Json::Value& vehicle, tagEVENT_VEHICLE_INFO* info);

// ======================================================================================================================
// 4. Video analytics objects
// ======================================================================================================================

// ======================================================================================================================
// 5. Face recognition
// ======================================================================================================================
//
// Persons, candidates and pictures are not cleared by their readers: what is absent, or not of the type that a contract
// asks for, leaves its field as the caller set it, unless stated otherwise. Their readers take nodes by value; the
// caller's node is not changed.

/// Reads one picture: "Offset", "Length" (bytes), "Width", "Height" (low 16 bits), "FilePath" when it is a text,
/// "IsDetected" when it is a bool.
/// pszFilePath is a text from new char[], owned by the record; null when the memory cannot be had. One that the record
/// held before the call is lost: release it first.
VK_API void ParseImageInfo(Json::Value image, VK_PIC_INFO& info);

/// The same for the picture record with a path of bounded length: "FilePath" is any value, cut to 64 bytes, terminator
/// included.
VK_API void ParseImageInfo(Json::Value image, VK_PIC_INFO_EX3& info);

/// Reads one person of the face database.
/// Written even when missing, as 0: byGlasses, byAge (low 8 bits), emEmotion (also when the keyword is unknown; its
/// case counts, unlike that of the others). An unknown "Sex", "CertificateType" or "Type" leaves its field as the
/// caller set it. "Birthday" is scanned by "%04d-%02d-%02d"; what does not convert becomes 0. Of "Image" the first 48
/// elements are read, each by ParseImageInfo; wFacePicNum counts them. Their paths are heap texts owned by the record:
/// release those that it held before the call first. "Name" goes to szPersonNameEx. szPersonName receives the text of
/// "Type" (of any value, empty when missing) when the message has "IsCustomType" with low 8 bits of 1; "Type" is tried
/// as a keyword then too. "Comment", "GroupID", "GroupName" and "FeatureValue", when they are texts, go to the caller's
/// buffers, cut to the lengths that stand beside them, terminator included. The buffer's first bytes, as many as the
/// text and a terminator have but at most its length, are zeroed first. A null buffer is skipped; one of length 0 is
/// not written.
VK_API void ParsePersonInfo(Json::Value person, tagFACERECOGNITION_PERSON_INFO& info);

/// The same for the second generation. "Name" goes to szPersonName, the custom type to szCustomType, "Comment",
/// "GroupID" and "GroupName" to texts of the record; "FeatureValue" is not read.
/// "HomeAddress" is read when it is a text, an unknown "GlassesType" (its case counts) as 0; "Race", "Eye", "Mouth",
/// "Mask" and "Beard" are stored plus one, wrapping at the limit. nAttractive is -1 when missing. Of
/// "CustomPersonInfo" the first 4 elements are read, each itself the text; nCustomPersonInfoNum counts them.
/// bAgeEnable, nAgeRange, nEmotionValidNum and emEmotions are for PacketPersonInfo only: left as the caller set them.
VK_API void ParsePersonInfo(Json::Value person, tagFACERECOGNITION_PERSON_INFOEX& info);

/// Writes one person. Not the mirror of ParsePersonInfo:
/// - "Name" is szPersonNameEx, or szPersonName where that is empty. "Type" is the keyword of byType when byIsCustomType
///   is 0, szPersonName when it is 1.
/// - "Birthday" has no leading zeros, and needs year, month and day not to be 0.
/// - "Image" has wFacePicNum elements, without their paths, "IsDetected" as a number. The count is not capped: keep it
///   within 48.
/// - "Comment" is read to 100 bytes of the caller's buffer, whatever byCommentLen says; the other buffers to their
///   lengths. What has a null buffer is not written.
/// - "Important" 0, and codes without a keyword, are not written; neither are "Age" and "Emotion".
/// Members that are not written stay as they were in the node.
/// @return true
VK_API bool PacketPersonInfo(Json::Value& person, const tagFACERECOGNITION_PERSON_INFO& info);

/// The same for the second generation, whose only name is szPersonName and whose custom type is szCustomType.
/// - "Race", "Eye", "Mouth", "Mask" and "Beard" are written minus one; 0 is not written. Neither are "FeatureState" 0,
///   "GlassesType" 0 and a negative "Attractive".
/// - "Age" is nAgeRange, when bAgeEnable is not 0.
/// - "Emotion" is the list of emEmotions: 0 is "*", a code without a keyword the empty text. A negative
///   nEmotionValidNum, like any beyond 32, writes all 32.
/// - "CustomPersonInfo" has nCustomPersonInfoNum objects with the text as "PersonInfo". The count is taken as unsigned
///   and not capped: keep it within 0 to 4.
/// @return true
VK_API bool PacketPersonInfo(Json::Value& person, const tagFACERECOGNITION_PERSON_INFOEX& info);

/// Reads one candidate of a recognition: "Similarity" and "Range" (low 8 bits), "Channel", "Time" by JsonTime::parse,
/// "Address" (any value, cut to 260 bytes, terminator included), "IsHit", "Person" by ParsePersonInfo and "SceneImage"
/// by ParseImageInfo.
VK_API void ParseCandidate(Json::Value candidate, tagCANDIDATE_INFO& info);

/// The same with a person of the second generation, and the path of "SceneImage" once more, cut to 256 bytes,
/// terminator included.
VK_API void ParseCandidate(Json::Value candidate, tagCANDIDATE_INFOEX& info);

/// Writes the keyword of a face database's type, replacing what the node held: 1 HistoryDB, 2 BlackListDB,
/// 3 WhiteListDB, 4 AlarmDB.
/// @return true, or false when the type has none (then the node is left unchanged)
VK_API bool PacketFaceDBType(Json::Value& node, int type);

/// Reads the type of a face database from its keyword, in upper or lower case.
/// @return true, or false when there is no such keyword (then type is left as the caller set it)
VK_API bool ParseFaceDBType(const Json::Value& node, int& type);

/// Reads "EventLongID", cut to 52 bytes, terminator included; what is no text empties the field.
/// @return true
VK_API bool ParseExtensionInfo(const Json::Value& event, tagNET_EXTENSION_INFO& info);

/// Reads "AdditionalCode", cut to 36 bytes, terminator included; what is no text empties the field.
/// @return true
VK_API bool ParseHumanTraitExtensionInfo(const Json::Value& event, tagNET_HUMANTRAIT_EXTENSION_INFO& info);

// ======================================================================================================================
// 6. Device status and diagnostics
// ======================================================================================================================

// ======================================================================================================================
// 7. Device configuration
// ======================================================================================================================

// ======================================================================================================================
// Ownership of heap texts
// ======================================================================================================================

namespace jsonparser {

/// Releases the heap texts of the record of that layout at record, and of the records in it, and sets their pointers to
/// null. Buffers of the caller are not touched. The record may be packed.
VK_API void ReleaseTexts(const vkrecords::RecordLayout& layout, void* record);

/// The same for one record.
template <class Record>
void ReleaseTexts(Record& record) {
    ReleaseTexts(vkrecords::kLayout<Record>, &record);
}

/// A record, cleared to zero, that releases its heap texts when it goes. Release them by releaseTexts() before filling
/// it again.
template <class Record>
class Owned {
    static_assert(std::is_trivially_copyable_v<Record>);

  public:
    Owned() { std::memset(static_cast<void*>(&record_), 0, sizeof record_); }
    ~Owned() { releaseTexts(); }
    Owned(const Owned&) = delete;
    Owned& operator=(const Owned&) = delete;

    Record& operator*() { return record_; }
    const Record& operator*() const { return record_; }
    Record* operator->() { return &record_; }
    const Record* operator->() const { return &record_; }
    Record* get() { return &record_; }
    const Record* get() const { return &record_; }

    void releaseTexts() { ReleaseTexts(record_); }

  private:
    Record record_;
};

}  // namespace jsonparser

#endif
