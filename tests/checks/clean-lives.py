"""Lets a host live one scenario again and again, and wants it to end cleanly each time.

    clean-lives.py RUNS SCENARIO LIBRARY PROBE...

PROBE is the host, with its launcher in front where it has one. VANTIX_SIMULATOR_PROGRAM names the loopback cloud that
it asks. A run counts when it ends within its time, with status 0 and nothing on standard error but log lines.
"""
import json
import os
import subprocess
import sys
import urllib.request

SECONDS = 120


def is_clean(command):
    try:
        done = subprocess.run(command, capture_output=True, timeout=SECONDS, stdin=subprocess.DEVNULL, check=False)
    except subprocess.TimeoutExpired:
        print("still running after", SECONDS, "s")
        return False
    # Where there is no debugger channel, log lines go to standard error. Wine speaks of threads that it stops.
    said = [line for line in done.stderr.decode(errors="replace").splitlines()
            if line and " VX   " not in line and not line.startswith("wine client error:")]
    if done.returncode != 0 or said:
        print("status", done.returncode, done.stdout, *said[-5:], sep="\n  ")
        return False
    return True


def main(runs, scenario, library, *probe):
    cloud = subprocess.Popen([os.environ["VANTIX_SIMULATOR_PROGRAM"], "--until-eof"], stdin=subprocess.PIPE,
                             stdout=subprocess.PIPE)
    addresses = json.loads(cloud.stdout.readline())
    with urllib.request.urlopen(addresses["control"] + "/account") as response:
        token = json.load(response)["accessToken"]
    command = [*probe, library, scenario, addresses["bDomain"], token, "C10000001"]
    clean = sum(is_clean(command) for _ in range(int(runs)))
    cloud.stdin.close()
    cloud.wait(timeout=SECONDS)
    print(f"{clean} of {runs} runs of '{scenario}' are clean")
    return 0 if clean == int(runs) else 1


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
