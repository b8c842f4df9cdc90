// Records and point grids shared by the batch tests: every evaluated model of each property with
// sample parameters, and points in random order that cross every branch of the formulas.
#ifndef QRV_TESTS_PROPERTIES_BATCH_CASES_H
#define QRV_TESTS_PROPERTIES_BATCH_CASES_H

#include <quorvalib/record.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "support/material_ptr.h"

namespace qrvtest {

struct ModelCase {
    std::string name;
    int model;
    std::vector<double> para;
};

// Sample parameter sets (those of the default materials and of fitted grades), and variants
// that reach the clamps of the power-law Castro-Macosko exponent.
inline const std::vector<ModelCase>& viscosityCases() {
    static const std::vector<ModelCase> all = {
        {"Newtonian", 1, {1234.5}},
        {"PowerLaw", 2, {0.429888, 498.746, 2332.14}},
        {"Cross1", 3, {0.3036, 0.0001051, 6.484e-07, 12720.0, 2.4e-09}},
        {"Cross2", 4, {0.27845, 876860.0, 1.1326e-06, 11642.0, 3.1e-09}},
        {"Cross3", 5, {0.25883, 1026900.0, 4.7127e+14, 373.15, 2.0e-07, 30.5, 46.0}},
        {"Castro", 10, {0.69, 6.9179, 1.9442, 0.01682, 3570.21}},
        {"PowerCastro",
         11,
         {-13.72626, -45.23453, 11.03065, 8686.252, 17649.07, -4093.336, 0.5490999, 1.817284,
          -0.2455251, 0.45, 0.22}},
        {"PowerCastroLowClamp",
         11,
         {-13.72626, -45.23453, 11.03065, 8686.252, 17649.07, -4093.336, 0.0, 1.817284, -0.2455251,
          0.45, 0.22}},
        {"PowerCastroHighClamp",
         11,
         {-13.72626, -45.23453, 11.03065, 8686.252, 17649.07, -4093.336, 1e6, 1.817284, -0.2455251,
          0.45, 0.22}},
        {"CrossCastro", 12, {1.0, 9.31, 1.893e-05, 0.03115, 8916.0, 0.4514, 0.0234}},
        {"Herschel", 13, {0.85, 23220000.0, 25.85, 179.6, 5.13, 1.2, 0.682, 8570.0, 293.0, 0.0}},
    };
    return all;
}

inline const std::vector<ModelCase>& volumeCases() {
    static const std::vector<ModelCase> all = {
        {"ConstantDensity", 1, {1.25}},
        {"SpencerGilmore", 2, {0.85, 3.2e9, 2.6e5}},
        {"Tait", 3, {0.95, 6.5e-4, 2.0e9, 4.0e-3, 0.0894}},
        {"ModifiedTait1", 4, {0.96, 5.8e-4, 1.9e9, 4.6e-3, 420.0, 1.5e-8, 0.07}},
        {"ModifiedTait2",
         5,
         {1.243223, 0.0008717028, 803245700.0, 0.005057665, 1.174659, 0.0006479683, 966552700.0,
          0.006852022, 448.5, 6.625e-09, 0.05328416, 0.1, 6.625e-10}},
        {"SpencerGilmoreC", 6, {0.85, 3.2e9, 2.6e5, 0.4}},
        {"TaitC", 7, {0.9057, 0.00053647, 1656600000.0, 0.0043988, 0.8}},
    };
    return all;
}

struct Columns {
    std::vector<double> g, t, P, x;
    int size() const { return static_cast<int>(t.size()); }
};

// Shear rates from 0 up, temperatures from below the glass region to far above melt (175.35 C is
// the two-domain transition at P = 0), pressures from 0 through 1 Pa and atmospheric to 2 GPa
// (a Tait form's fast path hands a point whose compression term is large back to the exact form,
// so only a low pressure shows its own value), conversions from 0 through the
// gel points (0.45, 0.682, 0.69, 1.0) and beyond, in a fixed random order. The two-domain model
// also gets each pressure's transition temperature exactly, and the double just below it.
inline Columns grid() {
    const double shear[] = {0.0, 1e-3, 1.0, 37.5, 1e3, 1e4, 1e6};
    const double temps[] = {-50.0, 25.0, 120.0, 175.35, 200.0, 250.0, 320.0};
    const double pressures[] = {0.0, 1.0, 1e5, 1e7, 5e8, 2e9};
    const double conversions[] = {0.0, 0.2, 0.45, 0.5, 0.682, 0.69, 0.9, 1.0, 1.2};
    Columns c;
    auto add = [&c](double g, double t, double P, double x) {
        c.g.push_back(g);
        c.t.push_back(t);
        c.P.push_back(P);
        c.x.push_back(x);
    };
    for (double g : shear)
        for (double t : temps)
            for (double P : pressures)
                for (double x : conversions)
                    add(g, t, P, x);
    const double b5 = 448.5, b6 = 6.625e-09;
    for (double P : pressures) {
        const double edge = b5 + b6 * P - 273.15;
        for (double t : {edge, std::nextafter(edge, -1e9), std::nextafter(edge, 1e9)})
            add(100.0, t, P, 0.3);
    }
    std::mt19937 random(20261123);
    std::vector<int> order(c.t.size());
    for (int i = 0; i < c.size(); ++i)
        order[i] = i;
    std::shuffle(order.begin(), order.end(), random);
    Columns shuffled;
    for (int i : order) {
        shuffled.g.push_back(c.g[i]);
        shuffled.t.push_back(c.t[i]);
        shuffled.P.push_back(c.P[i]);
        shuffled.x.push_back(c.x[i]);
    }
    return shuffled;
}

// Inputs that are not finite, at the head of a grid.
inline Columns withNonFinite(Columns c) {
    const double inf = std::numeric_limits<double>::infinity();
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double odd[][4] = {
        {nan, 200.0, 1e8, 0.2}, {1e3, nan, 1e8, 0.2},   {1e3, 200.0, nan, 0.2},
        {1e3, 200.0, 1e8, nan}, {inf, 200.0, 1e8, 0.2}, {1e3, inf, 1e8, 0.2},
        {1e3, -inf, 1e8, 0.2},  {1e3, 200.0, inf, 0.2}, {1e3, 200.0, 1e8, inf}};
    for (const auto& o : odd) {
        c.g.insert(c.g.begin(), o[0]);
        c.t.insert(c.t.begin(), o[1]);
        c.P.insert(c.P.begin(), o[2]);
        c.x.insert(c.x.begin(), o[3]);
    }
    return c;
}

inline std::uint64_t bitsOf(double v) {
    std::uint64_t b;
    std::memcpy(&b, &v, sizeof b);
    return b;
}

inline MaterialPtr recordWith(QrvMatParam QrvMaterial::*block, const ModelCase& c) {
    MaterialPtr record = makeRecord();
    setBlock((*record).*block, c.model, c.para);
    return record;
}

}  // namespace qrvtest

#endif
