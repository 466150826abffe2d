// JsonParser: converts between the JSON message bodies of network video devices and the fixed-layout records of the
// client library.
//
// What holds for every function here:
// - Nothing throws and nothing outside the record is written, whatever JSON a reader is given. (What jsoncpp itself
//   throws when memory runs out may pass.)
// - A member is present when it is neither missing nor null. Reading a missing member gives null.
// - Numbers: null, texts, arrays and objects read as 0; integers keep their low bits; reals are cut toward zero, beyond
//   the range to its nearest limit, NaN to 0. For fields narrower than 32 bits that range is one of 32 bits, of which
//   they keep the low bits: 300.5 gives a byte of 44.
// - Text in messages is UTF-8, text in records is in the local encoding of the calling thread's locale.
// - Writers replace a node that is neither null nor of the container type they write; a container keeps the members and
//   elements that are not written.
// - Readers that take a place in a message's text (see message_text.h) first check the message. One that is not
//   accepted leaves the record as the caller set it; they return their failure value then, and 0 or false where they
//   have none. They insert nothing.
// - Functions keep no state and may run on any number of threads at once on separate records and nodes.
#ifndef VKPROTOCOLSTACK_JSONPARSER_H
#define VKPROTOCOLSTACK_JSONPARSER_H

#include <json/value.h>

#include <cstddef>
#include <cstring>
#include <string>
#include <type_traits>
#include <utility>

#include "vkprotocolstack/message_text.h"
#include "vkprotocolstack/support/export.h"
#include "vkprotocolstack/support/support.h"
#include "vkprotocolstack/version.h"
#include "vkrecords/fields.h"
#include "vkrecords/vkrecords.h"

#if JSONCPP_VERSION_HEXA < 0x01090500
#error "JsonParser needs jsoncpp 1.9.5 or later"
#endif

// ======================================================================================================================
// 1. Foundation: text fields, geometry, colour, range, array depth
// ======================================================================================================================

/// Reads a UTF-8 text into a field of local text. Null leaves the field as the caller set it; so does a negative limit,
/// and memory that cannot be had. At most limit bytes of the text (not of the result) are taken, up to the first NUL;
/// the converted text and its terminator are written whole. The local form is never longer than the UTF-8 it comes
/// from, so destination must have room for limit + 1 bytes.
VK_API void parseUtf8JasonToAssic(const Json::Value& value, char* destination, int limit);
/// The same of a place in a message text.
VK_API void parseUtf8JasonToAssic(const jsonparser::MessagePlace& place, char* destination, int limit);

/// Writes length bytes of local text, or those before its first NUL, as a UTF-8 text, replacing what value held. The
/// UTF-8 form is cut to 2 x length + 1 bytes. A negative length, or memory that cannot be had, leaves value unchanged.
VK_API void packetAssicToUtf8Jason(Json::Value& value, char* text, int length);

/// Reads [left, top, right, bottom]. Cleared first; stays cleared when the node is no array of exactly 4 elements.
/// @return 1, or 0 when it stayed cleared
VK_API int GetJsonRect(const Json::Value& value, VK_RECT& rect);
/// The same of a place in a message text.
VK_API int GetJsonRect(const jsonparser::MessagePlace& place, VK_RECT& rect);

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
    /// The same of a place in a message text.
    template <class Rect>
    static bool parse(const jsonparser::MessagePlace& place, Rect& rect);
};

/// Reads [x, y], low 16 bits of each. A node that is no array of exactly 2 elements leaves the record as the caller set
/// it.
/// @return 1, or 0 when nothing was written
VK_API int GetJsonPoint(const Json::Value& value, VK_POINT& point);
/// The same of a place in a message text.
VK_API int GetJsonPoint(const jsonparser::MessagePlace& place, VK_POINT& point);

/// Writes [x, y]; the node has exactly 2 elements afterwards.
/// @return 1
VK_API int SetJsonPoint(Json::Value& value, const VK_POINT& point);

/// Reads four components, low 8 bits of each: element i becomes bits 8i to 8i + 7 of colour. A node that is no array of
/// exactly 4 elements leaves colour as the caller set it.
/// @return 1, or 0 when nothing was written
VK_API int GetJsonColor(const Json::Value& value, unsigned int& color);
/// The same of a place in a message text.
VK_API int GetJsonColor(const jsonparser::MessagePlace& place, unsigned int& color);

/// Writes bits 8i to 8i + 7 of color to element i, for i from 0 to 3; further elements stay.
/// @return 1
VK_API int SetJsonColor(Json::Value& value, unsigned int color);

/// Reads {"Max", "Min", "Default", "Step"}. Cleared first; missing "Max" and "Min" read as 0; "Default" and "Step" set
/// their flags when present.
/// @return 1
VK_API int deserialize_range(const Json::Value& value, tagRANGE& range);
/// The same of a place in a message text.
VK_API int deserialize_range(const jsonparser::MessagePlace& place, tagRANGE& range);

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

    /// @return the depth, or -1 when shift is negative or there is no memory to keep track of the arrays
    long long operator()(const Json::Value& value) const;
    /// The same of a place in a message text.
    long long operator()(const jsonparser::MessagePlace& place) const;

    /// The same, with the shift count taken modulo 32. It needs no stack that grows with the depth of value.
    long long do_recursion(const Json::Value& value) const;
    /// The same of a place in a message text.
    long long do_recursion(const jsonparser::MessagePlace& place) const;

    int nShift;  ///< as given
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
    /// The same of a place in a message text.
    template <class Time>
    static bool parse(const jsonparser::MessagePlace& place, Time& time);

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
    /// The same of a place in a message text.
    template <class Time>
    static bool parse(const jsonparser::MessagePlace& place, Time& time);
};

