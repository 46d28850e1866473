#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Prints the time of each beat in a 16-bit WAV file, or in raw PCM from standard input.

    beats.py song.wav
    arecord -q -f S16_LE -r 44100 -c 2 -t raw | beats.py - 44100 2
"""

import os
import sys
import wave
from typing import Iterator

import audioanalyzer


def raw(channels: int) -> Iterator[bytes]:
    """Standard input in portions of whole frames, as they come."""
    rest = b""
    while data := os.read(sys.stdin.fileno(), 4096):
        data = rest + data
        size = len(data) - len(data) % (2 * channels)
        rest = data[size:]
        yield data[:size]


def show(beat: audioanalyzer.Beat) -> None:
    print(f"{beat.time:.6f}", flush=True)


def main() -> int:
    name, rate, channels = (sys.argv[1:] + ["-", "44100", "1"][len(sys.argv) - 1 :])[:3]
    try:
        if name == "-":
            with audioanalyzer.Analysis(int(rate), on_beat=show) as analysis:
                for portion in raw(int(channels)):
                    analysis.push(portion, int(channels))
                analysis.finish()
        else:
            with wave.open(name) as song, audioanalyzer.Analysis(
                song.getframerate(), on_beat=show
            ) as analysis:
                while portion := song.readframes(4096):
                    analysis.push(portion, song.getnchannels())
                analysis.finish()
    except (audioanalyzer.AnalysisError, ImportError, OSError, ValueError, wave.Error) as error:
        print(f"beats.py: {error}", file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
