"""Sums up the branch counts of build/coverage by the rooms of the code."""

import argparse
import collections
import json
import pathlib
import subprocess

ROOT = pathlib.Path(__file__).resolve().parent.parent
BUILD = ROOT / "build" / "coverage"
SOURCES = ROOT / "src"


def programs():
    """All test programs: each holds the part of the code that it links."""
    return sorted(path for path in (BUILD / "tests").iterdir()
                  if path.is_file() and path.stat().st_mode & 0o111)


def counts():
    """What the tools of the compiler have counted, by file."""
    command = ["llvm-cov", "export", f"-instr-profile={BUILD / 'tests.profdata'}"]
    for program in programs():
        command += ["-object", str(program)]
    exported = subprocess.run(command, check=True, stdout=subprocess.PIPE).stdout
    files = json.loads(exported)["data"][0]["files"]
    return [entry for entry in files if pathlib.Path(entry["filename"]).is_relative_to(SOURCES)]


def branches_of(entry):
    """The two outcomes of every condition of a file, taken if any instance of a template took them."""
    outcomes = collections.Counter()
    for line, column, _, _, taken, not_taken, *_ in entry["branches"]:
        outcomes[line, column, "true"] += taken
        outcomes[line, column, "false"] += not_taken
    return outcomes


def room_of(entry):
    """The folder below src."""
    return str(pathlib.Path(entry["filename"]).relative_to(SOURCES).parent)


def percent(part, whole):
    return f"{100 * part / whole:.1f} %" if whole else "-"


def print_rooms(entries):
    """A table with one line a room."""
    rooms = collections.defaultdict(collections.Counter)
    for entry in entries:
        lines = entry["summary"]["lines"]
        outcomes = branches_of(entry)
        room = rooms[room_of(entry)]
        room["lines"] += lines["count"]
        room["lines run"] += lines["covered"]
        room["branches"] += len(outcomes)
        room["branches taken"] += sum(1 for count in outcomes.values() if count)
    print("| room | lines | run | branches | taken |")
    print("| --- | --- | --- | --- | --- |")
    for name, room in sorted(rooms.items()):
        print(f"| {name} | {room['lines']} | {percent(room['lines run'], room['lines'])} "
              f"| {room['branches']} | {percent(room['branches taken'], room['branches'])} |")


def print_missed(entries, rooms):
    """The place of every branch that no test takes, with its line."""
    for entry in entries:
        if rooms and room_of(entry) not in rooms:
            continue
        path = pathlib.Path(entry["filename"])
        text = path.read_text(encoding="utf-8").splitlines()
        for (line, column, outcome), count in sorted(branches_of(entry).items()):
            if count == 0:
                print(f"{path.relative_to(ROOT)}:{line}:{column}: never {outcome}: "
                      f"{text[line - 1].strip()}")


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--missed", action="store_true", help="also list what is never taken")
    parser.add_argument("room", nargs="*", help="list these rooms only")
    arguments = parser.parse_args()
    entries = counts()
    print_rooms(entries)
    if arguments.missed:
        print()
        print_missed(entries, arguments.room)


if __name__ == "__main__":
    main()
