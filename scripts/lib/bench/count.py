"""Instructions and allocations of one round of a job, by callgrind. Unlike times they are the same in every run."""

import concurrent.futures
import dataclasses
import os
import pathlib
import re
import statistics
import subprocess
import tempfile

ALLOCATORS = re.compile(r"(malloc|calloc|realloc|aligned_alloc|posix_memalign)(@\S+)?")

# The C library chooses its string functions by the processor, and how they work by the size of its caches. With these
# settings it takes the plainest ones on every machine; the environment is the same everywhere, too, since its size
# moves the stack.
WITHOUT = ("AVX512F", "AVX512VL", "AVX512BW", "AVX2", "AVX", "AVX_Fast_Unaligned_Load", "BMI1", "BMI2", "LZCNT", "MOVBE",
           "POPCNT", "RTM", "SSE4_1", "SSE4_2", "SSSE3", "ERMS", "FSRM", "Fast_Unaligned_Copy", "Prefer_ERMS",
           "Prefer_FSRM")
STABLE = {
    "GLIBC_TUNABLES": "glibc.cpu.hwcaps=" + ",".join("-" + feature for feature in WITHOUT) +
                      ":glibc.cpu.x86_non_temporal_threshold=0xc0000:glibc.cpu.x86_rep_movsb_threshold=0x800"
                      ":glibc.cpu.x86_rep_stosb_threshold=0x800",
    "LC_ALL": "C",
    "HOME": "/",
    "PATH": "/usr/bin:/bin",
}


@dataclasses.dataclass
class Count:
    """Of one round."""
    instructions: float
    allocations: float


def function_names(lines):
    """Numbers of functions in a profile, with the names that stand beside their first use."""
    names = {}
    for line in lines:
        match = re.match(r"c?fn=\((\d+)\) (.+)", line)
        if match:
            names[match.group(1)] = match.group(2)
    return names


def allocations_in(profile):
    """The number of calls of C allocation functions in a callgrind profile."""
    lines = profile.read_text(errors="replace").splitlines()
    names = function_names(lines)
    total, callee = 0, ""
    for line in lines:
        match = re.match(r"cfn=\((\d+)\)", line)
        if match:
            callee = names[match.group(1)].split("'")[0]
        elif line.startswith("calls=") and ALLOCATORS.fullmatch(callee):
            total += int(line[6:].split()[0])
    return total


def run(program, name, environment, profile, *options):
    """Runs the rounds of a job under callgrind; the number of rounds and of instructions."""
    command = ["valgrind", "--tool=callgrind", f"--callgrind-out-file={profile}", "--instr-atstart=no", *options,
               str(program), "--repeat", name]
    done = subprocess.run(command, env=STABLE | environment, capture_output=True, text=True, check=False)
    rounds = re.search(r"rounds (\d+)", done.stdout)
    collected = re.search(r"Collected : (\d+)", done.stderr)
    if done.returncode != 0 or not rounds or not collected:
        raise RuntimeError(f"{name}: {done.stdout.strip()} {done.stderr.strip()[-2000:]}")
    if int(collected.group(1)) == 0:
        raise RuntimeError(f"{program} was built without callgrind's header: install valgrind, and build again")
    return int(rounds.group(1)), int(collected.group(1))


def count(program, name, environment, runs=1):
    """The median of some runs."""
    counts = []
    for _ in range(runs):
        with tempfile.TemporaryDirectory() as folder:
            profile = pathlib.Path(folder) / "profile"
            rounds, instructions = run(program, name, environment, profile)
            counts.append((instructions / rounds, allocations_in(profile) / rounds))
    return Count(*(statistics.median(values) for values in zip(*counts)))


def varies(name):
    """Whether something outside of the process plays a part: a server that is slower at times, or other threads."""
    return "request/" in name or "async/" in name


def count_all(program, names, environment, runs):
    """Counts some cases, as many at once as there are processors; those that vary, that many times."""
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        counted = pool.map(lambda name: count(program, name, environment, runs if varies(name) else 1), names)
        return dict(zip(names, counted))