/// JsonTimeEx::parse. Leaves dwUTC and dwReserved as the caller set them.
VK_API bool GetJsonTime(const Json::Value& value, tagNET_TIME_EX& time);
/// The same of a place in a message text.
VK_API bool GetJsonTime(const jsonparser::MessagePlace& place, tagNET_TIME_EX& time);
/// JsonTimeEx::parse.
VK_API bool GetJsonTime(const Json::Value& value, tagCFG_NET_TIME_EX& time);
/// The same of a place in a message text.
VK_API bool GetJsonTime(const jsonparser::MessagePlace& place, tagCFG_NET_TIME_EX& time);
/// Reads "%02d:%02d:%02d".
/// @return whether all 3 fields converted
VK_API bool GetJsonTime(const Json::Value& value, tagCFG_TIME& time);
/// The same of a place in a message text.
VK_API bool GetJsonTime(const jsonparser::MessagePlace& place, tagCFG_TIME& time);
/// Reads "%04d%02d%02d %02d%02d%02d", split by digit counts; digits only, so a component with a sign does not convert.
/// @return whether all 6 fields converted
VK_API bool GetJsonTimeB(const Json::Value& value, tagNET_TIME& time);
/// The same of a place in a message text.
VK_API bool GetJsonTimeB(const jsonparser::MessagePlace& place, tagNET_TIME& time);
/// Reads "%04u-%02u-%02u" into year, month and day; hour, minute and second are left as the caller set them.
/// @return whether all 3 fields converted
VK_API bool GetJsonDate(const Json::Value& value, tagNET_TIME& time);
/// The same of a place in a message text.
VK_API bool GetJsonDate(const jsonparser::MessagePlace& place, tagNET_TIME& time);
/// Reads "%04d-%02d-%02d %02d:%02d:%02d".
/// @return whether all 6 fields converted
VK_API bool GetTimeStructFromStr(const Json::Value& value, tagNET_TIME& time);
/// The same of a place in a message text.
VK_API bool GetTimeStructFromStr(const jsonparser::MessagePlace& place, tagNET_TIME& time);

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

// Readers of time segments scan texts like the readers of times: "%d %d:%d:%d-%d:%d:%d" into the flag or mask, the
// beginning and the end. Writers print "%d %02d:%02d:%02d-%02d:%02d:%02d".

/// Reads an array of rows of time segments into sections, row after row, maxSegments to a row. rowsFound, which may be
/// null, becomes the number of rows, at most maxRows, before anything is read. Further rows, and segments of a row
/// beyond maxSegments, are ignored. A row that is no array, or empty, and missing segments are left as the caller set
/// them. Ends at the first segment that does not convert. Instantiated for tagVK_TSECT and tagCFG_TIME_SECTION.
/// @return whether all segments converted; false with everything left as the caller set it when the node is no array or
/// has no row, sections is null, or maxRows or maxSegments is below 1
template <class Section>
VK_API bool GetJsonTimeSchedule(const Json::Value& value, Section* sections, int maxRows, int maxSegments,
                                int* rowsFound);
/// The same of a place in a message text.
template <class Section>
VK_API bool GetJsonTimeSchedule(const jsonparser::MessagePlace& place, Section* sections, int maxRows, int maxSegments,
                                int* rowsFound);

/// Reads an array of 7 rows, the days of the week, and an eighth for the holiday, of up to 6 segments each. Cleared
/// first. Further rows and segments are ignored; a row that is no array stays cleared. Ends at the first segment that
/// does not convert.
/// @return 1, or 0 when there are fewer than 7 rows or a segment did not convert; what was read until then is kept,
/// and bEnableHoliday is false
VK_API int GetJsonTimeSchedule(const Json::Value& value, tagNET_CFG_TIME_SCHEDULE& schedule);
/// The same of a place in a message text.
VK_API int GetJsonTimeSchedule(const jsonparser::MessagePlace& place, tagNET_CFG_TIME_SCHEDULE& schedule);
/// The same with masks.
VK_API int GetJsonTimeSchedule(const Json::Value& value, tagCFG_TIME_SCHEDULE& schedule);
/// The same of a place in a message text.
VK_API int GetJsonTimeSchedule(const jsonparser::MessagePlace& place, tagCFG_TIME_SCHEDULE& schedule);

/// Writes rows of time segments, all of them, as an array of arrays; further rows and elements stay. Instantiated for
/// tagVK_TSECT and tagCFG_TIME_SECTION.
/// @return true, or false with the node unchanged when sections is null, or rows or segments is below 1
template <class Section>
VK_API bool SetJsonTimeSchedule(Json::Value& value, const Section* sections, int rows, int segments);

