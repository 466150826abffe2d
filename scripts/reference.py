#!/usr/bin/env python3
"""Writes the reference as HTML: a page for each subsystem, with its contracts, records and keyword tables.

Contracts and fields come from the public headers; layouts and words from the tool, which has them from the field lists;
what fills a field, from the observer's account of a message that is read whole. Fails where Doxygen warns, and where an
exported symbol or a field of a record is not documented, or where no member is known to fill a field that is read.

Usage: reference.py TOOL FOLDER LIBRARY...; the libraries are the shared ones, for their exported symbols.
"""

import collections
import copy
import functools
import html
import json
import os
import pathlib
import re
import shutil
import subprocess
import sys
import xml.etree.ElementTree

ROOT = pathlib.Path(__file__).resolve().parent.parent
HEADERS = ["vkprotocolstack/JsonParser.h", "vkprotocolstack/message_text.h", "vkprotocolstack/explain.h",
           "vkprotocolstack/version.h", "vkprotocolstack/vocabulary.h",
           "vkprotocolstack/support/support.h", "vkprotocolstack/support/export.h"]

# Subsystem: number of its section in JsonParser.h, folder of its keyword tables.
SUBSYSTEMS = {"foundation": 1, "time": 2, "traffic": 3, "analytics": 4, "face": 5, "status": 6, "config": 7}

# Sections of AllLayouts in fields.h: the subsystem of their records.
SECTIONS = {"times and geometry": "time", "schedules": "time", "traffic": "traffic", "analytics": "analytics",
            "face recognition": "face", "device status": "status", "configuration": "config"}

