"""Unit labels and conversions, taken from the unit table of the library's documentation, and the
model and parameter names against those C++ gives for the sample files."""
import numpy as np
import pytest

import quorvalib
from conftest import DATA, reference


def test_edge_cases_of_the_unit_table():
    # In the base system nothing changes, the temperature neither.
    assert quorvalib.convert_from_base(200.0, 1, quorvalib.BASE) == 200.0
    assert quorvalib.convert_from_base(200.0, 1, quorvalib.SI) == 473.15
    assert quorvalib.convert_from_base(200.0, 1, quorvalib.ENGLISH) == 392.0
    assert quorvalib.convert_from_base(1.0, 6, quorvalib.SI) == 0.1
    assert quorvalib.unit_label(-1, quorvalib.SI) == "Pa.sec"
    assert quorvalib.map_unit_id(-1) == 2
    assert quorvalib.map_unit_id(-9999) == -9999
    assert quorvalib.unit_label(30, 0) == ""
    assert quorvalib.unit_label(35, 0) == ""
    assert quorvalib.unit_label(0, 2) == " "
    assert quorvalib.unit_label(4, 1) == "J/(Kg.K) "  # the trailing blank is kept
    assert quorvalib.unit_label(34, 0) == "Pa"
    assert quorvalib.convert_from_base(5.0, 34, quorvalib.SI) == 5.0  # "Pa" is not converted
    assert quorvalib.convert_from_base(2.0, 7, quorvalib.ENGLISH) == 2.0 * 0.55556


def test_conversions_over_arrays():
    t = np.array([[0.0, 100.0], [200.0, -40.0]])
    f = quorvalib.convert_from_base(t, 1, quorvalib.ENGLISH)
    assert f.shape == (2, 2)
    np.testing.assert_allclose(f, t * 1.8 + 32.0, rtol=0, atol=1e-12)
    np.testing.assert_allclose(quorvalib.convert_to_base(f, 1, quorvalib.ENGLISH), t, atol=1e-12)
    eta = np.logspace(0, 6, 7)
    np.testing.assert_allclose(quorvalib.convert_from_base(eta, 2, quorvalib.ENGLISH), eta * 0.0020885)
    np.testing.assert_allclose(quorvalib.convert_to_base(eta * 0.1, 2, quorvalib.SI), eta, rtol=1e-15)
    with pytest.raises(ValueError, match="unit system -1"):
        quorvalib.unit_label(1, -1)


def test_model_names():
    assert quorvalib.model_name("Vis", 4) == "Modified Cross Model 2"
    assert quorvalib.model_name("Vis", 99) == "Unknown viscosity model"
    assert quorvalib.model_name("KN", 2) == "Non-thermosetting plastics"  # not a thermoset
    assert quorvalib.model_name("CR", 1) == "Nakamura model"
    info = quorvalib.model_info("Vis", 4, count=5, unit_system=quorvalib.SI)
    assert info.parameter_names[1] == "Modified Cross Model 2 - (Taus)"
    assert info.units == [" ", "Pa", "Pa.sec", "K", "1/Pa"]
    assert info.values.tolist() == [0.0] * 5
    ve = quorvalib.model_info("VE", 1, count=2)
    assert ve.parameter_names == ["G", "G"] and ve.unit_ids == [6, 6]
    assert quorvalib.model_info("PVT", 2).parameter_names == []
    with pytest.raises(ValueError, match="no block"):
        quorvalib.model_info("Viscosity", 1)


@pytest.mark.parametrize("name", ["sample_thermoplastic_9012.mtr", "sample_thermoset_9018.mtx"])
def test_model_info_agrees_with_cpp(name):
    cpp = reference("material", DATA / name)
    m = quorvalib.Material.load(str(DATA / name))
    for block in ["Vis", "PVT"]:
        b = m.block(block)
        info = quorvalib.model_info(block, b.model, len(b), thermoset=m.is_thermoset)
        assert info.model_name == cpp["model_names"][block]
        assert info.parameter_names == cpp["parameter_names"][block]


def test_library_version():
    assert quorvalib.library_version() == 9007
    assert 20200101 <= quorvalib.build_date() <= 21000101