/// Writes 7 rows of 6 segments, and the eighth when bEnableHoliday is set; further rows and elements stay.
/// @return true
VK_API bool SetJsonTimeSchedule(Json::Value& value, const tagNET_CFG_TIME_SCHEDULE& schedule);
/// The same with masks.
VK_API bool SetJsonTimeSchedule(Json::Value& value, const tagCFG_TIME_SCHEDULE& schedule);

/// Reads an array of time segments, at most count. A segment that does not convert, or is missing, does not end the
/// reading.
/// @return 1, or 0 when sections is null or count below 1
VK_API int GetJsonTimeGroup(const Json::Value& value, tagCFG_TIME_SECTION* sections, int count);
/// The same of a place in a message text.
VK_API int GetJsonTimeGroup(const jsonparser::MessagePlace& place, tagCFG_TIME_SECTION* sections, int count);
/// The same, but count elements are looked up, however many there are.
VK_API int GetJsonTimeGroup(const Json::Value& value, tagNET_TIME_SECTION* sections, int count);
/// The same of a place in a message text.
VK_API int GetJsonTimeGroup(const jsonparser::MessagePlace& place, tagNET_TIME_SECTION* sections, int count);

/// Writes count time segments as an array; further elements stay. The mask is printed as a signed number.
/// @return 1, or 0 with the node unchanged when sections is null or count below 1
VK_API int SetJsonTimeGroup(Json::Value& value, const tagCFG_TIME_SECTION* sections, int count);
/// The same, but of the mask only the low 8 bits are written, unlike what the reader takes.
VK_API int SetJsonTimeGroup(Json::Value& value, const tagNET_TIME_SECTION* sections, int count);

/// Holds the reader and writer of single time segments. Instantiated for tagVK_TSECT.
class TimeSection {
  public:
    /// Reads "%d %02d:%02d:%02d-%02d:%02d:%02d": at most two digits to a number of the times, unlike in a schedule.
    /// @return whether all 7 fields converted
    template <class Section>
    static bool parse(const Json::Value& value, Section& section);
    /// The same of a place in a message text.
    template <class Section>
    static bool parse(const jsonparser::MessagePlace& place, Section& section);

    /// @return true
    template <class Section>
    static bool pack(Json::Value& value, const Section& section);
};

/// TimeSection::parse of a NUL-terminated text. A null text does not convert. The record comes first, unlike in the
/// other readers.
VK_API bool getTimeScheduleFromStr(tagVK_TSECT& section, const char* text);

// ======================================================================================================================
// 3. Traffic and vehicle events
// ======================================================================================================================

// Readers of words ignore the case of ASCII letters. A node that is no text is read as its text: that of a number or a
// bool is as jsoncpp writes it, that of null, an array or an object is empty.

/// Reads the colour of a plate: 0 Other, 1 Blue, 2 Yellow, 3 White, 4 Black, 5 YellowbottomBlackText, 6
/// BluebottomWhiteText, 7 BlackBottomWhiteText, 8 ShadowGreen, 9 YellowGreen. An unknown word leaves type as the caller
/// set it.
VK_API void GetJsonPlateColorType(const Json::Value& value, int& type);
/// The same of a place in a message text.
VK_API void GetJsonPlateColorType(const jsonparser::MessagePlace& place, int& type);

/// Reads the kind of a vehicle, 0 Unknown to 36 Passerby. An unknown word leaves type as the caller set it.
VK_API void GetJsonVehicleType(const Json::Value& value, int& type);
/// The same of a place in a message text.
VK_API void GetJsonVehicleType(const jsonparser::MessagePlace& place, int& type);

/// Reads the colour of a vehicle's body: 0 Other, 1 White, 2 Black, 3 Red, 4 Yellow, 5 Gray, 6 Blue, 7 Green, 8 Pink, 9
/// Purple, 10 Brown. An unknown word leaves type as the caller set it.
VK_API void GetJsonVehicleColorType(const Json::Value& value, int& type);
/// The same of a place in a message text.
VK_API void GetJsonVehicleColorType(const jsonparser::MessagePlace& place, int& type);

/// Reads the kind of a plate, 0 Other to 24 MixedNewEnergyLargeCar. 18 stands for Other too and is never read. An
/// unknown word leaves type as the caller set it.
VK_API void GetJsonPlateType(const Json::Value& value, int& type);
/// The same of a place in a message text.
VK_API void GetJsonPlateType(const jsonparser::MessagePlace& place, int& type);

/// Reads "DataType" of object, cut to 64 bytes, terminator included. 0 when it is missing, no text or an unknown word.
VK_API void ParseVehicleDataType(const Json::Value& object, tagEM_VEHICLE_DATA_TYPE& type);
/// The same of a place in a message text.
VK_API void ParseVehicleDataType(const jsonparser::MessagePlace& object, tagEM_VEHICLE_DATA_TYPE& type);

/// Reads the state of a strobe light: 1 Close, 2 Auto, 3 Manual, 0 an unknown word.
/// @return true
VK_API bool ParseStrobeState(const Json::Value& value, unsigned char& state);
/// The same of a place in a message text.
VK_API bool ParseStrobeState(const jsonparser::MessagePlace& place, unsigned char& state);

