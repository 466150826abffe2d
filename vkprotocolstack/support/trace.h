// What the default trace pair shares.
#ifndef VKPROTOCOLSTACK_SUPPORT_TRACE_H
#define VKPROTOCOLSTACK_SUPPORT_TRACE_H

#include "vkprotocolstack/support/support.h"

namespace jsonparser::support {

struct TraceSource {
    const char* sourceFile;
    int line;
    int level;
};

/// What the calling thread's last SetBasicInfo said.
TraceSource& ThreadTraceSource();

void Emit(const TraceMessage& message);

}  // namespace jsonparser::support

#endif
