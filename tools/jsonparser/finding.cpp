#include "finding.h"

#include <fmt/format.h>
#include <locale.h>
#include <wchar.h>

#include <algorithm>
#include <iterator>
#include <numeric>

#include "utf8.h"

namespace tool {
namespace {

constexpr std::size_t kLongestShown = 60;    // bytes of a text in a message
constexpr std::size_t kExcerptColumns = 76;  // of the document's line
constexpr std::size_t kColumnsBefore = 40;   // of these before the caret, on a line that is longer
constexpr std::size_t kTabColumns = 8;

/// Bytes of the character at offset: one for what is malformed.
std::size_t StepAt(std::string_view text, std::size_t offset) {
    return std::max<std::size_t>(CharacterLength(text.substr(offset)), 1);
}

/// text up to the last character that ends within size bytes.
std::string_view CutTo(std::string_view text, std::size_t size) {
    std::size_t end = 0;
    for (std::size_t next = 0; next < text.size() && (next += StepAt(text, next)) <= size;) end = next;
    return text.substr(0, end);
}

/// Finds the places of offsets that come in rising order, in one walk over the text.
class PlaceFinder {
  public:
    explicit PlaceFinder(std::string_view text) : text_(text) {}

    Place find(std::size_t offset) {
        while (at_ < std::min(offset, text_.size())) {
            const bool lineEnds = text_[at_] == '\n';
            at_ += StepAt(text_, at_);
            ++place_.column;
            if (!lineEnds) continue;
            place_ = {place_.line + 1, 1};
            lineBegin_ = at_;
        }
        return place_;
    }

    /// Where the line of the latest place begins.
    std::size_t lineBegin() const { return lineBegin_; }

  private:
    std::string_view text_;
    std::size_t at_ = 0;
    std::size_t lineBegin_ = 0;
    Place place_ = {1, 1};
};

/// Columns that a character takes on a terminal.
class Terminal {
  public:
    Terminal() : utf8_(newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr)) {}
    ~Terminal() {
        if (utf8_ != nullptr) freelocale(utf8_);
    }
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;

    /// Of a well-formed character of several bytes.
    std::size_t columns(std::string_view character) const {
        if (utf8_ == nullptr) return 1;
        const locale_t before = uselocale(utf8_);
        const int width = wcwidth(static_cast<wchar_t>(CodePoint(character)));
        uselocale(before);
        return width < 0 ? 1 : static_cast<std::size_t>(width);
    }

  private:
    locale_t utf8_;
};

/// A character of an excerpt, and the columns that it takes.
struct Cell {
    std::string_view bytes;
    std::size_t columns;
};

bool IsPrintable(char c) { return c >= ' ' && c <= '~'; }

/// The character at the start of rest, which is not empty, standing in that column of its line.
Cell CellAt(std::string_view rest, std::size_t column, const Terminal& terminal) {
    const std::string_view first = rest.substr(0, 1);
    if (IsPrintable(first[0])) return {first, 1};
    if (first[0] == '\t') return {first, kTabColumns - column % kTabColumns};
    const std::string_view character = rest.substr(0, CharacterLength(rest));
    if (character.size() > 1) return {character, terminal.columns(character)};
    return {first, Harmless(first).size()};
}

void AppendCell(std::string& line, const Cell& cell) {
    if (cell.bytes == "\t") {
        line.append(cell.columns, ' ');
    } else if (cell.bytes.size() > 1 || IsPrintable(cell.bytes[0])) {
        line += cell.bytes;
    } else {
        line += Harmless(cell.bytes);
    }
}

/// The line that begins at lineBegin around offset, and a caret below the place.
std::string Excerpt(std::string_view text, std::size_t lineBegin, std::size_t offset, std::size_t lineNumber,
                    const Styler& style) {
    static const Terminal kTerminal;
    // Only what can be in the window is looked at: a document may be one line of any length.
    constexpr std::size_t kMostBytes = 4 * kExcerptColumns;
    std::size_t begin = lineBegin;
    if (offset - lineBegin > kMostBytes) {
        begin = offset - kMostBytes;
        while (begin < offset && (static_cast<unsigned char>(text[begin]) & 0xC0U) == 0x80U) ++begin;
    }
    std::vector<Cell> cells;
    std::size_t column = 0;
    std::size_t caretCell = 0;
    std::size_t caretColumn = 0;
    std::size_t at = begin;
    // As far as what no longer fits behind the caret.
    while (at < text.size() && text[at] != '\n' && at < offset + kMostBytes &&
           column <= caretColumn + kExcerptColumns) {
        if (text[at] == '\r' && (at + 1 == text.size() || text[at + 1] == '\n')) break;
        const bool isBefore = at < offset;
        cells.push_back(CellAt(text.substr(at), column, kTerminal));
        column += cells.back().columns;
        at += cells.back().bytes.size();
        if (!isBefore) continue;
        ++caretCell;
        caretColumn = column;
    }
    const bool cutAtEnd = at < text.size() && text[at] != '\n' && text[at] != '\r';

    // The window: back from the caret, then on from it.
    std::size_t first = caretCell;
    std::size_t before = 0;
    const bool fits = begin == lineBegin && !cutAtEnd && column <= kExcerptColumns;
    while (first > 0 && (fits || before + cells[first - 1].columns <= kColumnsBefore)) before += cells[--first].columns;
    std::size_t last = caretCell;
    std::size_t shown = before;
    while (last < cells.size() && shown + cells[last].columns <= kExcerptColumns) shown += cells[last++].columns;

    const bool moreBefore = first > 0 || begin > lineBegin;
    std::string line = moreBefore ? "..." : "";
    for (std::size_t i = first; i < last; ++i) AppendCell(line, cells[i]);
    if (last < cells.size() || cutAtEnd) line += "...";
    return fmt::format("{} {}\n{} {:{}}{}\n", style(Style::kFaint, fmt::format("{:5} |", lineNumber)), line,
                       style(Style::kFaint, "      |"), "", before + (moreBefore ? 3 : 0), style(Style::kError, "^"));
}

}  // namespace

