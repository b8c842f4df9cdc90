#include "common.h"
namespace qrvmat {
void addPlot(CLI::App&) {}
}  // namespace qrvmat
