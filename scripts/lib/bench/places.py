"""Where things are."""

import pathlib

ROOT = pathlib.Path(__file__).resolve().parents[3]
BUILD = ROOT / "build" / "release"
PROGRAM = BUILD / "bench" / "vantix_bench"
PEERS = BUILD / "bench" / "vantix_bench_peers"
LIBRARY = BUILD / "src" / "libvantixdatacenter.so"
WORK = ROOT / "build" / "bench"
RESULTS = WORK / "results.json"
JOBS = ROOT / "bench" / "jobs.tsv"
REASONS = ROOT / "bench" / "reasons.tsv"
GUARD = ROOT / "bench" / "guard.tsv"
PAGE = ROOT / "docs" / "performance.md"
PICTURES = ROOT / "docs" / "performance"
KEPT = PICTURES / "results.json"
