"""A Dask DataFrame of a million rows rendered on a real two-process
cluster gives what one process gives."""

import numpy as np
import pandas as pd
import pytest

dd = pytest.importorskip("dask.dataframe", reason="Debian's python3-dask is installed by scripts/install-deps")
distributed = pytest.importorskip("distributed")

import corvinel  # noqa: E402
import corvinel.dask  # noqa: E402

ROWS = 1_000_000


@pytest.fixture(scope="module")
def frame():
    rng = np.random.default_rng(28)
    amount = rng.normal(0, 1e5, ROWS).round(2)
    amount[::1013] = np.nan
    day = pd.Timestamp("1990-01-01") + pd.to_timedelta(rng.integers(0, 20_000 * 86_400, ROWS), unit="s")
    return pd.DataFrame({"amount": amount, "day": day.tz_localize("UTC").tz_convert("Asia/Tokyo")})


@pytest.fixture(scope="module")
def client():
    with distributed.LocalCluster(n_workers=2, threads_per_worker=1, processes=True,
                                  dashboard_address=None) as cluster, distributed.Client(cluster) as client:
        yield client


def test_a_cluster_renders_what_one_process_renders(frame, client):
    ddf = dd.from_pandas(frame, npartitions=8)
    for column, fmt in (("amount", "NLMNY14.2"), ("day", "NLDATM30.")):
        lazy = corvinel.dask.format(ddf[column], fmt, "de_DE")
        assert lazy.dtype == object and lazy.name == column
        assert lazy.known_divisions and lazy.divisions == ddf.divisions
        with distributed.get_task_stream(client) as tasks:
            on_cluster = lazy.compute()
        in_process = corvinel.format(frame[column], fmt, "de_DE")
        pd.testing.assert_series_equal(on_cluster, in_process)
        assert len({task["worker"] for task in tasks.data}) == 2, "both worker processes took part"


def test_a_bad_request_is_refused_before_anything_runs(frame):
    ddf = dd.from_pandas(frame.head(10), npartitions=2)
    with pytest.raises(ValueError, match='unknown format "NLNOPE"'):
        corvinel.dask.format(ddf["amount"], "NLNOPE", "de_DE")
