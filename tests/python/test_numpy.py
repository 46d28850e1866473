# SPDX-License-Identifier: MIT
"""numpy arrays as samples. The module itself does not need numpy."""

import unittest

import audioanalyzer
import numpy
from music import RATE, kicks

MUSIC = numpy.array(kicks(6.0), dtype=numpy.int16)
EXPECTED = audioanalyzer.analyze(MUSIC.tobytes(), RATE)


class Arrays(unittest.TestCase):
    def check(self, samples, channels=None):
        self.assertEqual(audioanalyzer.analyze(samples, RATE, channels), EXPECTED)

    def test_all_sample_types_are_taken(self):
        self.check(MUSIC)
        self.check((MUSIC / 32768.0).astype(numpy.float32))
        self.check(MUSIC / 32768.0)
        self.check(MUSIC.astype("<i2") if numpy.little_endian else MUSIC.astype(">i2"))

    def test_columns_are_channels(self):
        self.check(numpy.column_stack([MUSIC, MUSIC]))
        self.check(MUSIC.reshape(-1, 1))
        self.check(numpy.stack([MUSIC, MUSIC, MUSIC]).T)

    def test_order_and_strides_do_not_matter(self):
        self.check(numpy.asfortranarray(numpy.column_stack([MUSIC, MUSIC])))
        self.check(numpy.repeat(MUSIC, 3)[::3])

    def test_read_only_arrays_are_taken(self):
        samples = MUSIC.copy()
        samples.setflags(write=False)
        self.check(samples)

    def test_other_types_are_refused(self):
        foreign = ">i2" if numpy.little_endian else "<i2"
        for wrong in (foreign, numpy.int32, numpy.uint16, numpy.complex64, bool):
            with self.assertRaises(TypeError):
                audioanalyzer.analyze(MUSIC.astype(wrong), RATE)

    def test_spectrum_becomes_an_array(self):
        spectra = []
        with audioanalyzer.Analysis(RATE, on_spectrum=spectra.append) as analysis:
            analysis.push(MUSIC)
        powers = numpy.array([spectrum.amplitudes for spectrum in spectra])
        self.assertEqual(powers.shape[1], 256)
        # The strokes of 55 Hz lie in bin 1, 43 to 86 Hz.
        self.assertEqual(int(powers.sum(axis=0).argmax()), 1)


if __name__ == "__main__":
    unittest.main()
