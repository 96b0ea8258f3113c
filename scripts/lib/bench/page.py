"""docs/performance.md, from the results of a run. Every figure on it was measured."""

import json
import sys

from . import figures, flame, gaps, jobs, places, rules, words


def table(header, rows):
    lines = ["| " + " | ".join(header) + " |", "|---|" + "--:|" * (len(header) - 1)]
    return "\n".join(lines + ["| " + " | ".join(row) + " |" for row in rows]) + "\n"


def verdict(outcome):
    if outcome.met is None:
        return "" if outcome.row.goal.text == "told" or outcome.value is not None else "not measured"
    return "yes" if outcome.met else "**no**"


def goal_table(outcomes):
    rows, last = [], None
    for outcome in outcomes:
        row = outcome.row
        if outcome.value is None and row.goal.text == "told":
            continue
        rows.append([row.title if row.title != last else "", figures.WORDS[row.measure],
                     figures.shown(outcome.value, row.measure), figures.shown(outcome.floor, row.measure),
                     outcome.compared(), row.goal.shown(), verdict(outcome)])
        last = row.title
    return table(["Job", "Measure", "Library", "Floor", "To the floor", "Goal", "Met"], rows)


def spread_rows(results, names, measure, floor):
    """Rows of repeated measurements, each with its ratio to a value, or to the first median."""
    rows = []
    for name in names:
        samples = figures.samples_of(results, name, measure)
        if len(samples) < 2:
            continue
        middle, *ends = figures.spread(samples)
        floor = floor or middle
        low, high, least, most = (figures.shown(value, measure) for value in ends)
        rows.append([f"`{name}`", figures.shown(middle, measure), f"{low} – {high}", f"{least} – {most}",
                     f"{middle / floor:.2f}", str(len(samples))])
    return rows


SPREAD = ["Median", "Quartiles", "Least – most", "Ratio", "Runs"]


def spread_table(results, rows):
    """Times and rates of jobs and floors with their spread, each case once."""
    lines = {}
    for row in rows:
        if row.measure not in ("instructions", "allocations"):
            floor = figures.value_of(results, row.floor, row.measure)
            for line in spread_rows(results, (row.job, row.floor), row.measure, floor):
                lines[line[0], row.measure] = [*line[:1], figures.WORDS[row.measure], *line[1:]]
    if not lines:
        return ""
    return "\nWith their spread:\n\n" + table(["Case", "Measure", *SPREAD], lines.values())


def peers_of(results, prefix):
    return [name for name in results["times"] if name.startswith(prefix)]


def request_peers(results):
    text = ""
    for way, title in (("plain", "HTTP"), ("tls", "HTTPS")):
        names = [f"request/post/{way}"] + peers_of(results, f"peer/request/{way}/")
        names.sort(key=lambda name: figures.value_of(results, name, "time") or 0)
        alone = figures.value_of(results, f"peer/request/{way}/libcurl", "time")
        if alone:
            text += "\n" + words.paragraph(words.CLIENTS.format(way=title)) + "\n"
            text += table(["Client", *SPREAD], spread_rows(results, names, "time", alone))
    return text and text + "\n![Clients](performance/clients.svg)\n"


def parse_peers(results):
    floor = figures.value_of(results, "floor/parse/detail", "instructions")
    names = ["parse/detail", "floor/parse/detail"] + peers_of(results, "peer/parse/detail/")
    rows = []
    for name in sorted(names, key=lambda name: figures.value_of(results, name, "instructions") or 0):
        count = figures.value_of(results, name, "instructions")
        if count and floor:
            rows.append([f"`{name}`", figures.shown(count, "instructions"),
                         figures.shown(figures.value_of(results, name, "allocations"), "allocations"),
                         figures.shown(figures.value_of(results, name, "time"), "time"), f"{count / floor:.2f}"])
    if not rows:
        return ""
    return f"\n{words.SCALE}\n\n" + table(["Case", "Instructions", "Allocations", "Time", "To the floor"], rows)


EXTRAS = {"request": request_peers, "parse": parse_peers,
          "threads": lambda results: "\n![Hits a second by threads](performance/threads.svg)\n"}


