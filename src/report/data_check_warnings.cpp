// The warning text of the report, from the polymer data check.
#include "report/polymer_data_check.h"
#include "report/warnings.h"

namespace qrv::report {

std::string polymerDataWarnings(const char* installFolder, QrvMaterial* material) {
    CQrvPolymerDataCheck check(installFolder, material);
    return check.CheckMaterial();
}

}  // namespace qrv::report
