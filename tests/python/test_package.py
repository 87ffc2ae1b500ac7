"""The package as a whole: names, documentation, stubs."""
import ast
import copy
import doctest
import os
import pathlib
import pickle
import re
import shutil
import subprocess
import sys

import numpy as np
import pytest

import orvik

SUBMODULES = {"interpolate", "random", "stats"}
FUNCTIONS = sorted(set(orvik.__all__) - SUBMODULES)
UFUNCS = [name for name in FUNCTIONS if isinstance(getattr(orvik, name), np.ufunc)]
FOLDER = pathlib.Path(orvik.__file__).parent


def test_the_version_is_that_of_the_library():
    assert re.fullmatch(r"2\.\d+\.\d+", orvik.__version__)


def test_the_promised_ufuncs_exist():
    promised = """exp expm1 exp2 exp10 log log1p log2 log10 sqrt rsqrt cbrt rcbrt reciprocal sin cos tan sinpi cospi tanpi sind cosd
        tand arcsin arccos arctan arctan2 sinh cosh tanh arcsinh arccosh arctanh power hypot erf erfc erfinv erfcinv erfcx ndtr ndtri
        gamma gammaln exp1 i0 i1 j0 j1 y0 y1 jn yn""".split()
    assert set(promised) <= set(UFUNCS)
    assert len(UFUNCS) >= 90


def test_all_names_exist_and_dir_shows_them():
    assert set(FUNCTIONS) <= set(dir(orvik))
    assert SUBMODULES <= set(dir(orvik))
    with pytest.raises(AttributeError, match="no_such_name"):
        orvik.no_such_name


@pytest.mark.parametrize("name", FUNCTIONS)
def test_examples_of_the_docstring_run(name):
    thing = getattr(orvik, name)
    tests = doctest.DocTestFinder(recurse=False).find(thing, name, globs={})
    if not tests:  # of C functions and ufuncs
        tests = [doctest.DocTestParser().get_doctest(thing.__doc__, {}, name, None, None)]
    assert tests[0].examples, "a docstring without an example"
    runner = doctest.DocTestRunner(verbose=False)
    for test in tests:
        runner.run(test)
    assert runner.failures == 0


@pytest.mark.parametrize("name", UFUNCS)
def test_docstrings_have_numpys_sections(name):
    text = getattr(orvik, name).__doc__
    for section in ("Parameters", "Returns", "See Also", "Notes", "Examples"):
        assert f"{section}\n{'-' * len(section)}\n" in text
    described = re.search(r"^Returns.*?(?=^See Also)", text, re.MULTILINE | re.DOTALL)[0]
    assert len(re.findall(r"^y\d? : ", described, re.MULTILINE)) == getattr(orvik, name).nout


def test_stubs_have_all_names():
    names = {"__version__"}
    for stub in ("__init__.pyi", "_math.pyi"):
        for node in ast.walk(ast.parse((FOLDER / stub).read_text())):
            if isinstance(node, ast.AnnAssign):
                names.add(node.target.id)
            elif isinstance(node, (ast.FunctionDef, ast.ClassDef)):
                names.add(node.name)
            elif isinstance(node, ast.ImportFrom):
                names.update(alias.asname or alias.name for alias in node.names)
    assert set(orvik.__all__) <= names
    assert (FOLDER / "py.typed").exists()


def test_the_stub_of_the_ufuncs_lists_them_for_checkers_of_types():
    """A star import takes what `__all__` has as a literal, and nothing else."""
    tree = ast.parse((FOLDER / "_math.pyi").read_text())
    (listed,) = (ast.literal_eval(node.value) for node in tree.body if isinstance(node, ast.Assign) and node.targets[0].id == "__all__")
    assert listed == orvik._math.__all__
    package = ast.parse((FOLDER / "__init__.pyi").read_text())
    assert any(isinstance(node, ast.ImportFrom) and node.module == "_math" and node.names[0].name == "*" for node in package.body)


USE = """
import numpy as np
import orvik
from orvik import *
from orvik import interpolate, random, stats

x = np.linspace(0.1, 1, 5)
with orvik.accuracy("LA"):
    orvik.log(x, out=exp(x), where=x > 0)

@accuracy("EP")
def length(y: list[float]) -> int:
    return len(y)

length([1.0])
orvik.set_num_threads(0)
rng = np.random.Generator(random.MT19937(7))
stream = random.PHILOX4X32X10([1, 2, 3])
words: int = stream.words()
raw: int = stream.random_raw()
stream.random_raw((2, 3), False)
stream.random_raw(output=False)
child: random.PHILOX4X32X10 = stream.spawn(2)[0].jumped().copy()
stream.state = stream.state
member: int = random.MT2203(1, member=3).member
stream.normal([0.0, 1.0], 2.0, size=(3, 2), dtype=np.float32)
random.SOBOL((2, 1)).uniform(out=x)
s = stats.Summary(1)
s.merge(s.copy())
count: int = stats.summary(x, axis=(0,)).count
stats.quantile(x, [0.1, 0.2])
interpolate.Spline(x, x, ends=("first", 0, 1.0))(0.5, derivative=1)
interpolate.search(x, 0.5)
"""


