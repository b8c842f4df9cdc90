// How the run-file code holds the store's handles: each one it opens is given back by a scoped
// owner, and arrays of doubles are read only when their type and size are what a reader expects.
#ifndef QRV_RUNFILE_STORE_ACCESS_H
#define QRV_RUNFILE_STORE_ACCESS_H

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "rsv/rsv_tool.h"

namespace qrv::runfile {

using QRV3DRSVExTool::CRSVArray;
using QRV3DRSVExTool::CRSVGroup;
using QRV3DRSVExTool::CRSVTable;
using QRV3DRSVExTool::CRSVTool;

// Gives a handle back to its tool when it goes out of scope; a null handle is held as nothing.
template <typename Handle, int (CRSVTool::*Close)(Handle*)>
class Held {
public:
    Held(CRSVTool& tool, Handle* handle) : Tool(tool), Node(handle) {}
    ~Held() {
        if (Node) (Tool.*Close)(Node);
    }
    Held(const Held&) = delete;
    Held& operator=(const Held&) = delete;

    Handle* get() const { return Node; }
    Handle* operator->() const { return Node; }
    explicit operator bool() const { return Node != nullptr; }

private:
    CRSVTool& Tool;
    Handle* Node;
};

using HeldGroup = Held<CRSVGroup, &CRSVTool::CloseGroup>;
using HeldTable = Held<CRSVTable, &CRSVTool::CloseTable>;
using HeldArray = Held<CRSVArray, &CRSVTool::CloseArray>;

// Arrays read back are bounded, so that a damaged file cannot make a reader allocate without
// limit: a material's arrays hold parameters and curve points, far below this.
constexpr std::size_t kMaxArrayValues = std::size_t{1} << 20;

struct DoubleArray {
    std::size_t Rows;
    std::size_t Columns;
    std::vector<double> Values;  // Rows times Columns, row after row
};

// The named array of the group when it is a two-dimensional array of doubles of at most
// kMaxArrayValues values that reads whole; nothing otherwise (a null group included).
std::optional<DoubleArray> readDoubles(CRSVTool& tool, CRSVGroup* group, const std::string& name);

// Creates a 1-row (or 2-row) array of doubles, writes values and closes it.
void writeDoubles(CRSVTool& tool, CRSVGroup* group, const std::string& name, std::size_t rows,
                  std::size_t columns, const double* values);

// Table items that tolerate a null table: a read that fails leaves the value as it was.
template <typename Value>
void readItem(CRSVTable* table, const char* key, Value* value) {
    if (table) table->GetItem(key, value);
}

// "<prefix><number>", as the numbered names of a material's groups and arrays are formed.
std::string numbered(const char* prefix, long long number);

}  // namespace qrv::runfile

#endif