def part_section(results, part, rows):
    title, text = words.PARTS[part]
    section = f"\n## {title}\n\n{words.paragraph(text)}\n" + goal_table(figures.outcomes(results, rows))
    section += spread_table(results, rows)
    return section + (EXTRAS[part](results) if part in EXTRAS else "")


def profile_section(results):
    if not results["flames"]:
        return ""
    text = "\n## Where the instructions go\n\n" + words.paragraph(words.PROFILE) + "\n"
    layers = [layer for layer, _, _ in flame.LAYERS]
    rows = []
    for name, measured in results["flames"].items():
        by_layer = flame.by_layer(measured)
        total = sum(by_layer.values())
        rows.append([f"`{name}`", f"{total:,}"] + [f"{100 * by_layer.get(layer, 0) / total:.1f} %" for layer in layers])
    text += table(["Job", "Instructions"] + layers, rows)
    for name in results["flames"]:
        text += f"\n{flame.JOBS[name]}:\n\n![{flame.JOBS[name]}](performance/{flame.file_name(name)})\n"
    return text


def missed_row(outcome):
    """A goal that is not met: what is compared with it, and the goal."""
    row = outcome.row
    by_itself = row.goal.text.endswith("s")  # a time, whatever the floor is
    measured = figures.shown(outcome.value, row.measure) if by_itself else outcome.compared()
    return [row.title, figures.WORDS[row.measure], measured, row.goal.shown()]


def summary(results, rows):
    judged = [outcome for outcome in figures.outcomes(results, rows) if outcome.met is not None]
    missed = [outcome for outcome in judged if not outcome.met]
    text = f"\n{len(judged) - len(missed)} of {len(judged)} goals are met."
    if missed:
        text += " Not met, the farthest first:\n\n"
        missed.sort(key=lambda outcome: -outcome.row.goal.distance(outcome.value, outcome.floor))
        text += table(["Job", "Measure", "Measured", "Goal"], [missed_row(outcome) for outcome in missed])
    return text + "\n![Jobs beside their floors](performance/ratios.svg)\n"


def machine_section(results):
    machine = results["machine"]
    rows = [["processor", f"{machine['processor']}, {machine['cores']} cores"],
            ["load before the run", str(machine["load"])],
            ["system", machine["system"]], ["compiler", machine["compiler"]],
            ["libraries", ", ".join(f"{name} {version}" for name, version in machine["versions"].items())],
            ["run", f"{machine['date']}, at {machine['commit']}, {results['seconds'] // 60} min"]]
    return "\n## Measured on\n\n" + table(["", ""], rows).replace("--:", "---")


def text_of(results):
    rows = jobs.read()
    text = words.INTRODUCTION + ("" if is_whole(results) else words.PARTIAL) + summary(results, rows)
    for part in jobs.parts(rows):
        measured = [row for row in rows if row.part == part]
        if not results["only"] or results["only"] == part:
            text += part_section(results, part, measured)
    return text + gaps.section(results, rows) + rules.section(results) + profile_section(results) + machine_section(results) + words.ADDING


def is_whole(results):
    return not results["quick"] and not results["only"]


def write(results):
    """Writes page and pictures: of a whole run into docs, of any other into build/bench."""
    from . import plots  # matplotlib, which --check does without
    whole = is_whole(results)
    page = places.PAGE if whole else places.WORK / places.PAGE.name
    pictures = page.parent / places.PICTURES.name
    pictures.mkdir(parents=True, exist_ok=True)
    page.write_text(text_of(results))
    plots.draw_all(results, pictures)
    print(f"{page.relative_to(places.ROOT)} is written", file=sys.stderr)


def kept():
    """The results that the page in docs is made of."""
    return json.loads(places.KEPT.read_text())


def check():
    """Whether the page in docs is what its results say."""
    is_same = places.PAGE.read_text() == text_of(kept())
    verdict_text = "as its results say" if is_same else "not what its results say: scripts/bench --page"
    print("docs/performance.md is", verdict_text)
    return 0 if is_same else 1
