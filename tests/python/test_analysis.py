# SPDX-License-Identifier: MIT
"""Life, events, settings and errors of analyses."""

import array
import ctypes
import math
import os
import pathlib
import re
import threading
import unittest
import weakref

import audioanalyzer
from audioanalyzer import Analysis, Beat, Profile, Pulse, Spectrum, Stop, Tempo, library
from music import RATE, kicks, silence

MUSIC = kicks(10.0)


class Events(unittest.TestCase):
    def test_callbacks_are_told_everything_in_order(self):
        told = []
        with Analysis(
            RATE,
            tracker="profile",
            on_beat=told.append,
            on_pulse=told.append,
            on_tempo=told.append,
            on_stop=told.append,
            on_spectrum=told.append,
        ) as analysis:
            analysis.push(MUSIC)
            analysis.finish()
        kinds = {type(event) for event in told}
        self.assertEqual(kinds, {Beat, Pulse, Tempo, Stop, Spectrum})
        self.assertEqual(told[0], Stop(0, 0.0, True))
        for event in told:
            self.assertEqual(event.time, event.index / RATE)
        beats = [event for event in told if isinstance(event, Beat)]
        self.assertGreater(len(beats), 12)
        self.assertEqual(beats, sorted(beats, key=lambda beat: beat.index))
        self.assertAlmostEqual(beats[-1].bpm, 125.0, delta=3.0)
        # 22050 Hz: blocks of 512 samples, 256 bins of half the rate.
        spectrum = next(event for event in told if isinstance(event, Spectrum))
        self.assertEqual(len(spectrum.amplitudes), 256)
        self.assertAlmostEqual(spectrum.bin_width, 11025.0 / 256.0)
        self.assertTrue(all(0.0 <= power <= 1.0 for power in spectrum.amplitudes))
        self.assertTrue(all(event.length == 512 for event in told if isinstance(event, Pulse)))

    def test_stream_yields_what_callbacks_are_told(self):
        told = []
        with Analysis(
            RATE, on_beat=told.append, on_pulse=told.append, on_tempo=told.append, on_stop=told.append
        ) as analysis:
            portions = [MUSIC[at : at + 1000] for at in range(0, len(MUSIC), 1000)]
            events = list(analysis.stream(portions))
        self.assertGreater(len(events), 30)
        self.assertEqual(events, told)

    def test_stream_yields_each_event_as_soon_as_it_is_known(self):
        given = 0

        def portions():
            nonlocal given
            for at in range(0, len(MUSIC), 512):
                given += 512
                yield MUSIC[at : at + 512]

        with Analysis(RATE) as analysis:
            for event in analysis.stream(portions()):
                if isinstance(event, Pulse):
                    self.assertEqual(event.index, given - 512)
                    break
            else:
                self.fail("no pulse")
            # A stream that was left leaves the analysis as it is.
            analysis.push(MUSIC)
            analysis.finish()

    def test_stream_yields_spectra_when_they_are_wanted(self):
        for is_wanted in (False, True):
            with Analysis(RATE) as analysis:
                events = list(analysis.stream([MUSIC], spectrum=is_wanted))
            found = any(isinstance(event, Spectrum) for event in events)
            self.assertEqual(found, is_wanted)

    def test_callback_may_be_changed_and_taken_away(self):
        first, second = [], []
        with Analysis(RATE, on_pulse=first.append) as analysis:
            self.assertEqual(analysis.on_pulse, first.append)
            analysis.push(kicks(4.0))
            count = len(first)
            analysis.on_pulse = second.append
            analysis.push(kicks(4.0))
            self.assertEqual(len(first), count)
            self.assertGreater(len(second), 0)
            analysis.on_pulse = None
            self.assertIsNone(analysis.on_pulse)
            count = len(second)
            analysis.push(kicks(4.0))
            self.assertEqual(len(second), count)

    def test_all_callbacks_are_attributes(self):
        with Analysis(RATE) as analysis:
            for name in ("on_beat", "on_pulse", "on_tempo", "on_stop", "on_spectrum"):
                told = []
                self.assertIsNone(getattr(analysis, name))
                setattr(analysis, name, told.append)
                analysis.restart()
                analysis.push(MUSIC)
                analysis.finish()
                self.assertGreater(len(told), 0, name)
                setattr(analysis, name, None)

    def test_exception_of_a_callback_comes_out_of_push(self):
        told = []

        def fail(pulse):
            told.append(pulse)
            raise KeyError("mine")

        with Analysis(RATE, on_pulse=fail) as analysis:
            with self.assertRaisesRegex(KeyError, "mine"):
                analysis.push(MUSIC)
            self.assertEqual(len(told), 1)
            analysis.on_pulse = None
            analysis.restart()
            beats = [e for e in analysis.stream([MUSIC]) if isinstance(e, Beat)]
        self.assertEqual(tuple(beats), audioanalyzer.analyze(MUSIC, RATE).beats)

    def test_callback_must_not_push_or_close(self):
        tried = []

        def attempt(_stop):
            for call in (
                lambda: analysis.push(MUSIC),
                analysis.finish,
                analysis.restart,
                analysis.close,
            ):
                with self.assertRaises(audioanalyzer.BusyError):
                    call()
                tried.append(call)
            analysis.threshold = 100
            self.assertEqual(analysis.sample_rate, RATE)

        with Analysis(RATE, on_stop=attempt) as analysis:
            analysis.push(silence(1.0))
            self.assertEqual(len(tried), 4)
            self.assertEqual(analysis.threshold, 100)


