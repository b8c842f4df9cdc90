// CQrvNonPolyMat: the object of materials that do not flow (metals, coolants, chip, lead frame,
// substrate, wire, fluid), ObjType 2.
//
// Body in stream order: blocks Cp, K, Mech (tags 2, 3, 6), with no version gate. The kind of
// material and its density live in the header's Polymer and Comment texts. The text twin holds
// the same three blocks.
#ifndef QRV_FORMATS_NONPOLY_MAT_H
#define QRV_FORMATS_NONPOLY_MAT_H

#include "formats/mat_base.h"

class CQrvNonPolyMat : public CQrvMatBase {
public:
    explicit CQrvNonPolyMat(CQrvBinaryStream* stream);
};

#endif
