// The records that the threads share: generated ones of every model, the sample files, and a few
// built by hand for the blocks that neither has.
#ifndef QRV_TESTS_THREADS_SHARED_RECORDS_H
#define QRV_TESTS_THREADS_SHARED_RECORDS_H

#include <string>
#include <vector>

#include "support/material_ptr.h"

namespace threads_test {

struct SharedRecord {
    std::string name;
    qrvtest::MaterialPtr record;
};

std::vector<SharedRecord> sharedRecords();

}  // namespace threads_test

#endif
