"""The package as a whole."""
import orvik


def test_the_version_is_that_of_the_library():
    assert [int(part) for part in orvik.__version__.split(".")][0] == 2


def test_all_names_exist():
    for name in orvik.__all__:
        if name not in ("interpolate", "random", "stats"):
            assert hasattr(orvik, name), name
