// Writes what fuzzing begins with: a message for each reader, records for each writer, texts, and the dictionary of all
// names and words.
//
//   jsonparser_seeds FOLDER

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <set>
#include <string>

#include "fuzz/converters.h"
#include "places.h"
#include "testing/json.h"
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
    for (const jsonparser::Vocabulary& vocabulary : jsonparser::Vocabularies()) {
        for (const jsonparser::Keyword& row : vocabulary) words.emplace(row.text);
    }
    words.erase("");
    std::string dictionary = "# Names and words of the device protocol, written by jsonparser_seeds\n";
    for (const std::string& word : words) dictionary += Quoted(word) + '\n';
    Write(folder / "words.dict", dictionary);
    return failed ? 1 : 0;
}
