// MATIO_RSVManipulator: materials inside a simulation run file. A run carries its own copy of
// every material it uses, so that it can be read again without the material files. The run file
// is an HDF5 file (any HDF5 tool can look into it): the materials of run n lie in the groups
// /Vantrell/Run<n>/Material/Material 1, Material 2, ..., each with a "Summary" table, one array
// per non-empty property block, the measured curves and the MTC records; a description of each
// material added lies in /Vantrell/Run<n>/Description/Material/Result<k>.
//
// A RunItemId packs a run and an item: the run is the id divided by 65536, truncating, so the
// first plastic of run 1 is 65536 + 4096.
//
// Sharing the process's HDF5 with the host: each call turns HDF5's error printing off for its own
// length only, so the host's own HDF5 calls between the library's print as the host set them.
// While a manipulator alone holds its file, the file gets a small metadata cache (64 KiB), put
// back to what the host had when the manipulator lets go of a file the host also holds open. The
// numbering of materials counts the members of a group once per open file and then follows the
// manipulator's own adds: members that the host adds through HDF5 while a manipulator holds the
// file are seen only after the file is opened again.
#ifndef QUORVALIB_RUNFILE_H
#define QUORVALIB_RUNFILE_H

#include <quorvalib/export.h>
#include <quorvalib/measured.h>
#include <quorvalib/record.h>

namespace QRV3DRSVExTool {
class CRSVTool;
class CRSVGroup;
}  // namespace QRV3DRSVExTool

class QRV_API MATIO_RSVManipulator {
public:
    // Binds the run file at path: creates it when it does not exist, else opens it read-write.
    // When it can be neither (a null or unwritable path, a file that is not HDF5, an empty file,
    // a run file that another process holds open: HDF5's file lock makes the open fail at once,
    // it never waits), the object is still valid but has no store, and its calls answer false,
    // null and 0. The file stays open until the destructor.
    explicit MATIO_RSVManipulator(const char* path);
    // Frees the record that the last GetMaterial left here (unless an AddMaterial came since),
    // then closes the file.
    ~MATIO_RSVManipulator();
    // Copies the three fields as they stand: both objects then share one store and one record,
    // and each would free them. Do not copy a manipulator that holds a store.
    MATIO_RSVManipulator& operator=(const MATIO_RSVManipulator& other);
    MATIO_RSVManipulator(const MATIO_RSVManipulator&) = delete;

    // Appends the material to run RunItemId / 65536 as "Material <count + 1>", with its
    // description (label goes only there) and the run's "Material Type" attribute (0
    // thermoplastic, 1 thermoset, -1 other: the type of the last material added). The caller
    // keeps the material; the record of an earlier GetMaterial is freed here. Not stored: the
    // blocks' Source words, the EM, PR, CLTE and SI blocks and the MTC list's own version.
    // True once the material group is made; store failures after that are not reported. False
    // without a store, for a null material, for a run below 1, and when HDF5 refuses to make the
    // run's "Material" group (nothing is written then). Null texts are stored as empty texts; a
    // block with a positive Count and a null Para is left out.
    //
    // When HDF5 refuses a call in the middle (a full disk), what was written stays and the file
    // stays readable; the material then reads back in part: an item or array that was made but
    // not filled reads as zeros (a text as empty), and a material whose group could not be made
    // is not stored at all. A single refusal leaves the manipulator working.
    bool AddMaterial(QrvMaterial* material, const char* label, int runItemId);

    // The number of material groups in run 1 (whatever run was written); 0 without a store or
    // without materials in run 1. While HDF5 refuses to read the file it may answer fewer; the
    // shortfall is not remembered, and the next call counts again.
    int GetMaterialCount();

    // The material at the zero-based index of run 1, as a new record that the manipulator keeps:
    // the caller must not release it. It lives until the next AddMaterial or the destructor; a
    // second GetMaterial leaves the first record to the caller. Null without a store, without
    // materials, and for an index outside them (negative included).
    //
    // Differences from what AddMaterial stored: a material with MTC data comes back with FileVer
    // 9010 and MTC version 1000; the blocks' Source words stay at the default; EM, PR, CLTE and SI
    // stay empty; the raw curves' Source, Fit Error and Measure Standard keep their defaults.
    // Damaged content gives a partial record, never more than is stored: a missing or unreadable
    // item keeps the default (texts become empty), an array that is missing, not of doubles, or
    // larger than 1,048,576 values leaves its block empty; a curve array that is missing or not
    // of two rows ends that raw object's curves; an MTC record with a missing section group, or
    // a missing "Interval Temperature", is left out; "Parameters" gives at most the 21 values a
    // section holds. Sections are read one group at a time, so a record whose "Interval
    // Temperature" claims more sections than it has groups costs no more memory than the groups
    // it has (it is left out as incomplete). A read never changes the file. When HDF5 refuses a
    // call of the read, the record is partial in the same way (null when the material's group
    // cannot be opened), and a later read of the same index gives the whole material.
    QrvMaterial* GetMaterial(int index);

private:
    void AddMatInfo();
    void AddMatData(const char* name, int count, double* values);
    void AddMatRawData(CQrvMatRawData* raw, const char* name);
    void AddMTCData();
    void GetMatInfo();
    void GetMatData(const char* name, QrvMatParam* block);
    void GetMatRawData(const char* name);
    void GetMTCData();
    void AddDescription(const char* label, int runItemId);
    void SetRunMatType(int runItemId);
    void SetMeshMatAttrib(int runItemId);

    QRV3DRSVExTool::CRSVTool* Tool;
    QRV3DRSVExTool::CRSVGroup* Group;  // borrowed from Tool; the material group last worked on
    QrvMaterial* Material;
};

#endif
