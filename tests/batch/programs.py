#!/usr/bin/env python3
"""The programs as they are started from a shell: --help and --version of each, and Ctrl+C in the middle of a run of
torvale_batch, which ends cleanly and goes on from there, to the same bytes; and parts of a run that are killed.

  programs.py TORVALE_BATCH TORVALE_SCRIPT [TORVALE]
"""

import filecmp
import os
import pathlib
import re
import signal
import subprocess
import sys
import tempfile
import time

FIELDS = 60
STATUS_DONE = 0
STATUS_NOT_UNDERSTOOD = 2
STATUS_STOPPED = 130
PATIENCE = 120  # seconds


def run(*arguments, **more):
    return subprocess.run([str(a) for a in arguments], capture_output=True, text=True, timeout=600, **more)


def check(holds, what):
    if not holds:
        raise AssertionError(what)


def options_are_told(program):
    """Without a display, so that no window is in the way."""
    name = pathlib.Path(program).name.removesuffix(".exe")
    plain = {key: value for key, value in os.environ.items() if key not in ("DISPLAY", "WAYLAND_DISPLAY")}
    version = run(program, "--version", env=plain)
    check(version.returncode == STATUS_DONE, f"{name} --version: status {version.returncode}")
    check(re.fullmatch(rf"{name} \d+\.\d+\.\d+\n", version.stdout), f"{name} --version: {version.stdout!r}")
    check(version.stderr == "", f"{name} --version: {version.stderr!r}")
    told = run(program, "--help", env=plain)
    check(told.returncode == STATUS_DONE, f"{name} --help: status {told.returncode}")
    check(name in told.stdout and told.stderr == "", f"{name} --help: {told.stderr!r}")
    for option in ("--help", "--version"):
        check(option in told.stdout, f"{name} --help does not tell of {option}")
    return version.stdout.split()[1]


def write_table(folder):
    """Fields of a mile of line, every one with all six designs."""
    rows = "".join(f"{20 * i},{100 + (i % 7) / 10},1200,20,15,1/4,1,10,20\n" for i in range(264))
    (folder / "survey.csv").write_text(rows)
    lines = [f"Field {i},{600 + i},2,E,survey.csv,1/4 5/16\n" for i in range(1, FIELDS + 1)]
    (folder / "fields.csv").write_text("name,gpm,target head,survey kind,survey,holes\n" + "".join(lines))


def command(batch, folder, out):
    return [str(batch), str(folder / "fields.csv"), "--out", str(folder / out), "-j", "2", "--write", "designs",
            "--progress", "none"]


