#pragma once

#include <utility>
#include <variant>

namespace velmar::base {

/// Why a file could not be read: the negative code that the caller of the export gets.
struct Failure {
    int code;
};

/// A value, or the failure that kept it from being made.
template <class T>
class Outcome {
public:
    Outcome(T value) : state_(std::move(value)) {}
    Outcome(Failure failure) : state_(failure) {}

    explicit operator bool() const { return std::holds_alternative<T>(state_); }
    T& operator*() { return std::get<T>(state_); }
    T* operator->() { return &std::get<T>(state_); }
    Failure failure() const { return std::get<Failure>(state_); }

private:
    std::variant<T, Failure> state_;
};

}  // namespace velmar::base
