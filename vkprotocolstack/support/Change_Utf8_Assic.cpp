#include <string_view>

#include "vkprotocolstack/support/charset.h"
#include "vkprotocolstack/support/defaults.h"
#include "vkprotocolstack/support/support.h"

void Change_Utf8_Assic(unsigned char* source, char* destination) {
    const std::string_view text = reinterpret_cast<const char*>(source);
    jsonparser::support::ToLocal(text, destination, text.size() + 1);
}

[[gnu::alias("_Z17Change_Utf8_AssicPhPc")]] void jsonparser::support::DefaultChangeUtf8Assic(unsigned char* source,
                                                                                             char* destination);
