"""Installs the build into an empty folder and builds and runs hosts against nothing but that.

    installed.py CMAKE BUILD_FOLDER HOST_PROJECT HOST_EXAMPLE COMPILER

Nothing helps the loader: no LD_LIBRARY_PATH, no cache entry.
"""
import os
import pathlib
import subprocess
import sys
import tempfile

ENVIRONMENT = {name: value for name, value in os.environ.items() if name != "LD_LIBRARY_PATH"}
NOBODY_LISTENS = "http://127.0.0.1:1"


def run(*command):
    """The output of a command; when it fails, what it wrote is shown and the check ends."""
    done = subprocess.run([str(word) for word in command], capture_output=True, text=True, env=ENVIRONMENT)
    if done.returncode != 0:
        sys.exit(f"{' '.join(map(str, command))}\n{done.stdout}{done.stderr}")
    return done.stdout


def starts(*command):
    """A program starts and does its work: it prints what an unreachable cloud gives."""
    done = subprocess.run([str(word) for word in command], capture_output=True, text=True, env=ENVIRONMENT)
    if "100007" not in done.stdout:
        sys.exit(f"{' '.join(map(str, command))}\n{done.stdout}{done.stderr}")


def project_hosts(cmake, project, example, compiler, prefix, hosts):
    """A host's own CMake project."""
    run(cmake, "-S", project, "-B", hosts, f"-DCMAKE_PREFIX_PATH={prefix}", f"-DHOST_EXAMPLE={example}",
        f"-DCMAKE_CXX_COMPILER={compiler}")
    run(cmake, "--build", hosts)
    print(run(hosts / "locks_host"), end="")
    starts(hosts / "host_example", NOBODY_LISTENS, "app", "token", "C1")


def plain_hosts(project, example, compiler, prefix, hosts):
    """Hosts without CMake, as C++17: with a run path of their own, which does not hold for what the library needs."""
    library = next(prefix.rglob("libvantixdatacenter.so")).parent
    common = ["-std=c++17", f"-I{prefix / 'include'}", f"-L{library}", f"-Wl,-rpath,{library},--enable-new-dtags"]
    run(compiler, *common, pathlib.Path(project, "locks_host.cpp"), "-lvantixdatacenter", "-ltvllog", "-ltvl",
        "-o", hosts / "plain_locks_host")
    print(run(hosts / "plain_locks_host"), end="")
    run(compiler, *common, example, "-lvantixdatacenter", "-o", hosts / "plain_host")
    starts(hosts / "plain_host", NOBODY_LISTENS, "app", "token", "C1")


def moved(prefix):
    """What was installed may be moved: a host that loads the library by its path, and the tool, still start."""
    elsewhere = prefix.rename(prefix.with_name("moved"))
    library = next(elsewhere.rglob("libvantixdatacenter.so"))
    run(sys.executable, "-c", "import ctypes, sys; ctypes.CDLL(sys.argv[1]).CreateVantixDataCenterInstance", library)
    tool = elsewhere / "bin" / "vantixctl"
    if tool.exists():
        run(tool, "--version")


def main(cmake, build, project, example, compiler):
    with tempfile.TemporaryDirectory() as folder:
        prefix, hosts = pathlib.Path(folder, "installed"), pathlib.Path(folder, "hosts")
        run(cmake, "--install", build, "--prefix", prefix)
        project_hosts(cmake, project, example, compiler, prefix, hosts)
        plain_hosts(project, example, compiler, prefix, hosts)
        moved(prefix)
    return 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
