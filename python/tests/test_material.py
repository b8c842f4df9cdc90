"""Materials: loading, generating, saving, texts, dates, blocks, content and report, against the
decoded sample files and against the same calls made from C++."""
import os

import numpy as np
import pytest

import quorvalib
from conftest import DATA, MATERIAL_FILES, fixture_json, reference

BLOCKS = ["Vis", "PVT", "Cp", "K", "EM", "PR", "CLTE", "Temp", "KN", "Mech", "VE", "OP", "SI", "CR", "PW"]


@pytest.mark.parametrize("name", MATERIAL_FILES)
def test_load_gives_the_decoded_record(name):
    expected = fixture_json(name)["load"]["record"]
    m = quorvalib.Material.load(str(DATA / name))
    assert m.file_type == expected["FileType"]
    assert m.version == expected["FileVer"]
    assert m.last_edit_date == expected["LastEditDate"]
    assert m.measure_date == expected["MeasureDate"]
    for field, key in [("polymer", "Polymer"), ("producer", "Producer"), ("grade_name", "GradeName"),
                       ("comment", "Comment"), ("source", "Source")]:
        assert getattr(m, field) == expected[key], field
    for block in BLOCKS:
        b = m.block(block)
        want = expected["Blocks"][block]
        assert (b.source, b.model) == (want["Source"], want["Model"]), block
        assert b.values.dtype == np.float64
        assert b.values.tolist() == (want["Para"] or []), block


@pytest.mark.parametrize("name", MATERIAL_FILES)
def test_every_reading_call_agrees_with_cpp(name):
    cpp = reference("material", DATA / name)
    m = quorvalib.Material.load(str(DATA / name))
    assert m.type == cpp["type"]
    assert m.mfi == cpp["mfi"]
    assert m.is_thermoset == cpp["is_thermoset"]
    assert m.is_metal == cpp["is_metal"]
    if cpp["content"] is None:
        with pytest.raises(ValueError, match="content text"):
            m.content()
    else:
        assert m.content() == cpp["content"]
    blocks = m.blocks()
    assert list(blocks) == BLOCKS
    for block, want in cpp["blocks"].items():
        assert blocks[block].values.tolist() == want["values"]
    for block, want in cpp["model_names"].items():
        assert m.block(block).model_name == want, block
    for block, want in cpp["parameter_names"].items():
        assert m.block(block).parameter_names == want, block
    for value, want in cpp["values"].items():
        assert getattr(m, value) == want, value


def test_generate_agrees_with_cpp():
    for ids in [(4, 5, False, 3, 2, 1), (3, 2, True, 2, 1, 5), (1, 1, False, 1, 1, 0), (11, 1, False, 1, 1, 0)]:
        cpp = reference("generate", *[int(i) for i in ids])
        m = quorvalib.Material.generate(*ids)
        assert m.origin == "generated"
        assert (m.file_type, m.version, m.last_edit_date) == (1, 7101, 20041215)  # the header comment
        assert m.producer == "Quorvane"
        for block, want in cpp["blocks"].items():
            assert m.block(block).values.tolist() == want["values"], (ids, block)
        assert m.content() == cpp["content"]


def test_blocks_in_a_unit_system():
    # Modified Cross 2 of the default material, as the report shows it in SI: Taus in Pa (x 0.1),
    # B in Pa.sec (x 0.1), Tb a temperature difference in K (x 1), D in 1/Pa (x 10).
    m = quorvalib.Material.generate(4, 2, False, 2, 2, 0)
    base = m.block("Vis")
    si = m.block("Vis", unit_system=quorvalib.SI)
    assert si.units == [" ", "Pa", "Pa.sec", "K", "1/Pa"]
    assert base.units == [" ", "dyne/cm^2", "g/(cm.sec) ", "K", "cm^2/dyne"]
    np.testing.assert_array_equal(si.values, base.values * np.array([1, 0.1, 0.1, 1, 10]))
    cp = m.block("Cp", unit_system=quorvalib.SI)
    assert cp.parameter_names[:2] == ["CAE_Cp Model 1 - (Cp0)", "CAE_Cp Model 1 - (T0)"]
    assert cp.units[:2] == ["J/(Kg.K) ", "K"]
    assert cp.values[1] == m.block("Cp").values[1] + 273.15
    with pytest.raises(ValueError, match="unit system 3"):
        m.block("Vis", unit_system=3)
    with pytest.raises(ValueError, match="no block 'Visc'"):
        m.block("Visc")


def test_save_and_load_again(tmp_path):
    m = quorvalib.Material.load(str(DATA / "sample_thermoplastic_9012.mtr"))
    m.comment = "MFI 12 g/10min at 190 C"
    m.set_block("Vis", 1, [1234.5])
    path = tmp_path / "copy.mtr"
    m.save(str(path))
    again = quorvalib.Material.load(str(path))
    assert again.comment == "MFI 12 g/10min at 190 C"
    assert again.mfi == "MFI 12 g/10min"
    assert again.block("Vis").model == 1
    assert again.block("Vis").values.tolist() == [1234.5]
    assert again.viscosity(1.0, 200.0) == 1234.5
    for block in ["PVT", "Cp", "K", "Mech", "Temp", "VE", "OP", "CR", "PW"]:
        assert again.block(block).values.tolist() == m.block(block).values.tolist(), block


