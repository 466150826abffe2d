#include "record_form.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <iterator>
#include <optional>
#include <string_view>
#include <vector>

#include "local_text.h"
#include "record_buffer.h"
#include "utf8.h"

namespace tool {
namespace {

using vkrecords::Field;
using vkrecords::FieldKind;
using vkrecords::RecordLayout;

/// The value of type T at an address of any alignment.
template <class T>
T Load(const unsigned char* bytes) {
    T value;
    std::memcpy(&value, bytes, sizeof value);
    return value;
}

unsigned LoadBits(const Field& field, const unsigned char* bytes) {
    return (Load<unsigned>(bytes) >> field.bit) & ((1U << field.width) - 1U);
}

/// Shortest digits that read back as the same number.
template <class Real>
std::string Digits(Real value) {
    if (std::isnan(value)) return "NaN";
    if (std::isinf(value)) return value < 0 ? "-Infinity" : "Infinity";
    return fmt::format("{}", value);
}

template <class Real>
std::string JsonDigits(Real value) {
    if (value == 0 && std::signbit(value)) return "-0.0";  // readers take -0 for an integer
    return std::isfinite(value) ? Digits(value) : QuotedJson(Digits(value));
}

void AppendJsonText(std::string& out, std::string_view local) {
    if (local.empty()) {
        out += R"("")";
        return;
    }
    const std::string text = ToUtf8(local);
    if (IsUtf8(text) && ToLocal(text) == local) {
        out += QuotedJson(text);
        return;
    }
    out += R"({"hex": ")";
    for (const char byte : local) {
        fmt::format_to(std::back_inserter(out), "{:02x}", static_cast<unsigned char>(byte));
    }
    out += R"("})";
}

template <class Integer>
void AppendInteger(std::string& out, Integer value) {
    const fmt::format_int digits(value);
    out.append(digits.data(), digits.size());
}

void AppendScalarAsText(std::string& out, const RecordLayout& layout, const unsigned char* record, const Field& field,
                        const unsigned char* bytes) {
    switch (field.kind) {
        case FieldKind::Bool:
            out += Load<unsigned char>(bytes) == 0 ? "false" : "true";
            return;
        case FieldKind::Int16:
            return AppendInteger(out, Load<short>(bytes));
        case FieldKind::Int32:
            return AppendInteger(out, Load<int>(bytes));
        case FieldKind::Int64:
            return AppendInteger(out, Load<long long>(bytes));
        case FieldKind::UInt8:
            return AppendInteger(out, unsigned{*bytes});
        case FieldKind::UInt16:
            return AppendInteger(out, unsigned{Load<unsigned short>(bytes)});
        case FieldKind::UInt32:
            return AppendInteger(out, Load<unsigned>(bytes));
        case FieldKind::Bits:
            return AppendInteger(out, LoadBits(field, bytes));
        case FieldKind::Float:
            out += Digits(Load<float>(bytes));
            return;
        case FieldKind::Double:
            out += Digits(Load<double>(bytes));
            return;
        case FieldKind::Text:
        case FieldKind::HeapText:
        case FieldKind::CallerText: {
            const auto text = ElementText(layout, record, field, bytes);
            out += text ? QuotedText(ToUtf8(*text)) : "null";
            return;
        }
        case FieldKind::Record:
        case FieldKind::Reserved:
            return;
    }
}

void AppendScalarAsJson(std::string& out, const RecordLayout& layout, const unsigned char* record, const Field& field,
                        const unsigned char* bytes) {
    switch (field.kind) {
        case FieldKind::Float:
            out += JsonDigits(Load<float>(bytes));
            return;
        case FieldKind::Double:
            out += JsonDigits(Load<double>(bytes));
            return;
        case FieldKind::Text:
        case FieldKind::HeapText:
        case FieldKind::CallerText:
            if (const auto text = ElementText(layout, record, field, bytes)) return AppendJsonText(out, *text);
            out += "null";
            return;
        default:
            return AppendScalarAsText(out, layout, record, field, bytes);
    }
}

