"""Checks that tests call every slot of the interface: against the loopback cloud, and with hostile arguments.

    exercised-slots.py SLOTS INTERFACE_HEADER CALL_TABLE FOLDER...   each folder must call all of them
    exercised-slots.py --self-test                                   proves that a slot that nobody calls is found

A call is a name behind a dot or an arrow; a file that goes through `Operations()` calls every row of the call table.
A member that is an overload counts for the slots that it forwards to.
"""
import pathlib
import re
import sys

CALL = re.compile(r"(?:\.|->)\s*(\w+)\(")
TABLE_ROW = re.compile(r"^ +(?:CODED|PLAIN|LIVE|ROW)\((\d+), (\w+)\b", re.M)
WHOLE_TABLE = re.compile(r"(?::|ValuesIn\()\s*Operations\(\)")
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


def table_rows(source):
    """The call table as lines of the list of slots."""
    return [f"{slot} {name}" for slot, name in TABLE_ROW.findall(COMMENT.sub("", source))]


def called(source, table):
    code = COMMENT.sub("", source)
    names = set(CALL.findall(code))
    if WHOLE_TABLE.search(code):
        names |= {row.split()[1] for row in table}
    if any(destroyer in code for destroyer in DESTROYERS):
        names.add(DESTRUCTOR)
    return names


def missing(slots, meant, table, sources):
    names = set().union(*[called(source, table) for source in sources])
    # An overload stands for its slots only when it has one: else the source does not say which was meant.
    names |= {slot for member in names for slot in meant.get(member, ()) if len(meant[member]) == 1}
    return [slot for slot in slots if slot not in names]


def self_test():
    header = "    int getTwo(int a) {\n        return getTwoByNumber(a);\n    }\n    int getMany(int a) { return getA(a); }\n" \
             "    int getMany(\n        char a) { return getB(a); }\n"
    meant = overloads(header)
    rows = [
        ("called by its name", ["x"], "center.x(1);", []),
        ("called through a pointer", ["x"], "handle->x(1);", []),
        ("every row of the table", ["x", "y"], "for (const Operation& one : Operations()) {}", []),
        ("the table is only spoken of", ["x"], "// for (auto& one : Operations())\n", ["x"]),
        ("no row of the table", ["z"], "for (const Operation& one : Operations()) {}", ["z"]),
        ("only spoken of", ["x"], "// center.x(1);\n", ["x"]),
        ("defined, not called", ["x"], "int x(int);", ["x"]),
        ("an overload of one slot", ["getTwoByNumber"], "d.getTwo(1);", []),
        ("an overload of several slots", ["getA", "getB"], "d.getMany(1);", ["getA", "getB"]),
        ("the destructor", [DESTRUCTOR], "DestroyVantixDataCenterInstance(handle);", []),
    ]
    table = table_rows("    CODED(1, x, a.serial),\n    PLAIN(2, y),\n#define CODED(slot, z, ...)\n")
    wrong = [title for title, slots, source, expected in rows if missing(slots, meant, table, [source]) != expected]
    rows.append(("the rows of the table", [], "", []))
    if table != ["1 x", "2 y"]:
        wrong.append(rows[-1][0])
    for title in wrong:
        print(f"FAIL {title}")
    print(f"{len(rows) - len(wrong)} of {len(rows)} as expected")
    return 1 if wrong else 0


def main(arguments):
    if arguments == ["--self-test"]:
        return self_test()
    slots = wanted_slots(pathlib.Path(arguments[0]).read_text(encoding="utf8"))
    meant = overloads(pathlib.Path(arguments[1]).read_text(encoding="utf8"))
    table = table_rows(pathlib.Path(arguments[2]).read_text(encoding="utf8"))
    bad = 0
    for folder in map(pathlib.Path, arguments[3:]):
        sources = [path.read_text(encoding="utf8") for path in sorted(folder.rglob("*")) if path.suffix in (".cpp", ".h")]
        idle = missing(slots, meant, table, sources)
        bad += len(idle)
        print(f"{folder.name}: {len(slots) - len(idle)} of {len(slots)} slots are called")
        for slot in idle:
            print(f"  nobody calls {slot}")
    return 1 if bad or not slots else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