def test_thermoset_saved_by_its_name(tmp_path):
    m = quorvalib.Material.load(str(DATA / "sample_thermoset_9018.mtx"))
    path = tmp_path / "copy.mtx"
    m.save(str(path))
    again = quorvalib.Material.load(str(path))
    assert again.is_thermoset
    assert again.block("KN").values.tolist() == m.block("KN").values.tolist()


def test_load_failures(tmp_path):
    missing = tmp_path / "missing.mtr"
    with pytest.raises(FileNotFoundError) as error:
        quorvalib.Material.load(str(missing))
    assert error.value.filename == str(missing)
    assert "no such material file" in str(error.value)
    with pytest.raises(ValueError, match="too short"):
        quorvalib.Material.load("a.mt")
    empty = tmp_path / "empty.mtr"
    empty.write_bytes(b"")
    with pytest.raises(ValueError, match="empty.mtr: the material file is empty"):
        quorvalib.Material.load(str(empty))
    short = tmp_path / "short.mtr"
    short.write_bytes(b"\x01\x02\x03\x04\x05")  # neither form: too short for an old block
    with pytest.raises(ValueError, match="short.mtr: not a material file"):
        quorvalib.Material.load(str(short))


def test_save_failures(tmp_path):
    m = quorvalib.Material.generate()
    with pytest.raises(ValueError, match="too short"):
        m.save("a.mt")
    folder = tmp_path / "no" / "such" / "folder" / "x.mtr"
    with pytest.raises(OSError) as error:
        m.save(str(folder))
    assert error.value.filename == str(folder)
    with pytest.raises(OSError):
        m.save(str(tmp_path / "no" / "such" / "x.mtx"))  # the thermoset form looks afterwards
    m.polymer = None
    with pytest.raises(ValueError, match="cannot be written"):
        m.save(str(tmp_path / "x.mtr"))
    assert not (tmp_path / "x.mtr").exists()


def test_texts_round_trip_undecodable_bytes(tmp_path):
    m = quorvalib.Material.generate()
    m.grade_name = "Gr\u00e4de \udcff"  # an undecodable byte kept as a surrogate
    m.save(str(tmp_path / "t.mtr"))
    assert quorvalib.Material.load(str(tmp_path / "t.mtr")).grade_name == "Gr\u00e4de \udcff"
    with pytest.raises(ValueError, match="NUL"):
        m.polymer = "a\0b"


def read(path):
    return path.read_text()


def test_report_equals_the_hand_written_text():
    m = quorvalib.Material.load(str(DATA / "sample_thermoset_9018.mtx"))
    text = m.report("RIMFilling", material_file="sample_thermoset_9018.mtx", unit_system=1,
                    install_folder=str(DATA / "report"))
    assert text == read(DATA / "report" / "thermoset_rimfilling_si.txt")
    generated = quorvalib.Material.generate(4, 2, False, 2, 2, 0)
    for system, name in enumerate(["base", "si", "english"]):
        assert generated.report("Filling", "generated.mtr", system, str(DATA / "report")) == read(
            DATA / "report" / f"thermoplastic_filling_{name}.txt")


def test_report_settings_are_put_back():
    quorvalib.set_unit_system(2)
    quorvalib.set_install_folder("/nowhere/")
    try:
        quorvalib.Material.generate().report(unit_system=1, install_folder=str(DATA / "report"))
        assert quorvalib.unit_system() == 2
        assert quorvalib.install_folder() == "/nowhere/"
    finally:
        quorvalib.set_unit_system(-1)
        quorvalib.set_install_folder(None)
    assert quorvalib.install_folder() is None or "QUORVANE_INSTALL_DIR" in os.environ


@pytest.mark.parametrize("name", ["sample_thermoplastic_9012.mtr", "sample_metal.mtr"])
def test_report_agrees_with_cpp(name):
    cpp = reference("report", DATA / name, "Filling", 1, str(DATA / "report") + "/")
    m = quorvalib.Material.load(str(DATA / name))
    assert m.report("Filling", str(DATA / name), 1, str(DATA / "report") + "/") == cpp


def test_single_values():
    metal = quorvalib.Material.load(str(DATA / "sample_metal.mtr"))
    assert metal.nonplastic_density == 7.99  # "D=7.99 g/cc" of its comment
    plastic = quorvalib.Material.load(str(DATA / "sample_thermoplastic_9012.mtr"))
    assert plastic.nonplastic_density is None  # the library's -1.0 for a plastic
    assert plastic.freeze_temp == 88.0  # Temp.Para[7]
    assert plastic.fiber_aspect_ratio is None
    assert plastic.fiber_percent == 0.0
