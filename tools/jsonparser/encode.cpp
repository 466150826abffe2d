#include "encode.h"

#include <fmt/format.h>
#include <json/writer.h>

#include <algorithm>
#include <string>
#include <vector>

#include "commands.h"
#include "console.h"
#include "document.h"
#include "finding.h"
#include "input.h"
#include "line_functions.h"
#include "progress.h"
#include "read_back.h"
#include "record_buffer.h"
#include "record_input.h"
#include "record_name.h"
#include "trace_collector.h"
#include "vkprotocolstack/vocabulary.h"

namespace tool {
namespace {

/// Why a record cannot be written, at its place in the form.
Finding Unwritable(const CatalogueEntry& entry, const Json::Value& form) {
    for (const jsonparser::Vocabulary& vocabulary : jsonparser::Vocabularies()) {
        if (entry.name != vocabulary.name) continue;
        std::string codes;
        for (const jsonparser::Keyword& row : vocabulary)
            codes += fmt::format("{}{}", codes.empty() ? "" : ", ", row.code);
        const vkrecords::Field& field = *entry.layout->begin();
        const std::string_view name = field.name;
        const Json::Value* code = form.find(name.data(), name.data() + name.size());
        const std::string expected =
            fmt::format("one of the codes {} (see: jsonparser keywords {})", codes, entry.name);
        if (code != nullptr) return Unexpected(*code, PointerStep(name), expected);
        return Unexpected(form, "", fmt::format("{} with {}", name, expected));
    }
    return Unexpected(form, "", fmt::format("a {} that can be written", entry.name));
}

/// Prints the message that one record, in the form in which decode prints it, becomes.
int EncodeFile(const CatalogueEntry& entry, const std::string& file, const ReadingOptions& reading) {
    return WithDocument(file, "", reading, [&](const Document& document, std::vector<Finding>& findings) {
        Json::Value node;
        if (!EncodeWithFindings(entry, document, node, findings)) return;
        Json::StreamWriterBuilder builder;
        builder["indentation"] = "  ";
        builder["emitUTF8"] = true;
        Print(Json::writeString(builder, node) + '\n');
    });
}

}  // namespace

bool EncodeWithFindings(const CatalogueEntry& entry, const Document& document, Json::Value& node,
                        std::vector<Finding>& findings) {
    const TraceCollector trace;
    RecordBuffer record(*entry.layout);
    if (!ReadRecordToWrite(document.node, document.text, record, findings)) {
        FindImpossible(entry, document, record, findings);
        return false;
    }
    if (!entry.encode(record.bytes(), node)) {
        findings.push_back(Unwritable(entry, document.node));
        return false;
    }
    if (!MessageHasAll(entry, document, record, node, findings)) return false;
    trace.addRemarks(findings);
    return true;
}

int Encode(const EncodeOptions& options) {
    const CatalogueEntry* entry = EntryOf(options.record);
    if (entry == nullptr) return kUsage;
    if (entry->encode == nullptr) {
        Complain(fmt::format("{} is only read, there is nothing to encode", entry->name));
        return kUsage;
    }
    const std::vector<std::string> files = OrStandardInput(options.files);
    if (options.lines)
        return ConvertLines(files, options.reading.maximumSize, options.jobs, EncodeLine(*entry, options.reading));
    Progress progress("files", TotalBytes(files));
    int code = kGood;
    for (const std::string& file : files) {
        code = std::max(code, EncodeFile(*entry, file, options.reading));
        progress.advance(TotalBytes({file}).value_or(0), 1);
    }
    return Flushed(code);
}

}  // namespace tool
