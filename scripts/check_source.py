#!/usr/bin/env python3
"""Checks rules of the sources that no compiler knows. Prints each breach as file:line: what, and what mends it."""

import collections
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
CORE = ROOT / "vkprotocolstack"

RANKS = {"support": 0, "wire": 1, "foundation": 2, "time": 2, "traffic": 3, "analytics": 3, "face": 3, "status": 3,
         "config": 3}

# Calls between records: the only includes that do not go down in rank. From a file (without its ending) to a header.
EDGES = {
    ("analytics/non_motor", "analytics/face_attributes.h"),
    ("face/candidate", "face/person.h"),
    ("face/candidate", "face/picture.h"),
    ("face/person", "face/picture.h"),
    ("time/schedule", "time/time_section.h"),
    ("time/time_group", "time/time_section.h"),
}

# The public headers: contracts, and what the tables are made of.
PUBLIC = {"vkprotocolstack/JsonParser.h", "vkprotocolstack/explain.h", "vkprotocolstack/message_text.h",
          "vkprotocolstack/vocabulary.h"}


def sources(*folders):
    for folder in folders or RANKS:
        yield from sorted((CORE / folder).glob("*.cpp"))
        yield from sorted((CORE / folder).glob("*.h"))


def without_comments(text):
    return re.sub(r"//[^\n]*", "", text)


def without_includes(text):
    return re.sub(r"#include[^\n]*", "", text)


def lines_with(pattern, text):
    for number, line in enumerate(without_comments(text).split("\n"), 1):
        for match in re.finditer(pattern, line):
            yield number, match


def check_layers(report):
    """A file includes only what has a lower rank, its own header, and the edges above."""
    for path in sources():
        folder, stem = path.parent.name, path.stem
        for number, match in lines_with(r'#include "([^"]+)"', path.read_text()):
            header = match[1]
            if header in PUBLIC or header.startswith("vkrecords/"):
                continue
            included = re.fullmatch(r"vkprotocolstack/(\w+)/(\w+\.h)", header)
            if not included or included[1] not in RANKS:
                report(path, number, f"includes {header}, which is in no layer")
                continue
            target = f"{included[1]}/{included[2]}"
            own = included[1] == folder and RANKS[folder] < 2 or target == f"{folder}/{stem}.h"
            data = included[2].endswith("_keywords.h")
            lower = RANKS[included[1]] < RANKS[folder]
            if not (own or lower or data and included[1] == folder or (f"{folder}/{stem}", target) in EDGES):
                report(path, number, f"includes {header} against the layers; use a lower layer, or move what both need "
                                     "down")


def check_reading(report):
    """Outside wire/, a Json::Value is never read directly: jsoncpp throws on the wrong type."""
    for path in sources(*(set(RANKS) - {"wire", "support"})):
        text = without_includes(path.read_text())
        names = set(re.findall(r"Json::Value\s*[&*]?\s*(\w+)\s*[,;)={]", text))
        for name in names:
            for number, match in lines_with(rf"\b{name}\s*(\.|->|\[)\s*\w+", text):
                report(path, number, f"reads {match[0]} by jsoncpp; read it through Node, write it through Put")


def check_names(report):
    """A converter asks for every name on its list."""
    for path in sources():
        text = without_comments(path.read_text())
        for match in re.finditer(r"NameList\s+\w+\s*\{([^}]*)\}", text):
            for name in re.findall(r'"([^"]+)"', match[1]):
                if f'["{name}"]' not in text:
                    number = text[:match.start()].count("\n") + 1
                    report(path, number, f'lists "{name}" and never asks for it; take it off the list')


def capacities():
    """Text fields: name -> the set of capacities that records give it."""
    found = {}
    for path in (ROOT / "include" / "vkrecords").glob("*.h"):
        for name, size in re.findall(r"\bchar (\w+)(?:\[\d+\])?\[(\d+)\];", path.read_text()):
            found.setdefault(name, set()).add(int(size))
    return found


# Capacities that differ from the field's on purpose: (field, stated) -> why.
CAPACITIES = {
    ("szObjectCategory", 64): "the member's text is taken to 64 bytes and runs on into the fields behind the category",
}


