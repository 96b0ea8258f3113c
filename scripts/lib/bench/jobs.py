"""The table of jobs: which case is compared with which floor, by which measure, and what the goal is."""

import csv
import dataclasses
import re

from . import places

UNITS = {"ns": 1e-9, "ms": 1e-3}
COUNTED = ("instructions", "allocations")


@dataclasses.dataclass(frozen=True)
class Goal:
    """What a row asks for: a limit of the ratio to the floor, of the difference, or of the value itself."""
    text: str

    def is_met(self, value, floor):
        """Whether a value meets it; None when nothing is asked for, or what it needs is missing."""
        found = re.fullmatch(r"([<>])=(\+?)([\d.]+)(ns|ms)?", self.text)
        if self.text == "told" or not found or value is None:
            return None
        sign, more, limit, unit = found.groups()
        limit = float(limit)
        if unit:
            return value <= limit * UNITS[unit]
        if floor is None:
            return None
        if more:
            return value - floor <= limit
        return value <= limit * floor if sign == "<" else value >= limit * floor

    def distance(self, value, floor):
        """How many times the limit a value is off; 1 is just met."""
        sign, more, limit, unit = re.fullmatch(r"([<>])=(\+?)([\d.]+)(ns|ms)?", self.text).groups()
        limit = float(limit) * (UNITS[unit] if unit else 1 if more else floor)
        reached = value - floor if more else value
        return (reached / limit if sign == "<" else limit / reached) if limit and reached else float("inf")

    def shown(self):
        """As the page shows it."""
        if self.text == "told":
            return ""
        found = re.fullmatch(r"([<>])=(\+?)([\d.]+)(ns|ms)?", self.text)
        sign, more, limit, unit = found.groups()
        sign = "≤" if sign == "<" else "≥"
        if more:
            return f"{sign} floor" + (f" + {limit}" if limit != "0" else "")
        return f"{sign} {limit}" + (f" {unit}" if unit else "")


@dataclasses.dataclass(frozen=True)
class Row:
    """One goal of one job."""
    part: str
    job: str
    floor: str
    measure: str
    goal: Goal
    counted: bool
    title: str


def read(path=places.JOBS):
    lines = [line for line in path.read_text().splitlines() if line and not line.startswith("#")]
    return [Row(line["part"], line["job"], line["floor"], line["measure"], Goal(line["goal"]),
                line["counted"] == "yes", line["title"])
            for line in csv.DictReader(lines, delimiter="\t", quoting=csv.QUOTE_NONE)]


def parts(rows):
    """The parts in the order of the table."""
    return list(dict.fromkeys(row.part for row in rows))


def cases(rows, measures):
    """Jobs and floors that need one of these measures, each once, in the order of the table."""
    wanted = [name for row in rows if row.measure in measures for name in (row.job, row.floor)]
    return list(dict.fromkeys(name for name in wanted if name != "-"))
