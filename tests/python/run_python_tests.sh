#!/usr/bin/env bash
# Installs the package into a venv in the build tree and runs its tests.
# Usage: run_python_tests.sh SOURCE_DIR WORK_DIR LIBCORVINEL CORVINEL_FMT [pytest args...]
set -euo pipefail
source_dir=$1 work_dir=$2 module=$3 tool=$4
shift 4

python=/usr/bin/python3  # Debian's, with Debian's numpy, pandas and Dask
venv="$work_dir/venv"
if [ ! -x "$venv/bin/python" ]; then
  "$python" -m venv --system-site-packages "$venv"
fi
# The module just built goes into the package instead of a second build.
CORVINEL_PREBUILT_MODULE="$module" "$venv/bin/pip" install --quiet --no-build-isolation --no-deps \
  --force-reinstall "$source_dir"

# From the work directory, so that the installed package is the one imported.
cd "$work_dir"
export CORVINEL_FMT="$tool" CORVINEL_HYPOTHESIS_PROFILE=ci
# pytest exits with 5 when it collected no tests: that fails here too.
exec "$venv/bin/python" -m pytest -p no:cacheprovider -q "$source_dir/tests/python" "$@"
