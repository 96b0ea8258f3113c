"""What the tests of the command-line tool share: starting it, and a loopback cloud that is a real one to it.

The programs to test come from the environment: VANTIXCTL_UNDER_TEST (with its launcher), VANTIX_SIMULATOR_PROGRAM,
VANTIX_HOST_EXAMPLE (with its launcher); VANTIX_RECORDS and VANTIX_INTERFACE name the headers that the tool's output is held against.
"""

import contextlib
import json
import os
import shlex
import subprocess
import tempfile
import unittest
import urllib.request

# The program, and what starts it where it does not run by itself.
TOOL = shlex.split(os.environ["VANTIXCTL_UNDER_TEST"])
CAMERA = "C10000001"


def environment(extra=None):
    clean = {name: value for name, value in os.environ.items() if not name.startswith("VANTIXCTL_")}
    clean.pop("NO_COLOR", None)
    return {**clean, "COLUMNS": "100", **(extra or {})}


def run(*arguments, env=None, timeout=120):
    with stand_in(arguments, environment(env)) as variables:
        done = subprocess.run([*TOOL, *arguments], capture_output=True, env=variables, timeout=timeout,
                              stdin=subprocess.DEVNULL, check=False)
    done.out, done.err = (text.decode().replace("\r\n", "\n") for text in (done.stdout, done.stderr))
    return done


class Cloud:
    """The loopback cloud as a program of its own: for the tool it is a real one."""

    def __enter__(self):
        self.process = subprocess.Popen([os.environ["VANTIX_SIMULATOR_PROGRAM"], "--until-eof"],
                                        stdin=subprocess.PIPE, stdout=subprocess.PIPE)
        addresses = json.loads(self.process.stdout.readline())
        self.b_domain, self.c_domain, self.address = (addresses[name] for name in ("bDomain", "cDomain", "control"))
        self.account = self.control("GET", "/account")
        return self

    def __exit__(self, *problem):
        self.process.stdin.close()
        self.process.wait(timeout=30)
        self.process.stdout.close()

    def control(self, method, path, content=None):
        body = None if content is None else json.dumps(content).encode()
        with urllib.request.urlopen(urllib.request.Request(self.address + path, body, method=method)) as response:
            return json.load(response)

    def journal(self):
        return self.control("GET", "/journal")

    def sent(self):
        """The parameters of everything received, as dictionaries."""
        texts = [entry["query"] or entry["body"] for entry in self.journal()]
        return [dict(pair.split("=", 1) for pair in text.split("&")) for text in texts]


@contextlib.contextmanager
def stand_in(arguments, variables):
    """The variables for a run. Where the tool has no loopback cloud of its own and the run names no other, one beside
    it stands in: a new one for each run, as the tool's own would be."""
    chosen = any(word.startswith(("--b-domain", "--credentials")) for word in arguments)
    chosen = chosen or "VANTIXCTL_CREDENTIALS" in variables or "VANTIXCTL_B_DOMAIN" in variables
    if os.environ.get("VANTIX_TOOL_HAS_NO_CLOUD") != "1" or chosen:
        yield variables
        return
    with Cloud() as cloud, tempfile.NamedTemporaryFile("w", suffix=".json") as file:
        json.dump(cloud.control("GET", "/info"), file)
        file.flush()
        yield {**variables, "VANTIXCTL_CREDENTIALS": file.name}


class Case(unittest.TestCase):
    maxDiff = None

    def succeeds(self, *arguments, **options):
        done = run(*arguments, **options)
        self.assertEqual(done.returncode, 0, done.out + done.err)
        self.assertEqual(done.err, "", "a success says nothing on standard error")
        return done.out

    def fails(self, status, *arguments, **options):
        done = run(*arguments, **options)
        self.assertEqual(done.returncode, status, done.out + done.err)
        self.assertNotIn("VX   ", done.err, "no log line without --log")
        self.assertTrue(done.err.startswith("vantixctl: "), done.err)
        return done.err

    def document(self, *arguments, status=0, **options):
        done = run(*arguments, "--json", **options)
        self.assertEqual(done.returncode, status, done.out + done.err)
        self.assertEqual(done.err, "")
        return json.loads(done.out)
