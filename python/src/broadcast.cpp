#include "broadcast.h"

#include <algorithm>
#include <cmath>

namespace py = pybind11;
using namespace pybind11::literals;

namespace qrvpy {

using Doubles = py::array_t<double, py::array::c_style | py::array::forcecast>;

Broadcast::Broadcast(const std::vector<py::object>& inputs,
                     const std::vector<bool>& zeroMayBeNull) {
    py::module_ numpy = py::module_::import("numpy");
    std::vector<Doubles> arrays;
    py::list shapes;
    for (const py::object& input : inputs) {
        // numpy's own conversion, and its error for what is not a number.
        Doubles array = Doubles::ensure(numpy.attr("asarray")(input, "dtype"_a = "float64"));
        scalar_ = scalar_ && array.ndim() == 0;
        shapes.append(array.attr("shape"));
        arrays.push_back(array);
    }
    // numpy's own rule, and its ValueError for shapes that do not fit together.
    const py::tuple shape = numpy.attr("broadcast_shapes")(*shapes);
    std::vector<py::ssize_t> dims;
    for (py::handle extent : shape)
        dims.push_back(extent.cast<py::ssize_t>());
    output_ = py::array_t<double>(dims);
    size_ = static_cast<std::size_t>(output_.size());

    for (std::size_t i = 0; i < arrays.size(); ++i) {
        Doubles& array = arrays[i];
        if (zeroMayBeNull[i] && array.size() == 1 && array.data()[0] == 0.0 &&
            !std::signbit(array.data()[0])) {
            data_.push_back(nullptr);
            continue;
        }
        const bool whole = array.ndim() == static_cast<py::ssize_t>(dims.size()) &&
                           std::equal(dims.begin(), dims.end(), array.shape());
        if (!whole)
            array = Doubles::ensure(
                numpy.attr("ascontiguousarray")(numpy.attr("broadcast_to")(array, shape)));
        arrays_.push_back(array);
        data_.push_back(array.data());
    }
}

py::object Broadcast::result() const {
    if (scalar_) return py::float_(output_.data()[0]);
    return output_;
}

}  // namespace qrvpy
