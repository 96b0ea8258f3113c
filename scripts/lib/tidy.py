"""Runs clang-tidy over the files of a build tree in parallel, and skips files that it has passed before.

    tidy.py TREE ROOT CACHE_FOLDER JOBS [FILE...]

A file is checked again when the file, a project header that it includes, the list of checks or its compile command has
changed.
"""
import concurrent.futures
import hashlib
import json
import pathlib
import re
import subprocess
import sys


def digest(*parts):
    total = hashlib.sha256()
    for part in parts:
        total.update(hashlib.sha256(part if isinstance(part, bytes) else part.encode()).digest())
    return total.hexdigest()


class Linter:
    def __init__(self, tree, root, memory):
        self.tree, self.root, self.memory = tree, root, memory
        self.memory.mkdir(parents=True, exist_ok=True)
        self.version = subprocess.run(["clang-tidy", "--version"], capture_output=True, text=True, check=True).stdout
        self.texts = {}

    def text_digest(self, path):
        if path not in self.texts:
            self.texts[path] = digest(path.read_bytes()) if path.is_file() else "absent"
        return self.texts[path]

    def check_lists(self, path):
        """Every .clang-tidy from the file's folder up to the root."""
        folders = [path.parent, *path.parent.parents]
        return [f / ".clang-tidy" for f in folders if f == self.root or self.root in f.parents]

    def headers(self, command, folder):
        """The project's headers that a compile command reads, as the compiler itself lists them."""
        words = re.sub(r"(^|\s)(-o|-MF|-MT|-MQ)\s+\S+|\s-(c|MD|MMD)\b", " ", command)
        words = re.sub(r"^\s*\S*ccache\s+", "", words)
        listed = subprocess.run(words + " -MM", shell=True, cwd=folder, capture_output=True, text=True)
        names = listed.stdout.split(":", 1)[-1].replace("\\\n", " ").split()
        paths = {(pathlib.Path(folder) / name).resolve() for name in names}
        return sorted(p for p in paths if self.root in p.parents), listed.returncode == 0

    def key(self, entry):
        path = pathlib.Path(entry["file"])
        headers, known = self.headers(entry["command"], entry["directory"])
        if not known:
            return None
        parts = [self.version, entry["command"].replace(str(self.root), "")]
        for part in [path, *headers, *self.check_lists(path)]:
            parts += [str(part.relative_to(self.root)), self.text_digest(part)]
        return digest(*parts)

    def lint(self, entry):
        """The findings in one file, and whether the file was checked in this run."""
        key = self.key(entry)
        if key and (self.memory / key).exists():
            return "", False
        run = subprocess.run(["clang-tidy", "-p", str(self.tree), "--quiet", "--extra-arg=-Wno-unknown-warning-option",
                              "--extra-arg=-Wno-unused-command-line-argument", entry["file"]],
                             capture_output=True, text=True)
        if run.returncode == 0:
            if key:
                (self.memory / key).touch()
            return "", True
        return (run.stdout.strip() or run.stderr.strip() or f"{entry['file']}: clang-tidy ended with {run.returncode}"), True


def findings(text):
    """The findings of an output, each with its notes: those in a header are repeated for every file that includes it."""
    return [f.rstrip() for f in re.split(r"(?m)^(?=\S+:\d+:\d+: (?:error|warning):)", text) if f.strip()]


def main(tree, root, memory, jobs, *only):
    tree, root = pathlib.Path(tree).resolve(), pathlib.Path(root).resolve()
    wanted = {(root / name).resolve() if not name.startswith("/") else pathlib.Path(name).resolve() for name in only}
    entries = {}
    for entry in json.loads((tree / "compile_commands.json").read_text(encoding="utf8")):
        path = pathlib.Path(entry["file"]).resolve()
        inside = root in path.parents and tree not in path.parents
        if inside and (not wanted or path in wanted):
            entries.setdefault(path, entry)
    linter = Linter(tree, root, pathlib.Path(memory))
    checked, bad, shown = 0, 0, set()
    with concurrent.futures.ThreadPoolExecutor(int(jobs)) as pool:
        for output, now in pool.map(linter.lint, [entries[p] for p in sorted(entries)]):
            checked += now
            if output:
                bad += 1
                for finding in findings(output):
                    title = finding.splitlines()[0]
                    if title not in shown:
                        shown.add(title)
                        print(finding, flush=True)
    print(f"clang-tidy: {len(entries)} files, {checked} of them new or changed, {bad} with findings")
    return 1 if bad else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
