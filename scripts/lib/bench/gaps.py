"""Where a job spends what it takes beyond its floor, from the profiles of both."""

import pathlib
import tempfile

from . import count, figures, flame, places, words
from .profile import Profile

MOST = 8  # functions that are named for a job


def own_costs(name, environment):
    """Instructions of one round by function and layer; the harness counts as the floor's own work."""
    with tempfile.TemporaryDirectory() as folder:
        path = pathlib.Path(folder) / "profile"
        rounds, _ = count.run(places.PROGRAM, name, environment, path, "--compress-pos=no")
        profile = Profile(path.read_text(errors="replace"))
    costs = {}
    for stack, cost in profile.costs.items():
        function, obj = stack[0], profile.objects_of.get(stack[0], "")
        key = (flame.shortened(function, obj), flame.layer_of(function, obj))
        costs[key] = costs.get(key, 0) + cost / rounds
    return costs


def missed(results, rows):
    """Jobs whose goal for instructions is not met, with their floors; the largest caches take minutes to fill."""
    return [(outcome.row.job, outcome.row.floor) for outcome in figures.outcomes(results, rows)
            if outcome.row.measure == "instructions" and outcome.met is False
            and not outcome.row.job.endswith("/100000")]


def measure(results, rows, environment):
    """{job: by layer and by function, instructions beyond the floor}."""
    found = {}
    for job, floor in missed(results, rows):
        more, less = own_costs(job, environment), own_costs(floor, environment)
        differences = {key: more.get(key, 0) - less.get(key, 0) for key in more.keys() | less.keys()}
        layers = {}
        for (_, layer), difference in differences.items():
            layers[layer] = layers.get(layer, 0) + difference
        dearest = sorted(differences.items(), key=lambda item: (-item[1], item[0]))[:MOST]
        found[job] = {"layers": {layer: round(value) for layer, value in sorted(layers.items())},
                      "functions": [[name, round(value)] for (name, _), value in dearest if round(value) > 0]}
    return found


def read_reasons(path=places.REASONS):
    """{(job, measure): why its goal is not met}."""
    lines = [line for line in path.read_text().splitlines() if line and not line.startswith("#")]
    return {(job, measure): text for job, measure, text in (line.split("\t") for line in lines)}


def section(results, rows):
    """Why goals are not met: a reason for each, and where its instructions go beyond the floor."""
    outcomes = [outcome for outcome in figures.outcomes(results, rows) if outcome.met is False]
    if not outcomes:
        return ""
    reasons = read_reasons()
    text = "\n## Why goals are not met\n\n" + words.paragraph(words.GAPS) + "\n"
    for outcome in outcomes:
        row = outcome.row
        reason = reasons.get((row.job, row.measure), "no reason is known yet")
        text += f"- **{row.title}, {figures.WORDS[row.measure]}:** {reason}\n"
    gaps = results.get("gaps", {})
    if not gaps:
        return text
    layers = [layer for layer, _, _ in flame.LAYERS]
    text += "\nInstructions beyond the floor, by layer; less than nothing is what the floor spends more:\n\n"
    text += "| Job | " + " | ".join(layers) + " |\n|---|" + "--:|" * len(layers) + "\n"
    for job, gap in gaps.items():
        text += f"| `{job}` | " + " | ".join(f"{gap['layers'].get(layer, 0):,}" for layer in layers) + " |\n"
    text += "\nThe functions with the most of them:\n\n| Job | Functions |\n|---|---|\n"
    for job, gap in gaps.items():
        text += f"| `{job}` | " + ", ".join(f"`{name}` {value:,}" for name, value in gap["functions"]) + " |\n"
    return text
