// Model vocabulary and text: the names of the fitted models and of their parameters, the content
// dump of a record and the melt-flow text of its comment.
//
// Lifetime: every name call below, QrvGetMaterialType and QrvGetMFIString share one text per
// thread. The pointer returned keeps its text until the same thread's next call of any of them;
// copy it at once. (It stays readable afterwards, also after the thread has ended, and then shows
// a newer text: the text has a fixed place of 4096 characters that is never freed, and a longer
// melt-flow text is cut to 4095.)
//
// Threads: each thread has its own name text and content text, so these calls may run from any
// number of threads, also on the same record while no thread changes it. A thread sees what a
// process with one thread would see; a new thread starts with the empty text.
//
// Stale text: where a model is known but the index lies past its labels, a parameter-name call
// assigns nothing and returns the text that the same thread's previous naming call left (the
// empty text on the thread's first call). That is the settled answer, not an error.
//
// Null record: the model and parameter name calls have no failure value of their own; they throw
// std::invalid_argument for a null record and leave the thread's text as it was.
#ifndef QUORVALIB_VOCABULARY_H
#define QUORVALIB_VOCABULARY_H

#include <quorvalib/export.h>
#include <quorvalib/record.h>

// Model names. Unknown ids give "Unknown ... model" texts; see each call for its other rules.

// FileType 3 or above: "Non-plastic". FileType 2 names the thermoset ids 1 and 10 to 13, any
// other FileType the thermoplastic ids 1 to 8; any other id "Unknown viscosity model".
QRV_API const char* QrvGetVisModelName(QrvMaterial* material);
// FileType 3 or above: "Non-plastic"; ids 1 to 7, else "Unknown PVT model".
QRV_API const char* QrvGetPVTModelName(QrvMaterial* material);
// Ids 1 to 4, else "Unknown Cp model"; FileType is not read.
QRV_API const char* QrvGetCpModelName(QrvMaterial* material);
// Ids 1 to 3, else "Unknown K model" (id 4 included).
QRV_API const char* QrvGetKModelName(QrvMaterial* material);
// FileType other than 2: "Non-thermosetting plastics"; ids 2 to 4, else
// "Unknown Conversion model".
QRV_API const char* QrvGetConvModelName(QrvMaterial* material);
// Mech.Count 0: "No mechancial data" (so spelt); ids 0 to 7, else "Unknown mechanical model".
QRV_API const char* QrvGetMechModelName(QrvMaterial* material);
// VE.Count 0: "No viscoelastic data"; ids 1 to 8, else "Unknown viscoelastic model".
QRV_API const char* QrvGetVEModelName(QrvMaterial* material);
// Id 0 "None", 1 "Nakamura model", else "Unknown crystallinity model".
QRV_API const char* QrvGetCrystallinityModelName(QrvMaterial* material);

// Parameter labels by index from 0. An index of any value is accepted.

// Thermoplastic ids 1 to 8 (FileType not 2), thermoset ids 1 and 10 to 13 (FileType 2). Id 7
// answers with the short labels of id 8 ("(n)" ... "(Ty)"), indices 7 and 8 included. Any other
// id, or an index past the labels, gives the stale text.
QRV_API const char* QrvGetVisParaName(QrvMaterial* material, int index);
// Ids 1 to 7 for any FileType; another id gives the empty text; an index past the labels the
// stale text.
QRV_API const char* QrvGetPVTParaName(QrvMaterial* material, int index);
// KN ids 2 to 4 for any FileType; another id gives the empty text; an index past the labels the
// stale text.
QRV_API const char* QrvGetConvParaName(QrvMaterial* material, int index);
// Mech ids 0 to 7. Id 0 labels indices 1, 3 and 6 only and gives the empty text for every other
// index; ids 1 to 7 give the stale text past their labels; any other id gives the stale text.
QRV_API const char* QrvGetMechParaName(QrvMaterial* material, int index);

// As above, and unitId receives the unit id of the label (see the unit system). VE ids 1 to 8:
// id 1 answers "G" (6) for any index; ids 6 to 8 number six modes as "g%d" (6) and
// "Lambda%d" (18). Another id or an index past a model's labels leaves text and unitId as they
// are.
QRV_API const char* QrvGetVEParaName(QrvMaterial* material, int index, int& unitId);
// CR id 1, indices 0 to 8. Another id gives the empty text and leaves unitId; an index outside
// 0 to 8 leaves both.
QRV_API const char* QrvGetCrystallinityParaName(QrvMaterial* material, int index, int& unitId);

// Plain dump of the record's header, texts and main blocks (Vis, PVT, Cp, K, then KN when
// thermoset is set, else Mech and Temp). A null text field prints as "(null)".
//
// Returns null for a null record, and null where the dump cannot be formed whole: a line longer
// than 255 characters, a text longer than 3071 characters, or a block with parameters but a null
// Para. The text lives in a buffer of the library until the same thread's next QrvGetContent call
// (when the thread ends, the buffer is emptied and stays readable until a later thread's call).
// Numbers print with the C library's locale, which a file open on another thread switches for its
// duration.
QRV_API const char* QrvGetContent(QrvMaterial* material, bool thermoset);

// The part of Comment from its first "MFI" to its first "/10min", both included, when that
// "/10min" starts after that "MFI"; otherwise (either missing, or "/10min" first) "Unavailable".
// "fail" for a null record, and "Unavailable" for a null Comment. The text is the thread's name
// text.
QRV_API const char* QrvGetMFIString(QrvMaterial* material);

#endif
