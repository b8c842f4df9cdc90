// CQrvPlasticMat: the thermoplastic material object (ObjType 0).
//
// Body in stream order: blocks Vis, PVT, Cp, K, VE, Mech, Temp (tags 0, 1, 2, 3, 4, 6, 7); OP
// (tag 8) from 9008; raw viscosity and PVT curves from 9009; MTC data from 9010; CR (tag 10) from
// 9011; PW (tag 11) from 9012. The text twin holds the first seven blocks and OP from 9008.
#ifndef QRV_FORMATS_PLASTIC_MAT_H
#define QRV_FORMATS_PLASTIC_MAT_H

#include <quorvalib/measured.h>

#include "formats/mat_base.h"
#include "measured/mtc_list.h"

#include <type_traits>

class CQrvPlasticMat : public CQrvMatBase {
public:
    explicit CQrvPlasticMat(CQrvBinaryStream* stream);
    ~CQrvPlasticMat() override;

    // Deep copies of the measured data in and out. Set copies the given object into the
    // object's own; Get copies the own into the object given (for the curves, the one the pointer
    // points to). A null argument (or a null object behind the pointer) throws
    // std::invalid_argument.
    void SetVisRaw(CQrvViscosityData* data) override;
    void SetPVTRaw(CQrvPVTData* data) override;
    void SetMTC(CQrvMTCList* list) override;
    void GetVisRaw(CQrvViscosityData** data) override;
    void GetPVTRaw(CQrvPVTData** data) override;
    void GetMTC(CQrvMTCList* list) override;

protected:
    std::uint32_t SectionSize(QrvBodyItem::Kind kind) const override;
    void ReadSection(QrvBodyItem::Kind kind) override;
    void WriteSection(QrvBodyItem::Kind kind, CQrvBinaryStream& stream) const override;

private:
    // The curve family of a section kind, null for the MTC section; const with a const object.
    template <typename Self>
    static auto* curvesOf(Self& self, QrvBodyItem::Kind kind) {
        using Raw = std::conditional_t<std::is_const_v<Self>, const CQrvMatRawData, CQrvMatRawData>;
        return kind == QrvBodyItem::ViscosityCurves ? static_cast<Raw*>(&self.VisRaw)
               : kind == QrvBodyItem::PVTCurves     ? static_cast<Raw*>(&self.PVTRaw)
                                                    : static_cast<Raw*>(nullptr);
    }

    CQrvViscosityData VisRaw;
    CQrvPVTData PVTRaw;
    CQrvMTCList MTC;
};

#endif
