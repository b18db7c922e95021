#!/usr/bin/env python3
"""Exchanges delimited text with Python's csv module and with SQLite, in both directions.

delimited.py PREFIX: every text passes through the control as text -> the grid's own file -> text, so that the
file is checked on the way.
"""
import csv
import io
import os
import subprocess
import sys
import tempfile

COMMA, TAB, BINARY = 3, 4, 0

LATIN = [
    ["id", "name", "note", "last"],
    ["1", "plain", "two words", ""],
    ["2", "a,b", 'say "hi"', ""],
    ["3", '"', '""', '"quoted"'],
    ["4", "tab\there", "line\nbreak", "x"],
    ["5", "", "", ""],
    ["6", " lead", "trail ", "  "],
    ["7", "caf\u00e9 \u00ff", "'single'", ",,"],
    ["8", '","', '"\n"', "a;b|c"],
    ["9", "-12.50", "1e5", "0"],
]
WIDE = LATIN + [["10", "\u20ac \u4e2d\u6587", "\u0416", "\U0001f600"]]

failures = 0


def check(what, actual, expected):
    global failures
    if actual != expected:
        failures += 1
        print(f"FAIL {what}:\n  got      {actual!r}\n  expected {expected!r}")


def write(path, text, encoding):
    with open(path, "w", encoding=encoding, newline="") as file:
        file.write(text)


def read(path, encoding):
    with open(path, encoding=encoding, newline="") as file:
        return file.read()


def python_text(rows, delimiter, line_end, quoting=csv.QUOTE_MINIMAL):
    text = io.StringIO()
    csv.writer(text, delimiter=delimiter, lineterminator=line_end, quoting=quoting).writerows(rows)
    return text.getvalue()


def python_rows(text, delimiter):
    # Inside quotes a text file has the line ends of the platform, which the reader of a text file takes for one LF.
    return [[field.replace("\r\n", "\n") for field in row]
            for row in csv.reader(io.StringIO(text, newline=""), delimiter=delimiter)]


def sqlite(*commands):
    return subprocess.run(["sqlite3", ":memory:", *commands], check=True, capture_output=True).stdout


def sqlite_rows(path, mode):
    out = sqlite(f".mode {mode}", f".import {path} t", ".headers on", ".mode ascii", "select * from t;")
    rows = out.decode("utf-8").split("\x1e")
    return [[field.replace("\r\n", "\n") for field in row.split("\x1f")] for row in rows if row]


class Converter:
    """Collects conversions and runs them in one program."""

    def __init__(self, command):
        self.command = command
        self.arguments = []

    def add(self, kind, source, options, to_kind, target, to_options):
        own = target + ".lv"
        for step in ((kind, source, options, BINARY, own, "-"), (BINARY, own, "-", to_kind, target, to_options)):
            self.arguments += [name(argument) for argument in step]

    def add_direct(self, *step):
        self.arguments += [name(argument) for argument in step]

    def run(self):
        check("conversions", subprocess.run(self.command + self.arguments).returncode, 0)


def name(argument):
    text = str(argument)
    return "Z:" + text if text.startswith("/") else text


def main():
    prefix = sys.argv[1]
    root = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
    wine_run, convert = os.path.join(root, "tools/wine-run"), os.path.join(root, "build/bin/files_convert.exe")
    folder = tempfile.mkdtemp(prefix="files_cross.")
    path = lambda file: os.path.join(folder, file)
    converter = Converter([wine_run, "--prefix", prefix, convert])
    delimiters = {COMMA: ",", TAB: "\t"}
    cases = []

    # Theirs, byte by byte, with every line end and way of quoting
    for kind, delimiter in delimiters.items():
        for line_end in ("\r\n", "\n", "\r"):
            for quoting in (csv.QUOTE_MINIMAL, csv.QUOTE_ALL):
                if line_end == "\r" and quoting == csv.QUOTE_MINIMAL:
                    continue  # with line ends of CR the writer leaves LF unquoted
                file = f"python.{kind}.{len(cases)}"
                write(path(file), python_text(LATIN, delimiter, line_end, quoting), "latin-1")
                converter.add(kind, path(file), "F", kind, path(file + ".ours"), "F")
                cases.append((file + ".ours", kind, "latin-1", LATIN))
    # UTF-16, which no file of narrow texts can carry: straight through
    for kind, delimiter in delimiters.items():
        file = f"python.{kind}.utf16"
        write(path(file), "\ufeff" + python_text(WIDE, delimiter, "\r\n"), "utf-16-le")
        converter.add_direct(kind, path(file), "F", kind, path(file + ".ours"), "FU")
        cases.append((file + ".ours", kind, "utf-16", WIDE))
    # SQLite's
    write(path("source"), python_text(LATIN, ",", "\n"), "utf-8")
    for kind, mode in ((COMMA, "csv"), (TAB, "tabs")):
        rows = LATIN if kind == COMMA else [row for row in LATIN if not any(c in "".join(row) for c in '\t\n"')]
        if kind == TAB:
            write(path("source"), python_text(rows, ",", "\n"), "utf-8")
        text = sqlite(".mode csv", f".import {path('source')} t", ".headers on", f".mode {mode}", "select * from t;")
        file = f"sqlite.{kind}"
        write(path(file), text.decode("utf-8"), "latin-1")
        converter.add(kind, path(file), "F", kind, path(file + ".ours"), "F")
        cases.append((file + ".ours", kind, "latin-1", rows))
    converter.run()

    for file, kind, encoding, rows in cases:
        text = read(path(file), encoding)
        check(f"{file} read by Python", python_rows(text, delimiters[kind]), rows)
        check(f"{file} has no line end behind its last row", text.endswith("\n"), False)
        if encoding == "latin-1" and kind == COMMA:
            write(path("utf8"), text, "utf-8")
            check(f"{file} read by SQLite", sqlite_rows(path("utf8"), "csv"), rows)
    print(f"{len(cases)} texts exchanged, {failures} failures")
    subprocess.run(["rm", "-rf", folder], check=True)
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
