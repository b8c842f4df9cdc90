// QRVFrmOut: a print tree for the material report. Entries carry a label, at most one value and
// an ordered list of sub entries; printing walks the tree depth first into a string stream.
//
// Line form: two blanks per level of depth, the label, and when a value is selected " : " and the
// value (an integer in decimal); every line ends in "\n".
//
// Entries and values are not owned by the entries that point to them: whoever builds a tree keeps
// its nodes alive until it is printed, for instance with a QRVFrmOut_Deleter.
#ifndef QUORVALIB_FRMOUT_H
#define QUORVALIB_FRMOUT_H

#include <quorvalib/export.h>

#include <memory>
#include <string>
#include <vector>

// Collects printed text.
class QRV_API QRVFrmOut_StringStream {
public:
    QRVFrmOut_StringStream();
    virtual ~QRVFrmOut_StringStream();

    // Appends text; a null text appends nothing.
    void Append(const char* text);
    void Append(const std::string& text);
    // Everything collected so far.
    const std::string& str() const;
    // Drops what was collected.
    void Clear();

private:
    std::string text_;
};

// What an entry shows beside its label.
class QRV_API QRVFrmOut_Value {
public:
    virtual ~QRVFrmOut_Value();
    // The value as printed.
    virtual std::string Text() const = 0;
};

// A text value. A null text is kept as the empty text.
class QRV_API QRVFrmOut_String : public QRVFrmOut_Value {
public:
    explicit QRVFrmOut_String(const char* text);
    ~QRVFrmOut_String() override;
    std::string Text() const override;

private:
    std::string text_;
};

// An integer value, printed in decimal.
class QRV_API QRVFrmOut_Integer : public QRVFrmOut_Value {
public:
    explicit QRVFrmOut_Integer(int value);
    ~QRVFrmOut_Integer() override;
    std::string Text() const override;

private:
    int value_;
};

class QRV_API QRVFrmOut_PrintEntry {
public:
    // An entry with an empty label, no value and no sub entries.
    QRVFrmOut_PrintEntry();
    virtual ~QRVFrmOut_PrintEntry();
    QRVFrmOut_PrintEntry(const QRVFrmOut_PrintEntry&) = delete;
    QRVFrmOut_PrintEntry& operator=(const QRVFrmOut_PrintEntry&) = delete;

    // Copies the label (the caller may reuse its buffer at once); null sets the empty label.
    void SetLabel(const char* label);
    const std::string& GetLabel() const;

    // Shows value beside the label from now on (null shows none). Returns the value shown before,
    // null when there was none. The value is not owned.
    QRVFrmOut_Value* SelectValue(QRVFrmOut_Value* value);

    // Appends a sub entry, kept by pointer and not owned. False, with nothing appended, for null
    // and for the entry itself.
    bool AddSubPrintEntry(const QRVFrmOut_PrintEntry* entry);

    // Writes this entry at the given depth (a negative depth counts as 0) and its sub entries one
    // level deeper, in order. Returns the number of lines written; -1 for a depth above 1000,
    // and -1, with what was written up to there left in the stream, when the tree nests deeper
    // than 1000 levels (a sub entry that leads back to one of its parents does that).
    int Print(int depth, QRVFrmOut_StringStream& stream) const;

private:
    std::string label_;
    QRVFrmOut_Value* value_ = nullptr;
    std::vector<const QRVFrmOut_PrintEntry*> entries_;
};

// Owns entries and values made on the heap and deletes them when it ends. Null is ignored; hand
// each object over once.
class QRV_API QRVFrmOut_Deleter {
public:
    QRVFrmOut_Deleter();
    ~QRVFrmOut_Deleter();
    QRVFrmOut_Deleter(const QRVFrmOut_Deleter&) = delete;
    QRVFrmOut_Deleter& operator=(const QRVFrmOut_Deleter&) = delete;

    void ManageEntry(QRVFrmOut_PrintEntry* entry);
    void ManageValue(QRVFrmOut_Value* value);

private:
    std::vector<std::unique_ptr<QRVFrmOut_PrintEntry>> entries_;
    std::vector<std::unique_ptr<QRVFrmOut_Value>> values_;
};

// The number of an analysis module by its name, case sensitive: "Filling" 1, "Packing" 2,
// "Cooling" 3, "Warpage" 4, "RIMFilling" 5, "RIMCuring" 6, "Filling3D" 11, "Cooling3D" 12,
// "Warpage3D" 13, "RIM3D" 14, "Packing3D" 15. Any other name, the empty one and null give 0.
QRV_API int QRVFrmOut_TranslateModuleName(const char* moduleName);

#endif
