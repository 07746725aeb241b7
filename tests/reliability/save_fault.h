// The fault point of saves, in test builds: a save made to stop its process halfway
// through writing the new file (support/atomic_file.cpp calls it while writing).
#pragma once

namespace tabulon::testing {

// From now on, a save in this process aborts it once half of the new file is written.
void AbortSavesHalfway();

}  // namespace tabulon::testing
