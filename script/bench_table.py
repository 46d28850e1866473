#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Prints the medians of a benchmark run, and what they mean against each goal.

    script/bench_table.py out/bench.json                         on the terminal
    script/bench_table.py out/bench.json docs/performance.md     into the document's marked places
"""
import json
import sys

UNITS = {"ns": 1e-9, "us": 1e-6, "ms": 1e-3, "s": 1.0}


class Run:
    def __init__(self, path):
        with open(path, encoding="utf-8") as file:
            data = json.load(file)
        self.context = data["context"]
        self.rows = {}
        for row in data["benchmarks"]:
            if row.get("aggregate_name") == "median":
                self.rows[row["run_name"]] = row

    # The thread's own time: other programs on the machine count less.
    def seconds(self, name):
        row = self.rows[name]
        column = "real_time" if "manual_time" in name else "cpu_time"
        return row[column] * UNITS[row["time_unit"]]

    def counter(self, name, counter):
        return self.rows[name][counter]


def time_text(seconds):
    for unit, scale in (("s", 1.0), ("ms", 1e-3), ("µs", 1e-6)):
        if seconds >= scale:
            return f"{seconds / scale:.3g} {unit}"
    return f"{seconds / 1e-9:.3g} ns"


def transform_rows(run):
    for length in (1024, 131072):
        fftw = min(run.seconds(f"transform/fftw/{length}"),
                   run.seconds(f"transform/fftw in place/{length}"))
        yield f"FFTW, {length} points", time_text(fftw), "", ""
        names = sorted(name for name in run.rows
                       if name.startswith("transform/") and name.endswith(f"/{length}")
                       and "fftw" not in name)
        for name in names:
            seconds = run.seconds(name)
            ratio = seconds / fftw
            yield name, time_text(seconds), f"{ratio:.2f} x FFTW (at most 1.2)", \
                "yes" if ratio <= 1.2 else "no"


def ratio_row(run, name, base, text, limit):
    ratio = run.seconds(name) / run.seconds(base)
    return name, time_text(run.seconds(name)), f"{ratio:.2f} x {text}", \
        "yes" if ratio <= limit else "no"


def spectrum_rows(run):
    for length in (1024, 131072):
        yield ratio_row(run, f"spectrum/getAmplitudes/{length}",
                        f"spectrum/straight passes/{length}", "straight passes (at most 1)", 1.0)
        yield ratio_row(run, f"spectrum/FindMaximalAmplitudes/{length}",
                        f"spectrum/straight passes/{length}", "straight passes (at most 1)", 1.0)
        yield ratio_row(run, f"spectrum/BandPassFilter/{length}",
                        f"spectrum/straight band-pass/{length}", "straight passes (at most 1)", 1.0)


def statistics_rows(run):
    name = "statistics/block of 1024 in a window of 2 s"
    seconds = run.seconds(name)
    yield name, time_text(seconds), "at most 6 µs", "yes" if seconds <= 6e-6 else "no"


def stop_rows(run):
    plain = run.seconds("stop decision/full transform")
    for name in ("full transform", "loud music", "music at -24 dB", "faint noise"):
        seconds = run.seconds(f"stop decision/{name}")
        yield f"stop decision, {name}", time_text(seconds), \
            f"{seconds / plain:.2f} x the full transform", ""


def converter_rows(run):
    for name in sorted(name for name in run.rows if name.startswith("converter/")):
        speed = run.counter(name, "bytes_per_second") / 1e9
        yield name + " channels", f"{speed:.1f} GB/s", "at least 4", "yes" if speed >= 4 else "no"


def pipeline_rows(run):
    ours = run.counter("pipeline/this library", "realtime")
    yield "pipeline, real time", f"{ours:.0f} x", "at least 1000", "yes" if ours >= 1000 else "no"
    for rival, factor in (("aubio tempo", 3), ("SoundTouch BPMDetect", 2)):
        speed = run.counter(f"pipeline/{rival}", "realtime")
        yield (f"pipeline, {rival}", f"{speed:.0f} x",
               f"we are {ours / speed:.1f} x (at least {factor})",
               "yes" if ours >= factor * speed else "no")
    name = next(name for name in run.rows if name.startswith("pipeline/worst"))
    pair = 2 * min(run.seconds("transform/fftw/131072"),
                   run.seconds("transform/fftw in place/131072"))
    worst = run.seconds(name)
    yield ("worst Analyze call", time_text(worst),
           f"{worst / pair:.2f} x an FFTW pair of 131072 (at most 0.75)",
           "yes" if worst <= 0.75 * pair else "no")


def tracker_rows(run):
    speed = {part: run.counter(f"tracker/{part}", "realtime")
             for part in ("whole", "onsets", "filter", "decision")}
    yield ("automatic tracker, real time", f"{speed['whole']:.0f} x", "at least 500",
           "yes" if speed["whole"] >= 500 else "no")
    for part in ("onsets", "filter", "decision"):
        yield (f"automatic tracker, {part} alone", f"{speed[part]:.0f} x",
               f"{100 * speed['whole'] / speed[part]:.0f} % of its time", "")
    rival = run.counter("pipeline/aubio tempo", "realtime")
    yield "automatic tracker, aubio tempo", f"{rival:.0f} x", f"we are {speed['whole'] / rival:.1f} x", ""
    name = next(name for name in run.rows if name.startswith("tracker/worst"))
    worst = run.seconds(name)
    yield ("worst Push of 1024 samples", time_text(worst), "at most 1 ms",
           "yes" if worst <= 1e-3 else "no")


def start_up_rows(run):
    for name, limit in (("start-up/--version", 0.030), ("start-up/file of 1 s", 0.060)):
        full = next((row for row in run.rows if row.startswith(name)), None)
        if full:
            row = run.rows[full]
            seconds = row["real_time"] * UNITS[row["time_unit"]]
            yield name, time_text(seconds), f"at most {limit * 1e3:.0f} ms", \
                "yes" if seconds <= limit else "no"


def program_rows(run):
    def speed(kind):
        return run.counter(f"program/8 minutes of FLAC, {kind}/real_time", "realtime")

    one = speed("jobs 1")
    yield "analyze, FLAC, 1 job", f"{one:.0f} x", "at least 400", "yes" if one >= 400 else "no"
    for text, kind in (("2 jobs", "jobs 2"), ("two programs side by side", "two programs")):
        yield (f"analyze, FLAC, {text}", f"{speed(kind):.0f} x",
               f"{speed(kind) / one:.2f} x one job", "")


SECTIONS = (pipeline_rows, tracker_rows, transform_rows, spectrum_rows, statistics_rows, stop_rows, converter_rows,
            program_rows, start_up_rows)


def all_rows(run):
    for section in SECTIONS:
        try:
            yield from section(run)
        except (KeyError, StopIteration):
            yield f"({section.__name__}: not in this run)", "", "", ""


def second_rows(run):
    """How the time for one second of audio divides: 44100 Hz, blocks of 1024 samples."""
    blocks = 44100 / 1024
    parts = [("forward transforms", blocks * run.seconds("transform/Compute/1024")),
             ("inverse transforms", blocks * run.seconds("transform/ComputeInverse/1024")),
             ("amplitude spectra", blocks * run.seconds("spectrum/getAmplitudes/1024")),
             ("filters", blocks * run.seconds("spectrum/BandPassFilter/1024")),
             ("statistics", blocks * run.seconds("statistics/block of 1024 in a window of 2 s")),
             ("stop decisions, loud music", run.seconds("stop decision/loud music") / 1.5)]
    whole = 1.0 / run.counter("pipeline/this library", "realtime")
    rest = whole - sum(seconds for _, seconds in parts)
    for name, seconds in parts + [("rectifying, counting, beats, signals", rest),
                                  ("the whole", whole)]:
        yield name, time_text(seconds), f"{100 * seconds / whole:.0f} %"


def machine(run):
    with open("/proc/cpuinfo", encoding="utf-8") as file:
        model = next((line.split(":")[1].strip() for line in file if "model name" in line), "?")
    return f"{model}, {run.context['num_cpus']} processors, kernel " \
           f"{run.context.get('kernel', '?')}, {run.context['date'][:10]}"


def markdown(header, rows):
    lines = [f"| {' | '.join(row)} |" for row in [header] + rows]
    return "\n".join([lines[0], "|---" * len(header) + "|"] + lines[1:])


def text(header, rows):
    widths = [max(len(row[i]) for row in [header] + rows) for i in range(len(header))]
    lines = ("  ".join(cell.ljust(width) for cell, width in zip(row, widths)).rstrip()
             for row in [header] + rows)
    return "\n".join(lines)


def replace(document, mark, content):
    """What stands between <!-- mark --> and <!-- end --> gives way to content."""
    head, rest = document.split(f"<!-- {mark} -->\n", 1)
    return f"{head}<!-- {mark} -->\n{content}\n<!-- end -->{rest.split('<!-- end -->', 1)[1]}"


def write_document(path, run, goals, second):
    with open(path, encoding="utf-8") as file:
        document = file.read()
    document = replace(document, "machine", machine(run))
    document = replace(document, "goals", markdown(*goals))
    document = replace(document, "second", markdown(*second))
    with open(path, "w", encoding="utf-8") as file:
        file.write(document)


def main():
    if len(sys.argv) not in (2, 3):
        sys.exit(__doc__)
    run = Run(sys.argv[1])
    goals = (("what", "median", "against the goal", "met"), list(all_rows(run)))
    second = (("a second of audio", "time", "share"), list(second_rows(run)))
    if len(sys.argv) == 3:
        write_document(sys.argv[2], run, goals, second)
    print(machine(run))
    print(text(*goals))
    print()
    print(text(*second))


if __name__ == "__main__":
    main()
