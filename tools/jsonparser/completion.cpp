#include "completion.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

#include "catalogue.h"
#include "vkprotocolstack/vocabulary.h"

namespace tool {
namespace {

/// A word that can be completed, and what it means.
using Word = std::pair<std::string, std::string>;

/// Of all records, of those that are read or of those that are written.
std::vector<Word> Records(ValueKind kind) {
    std::vector<Word> words;
    for (const CatalogueEntry& entry : Catalogue()) {
        const bool isLeftOut = (kind == ValueKind::kReadRecord && entry.decode == nullptr) ||
                               (kind == ValueKind::kWrittenRecord && entry.encode == nullptr);
        if (!isLeftOut) words.emplace_back(entry.name, entry.meaning);
    }
    return words;
}

std::vector<Word> VocabularyNames() {
    std::vector<Word> words;
    for (const jsonparser::Vocabulary& vocabulary : jsonparser::Vocabularies()) {
        words.emplace_back(vocabulary.name, vocabulary.meaning);
    }
    return words;
}

std::vector<Word> CommandNames(const CommandDescription& tool) {
    std::vector<Word> words;
    for (const CommandDescription& command : tool.commands) words.emplace_back(command.name, command.meaning);
    return words;
}

/// Options that may stand behind a command: its own and the tool's, each name once.
std::vector<ArgumentDescription> OptionsBehind(const CommandDescription& tool, const CommandDescription& command) {
    std::vector<ArgumentDescription> options;
    for (const CommandDescription* owner : {&command, &tool}) {
        for (const ArgumentDescription& argument : owner->arguments) {
            const bool isKnown = std::any_of(options.begin(), options.end(), [&argument](const auto& option) {
                return option.names == argument.names;
            });
            const bool endsTheRun = owner == &tool && argument.names == std::vector<std::string>{"--version"};
            if (argument.isOption() && !isKnown && !endsTheRun) options.push_back(argument);
        }
    }
    return options;
}

std::vector<ArgumentDescription> Operands(const CommandDescription& command) {
    std::vector<ArgumentDescription> operands;
    std::copy_if(command.arguments.begin(), command.arguments.end(), std::back_inserter(operands),
                 [](const ArgumentDescription& argument) { return !argument.isOption(); });
    return operands;
}

/// text in single quotes of a shell that has no escapes within them (sh) or a backslash (fish).
std::string Quoted(std::string_view text, std::string_view quote) {
    std::string quoted = "'";
    for (const char c : text) {
        if (c == '\'') {
            quoted += quote;
        } else {
            quoted += c;
        }
    }
    return quoted + '\'';
}

std::string ShellQuoted(std::string_view text) { return Quoted(text, R"('\'')"); }

/// text with a backslash before each of characters.
std::string Escaped(std::string_view text, std::string_view characters) {
    std::string escaped;
    for (const char c : text) {
        if (characters.find(c) != characters.npos) escaped += '\\';
        escaped += c;
    }
    return escaped;
}

std::string Names(const std::vector<Word>& words) {
    std::string names;
    for (const auto& [name, meaning] : words) names += (names.empty() ? "" : " ") + name;
    return names;
}

// ---- bash

/// Shell code that offers the values of an argument.
std::string BashValues(const ArgumentDescription& argument) {
    switch (argument.kind) {
        case ValueKind::kRecord:
            return "_jsonparser_names \"$records\"";
        case ValueKind::kReadRecord:
            return "_jsonparser_names \"$read_records\"";
        case ValueKind::kWrittenRecord:
            return "_jsonparser_names \"$written_records\"";
        case ValueKind::kVocabulary:
            return "_jsonparser_names \"$vocabularies\"";
        case ValueKind::kFile:
            return "_jsonparser_files";
        case ValueKind::kChoice:
            return fmt::format("_jsonparser_names '{}'", fmt::join(argument.choices, " "));
        case ValueKind::kNone:
        case ValueKind::kOther:
            break;
    }
    return ":";
}

std::string BashScript(const CommandDescription& tool) {
    std::string valued;    // "command option" of options with a value, for a case
    std::string values;    // branches by "command option"
    std::string options;   // branches by command
    std::string operands;  // branches by "command place"
    const auto add = [&](std::string_view name, const std::vector<ArgumentDescription>& arguments) {
        std::string names;
        for (const ArgumentDescription& option : arguments) {
            for (const std::string& option_name : option.names) names += (names.empty() ? "" : " ") + option_name;
            if (option.kind == ValueKind::kNone) continue;
            for (const std::string& option_name : option.names) {
                const std::string pattern = fmt::format("'{} {}'", name, option_name);
                valued += (valued.empty() ? "" : " | ") + pattern;
                values += fmt::format("            {}) {} ;;\n", pattern, BashValues(option));
            }
        }
        options += fmt::format("            '{}') _jsonparser_names '{}' ;;\n", name, names);
    };
    std::vector<ArgumentDescription> own;
    for (const ArgumentDescription& argument : tool.arguments) {
        if (argument.isOption()) own.push_back(argument);
    }
    add("", own);
    for (const CommandDescription& command : tool.commands) {
        add(command.name, OptionsBehind(tool, command));
        std::size_t place = 0;
        for (const ArgumentDescription& operand : Operands(command)) {
            operands += fmt::format("            '{} '{}) {} ;;\n", command.name,
                                    operand.repeats ? "*" : std::to_string(place), BashValues(operand));
            ++place;
        }
    }
    return fmt::format(R"(# bash completion for jsonparser, made by: jsonparser completion bash

# The names of a list that begin with the word; where none does, the only one that has it inside, in any case.
_jsonparser_names() {{
    COMPREPLY=($(compgen -W "$1" -- "$word"))
    if [[ ${{#COMPREPLY[@]}} -eq 0 && -n $word ]]; then
        local name
        for name in $1; do
            [[ ${{name,,}} == *"${{word,,}}"* ]] && COMPREPLY+=("$name")
        done
        [[ ${{#COMPREPLY[@]}} -eq 1 ]] || COMPREPLY=()
    fi
}}

_jsonparser_files() {{
    compopt -o filenames 2>/dev/null
    local IFS=$'\n'
    COMPREPLY=($(compgen -f -- "$word"))
}}

_jsonparser() {{
    local records='{}'
    local read_records='{}'
    local written_records='{}'
    local vocabularies='{}'
    local word= option= command= place=0 i
    COMPREPLY=()
    # The shell makes three words of --color=always.
    for ((i = 1; i < COMP_CWORD; ++i)); do
        word=${{COMP_WORDS[i]}}
        if [[ $word == = ]]; then
            continue
        elif [[ -n $option ]]; then
            option=
        elif [[ $word == -?* ]]; then
            case "$command $word" in
                {}) option=$word ;;
            esac
        elif [[ -z $command ]]; then
            command=$word
        else
            ((++place))
        fi
    done
    word=${{COMP_WORDS[COMP_CWORD]}}
    [[ -n $option && $word == = ]] && word=
    if [[ -n $option ]]; then
        case "$command $option" in
{}        esac
    elif [[ $word == -* && $word != - ]]; then
        case "$command" in
{}        esac
    elif [[ -z $command ]]; then
        _jsonparser_names '{}'
    else
        case "$command $place" in
{}        esac
    fi
}}

complete -F _jsonparser jsonparser
)",
                       Names(Records(ValueKind::kRecord)), Names(Records(ValueKind::kReadRecord)),
                       Names(Records(ValueKind::kWrittenRecord)), Names(VocabularyNames()), valued, values, options,
                       Names(CommandNames(tool)), operands);
}

// ---- zsh

/// The function that completes an argument's values, or the choices.
std::string ZshValues(const ArgumentDescription& argument) {
    switch (argument.kind) {
        case ValueKind::kRecord:
            return "_jsonparser_records";
        case ValueKind::kReadRecord:
            return "_jsonparser_read_records";
        case ValueKind::kWrittenRecord:
            return "_jsonparser_written_records";
        case ValueKind::kVocabulary:
            return "_jsonparser_vocabularies";
        case ValueKind::kFile:
            return "_files";
        case ValueKind::kChoice:
            return fmt::format("({})", fmt::join(argument.choices, " "));
        case ValueKind::kNone:
        case ValueKind::kOther:
            break;
    }
    return " ";
}

/// Arguments of zsh's _arguments, a line each.
std::string ZshArguments(const std::vector<ArgumentDescription>& arguments, std::string_view indent) {
    std::string text;
    for (const ArgumentDescription& argument : arguments) {
        const std::string value = fmt::format(":{}:{}", argument.value, ZshValues(argument));
        if (!argument.isOption()) {
            const char* place = argument.repeats ? "*" : argument.isRequired ? "" : ":";
            text += fmt::format(" \\\n{}{}", indent, ShellQuoted(place + value));
            continue;
        }
        for (const std::string& name : argument.names) {
            const bool isValued = argument.kind != ValueKind::kNone;
            text += fmt::format(" \\\n{}{}", indent,
                                ShellQuoted(fmt::format("({}){}{}[{}]{}", fmt::join(argument.names, " "), name,
                                                        isValued && name.starts_with("--") ? "=" : "",
                                                        Escaped(argument.meaning, "[]:\\"), isValued ? value : "")));
        }
    }
    return text;
}

/// A function that offers words with their meanings.
std::string ZshWords(std::string_view function, std::string_view tags, const std::vector<Word>& words) {
    std::string text = fmt::format("{}() {{\n    local -a words=(\n", function);
    for (const auto& [name, meaning] : words) {
        text += fmt::format("        {}\n", ShellQuoted(Escaped(name, ":\\") + ':' + meaning));
    }
    return text + fmt::format("    )\n    _describe -t {0} {0} words -M 'm:{{a-zA-Z}}={{A-Za-z}} l:|=*'\n}}\n\n", tags);
}

std::string ZshScript(const CommandDescription& tool) {
    std::vector<ArgumentDescription> own;
    for (const ArgumentDescription& argument : tool.arguments) {
        if (argument.isOption()) own.push_back(argument);
    }
    std::string branches;
    for (const CommandDescription& command : tool.commands) {
        std::vector<ArgumentDescription> arguments = OptionsBehind(tool, command);
        const std::vector<ArgumentDescription> operands = Operands(command);
        arguments.insert(arguments.end(), operands.begin(), operands.end());
        branches += fmt::format("        {})\n            _arguments{}\n            ;;\n", command.name,
                                ZshArguments(arguments, "                "));
    }
    return fmt::format(
               "#compdef jsonparser\n# zsh completion for jsonparser, made by: jsonparser completion zsh\n\n{}{}{}",
               ZshWords("_jsonparser_records", "records", Records(ValueKind::kRecord)) +
                   ZshWords("_jsonparser_read_records", "records", Records(ValueKind::kReadRecord)) +
                   ZshWords("_jsonparser_written_records", "records", Records(ValueKind::kWrittenRecord)),
               ZshWords("_jsonparser_vocabularies", "vocabularies", VocabularyNames()),
               ZshWords("_jsonparser_commands", "commands", CommandNames(tool))) +
           fmt::format(R"(_jsonparser() {{
    local curcontext=$curcontext state line
    _arguments -C{} \
        ': :_jsonparser_commands' \
        '*:: :->command' && return
    case $line[1] in
{}    esac
}}

_jsonparser "$@"
)",
                       ZshArguments(own, "        "), branches);
}

// ---- fish

std::string FishQuoted(std::string_view text) { return Quoted(Escaped(text, "\\"), R"(\')"); }

/// What stands behind -a: words with their meanings, or choices.
std::string FishValues(const ArgumentDescription& argument) {
    switch (argument.kind) {
        case ValueKind::kRecord:
            return "-f -a '(__jsonparser_records)'";
        case ValueKind::kReadRecord:
            return "-f -a '(__jsonparser_read_records)'";
        case ValueKind::kWrittenRecord:
            return "-f -a '(__jsonparser_written_records)'";
        case ValueKind::kVocabulary:
            return "-f -a '(__jsonparser_vocabularies)'";
        case ValueKind::kFile:
            return "-F";
        case ValueKind::kChoice:
            return fmt::format("-f -a '{}'", fmt::join(argument.choices, " "));
        case ValueKind::kNone:
        case ValueKind::kOther:
            break;
    }
    return "-f";
}

std::string FishWords(std::string_view function, const std::vector<Word>& words) {
    std::string text = fmt::format("function {}\n", function);
    for (const auto& [name, meaning] : words) {
        text += fmt::format("    printf '%s\\t%s\\n' {} {}\n", FishQuoted(name), FishQuoted(meaning));
    }
    return text + "end\n\n";
}

std::string FishScript(const CommandDescription& tool) {
    std::string valued;
    std::string lines;
    const auto add = [&](std::string_view condition, const ArgumentDescription& option) {
        lines += fmt::format("complete -c jsonparser -n {}", FishQuoted(condition));
        for (const std::string& name : option.names) {
            lines +=
                name.starts_with("--") ? fmt::format(" -l {}", name.substr(2)) : fmt::format(" -s {}", name.substr(1));
            if (option.kind != ValueKind::kNone && valued.find(name + ' ') == valued.npos) valued += name + ' ';
        }
        if (option.kind != ValueKind::kNone) lines += " -r " + FishValues(option);
        lines += fmt::format(" -d {}\n", FishQuoted(option.meaning));
    };
    for (const ArgumentDescription& argument : tool.arguments) {
        if (argument.isOption()) add("__jsonparser_at ''", argument);
    }
    lines += "complete -c jsonparser -n \"__jsonparser_at ''\" -f -a '(__jsonparser_commands)'\n";
    for (const CommandDescription& command : tool.commands) {
        for (const ArgumentDescription& option : OptionsBehind(tool, command)) {
            add(fmt::format("__jsonparser_at {}", command.name), option);
        }
        std::size_t place = 0;
        for (const ArgumentDescription& operand : Operands(command)) {
            lines += fmt::format("complete -c jsonparser -n '__jsonparser_at {} {}' {}\n", command.name,
                                 operand.repeats ? fmt::format("{} more", place) : std::to_string(place),
                                 FishValues(operand));
            ++place;
        }
    }
    return fmt::format(R"(# fish completion for jsonparser, made by: jsonparser completion fish

{}{}{}# Whether the word that is typed belongs to a command; with a number, whether it is that operand of the command, and
# with more, that operand or one behind it.
function __jsonparser_at
    set -l command ''
    set -l place 0
    set -l option 0
    for word in (commandline -opc)[2..]
        if test $option -eq 1
            set option 0
        else if contains -- $word {}
            set option 1
        else if string match -qr -- '^-.' $word
            continue
        else if test -z "$command"
            set command $word
        else
            set place (math $place + 1)
        end
    end
    test "$command" = "$argv[1]"; or return 1
    if test (count $argv) -eq 2
        test $place -eq $argv[2]
    else if test (count $argv) -eq 3
        test $place -ge $argv[2]
    end
end

complete -c jsonparser -f
{})",
                       FishWords("__jsonparser_records", Records(ValueKind::kRecord)) +
                           FishWords("__jsonparser_read_records", Records(ValueKind::kReadRecord)) +
                           FishWords("__jsonparser_written_records", Records(ValueKind::kWrittenRecord)),
                       FishWords("__jsonparser_vocabularies", VocabularyNames()),
                       FishWords("__jsonparser_commands", CommandNames(tool)), valued, lines);
}

}  // namespace

std::string CompletionScript(std::string_view shell, const CommandDescription& tool) {
    return shell == "bash" ? BashScript(tool) : shell == "zsh" ? ZshScript(tool) : FishScript(tool);
}

}  // namespace tool
