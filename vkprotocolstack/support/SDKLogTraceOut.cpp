#include "vkprotocolstack/support/support.h"
#include "vkprotocolstack/support/trace.h"

void SDKLogTraceOut(int code, const char* message) {
    const jsonparser::support::TraceSource& source = jsonparser::support::ThreadTraceSource();
    jsonparser::support::Emit({source.sourceFile, source.line, source.level, code, message});
}
