"""Evaluation over numpy arrays: the batch calls through broadcasting, against the scalar calls made
from C++, against values computed at 50 digits from the models' formulas, and the shapes."""
import json

import numpy as np
import pytest

import quorvalib
from conftest import DATA, MATERIAL_FILES, PRESSURES, SHEAR_RATES, TEMPERATURES, reference

G = np.array(SHEAR_RATES)
T = np.array(TEMPERATURES)
P = np.array(PRESSURES)


def evaluable(m, call):
    try:
        call()
        return True
    except ValueError:
        return False


@pytest.mark.parametrize("name", MATERIAL_FILES)
@pytest.mark.parametrize("fast", [False, True])
def test_grids_agree_with_the_scalar_calls(name, fast):
    cpp = reference("material", DATA / name)["grid"]
    m = quorvalib.Material.load(str(DATA / name))

    def same(got, want):
        want = np.array(want)
        if fast:
            np.testing.assert_allclose(got, want, rtol=1e-14, atol=0)
        else:
            np.testing.assert_array_equal(got, want)  # bit for bit, the exact form

    # viscosity[pressure][shear rate][temperature]: three axes broadcast from three 1-D arrays
    if evaluable(m, lambda: m.viscosity(1.0, 200.0)):
        same(m.viscosity(G[None, :, None], T, np.array([0.0, 1e8])[:, None, None], fast=fast),
             cpp["viscosity"])
    else:
        assert all(v == 0.0 for plane in cpp["viscosity"] for row in plane for v in row)
    if evaluable(m, lambda: m.specific_volume(0.0, 25.0)):
        same(m.specific_volume(P[:, None], T, fast=fast), cpp["specific_volume"])
        same(m.density(P[:, None], T, fast=fast), cpp["density"])
    else:
        assert all(v == 0.0 for row in cpp["specific_volume"] for v in row)
    if m.block("Cp").values.size:
        same(m.heat_capacity(T, fast=fast), cpp["heat_capacity"])
    else:
        assert cpp["heat_capacity"] == [-1.0] * len(T)
        with pytest.raises(ValueError, match="no heat capacity table"):
            m.heat_capacity(T)
    if m.block("K").values.size:
        same(m.thermal_conductivity(T, fast=fast), cpp["thermal_conductivity"])
    if cpp["conversion"]:
        same(m.conversion(T, np.array([0.0, 5.0])[:, None], 0.1), cpp["conversion"])


def model_values():
    return json.loads((DATA / "model_values.json").read_text())


def test_viscosity_of_every_model_at_fifty_digits():
    values = model_values()
    m = quorvalib.Material.generate()
    checked = 0
    for case in values["viscosity"]:
        m.set_block("Vis", case["model"], case["para"])
        points = np.array(case["points"])
        g, t, p, x, want, tol = points.T
        for fast in (False, True):
            got = m.viscosity(g, t, p, x, fast=fast)
            bound = tol * np.abs(want) + (1e-14 * np.abs(want) if fast else 0)
            assert np.all(np.abs(got - want) <= bound), case["model"]
        checked += len(points)
    assert checked > 100


def test_specific_volume_of_every_model_at_fifty_digits():
    m = quorvalib.Material.generate()
    for case in model_values()["pvt"]:
        m.set_block("PVT", case["model"], case["para"])
        p, t, x, want, tol = np.array(case["points"]).T
        got = m.specific_volume(p, t, x)
        assert np.all(np.abs(got - want) <= tol * np.abs(want)), case["model"]
        np.testing.assert_array_equal(m.density(p, t, x), 1.0 / got)


def test_a_million_points_in_one_call():
    m = quorvalib.Material.generate(4, 5, False, 3, 2, 1)
    rng = np.random.default_rng(7)
    g = 10.0 ** rng.uniform(-1, 5, 1_000_000)
    t = rng.uniform(180, 300, 1_000_000)
    exact = m.viscosity(g, t, 1e7)
    fast = m.viscosity(g, t, 1e7, fast=True)
    assert exact.shape == (1_000_000,)
    np.testing.assert_allclose(fast, exact, rtol=1e-14, atol=0)
    for i in rng.integers(0, 1_000_000, 50):
        assert exact[i] == m.viscosity(float(g[i]), float(t[i]), 1e7)
    volume = m.specific_volume(rng.uniform(0, 2e9, 1_000_000), t, fast=True)
    assert volume.shape == (1_000_000,) and np.all(volume > 0)


def test_broadcast_shapes():
    m = quorvalib.Material.generate()
    assert isinstance(m.viscosity(100.0, 230.0), float)
    assert isinstance(m.viscosity(np.float64(100.0), 230), float)
    assert m.viscosity([100.0], 230.0).shape == (1,)
    assert m.viscosity(np.ones((2, 1, 4)), np.full((3, 1), 230.0)).shape == (2, 3, 4)
    assert m.viscosity(np.empty((0, 3)), 230.0).shape == (0, 3)
    assert m.heat_capacity(np.full((2, 2), 200.0)).shape == (2, 2)
    grid = m.viscosity(G[:, None], T)
    for i, g in enumerate(G):
        for j, t in enumerate(T):
            assert grid[i, j] == m.viscosity(g, t)
    # strided, reversed and Fortran-ordered inputs are read as numpy reads them
    wide = np.linspace(1, 1e4, 40).reshape(4, 10)
    np.testing.assert_array_equal(m.viscosity(wide[:, ::3], 230.0),
                                  m.viscosity(np.ascontiguousarray(wide[:, ::3]), 230.0))
    np.testing.assert_array_equal(m.viscosity(wide.T, 230.0), m.viscosity(wide, 230.0).T)
    np.testing.assert_array_equal(m.viscosity(G[::-1], 230.0), m.viscosity(G, 230.0)[::-1])
    assert m.viscosity([1, 10], [230, 250], fast=True).dtype == np.float64  # integers are taken
    with pytest.raises(ValueError):
        m.viscosity(np.ones(3), np.ones(4))
    with pytest.raises((TypeError, ValueError)):
        m.viscosity("fast", 230.0)


def test_inputs_are_not_written():
    m = quorvalib.Material.generate()
    g = G.copy()
    m.viscosity(g, 230.0, fast=True)
    np.testing.assert_array_equal(g, G)


def test_models_that_cannot_be_evaluated_raise():
    m = quorvalib.Material.generate()
    m.set_block("Vis", 6, [0.3, 1e5, 1e-7, 1e4, 0.0])  # Carreau: named, not evaluated
    with pytest.raises(ValueError, match="generated: viscosity model 6 \\(Carreau Model\\)"):
        m.viscosity(G, 230.0)
    m.set_block("Vis", 3, [0.3, 1.0])  # too few values for Modified Cross 1
    with pytest.raises(ValueError, match="viscosity model 3"):
        m.viscosity(G, 230.0, fast=True)
    m.set_block("PVT", 9, [1.0])
    with pytest.raises(ValueError, match="PVT model 9"):
        m.density(0.0, 230.0)
    m.set_block("K", 1, [])
    with pytest.raises(ValueError, match="no thermal conductivity table"):
        m.thermal_conductivity(230.0)
    with pytest.raises(ValueError, match="cure kinetics"):
        m.conversion(150.0, 0.0, 0.1)
