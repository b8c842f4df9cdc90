// A caller of the installed library: includes the one public header, links the shared object,
// and calls every exported function and class, checking answers that are known from the sample
// data of the generated materials. Exits non-zero on any wrong answer.
#include <quorvalib/quorvalib.h>

#include <sys/stat.h>
#include <unistd.h>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

namespace {

int failures = 0;

void check(bool ok, const char* what) {
    if (!ok) {
        std::fprintf(stderr, "consumer: %s\n", what);
        ++failures;
    }
}

bool same(const char* text, const char* expected) {
    return text && std::strcmp(text, expected) == 0;
}

double* values(std::initializer_list<double> list) {
    double* array = new double[list.size()];
    std::copy(list.begin(), list.end(), array);
    return array;
}

void setBlock(QrvMatParam& block, int model, std::initializer_list<double> list) {
    block.Source = 1000;
    block.Model = model;
    block.Count = static_cast<int>(list.size());
    block.Para = values(list);
}

char* text(const char* value) {
    char* copy = new char[std::strlen(value) + 1];
    std::strcpy(copy, value);
    return copy;
}

// A record of the caller's own making; QrvReleaseMaterial frees what it holds.
QrvMaterial* newRecord(int fileType) {
    QrvMaterial* material = new QrvMaterial;
    material->FileType = fileType;
    material->FileVer = 9007;
    material->LastEditDate = 20240101;
    material->MeasureDate = 20240102;
    return material;
}

double viscosityOfSample(double shearRate, double celsius) {
    // Modified Cross model 2 of the sample data, no pressure.
    const double n = 0.27845, taus = 876860.0, B = 1.1326e-06, Tb = 11642.0;
    const double eta0 = B * std::exp(Tb / (celsius + 273.15));
    return eta0 / (1 + std::pow(eta0 * shearRate / taus, 1 - n));
}

void recordAndValues() {
    QrvMaterial* m = QrvGetDefaultMaterial(4, 5, false, 3, 2, 1);
    check(m != nullptr, "no default material");
    check(QrvIsThermoplastic(m) && !QrvIsThermoset(m) && !QrvIsRIM(m), "thermoplastic type");
    check(!QrvIsMetal(m) && !QrvIsCoolant(m) && !QrvIsIC_Chip(m) && !QrvIsIC_LeadFrame(m) &&
              !QrvIsIC_Substrate(m) && !QrvIsIC_Wire(m),
          "other types");
    check(same(QrvGetMaterialType(m), "Thermoplastic"), "type text");
    check(QrvGetFileVer(m) == 7101 && QrvGetFileType(m) == 1, "versions");
    check(QrvGetLastEditDate(m) == 20041215 && QrvGetMeasureDate(m) == 20041215, "dates");
    check(same(QrvGetPolymer(m), "Polymer") && same(QrvGetProducer(m), "Quorvane") &&
              same(QrvGetGradeName(m), "Default") && same(QrvGetSource(m), "Default") &&
              same(QrvGetComment(m), "Vis=4,PVT=5,Cp=3,K=2,Filler=1(Amorphous)"),
          "texts");

    const double eta = QrvGetViscosity(m, 1000.0, 230.0, 0.0, 0.0);
    const double expected = viscosityOfSample(1000.0, 230.0);
    check(std::fabs(eta - expected) <= 1e-12 * expected, "viscosity");
    const double volume = QrvGetSpecificVolume(m, 1e8, 230.0, 0.0);
    check(volume > 0.5 && volume < 2.0, "specific volume");
    check(QrvGetDensity(m, 1e8, 230.0, 0.0) == 1.0 / volume, "density");
    check(QrvGetHeatCapacity(m, 55.0) == 14420000.0, "heat capacity");
    check(QrvGetThermalConductivity(m, 60.0) == 24000.0, "conductivity");
    check(std::fabs(QrvGetNoFlowTemperature(m) - (364.0 - 273.15)) < 1e-12, "no-flow");
    check(QrvGetMeltTempMin(m) == 200.0 && QrvGetMeltTempMax(m) == 250.0, "melt temperatures");
    check(QrvGetMoldTempMin(m) == 40.0 && QrvGetMoldTempMax(m) == 80.0, "mould temperatures");
    check(QrvGetEjectTemp(m) == 88.0 && QrvGetFreezeTemp(m) == 130.0, "eject and freeze");
    check(QrvGetConversion(m, 150.0, 0.0, 0.1) == 0.0, "conversion without a KN block");
    check(!QrvIsConstantModel(m, 1) && QrvGetConstantModelValue(m, 1) == -1.0, "constant");
    check(QrvGetElasticModulus(m) == 4.48e+10, "modulus");
    check(QrvGetCLTEa1_Melt(m) == -1.0 && QrvGetCLTEa1_Solid(m) == -1.0 &&
              QrvGetCLTEa2_Melt(m) == -1.0 && QrvGetCLTEa2_Solid(m) == -1.0,
          "thermoset expansions of a thermoplastic");
    check(QrvGetFiberPercent(m) == 0.0 && QrvGetFillerPercent(m) == 0.0 &&
              QrvGetFiberAspectRatio(m) == -1.0 && QrvGetFillerType(m) == 0 &&
              QrvGetFillerAspectRatio(m) == -1.0,
          "no filler");
    check(same(QrvGetFiberType(m), "Anisotropic pure polymer"), "fibre type");
    check(std::isfinite(QrvGetLinearShrinkage(m)), "shrinkage");
    check(!QrvHasViscoelasticData(m) && !QrvHasOpticData(m) && !QrvHasCrystallinityData(m) &&
              !QrvThermosetHasMech(m) && !QrvThermosetHasScorchIndex(m) &&
              !QrvHasStressStrainData(m) && QrvGetStressStrainSet(m) == 0,
          "blocks held");
    QrvReleaseMaterial(m);

    QrvMaterial* wire = newRecord(9);
    setBlock(wire->Mech, 0, {0.3, 0.3, 1e12, 1e12, 4e11, 1.7e-5, 1.7e-5, 2e9, 0.01});
    double stress = 0.0, strain = 0.0;
    QrvGetStressStrainData(wire, 0, stress, strain);
    check(QrvHasStressStrainData(wire) && QrvGetStressStrainSet(wire) == 1 && stress == 2e9 &&
              strain == 0.01 && QrvIsIC_Wire(wire),
          "stress-strain of a wire");
    QrvReleaseMaterial(wire);

    QrvMaterial* metal = newRecord(3);
    metal->Comment = text("Steel D=7.99 g/cc");
    setBlock(metal->Cp, 1, {5e6});
    setBlock(metal->K, 1, {1.63e6});
    setBlock(metal->Mech, 0, {0.27, 0.27, 1.93e12, 1.93e12, 7.6e11, 1.6e-5, 1.6e-5});
    check(QrvIsMetal(metal) && QrvGetNonPlastic_Cp(metal) == 5e6 &&
              QrvGetNonPlastic_K(metal) == 1.63e6 && QrvGetNonPlastic_PR(metal) == 0.27 &&
              QrvGetNonPlastic_EM(metal) == 1.93e12 && QrvGetNonPlastic_CLTE(metal) == 1.6e-5 &&
              QrvGetNonPlastic_Density(metal) == 7.99,
          "non-plastic values");
    QrvReleaseMaterial(metal);

    QrvMaterial* thermoset = QrvGetDefaultMaterial(10, 0, false, 0, 0, 0);
    const double x = QrvGetConversion(thermoset, 150.0, 0.0, 0.1);
    check(x > 0.1 && x <= 1.0, "cure conversion");
    QrvReleaseMaterial(thermoset);
}

void names() {
    QrvMaterial* m = QrvGetDefaultMaterial(4, 5, false, 3, 2, 1);
    check(same(QrvGetVisModelName(m), "Modified Cross Model 2"), "vis name");
    check(same(QrvGetPVTModelName(m), "Modified Tait Model 2"), "pvt name");
    check(same(QrvGetCpModelName(m), "CAE_Cp Model 2"), "cp name");
    check(same(QrvGetKModelName(m), "CAE_K Model 1"), "k name");
    check(same(QrvGetConvModelName(m), "Non-thermosetting plastics"), "conversion name");
    check(same(QrvGetMechModelName(m), "Anisotropic pure polymer"), "mech name");
    check(same(QrvGetVEModelName(m), "No viscoelastic data"), "ve name");
    check(same(QrvGetCrystallinityModelName(m), "None"), "crystallinity name");
    check(same(QrvGetVisParaName(m, 1), "Modified Cross Model 2 - (Taus)"), "vis label");
    check(same(QrvGetPVTParaName(m, 8), "Modified Tait Model 2 - (b5)"), "pvt label");
    check(same(QrvGetConvParaName(m, 0), ""), "conversion label");
    check(same(QrvGetMechParaName(m, 2), "Modulus E1(flow direction)"), "mech label");
    int unit = -7;
    check(same(QrvGetVEParaName(m, 0, unit), "Modulus E1(flow direction)") && unit == -7,
          "ve label of a material without VE");
    check(same(QrvGetCrystallinityParaName(m, 0, unit), "") && unit == -7, "crystallinity label");
    check(same(QrvGetMFIString(m), "Unavailable"), "MFI text");
    const char* content = QrvGetContent(m, false);
    check(content && std::strstr(content, "Polymer") != nullptr, "content");
    QrvReleaseMaterial(m);
}

void filesAndMeasuredData() {
    const std::string path = "/tmp/quorvalib_consumer_" + std::to_string(::getpid()) + ".mtr";
    const std::string rimPath = path.substr(0, path.size() - 4) + ".mtx";
    check(QrvIsRIM(rimPath.c_str()) && !QrvIsRIM(path.c_str()), "RIM names");
    QrvMaterial* m = QrvGetDefaultMaterial(4, 5, false, 3, 2, 2);
    check(QrvSaveMaterial(path.c_str(), m) == 1, "save");
    QrvMaterial* loaded = QrvGetMaterial(path.c_str());
    check(loaded && QrvGetViscosity(loaded, 1000.0, 230.0, 0.0, 0.0) ==
                        QrvGetViscosity(m, 1000.0, 230.0, 0.0, 0.0),
          "load");
    check(QrvMatHasFiber(path.c_str()), "fibre in the file");
    QrvReleaseMaterial(loaded);
    QrvMaterial* thermoset = QrvGetDefaultMaterial(12, 0, false, 0, 0, 0);
    thermoset->FileType = 2;
    check(QrvSaveMaterialRIM(rimPath.c_str(), thermoset) == 1, "save thermoset");
    QrvMaterial* rim = QrvGetMaterialRIM(rimPath.c_str());
    check(rim && QrvIsThermoset(rim), "load thermoset");
    QrvReleaseMaterial(rim);
    QrvReleaseMaterial(thermoset);
    std::remove(rimPath.c_str());

    CQrvViscosityData curves;
    const double x[] = {30.0, 3000.0}, y[] = {2150.0, 205.0};
    curves.AddCurve(190.0, 2, x, y);
    check(curves.GetMaxX() == 10000.0 && curves.GetMinX() == 10.0, "viscosity curve x");
    check(curves.GetMaxY() == 10000.0 && curves.GetMinY() == 100.0, "viscosity curve y");
    check(curves.GetDataSize() == 20 + 12 + 16 * 2 && curves.GetCondition(0) == 190.0, "size");
    CQrvPVTData pvt;
    const double t[] = {120.0, 260.0}, v[] = {0.951, 1.012};
    pvt.AddCurve(1e8, 2, t, v);
    check(pvt.GetMaxX() == 300.0 && pvt.GetMinX() == 100.0, "pvt curve x");
    check(pvt.GetMaxY() == 1.02 && pvt.GetMinY() == 0.95, "pvt curve y");
    CQrvPVTData copy;
    check(
        pvt.CopyTo(&copy) && copy.GetCurveCount() == 1 && copy.Clear() && copy.GetCurveCount() == 0,
        "copy and clear");

    QrvMTCSection section = {1, 3, 1, {0.5}};
    double temperature = 170.0;
    QRV_MTC record = {2, 0, 1, &section, &temperature};
    QrvAddMTCData(m, &record, 1);
    int mtcVersion = 0, mtcCount = 0;
    QrvGetMTCInfo(m, mtcVersion, mtcCount);
    check(mtcVersion == 1000 && mtcCount == 1 && QrvGetFileVer(m) == 9010, "MTC added");
    check(QrvGetMTCData(m, 0)->Sections[0].Parameters[0] == 0.5, "MTC copy");
    QrvRemoveAllMTC(m);
    check(QrvGetFileVer(m) == 9007, "MTC removed");
    QrvReleaseMaterial(m);

    MATIO_Manipulator manipulator;
    check(manipulator.GetMaterial(path.c_str()) && !manipulator.IsRIM(), "manipulator load");
    check(manipulator.SaveMaterial(path.c_str()), "manipulator save");
    check(manipulator.GetFiberPercent() > 0.0 && manipulator.HasFiller(), "manipulator fibre");
    std::remove(path.c_str());
}

void manipulator() {
    MATIO_Manipulator fresh;
    check(fresh.GetViscosity(1.0, 200.0, 0.0, 0.0) == 0.0 && fresh.GetFileVer() == 0 &&
              fresh.GetPolymer() == nullptr && !fresh.IsRIM() && !fresh.HasFiller() &&
              fresh.GetContent() == nullptr && fresh.GetQrvMaterial() == nullptr,
          "fresh manipulator");
    QRVFrmOut_StringStream nothing;
    check(!fresh.GetLogString("Filling", "x.mtr", nothing) && nothing.str().empty(),
          "report of nothing");

    MATIO_Manipulator m;
    check(m.GetDefaultMaterial(4, 5, false, 3, 2, 1), "generation");
    check(m.GetQrvMaterial() != nullptr && m.GetMATIO_DllVer() == Get_Quorvalib_Dll_Ver(),
          "record and version");
    check(std::fabs(m.GetViscosity(1000.0, 230.0, 0.0, 0.0) - viscosityOfSample(1000.0, 230.0)) <=
              1e-12 * viscosityOfSample(1000.0, 230.0),
          "manipulator viscosity");
    check(m.GetDensity(1e8, 230.0, 0.7) == m.GetDensity(1e8, 230.0, 0.0) &&
              std::fabs(m.GetSpecificVolume(1e8, 230.0) * m.GetDensity(1e8, 230.0, 0.0) - 1.0) <
                  1e-15,
          "manipulator PVT");
    check(m.GetHeatCapacity(55.0) == 14420000.0 && m.GetThermalConductivity(60.0) == 24000.0,
          "manipulator thermal");
    check(m.GetConversion(150.0, 0.0, 0.1) == 0.0 && m.GetNoFlowTemperature() > 90.0,
          "manipulator cure and no-flow");
    check(m.GetFileVer() == 7101 && m.GetFileType() == 1 && m.GetLastEditDate() == 20041215 &&
              m.GetMeasureDate() == 20041215,
          "manipulator fields");
    check(same(m.GetPolymer(), "Polymer") && same(m.GetGradeName(), "Default") &&
              same(m.GetProducer(), "Quorvane") && same(m.GetSource(), "Default") &&
              m.GetComment() != nullptr,
          "manipulator texts");
    check(!m.IsMetal() && !m.IsCoolant() && m.IsThermoplastic() && !m.IsThermoset() &&
              !m.IsIC_Wire() && !m.IsIC_Chip() && !m.IsIC_LeadFrame() && !m.IsIC_Substrate(),
          "manipulator types");
    check(!m.HasFiller() && !m.IsConstantModel(1) && m.GetConstantModelValue(1) == -1.0,
          "manipulator filler and constants");
    check(m.GetElasticModulus() == 4.48e+10 && m.GetFiberPercent() == 0.0 &&
              m.GetFiberAspectRatio() == -1.0 && std::isfinite(m.GetLinearShrinkage()),
          "manipulator mechanical");
    check(m.GetCLTEa1_Melt() == -1.0 && m.GetCLTEa1_Solid() == -1.0 && m.GetCLTEa2_Melt() == -1.0 &&
              m.GetCLTEa2_Solid() == -1.0,
          "manipulator expansions");
    check(!m.HasViscoelasticData() && !m.HasOpticData() && !m.HasCrystallinityData() &&
              !m.ThermosetHasMech() && !m.ThermosetHasScorchIndex(),
          "manipulator blocks");
    check(m.GetMoldTempMax() == 80.0 && m.GetMoldTempMin() == 40.0 && m.GetMeltTempMax() == 250.0 &&
              m.GetMeltTempMin() == 200.0 && m.GetEjectTemp() == 88.0 && m.GetFreezeTemp() == 130.0,
          "manipulator temperatures");
    check(m.GetNonPlastic_Cp() == -1.0 && m.GetNonPlastic_K() == -1.0 &&
              m.GetNonPlastic_PR() == -1.0 && m.GetNonPlastic_EM() == -1.0 &&
              m.GetNonPlastic_CLTE() == -1.0 && m.GetNonPlastic_Density() == -1.0,
          "manipulator non-plastic values of a thermoplastic");
    check(same(m.GetMaterialType(), "Thermoplastic") && same(m.GetMFIString(), "Unavailable") &&
              same(m.GetFiberType(), "Anisotropic pure polymer") && m.GetContent() != nullptr,
          "manipulator texts of the record");
    check(same(m.GetVisModelName(), "Modified Cross Model 2") &&
              same(m.GetPVTModelName(), "Modified Tait Model 2") &&
              same(m.GetCpModelName(), "CAE_Cp Model 2") &&
              same(m.GetKModelName(), "CAE_K Model 1") &&
              same(m.GetMechModelName(), "Anisotropic pure polymer") &&
              same(m.GetConvModelName(), "Non-thermosetting plastics") &&
              same(m.GetVEModelName(), "No viscoelastic data") &&
              same(m.GetCrystallinityName(), "None"),
          "manipulator model names");

    // The report, in SI units, for a module that prints the heat sections only.
    QRVSetReleaseVersionUnit(1);
    QRVSetInstallFolderPath(nullptr);
    QRVFrmOut_StringStream report;
    check(m.GetLogString("Cooling", "generated.mtr", report), "report");
    check(report.str().rfind("Material_Information\n  General_Information\n", 0) == 0 &&
              report.str().find("    CAE_Cp Model 2 - (T0) : 328.15 K\n") != std::string::npos,
          "report text");
    QRVSetReleaseVersionUnit(-1);

    MATIO_Manipulator borrowed;
    borrowed = m;  // shares the record: hand it back before either ends
    check(borrowed.GetQrvMaterial() == m.GetQrvMaterial(), "assignment shares");
    MATIO_Manipulator empty;
    borrowed = empty;

    check(m.GetDefaultMaterial(12, 0, false, 0, 0, 0) && m.IsRIM() && !m.IsThermoset() &&
              m.GetFiberType() == nullptr,
          "thermoset generation");
}

void platform() {
    QRVFrmOut_PrintEntry root, line;
    root.SetLabel("Root");
    line.SetLabel("Count");
    QRVFrmOut_Integer number(3);
    line.SelectValue(&number);
    root.AddSubPrintEntry(&line);
    auto* owned = new QRVFrmOut_PrintEntry;
    auto* value = new QRVFrmOut_String("text");
    owned->SetLabel("Owned");
    owned->SelectValue(value);
    root.AddSubPrintEntry(owned);
    QRVFrmOut_StringStream stream;
    check(root.Print(0, stream) == 3 && stream.str() == "Root\n  Count : 3\n  Owned : text\n",
          "print tree");
    {
        QRVFrmOut_Deleter deleter;
        deleter.ManageEntry(owned);
        deleter.ManageValue(value);
    }
    check(QRVFrmOut_TranslateModuleName("Warpage3D") == 13 &&
              QRVFrmOut_TranslateModuleName("Other") == 0,
          "module names");

    QRVSetInstallFolderPath("/opt/quorvane");
    char folder[256] = {};
    check(QRVGetInstallFolderPath("QuorvaneR910", folder, 256) &&
              std::strcmp(folder, "/opt/quorvane/") == 0,
          "install folder");
    QRVSetInstallFolderPath(nullptr);
    QRVSetReleaseVersionUnit(2);
    int unit = -1;
    check(QRVGetReleaseVersionUnit(unit) && unit == 2, "unit system");
    QRVSetReleaseVersionUnit(-1);
}

void evaluators() {
    using namespace MaterialProperty;
    const double cross2[] = {0.27845, 876860.0, 1.1326e-06, 11642.0, 0.0};
    const double cross1[] = {0.3036, 0.0001051, 6.484e-07, 12720.0, 2.4e-09};
    const double cross3[] = {0.25883, 1026900.0, 4.7127e+14, 373.15, 0.0, 30.5, 46.0};
    const double power[] = {0.429888, 498.746, 2332.14};
    const double one[] = {1.0};
    std::unique_ptr<CViscosity> viscosities[] = {
        std::make_unique<CVisNewtonian>(one),         std::make_unique<CVisPowerLaw>(power),
        std::make_unique<CVisModifiedCross1>(cross1), std::make_unique<CVisModifiedCross2>(cross2),
        std::make_unique<CVisModifiedCross3>(cross3), std::make_unique<CVisCarreau>(cross2),
        std::make_unique<CVisCarreauYasuda>(cross3)};
    for (auto& viscosity : viscosities)
        check(!std::isnan(viscosity->Evaluate(1000.0, 503.15, 0.0)), "viscosity evaluator");

    const double tait[] = {0.9057,     0.00053647,   1656600000.0, 0.0043988, 0.90568,
                           0.00015025, 1949000000.0, 0.0035078,    364.0,     1.1596e-08,
                           0.0,        0.0,          0.0};
    const double spencer[] = {0.8, 2.5e9, 3e6};
    std::unique_ptr<CPVT> pvts[] = {
        std::make_unique<CPVTConstant>(one), std::make_unique<CPVTSpencerGilmore>(spencer),
        std::make_unique<CPVTTai>(tait), std::make_unique<CPVTModifiedTai1>(tait),
        std::make_unique<CPVTModifiedTai2>(tait)};
    for (auto& pvt : pvts)
        check(!std::isnan(pvt->Evaluate(1e8, 503.15)), "PVT evaluator");

    const double table[] = {14420000.0, 55, 17260000.0, 100, 20700000.0, 150, 22740000.0, 255};
    std::unique_ptr<CHeatCapacity> capacities[] = {
        std::make_unique<CCPConstant>(table), std::make_unique<CCPCAE1>(table),
        std::make_unique<CCPCAE2>(table), std::make_unique<CCPTabulated>(8, table)};
    for (auto& capacity : capacities)
        check(!std::isnan(capacity->Evaluate(120.0)), "heat capacity evaluator");
    std::unique_ptr<CThermoConductivity> conductivities[] = {
        std::make_unique<CKConstant>(table), std::make_unique<CKCAE1>(table),
        std::make_unique<CKTabulated>(8, table), std::make_unique<CKCAE2>(table)};
    for (auto& conductivity : conductivities)
        check(!std::isnan(conductivity->Evaluate(120.0)), "conductivity evaluator");
}

// A folder of the consumer's own below the system's temporary folder.
std::string scratchFolder() {
    char pattern[] = "/tmp/quorvalib-consumer-XXXXXX";
    const char* made = mkdtemp(pattern);
    return made ? made : "/tmp";
}

void runFiles(const std::string& folder) {
    // A run file through the installed library, which brings HDF5 along by itself.
    const std::string path = folder + "/run.rsv";
    QrvMaterial* material = QrvGetDefaultMaterial(4, 5, false, 3, 2, 1);
    {
        MATIO_RSVManipulator run(path.c_str());
        check(run.AddMaterial(material, "Part", 65536 + 4096), "run file written");
        check(run.GetMaterialCount() == 1, "run file count");
        const QrvMaterial* back = run.GetMaterial(0);
        check(back && back->Vis.Model == 4 && back->Vis.Count == 5 &&
                  back->Vis.Para[0] == material->Vis.Para[0],
              "run file material");
        check(run.GetMaterial(1) == nullptr, "run file index past the end");
    }
    MATIO_RSVManipulator none("/nonexistent-folder/run.rsv");
    check(none.GetMaterialCount() == 0 && none.GetMaterial(0) == nullptr, "run file without store");
    QrvReleaseMaterial(material);
    std::remove(path.c_str());
}

void banks(const std::string& folder) {
    const std::string bank = folder + "/materials.qbk";
    QrvMaterial* plastic = QrvGetDefaultMaterial(4, 5, false, 3, 2, 1);
    MATIO_BankManipulator banker;
    check(banker.AddMaterialsToBank(bank.c_str(), plastic, 1) == 0, "bank add");
    const std::string file = folder + "/saved.mtr";
    check(QrvSaveMaterial(file.c_str(), plastic) == 1, "bank source file");
    char* names[] = {const_cast<char*>(file.c_str())};
    check(banker.AddMaterialsToBank(bank.c_str(), names, 1) == 0, "bank add by name");
    QrvMaterial extracted;
    check(banker.ExtractPlasticMaterialFromBank(bank.c_str(), 1, extracted) == 1 &&
              extracted.Vis.Model == 4 && extracted.Vis.Para[0] == plastic->Vis.Para[0],
          "bank extract");
    check(banker.ExtractPlasticMaterialFromBank(bank.c_str(), 2, extracted) == -2, "bank index");
    const std::string exported = folder + "/exported.mtr";
    check(banker.ExportPlasticMaterialFromBank(bank.c_str(), 0, exported.c_str()) == 1,
          "bank export");
    QrvReleaseMaterial(plastic);

    // A metal in the system bank below a root of the caller's.
    QrvMaterial* metal = newRecord(QRV_TYPE_METAL);
    metal->Polymer = text("Metal");
    metal->Producer = text("Mill");
    metal->GradeName = text("Steel");
    metal->Comment = text("D=7.85g/cc");
    metal->Source = text("");
    setBlock(metal->Cp, 1, {4.6e6});
    setBlock(metal->K, 1, {5.2e6});
    setBlock(metal->Mech, 0, {0.3, 0.0, 2.1e12, 0.0, 0.0, 1.2e-5});
    const std::string systemBank = folder + "/Bank/System";
    check(mkdir((folder + "/Bank").c_str(), 0700) == 0 && mkdir(systemBank.c_str(), 0700) == 0,
          "system bank folder");
    check(banker.AddMaterialsToBank((systemBank + "/Metal.qbk").c_str(), metal, 1) == 0,
          "metal bank add");
    MATIO_QrvNonPolyMat metals;
    check(metals.GetMetalMatBank(folder.c_str(), folder.c_str(), false) &&
              metals.GetMatBankCount() == 1 && same(metals.GetMatName(0), "Steel") &&
              metals.GetDensity(0) == 7.85 && metals.GetCp(0) == 4.6e6 && metals.GetK(0) == 5.2e6 &&
              metals.GetEM(0) == 2.1e12 && metals.GetPR(0) == 0.3 && metals.GetCLTE(0) == 1.2e-5,
          "metal list");
    MATIO_QrvNonPolyMat::CQrvNonPlastic one{};
    check(metals.GetMat(0, one) && one.Density == 7.85 && !metals.GetMat(1, one), "metal entry");
    const std::string metalFile = folder + "/steel.mtr";
    check(QrvSaveMaterial(metalFile.c_str(), metal) == 1, "metal file");
    MATIO_QrvNonPolyMat copy(metals);
    check(copy.GetMetalFile(metalFile.c_str(), one) && same(one.Name, "Steel"), "metal file read");
    QrvReleaseMaterial(metal);
    for (const std::string& name : {bank, file, exported, metalFile, systemBank + "/Metal.qbk"})
        std::remove(name.c_str());
    rmdir(systemBank.c_str());
    rmdir((folder + "/Bank").c_str());
}

}  // namespace

int main() {
    recordAndValues();
    names();
    filesAndMeasuredData();
    manipulator();
    platform();
    evaluators();
    const std::string folder = scratchFolder();
    runFiles(folder);
    banks(folder);
    rmdir(folder.c_str());
    check(GetDLLVersion() == 9007 && InitQuorvaLib(0) == 0, "library calls");
    check(Get_Quorvalib_Dll_Ver() > 20000000, "build date");
    CQuorvalib marker;
    CQuorvalib other;
    check(&(other = marker) == &other, "marker class");

    if (failures == 0) std::printf("consumer: every exported call of installed quorvalib works\n");
    return failures == 0 ? 0 : 1;
}
