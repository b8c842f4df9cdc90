// Material files: loading a file into a new record and saving a record into a file.
#ifndef QUORVALIB_FILES_H
#define QUORVALIB_FILES_H

#include <quorvalib/export.h>
#include <quorvalib/record.h>

// True when the three characters after the last "." of path are "mtx" in any case mix
// (a.mtxbak counts; with no "." at all the first three characters decide, so "mtxdata" counts).
// False for a null path.
QRV_API bool QrvIsRIM(const char* path);

#endif
