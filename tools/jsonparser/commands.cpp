#include "commands.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <memory>

#include "catalogue.h"
#include "input.h"
#include "record_form.h"
#include "utf8.h"
#include "vkprotocolstack/JsonParser.h"

namespace tool {
namespace {

bool Print(const std::string& text) { return std::fwrite(text.data(), 1, text.size(), stdout) == text.size(); }

void Complain(const std::string& line) { std::fprintf(stderr, "jsonparser: %s\n", line.c_str()); }

/// Cleared memory for a record of any layout, whose heap texts it releases and whose caller's buffers it offers.
class RecordBuffer {
  public:
    explicit RecordBuffer(const vkrecords::RecordLayout& layout) : layout_(layout), bytes_(layout.size) {
        offerBuffers(layout, bytes_.data());
    }
    ~RecordBuffer() { jsonparser::ReleaseTexts(layout_, get()); }
    RecordBuffer(const RecordBuffer&) = delete;
    RecordBuffer& operator=(const RecordBuffer&) = delete;

    void* get() { return bytes_.data(); }

  private:
    /// The most that a length of one byte can say.
    static constexpr unsigned kCallerTextSize = 255;

    void offerBuffers(const vkrecords::RecordLayout& layout, unsigned char* record) {
        for (const vkrecords::Field& field : layout) {
            unsigned char* element = record + field.offset;
            if (field.kind == vkrecords::FieldKind::Record) {
                for (std::size_t i = 0; i < field.count(); ++i, element += field.elementSize) {
                    offerBuffers(*field.record, element);
                }
            } else if (field.kind == vkrecords::FieldKind::CallerText) {
                const char* buffer = callerTexts_.emplace_back(new char[kCallerTextSize]()).get();
                std::memcpy(element, &buffer, sizeof buffer);
                const auto* length = std::find_if(layout.begin(), layout.end(), [&field](const auto& candidate) {
                    return std::strcmp(candidate.name, field.lengthField) == 0;
                });
                std::memcpy(record + length->offset, &kCallerTextSize, length->elementSize);
            }
        }
    }

    const vkrecords::RecordLayout& layout_;
    std::vector<unsigned char> bytes_;  // new aligns it for any record
    std::vector<std::unique_ptr<char[]>> callerTexts_;
};

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

/// Reads one document and prints its record.
int DecodeFile(const CatalogueEntry& entry, const std::string& file, const DecodeOptions& options) {
    std::string text;
    std::string error;
    if (!ReadFile(file, text, error)) {
        Complain(error);
        return kCannotReadOrWrite;
    }
    std::vector<std::string> findings;
    Json::Value document;
    Json::Value* node =
        ParseDocument(file, text, document, findings) ? ValueAt(file, document, options.at, findings) : nullptr;
    if (node != nullptr) {
        RecordBuffer record(*entry.layout);
        if (!entry.decode(*node, record.get())) {
            findings.push_back(fmt::format("{}: {}: the converter reports that it did not read {}", file,
                                           options.at.empty() ? "/" : options.at, entry.name));
        }
        Print(options.json ? RecordAsJson(*entry.layout, record.get()) : RecordAsText(*entry.layout, record.get()));
        if (options.hex) Print(RecordAsHex(*entry.layout, record.get()));
    }
    for (const std::string& finding : findings) Complain(finding);
    return findings.empty() ? kGood : kFindings;
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
    const std::vector<std::string> files = options.files.empty() ? std::vector<std::string>{"-"} : options.files;
    int code = kGood;
    for (const std::string& file : files) {
        if (files.size() > 1 && !options.json) Print(fmt::format("== {}\n", file));
        code = std::max(code, DecodeFile(*entry, file, options));
    }
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

int ListFields(const std::string& record, bool json) {
    const CatalogueEntry* entry = EntryOf(record);
    if (entry == nullptr) return kUsage;
    Print(json ? LayoutAsJson(*entry->layout) : LayoutAsText(*entry->layout));
    return Flushed(kGood);
}

}  // namespace tool
