// Reading one material back from its run-file group.
#include <quorvalib/runfile.h>

#include <algorithm>
#include <string>
#include <vector>

#include "measured/mtc_list.h"
#include "record/material_internal.h"
#include "runfile/material_layout.h"
#include "runfile/store_access.h"

using namespace qrv::runfile;

void MATIO_RSVManipulator::GetMatInfo() {
    HeldTable table(*Tool, Tool->OpenTable(Group, "Summary"));
    for (const TextItem& item : kTextItems) {
        std::string text;
        readItem(table.get(), item.Key, &text);
        Material->*item.Field = qrv::newText(text.c_str());
    }
    for (const NumberItem& item : kNumberItems)
        readItem(table.get(), item.Key, &(Material->*item.Field));
    for (const BlockItem& item : kBlockItems)
        readItem(table.get(), item.ModelKey, &(Material->*item.Block).Model);
}

void MATIO_RSVManipulator::GetMatData(const char* name, QrvMatParam* block) {
    std::optional<DoubleArray> array = readDoubles(*Tool, Group, name);
    if (!array || array->Rows < 1) return;
    // The count is the column count; of a taller array only the first row is taken.
    block->Count = static_cast<int>(array->Columns);
    block->Para = new double[array->Columns];
    std::copy_n(array->Values.begin(), array->Columns, block->Para);
}

void MATIO_RSVManipulator::GetMatRawData(const char* name) {
    HeldGroup group(*Tool, Tool->OpenGroup(Group, name));
    if (!group) return;
    CQrvMatRawData* raw = nullptr;
    if (std::string(name) == kVisRawGroup)
        raw = Material->VisRaw = new CQrvViscosityData;
    else if (std::string(name) == kPVTRawGroup)
        raw = Material->PVTRaw = new CQrvPVTData;
    else
        return;
    {
        // Read, and then dropped: the object keeps its own defaults for these three.
        HeldTable summary(*Tool, Tool->OpenTable(group.get(), "Summary"));
        int source = 0;
        double fitError = 0.0;
        std::string standard;
        readItem(summary.get(), "Source", &source);
        readItem(summary.get(), "Fit Error", &fitError);
        readItem(summary.get(), "Measure Standard", &standard);
    }
    std::optional<DoubleArray> conditions = readDoubles(*Tool, group.get(), "Condition");
    if (!conditions || conditions->Rows < 1) return;
    for (size_t i = 0; i < conditions->Columns; ++i) {
        std::optional<DoubleArray> curve = readDoubles(
            *Tool, group.get(), numbered("Curve ", static_cast<long long>(i) + 1) + " XY");
        if (!curve || curve->Rows < 2) return;  // a damaged curve ends the family
        const double* x = curve->Values.data();
        raw->AddCurve(conditions->Values[i], static_cast<int>(curve->Columns), x,
                      x + curve->Columns);
    }
}

void MATIO_RSVManipulator::GetMTCData() {
    // The records are found by probing "MTC 1", "MTC 2", ... up to the first that is missing.
    for (long long k = 1;; ++k) {
        HeldGroup group(*Tool, Tool->OpenGroup(Group, numbered("MTC ", k)));
        if (!group) return;
        QRV_MTC record{0, 0, 0, nullptr, nullptr};
        {
            HeldTable summary(*Tool, Tool->OpenTable(group.get(), "Summary"));
            readItem(summary.get(), "Version", &record.Version);
            readItem(summary.get(), "Security Level", &record.SecurityLevel);
        }
        std::optional<DoubleArray> temperatures =
            readDoubles(*Tool, group.get(), "Interval Temperature");
        if (!temperatures || temperatures->Rows < 1) continue;
        std::vector<QrvMTCSection> sections(temperatures->Columns, QrvMTCSection{});
        bool complete = true;
        for (size_t s = 0; s < sections.size() && complete; ++s) {
            HeldGroup sectionGroup(
                *Tool,
                Tool->OpenGroup(group.get(), numbered("Section ", static_cast<long long>(s) + 1)));
            complete = static_cast<bool>(sectionGroup);
            if (!complete) break;
            QrvMTCSection& section = sections[s];
            HeldTable model(*Tool, Tool->OpenTable(sectionGroup.get(), "MTC Model"));
            readItem(model.get(), "Attribute", &section.Attribute);
            readItem(model.get(), "Model ID", &section.ModelId);
            readItem(model.get(), "Max Parameter num", &section.MaxParameterNum);
            std::optional<DoubleArray> parameters =
                readDoubles(*Tool, sectionGroup.get(), "Parameters");
            if (parameters && parameters->Rows >= 1)
                std::copy_n(parameters->Values.begin(),
                            std::min<size_t>(parameters->Columns, qrv::kMTCParameterSlots),
                            section.Parameters);
        }
        if (!complete) continue;  // a record with a missing section is left out
        record.SectionCount = static_cast<int>(sections.size());
        record.Sections = sections.data();
        record.IntervalTemperature = temperatures->Values.data();
        QrvAddMTCData(Material, &record, 1);  // copies the record
    }
}
