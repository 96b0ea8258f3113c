"""Times: bodies by the benchmark library, wholes that run once, fresh processes. All values are those of single
repetitions, so that the page can show their spread."""

import json
import os
import re
import subprocess
import sys

from . import places

FACTORY = "CreateVantixDataCenterInstance"
SCALE = {"ns": 1e-9, "us": 1e-6, "ms": 1e-3, "s": 1.0}


def output_of(command, environment):
    done = subprocess.run([str(word) for word in command], env=os.environ | environment, capture_output=True, text=True,
                          check=False)
    if done.returncode != 0:
        raise RuntimeError(f"{' '.join(map(str, command))}: {done.stdout.strip()[-500:]} {done.stderr.strip()[-500:]}")
    return done.stdout


def bodies(program, names, environment, effort):
    """Seconds of one round of each body, in turn and in random order, so that a slow moment meets all of them alike."""
    pattern = "|".join(re.escape(name).replace("\\-", "-") for name in names)
    text = output_of([program, f"--benchmark_filter=^({pattern})/real_time$", "--benchmark_format=json",
                      f"--benchmark_repetitions={effort.repetitions}", f"--benchmark_min_time={effort.seconds}",
                      "--benchmark_enable_random_interleaving=true"], environment)
    seconds = {name: [] for name in names}
    for row in json.loads(text)["benchmarks"]:
        if row["run_type"] == "iteration":
            name = row["run_name"].split("/real_time")[0]
            seconds[name].append(row["real_time"] * SCALE[row["time_unit"]])
    return seconds


def wholes(names, amount, environment, repetitions):
    """The figures of measurements that run once, each in a process of its own, in turn."""
    figures = {name: {} for name in names}
    for _ in range(repetitions):
        for name in names:
            for figure, value in json.loads(output_of([places.PROGRAM, "--once", name, amount], environment)).items():
                figures[name].setdefault(figure, []).append(value)
    return figures


def python_peers(environment, rounds):
    """Seconds of each round of Python's clients."""
    return json.loads(output_of([sys.executable, places.ROOT / "bench" / "peers" / "python_peers.py", rounds],
                                environment))


def loads(repetitions):
    """Seconds until a fresh process has the library and a handle."""
    probe, library = places.BUILD / "bench" / "bench_load", places.LIBRARY
    commands = {
        "load/handle": [library, FACTORY],
        "load/handle/with_libraries": [library, FACTORY, "libcurl.so.4", "libjsoncpp.so.25"],
        "floor/load/handle": [places.BUILD / "bench" / "bench_empty.so", "-"],
    }
    figures = {name: {"seconds": []} for name in commands}
    for _ in range(repetitions):
        for name, words in commands.items():
            figures[name]["seconds"].append(json.loads(output_of([probe, *words], {}))["seconds"])
    return figures


def stripped_size(path, strip):
    """Bytes of a stripped copy."""
    copy = places.WORK / "stripped"
    subprocess.run([strip, "-o", copy, path], check=True)
    size = copy.stat().st_size
    copy.unlink()
    return size


def sizes():
    """Stripped sizes of the libraries; that for Windows only when it has been built."""
    found = {"size/linux": (places.LIBRARY, "strip"),
             "size/windows": (next((places.ROOT / "build" / "windows-mingw").rglob("vantixdatacenter.dll"), None),
                              "x86_64-w64-mingw32-strip")}
    return {name: {"bytes": [stripped_size(path, strip)]} for name, (path, strip) in found.items() if path}