/// Reads the state of a seat belt: 1 WithSafeBelt, 2 WithoutSafeBelt, 0 an unknown word.
/// @return true
VK_API bool ParseSeatBelt(const Json::Value& value, unsigned char& state);
/// The same of a place in a message text.
VK_API bool ParseSeatBelt(const jsonparser::MessagePlace& place, unsigned char& state);

/// The state of a seat belt. Unlike in ParseSeatBelt, case counts.
/// @return 1 WithSafeBelt, 2 WithoutSafeBelt, 0 an unknown word
VK_API int ParseSafeBeltStatue(std::string word);

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
/// The same of a place in a message text.
VK_API int ParseStrtoTrafficCar(const jsonparser::MessagePlace& place, tagDEV_EVENT_TRAFFIC_TRAFFICCAR_INFO* info);

/// Reads the weighbridge data of a junction event: "Rough", "Tare" and "Net" of the member "WeighInfo". Without
/// "WeighInfo" the record is left as the caller set it; missing weights read as 0.
/// @return true
VK_API bool ParseCustomInfo(const Json::Value& event, tagEVENT_JUNCTION_CUSTOM_INFO& info);
/// The same of a place in a message text.
VK_API bool ParseCustomInfo(const jsonparser::MessagePlace& event, tagEVENT_JUNCTION_CUSTOM_INFO& info);

/// Reads "Category" of a vehicle event's vehicle, cut to 64 bytes, terminator included. Without it the record is left
/// as the caller set it. info must not be null.
/// @return true without "Category", else whether it is a text
VK_API bool ParseStrtoVehicle(const Json::Value& vehicle, tagEVENT_VEHICLE_INFO* info);
/// The same of a place in a message text.
VK_API bool ParseStrtoVehicle(const jsonparser::MessagePlace& vehicle, tagEVENT_VEHICLE_INFO* info);

/// Reads the flow statistics of one lane. A missing member leaves its field as the caller set it.
/// "UTC" replaces the whole of stuTime, broken down as UTC; "UTCMS" its milliseconds only.
/// Texts: UTF-8 members are taken to as many bytes as their field has, so a text that fills its field is terminated in
/// the byte behind it, unless a later member overwrites that byte. A "MachineName" of 256 bytes or more empties the
/// first driving direction. A "MachineAddress" of 256 bytes or more empties the machine name when "MachineName" is
/// missing, a second direction of 32 bytes or more the third one, a third one of 32 bytes or more zeroes the low 8 bits
/// of nLane when "Lane" is missing; else the member that follows overwrites the terminator.
/// "DrivingDirection": the first direction is copied as it stands, cut to 32 bytes, terminator included, and is empty
/// when the member has no first element; a missing second or third leaves its text as the caller set it.
/// @return 0, or -1 when info is null
VK_API int ParseTrafficStatInfo(const Json::Value& node, tagVK_TRAFFICFLOWSTAT* info);
/// The same of a place in a message text.
VK_API int ParseTrafficStatInfo(const jsonparser::MessagePlace& place, tagVK_TRAFFICFLOWSTAT* info);

/// The same, and "BackOfQueue", "State" and "Rank": 1 Rapid, 2 Trunk, 3 SubTrunk, 4 Branch. The word must be exact;
/// emRank is always written, 0 when "Rank" is missing or an unknown word.
/// @return 0, or -1 when info is null
VK_API int ParseTrafficStatInfoEx(const Json::Value& node, tagNET_TRAFFICFLOWSTATINFO* info);
/// The same of a place in a message text.
VK_API int ParseTrafficStatInfoEx(const jsonparser::MessagePlace& place, tagNET_TRAFFICFLOWSTATINFO* info);

// ======================================================================================================================
// 4. Video analytics objects
// ======================================================================================================================

/// Reads a detected object. Cleared first; what is missing or of another shape stays 0.
/// stuBoundingBox, stuCenter and the points of the outline take the first elements of longer arrays and stay 0 where an
/// array is too short; stuOriginalBoundingBox and stuSignBoundingBox need exactly 4 elements. Coordinates of points are
/// the low 16 bits. "Contour" gives its first 16 points; one that is too short counts too, as (0, 0).
/// "MainColor": element 0 in the highest byte, the reverse of GetJsonColor; components are not cut to 8 bits.
/// "UTCMS" of any of the three time stamps goes to stuCurrentTime: the last of the current, the start and the end
/// time's that was sent. File offsets are cut toward zero, beyond 64 bits to the nearest limit. Texts: members are
/// taken to as many bytes as their field has, "Category" to 64, and a text that fills its field is terminated in the
/// byte behind it, unless a later member overwrites that byte: a "Text" of 128 bytes or more empties the category. A
/// category of 62 bytes or more has no terminator of its own, since "CarLogoIndex" is stored behind it, missing reads
/// as 0. pszFilePath is a text from new char[], owned by the record; null when "FilePath" is no text or the memory is
/// missing. The one that the record held before the call is lost: release it first.
/// @return 0, or 1 when pObject is null (then nothing is read)
VK_API int ParseStrtoObject(const Json::Value& root, VK_MSG_OBJECT* pObject);
/// The same of a place in a message text.
VK_API int ParseStrtoObject(const jsonparser::MessagePlace& root, VK_MSG_OBJECT* pObject);

