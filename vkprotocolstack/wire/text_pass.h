// The one pass over a message text: it checks the grammar and takes down the part that a reader was called for.
//
// It accepts less than RFC 8259 does and than jsoncpp's reader: what is declined is not wrong, but left to that reader.
// What is accepted, jsoncpp's reader accepts too, with the values that the entries have.
#ifndef VKPROTOCOLSTACK_WIRE_TEXT_PASS_H
#define VKPROTOCOLSTACK_WIRE_TEXT_PASS_H

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "vkprotocolstack/wire/names.h"
#include "vkprotocolstack/wire/text_tape.h"

namespace jsonparser {

/// A step of a JSON pointer: a member's name, or an element's index where it has the form of one.
struct TextStep {
    static constexpr std::size_t kNoIndex = static_cast<std::size_t>(-1);

    const char* name;  ///< as it stands in the pointer, ~0 and ~1 included
    std::size_t size;
    bool escaped;  ///< has such
    std::size_t index;
};

/// The first step of a JSON pointer that begins with a slash, which is taken off the pointer.
TextStep TakeStep(std::string_view& pointer);

/// Whether the step is to a member of that name.
bool IsStepTo(const TextStep& step, const char* name, std::size_t size);

/// The double nearest to a number that is neither too large nor too small for one; 0 where it is.
double RealOf(const char* begin, const char* end);

struct TextPass {
    // what to do
    const char* begin;
    const char* end;
    const TextStep* steps;  ///< to the part that is taken down
    std::size_t stepCount;
    const NameIndex* expected;  ///< names that the part's object is expected to have, in that order; may be null
    bool skipOthers;            ///< of values outside the part, only quotes and brackets are followed
    std::size_t maxDepth;       ///< values may stand in this many containers less one; at most kMaxDepth
    TextType plainText;         ///< the type that texts without escapes are given
    TextTape* tape;

    // what came of it
    const TextEntry* part;  ///< null when the message has no such part
    const char* stop;       ///< where it was declined
    bool noMemory;
    bool hasReal;  ///< some number that was looked at is not an integer of 64 bits

    static constexpr std::size_t kMaxDepth = 1000;
    static constexpr std::size_t kMaxSteps = 16;
};

/// @return whether the text is accepted
bool RunTextPass(TextPass& pass);

/// The forms of the pass. All do the same.
enum class TextPassForm { Plain, Sse2, Avx2 };

/// Makes all further passes of the program take this form, for tests.
/// @return false when the machine has no such form
bool UseTextPassForm(TextPassForm form);

/// Makes them take the machine's fastest again.
void UseBestTextPassForm();

bool RunPlainTextPass(TextPass& pass);
bool RunSse2TextPass(TextPass& pass);
bool RunAvx2TextPass(TextPass& pass);

}  // namespace jsonparser

#endif
