// Exact batch forms against the scalar calls, point by point and to the last bit: every model on a
// grid that crosses every branch, the vector-length counts, null and short arrays, the failure
// values and the contract on counts, nulls and aliasing.
#include <gtest/gtest.h>

#include <quorvalib/batch.h>
#include <quorvalib/properties.h>

#include <limits>
#include <vector>

#include "properties/batch_cases.h"

namespace {

using qrvtest::bitsOf;
using qrvtest::Columns;
using qrvtest::makeRecord;
using qrvtest::ModelCase;
using qrvtest::recordWith;
using qrvtest::setBlock;

const double kInf = std::numeric_limits<double>::infinity();
const int kCounts[] = {0, 1, 3, 7, 8, 9, 1000};

// Asserts bit equality of each result with the scalar call; `scalar(i)` gives point i.
template <typename Scalar>
void expectBitsEqual(const std::vector<double>& got, int count, Scalar scalar,
                     const std::string& what) {
    for (int i = 0; i < count; ++i) {
        const double want = scalar(i);
        ASSERT_EQ(bitsOf(got[i]), bitsOf(want))
            << what << " point " << i << ": " << got[i] << " against " << want;
    }
}

double at(const std::vector<double>& column, int i) {
    return column.empty() ? 0.0 : column[i];
}

void checkViscosity(QrvMaterial* record, const Columns& c, bool nullPressure, bool nullConversion,
                    const std::string& what) {
    const std::vector<double> P = nullPressure ? std::vector<double>() : c.P;
    const std::vector<double> x = nullConversion ? std::vector<double>() : c.x;
    std::vector<double> out(c.size(), -7.0);
    ASSERT_EQ(QrvGetViscosityN(record, c.size(), c.g.data(), c.t.data(),
                               nullPressure ? nullptr : P.data(),
                               nullConversion ? nullptr : x.data(), out.data()),
              c.size());
    expectBitsEqual(
        out, c.size(),
        [&](int i) { return QrvGetViscosity(record, c.g[i], c.t[i], at(P, i), at(x, i)); }, what);
}

void checkVolumeAndDensity(QrvMaterial* record, const Columns& c, bool nullPressure,
                           bool nullConversion, const std::string& what) {
    const std::vector<double> P = nullPressure ? std::vector<double>() : c.P;
    const std::vector<double> x = nullConversion ? std::vector<double>() : c.x;
    const double* pressure = nullPressure ? nullptr : P.data();
    const double* conversion = nullConversion ? nullptr : x.data();
    std::vector<double> volume(c.size(), -7.0), density(c.size(), -7.0);
    ASSERT_EQ(
        QrvGetSpecificVolumeN(record, c.size(), pressure, c.t.data(), conversion, volume.data()),
        c.size());
    ASSERT_EQ(QrvGetDensityN(record, c.size(), pressure, c.t.data(), conversion, density.data()),
              c.size());
    expectBitsEqual(
        volume, c.size(),
        [&](int i) { return QrvGetSpecificVolume(record, at(P, i), c.t[i], at(x, i)); },
        what + " volume");
    expectBitsEqual(
        density, c.size(), [&](int i) { return QrvGetDensity(record, at(P, i), c.t[i], at(x, i)); },
        what + " density");
}

TEST(BatchExact, EveryViscosityModelEqualsTheScalarCallToTheBit) {
    const Columns c = qrvtest::withNonFinite(qrvtest::grid());
    for (const ModelCase& m : qrvtest::viscosityCases()) {
        auto record = recordWith(&QrvMaterial::Vis, m);
        checkViscosity(record.get(), c, false, false, m.name);
        checkViscosity(record.get(), c, true, false, m.name + " without pressure");
        checkViscosity(record.get(), c, false, true, m.name + " without conversion");
        checkViscosity(record.get(), c, true, true, m.name + " without either");
    }
}

TEST(BatchExact, EveryPvtModelEqualsTheScalarCallToTheBit) {
    Columns c = qrvtest::withNonFinite(qrvtest::grid());
    // Tait-C at conversion 1/Zeta: a volume of exactly 0 and an infinite density.
    c.P.push_back(1e8);
    c.t.push_back(200.0);
    c.x.push_back(1 / 0.8);
    c.g.push_back(1.0);
    for (const ModelCase& m : qrvtest::volumeCases()) {
        auto record = recordWith(&QrvMaterial::PVT, m);
        checkVolumeAndDensity(record.get(), c, false, false, m.name);
        checkVolumeAndDensity(record.get(), c, true, false, m.name + " without pressure");
        checkVolumeAndDensity(record.get(), c, false, true, m.name + " without conversion");
        checkVolumeAndDensity(record.get(), c, true, true, m.name + " without either");
    }
    auto taitC = recordWith(&QrvMaterial::PVT, qrvtest::volumeCases()[6]);
    double P = 1e8, t = 200.0, x = 1 / 0.8, v = -7.0, rho = -7.0;
    QrvGetSpecificVolumeN(taitC.get(), 1, &P, &t, &x, &v);
    QrvGetDensityN(taitC.get(), 1, &P, &t, &x, &rho);
    EXPECT_EQ(v, 0.0);
    EXPECT_EQ(rho, kInf);
}

TEST(BatchExact, TablesEqualTheScalarCallToTheBit) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const std::vector<std::vector<double>> tables = {
        {23074000.0},
        {1.5e7, 100.0},
        {20000000.0, 125, 20610000.0, 225},
        {14420000.0, 55, 17260000.0, 100, 20700000.0, 150, 22740000.0, 255},
        {1.0e7, 50, 1.2e7, 100, 1.8e7, 100, 2.0e7, 200},  // a step: equal inner temperatures
        {1.0e7, 50, 1.2e7, 100, 1.8e7},                   // odd count
        {1.0e7, 0, 1.1e7, nan, 1.5e7, 30, 1.7e7, 40},     // a temperature that is not a number
        {1.0e7, 200, 1.2e7, 100, 1.8e7, 150},             // out of order
    };
    std::vector<double> t = {-40.0, 0.0,   49.9,  50.0,  55.0,  75.0,  99.9,  100.0, 100.1, 125.0,
                             150.0, 175.0, 200.0, 225.0, 254.0, 255.0, 255.5, 300.0, nan,   kInf};
    for (int model = 1; model <= 4; ++model) {
        for (const auto& values : tables) {
            auto record = makeRecord();
            setBlock(record->Cp, model, values);
            setBlock(record->K, model, values);
            std::vector<double> cp(t.size()), k(t.size());
            const int n = static_cast<int>(t.size());
            ASSERT_EQ(QrvGetHeatCapacityN(record.get(), n, t.data(), cp.data()), n);
            ASSERT_EQ(QrvGetThermalConductivityN(record.get(), n, t.data(), k.data()), n);
            expectBitsEqual(
                cp, n, [&](int i) { return QrvGetHeatCapacity(record.get(), t[i]); }, "Cp");
            expectBitsEqual(
                k, n, [&](int i) { return QrvGetThermalConductivity(record.get(), t[i]); }, "K");
        }
    }
}

