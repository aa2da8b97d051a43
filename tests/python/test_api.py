"""The package's surface: what comes back for each kind of input, missing
values, the host tool's words for bad requests, encodings, threads, and the
installed package finding its own module."""

import datetime as dt
import subprocess
from pathlib import Path

import numpy as np
import pandas as pd
import pytest

import corvinel
from conftest import run_tool, tool_error, tool_lines, tool_path


@pytest.mark.parametrize("fmt, locale", [
    ("NLFOO", "de_DE"),
    ("NLNUM1x.2", "de_DE"),
    ("NLNUM12.x", "de_DE"),
    ("12.2", "de_DE"),
    ("NLNUM99999999", "de_DE"),
    ("NLNUM14.2", "xx_YY"),
    ("NLNUM14.2", "German"),
    ("NLNUM14.2", "de"),
])
def test_bad_requests_raise_the_host_tools_words(fmt, locale):
    with pytest.raises(ValueError) as raised:
        corvinel.format(1.0, fmt, locale)
    # The same words; where the tool points to its --list, the package
    # points to corvinel.formats().
    ours, tools = str(raised.value), tool_error(fmt, locale, ["1"])
    assert ours.replace("corvinel.formats() lists", "corvinel-fmt --list shows") == tools


@pytest.mark.parametrize("fmt", ["NLNUM33.2", "NLDATE9.", "NLNUM12.32", "NLSTRMON10.4"])
def test_limits_outside_the_registry_raise_with_the_tools_note(fmt):
    with pytest.raises(ValueError) as raised:
        corvinel.format(1.0, fmt, "de_DE")
    note = run_tool(fmt, "de_DE", ["1"]).stderr.decode().splitlines()[0]
    assert note == "corvinel-fmt: note: " + str(raised.value)


@pytest.mark.parametrize("value, fmt, words", [
    (dt.time(16, 24, 43), "NLDATE20.", 'a time has no date: "16:24:43"'),
    (np.timedelta64(59083, "s"), "NLDATM30.", 'a time has no date: "16:24:43"'),
    (dt.date(2003, 2, 24), "NLTIME", 'a date has no time of day: "2003-02-24"'),
])
def test_a_value_of_the_wrong_kind_is_refused_as_the_tool_refuses_it(value, fmt, words):
    with pytest.raises(ValueError, match=words):
        corvinel.format(value, fmt, "de_DE")
    assert tool_error(fmt, "de_DE", [words.split('"')[1]]) == words


@pytest.mark.parametrize("value", ["text", b"bytes", [dt.date(2003, 2, 24), 1.5], object()])
def test_values_that_are_no_number_date_or_time_are_refused(value):
    with pytest.raises(ValueError, match="VALUE is not a number, date or time") as raised:
        corvinel.format(np.array(value, dtype=object) if isinstance(value, list) else value, "NLNUM12.2")
    if isinstance(value, str):
        assert str(raised.value) == tool_error("NLNUM12.2", "en_US", [value])


MISSING = [None, float("nan"), np.nan, pd.NaT, pd.NA, np.datetime64("NaT"), np.timedelta64("NaT")]


@pytest.mark.parametrize("value", MISSING, ids=repr)
@pytest.mark.parametrize("fmt", ["NLNUM14.2", "NLDATE20.", "NLDATM30.", "NLTIME20."])
def test_missing_values_render_the_hosts_missing_value(value, fmt):
    expected = tool_lines(fmt, "de_DE", ["."])[0]
    assert corvinel.format(value, fmt, "de_DE") == expected
    assert list(corvinel.format(pd.Series([value, None], dtype=object), fmt, "de_DE")) == [expected] * 2


@pytest.mark.parametrize("mark", ["A", "Z", "_"])
def test_the_hosts_special_missing_values_keep_their_mark(mark):
    # NaNs with the top 16 bits set and the negated index of the mark in
    # " _.ABC..Z" in bits 47..40.
    code = -(" _.ABCDEFGHIJKLMNOPQRSTUVWXYZ".index(mark)) & 0xFF
    value = np.array([0xFFFF000000000000 | code << 40], dtype=np.uint64).view(np.float64)
    assert list(corvinel.format(value, "NLNUM10.2", "de_DE")) == tool_lines("NLNUM10.2", "de_DE", ["." + mark])


def test_pandas_nullable_columns_render_na_as_missing():
    ints = pd.Series([1234, None, -5], dtype="Int64")
    assert list(corvinel.format(ints, "NLNUM8.0", "de_DE", strip=True)) == ["1.234", ".", "-5"]


def test_the_result_has_the_inputs_shape_index_and_name():
    grid = np.arange(6.0).reshape(2, 3) * 1000
    text = corvinel.format(grid, "NLNUM10.1", "de_DE", strip=True)
    assert text.shape == (2, 3) and text.dtype == np.dtype("<U10") and text[1, 2] == "5.000,0"

    series = pd.Series([1.5, 2.5], index=["a", "b"], name="price")
    rendered = series.nl.format("NLMNY12.2", "de_DE")
    assert rendered.index.tolist() == ["a", "b"] and rendered.name == "price" and rendered.dtype == object
    assert isinstance(corvinel.format(np.float32(1.5), "NLNUM8.1"), str)
    index = pd.Index(pd.to_datetime(["2003-02-24"]), name="day")
    assert corvinel.format(index, "NLDATE20.", "de_DE").equals(pd.Index(["24. Februar 2003"], name="day"))
    assert corvinel.format([], "NLNUM8.1").shape == (0,)


