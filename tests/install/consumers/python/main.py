#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Half a minute of strokes, 125 a minute: the beats must lie on them."""

import array
import math
import os
import sys

import audioanalyzer
from audioanalyzer.library import library

RATE = 44100  # Hz
BEAT_LENGTH = 21168  # samples: 125 BPM


def stroke(index: int) -> int:
    time = index % BEAT_LENGTH / RATE
    return int(29000 * math.exp(-time / 0.1) * math.sin(2 * math.pi * 60 * time))


period = [stroke(index) for index in range(BEAT_LENGTH)]
samples = array.array("h", (period * 63)[: 30 * RATE])
result = audioanalyzer.analyze(samples, RATE)
offsets = [beat.index % BEAT_LENGTH for beat in result.beats]
stray = sum(1 for offset in offsets if 2048 < offset < BEAT_LENGTH - 2048)
print(f"{len(offsets)} beats, {stray} astray, tempo {result.bpm:.2f}, from {library().path}")
is_ours = os.path.realpath(library().path).startswith(os.path.realpath(os.environ["PREFIX"]))
sys.exit(0 if is_ours and 56 <= len(offsets) <= 62 and stray <= 3 and abs(result.bpm - 125) < 1 else 1)
