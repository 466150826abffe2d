#!/usr/bin/env python3
"""Writes the reference as HTML: a page for each subsystem, with its contracts, records and keyword tables.

Contracts and fields come from the public headers; layouts and words from the tool, which has them from the field lists;
what fills a field, from the observer's account of a message that is read whole. Fails where Doxygen warns, and where an
exported symbol or a field of a record is not documented.

Usage: reference.py TOOL FOLDER LIBRARY...; the libraries are the shared ones, for their exported symbols.
"""

import collections
import copy
import html
import json
import pathlib
import re
import shutil
import subprocess
import sys
import xml.etree.ElementTree

ROOT = pathlib.Path(__file__).resolve().parent.parent
HEADERS = ["vkprotocolstack/JsonParser.h", "vkprotocolstack/explain.h", "vkprotocolstack/version.h",
           "vkprotocolstack/vocabulary.h", "vkprotocolstack/support/support.h", "vkprotocolstack/support/export.h"]

# Subsystem: number of its section in JsonParser.h, folder of its keyword tables.
SUBSYSTEMS = {"foundation": 1, "time": 2, "traffic": 3, "analytics": 4, "face": 5, "status": 6, "config": 7}

# Sections of AllLayouts in fields.h: the subsystem of their records.
SECTIONS = {"times and geometry": "time", "schedules": "time", "traffic": "traffic", "analytics": "analytics",
            "face recognition": "face", "device status": "status", "configuration": "config"}

OTHER_HEADERS = {"vkprotocolstack/explain.h": ("explain", "Explaining a message"),
                 "vkprotocolstack/version.h": ("version", "Version"),
                 "vkprotocolstack/vocabulary.h": ("vocabularies", "Vocabularies as data"),
                 "vkprotocolstack/support/support.h": ("support", "Functions of the surrounding library"),
                 "vkprotocolstack/support/export.h": ("support", None),
                 "include/vkrecords/fields.h": ("fields", "Fields of records as data")}


def for_doxygen(header):
    """The words of a header that Doxygen would misread: a brief text ends at the first full stop."""
    return header.replace("S.M.A.R.T. ", r"S.M.A.R.T.\ ")


def lines_of(comment):
    """The text of // lines."""
    return "\n".join(re.sub(r"^// ?", "", line) for line in comment.strip("\n").split("\n"))


def escaped(text):
    """Text for a comment of Doxygen's."""
    return re.sub(r"([\\@%#])", r"\\\1", html.escape(text, quote=False))