/// The same of the second generation, which knows nothing of "CarLogoIndex", "SubBrand" and "BrandYear": a category of
/// 62 bytes or more goes on in the reserved bytes behind it, terminated there. dwSize is 752. "LowerBodyColor" is read
/// like "MainColor"; "Stature" of "Person" missing reads as 0, "Direction" must be the keyword in upper and lower case.
/// @return 0, or 1 when pObject is null (then nothing is read)
VK_API int ParseStrtoObject(const Json::Value& root, tagVK_MSG_OBJECT_EX* pObject);
/// The same of a place in a message text.
VK_API int ParseStrtoObject(const jsonparser::MessagePlace& root, tagVK_MSG_OBJECT_EX* pObject);

/// The same of the third generation, with "SynopsisExtra": missing "Speed" and "Size" read as 0; a "Direction" of
/// exactly 2 elements sets bSynopsisDirection, whether or not they are points of exactly 2 elements. dwSize is 2820.
/// @return 1, or 0 when pObject is null (then nothing is read): the reverse of the other two generations
VK_API int ParseStrtoObject(const Json::Value& root, tagVK_MSG_OBJECT_EX2* pObject);
/// The same of a place in a message text.
VK_API int ParseStrtoObject(const jsonparser::MessagePlace& root, tagVK_MSG_OBJECT_EX2* pObject);

/// The code of an object's action, upper or lower case.
/// @return 1 to 8, or 0 when text is none or null
VK_API int ActionToInt(char* text);

/// Reads the similarity to the reference colours "Red", "Yellow", "Green", "Cyan", "Blue", "Purple", "Black" and
/// "White", low 8 bits of each, into the first count bytes of out, at most 8. Bytes of missing colours are left as the
/// caller set them. A count of 0 or less, or a null out, writes nothing.
/// @return 0; it has no meaning
VK_API int ParseColorsimilar(const Json::Value& node, unsigned char* out, int count);
/// The same of a place in a message text.
VK_API int ParseColorsimilar(const jsonparser::MessagePlace& place, unsigned char* out, int count);

/// Reads a non-motor vehicle. Nothing is cleared first: hand in a cleared record, not null. Numbers and keywords are
/// written even when missing, which reads as 0; an unknown keyword is 0 too, and the case of letters counts. What else
/// is missing is left as the caller set it: boxes and "MainColor" of fewer than 4 elements, the three pictures with
/// bPicEnable, riders beyond those in the list. The first 16 riders are read; bFaceImage and bFaceAttributes say of
/// each whether the message has them. In a picture that is there, missing numbers read as 0, and szFilePath is cut to
/// 260 bytes, terminator included, and empty when "FilePath" is no text.
VK_API void ParseObjectNonMotor(const Json::Value& root, tagVA_OBJECT_NONMOTOR* pObject);
/// The same of a place in a message text.
VK_API void ParseObjectNonMotor(const jsonparser::MessagePlace& root, tagVA_OBJECT_NONMOTOR* pObject);

/// Reads the attributes of a face. Every field is written on every call: what is missing reads as 0, unknown keywords
/// too. "Eye", "Mouth", "Mask", "Beard" and "Nation" are stored plus 1, so that 0 means not sent; "Glass" is not. The
/// box is read as by GetJsonRect.
/// @return whether "BoundingBox" is an array of exactly 4 elements
VK_API bool ParseFaceAttributes(const Json::Value& node, tagNET_FACE_ATTRIBUTE_EX& stuFace);
/// The same of a place in a message text.
VK_API bool ParseFaceAttributes(const jsonparser::MessagePlace& place, tagNET_FACE_ATTRIBUTE_EX& stuFace);

/// Reads a bullet hole. Cleared first; what is missing stays 0. The box takes the first 4 elements of an array, the
/// centre the low 16 bits of the first 2; too short an array leaves them 0. "ObjectType" is taken to 128 bytes.
/// @return 1, or 0 when pInfo is null (then nothing is read)
VK_API int ParseBulletHolesInfo(const Json::Value& node, tagNET_BULLET_HOLES_INFO* pInfo);
/// The same of a place in a message text.
VK_API int ParseBulletHolesInfo(const jsonparser::MessagePlace& place, tagNET_BULLET_HOLES_INFO* pInfo);

// ======================================================================================================================
// 5. Face recognition
// ======================================================================================================================
//
// Persons, candidates and pictures are not cleared by their readers: what is absent, or not of the type that a contract
// asks for, leaves its field as the caller set it, unless stated otherwise. Their readers take nodes by value; the
// caller's node is not changed.

/// Reads one picture: "Offset", "Length" (bytes), "Width", "Height" (low 16 bits), "FilePath" when it is a text,
/// "IsDetected" when it is a bool. The numbers are read as signed: a real stops at 2147483647.
/// pszFilePath is a text from new char[], owned by the record; null when the memory cannot be had. One that the record
/// held before the call is lost: release it first.
VK_API void ParseImageInfo(Json::Value image, VK_PIC_INFO& info);
/// The same of a place in a message text.
VK_API void ParseImageInfo(const jsonparser::MessagePlace& image, VK_PIC_INFO& info);

