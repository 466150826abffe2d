#include "commands.h"

#include <fmt/format.h>
#include <json/writer.h>

#include <algorithm>
#include <charconv>
#include <climits>
#include <cstdio>
#include <optional>
#include <string_view>

#include "catalogue.h"
#include "input.h"
#include "record_buffer.h"
#include "record_form.h"
#include "record_input.h"
#include "style.h"
#include "utf8.h"
#include "vkprotocolstack/JsonParser.h"
#include "vkprotocolstack/vocabulary.h"

namespace tool {
namespace {

bool Print(const std::string& text) { return std::fwrite(text.data(), 1, text.size(), stdout) == text.size(); }

void Complain(const std::string& line) {
    std::fprintf(stderr, "%s %s\n", StyleOf(stderr)(Style::kError, "jsonparser:").c_str(), line.c_str());
}

/// The entry of a record that the user named; complains when there is none.
const CatalogueEntry* EntryOf(const std::string& record) {
    std::vector<std::string> alternatives;
    const CatalogueEntry* entry = FindEntry(record, alternatives);
    if (entry != nullptr) return entry;
    if (alternatives.empty()) {
        Complain(fmt::format("found {}, expected the name of a record (see: jsonparser records)", QuotedText(record)));
    } else {
        Complain(fmt::format("found {}, expected one of {}", QuotedText(record), fmt::join(alternatives, ", ")));
    }
    return nullptr;
}

/// Reads one document; complains when it cannot be read. The node at the place in it that the user named goes to use,
/// which adds its findings.
template <class Use>
int WithDocument(const std::string& file, const std::string& at, Use use) {
    std::string text;
    std::string error;
    if (!ReadFile(file, text, error)) {
        Complain(error);
        return kCannotReadOrWrite;
    }
    std::vector<std::string> findings;
    Json::Value document;
    Json::Value* node = ParseDocument(file, text, document, findings) ? ValueAt(file, document, at, findings) : nullptr;
    if (node != nullptr) use(*node, findings);
    for (const std::string& finding : findings) Complain(finding);
    return findings.empty() ? kGood : kFindings;
}

/// Prints the record that one message holds.
int DecodeFile(const CatalogueEntry& entry, const std::string& file, const DecodeOptions& options) {
    return WithDocument(file, options.at, [&](Json::Value& node, std::vector<std::string>& findings) {
        RecordBuffer record(*entry.layout);
        record.lendBuffers();
        if (!entry.decode(node, record.bytes())) {
            findings.push_back(fmt::format("{}: {}: found {}, expected a whole {}", FileName(file),
                                           options.at.empty() ? "/" : options.at, Shown(node), entry.name));
        }
        Print(options.json ? RecordAsJson(*entry.layout, record.bytes()) : RecordAsText(*entry.layout, record.bytes()));
        if (options.hex) Print(RecordAsHex(*entry.layout, record.bytes()));
    });
}

/// Prints the message that one record, in the form in which decode prints it, becomes.
int EncodeFile(const CatalogueEntry& entry, const std::string& file) {
    return WithDocument(file, "", [&](const Json::Value& form, std::vector<std::string>& findings) {
        RecordBuffer record(*entry.layout);
        std::vector<std::string> inside;
        if (!ReadRecord(form, record, inside)) {
            for (const std::string& finding : inside)
                findings.push_back(fmt::format("{}: {}", FileName(file), finding));
            return;
        }
        Json::Value node;
        if (!entry.encode(record.bytes(), node)) {
            findings.push_back(
                fmt::format("{}: /: found a {} that the converter does not write", FileName(file), entry.name));
            return;
        }
        Json::StreamWriterBuilder builder;
        builder["indentation"] = "  ";
        builder["emitUTF8"] = true;
        Print(Json::writeString(builder, node) + '\n');
    });
}

std::vector<std::string> OrStandardInput(const std::vector<std::string>& files) {
    return files.empty() ? std::vector<std::string>{"-"} : files;
}

std::string VocabularyAsText(const jsonparser::Vocabulary& vocabulary) {
    std::string text = fmt::format("{}: {}\n", vocabulary.name, vocabulary.meaning);
    for (const jsonparser::Keyword& row : vocabulary) text += fmt::format("{:6}  {}\n", row.code, QuotedText(row.text));
    return text;
}

std::string VocabularyAsJson(const jsonparser::Vocabulary& vocabulary, bool first) {
    std::string rows;
    for (const jsonparser::Keyword& row : vocabulary) {
        rows +=
            fmt::format("{}{{\"code\": {}, \"text\": {}}}", rows.empty() ? "" : ", ", row.code, QuotedJson(row.text));
    }
    return fmt::format("{}\n  {{\"name\": {}, \"meaning\": {}, \"rows\": [{}]}}", first ? "" : ",",
                       QuotedJson(vocabulary.name), QuotedJson(vocabulary.meaning), rows);
}

/// A whole number of 32 bits, signed or unsigned: decimal, or hexadecimal after 0x. Nothing for any other text.
std::optional<unsigned> NumberOf32Bits(std::string_view text) {
    const bool isHex = text.starts_with("0x") || text.starts_with("0X");
    if (isHex) text.remove_prefix(2);
    if (isHex && text.starts_with('-')) return std::nullopt;
    long long number = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number, isHex ? 16 : 10);
    if (error != std::errc() || stop != end || number < INT_MIN || number > UINT_MAX) return std::nullopt;
    return static_cast<unsigned>(number);
}

/// What was printed must have arrived.
int Flushed(int code) {
    if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0) return code;
    Complain("cannot write to standard output");
    return kCannotReadOrWrite;
}

}  // namespace

