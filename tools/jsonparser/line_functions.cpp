#include "line_functions.h"

#include <fmt/format.h>
#include <json/writer.h>

#include "input.h"
#include "record_buffer.h"
#include "record_form.h"
#include "record_input.h"

namespace tool {

LineFunction DecodeLine(const CatalogueEntry& entry, const std::string& at) {
    return
        [&entry, at](LinePlace place, std::string_view line, std::string& output, std::vector<std::string>& findings) {
            const std::string where = fmt::format("{}:{}", place.file, place.number);
            Json::Value document;
            Json::Value* node = ParseDocument(where, std::string(line), document, findings)
                                    ? ValueAt(where, document, at, findings)
                                    : nullptr;
            if (node == nullptr) return;
            RecordBuffer record(*entry.layout);
            record.lendBuffers();
            if (entry.decode(*node, record.bytes())) return AppendRecordLine(output, *entry.layout, record.bytes());
            findings.push_back(fmt::format("{}: {}: found {}, expected a whole {}", where, at.empty() ? "/" : at,
                                           Shown(*node), entry.name));
        };
}

LineFunction EncodeLine(const CatalogueEntry& entry) {
    return [&entry](LinePlace place, std::string_view line, std::string& output, std::vector<std::string>& findings) {
        const std::string where = fmt::format("{}:{}", place.file, place.number);
        Json::Value form;
        if (!ParseDocument(where, std::string(line), form, findings)) return;
        RecordBuffer record(*entry.layout);
        std::vector<std::string> inside;
        if (!ReadRecord(form, record, inside)) {
            for (const std::string& finding : inside) findings.push_back(fmt::format("{}: {}", where, finding));
            return;
        }
        Json::Value node;
        if (!entry.encode(record.bytes(), node)) {
            findings.push_back(fmt::format("{}: /: found a {} that the converter does not write", where, entry.name));
            return;
        }
        Json::StreamWriterBuilder builder;
        builder["indentation"] = "";
        builder["emitUTF8"] = true;
        output += Json::writeString(builder, node);
        output += '\n';
    };
}

}  // namespace tool
