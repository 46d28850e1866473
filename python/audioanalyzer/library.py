# SPDX-License-Identifier: MIT
"""The C library: how it is found, its records and its functions. Private but for version()."""

import ctypes
import functools
import os
import pathlib
from ctypes import POINTER, c_char_p, c_double, c_int32, c_int64, c_size_t, c_uint32, c_uint64, c_void_p
from typing import Any, Dict, List, Sequence, Tuple, Type

from . import errors

MAJOR_VERSION = 0
FILE_NAMES = (f"libAudioAnalyzer.so.{MAJOR_VERSION}", "libAudioAnalyzer.so")
VARIABLE = "AUDIOANALYZER_LIBRARY"


class ProfileRecord(ctypes.Structure):
    _fields_ = [
        ("minimal_bpm", c_double),
        ("maximal_bpm", c_double),
        ("sensibility", c_double),
        ("low_frequency", c_int32),
        ("high_frequency", c_int32),
        ("maximal_threshold", c_int32),
    ]


class PulseRecord(ctypes.Structure):
    _fields_ = [
        ("index", c_uint64),
        ("time", c_double),
        ("length", c_uint64),
        ("loudness", c_int32),
        ("average_volume", c_int32),
        ("threshold", c_int32),
    ]


class BeatRecord(ctypes.Structure):
    _fields_ = [
        ("index", c_uint64),
        ("time", c_double),
        ("bpm", c_double),
        ("accuracy", c_double),
        ("is_virtual", c_int32),
        ("loudness", c_int32),
        ("confidence", c_double),
        ("bar_confidence", c_double),
        ("beat_in_bar", c_int32),
    ]


class TempoRecord(ctypes.Structure):
    _fields_ = [("index", c_uint64), ("time", c_double), ("bpm", c_double)]


class StopRecord(ctypes.Structure):
    _fields_ = [("index", c_uint64), ("time", c_double), ("is_stopped", c_int32)]


class SpectrumRecord(ctypes.Structure):
    _fields_ = [
        ("index", c_uint64),
        ("time", c_double),
        ("amplitudes", c_void_p),
        ("count", c_size_t),
        ("bin_width", c_double),
    ]


class LineRecord(ctypes.Structure):
    _fields_ = [("time", c_int64), ("position", c_double), ("period", c_double)]


class BeatClockRecord(ctypes.Structure):
    _fields_ = [
        ("now", LineRecord),
        ("then", LineRecord),
        ("end_time", c_int64),
        ("offset", c_int64),
        ("first_beat", c_int64),
        ("one_beat", c_int64),
        ("heard_time", c_int64),
        ("bpm", c_double),
        ("sureness", c_double),
        ("run", c_uint32),
        ("epoch", c_uint32),
        ("beats_per_bar", c_int32),
        ("charge", c_int32),
        ("is_playing", c_int32),
        ("numerator", c_int32),
        ("denominator", c_int32),
    ]


class ClockBeatRecord(ctypes.Structure):
    _fields_ = [
        ("time", c_int64),
        ("bpm", c_double),
        ("trust", c_double),
        ("is_virtual", c_int32),
        ("beat_in_bar", c_int32),
    ]


def _callback(record: Type[ctypes.Structure]) -> Any:
    return ctypes.CFUNCTYPE(None, c_void_p, POINTER(record))


CALLBACKS: Dict[str, Any] = {
    "Pulse": _callback(PulseRecord),
    "Beat": _callback(BeatRecord),
    "Tempo": _callback(TempoRecord),
    "Stop": _callback(StopRecord),
    "Spectrum": _callback(SpectrumRecord),
}

