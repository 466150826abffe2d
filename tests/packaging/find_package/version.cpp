// EXPECTED is the version that the package files say.
#include <vkprotocolstack/version.h>

#include <cstdio>
#include <cstring>

int main() {
    char numbers[32];
    std::snprintf(numbers, sizeof numbers, "%d.%d.%d", JSONPARSER_VERSION_MAJOR, JSONPARSER_VERSION_MINOR,
                  JSONPARSER_VERSION_PATCH);
    std::printf("%s, %s, %d\n", JSONPARSER_VERSION, numbers, JSONPARSER_VERSION_NUMBER);
    const int number = JSONPARSER_VERSION_MAJOR * 10000 + JSONPARSER_VERSION_MINOR * 100 + JSONPARSER_VERSION_PATCH;
    const bool agree = std::strcmp(JSONPARSER_VERSION, EXPECTED) == 0 && std::strcmp(numbers, EXPECTED) == 0 &&
                       JSONPARSER_VERSION_NUMBER == number;
    return agree ? 0 : 1;
}
