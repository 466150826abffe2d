#include "style.h"

#include <fmt/format.h>
#include <unistd.h>

#include <cstdlib>

namespace tool {
namespace {

ColorWhen colorWhen = ColorWhen::kAuto;

std::string_view Environment(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? "" : value;
}

/// The parameters of the escape sequence; empty for plain text. The sixteen colours follow the terminal's own palette.
std::string_view Rendition(Style style) {
    switch (style) {
        case Style::kHeading:
        case Style::kLocation:
            return "1";
        case Style::kName:
            return "36";
        case Style::kGood:
            return "32";
        case Style::kWarning:
            return "33";
        case Style::kError:
            return "1;31";
        case Style::kFaint:
            return "2";
        case Style::kPlain:
            break;
    }
    return "";
}

}  // namespace

std::string Styler::operator()(Style style, std::string_view text) const {
    const std::string_view rendition = colors_ && !text.empty() ? Rendition(style) : "";
    return rendition.empty() ? std::string(text) : fmt::format("\x1b[{}m{}\x1b[0m", rendition, text);
}

void SetColor(ColorWhen when) { colorWhen = when; }

Styler StyleOf(std::FILE* stream) {
    return Styler(colorWhen == ColorWhen::kAlways ||
                  (colorWhen == ColorWhen::kAuto && Environment("NO_COLOR").empty() && IsTerminal(stream)));
}

bool IsTerminal(std::FILE* stream) {
    const std::string_view terminal = Environment("TERM");
    return !terminal.empty() && terminal != "dumb" && isatty(fileno(stream)) == 1;
}

}  // namespace tool