def test_formatter_serves_pandas_styling_and_to_string():
    frame = pd.DataFrame({"amount": [1234.5, -0.25], "day": pd.to_datetime(["2003-02-24", "2024-12-31"])})
    amount = corvinel.formatter("NLMNIEUR15.2", "fr_FR", strip=True)
    day = corvinel.formatter("NLDATE20.", "fr_FR")
    table = frame.to_string(formatters={"amount": amount, "day": day})
    assert "1 234,50 EUR" in table.replace("\u202f", " ").replace("\xa0", " ") and "24 février 2003" in table
    html = frame.style.format({"amount": amount, "day": day}).to_html()
    assert "31 décembre 2024" in html
    with pytest.raises(ValueError, match='unknown locale "zz"'):
        corvinel.formatter("NLNUM8.1", "zz")


@pytest.mark.parametrize("encoding, expected", [
    ("utf-8", "2003年 2月24日 月曜日"),
    ("EUC-JP", "2003年 2月24日 月曜日"),
    ("latin-1", "2003? 2?24? ???"),
    ("ascii", "2003? 2?24? ???"),
])
def test_the_session_encoding_decides_which_characters_the_field_can_hold(encoding, expected):
    assert corvinel.format(dt.date(2003, 2, 24), "NLDATEW29.", "ja_JP", encoding=encoding) == expected


def test_the_width_counts_bytes_of_the_session_encoding():
    # "24 février 2003" is 16 bytes in UTF-8 and 15 in Latin-1.
    day = dt.date(2003, 2, 24)
    assert corvinel.format(day, "NLDATE15.", "fr_FR", encoding="latin-1") == "24 février 2003"
    assert corvinel.format(day, "NLDATE15.", "fr_FR", encoding="utf-8") != "24 février 2003"
    with pytest.raises(ValueError, match='unknown encoding "no-such-code"'):
        corvinel.format(day, "NLDATE15.", "fr_FR", encoding="no-such-code")


def test_threads_split_the_column_without_changing_a_character():
    rng = np.random.default_rng(7)
    values = rng.normal(0, 1e6, 200_000)
    values[::97] = np.nan
    one = corvinel.format(values, "NLMNY14.2", "de_DE", threads=1)
    assert np.array_equal(one, corvinel.format(values, "NLMNY14.2", "de_DE", threads=3))
    days = np.datetime64("2100-01-01") - np.arange(200_000).astype("timedelta64[D]")
    assert np.array_equal(corvinel.format(days, "NLDATE20.", "fi_FI", threads=1),
                          corvinel.format(days, "NLDATE20.", "fi_FI", threads=4))
    with pytest.raises(ValueError, match="threads"):
        corvinel.format(values, "NLNUM12.2", threads=0)


def test_large_results_reuse_memory_without_old_text():
    # The memory of a large result numpy freed serves the next one: nothing
    # of the earlier text may show, and a result still alive keeps its own.
    amounts = np.arange(300_000) * 1.25
    wide = corvinel.format(amounts, "NLNUM32.2", "de_DE")  # 38 MB, right-aligned
    alive = corvinel.format(amounts, "NLNUM32.2", "fr_FR")
    assert not np.shares_memory(wide, alive)
    del wide
    short = corvinel.format(amounts, "NLNUM32.2", "de_DE", strip=True)
    assert not np.shares_memory(short, alive)
    # Pieces under a megabyte come from numpy's own memory.
    pieces = [corvinel.format(amounts[i:i + 5000], "NLNUM32.2", "de_DE", strip=True)
              for i in range(0, amounts.size, 5000)]
    assert np.array_equal(short, np.concatenate(pieces))
    assert short[1000] == "1.250,00"
    assert np.array_equal(alive[:5000], corvinel.format(amounts[:5000], "NLNUM32.2", "fr_FR"))


def test_registry_locales_and_version_match_the_module():
    registry = corvinel.formats()
    assert len(registry) == 144 and len(corvinel.locales()) == 136
    listed = subprocess.run([tool_path(), "--list"], capture_output=True, text=True, check=True).stdout
    for info, line in zip(registry, listed.splitlines(), strict=True):
        assert line.startswith(f"{info.name} ")
        assert f"width {info.min_width}..{info.max_width} ({info.default_width})" in line
        assert f"decimals {info.min_decimals}..{info.max_decimals} ({info.default_decimals})" in line
    kinds = {info.name: info.kind for info in registry}
    assert [kinds[name] for name in ("NLDATMW", "NLDATEYQ", "NLTIMAP", "NLMNIEUR", "NLSTRWK")] == [
        "datetime", "date", "time", "number", "number"]
    version = subprocess.run([tool_path(), "--version"], capture_output=True, text=True, check=True).stdout
    assert version.split() == ["corvinel-fmt", corvinel.__version__]


def test_the_installed_package_carries_its_module():
    binding = Path(corvinel._core.__file__)
    carried = binding.parent / "libcorvinel.so.0"
    assert carried.is_file()
    linked = subprocess.run(["ldd", str(binding)], capture_output=True, text=True, check=True).stdout
    assert f"libcorvinel.so.0 => {carried}" in linked

