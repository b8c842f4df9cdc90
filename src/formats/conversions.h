// Moving a material between the record and a material object: which blocks exist for which class
// and body version, and which record fields are lost on the way.
#ifndef QRV_FORMATS_CONVERSIONS_H
#define QRV_FORMATS_CONVERSIONS_H

#include <quorvalib/record.h>

#include <memory>

#include "formats/mat_base.h"

// Fills a record straight from QrvInitMaterial (nothing it holds is freed) from an object that has
// read itself. FileType becomes the header's TypeWord, corrected to 2 for a TypeWord of 0 when
// isRIM is set, and otherwise to 3 or 4 for a Polymer of exactly "Metal" or "Coolant". FileVer is
// the body version; LastEditDate is 0 and Source stays null, as the stream carries neither.
// Blocks move by class and body version; a non-polymer's density is parsed from its Comment
// ("D=" and a number before "g/cc" or "g/cm3") into a constant-density PVT block.
// A header text longer than 511 characters is cut to its first 511 (the old reader could take no
// more). A null record or a null object returns at once.
void QrvMaterialFromStream(QrvMaterial* material, CQrvMatBase* object, bool isRIM);

// Fills a fresh object from a record: the four texts, body version, date and type word, then the
// blocks that the object's class carries at the record's FileVer. isRIM is not looked at. The
// record is not changed. A null record or object returns at once. A record that cannot be written
// (see qrv::unwritableReason) throws std::invalid_argument before the object is touched.
void QrvMaterialToStream(const QrvMaterial* material, CQrvMatBase* object, bool isRIM);

namespace qrv {

// QrvMaterialFromStream for an object that is dropped right after: the blocks' arrays move into the
// record instead of being copied, and the object's blocks are left empty. The record comes out the
// same.
void materialFromSpentObject(QrvMaterial* material, CQrvMatBase* object, bool isRIM);

// Texts of a record that came through a material object hold at most this many characters.
constexpr int kStreamTextLimit = 511;

// Null when the record can go into an object of objType; otherwise why not: a null Polymer,
// Producer, GradeName or Comment, a block that is moved with Count above 0 and a null Para, a
// negative Count in a block moved as it stands. A thermoplastic of FileVer 9010 or more without an
// MTC list is written with an empty one.
const char* unwritableReason(const QrvMaterial& material, int objType);

// The object class that a record's FileType asks for: 1 thermoplastic, 2 thermoset, every other
// value non-polymer. objTypeFor gives its ObjType (0, 1, 2).
int objTypeFor(int fileType);
std::unique_ptr<CQrvMatBase> newObjectFor(int fileType, CQrvBinaryStream* stream);

}  // namespace qrv

#endif
