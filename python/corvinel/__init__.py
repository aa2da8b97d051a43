"""corvinel for Python: whole numpy arrays and pandas columns rendered in one
call with the module's locale-aware formats.

>>> import corvinel
>>> corvinel.format(1234567.891, "NLNUM14.2", "de_DE")
'  1.234.567,89'

A format is written as the host writes it (``"NLNUM14.2"``, ``"NLDATE20."``,
``"NLMNIEUR"``), a locale by its code (``"de_DE"``).  See docs/python.md.
"""

from __future__ import annotations

import os
from typing import Any, Callable, List, Optional

import numpy as np

from . import _core
from ._requests import FormatInfo, locale_number, locale_records, parse_format, registry, session
from ._values import Column, check_kind, column, kind_code, scalar_column, zone_offsets

__all__ = ["FormatInfo", "Formatter", "format", "formats", "formatter", "locales", "__version__"]

#: The module's version (the ``corvinel_version`` it was built as).
__version__: str = _core.version


def formats() -> List[FormatInfo]:
    """The registry: every format with its width and decimal limits, its
    defaults and the kind of value it reads.

    Returns
    -------
    list of FormatInfo
        144 entries in registry order; ``kind`` is ``"number"``, ``"date"``,
        ``"datetime"`` or ``"time"``.
    """
    return [info for _, info in registry().values()]


def locales() -> List[str]:
    """The codes of the 136 compiled-in locales (``"de_DE"``, ``"ja_JP"``,
    ...), in the module's record order."""
    return [record.code for record in locale_records()]


def _default_threads() -> int:
    try:
        return len(os.sched_getaffinity(0))
    except AttributeError:  # not Linux
        return os.cpu_count() or 1


class Formatter:
    """A prepared request: format, locale and encoding resolved once, then
    applied to any value or column.  Made by :func:`formatter`."""

    def __init__(self, fmt: str, locale: Optional[str] = None, *, encoding: str = "utf-8",
                 strip: bool = False, threads: Optional[int] = None) -> None:
        self.fmt = fmt
        self.locale = locale
        self.encoding = encoding
        self.strip = strip
        self.threads = threads
        self._request = parse_format(fmt)
        self._locale_number = locale_number(locale)
        self._session = session(encoding)

    def __repr__(self) -> str:
        return f"corvinel.formatter({self.fmt!r}, {self.locale!r}, encoding={self.encoding!r})"

    def _render(self, col: Column) -> np.ndarray:
        kind = self._request.info.kind
        check_kind(col, kind)
        threads = self.threads if self.threads is not None else _default_threads()
        if threads < 1:
            raise ValueError(f"threads must be at least 1, not {threads}")
        return _core.render(col.data, col.storage, col.ticks_per_second, self._request.index,
                            self._request.width, self._request.decimals, self._locale_number,
                            kind_code(kind), self._session.handle, self._session.codeset, self.strip, threads,
                            col.zone_offsets)

    def __call__(self, values: Any) -> Any:
        return _apply(self, values)


def _apply(prepared: Formatter, values: Any) -> Any:
    pandas = _pandas_module(values)
    if pandas is not None:
        if isinstance(values, (pandas.Series, pandas.Index)):
            series = isinstance(values, pandas.Series)
            if isinstance(values.dtype, pandas.DatetimeTZDtype):
                wall = (values.dt if series else values).tz_localize(None)
                col = column(_series_values(pandas, wall))._replace(
                    zone_offsets=zone_offsets(wall, pandas.DatetimeIndex(values).tz_convert("UTC").tz_localize(None)))
            else:
                col = column(_series_values(pandas, values))
            text = prepared._render(col)
            if series:
                return pandas.Series(text, index=values.index, name=values.name, dtype=object)
            return pandas.Index(text, name=values.name, dtype=object)
        # A pandas scalar (Timestamp, NaT, NA) goes the scalar way.
    if isinstance(values, np.ndarray):
        return prepared._render(column(values)).reshape(values.shape)
    if isinstance(values, (list, tuple)):
        array = np.asarray(values) if values else np.zeros(0)
        return prepared._render(column(array)).reshape(array.shape)
    return str(prepared._render(scalar_column(values))[0])


def _pandas_module(values: Any) -> Any:
    """pandas, when ``values`` comes from it (so that plain numpy users never
    import it)."""
    module = type(values).__module__
    if module.startswith("pandas"):
        import pandas

        return pandas
    return None


def _series_values(pandas: Any, data: Any) -> np.ndarray:
    """A Series' or Index's values as numpy holds them; pandas' nullable
    numbers become floats with NaN for NA."""
    if isinstance(data.dtype, pandas.api.extensions.ExtensionDtype) and data.dtype.kind in "fiub":
        return data.to_numpy(dtype=np.float64, na_value=np.nan)
    return data.to_numpy()


def format(values: Any, fmt: str, locale: Optional[str] = None, *, encoding: str = "utf-8",
           strip: bool = False, threads: Optional[int] = None) -> Any:
    """Renders values with a format of the module, as the host renders them.

    Parameters
    ----------
    values : scalar, array_like, pandas.Series or pandas.Index
        ``float``, ``int``, ``datetime.date``, ``datetime.datetime``
        (timezone-aware ones in their own zone), ``datetime.time``, numpy
        arrays of numbers, ``datetime64`` (any unit) or ``timedelta64`` (a
        time of day), or a pandas Series or Index of these.  NaN, NaT, None
        and pandas' NA render the host's missing value.
    fmt : str
        A format as the host writes it: ``"NLNUM14.2"``, ``"NLDATE20."``,
        ``"NLMNIEUR"``, ``"NLNUM.2"``; a missing width or decimals takes the
        format's default.
    locale : str, optional
        A locale code such as ``"de_DE"`` (see :func:`locales`); by default
        the environment's ``ORB_LOCALE``, else ``"en_US"``.
    encoding : str, default "utf-8"
        The session encoding: a field's width counts its bytes, and a
        character it lacks shows as "?".  The result is ``str`` either way.
    strip : bool, default False
        Remove the blanks that pad the field.
    threads : int, optional
        Threads for a large array (default: the machine's cores); the result
        does not depend on it.

    Returns
    -------
    str, numpy.ndarray of str, pandas.Series or pandas.Index
        A ``str`` for a scalar; an array of the same shape (numpy's ``<U``
        dtype, as wide as the field) for an array; a Series or Index of
        ``str`` with the same index and name for a Series or Index.

    Raises
    ------
    ValueError
        For an unknown format or locale, a width or decimals outside the
        format's limits, or a value of a kind the format cannot take, in the
        words of the host tool ``corvinel-fmt``.
    """
    return _apply(Formatter(fmt, locale, encoding=encoding, strip=strip, threads=threads), values)


def formatter(fmt: str, locale: Optional[str] = None, *, encoding: str = "utf-8", strip: bool = False,
              threads: Optional[int] = None) -> Callable[[Any], Any]:
    """A callable that renders with ``fmt`` in ``locale``, for
    ``DataFrame.style.format`` and ``DataFrame.to_string(formatters=...)``.

    The request is checked once, here; the callable takes what
    :func:`format` takes.

    Examples
    --------
    >>> euro = corvinel.formatter("NLMNIEUR12.2", "fr_FR", strip=True)
    >>> df.style.format({"price": euro})  # doctest: +SKIP
    """
    return Formatter(fmt, locale, encoding=encoding, strip=strip, threads=threads)


try:  # the accessor s.nl, when pandas is there
    from . import _accessor  # noqa: F401
except ImportError:
    pass
