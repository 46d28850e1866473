# SPDX-License-Identifier: MIT
"""Beat clocks."""

import ctypes
import fractions
import time as clocks
import weakref
from typing import Any, Optional

from .library import BeatClockRecord, ClockBeatRecord, library

_NEVER = 2**63 - 1
_CHARGES = ("music", "hand", "held")


def _us(seconds: float) -> int:
    return round(seconds * 1e6)


def _now(now: Optional[float]) -> int:
    return _us(clocks.monotonic() if now is None else now)


class ClockState:
    """What a clock knew when it was asked, and all that follows from it. It does not change.

    Beats are counted. Tick number i of a division d is the (i / d)-th beat: tick 24 * n of division 24
    is beat n. Times are those at which something is to happen at an output: offset, in seconds and
    positive for later, is added to those of the music.
    """

    def __init__(self, record: BeatClockRecord) -> None:
        self._record = record
        self._reference = ctypes.byref(record)

    @property
    def bpm(self) -> float:
        """The tempo; 0 = none yet."""
        return float(self._record.bpm)

    @property
    def is_running(self) -> bool:
        """Whether beats go on."""
        return bool(self._ask("IsRunning"))

    @property
    def is_playing(self) -> bool:
        """Whether the music plays, as the clock was told."""
        return bool(self._record.is_playing)

    @property
    def charge(self) -> str:
        """Who is in charge: "music", "hand" or "held"."""
        return _CHARGES[self._record.charge]

    @property
    def factor(self) -> fractions.Fraction:
        """The clock's beats over those of the music."""
        return fractions.Fraction(self._record.numerator, self._record.denominator)

    @property
    def run(self) -> int:
        """How often the clock has begun to run."""
        return int(self._record.run)

    @property
    def epoch(self) -> int:
        """How often the beats have jumped."""
        return int(self._record.epoch)

    def beat(self, time: Optional[float] = None, offset: float = 0.0) -> int:
        """Number of the last beat that is not behind a time; None = now."""
        return int(self._ask("GetBeat", _now(time), _us(offset)))

    def phase(self, time: Optional[float] = None, offset: float = 0.0) -> float:
        """How much of that beat has passed, 0 up to 1."""
        return float(self._ask("GetPhase", _now(time), _us(offset)))

    def beat_in_bar(self, beat: int) -> int:
        """Place of a beat in its bar, 0 = the one."""
        return int(self._ask("GetBeatInBar", beat))

    def next_tick(
        self, time: Optional[float] = None, division: int = 1, offset: float = 0.0
    ) -> int:
        """Number of the first tick behind a time; division: ticks a beat, 1 to 10000."""
        return int(self._ask("GetNextTick", _now(time), division, _us(offset)))

    def tick_time(self, tick: int, division: int = 1, offset: float = 0.0) -> Optional[float]:
        """When a tick is due; None when the clock stops before, or has no tempo."""
        due = self._ask("GetTickTime", tick, division, _us(offset))
        return None if due == _NEVER else due / 1e6

    def sureness(self, time: Optional[float] = None) -> float:
        """How sure the beats are, 0 to 1."""
        return float(self._ask("GetSureness", _now(time)))

    def _ask(self, name: str, *arguments: Any) -> Any:
        return library().clock(name, self._reference, *arguments)