Finding Unexpected(const Json::Value& value, std::string path, std::string_view expected) {
    return {static_cast<std::size_t>(value.getOffsetStart()), std::move(path),
            fmt::format("found {}, expected {}", Shown(value), expected)};
}

std::string Shown(const Json::Value& value) {
    switch (value.type()) {
        case Json::nullValue:
            return "null";
        case Json::arrayValue:
            return fmt::format("an array of {}", value.size());
        case Json::objectValue:
            return "an object";
        case Json::stringValue: {
            const char* begin = nullptr;
            const char* end = nullptr;
            value.getString(&begin, &end);
            const std::string_view text(begin, static_cast<std::size_t>(end - begin));
            if (text.size() <= kLongestShown) return QuotedText(text);
            return fmt::format("{}... ({} bytes)", QuotedText(CutTo(text, kLongestShown)), text.size());
        }
        case Json::realValue: {
            // Shortest digits that read back as the same number; never those of an integer.
            const std::string digits = fmt::format("{}", value.asDouble());
            return digits.find_first_of(".en") == std::string::npos ? digits + ".0" : digits;
        }
        default:
            return value.asString();
    }
}

std::string PointerStep(std::string_view name) {
    std::string step = "/";
    for (const char c : name) {
        if (c == '~' || c == '/') {
            step += c == '~' ? "~0" : "~1";
        } else {
            step += c;
        }
    }
    return step;
}

std::vector<std::string> PointerSteps(std::string_view pointer) {
    std::vector<std::string> steps;
    for (std::size_t i = 0; i < pointer.size(); ++i) {
        if (pointer[i] == '/') {
            steps.emplace_back();
            continue;
        }
        const bool escape =
            pointer[i] == '~' && i + 1 < pointer.size() && (pointer[i + 1] == '0' || pointer[i + 1] == '1');
        if (steps.empty()) steps.emplace_back();
        steps.back() += escape ? (pointer[i + 1] == '1' ? '/' : '~') : pointer[i];
        i += escape ? 1 : 0;
    }
    return steps;
}

std::string FileName(const std::string& file) {
    if (file.empty()) return R"("")";
    return file == "-" ? "<stdin>" : Harmless(file);
}

std::vector<Place> PlacesOf(std::string_view text, const std::vector<std::size_t>& offsets) {
    std::vector<std::size_t> rising(offsets.size());
    std::iota(rising.begin(), rising.end(), std::size_t{0});
    std::sort(rising.begin(), rising.end(), [&](std::size_t a, std::size_t b) { return offsets[a] < offsets[b]; });
    PlaceFinder finder(text);
    std::vector<Place> places(offsets.size());
    for (const std::size_t i : rising) places[i] = finder.find(offsets[i]);
    return places;
}

bool HasDefects(const std::vector<Finding>& findings) {
    return std::any_of(findings.begin(), findings.end(), [](const Finding& finding) { return !finding.isRemark; });
}

std::string Described(const std::string& file, std::string_view text, std::vector<Finding> findings,
                      std::size_t firstLine, const Styler& style) {
    std::stable_sort(findings.begin(), findings.end(),
                     [](const Finding& a, const Finding& b) { return a.offset < b.offset; });
    PlaceFinder finder(text);
    std::string all;
    const auto out = std::back_inserter(all);
    for (const Finding& finding : findings) {
        const std::string lead = style(finding.isRemark ? Style::kWarning : Style::kError, "jsonparser:");
        if (finding.offset == Finding::kNowhere) {
            fmt::format_to(out, "{} {} {}\n", lead, style(Style::kLocation, FileName(file) + ':'), finding.text);
            continue;
        }
        const auto [line, column] = finder.find(finding.offset);
        const std::size_t number = firstLine + line - 1;
        if (finding.isRemark) {
            fmt::format_to(out, "{} {} {}\n", lead,
                           style(Style::kLocation, fmt::format("{}:{}:", FileName(file), number)), finding.text);
            continue;
        }
        const std::string place = fmt::format("{}:{}:{}: {}:", FileName(file), number, column,
                                              finding.path.empty() ? "/" : Harmless(finding.path));
        fmt::format_to(out, "{} {} {}\n", lead, style(Style::kLocation, place), finding.text);
        all += Excerpt(text, finder.lineBegin(), std::min(finding.offset, text.size()), number, style);
    }
    return all;
}

}  // namespace tool
