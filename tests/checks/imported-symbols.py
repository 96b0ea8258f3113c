"""Checks that a shared library imports nothing that a list rules out.

    imported-symbols.py NM LIBRARY LIST
"""
import re
import subprocess
import sys


def rules(path):
    """The allowed names of each prefix, and the names that are ruled out."""
    allowed, never = {}, set()
    with open(path, encoding="utf8") as lines:
        for line in lines:
            if match := re.fullmatch(r"only (\S+): (.*)\n", line):
                allowed.setdefault(match[1], set()).update(match[2].split())
            elif match := re.fullmatch(r"never: (.*)\n", line):
                never.update(match[1].split())
            elif line.strip() and not line.startswith("#"):
                sys.exit(f"{path}: no rule: {line}")
    return allowed, never


def imported_names(nm, library):
    """The demangled names that the library takes from elsewhere, without arguments."""
    listed = subprocess.run([nm, "-D", "--undefined-only", "-C", library], capture_output=True, text=True, check=True)
    names = set()
    for line in listed.stdout.splitlines():
        name = re.sub(r"^(vtable|VTT|typeinfo) for ", "", line.strip().split(" ", 1)[1])
        name = re.split(r"[@(<]", name)[0]
        names.add(name)
    return names


def main(nm, library, path):
    allowed, never = rules(path)
    imported = imported_names(nm, library)
    wrong = sorted(imported & never)
    for prefix, names in allowed.items():
        wrong += sorted(name for name in imported if name.startswith(prefix) and name not in names)
    for name in wrong:
        print("imported, but ruled out:", name)
    if "curl_easy_perform" not in imported:
        sys.exit(f"{library} imports no transfer: is it the library?")
    print(f"{len(imported)} names imported, {len(wrong)} of them ruled out")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
