# SPDX-License-Identifier: MIT
"""Beat clocks from Python: a thin layer over the C interface, in seconds."""

import fractions
import gc
import threading
import time
import unittest

import audioanalyzer
from audioanalyzer import Clock


def playing(**settings):
    """A clock that has heard eight beats of 120 BPM; the next one is beat 8, at 5 s."""
    clock = Clock(**settings)
    for beat in range(8):
        clock.hear(1.0 + 0.5 * beat, 120.0, now=1.0 + 0.5 * beat)
    return clock


class Beats(unittest.TestCase):
    def test_clock_stands_still_at_first(self):
        state = Clock().state()
        self.assertEqual((state.is_running, state.bpm, state.run), (False, 0.0, 0))
        self.assertIsNone(state.tick_time(0))

    def test_clock_follows_beats(self):
        state = playing().state()
        self.assertTrue(state.is_running and state.is_playing)
        self.assertEqual((state.bpm, state.charge, state.factor), (120.0, "music", 1))
        self.assertEqual((state.beat(5.25), state.phase(5.25)), (8, 0.5))
        self.assertEqual(state.phase(5.25, -0.125), 0.75)
        self.assertEqual([state.beat_in_bar(beat) for beat in (8, 9, 11, 12)], [0, 1, 3, 0])
        self.assertEqual(state.next_tick(5.0, 24), 193)
        self.assertEqual(state.tick_time(204, 24), 5.25)
        self.assertEqual(state.tick_time(8, offset=0.04), 5.04)
        self.assertGreater(state.sureness(5.0), state.sureness(9.0))

    def test_virtual_beats_change_nothing(self):
        clock = playing()
        clock.hear(5.2, 150.0, is_virtual=True, now=5.2)
        self.assertEqual((clock.state().bpm, clock.state().tick_time(9)), (120.0, 5.5))

    def test_tracker_marks_the_one(self):
        clock = playing()
        clock.hear(5.0, 120.0, beat_in_bar=2, now=5.0)
        self.assertEqual(clock.state().beat_in_bar(8), 2)

    def test_state_does_not_change(self):
        clock = playing()
        state = clock.state()
        clock.hold(60.0, now=5.0)
        self.assertEqual((state.bpm, clock.state().bpm), (120.0, 60.0))

    def test_music_that_stops_stops_the_clock(self):
        clock = playing()
        clock.set_playing(False, now=5.1)
        self.assertFalse(clock.state().is_running or clock.state().is_playing)
        clock = playing(goes_on=True)
        clock.set_playing(False, now=5.1)
        self.assertTrue(clock.state().is_running)
        clock.restart(now=6.0)
        self.assertFalse(clock.state().is_running)


class Hand(unittest.TestCase):
    def test_taps_set_the_tempo(self):
        clock = Clock()
        clock.tap(now=1.0)
        clock.tap(now=1.4)
        state = clock.state()
        self.assertEqual((round(state.bpm, 9), state.charge), (150.0, "hand"))

    def test_taps_come_now_if_no_time_is_given(self):
        clock = Clock()
        before = time.monotonic()
        clock.tap(now=before - 0.5)
        clock.tap()
        state = clock.state()
        self.assertLessEqual(state.bpm, 120.0 + 1e-3)
        self.assertGreaterEqual(state.beat(), state.beat(before + 0.001))

    def test_hand_moves_the_beats(self):
        clock = playing(slew=0.5)
        clock.nudge(0.01, now=5.0)
        self.assertEqual(clock.state().tick_time(9), 5.51)
        clock.bend(0.1, now=6.0)
        clock.bend(0.0, now=7.0)
        self.assertAlmostEqual(clock.state().tick_time(20), 10.91, places=5)
        clock.mark_one(now=11.0)
        self.assertEqual(clock.state().beat_in_bar(20), 0)
        self.assertEqual(clock.state().epoch, 0)

    def test_tempo_is_scaled_rounded_held_and_released(self):
        clock = playing()
        clock.scale(3, 2, now=5.0)
        self.assertEqual((clock.state().bpm, clock.state().factor), (180.0, fractions.Fraction(3, 2)))
        clock.scale(2, 3, now=5.0)
        clock.hold(now=5.0)
        self.assertEqual((clock.state().bpm, clock.state().charge), (120.0, "held"))
        clock.hold(127.4, now=5.0)
        clock.round(now=5.0)
        self.assertAlmostEqual(clock.state().bpm, 127.0)
        clock.release(now=5.0)
        self.assertEqual(clock.state().charge, "music")


class Settings(unittest.TestCase):
    def test_settings_are_kept(self):
        clock = Clock(beats_per_bar=3, slew=0.1, offset=-0.25, goes_on=True)
        self.assertEqual(
            (clock.beats_per_bar, clock.slew, clock.offset, clock.goes_on), (3, 0.1, -0.25, True)
        )
        clock = Clock()
        self.assertEqual(
            (clock.beats_per_bar, clock.slew, clock.offset, clock.goes_on), (4, 0.05, 0.0, False)
        )

    def test_setting_does_not_move_the_present(self):
        clock = playing()
        clock.offset = 0.1
        clock.set_playing(False, now=5.2)
        self.assertEqual(clock.state().tick_time(8), 5.1)
        self.assertIsNone(clock.state().tick_time(9))

    def test_numbers_outside_their_limits_are_refused(self):
        clock = playing()
        refused = (
            lambda: setattr(clock, "beats_per_bar", 13),
            lambda: setattr(clock, "slew", float("nan")),
            lambda: setattr(clock, "offset", 0.6),
            lambda: clock.hold(1000.0, now=5.0),
            lambda: clock.bend(0.6, now=5.0),
            lambda: clock.nudge(0.6, now=5.0),
            lambda: clock.scale(0, now=5.0),
            lambda: Clock().round(now=5.0),
            lambda: Clock(beats_per_bar=1),
            lambda: clock.tap(now=1e12),
        )
        for call in refused:
            self.assertRaises(audioanalyzer.RangeError, call)
        self.assertEqual(clock.state().bpm, 120.0)


class Life(unittest.TestCase):
    def test_state_outlives_its_clock(self):
        clock = playing()
        state = clock.state()
        del clock
        gc.collect()
        self.assertEqual(state.tick_time(9), 5.5)

    def test_states_are_whole_in_other_threads(self):
        clock = playing()
        seen, wrong = set(), []

        def read():
            while len(seen) < 20:
                state = clock.state()
                seen.add(state.beat(1e6))
                if state.tick_time(state.next_tick(6.0)) <= 6.0:
                    wrong.append(state)

        reader = threading.Thread(target=read)
        reader.start()
        bpm = 60.0
        while reader.is_alive():
            bpm = 60.0 if bpm > 200.0 else bpm + 1.0
            clock.hold(bpm, now=5.0)
        reader.join()
        self.assertEqual(wrong, [])


if __name__ == "__main__":
    unittest.main()
