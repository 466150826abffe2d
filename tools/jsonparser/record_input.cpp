#include "record_input.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <optional>
#include <string_view>
#include <type_traits>

#include "local_text.h"
#include "strict_reader.h"
#include "utf8.h"
#include "vkprotocolstack/wire/nearest.h"

namespace tool {
namespace {

using vkrecords::Field;
using vkrecords::FieldKind;
using vkrecords::RecordLayout;

/// The bytes that {"hex": "..."} stands for; none of them is NUL, which would end the text.
std::optional<std::string> BytesOf(const Json::Value& value) {
    if (!value.isObject() || value.size() != 1 || !value["hex"].isString()) return std::nullopt;
    const std::string digits = value["hex"].asString();
    if (digits.size() % 2 != 0 || digits.find_first_not_of("0123456789abcdefABCDEF") != std::string::npos) {
        return std::nullopt;
    }
    std::string bytes;
    for (std::size_t i = 0; i < digits.size(); i += 2) {
        bytes += static_cast<char>(std::stoi(digits.substr(i, 2), nullptr, 16));
    }
    if (bytes.find('\0') != std::string::npos) return std::nullopt;
    return bytes;
}

/// The local text that a value of the form stands for.
std::optional<std::string> LocalText(const Json::Value& value) {
    if (!value.isString()) return BytesOf(value);
    const std::string utf8 = value.asString();
    if (utf8.find('\0') != std::string::npos) return std::nullopt;
    return ToLocal(utf8);
}

/// Written as an integer: jsoncpp counts 1.0 as one too.
bool IsInteger(const Json::Value& value) { return value.type() == Json::intValue || value.type() == Json::uintValue; }

template <class Real>
std::optional<Real> RealOf(const Json::Value& value) {
    using Limits = std::numeric_limits<Real>;
    if (value == "NaN") return Limits::quiet_NaN();
    if (value == "Infinity") return Limits::infinity();
    if (value == "-Infinity") return -Limits::infinity();
    if (!value.isNumeric()) return std::nullopt;
    const double number = value.asDouble();
    if constexpr (std::is_same_v<Real, float>) {
        // The shortest digits of the largest float are those of a double beyond it, which rounds to it.
        constexpr double kRoundsBeyond = 0x1.ffffffp127;
        if (std::abs(number) >= kRoundsBeyond) return std::nullopt;
        if (std::abs(number) > Limits::max()) return number < 0 ? Limits::lowest() : Limits::max();
    }
    return static_cast<Real>(number);
}

/// Whether a field has the whole number that stands in the form, or is printed as it. Fractions are rounded, whole
/// numbers are not.
template <class Real>
bool HasWhole(Real number, const Json::Value& value) {
    if (value.isString() || std::trunc(value.asDouble()) != value.asDouble()) return true;
    const std::string digits = fmt::format("{}", number);
    double printed = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), printed);  // in every locale the same
    return double{number} == value.asDouble() || printed == value.asDouble();
}

class RecordReader {
  public:
    RecordReader(std::string_view document, RecordBuffer& buffer, std::vector<Finding>& findings)
        : document_(document), buffer_(buffer), findings_(findings) {}

    void read(const Json::Value& form, const RecordLayout& layout, unsigned char* record, const std::string& path) {
        if (!form.isObject()) return find(path, form, fmt::format("an object with the fields of {}", layout.name));
        for (const std::string& name : form.getMemberNames()) {
            const std::string place = path + PointerStep(name);
            const Field* field = fieldNamed(layout, name);
            if (field == nullptr) {
                findings_.push_back({NameOffset(document_, static_cast<std::size_t>(form[name].getOffsetStart())),
                                     place,
                                     fmt::format("found {}, expected a field of {}{}", QuotedText(name), layout.name,
                                                 Proposal(layout, name))});
            } else if (field->kind != FieldKind::CallerText) {
                readField(form[name], *field, record + field->offset, place);
            }
        }
        // Behind their length fields, which say how much they may hold.
        for (const Field& field : layout) {
            if (field.kind != FieldKind::CallerText || !form.isMember(field.name)) continue;
            std::optional<unsigned char> stated;
            if (const Json::Value& length = form[field.lengthField];
                length.isUInt() && length.asUInt() <= kMaximumLength) {
                stated = record[LengthField(layout, field).offset];
            }
            readCallerText(form[field.name], layout, record, field, stated, path + PointerStep(field.name));
        }
    }