def test_a_checker_of_types_finds_every_name(tmp_path):
    mypy = shutil.which("mypy")
    if not mypy:
        pytest.skip("no mypy here")
    programs = {"use.py": USE, "misuse.py": USE + "\norvik.no_such_function(x)\nstream.normal(scale='a', size='b')\n"}
    for name, text in programs.items():
        (tmp_path / name).write_text(text)
    (tmp_path / "packages").mkdir()
    (tmp_path / "packages" / "orvik").symlink_to(FOLDER)  # mypy refuses folders that Python itself looks into
    environment = {key: value for key, value in os.environ.items() if key != "LD_PRELOAD"} | {"MYPYPATH": "packages"}
    done = subprocess.run([mypy, "--strict", "--no-error-summary", "--cache-dir", "cache", *programs], capture_output=True, text=True,
                          cwd=tmp_path, env=environment)
    errors = [line for line in done.stdout.splitlines() if ": error: " in line]
    assert len(errors) == 2 and all(line.startswith("misuse.py") for line in errors), done.stdout + done.stderr
    assert "no_such_function" in errors[0] and '"size"' in errors[1]


ROWS = pathlib.Path(__file__).parents[2] / "tools" / "rows" / "python.py"


def test_names_of_numpy_and_scipy_are_theirs():
    import importlib
    listed = subprocess.run([sys.executable, ROWS, "list"], check=True, capture_output=True, text=True).stdout
    names = dict(line.split() for line in listed.splitlines())
    assert sorted(names) == UFUNCS
    for name, peer in names.items():
        if peer != "-":
            module, _, function = peer.rpartition(".")
            assert callable(getattr(importlib.import_module(module), function))
            assert name == function or name in ("sind", "cosd", "tand")


def test_the_table_of_names_is_up_to_date(tmp_path):
    page = ROWS.parents[2] / "docs" / "python.md"
    copy = tmp_path / "python.md"
    copy.write_text(page.read_text())
    subprocess.run([sys.executable, ROWS, "names", copy], check=True)
    assert copy.read_text() == page.read_text(), "run tools/rows/python.py names docs/python.md"


@pytest.mark.filterwarnings("error")  # a search through all modules would meet deprecated names
@pytest.mark.parametrize("name", UFUNCS)
def test_ufuncs_are_pickled_by_name(name):
    for protocol in range(pickle.HIGHEST_PROTOCOL + 1):
        assert pickle.loads(pickle.dumps(getattr(orvik, name), protocol)) is getattr(orvik, name)
    assert copy.deepcopy(getattr(orvik, name)) is getattr(orvik, name)


def test_damaged_names_of_ufuncs_are_refused():
    with pytest.raises(ValueError, match="not a ufunc of orvik"):
        pickle.loads(pickle.dumps(orvik.expm1).replace(b"expm1", b"exqm1"))


@pytest.mark.filterwarnings("ignore::DeprecationWarning")  # NumPy's way looks through all modules, deprecated names included
def test_numpys_ufuncs_are_pickled_as_before():
    assert pickle.loads(pickle.dumps(np.exp)) is np.exp
    assert b"orvik" not in pickle.dumps(np.arctan2)


def test_star_import_gives_the_names_without_touching_others():
    code = "import numpy, orvik; before = set(globals()); from orvik import *; assert exp is orvik.exp; assert 'np' not in globals()"
    subprocess.run([sys.executable, "-c", code], check=True)


def test_a_processor_without_the_instructions_makes_it_an_import_error():
    qemu = shutil.which("qemu-x86_64")
    if not qemu:
        pytest.skip("no qemu-x86_64 here")
    if "libasan" in os.environ.get("LD_PRELOAD", ""):
        pytest.skip("an emulated processor has no room for the sanitizer's memory")
    code = "try:\n import orvik\nexcept ImportError as error:\n print('refused:', error)"
    done = subprocess.run([qemu, "-cpu", "Nehalem", sys.executable, "-c", code], capture_output=True, text=True, check=True, timeout=300)
    assert re.search("refused: The processor lacks .*AVX2", done.stdout)
