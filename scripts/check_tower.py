#!/usr/bin/env python3
"""Holds the #include lines of src/ and the drawing docs/tower.svg to the tower of folders.

  check_tower.py [ROOT]       checks the project at ROOT (by default the one that this script lies in)
  check_tower.py --self-test  builds small wrong trees and fails unless each is reported

The folders and what each may include are the torvale_folder(NAME BELOW...) lines of CMakeLists.txt. A folder may include
itself and everything below it. src/qt stands on scenarios and is the only folder with toolkit headers; the front end
for many fields has the headers of two small libraries, and headers of an operating system stand in
src/base/platform_*.cpp alone. The drawing has
a room for each folder, and an arrow from it to each folder that its line names.

Inside a folder the arrows form no circle either, a header and its .cpp file taken as one. A header without a .cpp file
that all its readers in the folder share with one file (a table laid apart, say) belongs to that file.
"""

import argparse
import pathlib
import re
import sys
import tempfile

INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*(?:"([^"]+)"|<([^>]+)>)', re.MULTILINE)
FOLDER = re.compile(r"^torvale_folder\(([^)]+)\)", re.MULTILINE)
WINDOWS = "qt"
WINDOWS_BELOW = "scenarios"
# Headers of the standard library have neither capitals, nor a dot, nor a slash in their names. Toolkit and system
# headers have one or the other.
LIBRARIES = {"batch": {"CLI/CLI.hpp", "hpdf.h"}}
STANDARD = re.compile(r"^[a-z_0-9]+$")
# What an operating system must do itself stands in files of this name.
PLATFORM = re.compile(r"^base/platform_[a-z]+\.cpp$")
SYSTEM = re.compile(r"^[a-z_0-9/]+(\.h)?$")
# The files of single instruction sets may have the intrinsics of their compiler.
INTRINSICS = "immintrin.h"
WIDE = re.compile(r"^engine/wide_march_[a-z0-9]+\.cpp$")
ROOM = re.compile(
    r'<rect class="room[^"]*" x="(\d+)" y="(\d+)" width="(\d+)" height="(\d+)"[^>]*/>\s*<text class="name"[^>]*>([^<]+)<'
)
ARROW = re.compile(r'<path class="line" d="M(\d+) (\d+) ([VH])(\d+)" marker-end')


def read_lines(root):
    """Folder -> the folders that its line names."""
    lines = {}
    for line in FOLDER.findall((root / "CMakeLists.txt").read_text()):
        name, *below = line.split()
        lines[name] = below
    if not lines:
        raise SystemExit("CMakeLists.txt has no torvale_folder line")
    return lines | {WINDOWS: [WINDOWS_BELOW]}


def read_tower(root):
    """Folder -> the set of folders that it may include, itself among them."""
    tower = {}
    for name, below in read_lines(root).items():
        tower[name] = {name}.union(*(tower[folder] for folder in below))
    return tower


def check_drawing(root):
    """The list of complaints about the drawing."""
    svg = (root / "docs/tower.svg").read_text()
    rooms = {name: tuple(map(int, place)) for *place, name in ROOM.findall(svg)}

    def room_at(x, y):
        reach = 2  # the head of an arrow ends just short of the room
        inside = [
            name
            for name, (left, top, width, height) in rooms.items()
            if left - reach <= x <= left + width + reach and top - reach <= y <= top + height + reach
        ]
        return inside[0] if len(inside) == 1 else None

    drawn = set()
    for x, y, way, end in ARROW.findall(svg):
        to = (int(x), int(end)) if way == "V" else (int(end), int(y))
        drawn.add((room_at(int(x), int(y)), room_at(*to)))
    lines = read_lines(root)
    wanted = {(name, folder) for name, below in lines.items() for folder in below}
    complaints = [f"docs/tower.svg: {name} is no folder of the tower" for name in sorted(rooms.keys() - lines.keys())]
    complaints += [f"docs/tower.svg: no room for {name}" for name in sorted(lines.keys() - rooms.keys())]
    complaints += [f"docs/tower.svg: no arrow from {a} to {b}" for a, b in sorted(wanted - drawn)]
    complaints += [f"docs/tower.svg: no line for the arrow from {a} to {b}" for a, b in sorted(drawn - wanted, key=str)]
    return complaints


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


def units_of(graph):
    """File -> the name under which it and its other half are one; a header that is a part of one file has its name."""
    unit = {file: pathlib.PurePosixPath(file).with_suffix("").as_posix() for file in graph}
    readers = {}
    for file, included in graph.items():
        for target in included:
            if same_room(file, target):
                readers.setdefault(target, set()).add(file)
    sources = {unit[file] for file in graph if file.endswith(".cpp")}
    parts = {}
    for file in graph:
        owners = {unit[reader] for reader in readers.get(file, ())}
        if unit[file] not in sources and len(owners) == 1:
            parts[unit[file]] = owners.pop()
    return {file: parts.get(name, name) for file, name in unit.items()}


def same_room(file, other):
    return pathlib.PurePosixPath(file).parent == pathlib.PurePosixPath(other).parent


