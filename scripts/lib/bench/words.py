"""What the page says around its figures."""

import textwrap


def paragraph(text):
    """A paragraph as it stands in a document."""
    return textwrap.fill(" ".join(text.split()), 120, break_long_words=False, break_on_hyphens=False) + "\n"


INTRODUCTION = "# Performance\n\n" + paragraph("""
    Each job of the library beside its floor: the same effect written by hand, with the same bytes, options, copies and
    locks, measured in the same run. `scripts/bench` measures and writes this page with its pictures; nothing in it is
    typed by hand. What the library sends and why is in [transport](transport.md) and [platform](platform.md), what its
    caches promise in [caches and futures](caches-and-futures.md).
    """) + "\n" + paragraph("""
    Instructions and allocations are counted by callgrind for one round and repeat in every run, so they carry the
    goals; times drift with the machine, and only their ratios within one run mean something. So that counts are the
    same on every machine, they are made with the plainest string functions of the C library; what copies and zeroes
    looks a little dearer in them than it is. Ratios are to the floor: 1.00 is as good as written by hand.
    """)

PARTIAL = "\n" + paragraph("""
    This run was a quick one or one of a single part: amounts are smaller than their titles say, or parts are missing.
    """)

# The title of each part, and what is compared with what.
PARTS = {
    "request": ("One request", """
        On a new connection each, against nginx on this machine, which returns a body of 6 KB. The floor is libcurl
        alone with the same options and the same request; path and lengths, as the server received them, are compared in
        each run. At the usual log level the floor writes the same lines by hand."""),
    "parse": ("Reading responses", """
        From the body to filled records. The floor is the JSON library alone, which builds a document of the same texts
        and takes nothing out of it."""),
    "cache": ("Cache hits", """
        Slot 4, `getDevDetailInfo`, on a cached channel, log silenced. The floor is a hash table and a tree, a lock for
        each, a key without `printf`, and two copies under the locks. The copies into fresh records allocate their
        texts."""),
    "threads": ("Hits by several threads", """
        Threads that hit a cache of 1,000 channels, while one more refills it a thousand times a second. The floor is
        the hand-written cache of the hits, with as many threads."""),
    "log": ("Log lines", """
        A line that the level filters out, and a written one whose sinks do nothing. The floors are one comparison; a
        buffer of 40,960 zeros, the text formatted into it, and two calls; a thread that writes no line."""),
    "async": ("Fetching by a task", """
        From the call on a cold cache to the value of its future, with a canned response. The floor is `std::async`
        around the synchronous call."""),
    "prefetch": ("Many channels", """
        Fetched over TLS and stored, by 16 tasks at once. The floor is libcurl alone with 16 threads, which drops what
        it receives: it parses and stores nothing."""),
    "memory": ("Memory", """
        What the heap grows by while the cache is filled, for each channel. The floor is one record for each channel
        and one for each device: the size of the record and of its texts, counted by hand."""),
    "load": ("Loading", """
        A fresh process that loads the library, with everything that it links, and makes a handle. The floor is an
        empty shared object. Sizes are those of stripped copies."""),
}

CLIENTS = """
    The same exchange with what a user would pick instead, over {way}. Ratios are to libcurl alone; certificates are
    unchecked, as the library leaves them:"""

SCALE = "Documents of the detail's texts by other libraries, as a scale:"

GAPS = """
    Each goal that is not met, with its reason as far as it is known; below it, where the instructions beyond the floor
    go. Functions stand with all of their own instructions where the floor has none of that name: a copy that the floor
    makes in a function of another name is in them."""

RULES = "Instructions that nobody can save, since the behaviour is a contract with hosts and servers:"

PROFILE = """
    Own instructions of each layer, of one round. The pictures show them by stack: callers below what they call, as wide
    as the instructions of both. A library that was built without names is one block."""

ADDING = "\n## Adding a job\n\n" + paragraph("""
    A job is a case in a program of `bench/` (a name, what prepares it, its body) and a row for each of its goals in
    `bench/jobs.tsv`; its floor is a case too. `scripts/bench --guard --update` adds it to `bench/guard.tsv` when its
    row says that it is counted. What scripts and page do follows from the rows.
    """)
