// Material files: loading a file into a new record and saving a record into a file.
//
// A file of the current form starts with a lead word whose remainder after division by 10000 is
// 9051 or more (a negative word never is); anything else is the old fixed-block form of 2624 bytes.
// The old endings ".mat" and ".emc" are read from the same name ending in "mtr" and "mtx".
// Threads: one of these calls at a time in the whole process (QrvIsRIM of a path excepted: it
// reads only its argument, from any number of threads). The mapped name is kept in one
// static buffer, and every open switches the process-global locale (the C library's too) to the
// system's default for its duration, which every thread sees: meanwhile no other thread should
// print or read numbers as text (QrvGetContent, QrvGetNonPlastic_Density).
#ifndef QUORVALIB_FILES_H
#define QUORVALIB_FILES_H

#include <quorvalib/export.h>
#include <quorvalib/record.h>

// True when the three characters after the last "." of path are "mtx" in any case mix
// (a.mtxbak counts; with no "." at all the first three characters decide, so "mtxdata" counts).
// False for a null path.
QRV_API bool QrvIsRIM(const char* path);

// A new record for the material of the file at path, owned by the caller (end it with
// QrvReleaseMaterial); a name whose ending QrvIsRIM accepts is read as by QrvGetMaterialRIM.
// Null when:
// - path is null or has 4 characters or fewer;
// - the file as named does not exist or is empty (tested before ".mat" and ".emc" are mapped);
// - the mapped name does not fit the 520-byte name buffer (520 characters or more);
// - current form: the file's first frame has no ObjType 0, 1 or 2 (also when the file ends
//   before it);
// - old form: the file cannot be opened or holds fewer than 2624 bytes, or a block code has fewer
//   than eight digits or its values run past the block's 256.
// When x.mat exists and x.mtr does not, the load of x.mat finds no x.mtr, creates it empty while
// trying, and gives null; the empty x.mtr stays behind. A file that ends inside its frame gives a
// record holding what was read. Nothing is thrown for any file content.
QRV_API QrvMaterial* QrvGetMaterial(const char* path);

// As QrvGetMaterial without the look at the name's ending, with the thermoset correction: a
// header type word of 0 gives FileType 2. Same null results.
QRV_API QrvMaterial* QrvGetMaterialRIM(const char* path);

// Writes the record as a current-form file with one material: lead word 9051 and one frame whose
// object class follows FileType (1 thermoplastic, 2 thermoset, any other non-polymer) and whose
// body version is FileVer. An existing file at path is deleted first, so it is lost when the new
// one cannot be created. path is used as given (no mapping of ".mat").
// Returns:
//   1  written (write errors after a successful open are not reported);
//   0  the file could not be opened for writing (an existing file is already gone);
//  -1  the record pointer is null, or the record cannot be written (a null Polymer, Producer,
//      GradeName or Comment, a block to be written whose Count is above 0 with a null Para or, for
//      blocks written as they stand, below 0); such a record is refused before any file is
//      touched. A thermoplastic of FileVer 9010 or more without MTC data (one read from an old
//      fixed block) is written with an empty MTC section;
//  -3  path is null or has 4 characters or fewer (the record is tested first).
// Saved and loaded again, a record comes back field for field but for what the file does not
// keep: LastEditDate (a load gives 0; the frame's one date is MeasureDate), the Source text (a
// load gives null), the blocks the class chosen by FileType does not carry (a record of FileType
// 0, as a thermoplastic added to a bank loads, is saved as a non-polymer: texts, Cp, K and Mech
// only, PVT rebuilt from the comment on loading), the blocks a thermoplastic's FileVer shuts out
// (VE at 9005 and from 9007, OP from 9008, curves from 9009, MTC from 9010, CR from 9011, PW from
// 9012; a thermoset's Mech from 9015, Temp 9016, SI 9017, PW 9018), an empty VE, OP, CR or PW
// block's Source and Model (written as zeros), and measured data without curves (a load gives
// none). A Polymer of exactly "Metal" or "Coolant" loads with FileType 3 or 4 whatever the class
// it was saved as: a thermoplastic of that name (as an old fixed block gives, whose type digit
// alone decides) therefore changes class on its next save too and keeps only what a non-polymer
// keeps. Loaded through QrvGetMaterialRIM, a record of FileType 0 (an old fixed block of type
// digit 0) comes back with FileType 2, its type word 0 corrected, and changes class on its next
// save as well. Once a save and load keeps the record's class, a further save and load changes
// nothing.
QRV_API int QrvSaveMaterial(const char* path, QrvMaterial* material);

// As QrvSaveMaterial, but a failed open is not looked at: the writing runs against the failed
// stream and the result is 1. Returns 1, -1 or -3; never 0.
QRV_API int QrvSaveMaterialRIM(const char* path, QrvMaterial* material);

// True when the material of the file at path (loaded with QrvGetMaterial) has a fibre fraction
// above 0: Mech.Para[9] for Mech.Model 2, Mech.Para[4] for Mech.Model 3 to 5. False for any other
// model, for a failed load, for a path of 4 characters or fewer (or null), and when Mech holds
// too few values for the index its model reads.
QRV_API bool QrvMatHasFiber(const char* path);

#endif
