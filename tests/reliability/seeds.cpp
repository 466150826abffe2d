// Writes what fuzzing begins with: a message for each reader, records for each writer, forms of all records, texts, and
// the dictionaries of all names and words of messages, and of all fields of records.
//
//   jsonparser_seeds FOLDER

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <limits>
#include <set>
#include <string>

#include "fuzz/converters.h"
#include "places.h"
#include "testing/json.h"
#include "tools/jsonparser/catalogue.h"
#include "vkprotocolstack/vocabulary.h"

namespace {

using reliability::Path;

bool failed = false;

void Write(const std::filesystem::path& file, const std::string& bytes) {
    std::filesystem::create_directories(file.parent_path());
    std::ofstream stream(file, std::ios::binary);
    stream << bytes;
    stream.close();
    if (!stream.fail()) return;
    std::fprintf(stderr, "%s: cannot be written\n", file.c_str());
    failed = true;
}

std::string Byte(std::size_t number) { return {static_cast<char>(number)}; }

/// Quoted as libFuzzer's dictionaries have it.
std::string Quoted(const std::string& text) {
    std::string quoted = "\"";
    for (const char byte : text) {
        if (byte == '"' || byte == '\\') quoted += '\\';
        quoted += byte;
    }
    return quoted + '"';
}

void WriteDictionary(const std::filesystem::path& file, const std::string& what, const std::set<std::string>& words) {
    std::string dictionary = "# " + what + ", written by jsonparser_seeds\n";
    for (const std::string& word : words) {
        if (!word.empty()) dictionary += Quoted(word) + '\n';
    }
    Write(file, dictionary);
}

/// One message with a value at every place, and the first sample, behind the byte that chooses the reader.
void WriteReaders(const std::filesystem::path& folder, std::set<std::string>& words) {
    const auto readers = fuzz::Readers();
    for (std::size_t i = 0; i < readers.size(); ++i) {
        const reliability::Places& places = reliability::PlacesOf(readers[i]);
        for (const auto& [path, filling] : places) {
            for (const reliability::Step& step : path) {
                if (const auto* name = std::get_if<std::string>(&step)) words.insert(*name);
            }
        }
        const std::string number = std::to_string(i);
        const Json::Value message = reliability::Message(places, {"1 08:00:00-17:30:00", 2, true});
        Write(folder / (number + "_every_place"), Byte(i) + testing_tools::Text(message));
        const std::vector<Json::Value> samples = reliability::Samples(readers[i]);
        if (!samples.empty()) Write(folder / (number + "_sample"), Byte(i) + testing_tools::Text(samples.front()));
    }
}

void WriteWriters(const std::filesystem::path& folder) {
    for (std::size_t i = 0; i < fuzz::Writers().size(); ++i) {
        Write(folder / (std::to_string(i) + "_small"), Byte(i) + Byte(0) + std::string("\1\0\0\0", 4));
        Write(folder / (std::to_string(i) + "_text"), Byte(i) + Byte(1) + "text");
    }
}

void WriteTexts(const std::filesystem::path& folder) {
    const std::string texts[] = {"路口", "1 08:00:00-17:30:00", "\xC2\xB7\xBF\xDA", "\xF0\x9F\x9A\x97\xED\xA0\x80\xFF",
                                 "é\x01\"\\"};
    std::size_t count = 0;
    for (const std::string& text : texts) {
        for (std::size_t locale = 0; locale < 5; ++locale) {
            Write(folder / std::to_string(count++), Byte(locale) + Byte(7) + text);
        }
    }
}

void WriteScans(const std::filesystem::path& folder) {
    const std::string texts[] = {"2024-01-05 09:30:00.250", "20240105 093000", "09:30:00",
                                 "1 08:00:00-17:30:00",     " -1 +2:3",        "99999999999999999999"};
    std::size_t count = 0;
    for (const std::string& text : texts) Write(folder / std::to_string(count++), text);
}

/// Eight bytes choose reader, place and options.
void WriteRoads(const std::filesystem::path& folder) {
    for (std::size_t i = 0; i < 8; ++i) {
        Write(folder / std::to_string(i), Byte(i) + std::string(7, '\0') + R"({"UTC": 1704447000, "Text": "\u4eac"})");
    }
}

void WriteToolInput(const std::filesystem::path& folder) {
    const std::string texts[] = {R"({"a": [1, -2.5e3, true, null, "\ud83d\ude97"]})",
                                 "[[[[]]]]",
                                 "18446744073709551616",
                                 "[1,]",
                                 "\"\\u0000\"",
                                 "{\"a\":1,\"a\":2}"};
    std::size_t count = 0;
    for (const std::string& text : texts) Write(folder / std::to_string(count++), text);
}

Json::Value FormOf(const vkrecords::RecordLayout& layout, bool border);

/// A value that one element of the field takes, a usual one or one at a border.
Json::Value ElementOf(const vkrecords::Field& field, bool border) {
    static const Json::Value kReals[] = {-0.0, "NaN", "-Infinity", 1e-45, 3.4028234663852886e38, 0.1};
    static std::size_t real = 0;
    switch (field.kind) {
        case vkrecords::FieldKind::Bool:
            return true;
        case vkrecords::FieldKind::Int32:
            return border ? std::numeric_limits<int>::min() : 1;
        case vkrecords::FieldKind::Float:
        case vkrecords::FieldKind::Double:
            return border ? kReals[real++ % std::size(kReals)] : Json::Value(2.5);
        case vkrecords::FieldKind::Text:
        case vkrecords::FieldKind::HeapText:
        case vkrecords::FieldKind::CallerText:
            return border ? testing_tools::Json(R"({"hex": "c4ff"})") : Json::Value("a");
        case vkrecords::FieldKind::Record:
            return FormOf(*field.record, border);
        default:
            return 1;
    }
}

/// A value for every field; for an array, its first element.
Json::Value FormOf(const vkrecords::RecordLayout& layout, bool border) {
    Json::Value form(Json::objectValue);
    for (const vkrecords::Field& field : layout) {
        if (field.kind == vkrecords::FieldKind::Reserved) continue;
        Json::Value value = ElementOf(field, border);
        for (std::size_t i = 0; i < field.rank; ++i) {
            Json::Value array;
            array.append(value);
            value = array;
        }
        form[field.name] = value;
    }
    return form;
}

/// Two bytes choose entry, encoding and way of reading.
void WriteToolRecords(const std::filesystem::path& folder, std::set<std::string>& fields) {
    const auto entries = tool::Catalogue();
    for (std::size_t i = 0; i < entries.size(); ++i) {
        for (const vkrecords::Field& field : *entries[i].layout) fields.insert(field.name);
        for (const bool border : {false, true}) {
            const std::string form = testing_tools::Text(FormOf(*entries[i].layout, border));
            Write(folder / (std::to_string(i) + (border ? "_borders" : "_usual")), Byte(i) + Byte(i % 5) + form);
        }
    }
    const std::string refused[] = {R"({"nUnknown": 1})", R"({"wFacePicNum": 49, "szUID": "王"})", "[1]", "{,}",
                                   R"({"szPersonName": {"hex": "4"}, /**/ "bySex": -1,})"};
    const auto person = std::find_if(entries.begin(), entries.end(), [](const tool::CatalogueEntry& entry) {
        return entry.name == "tagFACERECOGNITION_PERSON_INFOEX";
    });
    const std::string number = Byte(static_cast<std::size_t>(person - entries.begin()));
    std::size_t count = 0;
    for (const std::string& form : refused) {
        for (const std::size_t lenient : {0x00U, 0x80U}) {
            Write(folder / ("refused_" + std::to_string(count++)), number + Byte(lenient) + form);
        }
    }
}

/// Three bytes choose entry, options and batches.
void WriteToolLines(const std::filesystem::path& folder) {
    const std::string texts[] = {"[1,2,3,4]\n\r\n \n[1,2,3]\r\n[",
                                 "[1,          2,3,4]\r\n[1,2,3,           4]y\r\n",
                                 R"({"a":[1,2,3,4]})"
                                 "\n{}\n[1]",
                                 "\xFF\xFE[\n[1,2,3,4]",
                                 "\xEF\xBB\xBF[0,1,2,3]\nnull",
                                 R"({"left":1})"
                                 "\n[1, 2, 3, 4] \n" +
                                     std::string(70, '[')};
    std::size_t count = 0;
    for (const std::string& text : texts) {
        for (const std::size_t options : {0x00U, 0x02U, 0x11U, 0x68U}) {
            Write(folder / std::to_string(count), Byte(0) + Byte(options) + Byte(count * 53) + text + '\n' + text);
            ++count;
        }
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: jsonparser_seeds FOLDER\n");
        return 2;
    }
    const std::filesystem::path folder = argv[1];
    std::set<std::string> words;
    WriteReaders(folder / "corpus" / "readers", words);
    WriteWriters(folder / "corpus" / "writers");
    WriteTexts(folder / "corpus" / "texts");
    WriteScans(folder / "corpus" / "scan");
    WriteRoads(folder / "corpus" / "text_road");
    WriteToolInput(folder / "corpus" / "tool_input");
    std::set<std::string> fields;
    WriteToolRecords(folder / "corpus" / "tool_record", fields);
    WriteToolLines(folder / "corpus" / "tool_lines");
    for (const jsonparser::Vocabulary& vocabulary : jsonparser::Vocabularies()) {
        for (const jsonparser::Keyword& row : vocabulary) words.emplace(row.text);
    }
    WriteDictionary(folder / "words.dict", "Names and words of the device protocol", words);
    WriteDictionary(folder / "tool_record.dict", "Fields of records", fields);
    return failed ? 1 : 0;
}
