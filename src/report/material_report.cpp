// Building the report tree: general lines, one section per property block, the warnings, and
// the choice of sections by module.
#include "report/material_report.h"

#include <quorvalib/properties.h>
#include <quorvalib/registry.h>
#include <quorvalib/vocabulary.h>

#include <cstdio>
#include <string>
#include <utility>
#include <vector>

#include "report/report_units.h"
#include "report/thermoset_mech_labels.h"
#include "report/warnings.h"
#include "units/unit.h"

namespace qrv::report {
namespace {

constexpr int kTemperatureUnit = 1;
constexpr int kHeatCapacityUnit = 4;
constexpr int kConductivityUnit = 5;
constexpr int kFreezeTemperatureIndex = 7;
constexpr int kFolderBufferLength = 256;
constexpr const char* kProductKey = "QuorvaneR910";

template <typename... Args>
std::string format(const char* pattern, Args... args) {
    const int size = std::snprintf(nullptr, 0, pattern, args...);
    if (size <= 0) return {};
    std::vector<char> text(static_cast<std::size_t>(size) + 1);
    std::snprintf(text.data(), text.size(), pattern, args...);
    return std::string(text.data(), static_cast<std::size_t>(size));
}

// The values of a block that may be read: none when Para is null or Count not above 0.
int valueCount(const QrvMatParam& block) {
    return block.Para && block.Count > 0 ? block.Count : 0;
}

struct ParameterLine {
    std::string label;
    int unitId = 0;
    bool shown = true;
};

// The Mech lines shown: indices below limit, except those left out (-1: none).
struct MechLines {
    int limit;
    int leftOut[2];
};

// A thermoset shows the melt and solid expansion pairs partly.
MechLines thermosetMechLines(int model) {
    switch (model) {
        case 0:
            return {7, {5, -1}};
        case 1:
            return {9, {5, 7}};
        case 2:
            return {12, {5, 7}};
        default:
            return {15, {3, -1}};
    }
}

// Every other material type; a model outside 0 to 7 shows no parameter.
MechLines mechLines(int model) {
    constexpr int kLimits[] = {7, 7, 10, 14, 14, 14, 10, 9};
    const int limit = model >= 0 && model <= 7 ? kLimits[model] : 0;
    return {limit, {-1, -1}};
}

// Which sections a module prints, in order.
enum class Section {
    General,
    Viscosity,
    Pvt,
    Crystallinity,
    HeatCapacity,
    Conductivity,
    Mechanical,
    Viscoelasticity,
    Curing,
    Warnings
};

class ReportTree {
public:
    ReportTree(QrvMaterial& material, int unitSystem) : material_(material) {
        units_.SetSystem(unitSystem);
    }

    QRVFrmOut_PrintEntry* node(const std::string& label) {
        auto* entry = new QRVFrmOut_PrintEntry;
        deleter_.ManageEntry(entry);
        entry->SetLabel(label.c_str());
        return entry;
    }

    QRVFrmOut_PrintEntry* addLine(QRVFrmOut_PrintEntry* parent, const std::string& label,
                                  QRVFrmOut_Value* value) {
        deleter_.ManageValue(value);
        QRVFrmOut_PrintEntry* entry = node(label);
        entry->SelectValue(value);
        parent->AddSubPrintEntry(entry);
        return entry;
    }
    void addText(QRVFrmOut_PrintEntry* parent, const std::string& label, const char* text) {
        addLine(parent, label, new QRVFrmOut_String(text));
    }
    void addText(QRVFrmOut_PrintEntry* parent, const std::string& label, const std::string& text) {
        addText(parent, label, text.c_str());
    }

    // "%g %s": the value in display units and the unit's label.
    std::string display(double value, int unitId) {
        const std::string label = units_.GetLabel(unitId);
        return format("%g %s", units_.ConvertFromBase(value, unitId), label.c_str());
    }

    // A section with its model line; the name is copied before the next name call reuses it.
    QRVFrmOut_PrintEntry* section(const char* label, const char* modelLabel,
                                  const char* modelName) {
        QRVFrmOut_PrintEntry* entry = node(label);
        addText(entry, modelLabel, std::string(modelName ? modelName : ""));
        return entry;
    }

    // A line for each parameter of block below limit (its Count at most): line(i) gives the
    // label and unit id of parameter i, or that it is not shown.
    template <typename Line>
    void addParameters(QRVFrmOut_PrintEntry* entry, const QrvMatParam& block, int limit,
                       Line line) {
        for (int i = 0; i < valueCount(block) && i < limit; ++i) {
            const ParameterLine parameter = line(i);
            if (parameter.shown)
                addText(entry, parameter.label, display(block.Para[i], parameter.unitId));
        }
    }
    template <typename Line>
    void addParameters(QRVFrmOut_PrintEntry* entry, const QrvMatParam& block, Line line) {
        addParameters(entry, block, block.Count, line);
    }

