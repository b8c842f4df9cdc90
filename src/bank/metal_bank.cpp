// The list of metals on offer, read from the system bank and the user's bank, and the same
// numbers from one metal file.
#include <quorvalib/bank.h>
#include <quorvalib/files.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "bank/bank_file.h"
#include "formats/bank_stream.h"
#include "measured/checked_vector.h"
#include "properties/density_text.h"

namespace {

// The bank paths are built in a buffer of this many characters, the terminating NUL included.
constexpr std::size_t kPathBuffer = 250;

constexpr const char* kSystemTail = "\\Bank\\System\\Metal.qbk";
constexpr const char* kUserTail = "\\Quorvane R13.0\\Material\\UserBank\\user.qbk";
constexpr const char* kUserRimTail = "\\Quorvane R13.0\\Material\\UserBank\\user-rim.qbk";

struct MetalEntry {
    std::string Name;
    double Density = 0.0;
    double Cp = 0.0;
    double K = 0.0;
    double EM = 0.0;
    double PR = 0.0;
    double CLTE = 0.0;
};

// Where each number stands in a metal's blocks: Cp and K first, then the Mech values.
struct Place {
    int tag;
    int index;
    double MetalEntry::*member;
};
constexpr Place kPlaces[] = {
    {QRV_TAG_CP, 0, &MetalEntry::Cp},     {QRV_TAG_K, 0, &MetalEntry::K},
    {QRV_TAG_MECH, 2, &MetalEntry::EM},   {QRV_TAG_MECH, 0, &MetalEntry::PR},
    {QRV_TAG_MECH, 5, &MetalEntry::CLTE},
};

// The density that a metal's comment carries ("D=7.85 g/cc"): the number read, or 0.0 when the
// mark or the unit is missing or the unit stands ahead of the mark.
double densityOf(const char* comment) {
    const qrv::DensityText scan = qrv::scanDensityText(comment);
    return scan.outcome == qrv::DensityText::kFound ||
                   scan.outcome == qrv::DensityText::kNotPositive
               ? scan.value
               : 0.0;
}

// The root and the tail, with the tail's backslashes made '/'; empty when the root is null or
// the path does not fit the buffer.
std::string bankPath(const char* root, const char* tail) {
    if (!root) return {};
    std::string path = std::string(root) + tail;
    if (path.size() >= kPathBuffer) return {};
    std::replace(path.begin() + static_cast<std::ptrdiff_t>(std::strlen(root)), path.end(), '\\',
                 '/');
    return path;
}

}  // namespace

struct MATIO_QrvNonPolyMat::State {
    const char* SystemRoot = nullptr;  // borrowed for the time of one GetMetalMatBank
    const char* UserRoot = nullptr;
    bool Rim = false;
    std::vector<MetalEntry> List;
    int Sharers = 1;  // objects that hold this state

    const MetalEntry& at(int index) { return qrv::checkedAt(List, index); }

    // Appends the metals of one bank; false when it cannot be opened. The user bank's entries
    // count only when their first text is "Metal".
    bool loadBank(const std::string& path, bool onlyMetal) {
        if (path.empty()) return false;
        CQrvBankStream bank;
        if (!bank.OpenFile(path.c_str(), false)) return false;
        const int count = bank.GetMaterialCount();
        for (int i = 0; i < count; ++i) {
            CQrvMatBase* entry = bank.LoadMaterial(i);
            if (!entry) continue;  // a class the library does not know
            const CQrvMatHeader& header = entry->GetHeader();
            if (onlyMetal && header.Texts[CQrvMatHeader::Polymer] != "Metal") continue;
            MetalEntry metal;
            metal.Name = header.Texts[CQrvMatHeader::GradeName];
            for (const Place& place : kPlaces)
                metal.*place.member = entry->GetParamValue(place.tag, place.index);
            metal.Density = densityOf(header.Texts[CQrvMatHeader::Comment].c_str());
            List.push_back(std::move(metal));
        }
        return true;
    }
};

MATIO_QrvNonPolyMat::MATIO_QrvNonPolyMat() : state_(new State) {}

MATIO_QrvNonPolyMat::~MATIO_QrvNonPolyMat() {
    if (--state_->Sharers == 0) delete state_;
}

MATIO_QrvNonPolyMat::MATIO_QrvNonPolyMat(const MATIO_QrvNonPolyMat& other) : state_(other.state_) {
    ++state_->Sharers;
}

MATIO_QrvNonPolyMat& MATIO_QrvNonPolyMat::operator=(const MATIO_QrvNonPolyMat& other) {
    if (state_ == other.state_) return *this;
    if (--state_->Sharers == 0) delete state_;
    state_ = other.state_;
    ++state_->Sharers;
    return *this;
}

bool MATIO_QrvNonPolyMat::GetMetalMatBank(const char* systemRoot, const char* userRoot, bool rim) {
    State& s = *state_;
    s.SystemRoot = systemRoot;
    s.UserRoot = userRoot;
    s.Rim = rim;
    s.List.clear();
    const bool system = s.loadBank(bankPath(s.SystemRoot, kSystemTail), false);
    const bool user = s.loadBank(bankPath(s.UserRoot, s.Rim ? kUserRimTail : kUserTail), true);
    // The roots are the caller's and are not kept beyond the call.
    s.SystemRoot = nullptr;
    s.UserRoot = nullptr;
    return system || user;
}

int MATIO_QrvNonPolyMat::GetMatBankCount() {
    return static_cast<int>(state_->List.size());
}

const char* MATIO_QrvNonPolyMat::GetMatName(int index) {
    return state_->at(index).Name.c_str();
}
double MATIO_QrvNonPolyMat::GetCp(int index) {
    return state_->at(index).Cp;
}
double MATIO_QrvNonPolyMat::GetK(int index) {
    return state_->at(index).K;
}
double MATIO_QrvNonPolyMat::GetEM(int index) {
    return state_->at(index).EM;
}
double MATIO_QrvNonPolyMat::GetPR(int index) {
    return state_->at(index).PR;
}
double MATIO_QrvNonPolyMat::GetCLTE(int index) {
    return state_->at(index).CLTE;
}
double MATIO_QrvNonPolyMat::GetDensity(int index) {
    return state_->at(index).Density;
}

bool MATIO_QrvNonPolyMat::GetMat(int index, CQrvNonPlastic& metal) {
    if (index > GetMatBankCount() - 1) return false;
    const MetalEntry& entry = state_->at(index);  // a negative index throws here
    metal = {entry.Name.c_str(), entry.Density, entry.Cp, entry.K, entry.EM, entry.PR, entry.CLTE};
    return true;
}

bool MATIO_QrvNonPolyMat::GetMetalFile(const char* path, CQrvNonPlastic& metal) {
    state_->List.clear();
    std::unique_ptr<QrvMaterial, void (*)(QrvMaterial*)> material(QrvGetMaterial(path),
                                                                  QrvReleaseMaterial);
    if (!material || material->FileType != QRV_TYPE_METAL) return false;
    const auto value = [](const QrvMatParam& block, int index) {
        return block.Para && index < block.Count ? block.Para[index] : 0.0;
    };
    metal = {material->GradeName,     densityOf(material->Comment), value(material->Cp, 0),
             value(material->K, 0),   value(material->Mech, 2),     value(material->Mech, 0),
             value(material->Mech, 5)};
    qrv::bank::keepForProcess(material.release());  // Name points into it
    return true;
}
