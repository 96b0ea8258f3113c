"""Compares the order of an interface's virtual functions with a plain list of slots.

    slots.py library NM READELF LIBRARY SLOTS     the handle's table, read from the built shared library
    slots.py msvc CLANG SOURCE INCLUDE... SLOTS   the interface's table under the other C++ ABI, from the header

The first needs the library's symbol table (not stripped). Its ABI gives the virtual destructor two entries, the other
one gives it one.
"""
import re
import subprocess
import sys

TABLE_SYMBOL = "_ZTVN6vantix24CVantixDataCenterWrapperE"
POINTER_SIZE = 8
ENTRIES_BEFORE_FUNCTIONS = 2  # offset to top, type information


def output_of(*command):
    run = subprocess.run(command, capture_output=True, text=True)
    if run.returncode != 0:
        sys.exit(f"{command[0]} failed:\n{run.stderr}")
    return run.stdout


def wanted_slots(path):
    slots = []
    with open(path, encoding="utf8") as lines:
        for line in lines:
            if line.strip() and not line.startswith("#"):
                number, name = line.split()
                assert int(number) == len(slots), f"slot {number} is not the next one"
                slots.append(name)
    return slots


def method_name(demangled):
    """The bare name of "namespace::Class::method[abi:tag](arguments) qualifiers"."""
    return re.split(r"[(\[]", demangled, maxsplit=1)[0].rsplit("::", 1)[-1]


def names_by_address(nm, library):
    """All function names at an address: the compiler may give equal bodies one address."""
    names = {}
    for line in output_of(nm, "-C", "--defined-only", library).splitlines():
        address, kind, name = line.split(" ", 2)
        if kind in "tTwW" and "[clone" not in name:
            names.setdefault(int(address, 16), set()).add(method_name(name))
    return names


def table_range(readelf, library):
    for line in output_of(readelf, "-sW", library).splitlines():
        fields = line.split()
        if len(fields) == 8 and fields[7] == TABLE_SYMBOL:
            begin = int(fields[1], 16)
            return begin, begin + int(fields[2], 0)
    sys.exit(f"{library} has no symbol {TABLE_SYMBOL}: is it stripped?")


def library_table(nm, readelf, library):
    """The names in the handle's table, by its relocations: each entry is a set of names."""
    begin, end = table_range(readelf, library)
    names = names_by_address(nm, library)
    entries = {}
    for line in output_of(readelf, "-rW", library).splitlines():
        match = re.match(r"([0-9a-f]+)\s+[0-9a-f]+\s+R_\w+_RELATIVE\s+([0-9a-f]+)$", line.strip())
        if match and begin <= int(match[1], 16) < end:
            entries[(int(match[1], 16) - begin) // POINTER_SIZE] = names.get(int(match[2], 16), {"nothing known"})
    count = (end - begin) // POINTER_SIZE
    return [entries.get(i, {"no relocation"}) for i in range(ENTRIES_BEFORE_FUNCTIONS, count)]


def expected_library_table(slots):
    own_destructor = "~CVantixDataCenterWrapper"
    return [own_destructor, own_destructor, *slots[1:]]


def msvc_table(clang, source, includes):
    """The names in the interface's table as a compiler of the other family lays it out."""
    listed = output_of(clang, "--target=x86_64-pc-windows-msvc", "-std=c++17", "-nostdinc",
                       *[f"-I{include}" for include in includes], "-emit-llvm", "-S", "-o", "-",
                       "-Xclang", "-fdump-vtable-layouts", source)
    layout = re.search(r"^VFTable indices for 'vantix::IVantixDataCenter' \((\d+) entries\)\.\n((?: .*\n)+)", listed, re.M)
    if not layout:
        sys.exit("the compiler lists no table of the interface:\n" + listed[:2000])
    names = re.findall(r"^ *\d+ \| .*?(~?\w+)\(.*$", layout[2], re.M)
    if len(names) != int(layout[1]):
        sys.exit("not every entry of the compiler's listing was understood:\n" + layout[2])
    return [{name} for name in names]


def compare(table, expected):
    wrong = 0
    for i in range(max(len(table), len(expected))):
        found = table[i] if i < len(table) else {"nothing"}
        name = expected[i] if i < len(expected) else "nothing"
        if name not in found:
            wrong += 1
            print(f"entry {i}: {' or '.join(sorted(found))} stands where {name} belongs")
    print(f"{len(table)} entries, {wrong} of them wrong")
    return 1 if wrong else 0


def main(kind, *arguments):
    slots = wanted_slots(arguments[-1])
    if kind == "library":
        nm, readelf, library = arguments[:-1]
        return compare(library_table(nm, readelf, library), expected_library_table(slots))
    clang, source, *includes = arguments[:-1]
    return compare(msvc_table(clang, source, includes), slots)


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
