"""corvinel on Dask: a Dask Series rendered partition by partition.

>>> import corvinel.dask
>>> text = corvinel.dask.format(ddf["amount"], "NLMNY12.2", "de_DE")  # doctest: +SKIP
"""

from __future__ import annotations

from typing import Any, Optional

import pandas as pd

from . import Formatter


def _format_partition(partition: pd.Series, fmt: str, locale: Optional[str], encoding: str, strip: bool,
                      threads: Optional[int]) -> pd.Series:
    return Formatter(fmt, locale, encoding=encoding, strip=strip, threads=threads)(partition)


def format(series: Any, fmt: str, locale: Optional[str] = None, *, encoding: str = "utf-8", strip: bool = False,
           threads: Optional[int] = None) -> Any:
    """A Dask Series rendered by :func:`corvinel.format`, partition by
    partition, on whatever scheduler computes it.

    The request is checked here, before anything runs; the result is a
    lazy Dask Series of ``str`` (object dtype) with the same index,
    divisions and name, declared by an explicit ``meta`` so that Dask never
    calls the format on made-up data.

    Parameters
    ----------
    series : dask.dataframe.Series
        Numbers, datetimes (timezone-aware ones in their own zone) or
        timedeltas.
    fmt, locale, encoding, strip, threads
        As for :func:`corvinel.format`; ``threads`` counts the threads of
        each partition's call.
    """
    Formatter(fmt, locale, encoding=encoding, strip=strip, threads=threads)  # refuses a bad request now
    meta = pd.Series([], dtype=object, name=series.name, index=series._meta.index)
    return series.map_partitions(_format_partition, fmt, locale, encoding, strip, threads, meta=meta)
