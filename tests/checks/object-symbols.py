"""Checks that the library's objects use and keep only what a list allows them.

    object-symbols.py NM OBJDUMP LIST OBJECT...
    object-symbols.py --self-test
"""
import re
import subprocess
import sys

WRITABLE = re.compile(r"\.(bss|tbss|tdata|data)(?!\.rel\.ro)|\*COM\*")
OBJECT_LINE = re.compile(r"[0-9a-f]+ (.{7}) (\S+)\t[0-9a-f]+ +(?:\.hidden )?(.*)")


class Rules:
    """The rows of a list."""

    def __init__(self, lines):
        self.uses, self.state, self.threads = [], {}, None
        for line in lines:
            line = line.rstrip("\n")
            if match := re.fullmatch(r"uses (.+):((?: \S+)*)", line):
                self.uses.append((re.compile(match[1]), match[2].split()))
            elif match := re.fullmatch(r"state (.+): (.+)", line):
                self.state[match[1]] = match[2].split()
            elif match := re.fullmatch(r"threads: (.+)", line):
                self.threads = match[1]
            elif line and not line.startswith("#"):
                sys.exit(f"no rule: {line}")

    def allowed_users(self, name):
        """Who may use a name: the objects of all rows that it matches; None when there is no such row."""
        rows = [objects for pattern, objects in self.uses if pattern.fullmatch(name)]
        return None if not rows else {item for objects in rows for item in objects}


def source_of(path):
    """The source's path below src/, without ending."""
    return re.sub(r"\.cpp\.(o|obj)$", "", re.sub(r".*\.dir/(\./)?", "", path))


def plain(name):
    """A demangled name without arguments and ABI tags."""
    return re.split(r"[@(<]", name.replace("(anonymous namespace)", ""))[0].replace("[abi:cxx11]", "")


def wrong_uses(rules, source, nm_text):
    for line in nm_text.splitlines():
        kind, _, name = line.lstrip("0123456789abcdef ").partition(" ")
        if kind == "U":
            allowed = rules.allowed_users(plain(name))
            if allowed is not None and source not in allowed:
                yield f"{source} uses {plain(name)}"
        elif "std::thread::_State_impl<" in name and rules.threads not in name:
            yield f"{source} starts a thread of its own: {name[:120]}"


def wrong_state(rules, source, objdump_text):
    for line in objdump_text.splitlines():
        match = OBJECT_LINE.fullmatch(line)
        if not match or "d" in match[1] or not WRITABLE.match(match[2]) or match[3].startswith("DW.ref."):
            continue  # no variable: a section, a table, or what the compiler needs for exceptions
        name = match[3].removeprefix("guard variable for ").replace("[abi:cxx11]", "")
        holders = rules.state.get(name, [])
        if holders != ["*"] and source not in holders:
            yield f"{source} keeps {name}"


def main(nm, objdump, path, *objects):
    with open(path, encoding="utf8") as lines:
        rules = Rules(lines)
    wrong, users = [], 0
    for item in objects:
        source = source_of(item)
        symbols = subprocess.run([nm, "-C", item], capture_output=True, text=True, check=True).stdout
        variables = subprocess.run([objdump, "-t", "-C", item], capture_output=True, text=True, check=True).stdout
        users += " U curl_easy_perform" in symbols
        wrong += [*wrong_uses(rules, source, symbols), *wrong_state(rules, source, variables)]
    for line in sorted(set(wrong)):
        print(line)
    if users == 0:
        sys.exit("no object sends a request: are these the library's?")
    print(f"{len(objects)} objects, {len(set(wrong))} violations")
    return 1 if wrong else 0


# What tool, its output for the object core/A, and a part of the one violation (None: there is none).
SELF_TEST = [
    (wrong_uses, "                 U HWP_GetMacAddr\n", "core/A uses HWP_GetMacAddr"),
    (wrong_uses, "                 U allowed_to_A\n", None),
    (wrong_uses, "                 U never\n", "core/A uses never"),
    (wrong_uses, "                 U json11::Json::Json(int)\n", "uses json11::Json::Json"),
    (wrong_uses, "0000000000000000 T HWP_GetMacAddr\n", None),
    (wrong_uses, "                 U memcpy\n", None),
    (wrong_uses, "0000000000000000 V vtable for std::thread::_State_impl<Async<f>>\n", None),
    (wrong_uses, "0000000000000000 V vtable for std::thread::_State_impl<mine>\n", "thread of its own"),
    (wrong_state, "0000000000000000 l     O .bss\t0000000000000008 n::(anonymous namespace)::mine\n", None),
    (wrong_state, "0000000000000000 l     O .bss\t0000000000000008 guard variable for n::f()::cache\n", "keeps n::f()::cache"),
    (wrong_state, "0000000000000000 u     O .data._ZN1xE\t0000000000000008 .hidden n::x\n", "keeps n::x"),
    (wrong_state, "0000000000000000 l     O .data.rel.ro.local\t0000000000000008 n::table\n", None),
    (wrong_state, "0000000000000000 l     O .rodata\t0000000000000008 n::table\n", None),
    (wrong_state, "0000000000000000 l    d  .bss\t0000000000000000 .bss\n", None),
    (wrong_state, "0000000000000000 l       .tbss\t0000000000000008 n::local\n", "keeps n::local"),
]
SELF_TEST_RULES = [
    "uses HWP_.*: requests/FeatureCode",
    "uses allowed_.*: core/A",
    "uses never:",
    "uses json11::.*: json/Json11Reader",
    "threads: Async<",
    "state n::(anonymous namespace)::mine: core/A",
]


def self_test():
    rules, failed = Rules(SELF_TEST_RULES), 0
    for judge, text, expected in SELF_TEST:
        found = list(judge(rules, "core/A", text))
        good = not found if expected is None else len(found) == 1 and expected in found[0]
        failed += not good
        print(f"{'ok  ' if good else 'FAIL'} {text.strip()}" + ("" if good else f": {found}"))
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(self_test() if sys.argv[1:] == ["--self-test"] else main(*sys.argv[1:]))
