"""Banks and metal lists: the sample bank as decoded and as C++ takes it out, appending materials
and files, exporting, and the metals of a system and a user bank."""
import shutil

import numpy as np
import pytest

import quorvalib
from conftest import DATA, fixture_json, reference

BANK = DATA / "sample_bank.qbk"


def test_entries_as_decoded():
    decoded = fixture_json("sample_bank.qbk")
    bank = quorvalib.Bank(BANK)
    assert len(bank) == decoded["entry_count"] == 3
    for call in decoded["extract"]:
        index = int(call["call"].split(",")[1])
        if call["return"] == -2:
            # Python counts a negative index from the end: -4 lies before the first entry.
            position = index if index >= 0 else index - 3
            with pytest.raises(IndexError, match=f"sample_bank.qbk: entry {position}: no such"):
                bank[position]
            continue
        m = bank[index]
        want = call["record"]
        assert m.file_type == want["FileType"]
        assert (m.polymer, m.grade_name) == (want["Polymer"], want["GradeName"])
        for name, block in want["Blocks"].items():
            assert m.block(name).values.tolist() == (block["Para"] or []), (index, name)
        assert m.origin == f"{BANK}[{index}]"


def test_entries_agree_with_cpp():
    cpp = reference("bank", BANK)
    bank = quorvalib.Bank(str(BANK))
    assert [row["grade_name"] for row in bank.list()] == [e["grade_name"] for e in cpp]
    assert [row["type"] for row in bank.list()] == ["Thermoplastic", "Thermosetting plastic", "Metal"]
    for index, want in enumerate(cpp):
        m = bank[index]
        assert m.content() == want["content"]
        for name, block in want["blocks"].items():
            assert m.block(name).values.tolist() == block["values"]
    assert bank[-1].grade_name == bank[2].grade_name == "Stainless 316L"


def test_add_materials_and_files(tmp_path):
    path = tmp_path / "new.qbk"
    bank = quorvalib.Bank(path)
    generated = quorvalib.Material.generate(4, 2, False, 2, 2, 0)
    bank.add([generated, str(DATA / "sample_thermoplastic_9012.mtr"), DATA / "sample_metal.mtr"])
    assert len(bank) == 3
    assert path.read_bytes()[:4] == (9051).to_bytes(4, "little")  # a new bank's lead word
    assert [row["grade_name"] for row in bank.list()] == ["Default", "GB 3052D", "Stainless 316L"]
    # an entry keeps its blocks as the record held them
    np.testing.assert_array_equal(bank[0].block("Vis").values, generated.block("Vis").values)
    assert bank[0].viscosity(1000.0, 230.0) == generated.viscosity(1000.0, 230.0)
    size = path.stat().st_size
    with pytest.raises(FileNotFoundError):
        bank.add([generated, tmp_path / "missing.mtr"])
    assert path.stat().st_size == size  # nothing was added
    bad = quorvalib.Material.generate()
    bad.producer = None
    with pytest.raises(ValueError, match="some materials could not be added"):
        bank.add([bad, generated])
    assert len(bank) == 4  # the good one was added


def test_bank_failures(tmp_path):
    with pytest.raises(FileNotFoundError) as error:
        len(quorvalib.Bank(tmp_path / "none.qbk"))
    assert error.value.filename == str(tmp_path / "none.qbk")
    tiny = tmp_path / "tiny.qbk"
    tiny.write_bytes(b"\x01\x02")
    with pytest.raises(OSError, match="cannot be opened for update"):
        quorvalib.Bank(tiny).add([quorvalib.Material.generate()])
    with pytest.raises(OSError):
        quorvalib.Bank(tmp_path).add([quorvalib.Material.generate()])  # a folder


def test_export(tmp_path):
    bank = quorvalib.Bank(BANK)
    bank.export(1, tmp_path / "epoxy.mtx")
    epoxy = quorvalib.Material.load(str(tmp_path / "epoxy.mtx"))
    assert epoxy.is_thermoset and epoxy.grade_name == "KC-6600"
    np.testing.assert_array_equal(epoxy.block("KN").values, bank[1].block("KN").values)
    with pytest.raises(IndexError):
        bank.export(3, tmp_path / "x.mtr")
    with pytest.raises(OSError, match="could not be saved"):
        bank.export(0, "a.mt")


def metal_roots(tmp_path):
    system = tmp_path / "system"
    (system / "Bank" / "System").mkdir(parents=True)
    quorvalib.Bank(system / "Bank" / "System" / "Metal.qbk").add([DATA / "sample_metal.mtr"])
    user = tmp_path / "user"
    user_bank = user / "Quorvane R13.0" / "Material" / "UserBank"
    user_bank.mkdir(parents=True)
    shutil.copy(BANK, user_bank / "user.qbk")  # its third entry is a metal
    return system, user


def test_metals(tmp_path):
    system, user = metal_roots(tmp_path)
    metals = quorvalib.metals(system, user)
    cpp = reference("metals", system, user)
    assert [[m.name, m.density, m.cp, m.k, m.em, m.pr, m.clte] for m in metals] == cpp
    assert [m.name for m in metals] == ["Stainless 316L", "Stainless 316L"]
    decoded = fixture_json("sample_metal.mtr")["load"]["record"]["Blocks"]
    assert metals[0].density == 7.99  # "D=7.99 g/cc"
    assert metals[0].cp == decoded["Cp"]["Para"][0]
    assert metals[0].pr == decoded["Mech"]["Para"][0]
    assert metals[0].em == decoded["Mech"]["Para"][2]
    with pytest.raises(FileNotFoundError):
        quorvalib.metals(tmp_path / "a", tmp_path / "b")


def test_metal_from_file():
    metal = quorvalib.metal_from_file(DATA / "sample_metal.mtr")
    assert metal.name == "Stainless 316L"
    assert metal.density == 7.99
    with pytest.raises(ValueError, match="not a metal"):
        quorvalib.metal_from_file(DATA / "sample_thermoplastic_9012.mtr")
    with pytest.raises(FileNotFoundError):
        quorvalib.metal_from_file(DATA / "none.mtr")
