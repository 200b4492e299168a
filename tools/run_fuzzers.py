"""Runs the fuzzing programs of build/fuzz side by side and sums up what they say."""

import argparse
import concurrent.futures
import os
import pathlib
import re
import subprocess
import sys
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent
BUILD = ROOT / "build" / "fuzz"
SOURCES = ROOT / "tests" / "fuzz"
SUFFIX = "_fuzzer"

# The limits tell a hang and a runaway allocation from honest work: seconds an input, MiB in all.
LIMITS = ["-timeout=20", "-rss_limit_mb=3000", "-malloc_limit_mb=2000"]
# The longest inputs in bytes where the engine's own 4096 would spend the time on more of the same.
LONGEST = {"boundary": 1000, "csv_file": 2000, "list_file": 2000}
# A null result is a defined answer of malloc; the code must cope with it. Freed memory is held back
# for long enough to see its use within one input, and no longer: that is twice as fast.
ENVIRONMENT = {
    "ASAN_OPTIONS": "allocator_may_return_null=1:detect_leaks=1:quarantine_size_mb=16",
    "UBSAN_OPTIONS": "print_stacktrace=1:halt_on_error=1",
}


class Result:
    """What one program has done."""

    def __init__(self, target, log, findings, seconds):
        self.target = target
        self.findings = findings
        self.seconds = seconds
        self.executions = number_in(r"stat::number_of_executed_units:\s*(\d+)", log)
        if self.executions is None:
            self.executions = number_in(r"^#(\d+)\s", log) or 0
        self.edges = number_in(r" cov: (\d+)", log) or 0
        self.corpus = number_in(r" corp: (\d+)", log) or 0


def number_in(pattern, log):
    """The last number that the pattern finds, None without one."""
    found = re.findall(pattern, log, re.MULTILINE)
    return int(found[-1]) if found else None


def run(target, seconds):
    """Runs one program and keeps its log; every input that failed is a finding."""
    corpus = BUILD / "corpus" / target
    findings = BUILD / "findings" / target
    for folder in (corpus, findings):
        folder.mkdir(parents=True, exist_ok=True)
    before = set(findings.iterdir())
    command = [BUILD / "bin" / (target + SUFFIX), f"-max_total_time={seconds}", *LIMITS,
               "-print_final_stats=1", f"-artifact_prefix={findings}/"]
    if target in LONGEST:
        command += [f"-max_len={LONGEST[target]}"]
    command += [f"-dict={path}" for path in SOURCES.glob(f"*/{target}.dict")]
    command += [corpus]
    command += [path for path in (SOURCES / "seeds" / target, SOURCES / "found" / target)
                if path.is_dir()]
    start = time.monotonic()
    log_path = BUILD / f"{target}.log"
    with open(log_path, "wb") as log:
        status = subprocess.run(command, stdout=log, stderr=subprocess.STDOUT, check=False,
                                env={**os.environ, **ENVIRONMENT}).returncode
    text = log_path.read_text(encoding="latin-1")
    found = sorted(set(findings.iterdir()) - before)
    if status != 0 and not found:
        found = [log_path]
    return Result(target, text, found, time.monotonic() - start)


def targets():
    """The names of all programs built."""
    programs = (BUILD / "bin").glob("*" + SUFFIX)
    return sorted(program.name.removesuffix(SUFFIX) for program in programs)


def print_table(results):
    """One line a target, as it goes into the documentation."""
    print("| target | minutes | executions | a second | edges | corpus | findings |")
    print("| --- | --- | --- | --- | --- | --- | --- |")
    for result in results:
        rate = result.executions / max(result.seconds, 1e-9)
        print(f"| {result.target} | {result.seconds / 60:.1f} | {result.executions:,} | {rate:,.0f} "
              f"| {result.edges:,} | {result.corpus:,} | {len(result.findings)} |")
    for result in results:
        for finding in result.findings:
            print(f"{result.target}: see {finding.relative_to(ROOT)}")


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("minutes", nargs="?", type=float, default=1.0)
    parser.add_argument("target", nargs="*", help="all when none is named")
    parser.add_argument("--jobs", type=int, default=os.cpu_count())
    arguments = parser.parse_args()
    chosen = arguments.target or targets()
    unknown = sorted(set(chosen) - set(targets()))
    if unknown or not chosen:
        sys.exit(f"no such target: {' '.join(unknown) or '(none is built)'}")
    seconds = max(1, round(arguments.minutes * 60))
    with concurrent.futures.ThreadPoolExecutor(arguments.jobs) as pool:
        results = list(pool.map(lambda target: run(target, seconds), chosen))
    print_table(results)
    # A target that has run nothing has not been tested.
    failed = any(result.findings or result.executions == 0 for result in results)
    sys.exit(1 if failed else 0)


if __name__ == "__main__":
    main()
