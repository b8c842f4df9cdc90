// The file entry points: which form a file has, which name is really opened, what becomes of an
// existing file, and which value each failure returns.
#include <quorvalib/files.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <memory>
#include <stdexcept>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "files/file_names.h"
#include "formats/binary_stream.h"
#include "formats/conversions.h"
#include "formats/legacy_block.h"
#include "formats/locale_guard.h"
#include "formats/mat_factory.h"
#include "properties/mech_layout.h"
#include "record/material_internal.h"

namespace {

constexpr std::int32_t kLeadWord = 9051;
constexpr std::size_t kShortestName = 5;
constexpr std::size_t kFrameStart = 4;  // behind the lead word

bool nameTooShort(const char* path) {
    return !path || std::strlen(path) < kShortestName;
}

// A current-form file has a lead word whose signed remainder by 10000 is 9051 or more; so a
// negative word never does, and 19051 does.
bool isCurrentForm(std::int32_t leadWord) {
    return leadWord % 10000 >= kLeadWord;
}

using MaterialPtr = std::unique_ptr<QrvMaterial, void (*)(QrvMaterial*)>;

MaterialPtr newMaterial() {
    MaterialPtr material(new QrvMaterial, QrvReleaseMaterial);
    QrvInitMaterial(material.get());
    return material;
}

// The bytes of a whole file. A material file is mostly a few KiB: those are held in place, so a
// load asks the allocator for no buffer (a request of a KiB or more also makes the allocator tidy
// its free lists first); a larger file goes to the heap.
class FileBytes {
public:
    FileBytes() = default;
    FileBytes(const FileBytes&) = delete;
    FileBytes& operator=(const FileBytes&) = delete;

    // Room for size bytes, their content undefined until read.
    char* Allocate(std::size_t size) {
        heap_.reset(size > inPlace_.size() ? new char[size] : nullptr);
        size_ = size;
        return data();
    }
    void ShrinkTo(std::size_t size) { size_ = std::min(size, size_); }

