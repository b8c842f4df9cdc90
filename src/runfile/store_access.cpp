#include "runfile/store_access.h"

namespace qrv::runfile {

std::optional<DoubleArray> readDoubles(CRSVTool& tool, CRSVGroup* group, const std::string& name) {
    HeldArray array(tool, tool.OpenArray(group, name));
    DoubleArray result{0, 0, {}};
    if (!array || array->GetElementType() != QRV3DRSVExTool::kTypeDouble ||
        array->GetDimension(&result.Rows, &result.Columns) != 0)
        return std::nullopt;
    if (result.Columns != 0 && result.Rows > kMaxArrayValues / result.Columns) return std::nullopt;
    result.Values.resize(result.Rows * result.Columns);
    if (array->ReadArray(result.Values.data()) != 0) return std::nullopt;
    return result;
}

void writeDoubles(CRSVTool& tool, CRSVGroup* group, const std::string& name, std::size_t rows,
                  std::size_t columns, const double* values) {
    HeldArray array(tool,
                    tool.CreateArray(group, name, QRV3DRSVExTool::kTypeDouble, rows, columns));
    if (array) array->WriteArray(values);
}

std::string numbered(const char* prefix, long long number) {
    return prefix + std::to_string(number);
}

}  // namespace qrv::runfile
