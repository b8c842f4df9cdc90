// The Material object of the module: one library record, owned here and released with the
// library's own call when Python lets go of the object.
#ifndef QRVPY_MATERIAL_H
#define QRVPY_MATERIAL_H

#include <quorvalib/record.h>

#include <pybind11/pybind11.h>

#include <memory>
#include <string>

namespace qrvpy {

struct ReleaseRecord {
    void operator()(QrvMaterial* material) const { QrvReleaseMaterial(material); }
};
using RecordPtr = std::unique_ptr<QrvMaterial, ReleaseRecord>;

// A new empty record whose header words (left undefined by the record's constructor) are 0.
RecordPtr newRecord();

class Material {
public:
    // origin names where the record came from, for messages: a file, a bank entry, "generated".
    Material(RecordPtr record, std::string origin);

    QrvMaterial* record() const { return record_.get(); }
    const std::string& origin() const { return origin_; }

private:
    RecordPtr record_;
    std::string origin_;
};

// Narrow text of the library as a Python str: the bytes decoded as file names are (UTF-8 with
// undecodable bytes kept as surrogates, so that nothing is lost on the way back). None for null.
pybind11::object text(const char* value);
// A copy of a text of the library's shared name text, taken at once.
std::string copied(const char* value);

// The unit system argument: 0 base, 1 SI, 2 English; ValueError otherwise.
int unitSystem(int system);

// Binds Material and its record-level calls; returns the class so that the other areas add their
// methods to it.
pybind11::class_<Material> bindMaterial(pybind11::module_& module);
void bindBlocks(pybind11::module_& module, pybind11::class_<Material>& material);
void bindEvaluation(pybind11::module_& module, pybind11::class_<Material>& material);
void bindValues(pybind11::class_<Material>& material);
void bindBanks(pybind11::module_& module);
void bindNames(pybind11::module_& module);
void bindRunFiles(pybind11::module_& module);

}  // namespace qrvpy

#endif
