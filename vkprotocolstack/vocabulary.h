// The vocabularies of the device protocol, for tools that explain messages.
#ifndef VKPROTOCOLSTACK_VOCABULARY_H
#define VKPROTOCOLSTACK_VOCABULARY_H

#include <cstddef>
#include <string_view>

#include "vkprotocolstack/support/export.h"

namespace jsonparser {

/// A word of a vocabulary and the code that records keep for it.
struct Keyword {
    int code;               ///< what the record keeps
    std::string_view text;  ///< what the message has
};

/// A vocabulary in table order. Texts and codes may stand twice: which row counts is the converter's rule.
struct Vocabulary {
    std::string_view name;     ///< for looking it up
    std::string_view meaning;  ///< what its words tell
    const Keyword* rows;       ///< the first row
    std::size_t count;         ///< number of rows

    constexpr const Keyword* begin() const { return rows; }        ///< the first row
    constexpr const Keyword* end() const { return rows + count; }  ///< behind the last row
};

/// All vocabularies, for walking over them.
struct VocabularyList {
    const Vocabulary* rows;  ///< the first vocabulary
    std::size_t count;       ///< number of vocabularies

    const Vocabulary* begin() const { return rows; }        ///< the first vocabulary
    const Vocabulary* end() const { return rows + count; }  ///< behind the last vocabulary
};

/// All vocabularies of the library, in subsystem order.
VK_API VocabularyList Vocabularies();

}  // namespace jsonparser

#endif