class Life(unittest.TestCase):
    def test_everything_is_refused_once_closed(self):
        analysis = Analysis(RATE)
        analysis.close()
        analysis.close()
        for call in (
            lambda: analysis.push(MUSIC),
            analysis.finish,
            analysis.restart,
            analysis.reset,
            lambda: analysis.bpm,
            lambda: analysis.threshold,
            lambda: analysis.profile,
            lambda: setattr(analysis, "threshold", 5),
            lambda: setattr(analysis, "on_beat", print),
            analysis.__enter__,
        ):
            with self.assertRaisesRegex(audioanalyzer.ClosedError, "closed"):
                call()

    def test_forgotten_analysis_is_freed_at_once(self):
        analysis = Analysis(RATE, on_beat=print)
        analysis.push(kicks(1.0))
        finalizer = analysis._close
        reference = weakref.ref(analysis)
        del analysis
        self.assertIsNone(reference())
        self.assertFalse(finalizer.alive)

    def test_finished_analysis_takes_no_samples_until_it_is_restarted(self):
        with Analysis(RATE) as analysis:
            analysis.push(MUSIC)
            analysis.finish()
            for call in (lambda: analysis.push(MUSIC), analysis.finish):
                with self.assertRaisesRegex(audioanalyzer.FinishedError, "finished"):
                    call()
            self.assertEqual(analysis.sample_count, len(MUSIC))
            analysis.restart()
            self.assertEqual(analysis.sample_count, 0)
            analysis.push(MUSIC)

    def test_reset_searches_anew(self):
        with Analysis(RATE) as analysis:
            analysis.push(MUSIC)
            self.assertGreater(analysis.bpm, 0.0)
            analysis.reset()
            self.assertEqual(analysis.bpm, 0.0)
            self.assertEqual(analysis.sample_count, len(MUSIC))

    def test_rate_has_limits(self):
        for rate in (0, -1, 7999, 192001, 2**40, -(2**40)):
            with self.assertRaisesRegex(audioanalyzer.RangeError, "8000 to 192000 Hz"):
                Analysis(rate)
        for rate in (8000, 192000):
            with Analysis(rate) as analysis:
                self.assertEqual(analysis.sample_rate, rate)

    def test_state_is_that_of_the_music(self):
        with Analysis(RATE) as analysis:
            self.assertTrue(analysis.is_stopped)
            self.assertEqual(analysis.average_volume, -1)
            self.assertEqual(analysis.effective_threshold, -1)
            self.assertEqual(analysis.block_size, 512)
            analysis.push(MUSIC)
            self.assertFalse(analysis.is_stopped)
            self.assertGreater(analysis.average_volume, 0)
            self.assertGreater(analysis.effective_threshold, analysis.average_volume)
            self.assertGreaterEqual(analysis.maximal_volume, analysis.current_volume)
            self.assertTrue(0.0 < analysis.accuracy <= 1.0)

    def test_threads_do_not_disturb_each_other(self):
        expected = [audioanalyzer.analyze(kicks(6.0, bpm), RATE).beats for bpm in (110, 125, 140)]
        found = [None] * 3

        def run(number):
            found[number] = audioanalyzer.analyze(kicks(6.0, (110, 125, 140)[number]), RATE).beats

        threads = [threading.Thread(target=run, args=(number,)) for number in range(3)]
        for thread in threads:
            thread.start()
        for thread in threads:
            thread.join()
        self.assertEqual(found, expected)


def limits(number):
    """Minimum, maximum and default, as the library has them."""
    values = [ctypes.c_double() for _ in range(3)]
    library.library().call("GetLimits", number, *map(ctypes.byref, values))
    return [value.value for value in values]


