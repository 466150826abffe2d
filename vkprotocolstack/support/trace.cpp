#include "vkprotocolstack/support/trace.h"

#include <cstdio>

namespace jsonparser {
namespace {

void WriteToStandardError(const TraceMessage& trace, void* /*context*/) {
    std::fprintf(stderr, "%s:%d: level %d, code %d: %s\n", trace.sourceFile, trace.line, trace.level, trace.code,
                 trace.message);
}

TraceSink theSink = WriteToStandardError;
void* theContext = nullptr;

}  // namespace

void SetTraceSink(TraceSink sink, void* context) {
    theSink = sink == nullptr ? WriteToStandardError : sink;
    theContext = context;
}

namespace support {

TraceSource& ThreadTraceSource() {
    thread_local TraceSource source{"", 0, 0};
    return source;
}

void Emit(const TraceMessage& message) { theSink(message, theContext); }

}  // namespace support
}  // namespace jsonparser
