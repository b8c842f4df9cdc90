// The density mark that metal and coolant texts carry ("... D=7.85g/cc ..."). Read by the
// non-plastic density getter and by the metal list, which tell its failures apart differently.
#ifndef QRV_PROPERTIES_DENSITY_TEXT_H
#define QRV_PROPERTIES_DENSITY_TEXT_H

namespace qrv {

struct DensityText {
    enum Outcome {
        kFound,        // value holds the number, greater than 0.0
        kNoMark,       // no "D=" in the text (or no text)
        kNoUnit,       // no "g/cc" nor "g/cm3" behind the mark
        kNotPositive,  // the number between mark and unit reads as 0.0 or less
    };
    Outcome outcome;
    double value;  // the number read for kFound and kNotPositive, otherwise 0.0
};

// Finds "D=", then "g/cc" or, failing that, "g/cm3" (each from the start of the text), and reads
// the text between the end of the mark and the unit with atof. A unit that stands before the mark
// counts as missing. A null text has no mark.
DensityText scanDensityText(const char* text);

}  // namespace qrv

#endif
