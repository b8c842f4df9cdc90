// numpy broadcasting for the array calls: every input as one contiguous array of doubles of the
// broadcast shape, copied only where it is not one already.
#ifndef QRVPY_BROADCAST_H
#define QRVPY_BROADCAST_H

#include <pybind11/numpy.h>
#include <pybind11/pybind11.h>

#include <cstddef>
#include <vector>

namespace qrvpy {

class Broadcast {
public:
    // inputs: scalars, sequences or arrays of numbers. zeroMayBeNull marks inputs whose value
    // 0.0 everywhere may be handed on as a null array. Raises ValueError for shapes that do not
    // broadcast and TypeError for values that are not numbers.
    Broadcast(const std::vector<pybind11::object>& inputs, const std::vector<bool>& zeroMayBeNull);

    std::size_t size() const { return size_; }
    // The input i's data (null for a zero scalar that may be null).
    const double* input(std::size_t i) const { return data_[i]; }
    // A new output array of the broadcast shape, and at the end the result as Python hands it
    // back: a float when every input was a scalar, else the array.
    double* output() { return output_.mutable_data(); }
    pybind11::object result() const;

private:
    std::vector<pybind11::array_t<double>> arrays_;
    std::vector<const double*> data_;
    pybind11::array_t<double> output_;
    std::size_t size_ = 0;
    bool scalar_ = true;
};

// Runs body(offset, count) over [0, size) in pieces that fit the library's int counts. The GIL
// stays held: another thread could otherwise replace a block's values during the evaluation.
template <typename Body>
void inPieces(std::size_t size, Body&& body) {
    constexpr std::size_t kPiece = std::size_t{1} << 30;
    for (std::size_t offset = 0; offset < size; offset += kPiece) {
        const std::size_t count = size - offset < kPiece ? size - offset : kPiece;
        body(offset, static_cast<int>(count));
    }
}

}  // namespace qrvpy

#endif
