#include "reliability/save_fault.h"

#include <atomic>
#include <cstddef>
#include <cstdlib>

namespace {
std::atomic<bool> gAbortHalfway{false};
}  // namespace

extern "C" void TabulonSaveFaultPoint(std::size_t written, std::size_t total) {
    if (gAbortHalfway.load() && written >= total / 2) std::abort();
}

namespace tabulon::testing {

void AbortSavesHalfway() {
    gAbortHalfway.store(true);
}

}  // namespace tabulon::testing