class Clock:
    """A clock of beats that music or a hand sets, and that goes on by itself.

        clock = Clock()
        clock.hear(beat_time, bpm)
        state = clock.state()
        due = state.tick_time(state.next_tick(division=24), division=24)

    Times are seconds on a clock that is never set back; now is the present on it, and None means
    time.monotonic(). Offsets and nudges are seconds, positive for later. Numbers outside their limits
    raise RangeError.

    Threads: one at a time sets it; state() may be called by any thread at the same time.
    """

    def __init__(
        self,
        *,
        beats_per_bar: Optional[int] = None,
        slew: Optional[float] = None,
        offset: Optional[float] = None,
        goes_on: Optional[bool] = None,
    ) -> None:
        self._library = library()
        handle = self._library.clock("Create")
        if handle is None:
            raise MemoryError("memory has run out")
        self._handle = handle
        weakref.finalize(self, self._library.clock, "Destroy", handle)
        given = {"beats_per_bar": beats_per_bar, "slew": slew, "offset": offset, "goes_on": goes_on}
        for name, value in given.items():
            if value is not None:
                setattr(self, name, value)

    def state(self) -> ClockState:
        """What is known now."""
        record = BeatClockRecord()
        self._call("GetState", ctypes.byref(record))
        return ClockState(record)

    # ---- The music

    def hear(
        self,
        time: float,
        bpm: float = 0.0,
        trust: float = 1.0,
        *,
        is_virtual: bool = False,
        beat_in_bar: int = -1,
        now: Optional[float] = None,
    ) -> None:
        """A beat of the music, in order of time, heard or foretold, at most 5 s from the present. bpm:
        the tracker's tempo, 0 = unknown. trust: how sure it is, 0 to 1. beat_in_bar: 0 = the one, -1 =
        unknown."""
        record = ClockBeatRecord(_us(time), bpm, trust, is_virtual, beat_in_bar)
        self._call("Hear", ctypes.byref(record), _now(now))

    def set_playing(self, is_playing: bool, now: Optional[float] = None) -> None:
        """The music plays, or has stopped."""
        self._call("SetPlaying", is_playing, _now(now))

    # ---- The hand

    def tap(self, now: Optional[float] = None) -> None:
        """A tap: from the second one on they set tempo and phase."""
        self._call("Tap", _now(now))

    def nudge(self, seconds: float, now: Optional[float] = None) -> None:
        """Moves the beats, until the next new song."""
        self._call("Nudge", _us(seconds), _now(now))

    def bend(self, share: float, now: Optional[float] = None) -> None:
        """Runs faster by a share of the tempo, -0.5 to 0.5, until it is told 0."""
        self._call("Bend", share, _now(now))

    def mark_one(self, now: Optional[float] = None) -> None:
        """The beat nearest to the present is the first one of a bar."""
        self._call("MarkOne", _now(now))

    def scale(self, numerator: int, denominator: int = 1, now: Optional[float] = None) -> None:
        """Multiplies the tempo, by 1/2, 2, 3/2, 2/3."""
        self._call("Scale", numerator, denominator, _now(now))

    def round(self, now: Optional[float] = None) -> None:
        """Rounds the tempo to whole BPM."""
        self._call("Round", _now(now))

    def hold(self, bpm: float = 0.0, now: Optional[float] = None) -> None:
        """Keeps a tempo, 10 to 999 BPM, whatever the music does; 0 = the one it has."""
        self._call("Hold", bpm, _now(now))

    def release(self, now: Optional[float] = None) -> None:
        """Gives the clock back to the music."""
        self._call("Release", _now(now))

    def restart(self, now: Optional[float] = None) -> None:
        """Forgets music and hand, and stands still; settings stay."""
        self._call("Restart", _now(now))

    # ---- Settings

    @property
    def beats_per_bar(self) -> int:
        """2 to 12; 4."""
        return int(self._get(0))

    @beats_per_bar.setter
    def beats_per_bar(self, count: int) -> None:
        self._set(0, count)

    @property
    def slew(self) -> float:
        """Share of the tempo by which the clock may run fast or slow to catch up, 0.001 to 0.5; 0.05."""
        return self._get(1)

    @slew.setter
    def slew(self, share: float) -> None:
        self._set(1, share)

    @property
    def offset(self) -> float:
        """Seconds added to all times, -0.5 to 0.5; 0."""
        return self._get(2) / 1e6

    @offset.setter
    def offset(self, seconds: float) -> None:
        self._set(2, _us(seconds))

    @property
    def goes_on(self) -> bool:
        """Whether the clock goes on while the music has stopped; it does not."""
        return bool(self._get(3))

    @goes_on.setter
    def goes_on(self, goes_on: bool) -> None:
        self._set(3, goes_on)

    # ---- Private

    def _get(self, setting: int) -> float:
        value = ctypes.c_double()
        self._call("Get", setting, ctypes.byref(value))
        return value.value

    def _set(self, setting: int, value: float) -> None:
        # The clock's own present: a setting comes at no time of its own.
        self._call("Set", setting, float(value), -(2**52))

    def _call(self, name: str, *arguments: Any) -> None:
        self._library.check_clock(self._library.clock(name, self._handle, *arguments))
