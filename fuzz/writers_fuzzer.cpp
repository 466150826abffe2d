// Records of any bytes to every writer, and what that wrote to all readers of such records: the first byte chooses the
// writer, the second where the record stands, the others fill it.

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "fuzz/converters.h"

namespace {

void Expect(bool holds, std::string_view what, std::string_view who) {
    if (holds) return;
    std::fprintf(stderr, "%.*s: %.*s\n", static_cast<int>(who.size()), who.data(), static_cast<int>(what.size()),
                 what.data());
    std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 2) return 0;
    const auto writers = fuzz::Writers();
    const fuzz::Writer& writer = writers[data[0] % writers.size()];
    const std::size_t placement = writer.source.alignment <= 4 ? data[1] % 2U * 4 : 0;
    fuzz::Memory source(writer.source, placement);
    source.fill({reinterpret_cast<const char*>(data) + 2, size - 2});
    Json::Value written;
    writer.write(written, source.get());
    Expect(source.guardsIntact(), "written outside", writer.name);
    for (const fuzz::Reader& reader : fuzz::Readers()) {
        if (reader.target.layout != writer.source.layout) continue;
        fuzz::Memory target(reader.target, placement % reader.target.alignment == 0 ? placement : 0);
        reader.value(written, target.get());
        Expect(target.guardsIntact(), "written outside", reader.name);
    }
    return 0;
}
