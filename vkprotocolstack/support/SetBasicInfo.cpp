#include "vkprotocolstack/support/support.h"
#include "vkprotocolstack/support/trace.h"

void SetBasicInfo(const char* sourceFile, int line, int level) {
    jsonparser::support::ThreadTraceSource() = {sourceFile, line, level};
}
