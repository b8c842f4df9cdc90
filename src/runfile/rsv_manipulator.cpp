// MATIO_RSVManipulator: binding a run file, and the two public calls that walk its materials.
#include <quorvalib/runfile.h>

#include <climits>
#include <memory>

#include "record/material_internal.h"
#include "rsv/run_vocabulary.h"
#include "runfile/material_layout.h"
#include "runfile/store_access.h"

using namespace qrv::runfile;
using QRV3DRSVExTool::ErrorSilence;
using QRV3DRSVExTool::kCategoryMaterial;

// Each public call holds one ErrorSilence over all its store operations, which then find HDF5's
// error printing off already and leave it alone (error_silence.h).

MATIO_RSVManipulator::MATIO_RSVManipulator(const char* path)
    : Tool(nullptr), Group(nullptr), Material(nullptr) {
    ErrorSilence quiet;
    auto tool = std::make_unique<CRSVTool>();
    // Create first: it refuses an existing file without touching it, and Open then takes over.
    if (path && (tool->Create(path, 4, 13, 0) == 0 || tool->Open(path) == 0)) Tool = tool.release();
}

MATIO_RSVManipulator::~MATIO_RSVManipulator() {
    QrvReleaseMaterial(Material);
    if (Tool) {
        ErrorSilence quiet;
        Tool->Close();
        delete Tool;
    }
}

MATIO_RSVManipulator& MATIO_RSVManipulator::operator=(const MATIO_RSVManipulator& other) {
    Tool = other.Tool;
    Group = other.Group;
    Material = other.Material;
    return *this;
}

bool MATIO_RSVManipulator::AddMaterial(QrvMaterial* material, const char* label, int runItemId) {
    if (!Tool || !material) return false;
    ErrorSilence quiet;
    const int run = QRV3DRSVExTool::splitRunItemId(runItemId).Run;
    HeldGroup materials(*Tool, Tool->OpenGroup(run, kCategoryMaterial));
    // A run without materials gets its group; the run group answers null below run 1, so a
    // material never lands outside a run.
    HeldGroup runGroup(*Tool, materials ? nullptr : Tool->OpenGroup(run));
    HeldGroup made(*Tool, runGroup ? Tool->CreateGroup(runGroup.get(), "Material") : nullptr);
    CRSVGroup* group = materials ? materials.get() : made.get();
    if (!group) return false;
    const long long number = static_cast<long long>(group->GetGroupCount()) + 1;

    // An added material ends the record that an earlier GetMaterial left here.
    QrvReleaseMaterial(Material);
    Material = material;
    Group = Tool->CreateGroup(group, numbered("Material ", number));
    AddMatInfo();
    for (const BlockItem& item : kBlockItems) {
        QrvMatParam& block = Material->*item.Block;
        AddMatData(item.ArrayName, block.Count, block.Para);
    }
    AddMatRawData(Material->VisRaw, kVisRawGroup);
    AddMatRawData(Material->PVTRaw, kPVTRawGroup);
    AddMTCData();
    Tool->CloseGroup(Group);
    AddDescription(label, runItemId);
    SetRunMatType(runItemId);
    Material = nullptr;
    return true;
}

int MATIO_RSVManipulator::GetMaterialCount() {
    if (!Tool) return 0;
    ErrorSilence quiet;
    // Always run 1, whatever run the materials were written to.
    HeldGroup materials(*Tool, Tool->OpenGroup(1, kCategoryMaterial));
    if (!materials) return 0;
    const size_t count = materials->GetGroupCount();
    return count > static_cast<size_t>(INT_MAX) ? INT_MAX : static_cast<int>(count);
}

QrvMaterial* MATIO_RSVManipulator::GetMaterial(int index) {
    if (!Tool) return nullptr;
    ErrorSilence quiet;
    HeldGroup materials(*Tool, Tool->OpenGroup(1, kCategoryMaterial));
    if (!materials) return nullptr;
    // Computed wide, so that the largest index names a group that is merely missing.
    Group =
        Tool->OpenGroup(materials.get(), numbered("Material ", static_cast<long long>(index) + 1));
    if (!Group) return nullptr;

    std::unique_ptr<QrvMaterial, void (*)(QrvMaterial*)> record(new QrvMaterial,
                                                                QrvReleaseMaterial);
    QrvInitMaterial(record.get());
    // A second call replaces the field without freeing: the earlier record is the caller's now.
    Material = record.release();
    GetMatInfo();
    for (const BlockItem& item : kBlockItems)
        GetMatData(item.ArrayName, &(Material->*item.Block));
    GetMatRawData(kVisRawGroup);
    GetMatRawData(kPVTRawGroup);
    GetMTCData();
    Tool->CloseGroup(Group);
    return Material;
}
