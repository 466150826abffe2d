#include "document.h"

#include "commands.h"
#include "console.h"

namespace tool {

std::vector<std::string> OrStandardInput(const std::vector<std::string>& files) {
    return files.empty() ? std::vector<std::string>{"-"} : files;
}

int WithDocument(const std::string& file, const std::string& at, const ReadingOptions& options,
                 const std::function<void(const Document& document, std::vector<Finding>& findings)>& use) {
    std::string text;
    std::string error;
    if (!ReadFile(file, options.maximumSize, text, error)) {
        Complain(error);
        return kCannotReadOrWrite;
    }
    std::vector<Finding> findings;
    Json::Value root;
    Json::Value* node = ParseDocument(text, options, root, findings) ? ValueAt(root, at, findings) : nullptr;
    if (node != nullptr) use({text, *node, at}, findings);
    PrintFindings(file, text, findings);
    return HasDefects(findings) ? kFindings : kGood;
}

}  // namespace tool
