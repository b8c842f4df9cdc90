// MATIO_Manipulator calls, one line each: each thread works on a manipulator of its own.
#include "threads/call_table.h"

namespace threads_test {

namespace {

using M = MATIO_Manipulator;

template <double (M::*F)()>
std::string value(M& m, const Point&) {
    return bits((m.*F)());
}
template <int (M::*F)()>
std::string integer(M& m, const Point&) {
    return std::to_string((m.*F)());
}
template <bool (M::*F)()>
std::string flag(M& m, const Point&) {
    return (m.*F)() ? "true" : "false";
}
template <const char* (M::*F)()>
std::string words(M& m, const Point&) {
    return text((m.*F)());
}

}  // namespace

const std::vector<ManipulatorCall>& manipulatorCalls() {
    static const std::vector<ManipulatorCall> all = {
        {"GetViscosity",
         [](M& m, const Point& p) {
             return bits(m.GetViscosity(p.shearRate, p.temperature, p.pressure, p.conversion));
         }},
        {"GetSpecificVolume",
         [](M& m, const Point& p) { return bits(m.GetSpecificVolume(p.pressure, p.temperature)); }},
        {"GetDensity",
         [](M& m, const Point& p) {
             return bits(m.GetDensity(p.pressure, p.temperature, p.conversion));
         }},
        {"GetHeatCapacity",
         [](M& m, const Point& p) { return bits(m.GetHeatCapacity(p.temperature)); }},
        {"GetThermalConductivity",
         [](M& m, const Point& p) { return bits(m.GetThermalConductivity(p.temperature)); }},
        {"GetConversion",
         [](M& m, const Point& p) {
             return bits(m.GetConversion(p.temperature, p.heatingRate, p.conversion));
         }},
        {"GetNoFlowTemperature", value<&M::GetNoFlowTemperature>},
        {"GetLinearShrinkage", value<&M::GetLinearShrinkage>},
        {"GetElasticModulus", value<&M::GetElasticModulus>},
        {"GetFiberPercent", value<&M::GetFiberPercent>},
        {"HasFiller", flag<&M::HasFiller>},
        {"GetFiberType", words<&M::GetFiberType>},
        {"GetMeltTempMax", value<&M::GetMeltTempMax>},
        {"GetFreezeTemp", value<&M::GetFreezeTemp>},
        {"IsRIM", flag<&M::IsRIM>},
        {"GetFileVer", integer<&M::GetFileVer>},
        {"GetPolymer", words<&M::GetPolymer>},
        {"GetMaterialType", words<&M::GetMaterialType>},
        {"GetMFIString", words<&M::GetMFIString>},
        {"GetVisModelName", words<&M::GetVisModelName>},
        {"GetPVTModelName", words<&M::GetPVTModelName>},
        {"GetMechModelName", words<&M::GetMechModelName>},
        {"GetConvModelName", words<&M::GetConvModelName>},
        {"GetCrystallinityName", words<&M::GetCrystallinityName>},
        {"GetContent", words<&M::GetContent>},
        {"GetDefaultMaterial",
         [](M& m, const Point& p) {
             // Replaces the object's own record: allowed, since no other thread uses the object.
             const int id = p.index < 0 ? 10 : p.index % 6;
             const bool made = m.GetDefaultMaterial(id, 5, false, 2, 2, 1);
             return std::string(made ? "true " : "false ") + text(m.GetVisModelName()) +
                    bits(m.GetViscosity(100.0, 220.0, 0.0, 0.0));
         }},
    };
    return all;
}

}  // namespace threads_test
