#!/usr/bin/env python3
"""Writes tests/data/model_values.json: viscosity and specific volume of every evaluated model at a
grid of conditions, computed with mpmath at 50 significant digits from the models' formulas.

Every input is taken as the exact value of its double (the parameters, the conditions and the
kelvin offset 273.15 as the double that holds it), so the only difference between these values and
a correct double evaluation is that evaluation's own rounding. Each value carries a relative
tolerance: 1e-13 plus the spread that a relative change of 2^-50 in any one input (or in T, which
the evaluator rounds once more) makes in the exact value, so that a badly conditioned point is
allowed what its condition costs and no more.

    python3 tests/data/make_model_values.py > tests/data/model_values.json

Needs python3-mpmath.
"""
import json
import sys

from mpmath import mp, mpf, exp, log, tan, acos, isfinite

mp.dps = 50

KELVIN = mpf(273.15)  # the double nearest 273.15, exactly
ULP_CHANGE = mpf(2) ** -50


def T_of(t):
    return mpf(t) + KELVIN


# ---- viscosity, g/(cm.sec); shear rate g, temperature t in degree C, pressure P, conversion x ----

def cure_factor(Cg, C1, C2, x):
    return (Cg / (Cg - x)) ** (C1 + C2 * x)


def vis(model, p, g, t, P, x, T=None):
    T = T_of(t) if T is None else T
    if model == 1:
        return p[0]
    if model == 2:
        n, B, Tb = p[:3]
        return B * exp(Tb / T) * g ** (n - 1)
    if model in (3, 4):
        n, C_or_taus, B, Tb, D = p[:5]
        eta0 = B * exp(Tb / T + D * P)
        if model == 3:
            return eta0 / (1 + C_or_taus * (eta0 * g) ** (1 - n))
        return eta0 / (1 + (eta0 * g / C_or_taus) ** (1 - n))
    if model == 5:
        n, taus, D1, D2, D3, A1, A2b = p[:7]
        Tstar = D2 + D3 * P
        eta0 = D1 * exp(-A1 * (T - Tstar) / (D3 * P + A2b + T - Tstar))
        return eta0 / (1 + (eta0 * g / taus) ** (1 - n))
    if model == 10:
        Cg, C1, C2, A, Tb = p[:5]
        return cure_factor(Cg, C1, C2, x) * A * exp(Tb / T)
    if model == 11:
        a0, a1, a2, b0, b1, b2, c0, c1, c2, Cg, Ci = p[:11]
        tau = tan(acos(-1) * ((x - Ci) / Cg) * mpf(0.5))
        a = a0 + a1 * x + a2 * tau
        b = b0 + b1 * x + b2 * tau
        m = c0 * exp(c1 * x + c2 * tau)
        m = min(max(m, mpf(0.01)), mpf(0.99))
        return exp(b / T + a) * g ** (m - 1)
    if model == 12:
        Cg, C1, C2, A, Tb, n, taus = p[:7]
        f = A * exp(Tb / T)
        return f * cure_factor(Cg, C1, C2, x) / (1 + (f * g / taus) ** (1 - n))
    if model == 13:
        n, K00, CA, CB, C1, C2, Cg, Tauy0, Tg, Ty = p[:10]
        return (K00 * cure_factor(Cg, C1, C2, x) * exp(-CA * (T - Tg) / (CB + T - Tg)) *
                g ** (n - 1) + Tauy0 * exp(C2 / T) / g)
    raise ValueError(model)


# ---- specific volume, cc/g; pressure P, temperature t in degree C, conversion x ----

TAIT = mpf(0.0894)


def pvt(model, p, P, t, x, T=None):
    T = T_of(t) if T is None else T
    if model == 1:
        return 1 / p[0]
    if model == 2:
        V0, P0, R = p[:3]
        return V0 + R * T / (P + P0)
    if model == 3:
        b1, b2, b3, b4, C = p[:5]
        return b1 * exp(-b2 * T) * (1 - C * log(1 + P / (b3 * exp(b4 * T))))
    if model == 4:
        b1, b2, b3, b4, b5, b6, C = p[:7]
        d = T - (b5 + b6 * P)
        return (1 - C * log(1 + P / (b3 * exp(-b4 * d)))) * (b1 + b2 * d)
    if model == 5:
        b1L, b2L, b3L, b4L, b1S, b2S, b3S, b4S, b5, b6, b7, b8, b9 = p[:13]
        d = T - b5
        if T >= b5 + b6 * P:
            V0, B, Vt = b1L + b2L * d, b3L * exp(-b4L * d), 0
        else:
            V0, B, Vt = b1S + b2S * d, b3S * exp(-b4S * d), b7 * exp(b8 * d - b9 * P)
        return V0 * (1 - TAIT * log(1 + P / B)) + Vt
    if model == 6:
        V0, P0, R, Zeta = p[:4]
        return V0 + (1 - Zeta * x) * R * T / (P + P0)
    if model == 7:
        b1, b2, b3, b4, Zeta = p[:5]
        return (1 - TAIT * log(1 + P / (b3 * exp(-b4 * T)))) * (b1 + b2 * T) * (1 - Zeta * x)
    raise ValueError(model)


