#!/usr/bin/env python3
"""Runs the fuzzers of fuzz/targets.tsv; scripts/fuzz calls it and describes the options.

    fuzz.py BUILD_FOLDER CACHE_FOLDER JOBS [--smoke | --seconds N | --runs N | --minimise] [NAME...]
"""

import argparse
import codecs
import concurrent.futures
import hashlib
import json
import os
import pathlib
import re
import shutil
import subprocess
import sys
import threading
import time

import quality

ROOT = pathlib.Path(__file__).resolve().parents[2]
FUZZ = ROOT / "fuzz"
CODE = ("src", "runtime", "include", "fuzz", "tests/support")
MOST_KEPT = 64 * 1024  # bytes of inputs that fuzz/corpus keeps of a fuzzer


class Target:
    """One row of the table, and where its things are."""

    def __init__(self, row, build, cache):
        self.name, longest, smoke, dictionaries, seeds = row.split("\t")
        self.longest, self.smoke = int(longest), int(smoke)
        self.dictionaries, self.seed_patterns = dictionaries.split(), seeds.split()
        self.program = build / "fuzz" / f"fuzz_{self.name}"
        self.corpus = cache / "corpus" / self.name
        self.kept = FUZZ / "corpus" / f"{self.name}.txt"
        self.work = build / "fuzzing" / self.name
        self.log = build / "log" / f"{self.name}.log"
        self.findings = build / "findings"

    def letters(self):
        """What seeds begin with: the letter of each reader, or nothing when there is one alone."""
        output = subprocess.run([self.program, "--readers"], capture_output=True, text=True, check=True).stdout
        return [line[0] for line in output.splitlines()] or [""]

    def prepare(self):
        """Makes the seeds, each for every reader, and the dictionary."""
        shutil.rmtree(self.work, ignore_errors=True)
        seeds = self.work / "seeds"
        for folder in (seeds, self.corpus, self.findings, self.log.parent):
            folder.mkdir(parents=True, exist_ok=True)
        files = {file for pattern in self.seed_patterns for file in (FUZZ / "seeds").glob(pattern)}
        for file in files:
            if file.stat().st_size < self.longest:
                for letter in self.letters():
                    (seeds / f"{letter}-{file.name}").write_bytes(letter.encode() + file.read_bytes())
        for number, data in enumerate(read_kept(self.kept)):
            (seeds / f"kept-{number}").write_bytes(data)
        texts = [(FUZZ / "dictionaries" / f"{name}.dict").read_text() for name in self.dictionaries]
        (self.work / "dictionary").write_text("".join(texts))

    def command(self, *arguments):
        # The entropic schedule costs more time than most readers do.
        limits = [f"-max_len={self.longest}", "-timeout=10", "-rss_limit_mb=2048"]
        return [self.program, *limits, "-entropic=0", *arguments]

    def fuzz(self, limits, fresh):
        """One run; `fresh` leaves the cached corpus out and alone. Returns what the log says, and the seconds of
        processor time: those do not depend on what else runs."""
        self.prepare()
        corpus = self.work / "corpus" if fresh else self.corpus
        corpus.mkdir(exist_ok=True)
        with open(self.log, "wb") as log:
            process = subprocess.Popen(
                self.command(*limits, "-print_final_stats=1", "-reload=0", f"-dict={self.work / 'dictionary'}",
                             f"-artifact_prefix={self.findings / self.name}-", corpus, self.work / "seeds"),
                stdout=log, stderr=log, stdin=subprocess.DEVNULL)
            _, status, usage = os.wait4(process.pid, 0)
        return read_log(self.log) | {"seconds": usage.ru_utime + usage.ru_stime,
                                     "corpus": len(list(corpus.iterdir())), "findings": 0 if status == 0 else 1}

    def minimise(self):
        """Reduces the corpus to the smallest inputs that reach as much, and keeps those in the tree."""
        self.prepare()
        reduced = self.work / "reduced"
        reduced.mkdir()
        with open(self.log, "wb") as log:
            subprocess.run(self.command("-merge=1", reduced, self.corpus, self.work / "seeds"), stdout=log, stderr=log,
                           stdin=subprocess.DEVNULL, check=True)
        inputs = sorted((file.read_bytes() for file in reduced.iterdir()), key=lambda data: (len(data), data))
        shutil.rmtree(self.corpus)
        shutil.copytree(reduced, self.corpus)
        write_kept(self.kept, inputs)
        return {"corpus": len(inputs)}


def read_kept(path):
    """The inputs of a file of fuzz/corpus: one a line, with escapes as in a Python text of bytes."""
    lines = path.read_text().splitlines() if path.exists() else []
    return [codecs.escape_decode(line.encode())[0] for line in lines]


def write_kept(path, inputs):
    """The smallest inputs, up to a limit for each fuzzer."""
    path.parent.mkdir(exist_ok=True)
    lines, size = [], 0
    for data in inputs:
        line = codecs.escape_encode(data)[0].decode()
        size += len(line)
        if size > MOST_KEPT:
            break
        lines.append(line + "\n")
    path.write_text("".join(lines))


def read_log(path):
    """Executions, edges, and how many executions ago the last new edge was found."""
    text = path.read_text(errors="replace")
    counts = [(int(at), int(edges)) for at, edges in re.findall(r"^#(\d+)\s.*cov: (\d+)", text, re.MULTILINE)]
    done = re.search(r"number_of_executed_units: (\d+)", text)
    executions = int(done.group(1)) if done else max((at for at, _ in counts), default=0)
    edges = max((edges for _, edges in counts), default=0)
    reached = min((at for at, seen in counts if seen == edges), default=0)
    return {"executions": executions, "edges": edges, "still": executions - reached}


