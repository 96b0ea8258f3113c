"""Compares the documents with the sources that they speak of.

    readme.py ROOT          checks the tree at ROOT
    readme.py --self-test   proves that each kind of difference is found
"""
import pathlib
import re
import sys

EXAMPLE = "examples/host_example.cpp"
LATER_TITLE = "## Not there yet"
NOT_AVAILABLE = re.compile(r"\bNotAvailable\(|operation is not available yet")
METHOD = re.compile(r"^[^\s/][^\n;]*\bCVantixDataCenter::(\w+)\(", re.M)
LINK = re.compile(r"\]\(([^)#\s]+)(?:#[^)]*)?\)")
CODE_NAME = re.compile(r"^\s*(VANTIX_\w+) = (-?\d+)", re.M)


def quoted(readme, language):
    return re.findall(rf"^```{language}\n(.*?)^```$", readme, re.M | re.S)


def later_operations(sources):
    """The core's methods that only say that they are not available yet."""
    names = set()
    for text in sources:
        starts = list(METHOD.finditer(text))
        for method, following in zip(starts, starts[1:] + [None]):
            if NOT_AVAILABLE.search(text[method.end():following.start() if following else len(text)]):
                names.add(method.group(1))
    return names


def listed_operations(readme):
    """The names in backticks in the README's section."""
    if LATER_TITLE not in readme:
        return set()
    section = readme.split(LATER_TITLE, 1)[1].split("\n## ", 1)[0]
    lines = [line for line in section.splitlines() if line.startswith(("- ", "  "))]
    return set(re.findall(r"`(\w+)`", "\n".join(lines)))


def example_differences(readme, example):
    if example not in quoted(readme, "cpp"):
        yield f"README.md: none of its quotations is {EXAMPLE}, word for word"


def later_differences(readme, sources):
    later, listed = later_operations(sources), listed_operations(readme)
    for name in sorted(later - listed):
        yield f"README.md: '{LATER_TITLE}' lacks {name}, which is not available yet"
    for name in sorted(listed - later):
        yield f"README.md: '{LATER_TITLE}' lists {name}, which the core has"


def code_differences(page, header):
    """Each named code of the header stands in the page, as a name or as a number."""
    for name, number in CODE_NAME.findall(header):
        if name not in page and not re.search(rf"(?<![\d-]){re.escape(number)}(?!\d)", page):
            yield f"docs/return-codes.md: says nothing of {name} ({number})"


def link_differences(root, documents):
    for document in documents:
        for target in LINK.findall(document.read_text(encoding="utf8")):
            if "://" not in target and not (document.parent / target).exists():
                yield f"{document.relative_to(root)}: links to {target}, which is not there"


def check(root):
    readme = (root / "README.md").read_text(encoding="utf8")
    sources = [path.read_text(encoding="utf8") for path in sorted((root / "src/core").glob("*.cpp"))]
    documents = [root / "README.md", root / "CONTRIBUTING.md", *sorted((root / "docs").glob("*.md")),
                 *sorted(root.glob("*/README.md"))]
    return [
        *example_differences(readme, (root / EXAMPLE).read_text(encoding="utf8")),
        *later_differences(readme, sources),
        *code_differences((root / "docs/return-codes.md").read_text(encoding="utf8"),
                          (root / "include/vantix/ReturnCodes.h").read_text(encoding="utf8")),
        *link_differences(root, [document for document in documents if document.is_file()]),
    ]


def self_test():
    source = ("int CVantixDataCenter::a(int x) {\n    return 1;\n}\n\n"
              "int CVantixDataCenter::b(\n    int x) { return NotAvailable(VANTIX_HERE); }\n\n"
              "void CVantixDataCenter::c() {}\n")
    page = f"text `other`\n\n{LATER_TITLE}\n\nThese wait:\n\n- `b`\n\n## Next\n\n- `a`\n"
    rows = [
        ("the quotation is the file", list(example_differences("x\n```cpp\nint a;\n```\n", "int a;\n")), 0),
        ("the quotation is another text", list(example_differences("```cpp\nint a;\n```\n", "int b;\n")), 1),
        ("the list is right", list(later_differences(page, [source])), 0),
        ("the list lacks one", list(later_differences(page.replace("- `b`", "- none"), [source])), 1),
        ("the list has one too many", list(later_differences(page.replace("`b`", "`b` `c`"), [source])), 1),
        ("nothing waits and there is no list", list(later_differences("text", ["int CVantixDataCenter::a() {}"])), 0),
        ("a code by its number", list(code_differences("it gives -1.", "    A = 5,\n    VANTIX_ERROR = -1,\n")), 0),
        ("a code is missing", list(code_differences("it gives 310002", "    VANTIX_X = 10002,\n")), 1),
    ]
    wrong = [(title, found) for title, found, expected in rows if len(found) != expected]
    for title, found in wrong:
        print(f"FAIL {title}: {found}")
    print(f"{len(rows) - len(wrong)} of {len(rows)} as expected")
    return 1 if wrong else 0


def main(arguments):
    if arguments == ["--self-test"]:
        return self_test()
    found = check(pathlib.Path(arguments[0]).resolve())
    for line in found:
        print(line)
    print(f"documents: {len(found)} differences from the sources")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
