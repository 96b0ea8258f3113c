"""Values of a run, and how they are shown."""

import dataclasses
import statistics

from . import jobs

WORDS = {
    "instructions": "instructions", "allocations": "allocations", "time": "time", "seconds": "time",
    "processor_seconds": "processor time", "hits_per_second": "hits a second",
    "bytes_per_channel": "bytes a channel", "bytes": "bytes",
}
UNITS = (("s", 1.0), ("ms", 1e-3), ("µs", 1e-6), ("ns", 1e-9))


def samples_of(results, name, measure):
    """All values that were measured, or none."""
    if measure in jobs.COUNTED:
        counted = results["counts"].get(name)
        return [counted[measure]] if counted else []
    if measure == "time":
        return results["times"].get(name, [])
    return results["once"].get(name, {}).get(measure, [])


def value_of(results, name, measure):
    """The median, or nothing."""
    samples = samples_of(results, name, measure)
    return statistics.median(samples) if samples else None


def seconds(value):
    """A time in the unit that suits it."""
    for unit, size in UNITS:
        if value >= size or unit == "ns":
            number = value / size
            return f"{number:,.0f} {unit}" if number >= 100 else f"{number:.3g} {unit}"
    return ""


def shown(value, measure):
    if value is None:
        return "–"
    if measure in ("time", "seconds", "processor_seconds"):
        return seconds(value)
    if value < 10 and value != round(value):
        return f"{value:.1f}"
    return f"{value:,.0f}"


@dataclasses.dataclass(frozen=True)
class Outcome:
    """One row of the table of jobs, as it was measured."""
    row: jobs.Row
    value: float | None
    floor: float | None

    @property
    def ratio(self):
        return self.value / self.floor if self.value is not None and self.floor else None

    @property
    def met(self):
        return self.row.goal.is_met(self.value, self.floor)

    def compared(self):
        """To the floor, as text: a ratio, or a difference where the goal is one."""
        if self.value is None or self.floor is None:
            return "–"
        if "+" in self.row.goal.text:
            return f"{self.value - self.floor:+,.0f}"
        ratio = self.ratio
        if ratio is None:
            return "–"
        return f"{ratio:.4f}" if abs(ratio - 1) < 0.01 else f"{ratio:,.2f}"


def outcomes(results, rows):
    return [Outcome(row, value_of(results, row.job, row.measure), value_of(results, row.floor, row.measure))
            for row in rows]


def spread(samples):
    """Median, quartiles, least and most."""
    low, middle, high = statistics.quantiles(samples, n=4) if len(samples) > 1 else samples * 3
    return middle, low, high, min(samples), max(samples)
