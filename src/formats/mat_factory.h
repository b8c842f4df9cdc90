// The one place that maps a frame's ObjType to its material object class.
#ifndef QRV_FORMATS_MAT_FACTORY_H
#define QRV_FORMATS_MAT_FACTORY_H

#include <memory>

#include "formats/mat_base.h"

namespace qrv {

// 0 CQrvPlasticMat, 1 CQrvRIMMat, 2 CQrvNonPolyMat, on stream (which may be null for an object
// that is only written with WriteTo); null for any other ObjType.
std::unique_ptr<CQrvMatBase> newObjectOfType(int objType, CQrvBinaryStream* stream);

// Reads the frame that starts at the stream's position: ObjSize and ObjType, then the object of
// that type on stream, which reads itself. Null when either word cannot be read or the type is
// unknown.
std::unique_ptr<CQrvMatBase> readFrame(CQrvBinaryStream& stream);

}  // namespace qrv

#endif
