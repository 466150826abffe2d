#include "vkprotocolstack/JsonParser.h"
#include "vkprotocolstack/status/resolution_keywords.h"

using jsonparser::FirstIgnoringCase;
using jsonparser::Keyword;
using jsonparser::kResolutions;

int ParseResolutionString(const char* text) {
    const Keyword* row = text == nullptr ? nullptr : FirstIgnoringCase(kResolutions, text);
    return row == nullptr ? 255 : row->code;
}
