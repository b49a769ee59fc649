#!/usr/bin/env python3
"""Describes a table of every form as another program would read it:

    check_descriptions.py KORV-COUNT TEXT
"""
import csv
import hashlib
import json
import pathlib
import subprocess
import sys
import tempfile

PROGRAM, TEXT = sys.argv[1:]
# Those that go to a file alone are described there.
FORMS = subprocess.run([PROGRAM, "--help"], check=True, capture_output=True, text=True).stdout
FORMS = next(line.split()[1] for line in FORMS.splitlines() if line.strip().startswith("--output-format")).split("|")
MEDIA_TYPES = {
    "tsv": "text/tab-separated-values", "csv": "text/csv", "json": "application/json",
    "ndjson": "application/x-ndjson", "html": "text/html", "md": "text/markdown",
    "xlsx": "application/vnd.openxmlformats-officedocument.spreadsheetml.sheet", "sqlite": "application/vnd.sqlite3",
}
TYPES = {"string": str, "integer": int, "number": float}


def described(folder, form, *options):
    """A table and its description."""
    table = folder / f"Big cats.{form}"
    subprocess.run([PROGRAM, TEXT, "--words", "2-3", "--quiet", "--describe", "--force", "-o", table, *options],
                   check=True)
    package = json.loads((folder / "datapackage.json").read_text(encoding="utf-8"))
    return table, package


def check_bytes(table, resource):
    content = table.read_bytes()
    assert resource["path"] == table.name, resource["path"]
    assert resource["bytes"] == len(content), (resource["bytes"], len(content))
    assert resource["hash"] == "sha256:" + hashlib.sha256(content).hexdigest(), resource["hash"]


def check_cells(table, package):
    """What the description says is enough to read every cell."""
    resource = package["resources"][0]
    dialect = resource["dialect"]
    quoting = csv.QUOTE_MINIMAL if "quoteChar" in dialect else csv.QUOTE_NONE
    with open(table, encoding=resource["encoding"], newline="") as file:
        text = file.read()
    assert text.count(dialect["lineTerminator"]) == text.count("\n"), table
    rows = list(csv.reader(text.split(dialect["lineTerminator"])[:-1], delimiter=dialect["delimiter"], quoting=quoting))
    fields = resource["schema"]["fields"]
    assert rows[0] == [field["name"] for field in fields], rows[0]
    assert len(rows) - 1 == package["korv"]["counts"]["listed"] > 100, len(rows)
    for row in rows[1:]:
        for cell, field in zip(row, fields, strict=True):
            if cell:
                TYPES[field["type"]](cell)
    key = [field["name"] for field in fields].index(resource["schema"]["primaryKey"])
    assert len({row[key] for row in rows}) == len(rows), "the key is no key"
    return sum(int(row[rows[0].index("frequency")]) for row in rows[1:])


def main():
    forms = [form for form in FORMS if form != "text"]
    assert set(forms) <= set(MEDIA_TYPES), forms
    with tempfile.TemporaryDirectory() as name:
        for form in forms:
            folder = pathlib.Path(name) / form
            folder.mkdir()
            table, package = described(folder, form)
            assert set(package) == {"name", "created", "resources", "korv"}, set(package)
            assert package["name"] == "big-cats", package["name"]
            resource, = package["resources"]
            assert resource["format"] == form and resource["mediatype"] == MEDIA_TYPES[form], resource
            check_bytes(table, resource)
            for field in resource["schema"]["fields"]:
                assert set(field) == {"name", "type", "title", "description"}, field
            korv = package["korv"]
            assert korv["source"]["paths"] == [TEXT] and korv["source"]["words"] > 1000, korv["source"]
            assert korv["settings"]["MinWords"] == 2 and korv["settings"]["MaxWords"] == 3, korv["settings"]
            assert "--describe" in korv["command"], korv["command"]
            if form in ("csv", "tsv"):
                assert check_cells(table, package) == korv["counts"]["occurrences"]
            # Again, and with fewer rows: the description is that of the new file.
            table, package = described(folder, form, "--top", "5")
            check_bytes(table, package["resources"][0])
            assert package["korv"]["counts"]["listed"] == 5, package["korv"]["counts"]
            assert sorted(path.name for path in folder.iterdir()) == ["Big cats." + form, "datapackage.json"]
    print(len(forms), "forms")


main()
