"""Checks the tables of the built Windows libraries.

    windows-tables.py OBJDUMP DATACENTER.DLL TVLLOG.DLL LIST VERSION

The data center shows exactly the names of LIST; of tvllog.dll it imports ordinal 26 and nothing else, of other DLLs
only those that every Windows has; it has VERSION as a resource.
"""
import re
import subprocess
import sys

# Nothing of the compiler or of a package may be needed beside the library.
SYSTEM_DLLS = {"advapi32.dll", "bcrypt.dll", "crypt32.dll", "iphlpapi.dll", "kernel32.dll", "msvcrt.dll", "ws2_32.dll"}
LOG_DLL = "tvllog.dll"
LOG_ORDINAL = 26
ONLY_ELSEWHERE = "typeinfo name for "  # MinGW keeps these names to the module


def tables(objdump, path):
    return subprocess.run([objdump, "-p", path], capture_output=True, text=True, check=True).stdout


def exported(text):
    """The names of the export table."""
    part = text.split("[Ordinal/Name Pointer] Table", 1)[1].split("\n\n", 1)[0]
    return re.findall(r"^\s*\[\s*\d+\](?: \+base\[\s*\d+\])?\s+(?:[0-9a-f]{4,}\s+)?(\S+)$", part, re.M)


def imported(text):
    """By DLL (lower case): what is imported, numbers for ordinals and else names."""
    found = {}
    for name, rows in re.findall(r"DLL Name: (\S+)\n.*?Bound-To\n(.*?)\n\n", text, re.S):
        # address, hint or ordinal, and a name; an import without a name is one by ordinal
        columns = [row.split() for row in rows.splitlines() if row.strip()]
        found[name.lower()] = [int(row[1], 16) if row[2] == "<none>" else row[2] for row in columns]
    return found


def demangled(names):
    return set(subprocess.run(["c++filt"], input="\n".join(names), capture_output=True, text=True,
                              check=True).stdout.split("\n")) - {""}


def wanted_names(path):
    with open(path, encoding="utf8") as lines:
        names = {line.strip() for line in lines if line.strip() and not line.startswith("#")}
    return {name for name in names if not name.startswith(ONLY_ELSEWHERE)}


def differences(text, shown, wanted, version, content):
    for name in sorted(shown - wanted):
        yield f"exported, but not in the list: {name}"
    for name in sorted(wanted - shown):
        yield f"in the list, but not exported: {name}"
    imports = imported(text)
    for name in sorted(imports.keys() - SYSTEM_DLLS - {LOG_DLL}):
        yield f"imports {name}, which is not part of every Windows"
    if imports.get(LOG_DLL) != [LOG_ORDINAL]:
        yield f"imports {imports.get(LOG_DLL)} of {LOG_DLL}, not ordinal {LOG_ORDINAL} alone"
    for word in ("FileVersion", version):
        if word.encode("utf-16-le") not in content:
            yield f"has no version resource with '{word}'"


def main(objdump, library, log_library, path, version):
    text = tables(objdump, library)
    with open(library, "rb") as file:
        content = file.read()
    shown = demangled(exported(text))
    found = list(differences(text, shown, wanted_names(path), version, content))
    ordinals = re.findall(r"\[\s*\d+\] \+base\[\s*(\d+)\]", tables(objdump, log_library))
    if str(LOG_ORDINAL) not in ordinals:
        found.append(f"{LOG_DLL} exports no ordinal {LOG_ORDINAL}")
    for line in found:
        print(line)
    print(f"{len(shown)} names exported; imports of", *sorted(imported(text)))
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
