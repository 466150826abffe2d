// Formats of texts that consist of numbers, as compile-time data.
#ifndef VKPROTOCOLSTACK_WIRE_NUMBER_FORMAT_H
#define VKPROTOCOLSTACK_WIRE_NUMBER_FORMAT_H

#include <array>
#include <cstddef>
#include <span>
#include <string_view>

namespace jsonparser {

/// A number of a format and what stands before it.
struct NumberStep {
    char before;          ///< a blank or another character; NUL for nothing
    unsigned char width;  ///< most characters when scanned, fewest digits when printed; 0 when not stated
    bool isSigned;
};

/// A format of scanf and printf: N numbers, each %d or %u, with 0 and a width of one digit or without, each after at
/// most one character. It is taken apart by the compiler; any other does not compile.
template <std::size_t N>
class NumberFormat {
  public:
    template <std::size_t Size>
    consteval NumberFormat(const char (&text)[Size]) : text_(text), steps_{} {
        std::size_t i = 0;
        for (NumberStep& step : steps_) {
            if (text[i] != '%') step.before = text[i++];
            if (text[i++] != '%') throw "there is not one number for each word, at most one character before it";
            if (text[i] == '0') {
                step.width = static_cast<unsigned char>(text[i + 1] - '0');
                if (step.width < 1 || step.width > 9) throw "a width is one digit";
                i += 2;
            }
            if (text[i] != 'd' && text[i] != 'u') throw "a number is %d or %u, with 0 and a width or without";
            step.isSigned = text[i++] == 'd';
        }
        if (i != Size - 1) throw "the format goes on behind the last word";
    }

    constexpr std::string_view text() const { return text_; }
    constexpr std::span<const NumberStep, N> steps() const { return steps_; }
    /// Whether the numbers from i on are those of a time, which have two digits each as a rule: hours:minutes:seconds.
    constexpr bool isTime(std::size_t i) const {
        return isPair(steps_[i]) && isPair(steps_[i + 1]) && isPair(steps_[i + 2]) && steps_[i + 1].before == ':' &&
               steps_[i + 2].before == ':';
    }

  private:
    static constexpr bool isPair(NumberStep step) { return step.width == 0 || step.width == 2; }

    std::string_view text_;
    std::array<NumberStep, N> steps_;
};

}  // namespace jsonparser

#endif
