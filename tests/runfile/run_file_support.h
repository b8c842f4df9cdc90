// Helpers of the run-file tests: sample materials, what a run file gives back of them, and reading
// a run file through the HDF5 C library itself rather than through the store under test.
#ifndef QRV_TESTS_RUNFILE_RUN_FILE_SUPPORT_H
#define QRV_TESTS_RUNFILE_RUN_FILE_SUPPORT_H

#include <gtest/gtest.h>
#include <hdf5.h>
#include <nlohmann/json.hpp>

#include <quorvalib/files.h>
#include <quorvalib/record.h>

#include <cstdint>
#include <cstring>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "support/fixture.h"
#include "support/material_ptr.h"

namespace qrvtest {

constexpr int kRun1Plastic = 65536 + 4096;
constexpr int kRun2Plastic = 2 * 65536 + 4096;

struct Sample {
    const char* File;
    const char* Json;
};
constexpr Sample kThermoplastic{"sample_thermoplastic_9012.mtr", "sample_thermoplastic_9012.json"};
constexpr Sample kThermoset{"sample_thermoset_9018.mtx", "sample_thermoset_9018.json"};
constexpr Sample kMetal{"sample_metal.mtr", "sample_metal.json"};

inline MaterialPtr loadSample(const Sample& sample) {
    return adopt(QrvGetMaterial(dataPath(sample.File).c_str()));
}

inline nlohmann::json sampleRecord(const Sample& sample) {
    return readJson(sample.Json).at("load").at("record");
}

// What a run file gives back of a record: the blocks' Source words at their default, EM, PR,
// CLTE and SI empty, every text present (a null one comes back empty), the raw curves without
// their source, fit error and standard, and with MTC data version 9010 and list version 1000.
inline nlohmann::json afterRunFile(nlohmann::json record) {
    for (const char* text : {"Polymer", "Producer", "GradeName", "Comment", "Source"})
        if (record.at(text).is_null()) record[text] = "";
    for (auto& [name, block] : record.at("Blocks").items()) {
        block["Source"] = 0;
        if (name == "EM" || name == "PR" || name == "CLTE" || name == "SI") {
            block["Model"] = 0;
            block["Count"] = 0;
            block["Para"] = nullptr;
        }
    }
    for (const char* raw : {"VisRaw", "PVTRaw"}) {
        nlohmann::json& data = record.at(raw);
        if (data.is_null()) continue;
        if (data.at("CurveCount").get<int>() == 0) {
            data = nullptr;
            continue;
        }
        data["Source"] = 0;
        data["FitError"] = 0.0;
        data["MeasureStandard"] = "";
    }
    if (!record.at("MTC").is_null()) {
        record["FileVer"] = 9010;
        record["MTC"]["Version"] = 1000;
    }
    return record;
}

// A run file opened through the HDF5 C library, read-only unless told otherwise.
class RawFile {
public:
    explicit RawFile(const std::string& path, unsigned mode = H5F_ACC_RDONLY)
        : id_(H5Fopen(path.c_str(), mode, H5P_DEFAULT)) {}
    ~RawFile() {
        if (id_ >= 0) H5Fclose(id_);
    }
    RawFile(const RawFile&) = delete;
    RawFile& operator=(const RawFile&) = delete;
    hid_t id() const { return id_; }

    bool exists(const std::string& path) const {
        // Walk the path one link at a time: H5Lexists wants every parent to exist.
        std::string sofar;
        size_t start = 1;
        while (start <= path.size()) {
            const size_t end = path.find('/', start);
            sofar = path.substr(0, end);
            if (H5Lexists(id_, sofar.c_str(), H5P_DEFAULT) <= 0) return false;
            if (end == std::string::npos) break;
            start = end + 1;
        }
        return true;
    }

    // Number of links directly in a group.
    hsize_t links(const std::string& group) const {
        H5G_info_t info{};
        if (H5Gget_info_by_name(id_, group.c_str(), &info, H5P_DEFAULT) < 0) return 0;
        return info.nlinks;
    }

