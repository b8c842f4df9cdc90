// The record's release and destructor destroy the measured data it owns.
#include <quorvalib/measured.h>

#include <gtest/gtest.h>

#include "measured/mtc_list.h"
#include "record/material_internal.h"

namespace {

int destroyed = 0;

// Counts destructions, reached only through the virtual destructor of the base.
class CountingViscosity : public CQrvViscosityData {
public:
    ~CountingViscosity() override { ++destroyed; }
};
class CountingPVT : public CQrvPVTData {
public:
    ~CountingPVT() override { destroyed += 10; }
};

}  // namespace

TEST(Release, ReleaseDestroysCurvesThroughTheirVirtualDestructor) {
    destroyed = 0;
    auto* material = new QrvMaterial();
    QrvInitMaterial(material);
    material->VisRaw = new CountingViscosity();
    material->PVTRaw = new CountingPVT();
    QRV_MTC record{1, 0, 0, nullptr, nullptr};
    QrvAddMTCData(material, &record, 1);
    QrvReleaseMaterial(material);
    EXPECT_EQ(destroyed, 11);
}

TEST(Release, DestructorDestroysCurvesAndList) {
    destroyed = 0;
    {
        QrvMaterial material;
        QrvInitMaterial(&material);
        material.VisRaw = new CountingViscosity();
        material.PVTRaw = new CountingPVT();
        material.MTC = new CQrvMTCList();
    }
    EXPECT_EQ(destroyed, 11);
}
