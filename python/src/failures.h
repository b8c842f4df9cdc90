// The one place where the library's failure values become Python exceptions. Every binding hands
// its return code, null result or precondition here, with the file it concerns, instead of
// raising by itself: the texts and the exception classes stay alike across the module.
#ifndef QRVPY_FAILURES_H
#define QRVPY_FAILURES_H

#include <quorvalib/record.h>

#include <pybind11/pybind11.h>

#include <string>

namespace qrvpy {

// Operations whose integer results the library documents as codes.
enum class Operation { Save, Extract, Export, AddToBank };

// Raises the exception of the code of operation, naming path, or returns when the code means
// success. subject adds what the code was about ("entry 3").
void check(Operation operation, int code, const std::string& path, const std::string& subject = {});

// After a load that gave null: FileNotFoundError for a missing file, ValueError for a name the
// library refuses or a file it cannot read.
[[noreturn]] void failLoad(const std::string& path, const char* what);

// Raises FileNotFoundError (errno ENOENT, the file name in its filename attribute) when nothing
// exists at path.
void requireExists(const std::string& path, const char* what);

[[noreturn]] void failValue(const std::string& message);
[[noreturn]] void failNotFound(const std::string& path, const std::string& message);
[[noreturn]] void failOs(const std::string& path, const std::string& message);

// Installs the translation of the exceptions above into Python ones.
void registerFailures(pybind11::module_& module);

}  // namespace qrvpy

#endif
