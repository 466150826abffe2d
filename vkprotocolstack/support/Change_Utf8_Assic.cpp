#include <cstring>

#include "vkprotocolstack/support/support.h"

void Change_Utf8_Assic(unsigned char* source, char* destination) {
    std::memcpy(destination, source, std::strlen(reinterpret_cast<const char*>(source)) + 1);
}
