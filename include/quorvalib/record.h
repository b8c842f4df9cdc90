// The material record: the one in-memory form of a material, whatever file, bank or run file it
// came from, and its plain field readers and type tests.
// Threads: readers and type tests from any number of threads on a record that no thread changes;
// QrvReleaseMaterial, QrvInitMaterial and assignment only while no other thread uses the record.
#ifndef QUORVALIB_RECORD_H
#define QUORVALIB_RECORD_H

#include <quorvalib/export.h>

class CQrvViscosityData;
class CQrvPVTData;
class CQrvMTCList;

// One property block: an origin code, a model id and an owned array of Count doubles.
// Para is allocated with new[] and freed by the destructor (which looks at Para only).
// Assignment is a member-wise shallow copy: Para is shared, not duplicated.
struct QRV_API QrvMatParam {
    int Source;
    int Model;
    int Count;
    double* Para;

    QrvMatParam();
    ~QrvMatParam();
    QrvMatParam& operator=(const QrvMatParam& other);
};

// FileType codes. 5 is not assigned.
enum QrvFileTypeCode {
    QRV_TYPE_THERMOPLASTIC = 1,
    QRV_TYPE_THERMOSET = 2,
    QRV_TYPE_METAL = 3,
    QRV_TYPE_COOLANT = 4,
    QRV_TYPE_IC_CHIP = 6,
    QRV_TYPE_IC_LEADFRAME = 7,
    QRV_TYPE_IC_SUBSTRATE = 8,
    QRV_TYPE_IC_WIRE = 9,
    QRV_TYPE_FLUID = 10
};

// The material record. Field order is part of the interface.
//
// The constructor nulls the texts, the blocks and the three object pointers but leaves FileType,
// FileVer and the two dates undefined until QrvInitMaterial or a reader sets them.
// The destructor frees everything the record owns. Assignment copies the record as it stands:
// both records then share every text, array and object, and only one may ever be released.
struct QRV_API QrvMaterial {
    int FileType;
    int FileVer;  // body version of the material, not the file's lead word
    int LastEditDate;
    int MeasureDate;
    char* Polymer;
    char* Producer;
    char* GradeName;
    char* Comment;
    char* Source;
    QrvMatParam Vis, PVT, Cp, K, EM, PR, CLTE, Temp, KN, Mech, VE, OP, SI, CR, PW;
    CQrvViscosityData* VisRaw;
    CQrvPVTData* PVTRaw;
    CQrvMTCList* MTC;

    QrvMaterial();
    ~QrvMaterial();
    QrvMaterial& operator=(const QrvMaterial& other);
};

// Frees the texts, the block arrays, the measured curves and the MTC list, then the record
// itself (which must have come from new). A null pointer is ignored.
QRV_API void QrvReleaseMaterial(QrvMaterial* material);

// Field readers: the field as it stands, no copy; 0 or null for a null record.
QRV_API int QrvGetFileVer(QrvMaterial* material);
QRV_API int QrvGetFileType(QrvMaterial* material);
QRV_API int QrvGetLastEditDate(QrvMaterial* material);
QRV_API int QrvGetMeasureDate(QrvMaterial* material);
QRV_API const char* QrvGetPolymer(QrvMaterial* material);
QRV_API const char* QrvGetProducer(QrvMaterial* material);
QRV_API const char* QrvGetGradeName(QrvMaterial* material);
QRV_API const char* QrvGetComment(QrvMaterial* material);
QRV_API const char* QrvGetSource(QrvMaterial* material);

// Type tests on FileType; false for a null record. A FileType below 2 (0 included) counts as
// thermoplastic. QrvIsThermoset is the same test as the record overload of QrvIsRIM.
QRV_API bool QrvIsThermoplastic(QrvMaterial* material);
QRV_API bool QrvIsRIM(QrvMaterial* material);
QRV_API bool QrvIsThermoset(QrvMaterial* material);
QRV_API bool QrvIsMetal(QrvMaterial* material);
QRV_API bool QrvIsCoolant(QrvMaterial* material);
QRV_API bool QrvIsIC_Chip(QrvMaterial* material);
QRV_API bool QrvIsIC_LeadFrame(QrvMaterial* material);
QRV_API bool QrvIsIC_Substrate(QrvMaterial* material);
QRV_API bool QrvIsIC_Wire(QrvMaterial* material);

// "Thermoplastic", "Thermosetting plastic", "Metal", "Coolant", "Chip", "Lead Frame",
// "Substrate", "Wire", "Fluid" by FileType, "Unknown Type" for any other code and "fail" for a
// null record. The text lives in the calling thread's name text and is overwritten by that
// thread's next naming call.
QRV_API const char* QrvGetMaterialType(QrvMaterial* material);

#endif
