#pragma once

#include <cstddef>
#include <vector>

namespace velmar::base {

template <class T>
std::size_t bytesOf(const std::vector<T>& values) {
    return values.capacity() * sizeof(T);
}

/// A call's hold on memory that is kept between calls, so that calls of usual size find it already allocated. When
/// the call ends, the memory is released if the call has failed or has made it grow unusually large.
///
///   Memory  has bytes() and release()
template <class Memory>
class KeptMemory {
public:
    explicit KeptMemory(Memory& memory) : memory_(memory) {}
    ~KeptMemory() {
        if (!stays_) memory_.release();
    }
    KeptMemory(const KeptMemory&) = delete;
    KeptMemory& operator=(const KeptMemory&) = delete;

    /// To be called when the call has succeeded.
    void succeed() { stays_ = memory_.bytes() <= mostBytes; }

private:
    static constexpr std::size_t mostBytes = std::size_t{16} << 20U;

    Memory& memory_;
    bool stays_ = false;
};

}  // namespace velmar::base
