"""The pandas accessor ``nl``: ``series.nl.format("NLMNY12.2", "de_DE")``."""

from __future__ import annotations

from typing import Any, Optional

import pandas as pd


class _NlAccessor:
    def __init__(self, values: Any) -> None:
        self._values = values

    def format(self, fmt: str, locale: Optional[str] = None, *, encoding: str = "utf-8", strip: bool = False,
               threads: Optional[int] = None) -> Any:
        """The Series (or Index) rendered by :func:`corvinel.format`, with
        the same index and name."""
        from . import format as render

        return render(self._values, fmt, locale, encoding=encoding, strip=strip, threads=threads)


pd.api.extensions.register_series_accessor("nl")(_NlAccessor)
pd.api.extensions.register_index_accessor("nl")(_NlAccessor)
