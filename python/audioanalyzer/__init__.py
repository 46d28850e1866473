# SPDX-License-Identifier: MIT
"""Beats and tempo of audio, as it is pushed.

    import audioanalyzer

    with audioanalyzer.Analysis(44100, on_beat=print) as analysis:
        while frames := read(1024):
            analysis.push(frames, channels=2)
        analysis.finish()

    result = audioanalyzer.analyze(samples, 44100)
    print(result.beat_times, result.bpm)

    clock = audioanalyzer.Clock()
    clock.tap()

Samples come in any object with Python's buffer protocol: array.array, bytes, memoryview, numpy arrays.
Time comes from the samples alone, so the same samples give the same events on every run and machine.

The module is a thin layer over the C interface of the library libAudioAnalyzer and needs nothing but
Python 3.9 or later. The library is the file that the environment variable AUDIOANALYZER_LIBRARY names, or
lies beside this package or in the lib folder that it is installed below, or is found by the system's
loader.

Units: an index counts frames from 0 at the first one pushed; times and durations are in seconds; tempos
are in beats per minute (BPM), 0 meaning unknown; volumes and thresholds are 16-bit sample magnitudes,
0 to 32767.

Threads: an Analysis is used by one thread at a time; different ones by different threads at once. While
samples are analysed other Python threads run.
"""

from .analysis import Analysis, Result, analyze
from .clock import Clock, ClockState
from .errors import (
    AnalysisError,
    BusyError,
    ClosedError,
    FinishedError,
    LibraryNotFoundError,
    RangeError,
    UnknownNameError,
)
from .events import Beat, Event, Pulse, Spectrum, Stop, Tempo
from .profiles import Profile, profiles
from .library import version

__all__ = [
    "Analysis",
    "AnalysisError",
    "Beat",
    "BusyError",
    "Clock",
    "ClockState",
    "ClosedError",
    "Event",
    "FinishedError",
    "LibraryNotFoundError",
    "Profile",
    "Pulse",
    "RangeError",
    "Result",
    "Spectrum",
    "Stop",
    "Tempo",
    "UnknownNameError",
    "analyze",
    "profiles",
    "version",
]
