#pragma once

#include <atomic>

#include "tools/fzn-kiv/exit_code.h"
#include "tools/fzn-kiv/options.h"
#include "tools/fzn-kiv/report.h"

namespace kiv::fzn {

// Reads the text that the options name, searches it as they say and concludes the report. Ends as
// soon as may be once `stop` is true. Throws InputError for a file that cannot be read and for a
// text that is wrong or not supported, before any solution.
ExitCode Solve(const Options& options, const std::atomic<bool>& stop, Report& report);

}  // namespace kiv::fzn