# Name behind AudioAnalysis_: result, arguments.
_FUNCTIONS: Dict[str, Tuple[Any, Sequence[Any]]] = {
    "GetVersion": (c_char_p, []),
    "Create": (c_void_p, [c_int32]),
    "Destroy": (c_int32, [c_void_p]),
    "GetErrorText": (c_char_p, [c_void_p]),
    "DescribeError": (c_char_p, [c_int32]),
    "PushInt16": (c_int32, [c_void_p, c_char_p, c_size_t, c_int32]),
    "PushFloat": (c_int32, [c_void_p, c_char_p, c_size_t, c_int32]),
    "Finish": (c_int32, [c_void_p]),
    "Restart": (c_int32, [c_void_p]),
    "Reset": (c_int32, [c_void_p]),
    "Set": (c_int32, [c_void_p, c_int32, c_double]),
    "Get": (c_int32, [c_void_p, c_int32, POINTER(c_double)]),
    "GetSettingName": (c_char_p, [c_int32]),
    "GetLimits": (c_int32, [c_int32, POINTER(c_double), POINTER(c_double), POINTER(c_double)]),
    "ComputeRecordingTempo": (
        c_int32,
        [POINTER(c_double), POINTER(c_double), POINTER(c_int32), c_size_t, POINTER(c_double)],
    ),
    "ComputeTempoOfTimes": (
        c_int32,
        [POINTER(c_double), POINTER(c_double), c_size_t, POINTER(c_double)],
    ),
    "SetTracker": (c_int32, [c_void_p, c_int32]),
    "GetTracker": (c_int32, [c_void_p]),
    "Tap": (c_int32, [c_void_p, c_uint64]),
    "Multiply": (c_int32, [c_void_p, c_double]),
    "SetDownbeat": (c_int32, [c_void_p, c_uint64]),
    "ReleaseDownbeat": (c_int32, [c_void_p]),
    "SetTempoRange": (c_int32, [c_void_p, c_double, c_double]),
    "GetProfileName": (c_char_p, [c_size_t]),
    "FindProfile": (c_int32, [c_char_p, POINTER(ProfileRecord)]),
    "SelectProfile": (c_int32, [c_void_p, c_char_p]),
    "SetProfile": (c_int32, [c_void_p, POINTER(ProfileRecord)]),
    "GetProfile": (c_int32, [c_void_p, POINTER(ProfileRecord)]),
    "GetSampleRate": (c_int32, [c_void_p]),
    "GetSampleCount": (c_uint64, [c_void_p]),
    "GetBlockSize": (c_uint64, [c_void_p]),
    "GetBPM": (c_double, [c_void_p]),
    "GetAccuracy": (c_double, [c_void_p]),
    "IsStopped": (c_int32, [c_void_p]),
    "GetAverageVolume": (c_int32, [c_void_p]),
    "GetCurrentVolume": (c_int32, [c_void_p]),
    "GetMaximalVolume": (c_int32, [c_void_p]),
    "GetThreshold": (c_int32, [c_void_p]),
}
for _kind, _type in CALLBACKS.items():
    _FUNCTIONS[f"Set{_kind}Callback"] = (c_int32, [c_void_p, _type, c_void_p])

RANGE_ERROR = 2
MEMORY_ERROR = 6

_STATE = POINTER(BeatClockRecord)
# Name behind AudioClock_: result, arguments.
_CLOCK_FUNCTIONS: Dict[str, Tuple[Any, Sequence[Any]]] = {
    "Create": (c_void_p, []),
    "Destroy": (c_int32, [c_void_p]),
    "Restart": (c_int32, [c_void_p, c_int64]),
    "Set": (c_int32, [c_void_p, c_int32, c_double, c_int64]),
    "Get": (c_int32, [c_void_p, c_int32, POINTER(c_double)]),
    "Hear": (c_int32, [c_void_p, POINTER(ClockBeatRecord), c_int64]),
    "SetPlaying": (c_int32, [c_void_p, c_int32, c_int64]),
    "Tap": (c_int32, [c_void_p, c_int64]),
    "Nudge": (c_int32, [c_void_p, c_int64, c_int64]),
    "Bend": (c_int32, [c_void_p, c_double, c_int64]),
    "MarkOne": (c_int32, [c_void_p, c_int64]),
    "Scale": (c_int32, [c_void_p, c_int32, c_int32, c_int64]),
    "Round": (c_int32, [c_void_p, c_int64]),
    "Hold": (c_int32, [c_void_p, c_double, c_int64]),
    "Release": (c_int32, [c_void_p, c_int64]),
    "GetState": (c_int32, [c_void_p, _STATE]),
    "IsRunning": (c_int32, [_STATE]),
    "GetBeat": (c_int64, [_STATE, c_int64, c_int64]),
    "GetPhase": (c_double, [_STATE, c_int64, c_int64]),
    "GetBeatInBar": (c_int32, [_STATE, c_int64]),
    "GetNextTick": (c_int64, [_STATE, c_int64, c_int32, c_int64]),
    "GetTickTime": (c_int64, [_STATE, c_int64, c_int32, c_int64]),
    "GetSureness": (c_double, [_STATE, c_int64]),
}

