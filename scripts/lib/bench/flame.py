"""Where the instructions of a job go: stacks from callgrind, and their picture."""

import pathlib
import re
import tempfile
from xml.sax.saxutils import escape

from . import count, places
from .profile import Profile

# Jobs that get a picture, with its title.
JOBS = {
    "request/post/plain": "One form POST over HTTP, on a new connection",
    "request/post/tls": "One form POST over HTTPS, on a new connection",
    "parse/detail": "One device detail read into records",
    "parse/recordings": "The 1,000 recordings of a day read into records",
    "cache/hit/reused/1000": "One hit in the cache, slot 4, records reused",
}
DEEPEST = 100     # callers that a stack keeps; a handshake is deep
LEAST = 0.002     # share of the whole below which a stack is not kept on its own
HARNESS = re.compile(r"MakeCase|vantix::bench::|_FUN\(long\)|Repeat\(|^main$|^\(below main\)$|^_start$")

# A layer of a function: the first pattern that its name or its object fits.
LAYERS = [
    ("allocator", None, re.compile(r"^(_?_?(libc_)?(malloc|free|calloc|realloc)|_int_(malloc|free|realloc)|cfree|"
                                   r"operator (new|delete).*|malloc_consolidate|unlink_chunk.*|sysmalloc|tcache_.*)$")),
    ("ours", re.compile(r"vantix_bench$"), re.compile(r"vantix::|TVL_|TVLLOG_|HWP_")),
    ("JSON library", None, re.compile(r"json11::|Json::")),
    ("libcurl", re.compile(r"libcurl"), None),
    ("TLS library", re.compile(r"lib(ssl|crypto)"), None),
    ("C and C++ libraries", None, re.compile(r"")),
]


def layer_of(name, obj):
    for layer, of_object, of_name in LAYERS:
        if (of_object is None or of_object.search(obj)) and (of_name is None or of_name.search(name)):
            return layer
    return LAYERS[-1][0]


def without_brackets(name):
    """The text outside of "(…)" and "<…>"."""
    kept, depth = [], 0
    for letter in name:
        if letter in "(<":
            depth += 1
        elif letter in ")>" and depth > 0:
            depth -= 1
        elif depth == 0:
            kept.append(letter)
    return "".join(kept)


def shortened(name, obj):
    """A function's name without arguments, our namespaces, return type, and the marks of clones. One without a name is
    called by its library."""
    if name.startswith("0x"):
        return "(inside " + pathlib.PurePath(obj).name.split(".so")[0] + ")"
    name = re.sub(r"\[(clone|abi:)[^]]*\]|@.*", "", name)
    name = name.replace("(anonymous namespace)::", "").replace("vantix::", "").replace("std::__cxx11::", "std::")
    name = re.sub(r"\{lambda.*#\d+\}", "lambda", name)
    name = re.sub(r"operator(\(\)|[<>=]+)", "operator", name)
    words = without_brackets(name).replace(" const", "").split()
    if not words:
        return name
    return " ".join(words[-2:]) if words[-2:-1] == ["operator"] else words[-1]


def frames_of(stack, objects_of):
    """From the outermost function of the job to the one that runs; the harness is left out, and recursion is one."""
    frames = []
    for name in reversed([name for name in stack if not name.isdigit()]):
        if HARNESS.search(name):
            frames = []
            continue
        obj = objects_of.get(name, "")
        frame = (shortened(name, obj), layer_of(name, obj))
        if not name.startswith("__wrap_") and frames[-1:] != [frame]:
            frames.append(frame)
    return frames


def stacks_of(name, environment):
    """Instructions of one round by stack, as JSON."""
    with tempfile.TemporaryDirectory() as folder:
        path = pathlib.Path(folder) / "profile"
        rounds, _ = count.run(places.PROGRAM, name, environment, path, f"--separate-callers={DEEPEST}",
                              "--separate-recs=1", "--compress-pos=no")
        profile = Profile(path.read_text(errors="replace"))
    merged = {}
    for stack, cost in profile.costs.items():
        frames = tuple(frames_of(stack, profile.objects_of))
        merged[frames] = merged.get(frames, 0) + cost / rounds
    return packed(pruned(merged))


def pruned(costs):
    """Stacks that hardly count are added to their callers."""
    total = sum(costs.values())
    inclusive = {}
    for frames, cost in costs.items():
        for depth in range(len(frames) + 1):
            inclusive[frames[:depth]] = inclusive.get(frames[:depth], 0) + cost
    kept = {}
    for frames, cost in costs.items():
        while frames and inclusive[frames] < LEAST * total:
            frames = frames[:-1]
        kept[frames] = kept.get(frames, 0) + cost
    return kept


