#!/usr/bin/env python3
"""Prints line and branch coverage of each folder from llvm-cov's export, and each line and branch that is not reached.
Those that the second file names, with a reason, are allowed. Called by scripts/coverage."""

import bisect
import collections
import json
import pathlib
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent


def missed(file):
    """Lines without a call and branches that were taken one way only, as (line, what)."""
    lines = set()
    # A line is reached when any region on it is: as llvm-cov counts.
    counts = {}
    segments = file["segments"]
    for segment, following in zip(segments, segments[1:] + [None]):
        line, _, count, counted, _, gap = segment[:6]
        if not counted or gap:
            continue
        last = following[0] if following else line
        for covered in range(line, max(last, line + 1) if following and following[1] <= 1 else last + 1):
            counts[covered] = max(counts.get(covered, 0), count)
    lines = {(line, "line") for line, count in counts.items() if count == 0}
    taken = collections.defaultdict(lambda: [0, 0])  # instances of templates together
    for begin, column, _, _, true, false, *_ in file.get("branches", []):
        taken[begin, column][0] += true
        taken[begin, column][1] += false
    # Of what is decided when compiling neither way is counted, though it is reached.
    begins = [tuple(segment[:2]) for segment in segments]
    taken = {place: both for place, both in taken.items()
             if any(both) or segments[bisect.bisect(begins, place) - 1][2] == 0}
    branches = {(line, f"never {name}") for (line, _), both in taken.items()
                for count, name in zip(both, ("true", "false")) if count == 0}
    return lines, branches, len(counts), 2 * len(taken)


def allowed_at(source, kept, path):
    """The line of code that allows each line: itself, the one that opens the block it is in, or that before its brace."""
    allowed = {}
    for number, line in enumerate(source, 1):
        code = line.strip()
        if (path, code) not in kept:
            continue
        end = number
        if code.endswith("{"):
            closing = line[:len(line) - len(line.lstrip())] + "}"
            while end < len(source) and source[end] != closing:
                end += 1
        if end < len(source) and source[end].strip() == "}":
            end += 1
        for inside in range(number, end + 1):
            allowed[inside] = code
    return allowed


def main():
    export, kept_file = map(pathlib.Path, sys.argv[1:3])
    kept = {}
    for row in kept_file.read_text().splitlines():
        if not row or row.startswith("#"):
            continue
        cells = row.split("\t")
        if len(cells) != 3 or not cells[2].strip():
            sys.exit(f"{kept_file}: expected file, line of code and reason, by tabs: {row}")
        kept[cells[0], cells[1]] = False
    totals = collections.defaultdict(lambda: [0, 0, 0, 0, 0])
    failed = []
    for file in json.loads(export.read_text())["data"][0]["files"]:
        path = pathlib.Path(file["filename"]).resolve().relative_to(ROOT)
        if path.parts[0] != "vkprotocolstack":
            continue
        source = path.read_text().split("\n")
        lines, branches, line_count, branch_count = missed(file)
        total = totals["/".join(path.parts[:-1])]
        for index, number in enumerate((line_count, len(lines), branch_count, len(branches))):
            total[index] += number
        allowed = allowed_at(source, kept, str(path))
        for line, what in sorted(lines | branches):
            if line in allowed:
                kept[str(path), allowed[line]] = True
                total[4] += 1
            else:
                failed.append(f"{path}:{line}: {what}: {source[line - 1].strip()}")
    print("| folder | lines | reached | branches | taken | allowed |\n|---|---:|---:|---:|---:|---:|")
    totals["all"] = [sum(column) for column in zip(*totals.values())]
    for folder, (lines, missed_lines, branches, missed_branches, allowed) in totals.items():
        print(f"| {folder} | {lines} | {100 - 100 * missed_lines / max(lines, 1):.2f} % | {branches} | "
              f"{100 - 100 * missed_branches / max(branches, 1):.2f} % | {allowed} |")
    failed += [f"{kept_file.name}: {path}: {code!r} is reached, or gone; take it off" for (path, code), used in kept.items()
               if not used]
    print("\n".join(failed))
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
