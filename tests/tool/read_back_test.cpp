#include "tools/jsonparser/read_back.h"

#include <gtest/gtest.h>
#include <json/value.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <functional>
#include <iterator>
#include <limits>
#include <map>
#include <random>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "testing/json.h"
#include "testing/locale.h"
#include "tools/jsonparser/encode.h"
#include "tools/jsonparser/record_form.h"
#include "tools/jsonparser/record_input.h"
#include "tools/jsonparser/strict_reader.h"
#include "tools/jsonparser/trace_collector.h"

namespace {

using testing_tools::Text;
using tool::Catalogue;
using tool::CatalogueEntry;
using tool::Finding;
using tool::RecordBuffer;
using vkrecords::Field;
using vkrecords::FieldKind;
using vkrecords::RecordLayout;

bool IsBothWays(const CatalogueEntry& entry) { return entry.decode != nullptr && entry.encode != nullptr; }

/// Whether the field says how much a caller's buffer may hold.
bool IsLength(const RecordLayout& layout, const Field& field) {
    return std::any_of(layout.begin(), layout.end(), [&field](const Field& other) {
        return other.lengthField != nullptr && std::string_view(other.lengthField) == field.name;
    });
}

/// Makes forms of records at random: of values as people state them, and of values that fields can hold at all.
class FormMaker {
  public:
    FormMaker(unsigned seed, bool wild) : random_(seed), wild_(wild) {}

    Json::Value form(const RecordLayout& layout) {
        Json::Value made(Json::objectValue);
        for (const Field& field : layout) {
            if (field.kind == FieldKind::Reserved || IsLength(layout, field)) continue;
            made[field.name] = elements(field);
        }
        return made;
    }

    /// A value of the field, or of one of its elements.
    Json::Value element(const Field& field) {
        switch (field.kind) {
            case FieldKind::Bool:
                return random_() % 2 == 0;
            case FieldKind::Int16:
                return integer(std::numeric_limits<short>::min(), std::numeric_limits<short>::max());
            case FieldKind::Int32:
                return integer(std::numeric_limits<int>::min(), std::numeric_limits<int>::max());
            case FieldKind::Int64:
                return integer(std::numeric_limits<Json::Int64>::min(), std::numeric_limits<Json::Int64>::max());
            case FieldKind::UInt8:
                return integer(0, 255);
            case FieldKind::UInt16:
                // Counts that writers take without a bound.
                return std::string_view(field.name) == "wFacePicNum" ? Json::Int64(random_() % 49) : integer(0, 65535);
            case FieldKind::UInt32:
                return integer(0, std::numeric_limits<unsigned>::max());
            case FieldKind::Bits:
                return integer(0, (Json::Int64{1} << field.width) - 1);
            case FieldKind::Float:
            case FieldKind::Double:
                return real();
            case FieldKind::Text:
                return text(field.elementSize);
            case FieldKind::HeapText:
            case FieldKind::CallerText:
                return random_() % 4 == 0 ? Json::Value() : text(200);
            case FieldKind::Record:
                return form(*field.record);
            case FieldKind::Reserved:
                break;
        }
        return {};
    }

  private:
    Json::Value elements(const Field& field) {
        if (std::string_view(field.name) == "nCustomPersonInfoNum") return Json::Int64(random_() % 5);
        if (field.rank == 0) return element(field);
        Json::Value array(Json::arrayValue);
        for (Json::ArrayIndex i = 0; i < field.extents[0]; ++i) {
            if (field.rank == 1) {
                array[i] = element(field);
                continue;
            }
            for (Json::ArrayIndex j = 0; j < field.extents[1]; ++j) array[i][j] = element(field);
        }
        return array;
    }

