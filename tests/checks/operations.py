"""Compares docs/operations.tsv with the list of slots and with the interface's declarations.

    operations.py ROOT          checks the tree at ROOT
    operations.py --self-test   proves that each kind of difference is found
"""
import importlib.machinery
import importlib.util
import pathlib
import re
import sys

DECLARATION = re.compile(r"virtual\s+[^;()]*?(~?\w+)\((.*?)\)\s*(?:const\s*)?= (?:0|default);\s*// slot (\d+)", re.S)
SPELLING = re.compile(r"^    [\w:&<>* ]+? (\w+)\([^{;]*\) \{\s*return (\w+)\(", re.M)


def generator(root):
    """The program that makes the page, as a module: it knows how to read the table."""
    loader = importlib.machinery.SourceFileLoader("generate_docs", str(root / "scripts/generate-docs"))
    module = importlib.util.module_from_spec(importlib.util.spec_from_loader(loader.name, loader))
    loader.exec_module(module)
    return module


def slots_of_list(text):
    return [tuple(line.split()) for line in text.splitlines() if line.strip() and not line.startswith("#")]


def argument(declared):
    """A parameter's name, with "out" before it when the operation writes through it."""
    declared = declared.split("=")[0].strip()
    type_name, name = re.fullmatch(r"(.*[\s&*])(\w+)", declared, re.S).groups()
    written = type_name.strip()[-1] in "&*" and not type_name.startswith("const ")
    return ("out " if written else "") + name


def declarations(header):
    """Slot to (name, arguments as the table writes them)."""
    found = {}
    for name, parameters, slot in DECLARATION.findall(header):
        parts = re.split(r",(?![^<]*>)", parameters) if parameters.strip() else []
        found[slot] = (name, ", ".join(argument(part) for part in parts) or "-")
    return found


def spellings(header):
    """The overloaded name under which a host calls each slot of an overload set."""
    return {slot_name: overload for overload, slot_name in SPELLING.findall(header)}


def differences(rows, slots, header):
    declared, overloads = declarations(header), spellings(header)
    if [(row["slot"], row["name"]) for row in rows] != slots:
        yield "the table's slots are not those of tests/data/slots.txt, in their order"
    if len(declared) != len(slots):
        yield f"{len(declared)} declarations of slots were understood, not {len(slots)}"
    for row in rows:
        name, arguments = declared.get(row["slot"], ("nothing", "-"))
        if row["name"] != name:
            yield f"slot {row['slot']}: {row['name']} in the table, {name} in the interface"
        if row["arguments"] != arguments:
            yield f"slot {row['slot']}: arguments \"{row['arguments']}\" in the table, \"{arguments}\" in the interface"
        if row["spelling"] != overloads.get(row["name"], row["name"]):
            yield f"slot {row['slot']}: not spelled {row['spelling']}"


def self_test():
    header = ("    virtual ~I() = default;  // slot 0\n"
              "    virtual int getA(const std::string& s, A& a,\n        bool retried = false) = 0;  // slot 1\n"
              "    int get(const std::string& s, A& a, bool retried = false) {\n        return getA(s, a, retried);\n"
              "    }\n")
    slots = [("0", "~I"), ("1", "getA")]
    good = [{"slot": "0", "name": "~I", "spelling": "~I", "arguments": "-"},
            {"slot": "1", "name": "getA", "spelling": "get", "arguments": "s, out a, retried"}]

    def changed(**cells):
        return [good[0], {**good[1], **cells}]

    cases = [("a table as it should be", good, slots, 0), ("a slot is missing", good[:1], slots, 1),
             ("the list has another slot", good, [*slots, ("2", "getB")], 2),
             ("another argument", changed(arguments="s, out b, retried"), slots, 1),
             ("an output that is not marked", changed(arguments="s, a, retried"), slots, 1),
             ("another spelling", changed(spelling="getA"), slots, 1), ("another name", changed(name="getC"), slots, 3)]
    wrong = 0
    for title, rows, listed, expected in cases:
        found = list(differences(rows, listed, header))
        if len(found) != expected:
            wrong += 1
            print(f"FAIL {title}: {found}")
    print(f"{len(cases) - wrong} of {len(cases)} as expected")
    return 1 if wrong else 0


def main(arguments):
    if arguments == ["--self-test"]:
        return self_test()
    root = pathlib.Path(arguments[0]).resolve()
    rows = [row for _, members in generator(root).read_table() for row in members]
    found = list(differences(rows, slots_of_list((root / "tests/data/slots.txt").read_text(encoding="utf8")),
                             (root / "include/vantix/IVantixDataCenter.h").read_text(encoding="utf8")))
    for line in found:
        print(line)
    print(f"{len(rows)} operations, {len(found)} differences")
    return 1 if found else 0


if __name__ == "__main__":
    sys.dont_write_bytecode = True
    sys.exit(main(sys.argv[1:]))
