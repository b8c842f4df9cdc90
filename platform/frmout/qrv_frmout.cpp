// The report print tree: entries, values, their owner, and the module name table.
#include <quorvalib/frmout.h>

#include <cstring>
#include <string>
#include <utility>
#include <vector>

namespace {

// Deep enough for any report (it nests three levels); a tree deeper than this has a cycle.
constexpr int kMaxLevels = 1000;

struct ModuleRow {
    const char* name;
    int number;
};

constexpr ModuleRow kModules[] = {
    {"Filling", 1},    {"Packing", 2},   {"Cooling", 3},    {"Warpage", 4},
    {"RIMFilling", 5}, {"RIMCuring", 6}, {"Filling3D", 11}, {"Cooling3D", 12},
    {"Warpage3D", 13}, {"RIM3D", 14},    {"Packing3D", 15},
};

}  // namespace

QRVFrmOut_StringStream::QRVFrmOut_StringStream() = default;
QRVFrmOut_StringStream::~QRVFrmOut_StringStream() = default;

void QRVFrmOut_StringStream::Append(const char* text) {
    if (text) text_ += text;
}
void QRVFrmOut_StringStream::Append(const std::string& text) {
    text_ += text;
}
const std::string& QRVFrmOut_StringStream::str() const {
    return text_;
}
void QRVFrmOut_StringStream::Clear() {
    text_.clear();
}

QRVFrmOut_Value::~QRVFrmOut_Value() = default;

QRVFrmOut_String::QRVFrmOut_String(const char* text) : text_(text ? text : "") {}
QRVFrmOut_String::~QRVFrmOut_String() = default;
std::string QRVFrmOut_String::Text() const {
    return text_;
}

QRVFrmOut_Integer::QRVFrmOut_Integer(int value) : value_(value) {}
QRVFrmOut_Integer::~QRVFrmOut_Integer() = default;
std::string QRVFrmOut_Integer::Text() const {
    return std::to_string(value_);
}

QRVFrmOut_PrintEntry::QRVFrmOut_PrintEntry() = default;
QRVFrmOut_PrintEntry::~QRVFrmOut_PrintEntry() = default;

void QRVFrmOut_PrintEntry::SetLabel(const char* label) {
    label_ = label ? label : "";
}
const std::string& QRVFrmOut_PrintEntry::GetLabel() const {
    return label_;
}

QRVFrmOut_Value* QRVFrmOut_PrintEntry::SelectValue(QRVFrmOut_Value* value) {
    QRVFrmOut_Value* previous = value_;
    value_ = value;
    return previous;
}

bool QRVFrmOut_PrintEntry::AddSubPrintEntry(const QRVFrmOut_PrintEntry* entry) {
    if (!entry || entry == this) return false;
    entries_.push_back(entry);
    return true;
}

// Depth first without recursion: a stack of the entries still to print, each with its depth.
int QRVFrmOut_PrintEntry::Print(int depth, QRVFrmOut_StringStream& stream) const {
    if (depth > kMaxLevels) return -1;
    const int first = depth < 0 ? 0 : depth;
    std::vector<std::pair<const QRVFrmOut_PrintEntry*, int>> pending = {{this, first}};
    int lines = 0;
    while (!pending.empty()) {
        const auto [entry, at] = pending.back();
        pending.pop_back();
        if (at - first > kMaxLevels) return -1;
        std::string line(2 * static_cast<std::size_t>(at), ' ');
        line += entry->label_;
        if (entry->value_) {
            line += " : ";
            line += entry->value_->Text();
        }
        line += '\n';
        stream.Append(line);
        ++lines;
        for (auto sub = entry->entries_.rbegin(); sub != entry->entries_.rend(); ++sub)
            pending.emplace_back(*sub, at + 1);
    }
    return lines;
}

QRVFrmOut_Deleter::QRVFrmOut_Deleter() = default;
QRVFrmOut_Deleter::~QRVFrmOut_Deleter() = default;

void QRVFrmOut_Deleter::ManageEntry(QRVFrmOut_PrintEntry* entry) {
    if (entry) entries_.emplace_back(entry);
}
void QRVFrmOut_Deleter::ManageValue(QRVFrmOut_Value* value) {
    if (value) values_.emplace_back(value);
}

int QRVFrmOut_TranslateModuleName(const char* moduleName) {
    if (!moduleName) return 0;
    for (const ModuleRow& row : kModules) {
        if (std::strcmp(moduleName, row.name) == 0) return row.number;
    }
    return 0;
}
