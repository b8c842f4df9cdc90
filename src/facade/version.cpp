#include <cstdio>
#include <cstring>

#include <quorvalib/version.h>

#include "facade/build_date.h"

namespace qrv {

long dateTextToNumber(const char* text) {
    static constexpr const char* kMonths[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                              "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    if (!text) return 0;
    char monthName[16] = {};
    int day = 0;
    int year = 0;
    if (std::sscanf(text, "%15s %d %d", monthName, &day, &year) != 3) return 0;
    long month = 0;
    for (int i = 0; i < 12; ++i) {
        if (std::strcmp(monthName, kMonths[i]) == 0) {
            month = i + 1;
            break;
        }
    }
    return (static_cast<long>(year) * 100 + month) * 100 + day;
}

}  // namespace qrv

int GetDLLVersion() {
    return 9007;
}

long InitQuorvaLib(int) {
    return 0;
}

long Get_Quorvalib_Dll_Ver() {
    return qrv::dateTextToNumber(__DATE__);
}

CQuorvalib::CQuorvalib() = default;

CQuorvalib& CQuorvalib::operator=(const CQuorvalib&) {
    return *this;
}