_ERRORS: Dict[int, Type[Exception]] = {
    1: TypeError,
    RANGE_ERROR: errors.RangeError,
    3: errors.UnknownNameError,
    4: errors.BusyError,
    5: errors.FinishedError,
    MEMORY_ERROR: MemoryError,
}


def _load(
    loaded: ctypes.CDLL, prefix: str, functions: Dict[str, Tuple[Any, Sequence[Any]]]
) -> Dict[str, Any]:
    found = {}
    for name, (result, arguments) in functions.items():
        function = getattr(loaded, prefix + name)
        function.restype = result
        function.argtypes = list(arguments)
        found[name] = function
    return found


class Library:
    """The functions of the C interface; call("Reset", handle) is AudioAnalysis_Reset(handle), and
    clock("Tap", handle, now) is AudioClock_Tap(handle, now)."""

    def __init__(self, path: str) -> None:
        loaded = ctypes.CDLL(path)
        self._functions = _load(loaded, "AudioAnalysis_", _FUNCTIONS)
        self._clock_functions = _load(loaded, "AudioClock_", _CLOCK_FUNCTIONS)
        self.path = path
        self.version: str = self.call("GetVersion").decode()

    def call(self, name: str, *arguments: Any) -> Any:
        return self._functions[name](*arguments)

    def clock(self, name: str, *arguments: Any) -> Any:
        return self._clock_functions[name](*arguments)

    def check_clock(self, error: int) -> None:
        """Raises what a function of a clock refused."""
        if error != 0:
            text = self.call("DescribeError", error).decode()
            raise _ERRORS.get(error, errors.AnalysisError)(text)

    def check(self, error: int, handle: Any) -> None:
        """Raises what the library refused; handle None = on this thread, without an analysis."""
        if error != 0:
            text = self.call("GetErrorText", handle).decode(errors="replace")
            raise _ERRORS.get(error, errors.AnalysisError)(text)


def candidates() -> List[str]:
    """Where the library may be, the first that is there counts."""
    named = os.environ.get(VARIABLE)
    if named:
        return [named]
    package = pathlib.Path(__file__).resolve().parent
    # Installed, the package is <prefix>/lib/python3/dist-packages/audioanalyzer.
    folders = [package, *package.parents[2:3]]
    near = [str(folder / name) for folder in folders for name in FILE_NAMES]
    return [path for path in near if os.path.exists(path)] + list(FILE_NAMES)


@functools.lru_cache(maxsize=None)
def setting_numbers() -> Dict[str, int]:
    """The numbers of the settings by their names, "stop-duration" say."""
    found = library()
    numbers: Dict[str, int] = {}
    while (name := found.call("GetSettingName", len(numbers))) is not None:
        numbers[name.decode()] = len(numbers)
    return numbers


@functools.lru_cache(maxsize=None)
def library() -> Library:
    """Loads the library, once. Raises LibraryNotFoundError."""
    reasons = []
    for path in candidates():
        try:
            found = Library(path)
        except (OSError, AttributeError) as reason:
            reasons.append(f"{path}: {reason}")
            continue
        if found.version.split(".")[0] == str(MAJOR_VERSION):
            return found
        reasons.append(f"{path}: version {found.version}, not {MAJOR_VERSION}")
    raise errors.LibraryNotFoundError(
        f"libAudioAnalyzer cannot be loaded; set {VARIABLE} to its file ({'; '.join(reasons)})"
    )


def version() -> str:
    """Version of the library, "major.minor.patch"."""
    return library().version
