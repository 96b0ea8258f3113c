#!/usr/bin/env python3
"""Which lines and branches of src/ and runtime/ a build with counters has executed.

    coverage.py TREE LIST OUT.json [SECONDS]

Reads gcov's counts of the build tree, prints a table by folder, compares what is missing with the checked-in LIST and
writes the counts as a file from which gcovr makes its pages. SECONDS is the time of a whole run, whose figures are kept.
Ends with status 1 when something is missing that the list does not name, when the list names something that is
executed, or when a sum is too small.

Not gcovr itself reads the counts: it reads gcov's text form, where the branches of a function that one program never
calls lose the mark that they stand for an exception, and then count as missing.

LIST has four columns, separated by tabs: the file; "line", or the number of branches that are missing on such a line,
or "1 to 2" where threads decide it; a part of the line's code; the reason why no test executes it. A row stands for one
line of the file, or for as many as the second column says: "1, 4 times". "0 to 1" may also be missing nowhere.
"""

import collections
import concurrent.futures
import json
import os
import pathlib
import re
import subprocess
import sys

import quality

ROOT = pathlib.Path(__file__).resolve().parents[2]
FOLDERS = ("src/", "runtime/")
LEAST_BRANCHES = 98.0  # percent; of the lines all but those of the list
ONLY_BRACES = re.compile(r"[{}();,\s]*(//.*)?|(\} )?else \{")

Missing = collections.namedtuple("Missing", "file number code branches")  # branches: how many, or None for a line
# branches: a range of how many, or None for a line
Row = collections.namedtuple("Row", "number file branches times code reason")


class Line:
    """What all functions that the compiler made of a source line have executed of it."""

    def __init__(self):
        self.count = 0
        self.shapes = {}  # the counts of the branches, by their number: instances of a template may differ in it
        self.library = set()  # the shapes that the library's own objects have

    def add(self, count, branches, is_library):
        self.count += count
        if is_library:
            self.library.add(len(branches))
        if branches:
            known = self.shapes.setdefault(len(branches), [0] * len(branches))
            self.shapes[len(branches)] = [a + b for a, b in zip(known, branches)]

    def drop_instances_of_tests(self):
        """What a template is for the tests' types alone does not count beside what it is for the library's."""
        if self.library:
            self.shapes = {size: counts for size, counts in self.shapes.items() if size in self.library}

    def branches(self):
        return [count for size in sorted(self.shapes) for count in self.shapes[size]]


def is_library(tree, path):
    return "vantix_objects.dir" in str(path) or path.is_relative_to(tree / "runtime")


def count_files(tree):
    """The counts of every object file that has some, and the notes of the library's files that no program has run."""
    for notes in sorted(tree.rglob("*.gcno")):
        counts = notes.with_suffix(".gcda")
        if counts.exists():
            yield counts
        elif is_library(tree, notes):
            yield notes


def read_counts(tree, path):
    """(file, line number, count, counts of the branches) of every line of the project in one object file. Branches that
    are taken by an exception alone do not count."""
    text = subprocess.run(["gcov", "--json-format", "--stdout", "--branch-probabilities", str(path)], cwd=tree,
                          capture_output=True, text=True, check=True).stdout
    report = json.loads(text)
    found = []
    for file in report["files"]:
        name = os.path.normpath(os.path.join(report["current_working_directory"], file["file"]))
        name = os.path.relpath(name, ROOT)
        if name.startswith(FOLDERS):
            found += [(name, line["line_number"], line["count"],
                       [branch["count"] for branch in line["branches"] if not branch["throw"]]) for line in file["lines"]]
    return found


def collect(tree):
    """The lines of each file: {file: {number: Line}}."""
    files = collections.defaultdict(lambda: collections.defaultdict(Line))
    paths = list(count_files(tree))
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for path, found in zip(paths, pool.map(lambda path: read_counts(tree, path), paths)):
            for name, number, count, branches in found:
                files[name][number].add(count, branches, is_library(tree, path))
    for lines in files.values():
        for line in lines.values():
            line.drop_instances_of_tests()
    return files


def without_braces(files, texts):
    """What a line without code of ours does, such as a closing brace, is the compiler's own: destructors, and those of
    exceptions. As with gcovr, its branches do not count, nor does the line when it is not executed."""
    for name, lines in files.items():
        bare = [number for number in lines if ONLY_BRACES.fullmatch(texts[name][number - 1].strip())]
        for number in bare:
            lines[number].shapes = {}
            if lines[number].count == 0:
                del lines[number]


def missing_in(files, texts):
    for name in sorted(files):
        for number, line in sorted(files[name].items()):
            code = texts[name][number - 1].strip()
            if line.count == 0:
                yield Missing(name, number, code, None)
            elif 0 in line.branches():
                yield Missing(name, number, code, line.branches().count(0))


def read_list(path):
    rows = []
    for number, text in enumerate(path.read_text().splitlines(), 1):
        if text and not text.startswith("#"):
            file, what, code, reason = text.split("\t")
            least, most, times = re.fullmatch(r"(line|\d+)(?: to (\d+))?(?:, (\d+) times)?", what).groups()
            branches = None if least == "line" else range(int(least), int(most or least) + 1)
            rows.append(Row(number, file, branches, int(times or 1), code, reason))
    return rows


