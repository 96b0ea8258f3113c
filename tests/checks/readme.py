"""Compares the documents with the sources that they speak of.

    readme.py ROOT          checks the tree at ROOT
    readme.py --self-test   proves that each kind of difference is found
"""
import pathlib
import re
import sys

EXAMPLE = "examples/host_example.cpp"
LINK = re.compile(r"\]\(([^)#\s]+)(?:#[^)]*)?\)")
CODE_NAME = re.compile(r"^\s*(VANTIX_\w+) = (-?\d+)", re.M)


def quoted(readme, language):
    return re.findall(rf"^```{language}\n(.*?)^```$", readme, re.M | re.S)


def example_differences(readme, example):
    if example not in quoted(readme, "cpp"):
        yield f"README.md: none of its quotations is {EXAMPLE}, word for word"


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
    documents = [root / "README.md", root / "CONTRIBUTING.md", *sorted((root / "docs").glob("*.md")),
                 *sorted(root.glob("*/README.md"))]
    return [
        *example_differences(readme, (root / EXAMPLE).read_text(encoding="utf8")),
        *code_differences((root / "docs/return-codes.md").read_text(encoding="utf8"),
                          (root / "include/vantix/ReturnCodes.h").read_text(encoding="utf8")),
        *link_differences(root, [document for document in documents if document.is_file()]),
    ]


def self_test():
    rows = [
        ("the quotation is the file", list(example_differences("x\n```cpp\nint a;\n```\n", "int a;\n")), 0),
        ("the quotation is another text", list(example_differences("```cpp\nint a;\n```\n", "int b;\n")), 1),
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
