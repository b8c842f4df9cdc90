// The warning lines of the material report: the plausibility check's text, and its split into
// one line per numbered sentence.
#ifndef QRV_REPORT_WARNINGS_H
#define QRV_REPORT_WARNINGS_H

#include <quorvalib/record.h>

#include <string>
#include <vector>

namespace qrv::report {

// The text of the polymer data check of material, with the statistics file below installFolder
// (a folder text that ends in "/"): numbered sentences run together, "None" for a thermoplastic
// without warnings, the empty text for any other material.
std::string polymerDataWarnings(const char* installFolder, QrvMaterial* material);

struct WarningLine {
    std::string label;
    std::string text;
};

// Splits the check's text at its numbers. A text of fewer than 10 characters is one line
// "Warning" with the text as it is. Otherwise the sentence after "1." is "Warning #1", after
// "2." "Warning #2", and so on while the next number is found: each text runs from the third
// character behind its number (the number, its full stop and one blank left out) to the next
// number, or to the end. The numbers are searched from the start of the text each time, so a
// sentence must hold no digit before a full stop; a next number found before the sentence leaves
// it empty. A long text without "1." is one line "Warning" as it is.
std::vector<WarningLine> splitWarnings(const std::string& warnings);

}  // namespace qrv::report

#endif
