// The non-polymer body: its layout alone.
#include "formats/nonpoly_mat.h"

#include <iterator>

namespace {

using Item = QrvBodyItem;
constexpr auto kAlways = Item::kAlways;

constexpr Item kBody[] = {
    {Item::Block, QRV_TAG_CP, kAlways},
    {Item::Block, QRV_TAG_K, kAlways},
    {Item::Block, QRV_TAG_MECH, kAlways},
};

constexpr QrvMatLayout kLayout{2, {kBody, std::size(kBody)}, {kBody, std::size(kBody)}};

}  // namespace

CQrvNonPolyMat::CQrvNonPolyMat(CQrvBinaryStream* stream) : CQrvMatBase(stream, kLayout) {}
