#pragma once

#include <gtest/gtest.h>

#include <string>

#include "frame/progress.h"

namespace velmar::test {

/// What an export prints. Texts are silenced afterwards.
template <class Call>
std::string said(Call&& call) {
    frame::setProgressEnabled(true);
    testing::internal::CaptureStdout();
    call();
    frame::setProgressEnabled(false);
    return testing::internal::GetCapturedStdout();
}

}  // namespace velmar::test
