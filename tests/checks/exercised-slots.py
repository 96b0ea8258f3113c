"""Checks that tests call every slot of the interface: against the loopback cloud, and with hostile arguments.

    exercised-slots.py SLOTS INTERFACE_HEADER FOLDER...   each folder must call all of them
    exercised-slots.py --self-test                        proves that a slot that nobody calls is found

A call is a name behind a dot or an arrow, or a row CODED(name, ...) or PLAIN(name, ...) of a table of operations. A
member that is an overload counts for the slots that it forwards to.
"""
import pathlib
import re
import sys

CALL = re.compile(r"(?:\.|->)\s*(\w+)\(|\b(?:CODED|PLAIN)\((\w+)\b")
COMMENT = re.compile(r"//[^\n]*")
OVERLOAD = re.compile(r"^    [\w:&]+(?: [&*])? ?(\w+)\([^;{]*\)\s*{\s*return (\w+)\(", re.M)
DESTRUCTOR = "~IVantixDataCenter"
DESTROYERS = ("DestroyVantixDataCenterInstance", "NewHandle")


def wanted_slots(text):
    lines = [line.split() for line in text.splitlines() if line and not line.startswith("#")]
    return [name for _, name in lines]


def overloads(header):
    """Which slots a call of an overloaded member may mean."""
    meant = {}
    for member, slot in OVERLOAD.findall(header):
        meant.setdefault(member, set()).add(slot)
    return meant


def called(source):
    code = COMMENT.sub("", source)
    names = {one or other for one, other in CALL.findall(code)}
    if any(destroyer in code for destroyer in DESTROYERS):
        names.add(DESTRUCTOR)
    return names


def missing(slots, meant, sources):
    names = set().union(*[called(source) for source in sources])
    # An overload stands for its slots only when it has one: else the source does not tell which was meant.
    names |= {slot for member in names for slot in meant.get(member, ()) if len(meant[member]) == 1}
    return [slot for slot in slots if slot not in names]


def self_test():
    header = "    int getTwo(int a) {\n        return getTwoByNumber(a);\n    }\n    int getMany(int a) { return getA(a); }\n" \
             "    int getMany(\n        char a) { return getB(a); }\n"
    meant = overloads(header)
    rows = [
        ("called by its name", ["x"], "center.x(1);", []),
        ("called through a pointer", ["x"], "handle->x(1);", []),
        ("a row of a table", ["x", "y"], "CODED(x, a.serial), PLAIN(y)", []),
        ("only spoken of", ["x"], "// center.x(1);\n", ["x"]),
        ("defined, not called", ["x"], "int x(int);", ["x"]),
        ("an overload of one slot", ["getTwoByNumber"], "d.getTwo(1);", []),
        ("an overload of several slots", ["getA", "getB"], "d.getMany(1);", ["getA", "getB"]),
        ("the destructor", [DESTRUCTOR], "DestroyVantixDataCenterInstance(handle);", []),
    ]
    wrong = [title for title, slots, source, expected in rows if missing(slots, meant, [source]) != expected]
    for title in wrong:
        print(f"FAIL {title}")
    print(f"{len(rows) - len(wrong)} of {len(rows)} as expected")
    return 1 if wrong else 0


def main(arguments):
    if arguments == ["--self-test"]:
        return self_test()
    slots = wanted_slots(pathlib.Path(arguments[0]).read_text(encoding="utf8"))
    meant = overloads(pathlib.Path(arguments[1]).read_text(encoding="utf8"))
    bad = 0
    for folder in map(pathlib.Path, arguments[2:]):
        sources = [path.read_text(encoding="utf8") for path in sorted(folder.rglob("*")) if path.suffix in (".cpp", ".h")]
        idle = missing(slots, meant, sources)
        bad += len(idle)
        print(f"{folder.name}: {len(slots) - len(idle)} of {len(slots)} slots are called")
        for slot in idle:
            print(f"  nobody calls {slot}")
    return 1 if bad or not slots else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
