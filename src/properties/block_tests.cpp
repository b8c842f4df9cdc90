// Which optional blocks a record holds, and the constant models of Vis, PVT, Cp and K.
#include <quorvalib/properties.h>

#include "record/guard.h"

namespace {

bool holds(const QrvMatParam& block) {
    return block.Para && block.Count > 0;
}

bool isThermoset(const QrvMaterial& m) {
    return m.FileType == QRV_TYPE_THERMOSET;
}

// which: 1 Vis, 2 PVT, 3 Cp, 4 K.
const QrvMatParam* constantCandidate(const QrvMaterial& m, int which) {
    static constexpr QrvMatParam QrvMaterial::*kBlocks[] = {&QrvMaterial::Vis, &QrvMaterial::PVT,
                                                            &QrvMaterial::Cp, &QrvMaterial::K};
    if (which < 1 || which > 4) return nullptr;
    return &(m.*kBlocks[which - 1]);
}

constexpr int kConstantModel = 1;

}  // namespace

bool QrvHasViscoelasticData(QrvMaterial* material) {
    return qrv::withMaterial(material, false, [](const QrvMaterial& m) { return holds(m.VE); });
}
bool QrvHasOpticData(QrvMaterial* material) {
    return qrv::withMaterial(material, false, [](const QrvMaterial& m) { return holds(m.OP); });
}
bool QrvHasCrystallinityData(QrvMaterial* material) {
    return qrv::withMaterial(material, false,
                             [](const QrvMaterial& m) { return holds(m.CR) && m.CR.Model != 0; });
}
bool QrvThermosetHasMech(QrvMaterial* material) {
    return qrv::withMaterial(material, false,
                             [](const QrvMaterial& m) { return isThermoset(m) && holds(m.Mech); });
}
bool QrvThermosetHasScorchIndex(QrvMaterial* material) {
    return qrv::withMaterial(material, false,
                             [](const QrvMaterial& m) { return isThermoset(m) && holds(m.SI); });
}
bool QrvHasStressStrainData(QrvMaterial* material) {
    constexpr int kFirstStressStrainCount = 8;
    return QrvIsIC_Wire(material) && material->Mech.Count >= kFirstStressStrainCount;
}

bool QrvIsConstantModel(QrvMaterial* material, int which) {
    return qrv::withMaterial(material, false, [which](const QrvMaterial& m) {
        const QrvMatParam* block = constantCandidate(m, which);
        return block && block->Model == kConstantModel;
    });
}

double QrvGetConstantModelValue(QrvMaterial* material, int which) {
    return qrv::withMaterial(material, 0.0, [which](const QrvMaterial& m) {
        const QrvMatParam* block = constantCandidate(m, which);
        if (!block || block->Model != kConstantModel || !holds(*block)) return -1.0;
        return block->Para[0];
    });
}