class Settings(unittest.TestCase):
    def test_every_setting_of_the_library_is_an_attribute(self):
        numbers = library.setting_numbers()
        self.assertEqual(len(numbers), len(self.TABLE))
        with Analysis(RATE) as analysis:
            for name, number in numbers.items():
                attribute = name.replace("-", "_")
                minimum, maximum, default = limits(number)
                for value in (minimum, maximum):
                    setattr(analysis, attribute, value)
                    self.assertEqual(getattr(analysis, attribute), value, name)
                with Analysis(RATE) as fresh:
                    self.assertEqual(getattr(fresh, attribute), default, name)
                for value in (minimum - 1.0, maximum + 1.0):
                    with self.assertRaisesRegex(audioanalyzer.RangeError, name):
                        setattr(analysis, attribute, value)

    def test_documentation_tells_the_limits(self):
        for name, number in library.setting_numbers().items():
            _, maximum, default = limits(number)
            text = getattr(Analysis, name.replace("-", "_")).__doc__
            if maximum > 1.0:
                self.assertIn(f"{maximum:g}", text, name)
                self.assertIn(f"{default:g}", text, name)

    def test_header_numbers_the_settings_as_the_library_does(self):
        header = pathlib.Path(os.environ["AA_HEADER"]).with_name("AnalysisRecords.h").read_text()
        comments = re.findall(r"/\*\*((?:(?!\*/).)*)\*/\s*AudioAnalysisSetting_(\w+) = (\d+)", header, re.S)
        found = {name.lower(): int(number) for _, name, number in comments}
        numbers = library.setting_numbers()
        self.assertEqual(
            found, {name.replace("-", ""): number for name, number in numbers.items()}
        )
        for comment, name, number in comments:
            _, maximum, default = limits(int(number))
            self.assertIn(f"{maximum:g}", comment, name)
            self.assertIn(f"{default:g}", comment, name)

    def test_unknown_arguments_are_refused(self):
        for name in ("tempo", "push", "bpm", "stop-duration", "_handle"):
            with self.assertRaisesRegex(TypeError, name):
                Analysis(RATE, **{name: 1})

    # Name, default, another value, values that are refused.
    TABLE = (
        ("threshold", -1, 3000, (-2, 32768)),
        ("stop_threshold", 3276, 100, (-1, 32768)),
        ("stop_duration", 1.5, 0.5, (0.0, 10.1, math.nan)),
        ("average_duration", 2.0, 3.0, (0.0, 60.1, math.inf)),
        ("bpm_duration", 10.0, 5.0, (0.0, 600.1)),
        ("fixed_bpm", 0.0, 120.0, (-1.0, 999.1)),
        ("consistency", True, False, (2,)),
        ("virtual_when_stopped", False, True, (-1,)),
    )

    def test_attributes_have_defaults_and_limits(self):
        with Analysis(RATE) as analysis:
            for name, default, other, refused in self.TABLE:
                value = getattr(analysis, name)
                self.assertEqual((value, type(value)), (default, type(default)), name)
                setattr(analysis, name, other)
                self.assertEqual(getattr(analysis, name), other, name)
                for bad in refused:
                    with self.assertRaises(audioanalyzer.RangeError, msg=name):
                        setattr(analysis, name, bad)
                    self.assertEqual(getattr(analysis, name), other, name)

    def test_arguments_are_the_attributes(self):
        arguments = {name: other for name, _, other, _ in self.TABLE}
        with Analysis(RATE, **arguments) as analysis:
            for name, value in arguments.items():
                self.assertEqual(getattr(analysis, name), value)
        with self.assertRaises(audioanalyzer.RangeError):
            Analysis(RATE, stop_duration=-1.0)

    def test_attributes_are_documented(self):
        for name, *_ in self.TABLE:
            self.assertTrue(getattr(Analysis, name).__doc__)

    def test_profiles_are_those_of_the_library(self):
        self.assertEqual(
            audioanalyzer.profiles(),
            {
                "Electro": Profile(90.0, 175.0, 2.0, -1, 75, 32000),
                "Hardcore": Profile(130.0, 250.0, 2.0, -1, 75, 32000),
                "Slow": Profile(70.0, 135.0, 1.5, -1, 150, 32000),
            },
        )

    def test_profile_is_a_name_or_a_record(self):
        mine = Profile(60.0, 180.0, 1.25, 40, 200, 20000)
        with Analysis(RATE, profile="slow") as analysis:
            self.assertEqual(analysis.profile, audioanalyzer.profiles()["Slow"])
            analysis.profile = mine
            self.assertEqual(analysis.profile, mine)
            with self.assertRaisesRegex(audioanalyzer.UnknownNameError, "Electro Hardcore Slow"):
                analysis.profile = "Waltz"
            with self.assertRaisesRegex(audioanalyzer.RangeError, "1000 BPM"):
                analysis.profile = Profile(60.0, 1000.0)
            self.assertEqual(analysis.profile, mine)
        with Analysis(RATE, profile=mine) as analysis:
            self.assertEqual(analysis.profile, mine)

    def test_errors_are_of_one_family(self):
        for error in (
            audioanalyzer.RangeError,
            audioanalyzer.UnknownNameError,
            audioanalyzer.BusyError,
            audioanalyzer.FinishedError,
            audioanalyzer.ClosedError,
        ):
            self.assertTrue(issubclass(error, audioanalyzer.AnalysisError))


