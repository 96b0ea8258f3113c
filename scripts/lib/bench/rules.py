"""What prescribed behaviour costs, from the same run: these instructions are no waste."""

from . import figures, words

# The rule, the case with it, the case without it, and what these are.
RULES = [
    ("A new connection for each request, HTTP", "floor/request/post/plain", "floor/request/kept/plain",
     "libcurl alone, against a handle that keeps its connection"),
    ("A new connection for each request, HTTPS", "floor/request/post/tls", "floor/request/kept/tls",
     "the same: the handshake"),
    ("A log line's buffer of 40,960 bytes is zeroed", "floor/log/written", "floor/log/unzeroed",
     "a line by hand, against one without the zeroing"),
    ("A relation to a parent device is read twice", "cache/relation", "cache/relation/one_read",
     "slot 8, `getDevDetailInfoByRelation`, against one read"),
]


def cases(part):
    """The cases of a part that have to be counted for this."""
    names = [name for _, with_rule, without, _ in RULES for name in (with_rule, without)]
    return [name for name in names if name.removeprefix("floor/").split("/")[0] == part]


def section(results):
    rows = []
    for title, with_rule, without, how in RULES:
        more, less = (figures.value_of(results, name, "instructions") for name in (with_rule, without))
        if more and less:
            rows.append(f"| {title} | {more:,.0f} | {less:,.0f} | {more - less:,.0f} | {how} |")
    if not rows:
        return ""
    header = "| Rule | With it | Without it | Its cost | Measured |\n|---|--:|--:|--:|---|\n"
    return f"\n## What prescribed behaviour costs\n\n{words.RULES}\n\n" + header + "\n".join(rows) + "\n"
