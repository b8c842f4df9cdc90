// The layout table of Mech.Para: the named places of each model and family are distinct and run
// without gaps from 0, as many as the layouts hold.
#include <gtest/gtest.h>

#include <set>
#include <string>

#include "properties/mech_layout.h"

namespace {

using qrv::mech::Family;

std::set<int> labelledPlaces(bool thermoset, int model) {
    std::set<int> indices;
    for (const qrv::mech::Place& place : qrv::mech::kLayout) {
        const bool family =
            place.family == Family::Either || (place.family == Family::Thermoset) == thermoset;
        if (place.label && family && place.firstModel <= model && model <= place.lastModel) {
            EXPECT_TRUE(indices.insert(place.index).second)
                << "index " << place.index << " twice, model " << model;
        }
    }
    return indices;
}

TEST(MechLayout, PlacesPerModelAndFamily) {
    // Thermoplastic and thermoset counts of labelled places for models 0 to 7.
    const int thermoplastic[] = {7, 7, 10, 14, 14, 14, 10, 9};
    const int thermoset[] = {7, 9, 12, 15, 15, 15, 10, 9};
    for (int model = 0; model <= 7; ++model) {
        for (bool set : {false, true}) {
            const std::set<int> indices = labelledPlaces(set, model);
            const int expected = set ? thermoset[model] : thermoplastic[model];
            ASSERT_EQ(static_cast<int>(indices.size()), expected) << model << " " << set;
            EXPECT_EQ(*indices.begin(), 0);
            EXPECT_EQ(*indices.rbegin(), expected - 1);
        }
    }
}

TEST(MechLayout, IdsPastTheLayoutsHaveNoLabelledPlace) {
    // Models 0 to 7 have layouts; any other id names none of its values.
    for (int model : {-1, 8, 9, 99}) {
        for (bool set : {false, true})
            EXPECT_TRUE(labelledPlaces(set, model).empty()) << model << " " << set;
    }
}

TEST(MechLayout, LabelsOfTheThermosetPureLayout) {
    const char* labels[] = {"Poisson's ratio v12",
                            "Poisson's ratio v23",
                            "Modulus E1",
                            "Modulus E2",
                            "Shear Modulus G",
                            "CLTE a1 of melting",
                            "CLTE a1 of solid",
                            "CLTE a2 of melting",
                            "CLTE a2 of solid",
                            "Fiber Length/Diameter",
                            "Interaction Coefficient",
                            "Fiber Weight Percentage"};
    for (int index = 0; index < 12; ++index) {
        bool found = false;
        for (const qrv::mech::Place& place : qrv::mech::kLayout) {
            const bool family = place.family != Family::Thermoplastic;
            if (place.label && family && place.firstModel <= 2 && 2 <= place.lastModel &&
                place.index == index) {
                EXPECT_EQ(std::string(place.label), labels[index]);
                found = true;
            }
        }
        EXPECT_TRUE(found) << index;
    }
}

TEST(MechLayout, IndexOfAnswersMinusOneOutsideTheLayout) {
    using qrv::mech::Value;
    EXPECT_EQ(qrv::mech::indexOf(Value::FiberPercent, false, 2), 9);
    EXPECT_EQ(qrv::mech::indexOf(Value::FiberPercent, true, 2), 11);
    EXPECT_EQ(qrv::mech::indexOf(Value::FiberPercent, false, 1), -1);
    EXPECT_EQ(qrv::mech::indexOf(Value::FlakeAspectRatio, false, 7), -1);
    EXPECT_EQ(qrv::mech::indexOf(Value::ClteA2Melt, true, 0), -1);
    EXPECT_EQ(qrv::mech::indexOf(Value::ClteA1Melt, true, 99), 3);
    EXPECT_EQ(qrv::mech::indexOf(Value::ClteA1Melt, false, 0), -1);
}

}  // namespace
