// A record, its form, and the record again: nothing is lost but what the form does not carry.

#include "tools/jsonparser/record_form.h"

#include <gtest/gtest.h>
#include <json/value.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "testing/locale.h"
#include "tools/jsonparser/catalogue.h"
#include "tools/jsonparser/record_buffer.h"
#include "tools/jsonparser/record_input.h"
#include "tools/jsonparser/strict_reader.h"

namespace {

using tool::Catalogue;
using tool::CatalogueEntry;
using tool::Finding;
using tool::RecordBuffer;
using vkrecords::Field;
using vkrecords::FieldKind;
using vkrecords::RecordLayout;

template <class T>
T Load(const unsigned char* bytes) {
    T value;
    std::memcpy(&value, bytes, sizeof value);
    return value;
}

template <class T>
void Store(T value, unsigned char* bytes) {
    std::memcpy(bytes, &value, sizeof value);
}

/// Random bytes made into a number that a record may hold: one in two is special. NaN carries no payload.
template <class Real>
void MakeReal(unsigned char* bytes) {
    using Limits = std::numeric_limits<Real>;
    const Real specials[] = {Limits::quiet_NaN(), Limits::infinity(),   -Limits::infinity(), Limits::max(),
                             Limits::lowest(),    Limits::denorm_min(), Limits::min(),       static_cast<Real>(-0.0)};
    Real value = Load<Real>(bytes);
    if (bytes[0] % 16 < std::size(specials)) value = specials[bytes[0] % 16];
    if (std::isnan(value)) value = Limits::quiet_NaN();
    Store(value, bytes);
}

/// Makes random bytes a record of that layout: every value that its fields can hold may come, texts of any bytes, with
/// and without terminator, pointers to texts of their own and null.
class RecordMaker {
  public:
    RecordMaker(RecordBuffer& record, const std::vector<std::string>& texts) : record_(record), texts_(texts) {}

    void make(const RecordLayout& layout, unsigned char* bytes) {
        for (const Field& field : layout) {
            for (std::size_t i = 0; i < field.count(); ++i) {
                makeElement(layout, bytes, field, bytes + field.offset + i * field.elementSize);
            }
        }
    }

  private:
    void makeElement(const RecordLayout& layout, unsigned char* record, const Field& field, unsigned char* bytes) {
        switch (field.kind) {
            case FieldKind::Bool:
                *bytes &= 1U;
                return;
            case FieldKind::Float:
                return MakeReal<float>(bytes);
            case FieldKind::Double:
                return MakeReal<double>(bytes);
            case FieldKind::Text: {
                auto* text = reinterpret_cast<char*>(bytes);
                const std::size_t length = strnlen(text, field.elementSize);
                std::memset(text + length, 0, field.elementSize - length);
                return;
            }
            case FieldKind::HeapText:
                return makeHeapText(bytes);
            case FieldKind::CallerText:
                return makeCallerText(layout, record, field, bytes);
            case FieldKind::Record:
                return make(*field.record, bytes);
            case FieldKind::Reserved:
                std::memset(bytes, 0, field.elementSize);
                return;
            default:
                return;  // integers and bits: any bytes will do
        }
    }

    /// A text, or nothing where the pointer is to be null.
    std::optional<std::string> nextText() {
        if (texts_.empty()) return std::nullopt;
        const std::string& text = texts_[next_++ % texts_.size()];
        if (text.starts_with('0')) return std::nullopt;
        return text.substr(0, text.find('\0'));
    }

    void makeHeapText(unsigned char* bytes) {
        const std::optional<std::string> text = nextText();
        char* owned = text ? new char[text->size() + 1] : nullptr;
        if (text) std::memcpy(owned, text->c_str(), text->size() + 1);
        Store(owned, bytes);
    }

    /// The text may fill its buffer, so that no terminator counts.
    void makeCallerText(const RecordLayout& layout, unsigned char* record, const Field& field, unsigned char* bytes) {
        unsigned char& length = record[tool::LengthField(layout, field).offset];
        const std::optional<std::string> text = nextText();
        if (!text) return Store<char*>(nullptr, bytes);
        const unsigned char stated = length;
        record_.lendText(layout, record, field, text->substr(0, stated));
        length = stated;
    }

