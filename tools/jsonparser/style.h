// Colour, for people at a terminal.
#ifndef TOOLS_JSONPARSER_STYLE_H
#define TOOLS_JSONPARSER_STYLE_H

#include <cstdio>
#include <string>
#include <string_view>

namespace tool {

enum class ColorWhen { kAuto, kAlways, kNever };

/// What a piece of output is; how each looks is in style.cpp.
enum class Style {
    kPlain,
    kHeading,   ///< what the lines below belong to
    kLocation,  ///< file, line, column, path
    kName,      ///< of a command, a record, a field, a member
    kGood,
    kWarning,
    kError,
    kFaint,  ///< what the eye may skip
};

/// Colours text or leaves it as it is. Pad a text before it is styled: widths would count the escape sequences.
class Styler {
  public:
    explicit Styler(bool colors) : colors_(colors) {}

    bool colors() const { return colors_; }

    /// text as style has it. Escape sequences within text are the caller's to neutralise (see QuotedText).
    std::string operator()(Style style, std::string_view text) const;

  private:
    bool colors_;
};

/// What --color says, for both streams of this process.
void SetColor(ColorWhen when);

/// For what is written to a stream: colours when --color always was given, or when the stream is a terminal and neither
/// --color never, NO_COLOR (set and not empty) nor TERM (dumb, empty or not set) speaks against it.
Styler StyleOf(std::FILE* stream);

/// Whether a stream is a terminal that moves its cursor: TERM is set and not dumb.
bool IsTerminal(std::FILE* stream);

}  // namespace tool

#endif
