// Mechanical, fibre and filler values picked out of the Mech block. The places come from the
// layout table of mech_layout.h; what stays here is which models each getter answers for and its
// miss value.
#include <stdexcept>

#include <quorvalib/properties.h>

#include "properties/mech_layout.h"
#include "record/guard.h"

using qrv::mech::Value;

namespace {

constexpr double kMissing = -1.0;
constexpr int kFlake = 6;

enum FillerKind { kNoFiller = 0, kFiber = 1, kFlakeFiller = 2, kPowder = 3 };

// Filler kind by Mech.Model 0 to 7; the pure polymers (-1 here) look at the powder block.
constexpr int kFillerKinds[] = {-1, -1, kFiber, kFiber, kFiber, kFiber, kFlakeFiller, kPowder};

constexpr const char* kFiberTypes[] = {
    "Isotropic pure polymer",      "Anisotropic pure polymer",    "Fiber(Customized,Experimental)",
    "Fiber(Customized,Predicted)", "Fiber(E-glass GF,Predicted)", "Fiber(T300 CF,Predicted)",
};

bool inModels(int model, int first, int last) {
    return first <= model && model <= last;
}

// The thermoset expansions: FileType 2 with a Mech block that holds values, else the miss value.
double thermosetClte(QrvMaterial* material, Value value) {
    return qrv::withMaterial(material, kMissing, [value](const QrvMaterial& m) {
        if (m.FileType != QRV_TYPE_THERMOSET || m.Mech.Count == 0) return kMissing;
        return qrv::mech::read(m, value, kMissing);
    });
}

}  // namespace

double QrvGetElasticModulus(QrvMaterial* material) {
    return qrv::withMaterial(material, kMissing, [](const QrvMaterial& m) {
        // Powder-filled records (model 7) have their polymer modulus at the same place, but this
        // getter has never answered for them.
        if (!inModels(m.Mech.Model, 0, kFlake)) return kMissing;
        return qrv::mech::read(m, Value::Modulus, kMissing);
    });
}

double QrvGetCLTEa1_Melt(QrvMaterial* material) {
    return thermosetClte(material, Value::ClteA1Melt);
}
double QrvGetCLTEa1_Solid(QrvMaterial* material) {
    return thermosetClte(material, Value::ClteA1Solid);
}
double QrvGetCLTEa2_Melt(QrvMaterial* material) {
    return thermosetClte(material, Value::ClteA2Melt);
}
double QrvGetCLTEa2_Solid(QrvMaterial* material) {
    return thermosetClte(material, Value::ClteA2Solid);
}

double QrvGetFiberPercent(QrvMaterial* material) {
    return qrv::withMaterial(material, 0.0, [](const QrvMaterial& m) {
        return qrv::mech::read(m, Value::FiberPercent, 0.0);
    });
}

double QrvGetFillerPercent(QrvMaterial* material) {
    return qrv::withMaterial(material, 0.0, [](const QrvMaterial& m) {
        const bool fiber = qrv::mech::indexOf(Value::FiberPercent, qrv::mech::isThermosetLayout(m),
                                              m.Mech.Model) >= 0;
        return qrv::mech::read(m, fiber ? Value::FiberPercent : Value::FillerPercent, 0.0);
    });
}

double QrvGetFiberAspectRatio(QrvMaterial* material) {
    return qrv::withMaterial(material, kMissing, [](const QrvMaterial& m) {
        return qrv::mech::read(m, Value::FiberLengthDiameter, kMissing);
    });
}

int QrvGetFillerType(QrvMaterial* material) {
    return qrv::withMaterial(material, static_cast<int>(kNoFiller), [](const QrvMaterial& m) {
        const int model = m.Mech.Model;
        if (!inModels(model, 0, 7)) return static_cast<int>(kNoFiller);
        const int kind = kFillerKinds[model];
        if (kind >= 0) return kind;
        return m.PW.Model != 0 && m.PW.Count != 0 ? static_cast<int>(kPowder)
                                                  : static_cast<int>(kNoFiller);
    });
}

double QrvGetFillerAspectRatio(QrvMaterial* material) {
    switch (QrvGetFillerType(material)) {
        case kFiber:
            return QrvGetFiberAspectRatio(material);
        case kFlakeFiller:
            return qrv::mech::read(*material, Value::FlakeAspectRatio, kMissing);
        case kPowder:
            return 1.0;  // a powder grain is taken as round
        default:
            return kMissing;
    }
}

const char* QrvGetFiberType(QrvMaterial* material) {
    return qrv::withMaterial(material, "No Material", [](const QrvMaterial& m) {
        const int model = m.Mech.Model;
        constexpr int kNamed = static_cast<int>(sizeof kFiberTypes / sizeof kFiberTypes[0]);
        return inModels(model, 0, kNamed - 1) ? kFiberTypes[model] : "Non-Thermoplastic/No Fiber";
    });
}

int QrvGetStressStrainSet(QrvMaterial* material) {
    constexpr int kFixedWireValues = 7;
    if (!QrvIsIC_Wire(material)) return 0;
    return static_cast<int>((static_cast<long long>(material->Mech.Count) - kFixedWireValues) / 2);
}

void QrvGetStressStrainData(QrvMaterial* material, int index, double& stress, double& strain) {
    constexpr int kFixedWireValues = 7;
    const QrvMatParam& mech = qrv::requireMaterial(material, "QrvGetStressStrainData").Mech;
    const long long first = 2LL * index + kFixedWireValues;
    // The range test looks at the two places read: a small negative index still lands on the
    // fixed values at the front of the array, and those reads are defined.
    if (!mech.Para || first < 0 || first + 1 >= mech.Count)
        throw std::invalid_argument("QrvGetStressStrainData: no such stress-strain pair");
    stress = mech.Para[first];
    strain = mech.Para[first + 1];
}
