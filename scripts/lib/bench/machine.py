"""What a run was measured on and with."""

import datetime
import os
import pathlib
import platform
import subprocess
import sys

from . import places

sys.path.insert(0, str(places.ROOT / "scripts" / "lib"))
from quality import first_line  # noqa: E402

PACKAGES = {
    "C library": "libc6", "C++ library": "libstdc++6", "libcurl": "libcurl4", "OpenSSL": "libssl3",
    "JsonCpp": "libjsoncpp25", "nginx": "nginx", "valgrind": "valgrind", "cpp-httplib": "libcpp-httplib-dev",
    "cpprestsdk": "libcpprest-dev", "Python": "python3", "Python requests": "python3-requests",
    "nlohmann": "nlohmann-json3-dev", "RapidJSON": "rapidjson-dev", "simdjson": "libsimdjson-dev",
}


def processor():
    for line in pathlib.Path("/proc/cpuinfo").read_text().splitlines():
        if line.startswith("model name"):
            return line.split(":", 1)[1].strip()
    return platform.machine()


def versions():
    """Versions of the installed packages, by what they are called on the page."""
    listed = subprocess.run(["dpkg-query", "-W", "-f", "${Package} ${Version}\n", *PACKAGES.values()],
                            capture_output=True, text=True, check=False).stdout
    by_package = dict(line.split() for line in listed.splitlines())
    found = {name: by_package[package] for name, package in PACKAGES.items() if package in by_package}
    json11 = pathlib.Path(os.environ.get("CACHE", "")) / "json11"
    if json11.is_symlink():
        found["json11"] = os.readlink(json11).removeprefix("json11-")
    return found


def describe():
    changed = first_line("git", "status", "--porcelain", "--untracked-files=no")
    return {
        "processor": processor(),
        "cores": os.cpu_count(),
        "system": platform.freedesktop_os_release().get("PRETTY_NAME", platform.system()),
        "compiler": first_line("g++", "--version"),
        "versions": versions(),
        "date": datetime.date.today().isoformat(),
        "commit": first_line("git", "rev-parse", "--short", "HEAD") + (" with changes" if changed else ""),
        "load": round(os.getloadavg()[0], 1),
    }
