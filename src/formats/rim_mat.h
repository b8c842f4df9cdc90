// CQrvRIMMat: the thermoset (RIM) material object (ObjType 1).
//
// Body in stream order: blocks Vis, PVT, Cp, K, KN (tags 0, 1, 2, 3, 5); Mech (tag 6) from 9015;
// Temp (tag 7) from 9016; SI (tag 9) from 9017; PW (tag 11) from 9018. These gates are a
// numbering of their own: 9008 to 9012 mean nothing here. No measured data and no text form:
// ReadText and WriteText do nothing and are true.
#ifndef QRV_FORMATS_RIM_MAT_H
#define QRV_FORMATS_RIM_MAT_H

#include "formats/mat_base.h"

class CQrvRIMMat : public CQrvMatBase {
public:
    explicit CQrvRIMMat(CQrvBinaryStream* stream);
};

#endif
