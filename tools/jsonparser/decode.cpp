#include "commands.h"

#include <fmt/format.h>

#include <algorithm>
#include <string>
#include <vector>

#include "console.h"
#include "document.h"
#include "explain.h"
#include "finding.h"
#include "line_functions.h"
#include "progress.h"
#include "record_buffer.h"
#include "record_form.h"
#include "record_name.h"

namespace tool {
namespace {

/// Prints the record that one message holds.
int DecodeFile(const CatalogueEntry& entry, const std::string& file, const DecodeOptions& options) {
    return WithDocument(file, options.at, options.reading,
                        [&](const Document& document, std::vector<Finding>& findings) {
                            RecordBuffer record(*entry.layout);
                            record.lendBuffers();
                            DecodeWithFindings(entry, document, options.strict, record.bytes(), findings);
                            Print(options.json ? RecordAsJson(*entry.layout, record.bytes())
                                               : RecordAsText(*entry.layout, record.bytes()));
                            if (options.hex) Print(RecordAsHex(*entry.layout, record.bytes()));
                        });
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
    if (options.lines)
        return ConvertLines(files, options.reading.maximumSize, options.jobs,
                            DecodeLine(*entry, options.at, options.strict, options.reading));
    Progress progress("files", TotalBytes(files));
    int code = kGood;
    for (const std::string& file : files) {
        if (files.size() > 1 && !options.json) Print(fmt::format("== {}\n", FileName(file)));
        code = std::max(code, DecodeFile(*entry, file, options));
        progress.advance(TotalBytes({file}).value_or(0), 1);
    }
    return Flushed(code);
}

}  // namespace tool
