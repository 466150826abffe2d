#!/usr/bin/env python3
"""Writes the reference as HTML: a page for each subsystem, with its contracts, records and keyword tables.

Contracts and fields come from the public headers, tables from the tool, which has them from the field lists. Fails where
Doxygen warns, and where an exported symbol or a field of a record is not documented.

Usage: reference.py TOOL FOLDER LIBRARY...; the libraries are the shared ones, for their exported symbols.
"""

import collections
import html
import json
import pathlib
import re
import shutil
import subprocess
import sys
import xml.etree.ElementTree

ROOT = pathlib.Path(__file__).resolve().parent.parent
HEADERS = ["vkprotocolstack/JsonParser.h", "vkprotocolstack/version.h", "vkprotocolstack/vocabulary.h",
           "vkprotocolstack/support/support.h", "vkprotocolstack/support/export.h"]

# Subsystem: number of its section in JsonParser.h, folder of its keyword tables.
SUBSYSTEMS = {"foundation": 1, "time": 2, "traffic": 3, "analytics": 4, "face": 5, "status": 6, "config": 7}

# Sections of AllLayouts in fields.h: the subsystem of their records.
SECTIONS = {"times and geometry": "time", "schedules": "time", "traffic": "traffic", "analytics": "analytics",
            "face recognition": "face", "device status": "status", "configuration": "config"}

OTHER_HEADERS = {"vkprotocolstack/version.h": ("version", "Version"),
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


def record_subsystems(contracts):
    """Every record's subsystem, in the order of fields.h. Records that section 1 of the contracts names are geometry."""
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
    def cells(tag, values):
        return "".join(f'<{tag} class="number">{value}</{tag}>' if i in numbers else f"<{tag}>{value}</{tag}>"
                       for i, value in enumerate(values))

    body = "".join(f'<tr class="{kind}">{cells("td", values)}</tr>\n' for kind, values in rows)
    return f'<table class="rows">\n<tr>{cells("th", headings)}</tr>\n{body}</table>\n'


def layout_table(layout):
    rows = [("reserved" if field["type"] == "reserved" else "",
             [field["offset"], field["size"], escaped(field["type"]), escaped(field["name"]), escaped(field["meaning"])])
            for field in layout["fields"]]
    return table(["offset", "size", "type", "field", "meaning"], rows, numbers=(0, 1))


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
    for name in SUBSYSTEMS:
        text = ""
        for record in [record for record, subsystem in of_record.items() if subsystem == name]:
            layout = layouts[record]
            text += f"\n@section layout_{record} {record}: {layout['size']} bytes\n\n{layout_table(layout)}"
        for vocabulary in tool("keywords"):
            if of_table[vocabulary["name"]] == name:
                title = f"Words of {vocabulary['name']}: {vocabulary['meaning']}"
                text += f"\n@section words_{vocabulary['name']} {title}\n\n{keyword_table(vocabulary)}"
        write(f"{name}.dox", f"/** @addtogroup {name}\n{text}\n*/\n")

    rows = [("", [f"@ref {name}", ", ".join(record for record, place in of_record.items() if place == name)])
            for name in SUBSYSTEMS]
    main = f"@mainpage JsonParser\n\n{lines_of(first_of_contracts(preface))}\n\n"
    main += table(["subsystem", "records"], rows)
    main += "\nBesides: @ref ownership, @ref support, @ref vocabularies, @ref fields, @ref version.\n"
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
        listing = subprocess.run(["nm", "-DC", "--defined-only", library], stdout=subprocess.PIPE, text=True, check=True)
        for line in listing.stdout.splitlines():
            symbol = line.split(" ", 2)[2]
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
