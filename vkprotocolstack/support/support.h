// The functions of the surrounding client library that the converters call. Each has a default definition in
// JsonParser::support; a client library defines its own instead, one, some or all of them, and the linker takes those.
//
// The local encoding is that of the calling thread's locale at the time of the call, as nl_langinfo(CODESET) names it.
// Where that is UTF-8, ASCII (the "C" locale) or unknown to iconv, converting copies the bytes, whatever they are, and
// cuts as in UTF-8. Any other is converted by iconv: a character that the local encoding does not have, or has only in
// a form longer than in UTF-8, becomes one "?", as does each byte that is part of no character; half of a character at
// the end of the source is dropped. A text that there is no memory to convert becomes empty. The functions may run on
// any number of threads at once, also in different locales.
#ifndef VKPROTOCOLSTACK_SUPPORT_SUPPORT_H
#define VKPROTOCOLSTACK_SUPPORT_SUPPORT_H

#include <json/forwards.h>

#include <cstddef>

#include "vkprotocolstack/support/export.h"

/// Copies the text that value holds into buffer, at most size bytes, terminator included. A text is taken up to its
/// first NUL, converted from UTF-8 to the local encoding when convert is true, then cut; a cut keeps whole characters.
/// A value that is null or no text gives the empty text. A size of 0 or less writes nothing.
/// @return whether value is a text
VK_API bool GetJsonString(const Json::Value& value, char* buffer, int size, bool convert);

/// Stores the NUL-terminated text into value as a text in UTF-8, converted from the local encoding when convert is
/// true. A null text stores the empty text.
VK_API void SetJsonString(Json::Value& value, const char* text, bool convert);

/// Renders any node into buffer, at most size bytes, terminator included: a text as it is, a number or a bool as
/// jsoncpp writes it, an array or object as compact JSON in UTF-8 without a line end, null as the empty text. Converted
/// from UTF-8 to the local encoding, then cut; a cut keeps whole characters. Containers nested so deep that there is no
/// memory to keep track of them are cut where they begin. A size of 0 or less writes nothing.
VK_API void parseJsonNodeToStr(const Json::Value& node, char* buffer, int size);

/// Stores text into node as a text in UTF-8, converted from the local encoding. Reads at most size bytes and stops at a
/// NUL; a size of 0 or less, or a null text, stores the empty text.
VK_API void packetStrToJsonNode(Json::Value& node, const char* text, int size);

/// Converts the NUL-terminated UTF-8 source into the local encoding, NUL-terminated. destination takes no more bytes
/// than source has, terminator included.
VK_API void Change_Utf8_Assic(unsigned char* source, char* destination);

/// Converts sourceLength bytes of local text, or those before its first NUL, into UTF-8, NUL-terminated, within
/// destinationSize bytes; a cut keeps whole characters. A destinationSize of 0 or less writes nothing.
VK_API void Change_Assic_UTF8(const char* source, int sourceLength, char* destination, int destinationSize);

/// Compares two NUL-terminated texts, ignoring the case of ASCII letters in every locale.
/// @return 0 when they are equal, else the sign of the first difference
VK_API int _stricmp(const char* a, const char* b);

/// Formats like snprintf with count as the buffer's size: what does not fit is cut, terminator included.
/// @return the length that the whole text has
__attribute__((format(printf, 3, 4))) VK_API int _snprintf(char* buffer, std::size_t count, const char* format, ...);

/// Says where the calling thread's next trace message comes from. sourceFile must outlive that message.
VK_API void SetBasicInfo(const char* sourceFile, int line, int level);

/// Writes one trace message to the trace sink (see jsonparser::SetTraceSink), by default a line on standard error.
VK_API void SDKLogTraceOut(int code, const char* message);

/// Translates a device's alarm type number to the library's alarm type code. The default returns it unchanged.
VK_API int TranslateAlarmType(int deviceAlarmType);

namespace jsonparser {

/// One trace message with the place that the same thread's last SetBasicInfo named.
struct TraceMessage {
    const char* sourceFile;  ///< "" before the thread's first SetBasicInfo
    int line;                ///< from that SetBasicInfo, 0 before
    int level;               ///< from that SetBasicInfo, 0 before
    int code;                ///< as handed to SDKLogTraceOut
    const char* message;     ///< valid during the call
};

/// Receives trace messages; called on the thread that traces, on several at once. context is what was registered.
using TraceSink = void (*)(const TraceMessage& message, void* context);

/// Sends the trace messages of the default SDKLogTraceOut to sink; a null sink restores standard error. Set it before
/// other threads convert.
VK_API void SetTraceSink(TraceSink sink, void* context);

}  // namespace jsonparser

#endif
