"""Shared fixtures of the binding tests: the sample files of tests/data, their decoded JSON, and the
C++ reference program that asks the library the same questions through its C++ header."""
import json
import os
import pathlib
import subprocess

import pytest

import quorvalib

DATA = pathlib.Path(
    os.environ.get("QRV_TEST_DATA_DIR", pathlib.Path(__file__).resolve().parents[2] / "tests" / "data")
)

# The sample material files, each with its decoded JSON beside it.
MATERIAL_FILES = [
    "sample_thermoplastic_9008.mtr",
    "sample_thermoplastic_9012.mtr",
    "sample_thermoset_9018.mtx",
    "sample_metal.mtr",
    "sample_coolant.mtr",
    "sample_chip.mtr",
    "sample_legacy.mtr",
    "sample_default_3_2.mtr",
]

# The shear rates, temperatures and pressures of the reference program's property grids.
SHEAR_RATES = [1.0, 10.0, 100.0, 1000.0, 10000.0]
TEMPERATURES = [25.0, 180.0, 200.0, 230.0, 260.0]
PRESSURES = [0.0, 1.0e8, 5.0e8]


@pytest.fixture(scope="session")
def data():
    return DATA


def fixture_json(name):
    return json.loads((DATA / (pathlib.Path(name).stem + ".json")).read_text())


def reference(*args):
    """The library's answers through its C++ header, as JSON."""
    program = os.environ.get("QRV_REFERENCE")
    if not program:
        pytest.skip("QRV_REFERENCE (the python_reference program) is not set")
    out = subprocess.run([program, *map(str, args)], check=True, capture_output=True, text=True)
    return json.loads(out.stdout)

