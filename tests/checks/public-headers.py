"""Checks that each header compiles on its own as C++17, with warnings as errors.

    public-headers.py COMPILER INCLUDE_FOLDER... -- HEADER...
"""
import subprocess
import sys

WARNINGS = ["-Wall", "-Wextra", "-Wpedantic", "-Wshadow", "-Wconversion", "-Wsign-conversion", "-Wold-style-cast",
            "-Wnon-virtual-dtor", "-Woverloaded-virtual", "-Wextra-semi", "-Wundef", "-Werror"]


def complaint(compiler, folders, header):
    """What the compiler has against a unit that includes nothing but the header, twice."""
    command = [compiler, "-std=c++17", "-fsyntax-only", *WARNINGS, *[f"-I{folder}" for folder in folders], "-x", "c++", "-"]
    run = subprocess.run(command, input=f'#include "{header}"\n' * 2, capture_output=True, text=True)
    return run.stderr if run.returncode != 0 else ""


def main(compiler, *arguments):
    split = arguments.index("--")
    folders, headers = arguments[:split], arguments[split + 1:]
    bad = 0
    for header in headers:
        text = complaint(compiler, folders, header)
        if text:
            bad += 1
            print(f"{header}:\n{text}")
    print(f"{len(headers)} headers, {bad} with complaints")
    return 1 if bad or not headers else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
