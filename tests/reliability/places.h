// Where readers look in a message, found by watching them, and messages that have something there; what converters take
// that no message has.
#ifndef TESTS_RELIABILITY_PLACES_H
#define TESTS_RELIABILITY_PLACES_H

#include <json/value.h>

#include <map>
#include <set>
#include <string>
#include <variant>
#include <vector>

#include "fuzz/converters.h"

namespace reliability {

/// One step down: a member's name or an element's index.
using Step = std::variant<std::string, Json::ArrayIndex>;
using Path = std::vector<Step>;

/// As a JSON pointer.
std::string Pointer(const Path& path);

/// What messages for readers have at a place that is neither an array's nor an object's.
struct Filling {
    Json::Value scalar;
    Json::ArrayIndex elements;  ///< of each array
    bool preferArrays;          ///< where a reader takes an array or an object
};

/// Every place where this reader looks: those in the first four elements of an array stand for the others. The root is
/// the empty path. With each a filling of Message that makes the reader look there.
using Places = std::map<Path, Filling>;
const Places& PlacesOf(const fuzz::Reader& reader);

/// A message with a value at all places, of the types that let a reader go further.
Json::Value Message(const Places& places, const Filling& filling);

/// Places where this reader looks in node.
std::set<Path> Looks(const fuzz::Reader& reader, Json::Value node);

/// The part of each sample message that is this reader's, found by the name of its record.
std::vector<Json::Value> Samples(const fuzz::Reader& reader);

/// One that the converter knows, then those of the hostile values.
std::vector<std::string> TextsFor(const fuzz::TextReader& reader);
std::vector<long> NumbersFor(const fuzz::NumberConverter& converter);

}  // namespace reliability

#endif
