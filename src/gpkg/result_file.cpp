#include "gpkg/result_file.h"

#include "gpkg/report.h"

namespace vantelgis::gpkg {

ResultFile::ResultFile(std::string_view target)
    : target_(platform::linkedName(target)), scratch_(target_ + ".part") {
    if (platform::somethingExists(target_) && !platform::isRegularFile(target_))
        fail(target_, " is no regular file; name another one with --out");
    switch (platform::createLocked(file_, scratch_, target_)) {
        case platform::Locking::done: return;
        case platform::Locking::heldByAnother:
            fail("another run is writing ", target_, " just now; wait for its end");
        case platform::Locking::refused:
            fail("can't make ", scratch_, ": ", platform::lastRefusal());
    }
}

ResultFile::~ResultFile() {
    if (!published_) platform::discardLocked(file_, scratch_);
}

void ResultFile::publish() {
    if (!platform::publishLocked(file_, scratch_, target_))
        fail("can't write ", target_, ": ", platform::lastRefusal());
    published_ = true;
}

void refusePackageInUse(std::string_view package) {
    const std::string name = platform::linkedName(package);
    for (const char* ending : {"-wal", "-shm", "-journal"}) {
        if (platform::somethingExists(name + ending))
            fail(name, " is in use: ", name, ending,
                 " lies beside it. Close it in the program that edits it (QGIS: end the edit mode "
                 "and remove its layers), then run again");
    }
    if (platform::openElsewhere(name))
        fail(name, " is open in another program. Close it there, then run again");
}

}  // namespace vantelgis::gpkg
