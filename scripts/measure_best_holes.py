#!/usr/bin/env python3
"""Measures the best holes against the two classic selections on made-up fields and on the samples.

  measure_best_holes.py PROGRAM [FIELDS [FIRST]]   PROGRAM is torvale_script; 200 fields of 264 holes from seed FIRST on
  measure_best_holes.py PROGRAM samples            the same on the inputs of data/samples

Each field is a script that runs User Hole Selection (five sizes), Computer Hole Selection (all sizes) and Best Holes
(the five sizes, four stretches) and shows what they come to. One line for each field, then the figures of
docs/best_holes.md. Times are processor seconds of the run of Best Holes with its start, which takes some hundredths.
"""

import os
import pathlib
import random
import re
import statistics
import subprocess
import sys
import tempfile

HOLES = 264


def size_name(sixteenths):
    """As the hole size table has it."""
    whole, part = divmod(sixteenths, 16)
    if part == 0:
        return str(whole)
    low = 16
    while part % 2 == 0:
        part, low = part // 2, low // 2
    return f"{whole}-{part}/{low}" if whole else f"{part}/{low}"


def field(seed):
    """A line as planners lay it out: furrows a few feet apart, a pipe wide enough for the flow, a crown that falls or
    rises a little and has humps, furrow lengths that change along the line. Its script, and its sizes."""
    draw = random.Random(seed)
    spacing = draw.choice([3.33, 5, 5, 6, 6.67])
    per_furrow = draw.uniform(4, 11)
    gpm = round(HOLES * per_furrow)
    speed = draw.uniform(2, 4.5)  # feet per second at the head of the line, at most
    pipe = next((d for d in (8, 10, 12, 15, 18) if gpm / 448.8 / (0.785 * d * d / 144) <= speed), 22)
    slope = draw.uniform(-0.2, 0.1)  # feet per 100 feet toward the far end
    end = round((HOLES - 1) * spacing)
    stations = list(range(0, end, 100)) + [end]
    first = draw.uniform(600, 1320)
    last = first * draw.uniform(0.7, 1.3)
    rows = []
    for station in stations:
        crown = 100 + slope * station / 100 + draw.uniform(-0.08, 0.08)
        length = round(first + (last - first) * station / end)
        rows.append(f"{station}\t{crown:.2f}\t{length}\t{spacing}\t{pipe}\t3/4\t1\t10\t{spacing}")
    # The size that gives the average furrow its flow under a head between 0.9 and 1.6 feet, and its neighbours.
    head = draw.uniform(0.9, 1.6)
    area = per_furrow / ((head * 64.4) ** 0.5 * 448.8 * 0.65)
    middle = max(3, round((area * 144 * 4 / 3.14) ** 0.5 * 16))
    sizes = [size_name(sixteenths) for sixteenths in range(middle - 2, middle + 3)]
    highest = draw.choice([2.5, 3, 3.5, 4])
    lines = [f'type txtDefault(2) "0.65"', f'type txtDefault(3) "{draw.choice([130, 140, 150])}"']
    lines += ['type txtDefault(13) "2"', 'type txtDefault(14) ".2"', f'type txtInfo(2) "{gpm}"']
    lines += ['type txtInfo(3) "2"', 'type txtInfo(5) "E"', "fill Grid1 1 0", *rows, "end"]
    return lines, sizes, highest


