#include "failures.h"

#include <cerrno>
#include <cstring>
#include <exception>
#include <filesystem>
#include <system_error>

namespace py = pybind11;

namespace qrvpy {
namespace {

enum class Kind { Value, NotFound, Os, Index };

// Carries a failure from the binding code to the translator, which raises the Python exception
// with the GIL held.
struct Failure : std::exception {
    Kind kind;
    std::string message;
    std::string path;
    int error;

    Failure(Kind k, std::string m, std::string p, int e)
        : kind(k), message(std::move(m)), path(std::move(p)), error(e) {}
    const char* what() const noexcept override { return message.c_str(); }
    // The text of a ValueError or IndexError: the file first, when there is one.
    std::string text() const { return path.empty() ? message : path + ": " + message; }
};

[[noreturn]] void raise(Kind kind, const std::string& path, const std::string& message,
                        int error = 0) {
    throw Failure(kind, message, path, error);
}

// The documented result codes that are failures; every code not listed is a success.
struct CodeRow {
    Operation operation;
    int code;
    Kind kind;
    const char* text;
};

constexpr CodeRow kCodes[] = {
    {Operation::Save, 0, Kind::Os, "the file could not be opened for writing"},
    {Operation::Save, -1, Kind::Value,
     "the material cannot be written: a text (polymer, producer, grade name or comment) is "
     "missing, or a block has a value count without values"},
    {Operation::Save, -3, Kind::Value, "the file name is too short (5 characters or more)"},
    {Operation::Extract, -1, Kind::Value,
     "the bank cannot be read, or the entry is of an unknown class"},
    {Operation::Extract, -2, Kind::Index, "no such entry in the bank"},
    {Operation::Export, -1, Kind::Value,
     "the bank cannot be read, or the entry is of an unknown class"},
    {Operation::Export, -2, Kind::Index, "no such entry in the bank"},
    {Operation::Export, -4, Kind::Os,
     "the exported material could not be saved (name shorter than 5 characters, or the file "
     "could not be opened)"},
    {Operation::AddToBank, 1, Kind::Value,
     "some materials could not be added (a missing text, a block with a value count without "
     "values, or a file that does not load); the others were added"},
    {Operation::AddToBank, -1, Kind::Os,
     "the bank cannot be opened for update (a folder, a file of 1 to 3 bytes, or no access)"},
};

}  // namespace

void check(Operation operation, int code, const std::string& path, const std::string& subject) {
    for (const CodeRow& row : kCodes) {
        if (row.operation != operation || row.code != code) continue;
        const std::string text = subject.empty() ? row.text : subject + ": " + row.text;
        raise(row.kind, path, text);
    }
}

void requireExists(const std::string& path, const char* what) {
    std::error_code ignored;
    if (!std::filesystem::exists(path, ignored))
        raise(Kind::NotFound, path, std::string("no such ") + what, ENOENT);
}

void failLoad(const std::string& path, const char* what) {
    if (path.size() < 5)
        raise(Kind::Value, path, "the file name is too short (5 characters or more)");
    requireExists(path, what);
    std::error_code ignored;
    if (std::filesystem::is_regular_file(path, ignored) &&
        std::filesystem::file_size(path, ignored) == 0)
        raise(Kind::Value, path, std::string("the ") + what + " is empty");
    raise(Kind::Value, path, std::string("not a ") + what + " the library can read");
}

void failValue(const std::string& message) {
    raise(Kind::Value, {}, message);
}
void failNotFound(const std::string& path, const std::string& message) {
    raise(Kind::NotFound, path, message, ENOENT);
}
void failOs(const std::string& path, const std::string& message) {
    raise(Kind::Os, path, message);
}

void registerFailures(py::module_& module) {
    (void)module;
    py::register_exception_translator([](std::exception_ptr thrown) {
        try {
            if (thrown) std::rethrow_exception(thrown);
        } catch (const Failure& failure) {
            switch (failure.kind) {
                case Kind::Value:
                    PyErr_SetString(PyExc_ValueError, failure.text().c_str());
                    return;
                case Kind::Index:
                    PyErr_SetString(PyExc_IndexError, failure.text().c_str());
                    return;
                case Kind::NotFound:
                case Kind::Os: {
                    // OSError(errno, text, filename), as open() raises it: the text shows the
                    // file name and the filename attribute holds it.
                    PyObject* type =
                        failure.kind == Kind::NotFound ? PyExc_FileNotFoundError : PyExc_OSError;
                    py::tuple args = py::make_tuple(failure.error, failure.message, failure.path);
                    PyErr_SetObject(type, args.ptr());
                    return;
                }
            }
        }
    });
}

}  // namespace qrvpy
