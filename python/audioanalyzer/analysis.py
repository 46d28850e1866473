# SPDX-License-Identifier: MIT
"""Analyses."""

import array
import ctypes
import weakref
from dataclasses import dataclass
from typing import Any, Callable, Dict, Generic, Iterable, Iterator, List, Optional, Tuple
from typing import TypeVar, Union, cast, overload

from . import samples as buffers
from .errors import ClosedError
from .events import Beat, Event, Pulse, Spectrum, Stop, Tempo
from .library import (
    CALLBACKS,
    MEMORY_ERROR,
    RANGE_ERROR,
    ProfileRecord,
    library,
    setting_numbers,
)
from .profiles import Profile, from_record, to_record

Number = TypeVar("Number", bound=float)
_RATES = range(8000, 192001)  # Hz
_TRACKERS = ("automatic", "profile")  # in the order of their numbers


class _Setting(Generic[Number]):
    """A setting of the library as an attribute, whose name it has, with hyphens."""

    def __init__(self, convert: Callable[[float], Number], doc: str) -> None:
        self._name = ""
        self._convert = convert
        self.__doc__ = doc

    def __set_name__(self, owner: Any, name: str) -> None:
        self._name = name.replace("_", "-")

    @overload
    def __get__(self, analysis: None, owner: Any) -> "_Setting[Number]": ...

    @overload
    def __get__(self, analysis: "Analysis", owner: Any) -> Number: ...

    def __get__(
        self, analysis: "Optional[Analysis]", owner: Any
    ) -> "Union[Number, _Setting[Number]]":
        if analysis is None:
            return self
        value = ctypes.c_double()
        analysis._call("Get", setting_numbers()[self._name], ctypes.byref(value))
        return self._convert(value.value)

    def __set__(self, analysis: "Analysis", value: Number) -> None:
        analysis._call("Set", setting_numbers()[self._name], float(value))


class _ProfileSetting:
    """The profile in use. The name of a built-in one, in any case of its letters, may be set as well."""

    @overload
    def __get__(self, analysis: None, owner: Any) -> "_ProfileSetting": ...

    @overload
    def __get__(self, analysis: "Analysis", owner: Any) -> Profile: ...

    def __get__(
        self, analysis: "Optional[Analysis]", owner: Any
    ) -> "Union[Profile, _ProfileSetting]":
        if analysis is None:
            return self
        record = ProfileRecord()
        analysis._call("GetProfile", ctypes.byref(record))
        return from_record(record)

    def __set__(self, analysis: "Analysis", profile: Union[str, Profile]) -> None:
        if isinstance(profile, str):
            analysis._call("SelectProfile", profile.encode())
        else:
            analysis._call("SetProfile", ctypes.byref(to_record(profile)))


class _Sink:
    """Where the library's callbacks arrive. It does not hold the analysis, so that this dies freely."""

    def __init__(self) -> None:
        self.callbacks: Dict[str, Callable[[Any], object]] = {}
        self.collected: Optional[List[Event]] = None
        self.error: Optional[BaseException] = None

    def is_wanted(self, kind: str) -> bool:
        return self.collected is not None or kind in self.callbacks

    def tell(self, kind: str, event: Event) -> None:
        if self.collected is not None:
            self.collected.append(event)
        callback = self.callbacks.get(kind)
        if callback is not None:
            callback(event)

    def thunk(self, kind: str, make: Callable[[Any], Event]) -> Any:
        def called(_user: Any, record: Any) -> None:
            # What a callback raises must not reach the library; push() raises it again.
            if self.error is not None or not self.is_wanted(kind):
                return
            try:
                self.tell(kind, make(record.contents))
            except BaseException as error:  # pylint: disable=broad-except
                self.error = error

        return CALLBACKS[kind](called)


def _pulse(record: Any) -> Pulse:
    return Pulse(
        record.index,
        record.time,
        record.length,
        record.loudness,
        record.average_volume,
        record.threshold,
    )


