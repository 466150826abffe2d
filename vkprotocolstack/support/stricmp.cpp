#include "vkprotocolstack/support/support.h"

namespace {

int Lower(char letter) {
    const int code = static_cast<unsigned char>(letter);
    return code >= 'A' && code <= 'Z' ? code - 'A' + 'a' : code;
}

}  // namespace

int _stricmp(const char* a, const char* b) {
    while (*a != '\0' && Lower(*a) == Lower(*b)) {
        ++a;
        ++b;
    }
    return Lower(*a) - Lower(*b);
}
