# SPDX-License-Identifier: MIT
"""The tables of script/accuracy: on the terminal, or in the marked places of a document."""
from bench_table import replace

RIVALS = ("aubio", "SoundTouch")
# Key, heading, factor, decimals.
MEASURES = (("fMeasure", "F", 100, 1), ("cemgil", "Cemgil", 100, 1), ("cmlc", "CMLc", 100, 1),
            ("cmlt", "CMLt", 100, 1), ("amlc", "AMLc", 100, 1), ("amlt", "AMLt", 100, 1),
            ("pScore", "P-score", 100, 1), ("informationGain", "gain", 100, 1),
            ("tempo1", "tempo 4 %", 100, 1), ("tempo2", "octave forgiven", 100, 1),
            ("tempoPrecise", "tempo 1 %", 100, 1), ("meanError", "error, ms", 1000, 1),
            ("firstLock", "first lock, s", 1, 1), ("falseBeats", "false beats a minute", 1, 1))
STREAM_MEASURES = (("fMeasure", "F", 100, 1), ("cmlt", "CMLt", 100, 1), ("amlt", "AMLt", 100, 1),
                   ("relock", "lock after a change, median, s", 1, 1),
                   ("octaveFlips", "octave flips an hour", 1, 0))
KINDS = ("four on the floor", "eighth hats", "backbeat", "eighth bass", "swung hats", "drift of 3 %",
         "gap of 2.5 s", "step of 30 %")
TEMPOS = (60, 75, 90, 110, 128, 140, 160, 180)


def cell(group, key, factor, decimals):
    """A mean with its standard error, or a median, of a group of an evaluation."""
    entry = group.get(key)
    if entry is None:
        return "–"
    value = entry.get("mean", entry.get("median"))
    if value is None:
        return "never"
    text = f"{value * factor:.{decimals}f}"
    if "mean" in entry and entry["count"] > 1:
        text += f" ± {entry['standardError'] * factor:.{decimals}f}"
    return text


def groups_of(results):
    """Genre to the group of each row; "" is all recordings."""
    return {row: {group["genre"]: group for group in evaluation["groups"]} for row, evaluation in results}


def markdown(header, rows):
    lines = [f"| {' | '.join(map(str, row))} |" for row in [header, *rows]]
    return "\n".join([lines[0], "|---" * len(header) + "|", *lines[1:]])


def overview(results, measures):
    rows = [[row] + [cell(evaluation["groups"][-1], *measure[:1], *measure[2:]) for measure in measures]
            for row, evaluation in results]
    return markdown(["tracker"] + [measure[1] for measure in measures], rows)


def by_genre(results, key, factor=100, decimals=1):
    """A row for each genre, a column for each tracker that has the measure."""
    groups = groups_of(results)
    trackers = [row for row in groups if key in groups[row][""]]
    first = results[0][1]["groups"]
    rows = [[f"{group['genre'] or 'all'} ({group['recordings']})"] +
            [cell(groups[row][group["genre"]], key, factor, decimals) for row in trackers]
            for group in first if any(key in groups[row][group["genre"]] for row in trackers)]
    return markdown(["kind"] + trackers, rows)


def losses(sets):
    """Where the first row, ours by default, is behind the best other tracker."""
    lines = []
    for title, results in sets:
        groups = groups_of(results)
        ours = next(iter(groups))
        for genre, group in groups[ours].items():
            for key, name in (("fMeasure", "F"), ("tempo1", "tempo within 4 %")):
                rivals = [(groups[rival][genre][key]["mean"], rival) for rival in RIVALS
                          if rival in groups and key in groups[rival][genre]]
                if key in group and rivals and max(rivals)[0] > group[key]["mean"] + 0.0005:
                    best, rival = max(rivals)
                    lines.append((group[key]["mean"] - best,
                                  f"- {title.split(':')[0]}, {genre or 'all together'}: {name} "
                                  f"{100 * group[key]['mean']:.1f} ({ours}), {100 * best:.1f} ({rival})"))
    return "\n".join(line for _, line in sorted(lines)) or "Nowhere in this run."


def tempo_test(results):
    """How many scenes of each kind, and of each tempo, have the right tempo; 64 in all."""
    def count(evaluation, fits):
        chosen = [r for r in evaluation["recordings"] if r["genre"] in KINDS and fits(r)]
        return f"{sum(r['tempo1'] for r in chosen):.0f} of {len(chosen)}"

    header = ["scenes"] + [row for row, _ in results]
    rows = [[kind] + [count(e, lambda r, kind=kind: r["genre"] == kind) for _, e in results] for kind in KINDS]
    rows += [[f"{tempo} BPM"] + [count(e, lambda r, tempo=tempo: r["name"].endswith(f"-{tempo}"))
                                 for _, e in results] for tempo in TEMPOS]
    rows.append(["all"] + [count(e, lambda r: True) for _, e in results])
    return markdown(header, rows)


def by_recording(results, genre, key, factor, decimals):
    """A row for each scene of a kind; for generated scenes only, whose names may be told."""
    columns = {row: {r["name"]: r for r in evaluation["recordings"] if r["genre"] == genre and key in r}
               for row, evaluation in results}
    trackers = [row for row in columns if columns[row]]
    rows = [[name] + [f"{columns[row][name][key] * factor:.{decimals}f}" for row in trackers]
            for name in columns[trackers[0]]]
    return markdown(["scene"] + trackers, rows)


def scene_tables(results):
    yield "Scenes with the right tempo (within 4 %)", tempo_test(results)
    yield "Beats a minute where there is no music", by_recording(results, "no music", "falseBeats", 1, 1)
    yield "F by sample rate", by_recording(results, "sample rate", "fMeasure", 100, 1)
    yield "Seconds of beats after the music has ended", by_recording(results, "end", "overrun", 1, 1)
    yield "Seconds to the fourth beat in a row behind a gap or step (median)", by_genre(results, "relock", 1)


def clip_tables(title, results):
    yield title, overview(results, MEASURES)
    yield f"{title.split(':')[0]}, F by kind", by_genre(results, "fMeasure")
    yield f"{title.split(':')[0]}, tempo within 4 % by kind", by_genre(results, "tempo1")
    if any(r["genre"] == "sample rate" for r in results[0][1]["recordings"]):
        yield from scene_tables(results)


def all_tables(clips, streams):
    for title, results in clips:
        yield from clip_tables(title, results)
    for title, results in streams:
        yield f"An hour of it in random order: {title.split(':')[0].lower()}", overview(results, STREAM_MEASURES)


def plain(table):
    """A table of Markdown with columns as wide as their cells, for a terminal."""
    rows = [[part.strip() for part in line.strip("|").split("|")] for line in table.split("\n")]
    rows.pop(1)
    widths = [max(len(row[i]) for row in rows) for i in range(len(rows[0]))]
    return "\n".join("  ".join(part.ljust(width) for part, width in zip(row, widths)).rstrip() for row in rows)


def show(clips, streams, path=None):
    """Prints all tables; with a path they take the marked places of that document as well."""
    tables = list(all_tables(clips, streams))
    behind = losses(clips)
    if clips:
        print(f"Where another tracker is ahead\n\n{behind}\n")
    for title, table in tables:
        print(f"{title}\n\n{plain(table)}\n")
    if path is None:
        return
    document = path.read_text(encoding="utf-8")
    document = replace(document, "losses", behind)
    document = replace(document, "tables", "\n\n".join(f"### {title}\n\n{table}" for title, table in tables))
    path.write_text(document, encoding="utf-8")