/// Elements of a field, each appended by append, in brackets as the field's dimensions have it.
template <class Append>
void AppendElements(std::string& out, const Field& field, const unsigned char* bytes, std::string_view separator,
                    Append append) {
    if (field.rank == 0) return append(bytes);
    out += '[';
    for (std::size_t i = 0; i < field.extents[0]; ++i) {
        if (i > 0) out += separator;
        if (field.rank == 2) out += '[';
        for (std::size_t j = 0; j < field.extents[1]; ++j) {
            if (j > 0) out += separator;
            append(bytes + (i * field.extents[1] + j) * field.elementSize);
        }
        if (field.rank == 2) out += ']';
    }
    out += ']';
}

/// A nested record on one line.
void AppendInlineText(std::string& out, const RecordLayout& layout, const unsigned char* record) {
    out += '{';
    const char* comma = "";
    for (const Field& field : layout) {
        if (field.kind == FieldKind::Reserved) continue;
        ((out += comma) += field.name) += ' ';
        comma = ", ";
        AppendElements(out, field, record + field.offset, ", ", [&](const unsigned char* bytes) {
            if (field.kind == FieldKind::Record) return AppendInlineText(out, *field.record, bytes);
            AppendScalarAsText(out, layout, record, field, bytes);
        });
    }
    out += '}';
}

/// The record as JSON: a field a line, behind indent blanks; without indent all on one line, and no blanks.
void AppendJson(std::string& out, const RecordLayout& layout, const unsigned char* record,
                std::optional<std::size_t> indent) {
    const std::string lead = indent ? '\n' + std::string(*indent + 2, ' ') : "";
    out += '{';
    const char* comma = "";
    for (const Field& field : layout) {
        if (field.kind == FieldKind::Reserved) continue;
        (((out += comma) += lead) += '"') += field.name;
        out += indent ? "\": " : "\":";
        comma = ",";
        AppendElements(out, field, record + field.offset, indent ? ", " : ",", [&](const unsigned char* bytes) {
            if (field.kind != FieldKind::Record) return AppendScalarAsJson(out, layout, record, field, bytes);
            AppendJson(out, *field.record, bytes, indent ? std::optional(*indent + 2) : std::nullopt);
        });
    }
    if (indent) out.append(1, '\n').append(*indent, ' ');
    out += '}';
}

std::string TypeName(const Field& field) {
    std::string name;
    switch (field.kind) {
        case FieldKind::Bool:
            name = "bool";
            break;
        case FieldKind::Int16:
            name = "int16";
            break;
        case FieldKind::Int32:
            name = "int32";
            break;
        case FieldKind::Int64:
            name = "int64";
            break;
        case FieldKind::UInt8:
            name = "uint8";
            break;
        case FieldKind::UInt16:
            name = "uint16";
            break;
        case FieldKind::UInt32:
            name = "uint32";
            break;
        case FieldKind::Bits:
            name = fmt::format("bits {}..{}", field.bit, field.bit + field.width - 1);
            break;
        case FieldKind::Float:
            name = "float";
            break;
        case FieldKind::Double:
            name = "double";
            break;
        case FieldKind::Text:
            name = "char";
            break;
        case FieldKind::HeapText:
            name = "heap text";
            break;
        case FieldKind::CallerText:
            name = fmt::format("caller's buffer of {} bytes", field.lengthField);
            break;
        case FieldKind::Record:
            name = field.record->name;
            break;
        case FieldKind::Reserved:
            name = "reserved";
            break;
    }
    for (std::size_t i = 0; i < field.rank; ++i) name += fmt::format("[{}]", field.extents[i]);
    if (field.kind == FieldKind::Text) name += fmt::format("[{}]", field.elementSize);
    return name;
}

std::size_t NameWidth(const RecordLayout& layout) {
    std::size_t width = 0;
    for (const Field& field : layout) width = std::max(width, std::strlen(field.name));
    return width;
}

}  // namespace

