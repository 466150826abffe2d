// Every reader of the library, so that what it makes of a Json::Value and of a message's text can be compared.
#ifndef FUZZ_TEXT_ROAD_READERS_H
#define FUZZ_TEXT_ROAD_READERS_H

#include <json/value.h>

#include <span>
#include <string>
#include <string_view>

#include "vkprotocolstack/message_text.h"

namespace fuzz {

/// What a reader leaves behind: what it returned, and the bytes of its record, which was filled with a pattern before,
/// with the texts that the record points to.
struct Outcome {
    long long result;
    std::string bytes;

    bool operator==(const Outcome&) const = default;
};

struct Reader {
    std::string_view name;
    std::string_view members;  ///< names that it asks for, in its order; "[]" for one that reads an array
    Outcome (*value)(Json::Value& node);
    Outcome (*text)(const jsonparser::MessagePlace& place);
    Outcome (*untouched)();  ///< of a message that is not accepted
};

std::span<const Reader> Readers();

}  // namespace fuzz

#endif
