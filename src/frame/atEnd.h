#pragma once

#include <utility>

namespace velmar::frame {

/// Does something when a scope is left, also by an exception.
template <class Action>
class AtEnd {
public:
    explicit AtEnd(Action action) : action_(std::move(action)) {}
    ~AtEnd() { action_(); }
    AtEnd(const AtEnd&) = delete;
    AtEnd& operator=(const AtEnd&) = delete;

private:
    Action action_;
};

}  // namespace velmar::frame
