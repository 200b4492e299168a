"""Runs the exhaustive checks of build/exhaustive in parts, side by side, and sums up what they say.
Parts that are done are kept: a run that was interrupted goes on where it was."""

import argparse
import concurrent.futures
import hashlib
import os
import pathlib
import subprocess
import sys
import tarfile
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent
BUILD = ROOT / "build" / "exhaustive"
NATIVE = BUILD / "bin" / "exhaustive_check"
WINDOWS = ROOT / "build" / "exhaustive-win32" / "bin" / "exhaustive_check.exe"
GENERATOR = ROOT / "tests" / "exhaustive" / "hard_decimals.py"
DECIMALS = BUILD / "hard_decimals.txt"

# Known hard decimals, as data in packages of the system; the names' middle differs by release.
CORPORA = [("libpython3.", "-testsuite", "/test/floating_points.txt"),
           ("golang-1.", "-src", "/strconv/testdata/testfp.txt")]

PARTS = 64
FEW_VALUES = 10 ** 7  # are done in one part


def output_of(*command, **options):
    return subprocess.run(command, check=True, stdout=subprocess.PIPE, **options).stdout


def fetch_corpus(prefix, suffix, member):
    """One file out of a package that is not installed; None when it cannot be had."""
    path = BUILD / "corpus" / pathlib.PurePath(member).name
    if path.exists():
        return path
    path.parent.mkdir(parents=True, exist_ok=True)
    try:
        names = output_of("apt-cache", "pkgnames", prefix, text=True).split()
        package = max((name for name in names if name.endswith(suffix)), key=version)
        subprocess.run(["apt-get", "download", "-qq", package], check=True, cwd=path.parent,
                       stderr=subprocess.DEVNULL)
        archive = next(path.parent.glob(package + "_*.deb"))
        with subprocess.Popen(["dpkg-deb", "--fsys-tarfile", archive],
                              stdout=subprocess.PIPE) as unpacker:
            with tarfile.open(fileobj=unpacker.stdout, mode="r|") as files:
                data = next(files.extractfile(file).read() for file in files
                            if file.name.endswith(member))
            unpacker.stdout.read()
        archive.unlink()
    except (subprocess.CalledProcessError, OSError, StopIteration, ValueError, tarfile.TarError):
        return None
    path.write_bytes(data)
    return path


def version(package):
    return [int(number) for number in "".join(
        character if character.isdigit() else " " for character in package).split()]


def make_decimals():
    """The file of hard decimals; True when all corpora are in it."""
    corpora = [fetch_corpus(*corpus) for corpus in CORPORA]
    found = [corpus for corpus in corpora if corpus]
    sources = [GENERATOR, *found]
    if not DECIMALS.exists() or any(source.stat().st_mtime > DECIMALS.stat().st_mtime
                                    for source in sources):
        made = DECIMALS.with_suffix(".new")
        print(output_of(sys.executable, GENERATOR, made, *found, text=True), end="")
        made.rename(DECIMALS)
    return len(found) == len(corpora)


def checks():
    """Number of values of each check."""
    lines = output_of(NATIVE, "list", DECIMALS, text=True).splitlines()
    return {name: int(count) for name, count in (line.split() for line in lines)}


class Part:
    """A part of a check, and the file of what came of it."""

    def __init__(self, program, check, number, count, environment, folder):
        self.check = check
        self.program = [ROOT / "tools" / "wine", program] if program == WINDOWS else [program]
        self.arguments = [check, str(number), str(count), environment]
        self.path = folder / "-".join([environment, check, str(number), "of", str(count)])

    def result(self):
        """Values, differences and milliseconds; None when the part has not been run."""
        return list(map(int, self.path.read_text().split())) if self.path.exists() else None

    def run(self, deadline):
        """Runs the part unless it is done or time is up; False when it could not be run."""
        if self.path.exists() or time.monotonic() > deadline:
            return True
        command = subprocess.run([*self.program, "run", DECIMALS, *self.arguments], check=False,
                                 stdout=subprocess.PIPE, text=True)
        if command.returncode not in (0, 1):
            return False
        new = self.path.with_suffix(".new")
        new.write_text(command.stdout)
        new.rename(self.path)
        return True


def parts_of(check, count, arguments, folder):
    """All parts of a check, or the one that was asked for."""
    def part(number, parts):
        return Part(arguments.program, check, number, parts, arguments.environment, folder)

    if arguments.part:
        return [part(*arguments.part)]
    parts = 1 if count < FEW_VALUES else PARTS
    return [part(number, parts) for number in range(1, parts + 1)]


def one_of_parts(text):
    """3/16 as a pair of numbers."""
    number, parts = map(int, text.split("/"))
    if not 1 <= number <= parts:
        raise argparse.ArgumentTypeError("the first number is not one of the second")
    return number, parts


def print_table(names, parts):
    """One line a check; True when all parts are done without a difference."""
    print("| check | parts done | values | differences | processor minutes |")
    print("| --- | --- | --- | --- | --- |")
    is_clean = True
    for name in names:
        results = [part.result() for part in parts if part.check == name]
        done = [result for result in results if result]
        values, differences, milliseconds = (sum(column) for column in zip([0, 0, 0], *done))
        is_clean = is_clean and len(done) == len(results) and differences == 0
        print(f"| {name} | {len(done)} of {len(results)} | {values:,} | {differences:,} "
              f"| {milliseconds / 60000:.1f} |")
    return is_clean


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("check", nargs="*", help="all when none is named")
    parser.add_argument("--part", metavar="I/N", type=one_of_parts, help="run only one of N equal parts")
    parser.add_argument("--minutes", type=float, default=float("inf"),
                        help="begin no further part after this time")
    parser.add_argument("--plain", dest="environment", action="store_const", const="plain",
                        default="host", help="leave locale and x87 precision as they are")
    parser.add_argument("--wine", dest="program", action="store_const", const=WINDOWS,
                        default=NATIVE, help="run the Windows program")
    parser.add_argument("--jobs", type=int, default=os.cpu_count())
    arguments = parser.parse_args()
    deadline = time.monotonic() + arguments.minutes * 60
    has_corpora = make_decimals()
    counts = checks()
    names = arguments.check or list(counts)
    unknown = sorted(set(names) - set(counts))
    if unknown:
        sys.exit(f"no such check: {' '.join(unknown)} (there are: {' '.join(counts)})")
    # What another program or other decimals gave does not count.
    content = arguments.program.read_bytes() + DECIMALS.read_bytes()
    folder = BUILD / "results" / hashlib.sha256(content).hexdigest()[:16]
    folder.mkdir(parents=True, exist_ok=True)
    parts = [part for name in names for part in parts_of(name, counts[name], arguments, folder)]
    with concurrent.futures.ThreadPoolExecutor(arguments.jobs) as pool:
        were_run = all(list(pool.map(lambda part: part.run(deadline), parts)))
    is_clean = print_table(names, parts)
    if not has_corpora:
        print("not all files of known hard decimals could be had", file=sys.stderr)
    sys.exit(0 if were_run and is_clean and has_corpora else 1)


if __name__ == "__main__":
    main()
