// From a material object that read itself into a fresh record.
#include <quorvalib/measured.h>

#include <cstdlib>
#include <iterator>
#include <string>
#include <string_view>

#include "formats/conversions.h"
#include "formats/version_gate.h"
#include "measured/mtc_list.h"
#include "record/material_internal.h"

namespace {

using qrv::gateFrom;
using qrv::kAlways;

enum class Step {
    Full,             // Source, Model, Count and an array of Count values, also for 0
    Guarded,          // the same, but no array unless Count is above 0
    GuardedClearing,  // with Count 0 or below, the whole block becomes 0
    Empty,            // all 0 and no array, without freeing
    BuildMech,        // EM, PR and CLTE from Mech
    Density,          // PVT from the density in the comment
    RawCurves,        // VisRaw and PVTRaw, dropped again when they hold no curve
    MTCData           // the MTC list, kept also when it holds nothing
};

struct Move {
    Step step;
    QrvMatParam QrvMaterial::*block;
    int tag;
    qrv::VersionGate gate;
};

constexpr Move kThermoplastic[] = {
    {Step::Full, &QrvMaterial::Vis, QRV_TAG_VIS, kAlways},
    {Step::Full, &QrvMaterial::PVT, QRV_TAG_PVT, kAlways},
    {Step::Full, &QrvMaterial::Cp, QRV_TAG_CP, kAlways},
    {Step::Full, &QrvMaterial::K, QRV_TAG_K, kAlways},
    {Step::Empty, &QrvMaterial::KN, -1, kAlways},
    {Step::Full, &QrvMaterial::Mech, QRV_TAG_MECH, kAlways},
    {Step::BuildMech, nullptr, -1, kAlways},
    {Step::Full, &QrvMaterial::Temp, QRV_TAG_TEMP, kAlways},
    {Step::Guarded, &QrvMaterial::VE, QRV_TAG_VE, qrv::kViscoelasticGate},
    {Step::Guarded, &QrvMaterial::OP, QRV_TAG_OP, gateFrom(9008)},
    {Step::RawCurves, nullptr, -1, gateFrom(9009)},
    {Step::MTCData, nullptr, -1, gateFrom(9010)},
    {Step::Guarded, &QrvMaterial::CR, QRV_TAG_CR, gateFrom(9011)},
    {Step::Guarded, &QrvMaterial::PW, QRV_TAG_PW, gateFrom(9012)},
};

constexpr Move kThermoset[] = {
    {Step::Full, &QrvMaterial::Vis, QRV_TAG_VIS, kAlways},
    {Step::Full, &QrvMaterial::PVT, QRV_TAG_PVT, kAlways},
    {Step::Full, &QrvMaterial::Cp, QRV_TAG_CP, kAlways},
    {Step::Full, &QrvMaterial::K, QRV_TAG_K, kAlways},
    {Step::Empty, &QrvMaterial::Mech, -1, kAlways},
    {Step::Empty, &QrvMaterial::Temp, -1, kAlways},
    {Step::Full, &QrvMaterial::KN, QRV_TAG_KN, kAlways},
    {Step::Full, &QrvMaterial::Mech, QRV_TAG_MECH, gateFrom(9015)},
    {Step::BuildMech, nullptr, -1, gateFrom(9015)},
    {Step::Full, &QrvMaterial::Temp, QRV_TAG_TEMP, gateFrom(9016)},
    {Step::GuardedClearing, &QrvMaterial::SI, QRV_TAG_SI, gateFrom(9017)},
    {Step::GuardedClearing, &QrvMaterial::PW, QRV_TAG_PW, gateFrom(9018)},
};

constexpr Move kNonPolymer[] = {
    {Step::Density, nullptr, -1, kAlways},
    {Step::Full, &QrvMaterial::Cp, QRV_TAG_CP, kAlways},
    {Step::Full, &QrvMaterial::K, QRV_TAG_K, kAlways},
    {Step::Empty, &QrvMaterial::KN, -1, kAlways},
    {Step::Full, &QrvMaterial::Mech, QRV_TAG_MECH, kAlways},
    {Step::BuildMech, nullptr, -1, kAlways},
};

struct ClassMoves {
    const Move* begin;
    const Move* end;
};

// By ObjType; another ObjType moves nothing beyond the header.
constexpr ClassMoves kByObjType[] = {
    {std::begin(kThermoplastic), std::end(kThermoplastic)},
    {std::begin(kThermoset), std::end(kThermoset)},
    {std::begin(kNonPolymer), std::end(kNonPolymer)},
};

void emptyBlock(QrvMatParam& block) {
    block.Source = 0;
    block.Model = 0;
    block.Count = 0;
    block.Para = nullptr;
}

// How a block's values reach the record: copied, or the object's array itself, handed over by an
// object that is dropped right after (the record ends the same either way).
enum class Arrays { Copy, Take };

void moveBlock(QrvMatParam& block, CQrvMatBase& object, int tag, Step step, Arrays arrays) {
    int source = 0, model = 0, count = 0;
    object.GetParamInfo(tag, &source, &model, &count);
    if (step == Step::GuardedClearing && count <= 0) {
        emptyBlock(block);
        return;
    }
    block.Source = source;
    block.Model = model;
    block.Count = count;
    block.Para = nullptr;
    const bool withArray = step == Step::Full ? count >= 0 : count > 0;
    if (!withArray) return;
    // The object's array holds exactly Count values (or is null, for a block never read); each
    // tag is moved once.
    if (arrays == Arrays::Take && (block.Para = object.TakeParamArray(tag).release())) return;
    block.Para = new double[count];
    for (int i = 0; i < count; ++i)
        block.Para[i] = object.GetParamValue(tag, i);
}

// A metal's or coolant's density stands in its comment, as in "Steel D=7.85 g/cc": the text
// between "D=" and the first unit ("g/cc", else "g/cm3") is the number. With either missing, or
// the unit before "D=", the record has no density.
void parseDensity(QrvMaterial& material, const std::string& comment) {
    std::size_t unit = comment.find("g/cc");
    if (unit == std::string::npos) unit = comment.find("g/cm3");
    const std::size_t mark = comment.find("D=");
    if (unit == std::string::npos || mark == std::string::npos || unit < mark) return;
    const std::size_t from = mark + 2;
    const std::string number = comment.substr(from, unit - from);
    qrv::allocateBlock(material.PVT, material.PVT.Source, 1, 1)[0] = std::atof(number.c_str());
}

template <typename Curves>
void takeCurves(Curves*& target, CQrvMatBase& object, void (CQrvMatBase::*get)(Curves**)) {
    target = new Curves(nullptr);
    (object.*get)(&target);
    if (target->GetCurveCount() == 0) {
        delete target;
        target = nullptr;
    }
}

void runStep(QrvMaterial& material, CQrvMatBase& object, const Move& move, Arrays arrays) {
    switch (move.step) {
        case Step::Full:
        case Step::Guarded:
        case Step::GuardedClearing:
            moveBlock(material.*move.block, object, move.tag, move.step, arrays);
            break;
        case Step::Empty:
            emptyBlock(material.*move.block);
            break;
        case Step::BuildMech:
            QrvBuildMechBlocks(&material);
            break;
        case Step::Density:
            parseDensity(material, object.GetHeader().Texts[CQrvMatHeader::Comment]);
            break;
        case Step::RawCurves:
            takeCurves(material.VisRaw, object, &CQrvMatBase::GetVisRaw);
            takeCurves(material.PVTRaw, object, &CQrvMatBase::GetPVTRaw);
            break;
        case Step::MTCData:
            material.MTC = new CQrvMTCList(nullptr);
            object.GetMTC(material.MTC);
            break;
    }
}

// As through the old 512-byte buffer: at most 511 characters. (A header text holds no NUL.)
char* boundedText(const std::string& text) {
    if (text.size() <= static_cast<std::size_t>(qrv::kStreamTextLimit))
        return qrv::newText(text.c_str());
    return qrv::newText(text.substr(0, qrv::kStreamTextLimit).c_str());
}

void fromObject(QrvMaterial* material, CQrvMatBase* object, bool isRIM, Arrays arrays) {
    if (!material || !object) return;
    const std::int32_t bodyVer = object->GetBodyVer();
    material->FileType = QRV_TYPE_THERMOPLASTIC;
    material->FileVer = bodyVer;
    material->MeasureDate = object->GetDateWord();
    material->LastEditDate = 0;

    const auto& texts = object->GetHeader().Texts;
    material->Polymer = boundedText(texts[CQrvMatHeader::Polymer]);
    const std::string_view polymer = material->Polymer;
    material->FileType = object->GetTypeWord();
    if (isRIM) {
        if (material->FileType == 0) material->FileType = QRV_TYPE_THERMOSET;
    } else if (polymer == "Metal") {
        material->FileType = QRV_TYPE_METAL;
    } else if (polymer == "Coolant") {
        material->FileType = QRV_TYPE_COOLANT;
    }
    material->Producer = boundedText(texts[CQrvMatHeader::Producer]);
    material->GradeName = boundedText(texts[CQrvMatHeader::GradeName]);
    material->Comment = boundedText(texts[CQrvMatHeader::Comment]);

    const std::int32_t objType = object->GetObjType();
    if (objType < 0 || objType >= static_cast<std::int32_t>(std::size(kByObjType))) return;
    const ClassMoves& moves = kByObjType[objType];
    for (const Move* move = moves.begin; move != moves.end; ++move)
        if (move->gate.Holds(bodyVer)) runStep(*material, *object, *move, arrays);
}

}  // namespace

void QrvMaterialFromStream(QrvMaterial* material, CQrvMatBase* object, bool isRIM) {
    fromObject(material, object, isRIM, Arrays::Copy);
}

namespace qrv {

void materialFromSpentObject(QrvMaterial* material, CQrvMatBase* object, bool isRIM) {
    fromObject(material, object, isRIM, Arrays::Take);
}

}  // namespace qrv
