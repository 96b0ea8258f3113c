"""Installs the build into an empty folder and builds and runs hosts against nothing but that.

    installed.py CMAKE BUILD_FOLDER HOST_PROJECT HOST_EXAMPLE COMPILER
"""
import pathlib
import subprocess
import sys
import tempfile


def run(*command):
    """The output of a command; when it fails, what it said is shown and the check ends."""
    done = subprocess.run([str(word) for word in command], capture_output=True, text=True)
    if done.returncode != 0:
        sys.exit(f"{' '.join(map(str, command))}\n{done.stdout}{done.stderr}")
    return done.stdout


def main(cmake, build, project, example, compiler):
    with tempfile.TemporaryDirectory() as folder:
        prefix, hosts = pathlib.Path(folder, "installed"), pathlib.Path(folder, "hosts")
        run(cmake, "--install", build, "--prefix", prefix)
        run(cmake, "-S", project, "-B", hosts, f"-DCMAKE_PREFIX_PATH={prefix}", f"-DHOST_EXAMPLE={example}",
            f"-DCMAKE_CXX_COMPILER={compiler}")
        run(cmake, "--build", hosts)
        print(run(hosts / "locks_host"), end="")
        # The same without CMake, as C++17.
        library = next(prefix.rglob("libvantixdatacenter.so")).parent
        run(compiler, "-std=c++17", f"-I{prefix / 'include'}", pathlib.Path(project, "locks_host.cpp"), f"-L{library}",
            "-lvantixdatacenter", "-ltvllog", "-ltvl", f"-Wl,-rpath,{library}", "-o", hosts / "plain_host")
        print(run(hosts / "plain_host"), end="")
    return 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