/// The same for the picture record with a path of bounded length: "FilePath" is any value, cut to 64 bytes, terminator
/// included.
VK_API void ParseImageInfo(Json::Value image, VK_PIC_INFO_EX3& info);
/// The same of a place in a message text.
VK_API void ParseImageInfo(const jsonparser::MessagePlace& image, VK_PIC_INFO_EX3& info);

/// Reads one person of the face database. "Name", "Province", "City", "ID" and "Country" are any value, "UID" is a
/// text; each is cut to its field, terminator included. "Important" and "IsCustomType": low 8 bits.
/// Written even when missing, as 0: byGlasses, byAge (low 8 bits), emEmotion (also when the keyword is unknown; its
/// case counts, unlike that of the others). An unknown "Sex", "CertificateType" or "Type" leaves its field as the
/// caller set it. "Birthday" is scanned by "%04d-%02d-%02d"; what does not convert becomes 0. Of "Image" the first 48
/// elements are read, each by ParseImageInfo; wFacePicNum counts them. Their paths are heap texts owned by the record:
/// release those that it held before the call first. "Name" goes to szPersonNameEx. szPersonName receives the text of
/// "Type" (of any value, empty when missing, cut to 16 bytes) when the message has "IsCustomType" with low 8 bits of 1;
/// "Type" is tried as a keyword then too. "Comment", "GroupID", "GroupName" and "FeatureValue", when they are texts, go
/// to the caller's buffers, cut to the lengths that stand beside them, terminator included. The buffer's first bytes,
/// as many as the text and a terminator have but at most its length, are zeroed first. A null buffer is skipped; one of
/// length 0 is not written.
VK_API void ParsePersonInfo(Json::Value person, tagFACERECOGNITION_PERSON_INFO& info);
/// The same of a place in a message text.
VK_API void ParsePersonInfo(const jsonparser::MessagePlace& person, tagFACERECOGNITION_PERSON_INFO& info);

/// The same for the second generation. "Name" goes to szPersonName, the custom type to szCustomType; "FeatureValue" is
/// not read. "Comment", "GroupID", "GroupName" and "HomeAddress", when they are texts, are cut to their fields,
/// terminator included.
/// An unknown "GlassesType" reads as 0 (its case counts); "Race", "Eye", "Mouth", "Mask" and "Beard" are stored plus
/// one, wrapping at the limit. nAttractive is -1 when missing. Of "CustomPersonInfo" the first 4 elements are read,
/// each itself the text, cut to 64 bytes, terminator included; nCustomPersonInfoNum counts them. bAgeEnable, nAgeRange,
/// nEmotionValidNum and emEmotions are for PacketPersonInfo only: left as the caller set them.
VK_API void ParsePersonInfo(Json::Value person, tagFACERECOGNITION_PERSON_INFOEX& info);
/// The same of a place in a message text.
VK_API void ParsePersonInfo(const jsonparser::MessagePlace& person, tagFACERECOGNITION_PERSON_INFOEX& info);

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
/// The same of a place in a message text.
VK_API void ParseCandidate(const jsonparser::MessagePlace& candidate, tagCANDIDATE_INFO& info);

/// The same with a person of the second generation, and the path of "SceneImage" once more, cut to 256 bytes,
/// terminator included.
VK_API void ParseCandidate(Json::Value candidate, tagCANDIDATE_INFOEX& info);
/// The same of a place in a message text.
VK_API void ParseCandidate(const jsonparser::MessagePlace& candidate, tagCANDIDATE_INFOEX& info);

/// Writes the keyword of a face database's type, replacing what the node held: 1 HistoryDB, 2 BlackListDB,
/// 3 WhiteListDB, 4 AlarmDB.
/// @return true, or false when the type has none (then the node is left unchanged)
VK_API bool PacketFaceDBType(Json::Value& node, int type);

/// Reads the type of a face database from its keyword, in upper or lower case.
/// @return true, or false when there is no such keyword (then type is left as the caller set it)
VK_API bool ParseFaceDBType(const Json::Value& node, int& type);
/// The same of a place in a message text.
VK_API bool ParseFaceDBType(const jsonparser::MessagePlace& place, int& type);

/// Reads "EventLongID", cut to 52 bytes, terminator included; what is no text empties the field.
/// @return true
VK_API bool ParseExtensionInfo(const Json::Value& event, tagNET_EXTENSION_INFO& info);
/// The same of a place in a message text.
VK_API bool ParseExtensionInfo(const jsonparser::MessagePlace& event, tagNET_EXTENSION_INFO& info);

/// Reads "AdditionalCode", cut to 36 bytes, terminator included; what is no text empties the field.
/// @return true
VK_API bool ParseHumanTraitExtensionInfo(const Json::Value& event, tagNET_HUMANTRAIT_EXTENSION_INFO& info);
/// The same of a place in a message text.
VK_API bool ParseHumanTraitExtensionInfo(const jsonparser::MessagePlace& event, tagNET_HUMANTRAIT_EXTENSION_INFO& info);