TEST(BatchExact, VectorLengthCountsWriteExactlyCountResults) {
    const Columns c = qrvtest::grid();
    auto vis = recordWith(&QrvMaterial::Vis, qrvtest::viscosityCases()[4]);
    auto pvt = recordWith(&QrvMaterial::PVT, qrvtest::volumeCases()[4]);
    const double canary = -12345.0;
    for (int count : kCounts) {
        std::vector<double> eta(count + 4, canary), v(count + 4, canary), rho(count + 4, canary),
            cp(count + 4, canary);
        EXPECT_EQ(QrvGetViscosityN(vis.get(), count, c.g.data(), c.t.data(), c.P.data(), c.x.data(),
                                   eta.data()),
                  count);
        EXPECT_EQ(
            QrvGetSpecificVolumeN(pvt.get(), count, c.P.data(), c.t.data(), c.x.data(), v.data()),
            count);
        EXPECT_EQ(QrvGetDensityN(pvt.get(), count, c.P.data(), c.t.data(), c.x.data(), rho.data()),
                  count);
        expectBitsEqual(
            eta, count,
            [&](int i) { return QrvGetViscosity(vis.get(), c.g[i], c.t[i], c.P[i], c.x[i]); },
            "viscosity");
        expectBitsEqual(
            v, count,
            [&](int i) { return QrvGetSpecificVolume(pvt.get(), c.P[i], c.t[i], c.x[i]); },
            "volume");
        expectBitsEqual(
            rho, count, [&](int i) { return QrvGetDensity(pvt.get(), c.P[i], c.t[i], c.x[i]); },
            "density");
        for (int i = count; i < count + 4; ++i) {
            EXPECT_EQ(eta[i], canary) << count;
            EXPECT_EQ(v[i], canary) << count;
            EXPECT_EQ(rho[i], canary) << count;
        }
    }
}