    std::vector<hsize_t> dimensions(const std::string& dataset) const {
        hid_t d = H5Dopen2(id_, dataset.c_str(), H5P_DEFAULT);
        hid_t s = H5Dget_space(d);
        std::vector<hsize_t> dims(static_cast<size_t>(H5Sget_simple_extent_ndims(s)));
        H5Sget_simple_extent_dims(s, dims.data(), nullptr);
        H5Sclose(s);
        H5Dclose(d);
        return dims;
    }

    // A dataset's element type as HDF5 describes it: class, size in bytes and, for an integer,
    // its sign (H5T_SGN_ERROR otherwise, and for a dataset that is missing).
    std::tuple<H5T_class_t, size_t, H5T_sign_t> elementType(const std::string& dataset) const {
        hid_t d = H5Dopen2(id_, dataset.c_str(), H5P_DEFAULT);
        if (d < 0) return {H5T_NO_CLASS, 0, H5T_SGN_ERROR};
        hid_t type = H5Dget_type(d);
        const H5T_class_t kind = H5Tget_class(type);
        const auto result = std::make_tuple(
            kind, H5Tget_size(type), kind == H5T_INTEGER ? H5Tget_sign(type) : H5T_SGN_ERROR);
        H5Tclose(type);
        H5Dclose(d);
        return result;
    }

    int intAttribute(const std::string& object, const std::string& name) const {
        int value = -12345;
        // A missing attribute is an answer here: ask whether it exists first, so that HDF5
        // prints nothing.
        if (H5Aexists_by_name(id_, object.c_str(), name.c_str(), H5P_DEFAULT) <= 0) return value;
        hid_t a = H5Aopen_by_name(id_, object.c_str(), name.c_str(), H5P_DEFAULT, H5P_DEFAULT);
        if (a >= 0) {
            H5Aread(a, H5T_NATIVE_INT, &value);
            H5Aclose(a);
        }
        return value;
    }

    std::string textAttribute(const std::string& object, const std::string& name) const {
        if (H5Aexists_by_name(id_, object.c_str(), name.c_str(), H5P_DEFAULT) <= 0)
            return "<missing>";
        hid_t a = H5Aopen_by_name(id_, object.c_str(), name.c_str(), H5P_DEFAULT, H5P_DEFAULT);
        if (a < 0) return "<missing>";
        hid_t type = H5Aget_type(a);
        std::vector<char> bytes(H5Tget_size(type) + 1, '\0');
        H5Aread(a, type, bytes.data());
        H5Tclose(type);
        H5Aclose(a);
        return bytes.data();
    }

    // The 20 description rows of an array: (ID, Value), the value as its 128 stored bytes up to
    // the first zero byte, if any.
    std::vector<std::pair<int, std::string>> description(const std::string& dataset) const {
        struct Row {
            std::int32_t Id;
            char Value[128];
        };
        static_assert(sizeof(Row) == 132, "row layout");
        hid_t memory = H5Tcreate(H5T_COMPOUND, sizeof(Row));
        H5Tinsert(memory, "ID", offsetof(Row, Id), H5T_NATIVE_INT32);
        hid_t text = H5Tcopy(H5T_C_S1);
        H5Tset_size(text, 128);
        H5Tset_strpad(text, H5T_STR_NULLTERM);  // as stored: no conversion
        H5Tinsert(memory, "Value", offsetof(Row, Value), text);
        std::vector<Row> rows(20);
        hid_t d = H5Dopen2(id_, dataset.c_str(), H5P_DEFAULT);
        const herr_t status = H5Dread(d, memory, H5S_ALL, H5S_ALL, H5P_DEFAULT, rows.data());
        H5Dclose(d);
        H5Tclose(text);
        H5Tclose(memory);
        std::vector<std::pair<int, std::string>> result;
        if (status < 0) return result;
        for (const Row& row : rows)
            result.emplace_back(row.Id, std::string(row.Value, strnlen(row.Value, 128)));
        return result;
    }

private:
    hid_t id_;
};

}  // namespace qrvtest

#endif
