// The human-readable description of a material in a run, and the marks on the run and on its
// mesh entities. Written only; this library never reads them back.
#ifndef QRV_RUNFILE_DESCRIPTION_H
#define QRV_RUNFILE_DESCRIPTION_H

#include <quorvalib/record.h>

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "rsv/rsv_tool.h"

namespace qrv::runfile {

// A description row: a 32-bit "ID" at offset 0 and a 128-byte zero-terminated "Value" at 4.
constexpr std::size_t kRowBytes = 132;
constexpr std::size_t kValueBytes = 128;
constexpr std::size_t kDescriptionRows = 20;

// "Polymer(Producer GradeName)", with "+Fiber" behind it when the fibre percent is above 0.
// Null texts read as empty.
std::string materialName(QrvMaterial* material);

// The (ID, text) pairs the material has, in ID order: IDs 0 to 20 for a thermoset, without 14
// for a thermoplastic, 0 to 6, 11 and 12 for any other material.
std::vector<std::pair<int, std::string>> descriptionRows(QrvMaterial* material, const char* label);

// The 20 rows as stored. Rows are filled one after the other without gaps, so a thermoset's
// 21st row is left out. A text of 128 bytes or more runs on into the next row and is cut when
// that row is filled; at the end of the buffer it is cut so that a terminator still fits. Rows
// not filled stay cleared (ID 0, empty text).
std::vector<char> descriptionBuffer(const std::vector<std::pair<int, std::string>>& rows);

// Appends "Result<n>" (n the number of arrays already there) to the "Material" group of the
// run's description group, making that group when missing. Nothing when the run has no
// description group or the store refuses the type or the array.
void writeDescription(QRV3DRSVExTool::CRSVTool& tool, QrvMaterial* material, const char* label,
                      int runItemId);

// The run group's integer attribute "Material Type": 0 thermoplastic, 1 thermoset, -1 other.
// Nothing when the run group cannot be opened (run below 1).
void writeRunMaterialType(QRV3DRSVExTool::CRSVTool& tool, QrvMaterial* material, int runItemId);

// The text attribute "Material" (the material name, cut to 255 characters) on the mesh entity of
// the id: Entity/Plastic/Child0 for item class 1, Entity/PartInsert/Child<low - 8192> for class 2.
// Nothing for another class or a missing entity group.
void writeMeshMaterialAttribute(QRV3DRSVExTool::CRSVTool& tool, QrvMaterial* material,
                                int runItemId);

}  // namespace qrv::runfile

#endif