TEST(BatchExact, FailureValuesAreTheScalarOnes) {
    const Columns c = qrvtest::grid();
    const int n = 9;
    std::vector<double> out(n);
    ASSERT_EQ(
        QrvGetViscosityN(nullptr, n, c.g.data(), c.t.data(), c.P.data(), c.x.data(), out.data()),
        n);
    for (double v : out)
        EXPECT_EQ(v, -1.0);
    ASSERT_EQ(QrvGetSpecificVolumeN(nullptr, n, c.P.data(), c.t.data(), nullptr, out.data()), n);
    for (double v : out)
        EXPECT_EQ(v, -1.0);
    ASSERT_EQ(QrvGetDensityN(nullptr, n, c.P.data(), c.t.data(), nullptr, out.data()), n);
    for (double v : out)
        EXPECT_EQ(v, 0.0);
    ASSERT_EQ(QrvGetHeatCapacityN(nullptr, n, c.t.data(), out.data()), n);
    for (double v : out)
        EXPECT_EQ(v, -1.0);
    ASSERT_EQ(QrvGetThermalConductivityN(nullptr, n, c.t.data(), out.data()), n);
    for (double v : out)
        EXPECT_EQ(v, -1.0);

    // Unknown and unevaluated ids, null and short parameter arrays: 0.0, and infinite density.
    auto record = makeRecord();
    for (int model : {-1, 0, 6, 7, 8, 9, 14}) {
        setBlock(record->Vis, model, std::vector<double>(11, 1.0));
        QrvGetViscosityN(record.get(), n, c.g.data(), c.t.data(), c.P.data(), c.x.data(),
                         out.data());
        for (double v : out)
            EXPECT_EQ(v, 0.0) << model;
    }
    for (int model : {-1, 0, 8}) {
        setBlock(record->PVT, model, std::vector<double>(13, 1.0));
        QrvGetSpecificVolumeN(record.get(), n, c.P.data(), c.t.data(), c.x.data(), out.data());
        for (double v : out)
            EXPECT_EQ(v, 0.0) << model;
        QrvGetDensityN(record.get(), n, c.P.data(), c.t.data(), c.x.data(), out.data());
        for (double v : out)
            EXPECT_EQ(v, kInf) << model;
    }
    for (const ModelCase& m : qrvtest::viscosityCases()) {
        // One value fewer than the formula reads (Herschel-Bulkely stores a tenth, unread).
        const int read = m.model == 13 ? 9 : static_cast<int>(m.para.size());
        setBlock(record->Vis, m.model,
                 std::vector<double>(m.para.begin(), m.para.begin() + read - 1));
        QrvGetViscosityN(record.get(), n, c.g.data(), c.t.data(), c.P.data(), c.x.data(),
                         out.data());
        for (double v : out)
            EXPECT_EQ(v, 0.0) << m.name;
        qrvtest::setNullBlock(record->Vis, m.model, static_cast<int>(m.para.size()));
        QrvGetViscosityN(record.get(), n, c.g.data(), c.t.data(), c.P.data(), c.x.data(),
                         out.data());
        for (double v : out)
            EXPECT_EQ(v, 0.0) << m.name;
    }
    for (const ModelCase& m : qrvtest::volumeCases()) {
        setBlock(record->PVT, m.model, std::vector<double>(m.para.begin(), m.para.end() - 1));
        QrvGetSpecificVolumeN(record.get(), n, c.P.data(), c.t.data(), c.x.data(), out.data());
        for (double v : out)
            EXPECT_EQ(v, 0.0) << m.name;
        qrvtest::setNullBlock(record->PVT, m.model, static_cast<int>(m.para.size()));
        QrvGetDensityN(record.get(), n, c.P.data(), c.t.data(), c.x.data(), out.data());
        for (double v : out)
            EXPECT_EQ(v, kInf) << m.name;
    }
    qrvtest::setNullBlock(record->Cp, 4, 8);
    QrvGetHeatCapacityN(record.get(), n, c.t.data(), out.data());
    for (double v : out)
        EXPECT_EQ(v, -1.0);
}

