#include "document.h"

#include "commands.h"
#include "console.h"
#include "input.h"

namespace tool {

std::vector<std::string> OrStandardInput(const std::vector<std::string>& files) {
    return files.empty() ? std::vector<std::string>{"-"} : files;
}

int WithDocument(const std::string& file, const std::string& at,
                 const std::function<void(Json::Value& node, std::vector<std::string>& findings)>& use) {
    std::string text;
    std::string error;
    if (!ReadFile(file, text, error)) {
        Complain(error);
        return kCannotReadOrWrite;
    }
    std::vector<std::string> findings;
    Json::Value document;
    Json::Value* node = ParseDocument(file, text, document, findings) ? ValueAt(file, document, at, findings) : nullptr;
    if (node != nullptr) use(*node, findings);
    for (const std::string& finding : findings) Complain(finding);
    return findings.empty() ? kGood : kFindings;
}

}  // namespace tool
