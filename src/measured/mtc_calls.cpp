// The exported MTC calls on a material record.
#include <quorvalib/measured.h>

#include "measured/mtc_list.h"
#include "record/guard.h"

#include <memory>

namespace {

constexpr int kListVersion = 1000;
constexpr int kMTCFileVer = 9010;

CQrvMTCList* listOf(const QrvMaterial* material) {
    return qrv::withMaterial<CQrvMTCList*>(material, nullptr,
                                           [](const QrvMaterial& record) { return record.MTC; });
}

}  // namespace

void QrvAddMTCData(QrvMaterial* material, QRV_MTC* records, int count) {
    if (!material) return;
    if (material->MTC) {
        material->MTC->AddRecords(records, count);
    } else {
        auto list = std::make_unique<CQrvMTCList>(nullptr);
        list->SetVersion(kListVersion);
        list->AddRecords(records, count);
        material->MTC = list.release();
    }
    material->FileVer = kMTCFileVer;
}

void QrvGetMTCInfo(QrvMaterial* material, int& version, int& count) {
    const CQrvMTCList* list = listOf(material);
    version = list ? list->GetVersion() : 0;
    count = list ? list->GetRecordCount() : 0;
}

QRV_MTC* QrvGetMTCData(QrvMaterial* material, int index) {
    CQrvMTCList* list = listOf(material);
    return list ? list->GetRecord(index) : nullptr;
}

void QrvRemoveAllMTC(QrvMaterial* material) {
    if (!material) return;
    if (CQrvMTCList* list = listOf(material)) list->Clear();
    // The steps run in order and the last that applies decides, so a material with VE data alone
    // ends at 9005, below the 9007 of one with nothing.
    int version = 9007;
    if (material->VE.Count > 0) version = 9005;
    if (material->OP.Count > 0) version = 9008;
    if (material->VisRaw || material->PVTRaw) version = 9009;
    material->FileVer = version;
}
