#!/usr/bin/env python3
"""Deletes the statements of some folders of src/ one by one and tells which of them no test misses.

  delete_statements.py prepare SCRATCH [--build BUILD] [--folders search,display,input,files] [--jobs N]
  delete_statements.py try SCRATCH [--sample N] [--seed S] [--again] [--tests FILE] [--slow SECONDS] [--jobs N]
  delete_statements.py show SCRATCH

`prepare` makes in SCRATCH, a folder outside of the project, one build for all deletions: a copy of the folders in which
each statement runs only if its number is not the one in the environment (DELETED_STATEMENT), linked with the objects and
the test programs of BUILD (by default build/release, whose tests must be built). Then it runs every test once and keeps
which statements each of them reaches and how long it takes.

`try` leaves out one statement after the other, or a random sample of them, and runs the tests that reach it, the quickest
first, up to the first that fails, crashes or hangs. A statement that no test reaches needs no run. Tests that take longer
than --slow seconds are left out, as are the windows' tests. What was tried before is not tried again, but for what
survived with --again: after tests were added, `prepare` and then `try --again` tell what is left. --tests holds the check
to the tests that FILE names, one `Suite.Name` a line. `show` prints the counts by folder and each survivor with its line.

A statement is an expression, a `return;`, `break;`, `continue;` or `throw` inside a function, or in a lambda within one.
Declarations stay, and so does `return` with a value.
"""

import argparse
import collections
import concurrent.futures
import json
import os
import pathlib
import random
import re
import shlex
import subprocess
import sys
import threading
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent
PROGRAMS = "search display input files reports shell script scenarios".split()
HEADER = """#pragma once
#include <cstdlib>
#include <vector>
namespace deleted_statement {
inline std::vector<bool>& Reached() { static std::vector<bool> reached(100000); return reached; }
inline bool Is(int number) {
  static const int deleted = [] { const char* text = std::getenv("DELETED_STATEMENT"); return text ? std::atoi(text) : 0; }();
  if (deleted == 0) Reached()[static_cast<unsigned>(number)] = true;
  return number == deleted;
}
}
"""
# Linked with every test program: notes what each test reaches, where a file for that is named.
LISTENER = """#include <gtest/gtest.h>
#include <fstream>
#include "deleted_statement.h"
namespace {
class Notes : public testing::EmptyTestEventListener {
  void OnTestStart(const testing::TestInfo&) override { deleted_statement::Reached().assign(100000, false); }
  void OnTestEnd(const testing::TestInfo& test) override {
    const char* const file = std::getenv("REACHED_STATEMENTS");
    if (file == nullptr) return;
    std::ofstream out(file, std::ios::app);
    out << test.test_suite_name() << '.' << test.name() << '\\t' << test.result()->elapsed_time() << '\\t';
    const std::vector<bool>& reached = deleted_statement::Reached();
    for (unsigned i = 0; i < reached.size(); ++i) if (reached[i]) out << i << ' ';
    out << '\\n';
  }
};
const bool added = [] { testing::UnitTest::GetInstance()->listeners().Append(new Notes); return true; }();
}
"""


# --- Finding statements -----------------------------------------------------------------------------------------------


def blanked(text):
    """The text with comments, strings and directives blanked out, each character in its place."""

    def blank(match):
        found = match.group(0)
        if found.startswith(('"', "'", "R")) and len(found) >= 2:
            return '"' + re.sub(r"[^\n]", "_", found[1:-1]) + '"'
        return re.sub(r"[^\n]", " ", found)

    pattern = r'//[^\n]*|/\*.*?\*/|R"\((?:.|\n)*?\)"|"(?:\\.|[^"\\\n])*"|(?<![0-9A-Fa-f])\'(?:\\.|[^\'\\\n])+\'|^[ \t]*#[^\n]*'
    return re.sub(pattern, blank, text, flags=re.DOTALL | re.MULTILINE)


TOKEN = re.compile(r"[A-Za-z_]\w*|\d[\w.']*|\"[^\"]*\"|::|->\*?|\.\*|\+\+|--|<<=?|>=|<=>?|[-+*/%&|^=!]=|&&|\|\||\S")
CONTROL = {"if", "for", "while", "switch"}
BEGINS_DECLARATION = set("""const constexpr static auto using struct class enum union typedef int long short bool double
    float char unsigned signed void template friend static_assert typename mutable extern""".split())
ALONE = {"break", "continue"}


