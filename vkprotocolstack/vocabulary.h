// The vocabularies of the device protocol, for tools that explain messages.
#ifndef VKPROTOCOLSTACK_VOCABULARY_H
#define VKPROTOCOLSTACK_VOCABULARY_H

#include <cstddef>
#include <string_view>

#include "vkprotocolstack/support/export.h"

namespace jsonparser {

/// A word of a vocabulary and the code that records keep for it.
struct Keyword {
    int code;
    std::string_view text;
};

/// A vocabulary in table order. Texts and codes may stand twice: which row counts is the converter's rule.
struct Vocabulary {
    std::string_view name;
    std::string_view meaning;
    const Keyword* rows;
    std::size_t count;

    constexpr const Keyword* begin() const { return rows; }
    constexpr const Keyword* end() const { return rows + count; }
};

struct VocabularyList {
    const Vocabulary* rows;
    std::size_t count;

    const Vocabulary* begin() const { return rows; }
    const Vocabulary* end() const { return rows + count; }
};

/// All vocabularies of the library, in subsystem order.
VK_API VocabularyList Vocabularies();

}  // namespace jsonparser

#endif
