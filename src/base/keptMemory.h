#pragma once

#include <cstddef>
#include <vector>

namespace velmar::base {

template <class T>
std::size_t bytesOf(const std::vector<T>& values) {
    return values.capacity() * sizeof(T);
}

/// Memory that a subsystem keeps between calls, so that those of usual size find theirs in place, in the hands of a
/// call. What a call that fails has made it grow to is given back when that ends, and so is what an unusually large
/// one has.
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

    /// The call has not failed.
    void succeed() { stays_ = memory_.bytes() <= mostBytes; }

private:
    static constexpr std::size_t mostBytes = std::size_t{16} << 20U;

    Memory& memory_;
    bool stays_ = false;
};

}  // namespace velmar::base