class Parser:
    """Walks over the tokens of a file and gathers the statements as pairs of places in the text."""

    def __init__(self, text):
        self.tokens = [(m.group(0), m.start(), m.end()) for m in TOKEN.finditer(blanked(text))]
        self.found = []
        self.at = 0

    def word(self, ahead=0):
        at = self.at + ahead
        return self.tokens[at][0] if 0 <= at < len(self.tokens) else ""

    def scope(self):
        """What stands outside of functions, up to the closing brace."""
        begin = self.at
        while self.at < len(self.tokens) and self.word() != "}":
            word = self.word()
            if word in ("(", "["):
                self.balanced(code=False)
            elif word == "{":
                head = [t[0] for t in self.tokens[begin : self.at]]
                before = head[-1] if head else ""
                if "namespace" in head[:2] or (head and "=" not in head and set(head) & {"struct", "class"} and before != ")"):
                    self.at += 1
                    self.scope()
                    self.at += 1
                elif "enum" in head or "=" in head or not head:
                    self.balanced(code=False)
                elif before in (")", "const", "noexcept", "override", "final") or "->" in head:
                    self.block()
                else:
                    self.balanced(code=False)
                begin = self.at
            else:
                if word == ";":
                    begin = self.at + 1
                self.at += 1

    def balanced(self, code):
        """A bracketed piece; the bodies of lambdas in it are code where `code` is asked for."""
        closing = {"(": ")", "[": "]", "{": "}"}[self.word()]
        self.at += 1
        while self.at < len(self.tokens) and self.word() != closing:
            self.part(code)
        self.at += 1

    def part(self, code):
        """One token of an expression, or a whole bracketed piece of it."""
        word = self.word()
        if word == "{" and code and self.word(-1) in (")", "]", "mutable", "noexcept", "bool", "int"):
            self.block()
        elif word in ("(", "[", "{"):
            self.balanced(code)
        else:
            self.at += 1

    def block(self):
        self.at += 1
        while self.at < len(self.tokens) and self.word() != "}":
            self.statement()
        self.at += 1

    def statement(self):
        word = self.word()
        if word == "{":
            self.block()
        elif word in CONTROL:
            self.at += 1
            if self.word() == "constexpr":
                self.at += 1
            self.balanced(code=True)
            self.statement()
            if word == "if" and self.word() == "else":
                self.at += 1
                self.statement()
        elif word == "try":
            self.at += 1
            self.block()
        elif word == "catch":
            self.at += 1
            self.balanced(code=False)
            self.block()
        elif word == "do":
            self.at += 1
            self.statement()
            self.simple(keep=True)
        elif word in ("case", "default"):
            while self.word() != ":":
                self.at += 1
            self.at += 1
        else:
            self.simple(keep=False)

    def simple(self, keep):
        """Up to the semicolon."""
        begin = self.at
        while self.at < len(self.tokens) and self.word() != ";":
            self.part(code=True)
        end = self.at
        self.at += 1
        words = [t[0] for t in self.tokens[begin:end]]
        if words and not keep and self.is_deletable(words):
            self.found.append((self.tokens[begin][1], self.tokens[end][2]))

    @staticmethod
    def is_deletable(words):
        first = words[0]
        if first == "return":
            return len(words) == 1
        if first in ALONE or first == "throw":
            return True
        if first in BEGINS_DECLARATION:
            return False
        if not re.match(r"[A-Za-z_]", first):
            return True
        # `Type name`, `Type<...>& name` and `Type::Type* name` declare; a name, its members and calls do not.
        at = 1
        while at + 1 < len(words) and words[at] == "::":
            at += 2
        if at < len(words) and words[at] == "<":
            depth = 0
            while at < len(words):
                depth += {"<": 1, ">": -1, ">>": -2}.get(words[at], 0)
                at += 1
                if depth == 0:
                    break
        while at < len(words) and words[at] in ("&", "*", "&&", "const", "::"):
            at += 1
        return not (at < len(words) and re.match(r"[A-Za-z_]\w*$", words[at]))


def statements_of(text):
    parser = Parser(text)
    parser.scope()
    return sorted(parser.found)


def with_switches(text, first):
    """The text with each statement behind a switch, and the places of the statements by number."""
    edits = []
    places = {}
    for number, (begin, end) in enumerate(statements_of(text), first):
        edits.append((begin, 1, "{ if (!::deleted_statement::Is(%d)) { " % number))
        edits.append((end, 0, " } }"))
        places[number] = (begin, end)
    # At one place what closes comes ahead of what opens.
    for place, _, insert in sorted(edits, key=lambda e: (e[0], e[1]), reverse=True):
        text = text[:place] + insert + text[place:]
    return '#include "deleted_statement.h"\n#line 1\n' + text, places


# --- The build --------------------------------------------------------------------------------------------------------


def run(command, **options):
    done = subprocess.run(command, capture_output=True, text=True, **options)
    if done.returncode != 0:
        sys.exit("%s\n%s%s" % (command, done.stdout[-3000:], done.stderr[-6000:]))
    return done.stdout


