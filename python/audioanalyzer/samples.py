# SPDX-License-Identifier: MIT
"""Buffers to what the library takes. Private."""

import array
from typing import Any, Iterator, Optional, Tuple

from .errors import RangeError

PORTION = 1 << 16  #: frames given to the library at once

# Format of a buffer's items: bytes of an item, function.
_FORMATS = {"h": (2, "PushInt16"), "f": (4, "PushFloat"), "d": (8, "PushFloat")}


def _view(samples: Any) -> memoryview:
    try:
        return memoryview(samples)
    except TypeError:
        raise TypeError(
            f"samples are a buffer of 16-bit integers or floats, such as array.array, bytes or a numpy "
            f"array, not {type(samples).__name__}"
        ) from None


def _format(view: memoryview) -> str:
    """h, f or d. Bytes are 16-bit samples in the machine's byte order."""
    code = view.format.lstrip("@=")
    if code in ("B", "b", "c"):
        return "h"
    if code not in _FORMATS:
        raise TypeError(
            f"samples are 16-bit integers, floats or bytes in the machine's order, not of format "
            f"{view.format!r}"
        )
    return code


def _channels(view: memoryview, channels: Optional[int]) -> int:
    """Given, or the second dimension of frames x channels, or 1."""
    shape = view.shape or ()
    if len(shape) > 2:
        raise RangeError(f"samples have one dimension, or frames x channels, not {len(shape)}")
    if len(shape) < 2:
        return 1 if channels is None else channels
    if channels is not None and channels != shape[1]:
        raise RangeError(f"the samples have {shape[1]} channels, not {channels}")
    return shape[1]


def portions(samples: Any, channels: Optional[int]) -> Iterator[Tuple[str, bytes, int, int]]:
    """Function, bytes, frames and channels of each portion. Raises TypeError and RangeError."""
    view = _view(samples)
    code = _format(view)
    count = _channels(view, channels)
    size, function = _FORMATS[code]
    is_flat = view.c_contiguous and view.nbytes > 0 and len(view.format) == 1
    raw = view.cast("B") if is_flat else memoryview(view.tobytes())
    if count < 1:
        # The library says what is wrong with it.
        yield function, b"", 0, count
        return
    frame = size * count
    if raw.nbytes % frame != 0:
        raise RangeError(f"{raw.nbytes} bytes are no whole number of frames of {frame} bytes")
    for start in range(0, max(raw.nbytes, 1), PORTION * frame):
        data = raw[start : start + PORTION * frame].tobytes()
        frames = len(data) // frame
        if code == "d":
            data = array.array("f", array.array("d", data)).tobytes()
        yield function, data, frames, count
