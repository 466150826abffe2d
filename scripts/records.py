#!/usr/bin/env python3
"""Writes docs/records.md: where each record's struct, converter and tests are. With --check only says whether it is
up to date."""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
TARGET = ROOT / "docs" / "records.md"

HEAD = """# Where the code of each record is

Written by `scripts/records.py`; `scripts/check records` says when it is out of date. Contracts are in
`vkprotocolstack/JsonParser.h`, fields in `include/vkrecords/fields.h`.

| record | bytes | struct | converter | tests |
|---|---|---|---|---|
"""


def link(path):
    return f"[{path.name}](../{path.relative_to(ROOT)})"


def main():
    fields = (ROOT / "include/vkrecords/fields.h").read_text()
    headers = [path for path in sorted((ROOT / "include/vkrecords").glob("*.h")) if path.name != "fields.h"]
    sources = sorted((ROOT / "vkprotocolstack").glob("*/*.cpp"))
    rows = []
    for name, size in re.findall(r"VK_RECORD\((\w+), (\d+)\);", fields):
        header = next(path for path in headers if re.search(rf"\bstruct {name} \{{", path.read_text()))
        takes = re.compile(rf"\b{name}\s*[&*]|<{name}[,>]")
        converters = [path for path in sources if takes.search(path.read_text())]
        tests = [ROOT / "tests" / path.parent.name / f"{path.stem}_test.cpp" for path in converters]
        missing = [path for path in tests if not path.exists()]
        if missing:
            sys.exit(f"{missing[0].relative_to(ROOT)}: missing; every converter has a test of the same stem")
        rows.append(f"| `{name}` | {size} | {link(header)} | {', '.join(map(link, converters))} | "
                    f"{', '.join(map(link, tests))} |\n")
    text = HEAD + "".join(rows)
    if "--check" not in sys.argv:
        TARGET.write_text(text)
    elif not TARGET.exists() or TARGET.read_text() != text:
        sys.exit("docs/records.md is out of date")


if __name__ == "__main__":
    main()