TALLY_LOCK = threading.Lock()


def code_of(root):
    """A hash of all sources that the fuzzers are made of."""
    digest = hashlib.sha256()
    for folder in CODE:
        for file in sorted((root / folder).rglob("*")):
            if file.suffix in (".cpp", ".h", ".inc"):
                digest.update(f"{file.relative_to(root)}\n".encode() + file.read_bytes())
    return digest.hexdigest()[:16]


def add_to_tally(path, name, result, commit, code):
    """Sums a fuzzer's runs up, over all builds since the folder was made."""
    with TALLY_LOCK:
        add_to_tally_locked(path, name, result, commit, code)


def add_to_tally_locked(path, name, result, commit, code):
    tally = json.loads(path.read_text()) if path.exists() else {}
    row = tally.setdefault(name, {"executions": 0, "seconds": 0.0, "first commit": commit})
    if row.get("code") != code:  # other code has other edges, and may have no finding any more
        row |= {"code": code, "findings": 0, "edges": 0, "still": 0}
    row["still"] = row["still"] + result["executions"] if result["edges"] <= row["edges"] else result["still"]
    for key in ("executions", "seconds", "findings"):
        row[key] += result[key]
    row["edges"] = max(row["edges"], result["edges"])
    row["last commit"] = commit
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_text(json.dumps(tally, indent=2) + "\n")


def table(results, tally):
    """The table's rows: fuzzer, and the figures in one text."""
    rows = []
    for name, result in results.items():
        total = tally.get(name, {})
        a_second = result["executions"] / max(result["seconds"], 0.001)
        rows.append((name, f"{result['executions']:,} executions, {a_second:,.0f} a second of processor time, "
                           f"{result['edges']:,} edges, {result['corpus']:,} inputs kept, "
                           f"{result['findings']} findings; in all runs {total.get('executions', 0):,} executions, of "
                           f"which the last {total.get('still', 0):,}, with this code, without a new edge"))
    return rows


def commits_of(tally):
    """Of which commits the programs were that the tally counts."""
    commits = sorted({row[key] for row in tally.values() for key in ("first commit", "last commit")})
    return f"by programs of the commits {', '.join(commits)}" if commits else "none counted yet"


def run_all(targets, jobs, work):
    """Runs `work` for each target, `jobs` at a time; prints each result as it comes."""
    results = {}
    with concurrent.futures.ThreadPoolExecutor(jobs) as pool:
        futures = {pool.submit(work, target): target.name for target in targets}
        for future in concurrent.futures.as_completed(futures):
            results[futures[future]] = future.result()
            print(f"-- {futures[future]}: {json.dumps(future.result())}", file=sys.stderr, flush=True)
    return {target.name: results[target.name] for target in targets}


def report(arguments, results, tally, seconds):
    """Prints the table and keeps it; returns the exit code."""
    rows = table(results, tally)
    total = sum(row["executions"] for row in tally.values())
    rows.append(("all fuzzers, all runs", f"{total:,} executions, {commits_of(tally)}"))
    for label, figures in rows:
        print(f"{label:22} {figures}")
    found = [name for name, result in results.items() if result["findings"]]
    text = f"inputs that fail: {', '.join(found)} (build/fuzz/findings)" if found else "nothing"
    quality.record("fuzz", "Fuzzing", "scripts/fuzz " + " ".join(arguments), seconds, rows, text)
    for name in found:
        print(f"{name} FAILED: see build/fuzz/log/{name}.log", file=sys.stderr)
    return 1 if found else 0


def parse_arguments():
    parser = argparse.ArgumentParser()
    parser.add_argument("build", type=pathlib.Path)
    parser.add_argument("cache", type=pathlib.Path)
    parser.add_argument("jobs", type=int)
    limit = parser.add_mutually_exclusive_group()
    limit.add_argument("--smoke", action="store_true")
    limit.add_argument("--seconds", type=int, default=60)
    limit.add_argument("--runs", type=int)
    limit.add_argument("--minimise", action="store_true")
    parser.add_argument("names", nargs="*")
    return parser.parse_intermixed_args()


def main():
    arguments = parse_arguments()
    lines = [line for line in (FUZZ / "targets.tsv").read_text().splitlines() if re.match("[A-Z]", line)]
    targets = [Target(line, arguments.build, arguments.cache) for line in lines]
    unknown = set(arguments.names) - {target.name for target in targets}
    if unknown:
        sys.exit(f"fuzz: no fuzzer is named {', '.join(sorted(unknown))} (see fuzz/targets.tsv)")
    targets = [target for target in targets if not arguments.names or target.name in arguments.names]
    if arguments.minimise:
        run_all(targets, arguments.jobs, Target.minimise)
        return 0

    code = code_of(ROOT)
    tally_path, commit = arguments.cache / "tally.json", quality.first_line("git", "rev-parse", "--short", "HEAD")

    def work(target):
        if arguments.smoke:  # the same executions in every run: they do not add up
            return target.fuzz([f"-runs={target.smoke}", "-seed=1"], fresh=True)
        limit = f"-runs={arguments.runs}" if arguments.runs else f"-max_total_time={arguments.seconds}"
        result = target.fuzz([limit], fresh=False)
        add_to_tally(tally_path, target.name, result, commit, code)
        return result

    start = time.monotonic()
    results = run_all(targets, arguments.jobs, work)
    tally = json.loads(tally_path.read_text()) if tally_path.exists() else {}
    for row in tally.values():
        if row.get("code") != code:
            row["still"] = 0
    return report(sys.argv[4:], results, tally, time.monotonic() - start)


if __name__ == "__main__":
    sys.exit(main())
