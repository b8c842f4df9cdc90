// Copying a block's parameters into an evaluator's fields, in Para order.
#ifndef QRV_PROPERTIES_EVALUATORS_PARA_READER_H
#define QRV_PROPERTIES_EVALUATORS_PARA_READER_H

#include <stdexcept>
#include <string>

namespace qrv {

// Hands out Para[0], Para[1], ... in turn. A null array throws std::invalid_argument naming the
// class, before any field is set.
class ParaReader {
public:
    ParaReader(const double* para, const char* className) : next_(para) {
        if (!para) throw std::invalid_argument(std::string(className) + ": null parameter array");
    }
    double operator()() { return *next_++; }

private:
    const double* next_;
};

}  // namespace qrv

#endif
