#include "manual.h"

#include <fmt/format.h>

#include <algorithm>
#include <vector>

#include "catalogue.h"
#include "vkprotocolstack/vocabulary.h"

namespace tool {
namespace {

/// More about a command than its description says, in the mdoc language.
struct Note {
    std::string_view command;
    std::string_view text;
};

constexpr Note kNotes[] = {
    {"decode",  R"(Each
.Ar FILE
holds one message, unless
.Fl Fl lines
is given.
Fields that the converter leaves alone are zero, reserved bytes are not shown.
The JSON form carries texts up to their terminator, numbers as they are, numbers that JSON lacks as
.Qq NaN ,
.Qq Infinity
and
.Qq -Infinity ,
and texts that are not valid in the local encoding as
.Li {"hex": \(dqtheir bytes\(dq} .
.Pp
With
.Fl Fl lines
each line that is not blank holds one message, and becomes one line: the JSON form without blanks.
Lines are converted on all cores, printed in their order, and printed as soon as no more input is ready.
A line that gives no whole record prints nothing to standard output and a finding to standard error; the run goes on,
and says at its end how many lines were bad.
Memory does not grow with the input.
)"                                                                                             },
    {"encode",  R"(Fields that the record's form lacks are zero.
A field that the record lacks, a number that its field cannot hold and a text that is too long for its field are
findings, and so is a value that does not come back when the message is read: nothing is cut without a word, and nothing
is printed for a record with findings.
.Fl Fl lines
works as for
.Cm decode .
)"                                                    },
    {"explain",
     R"(A row for every value that the converter looks for, in its order: the path, what was found there, how it was
tested and converted, the value that was taken, and what became of it.
Then every member of the message that nothing reads, with the nearest name that is read in its place.
Where the record has something else than the message, that is a finding.
)"},
    {"error",   R"(A code that the library does not know is a finding.
)"                                              },
};

/// A run of the tool, with all that it prints.
struct Example {
    std::string_view meaning;
    std::string_view command;
    std::string_view output;
};

constexpr Example kExamples[] = {
    {"Show the rectangle that a message holds:",
     R"(echo '{"Rect": [1, 2, 3, 4]}' | jsonparser decode VK_RECT --at /Rect)",                                                                                      R"(VK_RECT (32 bytes)
  nLeft    1
  nTop     2
  nRight   3
  nBottom  4
)"},
    {"A part of a record's name will do, in any case:",                   R"(echo '[1, 2]' | jsonparser decode point --json)",
     R"({
  "nx": 1,
  "ny": 2
}
)"                                                                                                                                                                                 },
    {"To a record and back:",                                             "echo '[1, 2]' | jsonparser decode VK_POINT --lines | jsonparser encode VK_POINT --lines",
     "[1,2]\n"                                                                                                                                                                            },
    {"Messages of a live source, one a line, with a bad one among them:",
     R"(printf '[1, 2]\n[3]\n[5, 6]\n' | jsonparser decode VK_POINT --lines)",                                                                                       R"({"nx":1,"ny":2}
{"nx":5,"ny":6}
jsonparser: <stdin>:2:1: /: found an array of 1, expected a whole VK_POINT
    2 | [3]
      | ^
jsonparser: 1 of 3 lines are bad
)"   },
    {"Where the fields of a record are:",                                 "jsonparser fields VK_POINT",                                                              R"(VK_POINT (4 bytes)
      0      2  int16  nx  horizontal coordinate
      2      2  int16  ny  vertical coordinate
)"},
    {"The library's error code for a device's:",                          "jsonparser error 0x10030010",
     "0x10030010 (268632080) -> 0x8000004F\n"                                                                                                                                             },
};

/// text for a line of mdoc that is no macro.
std::string Plain(std::string_view text) {
    std::string plain;
    for (const char c : text) {
        if ((c == '.' || c == '\'') && (plain.empty() || plain.back() == '\n')) plain += "\\&";
        if (c == '\\') {
            plain += "\\e";
        } else if (c == '-') {
            plain += "\\-";
        } else {
            plain += c;
        }
    }
    return plain;
}

/// A description as a sentence.
std::string Sentence(std::string_view text) { return Plain(text) + ".\n"; }

/// An option or operand in the macros of mdoc: Fl Fl at Ar POINTER.
std::string Macros(const ArgumentDescription& argument) {
    std::string macros;
    for (const std::string& name : argument.names) {
        if (!macros.empty()) macros += " , ";
        macros += name.starts_with("--") ? "Fl Fl " + name.substr(2) : "Fl " + name.substr(1);
    }
    if (!argument.value.empty()) macros += (macros.empty() ? "Ar " : " Ar ") + argument.value;
    if (argument.repeats) macros += " ...";
    return macros;
}

bool IsHelp(const ArgumentDescription& argument) {
    return std::find(argument.names.begin(), argument.names.end(), "--help") != argument.names.end();
}

std::string SynopsisLine(const CommandDescription& command, bool isCommand) {
    std::string text = ".Nm\n";
    if (isCommand) text += fmt::format(".Cm {}\n", command.name);
    for (const bool isOption : {true, false}) {
        for (const ArgumentDescription& argument : command.arguments) {
            if (argument.isOption() != isOption || (isCommand && IsHelp(argument))) continue;
            text += fmt::format(".{}{}\n", argument.isRequired ? "" : "Op ", Macros(argument));
        }
    }
    return text;
}

std::string ArgumentList(const CommandDescription& command, bool isCommand) {
    std::string items;
    for (const ArgumentDescription& argument : command.arguments) {
        if (isCommand && IsHelp(argument)) continue;
        items += fmt::format(".It {}\n{}", Macros(argument), Sentence(argument.meaning));
        if (!argument.choices.empty()) {
            items += fmt::format("One of\n.Cm {} .\n", fmt::join(argument.choices, " ,\n.Cm "));
        }
        if (!argument.standard.empty()) items += fmt::format("The default is {}.\n", argument.standard);
    }
    return items.empty() ? "" : fmt::format(".Bl -tag -width Ds\n{}.El\n", items);
}

std::string CommandSections(const CommandDescription& tool) {
    std::string text;
    for (const CommandDescription& command : tool.commands) {
        text += fmt::format(".Ss {}\n{}", command.name, Sentence(command.meaning));
        const auto* note = std::find_if(std::begin(kNotes), std::end(kNotes),
                                        [&command](const Note& each) { return each.command == command.name; });
        if (note != std::end(kNotes)) text += note->text;
        text += ArgumentList(command, true);
    }
    return text;
}

/// page with its running text in lines of at most 80 bytes.
std::string Wrapped(std::string_view page) {
    std::string wrapped;
    bool isLiteral = false;
    for (std::size_t end = 0; !page.empty(); page.remove_prefix(end + 1)) {
        end = page.find('\n');
        std::string_view line = page.substr(0, end);
        if (line.starts_with(".Bd") || line.starts_with(".Ed")) isLiteral = line.starts_with(".Bd");
        while (line.size() > 80 && !isLiteral && !line.starts_with('.')) {
            const std::size_t blank = line.rfind(' ', 80);
            wrapped += fmt::format("{}\n", line.substr(0, blank));
            line.remove_prefix(blank + 1);
        }
        wrapped += fmt::format("{}\n", line);
    }
    return wrapped;
}

std::string Item(std::string_view name, std::string_view meaning) {
    return fmt::format(".It Li {}\n{}\n", name, Plain(meaning));
}

std::string Lists() {
    std::string text = ".Sh RECORD NAMES\n.Bl -tag -width tagNET_HUMANTRAIT_EXTENSION_INFO -compact\n";
    for (const CatalogueEntry& entry : Catalogue()) text += Item(entry.name, entry.meaning);
    text += ".El\n.Sh VOCABULARY NAMES\n.Bl -tag -width tagNET_HUMANTRAIT_EXTENSION_INFO -compact\n";
    for (const jsonparser::Vocabulary& each : jsonparser::Vocabularies()) text += Item(each.name, each.meaning);
    return text + ".El\n";
}

std::string Examples() {
    std::string text;
    for (const Example& example : kExamples) {
        text += fmt::format("{}{}\n.Bd -literal -offset indent\n$ {}\n{}.Ed\n", text.empty() ? "" : ".Pp\n",
                            Plain(example.meaning), Plain(example.command), Plain(example.output));
    }
    return text;
}

}  // namespace

std::string ManualPage(const CommandDescription& tool) {
    std::string text = R"(.Dd November 21, 2026
.Dt JSONPARSER 1
.Os
.Sh NAME
.Nm jsonparser
.Nd show what the JsonParser library makes of device messages
.Sh SYNOPSIS
)";
    text += SynopsisLine(tool, false);
    for (const CommandDescription& command : tool.commands) text += SynopsisLine(command, true);
    text += R"(.Sh DESCRIPTION
.Nm
reads the JSON message bodies of network video devices into the fixed\-layout records of the JsonParser library, and
records back into messages.
It is for the engineer who holds a message and wonders what the library makes of it.
.Pp
.Ar RECORD
is the name of a record, or a part of one that no other record has, in upper or lower case;
.Nm
.Cm records
lists them.
.Ar FILE
is a JSON document in UTF\-8;
.Sq \-
is standard input, and so is no
.Ar FILE
at all.
Options may stand before and behind operands;
.Fl Fl
ends them.
.Pp
These options may stand before the command and behind it:
)";
    text += ArgumentList(tool, false);
    text += ".Sh COMMANDS\n" + CommandSections(tool);
    text += R"(.Sh FINDINGS
What is wrong with a message goes to standard error, each finding on a line of its own, and below it the line of the
document around the place:
.Pp
.D1 jsonparser : Ar file : Ns Ar line : Ns Ar column : Ar path : found Ar what , expected Ar what
.Pp
.Ar path
is the JSON pointer to the value, / for the document itself.
Line and column count from 1, columns in characters; they are left out where a document as a whole is meant.
All findings of a run are printed, and so are the results of the messages that have none.
What a converter tells the trace of the client library is a remark, a line with the file and no finding:
.Pp
.D1 jsonparser : Ar file : No remark : Ar what
.Pp
Progress, with rate and time left, is shown after a second where standard error is a terminal and standard output is
not.
.Sh ENVIRONMENT
.Bl -tag -width Ds
.It Ev NO_COLOR
Where this is set and not empty, nothing is coloured, unless
.Fl Fl color Cm always
is given.
.It Ev TERM
Where this is not set, empty or
.Cm dumb ,
nothing is coloured unless
.Fl Fl color Cm always
is given, and no progress is shown.
.It Ev LC_ALL , LC_CTYPE , LANG
The encoding of texts in records.
Messages are in UTF\-8 always, and so is what is printed.
.El
.Sh EXIT STATUS
.Bl -tag -width Ds
.It 0
Good.
.It 1
There were findings.
.It 2
The command line is wrong; nothing was read.
.It 3
A file cannot be read, or the output cannot be written.
.El
.Pp
A closed pipe ends
.Nm
quietly, by the signal
.Dv SIGPIPE .
.Sh EXAMPLES
)";
    return Wrapped(text + Examples() + Lists());
}

}  // namespace tool