def find_circle(graph):
    """A list of files of one room that need each other in a circle, or None."""
    unit = units_of(graph)
    needs = {}
    for file, included in graph.items():
        inside = [target for target in included if target in unit and same_room(file, target)]
        needs.setdefault(unit[file], set()).update({unit[target] for target in inside} - {unit[file]})
    return find_cycle({name: sorted(others) for name, others in needs.items()})


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
                if angled == INTRINSICS and WIDE.match(name):
                    continue
                allowed = SYSTEM if PLATFORM.match(name) else STANDARD
                kept = folder == WINDOWS or angled in LIBRARIES.get(folder, ())
                if not kept and not allowed.match(angled):
                    complaints.append(f"{name}: <{angled}> is not of the standard library and may not stand there")
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
    circle = find_circle(graph)
    if circle and not ring:
        complaints.append("a circle inside a room: " + " -> ".join(circle))
    return complaints + check_drawing(root), len(files)


def drawing(names, arrows):
    """A drawing of the rooms one below the other, each 50 high, with arrows by their x, y and end."""
    rooms = "".join(
        f'<rect class="room" x="0" y="{100 * i}" width="90" height="50"/>\n<text class="name">{name}</text>\n'
        for i, name in enumerate(names)
    )
    return rooms + "".join(f'<path class="line" d="M{x} {y} V{end}" marker-end=""/>\n' for x, y, end in arrows)


def self_test():
    cmake = "torvale_folder(base)\ntorvale_folder(engine base)\ntorvale_folder(scenarios engine)\n"
    good = {
        "base/a.h": "#include <vector>\n",
        "base/a.cpp": '#include "base/a.h"\n',
        "base/platform_posix.cpp": "#include <unistd.h>\n#include <sys/stat.h>\n",
        "engine/e.h": '#include "base/a.h"\n',
        "qt/w.h": '#include <QWidget>\n#include "engine/e.h"\n',
    }
    names = ["qt", "scenarios", "engine", "base"]
    arrows = [(45, 50, 99), (45, 150, 199), (45, 250, 299)]
    good_drawing = {"../docs/tower.svg": drawing(names, arrows)}
    cases = [
        ("the tree as it should be", {}, None),
        ("a drawing that lacks an arrow", {"../docs/tower.svg": drawing(names, arrows[1:])}, "no arrow from qt"),
        ("a drawing with an arrow upwards", {"../docs/tower.svg": drawing(names, arrows + [(45, 200, 149)])}, "no line"),
        ("a drawing with an arrow to nowhere", {"../docs/tower.svg": drawing(names, arrows + [(45, 350, 399)])}, "no line"),
        ("a drawing that lacks a room", {"../docs/tower.svg": drawing(names[:3], arrows)}, "no room for base"),
        ("a drawing with a room too many", {"../docs/tower.svg": drawing(names + ["attic"], arrows)}, "attic is no"),
        ("an arrow that points up", {"base/b.cpp": '#include "engine/e.h"\n'}, "points up"),
        ("an arrow from the scenarios to its windows", {"scenarios/s.cpp": '#include "qt/w.h"\n'}, "points up"),
        ("an arrow that points up, with odd blanks", {"base/b.cpp": ' #  include   "engine/e.h"\n'}, "points up"),
        ("a toolkit header below", {"engine/f.cpp": "#include <QString>\n"}, "standard library"),
        ("a toolkit header in the plain scenarios", {"scenarios/s.cpp": "#include <QtCore/qglobal.h>\n"}, "standard library"),
        ("a system header below", {"engine/f.cpp": "#include <unistd.h>\n"}, "standard library"),
        ("a system header in another file of base", {"base/b.cpp": "#include <sys/stat.h>\n"}, "standard library"),
        ("a system header in a platform's header", {"base/platform_posix.h": "#include <unistd.h>\n"}, "standard library"),
        ("a platform's file further up", {"engine/platform_posix.cpp": "#include <unistd.h>\n"}, "standard library"),
        ("a toolkit header in a platform's file", {"base/platform_posix.cpp": "#include <QFile>\n"}, "standard library"),
        ("a library's header in another room", {"engine/f.cpp": "#include <hpdf.h>\n"}, "standard library"),
        ("intrinsics in a wide march", {"engine/wide_march_avx.cpp": "#include <immintrin.h>\n"}, None),
        ("intrinsics elsewhere", {"engine/f.cpp": "#include <immintrin.h>\n"}, "standard library"),
        ("intrinsics in a wide folder", {"base/wide_march_avx.cpp": "#include <immintrin.h>\n"}, "standard library"),
        ("a ring", {"base/a.h": '#include "base/c.h"\n', "base/c.h": '#include "base/a.h"\n'}, "ring"),
        ("two files that need each other", {"base/b.h": "", "base/b.cpp": '#include "base/a.h"\n', "base/a.cpp": '#include "base/b.h"\n'}, "circle"),
        ("a table of one file laid apart", {"base/rows.h": '#include "base/a.h"\n', "base/a.cpp": '#include "base/rows.h"\n'}, None),
        ("a table laid apart that two files read", {"base/rows.h": '#include "base/a.h"\n', "base/a.cpp": '#include "base/rows.h"\n', "base/b.cpp": '#include "base/rows.h"\n'}, "circle"),
        ("a file that is not there", {"engine/f.cpp": '#include "base/none.h"\n'}, "no file"),
        ("a way round through ..", {"base/b.cpp": '#include "base/../engine/e.h"\n'}, "no file"),
        ("a folder outside the tower", {"attic/x.cpp": "\n"}, "not a folder"),
    ]
    wrong = 0
    for title, change, expected in cases:
        with tempfile.TemporaryDirectory() as name:
            root = pathlib.Path(name)
            (root / "CMakeLists.txt").write_text(cmake)
            for file, text in (good | good_drawing | change).items():
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
