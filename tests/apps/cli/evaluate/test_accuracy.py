# SPDX-License-Identifier: MIT
"""The parts of script/accuracy that need no build: tables, losses, streams."""
import importlib.machinery
import importlib.util
import json
import os
import pathlib
import subprocess
import sys
import tempfile
import unittest
from unittest import mock

SCRIPT = pathlib.Path(os.environ["AA_SOURCE"]) / "script"
sys.path.insert(0, str(SCRIPT))

import accuracy_tables  # noqa: E402


def load_accuracy():
    loader = importlib.machinery.SourceFileLoader("accuracy", str(SCRIPT / "accuracy"))
    module = importlib.util.module_from_spec(importlib.util.spec_from_loader("accuracy", loader))
    loader.exec_module(module)
    return module


accuracy = load_accuracy()


def mean(value, error=0.0, count=2):
    return {"mean": value, "standardError": error, "count": count}


def group(genre, **measures):
    return {"genre": genre, "recordings": 2, **measures}


def recording(name, genre, **measures):
    return {"name": name, "genre": genre, **measures}


def evaluation(groups, recordings=()):
    return {"groups": groups, "recordings": list(recordings)}


class Tables(unittest.TestCase):
    def test_cell_shows_mean_and_error(self):
        self.assertEqual(accuracy_tables.cell(group("", f=mean(0.5, 0.021)), "f", 100, 1), "50.0 ± 2.1")
        self.assertEqual(accuracy_tables.cell(group("", f=mean(0.5, count=1)), "f", 100, 1), "50.0")
        self.assertEqual(accuracy_tables.cell(group(""), "f", 100, 1), "–")

    def test_cell_shows_median_and_never(self):
        self.assertEqual(accuracy_tables.cell(group("", lock={"median": 2.04, "count": 9}), "lock", 1, 1), "2.0")
        self.assertEqual(accuracy_tables.cell(group("", lock={"median": None, "count": 9}), "lock", 1, 1), "never")

    def test_losses_begin_with_the_worst(self):
        ours = evaluation([group("jazz", fMeasure=mean(0.5), tempo1=mean(1.0)),
                           group("pop", fMeasure=mean(0.9)), group("", fMeasure=mean(0.7))])
        rival = evaluation([group("jazz", fMeasure=mean(0.6), tempo1=mean(1.0)),
                            group("pop", fMeasure=mean(0.8)), group("", fMeasure=mean(0.9))])
        lines = accuracy_tables.losses([("Folder 1: 4 recordings", [("ours", ours), ("aubio", rival)])])
        self.assertEqual(lines.split("\n"), ["- Folder 1, all together: F 70.0 (ours), 90.0 (aubio)",
                                             "- Folder 1, jazz: F 50.0 (ours), 60.0 (aubio)"])

    def test_losses_say_when_there_is_none(self):
        one = evaluation([group("", fMeasure=mean(0.7))])
        self.assertEqual(accuracy_tables.losses([("x", [("ours", one), ("aubio", one)])]), "Nowhere in this run.")

    def test_tempo_test_counts_kinds_and_tempos(self):
        recordings = [recording("backbeat-60", "backbeat", tempo1=1.0), recording("gap-60", "gap of 2.5 s", tempo1=0.0),
                      recording("backbeat-160", "backbeat", tempo1=1.0), recording("x-60", "end", tempo1=1.0)]
        table = accuracy_tables.tempo_test([("ours", evaluation([group("")], recordings))])
        for line in ("| backbeat | 2 of 2 |", "| gap of 2.5 s | 0 of 1 |", "| 60 BPM | 1 of 2 |",
                     "| 160 BPM | 1 of 1 |", "| all | 2 of 3 |"):
            self.assertIn(line, table.split("\n"))

    def test_kinds_without_a_measure_have_no_row(self):
        results = [("ours", evaluation([group("pop", fMeasure=mean(0.5)), group("hiss"), group("", fMeasure=mean(0.5))])),
                   ("SoundTouch", evaluation([group("pop"), group("hiss"), group("")]))]
        self.assertEqual(accuracy_tables.by_genre(results, "fMeasure").split("\n"),
                         ["| kind | ours |", "|---|---|", "| pop (2) | 50.0 ± 0.0 |", "| all (2) | 50.0 ± 0.0 |"])

    def test_plain_aligns_columns(self):
        self.assertEqual(accuracy_tables.plain("| a | bb |\n|---|---|\n| ccc | d |"), "a    bb\nccc  d")

    def test_document_keeps_what_is_written_by_hand(self):
        result = [("ours", evaluation([group("", fMeasure=mean(0.5), tempo1=mean(1.0))]))]
        with tempfile.TemporaryDirectory() as folder:
            path = pathlib.Path(folder) / "accuracy.md"
            path.write_text("by hand\n<!-- losses -->\nstale\n<!-- end -->\nmore\n<!-- tables -->\n<!-- end -->\nend\n")
            with mock.patch("builtins.print"):
                accuracy_tables.show([("Folder 1: 2 recordings", result)], [], path)
            text = path.read_text()
        self.assertTrue(text.startswith("by hand\n<!-- losses -->\nNowhere in this run.\n<!-- end -->\nmore\n"))
        self.assertTrue(text.endswith("<!-- end -->\nend\n"))
        self.assertIn("| ours | 50.0 ± 0.0 |", text)
        self.assertNotIn("stale", text)


