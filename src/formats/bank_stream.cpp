// Walking and appending material frames in a bank file.
#include "formats/bank_stream.h"

#include "formats/locale_guard.h"
#include "formats/mat_factory.h"

namespace {

constexpr std::streamoff kFirstFrame = 4;  // behind the lead word

}  // namespace

CQrvBankStream::CQrvBankStream() = default;

CQrvBankStream::~CQrvBankStream() {
    Object.reset();
}

void CQrvBankStream::SetFile(const char* name, bool writable) {
    FileName = name;
    Writable = writable;
}

bool CQrvBankStream::Open() {
    if (IsOpen) return true;
    const std::ios::openmode mode =
        std::ios::in | std::ios::binary | (Writable ? std::ios::out : std::ios::openmode());
    {
        qrv::LocaleGuard guard;
        open(FileName ? FileName : "", mode);
    }
    if (is_open())
        clear();
    else
        setstate(std::ios::failbit);
    if (fail()) return false;
    IsOpen = true;
    return true;
}

bool CQrvBankStream::OpenFile(const char* name, bool writable) {
    SetFile(name, writable);
    Close();
    return Open();
}

void CQrvBankStream::Close() {
    if (!IsOpen) return;
    close();
    IsOpen = false;
}

void CQrvBankStream::restart() {
    clear();
}

bool CQrvBankStream::skipFrame() {
    std::int32_t size = 0;
    if (!Bytes.ReadInt(size)) return false;
    if (size < 0) {
        // A size that points backwards would walk in a circle: the frame ends the file.
        setstate(std::ios::failbit);
        return false;
    }
    seekg(static_cast<std::streamoff>(size), std::ios::cur);
    return !fail();
}

int CQrvBankStream::GetMaterialCount() {
    if (!IsOpen) return 0;
    restart();
    seekg(0, std::ios::end);
    const std::streamoff end = tellg();
    seekg(kFirstFrame, std::ios::beg);
    std::streamoff position = tellg();
    int count = 0;
    while (!fail() && position < end) {
        ++count;  // a frame that starts before the end counts, however it ends
        if (!skipFrame()) break;
        position = tellg();
    }
    return count;
}

CQrvMatBase* CQrvBankStream::LoadMaterial(int index) {
    Object.reset();
    if (!IsOpen) return nullptr;
    restart();
    seekg(kFirstFrame, std::ios::beg);
    for (int i = 0; i < index; ++i)
        if (!skipFrame()) break;
    std::int32_t size = 0;
    std::int32_t objType = 0;
    if (!Bytes.ReadInt(size) || !Bytes.ReadInt(objType)) return nullptr;
    Object = qrv::newObjectOfType(objType, &Bytes);
    if (!Object) return nullptr;
    Object->Read();
    return Object.get();
}

void CQrvBankStream::AppendMaterial(CQrvMatBase* object) {
    if (!object || !IsOpen) return;
    restart();
    seekp(0, std::ios::end);
    object->WriteTo(Bytes);
}
