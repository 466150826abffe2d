#include "read_back.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "input.h"
#include "local_text.h"
#include "record_form.h"
#include "record_input.h"
#include "strict_reader.h"
#include "utf8.h"
#include "vkprotocolstack/support/support.h"

namespace tool {
namespace {

using vkrecords::Field;
using vkrecords::FieldKind;
using vkrecords::RecordLayout;

/// A step to a value of the form.
struct Step {
    const Step* before;     ///< null for the first
    std::string_view name;  ///< of the field; empty for a step into an array
    Json::ArrayIndex index;
};

std::string PathOf(const Step& step) {
    return (step.before == nullptr ? "" : PathOf(*step.before)) +
           (step.name.empty() ? fmt::format("/{}", step.index) : PointerStep(step.name));
}

/// The names of the fields on the way, as CatalogueEntry::unwritten has them.
std::string NamesOf(const Step& step) {
    std::string names = step.before == nullptr ? "" : NamesOf(*step.before);
    if (!step.name.empty()) (names += names.empty() ? "" : "/") += step.name;
    return names;
}

/// A value of the form that is no container, and where it is in the record.
struct Element {
    const Json::Value& value;
    const RecordLayout& layout;  ///< of the record that has the field, a nested one perhaps
    std::size_t record;          ///< offset of that record
    const Field& field;
    std::size_t offset;
    const Step& step;

