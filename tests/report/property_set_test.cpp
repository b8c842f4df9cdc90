// The evaluators of the data check, built by model id: each class is made from a block that holds
// at least the parameters of its model's documented order, and from no shorter one.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "report/property_set.h"

namespace {

// Model id and the length of its documented parameter order (0 for a table).
struct Model {
    int id;
    int parameters;
};

// Viscosity: Newtonian (Eta0); power law (n, B, Tb); Modified Cross 1 (n, C, B, Tb, D);
// Modified Cross 2 (n, Taus, B, Tb, D); Modified Cross 3 (n, Taus, D1, D2, D3, A1, A2b);
// Carreau (n, Taus, B, Tb, D); Carreau-Yasuda (n, Taus, B, Tb, D, a, Eta_infinity).
const Model kViscosity[] = {{1, 1}, {2, 3}, {3, 5}, {4, 5}, {5, 7}, {6, 5}, {7, 7}};
// PVT: constant (V0); Spencer-Gilmore (V0, P0, R); Tait (b1 to b4, C); modified Tait 1 (b1 to
// b6, C); modified Tait 2 (b1L to b4L, b1S to b4S, b5 to b9).
const Model kPVT[] = {{1, 1}, {2, 3}, {3, 5}, {4, 7}, {5, 13}};
// Heat capacity: constant; two (c, T) pairs; four pairs; a table. Conductivity has the table at 3.
const Model kHeatCapacity[] = {{1, 1}, {2, 4}, {3, 8}, {4, 0}};
const Model kConductivity[] = {{1, 1}, {2, 4}, {3, 0}, {4, 8}};

using Setter = bool (CPropertySet::*)(int, int, const double*);

template <std::size_t N>
void expectLengths(Setter set, const Model (&models)[N], const char* what) {
    const std::vector<double> values(16, 1.0);
    for (const Model& model : models) {
        SCOPED_TRACE(std::string(what) + " model " + std::to_string(model.id));
        CPropertySet set1;
        EXPECT_TRUE((set1.*set)(model.id, model.parameters, values.data()));
        if (model.parameters > 0) {
            CPropertySet set2;
            EXPECT_FALSE((set2.*set)(model.id, model.parameters - 1, values.data()));
        }
    }
    // Id 0 and an id past the table have no class.
    CPropertySet none;
    EXPECT_FALSE((none.*set)(0, 16, values.data()));
    EXPECT_FALSE((none.*set)(static_cast<int>(N) + 1, 16, values.data()));
    EXPECT_FALSE((none.*set)(-1, 16, values.data()));
}

}  // namespace

TEST(PropertySet, EachModelNeedsItsWholeParameterOrder) {
    expectLengths(&CPropertySet::SetViscosity, kViscosity, "viscosity");
    expectLengths(&CPropertySet::SetPVT, kPVT, "pvt");
    expectLengths(&CPropertySet::SetHeatCapacity, kHeatCapacity, "heat capacity");
    expectLengths(&CPropertySet::SetThermoConductivity, kConductivity, "conductivity");
}

TEST(PropertySet, SlotsHoldTheModelsOwnClass) {
    // Each class is told apart by a value of its own formula: Newtonian gives Eta0, the constant
    // PVT 1/V0, the constants their value, the tables their first value below their range.
    CPropertySet set;
    const double eta0[] = {2500.0};
    ASSERT_TRUE(set.SetViscosity(1, 1, eta0));
    EXPECT_EQ(set.Viscosity->Evaluate(1000.0, 230.0, 0.0), 2500.0);
    const double v0[] = {1.25};
    ASSERT_TRUE(set.SetPVT(1, 1, v0));
    EXPECT_EQ(set.PVT->Evaluate(0.0, 500.0), 0.8);
    const double table[] = {2.0e7, 100.0, 3.0e7, 200.0};
    ASSERT_TRUE(set.SetHeatCapacity(4, 4, table));
    EXPECT_EQ(set.HeatCapacity->Evaluate(50.0), 2.0e7);
    EXPECT_EQ(set.HeatCapacity->Evaluate(150.0), 2.5e7);
    ASSERT_TRUE(set.SetThermoConductivity(3, 4, table));
    EXPECT_EQ(set.ThermoConductivity->Evaluate(250.0), 3.0e7);
    // A refused block leaves the slot as it was.
    EXPECT_FALSE(set.SetViscosity(1, 1, nullptr));
    EXPECT_EQ(set.Viscosity->Evaluate(1.0, 1.0, 0.0), 2500.0);
}