def samples():
    """Name, script, sizes, highest head of each sample: its inputs, with five sizes around its first one."""
    folder = pathlib.Path(__file__).resolve().parent.parent / "data/samples"
    for script in sorted(folder.glob("*.script")):
        lines = ['type txtDefault(13) "2"', 'type txtDefault(14) ".2"']
        for line in script.read_text().splitlines():
            if re.match(r"click mnu\w*(Design|HoleSelection)", line):
                break
            lines.append(line)
        cells = [line.split("\t") for line in lines[lines.index("fill Grid1 1 0") + 1 :]]
        part, low = map(int, next(row[5] for row in cells if len(row) > 5 and "/" in row[5]).split("/"))
        sizes = [size_name(part * 16 // low + step) for step in range(-2, 3)]
        yield script.stem, lines, sizes, re.search(r'type txtInfo\(3\) "(.*?)"', "\n".join(lines)).group(1)


def classic_steps(sizes, head):
    steps = ["click mnuManHoleSelection"] + [f'doubleclick listAllHoles "{size}"' for size in sizes]
    steps += ["click cmdExitHoleSelect", "show Uniformity MaxHead MinHead LimitedHoleDia"]
    return steps + [f'type txtInfo(3) "{head}"', "click mnuComputerHoleSelection", "show Uniformity MaxHead MinHead"]


def best_steps(sizes, highest):
    steps = ["click mnuBestHoles"] + [f'doubleclick listAllHoles "{size}"' for size in sizes]
    return steps + [f'type txtBest(2) "{highest}"', "click cmdFindBestHoles", "show Uniformity lblBestHoles Grid2[1,0]"]


def run(program, lines):
    """(transcript, processor seconds)."""
    with tempfile.NamedTemporaryFile("w", suffix=".script") as script:
        script.write("\n".join(lines) + "\n")
        script.flush()
        with subprocess.Popen([program, script.name], stdout=subprocess.PIPE, text=True) as process:
            text = process.stdout.read()
            _, _, usage = os.wait4(process.pid, 0)
            process.returncode = 0
    return text, usage.ru_utime + usage.ru_stime


def numbers(text, name):
    return [float(value) for value in re.findall(rf"^{name} = ([-\d.]+)$", text, re.M)]


def stretches(text):
    sizes = [size for size in re.findall(r"^LimitedHoleDia\[\d+\] = ([\d.]+)$", text, re.M) if float(size) > 0]
    return sum(1 for before, size in zip([None] + sizes, sizes) if size != before)


def measure(program, lines, sizes, highest, head="2"):
    classic, _ = run(program, lines + classic_steps(sizes, head))
    best, seconds = run(program, lines + best_steps(sizes, highest))
    uniformities = numbers(classic, "Uniformity")
    label = re.search(r'^lblBestHoles = "(.*?)" visible', best, re.M)
    if label is None or "Grid2[1,0]" not in best:
        return None
    gap = re.search(r"\(([\d.]+) more\)", label.group(1))
    result = {"best": numbers(best, "Uniformity")[0], "seconds": seconds, "label": label.group(1)}
    result["gap"] = float(gap.group(1)) if gap else 0.0
    result["limited"], result["computer"] = (uniformities + [0, 0])[:2]
    # Whether the limited selection's own plan lies within the limits of the best holes.
    heads = numbers(classic, "MaxHead")[:1] + numbers(classic, "MinHead")[:1]
    result["within"] = 0 < stretches(classic) <= 4 and len(heads) == 2 and heads[0] <= float(highest) and heads[1] >= 0.5
    return result


def spread(values, of="{:.1f}"):
    values = sorted(values)
    tenth = values[len(values) * 9 // 10]
    return f"median {of.format(statistics.median(values))}, nine in ten up to {of.format(tenth)}, " \
        f"from {of.format(values[0])} to {of.format(values[-1])}"


def main():
    program = str(pathlib.Path(sys.argv[1]).resolve())
    if sys.argv[2:] == ["samples"]:
        for name, lines, sizes, head in samples():
            print(name, sizes, measure(program, lines, sizes, head, head))
        return 0
    fields = int(sys.argv[2]) if len(sys.argv) > 2 else 200
    first = int(sys.argv[3]) if len(sys.argv) > 3 else 1
    results = []
    for seed in range(first, first + fields):
        result = measure(program, *field(seed))
        print(seed, result, flush=True)
        if result:
            results.append(result)
    if not results:
        return 1
    print(f"{len(results)} of {fields} fields have a plan within the limits")
    print("gap:", spread([r["gap"] for r in results]))
    print("gap at most 0.5:", sum(r["gap"] <= 0.5001 for r in results))
    for name in ("limited", "computer"):
        known = [r for r in results if r[name] > 0]
        print(f"gain over {name} ({len(known)}):", spread([r["best"] - r[name] for r in known]))
        print(f"below {name}:", sum(r["best"] < r[name] for r in known))
    within = [r for r in results if r["within"]]
    print(f"below limited, of the {len(within)} whose plan is within the limits:",
          sum(r["best"] < r["limited"] for r in within))
    print("processor seconds:", spread([r["seconds"] for r in results], "{:.2f}"))
    return 0


if __name__ == "__main__":
    sys.exit(main())
