#include "local_text.h"

#include <vector>

#include "vkprotocolstack/support/support.h"

namespace tool {

std::string ToUtf8(std::string_view local) {
    std::vector<char> buffer(local.size() * 4 + 1);
    Change_Assic_UTF8(local.data(), static_cast<int>(local.size()), buffer.data(), static_cast<int>(buffer.size()));
    return buffer.data();
}

std::string ToLocal(const std::string& utf8) {
    std::string source = utf8;
    std::vector<char> local(source.size() + 1);
    Change_Utf8_Assic(reinterpret_cast<unsigned char*>(source.data()), local.data());
    return local.data();
}

}  // namespace tool
