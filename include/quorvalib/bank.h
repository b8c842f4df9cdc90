// Material banks (".qbk"): files that hold many materials one behind the other, added to for
// years and listed whenever a user picks a material; and the lists of metals on offer.
//
// A bank is only ever appended to. Nothing here removes, replaces or rewrites an entry, and a
// failed add leaves the bytes of the entries already in a bank as they were. Entries are
// addressed by their 0-based position. None of these calls may run on two threads at once: every
// open of a bank briefly switches the process-global locale.
#ifndef QUORVALIB_BANK_H
#define QUORVALIB_BANK_H

#include <quorvalib/export.h>
#include <quorvalib/record.h>

// Holds no state: each call opens, works on and closes a bank by itself.
class QRV_API MATIO_BankManipulator {
public:
    MATIO_BankManipulator();
    ~MATIO_BankManipulator();

    // Appends count records of the contiguous array materials to the bank file, in order. A bank
    // that does not exist is made first: the lead word 9051 alone. An existing empty file is made
    // a bank the same way; the lead word of any other existing file is not looked at.
    // Each entry's class follows FileType (3 and above non-polymer, 1 thermoplastic, 2 thermoset,
    // below 1 thermoplastic when Vis holds values, otherwise non-polymer). An entry keeps the four
    // header texts, FileVer as its body version and LastEditDate as its one date; its type word is
    // 0, every block is stored with source 1000, and the record's Source text and MeasureDate are
    // not kept. The records are not changed.
    // Returns:
    //   0  every record was added, or count is below 1 (nothing is touched, no file is made);
    //   1  materials is null (the bank was made if need be, nothing added); or some records could
    //      not be written (a null Polymer, Producer, GradeName or Comment, or a block that is kept
    //      with a negative Count or with Count above 0 and a null Para): those are skipped and
    //      every other record is added;
    //  -1  bank is null, is a folder, holds 1 to 3 bytes, or cannot be opened for update.
    // count must not exceed the array: the library cannot see its length.
    int AddMaterialsToBank(const char* bank, QrvMaterial* materials, int count);

    // As above, for count material files (QrvGetMaterialRIM for a name that QrvIsRIM accepts,
    // otherwise QrvGetMaterial). The thermoset blocks KN and SI go by the name; the entry's class
    // by the loaded FileType.
    // Returns 0 when every file was added (or count is below 1, nothing touched); 1 when names is
    // null, or one or more names were null or could not be loaded or written (the others are
    // added); -1 as above.
    int AddMaterialsToBank(const char* bank, char** names, int count);

    // Copies the entry at index into material, which must come in empty (as from the default
    // constructor): texts and arrays are given new allocations without freeing what stood there.
    // Returns:
    //   1  a thermoplastic entry was copied (FileType 1, FileVer the body version, both dates the
    //      entry's date; EM, PR and CLTE rebuilt from Mech; measured curves from body version
    //      9009, MTC data from 9010, CR from 9011, PW from 9012);
    //  -1  bank is null, cannot be opened, or the entry's class is unknown; material unchanged;
    //  -2  index below 0 or not below the number of entries; material unchanged;
    //  -3  a thermoset or non-polymer entry was copied. A thermoset gets FileType 2 and its texts
    //      and blocks, no measured curves, and keeps FileVer and the dates as they came in; a
    //      non-polymer gets FileType from its first text ("Metal" 3, "Coolant" 4, "Chip" 6,
    //      "Lead Frame" 7, "Substrate" 8, "Wire" 9; any other leaves it as it came in), its
    //      texts and Cp, K and Mech.
    // Saved to a material file and loaded again, a copied entry differs from the copy as
    // QrvSaveMaterial tells, and also: a thermoplastic's VE and OP are copied whatever the body
    // version (a file keeps them only where that version has them), its measured data is copied
    // even without curves, and a thermoset keeps FileVer as it came in (undefined after the
    // default constructor: set it first), so with 0 its file leaves out Mech, Temp, SI and PW.
    int ExtractPlasticMaterialFromBank(const char* bank, int index, QrvMaterial& material);

    // Writes the entry at index as a material file of its own (QrvSaveMaterialRIM for a
    // thermoset entry, otherwise QrvSaveMaterial). As extraction, except: every class gets
    // FileVer and both dates; EM, PR and CLTE stay empty; CR and PW of a thermoplastic are always
    // copied; a non-polymer entry whose first text is not in the type table is saved with
    // FileType 1. The bank is only read.
    // Returns 1 (thermoplastic saved), -1, -2 (no file written), -3 (thermoset or non-polymer
    // saved) as above, and -4 when the save failed (output null or shorter than 5 characters,
    // or the file could not be opened); the material filled for a failed save is kept by the
    // library for the life of the process.
    int ExportPlasticMaterialFromBank(const char* bank, int index, const char* output);
};

// The metals on offer: those of the system bank, then those of the user's bank.
class QRV_API MATIO_QrvNonPolyMat {
public:
    // One metal as handed to a caller. Name is not owned.
    struct CQrvNonPlastic {
        const char* Name;
        double Density;
        double Cp;
        double K;
        double EM;
        double PR;
        double CLTE;
    };

    MATIO_QrvNonPolyMat();
    ~MATIO_QrvNonPolyMat();
    // Copies share one list: a change through either object shows in both. The list goes with
    // the last object that shares it.
    MATIO_QrvNonPolyMat(const MATIO_QrvNonPolyMat& other);
    MATIO_QrvNonPolyMat& operator=(const MATIO_QrvNonPolyMat& other);

    // Refills the list: every entry of systemRoot + "/Bank/System/Metal.qbk", then the entries
    // whose first text is exactly "Metal" of userRoot + "/Quorvane R13.0/Material/UserBank/
    // user.qbk" ("user-rim.qbk" when rim is set), each bank in entry order; a metal in both stands
    // twice. Name is the grade name; Cp and K the first values of their blocks; EM, PR and CLTE
    // Mech values 2, 0 and 5; Density the number between "D=" and "g/cc" (else "g/cm3") of the
    // comment, 0.0 when either is missing or the unit stands ahead of "D=". The roots are used
    // as given and are not kept beyond the call.
    // True when either bank could be opened (an empty bank counts). False, with an empty list,
    // when neither could: also for a null root, or a root whose path reaches 250 characters.
    // An entry of an unknown class is left out.
    bool GetMetalMatBank(const char* systemRoot, const char* userRoot, bool rim);

    int GetMatBankCount();

    // Members of the metal at index. An index below 0 or not below GetMatBankCount throws
    // std::out_of_range("invalid vector<T> subscript"). The name lives until the list changes.
    const char* GetMatName(int index);
    double GetCp(int index);
    double GetK(int index);
    double GetEM(int index);
    double GetPR(int index);
    double GetCLTE(int index);
    double GetDensity(int index);

    // Fills metal from the list. False for an index above GetMatBankCount() - 1; a negative index
    // throws as the accessors do.
    bool GetMat(int index, CQrvNonPlastic& metal);

    // Empties the list, loads the material file with QrvGetMaterial and, when it is a metal
    // (FileType 3), fills metal from it as GetMetalMatBank reads an entry (a value whose block is
    // too short is 0.0). False when the load fails or the material is not a metal. The loaded
    // material is kept by the library for the life of the process, so that Name stays valid.
    bool GetMetalFile(const char* path, CQrvNonPlastic& metal);

private:
    struct State;
    State* state_;
};

#endif
