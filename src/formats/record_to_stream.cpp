// From a record into a fresh material object, ready for its writer.
#include <quorvalib/measured.h>

#include <iterator>
#include <stdexcept>
#include <string>

#include "formats/conversions.h"
#include "formats/mat_factory.h"
#include "formats/version_gate.h"
#include "measured/mtc_list.h"
#include "record/material_internal.h"

namespace {

using qrv::gateFrom;
using qrv::kAlways;

enum class Put {
    Plain,    // the block as it stands
    Guarded,  // the block when Count is 1 or more, otherwise zeros
    VisRaw,   // the viscosity curves, when there is at least one
    PVTRaw,   // the PVT curves, likewise
    MTCData   // the MTC list, or an empty one when the record has none
};

struct Move {
    Put put;
    QrvMatParam QrvMaterial::*block;
    int tag;
    qrv::VersionGate gate;
};

constexpr Move kThermoplastic[] = {
    {Put::Plain, &QrvMaterial::Vis, QRV_TAG_VIS, kAlways},
    {Put::Plain, &QrvMaterial::PVT, QRV_TAG_PVT, kAlways},
    {Put::Plain, &QrvMaterial::Cp, QRV_TAG_CP, kAlways},
    {Put::Plain, &QrvMaterial::K, QRV_TAG_K, kAlways},
    {Put::Plain, &QrvMaterial::Mech, QRV_TAG_MECH, kAlways},
    {Put::Plain, &QrvMaterial::Temp, QRV_TAG_TEMP, kAlways},
    {Put::Guarded, &QrvMaterial::VE, QRV_TAG_VE, qrv::kViscoelasticGate},
    {Put::Guarded, &QrvMaterial::OP, QRV_TAG_OP, gateFrom(9008)},
    {Put::VisRaw, nullptr, -1, gateFrom(9009)},
    {Put::PVTRaw, nullptr, -1, gateFrom(9009)},
    {Put::MTCData, nullptr, -1, gateFrom(9010)},
    {Put::Guarded, &QrvMaterial::CR, QRV_TAG_CR, gateFrom(9011)},
    {Put::Guarded, &QrvMaterial::PW, QRV_TAG_PW, gateFrom(9012)},
};

constexpr Move kThermoset[] = {
    {Put::Plain, &QrvMaterial::Vis, QRV_TAG_VIS, kAlways},
    {Put::Plain, &QrvMaterial::PVT, QRV_TAG_PVT, kAlways},
    {Put::Plain, &QrvMaterial::Cp, QRV_TAG_CP, kAlways},
    {Put::Plain, &QrvMaterial::K, QRV_TAG_K, kAlways},
    {Put::Plain, &QrvMaterial::KN, QRV_TAG_KN, kAlways},
    {Put::Plain, &QrvMaterial::Mech, QRV_TAG_MECH, gateFrom(9015)},
    {Put::Plain, &QrvMaterial::Temp, QRV_TAG_TEMP, gateFrom(9016)},
    {Put::Plain, &QrvMaterial::SI, QRV_TAG_SI, gateFrom(9017)},
    {Put::Plain, &QrvMaterial::PW, QRV_TAG_PW, gateFrom(9018)},
};

constexpr Move kNonPolymer[] = {
    {Put::Plain, &QrvMaterial::Cp, QRV_TAG_CP, kAlways},
    {Put::Plain, &QrvMaterial::K, QRV_TAG_K, kAlways},
    {Put::Plain, &QrvMaterial::Mech, QRV_TAG_MECH, kAlways},
};

struct ClassMoves {
    const Move* begin;
    const Move* end;
};

// By ObjType.
constexpr ClassMoves kByObjType[] = {
    {std::begin(kThermoplastic), std::end(kThermoplastic)},
    {std::begin(kThermoset), std::end(kThermoset)},
    {std::begin(kNonPolymer), std::end(kNonPolymer)},
};

// The moves whose gate holds at version, for an object class (none for an unknown one).
template <typename Body>
void forEachMove(std::int32_t objType, std::int32_t version, Body&& body) {
    if (objType < 0 || objType >= static_cast<std::int32_t>(std::size(kByObjType))) return;
    const ClassMoves& moves = kByObjType[objType];
    for (const Move* move = moves.begin; move != moves.end; ++move)
        if (move->gate.Holds(version)) body(*move);
}

bool hasCurves(const CQrvMatRawData* curves) {
    return curves && curves->GetCurveCount() > 0;
}

void put(const QrvMaterial& material, CQrvMatBase& object, const Move& move) {
    switch (move.put) {
        case Put::Plain: {
            const QrvMatParam& block = material.*move.block;
            object.SetParam(move.tag, block.Source, block.Model, block.Count, block.Para);
            break;
        }
        case Put::Guarded: {
            const QrvMatParam& block = material.*move.block;
            if (block.Count >= 1)
                object.SetParam(move.tag, block.Source, block.Model, block.Count, block.Para);
            else
                object.SetParam(move.tag, 0, 0, 0, nullptr);
            break;
        }
        case Put::VisRaw:
            if (hasCurves(material.VisRaw)) object.SetVisRaw(material.VisRaw);
            break;
        case Put::PVTRaw:
            if (hasCurves(material.PVTRaw)) object.SetPVTRaw(material.PVTRaw);
            break;
        case Put::MTCData:
            // A record without a list (one read from an old fixed block of a late version) sends
            // the object's own empty list: version 0, no records.
            if (material.MTC) object.SetMTC(material.MTC);
            break;
    }
}

}  // namespace

namespace qrv {

const char* unwritableReason(const QrvMaterial& material, int objType) {
    for (auto text : {&QrvMaterial::Polymer, &QrvMaterial::Producer, &QrvMaterial::GradeName,
                      &QrvMaterial::Comment})
        if (!(material.*text)) return "a header text is null";
    const char* reason = nullptr;
    forEachMove(objType, material.FileVer, [&](const Move& move) {
        if (reason) return;
        if (!move.block) return;
        const QrvMatParam& block = material.*move.block;
        if (move.put == Put::Plain && block.Count < 0) reason = "a block has a negative count";
        if (block.Count > 0 && !block.Para) reason = "a block has a count but no values";
    });
    return reason;
}

int objTypeFor(int fileType) {
    return fileType == QRV_TYPE_THERMOPLASTIC ? 0 : fileType == QRV_TYPE_THERMOSET ? 1 : 2;
}

std::unique_ptr<CQrvMatBase> newObjectFor(int fileType, CQrvBinaryStream* stream) {
    return newObjectOfType(objTypeFor(fileType), stream);
}

}  // namespace qrv

void QrvMaterialToStream(const QrvMaterial* material, CQrvMatBase* object, bool /*isRIM*/) {
    if (!material || !object) return;
    if (const char* reason = qrv::unwritableReason(*material, object->GetObjType()))
        throw std::invalid_argument(std::string("QrvMaterialToStream: ") + reason);

    std::string polymer = material->Polymer, producer = material->Producer,
                grade = material->GradeName, comment = material->Comment;
    object->SetPolymer(polymer);
    object->SetProducer(producer);
    object->SetGradeName(grade);
    object->SetComment(comment);
    object->SetBodyVer(material->FileVer);
    object->SetDateWord(material->MeasureDate);
    object->SetTypeWord(material->FileType);
    forEachMove(object->GetObjType(), material->FileVer,
                [&](const Move& move) { put(*material, *object, move); });
}
