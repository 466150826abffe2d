#!/usr/bin/env python3
"""Compares what the shared libraries export with what the public headers declare, as clang's syntax tree has it: each
function that is exported is declared, or an instance of a template that is, and each that is declared is exported.

Usage: abi_contract.py FOLDER SYMBOLS...; FOLDER is for what clang writes, SYMBOLS are files of demangled names.
"""

import collections
import json
import pathlib
import re
import shlex
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
FUNCTIONS = ("FunctionDecl", "CXXMethodDecl", "CXXConstructorDecl", "CXXDestructorDecl", "CXXConversionDecl")
SCOPES = ("NamespaceDecl", "CXXRecordDecl")
BETWEEN_THE_LIBRARIES = (
    "jsonparser::support::DefaultChangeUtf8Assic(unsigned char*, char*)",
    "jsonparser::support::DefaultGetJsonString(Json::Value const&, char*, int, bool)",
    "jsonparser::support::DefaultParseJsonNodeToStr(Json::Value const&, char*, int)",
)


def output_of(*command, **options):
    return subprocess.run(command, check=True, text=True, stdout=subprocess.PIPE, cwd=ROOT, **options).stdout


def syntax_tree(folder):
    """Of the installed headers of functions. What they include of others is in a precompiled header, and so left out."""
    headers = re.findall(r"vkprotocolstack/[\w/]+\.h", (ROOT / "cmake" / "JsonParserInstall.cmake").read_text())
    others = {line for header in headers for line in (ROOT / header).read_text().split("\n")
              if line.startswith("#include") and '"vkprotocolstack/' not in line}
    (folder / "others.h").write_text("\n".join(sorted(others)) + "\n")
    (folder / "headers.cpp").write_text("".join(f'#include "{header}"\n' for header in headers))
    clang = ["clang++", "-std=c++17", "-I.", "-Iinclude", *shlex.split(output_of("pkg-config", "--cflags", "jsoncpp"))]
    output_of(*clang, "-x", "c++-header", folder / "others.h", "-o", folder / "others.pch")
    return json.loads(output_of(*clang, "-include-pch", folder / "others.pch", "-fsyntax-only", "-Xclang",
                                "-ast-dump=json", folder / "headers.cpp"))


def is_declared_only(node):
    return not (node.get("isImplicit") or node.get("explicitlyDeleted") or node.get("explicitlyDefaulted") or
                any(child.get("kind") == "CompoundStmt" for child in node.get("inner", [])))


def collect(node, scope, functions, templates):
    """Adds mangled names of functions, and how many function templates there are of each name."""
    kind = node.get("kind")
    children = node.get("inner", [])
    if kind == "FunctionTemplateDecl":
        if any(child.get("kind") in FUNCTIONS and is_declared_only(child) for child in children):
            templates[scope + node["name"]] += 1
    elif kind in FUNCTIONS:
        if is_declared_only(node):
            functions.add(node["mangledName"])
    elif kind in SCOPES or kind in ("TranslationUnitDecl", "LinkageSpecDecl"):
        inner = f"{scope}{node['name']}::" if kind in SCOPES and "name" in node else scope
        for child in children:
            collect(child, inner, functions, templates)


def main():
    folder = pathlib.Path(sys.argv[1]).resolve()
    exported = {line for file in sys.argv[2:] for line in pathlib.Path(file).read_text().splitlines()}
    mangled, templates = set(), collections.Counter()
    collect(syntax_tree(folder), "", mangled, templates)
    declared = set(output_of("c++filt", input="\n".join(sorted(mangled))).split("\n"))

    breaches = [f"{name}: declared and not exported" for name in sorted(declared - exported)]
    instances = collections.defaultdict(collections.Counter)
    for name in sorted(exported - declared):
        match = re.match(r"[\w: ]+? ([\w:]+)<(.*?)>\(", name)
        if match and match[1] in templates:
            instances[match[1]][match[2]] += 1
        elif name not in BETWEEN_THE_LIBRARIES:
            breaches.append(f"{name}: exported and not declared in a public header")
    for name, count in sorted(templates.items()):
        if name not in instances:
            breaches.append(f"{name}: a template is declared, and no instance of it is exported")
        for arguments, exports in sorted(instances[name].items()):
            if exports != count:
                breaches.append(f"{name}<{arguments}>: {count} declared, {exports} exported")
    print("\n".join(breaches) or f"contract: {len(declared)} functions and {sum(templates.values())} templates are "
                                 f"declared; but for {len(BETWEEN_THE_LIBRARIES)} functions between the libraries nothing else is exported")
    return 1 if breaches else 0


if __name__ == "__main__":
    sys.exit(main())