TEST(BatchExact, RecordsOfOtherTypesAreEvaluatedAsTheScalarCallEvaluatesThem) {
    // The id picks the formula whatever the FileType: a thermoset formula on a thermoplastic
    // record, a thermoplastic one on a thermoset record, and a metal record without blocks.
    const Columns c = qrvtest::grid();
    for (int fileType : {1, 2, 3, 9}) {
        auto record = makeRecord(fileType);
        setBlock(record->Vis, 12, qrvtest::viscosityCases()[9].para);
        checkViscosity(record.get(), c, false, false, "type " + std::to_string(fileType));
        setBlock(record->Vis, 4, qrvtest::viscosityCases()[3].para);
        checkViscosity(record.get(), c, false, false, "type " + std::to_string(fileType));
    }
    auto metal = makeRecord(3);
    std::vector<double> out(c.size(), -7.0);
    QrvGetViscosityN(metal.get(), c.size(), c.g.data(), c.t.data(), nullptr, nullptr, out.data());
    for (double v : out)
        ASSERT_EQ(v, 0.0);
    checkVolumeAndDensity(metal.get(), c, false, false, "metal");
}

TEST(BatchExact, NothingIsWrittenForANonPositiveCountOrAMissingArray) {
    const Columns c = qrvtest::grid();
    auto vis = recordWith(&QrvMaterial::Vis, qrvtest::viscosityCases()[2]);
    auto pvt = recordWith(&QrvMaterial::PVT, qrvtest::volumeCases()[2]);
    const double canary = 42.0;
    std::vector<double> out(8, canary);
    for (QrvMaterial* record : {vis.get(), static_cast<QrvMaterial*>(nullptr)}) {
        for (int count : {0, -1, -1000000}) {
            EXPECT_EQ(QrvGetViscosityN(record, count, c.g.data(), c.t.data(), nullptr, nullptr,
                                       out.data()),
                      0);
            EXPECT_EQ(
                QrvGetSpecificVolumeN(record, count, c.P.data(), c.t.data(), nullptr, out.data()),
                0);
            EXPECT_EQ(QrvGetDensityN(record, count, nullptr, c.t.data(), nullptr, out.data()), 0);
            EXPECT_EQ(QrvGetHeatCapacityN(record, count, c.t.data(), out.data()), 0);
            EXPECT_EQ(QrvGetThermalConductivityN(record, count, c.t.data(), out.data()), 0);
        }
        EXPECT_EQ(QrvGetViscosityN(record, 8, nullptr, c.t.data(), nullptr, nullptr, out.data()),
                  0);
        EXPECT_EQ(QrvGetViscosityN(record, 8, c.g.data(), nullptr, nullptr, nullptr, out.data()),
                  0);
        EXPECT_EQ(QrvGetViscosityN(record, 8, c.g.data(), c.t.data(), nullptr, nullptr, nullptr),
                  0);
        EXPECT_EQ(QrvGetSpecificVolumeN(record, 8, nullptr, nullptr, nullptr, out.data()), 0);
        EXPECT_EQ(QrvGetSpecificVolumeN(record, 8, nullptr, c.t.data(), nullptr, nullptr), 0);
        EXPECT_EQ(QrvGetDensityN(record, 8, nullptr, nullptr, nullptr, out.data()), 0);
        EXPECT_EQ(QrvGetDensityN(record, 8, nullptr, c.t.data(), nullptr, nullptr), 0);
        EXPECT_EQ(QrvGetHeatCapacityN(record, 8, nullptr, out.data()), 0);
        EXPECT_EQ(QrvGetThermalConductivityN(record, 8, c.t.data(), nullptr), 0);
    }
    for (double v : out)
        EXPECT_EQ(v, canary);
}

TEST(BatchExact, OutputMayBeTheInputArrayItself) {
    const Columns c = qrvtest::grid();
    auto vis = recordWith(&QrvMaterial::Vis, qrvtest::viscosityCases()[4]);
    auto pvt = recordWith(&QrvMaterial::PVT, qrvtest::volumeCases()[4]);
    std::vector<double> inPlace = c.t;
    QrvGetViscosityN(vis.get(), c.size(), c.g.data(), inPlace.data(), c.P.data(), nullptr,
                     inPlace.data());
    expectBitsEqual(
        inPlace, c.size(),
        [&](int i) { return QrvGetViscosity(vis.get(), c.g[i], c.t[i], c.P[i], 0.0); },
        "viscosity over temperature");
    inPlace = c.P;
    QrvGetDensityN(pvt.get(), c.size(), inPlace.data(), c.t.data(), nullptr, inPlace.data());
    expectBitsEqual(
        inPlace, c.size(), [&](int i) { return QrvGetDensity(pvt.get(), c.P[i], c.t[i], 0.0); },
        "density over pressure");
}

}  // namespace
