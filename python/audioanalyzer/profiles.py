# SPDX-License-Identifier: MIT
"""Tempo profiles."""

import ctypes
from dataclasses import dataclass
from typing import Dict

from .library import ProfileRecord, library


@dataclass(frozen=True)
class Profile:
    """The tempo range, the filter band and the threshold behaviour for a kind of music."""

    minimal_bpm: float  #: 1 <= minimal_bpm <= maximal_bpm < 1000
    maximal_bpm: float  #: BPM
    sensibility: float = 2.0  #: automatic threshold over average volume, 0 to 1000
    low_frequency: int = -1  #: lower edge of the band, Hz; -1 = none
    high_frequency: int = -1  #: upper edge of the band, Hz; -1 = none
    maximal_threshold: int = 32000  #: bound of the automatic threshold, 0 to 32767


def to_record(profile: Profile) -> ProfileRecord:
    return ProfileRecord(
        profile.minimal_bpm,
        profile.maximal_bpm,
        profile.sensibility,
        profile.low_frequency,
        profile.high_frequency,
        profile.maximal_threshold,
    )


def from_record(record: ProfileRecord) -> Profile:
    return Profile(
        record.minimal_bpm,
        record.maximal_bpm,
        record.sensibility,
        record.low_frequency,
        record.high_frequency,
        record.maximal_threshold,
    )


def profiles() -> Dict[str, Profile]:
    """The built-in profiles by their names."""
    found = library()
    result: Dict[str, Profile] = {}
    while (name := found.call("GetProfileName", len(result))) is not None:
        record = ProfileRecord()
        found.check(found.call("FindProfile", name, ctypes.byref(record)), None)
        result[name.decode()] = from_record(record)
    return result
