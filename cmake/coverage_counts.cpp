#include <sys/resource.h>

#include "run/stop.h"

extern "C" void __gcov_dump();

namespace vantelgis {

namespace {

// The program ends without what a process does at its exit: the counts have to be written before.
// A run that may write no file of any size can't write its counts either.
void writeCounts() {
    rlimit limit{};
    const bool limited = getrlimit(RLIMIT_FSIZE, &limit) == 0 && limit.rlim_cur != RLIM_INFINITY;
    if (!limited) __gcov_dump();
}

const bool countsAreWritten = (setEndHandler(writeCounts), true);

}  // namespace

}  // namespace vantelgis
