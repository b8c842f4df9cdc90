"""Run files: materials written by the library, read back with h5py (an HDF5 reader of its own) to
check the store's layout and values, and read back through the module."""
import h5py
import numpy as np
import pytest

import quorvalib
from conftest import DATA, fixture_json

PLASTIC = "sample_thermoplastic_9012.mtr"
METAL = "sample_metal.mtr"

# The stored blocks and the arrays that hold them; EM, PR, CLTE and SI are not stored.
ARRAYS = {"Vis": "Vis Para", "PVT": "PVT Para", "Cp": "Cp Para", "K": "K Para", "VE": "VE Para",
          "OP": "OP Para", "Mech": "MECH Para", "KN": "KN Para", "CR": "CR Para", "PW": "PW para",
          "Temp": "TEMP Para"}
MODELS = {"Vis": "Vis Model", "PVT": "PVT Model", "Cp": "Cp Model", "K": "K Model",
          "VE": "VE Model", "OP": "OP Model", "Mech": "MECH Model", "KN": "KN Model",
          "CR": "CR Model", "PW": "PW Model", "Temp": "TEMP Model"}


def text(value):
    if isinstance(value, (bytes, np.bytes_)):
        return value.decode()
    return str(value)


@pytest.fixture
def run_file(tmp_path):
    path = tmp_path / "study.rsv"
    with quorvalib.RunFile(path) as run:
        run.add(quorvalib.Material.load(str(DATA / PLASTIC)), "cavity plastic")
        run.add(quorvalib.Material.load(str(DATA / METAL)), "mould insert")
        assert len(run) == 2
    return path


def test_layout_and_values_through_h5py(run_file):
    record = fixture_json(PLASTIC)["load"]["record"]
    with h5py.File(run_file, "r") as f:
        assert list(f.keys()) == ["Vantrell"]
        run1 = f["Vantrell/Run1"]
        assert {"Entity", "Description", "Material"} <= set(run1.keys())
        assert int(run1.attrs["Material Type"]) == -1  # the type of the last material: a metal
        materials = run1["Material"]
        assert sorted(materials.keys()) == ["Material 1", "Material 2"]
        plastic = materials["Material 1"]

        summary = plastic["Summary"]
        assert isinstance(summary, h5py.Group)
        assert text(summary.attrs["RSV_CLASS"]) == "TABLE"
        for key, field in [("Polymer", "Polymer"), ("Grade Name", "GradeName"),
                           ("Producer", "Producer"), ("Comment", "Comment")]:
            assert text(summary.attrs[key]) == record[field], key
        assert text(summary.attrs["Source"]) == ""  # a record without one
        assert int(summary.attrs["Type"]) == record["FileType"]
        assert int(summary.attrs["Version"]) == record["FileVer"]
        assert int(summary.attrs["Measurement date"]) == record["MeasureDate"]
        for block, key in MODELS.items():
            assert int(summary.attrs[key]) == record["Blocks"][block]["Model"], key

        stored = {name for name, node in plastic.items() if isinstance(node, h5py.Dataset)}
        expected = {ARRAYS[b] for b in ARRAYS if record["Blocks"][b]["Count"] > 0}
        assert stored == expected
        for block, name in ARRAYS.items():
            para = record["Blocks"][block]["Para"]
            if not para:
                continue
            array = plastic[name]
            assert array.dtype == np.float64 and array.shape == (1, len(para)), name
            assert array[0].tolist() == para, name

        vis_raw = plastic["Vis Raw Data"]
        assert text(vis_raw["Summary"].attrs["RSV_CLASS"]) == "TABLE"
        assert vis_raw["Condition"].shape[0] == 1
        curves = vis_raw["Condition"].shape[1]
        assert curves == 2  # two measured viscosity curves in the sample
        for n in range(1, curves + 1):
            assert vis_raw[f"Curve {n} XY"].shape[0] == 2
        assert "MTC 1" in plastic and "Interval Temperature" in plastic["MTC 1"]


def test_descriptions_through_h5py(run_file):
    with h5py.File(run_file, "r") as f:
        described = f["Vantrell/Run1/Description/Material"]
        assert sorted(described.keys()) == ["Result0", "Result1"]
        rows = described["Result0"]
        assert rows.shape == (20, 1)
        assert rows.dtype.names == ("ID", "Value")
        assert rows.dtype["ID"] == np.int32 and rows.dtype["Value"].itemsize == 128
        ids = [int(r) for r in rows["ID"][:, 0]]
        assert ids == list(range(14)) + list(range(15, 21))  # a thermoplastic has no ID 14
        values = {i: text(v) for i, v in zip(ids, rows["Value"][:, 0])}
        assert values[0] == "PLA"
        assert values[1] == "PLA(Greenfield Bioplastics GB 3052D)"
        assert values[2] == "cavity plastic"
        assert values[3] == "Thermoplastic"
        metal = described["Result1"]
        assert [int(r) for r in metal["ID"][:9, 0]] == [0, 1, 2, 3, 4, 5, 6, 11, 12]
        assert text(metal["Value"][2, 0]) == "mould insert"
        assert text(metal["Value"][3, 0]) == "Metal"


def test_read_back_through_the_module(run_file):
    plastic = quorvalib.Material.load(str(DATA / PLASTIC))
    with quorvalib.RunFile(run_file) as run:
        first, second = run[0], run[1]
        assert run[-1].grade_name == second.grade_name == "Stainless 316L"
        with pytest.raises(IndexError):
            run[2]
    # a material with MTC data comes back with body version 9010, as the run-file reader gives it
    assert (first.polymer, first.grade_name, first.version) == ("PLA", "GB 3052D", 9010)
    for block in ARRAYS:
        np.testing.assert_array_equal(first.block(block).values, plastic.block(block).values)
    for block in ["EM", "PR", "CLTE", "SI"]:  # not stored
        assert first.block(block).values.size == 0
    np.testing.assert_array_equal(first.viscosity(np.logspace(0, 4, 5), 200.0),
                                  plastic.viscosity(np.logspace(0, 4, 5), 200.0))
    assert "run 1 material 0" in first.origin


def test_run_file_failures(tmp_path):
    empty = tmp_path / "empty.rsv"
    empty.write_bytes(b"")
    with pytest.raises(ValueError, match="empty file"):
        quorvalib.RunFile(empty)
    with pytest.raises(OSError, match="could not be created"):
        quorvalib.RunFile(tmp_path / "no" / "folder" / "x.rsv")
    text_file = tmp_path / "notes.rsv"
    text_file.write_text("not HDF5")
    run = quorvalib.RunFile(text_file)
    assert len(run) == 0
    with pytest.raises(OSError, match="could not be stored"):
        run.add(quorvalib.Material.generate())
    assert text_file.read_text() == "not HDF5"
    good = quorvalib.RunFile(tmp_path / "good.rsv")
    with pytest.raises(ValueError, match="run 0"):
        good.add(quorvalib.Material.generate(), run=0)
    good.close()
    with pytest.raises(ValueError, match="closed"):
        len(good)


def test_reads_release_their_records(run_file):
    import gc
    from test_memory import resident_bytes
    with quorvalib.RunFile(run_file) as run:
        for _ in range(300):
            run[0]
        gc.collect()
        before = resident_bytes()
        for _ in range(3000):
            run[0]
        gc.collect()
        # each read makes two records of this material, of several kilobytes each
        assert resident_bytes() - before < 4 * 1024 * 1024
