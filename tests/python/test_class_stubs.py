"""Stubs and documentation of the classes: what they say is what there is."""
import ast
import doctest
import importlib
import inspect
import pathlib

import numpy as np
import pytest

import orvik

FOLDER = pathlib.Path(orvik.__file__).parent
MODULES = {"random": "random/__init__.pyi", "stats": "stats.pyi", "interpolate": "interpolate.pyi"}
DOCUMENTED = ["random", "random._bit_generator", "random._distributions", "random._generators", "stats", "_summaries", "interpolate"]


def parameters(function):
    a = function.args
    names = [p.arg for p in (*a.posonlyargs, *a.args, *a.kwonlyargs)]
    return names[1:] if names[:1] == ["self"] else names


@pytest.mark.parametrize("module", MODULES)
def test_stubs_name_what_there_is(module):
    there = importlib.import_module(f"orvik.{module}")
    tree = ast.parse((FOLDER / MODULES[module]).read_text())
    stubbed = {node.name: node for node in tree.body if isinstance(node, (ast.ClassDef, ast.FunctionDef))}
    assert set(stubbed) == set(there.__all__)
    for name, node in stubbed.items():
        if isinstance(node, ast.FunctionDef):
            assert parameters(node) == list(inspect.signature(getattr(there, name)).parameters)
            continue
        kind = getattr(there, name)
        bases = {base.id for base in node.bases if isinstance(base, ast.Name)} - {"NamedTuple"}
        assert bases <= {base.__name__ for base in kind.__mro__}
        for member in node.body:
            if isinstance(member, ast.FunctionDef):
                attribute = inspect.getattr_static(kind, member.name)
                decorators = [ast.unparse(d) for d in member.decorator_list]
                assert isinstance(attribute, property) == any(d == "property" or d.endswith(".setter") for d in decorators)
                if not isinstance(attribute, property):
                    assert parameters(member) == list(inspect.signature(attribute).parameters)[1:], member.name
        public = {n for base in kind.__mro__ if base.__module__.startswith("orvik") for n in vars(base) if n[0] != "_"}
        inherited = {n for base in kind.__mro__ for n in named(stubbed.get(base.__name__))}
        assert public <= inherited, public - inherited


def named(node):
    if node is None:
        return set()
    return {m.name for m in node.body if isinstance(m, ast.FunctionDef)} | {
        m.target.id for m in node.body if isinstance(m, ast.AnnAssign)}


@pytest.mark.parametrize("name", DOCUMENTED)
def test_examples_of_the_documentation_run(name):
    module = importlib.import_module(f"orvik.{name}")
    with np.printoptions(legacy=False):
        failed, tried = doctest.testmod(module)
    assert failed == 0 and tried >= 3


@pytest.mark.parametrize("module", MODULES)
def test_everything_public_is_documented(module):
    there = importlib.import_module(f"orvik.{module}")
    for name in there.__all__:
        thing = getattr(there, name)
        assert thing.__doc__, name
        for member, value in vars(thing).items() if inspect.isclass(thing) else ():
            if not member.startswith("_") and (inspect.isfunction(value) or isinstance(value, property)):
                assert value.__doc__, f"{name}.{member}"
