// HDF5 prints its error stack on stderr by default; the store prints nothing. An ErrorSilence
// turns that printing off for its lifetime and puts back whatever the thread had set, so a host
// that uses HDF5 itself finds its own setting between the library's calls.
//
// Silences nest: only the outermost one of a thread switches, the inner ones cost a counter. Each
// store operation holds one, and MATIO_RSVManipulator holds one around each of its public calls,
// so that the dozens of store operations of an AddMaterial or a GetMaterial switch once between
// them (the switch is two HDF5 calls, and was a fifteenth of a run file's time when made per
// operation). Printing is deliberately not left off for as long as a file is open: a host's own
// HDF5 calls between ours would then lose their error output, and two tools opened and closed in
// another order than last-in-first-out could not put the host's setting back.
#ifndef QRV_PLATFORM_RSV_ERROR_SILENCE_H
#define QRV_PLATFORM_RSV_ERROR_SILENCE_H

#include <hdf5.h>

namespace QRV3DRSVExTool {

class ErrorSilence {
public:
    ErrorSilence();
    ~ErrorSilence();
    ErrorSilence(const ErrorSilence&) = delete;
    ErrorSilence& operator=(const ErrorSilence&) = delete;

private:
    bool Outermost;
    H5E_auto2_t Handler = nullptr;
    void* Data = nullptr;
};

}  // namespace QRV3DRSVExTool

#endif
