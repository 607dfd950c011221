// The way from an input to calls, for the groups of exports that take arrays.

#include "harness.h"
#include "support/freshLibrary.h"

using namespace velmar;

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    fuzz::silence();
    return 0;
}

/// Calls what the input chooses, up to three times: state that a call leaves behind is there for the next one.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input in(data, size);
    test::resetLibrary();
    fuzz::chooseTexts(in);
    const std::span<const fuzz::Target> targets = fuzz::targets();
    for (int calls = 1 + in.below(3); calls > 0; --calls)
        targets[in.ConsumeIntegralInRange<std::size_t>(0, targets.size() - 1)](in);
    return 0;
}
