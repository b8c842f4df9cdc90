// Any bytes as an old fixed block (zero-filled to its 2624 bytes, as a short read leaves it).
#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <vector>

#include "formats/legacy_block.h"
#include "record/material_internal.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::vector<unsigned char> block(qrv::legacy::kBlockSize, 0);
    std::memcpy(block.data(), data, std::min<std::size_t>(size, block.size()));
    for (bool isRIM : {false, true}) {
        auto* material = new QrvMaterial;
        QrvInitMaterial(material);
        try {
            QrvMaterialFromBlock(material, block.data(), isRIM);
        } catch (const std::invalid_argument&) {
            // the documented failure of a damaged block
        }
        QrvReleaseMaterial(material);
    }
    return 0;
}
