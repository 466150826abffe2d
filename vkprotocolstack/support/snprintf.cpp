#include <cstdarg>
#include <cstdio>

#include "vkprotocolstack/support/support.h"

int _snprintf(char* buffer, std::size_t count, const char* format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    const int length = std::vsnprintf(buffer, count, format, arguments);
    va_end(arguments);
    return length;
}
