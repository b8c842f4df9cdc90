// Unit labels and conversion factors by system, from one table.
#include "units/unit.h"

#include <stdexcept>

#include "units/unit_map.h"

namespace {

constexpr int kTemperature = 1;

// Factors are those the product has always shown, at their stated precision; more exact values
// would change displayed figures. Id 1 converts by offset (see convertTemperature) and carries
// 1.0 here. Id 34 is "Pa" in every system and is not converted, though base pressure is
// dyne/cm^2: a crystallinity parameter is stored in Pa.
struct UnitRow {
    int id;
    const char* label[3];  // base, SI, English; some end in a blank, which is kept
    double factor[2];      // SI, English; from base
};

constexpr UnitRow kUnits[] = {
    {0, {" ", " ", " "}, {1, 1}},
    {1, {"degree C", "K", "degree F"}, {1, 1}},
    {2, {"g/(cm.sec) ", "Pa.sec", "lbf.sec/ft^2"}, {0.1, 0.0020885}},
    {3, {"cc/g", "m^3/Kg", "in^3/lbm"}, {0.001, 27.68}},
    {4, {"erg/(g.oC) ", "J/(Kg.K) ", "Btu/(lbm.oF) "}, {0.0001, 2.3885e-08}},
    {5, {"erg/(sec.cm.oC)", "W/(m.K)", "Btu/(ft.hr.oF)"}, {1e-05, 5.778e-06}},
    {6, {"dyne/cm^2", "Pa", "psi"}, {0.1, 1.4504e-05}},
    // 7 and 8 are temperature differences: the English factors are those of degree F.
    {7, {"1/K", "1/K", "1/oF"}, {1, 0.55556}},
    {8, {"K", "K", "oR"}, {1, 1.8}},
    {9, {"(cm^2/dyne)^(1-n)", "(1/Pa)^(1-n)", "(1/psi)^(1-n)"}, {10, 68946}},
    {10, {"cm^2/dyne", "1/Pa", "1/psi"}, {10, 68946}},
    {11, {"cm^2.K/dyne", "K/Pa", "oR/psi"}, {10, 124100}},
    {12, {"g/cc", "Kg/m^3", "lbm/in^3"}, {1000, 0.03613}},
    {13, {"cc/g.K", "m^3/Kg.K", "in^3/lbm.oF"}, {0.001, 15.3779}},
    {14, {"dyne.cm/g.K", "Pa.m^3/Kg.K", "psi.ft^3/lbm.oF"}, {0.01, 1.2905e-07}},
    {15, {"dyne.s^n/cm^2", "Pa.s^n", "psi.s^n"}, {0.1, 1.4504e-05}},
    {16, {"%", "%", "%"}, {1, 1}},
    {17, {"1/sec", "1/sec", "1/sec"}, {1, 1}},
    {18, {"sec", "sec", "sec"}, {1, 1}},
    {19, {"MPa", "MPa", "psi"}, {1, 145.04}},
    {20, {"oC/min", "K/min", "oF/min"}, {1, 1.8}},
    {21, {"cc/sec", "m^3/sec", "in^3/sec"}, {1e-06, 0.061023}},
    {22, {"cc", "m^3", "in^3"}, {1e-06, 0.061023}},
    {23, {"ton", "ton", "ton"}, {1, 1}},
    {24, {"g", "g", "oz"}, {1, 0.035274}},
    {25, {"mm", "mm", "in"}, {1, 0.03937}},
    {26, {"mm/s", "mm/s", "in/s"}, {1, 0.03937}},
    {27, {"erg/g", "J/Kg", "Btu/lbm"}, {0.0001, 4.299596e-08}},
    {28, {"1/min", "1/min", "1/min"}, {1, 1}},
    {29, {"kg/hr", "kg/hr", "kg/hr"}, {1, 1}},
    // 30 is not assigned.
    {31, {"sK^a", "sK^a", "sK^a"}, {1, 1}},
    {32, {"1/s", "1/s", "1/s"}, {1, 1}},
    {33, {"K^2", "K^2", "K^2"}, {1, 1}},
    {34, {"Pa", "Pa", "Pa"}, {1, 1}},
};

const UnitRow* findUnit(int id) {
    for (const UnitRow& row : kUnits) {
        if (row.id == id) return &row;
    }
    return nullptr;
}

double factorOf(int id, int system) {
    const UnitRow* row = findUnit(id);
    if (!row || (system != 1 && system != 2)) return 1.0;
    return row->factor[system - 1];
}

double convertTemperature(double value, int system, bool toBase) {
    if (system == 1) return toBase ? value - 273.15 : value + 273.15;
    if (system == 2) return toBase ? (value - 32.0) * 5.0 / 9.0 : value * 1.8 + 32.0;
    return value;
}

}  // namespace

double CQrvUnit::ConvertFromBase(double value, int unitId) {
    Convert(&value, unitId, false);
    return value;
}

void CQrvUnit::Convert(double* value, int unitId, bool toBase) {
    if (!value) throw std::invalid_argument("CQrvUnit::Convert: null value");
    if (System == 0) return;
    MapUnitId(&unitId);
    if (unitId == kTemperature) {
        *value = convertTemperature(*value, System, toBase);
        return;
    }
    const double factor = factorOf(unitId, System);
    *value *= toBase ? 1.0 / factor : factor;
}

std::string CQrvUnit::GetLabel(int unitId) {
    MapUnitId(&unitId);
    const UnitRow* row = findUnit(unitId);
    if (!row) return std::string();
    if (System >= 0 && System <= 2) return row->label[System];
    // A label that is the same in every system does not depend on the system.
    const std::string base = row->label[0];
    return base == row->label[1] && base == row->label[2] ? base : std::string();
}

void CQrvUnit::MapUnitId(int* unitId) {
    if (!unitId) throw std::invalid_argument("CQrvUnit::MapUnitId: null unit id");
    *unitId = qrv::mapReportUnitId(*unitId);
}
