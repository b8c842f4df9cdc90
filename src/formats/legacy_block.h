// The old fixed-block material file: one block of 2624 bytes, read only.
//
//   offset  width  field
//        0      4  version word dVVVV: type digit d, body version VVVV
//        4      4  last edit date
//        8      4  measure date
//       12     28  block codes SSSSMMCC of Vis, PVT, Cp, K, the fifth block (KN on thermoset
//                  loads, Mech otherwise), Temp and VE
//       40     24  unused
//       64    512  the five texts, each closed by '$': Polymer, Producer, GradeName, Comment,
//                  Source
//      576   2048  up to 256 doubles: the blocks' values one behind the other, in code order
#ifndef QRV_FORMATS_LEGACY_BLOCK_H
#define QRV_FORMATS_LEGACY_BLOCK_H

#include <quorvalib/record.h>

namespace qrv::legacy {

constexpr int kBlockSize = 2624;
constexpr int kTextOffset = 64;
constexpr int kTextSize = 512;
constexpr int kValuesOffset = 576;
constexpr int kValueCapacity = 256;

}  // namespace qrv::legacy

// Field 1 to 5 of a '$'-separated text run, in a static 512-byte buffer that the next call
// overwrites. A run without any '$' gives the empty text; the last field may lack its closing
// '$' when some other '$' stands in the run. text must be NUL-terminated within 512 bytes (the
// block reader hands it a terminated copy); a null text gives the empty text.
const char* QrvBlockText(const char* text, int field);

// Fills a record in its zero state from a 2624-byte block (the caller guarantees the size; the
// bytes of a short read must be zeroed). A null record returns at once.
// A block code of fewer than eight digits splits into a negative count, and counts may add up
// past the 256 values of the block: either throws std::invalid_argument, leaving the record with
// the blocks read before it (the load turns this into its failure value).
void QrvMaterialFromBlock(QrvMaterial* material, const void* block, bool isRIM);

#endif