class Folders(unittest.TestCase):
    def setUp(self):
        self.temporary = tempfile.TemporaryDirectory()
        self.addCleanup(self.temporary.cleanup)
        self.folder = pathlib.Path(self.temporary.name)
        self.output = tempfile.TemporaryDirectory()
        self.addCleanup(self.output.cleanup)

    def add(self, name, beats, **truth):
        accuracy.describe(self.folder, name, beats, **truth)
        (self.folder / f"{name}.flac").touch()

    def test_recordings_are_found_by_their_beats(self):
        self.add("b", [1.0])
        self.add("a", [1.0])
        (self.folder / "other.flac").touch()
        self.assertEqual([path.name for path in accuracy.find_recordings(self.folder)], ["a.flac", "b.flac"])

    def test_beats_without_a_recording_end_the_run(self):
        (self.folder / "a.beats").touch()
        with self.assertRaises(SystemExit):
            accuracy.find_recordings(self.folder)
        with self.assertRaises(SystemExit):
            accuracy.find_recordings(self.folder / "empty")

    def test_title_tells_neither_folder_nor_track(self):
        self.add("secret", [1.0], duration=90.0)
        self.assertEqual(accuracy.title_of(self.folder, 2), "Folder 2: 1 recordings, 2 minutes")

    def test_streams_leave_out_silence_and_endings(self):
        self.add("music", [1.0])
        self.add("silence", [])
        self.add("end", [1.0], genre="end")
        self.add("rate", [1.0], genre="sample rate")
        chosen = accuracy.streamable(accuracy.find_recordings(self.folder))
        self.assertEqual([path.stem for path in chosen], ["music"])

    def stream(self, seed):
        """Makes a stream without its sound: the joiner's answer is made up."""
        recordings, output = accuracy.find_recordings(self.folder), pathlib.Path(self.output.name) / f"out-{seed}"
        joined = []

        def join(*command, **_):
            joined.extend(path.stem for path in command[3:])
            starts = [900.0 * i for i in range(len(joined) + 1)]
            return subprocess.CompletedProcess(command, 0, "".join(f"{start}\n" for start in starts))

        with mock.patch.object(accuracy, "run", join):
            accuracy.make_stream(recordings, output, seed)
        truth = json.loads((output / "stream.json").read_text())
        beats = [float(line) for line in (output / "stream.beats").read_text().split()]
        return joined, truth, beats

    def test_stream_is_an_hour_of_all_in_an_order_of_its_own(self):
        for name in "abcd":
            self.add(name, [1.0, 2.0], duration=900.0, ignore=[[3.0, 4.0]])
        joined, truth, beats = self.stream(1)
        self.assertEqual(sorted(joined), ["a", "b", "c", "d"])
        self.assertEqual(truth["changes"], [900.0, 1800.0, 2700.0])
        self.assertEqual(truth["duration"], 3600.0)
        self.assertEqual(truth["ignore"][1], [903.0, 904.0])
        self.assertEqual(beats, [1.0, 2.0, 901.0, 902.0, 1801.0, 1802.0, 2701.0, 2702.0])
        self.assertEqual(self.stream(1)[0], joined)
        self.assertGreater(len({tuple(self.stream(seed)[0]) for seed in range(2, 12)}), 1)

    def test_short_folders_are_repeated(self):
        self.add("a", [1.0], duration=900.0)
        self.assertEqual(self.stream(1)[0], ["a"] * 4)


if __name__ == "__main__":
    unittest.main()
