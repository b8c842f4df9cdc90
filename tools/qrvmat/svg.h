// A chart written as an SVG document: curves as polylines, measured data as points, axes with
// ticks and labels, and a legend. Each curve is one <polyline class="curve">, each measured
// point one <circle class="point">, so that a reader can count what is drawn.
#ifndef QRVMAT_SVG_H
#define QRVMAT_SVG_H

#include <string>
#include <vector>

namespace qrvmat {

struct Series {
    std::string label;
    std::vector<double> x, y;
    bool points = false;  // measured data: drawn as points, not joined
    int colour = -1;      // index into the palette; -1 takes the series' own place
};

struct Chart {
    std::string title, xLabel, yLabel;
    bool logX = false, logY = false;
    std::vector<Series> series;
};

// The SVG text of chart. Points that cannot be drawn (not finite, or not above 0 on a log axis)
// are left out.
std::string renderSvg(const Chart& chart);

}  // namespace qrvmat

#endif
