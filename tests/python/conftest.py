"""Shared by the Python tests: the host tool corvinel-fmt as the reference
and the hypothesis profiles (CI runs a fixed set of examples)."""

import os
import subprocess
from pathlib import Path

import pytest
from hypothesis import HealthCheck, settings

settings.register_profile("ci", derandomize=True, deadline=None, database=None, print_blob=True,
                          suppress_health_check=[HealthCheck.too_slow])
settings.register_profile("dev", deadline=None)
settings.load_profile(os.environ.get("CORVINEL_HYPOTHESIS_PROFILE", "dev"))

ROOT = Path(__file__).resolve().parents[2]


def tool_path() -> str:
    path = os.environ.get("CORVINEL_FMT") or str(ROOT / "build" / "default" / "corvinel-fmt")
    if not os.access(path, os.X_OK):
        pytest.fail(f"no host tool at {path}: build it (cmake --build --preset default) or set CORVINEL_FMT")
    return path


def run_tool(fmt: str, locale: str, values: list) -> subprocess.CompletedProcess:
    """corvinel-fmt in a UTF-8 session, the way a user runs it."""
    environment = {key: value for key, value in os.environ.items() if key not in ("LC_ALL", "ORB_LOCALE")}
    environment["LANG"] = "C.UTF-8"
    return subprocess.run([tool_path(), "--locale", locale, "--", fmt, *values], capture_output=True,
                          env=environment, check=False)


def tool_lines(fmt: str, locale: str, values: list) -> list:
    """What the tool prints for each value, as text."""
    result = run_tool(fmt, locale, values)
    assert result.returncode == 0, result.stderr.decode()
    lines = result.stdout.decode("utf-8").split("\n")
    assert lines[-1] == ""
    return lines[:-1]


def tool_error(fmt: str, locale: str, values: list) -> str:
    """The tool's complaint about a request, without its name in front."""
    result = run_tool(fmt, locale, values)
    assert result.returncode == 2, result
    return result.stderr.decode().strip().removeprefix("corvinel-fmt: ")
