#!/usr/bin/env python3
"""Prints what scripts/bench measured on the road from message text to record, as tables of Markdown.

Of each benchmark the least time of all repetitions counts. The best of the others is the fastest program with a library
that Debian 12 has.
"""

import collections
import json
import math
import sys

TEXT = "text"
SKIPPING = "text, skipping"
MESSAGES = ("traffic", "object", "person", "schedule", "event")

# Message, road, whether only the others that check everything count, bar and aim of the ratio to the best of them.
BARS = (
    ("traffic", TEXT, False, 0.48, 0.33),
    ("object", TEXT, False, 0.75, 0.52),
    ("person", TEXT, False, 0.75, 0.58),
    ("schedule", TEXT, False, 0.55, 0.40),
    ("event", SKIPPING, False, 0.80, 0.50),
    ("event", TEXT, True, 0.55, None),
)
SHUFFLED_BAR = 1.35
QUADRATIC = 3.0  # what doubling multiplies the time by: 2 when linear, 4 when quadratic


class Road:
    def __init__(self, label):
        self.kind, checks = label.split(", checks ")
        self.checks_everything = checks == "everything"


def read(path):
    """Least nanoseconds by the parts of the benchmark's name, and the roads by name, the fastest first."""
    least = {}
    roads = {}
    with open(path) as file:
        runs = json.load(file)["benchmarks"]
    for run in runs:
        if run["run_type"] != "iteration":
            continue
        name = tuple(run["run_name"].split("/"))
        least[name] = min(run["cpu_time"], least.get(name, float("inf")))
        roads[name[2]] = Road(run["label"])
    if not roads:
        raise ValueError("there are no runs")
    fastest_first = sorted(roads, key=lambda road: math.prod(least["message", message, road] for message in MESSAGES))
    return least, {road: roads[road] for road in fastest_first}


def table(head, rows):
    print("| " + " | ".join(head) + " |")
    print("|" + "---|" + "---:|" * (len(head) - 1))
    for row in rows:
        print("| " + " | ".join(row) + " |")
    print()


def best_other(message, least, roads, must_check=False, kind="debian"):
    return min((least["message", message, name], name) for name, road in roads.items()
               if road.kind == kind and (road.checks_everything or not must_check))


def print_times(least, roads):
    print("### Message text to record, ns, and the ratio to the best of Debian's libraries\n")
    rows = []
    for name in roads:
        row = [name]
        for message in MESSAGES:
            time = least["message", message, name]
            row.append(f"{time:.0f} ({time / best_other(message, least, roads)[0]:.2f})")
        rows.append(row)
    table(["", *MESSAGES], rows)


def print_bars(least, roads):
    print("### Ratios and bars\n")
    rows = []
    for message, name, must_check, bar, aim in BARS:
        if name not in roads:
            continue
        time, other = best_other(message, least, roads, must_check)
        ratio = least["message", message, name] / time
        of = other + (", best that checks everything" if must_check else "")
        rows.append([message, name, of, f"{ratio:.2f}", f"{bar:.2f}", "met" if ratio <= bar else "not met",
                     "" if aim is None else f"{aim:.2f}"])
    table(["message", "road", "to", "ratio", "bar", "", "aim"], rows)


def print_others(least, roads):
    if not any(road.kind == "other" for road in roads.values()):
        return
    print("### Ratios to the best of the libraries that only some machines have\n")
    rows = []
    for message, name, must_check, _, _ in BARS:
        if name not in roads:
            continue
        time, other = best_other(message, least, roads, must_check, "other")
        ratio = least["message", message, name] / time
        of = other + (", best that checks everything" if must_check else "")
        rows.append([message, name, of, f"{ratio:.2f}", "beaten" if ratio < 1 else "not beaten"])
    table(["message", "road", "to", "ratio", ""], rows)


def print_shuffled(least, roads):
    print("### Members in another order than the converter's: ratio to the same in its order\n")
    messages = [message for message in MESSAGES if any(name[1] == message + " shuffled" for name in least)]
    rows = []
    for name in roads:
        ratios = [least["message", message + " shuffled", name] / least["message", message, name]
                  for message in messages]
        bar = "" if name not in (TEXT, SKIPPING) else "met" if max(ratios) <= SHUFFLED_BAR else "not met"
        rows.append([name, *(f"{ratio:.2f}" for ratio in ratios), bar])
    table(["", *messages, f"bar of {SHUFFLED_BAR}"], rows)


def print_growth(least):
    print("### Growth: what doubling multiplies the time by, from each size to the next\n")
    series = collections.defaultdict(dict)
    for name, time in least.items():
        if name[0] == "growth":
            series[name[1:3]][int(name[3])] = time
    rows = []
    for (what, road), times in sorted(series.items()):
        sizes = sorted(times)
        factors = [times[to] / times[size] for size, to in zip(sizes, sizes[1:])]
        verdict = "not quadratic" if max(factors) < QUADRATIC else "QUADRATIC?"
        rows.append([what, road, f"{sizes[0]} to {sizes[-1]}", " ".join(f"{factor:.2f}" for factor in factors), verdict])
    table(["what grows", "road", "sizes", "factors", ""], rows)


def main():
    if len(sys.argv) != 2:
        sys.exit("usage: bench_report.py FILE, which --benchmark_out wrote")
    try:
        least, roads = read(sys.argv[1])
        print_times(least, roads)
        print_bars(least, roads)
        print_others(least, roads)
        print_shuffled(least, roads)
        print_growth(least)
    except (OSError, ValueError, KeyError, IndexError) as error:
        sys.exit(f"{sys.argv[1]}: {error!r}; expected what --benchmark_out wrote of benchmarks from text to record")


if __name__ == "__main__":
    main()
