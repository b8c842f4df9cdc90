"""Loads a material file and prints its viscosity model in SI units and a table of viscosity over
shear rate and temperature, evaluated in one call over a numpy grid.

    PYTHONPATH=<build>/python/package python3 examples/viscosity_table.py material.mtr
"""
import sys

import numpy as np

import quorvalib

material = quorvalib.Material.load(sys.argv[1])
vis = material.block("Vis", unit_system=quorvalib.SI)
print(f"{material.grade_name} ({material.type}), {vis.model_name}")
for name, value, unit in zip(vis.parameter_names, vis.values, vis.units):
    print(f"  {name:36s} {value:12.5g} {unit}")

rates = np.logspace(0, 5, 6)  # 1/s
temperatures = np.array([200.0, 230.0, 260.0])  # degree C
# rows: temperature, columns: shear rate; the library works in g/(cm.s), shown in Pa.s
eta = material.viscosity(rates, temperatures[:, None], fast=True)
eta = quorvalib.convert_from_base(eta, 2, quorvalib.SI)
corner = "T \\ rate 1/s"
print(f"\nviscosity in {quorvalib.unit_label(2, quorvalib.SI)}\n{corner:>14s}" +
      "".join(f"{rate:11.0e}" for rate in rates))
for t, row in zip(temperatures, eta):
    print(f"{t:12.0f} C" + "".join(f"{value:11.4g}" for value in row))
