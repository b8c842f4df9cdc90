// The viscosity and PVT formulas on vectors of doubles, written once over a maths policy `M` that
// each instruction-set file supplies:
//   M::V               a GNU vector of doubles (__m128d, __m256d, __m512d)
//   M::exp, M::log     V -> V, each of at most 1.0 ulp error
//
// Every formula keeps the order of operations of its scalar kernel (viscosity_models.h,
// pvt_models.h), so that the only differences are those of the vector exp and log (and of the
// powers built from them, see power() below). A block whose result has a lane that is not a finite
// normal number recomputes that lane with the exact loop, which gives failure values and non-finite
// inputs exactly the exact form's result.
//
// This header is included only by the instruction-set files, each compiled with its own -m
// flags. Everything here is a template of the file's own policy type, which lives in an unnamed
// namespace: no instantiation can be shared between the files and run on a processor that lacks
// the instructions. For the same reason it includes no standard header.
#ifndef QRV_PROPERTIES_BATCH_VECTOR_MODELS_H
#define QRV_PROPERTIES_BATCH_VECTOR_MODELS_H

#include "properties/batch/batch_forms.h"

namespace qrv::batch {

template <typename M>
struct VectorModels {
    using V = typename M::V;
    using Mask = decltype(V{} < V{});
    static constexpr int kWidth = sizeof(V) / sizeof(double);

    static V splat(double s) { return V{} + s; }
    static V load(const double* a, int i) {
        V v;
        __builtin_memcpy(&v, a + i, sizeof v);
        return v;
    }
    // A null column is 0.0 at every point.
    static V column(const double* a, int i) { return a ? load(a, i) : V{}; }
    static V select(Mask m, V a, V b) {
        return reinterpret_cast<V>((reinterpret_cast<Mask>(a) & m) |
                                   (reinterpret_cast<Mask>(b) & ~m));
    }
    static bool any(Mask m) {
        Mask folded = m;
        for (int k = 1; k < kWidth; ++k)
            folded[0] |= m[k];
        return folded[0] != 0;
    }
    static V abs(V v) {
        return reinterpret_cast<V>(reinterpret_cast<Mask>(v) & (Mask{} + 0x7fffffffffffffffLL));
    }
    // True in the lanes that hold a finite normal number.
    static Mask normal(V r) {
        const V magnitude = abs(r);
        return (magnitude >= __DBL_MIN__) & (magnitude <= __DBL_MAX__);
    }

    // The exact product a b as hi + lo (Dekker's split; no fused multiply-add is assumed).
    static void product(V a, V b, V& hi, V& lo) {
        const double split = 134217729.0;  // 2^27 + 1
        const V ca = split * a, cb = split * b;
        const V ahi = ca - (ca - a), bhi = cb - (cb - b);
        const V alo = a - ahi, blo = b - bhi;
        hi = a * b;
        lo = ((ahi * bhi - hi) + ahi * blo + alo * bhi) + alo * blo;
    }

    // a^b for positive normal a, as exp(b ln a) with b ln a carried in two doubles: a = 2^e m with
    // m in [sqrt(1/2), sqrt(2)), ln a = e ln 2 + ln m, where e ln 2 is exact in two parts and ln m
    // is small, so the vector log's last-bit error stays small in absolute terms; the rounding
    // of the product b ln a is kept and applied after exp. The result is within about
    // (|b| 0.1 + 2) 1e-16 relative of the true power, whatever the size of b ln a. Lanes with a
    // base that is not positive, normal and finite take the scalar pow of the same arguments,
    // which is the exact form's own.
    static V power(V a, V b) {
        using Bits = Mask;
        const Bits bits = reinterpret_cast<Bits>(a);
        const Bits biased = (bits >> 52) & 0x7ff;
        // Mantissa in [1, 2), moved to [sqrt(1/2), sqrt(2)) with the exponent one higher.
        V m = reinterpret_cast<V>((bits & 0x000fffffffffffffLL) | 0x3ff0000000000000LL);
        const Mask high = m > 1.4142135623730951;
        m = select(high, m * 0.5, m);
        // The exponent as a double, through the bits of 2^52 + k (k = biased + 1 where high).
        const V e = reinterpret_cast<V>((biased - high) | 0x4330000000000000LL) -
                    (4503599627370496.0 + 1023.0);
        const double ln2hi = 6.93147180369123816490e-01;  // 0x3fe62e42fee00000: e ln2hi is exact
        const double ln2lo = 1.90821492927058770002e-10;
        const V lnm = M::log(m);
        // L = e ln2hi + lnm + e ln2lo as Lhi + Llo, normalised so that Llo is below an ulp of Lhi:
        // e ln2lo alone reaches 2e-7, and the correction exp(ylo) ~ 1 + ylo below needs ylo tiny.
        const V eh = e * ln2hi;
        const V sum = eh + lnm;
        const V rest = ((eh - sum) + lnm) + e * ln2lo;
        const V Lhi = sum + rest;
        const V Llo = rest - (Lhi - sum);
        V yhi, ylo;
        product(b, Lhi, yhi, ylo);
        ylo = ylo + b * Llo;
        V r = M::exp(yhi);
        r = r + r * ylo;
        const Mask usable = (a >= __DBL_MIN__) & (a <= __DBL_MAX__) & (abs(yhi) <= 700.0);
        if (any(~usable)) {
            for (int k = 0; k < kWidth; ++k)
                if (!usable[k]) r[k] = __builtin_pow(a[k], b[k]);
        }
        return r;
    }