    QRVFrmOut_PrintEntry* general(const char* materialFile);
    std::string freezeTemperature();
    QRVFrmOut_PrintEntry* viscosity();
    QRVFrmOut_PrintEntry* pvt();
    using NameWithUnit = const char* (*)(QrvMaterial*, int, int&);
    QRVFrmOut_PrintEntry* unitNamedSection(const char* label, const char* modelLabel,
                                           const char* modelName, const QrvMatParam& block,
                                           NameWithUnit nameOf);
    QRVFrmOut_PrintEntry* curve(const char* label, const char* modelLabel, QrvMatParam& block,
                                const char* modelName, const char* valueMark, int valueUnit);
    QRVFrmOut_PrintEntry* mechanical();
    QRVFrmOut_PrintEntry* curing();
    QRVFrmOut_PrintEntry* warnings();

private:
    QrvMaterial& material_;
    QRVFrmOut_Deleter deleter_;
    CQrvUnit units_;
};

QRVFrmOut_PrintEntry* ReportTree::general(const char* materialFile) {
    QRVFrmOut_PrintEntry* entry = node("General_Information");
    addText(entry, "Material File", materialFile);
    addLine(entry, "Material File Version", new QRVFrmOut_Integer(material_.FileVer));
    addText(entry, "Polymer Name", material_.Polymer);
    addText(entry, "Producer Name", material_.Producer);
    addText(entry, "Polymer Trade Name", material_.GradeName);
    const char* comment = material_.Comment;
    const bool noComment = !comment || comment[0] == '\0' || comment[1] == '\0';
    addText(entry, "Polymer Comment", noComment ? "None" : comment);
    return entry;
}

// Empty unless the material is a thermoplastic whose Temp block reaches the freeze temperature.
std::string ReportTree::freezeTemperature() {
    const QrvMatParam& temp = material_.Temp;
    if (material_.FileType != QRV_TYPE_THERMOPLASTIC || valueCount(temp) <= kFreezeTemperatureIndex)
        return {};
    return display(temp.Para[kFreezeTemperatureIndex], kTemperatureUnit);
}

QRVFrmOut_PrintEntry* ReportTree::viscosity() {
    QrvMaterial* material = &material_;
    QRVFrmOut_PrintEntry* entry =
        section("Viscosity", "Viscosity Model", QrvGetVisModelName(material));
    const bool thermoset = QrvIsRIM(material);
    addParameters(entry, material_.Vis, [&](int i) {
        return ParameterLine{QrvGetVisParaName(material, i),
                             viscosityUnitId(thermoset, material_.Vis.Model, i)};
    });
    return entry;
}

QRVFrmOut_PrintEntry* ReportTree::pvt() {
    QrvMaterial* material = &material_;
    QRVFrmOut_PrintEntry* entry = section("PVT", "PVT Model", QrvGetPVTModelName(material));
    addParameters(entry, material_.PVT, [&](int i) {
        return ParameterLine{QrvGetPVTParaName(material, i), pvtUnitId(material_.PVT.Model, i)};
    });
    return entry;
}

// The name calls of crystallinity and viscoelasticity tell the unit too; where they have no
// label they leave the unit as it was, as they leave the name.
QRVFrmOut_PrintEntry* ReportTree::unitNamedSection(const char* label, const char* modelLabel,
                                                   const char* modelName, const QrvMatParam& block,
                                                   NameWithUnit nameOf) {
    QRVFrmOut_PrintEntry* entry = section(label, modelLabel, modelName);
    int unitId = 0;
    addParameters(entry, block, [&](int i) {
        std::string name = nameOf(&material_, i, unitId);
        return ParameterLine{std::move(name), unitId};
    });
    return entry;
}

QRVFrmOut_PrintEntry* ReportTree::curing() {
    QrvMaterial* material = &material_;
    QRVFrmOut_PrintEntry* entry =
        section("Curing_Kinetics", "Curing Kinetics Model", QrvGetConvModelName(material));
    addParameters(entry, material_.KN, [&](int i) {
        return ParameterLine{QrvGetConvParaName(material, i), curingUnitId(material_.KN.Model, i)};
    });
    return entry;
}

// Heat capacity and conductivity blocks are shown as pairs of a value and its temperature,
// whatever their model.
QRVFrmOut_PrintEntry* ReportTree::curve(const char* label, const char* modelLabel,
                                        QrvMatParam& block, const char* modelName,
                                        const char* valueMark, int valueUnit) {
    const std::string name = modelName ? modelName : "";
    QRVFrmOut_PrintEntry* entry = section(label, modelLabel, name.c_str());
    addParameters(entry, block, [&](int i) {
        const bool isValue = i % 2 == 0;
        return ParameterLine{format("%s - (%s%d)", name.c_str(), isValue ? valueMark : "T", i / 2),
                             isValue ? valueUnit : kTemperatureUnit};
    });
    return entry;
}

// Lines with an empty label are left out, and so are the places a model does not show.
QRVFrmOut_PrintEntry* ReportTree::mechanical() {
    QrvMaterial* material = &material_;
    const QrvMatParam& mech = material_.Mech;
    QRVFrmOut_PrintEntry* entry =
        section("Polymer_Mechanical_Properties", "Mechanical Type", QrvGetMechModelName(material));
    const bool thermoset = material_.FileType == QRV_TYPE_THERMOSET;
    const MechLines rule = thermoset ? thermosetMechLines(mech.Model) : mechLines(mech.Model);
    addParameters(entry, mech, rule.limit, [&](int i) {
        if (i == rule.leftOut[0] || i == rule.leftOut[1]) return ParameterLine{{}, 0, false};
        std::string name =
            thermoset ? thermosetMechLabel(mech.Model, i) : QrvGetMechParaName(material, i);
        const bool shown = !name.empty();
        return ParameterLine{std::move(name), mechanicalUnitId(thermoset, mech.Model, i), shown};
    });
    return entry;
}

QRVFrmOut_PrintEntry* ReportTree::warnings() {
    QRVFrmOut_PrintEntry* entry = node("Checking_Polymer_Data_Warning");
    char folder[kFolderBufferLength] = {};
    if (!QRVGetInstallFolderPath(kProductKey, folder, kFolderBufferLength)) return entry;
    for (const WarningLine& line : splitWarnings(polymerDataWarnings(folder, &material_)))
        addText(entry, line.label, line.text);
    return entry;
}

// The sections of each module group, in the order they are attached.
std::vector<Section> sectionsOf(int module, bool thermosetMech) {
    switch (module) {
        case 1:
        case 2:
        case 11:
        case 15:
            return {Section::General,       Section::Viscosity,       Section::Pvt,
                    Section::Crystallinity, Section::HeatCapacity,    Section::Conductivity,
                    Section::Mechanical,    Section::Viscoelasticity, Section::Warnings};
        case 3:
        case 12:
            return {Section::General, Section::HeatCapacity, Section::Conductivity,
                    Section::Warnings};
        case 4:
        case 13:
            return {Section::General, Section::Mechanical, Section::Viscoelasticity,
                    Section::Warnings};
        case 5:
        case 6:
        case 14: {
            std::vector<Section> sections = {Section::General,      Section::Viscosity,
                                             Section::Pvt,          Section::Curing,
                                             Section::HeatCapacity, Section::Conductivity};
            if (thermosetMech) sections.push_back(Section::Mechanical);
            return sections;
        }
        default:
            return {};
    }
}

bool fillsFirstGroup(int module) {
    return module == 1 || module == 2 || module == 11 || module == 15;
}

}  // namespace

bool printMaterialReport(QrvMaterial* material, const char* moduleName, const char* materialFile,
                         QRVFrmOut_StringStream& stream) {
    if (!material) return false;
    int unitSystem = 0;
    if (!QRVGetReleaseVersionUnit(unitSystem)) unitSystem = 0;
    ReportTree tree(*material, unitSystem);

    // Every section is built whatever the module prints, the check included.
    QRVFrmOut_PrintEntry* general = tree.general(materialFile);
    QRVFrmOut_PrintEntry* built[] = {
        general,
        tree.viscosity(),
        tree.pvt(),
        tree.unitNamedSection("Crystallinity", "Crystallinity Model",
                              QrvGetCrystallinityModelName(material), material->CR,
                              QrvGetCrystallinityParaName),
        tree.curve("Heat_Capacity", "Heat Capacity Model", material->Cp,
                   QrvGetCpModelName(material), "Cp", kHeatCapacityUnit),
        tree.curve("Thermal_Conductivity", "Thermal Conductivity Model", material->K,
                   QrvGetKModelName(material), "K", kConductivityUnit),
        tree.mechanical(),
        tree.unitNamedSection("Viscoelasticity", "VE Model", QrvGetVEModelName(material),
                              material->VE, QrvGetVEParaName),
        tree.curing(),
        tree.warnings(),
    };

    const int module = QRVFrmOut_TranslateModuleName(moduleName);
    if (fillsFirstGroup(module))
        tree.addText(general, "Freeze Temperature", tree.freezeTemperature());
    QRVFrmOut_PrintEntry* root = tree.node("Material_Information");
    for (Section section : sectionsOf(module, QrvThermosetHasMech(material)))
        root->AddSubPrintEntry(built[static_cast<int>(section)]);
    return root->Print(0, stream) >= 0;
}

}  // namespace qrv::report
