"""Changes the portable code in one place at a time and reports which changes the tests notice.

Works on a copy of the sources in build/mutation, so that the checkout stays as it is. The places are
drawn by a fixed seed: the same COUNT and SEED on the same sources give the same changes. A change
that does not compile is replaced by the next one drawn. Changes that go unnoticed are printed, for
a person to say what they mean; the exit status is 1 when there are more than allowed.
"""

import argparse
import os
import pathlib
import random
import re
import shutil
import signal
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
WORK = ROOT / "build" / "mutation"
COPY = WORK / "sources"
BUILD = WORK / "build"
COPIED = ["CMakeLists.txt", "CMakePresets.json", "cmake", "benchmarks", "include", "src", "tests"]
SECONDS_FOR_TESTS = 200  # many times what all of them take
# The rooms, and the programs that are asked first whether they notice a change there.
ROOMS = {
    "host": ["host_test", "management_test"],
    "memstruct": ["memstruct_test"],
    "paramlist": ["paramlist_test"],
    "resources": ["resources_test"],
    "ui/dialogs": ["ui_forms_test"],
    "ui/grid": ["ui_grid_model_test"],
    "values": ["values_test"],
}

# What one change does to a piece of a line. Templates' brackets are spared by the blanks around.
REPLACEMENTS = [
    (r" < ", " <= "), (r" <= ", " < "), (r" > ", " >= "), (r" >= ", " > "),
    (r" == ", " != "), (r" != ", " == "),
    (r" && ", " || "), (r" \|\| ", " && "),
    (r" \+ ", " - "), (r" - ", " + "), (r" \* ", " / "), (r" / ", " * "), (r" % ", " / "),
    (r" \+= ", " -= "), (r" -= ", " += "), (r"\+\+", "--"),
    (r" & ", " | "), (r" \| ", " & "), (r" << ", " >> "), (r" >> ", " << "),
    (r"\btrue\b", "false"), (r"\bfalse\b", "true"),
    (r"\bif \(", "if (!("),  # closed below
    (r"(?<![\w.'])(\d+)(?![\w.'])", "number"),
    (r"^\s+[^{}\x00][^{}]*;[\s\x00]*$", "dropped"),
]
NOT_CODE = re.compile(r"^\s*(//|#|\*|using |namespace |static_assert|template|case |default:)")
DECLARATION = re.compile(r"^\s*(const |constexpr |static |auto |return\b|break;|continue;|struct |class |"
                         r".*= (delete|default);|\[\[|virtual |explicit |friend |~|public|private|[\w:<>,&* ]+ [\w]+(\(.*\) (const|override).*)?;$)")


class Change:
    """One line of one file, as it becomes."""

    def __init__(self, path, number, old, new):
        self.path = path
        self.number = number
        self.old = old
        self.new = new

    def __str__(self):
        new = self.new.strip() or "(dropped)"
        return f"{self.path}:{self.number}: {self.old.strip()}  =>  {new}"


def strings_blanked(line):
    """The line with its literals' characters and its comment made blank, in place."""
    line = re.sub(r'"(?:\\.|[^"\\])*"|\'(?:\\.|[^\'\\])\'', lambda m: "\x00" * len(m.group()), line)
    return re.sub(r"//.*", lambda m: "\x00" * len(m.group()), line)


def changed(line, match, replacement):
    """The line after one replacement, None where the replacement makes no sense."""
    if replacement == "dropped":
        return None if DECLARATION.match(line) else ""
    if replacement == "number":
        return line[:match.start()] + str(int(match.group(1)) + 1) + line[match.end():]
    if replacement == "if (!(":
        if not line.rstrip().endswith(") {"):
            return None
        return line[:match.start()] + replacement + line[match.end():].rstrip()[:-3] + ")) {"
    return line[:match.start()] + replacement + line[match.end():]


def changes_of(path):
    """Every change that can be made to one file."""
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
        if NOT_CODE.match(line):
            continue
        code = strings_blanked(line)
        for pattern, replacement in REPLACEMENTS:
            for match in re.finditer(pattern, code):
                new = changed(line, match, replacement)
                if new is not None:
                    yield Change(path.relative_to(ROOT), number, line, new)


