# SPDX-License-Identifier: MIT
"""What can go wrong. The texts say what was refused, and its limits."""


class LibraryNotFoundError(ImportError):
    """libAudioAnalyzer is nowhere, or is of another major version."""


class AnalysisError(Exception):
    """The library refused. The base of all that follow."""


class RangeError(AnalysisError, ValueError):
    """A number lies outside its limits, or is none."""


class UnknownNameError(AnalysisError, LookupError):
    """There is no built-in profile of that name."""


class BusyError(AnalysisError, RuntimeError):
    """Called from a callback of the same analysis, which must not push, finish, restart or close."""


class FinishedError(AnalysisError, RuntimeError):
    """The analysis is finished; restart() begins another one."""


class ClosedError(AnalysisError, ValueError):
    """The analysis is closed."""