    RecordBuffer& record_;
    const std::vector<std::string>& texts_;
    std::size_t next_ = 0;
};

/// The first field in which two records differ in what the form carries; empty when there is none.
std::string FirstDifference(const RecordLayout& layout, const unsigned char* a, const unsigned char* b) {
    const auto pointedTo = [&layout](const unsigned char* record, const Field& field, const unsigned char* bytes) {
        const char* text = Load<const char*>(bytes);
        if (text == nullptr) return std::optional<std::string>();
        const bool isLent = field.kind == FieldKind::CallerText;
        const std::size_t most = isLent ? record[tool::LengthField(layout, field).offset] : std::strlen(text);
        return std::optional<std::string>(std::string(text, strnlen(text, most)));
    };
    for (const Field& field : layout) {
        for (std::size_t i = 0; i < field.count(); ++i) {
            const std::size_t at = field.offset + i * field.elementSize;
            std::string inside;
            bool same = true;
            if (field.kind == FieldKind::Record) {
                inside = FirstDifference(*field.record, a + at, b + at);
                same = inside.empty();
            } else if (field.kind == FieldKind::HeapText || field.kind == FieldKind::CallerText) {
                same = pointedTo(a, field, a + at) == pointedTo(b, field, b + at);
            } else {
                same = std::memcmp(a + at, b + at, field.elementSize) == 0;
            }
            if (!same) return std::string(layout.name) + '.' + field.name + '[' + std::to_string(i) + "] " + inside;
        }
    }
    return "";
}

/// Random records of the entry's layout go through their form and come back the same.
void ExpectLossless(const CatalogueEntry& entry) {
    const RecordLayout& layout = *entry.layout;
    const bool passed = rc::check(std::string(entry.name), [&layout] {
        const auto bytes =
            *rc::gen::container<std::vector<unsigned char>>(layout.size, rc::gen::arbitrary<unsigned char>());
        const auto texts = *rc::gen::arbitrary<std::vector<std::string>>();
        RecordBuffer record(layout);
        std::memcpy(record.bytes(), bytes.data(), layout.size);
        RecordMaker(record, texts).make(layout, record.bytes());

        const std::string form = tool::RecordAsJson(layout, record.bytes());
        Json::Value read;
        const std::optional<Finding> defect = tool::ReadStrictly(form, 64, read);
        if (defect) RC_FAIL(defect->text + " in " + form);
        RecordBuffer again(layout);
        std::vector<Finding> findings;
        if (!tool::ReadRecord(read, form, again, findings)) RC_FAIL(findings[0].path + ": " + findings[0].text);
        RC_ASSERT(FirstDifference(layout, record.bytes(), again.bytes()) == std::string());
        RC_ASSERT(tool::RecordAsJson(layout, again.bytes()) == form);
    });
    EXPECT_TRUE(passed) << entry.name;
}

class RecordForm : public testing::TestWithParam<std::size_t> {};

TEST_P(RecordForm, CarriesEveryRecordThereAndBack) { ExpectLossless(Catalogue()[GetParam()]); }

/// The entry's name, as far as a test may have it.
std::string NameOf(const testing::TestParamInfo<std::size_t>& entry) {
    std::string name(Catalogue()[entry.param].name);
    for (char& c : name) c = c == '/' ? '_' : c;
    return name;
}

INSTANTIATE_TEST_SUITE_P(Catalogue, RecordForm, testing::Range<std::size_t>(0, Catalogue().size()), NameOf);

TEST(RecordFormUnderGbk, CarriesTextsOfAnyBytes) {
    const testing_tools::ThreadLocale locale("zh_CN.GBK");
    for (const CatalogueEntry& entry : Catalogue()) {
        if (entry.name == "tagVK_TSECT" || entry.name == "tagNET_HDDSMART_INFO" ||
            entry.name == "tagFACERECOGNITION_PERSON_INFO") {
            ExpectLossless(entry);
        }
    }
}

// The digits of the largest float are those of a larger whole number.
TEST(RecordFormUnderADecimalComma, CarriesTheLargestNumber) {
    const testing_tools::ThreadLocale locale("de_DE.UTF-8");
    std::vector<std::string> alternatives;
    const CatalogueEntry* entry = tool::FindEntry("tagRANGE/float", alternatives);
    ASSERT_NE(entry, nullptr);
    const std::string form = R"({"fMax":3.4028235e+38})";
    Json::Value document;
    ASSERT_FALSE(tool::ReadStrictly(form, 64, document));
    RecordBuffer record(*entry->layout);
    std::vector<Finding> findings;
    EXPECT_TRUE(tool::ReadRecord(document, form, record, findings));
    float read = 0;
    std::memcpy(&read, record.bytes(), sizeof read);
    EXPECT_EQ(read, std::numeric_limits<float>::max());
}

}  // namespace
