// The unit id tables of the report, one row per model: either a run of negative report-item ids
// (first id, then one lower per parameter) or a list of ids by index.
#include "report/report_units.h"

#include <cstddef>

namespace qrv::report {
namespace {

constexpr int kNoRule = 0;

struct UnitRow {
    int model;
    int first;           // parameter i has id -first - i, when byIndex is empty
    const int* byIndex;  // otherwise the id of each index
    std::size_t count;
};

template <std::size_t N>
constexpr UnitRow listed(int model, const int (&ids)[N]) {
    return {model, 0, ids, N};
}
constexpr UnitRow run(int model, int first) {
    return {model, first, nullptr, 0};
}

template <std::size_t N>
int lookUp(const UnitRow (&rows)[N], int model, int index, int otherwise) {
    for (const UnitRow& row : rows) {
        if (row.model != model) continue;
        if (!row.byIndex) return -row.first - index;
        return index >= 0 && static_cast<std::size_t>(index) < row.count ? row.byIndex[index]
                                                                         : kNoRule;
    }
    return otherwise;
}

constexpr int kCarreauYasuda[] = {0, 6, 2, 8, 10, 0, 2};
constexpr int kHerschelBulkleyCross[] = {0, 6, 2, 8, 11, 0, 8, 6, 8};
constexpr UnitRow kViscosity[] = {run(1, 1),
                                  run(2, 2),
                                  run(3, 5),
                                  run(4, 10),
                                  run(6, 10),
                                  run(5, 15),
                                  listed(7, kCarreauYasuda),
                                  listed(8, kHerschelBulkleyCross)};
constexpr UnitRow kThermosetViscosity[] = {run(1, 22), run(10, 23), run(11, 28), run(12, 39),
                                           run(13, 46)};
constexpr UnitRow kPvt[] = {run(1, 61), run(2, 62),  run(3, 65), run(4, 70),
                            run(5, 77), run(6, 230), run(7, 234)};
constexpr UnitRow kCuring[] = {run(2, 152), run(3, 250), run(4, 300)};

constexpr int kFlake[] = {12, 0, 6, 7, 16, 12, 0, 6, 7, 0};
constexpr UnitRow kMechanical[] = {run(0, 161), run(1, 161), run(2, 181),      run(3, 201),
                                   run(4, 201), run(5, 201), listed(6, kFlake)};

constexpr int kIsotropic[] = {0, 0, 6, 6, 6, 7, 7};
constexpr int kAnisotropic[] = {0, 0, 6, 6, 6, 7, 7, 7, 7};
constexpr int kFibreExperimental[] = {0, 0, 6, 6, 6, 7, 7, 7, 7, 0, 0, 16};
constexpr int kFibreTheoretical[] = {12, 0, 6, 7, 7, 16, 12, 0, 6, 6, 6, 7, 7, 0, 0};
constexpr UnitRow kThermosetMechanical[] = {
    listed(0, kIsotropic),        listed(1, kAnisotropic),      listed(2, kFibreExperimental),
    listed(3, kFibreTheoretical), listed(4, kFibreTheoretical), listed(5, kFibreTheoretical)};

}  // namespace

int viscosityUnitId(bool thermoset, int model, int index) {
    return thermoset ? lookUp(kThermosetViscosity, model, index, kNoRule)
                     : lookUp(kViscosity, model, index, kNoRule);
}

int pvtUnitId(int model, int index) {
    return lookUp(kPvt, model, index, kNoRule);
}

int curingUnitId(int model, int index) {
    return lookUp(kCuring, model, index, model);
}

int mechanicalUnitId(bool thermoset, int model, int index) {
    return thermoset ? lookUp(kThermosetMechanical, model, index, kNoRule)
                     : lookUp(kMechanical, model, index, kNoRule);
}

}  // namespace qrv::report