    Json::Value integer(Json::Int64 least, Json::Int64 most) {
        const Json::Int64 usual = static_cast<Json::Int64>(random_() % 8);
        if (!wild_ || random_() % 2 == 0) return std::clamp(usual, least, most);
        const Json::Int64 unusual[] = {least, most, 99,          100,
                                       10000, -1,   usual << 32, static_cast<Json::Int64>(random_())};
        return std::clamp(unusual[random_() % std::size(unusual)], least, most);
    }

    Json::Value real() {
        const double usual = static_cast<double>(random_() % 100);
        if (!wild_) return usual;
        const Json::Value unusual[] = {usual, usual / 4, -usual, 1e25, "NaN", "Infinity", "-Infinity", -0.0};
        return unusual[random_() % std::size(unusual)];
    }

    Json::Value text(std::size_t capacity) {
        Json::Value hex;
        hex["hex"] = "41ff";
        const std::string usual(random_() % capacity, 'a');
        const Json::Value texts[] = {"", "x", usual, usual, "VIP", std::string(capacity, 'f'), hex, "王"};
        const Json::Value& text = texts[random_() % (wild_ ? std::size(texts) : 5)];
        return text.isString() && text.asString().size() > capacity ? Json::Value("") : text;
    }

    std::mt19937 random_;
    bool wild_;
};

/// Calls use with the place of every element of a form: names of the fields on the way, path, value, field.
using ForElement = std::function<void(const std::string& names, const std::string& path, Json::Value&, const Field&)>;

void ForElements(Json::Value& form, const RecordLayout& layout, const std::string& names, const std::string& path,
                 const ForElement& use) {
    for (const Field& field : layout) {
        if (!form.isMember(field.name) || IsLength(layout, field)) continue;
        const std::string name = names + (names.empty() ? "" : "/") + field.name;
        const std::function<void(Json::Value&, const std::string&)> each = [&](Json::Value& value,
                                                                               const std::string& place) {
            if (value.isArray()) {
                for (Json::ArrayIndex i = 0; i < value.size(); ++i) each(value[i], place + '/' + std::to_string(i));
            } else if (field.kind == FieldKind::Record) {
                ForElements(value, *field.record, name, place, use);
            } else {
                use(name, place, value, field);
            }
        };
        each(form[field.name], path + '/' + field.name);
    }
}

/// What encode makes of a form.
struct Encoded {
    bool isWritten = false;
    Json::Value message;
    std::vector<Finding> findings;
};

Encoded Encode(const CatalogueEntry& entry, Json::Value form) {
    Encoded encoded;
    const std::string text = Text(form);
    encoded.isWritten = EncodeWithFindings(entry, {text, form, ""}, encoded.message, encoded.findings);
    return encoded;
}

Json::Value FormOf(const RecordLayout& layout, const unsigned char* record) {
    Json::Value form;
    const std::string text = tool::RecordAsJson(layout, record);
    EXPECT_FALSE(tool::ReadStrictly(text, 64, form)) << text;
    return form;
}

/// The form of the record that the reader makes of a message.
Json::Value Decoded(const CatalogueEntry& entry, Json::Value message) {
    RecordBuffer record(*entry.layout);
    record.lendBuffers();
    entry.decode(message, record.bytes());
    return FormOf(*entry.layout, record.bytes());
}

Json::Value Message(const CatalogueEntry& entry, const Json::Value& form) {
    RecordBuffer record(*entry.layout);
    std::vector<Finding> findings;
    EXPECT_TRUE(tool::ReadRecord(form, "", record, findings)) << Text(form);
    const tool::TraceCollector quiet;
    Json::Value message;
    entry.encode(record.bytes(), message);
    return message;
}

/// A value of a form that is no container.
struct Element {
    std::string names;  ///< of the fields on the way
    Json::Value value;
    const Field* field;
};

/// The elements of a form by their paths.
std::map<std::string, Element> ElementsOf(const CatalogueEntry& entry, Json::Value form) {
    std::map<std::string, Element> elements;
    ForElements(
        form, *entry.layout, "", "",
        [&elements](const std::string& names, const std::string& path, const Json::Value& value, const Field& field) {
            elements[path] = {names, value, &field};
        });
    return elements;
}

constexpr std::string_view kLost = "expected a value that the message carries";

bool StatesNothing(const Json::Value& value) {
    return value.isNull() || value == false || value == "" || (value.isNumeric() && value.asDouble() == 0);
}

class ReadBack : public testing::TestWithParam<const CatalogueEntry*> {};

// The table of fields that are never written is exactly those that change no message.
TEST_P(ReadBack, LeavesOutTheFieldsThatNoMessageHas) {
    const CatalogueEntry& entry = *GetParam();
    std::set<std::string> written;
    std::set<std::string> all;
    for (unsigned seed = 1; seed <= 30; ++seed) {
        FormMaker maker(seed, false);
        Json::Value form = maker.form(*entry.layout);
        std::set<std::string> tried;  // an element of each field is enough
        const Json::Value message = Message(entry, form);
        ForElements(form, *entry.layout, "", "",
                    [&](const std::string& names, const std::string&, Json::Value& value, const Field& field) {
                        all.insert(names);
                        if (written.contains(names) || !tried.insert(names).second) return;
                        const Json::Value before = value;
                        for (int i = 0; i < 8; ++i) {
                            value = maker.element(field);
                            if (Message(entry, form) != message) written.insert(names);
                        }
                        value = before;
                    });
    }
    std::set<std::string> unwritten;
    std::set_difference(all.begin(), all.end(), written.begin(), written.end(),
                        std::inserter(unwritten, unwritten.end()));
    EXPECT_EQ(unwritten, std::set<std::string>(entry.unwritten.begin(), entry.unwritten.end()));
    // The tool's page has them all.
    std::ifstream page(JSONPARSER_MESSAGES "/../../docs/tool.md");
    const std::string text{std::istreambuf_iterator<char>(page), {}};
    const std::size_t table = text.find("| record | never written |");
    ASSERT_NE(table, text.npos);
    for (const std::string& names : unwritten) {
        const std::size_t row = text.find('`' + std::string(entry.name) + '`', table);
        ASSERT_NE(row, text.npos) << entry.name;
        const std::string line = text.substr(row, text.find('\n', row) - row);
        EXPECT_NE(line.find('`' + names.substr(names.rfind('/') + 1) + '`'), line.npos) << entry.name << ": " << names;
    }
}

// What the reader takes otherwise than it is written, or not at all. Tests of the tool name their values.
const std::set<std::string> kReadOtherwise = {
    "stuFacePicInfo/bIsDetected", "bAgeEnable", "nAgeRange",
    "nEmotionValidNum",           "emEmotions", "stuCustomPersonInfo/szPersonInfo"};

/// Whether a value of the form is the one that the reader has for it.
bool IsSame(const Field& field, const Json::Value& stated, const Json::Value& back) {
    if (field.name == std::string_view("dbDegrees")) {
        return std::abs(stated.asDouble() - back.asDouble() / 1e6) < 1.0 / 360000;
    }
    if (stated.isNumeric() && back.isNumeric()) return stated.asDouble() == back.asDouble();
    if (!stated.isString() || !back.isString() || stated == back) return stated == back;
    // A reader needs the last byte for the terminator.
    return field.kind == FieldKind::Text && stated.asString().size() == field.elementSize &&
           stated.asString().starts_with(back.asString()) && back.asString().size() + 3 >= field.elementSize;
}

/// Whether the reader has the element as the form states it, or has another way of taking it.
bool IsCarried(const Element& stated, const std::map<std::string, Element>& back, const std::string& path) {
    const Json::Value& value = stated.value;
    if (kReadOtherwise.contains(stated.names)) return true;
    // The short name is the name where there is no other.
    const auto name = back.find("/szPersonNameEx");
    if (stated.names == "szPersonName" && name != back.end() && value == name->second.value) return true;
    // Unknown, which leaves the member out.
    if (stated.names == "emWorkMode" && value == -1) return true;
    return IsSame(*stated.field, value, back.at(path).value);
}

TEST_P(ReadBack, FindsWhatTheMessageLosesAndNothingElse) {
    const CatalogueEntry& entry = *GetParam();
    for (unsigned seed = 1; seed <= 30; ++seed) {
        Json::Value form = FormMaker(seed, seed % 2 == 0).form(*entry.layout);
        // What is found is taken out of the form until the message carries what is left.
        Encoded encoded;
        while (!(encoded = Encode(entry, form)).isWritten) {
            ASSERT_TRUE(tool::HasDefects(encoded.findings)) << Text(form);
            const auto elements = ElementsOf(entry, form);
            const auto back = ElementsOf(entry, Decoded(entry, Message(entry, form)));
            for (const Finding& finding : encoded.findings) {
                ASSERT_TRUE(elements.contains(finding.path)) << finding.path << ": " << finding.text;
                const Element& stated = elements.at(finding.path);
                const bool isLoss = finding.text.find(kLost) != std::string::npos;
                ASSERT_TRUE(!isLoss || kReadOtherwise.contains(stated.names) || !IsCarried(stated, back, finding.path))
                    << finding.path << ": " << finding.text << " of " << Text(form);
                std::vector<Finding> none;
                Json::Value& value = *tool::ValueAt(form, finding.path, none);
                const bool isText = stated.field->kind >= FieldKind::Text;
                // The one record that cannot be written from zeros.
                value = isText ? Json::Value("") : Json::Value(entry.name == "FaceDBType" ? 1 : 0);
            }
        }
        Json::Value again;
        const std::string text = Text(encoded.message);
        ASSERT_FALSE(tool::ReadStrictly(text, 64, again)) << text;
        const auto back = ElementsOf(entry, Decoded(entry, again));
        for (const auto& [path, stated] : ElementsOf(entry, form)) {
            const auto unwritten = entry.unwritten;
            if (std::find(unwritten.begin(), unwritten.end(), stated.names) != unwritten.end()) continue;
            ASSERT_TRUE(StatesNothing(stated.value) || IsCarried(stated, back, path))
                << path << ": " << Text(back.at(path).value) << " of " << Text(form);
        }
    }
}

std::vector<const CatalogueEntry*> EntriesWithBothWays() {
    std::vector<const CatalogueEntry*> entries;
    for (const CatalogueEntry& entry : Catalogue()) {
        if (IsBothWays(entry)) entries.push_back(&entry);
    }
    return entries;
}

std::string NameOf(const testing::TestParamInfo<const CatalogueEntry*>& entry) {
    std::string name(entry.param->name);
    std::replace(name.begin(), name.end(), '/', '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(Catalogue, ReadBack, testing::ValuesIn(EntriesWithBothWays()), NameOf);

// ---- what readers take otherwise, and what nothing reads

const CatalogueEntry& EntryOf(std::string_view name) {
    std::vector<std::string> alternatives;
    return *tool::FindEntry(name, alternatives);
}

TEST(ReadBackOfPersons, TakesWhatOnlyWritersKnow) {
    const testing_tools::Utf8Texts utf8;
    const Json::Value form = testing_tools::Json(
        R"({"bAgeEnable": 1, "nAgeRange": [20, 30], "nEmotionValidNum": 15, "wFacePicNum": 2,
            "emEmotions": [0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14], "nCustomPersonInfoNum": 4,
            "stuCustomPersonInfo": [{"szPersonInfo": "1"}, {"szPersonInfo": ""}, {"szPersonInfo": "访客"},
                                    {"szPersonInfo": ")" +
        std::string(64, 'x') + R"("}], "stuFacePicInfo": [{"bIsDetected": 1}, {"bIsDetected": 255}]})");
    const Encoded encoded = Encode(EntryOf("tagFACERECOGNITION_PERSON_INFOEX"), form);
    EXPECT_TRUE(encoded.isWritten) << encoded.findings.at(0).path << encoded.findings.at(0).text;
    EXPECT_EQ(Text(encoded.message["Age"]), "[20,30]");
    EXPECT_EQ(encoded.message["Emotion"].size(), 15U);
    EXPECT_EQ(encoded.message["CustomPersonInfo"][3]["PersonInfo"], std::string(64, 'x'));
}

TEST(ReadBackOfPersons, FindsWhatOnlyWritersLose) {
    const std::pair<std::string, std::vector<std::string>> rows[] = {
        {R"({"nAgeRange": [20, 30]})",                                     {"/nAgeRange/0", "/nAgeRange/1"}  },
        {R"({"bAgeEnable": 2})",                                           {"/bAgeEnable"}                   },
        {R"({"emEmotions": [2]})",                                         {"/emEmotions/0"}                 },
        {R"({"nEmotionValidNum": 3, "emEmotions": [15, -1, 14]})",         {"/emEmotions/0", "/emEmotions/1"}},
        {R"({"nEmotionValidNum": 33})",                                    {"/nEmotionValidNum"}             },
        {R"({"nEmotionValidNum": -1})",                                    {"/nEmotionValidNum"}             },
        {R"({"nCustomPersonInfoNum": 1,
             "stuCustomPersonInfo": [{"szPersonInfo": "1"}, {"szPersonInfo": "2"}]})",
         {"/stuCustomPersonInfo/1/szPersonInfo"}                                                             },
        {R"({"stuFacePicInfo": [{"bIsDetected": 1}]})",                    {"/stuFacePicInfo/0/bIsDetected"} },
        {R"({"nAttractive": -2})",                                         {"/nAttractive"}                  },
        {R"({"byIsCustomType": 1, "byType": 4, "szCustomType": "guest"})", {"/byType"}                       },
        {R"({"byIsCustomType": 0, "byType": 7, "szCustomType": "guest"})", {"/byType", "/szCustomType"}      },
    };
    for (const auto& [form, paths] : rows) {
        const Encoded encoded = Encode(EntryOf("tagFACERECOGNITION_PERSON_INFOEX"), testing_tools::Json(form));
        std::vector<std::string> found;
        for (const Finding& finding : encoded.findings) found.push_back(finding.path);
        EXPECT_EQ(found, paths) << form;
        EXPECT_FALSE(encoded.isWritten) << form;
    }
}

