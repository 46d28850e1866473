# SPDX-License-Identifier: MIT
"""How the library is found, and whether the module agrees with its header."""

import ctypes
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

import audioanalyzer
from audioanalyzer import analysis, library

PACKAGE = pathlib.Path(audioanalyzer.__file__).parent
FILE = pathlib.Path(os.environ["AUDIOANALYZER_LIBRARY"])
FOLDER = pathlib.Path(os.environ["AA_HEADER"]).parent
HEADER = (FOLDER / "AnalysisRecords.h").read_text() + (FOLDER / "Analysis.h").read_text()
CLOCK_HEADER = (FOLDER / "Clock.h").read_text()
SAY = "import audioanalyzer.library as l; print(l.library().path)"


class Finding(unittest.TestCase):
    def run_python(self, code, **variables):
        environment = {"PATH": os.environ["PATH"], "PYTHONPATH": str(PACKAGE.parent)}
        environment["PYTHONDONTWRITEBYTECODE"] = "1"
        environment.update(variables)
        return subprocess.run(
            [sys.executable, "-c", code],
            env=environment, capture_output=True, text=True, timeout=60, check=False
        )

    def test_variable_names_the_file(self):
        run = self.run_python(SAY, AUDIOANALYZER_LIBRARY=str(FILE))
        self.assertEqual((run.stdout.strip(), run.stderr), (str(FILE), ""))

    def test_wrong_variable_is_named(self):
        for wrong in ("/nowhere/lib.so", "libm.so.6"):
            run = self.run_python(
                "import audioanalyzer\ntry: audioanalyzer.version()\n"
                "except audioanalyzer.LibraryNotFoundError as error: print(error)",
                AUDIOANALYZER_LIBRARY=wrong,
            )
            self.assertIn("AUDIOANALYZER_LIBRARY", run.stdout, run.stderr)
            self.assertIn(wrong, run.stdout)

    def test_library_beside_the_package_is_found(self):
        with tempfile.TemporaryDirectory() as folder:
            package = pathlib.Path(folder) / "audioanalyzer"
            shutil.copytree(PACKAGE, package, ignore=shutil.ignore_patterns("__pycache__"))
            beside = package / "libAudioAnalyzer.so.0"
            beside.symlink_to(FILE)
            run = self.run_python(SAY, PYTHONPATH=folder)
            self.assertEqual((run.stdout.strip(), run.stderr), (str(beside), ""))

    def test_loader_finds_the_library(self):
        run = self.run_python(SAY, LD_LIBRARY_PATH=str(FILE.parent))
        self.assertEqual((run.stdout.strip(), run.stderr), ("libAudioAnalyzer.so.0", ""))

    def test_import_needs_no_library(self):
        run = self.run_python("import audioanalyzer; print('done')")
        self.assertEqual((run.stdout, run.stderr), ("done\n", ""))

    def test_memory_that_runs_out_is_no_matter_of_range(self):
        code = (
            "import audioanalyzer, resource\n"
            "analyses = [audioanalyzer.Analysis(192000)]\n"
            "pages = int(open('/proc/self/statm').read().split()[0])\n"
            "limit = pages * resource.getpagesize() + (64 << 20)\n"
            "resource.setrlimit(resource.RLIMIT_AS, (limit, limit))\n"
            "try:\n"
            "    while len(analyses) < 100000:\n"
            "        analyses.append(audioanalyzer.Analysis(192000, average_duration=60))\n"
            "except Exception as error:\n"
            "    kind = type(error).__name__\n"
            "    del analyses\n"
            "    print(kind)\n"
        )
        run = self.run_python(code, AUDIOANALYZER_LIBRARY=str(FILE))
        self.assertEqual((run.stdout, run.stderr), ("MemoryError\n", ""))
        with self.assertRaises(audioanalyzer.RangeError):
            audioanalyzer.Analysis(192001)

    def test_process_says_nothing_by_itself(self):
        code = (
            "import array, audioanalyzer\n"
            "audioanalyzer.analyze(array.array('h', [9000, -9000] * 22050 * 4), 44100)\n"
            "analysis = audioanalyzer.Analysis(44100, on_beat=lambda beat: None)\n"
        )
        run = self.run_python(code, AUDIOANALYZER_LIBRARY=str(FILE))
        self.assertEqual((run.stdout, run.stderr, run.returncode), ("", "", 0))


