#include "formats/mat_factory.h"

#include "formats/binary_stream.h"

#include "formats/nonpoly_mat.h"
#include "formats/plastic_mat.h"
#include "formats/rim_mat.h"

namespace qrv {

std::unique_ptr<CQrvMatBase> newObjectOfType(int objType, CQrvBinaryStream* stream) {
    switch (objType) {
        case 0:
            return std::make_unique<CQrvPlasticMat>(stream);
        case 1:
            return std::make_unique<CQrvRIMMat>(stream);
        case 2:
            return std::make_unique<CQrvNonPolyMat>(stream);
        default:
            return nullptr;
    }
}

std::unique_ptr<CQrvMatBase> readFrame(CQrvBinaryStream& stream) {
    std::int32_t size = 0;
    std::int32_t objType = 0;
    if (!stream.ReadInt(size) || !stream.ReadInt(objType)) return nullptr;
    std::unique_ptr<CQrvMatBase> object = newObjectOfType(objType, &stream);
    if (object) object->Read();
    return object;
}

}  // namespace qrv