std::string RecordAsText(const RecordLayout& layout, const void* record) {
    std::string out = fmt::format("{} ({} bytes)\n", layout.name, layout.size);
    const std::size_t width = NameWidth(layout);
    const auto* start = static_cast<const unsigned char*>(record);
    for (const Field& field : layout) {
        if (field.kind == FieldKind::Reserved) continue;
        const auto* bytes = start + field.offset;
        const std::string separator = field.kind == FieldKind::Record ? fmt::format("\n  {:{}}   ", "", width) : ", ";
        fmt::format_to(std::back_inserter(out), "  {:{}}  ", field.name, width);
        AppendElements(out, field, bytes, separator, [&](const unsigned char* at) {
            if (field.kind == FieldKind::Record) return AppendInlineText(out, *field.record, at);
            AppendScalarAsText(out, layout, start, field, at);
        });
        out += '\n';
    }
    return out;
}

std::string RecordAsJson(const RecordLayout& layout, const void* record) {
    std::string out;
    AppendJson(out, layout, static_cast<const unsigned char*>(record), 0);
    return out + '\n';
}

std::optional<std::string_view> ElementText(const RecordLayout& layout, const void* record, const Field& field,
                                            const void* element) {
    const auto* bytes = static_cast<const unsigned char*>(element);
    const bool points = field.kind == FieldKind::HeapText || field.kind == FieldKind::CallerText;
    if (!points && field.kind != FieldKind::Text) return std::nullopt;
    const char* text = points ? Load<const char*>(bytes) : reinterpret_cast<const char*>(bytes);
    if (text == nullptr) return std::nullopt;
    if (field.kind == FieldKind::HeapText) return std::string_view(text);
    const auto* lengths = static_cast<const unsigned char*>(record);
    return std::string_view(text,
                            strnlen(text, points ? lengths[LengthField(layout, field).offset] : field.elementSize));
}

std::string ElementAsJson(const RecordLayout& layout, const void* record, const Field& field, const void* element) {
    std::string out;
    AppendScalarAsJson(out, layout, static_cast<const unsigned char*>(record), field,
                       static_cast<const unsigned char*>(element));
    return out;
}

void AppendRecordLine(std::string& out, const RecordLayout& layout, const void* record) {
    AppendJson(out, layout, static_cast<const unsigned char*>(record), std::nullopt);
    out += '\n';
}

std::string RecordAsHex(const RecordLayout& layout, const void* record) {
    const auto* bytes = static_cast<const unsigned char*>(record);
    std::string out;
    for (std::size_t line = 0; line < layout.size; line += 16) {
        const auto field = std::find_if(layout.begin(), layout.end(), [line](const Field& candidate) {
            return line < candidate.offset + candidate.size();
        });
        std::string hex;
        for (std::size_t i = line; i < std::min(line + 16, layout.size); ++i) {
            fmt::format_to(std::back_inserter(hex), " {:02x}", bytes[i]);
        }
        fmt::format_to(std::back_inserter(out), "{:6} {:48}  {}\n", line, hex,
                       field == layout.end() ? "" : field->name);
    }
    return out;
}

std::string LayoutAsText(const RecordLayout& layout) {
    std::string out = fmt::format("{} ({} bytes)\n", layout.name, layout.size);
    const std::size_t nameWidth = NameWidth(layout);
    std::size_t typeWidth = 0;
    for (const Field& field : layout) typeWidth = std::max(typeWidth, TypeName(field).size());
    for (const Field& field : layout) {
        fmt::format_to(std::back_inserter(out), "{:7} {:6}  {:{}}  {:{}}  {}\n", field.offset, field.size(),
                       TypeName(field), typeWidth, field.name, nameWidth, field.meaning);
    }
    return out;
}

std::string LayoutAsJson(const RecordLayout& layout) {
    std::string out =
        fmt::format("{{\n  \"record\": \"{}\",\n  \"size\": {},\n  \"fields\": [", layout.name, layout.size);
    const char* separator = "\n";
    for (const Field& field : layout) {
        out += fmt::format("{}    {{\"name\": {}, \"offset\": {}, \"size\": {}, \"type\": {}, \"meaning\": {}}}",
                           separator, QuotedJson(field.name), field.offset, field.size(), QuotedJson(TypeName(field)),
                           QuotedJson(field.meaning));
        separator = ",\n";
    }
    return out + "\n  ]\n}\n";
}

}  // namespace tool
