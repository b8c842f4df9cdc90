// A run file with 100 materials (the thermoplastic sample: every block, two measured curve
// families and an MTC record) written and read back, against the floor of writing and reading
// the same arrays of doubles as plain HDF5 datasets, one group per material, in the same run.
#include <quorvalib/quorvalib.h>

#include <benchmark/benchmark.h>
#include <hdf5.h>

#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

namespace {

constexpr int kMaterials = 100;
constexpr int kRun1Plastic = 65536 + 4096;

std::string tempPath(const char* tail) {
    return (std::filesystem::temp_directory_path() /
            ("quorvalib_bench_" + std::to_string(::getpid()) + tail))
        .string();
}

QrvMaterial* sampleMaterial() {
    static QrvMaterial* material = QrvGetMaterial(
        (std::string(QRV_BENCH_DATA_DIR) + "/sample_thermoplastic_9012.mtr").c_str());
    return material;
}

// The arrays of doubles a run file holds for the sample, with their shapes.
struct Array {
    std::string Name;
    hsize_t Rows;
    std::vector<double> Values;
};

void addRaw(std::vector<Array>& arrays, CQrvMatRawData* raw, const std::string& prefix) {
    if (!raw) return;
    Array conditions{prefix + " Condition", 1, {}};
    for (int i = 0; i < raw->GetCurveCount(); ++i) {
        double condition = 0.0;
        int points = 0;
        double *x = nullptr, *y = nullptr;
        raw->GetCurve(i, condition, points, x, y);
        conditions.Values.push_back(condition);
        Array curve{prefix + " Curve " + std::to_string(i + 1), 2,
                    std::vector<double>(x, x + points)};
        curve.Values.insert(curve.Values.end(), y, y + points);
        arrays.push_back(curve);
    }
    arrays.push_back(conditions);
}

const std::vector<Array>& sampleArrays() {
    static const std::vector<Array> arrays = [] {
        std::vector<Array> all;
        QrvMaterial* m = sampleMaterial();
        const QrvMatParam* blocks[] = {&m->Vis,  &m->PVT, &m->Cp, &m->K,  &m->VE,  &m->OP,
                                       &m->Mech, &m->KN,  &m->CR, &m->PW, &m->Temp};
        int index = 0;
        for (const QrvMatParam* block : blocks) {
            ++index;
            if (block->Count > 0)
                all.push_back({"Para " + std::to_string(index), 1,
                               std::vector<double>(block->Para, block->Para + block->Count)});
        }
        addRaw(all, m->VisRaw, "Vis");
        addRaw(all, m->PVTRaw, "PVT");
        int version = 0, count = 0;
        QrvGetMTCInfo(m, version, count);
        for (int k = 0; k < count; ++k) {
            const QRV_MTC* record = QrvGetMTCData(m, k);
            const std::string prefix = "MTC " + std::to_string(k + 1);
            all.push_back(
                {prefix + " Temperatures", 1,
                 std::vector<double>(record->IntervalTemperature,
                                     record->IntervalTemperature + record->SectionCount)});
            for (int s = 0; s < record->SectionCount; ++s) {
                const QrvMTCSection& section = record->Sections[s];
                all.push_back({prefix + " Parameters " + std::to_string(s + 1), 1,
                               std::vector<double>(section.Parameters,
                                                   section.Parameters + section.MaxParameterNum)});
            }
        }
        return all;
    }();
    return arrays;
}

// The floor: the same arrays as plain two-dimensional datasets, written into a new file, one
// group per material, then all read back.
void BM_PlainHDF5Arrays(benchmark::State& state) {
    const std::string path = tempPath("_plain.h5");
    const std::vector<Array>& arrays = sampleArrays();
    size_t doubles = 0;
    for (auto _ : state) {
        hid_t file = H5Fcreate(path.c_str(), H5F_ACC_TRUNC, H5P_DEFAULT, H5P_DEFAULT);
        for (int m = 0; m < kMaterials; ++m) {
            hid_t group = H5Gcreate2(file, ("Material " + std::to_string(m + 1)).c_str(),
                                     H5P_DEFAULT, H5P_DEFAULT, H5P_DEFAULT);
            for (const Array& array : arrays) {
                const hsize_t dims[2] = {array.Rows, array.Values.size() / array.Rows};
                hid_t space = H5Screate_simple(2, dims, nullptr);
                hid_t set = H5Dcreate2(group, array.Name.c_str(), H5T_NATIVE_DOUBLE, space,
                                       H5P_DEFAULT, H5P_DEFAULT, H5P_DEFAULT);
                if (!array.Values.empty())
                    H5Dwrite(set, H5T_NATIVE_DOUBLE, H5S_ALL, H5S_ALL, H5P_DEFAULT,
                             array.Values.data());
                H5Dclose(set);
                H5Sclose(space);
            }
            H5Gclose(group);
        }
        H5Fclose(file);
        file = H5Fopen(path.c_str(), H5F_ACC_RDONLY, H5P_DEFAULT);
        doubles = 0;
        for (int m = 0; m < kMaterials; ++m) {
            hid_t group =
                H5Gopen2(file, ("Material " + std::to_string(m + 1)).c_str(), H5P_DEFAULT);
            for (const Array& array : arrays) {
                hid_t set = H5Dopen2(group, array.Name.c_str(), H5P_DEFAULT);
                std::vector<double> values(array.Values.size());
                if (!values.empty())
                    H5Dread(set, H5T_NATIVE_DOUBLE, H5S_ALL, H5S_ALL, H5P_DEFAULT, values.data());
                doubles += values.size();
                benchmark::DoNotOptimize(values.data());
                H5Dclose(set);
            }
            H5Gclose(group);
        }
        H5Fclose(file);
    }
    std::remove(path.c_str());
    state.counters["doubles"] = static_cast<double>(doubles);
}
BENCHMARK(BM_PlainHDF5Arrays)->Unit(benchmark::kMillisecond);

// 100 materials added to a new run file, then all read back (each record released).
void BM_RunFileAddAndGetMaterials(benchmark::State& state) {
    const std::string path = tempPath("_run.rsv");
    QrvMaterial* material = sampleMaterial();
    for (auto _ : state) {
        std::remove(path.c_str());
        {
            MATIO_RSVManipulator writer(path.c_str());
            for (int m = 0; m < kMaterials; ++m)
                writer.AddMaterial(material, "Part", kRun1Plastic);
        }
        MATIO_RSVManipulator reader(path.c_str());
        const int count = reader.GetMaterialCount();
        QrvMaterial* previous = nullptr;
        for (int m = 0; m < count; ++m) {
            QrvMaterial* back = reader.GetMaterial(m);
            benchmark::DoNotOptimize(back);
            QrvReleaseMaterial(previous);  // each earlier record is the caller's to end
            previous = back;
        }  // the last one stays with the reader, which ends it
    }
    std::remove(path.c_str());
}
BENCHMARK(BM_RunFileAddAndGetMaterials)->Unit(benchmark::kMillisecond);

}  // namespace