int Decode(const DecodeOptions& options) {
    const CatalogueEntry* entry = EntryOf(options.record);
    if (entry == nullptr) return kUsage;
    if (entry->decode == nullptr) {
        Complain(fmt::format("{} is only written, there is nothing to decode", entry->name));
        return kUsage;
    }
    const std::vector<std::string> files = OrStandardInput(options.files);
    int code = kGood;
    for (const std::string& file : files) {
        if (files.size() > 1 && !options.json) Print(fmt::format("== {}\n", file));
        code = std::max(code, DecodeFile(*entry, file, options));
    }
    return Flushed(code);
}

int Encode(const std::string& record, const std::vector<std::string>& files) {
    const CatalogueEntry* entry = EntryOf(record);
    if (entry == nullptr) return kUsage;
    if (entry->encode == nullptr) {
        Complain(fmt::format("{} is only read, there is nothing to encode", entry->name));
        return kUsage;
    }
    int code = kGood;
    for (const std::string& file : OrStandardInput(files)) code = std::max(code, EncodeFile(*entry, file));
    return Flushed(code);
}

int ListRecords(bool json) {
    const char* separator = "[\n";
    for (const CatalogueEntry& entry : Catalogue()) {
        const char* ways = entry.decode == nullptr ? "encode" : entry.encode == nullptr ? "decode" : "decode, encode";
        if (json) {
            Print(fmt::format(R"({}  {{"name": {}, "size": {}, "decode": {}, "encode": {}, "meaning": {}}})", separator,
                              QuotedJson(entry.name), entry.layout->size, entry.decode != nullptr,
                              entry.encode != nullptr, QuotedJson(entry.meaning)));
            separator = ",\n";
        } else {
            Print(fmt::format("{:38} {:6} bytes  {:14}  {}\n", entry.name, entry.layout->size, ways, entry.meaning));
        }
    }
    if (json) Print("\n]\n");
    return Flushed(kGood);
}

int ListKeywords(const std::string& table, bool json) {
    bool found = table.empty();
    std::string all;
    for (const jsonparser::Vocabulary& vocabulary : jsonparser::Vocabularies()) {
        if (!table.empty() && Folded(vocabulary.name) != Folded(table)) continue;
        found = true;
        all += json ? VocabularyAsJson(vocabulary, all.empty()) : VocabularyAsText(vocabulary);
    }
    if (!found) {
        Complain(
            fmt::format("found {}, expected the name of a vocabulary (see: jsonparser keywords)", QuotedText(table)));
        return kUsage;
    }
    Print(json ? fmt::format("[{}\n]\n", all) : all);
    return Flushed(kGood);
}

int ListFields(const std::string& record, bool json) {
    const CatalogueEntry* entry = EntryOf(record);
    if (entry == nullptr) return kUsage;
    Print(json ? LayoutAsJson(*entry->layout) : LayoutAsText(*entry->layout));
    return Flushed(kGood);
}

int MapErrorCode(const std::string& code, bool json) {
    const std::optional<unsigned> device = NumberOf32Bits(code);
    if (!device) {
        Complain(
            fmt::format("found {}, expected a device error code: -2147483648 to 4294967295, or 0x and hexadecimal "
                        "digits up to 0xFFFFFFFF",
                        QuotedText(code)));
        return kUsage;
    }
    unsigned library = 0;
    const bool known = ParseErrorCode(*device, library);
    // Replies carry the code as a signed number.
    const int sent = static_cast<int>(*device);
    if (json) {
        Print(fmt::format(R"({{"code": {}, "device": "0x{:08X}", "library": {}}})", sent, *device,
                          known ? fmt::format(R"("0x{:08X}")", library) : "null"));
        Print("\n");
    } else if (known) {
        Print(fmt::format("0x{:08X} ({}) -> 0x{:08X}\n", *device, sent, library));
    }
    if (!known) {
        Json::Value reply;
        reply["error"]["code"] = *device;
        Complain(fmt::format("0x{:08X} ({}): no known device error code, a reply with it reads as 0x{:08X}", *device,
                             sent, ParseErrorCode(reply)));
    }
    return Flushed(known ? kGood : kFindings);
}

}  // namespace tool
