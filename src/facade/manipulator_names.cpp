// MATIO_Manipulator: the content dump and the naming forwarders.
#include <quorvalib/manipulator.h>
#include <quorvalib/vocabulary.h>

const char* MATIO_Manipulator::GetContent() {
    if (!Record) return nullptr;
    return QrvGetContent(Record, isRIM);
}

// The naming calls have no guard of this class: a missing record reaches the flat call.
const char* MATIO_Manipulator::GetVisModelName() {
    return QrvGetVisModelName(Record);
}
const char* MATIO_Manipulator::GetPVTModelName() {
    return QrvGetPVTModelName(Record);
}
const char* MATIO_Manipulator::GetCpModelName() {
    return QrvGetCpModelName(Record);
}
const char* MATIO_Manipulator::GetKModelName() {
    return QrvGetKModelName(Record);
}
const char* MATIO_Manipulator::GetMechModelName() {
    return QrvGetMechModelName(Record);
}
const char* MATIO_Manipulator::GetConvModelName() {
    return QrvGetConvModelName(Record);
}
const char* MATIO_Manipulator::GetVEModelName() {
    return QrvGetVEModelName(Record);
}
const char* MATIO_Manipulator::GetCrystallinityName() {
    return QrvGetCrystallinityModelName(Record);
}
const char* MATIO_Manipulator::GetMFIString() {
    return QrvGetMFIString(Record);
}
