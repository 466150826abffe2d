#include "input.h"

#include <fmt/format.h>
#include <json/reader.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <memory>
#include <sstream>

#include "utf8.h"

namespace tool {
namespace {

struct CloseFile {
    void operator()(std::FILE* file) const {
        if (file != stdin) std::fclose(file);
    }
};

/// jsoncpp reports "* Line 3, Column 5", then the message indented, then perhaps where the thing began.
void AddReaderErrors(const std::string& file, const std::string& errors, std::vector<std::string>& findings) {
    std::istringstream lines(errors);
    for (std::string line; std::getline(lines, line);) {
        constexpr std::string_view kLine = "* Line ";
        constexpr std::string_view kColumn = ", Column ";
        const std::size_t comma = line.find(kColumn);
        if (line.rfind(kLine, 0) == 0 && comma != line.npos) {
            findings.push_back(fmt::format("{}:{}:{}:", FileName(file), line.substr(kLine.size(), comma - kLine.size()),
                                           line.substr(comma + kColumn.size())));
        } else if (!findings.empty() && line.find_first_not_of(' ') != std::string::npos) {
            findings.back() += ' ' + line.substr(line.find_first_not_of(' '));
        }
    }
}

/// One step of a JSON pointer: "~1" is "/", "~0" is "~".
std::string Unescaped(std::string_view step) {
    std::string name;
    for (std::size_t i = 0; i < step.size(); ++i) {
        const bool escape = step[i] == '~' && i + 1 < step.size() && (step[i + 1] == '0' || step[i + 1] == '1');
        name += escape ? (step[i + 1] == '1' ? '/' : '~') : step[i];
        i += escape ? 1 : 0;
    }
    return name;
}

/// The child of value that one step names.
Json::Value* Child(Json::Value& value, const std::string& step) {
    if (value.isObject()) {
        return const_cast<Json::Value*>(value.find(step.data(), step.data() + step.size()));
    }
    if (!value.isArray() || step.empty() || step.size() > 9 || step.find_first_not_of("0123456789") != step.npos) {
        return nullptr;
    }
    const unsigned long index = std::strtoul(step.c_str(), nullptr, 10);
    return index < value.size() ? &value[static_cast<Json::ArrayIndex>(index)] : nullptr;
}

}  // namespace

std::string FileName(const std::string& file) { return file == "-" ? "<stdin>" : file; }

std::string Shown(const Json::Value& value) {
    switch (value.type()) {
        case Json::arrayValue:
            return fmt::format("an array of {}", value.size());
        case Json::objectValue:
            return "an object";
        case Json::stringValue:
            return QuotedText(value.asString());
        default:
            return value.isNull() ? "null" : value.asString();
    }
}

bool ReadFile(const std::string& file, std::string& text, std::string& error) {
    const std::unique_ptr<std::FILE, CloseFile> stream(file == "-" ? stdin : std::fopen(file.c_str(), "rb"));
    text.clear();
    if (stream != nullptr) {
        char chunk[65536];
        for (std::size_t n = 0; (n = std::fread(chunk, 1, sizeof chunk, stream.get())) > 0;) text.append(chunk, n);
        if (std::ferror(stream.get()) == 0) return true;
    }
    error = fmt::format("{}: cannot be read: {}", FileName(file), std::strerror(errno));
    return false;
}

bool ParseDocument(const std::string& file, const std::string& text, Json::Value& document,
                   std::vector<std::string>& findings) {
    Json::CharReaderBuilder builder;
    Json::CharReaderBuilder::strictMode(&builder.settings_);
    builder["strictRoot"] = false;
    builder["collectComments"] = false;
    builder["stackLimit"] = kMaximumDepth + 1;
    const std::unique_ptr<Json::CharReader> reader(builder.newCharReader());
    std::string errors;
    try {
        if (reader->parse(text.c_str(), text.c_str() + text.size(), &document, &errors)) return true;
        AddReaderErrors(file, errors, findings);
    } catch (const std::exception&) {
        findings.push_back(fmt::format("{}: nested deeper than {} levels", FileName(file), kMaximumDepth));
    }
    return false;
}

Json::Value* ValueAt(const std::string& file, Json::Value& document, std::string_view pointer,
                     std::vector<std::string>& findings) {
    Json::Value* value = &document;
    std::size_t begin = 0;
    while (begin < pointer.size()) {
        const std::size_t end = std::min(pointer.find('/', begin + 1), pointer.size());
        Json::Value* child =
            pointer[begin] == '/' ? Child(*value, Unescaped(pointer.substr(begin + 1, end - begin - 1))) : nullptr;
        if (child == nullptr) {
            findings.push_back(fmt::format("{}: {}: found {} without it, expected a value", FileName(file),
                                           pointer.substr(0, end), Shown(*value)));
            return nullptr;
        }
        value = child;
        begin = end;
    }
    return value;
}

}  // namespace tool
