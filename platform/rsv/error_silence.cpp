#include "rsv/error_silence.h"

namespace QRV3DRSVExTool {

namespace {

// HDF5 keeps its error setting per thread (it is built thread-safe), and so is the nesting.
thread_local int depth = 0;

}  // namespace

ErrorSilence::ErrorSilence() : Outermost(depth++ == 0) {
    if (!Outermost) return;
    H5Eget_auto2(H5E_DEFAULT, &Handler, &Data);
    H5Eset_auto2(H5E_DEFAULT, nullptr, nullptr);
}

ErrorSilence::~ErrorSilence() {
    --depth;
    if (Outermost) H5Eset_auto2(H5E_DEFAULT, Handler, Data);
}

}  // namespace QRV3DRSVExTool
