"""Checks rules that only the sources show, on every system that they are for.

    source-rules.py ROOT
    source-rules.py --self-test
"""
import pathlib
import re
import sys

# A rule, what breaks it, and the files below src/ that may. Comments do not count.
CODE_RULES = [
    ("guards are taken through TVL_Guard, never by hand", r"(\.|->)\s*(Lock|Unlock)\s*\(|\bTVL_Mutex(Lock|Unlock)\b", []),
    ("mutexes stand in guarded values alone", r"\bTVL_(Mutex|Guard)\b", ["base/Guarded.h"]),
    ("no other lock", r"\bstd::(recursive_|timed_|shared_)*mutex\b|\bCRITICAL_SECTION\b|\bSRWLOCK\b",
     ["requests/FeatureCode.cpp"]),
    ("threads are those of standard asynchronous tasks",
     r"\bstd::j?thread\b|\bpthread_create\b|\b_?beginthread(ex)?\b|\bCreateThread\b|\bCreateThreadpool\w*|\bQueueUserWorkItem\b"
     r"|\bCreateTimerQueue\w*|\bSetTimer\b|\.detach\s*\(", []),
    ("tasks are started in one place", r"\bstd::(async|packaged_task)\b", ["base/AsyncTask.h"]),
    ("settings come from the host alone",
     r"\b_?w?(secure_)?getenv(_s)?\b|\bGetEnvironment\w*|\bReg(Open|Query|Get|Create|Set)\w*|\bGetPrivateProfile\w*", []),
    ("no file is written",
     r"\b_?w?fopen(_s)?\b|\bfreopen\b|\bstd::w?(o|i)?fstream\b|\bCreateFile[AW2]?\b|\bWriteFile\b|\bCURLOPT_COOKIE(JAR|FILE)\b", []),
    ("only libcurl's easy interface", r"\bcurl_(global|multi|share)_\w+|\bcurl_easy_getinfo\b|\bCURLOPT_SHARE\b", []),
    ("the text about another release is no constant's name", r"\bVANTIX_DEV_NO_SUPPORT\b", []),
    ("the hardware and its digest are the feature code's", r"\b(HWP_\w+|ssl_md5_digest)\b", ["requests/FeatureCode.cpp"]),
]
# The same for texts in quotes: a path stands in the table and nowhere else. Lines that name one have more in them.
TEXT_RULES = [("requests name their path by its index", r"^/(api|v3|oauth|base)\b\S*$", ["requests/EndpointTable.cpp"])]

PIECES = re.compile(r'(?P<comment>//[^\n]*|/\*.*?\*/)|(?P<text>R"\((?P<raw>.*?)\)"|"(?P<plain>(?:\\.|[^"\\\n])*)")', re.DOTALL)


def code_of(source):
    """The source without comments and texts, its lines where they were."""
    return PIECES.sub(lambda piece: "\n" * piece[0].count("\n") or " ", source)


def texts_of(source):
    """The texts in quotes, with where each begins."""
    for piece in PIECES.finditer(source):
        if piece["text"]:
            yield piece.start(), piece["raw"] if piece["plain"] is None else piece["plain"]


def violations(name, source):
    line_of = lambda place: source.count("\n", 0, place) + 1
    code = code_of(source)
    for rule, pattern, allowed in CODE_RULES:
        if name not in allowed:
            for match in re.finditer(pattern, code):
                yield f"src/{name}:{code.count(chr(10), 0, match.start()) + 1}: {match[0]}: {rule}"
    for rule, pattern, allowed in TEXT_RULES:
        if name not in allowed:
            for place, text in texts_of(source):
                if re.search(pattern, text):
                    yield f'src/{name}:{line_of(place)}: "{text}": {rule}'


def path_rows(source):
    """How often each path stands in the table."""
    rows = [text for _, text in texts_of(source) if text.startswith("/")]
    return {row: rows.count(row) for row in rows}


def main(root):
    folder = pathlib.Path(root, "src")
    files = sorted(path for path in folder.rglob("*") if path.suffix in (".h", ".cpp", ".in"))
    found = []
    for path in files:
        found += violations(path.relative_to(folder).as_posix(), path.read_text(encoding="utf8"))
    twice = {row for row, count in path_rows((folder / "requests/EndpointTable.cpp").read_text(encoding="utf8")).items()
             if count != 1}
    if twice != {"/v3/configurations/system/info"}:
        found.append(f"src/requests/EndpointTable.cpp: paths that stand more than once: {sorted(twice)}")
    print("\n".join(found))
    print(f"{len(files)} files, {len(found)} violations")
    return 1 if found or len(files) < 100 else 0


# A line of core/A.cpp, and whether it breaks a rule.
SELF_TEST = [
    ("m_mutex.Lock();", True), ("mutex->Unlock ();", True), ("TVL_MutexLock(m);", True), ("// m_mutex.Lock();", False),
    ("/* m.Lock(); */", False), ('Log("m.Lock()");', False), ("LockDoor();", False), ("TVL_Mutex m;", True),
    ("std::recursive_mutex m;", True), ("std::thread t(f);", True), ("std::thread::id id;", True),
    ("std::this_thread::yield();", False), ("std::async(f);", True), ('std::getenv("A");', True), ("_wgetenv(a);", True),
    ("RegOpenKeyExW(k);", True), ("fopen(a, b);", True), ("std::ofstream out;", True), ("CreateFileW(a);", True),
    ("curl_global_init(0);", True), ("curl_easy_perform(h);", False), ("curl_multi_init();", True),
    ("constexpr int VANTIX_DEV_NO_SUPPORT = 1;", True), ('Log("VANTIX_DEV_NO_SUPPORT Release");', False),
    ("HWP_GetMacAddr(mac);", True), ('Send("/api/device/detail");', True), ('Log("/api/a CostTime: %d");', False),
    ('Log("end of /api/device");', False), ('auto text = R"(/v3/users/info)";', True),
]


def self_test():
    failed = 0
    for line, is_wrong in SELF_TEST:
        good = bool(list(violations("core/A.cpp", line + "\n"))) == is_wrong
        failed += not good
        print("ok  " if good else "FAIL", line)
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(self_test() if sys.argv[1:] == ["--self-test"] else main(sys.argv[1]))