class Tool:
    def __init__(self, path):
        self.path = path

    def __call__(self, *arguments):
        return json.loads(subprocess.run([self.path, *arguments, "--json"], stdout=subprocess.PIPE, check=True).stdout)

    def readings(self, record, message):
        """What the record's reader does with the message, by the observer's account. It may find defects in it."""
        result = subprocess.run([self.path, "explain", record, "--json"], input=json.dumps(message), text=True,
                                stdout=subprocess.PIPE, stderr=subprocess.PIPE, check=False)
        if result.returncode not in (0, 1):
            sys.exit(result.stderr)
        return json.loads(result.stdout)["readings"]

    def decode(self, record, messages):
        """The records of the messages; none for one that makes no whole record."""
        result = subprocess.run([self.path, "decode", record, "--json", "--lines"], text=True, check=False,
                                input="".join(json.dumps(message) + "\n" for message in messages),
                                stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        bad = {int(line) for line in re.findall(r"^\S+: <stdin>:(\d+):", result.stderr, re.MULTILINE)}
        records = iter(result.stdout.splitlines())
        return [None if line in bad else json.loads(next(records)) for line in range(1, len(messages) + 1)]


# Messages of the records that no sample has.
MESSAGES = {
    "VK_RECT": [1, 2, 3, 4], "tagNET_RECT": [1, 2, 3, 4], "VK_POINT": [1, 2],
    "tagRANGE": {"Max": 4, "Min": 1, "Default": 2, "Step": 1},
    "tagNET_TIME": "2024-01-05 09:30:07", "tagNET_TIME_EX": "2024-01-05 09:30:07.250",
    "tagCFG_NET_TIME_EX": "2024-01-05 09:30:07.250", "tagCFG_TIME": "09:30:07",
    "tagVK_TSECT": "1 09:30:07-10:31:08",
    "tagEVENT_JUNCTION_CUSTOM_INFO": {"WeighInfo": {"Rough": 3, "Tare": 1, "Net": 2}},
    "tagEVENT_VEHICLE_INFO": {"Category": "Car"},
}


def sample(record):
    """A message of the record."""
    for line in (ROOT / "examples/messages/index.txt").read_text().splitlines():
        if line.split()[1] == record:
            file, _, place = line.split()
            node = json.loads((ROOT / "examples/messages" / file).read_text())
            return steps_into(node, place)
    return MESSAGES.get(record)


def steps_into(node, path):
    """The node at the path, None where there is none."""
    for step in path.split("/")[1:]:
        if isinstance(node, list):
            node = node[int(step)] if int(step) < len(node) else None
        else:
            node = node.get(step) if isinstance(node, dict) else None
    return node


def with_value(message, path, value):
    """The message with that value at the path; None removes a member and nulls an element. Unchanged where there is no
    such place."""
    if not path:
        return value
    whole = copy.deepcopy(message)
    above, _, last = path.rpartition("/")
    node = steps_into(whole, above)
    if isinstance(node, dict):
        node[last] = value
        if value is None:
            del node[last]
    elif isinstance(node, list) and int(last) < len(node):
        node[int(last)] = value
    return whole


def completed(tool, record, message):
    """The message with every member that its reader asks for: of the first kind of value that it converts."""
    for value in (1, "1", True, [1] * 8, {}, 1):
        missing = [reading["path"] for reading in tool.readings(record, message) if reading["type"] == "missing"]
        trial = message
        for path in missing:
            trial = with_value(trial, path, value)
        converted = {reading["path"] for reading in tool.readings(record, trial) if reading["conversion"]}
        for path in missing:
            if path in converted:
                message = with_value(message, path, value)
    return message


def members(tool, record, words):
    """What fills each field: for its name, rows of member, test and conversion, in the order of reading. That a member
    fills a field shows when the record differs without it, or with another value."""
    message = sample(record)
    if message is None:
        return None
    message = completed(tool, record, message)
    tests, rows = {}, []
    for reading in tool.readings(record, message):
        path, conversion = reading["path"], reading["conversion"]
        # Sizes of what was found are the sample's own; limits are the reader's.
        tests[path] = re.sub(r"(at most \d+) \d+", r"\1", re.sub(r"(, size) \d+", r"\1", reading["test"]))
        if "text size" in tests[path]:
            conversion = re.sub(r"size \d+$", "of that size", conversion)
        if reading["type"] == "missing" or conversion == "members":
            continue
        above = "/".join(path.split("/")[:-1])
        test = ", ".join(dict.fromkeys(test for test in (tests.get(above) if path else "", tests[path]) if test))
        rows.append((path, test, conversion or "only tested"))

    variants = []
    for path, conversion in dict.fromkeys((path, conversion) for path, _, conversion in rows):
        values = [None, 3, "3", True, False, *(words if conversion.startswith("keyword") else [])]
        if conversion == "elements":
            values = [steps_into(message, path)[:-1]]
        variants += [(path, with_value(message, path, value)) for value in values]
    whole, *others = tool.decode(record, [message, *(variant for _, variant in variants)])
    filled = collections.defaultdict(set)
    for (path, _), other in zip(variants, others):
        if other is not None:
            filled[path] |= {field for field in whole if whole[field] != other[field]}
    # An array as such fills what none of its elements does: their number.
    for path, _, conversion in rows:
        if conversion == "elements":
            filled[path] -= set().union(*(fields for other, fields in filled.items() if other.startswith(path + "/")))
    ways = collections.defaultdict(set)  # elements that are not all read the same way keep their indexes
    for path, *way in rows:
        ways[any_element(path)].add(tuple(way))
    found = collections.defaultdict(dict)
    for path, test, conversion in rows:
        member = any_element(path) if len(ways[any_element(path)]) == 1 else re.sub(r"/(\d+)(?=/|$)", r"[\1]", path)
        for field in filled[path]:
            found[field][member.lstrip("/") or "the node", test, conversion] = True
    return {field: list(rows) for field, rows in found.items()}


def any_element(path):
    return re.sub(r"/\d+(?=/|$)", "[]", path)


def record_subsystems(contracts):
    """Every record's subsystem, in the order of fields.h. Records that section 1 of the contracts names are its."""
    text = (ROOT / "include/vkrecords/fields.h").read_text()
    layouts = re.search(r"using AllLayouts = LayoutList<(.*?)>;", text, re.DOTALL)[1]
    found, section = {}, None
    for comment, name in re.findall(r"// ([^\n]+)|(\w+)", layouts):
        section = SECTIONS[comment] if comment else section
        if name:
            found[name] = "foundation" if re.search(rf"\b{name}\b", contracts["foundation"]) else section
    return found


def table_subsystems():
    """Every vocabulary's subsystem: the folder of the header that has its rows."""
    rows = {}
    for path in (ROOT / "vkprotocolstack").glob("*/*_keywords.h"):
        for name in re.findall(r"Keyword (\w+)\[\]", path.read_text()):
            rows[name] = path.parent.name
    text = (ROOT / "vkprotocolstack/vocabulary.cpp").read_text()
    return {name: rows[variable] for name, variable in re.findall(r'Of\("(\w+)",.*?(k\w+)\)', text, re.DOTALL)}


def sections(text):
    """JsonParser.h by subsystem; what stands behind the last is ownership."""
    parts = re.split(r"^// =+\n// (?:(\d)\. )?(.*)\n// =+\n", text, flags=re.MULTILINE)
    names = {str(number): name for name, number in SUBSYSTEMS.items()}
    return parts[0], [(names.get(number, "ownership"), title, body)
                      for number, title, body in zip(parts[1::3], parts[2::3], parts[3::3])]


def table(headings, rows, numbers=()):
    """An HTML table. A row is its class and its cells; a cell that is a pair says how many rows it spans."""
    def cells(tag, values):
        text = ""
        for column, value in enumerate(values):
            content, span = value if isinstance(value, tuple) else (value, 1)
            number = ' class="number"' if column in numbers and len(values) == len(headings) else ""
            spanning = f' rowspan="{span}"' if span > 1 else ""
            text += f"<{tag}{number}{spanning}>{content}</{tag}>"
        return text

    body = "".join(f'<tr class="{kind}">{cells("td", values)}</tr>\n' for kind, values in rows)
    return f'<table class="rows">\n<tr>{cells("th", headings)}</tr>\n{body}</table>\n'


def caller_limit(field, text):
    """A caller's buffer is as long as the caller says, not as the tool made it."""
    length = re.match(r"caller's buffer of (\w+) bytes", field["type"])
    return re.sub(r"at most \d+", f"at most {length[1]}", text) if length else text


def layout_table(layout, fills):
    rows = []
    for field in layout["fields"]:
        by_member = (fills or {}).get(field["name"]) or [("", "", "")]
        span = len(by_member)
        kind = "reserved" if field["type"] == "reserved" else ""
        for i, ways in enumerate(by_member):
            read = [escaped(caller_limit(field, text)) for text in ways] if fills is not None else []
            if i == 0:
                place = [escaped(str(field[key])) for key in ("offset", "size", "type", "name")]
                rows.append((kind, [*((text, span) for text in place), *read, (escaped(field["meaning"]), span)]))
            else:
                rows.append((kind, read))
    read = ["member", "test", "conversion"] if fills is not None else []
    return table(["offset", "size", "type", "field", *read, "meaning"], rows, numbers=(0, 1))


def keyword_table(vocabulary):
    rows = [("", [row["code"], escaped(row["text"])]) for row in vocabulary["rows"]]
    return table(["code", "word"], rows, numbers=(0,))


def write_sources(folder, tool):
    """What Doxygen reads: the public headers, with a group for each subsystem, and the tables as text of the groups."""
    preface, parts = sections((ROOT / "vkprotocolstack/JsonParser.h").read_text())
    contracts = {name: body for name, _, body in parts}
    of_record = record_subsystems(contracts)
    of_table = table_subsystems()

    sources = folder / "sources"
    shutil.rmtree(sources, ignore_errors=True)

    def write(path, text):
        (sources / path).parent.mkdir(parents=True, exist_ok=True)
        (sources / path).write_text(for_doxygen(text))

    first = re.match(r"((?://.*\n)+)", preface)[1]
    text = preface.replace(first, "/// @file\n/// The contracts of all converters.\n", 1)
    for name, title, body in parts:
        notes = re.match(r"\n?((?://(?!/).*\n)+)", body)
        about = lines_of(notes[1]) if notes else ""
        body = body[notes.end():] if notes else body
        if name == "ownership":
            body = re.sub(r"\n#endif\s*$", "\n/// @}\n\n#endif\n", body)
        else:
            body += "/// @}\n\n"
        text += f"/** @defgroup {name} {title}\n{about}\n*/\n/// @addtogroup {name}\n/// @{{\n{body}"
    write("vkprotocolstack/JsonParser.h", text)

    for path in [*HEADERS[1:], "include/vkrecords/fields.h"]:
        text = (ROOT / path).read_text()
        first = re.match(r"((?://.*\n)+)", text)
        about = lines_of(first[1]) if first else ""
        name, title = OTHER_HEADERS[path]
        begin = f"/// @file\n/// {title or 'Visibility'}.\n"
        begin += f"/** @defgroup {name} {title}\n{about}\n*/\n" if title else ""
        text = text[first.end():] if first else text
        above = list(re.finditer(r"^#include [^\n]*\n|^#define \w+_H\n", text, re.MULTILINE))[-1].end()
        text = f"{text[:above]}\n/// @addtogroup {name}\n/// @{{\n{text[above:]}"
        text = re.sub(r"\n#endif\s*$", "\n/// @}\n\n#endif\n", text)
        # The rows of the records' lists are shown as tables.
        text = text.replace("#define VK_RECORD", "/// @cond\n#define VK_RECORD", 1).replace(
            "/// The layout of every record", "/// @endcond\n\n/// The layout of every record", 1)
        write(path, begin + text)

    for path in sorted((ROOT / "include/vkrecords").glob("*.h")):
        if path.name == "fields.h":
            continue
        text = path.read_text()
        first = re.match(r"((?://.*\n)+)", text)[1]
        text = text.replace(first, f"/// @file\n/// {lines_of(first)}\n", 1)
        text = re.sub(r"^(struct (\w+) \{)", lambda match: f"/// @ingroup {of_record[match[2]]}\n{match[1]}", text,
                      flags=re.MULTILINE)
        write(path.relative_to(ROOT / "include"), text)

    layouts = {name: tool("fields", name) for name in of_record}
    readable = {entry["name"] for entry in tool("records") if entry["decode"]}
    words = sorted({row["text"] for vocabulary in tool("keywords") for row in vocabulary["rows"]})
    fills = {name: members(tool, name, words) if name in readable else None for name in of_record}
    for name in of_record:
        if name in readable and fills[name] is None:
            sys.exit(f"{name}: no message of it in examples/messages/index.txt or in scripts/reference.py")
    for name in SUBSYSTEMS:
        text = ""
        for record in [record for record, subsystem in of_record.items() if subsystem == name]:
            layout = layouts[record]
            text += f"\n@section layout_{record} {record}: {layout['size']} bytes\n\n"
            text += layout_table(layout, fills[record])
        for vocabulary in tool("keywords"):
            if of_table[vocabulary["name"]] == name:
                title = f"Words of {vocabulary['name']}: {vocabulary['meaning']}"
                text += f"\n@section words_{vocabulary['name']} {title}\n\n{keyword_table(vocabulary)}"
        write(f"{name}.dox", f"/** @addtogroup {name}\n{text}\n*/\n")

    rows = [("", [f"@ref {name}", ", ".join(record for record, place in of_record.items() if place == name)])
            for name in SUBSYSTEMS]
    main = f"@mainpage JsonParser\n\n{lines_of(first_of_contracts(preface))}\n\n"
    main += table(["subsystem", "records"], rows)
    main += "\nBesides: @ref explain, @ref ownership, @ref support, @ref vocabularies, @ref fields, @ref version.\n"
    write("main.dox", f"/** {main}*/\n")
    return layouts


def first_of_contracts(preface):
    return re.match(r"((?://.*\n)+)", preface)[1]


def run_doxygen(folder):
    settings = (ROOT / "docs/reference/Doxyfile").read_text()
    settings += (f"INPUT = {folder}/sources\nINCLUDE_PATH = {folder}/sources\nOUTPUT_DIRECTORY = {folder}\n"
                 f"STRIP_FROM_PATH = {folder}/sources\nSTRIP_FROM_INC_PATH = {folder}/sources\n"
                 f"HTML_EXTRA_STYLESHEET = {ROOT}/docs/reference/style.css\n")
    for output in ("html", "xml"):
        shutil.rmtree(folder / output, ignore_errors=True)
    return subprocess.run(["doxygen", "-"], input=settings, text=True, check=False).returncode


def documented(folder):
    """Names that have a description: how many functions, and all else."""
    functions, others = collections.Counter(), set()
    for path in (folder / "xml").glob("*.xml"):
        if path.name in ("index.xml", "Doxyfile.xml"):
            continue
        compound = xml.etree.ElementTree.parse(path).getroot().find("compounddef")
        scope = compound.findtext("compoundname") if compound.get("kind") in ("struct", "class", "namespace") else ""
        for member in compound.iter("memberdef"):
            if not any("".join(member.find(tag).itertext()).strip()
                       for tag in ("briefdescription", "detaileddescription")):
                continue
            name = member.findtext("qualifiedname") or f"{scope}::{member.findtext('name')}".lstrip(":")
            if member.get("kind") == "function":
                functions[name, member.get("id")] = 1
            others.add(name)
    return collections.Counter(name for name, _ in functions), others


def exported(libraries):
    """Names of the functions of the libraries' interface, with the number of overloads."""
    found = set()
    for library in libraries:
        listing = subprocess.run(["nm", "-DC", "--defined-only", library], text=True, check=True,
                                 stdout=subprocess.PIPE)
        for line in listing.stdout.splitlines():
            symbol = line.split(" ", 2)[2].replace("[abi:cxx11]", "")
            name = symbol.replace("operator()", "operator\0").partition("(")[0].replace("\0", "()")
            is_template = "<" in name
            while "<" in name:
                name = re.sub(r"<[^<>]*>", "", name)
            name = name.split(" ")[-1]
            if not name.startswith("std::"):  # what templates of the language's own library leave
                found.add((name, is_template or symbol))
    return collections.Counter(name for name, _ in found)


def gaps(folder, libraries, layouts):
    functions, names = documented(folder)
    for name, count in sorted(exported(libraries).items()):
        known = functions[name]
        if known == 0:
            yield f"{name}: exported and not documented"
        elif known < count:
            yield f"{name}: {count} overloads exported, {known} documented"
    for record, layout in layouts.items():
        for field in layout["fields"]:
            if f"{record}::{field['name']}" not in names:
                yield f"{record}::{field['name']}: a field that is not documented"


def main():
    folder = pathlib.Path(sys.argv[2]).resolve()
    layouts = write_sources(folder, Tool(sys.argv[1]))
    if run_doxygen(folder) != 0:
        sys.exit("the reference has defects: mend the comments above")
    missing = list(gaps(folder, sys.argv[3:], layouts))
    if missing:
        sys.exit("\n".join(missing))
    fields = sum(len(layout["fields"]) for layout in layouts.values())
    print(f"{folder}/html/index.html: {len(layouts)} records with {fields} fields, no gap")


if __name__ == "__main__":
    main()
