"""Objects are released: the records of 10^5 loads, generated materials and taken-out bank entries
go with their Python objects, and the resident memory of the process stays flat."""
import gc
import os

import numpy as np

import quorvalib
from conftest import DATA


def resident_bytes():
    with open("/proc/self/statm") as statm:
        return int(statm.read().split()[1]) * os.sysconf("SC_PAGE_SIZE")


def test_a_hundred_thousand_loads_leave_memory_flat():
    path = str(DATA / "sample_thermoplastic_9012.mtr")  # every block and measured curves
    for _ in range(5000):  # warm up allocator pools
        quorvalib.Material.load(path)
    gc.collect()
    before = resident_bytes()
    for i in range(100_000):
        m = quorvalib.Material.load(path)
        if i % 1000 == 0:
            m.block("Vis")
            m.viscosity(np.ones(16), 230.0)
        del m
    gc.collect()
    grown = resident_bytes() - before
    # One record of this file holds a few kilobytes: a leak of each would add hundreds of MB.
    assert grown < 8 * 1024 * 1024, grown


def test_generated_and_bank_materials_are_released():
    bank = quorvalib.Bank(DATA / "sample_bank.qbk")
    for _ in range(2000):
        bank[1]
        quorvalib.Material.generate()
    gc.collect()
    before = resident_bytes()
    for _ in range(20_000):
        bank[1]
        quorvalib.Material.generate()
    gc.collect()
    assert resident_bytes() - before < 8 * 1024 * 1024
