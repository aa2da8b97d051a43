"""Any value gives exactly what the host tool prints for the same request,
and numpy's datetime64 in every unit agrees with Python's datetime objects."""

import datetime as dt
import zoneinfo

import numpy as np
import pandas as pd
import pytest
from hypothesis import assume, given
from hypothesis import strategies as st

import corvinel
from conftest import tool_lines

LOCALES = corvinel.locales()
FORMATS = {kind: [f for f in corvinel.formats() if f.kind == kind]
           for kind in ("number", "date", "datetime", "time")}


@st.composite
def requests(draw, kind):
    """A format of `kind` written with a width and decimals inside its
    limits (or left to its defaults), and a locale."""
    info = draw(st.sampled_from(FORMATS[kind]))
    text = info.name
    if draw(st.booleans()):
        width = draw(st.integers(info.min_width, min(info.max_width, 60)))
        decimals = draw(st.integers(info.min_decimals, min(info.max_decimals, 12)))
        text += f"{width}.{decimals}"
    return text, draw(st.sampled_from(LOCALES))


def host_date(d):
    return f"{d.year:04d}-{d.month:02d}-{d.day:02d}"


def host_time(t):
    return f"{t.hour:02d}:{t.minute:02d}:{t.second:02d}.{t.microsecond:06d}"


def in_host_calendar(d):
    """The host's calendar has no 29 February in years divisible by 4000."""
    return not (d.month == 2 and d.day == 29 and d.year % 4000 == 0)


@given(requests("number"), st.lists(st.floats(allow_nan=False), min_size=1, max_size=12))
def test_numbers_render_as_the_host_tool_renders_them(request, values):
    fmt, locale = request
    assert list(corvinel.format(np.array(values), fmt, locale)) == tool_lines(fmt, locale, [repr(v) for v in values])


@given(requests("date"), st.lists(st.dates().filter(in_host_calendar), min_size=1, max_size=12))
def test_dates_render_as_the_host_tool_renders_them(request, values):
    fmt, locale = request
    expected = tool_lines(fmt, locale, [host_date(d) for d in values])
    assert [corvinel.format(d, fmt, locale) for d in values] == expected
    # A datetime shows its date.
    noon = [dt.datetime.combine(d, dt.time(12, 30)) for d in values]
    assert list(corvinel.format(pd.Series(noon), fmt, locale)) == expected


@given(requests("datetime"), st.lists(st.datetimes().filter(in_host_calendar), min_size=1, max_size=12))
def test_datetimes_render_as_the_host_tool_renders_them(request, values):
    fmt, locale = request
    expected = tool_lines(fmt, locale, [f"{host_date(v)}T{host_time(v)}" for v in values])
    assert list(corvinel.format(values, fmt, locale)) == expected


@given(requests("time"), st.lists(st.times(), min_size=1, max_size=12))
def test_times_render_as_the_host_tool_renders_them(request, values):
    fmt, locale = request
    expected = tool_lines(fmt, locale, [host_time(t) for t in values])
    assert list(corvinel.format(values, fmt, locale)) == expected
    # A datetime gives its time of day.
    on_a_day = [dt.datetime.combine(dt.date(2003, 2, 24), t) for t in values]
    assert list(corvinel.format(np.array(on_a_day, dtype="datetime64[us]"), fmt, locale)) == expected


UNITS = ["D", "s", "ms", "us", "ns", "h", "m", "W", "M", "Y", "10ms"]


@given(st.sampled_from(UNITS), st.sampled_from(["NLDATE20.", "NLDATM40.", "NLTIME20.", "NLNUM32.3"]),
       st.lists(st.datetimes(min_value=dt.datetime(1678, 1, 1), max_value=dt.datetime(2261, 12, 31)),
                min_size=1, max_size=12))
