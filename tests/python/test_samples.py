# SPDX-License-Identifier: MIT
"""The buffers that samples come in."""

import array
import unittest

import audioanalyzer
from audioanalyzer import samples as buffers
from music import RATE, kicks

MUSIC = kicks(6.0)
EXPECTED = audioanalyzer.analyze(MUSIC, RATE)
STEREO = array.array("h", (sample for sample in MUSIC for _ in range(2)))


class Formats(unittest.TestCase):
    def check(self, samples, channels=None):
        self.assertEqual(audioanalyzer.analyze(samples, RATE, channels), EXPECTED)

    def test_music_has_beats(self):
        self.assertGreater(len(EXPECTED.beats), 6)

    def test_bytes_are_16_bit_samples(self):
        self.check(MUSIC.tobytes())
        self.check(bytearray(MUSIC.tobytes()))
        self.check(memoryview(MUSIC.tobytes()))

    def test_floats_are_scaled(self):
        self.check(array.array("f", (sample / 32768.0 for sample in MUSIC)))
        self.check(array.array("d", (sample / 32768.0 for sample in MUSIC)))

    def test_channels_are_averaged(self):
        self.check(STEREO, 2)
        self.check(STEREO.tobytes(), 2)

    def test_views_may_be_strided_and_unaligned(self):
        self.check(memoryview(STEREO)[::2])
        shifted = b"x" + MUSIC.tobytes()
        self.check(memoryview(shifted)[1:])

    def test_two_dimensions_are_frames_and_channels(self):
        view = memoryview(STEREO).cast("B").cast("h", (len(MUSIC), 2))
        self.check(view)
        self.check(view, 2)
        with self.assertRaisesRegex(audioanalyzer.RangeError, "have 2 channels, not 3"):
            self.check(view, 3)

    def test_portions_change_nothing(self):
        with audioanalyzer.Analysis(RATE) as analysis:
            portions = [MUSIC[at : at + 333] for at in range(0, len(MUSIC), 333)]
            beats = [
                event
                for event in analysis.stream(portions)
                if isinstance(event, audioanalyzer.Beat)
            ]
        self.assertEqual(tuple(beats), EXPECTED.beats)

    def test_long_buffers_are_cut_at_whole_frames(self):
        frames = buffers.PORTION + 1
        cut = list(buffers.portions(bytes(6 * frames), 3))
        self.assertEqual([(name, count, channels) for name, _, count, channels in cut],
                         [("PushInt16", buffers.PORTION, 3), ("PushInt16", 1, 3)])
        self.assertEqual(sum(len(data) for _, data, _, _ in cut), 6 * frames)


class Refusals(unittest.TestCase):
    def push(self, samples, channels=None):
        with audioanalyzer.Analysis(RATE) as analysis:
            analysis.push(samples, channels)
            return analysis.sample_count

    def test_empty_buffers_are_taken(self):
        for empty in (b"", array.array("h"), array.array("d"), memoryview(b"")):
            self.assertEqual(self.push(empty), 0)

    def test_what_is_no_buffer_is_refused(self):
        for wrong in ([0.0, 1.0], None, 5, "samples", iter(b"")):
            with self.assertRaisesRegex(TypeError, "buffer"):
                self.push(wrong)

    def test_other_formats_are_refused(self):
        for code in "iIlLHqQ":
            with self.assertRaisesRegex(TypeError, f"not of format '{code}'"):
                self.push(array.array(code, [0, 1]))

    def test_part_of_a_frame_is_refused(self):
        with self.assertRaisesRegex(audioanalyzer.RangeError, "whole number of frames"):
            self.push(b"123")
        with self.assertRaisesRegex(audioanalyzer.RangeError, "whole number of frames"):
            self.push(array.array("h", [1, 2, 3]), 2)

    def test_bad_channel_counts_are_refused(self):
        for channels in (0, -1, 1025):
            with self.assertRaisesRegex(audioanalyzer.RangeError, "1 to 1024 channels"):
                self.push(bytes(4 * 1025), channels)

    def test_more_dimensions_are_refused(self):
        view = memoryview(bytes(16)).cast("h", (2, 2, 2))
        with self.assertRaisesRegex(audioanalyzer.RangeError, "not 3"):
            self.push(view)


if __name__ == "__main__":
    unittest.main()
