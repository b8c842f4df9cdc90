"""Type stubs and docstrings: every public name of the module is in the stubs beside it, with the
same parameters, and has a docstring that help() shows."""
import ast
import inspect
import pathlib
import pydoc

import quorvalib

STUBS = pathlib.Path(quorvalib.__file__).with_name("quorvalib.pyi")


def stub_tree():
    return ast.parse(STUBS.read_text())


def public(namespace):
    return {name for name in vars(namespace) if not name.startswith("_")}


def stub_names(body):
    names = set()
    for node in body:
        if isinstance(node, (ast.FunctionDef, ast.ClassDef)):
            names.add(node.name)
        elif isinstance(node, ast.AnnAssign):
            names.add(node.target.id)
    return names


def test_stubs_lie_beside_the_module_and_name_everything():
    tree = stub_tree()
    module_level = stub_names(tree.body) - {"ArrayLike", "FloatArray", "PathLike"}
    assert public(quorvalib) == module_level
    classes = {node.name: node for node in tree.body if isinstance(node, ast.ClassDef)}
    for name, node in classes.items():
        stubbed = {n for n in stub_names(node.body) if not n.startswith("_")}
        assert public(getattr(quorvalib, name)) == stubbed, name


def parameters_of_docstring(function):
    # pybind11 puts the signature on the first line of the docstring: name(self, a: T, b: T = x)
    line = function.__doc__.splitlines()[0]
    inside = line[line.index("(") + 1:line.rindex(")")]
    return [p.split(":")[0].strip() for p in inside.split(", ") if p and p != "*"]


def stub_parameters(node):
    args = node.args
    return [a.arg for a in args.posonlyargs + args.args + args.kwonlyargs]


def test_stub_signatures_match_the_module():
    tree = stub_tree()
    functions = {n.name: n for n in tree.body if isinstance(n, ast.FunctionDef)}
    for name, node in functions.items():
        assert parameters_of_docstring(getattr(quorvalib, name)) == stub_parameters(node), name
    material = next(n for n in tree.body if isinstance(n, ast.ClassDef) and n.name == "Material")
    for node in material.body:
        if isinstance(node, ast.FunctionDef) and not any(
                isinstance(d, ast.Name) and d.id == "property" for d in node.decorator_list):
            bound = getattr(quorvalib.Material, node.name)
            assert parameters_of_docstring(bound) == stub_parameters(node), node.name


def test_every_function_has_a_docstring():
    for name in public(quorvalib):
        obj = getattr(quorvalib, name)
        if isinstance(obj, int):
            continue
        assert obj.__doc__ and len(obj.__doc__) > 20, name
        if inspect.isclass(obj):
            for member in public(obj):
                doc = getattr(obj, member).__doc__
                assert doc and doc.strip(), f"{name}.{member}"
    text = pydoc.render_doc(quorvalib.Material.viscosity, renderer=pydoc.plaintext)
    assert "broadcast" in text and "fast=True" in text
