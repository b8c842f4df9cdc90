// Sample data of the default material generator, as constant tables keyed by model id: plain
// arrays, so that nothing is built or allocated when a table is first used.
#ifndef QRV_DEFAULTS_SAMPLE_TABLES_H
#define QRV_DEFAULTS_SAMPLE_TABLES_H

#include <cstddef>

namespace qrv::defaults {

// A run of constant values: a block's parameters, its Count being the size.
struct Values {
    const double* data;
    std::size_t size;

    template <std::size_t N>
    constexpr Values(const double (&values)[N]) : data(values), size(N) {}
};

struct SampleRow {
    int id;  // the model id the row answers
    Values para;
};

struct SampleTable {
    const SampleRow* rows;
    std::size_t size;

    template <std::size_t N>
    constexpr SampleTable(const SampleRow (&table)[N]) : rows(table), size(N) {}
};

// Finds the row of id in table, null when the table has none.
const SampleRow* findRow(SampleTable table, int id);

SampleTable thermoplasticVis();
SampleTable pvt(bool crystalline);
SampleTable heatCapacity();
SampleTable conductivity();
SampleTable mechanical();
Values processTemperatures();

// Thermoset samples, one row per viscosity id 10 to 13.
struct ThermosetSample {
    int visId;
    Values vis;
    double pvt, cp, k;
    Values kinetics;
};
const ThermosetSample* findThermoset(int visId);

}  // namespace qrv::defaults

#endif
