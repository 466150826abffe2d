// Why a field of a record is what it is: what a reader looked for in a message, what it found, and what became of it.
#ifndef VKPROTOCOLSTACK_EXPLAIN_H
#define VKPROTOCOLSTACK_EXPLAIN_H

#include <json/value.h>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "vkprotocolstack/support/export.h"

namespace jsonparser {

/// What became of a value of a message. From kCut on, the record has something else than the message.
enum class Outcome {
    kKept,            ///< the record has it
    kDefault,         ///< missing or null: read as 0, as the empty text, or as what the converter has for this case
    kLeft,            ///< missing, null or empty, or only tested: nothing was taken, the field is as the row found it
    kCut,             ///< a text longer than its field
    kFull,            ///< a text that fills its field, so that its terminator is in the byte behind
    kReplaced,        ///< a text with characters that the local encoding lacks: "?" stands for each
    kWrapped,         ///< an integer of which the low bits were taken
    kLimited,         ///< a number beyond the range, of which the nearest limit was taken
    kFraction,        ///< a real number whose fraction was cut
    kUnknownKeyword,  ///< a text, or a number, that is not in the table
    kWrongType,       ///< read as 0, as the empty text, or as a container without members or elements
    kRefused,         ///< a test refused it: nothing was taken
    kUnconverted,     ///< a text of which not all numbers could be scanned
    kUnread,          ///< nothing reads it
};

/// Whether the record has something else than the message.
constexpr bool IsFinding(Outcome outcome) { return outcome >= Outcome::kCut; }

/// The outcome in a word or two: "kept", "unknown keyword".
VK_API std::string_view OutcomeName(Outcome outcome);

/// One value that a reader looked for, or one that it never did (kUnread). All texts are UTF-8 as far as the message
/// is.
struct Reading {
    std::string path;        ///< JSON pointer, from the node that the reader was given; "" is that node
    std::string type;        ///< "missing", "null", "bool", "integer", "real", "text", "array" or "object"
    std::string found;       ///< the value in JSON, long ones shortened; "array of 3", "object of 2"
    std::string test;        ///< the tests, in their order, failed ones with "not"; empty when there were none
    std::string conversion;  ///< what was taken, in the words of the library; empty when nothing was
    std::string value;       ///< what the reader got, in JSON
    Outcome outcome;         ///< what became of it
    std::string remark;      ///< what became of it, in words: "cut from 300 to 32 bytes"
    std::string expected;    ///< of findings: what would have been none
};

/// What a reader did with a message: a reading for each conversion, in the reader's order, then what nothing reads.
struct Explanation {
    std::vector<Reading> readings;  ///< in that order

    /// How many of the readings are findings.
    std::size_t findings() const {
        std::size_t count = 0;
        for (const Reading& reading : readings) count += IsFinding(reading.outcome) ? 1U : 0U;
        return count;
    }
};

/// Calls read, which calls readers of this library on message, and gives the account of what they did. Readers that
/// read calls on the same thread are watched, those on others are not. All of them must be given message or a copy of
/// it; a converter may insert members into it meanwhile. An Explain within read has its own account. What read throws
/// passes.
///
///     jsonparser::Explanation why = jsonparser::Explain(node, [&] { ParseStrtoTrafficCar(node, &car); });
///     for (const jsonparser::Reading& reading : why.readings) log(jsonparser::LogLine(reading));
///
/// Watching changes nothing in the record. It calls the text functions of the surrounding library more often than
/// reading alone does, to find out what a text would be that is not cut. Json_dimension only tests: of what it
/// measures, scalars count as refused.
VK_API Explanation Explain(const Json::Value& message, const std::function<void()>& read);

/// A reading in one line without control characters, for a log: path, value, tests, conversion and what it gave, what
/// became of it; parts that are empty are left out:
///
///     /Speed: "x"; int: 0; wrong type, read as 0
VK_API std::string LogLine(const Reading& reading);

}  // namespace jsonparser

#endif
