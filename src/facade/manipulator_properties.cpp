// MATIO_Manipulator: the forwarders of the property evaluators and value queries.
#include <quorvalib/manipulator.h>
#include <quorvalib/properties.h>

namespace {

// The evaluators answer 0.0 for a missing record or block, where the flat functions say -1.0.
bool holdsParameters(const QrvMaterial* record, QrvMatParam QrvMaterial::*block) {
    return record && (record->*block).Para;
}

}  // namespace

double MATIO_Manipulator::GetSpecificVolume(double pressure, double temperature) {
    if (!holdsParameters(Record, &QrvMaterial::PVT)) return 0.0;
    return QrvGetSpecificVolume(Record, pressure, temperature, 0.0);
}
double MATIO_Manipulator::GetDensity(double pressure, double temperature, double) {
    if (!holdsParameters(Record, &QrvMaterial::PVT)) return 0.0;
    return QrvGetDensity(Record, pressure, temperature, 0.0);
}
double MATIO_Manipulator::GetHeatCapacity(double temperature) {
    if (!holdsParameters(Record, &QrvMaterial::Cp)) return 0.0;
    return QrvGetHeatCapacity(Record, temperature);
}
double MATIO_Manipulator::GetThermalConductivity(double temperature) {
    if (!holdsParameters(Record, &QrvMaterial::K)) return 0.0;
    return QrvGetThermalConductivity(Record, temperature);
}
double MATIO_Manipulator::GetConversion(double temperature, double heatingRate, double conversion) {
    if (!holdsParameters(Record, &QrvMaterial::KN)) return 0.0;
    return QrvGetConversion(Record, temperature, heatingRate, conversion);
}
double MATIO_Manipulator::GetNoFlowTemperature() {
    if (!holdsParameters(Record, &QrvMaterial::Temp)) return 0.0;
    return QrvGetNoFlowTemperature(Record);
}

bool MATIO_Manipulator::HasFiller() {
    return Record && QrvGetFillerPercent(Record) > 0.0;
}
const char* MATIO_Manipulator::GetFiberType() {
    if (!Record || isRIM) return nullptr;
    return QrvGetFiberType(Record);
}

bool MATIO_Manipulator::IsConstantModel(int which) {
    return QrvIsConstantModel(Record, which);
}
double MATIO_Manipulator::GetConstantModelValue(int which) {
    return QrvGetConstantModelValue(Record, which);
}
double MATIO_Manipulator::GetElasticModulus() {
    return QrvGetElasticModulus(Record);
}
double MATIO_Manipulator::GetFiberPercent() {
    return QrvGetFiberPercent(Record);
}
double MATIO_Manipulator::GetFiberAspectRatio() {
    return QrvGetFiberAspectRatio(Record);
}
double MATIO_Manipulator::GetLinearShrinkage() {
    return QrvGetLinearShrinkage(Record);
}
double MATIO_Manipulator::GetCLTEa1_Melt() {
    return QrvGetCLTEa1_Melt(Record);
}
double MATIO_Manipulator::GetCLTEa1_Solid() {
    return QrvGetCLTEa1_Solid(Record);
}
double MATIO_Manipulator::GetCLTEa2_Melt() {
    return QrvGetCLTEa2_Melt(Record);
}
double MATIO_Manipulator::GetCLTEa2_Solid() {
    return QrvGetCLTEa2_Solid(Record);
}
bool MATIO_Manipulator::HasViscoelasticData() {
    return QrvHasViscoelasticData(Record);
}
bool MATIO_Manipulator::HasOpticData() {
    return QrvHasOpticData(Record);
}
bool MATIO_Manipulator::HasCrystallinityData() {
    return QrvHasCrystallinityData(Record);
}
bool MATIO_Manipulator::ThermosetHasMech() {
    return QrvThermosetHasMech(Record);
}
bool MATIO_Manipulator::ThermosetHasScorchIndex() {
    return QrvThermosetHasScorchIndex(Record);
}
double MATIO_Manipulator::GetMoldTempMax() {
    return QrvGetMoldTempMax(Record);
}
double MATIO_Manipulator::GetMoldTempMin() {
    return QrvGetMoldTempMin(Record);
}
double MATIO_Manipulator::GetMeltTempMax() {
    return QrvGetMeltTempMax(Record);
}
double MATIO_Manipulator::GetMeltTempMin() {
    return QrvGetMeltTempMin(Record);
}
double MATIO_Manipulator::GetEjectTemp() {
    return QrvGetEjectTemp(Record);
}
double MATIO_Manipulator::GetFreezeTemp() {
    return QrvGetFreezeTemp(Record);
}
double MATIO_Manipulator::GetNonPlastic_Cp() {
    return QrvGetNonPlastic_Cp(Record);
}
double MATIO_Manipulator::GetNonPlastic_K() {
    return QrvGetNonPlastic_K(Record);
}
double MATIO_Manipulator::GetNonPlastic_PR() {
    return QrvGetNonPlastic_PR(Record);
}
double MATIO_Manipulator::GetNonPlastic_EM() {
    return QrvGetNonPlastic_EM(Record);
}
double MATIO_Manipulator::GetNonPlastic_CLTE() {
    return QrvGetNonPlastic_CLTE(Record);
}
double MATIO_Manipulator::GetNonPlastic_Density() {
    return QrvGetNonPlastic_Density(Record);
}
