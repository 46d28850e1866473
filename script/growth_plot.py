#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Draws what a second of audio costs as one thing grows, with gnuplot.

    script/growth_plot.py out/growth.json docs/growth.svg
"""
import json
import subprocess
import sys

PANELS = (("rate", "sample rate (Hz)"), ("batch", "batch (samples)"),
          ("window", "volume window (s)"), ("analyzers", "analyzers in one process"))


def read_points(path):
    """What grows -> [(its value, microseconds of CPU per second of audio)]."""
    with open(path, encoding="utf-8") as file:
        data = json.load(file)
    points = {}
    for row in data["benchmarks"]:
        if row.get("aggregate_name") == "median":
            _, what, value = row["run_name"].split("/")
            points.setdefault(what, []).append((float(value), 1e6 / row["audio"]))
    return data["context"], {what: sorted(values) for what, values in points.items()}


def panel(what, label, values):
    first_x, first_y = values[0]
    lines = [f"set xlabel '{label}'", "$data << END"]
    lines += [f"{x} {y}" for x, y in values]
    lines += ["END", f"plot $data using 1:2 with linespoints pt 7 ps 0.6 lc '#1f5f8b' "
              f"title 'measured', {first_y / first_x} * x with lines dt 2 lc '#888888' "
              f"title 'in proportion'"]
    return "\n".join(lines)


def script(context, points, target):
    parts = ["set terminal svg size 900,700 font 'sans,12' background rgb 'white'",
             f"set output '{target}'",
             f"set multiplot layout 2,2 title 'CPU time for a second of audio "
             f"(kernel {context.get('kernel', '?')})'",
             "set logscale xy", "set grid", "set key top left", "set ylabel 'µs'",
             "set yrange [10:*]"]
    parts += [panel(what, label, points[what]) for what, label in PANELS]
    return "\n".join(parts) + "\n"


def main():
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    context, points = read_points(sys.argv[1])
    subprocess.run(["gnuplot"], input=script(context, points, sys.argv[2]), text=True, check=True)


if __name__ == "__main__":
    main()