def _beat(record: Any) -> Beat:
    return Beat(
        record.index,
        record.time,
        record.bpm,
        record.accuracy,
        bool(record.is_virtual),
        record.loudness,
        record.confidence,
        record.bar_confidence,
        record.beat_in_bar,
    )


def _tempo(record: Any) -> Tempo:
    return Tempo(record.index, record.time, record.bpm)


def _stop(record: Any) -> Stop:
    return Stop(record.index, record.time, bool(record.is_stopped))


def _spectrum(record: Any) -> Spectrum:
    amplitudes = array.array("d")
    amplitudes.frombytes(ctypes.string_at(record.amplitudes, record.count * 8))
    return Spectrum(record.index, record.time, amplitudes, record.bin_width)


_MAKERS: Dict[str, Callable[[Any], Event]] = {
    "Pulse": _pulse,
    "Beat": _beat,
    "Tempo": _tempo,
    "Stop": _stop,
    "Spectrum": _spectrum,
}


class Analysis:
    """One stream of audio with its settings.

    sample_rate: Hz, 8000 to 192000. tracker: "automatic", which follows any music and is the default, or
    "profile", the engine with a tempo profile. profile: the name of a built-in one, in any case of its
    letters, or a Profile; choosing one, or a setting that it alone heeds, chooses its tracker. on_...: called with each event from inside push() and finish(); what they raise, push() and
    finish() raise. A callback must not push, finish, restart or close its own analysis. The other
    arguments are the settings below, such as stop_duration=0.5; None leaves the default.

    Raises RangeError, UnknownNameError, MemoryError and LibraryNotFoundError.
    """

    profile = _ProfileSetting()
    threshold = _Setting(
        int, "Magnitude that makes a pulse, 0 to 32767; -1, the default, follows the volume."
    )
    stop_threshold = _Setting(int, "Magnitude up to which it is quiet, 0 to 32767; 3276.")
    stop_duration = _Setting(float, "Seconds of quiet that count as a stop, 0.05 to 10; 1.5.")
    average_duration = _Setting(float, "Seconds over which the volume is averaged, 0.05 to 60; 2.")
    bpm_duration = _Setting(float, "Seconds of beats that make the tempo, 0.05 to 600; 10.")
    fixed_bpm = _Setting(
        float, "A tempo to impose, up to 999, held within the profile's range; 0 measures."
    )
    consistency = _Setting(bool, "Whether the last tempo is kept across gaps; it is.")
    virtual_when_stopped = _Setting(
        bool, "Whether virtual beats go on while the music is stopped; they do not."
    )

    def __init__(
        self,
        sample_rate: int,
        *,
        tracker: Optional[str] = None,
        profile: Union[str, Profile, None] = None,
        on_beat: Optional[Callable[[Beat], object]] = None,
        on_pulse: Optional[Callable[[Pulse], object]] = None,
        on_tempo: Optional[Callable[[Tempo], object]] = None,
        on_stop: Optional[Callable[[Stop], object]] = None,
        on_spectrum: Optional[Callable[[Spectrum], object]] = None,
        **settings: Union[int, float, bool, None],
    ) -> None:
        for name in settings:
            if not isinstance(getattr(type(self), name, None), _Setting):
                raise TypeError(f"there is no argument {name}")
        self._library = library()
        rate = _rate(sample_rate)
        handle = self._library.call("Create", rate)
        if handle is None:
            # It has two reasons, and the rate is looked at first.
            self._library.check(MEMORY_ERROR if rate in _RATES else RANGE_ERROR, None)
        self._handle: Any = handle
        self._sink = _Sink()
        self._thunks = {kind: self._sink.thunk(kind, make) for kind, make in _MAKERS.items()}
        # The library may call the thunks for as long as the analysis lives.
        self._close = weakref.finalize(self, _destroy, self._library, handle, self._thunks)
        for kind, callback in (
            ("Beat", on_beat),
            ("Pulse", on_pulse),
            ("Tempo", on_tempo),
            ("Stop", on_stop),
            ("Spectrum", on_spectrum),
        ):
            self._set_callback(kind, callback)
            if kind != "Spectrum":
                self._connect(kind, True)
        if profile is not None:
            self.profile = profile
        for name, value in settings.items():
            if value is not None:
                setattr(self, name, value)
        if tracker is not None:
            self.tracker = tracker

    def __enter__(self) -> "Analysis":
        self._open_handle()
        return self

    def __exit__(self, *_: object) -> None:
        self.close()

    def close(self) -> None:
        """Frees the analysis; every later call but this one raises ClosedError. Leaving the with
        statement does it. Raises BusyError."""
        if self._handle is None:
            return
        self._call("Destroy")
        self._handle = None
        self._close.detach()

    # ---- Samples

    def push(self, samples: Any, channels: Optional[int] = None) -> None:
        """Analyses samples, and tells what they hold.

        samples: 16-bit integers or floats in [-1, 1] in any buffer: array.array("h"), array.array("f"),
        numpy arrays of int16, float32 or float64; or bytes, which are 16-bit samples in the machine's
        byte order. Several channels are interleaved, frame by frame, and averaged. channels: 1 to 1024;
        None = the second dimension of a two-dimensional array, frames x channels, else 1.

        Raises TypeError, RangeError, BusyError, FinishedError, and what a callback raised; the samples
        behind that one are then left out.
        """
        for function, data, frames, count in buffers.portions(samples, channels):
            self._call(function, data, frames, count)

    def finish(self) -> None:
        """Tells the beats that are still undecided at the end of the audio. Raises BusyError,
        FinishedError, and what a callback raised."""
        self._call("Finish")

    def stream(
        self, portions: Iterable[Any], channels: Optional[int] = None, *, spectrum: bool = False
    ) -> Iterator[Event]:
        """Pushes each portion of samples, then finishes, and yields all events in their order; with
        spectrum, the spectra as well.

            for event in analysis.stream(portions):
                if isinstance(event, Beat): ...
        """
        for portion in portions:
            for data in buffers.portions(portion, channels):
                yield from self._collect(spectrum, *data)
        yield from self._collect(spectrum, "Finish")

    def restart(self) -> None:
        """Makes the analysis as new, for other audio of the same rate. Settings, profile and callbacks
        stay. Raises BusyError."""
        self._call("Restart")

    def reset(self) -> None:
        """Forgets tempo, beats, accuracy and volumes, and searches anew, for the next song of a stream;
        the index goes on."""
        self._call("Reset")

    # ---- The tracker, and a hand on it

    @property
    def tracker(self) -> str:
        """Who tells beats, tempos and stops: "automatic" or "profile". The automatic one begins anew
        when it is chosen. Raises RangeError, BusyError."""
        return _TRACKERS[self._read("GetTracker")]

    @tracker.setter
    def tracker(self, name: str) -> None:
        self._call("SetTracker", _TRACKERS.index(name) if name in _TRACKERS else -1)

    def tap(self, index: Optional[int] = None) -> None:
        """The user tapped a beat at the index; None = at the last sample pushed. Three taps settle tempo
        and beat; the music goes on being followed. The automatic tracker alone heeds it, as it does
        the following; none may be called from a callback. Raises BusyError."""
        self._call("Tap", self.sample_count if index is None else index)

    def multiply(self, factor: float) -> None:
        """Follows the music at 2, 1/2, 3/2 or 2/3 times the tempo. Raises RangeError, BusyError."""
        self._call("Multiply", factor)

    def set_downbeat(self, index: Optional[int]) -> None:
        """The beat nearest to the index is the first of a bar, and bars are counted from there on; None
        lets the music tell the bar again. Raises BusyError."""
        if index is None:
            self._call("ReleaseDownbeat")
        else:
            self._call("SetDownbeat", index)

    def set_tempo_range(self, minimum: float, maximum: float) -> None:
        """Limits the tempo, 60 to 190 BPM. Raises RangeError, BusyError."""
        self._call("SetTempoRange", minimum, maximum)

    # ---- Callbacks

    @property
    def on_beat(self) -> Optional[Callable[[Beat], object]]:
        """Called for every beat: the automatic tracker's once its sample was pushed, the engine's once
        its beat window has passed, about 0.14 s behind it."""
        return self._sink.callbacks.get("Beat")

    @on_beat.setter
    def on_beat(self, callback: Optional[Callable[[Beat], object]]) -> None:
        self._set_callback("Beat", callback)

    @property
    def on_pulse(self) -> Optional[Callable[[Pulse], object]]:
        """Called for every pulse, when it is heard."""
        return self._sink.callbacks.get("Pulse")

    @on_pulse.setter
    def on_pulse(self, callback: Optional[Callable[[Pulse], object]]) -> None:
        self._set_callback("Pulse", callback)

    @property
    def on_tempo(self) -> Optional[Callable[[Tempo], object]]:
        """Called for every beat that changes the automatic tracker's tempo; for every beat window of
        the engine that was closed, after its beat."""
        return self._sink.callbacks.get("Tempo")

    @on_tempo.setter
    def on_tempo(self, callback: Optional[Callable[[Tempo], object]]) -> None:
        self._set_callback("Tempo", callback)

    @property
    def on_stop(self) -> Optional[Callable[[Stop], object]]:
        """Called for every stop, and when the music plays again."""
        return self._sink.callbacks.get("Stop")

    @on_stop.setter
    def on_stop(self, callback: Optional[Callable[[Stop], object]]) -> None:
        self._set_callback("Stop", callback)

    @property
    def on_spectrum(self) -> Optional[Callable[[Spectrum], object]]:
        """Called for every block while music plays."""
        return self._sink.callbacks.get("Spectrum")

    @on_spectrum.setter
    def on_spectrum(self, callback: Optional[Callable[[Spectrum], object]]) -> None:
        self._set_callback("Spectrum", callback)

    # ---- State

    @property
    def sample_rate(self) -> int:
        """Hz."""
        return int(self._read("GetSampleRate"))

    @property
    def sample_count(self) -> int:
        """Frames pushed since the analysis was made or restarted."""
        return int(self._read("GetSampleCount"))

    @property
    def block_size(self) -> int:
        """Frames in a pulse block: the resolution of all indexes."""
        return int(self._read("GetBlockSize"))

    @property
    def bpm(self) -> float:
        """The tempo in force, imposed or measured; 0 = unknown."""
        return float(self._read("GetBPM"))

    @property
    def accuracy(self) -> float:
        """In (0, 1]: falls with every beat window of the engine that holds no pulse; with the automatic
        tracker its confidence, 0 while nothing plays."""
        return float(self._read("GetAccuracy"))

    @property
    def is_stopped(self) -> bool:
        """Whether the music is stopped, or has not begun."""
        return bool(self._read("IsStopped"))

    @property
    def average_volume(self) -> int:
        """Magnitude over the average duration, within the profile's band; -1 before any music."""
        return int(self._read("GetAverageVolume"))

    @property
    def current_volume(self) -> int:
        """Loudest magnitude of this beat window."""
        return int(self._read("GetCurrentVolume"))

    @property
    def maximal_volume(self) -> int:
        """Loudest magnitude of this and the previous beat window."""
        return int(self._read("GetMaximalVolume"))

    @property
    def effective_threshold(self) -> int:
        """Magnitude that makes a pulse now; -1 before any music if it is automatic."""
        return int(self._read("GetThreshold"))

    # ---- Private

    def _open_handle(self) -> Any:
        if self._handle is None:
            raise ClosedError("the analysis is closed")
        return self._handle

    def _read(self, name: str) -> Any:
        return self._library.call(name, self._open_handle())

    def _call(self, name: str, *arguments: Any) -> None:
        """Calls a function that may refuse or call back, and raises what came of it."""
        handle = self._open_handle()
        error = self._library.call(name, handle, *arguments)
        self._library.check(error, handle)
        # Inside a callback, what was raised is for the outermost call.
        raised = self._sink.error
        if raised is not None and name in ("PushInt16", "PushFloat", "Finish"):
            self._sink.error = None
            raise raised

    def _set_callback(self, kind: str, callback: Optional[Callable[[Any], object]]) -> None:
        self._open_handle()
        if callback is None:
            self._sink.callbacks.pop(kind, None)
        else:
            self._sink.callbacks[kind] = callback
        # A spectrum costs time, so it is only asked for when it is wanted.
        if kind == "Spectrum":
            self._connect(kind, self._sink.is_wanted(kind))

    def _connect(self, kind: str, is_wanted: bool) -> None:
        function = self._thunks[kind] if is_wanted else CALLBACKS[kind]()
        self._call(f"Set{kind}Callback", function, None)

    def _collect(self, spectrum: bool, name: str, *arguments: Any) -> List[Event]:
        """The events of one call."""
        events: List[Event] = []
        self._sink.collected = events
        if spectrum:
            self._connect("Spectrum", True)
        try:
            self._call(name, *arguments)
        finally:
            self._sink.collected = None
            if spectrum:
                self._connect("Spectrum", self._sink.is_wanted("Spectrum"))
        return events