def beat(time, bpm, is_virtual=False):
    return Beat(0, time, bpm, 1.0, is_virtual, 1000)


class Whole(unittest.TestCase):
    def test_tempo_is_the_median_of_the_settled_real_beats(self):
        # The first real beat is at 1 s, so what is reported from 11 s on is settled.
        beats = (
            beat(0.5, 90.0, True),
            beat(1.0, 130.0),
            beat(1.5, 131.0),
            beat(11.0, 140.17),
            beat(11.5, 141.0),
            beat(12.0, 139.0),
            beat(12.5, 150.57, True),
        )
        for count, bpm in ((7, 140.17), (4, 140.17), (3, 130.0), (1, 90.0), (0, 0.0)):
            result = audioanalyzer.Result(RATE, RATE, beats[:count], (), (), ())
            self.assertEqual(result.bpm, bpm)

    def test_analyze_tells_all(self):
        result = audioanalyzer.analyze(MUSIC, RATE, tracker="profile")
        self.assertEqual(result.sample_count, len(MUSIC))
        self.assertEqual(result.duration, 10.0)
        self.assertEqual(result.beat_times, [beat.time for beat in result.beats])
        self.assertAlmostEqual(result.bpm, 125.0, delta=3.0)
        self.assertGreater(len(result.pulses), len(result.beats) // 2)
        self.assertEqual([stop.is_stopped for stop in result.stops], [True, False])

    def test_automatic_tracker_is_the_default_and_tells_bars(self):
        result = audioanalyzer.analyze(MUSIC, RATE)
        self.assertGreater(len(result.beats), 5)
        for beat in result.beats:
            self.assertIn(beat.beat_in_bar, (1, 2, 3, 4))
            self.assertTrue(0.0 < beat.confidence <= 1.0)
            self.assertTrue(0.0 < beat.bar_confidence <= 1.0)
        engine = audioanalyzer.analyze(MUSIC, RATE, profile="Electro")
        self.assertEqual({beat.beat_in_bar for beat in engine.beats}, {0})
        self.assertEqual(result.pulses, engine.pulses)

    def test_tempo_of_the_automatic_tracker_is_that_of_its_times(self):
        # Nine beats of half a second, reported as 110 BPM.
        beats = tuple(Beat(0, 0.5 * i, 110.0, 1.0, False, 0, 0.9, 0.9, 1) for i in range(9))
        self.assertEqual(audioanalyzer.Result(RATE, RATE, beats, (), (), ()).bpm, 120.0)
        self.assertEqual(audioanalyzer.Result(RATE, RATE, beats[:8], (), (), ()).bpm, 110.0)

    def test_hand_reaches_the_tracker(self):
        with Analysis(RATE) as analysis:
            self.assertEqual(analysis.tracker, "automatic")
            analysis.push(MUSIC)
            analysis.tap()
            analysis.tap(0)
            analysis.set_downbeat(0)
            analysis.set_downbeat(None)
            analysis.set_tempo_range(60, 190)
            for factor in (0.0, 7.0):
                with self.assertRaises(audioanalyzer.RangeError):
                    analysis.multiply(factor)
            with self.assertRaises(audioanalyzer.RangeError):
                analysis.set_tempo_range(50, 190)
            with self.assertRaises(audioanalyzer.RangeError):
                analysis.tracker = "magic"
            analysis.profile = "Slow"
            self.assertEqual(analysis.tracker, "profile")
            analysis.tracker = "automatic"
            self.assertEqual(analysis.tracker, "automatic")
            analysis.fixed_bpm = 120.0
            self.assertEqual(analysis.tracker, "profile")

    def test_analyze_takes_the_arguments_of_an_analysis(self):
        fixed = audioanalyzer.analyze(MUSIC, RATE, fixed_bpm=100.0, profile="Slow")
        self.assertEqual(fixed.bpm, 100.0)
        with self.assertRaises(TypeError):
            audioanalyzer.analyze(MUSIC, RATE, tempo=100.0)

    def test_tempo_is_unknown_without_music(self):
        result = audioanalyzer.analyze(silence(5.0), RATE)
        self.assertEqual((result.bpm, result.beats, result.pulses), (0.0, (), ()))
        self.assertEqual(audioanalyzer.analyze(array.array("h"), RATE).duration, 0.0)


if __name__ == "__main__":
    unittest.main()