class Header(unittest.TestCase):
    def test_all_functions_are_known(self):
        declared = set(re.findall(r"\bAudioAnalysis_(\w+)\(", re.sub(r"/\*.*?\*/", "", HEADER, flags=re.S)))
        self.assertGreater(len(declared), 25)
        self.assertEqual(declared - set(library._FUNCTIONS), set())
        self.assertEqual(set(library._FUNCTIONS) - declared, set())

    def test_all_functions_of_clocks_are_known(self):
        declared = re.findall(r"\bAudioClock_(\w+)\(", re.sub(r"/\*.*?\*/", "", CLOCK_HEADER, flags=re.S))
        self.assertGreater(len(declared), 20)
        self.assertEqual(set(declared), set(library._CLOCK_FUNCTIONS))

    def test_records_of_clocks_have_the_members_of_the_headers(self):
        folder = FOLDER.parent / "analysis"
        records = {
            "BeatLine": (folder / "BeatLine.h", library.LineRecord, 24),
            "BeatClockState": (folder / "BeatClockState.h", library.BeatClockRecord, 136),
            "AudioClockBeat": (None, library.ClockBeatRecord, 32),
        }
        for name, (header, record, size) in records.items():
            text = header.read_text() if header else CLOCK_HEADER
            body = re.search(rf"typedef struct {name}\n{{(.*?)\n(#ifdef|}})", text, re.S)[1]
            members = re.findall(r"(\w+);", re.sub(r"/\*.*?\*/", "", body, flags=re.S))
            fields = [field.replace("_", "").lower() for field, *_ in record._fields_]
            self.assertEqual(fields, [member.lower() for member in members], name)
            self.assertEqual(ctypes.sizeof(record), size, name)

    def test_records_have_the_members_and_sizes_of_the_header(self):
        sizes = {"Profile": 40, "Pulse": 40, "Beat": 64, "Tempo": 24, "Stop": 24, "Spectrum": 40}
        for name, size in sizes.items():
            record = getattr(library, name + "Record")
            self.assertEqual(ctypes.sizeof(record), size, name)
            body = re.search(rf"typedef struct AudioAnalysis{name}\n{{(.*?)\n}}", HEADER, re.S)[1]
            body = re.sub(r"/\*.*?\*/", "", body, flags=re.S)
            members = re.findall(r"(\w+);", body)
            fields = [field.replace("_", "").lower() for field, _ in record._fields_]
            self.assertEqual(fields, [member.lower() for member in members], name)

    def test_rates_are_those_of_the_header(self):
        low, high = map(int, re.search(r"pSampleRate Hz, (\d+) to (\d+)", HEADER).groups())
        self.assertEqual(analysis._RATES, range(low, high + 1))

    def test_errors_have_the_numbers_of_the_header(self):
        numbers = dict(re.findall(r"AudioAnalysisError_(\w+) = (\d+)", HEADER))
        kinds = {
            "Null": TypeError,
            "Range": audioanalyzer.RangeError,
            "Unknown": audioanalyzer.UnknownNameError,
            "Busy": audioanalyzer.BusyError,
            "Finished": audioanalyzer.FinishedError,
            "Memory": MemoryError,
        }
        self.assertEqual(library._ERRORS, {int(numbers[name]): kind for name, kind in kinds.items()})
        self.assertEqual(set(numbers) - set(kinds), {"None", "Internal"})

    def test_version_is_the_major_one(self):
        self.assertRegex(audioanalyzer.version(), rf"^{library.MAJOR_VERSION}\.\d+\.\d+$")


if __name__ == "__main__":
    unittest.main()
