#!/usr/bin/env python3
"""Holds the #include lines of src/ to the tower of folders.

  check_tower.py [ROOT]       checks the project at ROOT (by default the one that this script lies in)
  check_tower.py --self-test  builds small wrong trees and fails unless each is reported

The folders and what each may include are the torvale_folder(NAME BELOW...) lines of CMakeLists.txt. A folder may include
itself and everything below it. src/shell/qt stands on shell and is the only folder with toolkit headers.
"""

import argparse
import pathlib
import re
import sys
import tempfile

INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*(?:"([^"]+)"|<([^>]+)>)', re.MULTILINE)
FOLDER = re.compile(r"^torvale_folder\(([^)]+)\)", re.MULTILINE)
WINDOWS = "shell/qt"
WINDOWS_BELOW = "shell"
# Headers of the standard library have neither capitals, nor a dot, nor a slash in their names. Toolkit and system
# headers have one or the other.
STANDARD = re.compile(r"^[a-z_0-9]+$")


def read_tower(root):
    """Folder -> the set of folders that it may include, itself among them."""
    tower = {}
    for line in FOLDER.findall((root / "CMakeLists.txt").read_text()):
        name, *below = line.split()
        tower[name] = {name}.union(*(tower[folder] for folder in below))
    if not tower:
        raise SystemExit("CMakeLists.txt has no torvale_folder line")
    tower[WINDOWS] = tower[WINDOWS_BELOW] | {WINDOWS}
    return tower


def find_cycle(graph):
    """A list of files that include each other in a ring, or None."""
    done, path = set(), []

    def visit(file):
        if file in path:
            return path[path.index(file):] + [file]
        if file in done:
            return None
        path.append(file)
        for target in graph.get(file, ()):
            ring = visit(target)
            if ring:
                return ring
        path.pop()
        done.add(file)
        return None

    return next((ring for ring in map(visit, sorted(graph)) if ring), None)


def check(root):
    """The list of complaints about the tree at root, and the number of files read."""
    tower = read_tower(root)
    source = root / "src"
    complaints, graph = [], {}
    files = sorted(path for path in source.rglob("*") if path.suffix in (".h", ".cpp"))
    for path in files:
        name = path.relative_to(source).as_posix()
        folder = path.parent.relative_to(source).as_posix()
        if folder not in tower:
            complaints.append(f"{name}: {folder}/ is not a folder of the tower")
            continue
        graph[name] = []
        for match in INCLUDE.finditer(path.read_text()):
            quoted, angled = match.groups()
            if angled:
                if folder != WINDOWS and not STANDARD.match(angled):
                    complaints.append(f"{name}: <{angled}> is not of the standard library; only {WINDOWS}/ may have it")
                continue
            if quoted.endswith(".moc") and folder == WINDOWS:
                continue
            if not (source / quoted).is_file() or ".." in quoted:
                complaints.append(f'{name}: "{quoted}" is no file under src/')
                continue
            target = pathlib.PurePosixPath(quoted).parent.as_posix()
            if target not in tower[folder]:
                complaints.append(f'{name}: "{quoted}" points up the tower, {folder}/ may not include {target}/')
            graph[name].append(quoted)
    ring = find_cycle(graph)
    if ring:
        complaints.append("a ring of includes: " + " -> ".join(ring))
    return complaints, len(files)


def self_test():
    cmake = "torvale_folder(base)\ntorvale_folder(engine base)\ntorvale_folder(shell engine)\n"
    good = {
        "base/a.h": "#include <vector>\n",
        "base/a.cpp": '#include "base/a.h"\n',
        "engine/e.h": '#include "base/a.h"\n',
        "shell/qt/w.h": '#include <QWidget>\n#include "engine/e.h"\n',
    }
    cases = [
        ("the tree as it should be", {}, None),
        ("an arrow that points up", {"base/b.cpp": '#include "engine/e.h"\n'}, "points up"),
        ("an arrow from the shell to its windows", {"shell/s.cpp": '#include "shell/qt/w.h"\n'}, "points up"),
        ("an arrow that points up, with odd blanks", {"base/b.cpp": ' #  include   "engine/e.h"\n'}, "points up"),
        ("a toolkit header below", {"engine/f.cpp": "#include <QString>\n"}, "standard library"),
        ("a toolkit header in the plain shell", {"shell/s.cpp": "#include <QtCore/qglobal.h>\n"}, "standard library"),
        ("a system header below", {"engine/f.cpp": "#include <unistd.h>\n"}, "standard library"),
        ("a ring", {"base/a.h": '#include "base/c.h"\n', "base/c.h": '#include "base/a.h"\n'}, "ring"),
        ("a file that is not there", {"engine/f.cpp": '#include "base/none.h"\n'}, "no file"),
        ("a way round through ..", {"base/b.cpp": '#include "base/../engine/e.h"\n'}, "no file"),
        ("a folder outside the tower", {"attic/x.cpp": "\n"}, "not a folder"),
    ]
    wrong = 0
    for title, change, expected in cases:
        with tempfile.TemporaryDirectory() as name:
            root = pathlib.Path(name)
            (root / "CMakeLists.txt").write_text(cmake)
            for file, text in (good | change).items():
                path = root / "src" / file
                path.parent.mkdir(parents=True, exist_ok=True)
                path.write_text(text)
            complaints, _ = check(root)
        seen = not complaints if expected is None else any(expected in complaint for complaint in complaints)
        if not seen:
            wrong += 1
            print(f"self-test: {title}: reported {complaints}, expected {expected or 'nothing'}")
    print(f"{len(cases) - wrong} of {len(cases)} made-up trees judged rightly")
    return 1 if wrong else 0


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("root", nargs="?", type=pathlib.Path, default=pathlib.Path(__file__).resolve().parent.parent)
    parser.add_argument("--self-test", action="store_true")
    arguments = parser.parse_args()
    if arguments.self_test:
        return self_test()
    complaints, count = check(arguments.root)
    for complaint in complaints:
        print(complaint)
    if count == 0:
        print(f"no source file under {arguments.root}/src")
    return 1 if complaints or count == 0 else 0


if __name__ == "__main__":
    sys.exit(main())
