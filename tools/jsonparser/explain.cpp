#include "explain.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <set>
#include <string_view>

#include "commands.h"
#include "console.h"
#include "finding.h"
#include "record_buffer.h"
#include "record_name.h"
#include "strict_reader.h"
#include "suggestion.h"
#include "trace_collector.h"
#include "utf8.h"
#include "vkprotocolstack/vocabulary.h"

namespace tool {
namespace {

using jsonparser::Explanation;
using jsonparser::IsFinding;
using jsonparser::Outcome;
using jsonparser::Reading;

/// What is malformed, and control characters, as \xNN.
std::string Printable(std::string_view text) {
    std::string printable;
    while (!text.empty()) {
        const std::size_t length = CharacterLength(text);
        const auto byte = static_cast<unsigned char>(text.front());
        if (length == 0 || byte < 0x20 || byte == 0x7F) {
            printable += fmt::format("\\x{:02x}", byte);
            text.remove_prefix(1);
            continue;
        }
        printable += text.substr(0, length);
        text.remove_prefix(length);
    }
    return printable;
}

/// A word as a shell takes it: quoted if need be.
std::string ShellWord(const std::string& word) {
    const auto isPlain = [](char c) {
        return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '/' || c == '_';
    };
    if (std::all_of(word.begin(), word.end(), isPlain)) return word;
    std::string quoted = "'";
    for (const char c : word) quoted += c == '\'' ? std::string(R"('\'')") : std::string(1, c);
    return quoted + '\'';
}

/// Columns that a text takes on a terminal.
std::size_t Columns(std::string_view text) {
    const std::size_t more = text.size() + 1;  // no character has more columns than bytes
    const std::size_t blanks = fmt::format("{:{}}", text, more).size() - text.size();
    return more - blanks;
}

/// text in at most that many columns.
std::string Shortened(std::string text, std::size_t most) {
    if (Columns(text) <= most) return text;
    constexpr std::string_view kMore = "...";
    std::string_view rest = text;
    std::string kept;
    for (std::size_t columns = 0; !rest.empty();) {
        const std::string_view character = rest.substr(0, CharacterLength(rest));
        columns += Columns(character);
        if (columns + kMore.size() > most) break;
        kept += character;
        rest.remove_prefix(character.size());
    }
    return kept.append(kMore);
}

constexpr std::array<std::string_view, 7> kHeadings = {"path",       "type",   "message",          "test",
                                                       "conversion", "record", "what became of it"};
/// Columns that a text from the message may take.
constexpr std::size_t kWidest = 32;

using Cells = std::array<std::string, kHeadings.size()>;

Cells CellsOf(const Reading& reading) {
    return {Printable(reading.path.empty() ? "/" : reading.path),
            reading.type,
            Shortened(Printable(reading.found), kWidest),
            reading.test,
            reading.conversion,
            Shortened(Printable(reading.value), kWidest),
            reading.remark};
}

Style StyleOfOutcome(Outcome outcome) {
    if (IsFinding(outcome)) return Style::kWarning;
    return outcome == Outcome::kKept ? Style::kGood : Style::kFaint;
}

std::string Counted(std::size_t count, std::string_view noun) {
    return fmt::format("{} {}{}", count, noun, count == 1 ? "" : "s");
}

/// The word of a vocabulary that a text may have meant.
std::string ProposedWord(const CatalogueEntry& entry, const Json::Value& value) {
    if (!value.isString()) return "";
    for (const jsonparser::Vocabulary& vocabulary : jsonparser::Vocabularies()) {
        if (entry.name.substr(0, entry.name.find('/')) != vocabulary.name) continue;
        std::vector<std::string> words;
        for (const jsonparser::Keyword& row : vocabulary) words.emplace_back(row.text);
        return DidYouMean(value.asString(), words);
    }
    return "";
}

/// The object of the document that has most of the names, and how many it has.
struct BestPlace {
    std::string path;
    std::size_t count = 0;
};

void FindBestPlace(const Json::Value& value, const std::string& path, const std::set<std::string>& names,
                   BestPlace& best) {
    const auto isContainer = [](const Json::Value& child) { return child.isObject() || child.isArray(); };
    if (value.isObject()) {
        std::size_t count = 0;
        for (auto member = value.begin(); member != value.end(); ++member) {
            // Readers may insert null.
            if (!member->isNull() && names.contains(member.name())) ++count;
        }
        if (count > best.count) best = {path, count};
        for (auto member = value.begin(); member != value.end(); ++member) {
            if (isContainer(*member)) FindBestPlace(*member, path + PointerStep(member.name()), names, best);
        }
    } else {
        for (Json::ArrayIndex i = 0; i < value.size(); ++i) {
            if (isContainer(value[i])) FindBestPlace(value[i], fmt::format("{}/{}", path, i), names, best);
        }
    }
}

/// Where to look instead, when nothing that the reader looked for is in the document; empty otherwise.
std::string PlaceHint(const Json::Value& root, const Explanation& explanation) {
    bool refused = false;         // the document as a whole
    std::set<std::string> names;  // of the members that the record itself has
    for (const Reading& reading : explanation.readings) {
        if (reading.outcome == Outcome::kUnread) continue;
        if (reading.path.empty()) {
            refused = refused || IsFinding(reading.outcome);
            continue;
        }
        if (reading.type != "missing") return "";
        if (reading.path.rfind('/') == 0) names.insert(PointerSteps(reading.path).front());
    }
    BestPlace best;
    FindBestPlace(root, "", names, best);
    const bool mayBeElsewhere = !names.empty() || (refused && root.isObject());
    if (best.count == 0) return mayBeElsewhere ? "Nothing of it is here; --at names the record's place" : "";
    return fmt::format("Nothing of it is here; try --at {}", ShellWord(Printable(best.path)));
}

/// Where a finding about a value of the document stands; kNowhere for what is missing there.
std::size_t OffsetOf(const Document& document, const Reading& reading) {
    std::vector<Finding> notFound;
    const Json::Value* value = ValueAt(document.node, reading.path, notFound);
    // Values that a converter inserted have no place.
    if (value == nullptr || value->getOffsetLimit() == value->getOffsetStart()) return Finding::kNowhere;
    const auto offset = static_cast<std::size_t>(value->getOffsetStart());
    return reading.outcome == Outcome::kUnread ? NameOffset(document.text, offset) : offset;
}

}  // namespace

Explained DecodeExplained(const CatalogueEntry& entry, Json::Value& node, void* record) {
    bool whole = false;
    Explanation explanation = jsonparser::Explain(node, [&] { whole = entry.decode(node, record); });
    return {std::move(explanation), whole};
}

void AddFindings(const Document& document, const Explanation& explanation, std::vector<Finding>& findings) {
    for (const Reading& reading : explanation.readings) {
        if (!IsFinding(reading.outcome)) continue;
        std::string text = reading.remark;
        if (reading.outcome != Outcome::kUnread) {
            std::vector<Finding> notFound;
            const Json::Value* value = ValueAt(document.node, reading.path, notFound);
            text = fmt::format("found {}, expected {} ({})", value == nullptr ? "nothing" : Shown(*value),
                               Printable(reading.expected), Printable(reading.remark));
        }
        findings.push_back({OffsetOf(document, reading), std::string(document.path) + reading.path, Printable(text)});
    }
}

bool DecodeWithFindings(const CatalogueEntry& entry, const Document& document, bool strict, void* record,
                        std::vector<Finding>& findings) {
    const TraceCollector trace;
    bool whole = false;
    if (strict) {
        const Explained explained = DecodeExplained(entry, document.node, record);
        AddFindings(document, explained.explanation, findings);
        whole = explained.whole;
    } else {
        whole = entry.decode(document.node, record);
    }
    if (!whole && findings.empty()) {  // otherwise they say why it is not
        findings.push_back(Unexpected(document.node, std::string(document.path),
                                      fmt::format("a whole {}{}", entry.name, ProposedWord(entry, document.node))));
    }
    trace.addRemarks(findings);
    return whole;
}

std::string ExplanationAsText(const CatalogueEntry& entry, const Document& document, const Explained& explained,
                              const Styler& style) {
    std::vector<Cells> rows;
    std::array<std::size_t, kHeadings.size()> widths{};
    for (std::size_t i = 0; i < widths.size(); ++i) widths[i] = kHeadings[i].size();
    for (const Reading& reading : explained.explanation.readings) {
        rows.push_back(CellsOf(reading));
        if (reading.outcome == Outcome::kUnread) continue;
        for (std::size_t i = 0; i < widths.size(); ++i) widths[i] = std::max(widths[i], Columns(rows.back()[i]));
    }

    std::string heading;
    for (std::size_t i = 0; i < widths.size(); ++i) heading += fmt::format("{:{}}  ", kHeadings[i], widths[i]);
    heading.erase(heading.find_last_not_of(' ') + 1);
    std::string text = style(Style::kHeading, heading) + '\n';
    std::size_t looked = 0;
    for (std::size_t r = 0; r < rows.size(); ++r) {
        const Cells& cells = rows[r];
        const Outcome outcome = explained.explanation.readings[r].outcome;
        if (outcome == Outcome::kUnread) {
            if (r == looked) text += '\n';
            text += fmt::format("{}: {}\n", style(Style::kName, cells[0]), style(StyleOfOutcome(outcome), cells[6]));
            continue;
        }
        ++looked;
        const bool faint = StyleOfOutcome(outcome) == Style::kFaint;
        for (std::size_t i = 0; i + 1 < cells.size(); ++i) {
            const Style cellStyle = faint ? Style::kFaint : i == 0 ? Style::kName : Style::kPlain;
            text += style(cellStyle, fmt::format("{:{}}", cells[i], widths[i])) + "  ";
        }
        text += style(StyleOfOutcome(outcome), cells.back()) + '\n';
    }

    const std::size_t findings = explained.explanation.findings();
    text += fmt::format("\n{}: {} looked for, {}{}\n", entry.name, Counted(looked, "value"),
                        style(findings == 0 ? Style::kGood : Style::kWarning, Counted(findings, "finding")),
                        explained.whole ? "" : style(Style::kError, ", not a whole record"));
    const std::string hint = document.path.empty() ? PlaceHint(document.node, explained.explanation) : "";
    if (!hint.empty()) text += hint + '\n';
    return text;
}

std::string ExplanationAsJson(const CatalogueEntry& entry, const Document& document, const Explained& explained) {
    std::vector<std::size_t> offsets;  // of the findings
    for (const Reading& reading : explained.explanation.readings) {
        if (IsFinding(reading.outcome)) offsets.push_back(OffsetOf(document, reading));
    }
    const std::vector<Place> places = PlacesOf(document.text, offsets);
    std::string readings;
    std::size_t finding = 0;
    for (const Reading& reading : explained.explanation.readings) {
        const auto text = [](std::string_view value) { return QuotedJson(Printable(value)); };
        readings += fmt::format(
            "{}\n    {{\"path\": {}, \"type\": {}, \"found\": {}, \"test\": {}, \"conversion\": {}, \"value\": {}, "
            "\"outcome\": {}, \"finding\": {}, \"remark\": {}",
            readings.empty() ? "" : ",", text(std::string(document.path) + reading.path), text(reading.type),
            text(reading.found), text(reading.test), text(reading.conversion), text(reading.value),
            text(jsonparser::OutcomeName(reading.outcome)), IsFinding(reading.outcome), text(reading.remark));
        if (IsFinding(reading.outcome)) {
            readings += fmt::format(", \"expected\": {}", text(reading.expected));
            if (offsets[finding] != Finding::kNowhere) {
                const auto [line, column] = places[finding];
                readings += fmt::format(", \"line\": {}, \"column\": {}", line, column);
            }
            ++finding;
        }
        readings += '}';
    }
    return fmt::format("{{\n  \"record\": {},\n  \"whole\": {},\n  \"findings\": {},\n  \"readings\": [{}{}]\n}}\n",
                       QuotedJson(entry.name), explained.whole, explained.explanation.findings(), readings,
                       readings.empty() ? "" : "\n  ");
}

int Explain(const ExplainOptions& options) {
    const CatalogueEntry* entry = EntryOf(options.record);
    if (entry == nullptr) return kUsage;
    if (entry->decode == nullptr) {
        Complain(fmt::format("{} is only written, there is nothing to explain", entry->name));
        return kUsage;
    }
    bool hasFindings = false;
    const int code = WithDocument(
        options.file, options.at, options.reading, [&](const Document& document, std::vector<Finding>& findings) {
            const TraceCollector trace;
            RecordBuffer record(*entry->layout);
            record.lendBuffers();
            const Explained explained = DecodeExplained(*entry, document.node, record.bytes());
            hasFindings = !explained.whole || explained.explanation.findings() > 0;
            Print(options.json ? ExplanationAsJson(*entry, document, explained)
                               : ExplanationAsText(*entry, document, explained, StyleOf(stdout)));
            trace.addRemarks(findings);
        });
    return Flushed(code == kGood && hasFindings ? static_cast<int>(kFindings) : code);
}

}  // namespace tool
