"""Requests as the host tool reads them: a format written ``NAME``,
``NAMEw.``, ``NAMEw.d`` or ``NAME.d``, a locale name such as ``de_DE``, and the
session encoding, with the tool's words for every mistake."""

from __future__ import annotations

import gzip
import os
import re
import shutil
import subprocess
import tempfile
import threading
from dataclasses import dataclass
from functools import lru_cache
from pathlib import Path
from typing import NamedTuple, Optional

from . import _core

# Widths above this are refused, as the host tool refuses them.
_MAX_WIDTH = 65535
_INT32_MAX = 2**31 - 1
_CHARMAPS = Path("/usr/share/i18n/charmaps")


class FormatInfo(NamedTuple):
    """One registry entry: limits and defaults of a format and the kind of
    value it reads ("number", "date", "datetime" or "time")."""

    name: str
    min_width: int
    max_width: int
    default_width: int
    min_decimals: int
    max_decimals: int
    default_decimals: int
    kind: str


_KINDS = ("number", "date", "datetime", "time")


def value_kind(name: str) -> str:
    """The kind of value a format reads, decided by its name as the host
    tool decides it."""
    if name.startswith("NLDATM"):
        return "datetime"
    if name.startswith("NLDATE"):
        return "date"
    if name in ("NLTIME", "NLTIMAP"):
        return "time"
    return "number"


@lru_cache(maxsize=None)
def registry() -> dict[str, tuple[int, FormatInfo]]:
    """Registry position and entry by name."""
    entries = {}
    for index, row in enumerate(_core.registry()):
        name, minw, maxw, defw, mind, maxd, defd, _ = row
        entries[name] = (index, FormatInfo(name, minw, maxw, defw, mind, maxd, defd, value_kind(name)))
    return entries


def _parse_int(text: str, what: str, low: int, high: int) -> int:
    if not re.fullmatch(r"-?[0-9]+", text):
        raise ValueError(f'{what} is not a number: "{text}"')
    number = int(text)
    if not low <= number <= high:
        raise ValueError(f"{what} {text} is out of range ({low}..{high})")
    return number


@dataclass(frozen=True)
class FormatRequest:
    """A format resolved against the registry."""

    index: int
    info: FormatInfo
    width: int
    decimals: int


@lru_cache(maxsize=512)
def parse_format(text: str) -> FormatRequest:
    """Resolves ``"NLNUM14.2"``; raises ValueError in the host tool's words."""
    match = re.match(r"[A-Za-z]*", text)
    name = match.group(0).upper()
    if not name:
        raise ValueError(f'FORMAT does not start with a name: "{text}"')
    rest = text[match.end():]
    width_text, dot, decimals_text = rest.partition(".")
    width = _parse_int(width_text, f'width in "{text}"', 0, _MAX_WIDTH) if width_text else None
    decimals = _parse_int(decimals_text, f'decimals in "{text}"', 0, _INT32_MAX) if dot and decimals_text else None
    if name not in registry():
        raise ValueError(f'unknown format "{name}" (corvinel.formats() lists the formats)')
    index, info = registry()[name]
    width = info.default_width if width is None else width
    decimals = info.default_decimals if decimals is None else decimals
    for what, value, low, high in (("width", width, info.min_width, info.max_width),
                                   ("decimals", decimals, info.min_decimals, info.max_decimals)):
        if value > high:
            raise ValueError(f"{name}: {what} {value} is above the maximum {high}")
        if value < low:
            raise ValueError(f"{name}: {what} {value} is below the minimum {low}")
    return FormatRequest(index, info, width, decimals)


class _LocaleRecord(NamedTuple):
    code: str
    language: str
    country: str
    language_name: str
    country_name: str


@lru_cache(maxsize=None)
def locale_records() -> tuple[_LocaleRecord, ...]:
    return tuple(_LocaleRecord(f"{language}_{country}", language, country, language_name, country_name)
                 for language, country, language_name, country_name in _core.locale_records())


def _edit_distance(a: str, b: str) -> int:
    a, b = a.lower(), b.lower()
    row = list(range(len(b) + 1))
    for i in range(1, len(a) + 1):
        diagonal, row[0] = row[0], i
        for j in range(1, len(b) + 1):
            above = row[j]
            row[j] = min(row[j] + 1, row[j - 1] + 1, diagonal + (a[i - 1] != b[j - 1]))
            diagonal = above
    return row[len(b)]


def _nearest(name: str) -> list[str]:
    """Up to six locale codes close to ``name``, ranked as the host tool
    ranks them."""
    wanted = name.lower()
    ranked = []
    for record in locale_records():
        rank = _edit_distance(name[:5], record.code) + 2
        if wanted in (record.language_name.lower(), record.country_name.lower()):
            rank = 0
        if len(wanted) >= 2 and wanted[:2] == record.language.lower():
            rank = min(rank, 1)
        if len(wanted) == 2 and wanted == record.country.lower():
            rank = min(rank, 1)
        if rank <= 3:
            ranked.append((rank, record.code))
    ranked.sort(key=lambda pair: pair[0])
    return [code for _, code in ranked[:6]]


