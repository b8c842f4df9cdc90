// The flat calls on a shared record, one line each.
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <stdexcept>

#include "threads/call_table.h"

namespace threads_test {

std::string bits(double value) {
    std::uint64_t word;
    std::memcpy(&word, &value, sizeof word);
    char out[24];
    std::snprintf(out, sizeof out, "%016llx", static_cast<unsigned long long>(word));
    return out;
}

std::string text(const char* value) {
    return value ? std::string("\"") + value + "\"" : std::string("null");
}

const std::vector<Point>& points() {
    // Both sides of the two-domain transition, an isothermal and a heated cure step, and indices
    // before, inside and past the label tables.
    static const std::vector<Point> all = {
        {1000.0, 230.0, 0.0, 0.0, 0.0, 0},    {10.0, 120.0, 5e8, 0.3, 1.0, 2},
        {1e5, 300.0, 1e9, 0.6, 0.0, 5},       {0.1, 40.0, 2e8, 0.95, 5.0, 7},
        {5000.0, 175.0, 1.5e9, 0.1, 0.0, 16}, {1.0, 260.0, 3e8, 0.0, 2.0, -1}};
    return all;
}

namespace {

using Flat = QrvMaterial*;

template <double (*F)(Flat)>
std::string value(Flat m, const Point&) {
    return bits(F(m));
}
template <int (*F)(Flat)>
std::string integer(Flat m, const Point&) {
    return std::to_string(F(m));
}
template <bool (*F)(Flat)>
std::string flag(Flat m, const Point&) {
    return F(m) ? "true" : "false";
}
template <const char* (*F)(Flat)>
std::string words(Flat m, const Point&) {
    return text(F(m));
}

// A parameter name past a table hands back the thread's previous text: the call is made right
// after a known one, so the answer is fixed for the thread that makes it.
template <const char* (*F)(Flat, int)>
std::string paraName(Flat m, const Point& p) {
    const std::string before = text(QrvGetMaterialType(m));
    return before + "|" + text(F(m, p.index));
}
template <const char* (*F)(Flat, int, int&)>
std::string paraNameWithUnit(Flat m, const Point& p) {
    const std::string before = text(QrvGetMaterialType(m));
    int unitId = -7;
    const std::string name = text(F(m, p.index, unitId));
    return before + "|" + name + "|" + std::to_string(unitId);
}

template <int Which>
std::string constantModel(Flat m, const Point&) {
    return std::string(QrvIsConstantModel(m, Which) ? "true " : "false ") +
           bits(QrvGetConstantModelValue(m, Which));
}

std::string stressStrain(Flat m, const Point& p) {
    double stress = -3.0, strain = -4.0;
    try {
        QrvGetStressStrainData(m, p.index, stress, strain);
    } catch (const std::invalid_argument&) {
        return "invalid_argument";
    }
    return bits(stress) + " " + bits(strain);
}

std::string mtcData(Flat m, const Point& p) {
    int version = -1, count = -1;
    QrvGetMTCInfo(m, version, count);
    std::string out = std::to_string(version) + " " + std::to_string(count);
    try {
        const QRV_MTC* record = QrvGetMTCData(m, p.index);
        if (!record) return out + " null";
        out += " " + std::to_string(record->SectionCount);
        for (int s = 0; s < record->SectionCount; ++s) {
            const QrvMTCSection& section = record->Sections[s];
            out += " " + std::to_string(section.ModelId) + ":" + bits(section.Parameters[0]) + "@" +
                   bits(record->IntervalTemperature[s]);
        }
    } catch (const std::out_of_range& e) {
        out += std::string(" out_of_range ") + e.what();
    }
    return out;
}

std::string rawCurves(CQrvMatRawData* data, int index) {
    if (!data) return "none";
    std::string out = std::to_string(data->GetCurveCount()) + " " + bits(data->GetMaxX()) + " " +
                      bits(data->GetMinX()) + " " + bits(data->GetMaxY()) + " " +
                      bits(data->GetMinY()) + " " + std::to_string(data->GetDataSize());
    double condition = -1.0;
    int pointCount = -1;
    double* x = nullptr;
    double* y = nullptr;
    try {
        if (!data->GetCurve(index, condition, pointCount, x, y)) return out + " false";
    } catch (const std::out_of_range&) {
        return out + " out_of_range";
    }
    out += " " + bits(condition) + " " + bits(data->GetCondition(index));
    for (int i = 0; i < pointCount; ++i)
        out += " " + bits(x[i]) + ":" + bits(y[i]);
    return out;
}

// The batch calls take every point of the table in one call; their answer is the count written
// and the bits of each result.
struct PointColumns {
    std::vector<double> shearRate, temperature, pressure, conversion;
    PointColumns() {
        for (const Point& p : points()) {
            shearRate.push_back(p.shearRate);
            temperature.push_back(p.temperature);
            pressure.push_back(p.pressure);
            conversion.push_back(p.conversion);
        }
    }
    int count() const { return static_cast<int>(shearRate.size()); }
};

std::string batchResult(int written, const std::vector<double>& out) {
    std::string text = std::to_string(written);
    for (double value : out)
        text += " " + bits(value);
    return text;
}

using ViscosityBatch = int (*)(Flat, int, const double*, const double*, const double*,
                               const double*, double*);
using VolumeBatch = int (*)(Flat, int, const double*, const double*, const double*, double*);
using TableBatch = int (*)(Flat, int, const double*, double*);

template <ViscosityBatch F>
std::string viscosityBatch(Flat m, const Point&) {
    const PointColumns c;
    std::vector<double> out(c.count(), -7.0);
    return batchResult(F(m, c.count(), c.shearRate.data(), c.temperature.data(), c.pressure.data(),
                         c.conversion.data(), out.data()),
                       out);
}
template <VolumeBatch F>
std::string volumeBatch(Flat m, const Point&) {
    const PointColumns c;
    std::vector<double> out(c.count(), -7.0);
    return batchResult(
        F(m, c.count(), c.pressure.data(), c.temperature.data(), c.conversion.data(), out.data()),
        out);
}
template <TableBatch F>
std::string tableBatch(Flat m, const Point&) {
    const PointColumns c;
    std::vector<double> out(c.count(), -7.0);
    return batchResult(F(m, c.count(), c.temperature.data(), out.data()), out);
}

}  // namespace

const std::vector<RecordCall>& recordCalls() {
    static const std::vector<RecordCall> all = {
        // field readers and type tests
        {"QrvGetFileVer", integer<QrvGetFileVer>},
        {"QrvGetFileType", integer<QrvGetFileType>},
        {"QrvGetLastEditDate", integer<QrvGetLastEditDate>},
        {"QrvGetMeasureDate", integer<QrvGetMeasureDate>},
        {"QrvGetPolymer", words<QrvGetPolymer>},
        {"QrvGetProducer", words<QrvGetProducer>},
        {"QrvGetGradeName", words<QrvGetGradeName>},
        {"QrvGetComment", words<QrvGetComment>},
        {"QrvGetSource", words<QrvGetSource>},
        {"QrvIsThermoplastic", flag<QrvIsThermoplastic>},
        {"QrvIsRIM", flag<QrvIsRIM>},
        {"QrvIsThermoset", flag<QrvIsThermoset>},
        {"QrvIsMetal", flag<QrvIsMetal>},
        {"QrvIsCoolant", flag<QrvIsCoolant>},
        {"QrvIsIC_Chip", flag<QrvIsIC_Chip>},
        {"QrvIsIC_LeadFrame", flag<QrvIsIC_LeadFrame>},
        {"QrvIsIC_Substrate", flag<QrvIsIC_Substrate>},
        {"QrvIsIC_Wire", flag<QrvIsIC_Wire>},
        // batch evaluators, every point in one call
        {"QrvGetViscosityN", viscosityBatch<QrvGetViscosityN>},
        {"QrvGetViscosityNFast", viscosityBatch<QrvGetViscosityNFast>},
        {"QrvGetSpecificVolumeN", volumeBatch<QrvGetSpecificVolumeN>},
        {"QrvGetSpecificVolumeNFast", volumeBatch<QrvGetSpecificVolumeNFast>},
        {"QrvGetDensityN", volumeBatch<QrvGetDensityN>},
        {"QrvGetDensityNFast", volumeBatch<QrvGetDensityNFast>},
        {"QrvGetHeatCapacityN", tableBatch<QrvGetHeatCapacityN>},
        {"QrvGetHeatCapacityNFast", tableBatch<QrvGetHeatCapacityNFast>},
        {"QrvGetThermalConductivityN", tableBatch<QrvGetThermalConductivityN>},
        {"QrvGetThermalConductivityNFast", tableBatch<QrvGetThermalConductivityNFast>},
        // evaluators
        {"QrvGetViscosity",
         [](Flat m, const Point& p) {
             return bits(QrvGetViscosity(m, p.shearRate, p.temperature, p.pressure, p.conversion));
         }},
        {"QrvGetSpecificVolume",
         [](Flat m, const Point& p) {
             return bits(QrvGetSpecificVolume(m, p.pressure, p.temperature, p.conversion));
         }},
        {"QrvGetDensity",
         [](Flat m, const Point& p) {
             return bits(QrvGetDensity(m, p.pressure, p.temperature, p.conversion));
         }},
        {"QrvGetHeatCapacity",
         [](Flat m, const Point& p) { return bits(QrvGetHeatCapacity(m, p.temperature)); }},
        {"QrvGetThermalConductivity",
         [](Flat m, const Point& p) { return bits(QrvGetThermalConductivity(m, p.temperature)); }},
        {"QrvGetConversion",
         [](Flat m, const Point& p) {
             return bits(QrvGetConversion(m, p.temperature, p.heatingRate, p.conversion));
         }},
        {"QrvGetNoFlowTemperature", value<QrvGetNoFlowTemperature>},
        {"QrvGetNonPlastic_Cp", value<QrvGetNonPlastic_Cp>},
        {"QrvGetNonPlastic_K", value<QrvGetNonPlastic_K>},
        {"QrvGetNonPlastic_PR", value<QrvGetNonPlastic_PR>},
        {"QrvGetNonPlastic_EM", value<QrvGetNonPlastic_EM>},
        {"QrvGetNonPlastic_CLTE", value<QrvGetNonPlastic_CLTE>},
        {"QrvGetNonPlastic_Density", value<QrvGetNonPlastic_Density>},
        // value getters
        {"QrvHasViscoelasticData", flag<QrvHasViscoelasticData>},
        {"QrvHasOpticData", flag<QrvHasOpticData>},
        {"QrvHasCrystallinityData", flag<QrvHasCrystallinityData>},
        {"QrvThermosetHasMech", flag<QrvThermosetHasMech>},
        {"QrvThermosetHasScorchIndex", flag<QrvThermosetHasScorchIndex>},
        {"QrvHasStressStrainData", flag<QrvHasStressStrainData>},
        {"QrvIsConstantModel QrvGetConstantModelValue 1", constantModel<1>},
        {"QrvIsConstantModel QrvGetConstantModelValue 2", constantModel<2>},
        {"QrvIsConstantModel QrvGetConstantModelValue 3", constantModel<3>},
        {"QrvIsConstantModel QrvGetConstantModelValue 4", constantModel<4>},
        {"QrvGetElasticModulus", value<QrvGetElasticModulus>},
        {"QrvGetCLTEa1_Melt", value<QrvGetCLTEa1_Melt>},
        {"QrvGetCLTEa1_Solid", value<QrvGetCLTEa1_Solid>},
        {"QrvGetCLTEa2_Melt", value<QrvGetCLTEa2_Melt>},
        {"QrvGetCLTEa2_Solid", value<QrvGetCLTEa2_Solid>},
        {"QrvGetFiberPercent", value<QrvGetFiberPercent>},
        {"QrvGetFillerPercent", value<QrvGetFillerPercent>},
        {"QrvGetFiberAspectRatio", value<QrvGetFiberAspectRatio>},
        {"QrvGetFillerType", integer<QrvGetFillerType>},
        {"QrvGetFillerAspectRatio", value<QrvGetFillerAspectRatio>},
        {"QrvGetFiberType", words<QrvGetFiberType>},
        {"QrvGetLinearShrinkage", value<QrvGetLinearShrinkage>},
        {"QrvGetMeltTempMin", value<QrvGetMeltTempMin>},
        {"QrvGetMeltTempMax", value<QrvGetMeltTempMax>},
        {"QrvGetMoldTempMin", value<QrvGetMoldTempMin>},
        {"QrvGetMoldTempMax", value<QrvGetMoldTempMax>},
        {"QrvGetEjectTemp", value<QrvGetEjectTemp>},
        {"QrvGetFreezeTemp", value<QrvGetFreezeTemp>},
        {"QrvGetStressStrainSet", integer<QrvGetStressStrainSet>},
        {"QrvGetStressStrainData", stressStrain},
        // measured data carried by the record
        {"QrvGetMTCInfo QrvGetMTCData", mtcData},
        {"CQrvViscosityData readers",
         [](Flat m, const Point& p) { return rawCurves(m->VisRaw, p.index); }},
        {"CQrvPVTData readers",
         [](Flat m, const Point& p) { return rawCurves(m->PVTRaw, p.index); }},
        // names: each thread has its own name text
        {"QrvGetMaterialType", words<QrvGetMaterialType>},
        {"QrvGetMFIString", words<QrvGetMFIString>},
        {"QrvGetVisModelName", words<QrvGetVisModelName>},
        {"QrvGetPVTModelName", words<QrvGetPVTModelName>},
        {"QrvGetCpModelName", words<QrvGetCpModelName>},
        {"QrvGetKModelName", words<QrvGetKModelName>},
        {"QrvGetConvModelName", words<QrvGetConvModelName>},
        {"QrvGetMechModelName", words<QrvGetMechModelName>},
        {"QrvGetVEModelName", words<QrvGetVEModelName>},
        {"QrvGetCrystallinityModelName", words<QrvGetCrystallinityModelName>},
        {"QrvGetVisParaName", paraName<QrvGetVisParaName>},
        {"QrvGetPVTParaName", paraName<QrvGetPVTParaName>},
        {"QrvGetConvParaName", paraName<QrvGetConvParaName>},
        {"QrvGetMechParaName", paraName<QrvGetMechParaName>},
        {"QrvGetVEParaName", paraNameWithUnit<QrvGetVEParaName>},
        {"QrvGetCrystallinityParaName", paraNameWithUnit<QrvGetCrystallinityParaName>},
        {"QrvGetContent thermoplastic",
         [](Flat m, const Point&) { return text(QrvGetContent(m, false)); }},
        {"QrvGetContent thermoset",
         [](Flat m, const Point&) { return text(QrvGetContent(m, true)); }},
        // calls that need no record: generation and the version calls
        {"QrvGetDefaultMaterial QrvReleaseMaterial",
         [](Flat, const Point& p) {
             const int id = p.index < 0 ? 13 : p.index % 14;
             QrvMaterial* made =
                 QrvGetDefaultMaterial(id, id % 8, id % 2 == 0, id % 5, id % 4, id % 8);
             std::string out = text(QrvGetContent(made, id >= 10)) +
                               bits(QrvGetViscosity(made, 100.0, 220.0, 0.0, 0.0));
             QrvReleaseMaterial(made);
             return out;
         }},
        {"QrvIsRIM path",
         [](Flat, const Point& p) {
             static const char* const kNames[] = {"a.mtx", "A.MTXBAK",      "mtxdata",
                                                  "m.tx",  "dir.mtx/a.mtr", ""};
             return std::string(QrvIsRIM(kNames[(p.index + 6) % 6]) ? "true" : "false");
         }},
        {"GetDLLVersion InitQuorvaLib Get_Quorvalib_Dll_Ver",
         [](Flat, const Point&) {
             return std::to_string(GetDLLVersion()) + " " + std::to_string(InitQuorvaLib(0)) + " " +
                    std::to_string(Get_Quorvalib_Dll_Ver());
         }},
    };
    return all;
}

}  // namespace threads_test