// ======================================================================================================================
// 6. Device status and diagnostics
// ======================================================================================================================

/// The code of a storage fault's keyword, compared exactly: 1 "Partition", 2 "InitializeFS", 3 "ReadData",
/// 4 "WriteData", 5 "RaidFailed", 6 "RaidDegraded", 7 "ISCSIFailed".
/// @return the code, or 0 for any other text
VK_API int ParseStorageError(const std::string& keyword);

/// The code of a disk array fault's keyword, compared exactly: 1 "RaidFailed", 2 "RaidDegraded". The same keywords have
/// other codes as storage faults.
/// @return the code, or 0 for any other text
VK_API int ParseRaidError(const std::string& keyword);

/// Reads "code" of the member "error" of a reply, a device error code, as the library's error code. The device code is
/// matched by its 32-bit pattern, so 4026990592 and -267976704 are the same; a bool or a real number reads as an int.
/// @return the library code, 0 for the device code 0; 0x80000015 when "code" is missing, a text, an array, an object,
///         an integer that does not fit 32 bits, or no known device code
VK_API unsigned int ParseErrorCode(const Json::Value& reply);
/// The same of a place in a message text.
VK_API unsigned int ParseErrorCode(const jsonparser::MessagePlace& reply);

/// Maps a device error code to the library's. An unknown one leaves libraryCode as the caller set it.
/// @return whether the device code is known
VK_API bool ParseErrorCode(unsigned int deviceCode, unsigned int& libraryCode);

/// Reads an array of log-type names as a list of codes without repeats, in the order of first occurrence. A name has
/// the code of the keyword that it contains, upper and lower case told apart; of several the first of 8 "Playback",
/// 5 "Record", 7 "Log", 9 "RemoteDevice", 3 "Storage", 4 "Event", 6 "Account", 1 "System", 2 "Config". A name without a
/// keyword is left out. No more than capacity elements are looked at, duplicates and unknown names included; a negative
/// capacity looks at all. A null types or a null node leaves count as the caller set it; any other node that is no
/// array sets it to 0.
/// types: at least capacity elements, with a negative capacity one for each name; those from count on are left as the
/// caller set them.
VK_API void GetJsonLogType(const Json::Value& names, int* types, int capacity, int& count);
/// The same of a place in a message text.
VK_API void GetJsonLogType(const jsonparser::MessagePlace& names, int* types, int capacity, int& count);

/// The coordinate [degrees, minutes, seconds] in millionths of a degree: degrees and minutes are unsigned integers,
/// seconds a real number. Every step is computed in single precision and the result cut toward zero, so that near 120
/// degrees it moves in steps of 8; below 0 it is 0, beyond the range the upper limit.
/// @return the coordinate, or 0 when the node has fewer than 3 elements
VK_API unsigned int TransLongitudetoUInt(const Json::Value& coordinate);
/// The same of a place in a message text.
VK_API unsigned int TransLongitudetoUInt(const jsonparser::MessagePlace& coordinate);

/// The same in double precision, not rounded.
VK_API double TransLongitudetoDouble(const Json::Value& coordinate);
/// The same of a place in a message text.
VK_API double TransLongitudetoDouble(const jsonparser::MessagePlace& coordinate);

/// Writes plain decimal degrees, not the millionths that the readers give, as [degrees, minutes, seconds]: degrees and
/// minutes as integers, cut toward zero, seconds as a real number, cut to hundredths. Each is cut beyond the range of
/// 32 bits to the nearest limit, NaN to 0. Further elements stay.
VK_API void TransLongitudeToJson(Json::Value& coordinate, double degrees);

/// Reads a position report. All members are read without a test: missing reads as 0. Coordinates as
/// TransLongitudetoUInt.
VK_API void ParseGPSInfo(const Json::Value& position, tagNET_GPS_INFO& info);
/// The same of a place in a message text.
VK_API void ParseGPSInfo(const jsonparser::MessagePlace& position, tagNET_GPS_INFO& info);

/// Reads the status of a positioning receiver. Members that are missing are left as the caller set them, except these:
/// "AntennasStatus" and "PositioningResult" are then 2, "SNR" is 0, "Source" is 0, as for any text but
/// "InertialNavigation". Coordinates as TransLongitudetoDouble; low 16 bits of "SatelliteCount", low 8 bits of "SNR".
/// "Time" counts only as an array of at least 6 elements. "AlarmPoints" are cut to 128, each translated by
/// TranslateAlarmType; elements of nAlarmTypes from nAlarmCount on are left as the caller set them.
/// info must not be null.
VK_API void ParseGPSStatusInfo(Json::Value status, _NET_GPS_STATUS_INFO* info);
/// The same of a place in a message text.
VK_API void ParseGPSStatusInfo(const jsonparser::MessagePlace& status, _NET_GPS_STATUS_INFO* info);

/// Reads the event that caused another: "SrcEvent", cut to 32 bytes, terminator included, "SrcTime" as
/// JsonTimeEx::parse, "SrcChannel". Members that are missing are left as the caller set them. info must not be null.
VK_API void ParseSrcInfo(const Json::Value& source, tagDEV_SRC_INFO* info);
/// The same of a place in a message text.
VK_API void ParseSrcInfo(const jsonparser::MessagePlace& source, tagDEV_SRC_INFO* info);