  private:
    static const Field* fieldNamed(const RecordLayout& layout, const std::string& name) {
        for (const Field& field : layout) {
            if (field.kind != FieldKind::Reserved && name == field.name) return &field;
        }
        return nullptr;
    }

    /// The field that the user may have meant.
    static std::string Proposal(const RecordLayout& layout, const std::string& name) {
        std::vector<std::string_view> fields;
        for (const Field& field : layout) {
            if (field.kind != FieldKind::Reserved) fields.emplace_back(field.name);
        }
        const auto near = jsonparser::Nearest(name, fields);
        return near ? fmt::format("; did you mean {}?", *near) : "";
    }

    void find(const std::string& path, const Json::Value& found, const std::string& expected) {
        findings_.push_back(Unexpected(found, path, expected));
    }

    void readField(const Json::Value& value, const Field& field, unsigned char* bytes, const std::string& path) {
        const auto element = [&](const Json::Value& one, unsigned char* at, const std::string& where) {
            readElement(one, field, at, where);
        };
        if (field.rank == 0) return element(value, bytes, path);
        if (field.rank == 1) return readArray(value, field.extents[0], field.elementSize, bytes, path, element);
        const auto row = [&](const Json::Value& one, unsigned char* at, const std::string& where) {
            readArray(one, field.extents[1], field.elementSize, at, where, element);
        };
        readArray(value, field.extents[0], field.elementSize * field.extents[1], bytes, path, row);
    }

    template <class Element>
    void readArray(const Json::Value& value, std::size_t extent, std::size_t step, unsigned char* bytes,
                   const std::string& path, Element element) {
        if (!value.isArray() || value.size() > extent)
            return find(path, value, fmt::format("an array of at most {}", extent));
        for (Json::ArrayIndex i = 0; i < value.size(); ++i) {
            element(value[i], bytes + i * step, fmt::format("{}/{}", path, i));
        }
    }

    void readElement(const Json::Value& value, const Field& field, unsigned char* bytes, const std::string& path) {
        switch (field.kind) {
            case FieldKind::Bool:
                if (!value.isBool()) return find(path, value, "true or false");
                *bytes = value.asBool() ? 1 : 0;
                return;
            case FieldKind::Int16:
                return storeInteger<short>(value, bytes, path);
            case FieldKind::Int32:
                return storeInteger<int>(value, bytes, path);
            case FieldKind::Int64:
                return storeInteger<long long>(value, bytes, path);
            case FieldKind::UInt8:
                return storeInteger<unsigned char>(value, bytes, path);
            case FieldKind::UInt16:
                return storeInteger<unsigned short>(value, bytes, path);
            case FieldKind::UInt32:
                return storeInteger<unsigned>(value, bytes, path);
            case FieldKind::Bits:
                return storeBits(value, field, bytes, path);
            case FieldKind::Float:
                return storeReal<float>(value, bytes, path);
            case FieldKind::Double:
                return storeReal<double>(value, bytes, path);
            case FieldKind::Text:
                return storeText(value, field, bytes, path);
            case FieldKind::HeapText:
                return storeHeapText(value, bytes, path);
            case FieldKind::Record:
                return read(value, *field.record, bytes, path);
            case FieldKind::CallerText:
            case FieldKind::Reserved:
                return;
        }
    }

    template <class T>
    static void store(T value, unsigned char* bytes) {
        std::memcpy(bytes, &value, sizeof value);
    }

    template <class Integer>
    void storeInteger(const Json::Value& value, unsigned char* bytes, const std::string& path) {
        using Limits = std::numeric_limits<Integer>;
        const bool inside = IsInteger(value) && value.isInt64() && value.asInt64() >= Limits::min() &&
                            value.asInt64() <= static_cast<Json::Int64>(Limits::max());
        if (!inside) return find(path, value, fmt::format("an integer from {} to {}", Limits::min(), Limits::max()));
        store(static_cast<Integer>(value.asInt64()), bytes);
    }

    void storeBits(const Json::Value& value, const Field& field, unsigned char* bytes, const std::string& path) {
        const unsigned maximum = (1U << field.width) - 1U;
        if (!IsInteger(value) || !value.isUInt() || value.asUInt() > maximum) {
            return find(path, value, fmt::format("an integer from 0 to {}", maximum));
        }
        unsigned word = 0;
        std::memcpy(&word, bytes, sizeof word);
        store((word & ~(maximum << field.bit)) | (value.asUInt() << field.bit), bytes);
    }

