// One comparison of the two roads from a message's text to a record.
#ifndef FUZZ_TEXT_ROAD_CASE_H
#define FUZZ_TEXT_ROAD_CASE_H

#include <cstdint>
#include <string>
#include <string_view>

#include "fuzz/converters.h"

namespace fuzz {

/// Where readers are called for: a JSON pointer, and the text around a value that makes it lead there.
struct Way {
    std::string_view pointer;
    std::string_view before;
    std::string_view behind;
};

struct Case {
    const Reader* reader;
    const Way* way;
    std::string text;
    jsonparser::MessageTextOptions options;
    unsigned form;        ///< of the pass; one that the machine lacks is left out
    bool readsRootFirst;  ///< another reader is called for the whole message before
};

/// The case that a number stands for: a message like those of devices, more or less damaged.
Case MakeCase(std::uint64_t number);

/// A case of any bytes.
Case MakeCase(std::string_view bytes);

/// What differs between the roads; empty when nothing does.
std::string DifferenceOf(const Case& test);

}  // namespace fuzz

#endif
