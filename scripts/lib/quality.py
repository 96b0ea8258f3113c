#!/usr/bin/env python3
"""What a run found, kept as a file that scripts/quality turns into docs/quality.md.

    quality.py NAME --title TEXT --command TEXT --seconds N [--found TEXT] [--row LABEL VALUE]...

writes build/quality/NAME.json. Other programs import record().
"""

import argparse
import datetime
import json
import os
import pathlib
import platform
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
RESULTS = ROOT / "build" / "quality"


def first_line(*command):
    """The first line that a command prints, or "" when it cannot be run."""
    try:
        output = subprocess.run(command, cwd=ROOT, capture_output=True, text=True, check=True).stdout
    except (OSError, subprocess.CalledProcessError):
        return ""
    return output.splitlines()[0].strip() if output else ""


def record(name, title, command, seconds, rows, found="nothing"):
    """Keeps one run. rows: pairs of a label and a value, in the order in which the page shows them; found: what the
    run found, in a sentence. Returns the file."""
    result = {
        "name": name,
        "title": title,
        "command": command,
        "commit": first_line("git", "rev-parse", "--short", "HEAD"),
        "date": datetime.date.today().isoformat(),
        "machine": f"{os.cpu_count()} cores, {platform.machine()}, {first_line('g++', '--version')}",
        "seconds": round(float(seconds), 1),
        "rows": [[str(label), str(value)] for label, value in rows],
        "found": found,
    }
    RESULTS.mkdir(parents=True, exist_ok=True)
    path = RESULTS / f"{name}.json"
    path.write_text(json.dumps(result, indent=2, ensure_ascii=False) + "\n")
    return path


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("name")
    parser.add_argument("--title", required=True)
    parser.add_argument("--command", required=True)
    parser.add_argument("--seconds", required=True, type=float)
    parser.add_argument("--found", default="nothing")
    parser.add_argument("--row", nargs=2, action="append", default=[], metavar=("LABEL", "VALUE"))
    arguments = parser.parse_args()
    print(record(arguments.name, arguments.title, arguments.command, arguments.seconds, arguments.row, arguments.found))
    return 0


if __name__ == "__main__":
    sys.exit(main())
