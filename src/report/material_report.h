// The material report: a print tree of one record, its sections chosen by the module that asks.
#ifndef QRV_REPORT_MATERIAL_REPORT_H
#define QRV_REPORT_MATERIAL_REPORT_H

#include <quorvalib/frmout.h>
#include <quorvalib/record.h>

namespace qrv::report {

// Prints the report of material into stream: the unit system from QRVGetReleaseVersionUnit
// (system 0 when it answers false), the warnings of the polymer data check with the statistics
// below QRVGetInstallFolderPath (an empty warning section when it answers false). True when the
// print succeeded; false, with nothing written, for a null material.
bool printMaterialReport(QrvMaterial* material, const char* moduleName, const char* materialFile,
                         QRVFrmOut_StringStream& stream);

}  // namespace qrv::report

#endif
