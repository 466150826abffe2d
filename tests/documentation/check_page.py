#!/usr/bin/env python3
"""Checks that every fenced block of a page is true. What a block is, its fence says:

    cpp PATH, cmake PATH  words of that file of the project, which the build compiles
    cpp                   a source file; one with main() is linked and run, and prints the text block that follows
    cpp within PATH       lines of a source file of C++20, compiled where that file of the project includes "block.h"
    console               commands behind "$ ", run at the project's root, each with what it prints
    sh                    commands that would change the machine: scripts, presets and the tool's options are looked up
    text                  what the program above it prints
    tree                  files and folders of the project, each with what it is

Usage: check_page.py PAGE FOLDER TOOL COMPILER [ARGUMENT...]; the arguments are for compiling and linking.
"""

import os
import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
FENCE = re.compile(r"^( *)```(.*?)\n(.*?)^\1```$", re.MULTILINE | re.DOTALL)
WARNINGS = ["-std=c++17", "-Wall", "-Wextra", "-Wpedantic", "-Wconversion", "-Werror"]


class Page:
    def __init__(self, path, folder, tool, compiler):
        self.path, self.folder, self.compiler = path, folder, compiler
        self.environment = {**os.environ, "LC_ALL": "C.UTF-8", "PATH": f"{tool.parent}:{os.environ['PATH']}"}
        self.printed = None  # by the last program
        self.checked = self.failed = 0

    def fail(self, line, what):
        print(f"{self.path.relative_to(ROOT)}:{line}: {what}")
        self.failed += 1

    def compare(self, line, what, shown, printed):
        if shown.strip("\n") != printed.strip("\n"):
            self.fail(line, f"{what} prints\n{printed}but the page shows\n{shown}")

    def run(self, command, **arguments):
        result = subprocess.run(command, cwd=ROOT, env=self.environment, text=True, stdout=subprocess.PIPE,
                                stderr=subprocess.STDOUT, timeout=120, check=False, **arguments)
        return result.returncode, result.stdout

    def quoted(self, line, file, block):
        path = ROOT / file
        if not path.is_file():
            self.fail(line, f"{file} is no file of the project")
        elif block not in path.read_text():
            self.fail(line, f"{file} does not have these words")

    def cpp(self, line, block):
        source, program = self.folder / f"line{line}.cpp", self.folder / f"line{line}"
        source.write_text(block)
        is_program = re.search(r"\bint main\(", block)
        arguments = self.compiler[1:] if is_program else [word for word in self.compiler[1:] if word.startswith("-I")]
        status, said = self.run([self.compiler[0], *WARNINGS, str(source), "-o", str(program), *arguments]
                                if is_program else
                                [self.compiler[0], *WARNINGS, "-fsyntax-only", str(source), *arguments])
        if status != 0:
            return self.fail(line, f"does not compile\n{said}")
        if is_program:
            status, self.printed = self.run([str(program)])
            if status != 0:
                self.fail(line, f"ends with {status}\n{self.printed}")

    def within(self, line, file, block):
        folder = self.folder / f"line{line}"
        folder.mkdir(exist_ok=True)
        (folder / "block.h").write_text(block)
        includes = [word for word in self.compiler[1:] if word.startswith("-I")]
        status, said = self.run([self.compiler[0], *WARNINGS, "-std=c++20", "-fsyntax-only", str(ROOT / file),
                                 f"-I{folder}", *includes])
        if status != 0:
            self.fail(line, f"does not compile\n{said}")

    def text(self, line, block):
        if self.printed is None:
            return self.fail(line, "no program stands above this text")
        self.compare(line, "the program above", block, self.printed)
        self.printed = None

    def console(self, line, block):
        if not block.startswith("$ "):
            return self.fail(line, 'a command begins with "$ "')
        for part in re.split(r"^\$ ", block, flags=re.MULTILINE)[1:]:
            command, _, shown = part.partition("\n")
            self.compare(line, command, shown, self.run(["bash", "-c", command.replace("scripts/run ", "jsonparser ")])[1])

    def sh(self, line, block):
        status, said = self.run(["bash", "-n"], input=block)
        if status != 0:
            self.fail(line, said)
        for script in re.findall(r"scripts/\w+", block):
            if not os.access(ROOT / script, os.X_OK):
                self.fail(line, f"{script} is no script of the project")
        presets = (ROOT / "CMakePresets.json").read_text()
        for preset in re.findall(r"--preset (\w+)", block):
            if f'"name": "{preset}"' not in presets:
                self.fail(line, f"{preset} is no preset")
        for command, words in re.findall(r"jsonparser ([a-z]+)([^|<\n]*)", block):
            known = self.run(["jsonparser", command, "--help"])[1]
            if known == self.run(["jsonparser", "--help"])[1]:
                self.fail(line, f"{command} is no command of the tool")
            for option in re.findall(r"--[a-z-]+", words):
                if not re.search(rf"{option}\b", known):
                    self.fail(line, f"{option} is no option of jsonparser {command}")

    def tree(self, line, block):
        for path in re.findall(r"^([^ \n]+)", block, re.MULTILINE):
            before, names, after = re.fullmatch(r"([^{]*)(?:\{(.*)\})?(.*)", path).groups()
            for name in (names or "").split(","):
                whole = ROOT / f"{before}{name}{after}"
                if not (whole.is_dir() if path.endswith("/") else whole.is_file()):
                    self.fail(line, f"{before}{name}{after} is not in the project")

    def check(self):
        text = self.path.read_text()
        for match in FENCE.finditer(text):
            line = text.count("\n", 0, match.start()) + 1
            kind, _, file = match[2].partition(" ")
            self.checked += 1
            if kind == "cpp" and file.startswith("within "):
                self.within(line, file.partition(" ")[2], match[3])
            elif kind in ("cpp", "cmake") and file:
                self.quoted(line, file, match[3])
            elif kind in ("cpp", "text", "console", "sh", "tree") and not file:
                getattr(self, kind)(line, match[3])
            else:
                self.fail(line, f"blocks of the kind '{match[2]}' are not checked; say which one this is")
        if text.count("```") != 2 * self.checked:
            self.fail(1, "a fence is not closed, or not at the beginning of its line")


def main():
    path, folder, tool = (pathlib.Path(argument).resolve() for argument in sys.argv[1:4])
    folder.mkdir(parents=True, exist_ok=True)
    page = Page(path, folder, tool, sys.argv[4:])
    page.check()
    print(f"{page.checked} blocks, {page.failed} failed")
    return 1 if page.failed else 0


if __name__ == "__main__":
    sys.exit(main())
