"""Values as columns the binding reads: float64 numbers (or the host's own
values), datetime64 ticks or timedelta64 ticks, with the checks the host tool
makes when a date, datetime or time goes to a format of another kind."""

from __future__ import annotations

import datetime as _dt
import decimal
import numbers
from typing import Any, NamedTuple, Optional

import numpy as np

# Storage codes of the binding.
DOUBLE, DATETIME64, TIMEDELTA64 = 0, 1, 2
_KIND_CODES = {"number": 0, "date": 1, "datetime": 2, "time": 3}

# Units the binding reads directly: ticks per second (0: whole days).
_TICKS_PER_SECOND = {"D": 0, "s": 1, "ms": 10**3, "us": 10**6, "ns": 10**9}
# Every other unit is first cast to the nearest unit above that holds it.
_CAST_TO = {"Y": "D", "M": "D", "W": "D", "h": "s", "m": "s", "ps": "ns", "fs": "ns", "as": "ns"}


class Column(NamedTuple):
    data: np.ndarray  # one-dimensional
    storage: int
    ticks_per_second: int
    # Seconds east of UTC of each value's own zone (what "%z" shows), or
    # None for values without a zone.
    zone_offsets: Optional[np.ndarray] = None


def kind_code(kind: str) -> int:
    return _KIND_CODES[kind]


def _is_missing(value: Any) -> bool:
    if value is None or type(value).__name__ == "NAType":  # pandas' NA has no truth value
        return True
    try:
        return bool(value != value)  # NaN and NaT differ from themselves
    except (TypeError, ValueError):
        return False


def _ticks_column(array: np.ndarray) -> Column:
    unit, count = np.datetime_data(array.dtype)
    timedelta = array.dtype.kind == "m"
    if timedelta and unit in ("Y", "M"):
        raise ValueError(f"VALUE is not a number, date or time: a timedelta in unit {unit}")
    if unit == "generic":
        unit = "s" if timedelta else "D"
    target = _CAST_TO.get(unit, unit)
    if timedelta and target == "D":  # a time of day is read in seconds
        target = "s"
    if target != unit or count != 1:
        array = array.astype(f"{array.dtype.kind}8[{target}]")
    return Column(np.ascontiguousarray(array.view(np.int64)), TIMEDELTA64 if timedelta else DATETIME64,
                  _TICKS_PER_SECOND[target])


def _wall(value: _dt.datetime) -> np.datetime64:
    """A datetime's wall time in its own zone (pandas' Timestamps to the
    nanosecond)."""
    naive = value.replace(tzinfo=None) if value.tzinfo is not None else value
    return naive.to_datetime64() if hasattr(naive, "to_datetime64") else np.datetime64(naive, "us")


def _object_column(array: np.ndarray) -> Column:
    """Python objects of one kind (numbers, dates, datetimes or times, with
    None, NaN and NaT among them) as a typed column."""
    found = set()
    for value in array:
        if _is_missing(value):
            continue
        if isinstance(value, _dt.datetime):
            found.add("datetime")
        elif isinstance(value, _dt.date):
            found.add("date")
        elif isinstance(value, _dt.time):
            found.add("time")
        elif isinstance(value, (numbers.Real, decimal.Decimal, np.number)):
            found.add("number")
        elif isinstance(value, (np.datetime64, np.timedelta64)):
            found.add(value.dtype.kind)
        else:
            raise ValueError(f'VALUE is not a number, date or time: "{value}"')
    if found <= {"number"}:
        return Column(np.array([np.nan if _is_missing(v) else float(v) for v in array], dtype=np.float64),
                      DOUBLE, 0)
    if found <= {"date", "datetime", "M"}:
        nanoseconds = any(getattr(v, "nanosecond", 0) for v in array if not _is_missing(v))
        unit = "D" if found == {"date"} else "ns" if nanoseconds else "us"
        col = _ticks_column(np.array(
            [np.datetime64("NaT") if _is_missing(v) else
             _wall(v) if isinstance(v, _dt.datetime) else np.datetime64(v)
             for v in array], dtype=f"datetime64[{unit}]"))
        offsets = [None if _is_missing(v) or not isinstance(v, _dt.datetime) else v.utcoffset() for v in array]
        if any(offset is not None for offset in offsets):  # aware datetimes: each one's own offset
            col = col._replace(zone_offsets=np.array(
                [0 if offset is None else offset.total_seconds() for offset in offsets], dtype=np.int32))
        return col
    if found <= {"time", "m"}:
        return _ticks_column(np.array(
            [np.timedelta64("NaT") if _is_missing(v) else
             np.timedelta64(time_microseconds(v), "us") if isinstance(v, _dt.time) else v
             for v in array], dtype="timedelta64[us]"))
    raise ValueError("VALUE is not a number, date or time: the values mix " + " and ".join(sorted(found)))


def time_microseconds(value: _dt.time) -> int:
    return ((value.hour * 60 + value.minute) * 60 + value.second) * 10**6 + value.microsecond


def scalar_column(value: Any) -> Column:
    """One Python or numpy scalar as a column of one."""
    if isinstance(value, (np.datetime64, np.timedelta64)):
        return _ticks_column(np.array([value]))
    return column(np.array([value], dtype=object))


def zone_offsets(wall: Any, utc: Any) -> np.ndarray:
    """Seconds east of UTC from a pandas column's wall times and UTC times
    (both without zone); 0 where the value is missing."""
    seconds = (np.asarray(wall, dtype="datetime64[ns]") - np.asarray(utc, dtype="datetime64[ns]")).astype(
        "timedelta64[s]").astype(np.int64)
    return np.where(np.isnat(np.asarray(wall, dtype="datetime64[ns]")), 0, seconds).astype(np.int32)


def column(array: np.ndarray) -> Column:
    """A numpy array (any shape, flattened in C order) as a column."""
    flat = array.reshape(-1)
    kind = flat.dtype.kind
    if kind in "fiub":
        return Column(np.ascontiguousarray(flat, dtype=np.float64), DOUBLE, 0)
    if kind in "Mm":
        return _ticks_column(flat)
    if kind == "O":
        return _object_column(flat)
    raise ValueError(f"VALUE is not a number, date or time: an array of {flat.dtype}")


def _first_present(col: Column) -> str:
    ticks = col.data[col.data != np.iinfo(np.int64).min]
    if ticks.size == 0:
        return ""
    if col.storage == TIMEDELTA64:
        seconds = int(ticks[0]) // col.ticks_per_second
        return f"{seconds // 3600:02d}:{seconds // 60 % 60:02d}:{seconds % 60:02d}"
    return str(np.datetime64(int(ticks[0]), "D" if col.ticks_per_second == 0 else "s"))


def check_kind(col: Column, kind: str) -> None:
    """Refuses a time for a date or datetime format and a date for a time
    format, in the host tool's words."""
    if col.storage == TIMEDELTA64 and kind in ("date", "datetime"):
        present = _first_present(col)
        if present:
            raise ValueError(f'a time has no date: "{present}"')
    if col.storage == DATETIME64 and col.ticks_per_second == 0 and kind == "time":
        present = _first_present(col)
        if present:
            raise ValueError(f'a date has no time of day: "{present}"')
