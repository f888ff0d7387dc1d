#!/usr/bin/env python3
"""count_results.py FOLDER PROGRAM...: prints "PASSED FAILED SKIPPED", the sums over the results that each test program left in
FOLDER/<program>.json. A program that left none crashed or hung, and one without a single test tests nothing: each counts
as one failure. The names of such programs, and of failed tests, go to standard error."""

import json
import pathlib
import sys


def failed_names(results):
    return [
        f"{suite['name']}.{test['name']}"
        for suite in results["testsuites"]
        for test in suite["testsuite"]
        if test.get("failures")
    ]


def count(results, outcome):
    return sum(
        test["result"] == outcome and not test.get("failures")
        for suite in results["testsuites"]
        for test in suite["testsuite"]
    )


def main():
    folder, programs = pathlib.Path(sys.argv[1]), sys.argv[2:]
    passed, failed, skipped = 0, 0, 0
    for program in programs:
        try:
            results = json.loads((folder / f"{program}.json").read_text())
        except (OSError, ValueError):
            print(f"{program} did not finish", file=sys.stderr)
            failed += 1
            continue
        names = failed_names(results)
        good = count(results, "COMPLETED")
        if good + len(names) == 0:
            names = ["no test ran"]
        for name in names:
            print(f"{program}: {name}", file=sys.stderr)
        passed += good
        failed += len(names)
        skipped += count(results, "SKIPPED")
    print(passed, failed, skipped)


if __name__ == "__main__":
    main()