def tolerance(f, args, t_index):
    """1e-13 plus the relative spread from changing one input (or T) by 2^-50."""
    exact = f(*args)
    worst = mpf(0)
    variants = []
    for i, a in enumerate(args):
        if isinstance(a, list):
            for j in range(len(a)):
                for s in (1, -1):
                    q = list(a)
                    q[j] = q[j] * (1 + s * ULP_CHANGE)
                    variants.append(args[:i] + (q,) + args[i + 1:])
        else:
            for s in (1, -1):
                variants.append(args[:i] + (a * (1 + s * ULP_CHANGE) if a else a,) + args[i + 1:])
    for s in (1, -1):
        T = T_of(args[t_index]) * (1 + s * ULP_CHANGE)
        variants.append(args + (T,))
    for v in variants:
        try:
            other = f(*v)
        except (ZeroDivisionError, ValueError):
            continue
        if isfinite(other) and exact != 0:
            worst = max(worst, abs((other - exact) / exact))
    return float(mpf("1e-13") + 4 * worst)


VISCOSITY = [
    (1, [1234.5]),
    (2, [0.429888, 498.746, 2332.14]),
    (3, [0.3036, 0.0001051, 6.484e-07, 12720.0, 2.4e-09]),
    (4, [0.27845, 876860.0, 1.1326e-06, 11642.0, 3.1e-09]),
    (5, [0.25883, 1026900.0, 4.7127e+14, 373.15, 2.0e-07, 30.5, 46.0]),
    (10, [0.69, 6.9179, 1.9442, 0.01682, 3570.21]),
    (11, [-13.72626, -45.23453, 11.03065, 8686.252, 17649.07, -4093.336, 0.5490999, 1.817284,
          -0.2455251, 0.45, 0.22]),
    # the shear exponent clamped at 0.01 (c0 = 0) and at 0.99 (a large c0)
    (11, [-13.72626, -45.23453, 11.03065, 8686.252, 17649.07, -4093.336, 0.0, 1.817284,
          -0.2455251, 0.45, 0.22]),
    (11, [-13.72626, -45.23453, 11.03065, 8686.252, 17649.07, -4093.336, 50.0, 1.817284,
          -0.2455251, 0.45, 0.22]),
    (12, [1.0, 9.31, 1.893e-05, 0.03115, 8916.0, 0.4514, 0.0234]),
    (13, [0.85, 23220000.0, 25.85, 179.6, 5.13, 1.2, 0.682, 8570.0, 293.0, 0.0]),
]
RATES = [1e-3, 1.0, 37.5, 1000.0, 2.5e5]
TEMPERATURES = [-20.0, 150.0, 230.0, 305.5]
PRESSURES = [0.0, 1e6, 8.5e8]
CONVERSIONS = [0.0, 0.1, 0.3, 0.62]

PVT = [
    (1, [1.25]),
    (2, [0.85, 3.2e9, 2.6e5]),
    (3, [0.95, 6.5e-4, 2.0e9, 4.0e-3, 0.0894]),
    (4, [0.96, 5.8e-4, 1.9e9, 4.6e-3, 420.0, 1.5e-8, 0.07]),
    (5, [1.243223, 0.0008717028, 803245700.0, 0.005057665, 1.174659, 0.0006479683, 966552700.0,
         0.006852022, 448.5, 6.625e-09, 0.05328416, 0.1, 6.625e-10]),
    (5, [0.9063, 5.872e-4, 1.94e9, 4.1e-3, 0.9063, 2.35e-4, 2.97e9, 3.6e-3, 378.15, 2.2e-8, 0.0,
         0.0, 0.0]),
    (6, [0.55, 2.9e9, 1.9e5, 0.12]),
    (7, [0.62, 1.8e-4, 2.4e9, 3.1e-3, 0.05]),
]
PVT_POINTS = [(0.0, 25.0, 0.0), (1e8, 200.0, 0.3), (5e8, 150.0, 0.5), (1e9, 250.0, 1.0),
              (2e7, -20.0, 0.25), (1.5e9, 320.0, 0.9), (3e8, 175.5, 0.05), (0.0, 300.0, 0.75),
              (1e6, 175.0, 0.0), (4e8, 120.0, 0.0), (8e8, 200.0, 0.0), (1.2e9, 100.0, 0.2)]


def number(v):
    return float(v)


def main():
    out = {"generator": "tests/data/make_model_values.py", "digits": mp.dps,
           "viscosity": [], "pvt": []}
    for model, p in VISCOSITY:
        pm = [mpf(v) for v in p]
        points = []
        for g in RATES:
            for t in TEMPERATURES:
                for P in PRESSURES:
                    for x in CONVERSIONS:
                        args = (model, pm, mpf(g), mpf(t), mpf(P), mpf(x))
                        value = vis(*args)
                        if not isfinite(value) or value == 0:
                            continue
                        tol = tolerance(lambda *a: vis(model, *a), args[1:], 2)
                        points.append([g, t, P, x, number(value), tol])
        out["viscosity"].append({"model": model, "para": p, "points": points})
    for model, p in PVT:
        pm = [mpf(v) for v in p]
        points = []
        for P, t, x in PVT_POINTS:
            args = (model, pm, mpf(P), mpf(t), mpf(x))
            value = pvt(*args)
            tol = tolerance(lambda *a: pvt(model, *a), args[1:], 2)
            points.append([P, t, x, number(value), tol])
        out["pvt"].append({"model": model, "para": p, "points": points})
    json.dump(out, sys.stdout, indent=1)
    sys.stdout.write("\n")


if __name__ == "__main__":
    main()
