// The plain content dump of a record.
#include <quorvalib/vocabulary.h>

#include <cstdio>
#include <string>

#include "vocabulary/thread_slot.h"

namespace {

// The dump was always formed in a 256-character line buffer and a 3072-character result buffer
// with bounded copies. A line or a text that would not fit there (terminator included) gives no
// dump at all rather than a cut one.
constexpr std::size_t kLineBuffer = 256;
constexpr std::size_t kResultBuffer = 3072;

class ContentWriter {
public:
    template <typename... Args>
    void line(const char* format, Args... args) {
        if (failed_) return;
        char buffer[kLineBuffer];
        const int length = std::snprintf(buffer, sizeof buffer, format, args...);
        if (length < 0 || static_cast<std::size_t>(length) >= kLineBuffer) {
            failed_ = true;
            return;
        }
        append(buffer, static_cast<std::size_t>(length));
    }

    // A block: its three header lines and its parameters numbered from 1.
    void block(const char* heading, const QrvMatParam& block) {
        line("%s", heading);
        line("Model       = %d\n", block.Model);
        line("Count       = %d\n", block.Count);
        line("Source      = %d\n", block.Source);
        if (block.Count > 0 && !block.Para) failed_ = true;
        for (int i = 1; i <= block.Count && !failed_; ++i)
            line("Parameter %d = %g\n", i, block.Para[i - 1]);
    }

    bool failed() const { return failed_; }
    std::string& text() { return text_; }

private:
    void append(const char* piece, std::size_t length) {
        if (text_.size() + length >= kResultBuffer) {
            failed_ = true;
            return;
        }
        text_.append(piece, length);
    }

    std::string text_;
    bool failed_ = false;
};

// How the formatter of the runtime has always printed a missing text.
const char* printable(const char* text) {
    return text ? text : "(null)";
}

}  // namespace

const char* QrvGetContent(QrvMaterial* material, bool thermoset) {
    if (!material) return nullptr;
    const QrvMaterial& m = *material;
    ContentWriter out;
    out.line("%s", "// -1. Content //\n");
    out.line("Material file version = %d\n", m.FileVer);
    out.line("Material file type    = %d\n", m.FileType);
    out.line("Last modified date    = %d\n", m.LastEditDate);
    out.line("Measurement date      = %d\n\n", m.MeasureDate);
    out.line("Polymer     = %s\n", printable(m.Polymer));
    out.line("Producer    = %s\n", printable(m.Producer));
    out.line("Grade Name  = %s\n", printable(m.GradeName));
    out.line("Comment     = %s\n", printable(m.Comment));
    out.line("Source      = %s\n", printable(m.Source));
    out.block("\n// -2. Viscosity //\n", m.Vis);
    out.block("\n// -3. PVT //\n", m.PVT);
    out.block("\n// -4. Heat Capacity //\n", m.Cp);
    out.block("\n// -5. Thermal Conductivity //\n", m.K);
    if (thermoset) {
        out.block("\n// -6. Curing Kinetics //\n", m.KN);
    } else {
        out.block("\n// -6. Mechanical Properties //\n", m.Mech);
        out.block("\n// -7. Temperature //\n", m.Temp);
    }
    out.line("%s", "\n// EOF //\n\n");
    if (out.failed()) return nullptr;

    // Kept until the same thread's next call so that the caller can read it.
    std::string& content = qrv::threadSlot<std::string>();
    content.swap(out.text());
    return content.c_str();
}
