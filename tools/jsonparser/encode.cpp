#include "commands.h"

#include <fmt/format.h>
#include <json/writer.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "console.h"
#include "document.h"
#include "finding.h"
#include "input.h"
#include "line_functions.h"
#include "record_buffer.h"
#include "record_input.h"
#include "record_name.h"

namespace tool {
namespace {

/// Counts that writers take without a bound, and the arrays whose elements they count.
constexpr struct {
    std::string_view count;
    std::string_view array;
} kCounted[] = {
    {"wFacePicNum",          "stuFacePicInfo"     },
    {"nCustomPersonInfoNum", "stuCustomPersonInfo"}
};

/// Whether every count of the form, which was read into a record of that layout, is within its array.
bool CountsAreWithinArrays(const Json::Value& form, const vkrecords::RecordLayout& layout,
                           std::vector<Finding>& findings) {
    const std::size_t before = findings.size();
    for (const auto& [count, array] : kCounted) {
        const Json::Value* stated = form.find(count.data(), count.data() + count.size());
        if (stated == nullptr) continue;
        const auto* field = std::find_if(layout.begin(), layout.end(),
                                         [array = array](const vkrecords::Field& each) { return each.name == array; });
        const Json::Int64 extent = field == layout.end() ? 0 : static_cast<Json::Int64>(field->extents[0]);
        if (stated->asInt64() >= 0 && stated->asInt64() <= extent) continue;
        findings.push_back(
            Unexpected(*stated, PointerStep(count), fmt::format("at most {}, the elements of {}", extent, array)));
    }
    return findings.size() == before;
}

/// Prints the message that one record, in the form in which decode prints it, becomes.
int EncodeFile(const CatalogueEntry& entry, const std::string& file, const ReadingOptions& reading) {
    return WithDocument(file, "", reading, [&](const Document& document, std::vector<Finding>& findings) {
        RecordBuffer record(*entry.layout);
        if (!ReadRecord(document.node, document.text, record, findings)) return;
        if (!CountsAreWithinArrays(document.node, *entry.layout, findings)) return;
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
    int code = kGood;
    for (const std::string& file : files) code = std::max(code, EncodeFile(*entry, file, options.reading));
    return Flushed(code);
}

}  // namespace tool
