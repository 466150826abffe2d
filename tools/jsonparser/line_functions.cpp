#include "line_functions.h"

#include <json/writer.h>

#include <functional>
#include <utility>
#include <vector>

#include "document.h"
#include "encode.h"
#include "explain.h"
#include "finding.h"
#include "record_buffer.h"
#include "record_form.h"
#include "style.h"
#include "trace_collector.h"
#include "vkprotocolstack/message_text.h"

namespace tool {
namespace {

/// Reads the document on a line into a tree; it goes to use, which adds its findings.
LineFunction WithTree(const std::string& at, const ReadingOptions& reading,
                      const std::function<void(const Document&, std::string&, std::vector<Finding>&)>& use) {
    const auto convert = [at, reading, use, style = StyleOf(stderr)](LinePlace place, std::string_view line,
                                                                     std::string& output, std::string& described) {
        std::string text(line);
        std::vector<Finding> findings;
        {
            Json::Value root;  // goes before its findings are described: it may be large
            Json::Value* node = ParseDocument(text, reading, root, findings) ? ValueAt(root, at, findings) : nullptr;
            if (node != nullptr) use({text, *node, at}, output, findings);
        }
        if (findings.empty()) return true;
        const bool isGood = !HasDefects(findings);
        // The line is the place of what is said of the document as a whole.
        for (Finding& finding : findings) finding.offset = finding.offset == Finding::kNowhere ? 0 : finding.offset;
        std::string lines = Described(place.file, text, std::move(findings), place.number, style);
        if (described.empty()) {
            described = std::move(lines);
        } else {
            described += lines;
        }
        return isGood;
    };
    return {nullptr, convert};
}

/// Appends the record to output, straight from the line's text. What is strictly valid there is so for both of the
/// tool's readers, and means the same.
/// @return false when there is no such record, or it is not whole, or only a tree can tell, or there are remarks
bool AppendRecordFromText(const CatalogueEntry& entry, const std::string& at, const ReadingOptions& reading,
                          std::string_view line, std::string& output) {
    jsonparser::MessageTextOptions options;
    options.strictOnly = true;
    options.maxDepth = reading.maximumDepth;
    jsonparser::MessageText message(line, options);
    const jsonparser::MessagePlace place = message.at(at);
    RecordBuffer record(*entry.layout);
    record.lendBuffers();
    const TraceCollector trace;
    if (!entry.decodeText(place, record.bytes()) || !place.exists() || !trace.isEmpty()) return false;
    AppendRecordLine(output, *entry.layout, record.bytes());
    return true;
}

}  // namespace

LineFunction DecodeLine(const CatalogueEntry& entry, const std::string& at, bool strict,
                        const ReadingOptions& reading) {
    LineFunction decode = WithTree(
        at, reading, [&entry, strict](const Document& document, std::string& output, std::vector<Finding>& findings) {
            RecordBuffer record(*entry.layout);
            record.lendBuffers();
            if (DecodeWithFindings(entry, document, strict, record.bytes(), findings)) {
                AppendRecordLine(output, *entry.layout, record.bytes());
            }
        });
    // What watches the converter wants a tree.
    if (!strict && entry.decodeText != nullptr) {
        decode.attempt = [&entry, at, reading](std::string_view line, std::string& output) {
            return AppendRecordFromText(entry, at, reading, line, output);
        };
    }
    return decode;
}

LineFunction EncodeLine(const CatalogueEntry& entry, const ReadingOptions& reading) {
    return WithTree("", reading,
                    [&entry](const Document& document, std::string& output, std::vector<Finding>& findings) {
                        Json::Value node;
                        if (!EncodeWithFindings(entry, document, node, findings)) return;
                        Json::StreamWriterBuilder builder;
                        builder["indentation"] = "";
                        builder["emitUTF8"] = true;
                        output += Json::writeString(builder, node) + '\n';
                    });
}

}  // namespace tool
