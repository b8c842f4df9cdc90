// MATIO_Manipulator: ownership of the one record and the forwarders to the flat functions.
#include <quorvalib/defaults.h>
#include <quorvalib/manipulator.h>
#include <quorvalib/properties.h>
#include <quorvalib/version.h>

#include "facade/held_record.h"

namespace {

constexpr int kThermosetFirstVisId = 10;

}  // namespace

namespace qrv {

void replaceRecord(QrvMaterial*& held, QrvMaterial* record) {
    if (held) QrvReleaseMaterial(held);
    held = record;
}

}  // namespace qrv

MATIO_Manipulator::MATIO_Manipulator() : isRIM(false), Record(nullptr) {}

MATIO_Manipulator::~MATIO_Manipulator() {
    qrv::replaceRecord(Record, nullptr);
}

MATIO_Manipulator& MATIO_Manipulator::operator=(const MATIO_Manipulator& other) {
    isRIM = other.isRIM;
    Record = other.Record;
    return *this;
}

bool MATIO_Manipulator::GetDefaultMaterial(int visId, int pvtId, bool crystalline, int cpId,
                                           int kId, int fillerId) {
    isRIM = visId >= kThermosetFirstVisId;
    qrv::replaceRecord(Record, nullptr);
    qrv::replaceRecord(Record,
                       QrvGetDefaultMaterial(visId, pvtId, crystalline, cpId, kId, fillerId));
    return Record != nullptr;
}

const QrvMaterial* MATIO_Manipulator::GetQrvMaterial() {
    return Record;
}
bool MATIO_Manipulator::IsRIM() {
    return isRIM;
}
long MATIO_Manipulator::GetMATIO_DllVer() {
    return Get_Quorvalib_Dll_Ver();
}

double MATIO_Manipulator::GetViscosity(double shearRate, double temperature, double pressure,
                                       double conversion) {
    if (!Record || !Record->Vis.Para) return 0.0;
    return QrvGetViscosity(Record, shearRate, temperature, pressure, conversion);
}

// The flat readers answer 0, null or false for a null record, which is also this class's answer
// when nothing is held, so these hand the pointer on as it is.
int MATIO_Manipulator::GetFileVer() {
    return QrvGetFileVer(Record);
}
int MATIO_Manipulator::GetFileType() {
    return QrvGetFileType(Record);
}
int MATIO_Manipulator::GetLastEditDate() {
    return QrvGetLastEditDate(Record);
}
int MATIO_Manipulator::GetMeasureDate() {
    return QrvGetMeasureDate(Record);
}
const char* MATIO_Manipulator::GetPolymer() {
    return QrvGetPolymer(Record);
}
const char* MATIO_Manipulator::GetGradeName() {
    return QrvGetGradeName(Record);
}
const char* MATIO_Manipulator::GetProducer() {
    return QrvGetProducer(Record);
}
const char* MATIO_Manipulator::GetComment() {
    return QrvGetComment(Record);
}
const char* MATIO_Manipulator::GetSource() {
    return QrvGetSource(Record);
}
bool MATIO_Manipulator::IsMetal() {
    return QrvIsMetal(Record);
}
bool MATIO_Manipulator::IsCoolant() {
    return QrvIsCoolant(Record);
}
bool MATIO_Manipulator::IsThermoplastic() {
    return QrvIsThermoplastic(Record);
}
bool MATIO_Manipulator::IsThermoset() {
    return QrvIsThermoset(Record);
}
bool MATIO_Manipulator::IsIC_Wire() {
    return QrvIsIC_Wire(Record);
}
bool MATIO_Manipulator::IsIC_Chip() {
    return QrvIsIC_Chip(Record);
}
bool MATIO_Manipulator::IsIC_LeadFrame() {
    return QrvIsIC_LeadFrame(Record);
}
bool MATIO_Manipulator::IsIC_Substrate() {
    return QrvIsIC_Substrate(Record);
}
const char* MATIO_Manipulator::GetMaterialType() {
    return QrvGetMaterialType(Record);
}
