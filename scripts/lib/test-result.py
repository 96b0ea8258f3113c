#!/usr/bin/env python3
"""Keeps what CTest found as a result for the page on quality.

    test-result.py PRESET NAME TITLE COMMAND      after a run that wrote build/PRESET/tests.xml
"""

import re
import sys
import xml.etree.ElementTree

import quality


def main(preset, name, title, command):
    suite = xml.etree.ElementTree.parse(quality.ROOT / "build" / preset / "tests.xml").getroot()
    # A program that runs as one test says at its end, which CTest keeps of a long output, how many cases it had.
    cases = sum(int(count) for output in suite.iter("system-out")
                for count in re.findall(r"^\[==========\] (\d+) tests? from .* ran\.", output.text or "", re.MULTILINE))
    failures = sum(case.get("status") not in ("run", "disabled") for case in suite.iter("testcase"))
    rows = [("tests of CTest", f"{int(suite.get('tests')):,}"), ("cases of GoogleTest", f"{cases:,}"),
            ("skipped", int(suite.get("skipped", 0)) + int(suite.get("disabled", 0)))]
    quality.record(name, title, command, float(suite.get("time")), rows,
                   "nothing" if failures == 0 else f"{failures} tests failed")
    return 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
