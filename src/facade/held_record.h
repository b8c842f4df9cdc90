// The one record a MATIO_Manipulator holds.
#ifndef QRV_FACADE_HELD_RECORD_H
#define QRV_FACADE_HELD_RECORD_H

#include <quorvalib/record.h>

namespace qrv {

// Releases the held record, if any, and holds record (which may be null) in its place.
void replaceRecord(QrvMaterial*& held, QrvMaterial* record);

}  // namespace qrv

#endif