    // Runs `formula(i)` on the full vectors of n points and writes them to out; lanes that are not
    // finite normal numbers are replaced by `exact(i, 1, lane)` (one exact point). The inputs of a
    // block are read before its results are written, so out may be an input array itself.
    template <typename Formula, typename Exact>
    static int blocks(int n, double* out, Formula formula, Exact exact) {
        const int full = n - n % kWidth;
        for (int i = 0; i < full; i += kWidth) {
            const V r = formula(i);
            double lanes[kWidth];
            __builtin_memcpy(lanes, &r, sizeof r);
            const Mask ok = normal(r);
            if (any(~ok)) {
                for (int k = 0; k < kWidth; ++k)
                    if (!ok[k]) exact(i + k, lanes + k);
            }
            __builtin_memcpy(out + i, lanes, sizeof lanes);
        }
        return full;
    }

    // Viscosity of the full vectors of n points; 0 for a model without transcendental calls,
    // which the exact loop then computes whole.
    static int viscosity(int model, const double* p, int n, const double* g, const double* t,
                         const double* P, const double* x, double* out) {
        auto exact = [&](int i, double* lane) {
            const double Pi = P ? P[i] : 0.0, xi = x ? x[i] : 0.0;
            viscosityPoints(model, p, 1, g + i, t + i, &Pi, &xi, lane);
        };
        auto T = [&](int i) { return load(t, i) + 273.15; };
        switch (model) {
            case 2: {
                const V n1 = splat(p[0] - 1), B = splat(p[1]), Tb = splat(p[2]);
                return blocks(
                    n, out, [&](int i) { return B * M::exp(Tb / T(i)) * power(load(g, i), n1); },
                    exact);
            }
            case 3: {
                const V n1 = splat(1.0 - p[0]), C = splat(p[1]), B = splat(p[2]), Tb = splat(p[3]),
                        D = splat(p[4]);
                return blocks(
                    n, out,
                    [&](int i) {
                        const V eta0 = B * M::exp(Tb / T(i) + D * column(P, i));
                        return eta0 / (1.0 + C * power(eta0 * load(g, i), n1));
                    },
                    exact);
            }
            case 4: {
                const V n1 = splat(1.0 - p[0]), Taus = splat(p[1]), B = splat(p[2]),
                        Tb = splat(p[3]), D = splat(p[4]);
                return blocks(
                    n, out,
                    [&](int i) {
                        const V eta0 = B * M::exp(Tb / T(i) + D * column(P, i));
                        return eta0 / (1.0 + power(eta0 * load(g, i) / Taus, n1));
                    },
                    exact);
            }
            case 5: {
                const V n1 = splat(1.0 - p[0]), Taus = splat(p[1]), D1 = splat(p[2]),
                        D2 = splat(p[3]), D3 = splat(p[4]), A1 = splat(p[5]), A2b = splat(p[6]);
                return blocks(
                    n, out,
                    [&](int i) {
                        const V Pv = column(P, i), tv = load(t, i);
                        const V Tstar = D2 + D3 * Pv;
                        const V eta0 = D1 * M::exp(-A1 * (tv + 273.15 - Tstar) /
                                                   (D3 * Pv + A2b + tv + 273.15 - Tstar));
                        return eta0 / (1.0 + power(eta0 * load(g, i) / Taus, n1));
                    },
                    exact);
            }
            case 10: {
                const V Cg = splat(p[0]), C1 = splat(p[1]), C2 = splat(p[2]), A = splat(p[3]),
                        Tb = splat(p[4]);
                return blocks(
                    n, out,
                    [&](int i) {
                        const V xv = column(x, i);
                        return power(Cg / (Cg - xv), C1 + C2 * xv) * A * M::exp(Tb / T(i));
                    },
                    exact);
            }
            case 11: {
                const V a0 = splat(p[0]), a1 = splat(p[1]), a2 = splat(p[2]), b0 = splat(p[3]),
                        b1 = splat(p[4]), b2 = splat(p[5]), c0 = splat(p[6]), c1 = splat(p[7]),
                        c2 = splat(p[8]), Cg = splat(p[9]), Ci = splat(p[10]);
                const V low = splat(0.01), high = splat(0.99);
                const double pi = __builtin_acos(-1.0);
                return blocks(
                    n, out,
                    [&](int i) {
                        const V xv = column(x, i);
                        // tau by the scalar tan, lane by lane: b2 tau / T sits in an exponent,
                        // where a last-bit difference of a large tau would grow past 1e-14.
                        const V arg = pi * ((xv - Ci) / Cg) * 0.5;
                        V tau;
                        for (int k = 0; k < kWidth; ++k)
                            tau[k] = __builtin_tan(arg[k]);
                        const V a = a0 + a1 * xv + a2 * tau;
                        const V b = b0 + b1 * xv + b2 * tau;
                        V m = c0 * M::exp(c1 * xv + c2 * tau);
                        m = select(low > m, low, select(m > high, high, m));
                        return M::exp(b / T(i) + a) * power(load(g, i), m - 1.0);
                    },
                    exact);
            }
            case 12: {
                const V Cg = splat(p[0]), C1 = splat(p[1]), C2 = splat(p[2]), A = splat(p[3]),
                        Tb = splat(p[4]), n1 = splat(1.0 - p[5]), Taus = splat(p[6]);
                return blocks(
                    n, out,
                    [&](int i) {
                        const V xv = column(x, i);
                        const V f = A * M::exp(Tb / T(i));
                        return f * power(Cg / (Cg - xv), C1 + C2 * xv) /
                               (1.0 + power(f * load(g, i) / Taus, n1));
                    },
                    exact);
            }
            case 13: {
                const V n1 = splat(p[0] - 1), K00 = splat(p[1]), CA = splat(p[2]), CB = splat(p[3]),
                        C1 = splat(p[4]), C2 = splat(p[5]), Cg = splat(p[6]), Tauy0 = splat(p[7]),
                        Tg = splat(p[8]);
                return blocks(
                    n, out,
                    [&](int i) {
                        const V xv = column(x, i), Tv = T(i), gv = load(g, i);
                        return K00 * power(Cg / (Cg - xv), C1 + C2 * xv) *
                                   M::exp(-CA * (Tv - Tg) / (CB + Tv - Tg)) * power(gv, n1) +
                               Tauy0 * M::exp(C2 / Tv) / gv;
                    },
                    exact);
            }
        }
        return 0;
    }

