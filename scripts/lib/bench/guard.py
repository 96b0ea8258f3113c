"""The guard: counts what repeats exactly, and compares it with the figures that are checked in."""

import csv
import dataclasses

from . import count, jobs, places, server

MORE = 0.02  # a job may cost so much more before the guard fails
# Bodies of some dozens of instructions shift by a few when the compiler lays out their loop anew, and a log line by the
# digits of the process number.
FEW_INSTRUCTIONS = 24
RUNS = 3  # of a request, of which the median counts: the server is slower at times
PART_OF_AN_ALLOCATION = 0.05  # tables that grow once in many rounds

HEAD = """\
# What scripts/bench --guard compares with: instructions and allocations of one round of each job, and of its floors.
# What a job's floor became dearer by is a library's or the compiler's doing, and not counted against the job.
# scripts/bench --guard --update writes the file anew; the commit says why.
"""


@dataclasses.dataclass
class Verdict:
    """About one job: whether it fails the guard, and what is to be said, or nothing."""
    fails: bool
    text: str


def is_floor(name):
    return name.startswith("floor/")


def change(now, kept):
    return now / kept - 1 if kept else 0.0


def percent(share):
    return f"{100 * share:+.1f} %"


def drift(floor, kept, now):
    """What a floor became dearer by; nothing when it is unknown."""
    if floor not in kept or floor not in now:
        return count.Count(0, 0)
    return count.Count(max(0, now[floor].instructions - kept[floor].instructions),
                       max(0, now[floor].allocations - kept[floor].allocations))


def judge(name, kept, now, moved):
    """Compares a count with the one that is kept; `moved` is what its floor became dearer by."""
    if kept is None:
        return Verdict(not is_floor(name), f"{name}: is not in the file")
    difference = now.instructions - kept.instructions - moved.instructions
    allowed = max(MORE * kept.instructions, FEW_INSTRUCTIONS)
    figures = (f"{kept.instructions:,.0f} -> {now.instructions:,.0f} instructions "
               f"({percent(change(now.instructions, kept.instructions))})")
    if now.allocations > kept.allocations + moved.allocations + PART_OF_AN_ALLOCATION:
        return Verdict(not is_floor(name),
                       f"{name}: {kept.allocations:,.1f} -> {now.allocations:,.1f} allocations, {figures}")
    if difference > allowed:
        return Verdict(not is_floor(name), f"{name}: {figures}")
    if difference < -allowed:
        return Verdict(False, f"{name}: cheaper, {figures}")
    return Verdict(False, "")


def compare(kept, now, floors):
    """A verdict for every job of either side that there is something to say about. floors: those of the jobs."""
    verdicts = [judge(name, kept.get(name), counted, drift(floors.get(name), kept, now))
                for name, counted in now.items()]
    verdicts += [Verdict(True, f"{name}: is in the file and was not counted") for name in kept if name not in now]
    return [verdict for verdict in verdicts if verdict.text]


def read(path=places.GUARD):
    if not path.exists():
        return {}
    lines = [line for line in path.read_text().splitlines() if line and not line.startswith("#")]
    return {line["job"]: count.Count(float(line["instructions"]), float(line["allocations"]))
            for line in csv.DictReader(lines, delimiter="\t")}


def write(counts, path=places.GUARD):
    rows = [f"{name}\t{counted.instructions:.1f}\t{counted.allocations:.2f}" for name, counted in counts.items()]
    path.write_text(HEAD + "\n".join(["job\tinstructions\tallocations", *rows]) + "\n")


def run(body, update):
    """Counts and compares, or writes the file; 1 when a job became dearer."""
    rows = [row for row in jobs.read() if row.counted]
    names = jobs.cases(rows, jobs.COUNTED)
    with server.running(body) as environment:
        now = count.count_all(places.PROGRAM, names, environment, RUNS)
    if update:
        write(now)
        print(f"{places.GUARD.relative_to(places.ROOT)}: {len(now)} jobs and floors")
        return 0
    verdicts = compare(read(), now, {row.job: row.floor for row in rows})
    for verdict in sorted(verdicts, key=lambda verdict: not verdict.fails):
        print("DEARER " if verdict.fails else "       ", verdict.text)
    failed = sum(verdict.fails for verdict in verdicts)
    print(f"guard: {len(now)} jobs and floors counted, {failed} dearer than bench/guard.tsv allows")
    if verdicts:
        print("When that is meant: scripts/bench --guard --update, and the reason in the commit.")
    return 1 if failed else 0
