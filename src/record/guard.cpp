#include "record/guard.h"

#include <stdexcept>
#include <string>

namespace qrv {

const QrvMaterial& requireMaterial(const QrvMaterial* material, const char* call) {
    if (!material) throw std::invalid_argument(std::string(call) + ": null record");
    return *material;
}

}  // namespace qrv