@lru_cache(maxsize=512)
def locale_number(name: Optional[str]) -> int:
    """The record (1..136) a locale name selects: its first two characters
    against the language code, its fourth and fifth against the country
    code, ignoring case, as ORB_LOCALE is matched.  None means ORB_LOCALE,
    else en_US."""
    if name is None:
        name = os.environ.get("ORB_LOCALE") or "en_US"
    if len(name) >= 5:
        language, country = name[:2].lower(), name[3:5].lower()
        for number, record in enumerate(locale_records(), start=1):
            if record.language.lower() == language and record.country.lower() == country:
                return number
    message = f'unknown locale "{name}"'
    codes = _nearest(name)
    if codes:
        message += "; nearest: " + " ".join(codes)
    raise ValueError(message)


class Session(NamedTuple):
    handle: int
    codeset: str


_sessions: dict[str, Session] = {}
_sessions_lock = threading.Lock()


def _charmap(encoding: str) -> Optional[str]:
    """The name of the C library's character map for ``encoding``
    ("latin-1", "ISO8859-1", "euc_jp", "cp1252"), or None."""
    wanted = re.sub(r"[^a-z0-9]", "", encoding.lower())
    aliases = {"latin1": "iso88591", "l1": "iso88591", "latin9": "iso885915", "sjis": "shiftjis",
               "eucjp": "eucjp", "ujis": "eucjp"}
    wanted = aliases.get(wanted, wanted)
    if not _CHARMAPS.is_dir():
        return None
    for path in _CHARMAPS.iterdir():
        name = path.name[:-3] if path.name.endswith(".gz") else path.name
        if re.sub(r"[^a-z0-9]", "", name.lower()) == wanted:
            return name
    return None


def _locale_directory() -> Path:
    base = os.environ.get("XDG_CACHE_HOME") or os.path.join(os.path.expanduser("~"), ".cache")
    directory = Path(base) / "corvinel" / "locales"
    try:
        directory.mkdir(parents=True, exist_ok=True)
    except OSError:
        directory = Path(tempfile.gettempdir()) / f"corvinel-locales-{os.getuid()}"
        directory.mkdir(parents=True, exist_ok=True)
    return directory


def _compiled_session(charmap: str) -> Session:
    """A C locale in ``charmap`` compiled with localedef into the user's
    cache (the system's locale directory is never touched) and opened with
    LOCPATH naming that cache for the moment of the opening."""
    directory = _locale_directory()
    name = f"C.{charmap}"
    target = directory / name
    if not (target / "LC_CTYPE").exists():
        partial = Path(tempfile.mkdtemp(prefix=name + ".", dir=directory))
        source = _CHARMAPS / (charmap + ".gz")
        with tempfile.NamedTemporaryFile("wb", dir=directory, suffix=".charmap") as plain:
            plain.write(gzip.decompress(source.read_bytes()) if source.exists() else (_CHARMAPS / charmap).read_bytes())
            plain.flush()
            # localedef exits with 1 for warnings about the sources; what
            # counts is a complete locale.
            subprocess.run(["localedef", "-i", "C", "-f", plain.name, str(partial / name)],
                           stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, check=False)
        if (partial / name / "LC_CTYPE").exists() and not target.exists():
            os.replace(partial / name, target)
        shutil.rmtree(partial, ignore_errors=True)
    saved = os.environ.get("LOCPATH")
    os.environ["LOCPATH"] = str(directory)
    try:
        return Session(*_core.open_session(name))
    finally:
        if saved is None:
            del os.environ["LOCPATH"]
        else:
            os.environ["LOCPATH"] = saved


def session(encoding: str) -> Session:
    """The session whose codeset is ``encoding``: the width of a field
    counts its bytes and a character it lacks shows as "?"."""
    with _sessions_lock:
        if encoding in _sessions:
            return _sessions[encoding]
        compact = re.sub(r"[^a-z0-9]", "", encoding.lower())
        if compact in ("utf8",):
            opened = Session(*_core.open_session("C.UTF-8"))
        elif compact in ("ascii", "usascii", "ansix341968"):
            opened = Session(*_core.open_session("C"))
        else:
            charmap = _charmap(encoding)
            if charmap is None:
                raise ValueError(f'unknown encoding "{encoding}"')
            opened = Session(*_core.open_session(f"C.{charmap}"))
            if not opened.handle:
                opened = _compiled_session(charmap)
            if not opened.handle:
                raise ValueError(f'no session locale could be made for encoding "{encoding}"')
        _sessions[encoding] = opened
        return opened
