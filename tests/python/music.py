# SPDX-License-Identifier: MIT
"""Music for the tests."""

import array
import math

RATE = 22050


def kicks(seconds: float, bpm: float = 125.0, rate: int = RATE) -> "array.array[int]":
    """Decaying 55 Hz strokes on each beat, the first at 0."""
    samples = array.array("h")
    for i in range(int(seconds * rate)):
        time = math.fmod(i / rate, 60.0 / bpm)
        stroke = math.exp(-time / 0.1) * math.sin(2.0 * math.pi * 55.0 * time)
        samples.append(int(28000.0 * stroke))
    return samples


def silence(seconds: float, rate: int = RATE) -> "array.array[int]":
    return array.array("h", bytes(2 * int(seconds * rate)))
