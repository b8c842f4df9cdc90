#include "threads/shared_records.h"

#include <quorvalib/quorvalib.h>

#include <gtest/gtest.h>

#include "support/fixture.h"

namespace threads_test {

namespace {

struct Generated {
    int vis, pvt;
    bool crystalline;
    int cp, k, filler;
};

// Every viscosity and PVT model, the four Cp and K forms and every filler.
constexpr Generated kGenerated[] = {
    {1, 1, false, 1, 1, 0},  {2, 2, true, 2, 2, 1},   {3, 3, false, 3, 3, 2},
    {4, 4, true, 4, 1, 3},   {5, 5, false, 1, 2, 4},  {5, 6, true, 2, 3, 5},
    {5, 7, false, 3, 1, 6},  {6, 5, true, 4, 2, 7},   {10, 1, false, 1, 1, 0},
    {11, 1, false, 2, 2, 0}, {12, 1, false, 3, 3, 0}, {13, 1, false, 4, 1, 0}};

constexpr const char* kSamples[] = {"sample_thermoplastic_9012.mtr",
                                    "sample_thermoplastic_9008.mtr",
                                    "sample_thermoset_9018.mtx",
                                    "sample_metal.mtr",
                                    "sample_coolant.mtr",
                                    "sample_chip.mtr",
                                    "sample_legacy.mtr",
                                    "sample_default_3_2.mtr"};

// A thermoplastic with viscoelastic modes, crystallinity, fibre data and a melt-flow comment.
qrvtest::MaterialPtr handMadeThermoplastic() {
    qrvtest::MaterialPtr r = qrvtest::adopt(QrvGetDefaultMaterial(5, 5, true, 2, 2, 0));
    std::vector<double> modes(17);
    for (std::size_t i = 0; i < modes.size(); ++i)
        modes[i] = 0.5 + static_cast<double>(i);
    qrvtest::setBlock(r->VE, 6, modes);
    qrvtest::setBlock(r->CR, 1, {1, 2, 3, 4, 5, 6, 7, 8, 9});
    qrvtest::setBlock(r->Mech, 2, {0.3, 0.4, 2e10, 1e10, 5e9, 3e-5, 6e-5, 20.0, 1.5, 30.0});
    delete[] r->Comment;
    r->Comment = qrv::newText("grade PP MFI 12 g/10min at 230 C");
    return r;
}

// A wire with three stress-strain pairs behind its seven fixed values.
qrvtest::MaterialPtr wire() {
    qrvtest::MaterialPtr r = qrvtest::makeRecord(QRV_TYPE_IC_WIRE);
    qrvtest::setBlock(
        r->Mech, 1, {0.3, 0.35, 8e11, 7e11, 3e11, 1.7e-5, 1.8e-5, 1e8, 0.01, 2e8, 0.02, 3e8, 0.05});
    qrvtest::setBlock(r->Cp, 1, {3.8e6});
    qrvtest::setBlock(r->K, 1, {4e7});
    return r;
}

// A thermoset with mechanical data of the anisotropic layout and a scorch block.
qrvtest::MaterialPtr thermosetWithMech() {
    qrvtest::MaterialPtr r = qrvtest::adopt(QrvGetDefaultMaterial(12, 1, false, 2, 2, 0));
    r->FileType = QRV_TYPE_THERMOSET;
    qrvtest::setBlock(r->Mech, 1, {0.3, 0.4, 2e10, 1e10, 5e9, 3e-5, 6e-5, 4e-5, 7e-5});
    qrvtest::setBlock(r->SI, 1, {1.0, 2.0});
    return r;
}

}  // namespace

std::vector<SharedRecord> sharedRecords() {
    std::vector<SharedRecord> all;
    for (const Generated& g : kGenerated) {
        all.push_back({"generated " + std::to_string(g.vis) + "/" + std::to_string(g.pvt),
                       qrvtest::adopt(QrvGetDefaultMaterial(g.vis, g.pvt, g.crystalline, g.cp, g.k,
                                                            g.filler))});
    }
    for (const char* sample : kSamples) {
        qrvtest::MaterialPtr record =
            qrvtest::adopt(QrvGetMaterial(qrvtest::dataPath(sample).c_str()));
        EXPECT_NE(record.get(), nullptr) << sample;
        if (record) all.push_back({sample, std::move(record)});
    }
    all.push_back({"hand-made thermoplastic", handMadeThermoplastic()});
    all.push_back({"wire", wire()});
    all.push_back({"thermoset with mech", thermosetWithMech()});
    return all;
}

}  // namespace threads_test
