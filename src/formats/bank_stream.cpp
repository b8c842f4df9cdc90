// Walking and appending material frames in a bank file.
#include "formats/bank_stream.h"

#include <sys/stat.h>

#include <filesystem>
#include <string>
#include <system_error>

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
    forgetFrames();
    const char* name = FileName ? FileName : "";
    const std::ios::openmode mode =
        std::ios::in | std::ios::binary | (Writable ? std::ios::out : std::ios::openmode());
    // A folder opens for reading on some systems and then reads as nothing sensible.
    struct stat info {};
    if (::stat(name, &info) == 0 && S_ISDIR(info.st_mode)) {
        setstate(std::ios::failbit);
        return false;
    }
    {
        qrv::LocaleGuard guard;
        open(name, mode);
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
    forgetFrames();
    if (!IsOpen) return;
    close();
    IsOpen = false;
}

void CQrvBankStream::restart() {
    clear();
}

void CQrvBankStream::forgetFrames() {
    FrameStarts.clear();
    WalkEnded = false;
}

void CQrvBankStream::moveTo(std::streamoff target) {
    restart();
    // A target a little ahead is reached inside the read buffer, without a seek that throws the
    // buffer away.
    const std::streamoff here = tellg();
    const std::streamsize buffered = rdbuf()->in_avail();
    if (here >= 0 && target >= here && buffered > 0 && target - here <= buffered)
        ignore(static_cast<std::streamsize>(target - here));
    else
        seekg(target, std::ios::beg);
}

bool CQrvBankStream::reachFrame(std::size_t index) {
    if (index < FrameStarts.size()) return true;
    if (WalkEnded) return false;
    if (FrameStarts.empty()) {
        FrameStarts.push_back({kFirstFrame});
        if (index == 0) return true;
    }
    std::streamoff here = FrameStarts.back().at;
    moveTo(here);
    for (;;) {
        std::int32_t size = 0;
        // A size that points backwards would walk in a circle: the frame ends the walk.
        if (!Bytes.ReadInt(size) || size < 0) {
            WalkEnded = true;
            setstate(std::ios::failbit);
            return false;
        }
        const std::streamoff next = here + 4 + size;
        FrameStarts.push_back({next});
        if (index < FrameStarts.size()) return true;
        const std::streamsize buffered = rdbuf()->in_avail();
        if (buffered > 0 && size <= buffered)
            ignore(size);
        else
            seekg(next, std::ios::beg);
        here = next;
    }
}

int CQrvBankStream::GetMaterialCount() {
    if (!IsOpen) return 0;
    restart();
    seekg(0, std::ios::end);
    const std::streamoff end = tellg();
    int count = 0;
    // A frame that starts before the end counts, however it ends.
    for (std::size_t i = 0; reachFrame(i) && FrameStarts[i].at < end; ++i)
        ++count;
    restart();
    return count;
}

CQrvMatBase* CQrvBankStream::LoadMaterial(int index) {
    Object.reset();
    if (!IsOpen) return nullptr;
    restart();
    if (!reachFrame(index > 0 ? static_cast<std::size_t>(index) : 0)) return nullptr;
    moveTo(FrameStarts[index > 0 ? static_cast<std::size_t>(index) : 0].at);
    Object = qrv::readFrame(Bytes);
    return Object.get();
}

bool CQrvBankStream::AppendMaterial(CQrvMatBase* object) {
    if (!object || !IsOpen) return false;
    forgetFrames();
    restart();
    // The frame is made in memory and written in one piece, so that a failure part-way can be
    // cut off again.
    CQrvMemoryStream frame;
    object->WriteTo(frame);
    const std::string bytes = frame.Bytes();
    seekp(0, std::ios::end);
    const std::streamoff oldEnd = tellp();
    write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    flush();
    if (!fail()) return true;
    clear();
    if (oldEnd >= 0 && FileName) {
        std::error_code ignored;
        std::filesystem::resize_file(FileName, static_cast<std::uintmax_t>(oldEnd), ignored);
    }
    setstate(std::ios::failbit);
    return false;
}
