#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <charconv>
#include <clocale>
#include <exception>
#include <new>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "commands.h"
#include "completion.h"
#include "console.h"
#include "description.h"
#include "lines.h"
#include "manual.h"
#include "style.h"
#include "suggestion.h"
#include "utf8.h"

namespace {

bool IsFlag(const CLI::Option& option) { return option.get_items_expected_max() == 0; }

std::vector<std::string> OptionNames(const CLI::Option& option) {
    std::vector<std::string> names;
    for (const std::string& name : option.get_snames()) names.push_back("-" + name);
    for (const std::string& name : option.get_lnames()) names.push_back("--" + name);
    return names;
}

tool::ArgumentDescription DescribeArgument(const CLI::Option& option) {
    tool::ArgumentDescription argument;
    argument.names = OptionNames(option);
    argument.meaning = option.get_description();
    argument.standard = option.get_default_str();
    argument.isRequired = option.get_required();
    argument.repeats = option.get_items_expected_max() > 1;
    if (IsFlag(option)) return argument;

    // The name of the type, and behind a colon the words of a choice in braces.
    const std::string type = option.get_type_name();
    const std::size_t colon = type.find(':');
    argument.value = argument.isOption() ? type.substr(0, colon) : option.get_name(true);
    if (colon != type.npos) {
        argument.choices = CLI::detail::split(type.substr(colon + 2, type.size() - colon - 3), ',');
        argument.kind = tool::ValueKind::kChoice;
    } else {
        argument.kind = argument.value == "RECORD"  ? tool::ValueKind::kRecord
                        : argument.value == "TABLE" ? tool::ValueKind::kVocabulary
                        : argument.value == "FILE"  ? tool::ValueKind::kFile
                                                    : tool::ValueKind::kOther;
    }
    return argument;
}

tool::CommandDescription Describe(const CLI::App& app) {
    tool::CommandDescription command;
    command.name = app.get_name();
    command.meaning = app.get_description();
    for (const CLI::Option* option : app.get_options()) {
        tool::ArgumentDescription argument = DescribeArgument(*option);
        if (argument.kind == tool::ValueKind::kRecord) {
            const bool isRead = command.name == "decode" || command.name == "explain";
            if (isRead) argument.kind = tool::ValueKind::kReadRecord;
            if (command.name == "encode") argument.kind = tool::ValueKind::kWrittenRecord;
        }
        command.arguments.push_back(std::move(argument));
    }
    for (const CLI::App* below : app.get_subcommands([](const CLI::App*) { return true; })) {
        command.commands.push_back(Describe(*below));
    }
    return command;
}

/// "auto, always or never".
std::string Alternatives(const std::vector<std::string>& words) {
    const auto last = words.end() - 1;
    return words.size() < 2 ? fmt::format("{}", fmt::join(words, ""))
                            : fmt::format("{} or {}", fmt::join(words.begin(), last, ", "), *last);
}

/// What CLI11 says of options that do not fit, or fit each other, in the form of all other errors.
std::string OptionError(const CLI::App& app, const CLI::App& command, const CLI::ParseError& error) {
    std::string what = error.what();
    const std::string name = what.substr(0, what.find_first_of(": "));
    const std::string last = what.substr(what.rfind(' ') + 1);
    if (error.get_name() == "RequiredError") {
        return fmt::format("found nothing, expected {}", name == "A" ? "a command" : name);
    }
    if (error.get_name() == "ExcludesError") return fmt::format("found {} with {}, expected only one", name, last);
    if (error.get_name() == "RequiresError") return fmt::format("found {} without {}, expected both", name, last);
    if (error.get_name() != "ArgumentMismatch") return what;
    if (what.ends_with("flag override")) return fmt::format("--{}: found a value, expected none", name);
    if (what.find("received") != what.npos) return fmt::format("{}: found {} times, expected once", name, last);
    const CLI::Option* option = command.get_option_no_throw(name);
    if (option == nullptr) option = app.get_option_no_throw(name);
    if (option == nullptr) return what;
    const tool::ArgumentDescription argument = DescribeArgument(*option);
    return fmt::format("{}: found nothing, expected {}", name,
                       argument.choices.empty() ? argument.value : Alternatives(argument.choices));
}

/// What is wrong with the command line.
std::string UsageError(const CLI::App& app, const CLI::ParseError& error) {
    const std::vector<std::string> unexpected = app.remaining(true);
    const std::vector<CLI::App*> parsed = app.get_subcommands();
    const std::string command = parsed.empty() ? app.get_name() : app.get_name() + ' ' + parsed.front()->get_name();
    const std::string see = fmt::format(" (see: {} --help)", command);
    if (unexpected.empty()) return OptionError(app, parsed.empty() ? app : *parsed.front(), error) + see;

    const std::string& word = unexpected.front();
    std::vector<std::string> names;
    std::string expected = "nothing more";
    if (word.size() > 1 && word.starts_with('-')) {
        expected = "an option of " + command;
        for (const CLI::App* owner : {&app, parsed.empty() ? &app : static_cast<const CLI::App*>(parsed.front())}) {
            for (const CLI::Option* option : owner->get_options()) {
                // Every letter is near to every other: none of them is a proposal.
                for (const std::string& name : option->get_lnames()) names.push_back("--" + name);
            }
        }
    } else if (parsed.empty()) {
        expected = "a command";
        for (const tool::CommandDescription& below : Describe(app).commands) names.push_back(below.name);
    }
    const std::string name = word.substr(0, word.find('='));
    if (!parsed.empty() && std::find(names.begin(), names.end(), name) != names.end()) {
        return fmt::format("found {} before {}, expected it behind{}", tool::QuotedText(word),
                           parsed.front()->get_name(), see);
    }
    return fmt::format("found {}, expected {}{}{}", tool::QuotedText(word), expected, tool::DidYouMean(name, names),
                       see);
}

/// One of the words, which also go into the description of the option.
CLI::Validator OneOf(const std::vector<std::string>& words) {
    const auto check = [words](const std::string& value) {
        if (std::find(words.begin(), words.end(), value) != words.end()) return std::string();
        return fmt::format("found {}, expected {}{}", tool::QuotedText(value), Alternatives(words),
                           tool::DidYouMean(value, words));
    };
    return {check, fmt::format("{{{}}}", fmt::join(words, ","))};
}

bool IsWholeNumber(const std::string& text, std::size_t most) {
    std::size_t number = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    return error == std::errc() && stop == end && number >= 1 && number <= most;
}

/// A whole number from 1 to most.
CLI::Validator NumberUpTo(std::size_t most) {
    const auto check = [most](const std::string& value) {
        if (IsWholeNumber(value, most)) return std::string();
        return fmt::format("found {}, expected a whole number from 1 to {}", tool::QuotedText(value), most);
    };
    return {check, ""};
}

/// A number of bytes, to which a size with a unit is turned.
CLI::Validator SizeInBytes() {
    const auto turn = [](std::string& value) {
        std::string bytes = value;
        try {
            if (CLI::AsSizeValue(false)(bytes).empty() && IsWholeNumber(bytes, tool::kLargestAllowed)) {
                value = bytes;
                return std::string();
            }
        } catch (const CLI::ValidationError&) {
            // what follows says it
        }
        return fmt::format("found {}, expected a size from 1 to 1TiB: whole bytes, or with a unit as 256KiB, 10MB",
                           tool::QuotedText(value));
    };
    return {turn, ""};
}

void AddAtOption(CLI::App& command, std::string& at, const std::string& meaning) {
    const auto check = [](const std::string& pointer) {
        bool isPointer = pointer.empty() || pointer.front() == '/';
        for (std::size_t i = pointer.find('~'); i != pointer.npos; i = pointer.find('~', i + 1)) {
            isPointer = isPointer && i + 1 < pointer.size() && (pointer[i + 1] == '0' || pointer[i + 1] == '1');
        }
        if (isPointer) return std::string();
        return fmt::format("found {}, expected a JSON pointer: / before each step, ~ only as ~0 and ~1",
                           tool::QuotedText(pointer));
    };
    command.add_option("--at", at, meaning)->check(CLI::Validator(check, ""))->type_name("POINTER");
}

CLI::Option* AddReadingOptions(CLI::App& command, tool::ReadingOptions& reading) {
    command.add_flag("--lenient", reading.lenient, "Take what the client's own reader takes: comments, text behind it");
    command.add_option("--max-depth", reading.maximumDepth, "Arrays and objects inside each other")
        ->check(NumberUpTo(tool::kDeepestAllowed))
        ->type_name("N")
        ->capture_default_str();
    return command.add_option("--max-size", reading.maximumSize, "Bytes of a document: 64MiB")
        ->transform(SizeInBytes())
        ->type_name("SIZE");
}

/// The options of a command that works line by line, too.
CLI::Option* AddLinesOptions(CLI::App& command, bool& lines, unsigned& jobs, tool::ReadingOptions& reading) {
    CLI::Option* size = AddReadingOptions(command, reading);
    size->description(size->get_description() + ", 256KiB of one on a line");
    CLI::Option* flag = command.add_flag("--lines", lines, "Read one document a line (NDJSON), print one a line");
    command.add_option("--jobs", jobs, "Threads of --lines; as many as there are cores when not given")
        ->needs(flag)
        ->check(NumberUpTo(tool::kMostJobs))
        ->type_name("N");
    command.parse_complete_callback([&lines, &reading, size] {
        if (lines && size->count() == 0) reading.maximumSize = tool::kMaximumLine;
    });
    return flag;
}

int Run(int argc, char** argv) {
    CLI::App app("Shows what the JsonParser library makes of device messages.", "jsonparser");
    app.set_version_flag("--version", "jsonparser " JSONPARSER_VERSION);
    app.require_subcommand(1);
    app.footer("Exit codes: 0 good, 1 findings, 2 usage, 3 cannot read or write.");

    const auto setColor = [](const std::string& when) {
        tool::SetColor(when == "always"  ? tool::ColorWhen::kAlways
                       : when == "never" ? tool::ColorWhen::kNever
                                         : tool::ColorWhen::kAuto);
    };
    app.add_option_function<std::string>("--color", setColor, "Colour what is printed; auto does so on a terminal")
        ->check(OneOf({"auto", "always", "never"}))
        ->trigger_on_parse()
        ->type_name("WHEN");
    app.fallthrough();  // the tool's own options may stand behind the command as well

    tool::DecodeOptions decode;
    CLI::App* decodeCommand = app.add_subcommand("decode", "Read a record from each message and print it");
    decodeCommand->add_option("RECORD", decode.record, "Name of the record, or a part of it")->required();
    decodeCommand->add_option("FILE", decode.files, "Messages in JSON; - or none reads standard input");
    AddAtOption(*decodeCommand, decode.at, "JSON pointer to the record in each message");
    CLI::Option* asJson = decodeCommand->add_flag("--json", decode.json, "Print the record as JSON");
    CLI::Option* hex = decodeCommand->add_flag("--hex", decode.hex, "Show the record's bytes too")->excludes(asJson);
    decodeCommand->add_flag("--strict", decode.strict, "What the record has otherwise than the message is a finding");
    AddLinesOptions(*decodeCommand, decode.lines, decode.jobs, decode.reading)->excludes(hex);

    tool::ExplainOptions explain;
    CLI::App* explainCommand =
        app.add_subcommand("explain", "Show what became of each value of a message, and what nothing reads");
    explainCommand->add_option("RECORD", explain.record, "Name of the record, or a part of it")->required();
    explainCommand->add_option("FILE", explain.file, "Message in JSON; - or none reads standard input");
    AddAtOption(*explainCommand, explain.at, "JSON pointer to the record in the message");
    explainCommand->add_flag("--json", explain.json, "Print the account as JSON");
    AddReadingOptions(*explainCommand, explain.reading);

    bool json = false;
    std::string record;
    tool::EncodeOptions encode;
    CLI::App* encodeCommand =
        app.add_subcommand("encode", "Write a record, as decode --json prints it, into a message");
    encodeCommand->add_option("RECORD", encode.record, "Name of the record, or a part of it")->required();
    encodeCommand->add_option("FILE", encode.files, "Records in JSON; - or none reads standard input");
    AddLinesOptions(*encodeCommand, encode.lines, encode.jobs, encode.reading);
    CLI::App* recordsCommand = app.add_subcommand("records", "List the records");
    recordsCommand->add_flag("--json", json, "Print the list as JSON");
    CLI::App* fieldsCommand = app.add_subcommand("fields", "Show a record's layout");
    fieldsCommand->add_option("RECORD", record, "Name of the record, or a part of it")->required();
    fieldsCommand->add_flag("--json", json, "Print the layout as JSON");
    std::optional<std::string> table;
    CLI::App* keywordsCommand = app.add_subcommand("keywords", "List the vocabularies of the protocol");
    keywordsCommand->add_option("TABLE", table, "Name of a vocabulary; none lists all");
    keywordsCommand->add_flag("--json", json, "Print them as JSON");

    std::string code;
    CLI::App* errorCommand = app.add_subcommand("error", "Show the library's error code for a device error code");
    errorCommand->add_option("CODE", code, "Device error code, decimal (as replies carry it) or hexadecimal after 0x")
        ->required();
    errorCommand->add_flag("--json", json, "Print both codes as JSON");

    std::string shell;
    CLI::App* completionCommand = app.add_subcommand("completion", "Print the script that completes the tool's words");
    completionCommand->add_option("SHELL", shell, "Shell that the script is for")
        ->required()
        ->check(OneOf({"bash", "zsh", "fish"}));
    CLI::App* manCommand = app.add_subcommand("man", "Print the manual page, for mandoc or man -l");

    for (CLI::App* command : app.get_subcommands([](CLI::App*) { return true; })) {
        for (CLI::Option* option : command->get_options()) {
            if (option->get_positional()) option->type_name("");
            if (IsFlag(*option)) option->disable_flag_override();
        }
    }

    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() != 0) {
            tool::Complain(UsageError(app, error));
            return tool::kUsage;
        }
        std::ostringstream help;
        app.exit(error, help, help);
        tool::Print(help.str());
        return tool::Flushed(tool::kGood);
    }
    if (decodeCommand->parsed()) return tool::Decode(decode);
    if (explainCommand->parsed()) return tool::Explain(explain);
    if (encodeCommand->parsed()) return tool::Encode(encode);
    if (recordsCommand->parsed()) return tool::ListRecords(json);
    if (keywordsCommand->parsed()) return tool::ListKeywords(table, json);
    if (errorCommand->parsed()) return tool::MapErrorCode(code, json);
    if (completionCommand->parsed()) {
        tool::Print(tool::CompletionScript(shell, Describe(app)));
        return tool::Flushed(tool::kGood);
    }
    if (manCommand->parsed()) {
        tool::Print(tool::ManualPage(Describe(app)));
        return tool::Flushed(tool::kGood);
    }
    return tool::ListFields(record, json);
}

}  // namespace

int main(int argc, char** argv) {
    // Texts follow the locale, numbers never do.
    std::setlocale(LC_CTYPE, "");
    try {
        return Run(argc, argv);
    } catch (const std::bad_alloc&) {
        tool::Complain("found a document larger than the memory there is, expected a smaller one (see: --max-size)");
        return tool::kCannotReadOrWrite;
    } catch (const std::exception& error) {
        tool::Complain(error.what());
        return tool::kCannotReadOrWrite;
    }
}
