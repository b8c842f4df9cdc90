// Sample data of the default material generator, as tables keyed by model id.
#ifndef QRV_DEFAULTS_SAMPLE_TABLES_H
#define QRV_DEFAULTS_SAMPLE_TABLES_H

#include <vector>

namespace qrv::defaults {

struct SampleRow {
    int id;                    // the model id the row answers
    std::vector<double> para;  // Count is its size
};

// Finds the row of id in table, null when the table has none.
const SampleRow* findRow(const std::vector<SampleRow>& table, int id);

const std::vector<SampleRow>& thermoplasticVis();
const std::vector<SampleRow>& pvt(bool crystalline);
const std::vector<SampleRow>& heatCapacity();
const std::vector<SampleRow>& conductivity();
const std::vector<SampleRow>& mechanical();
const std::vector<double>& processTemperatures();

// Thermoset samples, one row per viscosity id 10 to 13.
struct ThermosetSample {
    int visId;
    std::vector<double> vis;
    double pvt, cp, k;
    std::vector<double> kinetics;
};
const ThermosetSample* findThermoset(int visId);

}  // namespace qrv::defaults

#endif
