#!/usr/bin/env python3
"""corvinel.format on a million values against what Python users have:
Babel's format_decimal, format_currency and format_date (one call per
value) and pandas' Series.dt.strftime; and corvinel on two threads against
one.  Every row is the median of --repeat runs in this one process; the
table is Markdown.

Run from a venv made of Debian's python3 with --system-site-packages in
which the package is installed:

    /usr/bin/python3 -m venv --system-site-packages /tmp/venv
    /tmp/venv/bin/pip install --no-build-isolation .
    /tmp/venv/bin/python bench/python/format_columns.py
"""

from __future__ import annotations

import argparse
import datetime as dt
import os
import statistics
import threading
import time
from typing import Callable

import babel.dates
import babel.numbers
import numpy as np
import pandas as pd

import corvinel


def median_seconds(run: Callable[[], object], repeat: int, warm_up: bool = True) -> tuple[float, float]:
    """Median wall and processor seconds of `repeat` runs after one untimed
    run, which brings the code, the caches and the memory the result takes
    in (on a virtual machine that hands freed memory back to its host, the
    first touch of a large result after a pause costs more than the work)."""
    if warm_up:
        run()
    walls, cpus = [], []
    for _ in range(repeat):
        wall, cpu = time.perf_counter(), time.process_time()
        run()
        walls.append(time.perf_counter() - wall)
        cpus.append(time.process_time() - cpu)
    return statistics.median(walls), statistics.median(cpus)


def main() -> None:
    parser = argparse.ArgumentParser(description=__doc__.split("\n\n")[0])
    parser.add_argument("--values", type=int, default=1_000_000)
    parser.add_argument("--repeat", type=int, default=3)
    parser.add_argument("--babel-values", type=int, default=None,
                        help="time Babel on this many of the values and scale per value (default: all)")
    parser.add_argument("--threads-only", action="store_true", help="only the table of one thread against two")
    arguments = parser.parse_args()
    n, repeat = arguments.values, arguments.repeat
    babel_n = min(arguments.babel_values or n, n)

    rng = np.random.default_rng(2003)
    amounts = rng.normal(0, 1e6, n).round(2)
    days = pd.Series(pd.Timestamp("1960-01-01") + pd.to_timedelta(rng.integers(0, 40_000, n), unit="D"))
    amount_list = amounts[:babel_n].tolist()
    day_list = [d.date() for d in days[:babel_n]]
    scale = n / babel_n

    rows = []
    if arguments.threads_only:
        repeat = max(repeat, 5)
        thread_table(amounts, days, repeat)
        return

    def row(task: str, ours: Callable[[], object], theirs: Callable[[], object], their_name: str,
            their_scale: float = 1.0) -> None:
        mine, mine_cpu = median_seconds(ours, repeat)
        other, other_cpu = median_seconds(theirs, repeat)
        rows.append((task, their_name, mine, other * their_scale, mine_cpu, other_cpu * their_scale))

    row("NLNUM14.2 de_DE", lambda: corvinel.format(amounts, "NLNUM14.2", "de_DE"),
        lambda: [babel.numbers.format_decimal(v, format="#,##0.00", locale="de_DE") for v in amount_list],
        "babel format_decimal", scale)
    row("NLMNY12.2 de_DE", lambda: corvinel.format(amounts, "NLMNY12.2", "de_DE"),
        lambda: [babel.numbers.format_currency(v, "EUR", locale="de_DE") for v in amount_list],
        "babel format_currency", scale)
    day_array = days.to_numpy()  # datetime64[ns], the array in, an array of str out
    row("NLDATE20. de_DE", lambda: corvinel.format(day_array, "NLDATE20.", "de_DE"),
        lambda: [babel.dates.format_date(d, format="long", locale="de_DE") for d in day_list],
        "babel format_date", scale)
    row("NLDATE20. de_DE (Series)", lambda: corvinel.format(days, "NLDATE20.", "de_DE"),
        lambda: days.dt.strftime("%d %B %Y"), "pandas dt.strftime")

    print(f"{n:,} values, median of {repeat}; corvinel on {len(os.sched_getaffinity(0))} threads"
          + (f"; Babel timed on {babel_n:,} values and scaled" if babel_n != n else ""))
    print()
    # Processor seconds count every thread's work: their ratio holds on a
    # busy machine, where wall time also measures the other processes.
    print("| corvinel | against | corvinel s | other s | speed-up (wall) | corvinel processor s "
          "| other processor s | speed-up (processor) |")
    print("|---|---|---:|---:|---:|---:|---:|---:|")
    for task, their_name, mine, other, mine_cpu, other_cpu in rows:
        print(f"| {task} | {their_name} | {mine:.3f} | {other:.2f} | {other / mine:.0f}x | {mine_cpu:.3f} "
              f"| {other_cpu:.2f} | {other_cpu / mine_cpu:.0f}x |")

    print()
    thread_table(amounts, days, repeat)


def sine_in_threads(x: np.ndarray, out: np.ndarray, threads: int, rounds: int = 16) -> None:
    """numpy's sine over x, `rounds` times, in `threads` Python threads (the
    ufunc releases the interpreter lock): the machine's own gain from a
    second thread, on work of about the same length as the formats'."""
    def sine(a: np.ndarray, b: np.ndarray) -> None:
        for _ in range(rounds):
            np.sin(a, out=b)

    pieces = [threading.Thread(target=sine, args=(a, b))
              for a, b in zip(np.array_split(x, threads), np.array_split(out, threads))]
    for piece in pieces:
        piece.start()
    for piece in pieces:
        piece.join()


def thread_table(amounts: np.ndarray, days: pd.Series, repeat: int) -> None:
    print("| threads | task | wall s | processor s | speed-up over 1 thread |")
    print("|---:|---|---:|---:|---:|")
    # Arrays in and out: the one C++ call that the threads share.  One and
    # two threads take turns, so that both meet the same machine.  The sine
    # shows what a second thread gives on this machine at this time: on a
    # shared virtual machine that can be far from 2.
    x = np.linspace(0, 1000, 4_000_000)
    out = np.empty_like(x)
    cases = (("NLNUM14.2 de_DE", lambda threads: corvinel.format(amounts, "NLNUM14.2", "de_DE", threads=threads)),
             ("NLDATE20. de_DE", lambda threads: corvinel.format(days.to_numpy(), "NLDATE20.", "de_DE",
                                                                   threads=threads)),
             ("numpy sin, 16 x 4,000,000 doubles (the machine)", lambda threads: sine_in_threads(x, out, threads)))
    for task, render in cases:
        runs = {threads: (lambda threads=threads: render(threads)) for threads in (1, 2)}
        times: dict[int, list[tuple[float, float]]] = {1: [], 2: []}
        for run in runs.values():
            run()
        for _ in range(repeat):
            for threads, run in runs.items():
                times[threads].append(median_seconds(run, 1, warm_up=False))
        walls = {threads: statistics.median(wall for wall, _ in pairs) for threads, pairs in times.items()}
        for threads, pairs in times.items():
            cpu = statistics.median(cpu for _, cpu in pairs)
            print(f"| {threads} | {task} | {walls[threads]:.3f} | {cpu:.3f} | {walls[1] / walls[threads]:.2f}x |")


if __name__ == "__main__":
    main()
