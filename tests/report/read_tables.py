"""Reads tables back with libraries that know nothing of Korv, and compares every cell:

    read_tables.py KORV_WRITTEN_TABLES TEXTS            CSV, TSV, JSON, HTML, SQLite, by Python's own libraries
    read_tables.py KORV_WRITTEN_TABLES TEXTS --workbook XLSX, by openpyxl; exit status 77 where that is missing
"""

import csv
import html.parser
import json
import os
import pathlib
import sqlite3
import subprocess
import sys
import tempfile

IDS = ["rank", "phrase", "mi", "first_file"]
HEADINGS = ["Rank", "Phrase", "MI", "First file"]
REALS = [1 / 3, 0.00001, None, -0.5, 123456789.125, 1e300]
SKIPPED = 77
faults = []


def expect(ok, what):
    if not ok:
        faults.append(what)


def texts(path):
    lines = pathlib.Path(path).read_bytes().decode("utf-8").split("\n")[:-1]
    unescape = {"\\t": "\t", "\\r": "\r", "\\n": "\n", "\\\\": "\\"}
    cells = []
    for line in lines:
        cell, k = "", 0
        while k < len(line):
            step = 2 if line[k] == "\\" else 1
            cell += unescape.get(line[k:k + 2], line[k]) if step == 2 else line[k]
            k += step
        cells.append(cell)
    return cells + ["a" * 32767, "b" * 32768]


def expected(path):
    cells = texts(path)
    return [[k + 1, cell, REALS[k % len(REALS)], cells[-1 - k]] for k, cell in enumerate(cells)]


def same(name, got, wanted, text=lambda t: t, read=float):
    """Rows of cells, numbers as text or as themselves, an empty text for what is not defined."""
    expect(len(got) == len(wanted), f"{name}: {len(got)} rows, not {len(wanted)}")
    for row, (g, w) in enumerate(zip(got, wanted), 1):
        expect(len(g) == 4, f"{name}: row {row} has {len(g)} cells")
        expect(str(g[0]) == str(w[0]), f"{name}: rank {g[0]!r}, not {w[0]}")
        for k in (1, 3):
            expect(g[k] == text(w[k]), f"{name}: row {row}: {g[k]!r:.80}, not {text(w[k])!r:.80}")
        if w[2] is None:
            expect(g[2] in ("", None), f"{name}: row {row}: {g[2]!r} where nothing is defined")
        else:
            expect(abs(read(g[2]) - w[2]) <= abs(w[2]) * 1e-8, f"{name}: row {row}: {g[2]!r}, not {w[2]}")


def read_csv(path, delimiter=","):
    with open(path, encoding="utf-8", newline="") as file:
        return list(csv.reader(file, delimiter=delimiter, strict=True))


def check_csv(folder, wanted):
    rows = read_csv(folder / "table.csv")
    expect(rows[0] == IDS, f"csv: heading {rows[0]}")
    same("csv", rows[1:], wanted)

    def guarded(text):
        return "'" + text if text[0] in "=+-@\t\r" else text

    for name, delimiter, point in (("spreadsheet", ",", "."), ("german", ";", ",")):
        expect((folder / f"{name}.csv").read_bytes().startswith(b"\xef\xbb\xbfrank"), f"{name}: no signature")
        rows = read_csv(folder / f"{name}.csv", delimiter)
        same(name, rows[1:], wanted, guarded, lambda t, point=point: float(t.replace(point, ".")))
        expect(any(point in row[2] for row in rows[1:]), f"{name}: no decimal sign")


def check_tsv(folder, wanted):
    def one_line(text):
        for sign in ("\r\n", "\t", "\r", "\n"):
            text = text.replace(sign, " ")
        return text

    lines = (folder / "table.tsv").read_bytes().decode("utf-8").split("\n")
    expect(lines[-1] == "", "tsv: no line end behind the last row")
    expect(lines[0].split("\t") == IDS, f"tsv: heading {lines[0]!r}")
    same("tsv", [line.split("\t") for line in lines[1:-1]], wanted, one_line)


def check_json(folder, wanted):
    document = json.loads((folder / "table.json").read_text(encoding="utf-8"))
    expect([column["name"] for column in document["columns"]] == IDS, "json: columns")
    lines = (folder / "table.ndjson").read_bytes().decode("utf-8").split("\n")[:-1]
    for name, rows in (("json", document["phrases"]), ("ndjson", [json.loads(line) for line in lines])):
        expect(all(list(row) == IDS for row in rows), f"{name}: names")
        same(name, [list(row.values()) for row in rows], wanted)


