// MATIO_Manipulator: loading and saving the held record by file name.
#include <quorvalib/files.h>
#include <quorvalib/manipulator.h>

#include <cstring>

#include "facade/held_record.h"

namespace {

bool nameTooShort(const char* path) {
    return !path || std::strlen(path) < 5;
}

}  // namespace

bool MATIO_Manipulator::GetMaterial(const char* path) {
    if (nameTooShort(path)) return false;
    isRIM = QrvIsRIM(path);
    qrv::replaceRecord(Record, nullptr);
    qrv::replaceRecord(Record, isRIM ? QrvGetMaterialRIM(path) : QrvGetMaterial(path));
    return Record != nullptr;
}

bool MATIO_Manipulator::SaveMaterial(const char* path) {
    if (nameTooShort(path) || !Record) return false;
    isRIM = QrvIsRIM(path);
    // The code of the save is deliberately not passed on.
    if (isRIM)
        QrvSaveMaterialRIM(path, Record);
    else
        QrvSaveMaterial(path, Record);
    return true;
}
