// Display units: labels and factors of every id in every system, the temperature scale, and
// round trips across the three systems.
#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <stdexcept>
#include <string>
#include <vector>

#include "units/unit.h"

namespace {

// Labels by id from 0 to 34 in the base, SI and English systems; id 30 has none.
const std::vector<std::string> kBaseLabels = {" ",
                                              "degree C",
                                              "g/(cm.sec) ",
                                              "cc/g",
                                              "erg/(g.oC) ",
                                              "erg/(sec.cm.oC)",
                                              "dyne/cm^2",
                                              "1/K",
                                              "K",
                                              "(cm^2/dyne)^(1-n)",
                                              "cm^2/dyne",
                                              "cm^2.K/dyne",
                                              "g/cc",
                                              "cc/g.K",
                                              "dyne.cm/g.K",
                                              "dyne.s^n/cm^2",
                                              "%",
                                              "1/sec",
                                              "sec",
                                              "MPa",
                                              "oC/min",
                                              "cc/sec",
                                              "cc",
                                              "ton",
                                              "g",
                                              "mm",
                                              "mm/s",
                                              "erg/g",
                                              "1/min",
                                              "kg/hr",
                                              "",
                                              "sK^a",
                                              "1/s",
                                              "K^2",
                                              "Pa"};
const std::vector<std::string> kSILabels = {
    " ",      "K",        "Pa.sec",      "m^3/Kg",       "J/(Kg.K) ", "W/(m.K)",
    "Pa",     "1/K",      "K",           "(1/Pa)^(1-n)", "1/Pa",      "K/Pa",
    "Kg/m^3", "m^3/Kg.K", "Pa.m^3/Kg.K", "Pa.s^n",       "%",         "1/sec",
    "sec",    "MPa",      "K/min",       "m^3/sec",      "m^3",       "ton",
    "g",      "mm",       "mm/s",        "J/Kg",         "1/min",     "kg/hr",
    "",       "sK^a",     "1/s",         "K^2",          "Pa"};
const std::vector<std::string> kEnglishLabels = {" ",
                                                 "degree F",
                                                 "lbf.sec/ft^2",
                                                 "in^3/lbm",
                                                 "Btu/(lbm.oF) ",
                                                 "Btu/(ft.hr.oF)",
                                                 "psi",
                                                 "1/oF",
                                                 "oR",
                                                 "(1/psi)^(1-n)",
                                                 "1/psi",
                                                 "oR/psi",
                                                 "lbm/in^3",
                                                 "in^3/lbm.oF",
                                                 "psi.ft^3/lbm.oF",
                                                 "psi.s^n",
                                                 "%",
                                                 "1/sec",
                                                 "sec",
                                                 "psi",
                                                 "oF/min",
                                                 "in^3/sec",
                                                 "in^3",
                                                 "ton",
                                                 "oz",
                                                 "in",
                                                 "in/s",
                                                 "Btu/lbm",
                                                 "1/min",
                                                 "kg/hr",
                                                 "",
                                                 "sK^a",
                                                 "1/s",
                                                 "K^2",
                                                 "Pa"};

// Factors from base, SI and English, by id from 0 to 34; id 1 converts by offset.
const std::vector<double> kSIFactors = {
    1, 0, 0.1, 0.001, 0.0001, 1e-05, 0.1, 1, 1, 10,     10, 10, 1000, 0.001, 0.01, 0.1, 1, 1,
    1, 1, 1,   1e-06, 1e-06,  1,     1,   1, 1, 0.0001, 1,  1,  1,    1,     1,    1,   1};
const std::vector<double> kEnglishFactors = {
    1,          0,          0.0020885, 27.68,    2.3885e-08, 5.778e-06, 1.4504e-05,
    0.55556,    1.8,        68946,     68946,    124100,     0.03613,   15.3779,
    1.2905e-07, 1.4504e-05, 1,         1,        1,          145.04,    1.8,
    0.061023,   0.061023,   1,         0.035274, 0.03937,    0.03937,   4.299596e-08,
    1,          1,          1,         1,        1,          1,         1};

const std::vector<std::string>& labelsOf(int system) {
    return system == 0 ? kBaseLabels : system == 1 ? kSILabels : kEnglishLabels;
}

double factorOf(int id, int system) {
    if (id < 0 || id > 34 || (system != 1 && system != 2)) return 1.0;
    return system == 1 ? kSIFactors[id] : kEnglishFactors[id];
}

CQrvUnit unitIn(int system) {
    CQrvUnit unit;
    unit.SetSystem(system);
    return unit;
}

TEST(Unit, StartsInTheBaseSystem) {
    CQrvUnit unit;
    EXPECT_EQ(unit.GetSystem(), 0);
    EXPECT_EQ(unit.GetLabel(2), "g/(cm.sec) ");
    unit.SetSystem(2);
    EXPECT_EQ(unit.GetSystem(), 2);
}

TEST(UnitLabel, EveryIdInTheThreeSystems) {
    ASSERT_EQ(kBaseLabels.size(), 35u);
    ASSERT_EQ(kSILabels.size(), 35u);
    ASSERT_EQ(kEnglishLabels.size(), 35u);
    for (int system = 0; system <= 2; ++system) {
        CQrvUnit unit = unitIn(system);
        for (int id = 0; id <= 34; ++id)
            EXPECT_EQ(unit.GetLabel(id), labelsOf(system)[id]) << system << " " << id;
    }
}

TEST(UnitLabel, TrailingBlanksAreKept) {
    EXPECT_EQ(unitIn(0).GetLabel(2), "g/(cm.sec) ");
    EXPECT_EQ(unitIn(0).GetLabel(4), "erg/(g.oC) ");
    EXPECT_EQ(unitIn(1).GetLabel(4), "J/(Kg.K) ");
    EXPECT_EQ(unitIn(2).GetLabel(4), "Btu/(lbm.oF) ");
    EXPECT_EQ(unitIn(0).GetLabel(0), " ");
}

TEST(UnitLabel, UnassignedIdsAreEmpty) {
    for (int system : {0, 1, 2, 3}) {
        CQrvUnit unit = unitIn(system);
        for (int id : {30, 35, 36, 100, INT_MAX})
            EXPECT_EQ(unit.GetLabel(id), "") << system << " " << id;
    }
}

TEST(UnitLabel, OtherSystemsKeepOnlyLabelsThatDoNotDependOnTheSystem) {
    for (int system : {INT_MIN, -1, 3, 4, 99}) {
        CQrvUnit unit = unitIn(system);
        for (int id = 0; id <= 34; ++id) {
            const bool same =
                kBaseLabels[id] == kSILabels[id] && kBaseLabels[id] == kEnglishLabels[id];
            EXPECT_EQ(unit.GetLabel(id), same ? kBaseLabels[id] : "") << system << " " << id;
        }
    }
}

TEST(UnitLabel, NegativeIdsAreMappedFirstInEverySystem) {
    EXPECT_EQ(unitIn(1).GetLabel(-1), "Pa.sec");
    EXPECT_EQ(unitIn(0).GetLabel(-1), "g/(cm.sec) ");
    EXPECT_EQ(unitIn(2).GetLabel(-93), "degree F");
    EXPECT_EQ(unitIn(2).GetLabel(-1125), "kg/hr");
    // Target 0 items still print the one blank.
    EXPECT_EQ(unitIn(1).GetLabel(-2), " ");
}

TEST(UnitLabel, NegativeIdOutsideTheMapIsEmpty) {
    for (int system : {0, 1, 2}) {
        CQrvUnit unit = unitIn(system);
        for (int id : {-11111, -60, -1000, -1001, INT_MIN})
            EXPECT_EQ(unit.GetLabel(id), "") << id;
    }
}

TEST(UnitConvert, BaseSystemChangesNothing) {
    CQrvUnit unit;
    for (int id = -1200; id <= 40; ++id) {
        for (double v : {-40.0, 0.0, 200.0, 1.5e7}) {
            double value = v;
            unit.Convert(&value, id, false);
            EXPECT_EQ(value, v);
            unit.Convert(&value, id, true);
            EXPECT_EQ(value, v);
            EXPECT_EQ(unit.ConvertFromBase(v, id), v);
        }
    }
}

TEST(UnitConvert, TemperatureIsAnOffsetScale) {
    EXPECT_EQ(unitIn(1).ConvertFromBase(200.0, 1), 473.15);
    EXPECT_EQ(unitIn(2).ConvertFromBase(200.0, 1), 392.0);
    EXPECT_EQ(unitIn(2).ConvertFromBase(-40.0, 1), -40.0);
    for (double v : {-273.15, -40.0, 0.0, 23.7, 200.0}) {
        double si = v;
        unitIn(1).Convert(&si, 1, true);
        EXPECT_EQ(si, v - 273.15);
        double english = v;
        unitIn(2).Convert(&english, 1, true);
        EXPECT_EQ(english, (v - 32.0) * 5.0 / 9.0);
        EXPECT_EQ(unitIn(2).ConvertFromBase(v, 1), v * 1.8 + 32.0);
        EXPECT_EQ(unitIn(1).ConvertFromBase(v, 1), v + 273.15);
    }
    for (int system : {-1, 3, 42}) {
        double value = 200.0;
        unitIn(system).Convert(&value, 1, false);
        EXPECT_EQ(value, 200.0);
        unitIn(system).Convert(&value, 1, true);
        EXPECT_EQ(value, 200.0);
    }
}

TEST(UnitConvert, FactorsOfEveryIdBothWays) {
    for (int system : {1, 2, 3, -2}) {
        CQrvUnit unit = unitIn(system);
        for (int id = 0; id <= 45; ++id) {
            if (id == 1) continue;
            const double factor = factorOf(id, system);
            for (double v : {-3.5, 1.0, 1234.5678}) {
                EXPECT_EQ(unit.ConvertFromBase(v, id), v * factor) << system << " " << id;
                double value = v;
                unit.Convert(&value, id, true);
                EXPECT_EQ(value, v * (1.0 / factor)) << system << " " << id;
            }
        }
    }
}

TEST(UnitConvert, StatedExamples) {
    EXPECT_EQ(unitIn(1).ConvertFromBase(1.0, 6), 0.1);
    EXPECT_EQ(unitIn(2).ConvertFromBase(1.0, 7), 0.55556);
    EXPECT_EQ(unitIn(2).ConvertFromBase(1.0, 10), 68946.0);
    // Pressure of a crystallinity parameter is "Pa" and stays.
    EXPECT_EQ(unitIn(1).ConvertFromBase(5.0, 34), 5.0);
    EXPECT_EQ(unitIn(2).ConvertFromBase(5.0, 34), 5.0);
}

TEST(UnitConvert, NegativeIdsAreMappedBeforeConverting) {
    EXPECT_EQ(unitIn(1).ConvertFromBase(10.0, -1), 10.0 * 0.1);
    EXPECT_EQ(unitIn(2).ConvertFromBase(100.0, -93), 100.0 * 1.8 + 32.0);
    EXPECT_EQ(unitIn(2).ConvertFromBase(3.0, -1055), 3.0 * 0.03937);
    // Outside the map the id stays negative and the factor is 1.
    EXPECT_EQ(unitIn(1).ConvertFromBase(10.0, -60), 10.0);
    EXPECT_EQ(unitIn(2).ConvertFromBase(10.0, INT_MIN), 10.0);
}

TEST(UnitConvert, NullValueThrows) {
    EXPECT_THROW(unitIn(1).Convert(nullptr, 2, false), std::invalid_argument);
    EXPECT_THROW(unitIn(0).Convert(nullptr, 2, true), std::invalid_argument);
}

bool near(double a, double b) {
    return std::fabs(a - b) <= 1e-12 * std::max(1.0, std::fabs(b));
}

TEST(UnitConvert, RoundTripsAcrossTheThreeSystems) {
    std::vector<int> ids;
    for (int id = -1200; id <= 36; ++id)
        ids.push_back(id);
    for (int id : ids) {
        for (double stored : {-40.0, 0.0, 0.27845, 200.0, 1.5e7}) {
            double value = stored;
            for (int system : {1, 2, 0, 2, 1}) {
                CQrvUnit unit = unitIn(system);
                unit.Convert(&value, id, false);
                unit.Convert(&value, id, true);
                EXPECT_TRUE(near(value, stored)) << id << " " << system << " " << value;
            }
            // From SI display to English display through base.
            const double si = unitIn(1).ConvertFromBase(stored, id);
            double back = si;
            unitIn(1).Convert(&back, id, true);
            EXPECT_TRUE(
                near(unitIn(2).ConvertFromBase(back, id), unitIn(2).ConvertFromBase(stored, id)))
                << id;
        }
    }
}

}  // namespace
