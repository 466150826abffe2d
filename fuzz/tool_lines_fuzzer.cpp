// Any bytes to the tool as files of lines: what comes out is what each line by itself becomes, by way of a tree and on
// one thread, in the lines' order. The first three bytes choose the entry of the catalogue, the options, and how input
// is cut into batches; of the others each half is a file.

#include <fmt/format.h>
#include <json/writer.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "tools/jsonparser/catalogue.h"
#include "tools/jsonparser/console.h"
#include "tools/jsonparser/encode.h"
#include "tools/jsonparser/explain.h"
#include "tools/jsonparser/finding.h"
#include "tools/jsonparser/input.h"
#include "tools/jsonparser/line_functions.h"
#include "tools/jsonparser/lines.h"
#include "tools/jsonparser/record_buffer.h"
#include "tools/jsonparser/record_form.h"

namespace {

using tool::Finding;

void Expect(bool holds, const char* what, const std::string& detail) {
    if (holds) return;
    std::fprintf(stderr, "%s: %s\n", what, detail.c_str());
    std::abort();
}

/// A file in memory.
class MemoryFile {
  public:
    explicit MemoryFile(std::string_view text) : descriptor_(memfd_create("lines", MFD_CLOEXEC)) {
        const auto size = static_cast<ssize_t>(text.size());
        Expect(descriptor_ >= 0 && write(descriptor_, text.data(), text.size()) == size, "no memory file", name());
    }
    ~MemoryFile() { close(descriptor_); }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    std::string name() const { return fmt::format("/proc/self/fd/{}", descriptor_); }

  private:
    int descriptor_;
};

struct Options {
    const tool::CatalogueEntry& entry;
    bool encode;
    bool strict;
    std::string at;
    tool::ReadingOptions reading;
};

struct Result {
    std::string output;
    std::string findings;
    std::size_t lines = 0;
    std::size_t bad = 0;

    bool operator==(const Result&) const = default;
};

std::string Shown(const Result& result) {
    return fmt::format("{} of {} lines are bad\n{}{}", result.bad, result.lines, result.output, result.findings);
}

void ConvertDocument(const Options& options, const tool::Document& document, std::string& output,
                     std::vector<Finding>& findings) {
    if (options.encode) {
        Json::Value message;
        if (!tool::EncodeWithFindings(options.entry, document, message, findings)) return;
        Json::StreamWriterBuilder writer;
        writer["indentation"] = "";
        writer["emitUTF8"] = true;
        output += Json::writeString(writer, message) + '\n';
        return;
    }
    tool::RecordBuffer record(*options.entry.layout);
    record.lendBuffers();
    if (tool::DecodeWithFindings(options.entry, document, options.strict, record.bytes(), findings)) {
        tool::AppendRecordLine(output, *options.entry.layout, record.bytes());
    }
}

/// As the commands do it with a whole document.
void AddLine(const Options& options, const std::string& file, std::size_t number, std::string text, Result& result) {
    std::vector<Finding> findings;
    Json::Value root;
    Json::Value* node = nullptr;
    if (tool::ParseDocument(text, options.reading, root, findings)) node = tool::ValueAt(root, options.at, findings);
    if (node != nullptr) ConvertDocument(options, {text, *node, options.at}, result.output, findings);
    ++result.lines;
    if (tool::HasDefects(findings)) ++result.bad;
    for (Finding& finding : findings) {
        if (finding.offset == Finding::kNowhere) finding.offset = 0;
    }
    result.findings += tool::Described(file, text, findings, number, tool::StyleOf(stderr));
}

void AddFile(const Options& options, const std::string& file, std::string_view text, Result& result) {
    std::string_view rest = text;
    for (std::size_t number = 1; !rest.empty(); ++number) {
        const std::size_t end = std::min(rest.find('\n'), rest.size());
        std::string_view line = rest.substr(0, end);
        if (line.ends_with('\r')) line.remove_suffix(1);
        rest.remove_prefix(std::min(end + 1, rest.size()));
        std::string complaint;
        const bool isTooLong = line.size() > options.reading.maximumSize;
        const std::string_view encoding = number == 1 ? tool::ForeignEncoding(text.substr(0, 4)) : "";
        if (isTooLong) {
            complaint =
                fmt::format("{}:{}: found a line of more than {} bytes, expected at most that many (see --max-size)",
                            file, number, options.reading.maximumSize);
        } else if (!encoding.empty()) {
            complaint = fmt::format("{}: found {}, expected UTF-8", file, encoding);
        } else if (line.find_first_not_of(" \t\r") != line.npos) {
            AddLine(options, file, number, std::string(line), result);
        }
        if (complaint.empty()) continue;
        ++result.lines;
        ++result.bad;
        result.findings += tool::Complaint(complaint);
        if (!isTooLong) return;
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 3) return 0;
    const auto entries = tool::Catalogue();
    const tool::CatalogueEntry& entry = entries[data[0] % entries.size()];
    constexpr const char* kPlaces[] = {"", "", "/a", "/0"};
    const bool encode = entry.decode == nullptr || (entry.encode != nullptr && (data[1] & 1U) != 0);
    const Options options{
        entry,
        encode,
        (data[1] & 2U) != 0,
        encode ? "" : kPlaces[data[1] >> 2U & 3U],
        {.lenient = (data[1] & 0x10U) != 0,
                                             .maximumDepth = (data[1] & 0x20U) != 0 ? 3 : tool::kMaximumDepth,
                                             .maximumSize = (data[1] & 0x40U) != 0 ? 20U : tool::kMaximumLine}
    };
    const unsigned jobs = data[2] % 4U + 1;
    const tool::BatchLimits limits{.lines = data[2] / 4U % 8U + 1,
                                   .bytes = (data[2] & 0x20U) != 0 ? 100U : 65536U,
                                   .longLine = (data[2] & 0x40U) != 0 ? 30U : 16384U,
                                   .readBytes = (data[2] & 0x80U) != 0 ? 7U : 65536U};
    const std::string_view text(reinterpret_cast<const char*>(data) + 3, size - 3);
    const std::string_view texts[] = {text.substr(0, text.size() / 2), text.substr(text.size() / 2)};
    const MemoryFile files[] = {MemoryFile(texts[0]), MemoryFile(texts[1])};

    Result expected;
    for (std::size_t i = 0; i < 2; ++i) AddFile(options, files[i].name(), texts[i], expected);

    Result result;
    std::size_t bytes = 0;
    tool::LineReader reader({files[0].name(), files[1].name()}, options.reading.maximumSize, limits);
    const tool::LineFunction function = encode ? tool::EncodeLine(entry, options.reading)
                                               : tool::DecodeLine(entry, options.at, options.strict, options.reading);
    tool::ConvertBatches(reader, jobs, function, [&](const tool::Batch& batch) {
        Expect(!batch.isUnreadable, "a file cannot be read", batch.findings);
        result.output += batch.output;
        result.findings += batch.findings;
        result.lines += batch.lines;
        result.bad += batch.bad;
        bytes += batch.bytes;
        return true;
    });
    if (!(result == expected)) Expect(false, "lines", Shown(result) + "--- but each by itself:\n" + Shown(expected));
    Expect(bytes <= text.size(), "more bytes than there are", Shown(result));
    return 0;
}
