// Linear shrinkage of a polymer from its PVT model.
#include <cmath>

#include <quorvalib/properties.h>

#include "record/guard.h"

double QrvGetLinearShrinkage(QrvMaterial* material) {
    return qrv::withMaterial(material, -1.0, [material](const QrvMaterial& m) {
        if (m.FileType > QRV_TYPE_THERMOSET) return -1.0;
        // Room temperature at no pressure against 250 degree C at 1e9 dyne/cm^2 (100 MPa). The
        // cube root of the percentage is the definition the stored data were checked with.
        const double v1 = QrvGetSpecificVolume(material, 0.0, 25.0, 0.0);
        const double v2 = QrvGetSpecificVolume(material, 1e9, 250.0, 0.0);
        return std::pow((v2 - v1) / v1 * 100.0, 0.3333333333333333);
    });
}