// Of records that are only written nothing can be lost: every value of every field has a message of its own.
TEST(RecordsThatAreOnlyWritten, HaveAMessageForEveryValue) {
    std::size_t fields = 0;
    for (const CatalogueEntry& entry : Catalogue()) {
        if (entry.encode == nullptr || entry.readBack != nullptr) continue;
        for (const Field& field : *entry.layout) {
            ASSERT_EQ(field.kind, FieldKind::Bits) << entry.name;
            std::set<std::string> messages;
            for (unsigned value = 0; value < 1U << field.width; ++value) {
                Json::Value form;
                form[field.name] = value;
                const Encoded encoded = Encode(entry, form);
                EXPECT_TRUE(encoded.isWritten) << field.name << value;
                messages.insert(Text(encoded.message));
            }
            EXPECT_EQ(messages.size(), std::size_t{1} << field.width) << field.name;
            ++fields;
        }
    }
    EXPECT_EQ(fields, 6U);  // of _VKDEVTIME
}

TEST(CatalogueEntries, AreReadBackWhereTheyAreRead) {
    for (const CatalogueEntry& entry : Catalogue()) {
        EXPECT_EQ(entry.readBack != nullptr, IsBothWays(entry)) << entry.name;
        EXPECT_TRUE(entry.unwritten.empty() || IsBothWays(entry)) << entry.name;
    }
}

}  // namespace