/// Reads one S.M.A.R.T. attribute of a hard disk; "Name" is cut to 64 bytes, "Raw" to 32, terminators included. Members
/// that are missing are left as the caller set them, except nSync, which is -1 when "Sync" is missing or negative.
/// info must not be null.
VK_API void ParseSyncStateInfo(const Json::Value& attribute, tagNET_HDDSMART_INFO* info);
/// The same of a place in a message text.
VK_API void ParseSyncStateInfo(const jsonparser::MessagePlace& attribute, tagNET_HDDSMART_INFO* info);

/// The code of a video resolution's name or size, upper or lower case: for example 0 for "D1", "704x576", "704 * 576".
/// @return 0 to 38, or 255 when text is null or anything else
VK_API int ParseResolutionString(const char* text);

// ======================================================================================================================
// 7. Device configuration
// ======================================================================================================================

/// Reads [baud rate, data bits, parity, stop bits] into indexes of the tables of settings; further elements are
/// ignored. Cleared first; what is in no table gives 0. Parity and stop bits are texts, compared exactly.
/// @return 1, or 0 with the record cleared when the node is no array of at least 4 elements
VK_API int ParseCommAttr(const Json::Value& value, VK_COMM_PROP& port);
/// The same of a place in a message text.
VK_API int ParseCommAttr(const jsonparser::MessagePlace& place, VK_COMM_PROP& port);
/// The same for the configuration layer.
VK_API int ParseCommAttr(const Json::Value& value, tagCFG_COMM_PROP& port);
/// The same of a place in a message text.
VK_API int ParseCommAttr(const jsonparser::MessagePlace& place, tagCFG_COMM_PROP& port);

/// Writes [baud rate, data bits, parity, stop bits]. An index beyond its table leaves its element as it was; where
/// there was none, it is null before an element that is written and missing behind the last. The record comes first,
/// unlike in the reader.
/// @return 1
VK_API int PacketCommAttr(const VK_COMM_PROP& port, Json::Value& value);
/// The same for the configuration layer.
VK_API int PacketCommAttr(const tagCFG_COMM_PROP& port, Json::Value& value);

/// Reads the mobile-data configuration. Not cleared; with a null node the record is left as the caller set it.
/// Keywords are compared exactly, and one that is missing or in no table reads as 0; but emAPN is -1 without "APN",
/// and szAPN then left as the caller set it. Other missing members read as 0 or the empty text; so em3GFluxTactic is 1
/// without "3GFluxTactic". Texts are cut to 32 or 64 bytes, terminator included.
/// "TimeSection": 7 rows of 6 segments are read by TimeSection::parse, further ones ignored. Missing segments are left
/// as the caller set them; one that does not convert is no error.
VK_API void ParseWirelessInfo(const Json::Value& value, tagNET_NETAPP_WIRELESS& info);
/// The same of a place in a message text.
VK_API void ParseWirelessInfo(const jsonparser::MessagePlace& place, tagNET_NETAPP_WIRELESS& info);

/// Writes the mobile-data configuration, all but nIndex; further members stay. An enumeration that says unknown (-1 in
/// emAPN and emWorkMode, 0 in the others) leaves its member as it was and sends a trace message; one that is no row of
/// its table writes the empty text. An emAPN of 0 writes szAPN; a negative em3GFluxTactic writes 0. Always 7 rows of 6
/// time segments. The record comes first, unlike in the reader.
/// @return 1
VK_API int PacketWirelessInfo(const tagNET_NETAPP_WIRELESS& info, Json::Value& value);

/// Reads "Caller" of an intercom invitation: emCallerType is 1 for "Platform", ignoring case, and 0 for any other
/// caller and for none. info must not be null.
VK_API void ParseTalkingCallerType(const Json::Value& invitation, tagALARM_TALKING_INVITE_INFO* info);
/// The same of a place in a message text.
VK_API void ParseTalkingCallerType(const jsonparser::MessagePlace& invitation, tagALARM_TALKING_INVITE_INFO* info);

/// Reads the answer to a mission from the node itself: "Yes" or "No", ignoring case; anything else is unknown.
/// @return 1, or 0 when it is unknown
VK_API int ParseConfirmAction(const Json::Value& value, tagNET_MISSION_CONFIRM_TYPE& type);
/// The same of a place in a message text.
VK_API int ParseConfirmAction(const jsonparser::MessagePlace& place, tagNET_MISSION_CONFIRM_TYPE& type);

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

    Record& operator*() { return record_; }                ///< the record
    const Record& operator*() const { return record_; }    ///< the record
    Record* operator->() { return &record_; }              ///< a field of the record
    const Record* operator->() const { return &record_; }  ///< a field of the record
    Record* get() { return &record_; }                     ///< the record's place, never null
    const Record* get() const { return &record_; }         ///< the record's place, never null

    /// Releases the heap texts now; the other fields stay.
    void releaseTexts() { ReleaseTexts(record_); }

  private:
    Record record_;
};

}  // namespace jsonparser

#endif
