"""The notebook-like script runs from end to end and leaves its plots."""
import pathlib
import re
import subprocess
import sys

import numpy as np
import pytest

pytest.importorskip("matplotlib")
SCRIPT = pathlib.Path(__file__).resolve().parents[2] / "examples" / "python_tour.py"


@pytest.fixture(scope="module")
def tour(tmp_path_factory):
    folder = tmp_path_factory.mktemp("plots")
    done = subprocess.run([sys.executable, "-W", "error::RuntimeWarning", SCRIPT, folder], capture_output=True, text=True,
                          timeout=300)
    assert done.returncode == 0, done.stderr
    return folder, done.stdout


def test_every_plot_is_left(tour):
    folder, said = tour
    named = re.findall(r"plot: (\S+)", said)
    assert len(named) == SCRIPT.read_text().count("\nkeep(") == 5
    for name in named:
        assert (folder / name).read_bytes().startswith(b"\x89PNG")
        assert (folder / name).stat().st_size > 5000


def number(said, pattern):
    return float(re.search(pattern, said)[1])


def test_what_it_says_is_so(tour):
    said = tour[1]
    assert number(said, r"exp at HA: worst error (\S+) ") < 1
    assert number(said, r"exp at LA: worst error (\S+) ") < 4
    year, flow = np.loadtxt(SCRIPT.parent / "data" / "nile.csv", delimiter=",", skiprows=1, unpack=True)
    means = [flow[year < 1898].mean(), flow[year >= 1898].mean()]
    assert number(said, r"means (\S+) ") == round(means[0], 1)
    assert number(said, r"difference (\S+);") == round(means[0] - means[1], 1)
    assert number(said, r"difference (\S+);") > 1.5 * number(said, r"and (\S+)\n  plot: nile")
    assert number(said, r"(\d+) days; correlation") == 111
    ozone = number(said, r"whole days (\S+),")
    assert 0.8 * ozone < number(said, r"drawn values (\S+) to") <= number(said, r"drawn values \S+ to (\S+)") < 1.2 * ozone
    assert 1 <= number(said, r"ozone lies out: (\d+),") < 10
    assert number(said, r"Sobol's (\S+)") < number(said, r"points: random (\S+),")
    assert number(said, r"natural: swings (\S+) ") > 0.05
    assert number(said, r"hyman: swings (\S+) ") == 0