def test_datetime64_in_any_unit_agrees_with_datetime_objects(unit, fmt, values):
    array = np.array(values, dtype="datetime64[us]").astype(f"datetime64[{unit}]")
    objects = [v.astype(dt.datetime) if unit != "ns" else pd.Timestamp(v) for v in array.astype("datetime64[us]")]
    if np.datetime_data(array.dtype)[0] in ("D", "W", "M", "Y"):
        objects = [o.date() for o in objects]  # days are dates
        assume(fmt != "NLTIME20.")
    assert list(corvinel.format(array, fmt, "de_DE")) == [corvinel.format(o, fmt, "de_DE") for o in objects]


@given(st.lists(st.datetimes(min_value=dt.datetime(1700, 1, 1), max_value=dt.datetime(2200, 1, 1)),
                min_size=1, max_size=12),
       st.sampled_from(["UTC", "Europe/Berlin", "America/New_York", "Asia/Kolkata"]))
def test_timezone_aware_values_show_their_wall_time(values, zone):
    aware = pd.Series(pd.DatetimeIndex(values)).dt.tz_localize(zone, ambiguous="NaT", nonexistent="NaT")
    wall = [None if pd.isna(v) else v.to_pydatetime().replace(tzinfo=None) for v in aware]
    expected = [corvinel.format(w, "NLDATM40.", "fr_FR") for w in wall]
    assert list(corvinel.format(aware, "NLDATM40.", "fr_FR")) == expected
    assert [corvinel.format(v, "NLDATM40.", "fr_FR") for v in aware] == expected
    assert list(corvinel.format(pd.DatetimeIndex(aware), "NLDATM40.", "fr_FR")) == expected


@pytest.mark.parametrize("fmt", ["NLDATE20.", "NLDATM30."])
def test_a_day_the_host_calendar_lacks_is_missing(fmt):
    # 29 February 4000 exists for numpy and Python, not for the host.
    leap_day = np.array(["4000-02-29", "4000-03-01"], dtype="datetime64[D]")
    text = corvinel.format(leap_day, fmt, "en_US", strip=True)
    assert text[0] == "." and text[1] != "."


def time_of_microseconds(micros):
    seconds, micro = divmod(int(micros), 10**6)
    hours, rest = divmod(seconds, 3600)
    return dt.time(hours, rest // 60, rest % 60, micro)


@given(st.sampled_from(["D", "h", "m", "s", "ms", "us", "ns", "30m"]),
       st.lists(st.times(), min_size=1, max_size=12))
def test_timedelta64_in_any_unit_agrees_with_time_objects(unit, values):
    micros = np.array([((t.hour * 60 + t.minute) * 60 + t.second) * 10**6 + t.microsecond for t in values])
    array = micros.astype("timedelta64[us]").astype(f"timedelta64[{unit}]")  # cut to the unit
    kept = [time_of_microseconds(us) for us in array.astype("timedelta64[us]").astype(np.int64)]
    expected = [corvinel.format(t, "NLTIME20.2", "sv_SE") for t in kept]
    assert list(corvinel.format(array, "NLTIME20.2", "sv_SE")) == expected


@given(st.lists(st.datetimes(min_value=dt.datetime(1970, 1, 2), max_value=dt.datetime(2200, 1, 1),
                             timezones=st.sampled_from([zoneinfo.ZoneInfo(z) for z in (
                                 "UTC", "Europe/Berlin", "America/St_Johns", "Asia/Kolkata", "Pacific/Chatham")])),
                min_size=1, max_size=12))
def test_zone_offsets_are_each_values_own(values):
    def written(offset):  # what "%z" writes: sign, hours, minutes
        minutes = int(offset.total_seconds()) // 60
        return f"{'-' if minutes < 0 else '+'}{abs(minutes) // 60:02d}{abs(minutes) % 60:02d}"

    expected = [written(v.utcoffset()) for v in values]
    one_by_one = [corvinel.format(v, "NLDATMTZ40.", "en_US", strip=True)[-5:] for v in values]
    series = pd.Series(values, dtype=object).map(pd.Timestamp)
    if len({v.tzinfo for v in values}) == 1:
        series = pd.Series(pd.DatetimeIndex(series))
    assert one_by_one == expected
    assert [text[-5:] for text in corvinel.format(series, "NLDATMTZ40.", "en_US", strip=True)] == expected
