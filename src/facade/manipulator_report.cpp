// MATIO_Manipulator: the material report of the held record.
#include <quorvalib/manipulator.h>

#include "report/material_report.h"

bool MATIO_Manipulator::GetLogString(const char* moduleName, const char* materialFile,
                                     QRVFrmOut_StringStream& stream) {
    return qrv::report::printMaterialReport(Record, moduleName, materialFile, stream);
}
