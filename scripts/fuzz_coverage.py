#!/usr/bin/env python3
"""Reads what llvm-cov exports and prints the lines that were reached of the programs' own sources.

    fuzz_coverage.py NAME       one line for a target: of the files that it enters at all
    fuzz_coverage.py --files    a line for each file of which less than nine tenths were reached, the least first
"""

import json
import pathlib
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
OTHERS = ("tests", "build", "bench", "desktop")


def own(name):
    path = pathlib.Path(name).resolve()
    return path.relative_to(ROOT) if path.is_relative_to(ROOT) and path.relative_to(ROOT).parts[0] not in OTHERS else None


def main():
    files = [(own(file["filename"]), file["summary"]["lines"]) for file in json.load(sys.stdin)["data"][0]["files"]]
    files = [(path, lines["covered"], lines["count"]) for path, lines in files if path and lines["count"]]
    if sys.argv[1] != "--files":
        files = [file for file in files if file[1]]
    covered, count = sum(file[1] for file in files), sum(file[2] for file in files)
    name = "all targets" if sys.argv[1] == "--files" else sys.argv[1]
    print(f"{name}: {covered} of {count} lines ({100 * covered / max(count, 1):.1f} %) in {len(files)} files")
    if sys.argv[1] == "--files":
        for path, reached, lines in sorted(files, key=lambda file: file[1] / file[2]):
            if reached < 0.9 * lines:
                print(f"  {path}: {reached} of {lines}")


main()
