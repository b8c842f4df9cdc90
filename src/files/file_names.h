// The names and existence tests behind the material file entry points.
#ifndef QRV_FILES_FILE_NAMES_H
#define QRV_FILES_FILE_NAMES_H

namespace qrv {
constexpr int kFileNameBufferSize = 520;

// True when QrvMapFileName gives another name than path: it ends in "emc" or "mat", any case.
bool mapsToOtherName(const char* path);
}  // namespace qrv

// Copies path into the one static 520-byte name buffer and hands out its address: an old
// ending "emc" (any case) becomes "mtx", "mat" becomes "mtr" (the "." is never looked at, so
// "format" maps to "formtr"). The buffer keeps the name of the last load.
// A null path, or one of 520 characters or more that the buffer cannot hold, gives false,
// *mapped null and the buffer untouched; otherwise true.
bool QrvMapFileName(const char* path, const char** mapped);

// Opens path for reading: false when that fails; otherwise closes it, removes the file when
// removeIt is set, and gives true.
bool QrvFileExists(const char* path, bool removeIt);

// True when the file at path holds at least one byte; false also when it cannot be opened.
bool QrvFileHasContent(const char* path);

#endif
