#include <CLI/CLI.hpp>
#include <clocale>
#include <exception>
#include <iostream>
#include <string>
#include <vector>

#include "commands.h"
#include "style.h"

namespace {

void AddReadingOptions(CLI::App& command, tool::ReadingOptions& reading) {
    command.add_flag("--lenient", reading.lenient, "Take what the client's own reader takes: comments, text behind it");
    command.add_option("--max-depth", reading.maximumDepth, "Arrays and objects inside each other")
        ->check(CLI::Range(1, tool::kDeepestAllowed))
        ->capture_default_str();
    command.add_option("--max-size", reading.maximumSize, "Bytes of a document; 64MiB")
        ->transform(CLI::AsSizeValue(false))
        ->check(CLI::Range(std::size_t{1}, tool::kLargestAllowed))  // a minus sign makes a number beyond it
        ->type_name("SIZE");
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
        ->check(CLI::IsMember({"auto", "always", "never"}))
        ->trigger_on_parse()
        ->type_name("WHEN");
    app.fallthrough();  // the tool's own options may stand behind the command as well

    tool::DecodeOptions decode;
    CLI::App* decodeCommand = app.add_subcommand("decode", "Read a record from each message and print it");
    decodeCommand->add_option("RECORD", decode.record, "Name of the record, or a part of it")->required();
    decodeCommand->add_option("FILE", decode.files, "Messages in JSON; - or none reads standard input");
    decodeCommand->add_option("--at", decode.at, "JSON pointer to the record in each message")->type_name("POINTER");
    decodeCommand->add_flag("--json", decode.json, "Print the record as JSON");
    decodeCommand->add_flag("--hex", decode.hex, "Show the record's bytes too");
    decodeCommand->add_flag("--strict", decode.strict, "What the record has otherwise than the message is a finding");
    AddReadingOptions(*decodeCommand, decode.reading);

    tool::ExplainOptions explain;
    CLI::App* explainCommand =
        app.add_subcommand("explain", "Show what became of each value of a message, and what nothing reads");
    explainCommand->add_option("RECORD", explain.record, "Name of the record, or a part of it")->required();
    explainCommand->add_option("FILE", explain.file, "Message in JSON; - or none reads standard input");
    explainCommand->add_option("--at", explain.at, "JSON pointer to the record in the message")->type_name("POINTER");
    explainCommand->add_flag("--json", explain.json, "Print the account as JSON");
    AddReadingOptions(*explainCommand, explain.reading);

    bool json = false;
    std::string record;
    tool::EncodeOptions encode;
    CLI::App* encodeCommand =
        app.add_subcommand("encode", "Write a record, as decode --json prints it, into a message");
    encodeCommand->add_option("RECORD", encode.record, "Name of the record, or a part of it")->required();
    encodeCommand->add_option("FILE", encode.files, "Records in JSON; - or none reads standard input");
    AddReadingOptions(*encodeCommand, encode.reading);
    CLI::App* recordsCommand = app.add_subcommand("records", "List the records");
    recordsCommand->add_flag("--json", json, "Print the list as JSON");
    CLI::App* fieldsCommand = app.add_subcommand("fields", "Show a record's layout");
    fieldsCommand->add_option("RECORD", record, "Name of the record, or a part of it")->required();
    fieldsCommand->add_flag("--json", json, "Print the layout as JSON");
    std::string table;
    CLI::App* keywordsCommand = app.add_subcommand("keywords", "List the vocabularies of the protocol");
    keywordsCommand->add_option("TABLE", table, "Name of a vocabulary; none lists all");
    keywordsCommand->add_flag("--json", json, "Print them as JSON");

    std::string code;
    CLI::App* errorCommand = app.add_subcommand("error", "Show the library's error code for a device error code");
    errorCommand->add_option("CODE", code, "Device error code, decimal (as replies carry it) or hexadecimal after 0x")
        ->required();
    errorCommand->add_flag("--json", json, "Print both codes as JSON");

    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == 0) return app.exit(error);
        std::cerr << tool::StyleOf(stderr)(tool::Style::kError, "jsonparser:") << ' ' << error.what()
                  << " (see: jsonparser --help)\n";
        return tool::kUsage;
    }
    if (decodeCommand->parsed()) return tool::Decode(decode);
    if (explainCommand->parsed()) return tool::Explain(explain);
    if (encodeCommand->parsed()) return tool::Encode(encode);
    if (recordsCommand->parsed()) return tool::ListRecords(json);
    if (keywordsCommand->parsed()) return tool::ListKeywords(table, json);
    if (errorCommand->parsed()) return tool::MapErrorCode(code, json);
    return tool::ListFields(record, json);
}

}  // namespace

int main(int argc, char** argv) {
    // Texts follow the locale, numbers never do.
    std::setlocale(LC_CTYPE, "");
    try {
        return Run(argc, argv);
    } catch (const std::exception& error) {
        std::cerr << "jsonparser: " << error.what() << '\n';
        return tool::kCannotReadOrWrite;
    }
}
