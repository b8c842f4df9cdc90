// Writing one material into its run-file group.
#include <quorvalib/runfile.h>

#include <vector>

#include "measured/mtc_list.h"
#include "runfile/material_layout.h"
#include "runfile/store_access.h"

using namespace qrv::runfile;

namespace {

const char* orEmpty(const char* text) {
    return text ? text : "";
}

}  // namespace

void MATIO_RSVManipulator::AddMatInfo() {
    HeldTable table(*Tool, Tool->CreateTable(Group, "Summary"));
    if (!table) return;
    for (const TextItem& item : kTextItems)
        table->SetItem(item.Key, orEmpty(Material->*item.Field));
    for (const NumberItem& item : kNumberItems)
        table->SetItem(item.Key, Material->*item.Field);
    for (const BlockItem& item : kBlockItems)
        table->SetItem(item.ModelKey, (Material->*item.Block).Model);
}

void MATIO_RSVManipulator::AddMatData(const char* name, int count, double* values) {
    if (count <= 0 || !values) return;
    writeDoubles(*Tool, Group, name, 1, static_cast<size_t>(count), values);
}

void MATIO_RSVManipulator::AddMatRawData(CQrvMatRawData* raw, const char* name) {
    if (!raw || raw->GetCurveCount() < 1) return;
    HeldGroup group(*Tool, Tool->CreateGroup(Group, name));
    {
        HeldTable summary(*Tool, Tool->CreateTable(group.get(), "Summary"));
        if (summary) {
            summary->SetItem("Source", raw->GetSource());
            summary->SetItem("Fit Error", raw->GetFitError());
            summary->SetItem("Measure Standard", raw->GetMeasureStandard());
        }
    }
    const int curves = raw->GetCurveCount();
    std::vector<double> conditions;
    for (int i = 0; i < curves; ++i)
        conditions.push_back(raw->GetCondition(i));
    writeDoubles(*Tool, group.get(), "Condition", 1, conditions.size(), conditions.data());
    for (int i = 0; i < curves; ++i) {
        double condition = 0.0;
        int points = 0;
        double* x = nullptr;
        double* y = nullptr;
        raw->GetCurve(i, condition, points, x, y);
        // X values, then Y values: row 0 and row 1 of the array.
        std::vector<double> xy(x, x + points);
        xy.insert(xy.end(), y, y + points);
        writeDoubles(*Tool, group.get(), numbered("Curve ", i + 1) + " XY", 2,
                     static_cast<size_t>(points), xy.data());
    }
}

void MATIO_RSVManipulator::AddMTCData() {
    int version = 0;
    int count = 0;
    QrvGetMTCInfo(Material, version, count);  // the list's own version is not stored
    for (int k = 0; k < count; ++k) {
        const QRV_MTC& record = *QrvGetMTCData(Material, k);
        HeldGroup group(*Tool, Tool->CreateGroup(Group, numbered("MTC ", k + 1)));
        {
            HeldTable summary(*Tool, Tool->CreateTable(group.get(), "Summary"));
            if (summary) {
                summary->SetItem("Version", record.Version);
                summary->SetItem("Security Level", record.SecurityLevel);
            }
        }
        const int sections = record.SectionCount > 0 ? record.SectionCount : 0;
        writeDoubles(*Tool, group.get(), "Interval Temperature", 1, static_cast<size_t>(sections),
                     record.IntervalTemperature);
        for (int s = 0; s < sections; ++s) {
            const QrvMTCSection& section = record.Sections[s];
            HeldGroup sectionGroup(*Tool,
                                   Tool->CreateGroup(group.get(), numbered("Section ", s + 1)));
            {
                HeldTable model(*Tool, Tool->CreateTable(sectionGroup.get(), "MTC Model"));
                if (model) {
                    model->SetItem("Attribute", section.Attribute);
                    model->SetItem("Model ID", section.ModelId);
                    model->SetItem("Max Parameter num", section.MaxParameterNum);
                }
            }
            // The array holds the meaningful parameters: never more than the 21 a section has,
            // and none for a negative count.
            writeDoubles(*Tool, sectionGroup.get(), "Parameters", 1,
                         static_cast<size_t>(qrv::meaningfulParameters(section)),
                         section.Parameters);
        }
    }
}
