"""Runs the checker on builds of the module that are broken in one place each: it must fail, and in
the right line.

Usage: modulecheck_test.py BROKEN.DLL CHECKER... (the command that starts the checker)
"""

import os
import subprocess
import sys

PASSED, FAILED, WRONG_USAGE, NOT_LOADED = range(4)

# The fault, the theme that is run, and the beginning of a line that must tell of it.
FAULTS = [
    ("table size ignored", "table", "GetStdParaFctns keeps within tables of every size"),
    ("host's table changed", "table", "SetZelkorExportFctns takes tables of every size"),
    ("crash on null", "release", "2 FreeStdParameter"),
    ("text leaked", "release", "4 FreeStdMemory"),
    ("node's text leaked", "release", "12 FreeStdTextList"),
    ("released record not emptied", "release", "15 FreeStdElementRecord"),
    ("abort", "values", "11 GetStdParameterTextList"),
    ("wrong size", "values", "21 GetStdStructSize"),
    ("value read beyond its end", "values", "3, 11, 22 read values of every length"),
    ("garbage in the result", "values", "3, 11, 22 with random records"),
    ("precision changed", "transfer", "5 ConvertStdParameter"),
    ("record size ignored", "transfer", "5, 17 to 20 with parameter records of every size"),
    ("cancelling ignored", "transfer", "17, 18 stop when the host cancels"),
    ("record changed on failure", "transfer", "5, 17 to 20 take a refusal"),
    ("record written beyond its end", "types", "23 GetStdTypeInfo"),
    ("positions counted from 1", "types", "25 GetStdEnumInfo"),
    ("leak on failure", "resolve", "13 ResolveStdParameter leaves nothing behind"),
    ("cancelled record changed", "dialog", "1 EditStdParameter leaves the record"),
    ("change token ignored", "configuration", "6 to 10 do their work once"),
    ("nothing dropped", "management", "3 to 6 bring the list up to date"),
    ("call token ignored", "management", "3, 4, 6, 17 do their work once"),
    ("buffer written beyond its end", "management", "8 to 10 with buffers"),
    ("nothing saved", "list files", "1, 2, 11, 13, 14 give back"),
    ("failure not reported", "list files", "2, 11 to 14 report failures"),
    ("short buffer touched", "accessors", "values in every form"),
    ("parameter created by its name", "accessors", "names and comments"),
    ("vector written beyond its end", "signals", "GetTXValue, SetTXValue"),
]


def run(checker, *arguments, fault="none"):
    """Exit code and output of a run."""
    result = subprocess.run([*checker, *arguments], env={**os.environ, "ORVELL_FAULT": fault},
                            stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, check=False)
    return result.returncode, result.stdout.decode("ascii").replace("\r\n", "\n")


def failed_checks(theme, output):
    """Names of the failed checks of a theme, with the reason in the next line."""
    lines = output.split("\n")
    return {line[len(theme):].strip(): reason.strip()
            for line, reason in zip(lines, lines[1:])
            if line.startswith(theme) and line.endswith("FAILED")}


def check_fault(checker, module, fault, theme, check):
    """What is wrong with the checker's answer; None when it is right."""
    code, output = run(checker, "--only", theme, module, fault=fault)
    failures = failed_checks(theme, output)
    if code != FAILED:
        return f"exit code {code}"
    reason = next((failures[name] for name in failures if name.startswith(check)), None)
    if reason is None:
        return f"not found; failed instead: {list(failures)}"
    print(f"{fault}: {reason}")
    return None


def check_exit_codes(checker, module):
    """What is wrong with the answers to other command lines."""
    expected = [
        (PASSED, ["--only", "table", module]),
        (WRONG_USAGE, []),
        (WRONG_USAGE, ["--only", "no such theme", module]),
        (WRONG_USAGE, ["--seed", "x", module]),
        (NOT_LOADED, [module + ".missing"]),
    ]
    return [f"{arguments}: exit code {code}, not {wanted}"
            for wanted, arguments in expected
            if (code := run(checker, *arguments)[0]) != wanted]


def main():
    module, *checker = sys.argv[1:]
    problems = check_exit_codes(checker, module)
    for fault, theme, check in FAULTS:
        problem = check_fault(checker, module, fault, theme, check)
        if problem is not None:
            problems.append(f"{fault}: {problem}")
    print("\n".join(problems), file=sys.stderr)
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
