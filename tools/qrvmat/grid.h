// Grids of conditions given on the command line: "start:stop:count" (evenly spaced, both ends
// included), "start:stop:count:log" (evenly spaced on a log scale), a list "a,b,c", or one value.
#ifndef QRVMAT_GRID_H
#define QRVMAT_GRID_H

#include <string>
#include <vector>

namespace qrvmat {

// The points of text. Empty, with why set, when text is no grid: a count below 1 or above
// 100000, a log grid whose ends are not both above 0, a number that does not parse.
std::vector<double> parseGrid(const std::string& text, std::string& why);

// count points from start to stop, evenly spaced (on a log scale when logarithmic).
std::vector<double> spaced(double start, double stop, int count, bool logarithmic);

// A CLI11 check: the empty text for a valid grid, else the reason.
std::string gridError(const std::string& text);

}  // namespace qrvmat

#endif
