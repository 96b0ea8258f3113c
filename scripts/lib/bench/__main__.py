"""The part of scripts/bench that measures; it is called with everything built."""

import argparse
import subprocess
import sys

from . import guard, page, places, run


def response_body():
    """What the server returns: a device's detail."""
    return subprocess.run([places.PROGRAM, "--once", "request/response", "0"], capture_output=True, text=True,
                          check=True).stdout


def arguments_of(words):
    parser = argparse.ArgumentParser(prog="scripts/bench", add_help=False)
    parser.add_argument("--quick", action="store_true")
    parser.add_argument("--only")
    parser.add_argument("--guard", action="store_true")
    parser.add_argument("--update", action="store_true")
    parser.add_argument("--page", action="store_true")
    parser.add_argument("--check", action="store_true")
    arguments = parser.parse_args(words)
    if arguments.update and not arguments.guard:
        parser.error("--update belongs to --guard")
    return arguments


def main(words):
    arguments = arguments_of(words)
    if arguments.check:
        return page.check()
    places.WORK.mkdir(parents=True, exist_ok=True)
    if arguments.guard:
        return guard.run(response_body(), arguments.update)
    if arguments.page:
        page.write(page.kept())
    else:
        page.write(run.measure(response_body(), arguments.quick, arguments.only))
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
