// The C++ side of the binding tests: asks the library the same questions as the Python tests,
// through its public header only, and prints the answers as JSON for them to compare.
//
//   python_reference material <path>           the record of a material file
//   python_reference generate v p c cp k f     a default material
//   python_reference bank <path>               every entry of a bank, taken out
//   python_reference report <path> <module> <unit system> <install folder>
//   python_reference metals <system root> <user root>
#include <quorvalib/quorvalib.h>

#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

using nlohmann::json;

namespace {

using RecordPtr = std::unique_ptr<QrvMaterial, void (*)(QrvMaterial*)>;

const double kShearRates[] = {1.0, 10.0, 100.0, 1000.0, 10000.0};
const double kTemperatures[] = {25.0, 180.0, 200.0, 230.0, 260.0};
const double kPressures[] = {0.0, 1.0e8, 5.0e8};

json textOf(const char* text) {
    return text ? json(text) : json(nullptr);
}

json blockOf(const QrvMatParam& block) {
    json values = json::array();
    for (int i = 0; block.Para && i < block.Count; ++i)
        values.push_back(block.Para[i]);
    return {{"source", block.Source}, {"model", block.Model}, {"values", values}};
}

// The value or null where the library gives its miss value.
json missable(double value) {
    return value == -1.0 ? json(nullptr) : json(value);
}

json dump(QrvMaterial* m) {
    json out;
    out["file_type"] = QrvGetFileType(m);
    out["version"] = QrvGetFileVer(m);
    out["last_edit_date"] = QrvGetLastEditDate(m);
    out["measure_date"] = QrvGetMeasureDate(m);
    out["polymer"] = textOf(QrvGetPolymer(m));
    out["producer"] = textOf(QrvGetProducer(m));
    out["grade_name"] = textOf(QrvGetGradeName(m));
    out["comment"] = textOf(QrvGetComment(m));
    out["source"] = textOf(QrvGetSource(m));
    out["type"] = QrvGetMaterialType(m);
    out["mfi"] = QrvGetMFIString(m);
    out["is_thermoset"] = QrvIsThermoset(m);
    out["is_metal"] = QrvIsMetal(m);
    const char* content = QrvGetContent(m, QrvIsRIM(m));
    out["content"] = textOf(content);
    const std::pair<const char*, QrvMatParam QrvMaterial::*> blocks[] = {
        {"Vis", &QrvMaterial::Vis},   {"PVT", &QrvMaterial::PVT},   {"Cp", &QrvMaterial::Cp},
        {"K", &QrvMaterial::K},       {"EM", &QrvMaterial::EM},     {"PR", &QrvMaterial::PR},
        {"CLTE", &QrvMaterial::CLTE}, {"Temp", &QrvMaterial::Temp}, {"KN", &QrvMaterial::KN},
        {"Mech", &QrvMaterial::Mech}, {"VE", &QrvMaterial::VE},     {"OP", &QrvMaterial::OP},
        {"SI", &QrvMaterial::SI},     {"CR", &QrvMaterial::CR},     {"PW", &QrvMaterial::PW}};
    for (const auto& [name, member] : blocks)
        out["blocks"][name] = blockOf(m->*member);

    out["model_names"] = {{"Vis", QrvGetVisModelName(m)}};
    out["model_names"]["PVT"] = QrvGetPVTModelName(m);
    out["model_names"]["Cp"] = QrvGetCpModelName(m);
    out["model_names"]["K"] = QrvGetKModelName(m);
    out["model_names"]["KN"] = QrvGetConvModelName(m);
    out["model_names"]["Mech"] = QrvGetMechModelName(m);
    out["model_names"]["VE"] = QrvGetVEModelName(m);
    out["model_names"]["CR"] = QrvGetCrystallinityModelName(m);
    json vis = json::array(), pvt = json::array();
    for (int i = 0; i < m->Vis.Count; ++i)
        vis.push_back(QrvGetVisParaName(m, i));
    for (int i = 0; i < m->PVT.Count; ++i)
        pvt.push_back(QrvGetPVTParaName(m, i));
    out["parameter_names"] = {{"Vis", vis}, {"PVT", pvt}};

    out["values"] = {{"no_flow_temperature", missable(QrvGetNoFlowTemperature(m))},
                     {"melt_temp_min", missable(QrvGetMeltTempMin(m))},
                     {"mold_temp_max", missable(QrvGetMoldTempMax(m))},
                     {"freeze_temp", missable(QrvGetFreezeTemp(m))},
                     {"elastic_modulus", missable(QrvGetElasticModulus(m))},
                     {"fiber_percent", QrvGetFiberPercent(m)},
                     {"filler_type", QrvGetFillerType(m)},
                     {"fiber_type", QrvGetFiberType(m)},
                     {"nonplastic_k", missable(QrvGetNonPlastic_K(m))},
                     {"nonplastic_density", missable(QrvGetNonPlastic_Density(m))}};

    // Property grids: viscosity[shear rate][temperature] at 0 and 1e8 dyne/cm^2, volume and
    // density[pressure][temperature], heat capacity and conductivity[temperature].
    json viscosity = json::array(), volume = json::array(), density = json::array();
    for (double p : {0.0, 1.0e8}) {
        json plane = json::array();
        for (double g : kShearRates) {
            json row = json::array();
            for (double t : kTemperatures)
                row.push_back(QrvGetViscosity(m, g, t, p, 0.0));
            plane.push_back(row);
        }
        viscosity.push_back(plane);
    }
    for (double p : kPressures) {
        json v = json::array(), d = json::array();
        for (double t : kTemperatures) {
            v.push_back(QrvGetSpecificVolume(m, p, t, 0.0));
            d.push_back(QrvGetDensity(m, p, t, 0.0));
        }
        volume.push_back(v);
        density.push_back(d);
    }
    json cp = json::array(), k = json::array();
    for (double t : kTemperatures) {
        cp.push_back(QrvGetHeatCapacity(m, t));
        k.push_back(QrvGetThermalConductivity(m, t));
    }
    // Cure conversion[heating rate][temperature] from 0.1, for a record with cure kinetics.
    json conversion = json::array();
    if (m->KN.Para && m->KN.Count >= 6) {
        for (double rate : {0.0, 5.0}) {
            json row = json::array();
            for (double t : kTemperatures)
                row.push_back(QrvGetConversion(m, t, rate, 0.1));
            conversion.push_back(row);
        }
    }
    out["grid"] = {{"viscosity", viscosity},    {"specific_volume", volume},
                   {"density", density},        {"heat_capacity", cp},
                   {"thermal_conductivity", k}, {"conversion", conversion}};
    return out;
}

int usage() {
    std::fprintf(stderr, "python_reference: see the head of reference.cpp\n");
    return 2;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2) return usage();
    const std::string command = argv[1];
    json out;
    if (command == "material" && argc == 3) {
        RecordPtr m(QrvGetMaterial(argv[2]), QrvReleaseMaterial);
        if (!m) return 1;
        out = dump(m.get());
    } else if (command == "generate" && argc == 8) {
        RecordPtr m(
            QrvGetDefaultMaterial(std::atoi(argv[2]), std::atoi(argv[3]), std::atoi(argv[4]) != 0,
                                  std::atoi(argv[5]), std::atoi(argv[6]), std::atoi(argv[7])),
            QrvReleaseMaterial);
        out = dump(m.get());
    } else if (command == "bank" && argc == 3) {
        MATIO_BankManipulator bank;
        out = json::array();
        for (int index = 0;; ++index) {
            RecordPtr m(new QrvMaterial, QrvReleaseMaterial);
            m->FileType = m->FileVer = m->LastEditDate = m->MeasureDate = 0;
            const int code = bank.ExtractPlasticMaterialFromBank(argv[2], index, *m);
            if (code != 1 && code != -3) break;
            out.push_back(dump(m.get()));
        }
    } else if (command == "report" && argc == 6) {
        QRVSetReleaseVersionUnit(std::atoi(argv[4]));
        QRVSetInstallFolderPath(argv[5]);
        MATIO_Manipulator manipulator;
        if (!manipulator.GetMaterial(argv[2])) return 1;
        QRVFrmOut_StringStream stream;
        manipulator.GetLogString(argv[3], argv[2], stream);
        out = stream.str();
    } else if (command == "metals" && argc == 4) {
        MATIO_QrvNonPolyMat list;
        out = json::array();
        if (!list.GetMetalMatBank(argv[2], argv[3], false)) return 1;
        for (int i = 0; i < list.GetMatBankCount(); ++i)
            out.push_back({list.GetMatName(i), list.GetDensity(i), list.GetCp(i), list.GetK(i),
                           list.GetEM(i), list.GetPR(i), list.GetCLTE(i)});
    } else {
        return usage();
    }
    std::cout << out.dump() << "\n";
    return 0;
}
