#include "input.h"

#include <fmt/format.h>
#include <json/reader.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <memory>
#include <optional>

#include "strict_reader.h"
#include "utf8.h"
#include "vkprotocolstack/wire/nearest.h"

namespace tool {
namespace {

using namespace std::string_view_literals;

struct CloseFile {
    void operator()(std::FILE* file) const {
        if (file != stdin) std::fclose(file);
    }
};

/// Where the containers of a text that may hold comments nest deeper than allowed, as far as its first value.
std::optional<std::size_t> TooDeepAt(std::string_view text, int maximumDepth) {
    int depth = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (c == '"') {
            for (++i; i < text.size() && text[i] != '"'; ++i) i += text[i] == '\\' ? 1U : 0U;
        } else if (text.substr(i, 2) == "//") {
            i = std::min(text.find('\n', i), text.size());
        } else if (text.substr(i, 2) == "/*") {
            const std::size_t end = text.find("*/", i + 2);
            if (end == std::string_view::npos) return std::nullopt;
            i = end + 1;
        } else if (c == '[' || c == '{') {
            if (++depth > maximumDepth) return i;
        } else if ((c == ']' || c == '}') && --depth <= 0) {
            return std::nullopt;
        }
    }
    return std::nullopt;
}

/// The offset of the place that jsoncpp names, which counts bytes, and a carriage return as a line end.
std::size_t OffsetOf(std::string_view text, std::size_t line, std::size_t column) {
    std::size_t at = 0;
    while (line > 1 && at < text.size()) {
        const char c = text[at++];
        if (c == '\r' && at < text.size() && text[at] == '\n') ++at;
        line -= c == '\r' || c == '\n' ? 1 : 0;
    }
    return std::min(at + column - 1, text.size());
}

/// What jsoncpp reports: "* Line 3, Column 5", then the message indented, then perhaps where the thing began.
void AddReaderErrors(std::string_view text, std::string_view errors, std::vector<Finding>& findings) {
    while (!errors.empty()) {
        std::string_view row = errors.substr(0, errors.find('\n'));
        errors.remove_prefix(std::min(row.size() + 1, errors.size()));
        constexpr std::string_view kLine = "* Line ";
        constexpr std::string_view kColumn = ", Column ";
        const std::size_t comma = row.find(kColumn);
        if (row.starts_with(kLine) && comma != row.npos) {
            std::size_t line = 1;
            std::size_t column = 1;
            std::from_chars(row.data() + kLine.size(), row.data() + comma, line);
            std::from_chars(row.data() + comma + kColumn.size(), row.data() + row.size(), column);
            findings.push_back({OffsetOf(text, line, column), "", ""});
        } else if (!findings.empty() && row.find_first_not_of(' ') != row.npos) {
            std::string& message = findings.back().text;
            message += message.empty() ? "" : " ";
            message += row.substr(row.find_first_not_of(' '));
        }
    }
}

/// Reads what the client's own reader takes: comments, trailing commas, text behind the document and more.
bool ReadLeniently(std::string_view text, int maximumDepth, Json::Value& document, std::vector<Finding>& findings) {
    if (const std::optional<std::size_t> deep = TooDeepAt(text, maximumDepth)) {
        findings.push_back({*deep, "",
                            fmt::format("found {} inside {} others, expected at most {} levels (see --max-depth)",
                                        text[*deep] == '[' ? "an array" : "an object", maximumDepth, maximumDepth)});
        return false;
    }
    Json::CharReaderBuilder builder;
    builder["collectComments"] = false;
    builder["stackLimit"] = maximumDepth + 2;
    const std::unique_ptr<Json::CharReader> reader(builder.newCharReader());
    std::string errors;
    try {
        if (reader->parse(text.data(), text.data() + text.size(), &document, &errors)) return true;
        AddReaderErrors(text, errors, findings);
    } catch (const std::exception& error) {
        findings.push_back({Finding::kNowhere, "", fmt::format("cannot be read: {}", error.what())});
    }
    return false;
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

/// What to look at when value has no such child.
std::string Proposal(const Json::Value& value, const std::string& step) {
    if (!value.isObject()) return "";
    const std::vector<std::string> names = value.getMemberNames();
    const auto near = jsonparser::Nearest(step, std::vector<std::string_view>(names.begin(), names.end()));
    return near ? fmt::format("; did you mean {}?", QuotedText(*near)) : "";
}

}  // namespace

std::string_view ForeignEncoding(std::string_view text) {
    if (text.starts_with("\xFF\xFE\0\0"sv) || text.starts_with("\0\0\xFE\xFF"sv)) return "UTF-32";
    if (text.starts_with("\xFF\xFE"sv) || text.starts_with("\xFE\xFF"sv)) return "UTF-16";
    std::string zeros;
    for (const char c : text.substr(0, 4)) zeros += c == '\0' ? '0' : 'x';
    if (text.size() % 4 == 0 && (zeros == "x000" || zeros == "000x")) return "UTF-32";
    const bool isUtf16 = zeros == "x0" || zeros == "0x" || zeros == "x0x0" || zeros == "0x0x";
    return text.size() % 2 == 0 && isUtf16 ? "UTF-16" : "";
}

bool ReadFile(const std::string& file, std::size_t most, std::string& text, std::string& error) {
    const std::unique_ptr<std::FILE, CloseFile> stream(file == "-" ? stdin : std::fopen(file.c_str(), "rb"));
    text.clear();
    if (stream != nullptr) {
        char chunk[65536];
        for (std::size_t n = 1; n > 0 && text.size() <= most;) {
            n = std::fread(chunk, 1, std::min(sizeof chunk, most + 1 - text.size()), stream.get());
            text.append(chunk, n);
        }
        if (std::ferror(stream.get()) == 0) return true;
    }
    error = fmt::format("{}: cannot be read: {}", FileName(file), std::strerror(errno));
    return false;
}

bool ParseDocument(std::string& text, const ReadingOptions& options, Json::Value& document,
                   std::vector<Finding>& findings) {
    if (text.size() > options.maximumSize) {
        findings.push_back({Finding::kNowhere, "",
                            fmt::format("found more than {} bytes, expected at most that many (see --max-size)",
                                        options.maximumSize)});
        return false;
    }
    if (const std::string_view encoding = ForeignEncoding(text); !encoding.empty()) {
        findings.push_back({0, "", fmt::format("found {}, expected UTF-8", encoding)});
        return false;
    }
    if (text.starts_with("\xEF\xBB\xBF")) text.erase(0, 3);
    if (options.lenient) return ReadLeniently(text, options.maximumDepth, document, findings);
    std::optional<Finding> defect = ReadStrictly(text, options.maximumDepth, document);
    if (defect) findings.push_back(std::move(*defect));
    return !defect;
}

Json::Value* ValueAt(Json::Value& document, std::string_view pointer, std::vector<Finding>& findings) {
    Json::Value* value = &document;
    std::string path;
    for (const std::string& step : PointerSteps(pointer)) {
        path += PointerStep(step);
        Json::Value* child = Child(*value, step);
        if (child == nullptr) {
            findings.push_back(
                {static_cast<std::size_t>(value->getOffsetStart()), path,
                 fmt::format("found {} without it, expected a value{}", Shown(*value), Proposal(*value, step))});
            return nullptr;
        }
        value = child;
    }
    return value;
}

}  // namespace tool
