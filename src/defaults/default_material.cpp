// The default material generator: a record from model ids and the sample tables.
#include <algorithm>
#include <cstdio>
#include <memory>

#include <quorvalib/defaults.h>

#include "defaults/sample_tables.h"
#include "record/material_internal.h"

namespace {

using qrv::defaults::SampleRow;
using qrv::defaults::SampleTable;
using qrv::defaults::Values;

constexpr int kSampleSource = 1000;
constexpr int kThermosetFirstVisId = 10;
constexpr int kKineticsModel = 2;
constexpr int kKineticsCount = 7;
constexpr int kProcessTemperatureModel = 2;

// Buffer sizes of the generated texts; wider than their contents so that a caller may edit them.
constexpr int kPolymerSize = 24, kProducerSize = 48, kGradeNameSize = 96, kCommentSize = 192,
              kSourceSize = 24;

void fillBlock(QrvMatParam& block, int model, Values values) {
    double* para = qrv::allocateBlock(block, block.Source, model, static_cast<int>(values.size));
    std::copy_n(values.data, values.size, para);
}

// Fills block from the row of id; without a row the block keeps its zero state.
void fillFromTable(QrvMatParam& block, SampleTable table, int id) {
    if (const SampleRow* row = qrv::defaults::findRow(table, id)) fillBlock(block, id, row->para);
}

void fillThermoplastic(QrvMaterial& m, int visId, int pvtId, bool crystalline, int cpId, int kId,
                       int fillerId) {
    namespace d = qrv::defaults;
    char comment[kCommentSize] = {};
    std::snprintf(comment, sizeof comment, "Vis=%d,PVT=%d,Cp=%d,K=%d,Filler=%d%s", visId, pvtId,
                  cpId, kId, fillerId, crystalline ? "(Crystalline)" : "(Amorphous)");
    m.Polymer = qrv::newText("Polymer", kPolymerSize);
    m.Comment = qrv::newText(comment, kCommentSize);

    fillFromTable(m.Vis, d::thermoplasticVis(), visId);
    fillFromTable(m.PVT, d::pvt(crystalline), pvtId);
    fillFromTable(m.Cp, d::heatCapacity(), cpId);
    fillFromTable(m.K, d::conductivity(), kId);
    m.Mech.Source = kSampleSource;
    m.Temp.Source = kSampleSource;
    fillFromTable(m.Mech, d::mechanical(), fillerId);
    fillBlock(m.Temp, kProcessTemperatureModel, d::processTemperatures());
}

// Only visId matters on this branch. An id above 13 has no sample: its blocks are allocated
// zeroed and Vis stays empty.
void fillThermoset(QrvMaterial& m, int visId) {
    char comment[kCommentSize] = {};
    std::snprintf(comment, sizeof comment, "Vis=%d", visId);
    m.Polymer = qrv::newText("EMC", kPolymerSize);
    m.Comment = qrv::newText(comment, kCommentSize);

    const qrv::defaults::ThermosetSample* sample = qrv::defaults::findThermoset(visId);
    if (sample) fillBlock(m.Vis, visId, sample->vis);
    const double pvt[] = {sample ? sample->pvt : 0.0};
    const double cp[] = {sample ? sample->cp : 0.0};
    const double k[] = {sample ? sample->k : 0.0};
    fillBlock(m.PVT, 1, pvt);
    fillBlock(m.Cp, 1, cp);
    fillBlock(m.K, 1, k);
    m.KN.Source = kSampleSource;
    static constexpr double kNoKinetics[kKineticsCount] = {};
    fillBlock(m.KN, kKineticsModel, sample ? sample->kinetics : Values(kNoKinetics));
}

}  // namespace

QrvMaterial* QrvGetDefaultMaterial(int visId, int pvtId, bool crystalline, int cpId, int kId,
                                   int fillerId) {
    // Released again if an allocation fails half-way.
    std::unique_ptr<QrvMaterial, void (*)(QrvMaterial*)> m(new QrvMaterial, QrvReleaseMaterial);
    QrvInitMaterial(m.get());
    m->FileVer = 7101;
    m->LastEditDate = 20041215;
    m->MeasureDate = 20041215;
    m->FileType = QRV_TYPE_THERMOPLASTIC;  // also for a thermoset: the generator never set 2
    for (QrvMatParam* block : {&m->Vis, &m->PVT, &m->Cp, &m->K})
        block->Source = kSampleSource;
    m->Producer = qrv::newText("Quorvane", kProducerSize);
    m->GradeName = qrv::newText("Default", kGradeNameSize);
    m->Source = qrv::newText("Default", kSourceSize);

    if (visId >= kThermosetFirstVisId) {
        fillThermoset(*m, visId);
    } else {
        fillThermoplastic(*m, visId, pvtId, crystalline, cpId, kId, fillerId);
    }
    return m.release();
}
