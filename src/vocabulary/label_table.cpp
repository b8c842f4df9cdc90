#include "vocabulary/label_table.h"

#include <stdexcept>
#include <string>

#include "vocabulary/name_text.h"

namespace qrv {

const QrvMaterial& requireMaterial(const QrvMaterial* material, const char* call) {
    if (!material) throw std::invalid_argument(std::string(call) + ": null record");
    return *material;
}

const char* keepNameText() {
    return QrvNameText().c_str();
}

}  // namespace qrv
