#include <cstddef>
#include <cstdio>
#include <cstring>

extern "C" bool client_plate(const char* message, std::size_t length, char* plate, std::size_t size);

int main() {
    const char message[] = R"({"PlateNumber": "A12345"})";
    char plate[32] = "";
    const bool read = client_plate(message, sizeof message - 1, plate, sizeof plate);
    std::printf("%s\n", plate);
    return read && std::strcmp(plate, "A12345") == 0 ? 0 : 1;
}