    std::string json(const unsigned char* whole) const {
        return ElementAsJson(layout, whole + record, field, whole + offset);
    }
    std::optional<std::string_view> text(const unsigned char* whole) const {
        return ElementText(layout, whole + record, field, whole + offset);
    }
};

/// Elements of an array that its field can hold; none where it is no such array.
std::size_t Elements(const Json::Value& array, std::size_t extent) {
    return array.isArray() && array.size() <= extent ? array.size() : 0;
}

/// Calls visit with every element that the form of a record at that offset states, in the order of the fields. What is
/// no form of its field is passed over.
template <class Visit>
void Walk(const Json::Value& form, const RecordLayout& layout, std::size_t record, const Step* before, Visit& visit) {
    if (!form.isObject()) return;
    for (const Field& field : layout) {
        const std::string_view name = field.name;
        const Json::Value* const stated = form.find(name.data(), name.data() + name.size());
        if (stated == nullptr || field.kind == FieldKind::Reserved) continue;
        const auto element = [&](const Json::Value& value, std::size_t index, const Step& step) {
            const std::size_t offset = record + field.offset + index * field.elementSize;
            if (field.kind == FieldKind::Record) return Walk(value, *field.record, offset, &step, visit);
            visit(Element{value, layout, record, field, offset, step});
        };
        const Step whole = {before, name, 0};
        if (field.rank == 0) {
            element(*stated, 0, whole);
            continue;
        }
        for (Json::ArrayIndex i = 0; i < Elements(*stated, field.extents[0]); ++i) {
            const Json::Value& row = (*stated)[i];
            const Step rowStep = {&whole, "", i};
            if (field.rank == 1) element(row, i, rowStep);
            for (Json::ArrayIndex j = 0; field.rank == 2 && j < Elements(row, field.extents[1]); ++j) {
                element(row[j], i * field.extents[1] + j, {&rowStep, "", j});
            }
        }
    }
}

template <class Real>
bool IsFinite(const unsigned char* bytes) {
    Real number;
    std::memcpy(&number, bytes, sizeof number);
    return std::isfinite(number);
}

/// What could stand in the form instead of an element that no message could have; null for all others.
const char* PossibleInstead(const Element& element, const unsigned char* record) {
    const unsigned char* const bytes = record + element.offset;
    const FieldKind kind = element.field.kind;
    if ((kind == FieldKind::Float && !IsFinite<float>(bytes)) ||
        (kind == FieldKind::Double && !IsFinite<double>(bytes))) {
        return "a finite number, JSON has no other";
    }
    const std::optional<std::string_view> text = element.text(record);
    const auto isAscii = [](char c) { return static_cast<unsigned char>(c) < 0x80; };
    if (!text || std::all_of(text->begin(), text->end(), isAscii) || IsUtf8(ToUtf8(*text))) return nullptr;
    return "a text that is UTF-8 in the message";
}

/// Whether a value is that of a field that the form lacks.
bool StatesNothing(std::string_view json) {
    return json == "0" || json == "-0.0" || json == "false" || json == R"("")" || json == "null";
}

/// Whether a text fills its field, and was read back up to the place of the terminator that readers put there.
bool IsWholeButForTerminator(const Field& field, std::string_view text, std::string_view back) {
    const std::size_t capacity = field.kind == FieldKind::Text ? field.elementSize : kMaximumLength;
    if (text.size() != capacity || !text.starts_with(back)) return false;
    std::vector<char> cut(capacity);
    GetJsonString(ToUtf8(text), cut.data(), static_cast<int>(capacity), true);
    return back == cut.data();
}

/// Whether the field says how much a caller's buffer may hold: that is no value of a message.
bool IsLength(const Element& element) {
    return std::any_of(element.layout.begin(), element.layout.end(), [&element](const Field& other) {
        return other.kind == FieldKind::CallerText && std::string_view(other.lengthField) == element.field.name;
    });
}

/// Whether an element was read back, or there was nothing to read back.
bool IsReadBack(const Element& element, const unsigned char* record, const unsigned char* back) {
    const auto text = element.text(record);
    const auto textBack = element.text(back);
    if (text && textBack) {
        return text->empty() || *text == *textBack || IsWholeButForTerminator(element.field, *text, *textBack);
    }
    if (std::memcmp(record + element.offset, back + element.offset, element.field.elementSize) == 0) return true;
    const std::string json = element.json(record);
    return StatesNothing(json) || json == element.json(back) || IsLength(element);
}

/// A value of the form that the message has not.
struct Loss {
    Finding finding;
    Json::Value instead;  ///< what the message has, as the form would state it
    std::size_t record;   ///< offset of the record that has the field
};

/// Losses that are none of another's, but for those on the known paths: all that no message could have; else the first
/// of the outermost record; else the first of each nested one. Those behind a first one may be lost only along with it.
/// @param message null where there is none: then only the former are looked for
std::vector<Loss> LossesIn(const CatalogueEntry& entry, const Json::Value& form, RecordBuffer& record,
                           const Json::Value* message, const std::set<std::string>& known) {
    const unsigned char* const written = record.bytes();
    const bool isRead = message != nullptr && entry.readBack != nullptr;
    RecordBuffer buffer(*entry.layout);
    buffer.lendBuffers();
    if (isRead) entry.readBack(*message, written, buffer.bytes());
    const unsigned char* const back = buffer.bytes();

    std::vector<Loss> impossible;
    std::vector<Loss> outer;
    std::vector<Loss> nested;
    const auto compare = [&](const Element& element) {
        const char* const possible = PossibleInstead(element, written);
        const bool isOuter = &element.layout == entry.layout;
        std::vector<Loss>& losses = possible != nullptr ? impossible : isOuter ? outer : nested;
        if (possible == nullptr) {
            if (!isRead || IsReadBack(element, written, back)) return;
            if (!losses.empty() && (isOuter || losses.back().record == element.record)) return;
        }
        const auto unwritten = entry.unwritten;
        if (std::find(unwritten.begin(), unwritten.end(), NamesOf(element.step)) != unwritten.end()) return;
        const std::string path = PathOf(element.step);
        if (known.contains(path)) return;
        Json::Value instead = element.text(written) ? Json::Value("") : Json::Value(0);
        std::string expected;
        if (possible != nullptr) {
            expected = possible;
        } else {
            ReadStrictly(element.json(back), 1, instead);
            expected = fmt::format("a value that the message carries (read back as {}; {}: {})", Shown(instead),
                                   element.field.name, element.field.meaning);
        }
        losses.push_back({Unexpected(element.value, path, expected), std::move(instead), element.record});
    };
    Walk(form, *entry.layout, 0, nullptr, compare);
    return !impossible.empty() ? impossible : !outer.empty() ? outer : nested;
}

}  // namespace

void FindImpossible(const CatalogueEntry& entry, const Document& document, RecordBuffer& record,
                    std::vector<Finding>& findings) {
    for (Loss& loss : LossesIn(entry, document.node, record, nullptr, {})) findings.push_back(std::move(loss.finding));
}

bool MessageHasAll(const CatalogueEntry& entry, const Document& document, RecordBuffer& record,
                   const Json::Value& message, std::vector<Finding>& findings) {
    std::set<std::string> known;
    std::vector<Loss> losses = LossesIn(entry, document.node, record, &message, known);
    if (losses.empty()) return true;

    // What the message has instead goes into the form, so that what was lost only along with it comes back.
    Json::Value form = document.node;
    std::vector<Finding> none;
    while (!losses.empty()) {
        for (Loss& loss : losses) {
            *ValueAt(form, loss.finding.path, none) = loss.instead;
            known.insert(loss.finding.path);
            findings.push_back(std::move(loss.finding));
        }
        RecordBuffer restated(*entry.layout);
        Json::Value rewritten;
        if (!ReadRecord(form, document.text, restated, none) || !entry.encode(restated.bytes(), rewritten)) break;
        losses = LossesIn(entry, form, restated, &rewritten, known);
    }
    return false;
}

}  // namespace tool
