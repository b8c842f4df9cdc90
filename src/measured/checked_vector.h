// Subscript and append for the growing arrays of measured data, with the range and length errors
// that callers of these containers have always caught by their texts.
#ifndef QRV_MEASURED_CHECKED_VECTOR_H
#define QRV_MEASURED_CHECKED_VECTOR_H

#include <cstddef>
#include <cstdint>
#include <limits>
#include <stdexcept>
#include <utility>
#include <vector>

namespace qrv {

// Counts of curves and records are 32-bit words on disk and in the interface.
constexpr std::size_t kMaxMeasuredItems = std::numeric_limits<std::int32_t>::max();

template <typename Vector>
auto& checkedAt(Vector& items, long long index) {
    if (index < 0 || static_cast<unsigned long long>(index) >= items.size())
        throw std::out_of_range("invalid vector<T> subscript");
    return items[static_cast<std::size_t>(index)];
}

template <typename T, typename Item>
void checkedAppend(std::vector<T>& items, Item&& item, std::size_t limit = kMaxMeasuredItems) {
    if (items.size() >= limit) throw std::length_error("vector<T> too long");
    items.push_back(std::forward<Item>(item));
}

}  // namespace qrv

#endif
