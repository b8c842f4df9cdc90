// The viscosity and PVT formulas on vectors of doubles, written once over a maths policy `M` that
// each instruction-set file supplies:
//   M::V               a GNU vector of doubles (__m128d, __m256d, __m512d)
//   M::exp2            V -> V, 2^v within 1.0 ulp (where M::kFused)
//   M::exp             V -> V, e^v within 1.0 ulp (where not M::kFused)
//   M::log35           V -> V, ln v within 3.5 ulp
//   M::any             true when a lane of a comparison's mask is set (one movemask or test)
//   M::kFused          whether M::fms(a, b, c), a b - c with one rounding, exists
//
// Every formula keeps the order of operations of its scalar kernel (viscosity_models.h,
// pvt_models.h), except that a division by a constant (Taus, b3) becomes a product with its
// inverse; the other differences are those of the vector exp and log and of the powers built from
// them (see expSums(), powers() and compressions() for the error of each). A chunk whose result
// has a lane that is not a finite normal number recomputes that lane with the exact loop, which
// gives failure values and non-finite inputs exactly the exact form's result.
//
// The formulas run in stages over a chunk of 16 vectors, each stage a loop over the chunk whose
// results go to a small array that the next stage reads, and every vector exp or log is a loop of
// its own that does nothing but call SLEEF. SLEEF's functions are calls into its shared library,
// each a long chain of dependent operations around which every live vector register is spilled:
// written one vector at a time, a formula chains two or three of them per vector and the
// processor waits out each one's latency (on AVX2 that ran at 1.6 to 2 times the scalar floor
// where the calls alone would allow 4). A loop of independent calls overlaps them.
//
// SSE2 is kept as the vector set of processors without AVX2: with the loops above it measures at
// the scalar floor or above it for every model (0.95 to 2.0 times, bench/README.md), although
// each of its calls does only two lanes.
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
    // Vectors per chunk: enough independent calls to fill the processor's window, few enough
    // that a formula's arrays stay in the first-level cache (5 arrays of 1 KiB on AVX-512).
    static constexpr int kChunk = 16;
    using Chunk = V[kChunk];
    static constexpr double kTaitC = 0.0894;  // pvt_models.h

    static V splat(double s) { return V{} + s; }
    static V load(const double* a, int i) {
        V v;
        __builtin_memcpy(&v, a + i, sizeof v);
        return v;
    }
    // A null column is 0.0 at every point.
    static V column(const double* a, int i) { return a ? load(a, i) : V{}; }

    // The inputs of the kth vector of the chunk that starts at point i.
    struct Points {
        int i;
        V operator()(const double* a, int k) const { return column(a, i + k * kWidth); }
        // Kelvin from degree C, as the scalar kernels make it.
        V T(const double* t, int k) const { return load(t, i + k * kWidth) + 273.15; }
    };

    // dst[k] = f(k) for the count vectors of a chunk.
    template <typename F>
    static void stage(int count, V* dst, F f) {
        for (int k = 0; k < count; ++k)
            dst[k] = f(k);
    }

    static V select(Mask m, V a, V b) {
        return reinterpret_cast<V>((reinterpret_cast<Mask>(a) & m) |
                                   (reinterpret_cast<Mask>(b) & ~m));
    }
    static V abs(V v) {
        return reinterpret_cast<V>(reinterpret_cast<Mask>(v) & (Mask{} + 0x7fffffffffffffffLL));
    }
    // True in the lanes that hold a finite normal number.
    static Mask normal(V r) {
        const V magnitude = abs(r);
        return (magnitude >= __DBL_MIN__) & (magnitude <= __DBL_MAX__);
    }

    // The exact product a b as hi + lo: one fused multiply-subtract where the policy has it
    // (M::kFused, M::fms(a, b, c) = a b - c rounded once), else Dekker's split.
    static void product(V a, V b, V& hi, V& lo) {
        hi = a * b;
        if constexpr (M::kFused) {
            lo = M::fms(a, b, hi);
        } else {
            const double split = 134217729.0;  // 2^27 + 1
            const V ca = split * a, cb = split * b;
            const V ahi = ca - (ca - a), bhi = cb - (cb - b);
            const V alo = a - ahi, blo = b - bhi;
            lo = ((ahi * bhi - hi) + ahi * blo + alo * bhi) + alo * blo;
        }
    }

    // out[k] = e^(y[k] + yLow[k]) where needed(k), else 0; yLow is null or below an ulp of y.
    // With a fused multiply-add this is 2^((y + yLow) log2 e), the exponent carried in two doubles,
    // as SLEEF's exp2 costs a fifth less than its exp: 2^(hi + lo) = 2^hi (1 + lo ln 2) to far
    // below an ulp, as |lo| < 2^-42 wherever 2^hi is finite, so the result is within exp2's 1 ulp
    // and two roundings of the true value. Without one (SSE2), Dekker's product would cost more
    // than it saves, and SLEEF's exp is called directly. A y so large that y log2 e overflows
    // gives a NaN, whose lane the exact loop then computes.
    template <typename Needed>
    static void expSums(int count, V* out, const V* y, const V* yLow, Needed needed) {
        const double ln2 = 0.6931471805599453;
        if constexpr (M::kFused) {
            const double log2e = 1.4426950408889634;         // 0x3ff71547652b82fe
            const double log2eLow = 2.0355273740931033e-17;  // log2 e - log2e
            Chunk hi, lo;
            stage(count, hi, [&](int k) {
                V h;
                product(y[k], splat(log2e), h, lo[k]);
                lo[k] = lo[k] + y[k] * log2eLow;
                if (yLow) lo[k] = lo[k] + yLow[k] * log2e;
                return h;
            });
            for (int k = 0; k < count; ++k)
                out[k] = needed(k) ? M::exp2(hi[k]) : V{};
            stage(count, out, [&](int k) { return out[k] + out[k] * (lo[k] * ln2); });
        } else {
            for (int k = 0; k < count; ++k)
                out[k] = needed(k) ? M::exp(y[k]) : V{};
            if (yLow) stage(count, out, [&](int k) { return out[k] + out[k] * yLow[k]; });
        }
    }

    // out[k] = e^y(k) where needed(k), else 0.
    template <typename Y, typename Needed>
    static void expsWhere(int count, V* out, Y y, Needed needed) {
        Chunk arguments;
        stage(count, arguments, y);
        expSums(count, out, arguments, nullptr, needed);
    }
    template <typename Y>
    static void exps(int count, V* out, Y y) {
        expsWhere(count, out, y, [](int) { return true; });
    }

    // out[k] = ln a(k), within 3.5 ulp.
    template <typename A>
    static void logs(int count, V* out, A a) {
        stage(count, out, a);
        for (int k = 0; k < count; ++k)
            out[k] = M::log35(out[k]);
    }

    // out[k] = base(k)^exponent(k) for positive normal bases, as exp(b ln a) with b ln a carried
    // in two doubles: a = 2^e m with m in [sqrt(1/2), sqrt(2)), ln a = e ln 2 + ln m, where e ln 2
    // is exact in two parts and |ln m| < 0.35, so that the 3.5 ulp of M::log35 are below 2e-16
    // absolute; the roundings of the sums and of the product b ln a are carried in Llo and ylo
    // and applied in the exp. The result is within |b| 2e-16 + 4e-16 relative of the true power,
    // whatever the size of b ln a. Lanes whose base is not positive, normal and finite, whose
    // power lies beyond e^+-700, or whose exponent exceeds 40 in size (where that bound would pass
    // 1e-14) take the scalar pow of the same arguments, which is the exact form's own.
    template <typename Base, typename Exponent>
    static void powers(int count, V* out, Base base, Exponent exponent) {
        using Bits = Mask;
        Chunk a, e, lnm, yhi, ylo;
        stage(count, lnm, [&](int k) {
            a[k] = base(k);
            const Bits bits = reinterpret_cast<Bits>(a[k]);
            const Bits biased = (bits >> 52) & 0x7ff;
            // Mantissa in [1, 2), moved to [sqrt(1/2), sqrt(2)) with the exponent one higher.
            V m = reinterpret_cast<V>((bits & 0x000fffffffffffffLL) | 0x3ff0000000000000LL);
            const Mask high = m > 1.4142135623730951;
            // The exponent as a double, through the bits of 2^52 + k (k = biased + 1 where high).
            e[k] = reinterpret_cast<V>((biased - high) | 0x4330000000000000LL) -
                   (4503599627370496.0 + 1023.0);
            return select(high, m * 0.5, m);
        });
        for (int k = 0; k < count; ++k)
            lnm[k] = M::log35(lnm[k]);
        stage(count, yhi, [&](int k) {
            const double ln2hi = 6.93147180369123816490e-01;  // 0x3fe62e42fee00000: e ln2hi exact
            const double ln2lo = 1.90821492927058770002e-10;
            // L = e ln2hi + lnm + e ln2lo as Lhi + Llo, normalised so that Llo is below an ulp of
            // Lhi: e ln2lo alone reaches 2e-7, and the correction 2^lo ~ 1 + lo ln 2 needs ylo
            // tiny.
            const V eh = e[k] * ln2hi;
            const V sum = eh + lnm[k];
            const V rest = ((eh - sum) + lnm[k]) + e[k] * ln2lo;
            const V Lhi = sum + rest;
            const V Llo = rest - (Lhi - sum);
            const V b = exponent(k);
            V y;
            product(b, Lhi, y, ylo[k]);
            ylo[k] = ylo[k] + b * Llo;
            return y;
        });
        expSums(count, out, yhi, ylo, [](int) { return true; });
        for (int k = 0; k < count; ++k) {
            const Mask usable =
                (a[k] >= __DBL_MIN__) & (a[k] <= __DBL_MAX__) & (abs(yhi[k]) <= 700.0);
            const V b = exponent(k);
            if (M::any(~(usable & (abs(b) <= 40.0)))) {
                for (int l = 0; l < kWidth; ++l)
                    if (!usable[l] || !(abs(b)[l] <= 40.0))
                        out[k][l] = __builtin_pow(a[k][l], b[l]);
            }
        }
    }

    // out[k] = B e^(Tb/T + D P), the zero-shear viscosity of the modified Cross forms.
    static void zeroShear(int count, V* out, Points at, const double* t, const double* P, V B, V Tb,
                          V D) {
        exps(count, out, [&](int k) { return Tb / at.T(t, k) + D * at(P, k); });
        stage(count, out, [&](int k) { return B * out[k]; });
    }

    // The cure factor (Cg/(Cg - x))^(C1 + C2 x) of the Castro-Macosko forms.
    static void cure(int count, V* out, Points at, const double* x, V Cg, V C1, V C2) {
        powers(
            count, out, [&](int k) { return Cg / (Cg - at(x, k)); },
            [&](int k) { return C1 + C2 * at(x, k); });
    }

    // The Cross form eta0/(1 + (eta0 g/Taus)^n1) from the zero-shear viscosities of the chunk.
    // The scalar kernels divide by Taus; the product with 1/Taus differs from that quotient by
    // at most 1.5 ulp, |n1| 3.4e-16 relative in the power, and takes a division out of the loop.
    template <typename Shear>
    static void cross(int count, V* out, const V* eta0, Shear g, double Taus, V n1) {
        const V inverseTaus = splat(1.0 / Taus);
        Chunk q;
        powers(
            count, q, [&](int k) { return eta0[k] * g(k) * inverseTaus; }, [&](int) { return n1; });
        stage(count, out, [&](int k) { return eta0[k] / (1.0 + q[k]); });
    }

    // out[k] = the Tait compression 1 - C ln(1 + P/B) of the chunk, given 1/B: the scalar kernels
    // divide P by B = b3 e^(..), here P is multiplied by e^(-..)/b3, which differs from it by a few
    // ulp and takes a division out of the loop. An error e relative in the log is one of
    // e C L/(1 - C L) in the compression (L the log): with M::log35's e < 8e-16 that stays below
    // 1e-14 while C L <= 0.9, the volume at least a tenth of its zero-pressure value (P/B up to
    // 2e4 at C = 0.0894, some hundred times what a melt is put under). Beyond that the lane is
    // made a NaN, which the exact loop then computes.
    static void compressions(int count, V* out, Points at, const double* P, V C,
                             const V* inverseB) {
        logs(count, out, [&](int k) { return 1.0 + at(P, k) * inverseB[k]; });
        stage(count, out, [&](int k) {
            const V CL = C * out[k];
            return select(CL <= 0.9, 1.0 - CL, splat(__builtin_nan("")));
        });
    }

    // Runs `formula(i, count, r)` on the full vectors of n points, a chunk at a time: the formula
    // writes r[k], the result of the kth vector from point i, for the count vectors of the chunk,
    // and the chunk goes to out. Lanes that are not finite normal numbers are replaced by
    // `exact(point, &value)` (one exact point). A chunk's inputs are all read before its results
    // are written, so out may be an input array itself.
    template <typename Formula, typename Exact>
    static int blocks(int n, double* out, Formula formula, Exact exact) {
        const int full = n - n % kWidth;
        for (int i = 0; i < full; i += kChunk * kWidth) {
            const int left = (full - i) / kWidth;
            const int count = left < kChunk ? left : kChunk;
            Chunk r;
            formula(i, count, r);
            Mask bad = Mask{};
            for (int k = 0; k < count; ++k)
                bad |= ~normal(r[k]);
            if (M::any(bad)) {
                for (int k = 0; k < count; ++k) {
                    const Mask ok = normal(r[k]);
                    for (int l = 0; l < kWidth; ++l) {
                        if (ok[l]) continue;
                        double value;
                        exact(i + k * kWidth + l, &value);
                        r[k][l] = value;
                    }
                }
            }
            for (int k = 0; k < count; ++k)
                __builtin_memcpy(out + i + k * kWidth, &r[k], sizeof(V));
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
        switch (model) {
            case 2: {
                const V n1 = splat(p[0] - 1), B = splat(p[1]), Tb = splat(p[2]);
                return blocks(
                    n, out,
                    [&](int i, int count, V* r) {
                        const Points at{i};
                        Chunk f, gn;
                        exps(count, f, [&](int k) { return Tb / at.T(t, k); });
                        powers(
                            count, gn, [&](int k) { return at(g, k); }, [&](int) { return n1; });
                        stage(count, r, [&](int k) { return B * f[k] * gn[k]; });
                    },
                    exact);
            }
            case 3: {
                const V n1 = splat(1.0 - p[0]), C = splat(p[1]), B = splat(p[2]), Tb = splat(p[3]),
                        D = splat(p[4]);
                return blocks(
                    n, out,
                    [&](int i, int count, V* r) {
                        const Points at{i};
                        Chunk eta0, q;
                        zeroShear(count, eta0, at, t, P, B, Tb, D);
                        powers(
                            count, q, [&](int k) { return eta0[k] * at(g, k); },
                            [&](int) { return n1; });
                        stage(count, r, [&](int k) { return eta0[k] / (1.0 + C * q[k]); });
                    },
                    exact);
            }
            case 4: {
                const V n1 = splat(1.0 - p[0]), B = splat(p[2]), Tb = splat(p[3]), D = splat(p[4]);
                return blocks(
                    n, out,
                    [&](int i, int count, V* r) {
                        const Points at{i};
                        Chunk eta0;
                        zeroShear(count, eta0, at, t, P, B, Tb, D);
                        cross(
                            count, r, eta0, [&](int k) { return at(g, k); }, p[1], n1);
                    },
                    exact);
            }
            case 5: {
                const V n1 = splat(1.0 - p[0]), D1 = splat(p[2]), D2 = splat(p[3]),
                        D3 = splat(p[4]), A1 = splat(p[5]), A2b = splat(p[6]);
                return blocks(
                    n, out,
                    [&](int i, int count, V* r) {
                        const Points at{i};
                        Chunk eta0;
                        exps(count, eta0, [&](int k) {
                            const V Pv = at(P, k), tv = at(t, k);
                            const V Tstar = D2 + D3 * Pv;
                            return -A1 * (tv + 273.15 - Tstar) /
                                   (D3 * Pv + A2b + tv + 273.15 - Tstar);
                        });
                        stage(count, eta0, [&](int k) { return D1 * eta0[k]; });
                        cross(
                            count, r, eta0, [&](int k) { return at(g, k); }, p[1], n1);
                    },
                    exact);
            }
            case 10: {
                const V Cg = splat(p[0]), C1 = splat(p[1]), C2 = splat(p[2]), A = splat(p[3]),
                        Tb = splat(p[4]);
                return blocks(
                    n, out,
                    [&](int i, int count, V* r) {
                        const Points at{i};
                        Chunk c, f;
                        cure(count, c, at, x, Cg, C1, C2);
                        exps(count, f, [&](int k) { return Tb / at.T(t, k); });
                        stage(count, r, [&](int k) { return c[k] * A * f[k]; });
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
                    [&](int i, int count, V* r) {
                        const Points at{i};
                        Chunk tau, m, f, gm;
                        stage(count, tau, [&](int k) {
                            // tau by the scalar tan, lane by lane: b2 tau / T sits in an exponent,
                            // where a last-bit difference of a large tau would grow past 1e-14.
                            const V arg = pi * ((at(x, k) - Ci) / Cg) * 0.5;
                            V v;
                            for (int l = 0; l < kWidth; ++l)
                                v[l] = __builtin_tan(arg[l]);
                            return v;
                        });
                        exps(count, m, [&](int k) { return c1 * at(x, k) + c2 * tau[k]; });
                        stage(count, m, [&](int k) {
                            const V v = c0 * m[k];
                            return select(low > v, low, select(v > high, high, v));
                        });
                        exps(count, f, [&](int k) {
                            const V xv = at(x, k);
                            const V a = a0 + a1 * xv + a2 * tau[k];
                            const V b = b0 + b1 * xv + b2 * tau[k];
                            return b / at.T(t, k) + a;
                        });
                        powers(
                            count, gm, [&](int k) { return at(g, k); },
                            [&](int k) { return m[k] - 1.0; });
                        stage(count, r, [&](int k) { return f[k] * gm[k]; });
                    },
                    exact);
            }
            case 12: {
                const V Cg = splat(p[0]), C1 = splat(p[1]), C2 = splat(p[2]), A = splat(p[3]),
                        Tb = splat(p[4]), n1 = splat(1.0 - p[5]), inverseTaus = splat(1.0 / p[6]);
                return blocks(
                    n, out,
                    [&](int i, int count, V* r) {
                        const Points at{i};
                        Chunk f, c, q;
                        exps(count, f, [&](int k) { return Tb / at.T(t, k); });
                        stage(count, f, [&](int k) { return A * f[k]; });
                        cure(count, c, at, x, Cg, C1, C2);
                        powers(
                            count, q, [&](int k) { return f[k] * at(g, k) * inverseTaus; },
                            [&](int) { return n1; });
                        stage(count, r, [&](int k) { return f[k] * c[k] / (1.0 + q[k]); });
                    },
                    exact);
            }
            case 13: {
                const V n1 = splat(p[0] - 1), K00 = splat(p[1]), CA = splat(p[2]), CB = splat(p[3]),
                        C1 = splat(p[4]), C2 = splat(p[5]), Cg = splat(p[6]), Tauy0 = splat(p[7]),
                        Tg = splat(p[8]);
                return blocks(
                    n, out,
                    [&](int i, int count, V* r) {
                        const Points at{i};
                        Chunk c, shift, gn, yield;
                        cure(count, c, at, x, Cg, C1, C2);
                        exps(count, shift, [&](int k) {
                            const V Tv = at.T(t, k);
                            return -CA * (Tv - Tg) / (CB + Tv - Tg);
                        });
                        powers(
                            count, gn, [&](int k) { return at(g, k); }, [&](int) { return n1; });
                        exps(count, yield, [&](int k) { return C2 / at.T(t, k); });
                        stage(count, r, [&](int k) {
                            return K00 * c[k] * shift[k] * gn[k] + Tauy0 * yield[k] / at(g, k);
                        });
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
        switch (model) {
            case 3: {
                const V b1 = splat(p[0]), b2 = splat(p[1]), b4 = splat(p[3]), C = splat(p[4]);
                const V inverseB3 = splat(1.0 / p[2]);
                return blocks(
                    n, out,
                    [&](int i, int count, V* r) {
                        const Points at{i};
                        Chunk shrink, inverseB, tait;
                        exps(count, shrink, [&](int k) { return -b2 * at.T(t, k); });
                        exps(count, inverseB, [&](int k) { return -b4 * at.T(t, k); });
                        stage(count, inverseB, [&](int k) { return inverseB[k] * inverseB3; });
                        compressions(count, tait, at, P, C, inverseB);
                        stage(count, r, [&](int k) { return b1 * shrink[k] * tait[k]; });
                    },
                    exact);
            }
            case 4: {
                const V b1 = splat(p[0]), b2 = splat(p[1]), b4 = splat(p[3]), b5 = splat(p[4]),
                        b6 = splat(p[5]), C = splat(p[6]);
                const V inverseB3 = splat(1.0 / p[2]);
                return blocks(
                    n, out,
                    [&](int i, int count, V* r) {
                        const Points at{i};
                        auto d = [&](int k) { return at.T(t, k) - (b5 + b6 * at(P, k)); };
                        Chunk inverseB, tait;
                        exps(count, inverseB, [&](int k) { return b4 * d(k); });
                        stage(count, inverseB, [&](int k) { return inverseB[k] * inverseB3; });
                        compressions(count, tait, at, P, C, inverseB);
                        stage(count, r, [&](int k) { return tait[k] * (b1 + b2 * d(k)); });
                    },
                    exact);
            }
            case 5: {
                const V b1L = splat(p[0]), b2L = splat(p[1]), b4L = splat(p[3]), b1S = splat(p[4]),
                        b2S = splat(p[5]), b4S = splat(p[7]), b5 = splat(p[8]), b6 = splat(p[9]),
                        b7 = splat(p[10]), b8 = splat(p[11]), b9 = splat(p[12]);
                const V inverseB3L = splat(1.0 / p[2]), inverseB3S = splat(1.0 / p[6]);
                const V C = splat(kTaitC);
                return blocks(
                    n, out,
                    [&](int i, int count, V* r) {
                        const Points at{i};
                        // Each lane takes its own domain's constants; a tie is melt.
                        Mask melt[kChunk];
                        Chunk d, inverseB, Vt, tait;
                        stage(count, d, [&](int k) {
                            const V Tv = at.T(t, k);
                            melt[k] = Tv >= b5 + b6 * at(P, k);
                            return Tv - b5;
                        });
                        exps(count, inverseB,
                             [&](int k) { return select(melt[k], b4L, b4S) * d[k]; });
                        stage(count, inverseB, [&](int k) {
                            return inverseB[k] * select(melt[k], inverseB3L, inverseB3S);
                        });
                        // The solid-side term, only for vectors with a solid lane.
                        expsWhere(
                            count, Vt, [&](int k) { return b8 * d[k] - b9 * at(P, k); },
                            [&](int k) { return M::any(~melt[k]); });
                        compressions(count, tait, at, P, C, inverseB);
                        stage(count, r, [&](int k) {
                            const V V0 =
                                select(melt[k], b1L, b1S) + select(melt[k], b2L, b2S) * d[k];
                            return V0 * tait[k] + select(melt[k], V{}, b7 * Vt[k]);
                        });
                    },
                    exact);
            }
            case 7: {
                const V b1 = splat(p[0]), b2 = splat(p[1]), b4 = splat(p[3]), Zeta = splat(p[4]);
                const V inverseB3 = splat(1.0 / p[2]), C = splat(kTaitC);
                return blocks(
                    n, out,
                    [&](int i, int count, V* r) {
                        const Points at{i};
                        Chunk inverseB, tait;
                        exps(count, inverseB, [&](int k) { return b4 * at.T(t, k); });
                        stage(count, inverseB, [&](int k) { return inverseB[k] * inverseB3; });
                        compressions(count, tait, at, P, C, inverseB);
                        stage(count, r, [&](int k) {
                            return tait[k] * (b1 + b2 * at.T(t, k)) * (1.0 - Zeta * at(x, k));
                        });
                    },
                    exact);
            }
        }
        return 0;
    }
};

}  // namespace qrv::batch

#endif