def check_capacities(report):
    """The capacity in a row is the field's: whole for bounded copies, one less for raw ones."""
    fields = capacities()
    row = r"\.(rawTo|utf8To|stringTo|renderTo)\(\w+(?:\.|->)(\w+), (?:\w+\.textSize\()?(\d+)\)"
    for path in sources(*(folder for folder, rank in RANKS.items() if rank == 3)):
        for number, match in lines_with(row, path.read_text()):
            operation, field, stated = match[1], match[2], int(match[3])
            capacity = stated + 1 if operation == "rawTo" else stated
            if field not in fields:
                report(path, number, f"{field} is a text field of no record")
            elif capacity not in fields[field] and (field, stated) not in CAPACITIES:
                report(path, number, f"{field} takes {sorted(fields[field])} bytes, the row says {stated}; correct it, or "
                                     "name the reason in scripts/check_source.py")


# Public readers and writers that no command of the tool reaches -> why.
NOT_IN_CATALOGUE = {
    "parseUtf8JasonToAssic": "a text field of a capacity that only the caller knows; records with texts show it",
    "packetAssicToUtf8Jason": "a text field of a capacity that only the caller knows; records with texts show it",
    "JsonTimeEx::parse": "GetJsonTime of the same record is the same",
    "JsonTimeEx::pack": "SetJsonTime of the same record is the same",
    "GetTimeStructFromStr": "JsonTime::parse of the same record is the same",
    "getTimeScheduleFromStr": "TimeSection::parse of the same record is the same",
    "GetJsonTimeSchedule<Section>": "rows of a number that only the caller knows; the schedules show it",
    "SetJsonTimeSchedule<Section>": "rows of a number that only the caller knows; the schedules show it",
    "GetNetTimeByUTCTime": "reads no message",
    "GetNetTimeByUTCTimeNew": "reads no message",
    "GetUTCTimebyNetTime": "writes no message",
    "GetUTCTimebyNetTimeNew": "writes no message",
    "GetLocalTimebyNetTimeNew": "writes no message",
    "ParseErrorCode(code)": "the command error",
    "ReleaseTexts": "reads and writes no message",
}


def check_catalogue(report):
    """The tool's catalogue has every public reader and writer, but for those named above."""
    header = CORE / "JsonParser.h"
    catalogue = without_comments((ROOT / "tools" / "jsonparser" / "catalogue.cpp").read_text())
    records = set(re.findall(r"VK_RECORD\((\w+),", (ROOT / "include" / "vkrecords" / "fields.h").read_text()))
    entries = re.split(r"\b(?:Reads|Writes|ReadsAndWrites|ReadsWord|ReadsText)(?:<(\w+)>)?\(", catalogue)
    called = set()
    for record, body in zip(entries[1::2], entries[2::2]):
        called |= {(function, record) for function in re.findall(r"\b((?:\w+::)?\w+)\(", body)}
    functions = {function for function, _ in called}
    unused = set(NOT_IN_CATALOGUE)
    holder, template = "", ""
    for number, line in enumerate(without_comments(header.read_text()).split("\n"), 1):
        if match := re.match(r"class (\w+) \{", line):
            holder = f"{match[1]}::"
        elif line == "};":
            holder = ""
        elif line.startswith("template"):
            template = "<Section>" if "Section" in line else ""
        if not (match := re.match(r"(?:VK_API|    static) [\w ]+?(\w+)\((.*)", line)):
            continue
        name = holder + match[1]
        taken = records & set(re.findall(r"\w+", match[2]))
        row = name + template * (not holder) + "(code)" * (name == "ParseErrorCode" and "deviceCode" in line)
        template = ""
        if row in NOT_IN_CATALOGUE:
            unused.discard(row)
        elif not all((name, record) in called for record in taken) or name not in functions:
            report(header, number, f"{name} of {', '.join(taken) or 'a node'} is in no entry of the tool's catalogue; add "
                                   "one, or name the reason in scripts/check_source.py")
    for row in unused:
        report(header, 1, f"has no {row}, which scripts/check_source.py says is not in the catalogue; take it off")


def exported_converters():
    """Functions of the binary interface that read a value or a text or write a value: how many there are of each name,
    overloads and instances. Those that read a place in a message's text are twins of those that read a value."""
    names = collections.Counter()
    for symbol in (ROOT / "tests" / "abi" / "libjsonparser-core.symbols").read_text().splitlines():
        name, _, taken = symbol.replace("::operator()", "\0").partition("(")
        name = re.sub(r"<.*>", "", name).split(" ")[-1].replace("\0", "()")
        if (re.search(r"\bJson::Value\b|\bbasic_string<|\bchar( const)?\*", taken) and "MessagePlace" not in taken and
                not name.startswith("jsonparser::")):
            names[name] += 1
    return names


