// Any bytes as the body of a material frame: the first byte picks the class (object_seeds.py makes
// the seeds in that shape from the sample files). The read must not fault, throw or allocate past
// the stream, and the object must then measure what it writes.
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>

#include "formats/binary_stream.h"
#include "formats/mat_factory.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 1) return 0;
    CQrvMemoryStream in(std::string(reinterpret_cast<const char*>(data) + 1, size - 1));
    std::unique_ptr<CQrvMatBase> object = qrv::newObjectOfType(data[0] % 3, &in);
    object->Read();
    CQrvMemoryStream out;
    object->WriteTo(out);
    if (out.Bytes().size() != object->GetSize() + 4u) std::abort();
    return 0;
}