def _rate(sample_rate: int) -> int:
    """What does not fit into 32 bits is refused by the library as it would be otherwise."""
    return max(-(2**31), min(2**31 - 1, int(sample_rate)))


def _destroy(owner: Any, handle: Any, _thunks: Dict[str, Any]) -> None:
    owner.call("Destroy", handle)


@dataclass(frozen=True)
class Result:
    """What the analysis of a whole recording gave."""

    sample_rate: int  #: Hz
    sample_count: int  #: frames
    beats: Tuple[Beat, ...]
    tempos: Tuple[Tempo, ...]
    pulses: Tuple[Pulse, ...]
    stops: Tuple[Stop, ...]

    @property
    def duration(self) -> float:
        """Seconds."""
        return self.sample_count / self.sample_rate

    @property
    def beat_times(self) -> List[float]:
        """Seconds, real and virtual beats."""
        return [beat.time for beat in self.beats]

    @property
    def bpm(self) -> float:
        """The tempo of the whole recording; 0 = unknown. It is the median of the tempos of the real
        beats from ten seconds after the first of them on; in shorter music, of all of them. Beats of
        the automatic tracker count by their times, nine in a row."""
        count = len(self.beats)
        bpm = ctypes.c_double()
        times = (ctypes.c_double * count)(*(beat.time for beat in self.beats))
        bpms = (ctypes.c_double * count)(*(beat.bpm for beat in self.beats))
        if count > 0 and self.beats[0].beat_in_bar > 0:
            error = library().call("ComputeTempoOfTimes", times, bpms, count, ctypes.byref(bpm))
        else:
            virtual = (ctypes.c_int32 * count)(*(beat.is_virtual for beat in self.beats))
            error = library().call(
                "ComputeRecordingTempo", times, bpms, virtual, count, ctypes.byref(bpm)
            )
        library().check(error, None)
        return bpm.value


def analyze(
    samples: Any, sample_rate: int, channels: Optional[int] = None, **arguments: Any
) -> Result:
    """Analyses a whole recording. samples and channels are those of Analysis.push(), the other arguments
    those of Analysis."""
    with Analysis(sample_rate, **arguments) as analysis:
        events = list(analysis.stream([samples], channels))

        def chosen(kind: type) -> Tuple[Any, ...]:
            return tuple(event for event in events if isinstance(event, kind))

        return Result(
            analysis.sample_rate,
            analysis.sample_count,
            cast(Tuple[Beat, ...], chosen(Beat)),
            cast(Tuple[Tempo, ...], chosen(Tempo)),
            cast(Tuple[Pulse, ...], chosen(Pulse)),
            cast(Tuple[Stop, ...], chosen(Stop)),
        )
