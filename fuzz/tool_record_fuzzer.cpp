// Any text to the tool as the form of a record: the first byte chooses the entry of the catalogue, the second the local
// encoding and the way of reading, the others are the document. A form that is accepted is printed as what gives the
// same record again, and is written as a message that the tool reads. What is refused has findings at places of the
// document.

#include <json/writer.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/locales.h"
#include "tools/jsonparser/catalogue.h"
#include "tools/jsonparser/encode.h"
#include "tools/jsonparser/finding.h"
#include "tools/jsonparser/input.h"
#include "tools/jsonparser/record_buffer.h"
#include "tools/jsonparser/record_form.h"
#include "tools/jsonparser/record_input.h"
#include "tools/jsonparser/strict_reader.h"
#include "tools/jsonparser/utf8.h"

namespace {

using tool::Finding;
using vkrecords::Field;
using vkrecords::FieldKind;
using vkrecords::RecordLayout;

void Expect(bool holds, const char* what, const std::string& text) {
    if (holds) return;
    std::fprintf(stderr, "%s: %s\n", what, text.c_str());
    std::abort();
}

void ExpectHarmless(const std::string& printed) {
    Expect(tool::IsUtf8(printed), "what is printed is not UTF-8", printed);
    const auto isControl = [](char c) { return (static_cast<unsigned char>(c) < 0x20 && c != '\n') || c == 0x7F; };
    Expect(std::none_of(printed.begin(), printed.end(), isControl), "what is printed commands a terminal", printed);
}

/// Each says what was found and what was expected, at a place, and is shown as lines that are harmless.
void ExpectClear(const std::vector<Finding>& findings, std::string_view text) {
    for (const Finding& finding : findings) {
        Expect(finding.offset <= text.size(), "a finding outside the document", finding.text);
        Expect(!finding.text.empty() && finding.text.find('\n') == finding.text.npos, "no line of text", finding.text);
    }
    ExpectHarmless(tool::Described("form.json", text, findings));
}

void ExpectRefused(const std::vector<Finding>& findings, std::string_view text) {
    Expect(tool::HasDefects(findings), "what is refused has no finding", std::string(text));
    ExpectClear(findings, text);
}

/// Puts nulls in place of a record's pointers.
void HideAddresses(const RecordLayout& layout, char* record) {
    for (const Field& field : layout) {
        char* element = record + field.offset;
        for (std::size_t i = 0; i < field.count(); ++i, element += field.elementSize) {
            if (field.kind == FieldKind::Record) HideAddresses(*field.record, element);
            if (field.kind == FieldKind::HeapText || field.kind == FieldKind::CallerText)
                std::memset(element, 0, field.elementSize);
        }
    }
}

std::string Bytes(tool::RecordBuffer& record) {
    std::string bytes(reinterpret_cast<const char*>(record.bytes()), record.layout().size);
    HideAddresses(record.layout(), bytes.data());
    return bytes;
}

/// Reads a form that was printed of the record.
void ExpectSame(tool::RecordBuffer& record, const std::string& form) {
    Json::Value document;
    Expect(!tool::ReadStrictly(form, tool::kMaximumDepth, document), "what is printed is no document", form);
    tool::RecordBuffer again(record.layout());
    std::vector<Finding> findings;
    Expect(tool::ReadRecord(document, form, again, findings), "what is printed is refused", form);
    Expect(Bytes(again) == Bytes(record), "what is printed gives another record", form);
    Expect(tool::RecordAsJson(again.layout(), again.bytes()) == tool::RecordAsJson(record.layout(), record.bytes()),
           "what is printed gives other texts", form);
}

void ReadForm(const tool::CatalogueEntry& entry, bool lenient, std::string text) {
    Json::Value form;
    std::vector<Finding> findings;
    if (!tool::ParseDocument(text, {.lenient = lenient}, form, findings)) {
        Expect(lenient || findings.size() == 1, "a document has more than one defect", text);
        return ExpectRefused(findings, text);
    }
    tool::RecordBuffer record(*entry.layout);
    if (tool::ReadRecord(form, text, record, findings)) {
        Expect(findings.empty(), "what is accepted has findings", text);
        ExpectSame(record, tool::RecordAsJson(*entry.layout, record.bytes()));
        std::string line;
        tool::AppendRecordLine(line, *entry.layout, record.bytes());
        Expect(line.find('\n') == line.size() - 1, "a line is not one", line);
        ExpectSame(record, line);
        ExpectHarmless(tool::RecordAsText(*entry.layout, record.bytes()));
        ExpectHarmless(tool::RecordAsHex(*entry.layout, record.bytes()));
    } else {
        ExpectRefused(findings, text);
    }
    if (entry.encode == nullptr) return;
    findings.clear();
    Json::Value message;
    if (!tool::EncodeWithFindings(entry, {text, form, ""}, message, findings)) return ExpectRefused(findings, text);
    ExpectClear(findings, text);
    Json::StreamWriterBuilder writer;
    writer["indentation"] = "";
    writer["emitUTF8"] = true;
    const std::string written = Json::writeString(writer, message);
    Json::Value again;
    Expect(!tool::ReadStrictly(written, tool::kMaximumDepth, again), "the message is no document", written);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 2) return 0;
    const auto entries = tool::Catalogue();
    uselocale(fuzz::Locale(data[1]));
    ReadForm(entries[data[0] % entries.size()], (data[1] & 0x80U) != 0,
             std::string(reinterpret_cast<const char*>(data) + 2, size - 2));
    uselocale(LC_GLOBAL_LOCALE);
    return 0;
}