OTHER_HEADERS = {"vkprotocolstack/message_text.h": ("message_text", "Reading a message's text without a tree"),
                 "vkprotocolstack/explain.h": ("explain", "Explaining a message"),
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
    "tagRANGE/float": {"Max": 4.5, "Min": 1.5, "Default": 2.5, "Step": 1.5},
    "tagNET_TIME": "2024-01-05 09:30:07", "tagNET_TIME/compact": "20240105 093007", "tagNET_TIME/date": "2024-01-05",
    "tagNET_TIME_EX": "2024-01-05 09:30:07.250",
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
    """The message with that value at the path, or behind the last element of an array. None removes a member and nulls
    an element. Unchanged where there is no such place."""
    if not path:
        return value
    whole = copy.deepcopy(message)
    above, _, last = path.rpartition("/")
    node = steps_into(whole, above)
    if isinstance(node, dict):
        node[last] = value
        if value is None:
            del node[last]
    elif isinstance(node, list) and int(last) <= len(node):
        node[int(last):int(last) + 1] = [value]
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


def probes(tool, reader, message, path, conversion, words):
    """Values for that place, so different that each thing the reader takes from it shows."""
    value = steps_into(message, path)
    others = [None, 3, "3", True, False]
    if conversion.startswith("keyword"):
        others += words
    elif conversion.startswith("place"):  # the reader names the places of its table to whoever gives it none
        readings = tool.readings(reader, with_value(message, path, "?"))
        expected = next(reading["expected"] for reading in readings if reading["path"] == path)
        others += re.findall(r'"(.*?)"', expected)
    elif conversion.startswith("scanned"):  # each digit by itself
        others += [value[:i] + ("8" if digit == "9" else str(int(digit) + 1)) + value[i + 1:]
                   for i, digit in enumerate(value) if digit.isdigit()]
    elif conversion == "elements":
        others = [value[:-1], value[:1], [*value, value[-1]]] if value else []
    elif conversion == "members":
        others = [None] if path else []
    return others


def alone(message, path):
    """The message with no members but those on the way to that place."""
    node = whole = copy.deepcopy(message)
    for step in path.split("/")[1:]:
        if isinstance(node, list):
            node = node[int(step)]
        else:
            for other in [name for name in node if name != step]:
                del node[other]
            node = node[step]
    return whole


def needed_size(tool, reader, message, path):
    """How many elements an array must have for any to be read, in words; "" where one is enough."""
    array = steps_into(message, path)
    if not isinstance(array, list) or not array:
        return ""

    def is_read(size):
        trial = with_value(message, path, (array * size)[:size])
        return any(reading["path"].startswith(path + "/") and reading["type"] != "missing"
                   for reading in tool.readings(reader, trial))

    least = next(size for size in range(1, len(array) + 1) if is_read(size))
    if not is_read(least + 1):
        return f"size {least}"
    return f"size at least {least}" if least > 1 else ""


def flat(form):
    """The elements of an array of any dimensions; anything else is its only element."""
    return [inner for element in form for inner in flat(element)] if isinstance(form, list) else [form]


def leaves(form):
    """The values of a field, those of all fields in it where it is a record."""
    return [leaf for element in flat(form)
            for leaf in (leaves([*element.values()]) if isinstance(element, dict) else [element])]


class Account:
    """What a reader does with a message: the observer's rows of path, test and conversion, in the order of reading, and
    pairs of records whose messages differ in one place."""

    def __init__(self, tool, reader, words):
        message = completed(tool, reader, sample(reader))
        self.rows, tests, sizes, messages, pairs = [], {}, {}, [message, None], {}
        for reading in tool.readings(reader, message):
            path, conversion = reading["path"], reading["conversion"]
            tests[path] = self.test(tool, reader, message, reading, sizes)
            if "text size" in tests[path]:
                conversion = re.sub(r"size \d+$", "of that size", conversion)
            if reading["type"] == "missing":
                continue
            above = "/".join(path.split("/")[:-1])
            test = ", ".join(dict.fromkeys(test for test in (tests.get(above) if path else "", tests[path]) if test))
            self.rows.append((path, test, conversion))
            for other in probes(tool, reader, message, path, conversion, words):
                pairs[path, json.dumps(other)] = (message, with_value(message, path, other))
            # What a later member fills too shows where that one is missing.
            if path:
                pairs[path, "alone"] = (alone(message, path), with_value(alone(message, path), path, None))
        for pair in pairs.values():
            messages += pair
        self.whole, self.nothing, *records = tool.decode(reader, messages)
        self.pairs = [(path, one, other) for (path, _), one, other in zip(pairs, records[::2], records[1::2])
                      if one is not None and other is not None]
        self.results = self.results_of_paths(tool, reader, message)

    @staticmethod
    def test(tool, reader, message, reading, sizes):
        """The test of a reading. Sizes of what was found are the message's own, limits are the reader's; sizes keeps
        those that arrays need."""
        tests = []
        for test in reading["test"].split(", "):
            if re.fullmatch(r"size \d+", test):
                path = reading["path"]
                if any_element(path) not in sizes:
                    sizes[any_element(path)] = needed_size(tool, reader, message, path)
                test = sizes[any_element(path)]
            elif tests and tests[-1] == "text size":
                tests[-1], test = f"text size, {re.sub(r' [0-9]+$', '', test)}", ""
            tests.append(test)
        return ", ".join(test for test in tests if test)

    def results_of_paths(self, tool, reader, message):
        """For each path with several conversions: pairs of what each of them gave and the record."""
        counts = collections.Counter(path for path, _, _ in self.rows)
        results = {}
        for path in [path for path, count in counts.items() if count > 1]:
            conversions = [conversion for other, _, conversion in self.rows if other == path]
            trials = [message, with_value(message, path, "x" * 400)]
            results[path] = []
            for trial, record in zip(trials, tool.decode(reader, trials)):
                values = [reading["value"] for reading in tool.readings(reader, trial) if reading["path"] == path]
                if record is not None and len(values) == len(conversions):
                    results[path].append((dict(zip(conversions, values)), record))
        return results

    def gives(self, path, conversion, field, parts):
        """Whether what that conversion gave, of several of the path, is always in the field."""
        return all(json.loads(values[conversion]) in leaves([part[field] for part in parts(record)])
                   for values, record in self.results.get(path, []))

    def fills(self, parts):
        """What fills each field of the record, or of parts of it: for its name, rows of member, test and conversion. A
        member fills a field when records differ with it."""
        filled = collections.defaultdict(set)
        for path, one, other in self.pairs:
            for part, changed in zip(parts(one), parts(other)):
                filled[path] |= {field for field in part if part[field] != changed[field]}
        # An array or object as such fills what nothing in it does: the number of elements, whether it was there.
        for path, _, conversion in self.rows:
            if conversion in ("elements", "members"):
                inside = [fields for other, fields in filled.items() if other.startswith(path + "/")]
                filled[path] -= set().union(*inside)
        ways = collections.defaultdict(set)
        for path, *way in self.rows:
            ways[any_element(path)].add(tuple(way))
        found = collections.defaultdict(dict)
        for field in parts(self.whole)[0]:
            rows = [row for row in self.rows if field in filled[row[0]]]
            given = {row for row in rows if self.gives(*row[::2], field, parts)}
            told = {path for path, _, _ in given}
            alike = collections.defaultdict(set)
            for path, _, _ in rows:
                alike[any_element(path)].add(path)
            for path, test, conversion in [row for row in rows if row in given or row[0] not in told]:
                member = any_element(path)
                # Indexes are shown where one element alone fills the field, and where not all are read the same way.
                if len(ways[member]) > 1 or (len(alike[member]) == 1 and self.has_others(path)):
                    member = with_indexes(path)
                found[field][member.lstrip("/") or "the node", test, CONTAINERS.get(conversion, conversion)] = True
        return {field: list(rows) for field, rows in found.items()}

    def has_others(self, path):
        """Whether other elements are read as this one is."""
        return len({other for other, _, _ in self.rows if any_element(other) == any_element(path)}) > 1

    def constants(self, parts):
        """What stands in fields of the record, or of the first part of it, though the message says nothing."""
        record = parts(self.nothing)[0] if self.nothing is not None else {}
        return {field: value for field, value in record.items() if isinstance(value, int) and value != 0}


# What is taken of a value of which nothing is converted.
CONTAINERS = {"": "only tested", "members": "only tested", "elements": "number of elements"}


class Fills:
    """What fills the fields of each record, by all of its readers, or by the reader of a record that has it inside."""

    def __init__(self, tool, layouts):
        self.layouts, self.accounts = layouts, {}
        words = sorted({row["text"] for vocabulary in tool("keywords") for row in vocabulary["rows"]})
        for entry in tool("records"):
            reader = entry["name"]
            if entry["decode"] and reader.partition("/")[0] in layouts:
                if sample(reader) is None:
                    sys.exit(f"{reader}: no message of it in examples/messages/index.txt or in scripts/reference.py")
                self.accounts.setdefault(reader.partition("/")[0], []).append(Account(tool, reader, words))

    @functools.cache
    def of(self, record):
        """The record that it is read in, itself as a rule, and the rows of each field; None twice if it is not read."""
        found = collections.defaultdict(dict)
        outer, steps = self.place_of(record)
        if outer is None:
            return None, None
        for account in self.accounts[outer]:
            for field, rows in account.fills(lambda form: self.parts(form, steps)).items():
                found[field].update(dict.fromkeys(rows))
        layout = self.layouts[record]
        unread = [field["name"] for field in layout["fields"]
                  if not found[field["name"]] and not_read(layout, field) is None]
        for field, value in self.accounts[outer][0].constants(lambda form: self.parts(form, steps)).items():
            if field in unread:
                found[field]["any message", "", f"always {value}"] = True
        return outer, {field: list(rows) for field, rows in found.items() if rows}

    def idle(self):
        """Members that a reader converts, and of which no table would say what they fill."""
        for record, accounts in self.accounts.items():
            for account in accounts:
                told = {without_indexes(member) for rows in account.fills(flat).values() for member, _, _ in rows}
                read = {any_element(path).lstrip("/") or "the node" for path, _, conversion in account.rows
                        if conversion not in CONTAINERS}
                for member in sorted(read - told):
                    yield f"{record}: {member} is read, and no field shows it; give scripts/reference.py a message"

    def shortened(self, layout, fills):
        """The same, with one row for a record inside that is filled as its own table says."""
        short = dict(fills)
        for field in layout["fields"]:
            inner, rows = field["type"].partition("[")[0], fills.get(field["name"], [])
            outer, inner_fills = self.of(inner) if inner in self.layouts else (None, None)
            if len(rows) < 3 or outer not in (inner, layout["record"]):
                continue
            prefix, told = below(rows)
            if told == below([row for ways in inner_fills.values() for row in ways], outer != inner)[1]:
                short[field["name"]] = [(prefix, "", f"as its table: {inner}")]
        return short

    def place_of(self, record):
        """A record with a reader that has this one inside, and the fields on the way down to it."""
        places = [(record, [])]
        for inner, steps in places:
            if inner in self.accounts:
                return inner, steps
            places += [(outer, [field["name"], *steps]) for outer, layout in self.layouts.items()
                       for field in layout["fields"] if field["type"].partition("[")[0] == inner]
        return None, []

    @staticmethod
    def parts(form, steps):
        """All records inside that these fields lead to."""
        forms = [form]
        for step in steps:
            forms = [inner for outer in forms for inner in flat(outer[step])]
        return forms


def below(rows, has_prefix=True):
    """The member above those of all rows, and what is converted there."""
    members = [without_indexes(member) for member, _, _ in rows]
    prefix = os.path.commonprefix(members).rpartition("/")[0] if has_prefix else ""
    return prefix, {(member[len(prefix):].lstrip("/"), conversion) for member, (_, _, conversion) in zip(members, rows)
                    if conversion not in CONTAINERS.values()}


# Fields that no reader fills.
NOT_READ = {
    "tagNET_TIME_EX": {"dwUTC": "other layers fill it", "dwReserved": "other layers fill it"},
    "tagFACERECOGNITION_PERSON_INFOEX": dict.fromkeys(
        ["bAgeEnable", "nAgeRange", "nEmotionValidNum", "emEmotions"], "only written"),
}


def not_read(layout, field):
    """Why no reader fills the field; None where one must."""
    if field["type"] == "reserved":
        return ""
    lengths = [re.match(r"caller's buffer of (\w+) bytes", other["type"]) for other in layout["fields"]]
    if any(length and length[1] == field["name"] for length in lengths):
        return "the caller fills it"
    return NOT_READ.get(layout["record"], {}).get(field["name"])


def unexplained(layout, fills):
    """Fields of a record that is read of which the table does not say what fills them, or says two things."""
    for field in layout["fields"]:
        name, reason = f"{layout['record']}::{field['name']}", not_read(layout, field)
        if field["name"] in fills and reason is not None:
            yield f"{name}: {reason or 'reserved'}, says scripts/reference.py; a reader does"
        elif field["name"] not in fills and reason is None:
            yield f"{name}: no reader fills it; give scripts/reference.py a message that shows which member does"


def any_element(path):
    return re.sub(r"/\d+(?=/|$)", "[]", path)


def with_indexes(path):
    return re.sub(r"/(\d+)(?=/|$)", r"[\1]", path)


def without_indexes(member):
    return re.sub(r"\[\d+\]", "[]", member)


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


def table(kind, headings, rows, numbers=()):
    """An HTML table of that kind, which the style sheet knows. A row is its class and its cells; a cell that is a pair
    says how many rows it spans."""
    def cells(tag, values):
        text = ""
        for column, value in enumerate(values):
            content, span = value if isinstance(value, tuple) else (value, 1)
            number = ' class="number"' if column in numbers and len(values) == len(headings) else ""
            spanning = f' rowspan="{span}"' if span > 1 else ""
            text += f"<{tag}{number}{spanning}>{content}</{tag}>"
        return text

    body = "".join(f'<tr class="{kind}">{cells("td", values)}</tr>\n' for kind, values in rows)
    return f'<table class="rows {kind}">\n<tr>{cells("th", headings)}</tr>\n{body}</table>\n'


def caller_limit(field, text):
    """A caller's buffer is as long as the caller says, not as the tool made it."""
    length = re.match(r"caller's buffer of (\w+) bytes", field["type"])
    return re.sub(r"at most \d+", f"at most {length[1]}", text) if length else text


def layout_table(layout, fills):
    rows = []
    for field in layout["fields"]:
        reason = not_read(layout, field)
        by_member = (fills or {}).get(field["name"]) or [(f"none: {reason}" if reason else "", "", "")]
        span = len(by_member)
        kind = "reserved" if field["type"] == "reserved" else ""
        for i, ways in enumerate(by_member):
            read = [escaped(caller_limit(field, text)) for text in ways] if fills is not None else []
            read = [re.sub(r"^as its table: (\w+)$", r'@ref layout_\1 "as its table"', text) for text in read]
            if i == 0:
                place = [escaped(str(field[key])) for key in ("offset", "size", "type", "name")]
                rows.append((kind, [*((text, span) for text in place), *read, (escaped(field["meaning"]), span)]))
            else:
                rows.append((kind, read))
    read = ["member", "test", "conversion"] if fills is not None else []
    return table("layout", ["offset", "size", "type", "field", *read, "meaning"], rows, numbers=(0, 1))


def keyword_table(vocabulary):
    rows = [("", [row["code"], escaped(row["text"])]) for row in vocabulary["rows"]]
    return table("words", ["code", "word"], rows, numbers=(0,))


def grouped(group, text):
    """Text of a header as a part of the group, with what is in its namespaces."""
    begin, end = f"/// @addtogroup {group}\n/// @{{\n", "/// @}\n"
    text = re.sub(r"^namespace \w+ \{\n", lambda match: match[0] + begin, text, flags=re.MULTILINE)
    text = re.sub(r"^\}  // namespace", end + r"\g<0>", text, flags=re.MULTILINE)
    return f"{begin}{text}{end}"


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
        body, guard, _ = body.partition("\n#endif")
        text += f"/** @defgroup {name} {title}\n{about}\n*/\n{grouped(name, body)}\n{guard}\n"
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
        text = text[:above] + "\n" + grouped(name, re.sub(r"\n#endif\s*$", "\n", text[above:])) + "\n#endif\n"
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
        text = re.sub(r"^(struct (\w+) \{)", lambda match: f"/// @ingroup {of_record[match[2]]}\n/// @see @ref layout_"
                      f'{match[2]} "layout, and what fills each field"\n{match[1]}', text, flags=re.MULTILINE)
        write(path.relative_to(ROOT / "include"), text)

    layouts = {name: tool("fields", name) for name in of_record}
    fills = Fills(tool, layouts)
    gaps_of_tables = [*fills.idle()]
    for name in SUBSYSTEMS:
        text = ""
        for record in [record for record, subsystem in of_record.items() if subsystem == name]:
            layout = layouts[record]
            text += f"\n@section layout_{record} {record}: {layout['size']} bytes\n\n"
            outer, rows = fills.of(record)
            if outer is None:
                text += "Written only.\n\n"
            else:
                gaps_of_tables += unexplained(layout, rows)
                text += f"Read as a part of @ref layout_{outer} \"{outer}\".\n\n" if outer != record else ""
            text += layout_table(layout, fills.shortened(layout, rows) if rows else rows)
        for vocabulary in tool("keywords"):
            if of_table[vocabulary["name"]] == name:
                title = f"Words of {vocabulary['name']}: {vocabulary['meaning']}"
                text += f"\n@section words_{vocabulary['name']} {title}\n\n{keyword_table(vocabulary)}"
        write(f"{name}.dox", f"/** @addtogroup {name}\n{text}\n*/\n")

    links = {name: ", ".join(f'@ref layout_{record} "{record}"' for record, place in of_record.items() if place == name)
             for name in SUBSYSTEMS}
    rows = [("", [f"@ref {name}", links[name]]) for name in SUBSYSTEMS]
    main = f"@mainpage JsonParser\n\n{lines_of(first_of_contracts(preface))}\n\n"
    main += table("subsystems", ["subsystem", "records"], rows)
    main += ("\nBesides: @ref message_text, @ref explain, @ref ownership, @ref support, @ref vocabularies, "
             "@ref fields, @ref version.\n")
    write("main.dox", f"/** {main}*/\n")
    return layouts, gaps_of_tables


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
            # What templates of the language's own library leave, and what the two libraries have between themselves.
            if not name.startswith(("std::", "jsonparser::support::")):
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
    for path in sorted((folder / "xml").glob("group__*.xml")):
        page = xml.etree.ElementTree.parse(path).getroot().find("compounddef")
        if page.find(".//memberdef") is None and page.find("innerclass") is None:
            yield f"{page.findtext('title')}: a page with nothing on it"
    for record, layout in layouts.items():
        for field in layout["fields"]:
            if f"{record}::{field['name']}" not in names:
                yield f"{record}::{field['name']}: a field that is not documented"


def main():
    folder = pathlib.Path(sys.argv[2]).resolve()
    layouts, missing = write_sources(folder, Tool(sys.argv[1]))
    if run_doxygen(folder) != 0:
        sys.exit("the reference has defects: mend the comments above")
    missing += gaps(folder, sys.argv[3:], layouts)
    if missing:
        sys.exit("\n".join(missing))
    fields = sum(len(layout["fields"]) for layout in layouts.values())
    print(f"{folder}/html/index.html: {len(layouts)} records with {fields} fields, no gap")


if __name__ == "__main__":
    main()
