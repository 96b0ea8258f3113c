#!/usr/bin/env python3
"""The table and the plots of a soak, from its result.

    soak_report.py FOLDER [--preset NAME] [--status N] [--no-plots]

reads FOLDER/result.json, prints the table, and writes it with the plots into FOLDER. Exits with a status other than 0
when the run broke a rule or ended with one.
"""

import argparse
import json
import pathlib
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent))
import quality  # noqa: E402

MEGABYTE = 1024.0  # in KiB


def number(value):
    return f"{value:,}"


def most_frequent(counts, most):
    """The counts as one text, the largest first."""
    ordered = sorted(counts.items(), key=lambda item: -item[1])
    text = ", ".join(f"{name}: {number(count)}" for name, count in ordered[:most])
    return text + (f", {len(ordered) - most} more" if len(ordered) > most else "")


def span(values, unit="", scale=1.0):
    parts = [f"{values[name] / scale:,.1f}" if scale != 1.0 else number(values[name]) for name in ("first", "peak", "last")]
    return " / ".join(parts) + unit


def rows_of(result):
    """Labels and values of the table."""
    requests, seconds = result["requests"], result["seconds"]
    own, cloud = result["processorSeconds"]
    rows = [
        ("Requests", number(requests)),
        ("of the platform / of the consumer servers", f"{number(result['platform'])} / {number(result['consumer'])}"),
        ("different paths", number(len(result["paths"]))),
        ("renewals", number(result["renewals"])),
        ("Calls", f"{number(result['calls'])} of {len(result['operations'])} operations from {result['callers']} threads"),
        ("calls that a fault made fail", number(result["callsWithAFailure"])),
        ("Results", most_frequent(result["results"], 24)),
        ("Faults", f"{number(sum(result['faults'].values()))} of {len(result['faults'])} kinds ({result['faultPercent']:g} %)"),
        ("Seconds", f"{seconds:,.1f}"),
        ("Requests a second", f"{requests / seconds:,.0f}"),
        ("Processor, ms a request: library and checks / cloud",
         f"{1000 * own / requests:.2f} / {1000 * cloud / requests:.2f}"),
        ("Memory, MiB: first tenth / peak / last tenth", span(result["residentKiB"], scale=MEGABYTE)),
        ("Memory growth behind the first tenth, fitted: MiB an hour / bytes a request",
         f"{result['memoryGrowth']['mebibytesAnHour']:+,.2f} / {result['memoryGrowth']['bytesARequest']:+,.1f}"),
        ("Descriptors: first tenth / peak / last tenth", span(result["descriptors"])),
        ("Threads: first tenth / peak / last tenth", span(result["threads"])),
        ("Log lines", number(result["logLines"])),
    ]
    for rule, applied in sorted(result["applied"].items()):
        rows.append((f"Checked: {rule}", f"{number(applied)}, broken {number(result['broken'].get(rule, 0))}"))
    return rows


def table_of(rows):
    width = max(len(label) for label, _ in rows)
    return "\n".join(f"{label:<{width}}  {value}" for label, value in rows)


def draw(path, samples, title, series):
    """One plot over time: series are pairs of a label and a function of a sample."""
    import matplotlib

    matplotlib.use("Agg")
    from matplotlib import pyplot

    figure, axes = pyplot.subplots(figsize=(9, 4))
    for label, value in series:
        axes.plot([sample["seconds"] for sample in samples], [value(sample) for sample in samples], label=label)
    axes.set_xlabel("seconds")
    axes.set_title(title)
    axes.set_ylim(bottom=0)
    axes.grid(True, alpha=0.3)
    axes.legend()
    figure.tight_layout()
    figure.savefig(path, dpi=100)
    pyplot.close(figure)


def with_rates(samples):
    """The samples with the requests a second since about a hundredth of the run ago."""
    back = max(1, len(samples) // 100)
    for at, sample in enumerate(samples):
        earlier = samples[max(0, at - back)]
        passed = sample["seconds"] - earlier["seconds"]
        sample["rate"] = (sample["requests"] - earlier["requests"]) / passed if passed > 0 else 0
    return samples


def draw_all(folder, result):
    samples = with_rates(result["samples"])
    draw(folder / "memory.png", samples, "Resident memory, MiB", [("memory", lambda s: s["residentKiB"] / MEGABYTE)])
    draw(folder / "descriptors-and-threads.png", samples, "Descriptors and threads",
         [("descriptors", lambda s: s["descriptors"]), ("threads", lambda s: s["threads"])])
    draw(folder / "rate.png", samples, "Requests a second", [("requests a second", lambda s: s["rate"])])
    draw(folder / "faults.png", samples, "Faults and renewals so far",
         [("faults", lambda s: s["faults"]), ("renewals", lambda s: s["renewals"])])


def found_by(result, status):
    if result["broken"]:
        return f"{number(sum(result['broken'].values()))} broken checks: " + "; ".join(sorted(result["broken"]))
    return "nothing" if status == 0 else f"the program ended with status {status}"


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("folder", type=pathlib.Path)
    parser.add_argument("--preset", default="release")
    parser.add_argument("--status", type=int, default=0)
    parser.add_argument("--no-plots", action="store_true")
    arguments = parser.parse_args()
    result = json.loads((arguments.folder / "result.json").read_text())
    rows = rows_of(result)
    table = table_of(rows)
    print(table)
    (arguments.folder / "table.txt").write_text(table + "\n")
    for text in result["violations"]:
        print(text[:2000], file=sys.stderr)
    if not arguments.no_plots:
        draw_all(arguments.folder, result)
    build = "" if arguments.preset == "release" else f" --preset {arguments.preset}"
    command = f"scripts/soak {result['wanted']} --faults {result['faultPercent']:g} --seed {result['seed']}{build}"
    name = "soak" if arguments.preset == "release" else f"soak-{arguments.preset}"
    found = found_by(result, arguments.status)
    quality.record(name, "Soak: all operations over HTTPS from many threads, with faults", command, result["seconds"],
                   rows, found)
    print("No check was broken." if found == "nothing" else f"Found: {found}")
    return 0 if found == "nothing" else 1


if __name__ == "__main__":
    sys.exit(main())
