// Shapes and lookups shared by the name tables. Each naming call keeps its names in one table of
// its own; these helpers only walk such tables.
#ifndef QRV_VOCABULARY_LABEL_TABLE_H
#define QRV_VOCABULARY_LABEL_TABLE_H

#include <quorvalib/record.h>

#include "record/guard.h"

#include <cstddef>
#include <initializer_list>

namespace qrv {

// A model id and its name.
struct ModelName {
    int model;
    const char* name;
};

// The name of model in table, or unknown when the table has no row for it.
template <std::size_t N>
constexpr const char* nameOf(const ModelName (&table)[N], int model, const char* unknown) {
    for (const ModelName& row : table) {
        if (row.model == model) return row.name;
    }
    return unknown;
}

// A parameter label and the unit id it is told in.
struct UnitLabel {
    const char* text;
    int unitId;
};

// The row of a table whose rows list the model ids they serve in `models`; null when none does.
template <typename Row, std::size_t N>
constexpr const Row* findRow(const Row (&table)[N], int model) {
    for (const Row& row : table) {
        for (int id : row.models) {
            if (id == model) return &row;
        }
    }
    return nullptr;
}

// The label at index, or null when index lies outside the list (negative indices included).
template <typename Label>
constexpr const Label* labelAt(std::initializer_list<Label> labels, int index) {
    if (index < 0 || static_cast<std::size_t>(index) >= labels.size()) return nullptr;
    return labels.begin() + index;
}

// What a naming call returns when it assigns nothing: the text the previous call left.
const char* keepNameText();

}  // namespace qrv

#endif
