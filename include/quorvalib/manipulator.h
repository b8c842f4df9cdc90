// MATIO_Manipulator: holds one material record and answers questions about it by forwarding to
// the flat Qrv... functions. Methods with a numeric result answer 0.0 (or 0, false, null) when no
// record is held, where the flat function would give its own null sentinel.
// Threads: one thread per object, different objects in parallel; GetMaterial and SaveMaterial
// are file calls and also belong to one thread at a time in the whole process (files.h).
#ifndef QUORVALIB_MANIPULATOR_H
#define QUORVALIB_MANIPULATOR_H

#include <quorvalib/export.h>
#include <quorvalib/frmout.h>
#include <quorvalib/record.h>

class QRV_API MATIO_Manipulator {
public:
    MATIO_Manipulator();
    // Releases the held record.
    ~MATIO_Manipulator();
    // Copies both fields as they are: the two objects then share one record and each would
    // release it. Do not copy a manipulator that holds a record.
    MATIO_Manipulator& operator=(const MATIO_Manipulator& other);

    // Loads the material file at path (QrvGetMaterialRIM for a name that QrvIsRIM accepts,
    // otherwise QrvGetMaterial) in place of the held record, which is released first; the
    // thermoset mark follows the name. True when a material was loaded; a failed load leaves the
    // object empty. A path that is null or has 4 characters or fewer gives false and changes
    // nothing.
    bool GetMaterial(const char* path);

    // Saves the held record to path (QrvSaveMaterialRIM for a name that QrvIsRIM accepts,
    // otherwise QrvSaveMaterial) and sets the thermoset mark from the name. True when a save was
    // attempted, whatever it returned (a failed open too); false, with nothing written, when no
    // record is held or path is null or has 4 characters or fewer.
    bool SaveMaterial(const char* path);

    // Replaces the held record by a generated one (see QrvGetDefaultMaterial). The thermoset
    // mark becomes visId >= 10, though the generated record has FileType 1.
    bool GetDefaultMaterial(int visId, int pvtId, bool crystalline, int cpId, int kId,
                            int fillerId);

    // Prints the report of the held record into stream, for the analysis module moduleName (see
    // QRVFrmOut_TranslateModuleName: the module picks the sections; an unknown, empty or null name
    // prints the root line alone), naming materialFile (null shows empty) as its file. Values are
    // in the unit system of QRVGetReleaseVersionUnit (0 when it answers false); the warnings come
    // from the polymer data check with the statistics file "Bank/System/StatData.sta" below
    // QRVGetInstallFolderPath (the warning section stays empty when it answers false; a missing
    // file gives only the checks that need no statistics). A Comment of fewer than 2 characters
    // (null too) shows "None"; a null text shows empty; a block whose Para is null shows its
    // model line alone; the freeze temperature is empty unless the record is a thermoplastic with
    // 8 or more Temp values. True when the print succeeded; false, with nothing written, when no
    // record is held.
    bool GetLogString(const char* moduleName, const char* materialFile,
                      QRVFrmOut_StringStream& stream);

    // The held record, null when none is held.
    const QrvMaterial* GetQrvMaterial();
    // The thermoset mark of the last load, save or generation; not read from the record.
    bool IsRIM();
    // The library's build date as yyyymmdd.
    long GetMATIO_DllVer();

    // 0.0 when no record is held or its Vis block has no parameters.
    double GetViscosity(double shearRate, double temperature, double pressure, double conversion);

    // Evaluators: 0.0 when no record is held or the block read has no parameters (Para null),
    // where the flat function would answer -1.0.
    // Specific volume at conversion 0.0.
    double GetSpecificVolume(double pressure, double temperature);
    // Density at conversion 0.0: the third argument is accepted and ignored.
    double GetDensity(double pressure, double temperature, double conversion);
    double GetHeatCapacity(double temperature);
    double GetThermalConductivity(double temperature);
    // Guarded on the KN block.
    double GetConversion(double temperature, double heatingRate, double conversion);
    // Guarded on the Temp block.
    double GetNoFlowTemperature();

    // False when no record is held; otherwise whether QrvGetFillerPercent is above 0.0.
    bool HasFiller();
    // Null when no record is held, and also when the thermoset mark is set.
    const char* GetFiberType();

    // These hand a missing record on to the flat functions, whose null-record values apply:
    // false, 0.0 or -1.0 as each states.
    bool IsConstantModel(int which);
    double GetConstantModelValue(int which);
    double GetElasticModulus();
    double GetFiberPercent();
    double GetFiberAspectRatio();
    double GetLinearShrinkage();
    double GetCLTEa1_Melt();
    double GetCLTEa1_Solid();
    double GetCLTEa2_Melt();
    double GetCLTEa2_Solid();
    bool HasViscoelasticData();
    bool HasOpticData();
    bool HasCrystallinityData();
    bool ThermosetHasMech();
    bool ThermosetHasScorchIndex();
    double GetMoldTempMax();
    double GetMoldTempMin();
    double GetMeltTempMax();
    double GetMeltTempMin();
    double GetEjectTemp();
    double GetFreezeTemp();
    double GetNonPlastic_Cp();
    double GetNonPlastic_K();
    double GetNonPlastic_PR();
    double GetNonPlastic_EM();
    double GetNonPlastic_CLTE();
    double GetNonPlastic_Density();

    int GetFileVer();
    int GetFileType();
    int GetLastEditDate();
    int GetMeasureDate();
    const char* GetPolymer();
    const char* GetGradeName();
    const char* GetProducer();
    const char* GetComment();
    const char* GetSource();

    bool IsMetal();
    bool IsCoolant();
    bool IsThermoplastic();
    bool IsThermoset();
    // These hand a missing record on to the flat tests, which answer false.
    bool IsIC_Wire();
    bool IsIC_Chip();
    bool IsIC_LeadFrame();
    bool IsIC_Substrate();
    // Hands a missing record on: "fail".
    const char* GetMaterialType();

    // The content dump of the held record, thermoset when the thermoset mark is set; null when
    // no record is held or the dump cannot be formed (see QrvGetContent).
    const char* GetContent();
    // Names of the held record's models (see the Qrv...ModelName calls). They hand a missing
    // record on, and those calls throw std::invalid_argument for it.
    const char* GetVisModelName();
    const char* GetPVTModelName();
    const char* GetCpModelName();
    const char* GetKModelName();
    const char* GetMechModelName();
    const char* GetConvModelName();
    const char* GetVEModelName();
    // QrvGetCrystallinityModelName of the held record.
    const char* GetCrystallinityName();
    // Hands a missing record on: "fail".
    const char* GetMFIString();

private:
    bool isRIM;
    QrvMaterial* Record;
};

#endif