def allows(row, item):
    """Whether as much of the line is missing as the row says."""
    return item.branches is None if row.branches is None else item.branches in row.branches


def match(missing, rows):
    """What the list names: {item: its row}. A row with a longer code is taken first."""
    free = [row for row in sorted(rows, key=lambda row: -len(row.code)) for _ in range(row.times)]
    found = {}
    for item in missing:
        for row in free:
            if row.file == item.file and allows(row, item) and row.code in item.code:
                found[item] = row
                free.remove(row)
                break
    return found


def compare(missing, rows, matched):
    """What is missing and not listed, and what is listed and not missing, as sentences."""
    for item in missing:
        if item not in matched:
            what = "the line" if item.branches is None else f"{item.branches} branches"
            yield f"{item.file}:{item.number}: not executed: {what} | {item.code}"
    used = collections.Counter(row.number for row in matched.values())
    for row in rows:
        may_be_none = row.branches is not None and 0 in row.branches
        if used[row.number] < row.times and not may_be_none:
            yield (f"line {row.number} of the list: {used[row.number]} such lines are missing in {row.file}, not "
                   f"{row.times} | {row.code}")


def folder_of(name):
    return "/".join(name.split("/")[:2])


def sums(files, matched):
    """For each folder and for all: lines, those executed, those listed, branches, those taken."""
    table = collections.defaultdict(lambda: [0, 0, 0, 0, 0])
    listed = {(item.file, item.number) for item in matched if item.branches is None}
    for name, lines in files.items():
        for number, line in lines.items():
            branches = line.branches()
            for folder in (folder_of(name), "all"):
                row = table[folder]
                row[0] += 1
                row[1] += line.count > 0
                row[2] += (name, number) in listed
                row[3] += len(branches)
                row[4] += sum(count > 0 for count in branches)
    return table


def percent(part, whole):
    return 100.0 if whole == 0 else 100.0 * part / whole


def table_lines(table):
    yield f"{'folder':<20}{'lines':>8}{'executed':>10}{'%':>8}{'branches':>10}{'taken':>8}{'%':>8}"
    for folder in sorted(name for name in table if name != "all") + ["all"]:
        lines, executed, _, branches, taken = table[folder]
        yield (f"{folder:<20}{lines:>8}{executed:>10}{percent(executed, lines):>8.2f}{branches:>10}{taken:>8}"
               f"{percent(taken, branches):>8.2f}")


def page_data(files):
    """The counts in the form that gcovr adds up."""
    def entry(number, line):
        return {"line_number": number, "count": line.count, "gcovr/noncode": False, "gcovr/excluded": False,
                "branches": [{"count": c, "fallthrough": False, "throw": False} for c in line.branches()]}
    return {"gcovr/format_version": "0.3",
            "files": [{"file": name, "functions": [], "lines": [entry(n, line) for n, line in sorted(lines.items())]}
                      for name, lines in sorted(files.items())]}


def keep_figures(seconds, table, rows, faults):
    """Keeps the figures for the page on quality."""
    lines, executed, listed, branches, taken = table["all"]
    figures = [(folder, f"{percent(row[1], row[0]):.2f} % of {row[0]} lines, {percent(row[4], row[3]):.2f} % of "
                        f"{row[3]} branches") for folder, row in sorted(table.items()) if folder != "all"]
    figures.append(("all", f"{executed} of {lines} lines, {taken} of {branches} branches "
                           f"({percent(taken, branches):.2f} %)"))
    figures.append(("not executed, with its reason", f"{listed} lines, {branches - taken} branches in {len(rows)} rows"))
    quality.record("coverage", "Executed lines and branches of src/ and runtime/", "scripts/coverage",
                   seconds, figures, f"{len(faults)} differences from the list" if faults else "nothing")


def main(tree, list_file, out, seconds=None):
    tree = pathlib.Path(tree).resolve()
    files = collect(tree)
    texts = {name: (ROOT / name).read_text().splitlines() for name in files}
    without_braces(files, texts)
    rows = read_list(pathlib.Path(list_file))
    missing = list(missing_in(files, texts))
    pathlib.Path(out).write_text(json.dumps(page_data(files)))

    matched = match(missing, rows)
    table = sums(files, matched)
    print("\n".join(table_lines(table)))
    lines, executed, listed, branches, taken = table["all"]
    faults = list(compare(missing, rows, matched))
    if executed + listed < lines:
        faults.append(f"{lines - executed - listed} lines are neither executed nor listed")
    if percent(taken, branches) < LEAST_BRANCHES:
        faults.append(f"{percent(taken, branches):.2f} % of the branches are taken, less than {LEAST_BRANCHES} %")
    if seconds is not None:
        keep_figures(seconds, table, rows, faults)
    print("\n".join(faults) if faults else f"what is missing is what the list names: {len(rows)} rows")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