    template <class Real>
    void storeReal(const Json::Value& value, unsigned char* bytes, const std::string& path) {
        const std::optional<Real> number = RealOf<Real>(value);
        if (!number) return find(path, value, R"(a number in range, "NaN", "Infinity" or "-Infinity")");
        if (!HasWhole(*number, value)) {
            return find(path, value, fmt::format("a number that the field has: the nearest is {}", *number));
        }
        store(*number, bytes);
    }

    /// The local text that a value stands for; nothing, with a finding, when it is no text of at most that many bytes.
    std::optional<std::string> localText(const Json::Value& value, std::size_t most, const std::string& path,
                                         const std::string& expected) {
        std::optional<std::string> text = LocalText(value);
        if (text && value.isString() && *text != value.asString() && ToUtf8(*text) != value.asString()) {
            find(path, value, "a text of characters that the local encoding has");
            return std::nullopt;
        }
        if (text && text->size() <= most) return text;
        find(path, value, expected);
        return std::nullopt;
    }

    void storeText(const Json::Value& value, const Field& field, unsigned char* bytes, const std::string& path) {
        const std::optional<std::string> text =
            localText(value, field.elementSize, path,
                      fmt::format("a text of at most {} bytes, or {{\"hex\": its bytes}}", field.elementSize));
        if (!text) return;
        std::copy(text->begin(), text->end(), bytes);
    }

    void storeHeapText(const Json::Value& value, unsigned char* bytes, const std::string& path) {
        if (value.isNull()) return;
        const std::optional<std::string> text =
            localText(value, std::string::npos, path, "a text, {\"hex\": its bytes} or null");
        if (!text) return;
        char* owned = new char[text->size() + 1];
        std::memcpy(owned, text->c_str(), text->size() + 1);
        store(owned, bytes);
    }

    /// @param statedLength the form's own size of the buffer; nothing makes it fit the text
    void readCallerText(const Json::Value& value, const RecordLayout& layout, unsigned char* record, const Field& field,
                        std::optional<unsigned char> statedLength, const std::string& path) {
        if (value.isNull()) return;
        const std::size_t most = statedLength.value_or(kMaximumLength);
        const std::optional<std::string> text =
            localText(value, most, path,
                      fmt::format("a text of at most {} bytes, as {} has it, {{\"hex\": its bytes}} or null", most,
                                  field.lengthField));
        if (!text) return;
        buffer_.lendText(layout, record, field, *text);
        if (statedLength) record[LengthField(layout, field).offset] = *statedLength;
    }

    std::string_view document_;
    RecordBuffer& buffer_;
    std::vector<Finding>& findings_;
};

/// Counts that writers take without a bound, and the arrays whose elements they count.
constexpr struct {
    std::string_view count;
    std::string_view array;
} kCounted[] = {
    {"wFacePicNum",          "stuFacePicInfo"     },
    {"nCustomPersonInfoNum", "stuCustomPersonInfo"}
};

/// Whether every count of the form, which was read into a record of that layout, is within its array.
bool CountsAreWithinArrays(const Json::Value& form, const RecordLayout& layout, std::vector<Finding>& findings) {
    const std::size_t before = findings.size();
    for (const auto& [count, array] : kCounted) {
        const Json::Value* stated = form.find(count.data(), count.data() + count.size());
        if (stated == nullptr) continue;
        const auto* field =
            std::find_if(layout.begin(), layout.end(), [name = array](const Field& each) { return each.name == name; });
        const Json::Int64 extent = field == layout.end() ? 0 : static_cast<Json::Int64>(field->extents[0]);
        if (stated->asInt64() >= 0 && stated->asInt64() <= extent) continue;
        findings.push_back(
            Unexpected(*stated, PointerStep(count), fmt::format("at most {}, the elements of {}", extent, array)));
    }
    return findings.size() == before;
}

}  // namespace

bool ReadRecord(const Json::Value& form, std::string_view document, RecordBuffer& record,
                std::vector<Finding>& findings) {
    const std::size_t before = findings.size();
    RecordReader(document, record, findings).read(form, record.layout(), record.bytes(), "");
    return findings.size() == before;
}

bool ReadRecordToWrite(const Json::Value& form, std::string_view document, RecordBuffer& record,
                       std::vector<Finding>& findings) {
    return ReadRecord(form, document, record, findings) && CountsAreWithinArrays(form, record.layout(), findings);
}

}  // namespace tool
