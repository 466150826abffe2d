// Any text to the tool's strict reader: what it reads it also reads from what is printed of it, and so does jsoncpp.

#include <json/reader.h>
#include <json/writer.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

#include "tools/jsonparser/strict_reader.h"

namespace {

constexpr int kDepth = 64;

void Expect(bool holds, const char* what, const std::string& text) {
    if (holds) return;
    std::fprintf(stderr, "%s: %s\n", what, text.c_str());
    std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    Json::Value document;
    if (tool::ReadStrictly(text, kDepth, document)) {
        Expect(document.isNull(), "a document of a text that is refused", std::string(text));
        return 0;
    }
    Json::StreamWriterBuilder writer;
    writer["indentation"] = "";
    writer["emitUTF8"] = true;
    const std::string printed = Json::writeString(writer, document);
    Json::Value again;
    Expect(!tool::ReadStrictly(printed, kDepth, again), "what is printed is refused", printed);
    Expect(again == document, "what is printed is another document", printed);
    const std::unique_ptr<Json::CharReader> reader(Json::CharReaderBuilder().newCharReader());
    Json::Value other;
    Expect(reader->parse(printed.data(), printed.data() + printed.size(), &other, nullptr), "jsoncpp refuses", printed);
    Expect(other == document, "jsoncpp reads another document", printed);
    return 0;
}
