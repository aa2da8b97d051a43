"""The samples of docs/python.md and the README's Python example run and
print what the pages say."""

import doctest

import pytest

from conftest import ROOT


@pytest.mark.parametrize("page", ["docs/python.md", "README.md"])
def test_the_samples_on_the_page_print_what_it_says(page):
    result = doctest.testfile(str(ROOT / page), module_relative=False, encoding="utf-8",
                              optionflags=doctest.ELLIPSIS | doctest.NORMALIZE_WHITESPACE)
    assert result.attempted > 0 and result.failed == 0
