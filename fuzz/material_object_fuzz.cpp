// Any bytes as the body of a material frame: the first byte picks the class (object_seeds.py makes
// the seeds in that shape from the sample files). The read must not fault, throw or allocate past
// the stream, and the object must then measure what it writes. What it writes is read again by a
// fresh object of the same class, which must write the very same bytes: a frame the library
// wrote reads back whole.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

#include "formats/binary_stream.h"
#include "formats/mat_factory.h"

namespace {

// The frame's bytes behind its ObjSize and ObjType words, as a reader of the class starts on them.
std::string frameOf(std::uint8_t type, const std::string& body) {
    CQrvMemoryStream in(body);
    std::unique_ptr<CQrvMatBase> object = qrv::newObjectOfType(type, &in);
    object->Read();
    CQrvMemoryStream out;
    object->WriteTo(out);
    if (out.Bytes().size() != object->GetSize() + 4u) std::abort();
    return out.Bytes();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 1) return 0;
    const std::uint8_t type = data[0] % 3;
    const std::string first =
        frameOf(type, std::string(reinterpret_cast<const char*>(data) + 1, size - 1));
    const std::string second = frameOf(type, first.substr(8));
    if (second != first) {
        std::fprintf(stderr, "round trip changed the written frame of class %d\n", type);
        std::abort();
    }
    return 0;
}
