#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Prints cases of annotated and estimated beats with the scores that mir_eval gives them.

    mir_eval_cases.py fixtures       cases made by hand
    mir_eval_cases.py SEED COUNT     random ones; the same seed gives the same cases

Four lines a case: its name, the annotated beats, the estimated beats, the scores.
"""
import random
import sys
import warnings

import mir_eval
import numpy as np

SCORES = ("F-measure", "Cemgil", "P-score", "Correct Metric Level Continuous",
          "Correct Metric Level Total", "Any Metric Level Continuous", "Any Metric Level Total",
          "Information gain")


def grid(interval, count, start=5.0):
    return [start + i * interval for i in range(count)]


def fixtures():
    beats = grid(0.5, 40)
    yield "equal", beats, beats
    for milliseconds in (-70, -69, 40, 69, 70, 71, 87, 88, 124, 126):
        yield f"late by {milliseconds} ms", beats, [beat + milliseconds / 1000 for beat in beats]
    yield "off the beat", beats, [beat + 0.25 for beat in beats]
    yield "twice as fast", beats, grid(0.25, 79)
    yield "half as fast", beats, beats[::2]
    yield "half as fast, even beats", beats, beats[1::2]
    yield "three times as fast", beats, grid(0.5 / 3, 118)
    yield "a little too fast", beats, grid(0.48, 41)
    yield "every fourth is missing", beats, [b for i, b in enumerate(beats) if i % 4 != 3]
    yield "two for each", beats, sorted(beats + [beat + 0.03 for beat in beats])
    yield "nothing found", beats, []
    yield "nothing annotated", [], beats
    yield "nothing at all", [], []
    yield "one beat each", [6.0], [6.05]
    yield "one beat found", beats, [6.0]
    yield "two beats each", [6.0, 6.5], [6.02, 6.5]
    yield "all before the fifth second", grid(0.5, 8, 0.5), grid(0.5, 8, 0.5)
    yield "from before the fifth second", grid(0.5, 30, 0.25), grid(0.5, 30, 0.3)
    yield "beats that fall together", sorted(beats + beats[10:13]), beats
    yield "estimates that fall together", beats, sorted(beats + beats[10:13])
    yield "begins late, ends early", beats, beats[10:30]
    yield "estimate goes on", beats[:20], beats


def annotation(rng):
    tempo, drift, time, beats = rng.uniform(50, 220), rng.uniform(0, 0.1), rng.uniform(0, 7), []
    jitter = rng.choice((0.0, 0.0, 0.005, 0.05))
    count = rng.choice((0, 1, 2, 3, 4, 10, 20, 30, 40, 50))
    for i in range(count):
        beats.append(max(0.0, time + rng.gauss(0, jitter)))
        time += 60 / tempo * (1 + drift * np.sin(i / 9))
        if rng.random() < 0.01:
            time += rng.uniform(0, 4)
    return sorted(beats)


def halves(beats):
    return sorted(beats + [(a + b) / 2 for a, b in zip(beats, beats[1:])])


def estimate(rng, beats):
    shift = rng.uniform(-0.3, 0.3) if rng.random() < 0.3 else rng.gauss(0, 0.03)
    jitter = rng.choice((0.0, 0.001, 0.01, 0.03, 0.1))
    change = rng.choice(("none", "none", "twice", "half", "even", "off", "other", "random"))
    if change == "twice":
        beats = halves(beats)
    elif change == "half":
        beats = beats[::2]
    elif change == "even":
        beats = beats[1::2]
    elif change == "off":
        beats = halves(beats)[1::2]
    elif change == "other":
        beats = annotation(rng)
    elif change == "random":
        beats = [rng.uniform(0, 30) for _ in range(rng.randrange(60))]
    lost = rng.choice((0.0, 0.0, 0.02, 0.3))
    result = [b + shift + rng.gauss(0, jitter) for b in beats if rng.random() >= lost]
    if rng.random() < 0.2:
        result += [rng.uniform(0, 30) for _ in range(rng.randrange(10))]
    return sorted(max(0.0, beat) for beat in result)


def random_cases(rng):
    while True:
        beats = annotation(rng)
        found = estimate(rng, beats)
        # On a grid beats fall together, and right upon the edges of windows and bins.
        step = rng.choice((0, 0, 0, 0.001, 0.005, 0.01, 0.07))
        if step:
            beats, found = ([round(beat / step) * step for beat in list] for list in (beats, found))
        yield "random", beats, found


def scores(beats, found):
    """Nothing when mir_eval fails or finds no number: all beats of a side fall together."""
    try:
        result = mir_eval.beat.evaluate(np.array(beats, dtype=float), np.array(found, dtype=float))
    except (ValueError, IndexError):
        return None
    values = [float(result[score]) for score in SCORES]
    return values if np.all(np.isfinite(values)) else None


def main():
    warnings.simplefilter("ignore")
    np.seterr(all="ignore")
    if sys.argv[1] == "fixtures":
        cases, count = fixtures(), len(list(fixtures()))
    else:
        cases, count = random_cases(random.Random(int(sys.argv[1]))), int(sys.argv[2])
    while count > 0:
        name, beats, found = next(cases)
        values = scores(beats, found)
        if values is None:
            continue
        count -= 1
        print(name, *(" ".join(map(repr, line)) for line in (beats, found, values)), sep="\n")


main()
