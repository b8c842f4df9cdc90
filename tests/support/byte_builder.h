// Builds expected byte layouts in tests, independently of the library's stream: little-endian
// 32-bit words, binary64 reals and length-prefixed texts, assembled byte by byte.
#ifndef QRV_TESTS_SUPPORT_BYTE_BUILDER_H
#define QRV_TESTS_SUPPORT_BYTE_BUILDER_H

#include <cstdint>
#include <cstring>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace qrvtest {

class Bytes {
public:
    Bytes& word(std::int64_t value) {
        const auto bits = static_cast<std::uint32_t>(value);
        for (int i = 0; i < 4; ++i)
            data_.push_back(static_cast<char>((bits >> (8 * i)) & 0xFF));
        return *this;
    }
    Bytes& real(double value) {
        std::uint64_t bits;
        std::memcpy(&bits, &value, 8);
        for (int i = 0; i < 8; ++i)
            data_.push_back(static_cast<char>((bits >> (8 * i)) & 0xFF));
        return *this;
    }
    Bytes& reals(const std::vector<double>& values) {
        for (double v : values)
            real(v);
        return *this;
    }
    Bytes& raw(const std::string& bytes) {
        data_ += bytes;
        return *this;
    }
    Bytes& text(const std::string& bytes) {
        return word(static_cast<std::int64_t>(bytes.size())).raw(bytes);
    }
    // A parameter block: source, model, count and the values.
    Bytes& block(int source, int model, const std::vector<double>& values) {
        return word(source)
            .word(model)
            .word(static_cast<std::int64_t>(values.size()))
            .reals(values);
    }
    // Marks the position of the next word, to patch it later.
    std::size_t mark() const { return data_.size(); }
    Bytes& patch(std::size_t position, std::int64_t value) {
        const auto bits = static_cast<std::uint32_t>(value);
        for (int i = 0; i < 4; ++i)
            data_[position + i] = static_cast<char>((bits >> (8 * i)) & 0xFF);
        return *this;
    }
    std::size_t size() const { return data_.size(); }
    const std::string& str() const { return data_; }

private:
    std::string data_;
};

inline std::string readFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

// Little-endian word at a byte offset of a layout.
inline std::int32_t wordAt(const std::string& bytes, std::size_t offset) {
    std::uint32_t bits = 0;
    for (int i = 0; i < 4; ++i)
        bits |= static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[offset + i]))
                << (8 * i);
    return static_cast<std::int32_t>(bits);
}

}  // namespace qrvtest

#endif