def packed(costs):
    """The same as JSON: each function once, stacks by their numbers."""
    frames = sorted({frame for stack in costs for frame in stack})
    numbers = {frame: number for number, frame in enumerate(frames)}
    return {"functions": [list(frame) for frame in frames],
            "stacks": [[[numbers[frame] for frame in stack], round(cost)] for stack, cost in sorted(costs.items())]}


def unpacked(flame):
    """Pairs of a stack, outermost function first, and its own instructions."""
    functions = [tuple(function) for function in flame["functions"]]
    return [([functions[number] for number in stack], cost) for stack, cost in flame["stacks"]]


def by_layer(flame):
    """Own instructions of each layer."""
    totals = {}
    for frames, cost in unpacked(flame):
        layer = frames[-1][1] if frames else LAYERS[-1][0]
        totals[layer] = totals.get(layer, 0) + cost
    return totals


def file_name(name):
    return "flame-" + name.replace("/", "-") + ".svg"


COLORS = {"ours": "#1f6fb4", "JSON library": "#58a55c", "libcurl": "#c9a24b", "TLS library": "#c8442e",
          "allocator": "#8e6bb0", "C and C++ libraries": "#a9b4bf"}
WIDTH, ROW, LEFT, TOP = 1200, 18, 4, 64
LETTER = 7.0  # width of one at this size, rather too much than too little


class Node:
    """A function in the tree of stacks."""

    def __init__(self, layer):
        self.layer, self.cost, self.children = layer, 0, {}

    def add(self, frames, cost):
        self.cost += cost
        if frames:
            name, layer = frames[0]
            self.children.setdefault((name, layer), Node(layer)).add(frames[1:], cost)

    def depth(self):
        return 1 + max((child.depth() for child in self.children.values()), default=0)


def fitting(name, letters):
    """The name, or its last part, or as much of that as there is room for."""
    last = name.rsplit("::", 1)[-1]
    if len(name) <= letters:
        return name
    if len(last) <= letters:
        return last
    return last[:letters - 1] + "…" if letters >= 5 else ""


def box(name, node, left, width, bottom, total):
    """A function, as wide as its share of the whole."""
    share = 100 * node.cost / total
    text = ""
    if label := fitting(name, int((width - 6) / LETTER)):
        text = f'<text x="{left + 3:.1f}" y="{bottom - 5}">{escape(label)}</text>'
    return (f'<g><title>{escape(name)}: {node.cost:,.0f} instructions, {share:.1f} %</title>'
            f'<rect x="{left:.1f}" y="{bottom - ROW + 1}" width="{max(width - 0.5, 0.3):.1f}" height="{ROW - 1}" '
            f'fill="{COLORS[node.layer]}"/>{text}</g>')


def boxes(node, left, bottom, scale, total):
    """The functions that a node calls, side by side, the dearest first."""
    for (name, _), child in sorted(node.children.items(), key=lambda item: -item[1].cost):
        width = child.cost * scale
        yield box(name, child, left, width, bottom, total)
        yield from boxes(child, left, bottom - ROW, scale, total)
        left += width


def legend(layers, y):
    x = LEFT
    for layer, color in COLORS.items():
        if layer not in layers:
            continue
        yield f'<rect x="{x}" y="{y - 10}" width="12" height="12" fill="{color}"/>'
        yield f'<text x="{x + 17}" y="{y}" fill="#222">{escape(layer)}</text>'
        x += 34 + int(len(layer) * LETTER) + 14


def picture(title, flame):
    """The flame graph as SVG: callers below what they call, width by instructions."""
    root = Node("ours")
    for frames, cost in unpacked(flame):
        root.add(frames, cost)
    height = TOP + ROW * (root.depth() - 1) + 10
    lines = [f'<svg xmlns="http://www.w3.org/2000/svg" width="{WIDTH}" height="{height}" '
             f'viewBox="0 0 {WIDTH} {height}" font-family="sans-serif" font-size="11" fill="#fff">',
             f'<rect width="{WIDTH}" height="{height}" fill="#fff"/>',
             f'<text x="{LEFT}" y="20" font-size="15" font-weight="bold" fill="#222">{escape(title)}: '
             f'{root.cost:,.0f} instructions</text>',
             *legend(by_layer(flame), 44),
             *boxes(root, LEFT, height - 6, (WIDTH - 2 * LEFT) / root.cost, root.cost), "</svg>"]
    return "\n".join(lines) + "\n"
