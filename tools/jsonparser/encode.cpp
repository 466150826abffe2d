#include "commands.h"

#include <fmt/format.h>
#include <json/writer.h>

#include <algorithm>
#include <string>
#include <vector>

#include "console.h"
#include "document.h"
#include "finding.h"
#include "input.h"
#include "line_functions.h"
#include "progress.h"
#include "record_buffer.h"
#include "record_input.h"
#include "record_name.h"

namespace tool {
namespace {

/// Prints the message that one record, in the form in which decode prints it, becomes.
int EncodeFile(const CatalogueEntry& entry, const std::string& file, const ReadingOptions& reading) {
    return WithDocument(file, "", reading, [&](const Document& document, std::vector<Finding>& findings) {
        RecordBuffer record(*entry.layout);
        if (!ReadRecordToWrite(document.node, document.text, record, findings)) return;
        Json::Value node;
        if (!entry.encode(record.bytes(), node)) {
            findings.push_back({0, "", fmt::format("found a {0}, expected one that can be written", entry.name)});
            return;
        }
        Json::StreamWriterBuilder builder;
        builder["indentation"] = "  ";
        builder["emitUTF8"] = true;
        Print(Json::writeString(builder, node) + '\n');
    });
}

}  // namespace

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
