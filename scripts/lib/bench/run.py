"""One run: everything is measured, and the results are written as JSON."""

import dataclasses
import json
import sys
import time

from . import clock, count, flame, gaps, jobs, machine, places, rules, server


@dataclasses.dataclass(frozen=True)
class Effort:
    """How much a run does. Amounts are those of the measurements that run once, by their part."""
    repetitions: int   # of each body
    seconds: float     # of each repetition
    runs: int          # under callgrind, of a job in which the server plays a part
    wholes: dict       # part: (amount, repetitions)
    loads: int
    python_rounds: int
    largest: bool      # whether to count with 100,000 cached channels as well, which takes minutes


FULL = Effort(15, 0.1, 5, {"threads": (1000, 5), "prefetch": (10000, 3), "memory": (100000, 1)}, 40, 200, True)
QUICK = Effort(3, 0.02, 1, {"threads": (200, 1), "prefetch": (200, 1), "memory": (2000, 1)}, 5, 10, False)


def say(text):
    print("--", text, file=sys.stderr, flush=True)


def peers(part):
    """The cases of what a user would pick instead, by what is done: "peer/request/tls"."""
    groups = {}
    for name in clock.output_of([places.PEERS, "--names"], {}).splitlines():
        if name.startswith(f"peer/{part}/"):
            groups.setdefault(name.rsplit("/", 1)[0], []).append(name)
    return groups


def timing_groups(rows, part):
    """Cases that are timed in one process, in turn: a job with its floors; of the cache, all with as many devices."""
    groups = {}
    for row in rows:
        if row.measure == "time":
            key = row.job.rsplit("/", 1)[-1] if part == "cache" else row.job
            groups.setdefault(key, []).extend([row.job, row.floor])
    return [list(dict.fromkeys(group)) for group in groups.values()]


def count_part(rows, part, environment, effort, results):
    names = [name for name in jobs.cases(rows, jobs.COUNTED) if effort.largest or not name.endswith("/100000")]
    names += [name for name in rules.cases(part) if name not in names]
    counts = count.count_all(places.PROGRAM, names, environment, effort.runs)
    for group in peers("parse").values() if part == "parse" else []:
        counts |= count.count_all(places.PEERS, group, environment, effort.runs)
    results["counts"].update({name: dataclasses.asdict(counted) for name, counted in counts.items()})


def time_part(rows, part, environment, effort, results):
    for group in timing_groups(rows, part):
        results["times"].update(clock.bodies(places.PROGRAM, group, environment, effort))
    for group in peers(part).values():
        results["times"].update(clock.bodies(places.PEERS, group, environment, effort))
    if part == "request":
        results["times"].update(clock.python_peers(environment, effort.python_rounds))


def check_bytes(rows, environment):
    """A request and its floor must send as much to the same place, else they are not the same exchange."""
    for row in rows:
        received = []
        for name in (row.job, row.floor):
            clock.output_of([places.PROGRAM, "--repeat", name], environment)
            received.append(server.last_request())
        if received[0] != received[1]:
            raise RuntimeError(f"{row.job} and {row.floor} send different requests: {received}")


def measure_part(part, rows, environment, effort, results):
    say(part)
    if part == "request":
        check_bytes([row for row in rows if row.measure == "time"], environment)
    count_part(rows, part, environment, effort, results)
    time_part(rows, part, environment, effort, results)
    if part in effort.wholes:
        amount, repetitions = effort.wholes[part]
        names = list(dict.fromkeys(name for row in rows for name in (row.job, row.floor)))
        results["once"].update(clock.wholes(names, amount, environment, repetitions))
    if part == "load":
        results["once"].update(clock.loads(effort.loads) | clock.sizes())
    for name in flame.JOBS:
        if name.startswith(part + "/"):
            results["flames"][name] = flame.stacks_of(name, environment)


def as_text(results):
    """As JSON with a line for each case, so that two runs can be compared."""
    parts = []
    for key, value in results.items():
        if isinstance(value, dict) and key != "machine":
            lines = ",\n".join(f"  {json.dumps(name)}: {json.dumps(inner)}" for name, inner in value.items())
            parts.append(f" {json.dumps(key)}: {{\n{lines}\n }}")
        else:
            parts.append(f" {json.dumps(key)}: {json.dumps(value)}")
    return "{\n" + ",\n".join(parts) + "\n}\n"


def measure(body, quick, only):
    """Measures all parts, or one, and writes build/bench/results.json; results of a whole run are kept in docs, too."""
    start = time.monotonic()
    rows = jobs.read()
    known = jobs.parts(rows)
    if only and only not in known:
        raise SystemExit(f"no part '{only}': {', '.join(known)}")
    results = {"machine": machine.describe(), "quick": quick, "only": only, "counts": {}, "times": {}, "once": {},
               "flames": {}}
    with server.running(body) as environment:
        for part in [only] if only else known:
            measure_part(part, [row for row in rows if row.part == part], environment, QUICK if quick else FULL,
                         results)
        say("gaps")
        results["gaps"] = gaps.measure(results, rows, environment)
    results["seconds"] = round(time.monotonic() - start)
    places.RESULTS.write_text(as_text(results))
    if not quick and not only:
        places.PICTURES.mkdir(exist_ok=True)
        places.KEPT.write_text(as_text(results))
    return results
