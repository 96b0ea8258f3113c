"""The plots of the page. A plot says one thing; ratios to the floor stand first."""

import matplotlib

matplotlib.use("svg")
from matplotlib import pyplot, ticker  # noqa: E402

from . import figures, flame, jobs  # noqa: E402

LIBRARY, FLOOR, GOAL, OTHER, MISSED = "#1f6fb4", "#8a8a8a", "#222222", "#c9a24b", "#c8442e"

pyplot.rcParams.update({
    "svg.hashsalt": "vantix", "svg.fonttype": "none", "font.family": "sans-serif", "font.size": 9,
    "axes.spines.top": False, "axes.spines.right": False, "axes.titlesize": 11, "axes.titleweight": "bold",
    "axes.titlelocation": "left",
})


def save(figure, path):
    figure.savefig(path, metadata={"Date": None, "Creator": None}, bbox_inches="tight")
    pyplot.close(figure)
    lines = [line.rstrip() for line in path.read_text().splitlines()]
    path.write_text("\n".join(lines) + "\n")


def draw_ratios(results, path):
    """Every job with a goal for its instructions: how far it is from its floor, and from its goal."""
    rows = [row for row in jobs.read() if row.measure == "instructions" and row.goal.text != "told"]
    outcomes = [outcome for outcome in figures.outcomes(results, rows) if outcome.ratio]
    if not outcomes:
        return
    outcomes.sort(key=lambda outcome: outcome.ratio)
    figure, axes = pyplot.subplots(figsize=(8.5, 0.8 + 0.3 * len(outcomes)))
    for place, outcome in enumerate(outcomes):
        goal = float(outcome.row.goal.text.lstrip("<>="))
        color = LIBRARY if outcome.met else MISSED
        axes.plot([1, outcome.ratio], [place, place], color=color, linewidth=4, solid_capstyle="butt")
        axes.plot(goal, place, "|", color=GOAL, markersize=13, markeredgewidth=1.6)
        axes.annotate(f"{outcome.ratio:.3f}" if outcome.ratio < 1.01 else f"{outcome.ratio:.2f}",
                      (max(outcome.ratio, goal), place), xytext=(6, 0), textcoords="offset points", va="center")
    axes.axvline(1, color=FLOOR, linewidth=1)
    axes.set_yticks(range(len(outcomes)), [outcome.row.title for outcome in outcomes])
    axes.tick_params(axis="y", length=0)
    axes.set_xlim(min(0.9, *(outcome.ratio for outcome in outcomes)) - 0.02, max(o.ratio for o in outcomes) * 1.08)
    axes.set_xlabel("instructions, as a multiple of the floor; | is the goal, which blue rows meet and red ones miss")
    axes.set_title("Jobs beside their floors")
    save(figure, path)


def draw_clients(results, path):
    """Clients by the time of one exchange, as multiples of libcurl alone."""
    figure, sides = pyplot.subplots(1, 2, figsize=(9, 2.6))
    drawn = False
    for axes, way, title in zip(sides, ("plain", "tls"), ("HTTP", "HTTPS")):
        alone = figures.value_of(results, f"peer/request/{way}/libcurl", "time")
        prefix = f"peer/request/{way}/"
        names = [f"request/post/{way}"] + [name for name in results["times"] if name.startswith(prefix)]
        names = [name for name in names if results["times"].get(name)]
        if not alone:
            continue
        drawn = True
        names.sort(key=lambda name: -figures.value_of(results, name, "time"))
        for place, name in enumerate(names):
            middle, low, high, _, _ = (value / alone for value in figures.spread(results["times"][name]))
            ours = name.startswith("request/")
            axes.barh(place, middle, color=LIBRARY if ours else OTHER, height=0.62)
            axes.plot([low, high], [place, place], color=GOAL, linewidth=1)
            axes.annotate(f"{middle:.2f}", (max(middle, high), place), xytext=(4, 0), textcoords="offset points",
                          va="center")
        labels = ["this library" if name.startswith("request/") else name.removeprefix(prefix) for name in names]
        axes.set_yticks(range(len(names)), labels)
        axes.axvline(1, color=FLOOR, linewidth=1)
        axes.margins(x=0.14)
        axes.tick_params(axis="y", length=0)
        axes.set_xlabel("time, as a multiple of libcurl alone")
        axes.set_title(title)
    figure.tight_layout()
    if drawn:
        save(figure, path)
    else:
        pyplot.close(figure)


def draw_threads(results, path):
    """Hits a second over the number of threads."""
    counts = (1, 2, 8, 32)
    figure, axes = pyplot.subplots(figsize=(6.5, 3.2))
    drawn = False
    for prefix, label, color in (("", "library", LIBRARY), ("floor/", "by hand", FLOOR)):
        samples = [figures.samples_of(results, f"{prefix}threads/{count}", "hits_per_second") for count in counts]
        if all(samples):
            drawn = True
            spreads = [figures.spread(values) for values in samples]
            axes.errorbar(counts, [middle for middle, *_ in spreads],
                          yerr=[[middle - low for middle, low, *_ in spreads],
                                [high - middle for middle, _, high, *_ in spreads]],
                          color=color, marker="o", capsize=3, label=label)
    axes.set_xscale("log", base=2)
    axes.set_xticks(counts, [str(count) for count in counts])
    axes.set_ylim(bottom=0)
    axes.yaxis.set_major_formatter(ticker.FuncFormatter(lambda value, _: f"{value:,.0f}"))
    axes.grid(axis="y", alpha=0.3)
    axes.set_xlabel("threads that hit the cache, while one more refills it")
    axes.set_ylabel("hits a second")
    axes.set_title("Hits by several threads (median, quartiles)")
    if drawn:
        axes.legend(frameon=False)
        save(figure, path)
    else:
        pyplot.close(figure)


def draw_all(results, folder):
    """All pictures of the page."""
    draw_ratios(results, folder / "ratios.svg")
    draw_clients(results, folder / "clients.svg")
    draw_threads(results, folder / "threads.svg")
    for name, measured in results["flames"].items():
        (folder / flame.file_name(name)).write_text(flame.picture(flame.JOBS[name], measured))
