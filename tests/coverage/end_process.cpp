#include <sys/resource.h>
#include <unistd.h>

#include "run/stop.h"

extern "C" void __gcov_dump();

namespace vantelgis {

namespace {

// A run that may write no file of any size can't write its counts either.
bool filesAreLimited() {
    rlimit limit{};
    return getrlimit(RLIMIT_FSIZE, &limit) == 0 && limit.rlim_cur != RLIM_INFINITY;
}

}  // namespace

// The program ends without what a process does at its exit: the counts have to be written before.
void endProcess() {
    if (!filesAreLimited()) __gcov_dump();
    _exit(0);
}

}  // namespace vantelgis