def check_sqlite(folder, wanted):
    path = folder / "table.sqlite"
    if not path.exists():
        print("read_tables: no SQLite database, for this build writes none")
        return
    database = sqlite3.connect(path)
    expect(database.execute("PRAGMA integrity_check").fetchone() == ("ok",), "sqlite: damaged")
    cursor = database.execute("SELECT * FROM phrases ORDER BY rank")
    expect([column[0] for column in cursor.description] == IDS, "sqlite: columns")
    same("sqlite", cursor.fetchall(), wanted)
    names = [name for (name,) in database.execute("SELECT name FROM columns")]
    expect(names == IDS, f"sqlite: the table of columns has {names}")
    expect(("created", "2026-11-22T09:30:00Z") in database.execute("SELECT * FROM run").fetchall(), "sqlite: run")
    database.close()


class Cells(html.parser.HTMLParser):
    def __init__(self):
        super().__init__()
        self.rows, self.cell = [], None

    def handle_starttag(self, tag, attributes):
        if tag == "tr":
            self.rows.append([])
        if tag in ("td", "th"):
            self.cell = ""

    def handle_endtag(self, tag):
        if tag in ("td", "th"):
            self.rows[-1].append(self.cell)
            self.cell = None

    def handle_data(self, data):
        if self.cell is not None:
            self.cell += data


def check_html(folder, wanted):
    cells = Cells()
    with open(folder / "table.html", encoding="utf-8", newline="") as file:
        cells.feed(file.read())
    expect(cells.rows[0] == HEADINGS, f"html: heading {cells.rows[0]}")
    same("html", cells.rows[1:], wanted)


def check_workbook(folder, wanted):
    import openpyxl  # pylint: disable=import-outside-toplevel

    def fitting(text):
        return text if len(text.encode("utf-16-le")) <= 2 * 32767 else text[:32766] + "\u2026"

    def read(sheet):
        return [[cell.value for cell in row] for row in sheet.iter_rows(max_col=4)]

    def as_read(text):
        # Readers take any line end of XML for a line feed, and this one leaves the numbers of characters as they are.
        return openpyxl.utils.escape.unescape(text).replace("\r\n", "\n").replace("\r", "\n")

    def as_written(text):
        return fitting(text).replace("\r\n", "\n").replace("\r", "\n")

    book = openpyxl.load_workbook(folder / "table.xlsx")
    expect(book.sheetnames == ["Phrases", "About"], f"xlsx: sheets {book.sheetnames}")
    sheet = book["Phrases"]
    rows = read(sheet)
    expect(rows[0] == HEADINGS, f"xlsx: heading {rows[0]}")
    for row in rows[1:]:
        row[1], row[3] = as_read(row[1]), as_read(row[3])
    same("xlsx", rows[1:], wanted, as_written)
    for row in sheet.iter_rows(min_row=2):
        expect([cell.data_type for cell in row][1] == "s", f"xlsx: {row[1].value!r:.40} is no text")
        expect(row[0].number_format == "0", f"xlsx: ranks as {row[0].number_format}")
        expect(row[2].value is None or row[2].number_format == "0.00", f"xlsx: reals as {row[2].number_format}")
    expect(sheet.freeze_panes == "A2", f"xlsx: frozen at {sheet.freeze_panes}")
    expect(sheet.auto_filter.ref == f"A1:D{len(wanted) + 1}", f"xlsx: filter of {sheet.auto_filter.ref}")
    about = read(book["About"])
    expect(["Source", "/t", None, None] in about, "xlsx: the source is not told")
    expect(any(row[1] == "mi" and row[3] for row in about), "xlsx: the formula is not told")

    many = openpyxl.load_workbook(folder / "sheets.xlsx")
    count = -(-len(wanted) // 4)
    names = ["Phrases"] + [f"Phrases {k}" for k in range(2, count + 1)] + ["About"]
    expect(many.sheetnames == names, f"sheets: {many.sheetnames}")
    parts = [read(many[name]) for name in names[:-1]]
    expect(all(part[0] == HEADINGS and len(part) <= 5 for part in parts), "sheets: a heading, or too many rows")
    ranks = [row[0] for part in parts for row in part[1:]]
    expect(ranks == list(range(1, len(wanted) + 1)), "sheets: rows are lost")


def main():
    program, cells = sys.argv[1:3]
    workbook = "--workbook" in sys.argv
    if workbook:
        try:
            import openpyxl  # pylint: disable=import-outside-toplevel,unused-import
        except ImportError:
            # The system's own Python has the libraries of its packages.
            system = "/usr/bin/python3"
            if os.path.realpath(sys.executable) != os.path.realpath(system) and os.access(system, os.X_OK):
                os.execv(system, [system, *sys.argv])
            print("SKIPPED: openpyxl is not installed, so that no other program reads the workbooks")
            sys.exit(SKIPPED)
    wanted = expected(cells)
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        subprocess.run([program, cells, name], check=True)
        if workbook:
            check_workbook(folder, wanted)
        else:
            for check in (check_csv, check_tsv, check_json, check_sqlite, check_html):
                check(folder, wanted)
    for fault in faults[:40]:
        print("FAULT:", fault)
    print(f"{len(wanted)} rows read back, {len(faults)} faults")
    sys.exit(1 if faults else 0)


main()
