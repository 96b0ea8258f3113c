"""Checks that a shared library shows exactly the symbols of a list.

    exported-symbols.py NM LIBRARY LIST
"""
import subprocess
import sys


def wanted_names(path):
    with open(path, encoding="utf8") as lines:
        return {line.strip() for line in lines if line.strip() and not line.startswith("#")}


def shown_names(nm, library):
    """The demangled names of the dynamic symbol table's definitions."""
    listed = subprocess.run([nm, "-D", "--defined-only", "-C", library], capture_output=True, text=True, check=True)
    return {line.split(" ", 2)[2] for line in listed.stdout.splitlines()}


def main(nm, library, path):
    wanted, shown = wanted_names(path), shown_names(nm, library)
    for name in sorted(shown - wanted):
        print("shown, but not in the list:", name)
    for name in sorted(wanted - shown):
        print("in the list, but not shown:", name)
    print(f"{len(shown)} names shown, {len(wanted)} in the list")
    return 0 if shown == wanted else 1


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
