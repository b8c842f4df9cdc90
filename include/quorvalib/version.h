// Library-level entry points: version numbers and start-up.
// Threads: any number.
#ifndef QUORVALIB_VERSION_H
#define QUORVALIB_VERSION_H

#include <quorvalib/export.h>

// The material body version that this library writes by default: 9007.
QRV_API int GetDLLVersion();
// Does nothing and returns 0; no start-up is needed.
QRV_API long InitQuorvaLib(int);
// The build date of the library as (year * 100 + month) * 100 + day.
QRV_API long Get_Quorvalib_Dll_Ver();

// An empty marker class.
class QRV_API CQuorvalib {
public:
    CQuorvalib();
    CQuorvalib& operator=(const CQuorvalib&);
};

#endif
