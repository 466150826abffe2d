// Texts to the text functions and to the readers of plain texts, in several local encodings: the first byte chooses the
// encoding, the second the size of a field, the others are the text.

#include <json/value.h>
#include <locale.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/converters.h"
#include "fuzz/locales.h"
#include "vkprotocolstack/support/support.h"

namespace {

void Expect(bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "%s\n", what);
    std::abort();
}

/// Of exactly so many bytes, so that the address sanitizer sees what is written behind them.
using Buffer = std::vector<char>;

void ExpectTerminated(const Buffer& buffer) {
    Expect(std::find(buffer.begin(), buffer.end(), '\0') != buffer.end(), "no terminator");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 2) return 0;
    uselocale(fuzz::Locale(data[0]));
    const int fieldSize = data[1] % 80 + 1;
    const std::string text(reinterpret_cast<const char*>(data) + 2, size - 2);
    const std::string upToNul = text.c_str();

    Buffer field(static_cast<std::size_t>(fieldSize), 'x');
    Json::Value node = text;
    Expect(GetJsonString(node, field.data(), fieldSize, (data[0] & 0x80) != 0), "GetJsonString: a text is none");
    ExpectTerminated(field);
    std::fill(field.begin(), field.end(), 'x');
    parseJsonNodeToStr(node, field.data(), fieldSize);
    ExpectTerminated(field);
    Json::Value container;
    container[text].append(node);
    std::fill(field.begin(), field.end(), 'x');
    parseJsonNodeToStr(container, field.data(), fieldSize);
    ExpectTerminated(field);

    // Local text of a message's text, which is no longer, and back.
    std::vector<unsigned char> source(upToNul.begin(), upToNul.end());
    source.push_back('\0');
    Buffer local(source.size(), 'x');
    Change_Utf8_Assic(source.data(), local.data());
    ExpectTerminated(local);
    std::fill(field.begin(), field.end(), 'x');
    const int localSize = static_cast<int>(std::strlen(local.data()));
    Change_Assic_UTF8(local.data(), localSize, field.data(), fieldSize);
    ExpectTerminated(field);

    // Any bytes as local text.
    std::fill(field.begin(), field.end(), 'x');
    const Buffer bytes(text.begin(), text.end());
    Change_Assic_UTF8(bytes.data(), static_cast<int>(bytes.size()), field.data(), fieldSize);
    ExpectTerminated(field);
    Json::Value packed;
    packetStrToJsonNode(packed, bytes.data(), static_cast<int>(bytes.size()));
    Expect(packed.isString(), "packetStrToJsonNode: no text");
    SetJsonString(packed, text.c_str(), true);
    Expect(packed.isString(), "SetJsonString: no text");

    for (const fuzz::TextReader& reader : fuzz::TextReaders()) reader.read(text);
    uselocale(LC_GLOBAL_LOCALE);
    return 0;
}
