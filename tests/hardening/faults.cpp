#include "faults.h"

#include <malloc.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>
#include <utility>

namespace velmar::test::faults {
namespace {

struct Block {
    const void* start;
    std::size_t bytes;
};

Plan thePlan;
Course theCourse{};
bool watching = false;
long made = 0;
std::atomic<long> livingAllocations{0};
std::atomic<long> livingBytes{0};
std::function<void()> openingAction;
thread_local std::array<Block, 64> latest{};
thread_local std::size_t next = 0;

/// Result blocks, and next to nothing else, come from malloc and realloc.
void* noted(void* start, std::size_t bytes) {
    if (start != nullptr) latest[next++ % latest.size()] = {start, bytes};
    return start;
}

bool fails(bool openingFile = false) {
    if (!watching) return false;
    ++made;
    if (thePlan.lasting ? made < thePlan.first : made != thePlan.first) return false;
    if (!theCourse.failed) theCourse = {true, openingFile};
    errno = ENOMEM;
    return true;
}

void count(void* block, long sign) {
    livingAllocations += sign;
    livingBytes += sign * static_cast<long>(malloc_usable_size(block));
}

void* born(void* block) {
    if (block != nullptr) count(block, 1);
    return block;
}

}  // namespace

void plan(const Plan& plan) { thePlan = plan; }

void during(const std::function<void()>& call) {
    if (thePlan.first == 0) return call();
    theCourse = {};
    made = 0;
    watching = true;
    call();
    watching = false;
}

Course course() { return theCourse; }

void beforeOpening(std::function<void()> action) { openingAction = std::move(action); }

Alive alive() { return {livingAllocations, livingBytes}; }

std::size_t bytesOf(const void* block) {
    for (std::size_t age = 1; age <= latest.size(); ++age) {
        const Block& one = latest[(next - age) % latest.size()];
        if (one.start == block) return one.bytes;
    }
    std::abort();
}

}  // namespace velmar::test::faults

using velmar::test::faults::born;
using velmar::test::faults::count;
using velmar::test::faults::fails;
using velmar::test::faults::noted;
using velmar::test::faults::openingAction;

// The linker sends what this program calls by its C name here (--wrap).
extern "C" {

void* __real_malloc(std::size_t bytes);
void* __real_calloc(std::size_t count, std::size_t bytes);
void* __real_realloc(void* block, std::size_t bytes);
void __real_free(void* block);
std::FILE* __real_fopen(const char* path, const char* mode);

void* __wrap_malloc(std::size_t bytes) {
    return fails() ? nullptr : noted(born(__real_malloc(bytes)), bytes);
}

void* __wrap_calloc(std::size_t count, std::size_t bytes) {
    return fails() ? nullptr : born(__real_calloc(count, bytes));
}

void* __wrap_realloc(void* block, std::size_t bytes) {
    if (fails()) return nullptr;
    if (block != nullptr) count(block, -1);
    void* const resized = __real_realloc(block, bytes);
    if (resized == nullptr) born(block);
    return noted(born(resized), bytes);
}

void __wrap_free(void* block) {
    if (block != nullptr) count(block, -1);
    __real_free(block);
}

std::FILE* __wrap_fopen(const char* path, const char* mode) {
    if (*mode == 'r' && openingAction) openingAction();
    return fails(true) ? nullptr : __real_fopen(path, mode);
}

std::FILE* __wrap_fopen64(const char* path, const char* mode) { return __wrap_fopen(path, mode); }

}  // extern "C"

// Also the C++ library's own code takes its memory here.

void* operator new(std::size_t bytes, const std::nothrow_t&) noexcept {
    void* const block = fails() ? nullptr : born(__real_malloc(bytes));
    // What is read before it is set shows: it is not 0, and as text it is a number.
    if (block != nullptr) std::memset(block, '7', bytes);
    return block;
}
void* operator new(std::size_t bytes) {
    if (void* const block = operator new(bytes, std::nothrow)) return block;
    throw std::bad_alloc();
}
void* operator new[](std::size_t bytes) { return operator new(bytes); }
void* operator new[](std::size_t bytes, const std::nothrow_t&) noexcept {
    return operator new(bytes, std::nothrow);
}
void operator delete(void* block) noexcept { __wrap_free(block); }
void operator delete[](void* block) noexcept { __wrap_free(block); }
void operator delete(void* block, std::size_t) noexcept { __wrap_free(block); }
void operator delete[](void* block, std::size_t) noexcept { __wrap_free(block); }
void operator delete(void* block, const std::nothrow_t&) noexcept { __wrap_free(block); }
void operator delete[](void* block, const std::nothrow_t&) noexcept { __wrap_free(block); }
