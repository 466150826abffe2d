#include "line_functions.h"

#include <fmt/format.h>
#include <json/writer.h>

#include <algorithm>
#include <functional>
#include <vector>

#include "document.h"
#include "explain.h"
#include "finding.h"
#include "record_buffer.h"
#include "record_form.h"
#include "record_input.h"
#include "style.h"

namespace tool {
namespace {

/// Reads the document on a line; it goes to use, which adds its findings.
LineFunction WithLine(const std::string& at, const ReadingOptions& reading,
                      const std::function<void(const Document&, std::string&, std::vector<Finding>&)>& use) {
    return [at, reading, use, style = StyleOf(stderr)](LinePlace place, std::string_view line, std::string& output,
                                                       std::string& described) {
        std::string text(line);
        std::vector<Finding> findings;
        Json::Value root;
        Json::Value* node = ParseDocument(text, reading, root, findings) ? ValueAt(root, at, findings) : nullptr;
        if (node != nullptr) use({text, *node, at}, output, findings);
        if (findings.empty()) return true;
        // What is said of the whole document is said of its line.
        for (Finding& finding : findings) finding.offset = std::min(finding.offset, text.size());
        described += Described(place.file, text, findings, place.number, style);
        return false;
    };
}

}  // namespace

LineFunction DecodeLine(const CatalogueEntry& entry, const std::string& at, bool strict,
                        const ReadingOptions& reading) {
    return WithLine(at, reading,
                    [&entry, strict](const Document& document, std::string& output, std::vector<Finding>& findings) {
                        RecordBuffer record(*entry.layout);
                        record.lendBuffers();
                        if (DecodeWithFindings(entry, document, strict, record.bytes(), findings)) {
                            AppendRecordLine(output, *entry.layout, record.bytes());
                        }
                    });
}

LineFunction EncodeLine(const CatalogueEntry& entry, const ReadingOptions& reading) {
    return WithLine(
        "", reading, [&entry](const Document& document, std::string& output, std::vector<Finding>& findings) {
            RecordBuffer record(*entry.layout);
            if (!ReadRecord(document.node, document.text, record, findings)) return;
            Json::Value node;
            if (!entry.encode(record.bytes(), node)) {
                findings.push_back({0, "", fmt::format("found a {}, expected one that can be written", entry.name)});
                return;
            }
            Json::StreamWriterBuilder builder;
            builder["indentation"] = "";
            builder["emitUTF8"] = true;
            output += Json::writeString(builder, node) + '\n';
        });
}

}  // namespace tool
