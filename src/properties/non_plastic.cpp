// Single values of metals, coolants and the packaging materials (any FileType from 2 up, so a
// thermoset passes too). The model ids are not read.
#include <quorvalib/properties.h>

#include "properties/density_text.h"
#include "properties/mech_layout.h"
#include "record/guard.h"

namespace {

constexpr double kMissing = -1.0;

bool isNonPlastic(const QrvMaterial& m) {
    return m.FileType >= QRV_TYPE_THERMOSET;
}

double firstValue(QrvMaterial* material, QrvMatParam QrvMaterial::*block) {
    return qrv::withMaterial(material, kMissing, [block](const QrvMaterial& m) {
        const QrvMatParam& b = m.*block;
        return isNonPlastic(m) && b.Para && b.Count >= 1 ? b.Para[0] : kMissing;
    });
}

// A non-plastic record keeps its mechanical values where the isotropic layout of a thermoplastic
// does, whatever its Mech.Model says.
double isotropicValue(QrvMaterial* material, qrv::mech::Value value) {
    constexpr int kIsotropic = 0;
    return qrv::withMaterial(material, kMissing, [value](const QrvMaterial& m) {
        const int index = qrv::mech::indexOf(value, false, kIsotropic);
        const QrvMatParam& mech = m.Mech;
        return isNonPlastic(m) && mech.Para && mech.Count > index ? mech.Para[index] : kMissing;
    });
}

}  // namespace

double QrvGetNonPlastic_Cp(QrvMaterial* material) {
    return firstValue(material, &QrvMaterial::Cp);
}
double QrvGetNonPlastic_K(QrvMaterial* material) {
    return firstValue(material, &QrvMaterial::K);
}
double QrvGetNonPlastic_PR(QrvMaterial* material) {
    return isotropicValue(material, qrv::mech::Value::Poisson);
}
double QrvGetNonPlastic_EM(QrvMaterial* material) {
    return isotropicValue(material, qrv::mech::Value::Modulus);
}
double QrvGetNonPlastic_CLTE(QrvMaterial* material) {
    return isotropicValue(material, qrv::mech::Value::Clte);
}

double QrvGetNonPlastic_Density(QrvMaterial* material) {
    return qrv::withMaterial(material, kMissing, [](const QrvMaterial& m) {
        if (!isNonPlastic(m)) return kMissing;
        const qrv::DensityText scan = qrv::scanDensityText(m.Comment);
        switch (scan.outcome) {
            case qrv::DensityText::kFound:
                return scan.value;
            case qrv::DensityText::kNoMark:
                return 0.0;
            default:
                return kMissing;
        }
    });
}
