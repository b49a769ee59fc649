#!/usr/bin/env python3
"""Draws the most frequent phrases of a folder of texts:

    phrases.py FOLDER PLOT.svg [OPTION of korv-count...]
"""
import csv
import html
import io
import subprocess
import sys

BARS = 20
ROW = 22  # pixels
LABELS = 320
BAR_WIDTH = 360


def count_phrases(folder, options):
    """The first rows of the table, each a dictionary by column."""
    done = subprocess.run(
        ["korv-count", folder, "--quiet", "--output-format", "csv", "--columns", "phrase,frequency,files",
         "--top", str(BARS), *options],
        stdout=subprocess.PIPE, check=False)
    if done.returncode != 0:
        sys.exit(done.returncode)  # korv-count has said why.
    return list(csv.DictReader(io.StringIO(done.stdout.decode("utf-8"), newline="")))


def draw(rows):
    """The bars as SVG."""
    height = ROW * max(len(rows), 1) + 20
    most = max((int(row["frequency"]) for row in rows), default=1)
    parts = [f'<svg xmlns="http://www.w3.org/2000/svg" width="{LABELS + BAR_WIDTH + 160}" height="{height}" '
             'font-family="sans-serif" font-size="13">',
             f'<rect width="100%" height="{height}" fill="white"/>']
    for place, row in enumerate(rows):
        frequency = int(row["frequency"])
        y = 10 + place * ROW
        width = BAR_WIDTH * frequency / most
        parts += [f'<text x="{LABELS - 8}" y="{y + 15}" text-anchor="end">{html.escape(row["phrase"])}</text>',
                  f'<rect class="bar" x="{LABELS}" y="{y + 2}" width="{width:.1f}" height="{ROW - 4}" fill="#3b6ea5"/>',
                  f'<text x="{LABELS + width + 6:.1f}" y="{y + 15}" fill="#555">{frequency} in {row["files"]} '
                  f'{"file" if row["files"] == "1" else "files"}</text>']
    return "\n".join([*parts, "</svg>", ""])


def main():
    if len(sys.argv) < 3:
        sys.exit(__doc__.strip())
    folder, plot, *options = sys.argv[1:]
    rows = count_phrases(folder, options)
    with open(plot, "w", encoding="utf-8") as file:
        file.write(draw(rows))
    print(f"{len(rows)} phrases drawn in {plot}")


main()
