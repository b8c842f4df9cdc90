// The warning text of the report, from the polymer data check.
#include "report/warnings.h"

namespace qrv::report {

// PENDING: the polymer data check is not on this branch yet. Until it is, a thermoplastic reads
// as one without warnings and any other material as the check leaves it (empty).
std::string polymerDataWarnings(const char*, QrvMaterial* material) {
    if (!material || material->FileType != QRV_TYPE_THERMOPLASTIC) return {};
    return "None";
}

}  // namespace qrv::report