def check_fuzzed(report):
    """Every exported converter has a row in fuzz/converters.cpp: so hostile input, failing allocations, small stacks,
    threads, growth and fuzzing have it too. scripts/abi sees to it that what headers declare is exported."""
    path = ROOT / "fuzz" / "converters.cpp"
    source = without_comments(path.read_text())
    rows = collections.Counter()
    for table in re.finditer(r"constexpr \w+ k(?:Readers|Writers|TextReaders)\[\] = \{(.*?)\n\};", source, re.DOTALL):
        starts = list(re.finditer(r'(?:>\(|\n    \{)\s*"([^"/]+)', table[1]))
        for start, end in zip(starts, [match.start() for match in starts[1:]] + [len(table[1])]):
            name = start[1]
            rows[name] += 1
            called = table[1][start.end():end]
            for helper in re.findall(r"\b\w+\b", called):  # a function of the file, which the row names
                body = rf"(?ms)^[\w ]+ {helper}\([^)]*\) \{{\n(.*?)^\}}"
                called += "".join(re.findall(body, source))
            if not re.search(rf"\b{name.removesuffix('()').rpartition('::')[2]}\(", called):
                number = source[:table.start(1) + start.start(1)].count("\n") + 1
                report(path, number, f"the row of {name} does not call it")
    exported = exported_converters()
    for name in sorted(exported | rows):
        if exported[name] != rows[name]:
            report(path, 1, f"has {rows[name]} rows of {name}, expected {exported[name]}: one for each overload and "
                            "instance that reads or writes a message")


def check_layouts(report):
    """Every struct of the public headers is a record of the field lists, which account for its bytes."""
    fields = without_comments((ROOT / "include" / "vkrecords" / "fields.h").read_text())
    layouts = re.findall(r"\w+", re.search(r"using AllLayouts = LayoutList<(.*?)>;", fields, re.DOTALL)[1])
    for path in sorted((ROOT / "include" / "vkrecords").glob("*.h")):
        if path.name == "fields.h":
            continue
        for number, match in lines_with(r"^(?:typedef )?(?:struct|union) (\w+).*\{", path.read_text()):
            if match[1] not in layouts:
                report(path, number, f"{match[1]} is not in AllLayouts of include/vkrecords/fields.h; list its fields")


def check_promises(report):
    """Every promise of SECURITY.md names tests, and they exist: of gtest, of bats, of ctest, steps of scripts/check."""
    path = ROOT / "SECURITY.md"
    tests = set()
    for source in (ROOT / "tests").rglob("*_test.cpp"):
        cases = re.findall(r"\b(?:TYPED_)?TEST(?:_[FP])?\((\w+),\s*(\w+)\)", source.read_text())
        tests |= {f"{suite}.{name}" for suite, name in cases}
    for source in (ROOT / "tests").rglob("*.bats"):
        tests |= set(re.findall(r'^@test "(.*)" \{', source.read_text(), re.MULTILINE))
    # Those of whole programs, and steps of scripts/check.
    hardening = (ROOT / "tests" / "hardening" / "CMakeLists.txt").read_text()
    hardened = re.findall(r"list\(APPEND binaries ([\w ]+)\)", hardening)
    tests |= {f"hardening.{binary}" for binaries in hardened for binary in binaries.split()}
    tests |= {f"fuzz.{source.stem.removesuffix('_fuzzer')}" for source in (ROOT / "fuzz").glob("*_fuzzer.cpp")}
    steps = re.findall(r"^check_(\w+)\(\)", (ROOT / "scripts" / "check").read_text(), re.MULTILINE)
    tests |= {f"scripts/check {step}" for step in steps}
    for number, line in enumerate(path.read_text().split("\n"), 1):
        cells = line.split(" | ")
        if not line.startswith("| ") or len(cells) != 2 or cells[0] == "| promise":
            continue
        names = re.findall(r"`([^`]+)`", cells[1])
        if not names:
            report(path, number, "names no test; a promise is one that a test shows")
        for name in names:
            if name not in tests:
                report(path, number, f"there is no test {name}; name the one that shows it")


def main():
    breaches = []

    def report(path, number, what):
        breaches.append(f"{path.relative_to(ROOT)}:{number}: {what}")

    for check in (check_layers, check_reading, check_names, check_capacities, check_catalogue, check_fuzzed,
                  check_layouts, check_promises):
        check(report)
    print("\n".join(breaches) or
          "sources: layers, reading, names, capacities, catalogue, fuzzing, layouts and promises are in order")
    return 1 if breaches else 0


if __name__ == "__main__":
    sys.exit(main())