def native_files():
    """The files that the native tests are built from."""
    listed = set()
    for room in ROOMS:
        folder = ROOT / "src" / room
        text = (folder / "CMakeLists.txt").read_text(encoding="utf-8").split("if(WIN32)")[0]
        names = set(re.findall(r"\b(\w+)\.cpp", text))
        listed |= {path for path in folder.iterdir() if path.stem in names or path.suffix == ".h"
                   and not room.startswith("ui/")}  # most of whose headers are for windows only
    return sorted(listed)


def draw(seed):
    """All changes in random order."""
    source = random.Random(seed)
    everything = [change for path in native_files() for change in changes_of(path)]
    source.shuffle(everything)
    return everything


def prepare():
    """Copies the sources and builds them unchanged; the tests must pass then."""
    if COPY.exists():
        shutil.rmtree(COPY)
    for name in COPIED:
        source, target = ROOT / name, COPY / name
        target.parent.mkdir(parents=True, exist_ok=True)
        # The copies are new: what the last change of an earlier run has left in the build is not.
        if source.is_dir():
            shutil.copytree(source, target, copy_function=shutil.copy)
        else:
            shutil.copy(source, target)
    # Neither optimised nor with debug information: what is built anew each time is built fastest so.
    subprocess.run(["cmake", "--preset", "native32", "-B", BUILD, "-DCMAKE_BUILD_TYPE=Debug",
                    "-DCMAKE_CXX_FLAGS_DEBUG=", "-DCMAKE_UNITY_BUILD=ON"],
                   cwd=COPY, check=True, stdout=subprocess.DEVNULL)
    if not is_built(["all"]) or not tests_pass("."):
        sys.exit("the unchanged sources do not build and pass")


def is_built(targets):
    """Whether these targets build."""
    with open(WORK / "build.log", "wb") as log:
        return subprocess.run(["cmake", "--build", BUILD, "--target", *targets], stdout=log,
                              stderr=log, check=False).returncode == 0


def tests_pass(names):
    """Whether the tests with such names pass; the first that does not ends them. What hangs has
    failed."""
    command = ["ctest", "--test-dir", BUILD, "--stop-on-failure", "-j", "2", "-R", names]
    with open(WORK / "tests.log", "wb") as log:
        with subprocess.Popen(command, stdout=log, stderr=log, start_new_session=True,
                              env={**os.environ, "GTEST_FAIL_FAST": "1"}) as tests:
            try:
                return tests.wait(SECONDS_FOR_TESTS) == 0
            except subprocess.TimeoutExpired:
                os.killpg(tests.pid, signal.SIGKILL)
                return False


def is_noticed(change):
    """True: noticed. False: not. None: it does not compile."""
    own = ROOMS[str(change.path.parent.relative_to("src"))]
    for targets, names in ((own, f"^({'|'.join(own)})$"), (["all"], ".")):
        if not is_built(targets):
            return None
        if not tests_pass(names):
            return True
    return False


def try_change(change):
    """As `is_noticed`, for a copy of the sources that is as it was before and afterwards."""
    path = COPY / change.path
    original = path.read_text(encoding="utf-8")
    lines = original.splitlines(keepends=True)
    lines[change.number - 1] = change.new + "\n"
    path.write_text("".join(lines), encoding="utf-8")
    try:
        return is_noticed(change)
    finally:
        path.write_text(original, encoding="utf-8")


def main():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("count", nargs="?", type=int, default=100)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--skip", type=int, default=0, help="changes of the draw to pass over")
    parser.add_argument("--allowed", type=int, default=5, help="unnoticed changes in a hundred")
    parser.add_argument("--list", action="store_true", help="print the draw only")
    arguments = parser.parse_args()
    subprocess.run([ROOT / "tools" / "setup"], check=True)
    drawn = draw(arguments.seed)[arguments.skip:]
    if arguments.list:
        for change in drawn[:arguments.count]:
            print(change)
        return
    prepare()
    tried, unnoticed = 0, []
    for change in drawn:
        if tried == arguments.count:
            break
        is_seen = try_change(change)
        if is_seen is None:
            continue
        tried += 1
        print(f"{tried:4} {'noticed  ' if is_seen else 'UNNOTICED'} {change}", flush=True)
        if not is_seen:
            unnoticed.append(change)
    print(f"{tried - len(unnoticed)} of {tried} changes noticed")
    for change in unnoticed:
        print(f"unnoticed: {change}")
    sys.exit(1 if 100 * len(unnoticed) > arguments.allowed * tried else 0)


if __name__ == "__main__":
    main()
