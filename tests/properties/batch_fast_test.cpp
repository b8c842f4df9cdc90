// Fast batch forms against the exact ones: within 1e-14 relative at every point of every model,
// equal to the bit where the exact result is a failure value or not a finite normal number, and
// the same contract on counts, nulls and aliasing. Each test runs once for every instruction set
// this machine supports, the dispatch forced down to it.
#include <gtest/gtest.h>

#include <quorvalib/batch.h>
#include <quorvalib/properties.h>

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <fstream>
#include <iostream>
#include <limits>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "properties/batch/instruction_sets.h"
#include "properties/batch_cases.h"
#include "support/fixture.h"

namespace {

using qrv::batch::InstructionSet;
using qrvtest::bitsOf;
using qrvtest::Columns;
using qrvtest::makeRecord;
using qrvtest::ModelCase;
using qrvtest::recordWith;
using qrvtest::setBlock;

const double kTolerance = 1e-14;

std::string nameOf(InstructionSet set) {
    switch (set) {
        case InstructionSet::Avx512:
            return "AVX-512";
        case InstructionSet::Avx2:
            return "AVX2";
        case InstructionSet::Sse2:
            break;
    }
    return "SSE2";
}

std::vector<InstructionSet> supportedSets() {
    std::vector<InstructionSet> sets;
    for (InstructionSet s : {InstructionSet::Sse2, InstructionSet::Avx2, InstructionSet::Avx512})
        if (s <= qrv::batch::widestSupported()) sets.push_back(s);
    return sets;
}

class BatchFast : public ::testing::TestWithParam<InstructionSet> {
protected:
    void SetUp() override {
        qrv::batch::limitInstructionSet(GetParam());
        ASSERT_EQ(qrv::batch::activeForms().set, GetParam());
    }
    void TearDown() override { qrv::batch::limitInstructionSet(InstructionSet::Avx512); }
};

bool finiteNormal(double v) {
    return std::isfinite(v) && std::fabs(v) >= DBL_MIN;
}

// The largest relative difference seen per model, printed at the end for the record.
std::map<std::string, double>& worst() {
    static std::map<std::string, double> seen;
    return seen;
}

void expectClose(const std::vector<double>& fast, const std::vector<double>& exact,
                 const std::string& what) {
    ASSERT_EQ(fast.size(), exact.size());
    double largest = 0.0;
    for (std::size_t i = 0; i < exact.size(); ++i) {
        if (!finiteNormal(exact[i])) {
            ASSERT_EQ(bitsOf(fast[i]), bitsOf(exact[i]))
                << what << " point " << i << ": " << fast[i] << " against " << exact[i];
            continue;
        }
        const double relative = std::fabs(fast[i] - exact[i]) / std::fabs(exact[i]);
        ASSERT_LE(relative, kTolerance)
            << what << " point " << i << ": " << fast[i] << " against " << exact[i];
        largest = std::max(largest, relative);
    }
    double& w = worst()[what];
    w = std::max(w, largest);
}

void expectIdentical(const std::vector<double>& fast, const std::vector<double>& exact,
                     const std::string& what) {
    ASSERT_EQ(fast.size(), exact.size());
    for (std::size_t i = 0; i < exact.size(); ++i)
        ASSERT_EQ(bitsOf(fast[i]), bitsOf(exact[i])) << what << " point " << i;
}

struct Arrays {
    const double* P;
    const double* x;
};

Arrays arrays(const Columns& c, bool nullPressure, bool nullConversion) {
    return {nullPressure ? nullptr : c.P.data(), nullConversion ? nullptr : c.x.data()};
}

TEST_P(BatchFast, EveryViscosityModelIsWithinToleranceOfTheExactForm) {
    const Columns c = qrvtest::withNonFinite(qrvtest::grid());
    const int n = c.size();
    for (const ModelCase& m : qrvtest::viscosityCases()) {
        auto record = recordWith(&QrvMaterial::Vis, m);
        for (int nulls = 0; nulls < 4; ++nulls) {
            const Arrays a = arrays(c, nulls & 1, nulls & 2);
            std::vector<double> fast(n), exact(n);
            ASSERT_EQ(QrvGetViscosityNFast(record.get(), n, c.g.data(), c.t.data(), a.P, a.x,
                                           fast.data()),
                      n);
            QrvGetViscosityN(record.get(), n, c.g.data(), c.t.data(), a.P, a.x, exact.data());
            expectClose(fast, exact, "viscosity " + m.name);
            if (m.model == 1) {
                expectIdentical(fast, exact, m.name);  // no vector maths: the exact code
            }
        }
    }
}

TEST_P(BatchFast, EveryPvtModelIsWithinToleranceOfTheExactForm) {
    Columns c = qrvtest::withNonFinite(qrvtest::grid());
    c.P.push_back(1e8);  // Tait-C at conversion 1/Zeta: volume 0, density infinite
    c.t.push_back(200.0);
    c.x.push_back(1 / 0.8);
    c.g.push_back(1.0);
    const int n = c.size();
    for (const ModelCase& m : qrvtest::volumeCases()) {
        auto record = recordWith(&QrvMaterial::PVT, m);
        for (int nulls = 0; nulls < 4; ++nulls) {
            const Arrays a = arrays(c, nulls & 1, nulls & 2);
            std::vector<double> fast(n), exact(n), fastRho(n), exactRho(n);
            ASSERT_EQ(QrvGetSpecificVolumeNFast(record.get(), n, a.P, c.t.data(), a.x, fast.data()),
                      n);
            ASSERT_EQ(QrvGetDensityNFast(record.get(), n, a.P, c.t.data(), a.x, fastRho.data()), n);
            QrvGetSpecificVolumeN(record.get(), n, a.P, c.t.data(), a.x, exact.data());
            QrvGetDensityN(record.get(), n, a.P, c.t.data(), a.x, exactRho.data());
            expectClose(fast, exact, "volume " + m.name);
            expectClose(fastRho, exactRho, "density " + m.name);
            if (m.model == 1 || m.model == 2 || m.model == 6) {
                expectIdentical(fast, exact, m.name);
            }
        }
    }
}

TEST_P(BatchFast, PowersHoldTheToleranceForLargeExponents) {
    // g^(n-1) over shear rates from 1e-300 to 1e300 and exponents up to 2.5 in size: b ln a
    // reaches about 1700, past overflow, where a vector log's last-bit error alone would exceed
    // 1e-14 many times over if b ln a were formed in one double. Subnormal and zero bases too.
    std::vector<double> g, t;
    for (int e = -300; e <= 300; e += 7) {
        for (double m : {1.0, 1.7, 3.3, 9.1}) {
            g.push_back(m * std::pow(10.0, e));
            t.push_back(25.0 + e);
        }
    }
    for (double tiny : {4.9e-324, 1e-310, 0.0, -0.0, -1.0})
        g.push_back(tiny), t.push_back(100.0);
    const int n = static_cast<int>(g.size());
    for (double exponent : {-1.5, -0.75, 0.001, 1.0, 2.5, 3.5}) {
        auto record = makeRecord();
        setBlock(record->Vis, 2, {exponent, 1.0, 0.0});  // B e^(0/T) g^(n-1) = g^(n-1)
        std::vector<double> fast(n), exact(n);
        QrvGetViscosityNFast(record.get(), n, g.data(), t.data(), nullptr, nullptr, fast.data());
        QrvGetViscosityN(record.get(), n, g.data(), t.data(), nullptr, nullptr, exact.data());
        expectClose(fast, exact, "viscosity PowerLaw wide");
    }
}

TEST_P(BatchFast, ExponentialsHoldTheToleranceToTheEdgeOfOverflow) {
    // B e^(Tb/T) g^0 = e^(Tb/T) with Tb/T from -745 (below the smallest subnormal) to past 709.78
    // (overflow): the argument of the vector exp spans its whole range, where the rounding of
    // y log2 e alone would cost 4e-14 if it were not carried.
    const double Tb = 2.1e5;
    std::vector<double> g, t;
    for (double y = -745.3; y <= 710.5; y += 0.7312) {
        if (std::fabs(y) < 1e-3) continue;
        g.push_back(1.0);
        t.push_back(Tb / y - 273.15);
    }
    for (double y : {709.78, 709.7, 709.0, -708.39, -708.4, -744.4})
        g.push_back(1.0), t.push_back(Tb / y - 273.15);
    const int n = static_cast<int>(t.size());
    auto record = makeRecord();
    setBlock(record->Vis, 2, {1.0, 1.0, Tb});
    std::vector<double> fast(n), exact(n);
    QrvGetViscosityNFast(record.get(), n, g.data(), t.data(), nullptr, nullptr, fast.data());
    QrvGetViscosityN(record.get(), n, g.data(), t.data(), nullptr, nullptr, exact.data());
    expectClose(fast, exact, "viscosity PowerLaw exp range");
    int large = 0;
    for (int i = 0; i < n; ++i)
        large += finiteNormal(exact[i]) && std::fabs(std::log(exact[i])) > 600;
    EXPECT_GT(large, 100);  // the grid reaches where the carried rounding matters
}

TEST_P(BatchFast, LargeExponentsHoldTheTolerance) {
    // g^(n-1) with |n - 1| from 30 to 1000 and g near 1, so that b ln g stays within reach of the
    // exp: the error of the log of the mantissa grows with |b|, past 1e-14 for |b| beyond 40.
    std::vector<double> g, t;
    for (double a = 0.5; a <= 2.0; a *= 1.0137) {
        g.push_back(a);
        t.push_back(100.0);
    }
    const int n = static_cast<int>(g.size());
    for (double exponent : {-1000.0, -100.0, -41.0, -30.0, 30.0, 41.0, 100.0, 1000.0}) {
        auto record = makeRecord();
        setBlock(record->Vis, 2, {exponent + 1, 1.0, 0.0});
        std::vector<double> fast(n), exact(n);
        QrvGetViscosityNFast(record.get(), n, g.data(), t.data(), nullptr, nullptr, fast.data());
        QrvGetViscosityN(record.get(), n, g.data(), t.data(), nullptr, nullptr, exact.data());
        expectClose(fast, exact, "viscosity PowerLaw large exponents");
    }
}

TEST_P(BatchFast, TaitFormsHoldTheToleranceUpToExtremeCompression) {
    // Pressures from 0.1 MPa to 1e6 GPa: the compression 1 - C ln(1 + P/B) goes from 1 through 0
    // (the volume vanishes) to negative values, where its relative error is the log's times
    // C L/(1 - C L) in any evaluation.
    std::vector<double> P, t, x;
    for (double p = 1e6; p <= 1e19; p *= 1.083)
        for (double temperature : {-50.0, 120.0, 175.0, 260.0})
            P.push_back(p), t.push_back(temperature), x.push_back(0.3);
    const int n = static_cast<int>(t.size());
    for (const ModelCase& m : qrvtest::volumeCases()) {
        auto record = recordWith(&QrvMaterial::PVT, m);
        std::vector<double> fast(n), exact(n);
        QrvGetSpecificVolumeNFast(record.get(), n, P.data(), t.data(), x.data(), fast.data());
        QrvGetSpecificVolumeN(record.get(), n, P.data(), t.data(), x.data(), exact.data());
        expectClose(fast, exact, "volume " + m.name + " compression");
    }
}

TEST_P(BatchFast, PointsInMeshOrderTakeBothDomainsWholeVectorsAtATime) {
    // A mesh numbers its cells in space, so whole vectors are melt or solid; the grids above are
    // shuffled and nearly every vector mixes the two.
    std::vector<double> P, t;
    for (int i = 0; i < 1000; ++i) {
        P.push_back(5e8);
        t.push_back(20.0 + 0.28 * i);  // the transition at 5e8 is near 178.7 C
    }
    const int n = static_cast<int>(t.size());
    auto record = recordWith(&QrvMaterial::PVT, qrvtest::volumeCases()[4]);
    std::vector<double> fast(n), exact(n);
    QrvGetSpecificVolumeNFast(record.get(), n, P.data(), t.data(), nullptr, fast.data());
    QrvGetSpecificVolumeN(record.get(), n, P.data(), t.data(), nullptr, exact.data());
    expectClose(fast, exact, "volume ModifiedTait2 ordered");
}

TEST_P(BatchFast, EveryModelMatchesTheHighPrecisionValues) {
    // The values of tests/data/model_values.json, computed apart at 50 digits, each within its
    // own tolerance (what a correct double evaluation may lose there) plus the fast forms' 1e-14.
    const nlohmann::json values = qrvtest::readJson("model_values.json");
    // Each point is its inputs in the order of `columns`, the value, then the tolerance.
    struct Kind {
        const char* name;
        QrvMatParam QrvMaterial::*block;
        std::vector<std::vector<double> Columns::*> columns;
    };
    const Kind kinds[] = {
        {"viscosity", &QrvMaterial::Vis, {&Columns::g, &Columns::t, &Columns::P, &Columns::x}},
        {"pvt", &QrvMaterial::PVT, {&Columns::P, &Columns::t, &Columns::x}},
    };
    int compared = 0;
    for (const Kind& kind : kinds) {
        for (const nlohmann::json& set : values.at(kind.name)) {
            auto record = makeRecord();
            const int model = set.at("model").get<int>();
            setBlock((*record).*kind.block, model, set.at("para").get<std::vector<double>>());
            const nlohmann::json& points = set.at("points");
            const std::size_t inputs = kind.columns.size();
            Columns c;
            for (const nlohmann::json& p : points)
                for (std::size_t k = 0; k < inputs; ++k)
                    (c.*kind.columns[k]).push_back(p[k]);
            std::vector<double> fast(c.size());
            if (kind.block == &QrvMaterial::Vis) {
                QrvGetViscosityNFast(record.get(), c.size(), c.g.data(), c.t.data(), c.P.data(),
                                     c.x.data(), fast.data());
            } else {
                QrvGetSpecificVolumeNFast(record.get(), c.size(), c.P.data(), c.t.data(),
                                          c.x.data(), fast.data());
            }
            for (int i = 0; i < c.size(); ++i) {
                const double want = points[i][inputs], tolerance = points[i][inputs + 1];
                EXPECT_LE(std::fabs(fast[i] - want), (tolerance + kTolerance) * std::fabs(want))
                    << kind.name << " id " << model << " at " << points[i].dump() << ": got "
                    << fast[i];
                ++compared;
            }
        }
    }
    EXPECT_GT(compared, 2000);
}

TEST_P(BatchFast, VectorTailsWriteExactlyCountResults) {
    const Columns c = qrvtest::grid();
    const double canary = -12345.0;
    // Around the vectors (2, 4, 8 doubles) and the chunks of 16 vectors the loops work in.
    for (int count : {0, 1, 3, 7, 8, 9, 31, 32, 33, 63, 64, 65, 127, 128, 129, 1000}) {
        for (const ModelCase& m : {qrvtest::viscosityCases()[4], qrvtest::viscosityCases()[6]}) {
            auto record = recordWith(&QrvMaterial::Vis, m);
            std::vector<double> fast(count + 9, canary), exact(count, canary);
            EXPECT_EQ(QrvGetViscosityNFast(record.get(), count, c.g.data(), c.t.data(), c.P.data(),
                                           c.x.data(), fast.data()),
                      count);
            QrvGetViscosityN(record.get(), count, c.g.data(), c.t.data(), c.P.data(), c.x.data(),
                             exact.data());
            for (int i = count; i < count + 9; ++i)
                EXPECT_EQ(fast[i], canary) << count;
            fast.resize(count);
            expectClose(fast, exact, "viscosity " + m.name);
        }
        auto record = recordWith(&QrvMaterial::PVT, qrvtest::volumeCases()[4]);
        std::vector<double> fast(count + 9, canary), exact(count, canary);
        EXPECT_EQ(
            QrvGetDensityNFast(record.get(), count, c.P.data(), c.t.data(), nullptr, fast.data()),
            count);
        QrvGetDensityN(record.get(), count, c.P.data(), c.t.data(), nullptr, exact.data());
        for (int i = count; i < count + 9; ++i)
            EXPECT_EQ(fast[i], canary) << count;
        fast.resize(count);
        expectClose(fast, exact, "density ModifiedTait2");
    }
}

TEST_P(BatchFast, FailureValuesAndShortArraysAreThoseOfTheExactForm) {
    const Columns c = qrvtest::grid();
    const int n = 19;
    auto same = [&](auto fast, auto exact, const std::string& what) {
        std::vector<double> f(n, 5.0), e(n, 6.0);
        EXPECT_EQ(fast(f.data()), exact(e.data())) << what;
        for (int i = 0; i < n; ++i)
            ASSERT_EQ(bitsOf(f[i]), bitsOf(e[i])) << what << " point " << i;
    };
    auto viscosity = [&](QrvMaterial* record, const std::string& what) {
        same(
            [&](double* out) {
                return QrvGetViscosityNFast(record, n, c.g.data(), c.t.data(), c.P.data(),
                                            c.x.data(), out);
            },
            [&](double* out) {
                return QrvGetViscosityN(record, n, c.g.data(), c.t.data(), c.P.data(), c.x.data(),
                                        out);
            },
            what);
    };
    auto pvt = [&](QrvMaterial* record, const std::string& what) {
        same(
            [&](double* out) {
                return QrvGetSpecificVolumeNFast(record, n, c.P.data(), c.t.data(), nullptr, out);
            },
            [&](double* out) {
                return QrvGetSpecificVolumeN(record, n, c.P.data(), c.t.data(), nullptr, out);
            },
            what);
        same(
            [&](double* out) {
                return QrvGetDensityNFast(record, n, c.P.data(), c.t.data(), nullptr, out);
            },
            [&](double* out) {
                return QrvGetDensityN(record, n, c.P.data(), c.t.data(), nullptr, out);
            },
            what);
    };
    viscosity(nullptr, "null record");
    pvt(nullptr, "null record");
    std::vector<double> out(n, 5.0);
    EXPECT_EQ(
        QrvGetViscosityNFast(nullptr, n, c.g.data(), c.t.data(), nullptr, nullptr, out.data()), n);
    EXPECT_EQ(out[n - 1], -1.0);  // the sentinel itself, not only agreement with the exact form
    auto record = makeRecord();
    for (int model : {0, 6, 9, 14}) {
        setBlock(record->Vis, model, std::vector<double>(11, 1.0));
        viscosity(record.get(), "Vis model " + std::to_string(model));
    }
    for (const ModelCase& m : qrvtest::viscosityCases()) {
        const auto shortBy2 =
            static_cast<std::ptrdiff_t>(m.para.size() < 2 ? 0 : m.para.size() - 2);
        setBlock(record->Vis, m.model,
                 std::vector<double>(m.para.begin(), m.para.begin() + shortBy2));
        viscosity(record.get(), "short " + m.name);
        qrvtest::setNullBlock(record->Vis, m.model, 11);
        viscosity(record.get(), "null " + m.name);
    }
    for (const ModelCase& m : qrvtest::volumeCases()) {
        setBlock(record->PVT, m.model, std::vector<double>(m.para.begin(), m.para.end() - 1));
        pvt(record.get(), "short " + m.name);
        qrvtest::setNullBlock(record->PVT, m.model, 13);
        pvt(record.get(), "null " + m.name);
    }
    setBlock(record->PVT, 8, std::vector<double>(13, 1.0));
    pvt(record.get(), "PVT model 8");
    // Missing arrays and counts of 0 or below write nothing.
    std::vector<double> untouched(n, 5.0);
    auto vis = recordWith(&QrvMaterial::Vis, qrvtest::viscosityCases()[4]);
    EXPECT_EQ(QrvGetViscosityNFast(vis.get(), 0, c.g.data(), c.t.data(), nullptr, nullptr,
                                   untouched.data()),
              0);
    EXPECT_EQ(QrvGetViscosityNFast(vis.get(), -8, c.g.data(), c.t.data(), nullptr, nullptr,
                                   untouched.data()),
              0);
    EXPECT_EQ(
        QrvGetViscosityNFast(vis.get(), n, nullptr, c.t.data(), nullptr, nullptr, untouched.data()),
        0);
    EXPECT_EQ(QrvGetSpecificVolumeNFast(vis.get(), n, nullptr, nullptr, nullptr, untouched.data()),
              0);
    EXPECT_EQ(QrvGetDensityNFast(vis.get(), n, nullptr, c.t.data(), nullptr, nullptr), 0);
    EXPECT_EQ(QrvGetHeatCapacityNFast(vis.get(), n, nullptr, untouched.data()), 0);
    EXPECT_EQ(QrvGetThermalConductivityNFast(vis.get(), -1, c.t.data(), untouched.data()), 0);
    for (double v : untouched)
        EXPECT_EQ(v, 5.0);
}

TEST_P(BatchFast, TablesAreTheExactForm) {
    auto record = makeRecord();
    setBlock(record->Cp, 4, {1.0e7, 50, 1.2e7, 100, 1.8e7, 150});
    setBlock(record->K, 3, {1.0e5, 0, 1.5e5, 300});
    const std::vector<double> t = {-10.0, 50.0, 70.0, 100.0, 120.0, 150.0, 160.0, 299.0, 301.0};
    const int n = static_cast<int>(t.size());
    std::vector<double> fast(n), exact(n);
    ASSERT_EQ(QrvGetHeatCapacityNFast(record.get(), n, t.data(), fast.data()), n);
    QrvGetHeatCapacityN(record.get(), n, t.data(), exact.data());
    EXPECT_EQ(fast, exact);
    EXPECT_EQ(fast[2], 1.0e7 + 0.2e7 * 20 / 50);
    ASSERT_EQ(QrvGetThermalConductivityNFast(record.get(), n, t.data(), fast.data()), n);
    QrvGetThermalConductivityN(record.get(), n, t.data(), exact.data());
    EXPECT_EQ(fast, exact);
}

TEST_P(BatchFast, OutputMayBeTheInputArrayItself) {
    const Columns c = qrvtest::grid();
    const int n = c.size();
    auto vis = recordWith(&QrvMaterial::Vis, qrvtest::viscosityCases()[9]);
    std::vector<double> inPlace = c.g, separate(n);
    QrvGetViscosityNFast(vis.get(), n, inPlace.data(), c.t.data(), c.P.data(), c.x.data(),
                         inPlace.data());
    QrvGetViscosityNFast(vis.get(), n, c.g.data(), c.t.data(), c.P.data(), c.x.data(),
                         separate.data());
    for (int i = 0; i < n; ++i)
        ASSERT_EQ(bitsOf(inPlace[i]), bitsOf(separate[i])) << i;
    auto pvt = recordWith(&QrvMaterial::PVT, qrvtest::volumeCases()[4]);
    inPlace = c.t;
    QrvGetSpecificVolumeNFast(pvt.get(), n, c.P.data(), inPlace.data(), nullptr, inPlace.data());
    QrvGetSpecificVolumeNFast(pvt.get(), n, c.P.data(), c.t.data(), nullptr, separate.data());
    for (int i = 0; i < n; ++i)
        ASSERT_EQ(bitsOf(inPlace[i]), bitsOf(separate[i])) << i;
}

TEST(BatchFastDispatch, TheWidestSupportedSetIsChosenAndALimitIsHonoured) {
    qrv::batch::limitInstructionSet(InstructionSet::Avx512);
    EXPECT_EQ(qrv::batch::activeForms().set, qrv::batch::widestSupported());
    qrv::batch::limitInstructionSet(InstructionSet::Sse2);
    EXPECT_EQ(qrv::batch::activeForms().set, InstructionSet::Sse2);
    qrv::batch::limitInstructionSet(InstructionSet::Avx512);
    std::cout << "widest supported instruction set: " << nameOf(qrv::batch::widestSupported())
              << "\n";
}

TEST(BatchFastDispatch, TheWidestSetIsTheOneTheProcessorLists) {
    // The processor's own list of features, as the kernel shows it in /proc/cpuinfo.
    std::ifstream cpuinfo("/proc/cpuinfo");
    std::string line;
    std::set<std::string> flags;
    while (std::getline(cpuinfo, line)) {
        if (line.rfind("flags", 0) != 0) continue;
        std::istringstream words(line.substr(line.find(':') + 1));
        for (std::string word; words >> word;)
            flags.insert(word);
        break;
    }
    if (flags.empty()) GTEST_SKIP() << "no /proc/cpuinfo flags on this system";
    const InstructionSet expected = flags.count("avx512f") ? InstructionSet::Avx512
                                    : flags.count("avx2") && flags.count("fma")
                                        ? InstructionSet::Avx2
                                        : InstructionSet::Sse2;
    EXPECT_EQ(qrv::batch::widestSupported(), expected);
}

TEST(BatchFastDispatch, EveryMixOfFeaturesGetsTheWidestSetItRuns) {
    // Processors this machine is not: AVX2 without FMA (a virtual machine may hide FMA), FMA
    // without AVX2, and AVX-512 with either missing.
    using qrv::batch::widestOf;
    for (bool avx2 : {false, true}) {
        for (bool fma : {false, true})
            EXPECT_EQ(widestOf({true, avx2, fma}), InstructionSet::Avx512) << avx2 << fma;
    }
    EXPECT_EQ(widestOf({false, true, true}), InstructionSet::Avx2);
    EXPECT_EQ(widestOf({false, true, false}), InstructionSet::Sse2);
    EXPECT_EQ(widestOf({false, false, true}), InstructionSet::Sse2);
    EXPECT_EQ(widestOf({false, false, false}), InstructionSet::Sse2);
}

INSTANTIATE_TEST_SUITE_P(EachSupportedSet, BatchFast, ::testing::ValuesIn(supportedSets()),
                         [](const auto& info) {
                             std::string name = nameOf(info.param);
                             name.erase(std::remove(name.begin(), name.end(), '-'), name.end());
                             return name;
                         });

// Prints the largest relative difference per model over all sets, for the record.
class WorstCaseReport : public ::testing::Environment {
public:
    void TearDown() override {
        for (const auto& [what, relative] : worst())
            std::cout << "largest relative difference, " << what << ": " << relative << "\n";
    }
};
const auto* const kReport = ::testing::AddGlobalTestEnvironment(new WorstCaseReport);

}  // namespace
