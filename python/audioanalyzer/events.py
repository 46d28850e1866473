# SPDX-License-Identifier: MIT
"""What an analysis tells."""

import array
from dataclasses import dataclass
from typing import Union


@dataclass(frozen=True)
class Pulse:
    """A block, about a fortieth of a second, that rose above the threshold."""

    index: int  #: of its first frame
    time: float  #: of its first frame, seconds
    length: int  #: frames
    loudness: int  #: magnitude by which the pulses of a beat window are ranked
    average_volume: int  #: magnitude, when it was heard
    threshold: int  #: magnitude in force, when it was heard


@dataclass(frozen=True)
class Beat:
    """A beat, real or virtual. Beats come in order of time, each once."""

    index: int  #: of its first frame
    time: float  #: of its first frame, seconds
    bpm: float  #: tempo in force, 0 = unknown; the next beat is due at time + 60 / bpm
    accuracy: float  #: of the tracker, 0 to 1
    is_virtual: bool  #: stands in for a beat window that held no pulse
    loudness: int  #: magnitude of the chosen pulse; of a virtual beat, the threshold
    confidence: float = 0.0  #: probability that it is right; 0 with a profile, as what follows
    bar_confidence: float = 0.0  #: share of the belief that beat_in_bar has; 1 if set by hand
    beat_in_bar: int = 0  #: 1 to 4


@dataclass(frozen=True)
class Tempo:
    """The tempo in force when a beat window was closed, changed or not."""

    index: int  #: first frame of the block that closed the window
    time: float  #: of that frame, seconds
    bpm: float  #: 0 = unknown


@dataclass(frozen=True)
class Stop:
    """The music has stopped or plays again; told at the first block, and at every change."""

    index: int  #: first frame of the block from which it counts
    time: float  #: of that frame, seconds
    is_stopped: bool


@dataclass(frozen=True)
class Spectrum:
    """The spectrum of a block, before it is filtered; told while music plays."""

    index: int  #: first frame of the block
    time: float  #: of that frame, seconds
    amplitudes: "array.array[float]"  #: powers, 1 = the greatest one so far
    bin_width: float  #: Hz; bin i reaches from i to i + 1 times that


Event = Union[Pulse, Beat, Tempo, Stop, Spectrum]
