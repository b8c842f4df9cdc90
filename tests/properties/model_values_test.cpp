// Viscosity and specific volume of every evaluated model against values computed apart from the
// library, at 50 significant digits, by tests/data/make_model_values.py (model_values.json). Each
// value carries its own relative tolerance: a small floor plus what the point's conditioning
// allows a correct double evaluation to lose.
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include <quorvalib/properties.h>

#include "support/fixture.h"
#include "support/material_ptr.h"

namespace {

using qrvtest::makeRecord;
using qrvtest::setBlock;

const nlohmann::json& modelValues() {
    static const nlohmann::json values = qrvtest::readJson("model_values.json");
    return values;
}

void expectWithin(double got, double want, double relative, const std::string& where) {
    EXPECT_LE(std::fabs(got - want), relative * std::fabs(want))
        << where << ": got " << got << " want " << want << " (relative tolerance " << relative
        << ")";
}

TEST(ModelValues, EveryViscosityModelMatchesTheHighPrecisionValues) {
    int compared = 0;
    std::vector<int> models;
    for (const nlohmann::json& set : modelValues().at("viscosity")) {
        auto record = makeRecord();
        const int model = set.at("model").get<int>();
        setBlock(record->Vis, model, set.at("para").get<std::vector<double>>());
        models.push_back(model);
        for (const nlohmann::json& p : set.at("points")) {
            const double g = p[0], t = p[1], P = p[2], x = p[3], want = p[4], tolerance = p[5];
            expectWithin(QrvGetViscosity(record.get(), g, t, P, x), want, tolerance,
                         "id " + std::to_string(model) + " at " + p.dump());
            ++compared;
        }
    }
    EXPECT_EQ(models, (std::vector<int>{1, 2, 3, 4, 5, 10, 11, 11, 11, 12, 13}));
    EXPECT_GT(compared, 2000);
}

TEST(ModelValues, EveryPvtModelMatchesTheHighPrecisionValues) {
    int compared = 0;
    std::vector<int> models;
    for (const nlohmann::json& set : modelValues().at("pvt")) {
        auto record = makeRecord();
        const int model = set.at("model").get<int>();
        setBlock(record->PVT, model, set.at("para").get<std::vector<double>>());
        models.push_back(model);
        for (const nlohmann::json& p : set.at("points")) {
            const double P = p[0], t = p[1], x = p[2], want = p[3], tolerance = p[4];
            const std::string where = "id " + std::to_string(model) + " at " + p.dump();
            expectWithin(QrvGetSpecificVolume(record.get(), P, t, x), want, tolerance, where);
            expectWithin(QrvGetDensity(record.get(), P, t, x), 1.0 / want, tolerance + 1e-16,
                         where);
            ++compared;
        }
    }
    EXPECT_EQ(models, (std::vector<int>{1, 2, 3, 4, 5, 5, 6, 7}));
    EXPECT_EQ(compared, 8 * 12);
}

}  // namespace