    // Specific volume of the full vectors of n points; 0 for a model without transcendental calls.
    static int volume(int model, const double* p, int n, const double* P, const double* t,
                      const double* x, double* out) {
        auto exact = [&](int i, double* lane) {
            const double Pi = P ? P[i] : 0.0, xi = x ? x[i] : 0.0;
            volumePoints(model, p, 1, &Pi, t + i, &xi, lane);
        };
        auto T = [&](int i) { return load(t, i) + 273.15; };
        const double taitC = 0.0894;
        switch (model) {
            case 3: {
                const V b1 = splat(p[0]), b2 = splat(p[1]), b3 = splat(p[2]), b4 = splat(p[3]),
                        C = splat(p[4]);
                return blocks(
                    n, out,
                    [&](int i) {
                        const V Tv = T(i);
                        return b1 * M::exp(-b2 * Tv) *
                               (1.0 - C * M::log(1.0 + column(P, i) / (b3 * M::exp(b4 * Tv))));
                    },
                    exact);
            }
            case 4: {
                const V b1 = splat(p[0]), b2 = splat(p[1]), b3 = splat(p[2]), b4 = splat(p[3]),
                        b5 = splat(p[4]), b6 = splat(p[5]), C = splat(p[6]);
                return blocks(
                    n, out,
                    [&](int i) {
                        const V Pv = column(P, i);
                        const V d = T(i) - (b5 + b6 * Pv);
                        return (1.0 - C * M::log(1.0 + Pv / (b3 * M::exp(-b4 * d)))) *
                               (b1 + b2 * d);
                    },
                    exact);
            }
            case 5: {
                const V b1L = splat(p[0]), b2L = splat(p[1]), b3L = splat(p[2]), b4L = splat(p[3]),
                        b1S = splat(p[4]), b2S = splat(p[5]), b3S = splat(p[6]), b4S = splat(p[7]),
                        b5 = splat(p[8]), b6 = splat(p[9]), b7 = splat(p[10]), b8 = splat(p[11]),
                        b9 = splat(p[12]);
                return blocks(
                    n, out,
                    [&](int i) {
                        const V Pv = column(P, i), Tv = T(i);
                        const V d = Tv - b5;
                        // Each lane takes its own domain's constants; a tie is melt.
                        const Mask melt = Tv >= b5 + b6 * Pv;
                        const V V0 = select(melt, b1L, b1S) + select(melt, b2L, b2S) * d;
                        const V B = select(melt, b3L, b3S) * M::exp(-select(melt, b4L, b4S) * d);
                        V Vt = V{};
                        if (any(~melt)) Vt = select(melt, V{}, b7 * M::exp(b8 * d - b9 * Pv));
                        return V0 * (1.0 - taitC * M::log(1.0 + Pv / B)) + Vt;
                    },
                    exact);
            }
            case 7: {
                const V b1 = splat(p[0]), b2 = splat(p[1]), b3 = splat(p[2]), b4 = splat(p[3]),
                        Zeta = splat(p[4]);
                return blocks(
                    n, out,
                    [&](int i) {
                        const V Tv = T(i);
                        return (1.0 -
                                taitC * M::log(1.0 + column(P, i) / (b3 * M::exp(-b4 * Tv)))) *
                               (b1 + b2 * Tv) * (1.0 - Zeta * column(x, i));
                    },
                    exact);
            }
        }
        return 0;
    }
};

}  // namespace qrv::batch

#endif
