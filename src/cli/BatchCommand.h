// tovarek batch: many jobs in one call, each as if it were alone.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "cli/GenerateCommand.h"
#include "cli/Report.h"

namespace tovarek {

struct BatchWishes {
    std::vector<std::string> jobs;  // job files, or @LIST: a file that names one on each line
    std::string threads;            // how many jobs run at a time, 1 to 256; empty: as many as processors
    bool failFast = false;          // no job begins behind one that failed
    GenerateWishes generate;        // of every job
};

// Text: what `generate` tells of each job, in the order of the jobs, findings under the job's name, and a
// summary. JSON: one line for each job that ran, {"job", "status", ...} with what `generate` answers. Answers
// kDone, kFailed when a job failed, kWrongUse.
int RunBatch(const BatchWishes& wishes, OutputFormat format, Streams streams);

}  // namespace tovarek
