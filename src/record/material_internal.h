// Internal helpers on the record, used by the readers and generators of the library.
#ifndef QRV_RECORD_MATERIAL_INTERNAL_H
#define QRV_RECORD_MATERIAL_INTERNAL_H

#include <quorvalib/record.h>

// Brings a freshly constructed record to the zero state: FileType 1, versions and dates 0, texts
// and blocks null without freeing, VisRaw and PVTRaw null. MTC is left as the constructor set it.
// Throws std::invalid_argument for a null record.
void QrvInitMaterial(QrvMaterial* material);

// Rebuilds EM, PR and CLTE (Source 1000, Model 1, one value each) from Mech: EM from index 2; PR
// and CLTE from indices 0 and 5 for Mech.Model up to 2, from 1 and 3 above it. What the three
// blocks held before is not freed. A null record is ignored. A Mech block too short for its
// model (or with a null Para) leaves the three blocks untouched.
void QrvBuildMechBlocks(QrvMaterial* material);

// A legacy block stores small integers as decimal digits of one word, printed "%05d".
// Digits 2 to 5 as a number ("19051" gives 9051).
int QrvSplitFileVer(int packed);
// Digit 1 ("19051" gives 1, "09051" gives 0).
int QrvSplitFileType(int packed);
// An 8-digit word SSSSMMCC gives source SSSS, model MM and count CC. A shorter word leaves zero
// bytes where digits are read; each enters as 0 - '0', so model and count come out negative.
void QrvSplitBlockCode(unsigned code, int* source, int* model, int* count);

namespace qrv {

// The fifteen blocks in declaration order, for walks that treat them alike.
constexpr QrvMatParam QrvMaterial::*kBlocks[] = {
    &QrvMaterial::Vis, &QrvMaterial::PVT,  &QrvMaterial::Cp,   &QrvMaterial::K,  &QrvMaterial::EM,
    &QrvMaterial::PR,  &QrvMaterial::CLTE, &QrvMaterial::Temp, &QrvMaterial::KN, &QrvMaterial::Mech,
    &QrvMaterial::VE,  &QrvMaterial::OP,   &QrvMaterial::SI,   &QrvMaterial::CR, &QrvMaterial::PW};

// The five owned texts in declaration order.
constexpr char* QrvMaterial::*kTexts[] = {&QrvMaterial::Polymer, &QrvMaterial::Producer,
                                          &QrvMaterial::GradeName, &QrvMaterial::Comment,
                                          &QrvMaterial::Source};

// Gives a block Source, Model and a fresh zeroed array of count values; the old array is not
// freed (callers fill blocks of a record in its zero state).
double* allocateBlock(QrvMatParam& block, int source, int model, int count);

// A fresh NUL-terminated copy of text in a buffer of at least bufferSize characters.
char* newText(const char* text, int bufferSize = 0);

}  // namespace qrv

#endif