    const char* data() const { return heap_ ? heap_.get() : inPlace_.data(); }
    char* data() { return heap_ ? heap_.get() : inPlace_.data(); }
    std::size_t size() const { return size_; }
    bool empty() const { return size_ == 0; }

private:
    std::array<char, 4096> inPlace_;
    std::unique_ptr<char[]> heap_;
    std::size_t size_ = 0;
};

// The current form: the frame behind the lead word, read from the file's bytes in memory.
QrvMaterial* loadCurrentForm(const FileBytes& bytes, bool isRIM) {
    CQrvByteReader stream(bytes.data(), bytes.size());
    stream.Io().seekg(kFrameStart);
    std::unique_ptr<CQrvMatBase> object = qrv::readFrame(stream);
    if (!object) return nullptr;
    MaterialPtr material = newMaterial();
    qrv::materialFromSpentObject(material.get(), object.get(), isRIM);
    return material.release();
}

struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, FileCloser>;

struct DescriptorCloser {
    void operator()(const int* descriptor) const { ::close(*descriptor); }
};

// QrvFileExists without removal and QrvFileHasContent in one open: the file opens for reading and
// its end lies beyond position 0.
bool opensWithContent(const char* path) {
    const int descriptor = ::open(path, O_RDONLY | O_CLOEXEC);
    if (descriptor < 0) return false;
    const off_t end = ::lseek(descriptor, 0, SEEK_END);
    ::close(descriptor);
    return end > 0;
}

// The bytes of a regular file, read whole through one open made under the locale guard. A load
// is mostly system calls; this is one open, one size query and one read. False when the file
// cannot be opened, is not a regular file or cannot be read.
bool readWhole(const char* path, FileBytes& bytes) {
    int descriptor = -1;
    {
        qrv::LocaleGuard guard;
        descriptor = ::open(path, O_RDONLY | O_CLOEXEC);
    }
    if (descriptor < 0) return false;
    const std::unique_ptr<int, DescriptorCloser> closer(&descriptor);
    struct stat info {};
    if (::fstat(descriptor, &info) != 0 || !S_ISREG(info.st_mode)) return false;
    char* const target = bytes.Allocate(static_cast<std::size_t>(info.st_size));
    std::size_t read = 0;
    while (read < bytes.size()) {
        const ssize_t got = ::read(descriptor, target + read, bytes.size() - read);
        if (got < 0 && errno == EINTR) continue;
        if (got <= 0) break;
        read += static_cast<std::size_t>(got);
    }
    bytes.ShrinkTo(read);
    return true;
}

// The first word, little-endian; 0 for a file shorter than it. Decoded in place: a stream object
// for four bytes costs more than the rest of the frame's set-up.
std::int32_t leadWordOf(const FileBytes& bytes) {
    if (bytes.size() < kFrameStart) return 0;
    std::uint32_t word = 0;
    for (std::size_t i = 0; i < kFrameStart; ++i)
        word |= static_cast<std::uint32_t>(static_cast<unsigned char>(bytes.data()[i])) << (8 * i);
    return static_cast<std::int32_t>(word);
}

// The old form: one block of 2624 bytes. A file that cannot be opened for reading is created
// empty ("wb+"), as the old reader did; its read then comes up short.
QrvMaterial* loadLegacyForm(const char* path, bool isRIM) {
    File file(std::fopen(path, "rb"));
    if (!file) file.reset(std::fopen(path, "wb+"));
    if (!file) return nullptr;
    std::rewind(file.get());
    std::fseek(file.get(), 0, SEEK_CUR);
    // Zeroed, so that the conversion of a short block reads no undefined byte.
    unsigned char block[qrv::legacy::kBlockSize] = {};
    const std::size_t read = std::fread(block, 1, sizeof block, file.get());
    MaterialPtr material = newMaterial();
    try {
        QrvMaterialFromBlock(material.get(), block, isRIM);
    } catch (const std::invalid_argument&) {
        return nullptr;  // a short block code or values past the block
    }
    if (read != sizeof block) return nullptr;
    return material.release();
}

QrvMaterial* loadMaterial(const char* path, bool isRIM) {
    if (nameTooShort(path)) return nullptr;
    // The name as given decides whether there is anything to read, before any mapping. When the
    // mapping leaves the name as it is, the one open that reads the file answers that too.
    const bool mapped = qrv::mapsToOtherName(path);
    if (mapped && !opensWithContent(path)) return nullptr;
    const char* name = nullptr;
    if (!QrvMapFileName(path, &name)) return nullptr;
    FileBytes bytes;
    const bool opened = readWhole(name, bytes);
    if (!mapped && bytes.empty()) return nullptr;
    // The word stays 0 when the file cannot be opened or is shorter, which sends the load to the
    // old form.
    const std::int32_t leadWord = opened ? leadWordOf(bytes) : 0;
    if (isCurrentForm(leadWord)) return loadCurrentForm(bytes, isRIM);
    return loadLegacyForm(name, isRIM);
}

// Steps shared by both saves; checkOpen is the only difference that the result can show.
int saveMaterial(const char* path, QrvMaterial* material, bool isRIM, bool checkOpen) {
    if (!material) return -1;
    if (nameTooShort(path)) return -3;
    if (qrv::unwritableReason(*material, qrv::objTypeFor(material->FileType))) return -1;
    // No backup: the old file is gone before the new one is opened.
    QrvFileExists(path, true);
    CQrvFileStream stream;
    {
        qrv::LocaleGuard guard;
        stream.File().open(path, std::ios::out | std::ios::binary);
    }
    if (checkOpen && stream.Failed()) return 0;
    stream.WriteInt(kLeadWord);
    std::unique_ptr<CQrvMatBase> object = qrv::newObjectFor(material->FileType, &stream);
    QrvMaterialToStream(material, object.get(), isRIM);
    object->Write();
    stream.File().close();
    return 1;
}

}  // namespace

QrvMaterial* QrvGetMaterial(const char* path) {
    if (nameTooShort(path)) return nullptr;
    if (QrvIsRIM(path)) return QrvGetMaterialRIM(path);
    return loadMaterial(path, false);
}

QrvMaterial* QrvGetMaterialRIM(const char* path) {
    return loadMaterial(path, true);
}

int QrvSaveMaterial(const char* path, QrvMaterial* material) {
    return saveMaterial(path, material, false, true);
}

int QrvSaveMaterialRIM(const char* path, QrvMaterial* material) {
    return saveMaterial(path, material, true, false);
}

bool QrvMatHasFiber(const char* path) {
    if (nameTooShort(path)) return false;
    MaterialPtr material(QrvGetMaterial(path), QrvReleaseMaterial);
    if (!material) return false;
    // The fibre fraction sits where a thermoplastic keeps it (index 9 of model 2, 4 of models 3
    // to 5), whatever the file's type; other models have none.
    const QrvMatParam& mech = material->Mech;
    const int fibreIndex = qrv::mech::indexOf(qrv::mech::Value::FiberPercent, false, mech.Model);
    if (fibreIndex < 0 || !mech.Para || mech.Count <= fibreIndex) return false;
    return mech.Para[fibreIndex] > 0.0;
}
