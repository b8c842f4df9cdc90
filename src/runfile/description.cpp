// Description rows, run type and mesh attribute of a material added to a run.
#include "runfile/description.h"

#include <quorvalib/properties.h>
#include <quorvalib/runfile.h>
#include <quorvalib/vocabulary.h>

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <functional>

#include "rsv/error_silence.h"
#include "rsv/run_vocabulary.h"
#include "runfile/store_access.h"

namespace qrv::runfile {

namespace {

using QRV3DRSVExTool::CRSVTool;

std::string text(const char* value) {
    return value ? value : "";
}

std::string number(double value) {
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%lg", value);
    return buffer;
}

std::string range(double low, double high) {
    return number(low) + " - " + number(high);
}

// Which materials have a row.
enum Holders { kAll, kPolymers, kThermosetOnly };

struct RowSource {
    int Id;
    Holders For;
    std::function<std::string(QrvMaterial*, const char*)> Text;
};

const std::vector<RowSource>& rowSources() {
    static const std::vector<RowSource> sources = {
        {0, kAll, [](QrvMaterial* m, const char*) { return text(m->Polymer); }},
        {1, kAll, [](QrvMaterial* m, const char*) { return materialName(m); }},
        {2, kAll, [](QrvMaterial*, const char* label) { return text(label); }},
        {3, kAll, [](QrvMaterial* m, const char*) { return text(QrvGetMaterialType(m)); }},
        {4, kAll, [](QrvMaterial* m, const char*) { return text(m->Polymer); }},
        {5, kAll, [](QrvMaterial* m, const char*) { return text(m->Producer); }},
        {6, kAll, [](QrvMaterial* m, const char*) { return text(m->GradeName); }},
        {7, kPolymers, [](QrvMaterial* m, const char*) { return text(QrvGetMFIString(m)); }},
        {8, kPolymers, [](QrvMaterial* m, const char*) { return number(QrvGetFiberPercent(m)); }},
        {9, kPolymers, [](QrvMaterial* m, const char*) { return text(QrvGetVisModelName(m)); }},
        {10, kPolymers, [](QrvMaterial* m, const char*) { return text(QrvGetPVTModelName(m)); }},
        {11, kAll, [](QrvMaterial* m, const char*) { return text(QrvGetCpModelName(m)); }},
        {12, kAll, [](QrvMaterial* m, const char*) { return text(QrvGetKModelName(m)); }},
        {13, kPolymers, [](QrvMaterial* m, const char*) { return text(QrvGetMechModelName(m)); }},
        {14, kThermosetOnly,
         [](QrvMaterial* m, const char*) { return text(QrvGetMechModelName(m)); }},
        {15, kPolymers,
         [](QrvMaterial* m, const char*) {
             return range(QrvGetMeltTempMin(m), QrvGetMeltTempMax(m));
         }},
        {16, kPolymers,
         [](QrvMaterial* m, const char*) {
             return range(QrvGetMoldTempMin(m), QrvGetMoldTempMax(m));
         }},
        {17, kPolymers, [](QrvMaterial* m, const char*) { return number(QrvGetEjectTemp(m)); }},
        {18, kPolymers, [](QrvMaterial* m, const char*) { return number(QrvGetFreezeTemp(m)); }},
        {19, kPolymers, [](QrvMaterial* m, const char*) { return text(QrvGetVEModelName(m)); }},
        {20, kPolymers,
         [](QrvMaterial* m, const char*) {
             return std::string(QrvHasOpticData(m) ? "YES" : "NO");
         }},
    };
    return sources;
}

bool holds(Holders holders, bool thermoplastic, bool thermoset) {
    switch (holders) {
        case kAll:
            return true;
        case kPolymers:
            return thermoplastic || thermoset;
        case kThermosetOnly:
            return thermoset;
    }
    return false;
}

}  // namespace

std::string materialName(QrvMaterial* material) {
    std::string name = text(material->Polymer) + "(" + text(material->Producer) + " " +
                       text(material->GradeName) + ")";
    if (QrvGetFiberPercent(material) > 0.0) name += "+Fiber";
    return name;
}

std::vector<std::pair<int, std::string>> descriptionRows(QrvMaterial* material, const char* label) {
    const bool thermoplastic = QrvIsThermoplastic(material);
    const bool thermoset = QrvIsThermoset(material);
    std::vector<std::pair<int, std::string>> rows;
    for (const RowSource& source : rowSources())
        if (holds(source.For, thermoplastic, thermoset))
            rows.emplace_back(source.Id, source.Text(material, label));
    return rows;
}

std::vector<char> descriptionBuffer(const std::vector<std::pair<int, std::string>>& rows) {
    std::vector<char> buffer(kDescriptionRows * kRowBytes, '\0');
    for (std::size_t r = 0; r < rows.size() && r < kDescriptionRows; ++r) {
        char* row = buffer.data() + r * kRowBytes;
        const std::int32_t id = rows[r].first;
        std::memcpy(row, &id, sizeof id);
        // The text is copied whole, on past its own row, but never past the buffer.
        const std::string& value = rows[r].second;
        const std::size_t room = buffer.size() - (r * kRowBytes + 4) - 1;
        const std::size_t length = std::min(value.size(), room);
        std::memcpy(row + 4, value.data(), length);
        row[4 + length] = '\0';
    }
    return buffer;
}

void writeDescription(CRSVTool& tool, QrvMaterial* material, const char* label, int runItemId) {
    const int type = tool.BeginCreateCompoundDataType(kRowBytes);
    if (type < 0) return;
    tool.AddCompoundDataTypeMember(type, "ID", QRV3DRSVExTool::kTypeInt32, 0);
    tool.AddCompoundDataTypeFixedLengthStringMember(type, "Value", 4, kValueBytes);
    tool.EndCreateCompoundDataType(type);

    const int run = QRV3DRSVExTool::splitRunItemId(runItemId).Run;
    HeldGroup category(tool, tool.OpenGroup(run, QRV3DRSVExTool::kCategoryDescription));
    if (!category) return;
    // Opened with the vocabulary's "Material/", created as "Material".
    CRSVGroup* opened = tool.OpenGroup(category.get(), QRV3DRSVExTool::kRunGroups[0]);
    HeldGroup group(tool, opened ? opened : tool.CreateGroup(category.get(), "Material"));
    if (!group) return;
    HeldArray array(
        tool, tool.CreateArray(group.get(),
                               numbered("Result", static_cast<long long>(group->GetArrayCount())),
                               type, kDescriptionRows, 1));
    if (!array) return;
    array->WriteArray(descriptionBuffer(descriptionRows(material, label)).data());
}

void writeRunMaterialType(CRSVTool& tool, QrvMaterial* material, int runItemId) {
    HeldGroup group(tool, tool.OpenGroup(QRV3DRSVExTool::splitRunItemId(runItemId).Run));
    if (!group) return;
    const int type = QrvIsThermoplastic(material) ? 0 : QrvIsThermoset(material) ? 1 : -1;
    tool.WriteAttribute(group.get(), "Material Type", type);
}

void writeMeshMaterialAttribute(CRSVTool& tool, QrvMaterial* material, int runItemId) {
    const QRV3DRSVExTool::RunItem item = QRV3DRSVExTool::splitRunItemId(runItemId);
    std::string entity;
    if (item.ItemClass == QRV3DRSVExTool::kItemPlastic)
        entity = "Plastic\\Child0";
    else if (item.ItemClass == QRV3DRSVExTool::kItemPartInsert)
        entity = numbered("PartInsert\\Child", item.Child);
    else
        return;
    HeldGroup category(tool, tool.OpenGroup(item.Run, QRV3DRSVExTool::kCategoryEntity));
    HeldGroup child(tool, tool.OpenGroup(category.get(), entity));
    if (!child) return;
    tool.WriteAttribute(child.get(), "Material", materialName(material).substr(0, 255).c_str());
}

}  // namespace qrv::runfile

// The three private operations of the manipulator; each needs the record that AddMaterial is
// working on.
void MATIO_RSVManipulator::AddDescription(const char* label, int runItemId) {
    QRV3DRSVExTool::ErrorSilence quiet;  // a lookup that misses is an answer, not an error to print
    if (Tool && Material) qrv::runfile::writeDescription(*Tool, Material, label, runItemId);
}

void MATIO_RSVManipulator::SetRunMatType(int runItemId) {
    QRV3DRSVExTool::ErrorSilence quiet;  // a lookup that misses is an answer, not an error to print
    if (Tool && Material) qrv::runfile::writeRunMaterialType(*Tool, Material, runItemId);
}

void MATIO_RSVManipulator::SetMeshMatAttrib(int runItemId) {
    QRV3DRSVExTool::ErrorSilence quiet;  // a lookup that misses is an answer, not an error to print
    if (Tool && Material) qrv::runfile::writeMeshMaterialAttribute(*Tool, Material, runItemId);
}
