// The thermoplastic body: its layout and its measured sections.
#include "formats/plastic_mat.h"

#include <iterator>
#include <stdexcept>

namespace {

using Item = QrvBodyItem;
constexpr auto kAlways = Item::kAlways;

constexpr Item kBody[] = {
    {Item::Block, QRV_TAG_VIS, kAlways},
    {Item::Block, QRV_TAG_PVT, kAlways},
    {Item::Block, QRV_TAG_CP, kAlways},
    {Item::Block, QRV_TAG_K, kAlways},
    {Item::Block, QRV_TAG_VE, kAlways},
    {Item::Block, QRV_TAG_MECH, kAlways},
    {Item::Block, QRV_TAG_TEMP, kAlways},
    {Item::Block, QRV_TAG_OP, 9008},
    {Item::ViscosityCurves, -1, 9009},
    {Item::PVTCurves, -1, 9009},
    {Item::MTCData, -1, 9010},
    {Item::Block, QRV_TAG_CR, 9011},
    {Item::Block, QRV_TAG_PW, 9012},
};

constexpr Item kText[] = {
    {Item::Block, QRV_TAG_VIS, kAlways},  {Item::Block, QRV_TAG_PVT, kAlways},
    {Item::Block, QRV_TAG_CP, kAlways},   {Item::Block, QRV_TAG_K, kAlways},
    {Item::Block, QRV_TAG_VE, kAlways},   {Item::Block, QRV_TAG_MECH, kAlways},
    {Item::Block, QRV_TAG_TEMP, kAlways}, {Item::Block, QRV_TAG_OP, 9008},
};

constexpr QrvMatLayout kLayout{0, {kBody, std::size(kBody)}, {kText, std::size(kText)}};

template <typename T>
T& required(T* object, const char* what) {
    if (!object) throw std::invalid_argument(what);
    return *object;
}

constexpr const char* kNullTarget = "CQrvPlasticMat: null curve target";

}  // namespace

CQrvPlasticMat::CQrvPlasticMat(CQrvBinaryStream* stream)
    : CQrvMatBase(stream, kLayout), VisRaw(stream), PVTRaw(stream), MTC(stream) {}

CQrvPlasticMat::~CQrvPlasticMat() = default;

void CQrvPlasticMat::SetVisRaw(CQrvViscosityData* data) {
    required(data, "CQrvPlasticMat::SetVisRaw: null curves").CopyTo(&VisRaw);
}

void CQrvPlasticMat::SetPVTRaw(CQrvPVTData* data) {
    required(data, "CQrvPlasticMat::SetPVTRaw: null curves").CopyTo(&PVTRaw);
}

void CQrvPlasticMat::SetMTC(CQrvMTCList* list) {
    required(list, "CQrvPlasticMat::SetMTC: null list").CopyTo(&MTC);
}

void CQrvPlasticMat::GetVisRaw(CQrvViscosityData** data) {
    VisRaw.CopyTo(&required(required(data, kNullTarget), kNullTarget));
}

void CQrvPlasticMat::GetPVTRaw(CQrvPVTData** data) {
    PVTRaw.CopyTo(&required(required(data, kNullTarget), kNullTarget));
}

void CQrvPlasticMat::GetMTC(CQrvMTCList* list) {
    MTC.CopyTo(&required(list, "CQrvPlasticMat::GetMTC: null list"));
}

std::uint32_t CQrvPlasticMat::SectionSize(QrvBodyItem::Kind kind) const {
    const CQrvMatRawData* raw = curvesOf(*this, kind);
    return raw ? raw->GetDataSize() : MTC.GetDataSize();
}

void CQrvPlasticMat::ReadSection(QrvBodyItem::Kind kind) {
    if (CQrvMatRawData* raw = curvesOf(*this, kind))
        raw->Read();
    else
        MTC.Read();
}

void CQrvPlasticMat::WriteSection(QrvBodyItem::Kind kind, CQrvBinaryStream& stream) const {
    if (const CQrvMatRawData* raw = curvesOf(*this, kind))
        raw->Write(stream);
    else
        MTC.Write(stream);
}
