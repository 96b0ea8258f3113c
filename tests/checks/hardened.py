"""Checks that a built library is hardened: how the system loads it, and that its code checks stack and copies.

    hardened.py OBJDUMP LIBRARY
"""
import re
import subprocess
import sys

# What objdump must print for each kind of file, as patterns, and must not.
WANTED = {
    "elf": {
        "addresses are bound before the first call": r"\bFLAGS\s+0x0*([0-9a-f]*[89a-f])\b|\bBIND_NOW\b",
        "what the loader wrote is read-only afterwards": r"^\s+RELRO off",
        "the stack is not executable": r"^\s+STACK off.*\n.*flags rw-$",
    },
    "pe": {
        "64-bit addresses at random": r"\bHIGH_ENTROPY_VA\b",
        "addresses at random": r"\bDYNAMIC_BASE\b",
        "data is not executable": r"\bNX_COMPAT\b",
    },
}
# Functions that checked code of the library calls, and where its compiler puts their names.
CHECKED_CODE = {"the stack is protected": "__stack_chk_fail", "formats and copies are checked": "__vsnprintf_chk"}


def printed(*command):
    return subprocess.run(command, capture_output=True, text=True, check=True).stdout


def missing(objdump, library):
    headers = printed(objdump, "-p", library)
    kind = "pe" if "DllCharacteristics" in headers else "elf"
    for wish, pattern in WANTED[kind].items():
        if not re.search(pattern, headers, re.MULTILINE):
            yield wish
    if kind == "elf":
        if re.search(r"\bTEXTREL\b", headers):
            yield "code is never written to"
        # The small library formats nothing and has no buffers on its stack.
        if "vantixdatacenter" in library:
            imported = printed(objdump, "-T", library)
            yield from (wish for wish, name in CHECKED_CODE.items() if name not in imported)


def main(objdump, library):
    wishes = list(missing(objdump, library))
    for wish in wishes:
        print("not so:", wish)
    return 1 if wishes else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
