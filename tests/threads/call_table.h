// The calls that may run from many threads, as tables: one line per call, so that a call added to
// the library is added to the parallel test by one line here.
#ifndef QRV_TESTS_THREADS_CALL_TABLE_H
#define QRV_TESTS_THREADS_CALL_TABLE_H

#include <quorvalib/quorvalib.h>

#include <string>
#include <vector>

namespace threads_test {

// One set of arguments for the calls: conditions for the evaluators and an index for the
// parameter names, the stress-strain pairs and the MTC records.
struct Point {
    double shearRate;
    double temperature;
    double pressure;
    double conversion;
    double heatingRate;
    int index;
};

const std::vector<Point>& points();

// Every result is turned into text: doubles by their bits (NaN and -0.0 included), texts copied
// at once, a throw by its kind. Two runs agree when their texts are equal.
std::string bits(double value);
std::string text(const char* value);

// A call on a record that nobody changes: safe on the same record from any number of threads.
struct RecordCall {
    const char* name;
    std::string (*run)(QrvMaterial* record, const Point& point);
};
const std::vector<RecordCall>& recordCalls();

// A call on an object of the caller's: safe from many threads as long as each has its own object.
struct ManipulatorCall {
    const char* name;
    std::string (*run)(MATIO_Manipulator& manipulator, const Point& point);
};
const std::vector<ManipulatorCall>& manipulatorCalls();

}  // namespace threads_test

#endif
