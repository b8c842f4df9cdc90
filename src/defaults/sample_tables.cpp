// The fixed sample values, in base units, at the precision that reproduces the stored doubles.
#include "defaults/sample_tables.h"

namespace qrv::defaults {

namespace {

constexpr double kVis1[] = {1.0};
constexpr double kVis2[] = {0.429888, 498.746, 2332.14};
constexpr double kVis3[] = {0.3036, 0.0001051, 6.484e-07, 12720.0, 2.4e-09};
constexpr double kVis4[] = {0.27845, 876860.0, 1.1326e-06, 11642.0, 0.0};
constexpr double kVis5[] = {0.25883, 1026900.0, 4.7127e+14, 373.15, 0.0, 30.5, 46.0};
constexpr SampleRow kVisRows[] = {{1, kVis1}, {2, kVis2}, {3, kVis3}, {4, kVis4}, {5, kVis5}};

// Row 2 holds five values for a model that reads three (the same five as viscosity row 3); the
// sample data has always stood so.
constexpr double kPvtCrystalline5[] = {
    1.243223,    0.0008717028, 803245700.0, 0.005057665, 1.174659, 0.0006479683, 966552700.0,
    0.006852022, 448.5,        6.625e-09,   0.05328416,  0.1,      6.625e-10};
constexpr double kPvtAmorphous5[] = {0.9057,     0.00053647,   1656600000.0, 0.0043988, 0.90568,
                                     0.00015025, 1949000000.0, 0.0035078,    364.0,     1.1596e-08,
                                     0.0,        0.0,          0.0};
constexpr SampleRow kPvtCrystallineRows[] = {{1, kVis1}, {2, kVis3}, {5, kPvtCrystalline5}};
constexpr SampleRow kPvtAmorphousRows[] = {{1, kVis1}, {2, kVis3}, {5, kPvtAmorphous5}};

constexpr double kCp1[] = {23074000.0};
constexpr double kCp2[] = {20000000.0, 125, 20610000.0, 225};
constexpr double kCp3[] = {14420000.0, 55, 17260000.0, 100, 20700000.0, 150, 22740000.0, 255};
constexpr SampleRow kCpRows[] = {{1, kCp1}, {2, kCp2}, {3, kCp3}};

constexpr double kK1[] = {23450.0};
constexpr double kK2[] = {24000.0, 60, 31500.0, 260};
constexpr SampleRow kKRows[] = {{1, kK1}, {2, kK2}};

// Rows 1 and 2 hold their two thermal expansions in opposite order; that is the sample data.
constexpr double kMech0[] = {0.38, 0.38, 2e+10, 2e+10, 7246377000.0, 9.5e-05, 9.5e-05};
constexpr double kMech1[] = {0.156, 0.294, 4.48e+10, 2.38e+10, 8.7e+10, 2.2e-06, 9.38e-06};
constexpr double kMech2[] = {0.156,    0.294,   4.48e+10, 2.38e+10, 8.7e+10,
                             9.38e-06, 2.2e-06, 20.0,     0.01,     15.0};
constexpr double kMechTheoretical[] = {1.0,   0.3,   2e+10, 2e-05, 15.0,  2.55, 0.2,
                                       7e+11, 7e+11, 3e+11, 5e-06, 5e-06, 20.0, 0.01};
constexpr double kMech5[] = {1.0,     0.3,     2e+10, 2e-05,    15.0,  1.78, 0.26,
                             2.3e+12, 2.3e+11, 9e+10, -1.5e-06, 1e-05, 20.0, 0.01};
constexpr SampleRow kMechRows[] = {{0, kMech0},           {1, kMech1},           {2, kMech2},
                                   {3, kMechTheoretical}, {4, kMechTheoretical}, {5, kMech5}};

constexpr double kProcessTemperatures[] = {200, 225, 250, 40, 60, 80, 88, 130};

constexpr double kThermosetVis10[] = {0.69, 6.9179, 1.9442, 0.01682, 3570.21};
constexpr double kKinetics10[] = {0.39, 1.12, 15426.0, 10886000.0, 8332.76, 8332.76, 542000000.0};
constexpr double kThermosetVis11[] = {-13.72626,  -45.23453, 11.03065,  8686.252,
                                      17649.07,   -4093.336, 0.5490999, 1.817284,
                                      -0.2455251, 0.45,      0.22};
constexpr double kKinetics11[] = {0.2764993, 1.209955, 2.462749e+40, 104056.8,
                                  48065.67,  6975.487, 950000000.0};
constexpr double kThermosetVis12[] = {1.0, 9.31, 1.893e-05, 0.03115, 8916.0, 0.4514, 0.0234};
constexpr double kKinetics12[] = {0.1812,  1.193,  84350000.0, 80600000.0,
                                  10420.0, 9610.0, 950000000.0};
constexpr double kThermosetVis13[] = {0.85, 23220000.0, 25.85,  179.6, 5.13,
                                      1.2,  0.682,      8570.0, 293.0, 0.0};
constexpr double kKinetics13[] = {0.342, 1.14, 0.1, 17200000.0, 19796.0, 8866.0, 950000000.0};
constexpr ThermosetSample kThermosets[] = {
    {10, kThermosetVis10, 1.93, 5700000.0, 65486.0, kKinetics10},
    {11, kThermosetVis11, 1.26, 10780000.0, 74000.0, kKinetics11},
    {12, kThermosetVis12, 2.0, 10000000.0, 97000.0, kKinetics12},
    {13, kThermosetVis13, 2.0, 10000000.0, 97000.0, kKinetics13},
};

}  // namespace

const SampleRow* findRow(SampleTable table, int id) {
    for (std::size_t i = 0; i < table.size; ++i)
        if (table.rows[i].id == id) return &table.rows[i];
    return nullptr;
}

SampleTable thermoplasticVis() {
    return kVisRows;
}

SampleTable pvt(bool crystalline) {
    return crystalline ? SampleTable(kPvtCrystallineRows) : SampleTable(kPvtAmorphousRows);
}

SampleTable heatCapacity() {
    return kCpRows;
}

SampleTable conductivity() {
    return kKRows;
}

SampleTable mechanical() {
    return kMechRows;
}

Values processTemperatures() {
    return kProcessTemperatures;
}

const ThermosetSample* findThermoset(int visId) {
    for (const ThermosetSample& row : kThermosets)
        if (row.visId == visId) return &row;
    return nullptr;
}

}  // namespace qrv::defaults
