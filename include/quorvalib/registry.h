// QRVRegistry: the two settings of an installation that the library asks for, the install folder
// (where the statistics file of the material check lies) and the unit system of the report.
//
// Each answers what its setter set, else its environment variable, else false. The settings are
// process-wide and unguarded: set them before reports run, from one thread.
#ifndef QUORVALIB_REGISTRY_H
#define QUORVALIB_REGISTRY_H

#include <quorvalib/export.h>

// The install folder of product (any product name, null too, gets the one folder): the folder set
// by QRVSetInstallFolderPath, else the environment variable QUORVANE_INSTALL_DIR. The answer is
// written to buffer with its terminator and always ends in "/". False, with buffer untouched, when
// neither names a folder (unset or empty), when buffer is null, or when the answer with its
// terminator does not fit into length characters.
QRV_API bool QRVGetInstallFolderPath(const char* product, char* buffer, int length);
// Sets the install folder; null or the empty text withdraws the setting.
QRV_API void QRVSetInstallFolderPath(const char* folder);

// The unit system of the release (0 base, 1 SI, 2 English): the value set by
// QRVSetReleaseVersionUnit, else QUORVANE_UNIT_SYSTEM when it is exactly "0", "1" or "2". False,
// with unitSystem untouched, otherwise (unset, empty, not one of those numbers).
QRV_API bool QRVGetReleaseVersionUnit(int& unitSystem);
// Sets the unit system; any value of 0 or above is answered as it is (the units of the report
// know only 0, 1 and 2), a negative value withdraws the setting.
QRV_API void QRVSetReleaseVersionUnit(int unitSystem);

#endif
