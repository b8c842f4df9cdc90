// The fixed sample values, in base units, at the precision that reproduces the stored doubles.
#include "defaults/sample_tables.h"

namespace qrv::defaults {

const SampleRow* findRow(const std::vector<SampleRow>& table, int id) {
    for (const SampleRow& row : table) {
        if (row.id == id) return &row;
    }
    return nullptr;
}

const std::vector<SampleRow>& thermoplasticVis() {
    static const std::vector<SampleRow> rows = {
        {1, {1.0}},
        {2, {0.429888, 498.746, 2332.14}},
        {3, {0.3036, 0.0001051, 6.484e-07, 12720.0, 2.4e-09}},
        {4, {0.27845, 876860.0, 1.1326e-06, 11642.0, 0.0}},
        {5, {0.25883, 1026900.0, 4.7127e+14, 373.15, 0.0, 30.5, 46.0}},
    };
    return rows;
}

// Row 2 holds five values for a model that reads three (the same five as viscosity row 3); the
// sample data has always stood so.
const std::vector<SampleRow>& pvt(bool crystalline) {
    static const std::vector<SampleRow> crystallineRows = {
        {1, {1.0}},
        {2, {0.3036, 0.0001051, 6.484e-07, 12720.0, 2.4e-09}},
        {5,
         {1.243223, 0.0008717028, 803245700.0, 0.005057665, 1.174659, 0.0006479683, 966552700.0,
          0.006852022, 448.5, 6.625e-09, 0.05328416, 0.1, 6.625e-10}},
    };
    static const std::vector<SampleRow> amorphousRows = {
        crystallineRows[0],
        crystallineRows[1],
        {5,
         {0.9057, 0.00053647, 1656600000.0, 0.0043988, 0.90568, 0.00015025, 1949000000.0, 0.0035078,
          364.0, 1.1596e-08, 0.0, 0.0, 0.0}},
    };
    return crystalline ? crystallineRows : amorphousRows;
}

const std::vector<SampleRow>& heatCapacity() {
    static const std::vector<SampleRow> rows = {
        {1, {23074000.0}},
        {2, {20000000.0, 125, 20610000.0, 225}},
        {3, {14420000.0, 55, 17260000.0, 100, 20700000.0, 150, 22740000.0, 255}},
    };
    return rows;
}

const std::vector<SampleRow>& conductivity() {
    static const std::vector<SampleRow> rows = {
        {1, {23450.0}},
        {2, {24000.0, 60, 31500.0, 260}},
    };
    return rows;
}

// Rows 1 and 2 hold their two thermal expansions in opposite order; that is the sample data.
const std::vector<SampleRow>& mechanical() {
    static const std::vector<double> theoretical = {1.0,   0.3,   2e+10, 2e-05, 15.0,  2.55, 0.2,
                                                    7e+11, 7e+11, 3e+11, 5e-06, 5e-06, 20.0, 0.01};
    static const std::vector<SampleRow> rows = {
        {0, {0.38, 0.38, 2e+10, 2e+10, 7246377000.0, 9.5e-05, 9.5e-05}},
        {1, {0.156, 0.294, 4.48e+10, 2.38e+10, 8.7e+10, 2.2e-06, 9.38e-06}},
        {2, {0.156, 0.294, 4.48e+10, 2.38e+10, 8.7e+10, 9.38e-06, 2.2e-06, 20.0, 0.01, 15.0}},
        {3, theoretical},
        {4, theoretical},
        {5,
         {1.0, 0.3, 2e+10, 2e-05, 15.0, 1.78, 0.26, 2.3e+12, 2.3e+11, 9e+10, -1.5e-06, 1e-05, 20.0,
          0.01}},
    };
    return rows;
}

const std::vector<double>& processTemperatures() {
    static const std::vector<double> values = {200, 225, 250, 40, 60, 80, 88, 130};
    return values;
}

const ThermosetSample* findThermoset(int visId) {
    static const std::vector<ThermosetSample> rows = {
        {10,
         {0.69, 6.9179, 1.9442, 0.01682, 3570.21},
         1.93,
         5700000.0,
         65486.0,
         {0.39, 1.12, 15426.0, 10886000.0, 8332.76, 8332.76, 542000000.0}},
        {11,
         {-13.72626, -45.23453, 11.03065, 8686.252, 17649.07, -4093.336, 0.5490999, 1.817284,
          -0.2455251, 0.45, 0.22},
         1.26,
         10780000.0,
         74000.0,
         {0.2764993, 1.209955, 2.462749e+40, 104056.8, 48065.67, 6975.487, 950000000.0}},
        {12,
         {1.0, 9.31, 1.893e-05, 0.03115, 8916.0, 0.4514, 0.0234},
         2.0,
         10000000.0,
         97000.0,
         {0.1812, 1.193, 84350000.0, 80600000.0, 10420.0, 9610.0, 950000000.0}},
        {13,
         {0.85, 23220000.0, 25.85, 179.6, 5.13, 1.2, 0.682, 8570.0, 293.0, 0.0},
         2.0,
         10000000.0,
         97000.0,
         {0.342, 1.14, 0.1, 17200000.0, 19796.0, 8866.0, 950000000.0}},
    };
    for (const ThermosetSample& row : rows) {
        if (row.visId == visId) return &row;
    }
    return nullptr;
}

}  // namespace qrv::defaults
