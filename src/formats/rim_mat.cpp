// The thermoset body: its layout alone.
#include "formats/rim_mat.h"

#include <iterator>

namespace {

using Item = QrvBodyItem;
constexpr auto kAlways = Item::kAlways;

constexpr Item kBody[] = {
    {Item::Block, QRV_TAG_VIS, kAlways}, {Item::Block, QRV_TAG_PVT, kAlways},
    {Item::Block, QRV_TAG_CP, kAlways},  {Item::Block, QRV_TAG_K, kAlways},
    {Item::Block, QRV_TAG_KN, kAlways},  {Item::Block, QRV_TAG_MECH, 9015},
    {Item::Block, QRV_TAG_TEMP, 9016},   {Item::Block, QRV_TAG_SI, 9017},
    {Item::Block, QRV_TAG_PW, 9018},
};

constexpr QrvMatLayout kLayout{1, {kBody, std::size(kBody)}, {nullptr, 0}};

}  // namespace

CQrvRIMMat::CQrvRIMMat(CQrvBinaryStream* stream) : CQrvMatBase(stream, kLayout) {}