def compile_folders(scratch, build, folders, jobs_at_once):
    """Compiles the copies; what is as it was the last time is left alone."""
    commands = {e["file"]: e["command"] for e in json.loads((build / "compile_commands.json").read_text())}
    number = 1
    statements = {}
    objects = collections.defaultdict(list)
    jobs = []
    for folder in folders:
        for source in sorted((ROOT / "src" / folder).glob("*.cpp")):
            text = source.read_text()
            changed, places = with_switches(text, number)
            number += len(places)
            for n, (begin, end) in places.items():
                statements[n] = {
                    "file": str(source.relative_to(ROOT)),
                    "line": text.count("\n", 0, begin) + 1,
                    "text": " ".join(text[begin:end].split()),
                }
            copy = scratch / folder / source.name
            target = copy.with_suffix(".o")
            objects[folder].append(target)
            if copy.exists() and copy.read_text() == changed and target.exists():
                continue
            copy.parent.mkdir(parents=True, exist_ok=True)
            copy.write_text(changed)
            command = commands[str(source)].replace(str(source), str(copy))
            command = re.sub(r" -o \S+", " -o " + str(target), command)
            command = command.replace("-O3", "-O1").replace("-Werror", "-w")
            jobs.append(shlex.split(command) + ["-I", str(scratch), "-I", str(source.parent)])
    with concurrent.futures.ThreadPoolExecutor(jobs_at_once) as pool:
        for i, job in enumerate(pool.map(lambda job: (run(job, cwd=build), job)[1], jobs), 1):
            print("compiled %d of %d: %s" % (i, len(jobs), job[job.index("-c") + 1]), flush=True)
    for folder, files in objects.items():
        library = scratch / ("libtorvale_%s.a" % folder)
        library.unlink(missing_ok=True)
        run(["ar", "rcs", str(library)] + [str(f) for f in files])
    return statements


def link_programs(scratch, build, folders):
    """The test programs of the build, linked with the libraries of the copies in the place of their own."""
    listener = scratch / "listener.cpp"
    listener.write_text(LISTENER)
    run(["c++", "-std=c++20", "-O1", "-c", str(listener), "-o", str(scratch / "listener.o"), "-I", str(scratch)])
    programs = []
    for name in PROGRAMS:
        target = "torvale_%s_tests" % name
        if not (build / target).exists():
            print("no %s: left out" % target)
            continue
        command = run(["ninja", "-C", str(build), "-t", "commands", target]).strip().splitlines()[-1]
        command = command.replace(" -o " + target, " -o %s %s" % (scratch / target, scratch / "listener.o"))
        for folder in folders:
            library = "libtorvale_%s.a" % folder
            command = command.replace(" " + library, " " + str(scratch / library))
        run(command, shell=True, cwd=build)
        programs.append(target)
    return programs


def clean_environment(**more):
    kept = {k: v for k, v in os.environ.items() if k not in ("TORVALE_LONG", "TORVALE_FIRST", "TORVALE_ACCEPT")}
    return dict(kept, QT_QPA_PLATFORM="offscreen", **more)


def prepare(options):
    scratch = options.scratch.resolve()
    build = options.build.resolve()
    if ROOT in scratch.parents or scratch == ROOT:
        sys.exit("SCRATCH must lie outside of the project.")
    scratch.mkdir(parents=True, exist_ok=True)
    (scratch / "deleted_statement.h").write_text(HEADER)
    statements = compile_folders(scratch, build, options.folders.split(","), options.jobs)
    programs = link_programs(scratch, build, options.folders.split(","))
    tests = []
    for program in programs:
        notes = scratch / (program + ".reached")
        notes.unlink(missing_ok=True)
        done = subprocess.run(
            [str(scratch / program)], cwd=scratch, env=clean_environment(REACHED_STATEMENTS=str(notes)), capture_output=True, text=True
        )
        if done.returncode != 0:
            sys.exit("%s fails with nothing deleted:\n%s" % (program, done.stdout[-3000:]))
        for line in notes.read_text().splitlines():
            name, milliseconds, reached = line.split("\t")
            tests.append([program, name, int(milliseconds) / 1000, [int(n) for n in reached.split()]])
        print("%s: %d tests" % (program, sum(t[0] == program for t in tests)), flush=True)
    (scratch / "statements.json").write_text(json.dumps(statements))
    (scratch / "tests.json").write_text(json.dumps(tests))
    print("%d statements" % len(statements))


# --- The deletions ----------------------------------------------------------------------------------------------------

MOST_IN_ONE_RUN = 40  # tests: the quickest come first, and most deletions fall to one of them