def stop_in_the_middle(batch, folder, out, number):
    """Starts a run and sends it the signal when the first fields are done; how many it then says are done."""
    journal = folder / out / "results.journal"
    process = subprocess.Popen(command(batch, folder, out), stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
    begin = time.monotonic()
    while process.poll() is None and (not journal.exists() or journal.read_bytes().count(b"\nend\n") < 2):
        check(time.monotonic() - begin < PATIENCE, "no field was done")
        time.sleep(0.005)
    sent = time.monotonic()
    process.send_signal(number)
    output, errors = process.communicate(timeout=PATIENCE)
    check(process.returncode == STATUS_STOPPED, f"status {process.returncode}, {errors!r}")
    check(output == "", f"nothing is finished, but it says {output!r}")
    told = re.search(rf"stopped: (\d+) of {FIELDS} fields are done; the same command goes on from there\n", errors)
    check(told, errors)
    check(not (folder / out / "results.csv").exists(), "half a table of results")
    check(time.monotonic() - sent < 30, "it took long to stop")
    done = int(told.group(1))
    check(0 < done < FIELDS, f"{done} fields were done before it stopped: nothing is shown")
    return done


def files_below(folder):
    return sorted(str(path.relative_to(folder)) for path in folder.rglob("*") if path.is_file())


def same_files(folder, one, other):
    names = [name for name in files_below(folder / one) if not name.endswith(".journal")]
    others = [name for name in files_below(folder / other) if not name.endswith(".journal")]
    check(names == others, f"{other}: other files: {sorted(set(names) ^ set(others))}")
    check(len(names) > FIELDS, "designs were written")
    for name in names:
        check(filecmp.cmp(folder / one / name, folder / other / name, shallow=False), f"{other}/{name} differs")


def interrupted_runs_go_on(batch, folder):
    write_table(folder)
    whole = run(*command(batch, folder, "whole"))
    check(whole.returncode in (0, 1), f"status {whole.returncode}, {whole.stderr!r}")
    for number in (signal.SIGINT, signal.SIGTERM):
        out = number.name
        done = stop_in_the_middle(batch, folder, out, number)
        again = run(*command(batch, folder, out))
        check(again.returncode == whole.returncode, f"status {again.returncode}, {again.stderr!r}")
        check(f"{FIELDS} fields, {done} of them as they were" in again.stdout, again.stdout)
        same_files(folder, "whole", out)
        print(f"{number.name}: stopped after {done} of {FIELDS} fields, the rest made later, the same files")


def shard_command(batch, folder, out, shard):
    return command(batch, folder, out) + ["--shard", shard]


def killed_parts_give_the_same_files(batch, folder):
    """A part is killed without a warning as often as two more of its fields are done, and started again each time."""
    for shard in ("1/2", "2/2"):
        run(*shard_command(batch, folder, "parts", shard))
    kills = 0
    while True:
        journal = folder / "killed" / "results-2-of-2.journal"
        before = journal.read_bytes().count(b"\nend\n") if journal.exists() else 0
        process = subprocess.Popen(shard_command(batch, folder, "killed", "2/2"), stdout=subprocess.DEVNULL,
                                   stderr=subprocess.DEVNULL)
        begin = time.monotonic()
        while process.poll() is None and (not journal.exists() or journal.read_bytes().count(b"\nend\n") < before + 2):
            check(time.monotonic() - begin < PATIENCE, "no field was done")
            time.sleep(0.002)
        if process.poll() is not None:
            break
        process.kill()
        process.wait()
        kills += 1
        check(kills < FIELDS, "a killed part never comes to its end")
    check(kills >= 2, f"killed {kills} times: nothing is shown")
    check(process.returncode in (0, 1), f"status {process.returncode}")
    run(*shard_command(batch, folder, "killed", "1/2"))
    same_files(folder, "parts", "killed")
    for out in ("parts", "killed"):
        parts = sorted((folder / out).glob("results-*-of-2.csv"))
        merged = run(batch, "merge", folder / out / "results.csv", *parts)
        check(merged.returncode == STATUS_DONE, merged.stderr)
        check(filecmp.cmp(folder / out / "results.csv", folder / "whole" / "results.csv", shallow=False),
              f"{out}: the joined table is not the whole")
    print(f"SIGKILL: a part was killed {kills} times, the same files, and joined the same table")


def main():
    batch, script = sys.argv[1:3]
    versions = {options_are_told(program) for program in sys.argv[1:]}
    check(len(versions) == 1, f"one version: {versions}")
    for program in (batch, script):
        wrong = run(program, "--colour")
        check(wrong.returncode == STATUS_NOT_UNDERSTOOD and "--colour" in wrong.stderr, f"{program} --colour")
    for arguments, complaint in (
        (["--data"], "--data needs a folder"),
        (["--data", "no/such"], "no such folder: no/such"),
        (["no.script"], "can't read no.script"),
    ):
        wrong = run(script, *arguments)
        check(wrong.returncode == STATUS_NOT_UNDERSTOOD and wrong.stderr.startswith(complaint + "\n"), f"{arguments}")
    print("--help and --version of", ", ".join(pathlib.Path(p).name for p in sys.argv[1:]))
    with tempfile.TemporaryDirectory() as folder:
        interrupted_runs_go_on(batch, pathlib.Path(folder))
        killed_parts_give_the_same_files(batch, pathlib.Path(folder))


main()
