// The size each live array was allocated with: the test program replaces the global array
// allocation functions (array_sizes.cpp) so that the library's allocations are seen too.
#ifndef QRV_TESTS_DEFAULTS_ARRAY_SIZES_H
#define QRV_TESTS_DEFAULTS_ARRAY_SIZES_H

#include <cstddef>

namespace qrvtest {

// Bytes asked for when the array at pointer was made; 0 when it is not a live array seen here.
std::size_t arrayBytes(const void* pointer);

}  // namespace qrvtest

#endif