def killer_of(scratch, number, tests):
    """The test, or the program, that misses the statement; None where all pass."""
    for first in range(0, len(tests), MOST_IN_ONE_RUN):
        by_program = collections.defaultdict(list)
        for program, name, seconds, _ in tests[first : first + MOST_IN_ONE_RUN]:
            by_program[program].append((name, seconds))
        for program, chosen in by_program.items():
            expected = sum(seconds for _, seconds in chosen)
            command = [
                str(scratch / program),
                "--gtest_filter=" + ":".join(name for name, _ in chosen),
                "--gtest_fail_fast",
                "--gtest_brief=1",
            ]
            try:
                done = subprocess.run(
                    command, cwd=scratch, env=clean_environment(DELETED_STATEMENT=str(number)),
                    capture_output=True, timeout=20 + 20 * expected,
                )
            except subprocess.TimeoutExpired:
                return program + " (hangs)"
            if done.returncode != 0:
                failed = re.search(rb"FAILED  \] (\S+?),? ", done.stdout + b" ")
                return failed.group(1).decode() if failed else program + " (ends with %d)" % done.returncode
    return None


def load(scratch, name, default=None):
    path = scratch / name
    return json.loads(path.read_text()) if path.exists() else default


def key_of(statement, seen):
    """A name of the statement that outlives a change elsewhere in its file."""
    name = statement["file"] + ": " + statement["text"]
    seen[name] += 1
    return "%s (%d)" % (name, seen[name])


def try_deletions(options):
    scratch = options.scratch.resolve()
    statements = load(scratch, "statements.json")
    tests = load(scratch, "tests.json")
    if options.tests:
        allowed = set(options.tests.read_text().split())
        tests = [t for t in tests if re.sub(r"^\w+/|/\w+$", "", t[1]) in allowed]
    tests = sorted((t for t in tests if t[2] <= options.slow), key=lambda t: t[2])
    reaching = collections.defaultdict(list)
    for test in tests:
        for number in test[3]:
            reaching[number].append(test)
    results = load(scratch, "results.json", {})
    seen = collections.Counter()
    names = {int(n): key_of(s, seen) for n, s in statements.items()}
    # In random order, so that a check that is stopped has tried a random sample.
    chosen = sorted(names)
    random.Random(options.seed).shuffle(chosen)
    chosen = chosen[: options.sample]
    lock = threading.Lock()

    def try_one(number):
        name = names[number]
        before = results.get(name)
        if before is not None and not (options.again and before["killer"] is None):
            return
        began = time.time()
        killer = killer_of(scratch, number, reaching[number]) if reaching[number] else None
        with lock:
            results[name] = {"killer": killer, "reached": len(reaching[number]), **statements[str(number)]}
            (scratch / "results.json").write_text(json.dumps(results))
            print("%s -> %s (%.0f s)" % (name, killer or "SURVIVES", time.time() - began), flush=True)

    with concurrent.futures.ThreadPoolExecutor(options.jobs) as pool:
        list(pool.map(try_one, chosen))
    show(options)


def show(options):
    results = load(options.scratch.resolve(), "results.json", {})
    counts = collections.defaultdict(collections.Counter)
    for result in results.values():
        folder = result["file"].split("/")[1]
        kind = "missed" if result["killer"] else "survives" if result["reached"] else "not reached"
        for row in (folder, "all"):
            counts[row][kind] += 1
            counts[row]["tried"] += 1
    print("%-10s %7s %7s %9s %12s" % ("folder", "tried", "missed", "survives", "not reached"))
    for folder, c in sorted(counts.items(), key=lambda item: item[0] == "all"):
        print("%-10s %7d %7d %9d %12d" % (folder, c["tried"], c["missed"], c["survives"], c["not reached"]))
    for result in sorted(results.values(), key=lambda r: (r["file"], r["line"])):
        if result["killer"] is None:
            print("%s:%d: %s%s" % (result["file"], result["line"], result["text"], "" if result["reached"] else "   [not reached]"))


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("what", choices=["prepare", "try", "show"])
    parser.add_argument("scratch", type=pathlib.Path)
    parser.add_argument("--build", type=pathlib.Path, default=ROOT / "build" / "release")
    parser.add_argument("--folders", default="search,display,input,files")
    parser.add_argument("--jobs", type=int, default=os.cpu_count())
    parser.add_argument("--sample", type=int)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--again", action="store_true")
    parser.add_argument("--tests", type=pathlib.Path)
    parser.add_argument("--slow", type=float, default=2.0)
    options = parser.parse_args()
    {"prepare": prepare, "try": try_deletions, "show": show}[options.what](options)


if __name__ == "__main__":
    main()
