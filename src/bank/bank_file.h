// What the bank operations ask of a bank file before they open it, and where the library keeps
// records that it filled but could not hand over.
#ifndef QRV_BANK_BANK_FILE_H
#define QRV_BANK_BANK_FILE_H

#include <quorvalib/record.h>

#include <cstdint>

namespace qrv::bank {

constexpr std::int32_t kLeadWord = 9051;  // the first word of every bank this library makes

// A regular file of 0 bytes.
bool isEmptyFile(const char* path);

// A folder, or a file too short to hold the lead word (1 to 3 bytes): no bank to append to.
bool tooShortForBank(const char* path);

// Takes a record that nobody else will release and keeps it, reachable, until the process ends.
void keepForProcess(QrvMaterial* material);

}  // namespace qrv::bank

#endif
