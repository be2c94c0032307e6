#include "run/copy_mode.h"

#include "run/console.h"
#include "run/opener_settings.h"
#include "run/platform.h"
#include "run/stop.h"
#include "text/characters.h"
#include "text/joined.h"
#include "text/paths.h"

namespace vantelgis {

namespace {

using QuotedNames = Joined<2 * kPathCapacity + 8>;

constexpr std::string_view kAdvice = "             Check permissions and/or sufficient disk space.";

// Where the files of a folder go in the copy tree; the place is made.
Path makePlaceFor(std::string_view folder) {
    Path target = openerSettings.copyRoot;
    target += driveAsFolder(folder);
    if (platform::makeFolder(target) == platform::kNotStarted) {
        stopWith(
            "ERROR 0005 - Could not make the folder below while making a copy of the input files.",
            kAdvice, QuotedNames("\"", target, "\""));
    }
    return target;
}

void rememberCopy(std::string_view target, std::string_view name) {
    openerSettings.copyLast = joinedPath(target, fileNameOf(name));
}

// A file whose extension begins with .xf is one of a group in a folder of its own: the group's
// common files lie one folder up.
bool isGroupFile(std::string_view name) {
    return beginsWith(extensionOf(name), ".xf");
}

int copyAllOfBaseName(TextRef name, Path& target) {
    Path folder = folderOf(name.view());
    const Path baseName = baseNameOf(name.view());
    if (isGroupFile(name.view())) {
        static_cast<void>(platform::copyFiles(name.view(), target));
        name.assign(baseName);
        folder += "..\\";
        target = makePlaceFor(folder);
    }
    Path source = folder;
    source += baseName;
    source += ".*";
    return platform::copyFiles(source, target);
}

}  // namespace

void copyInput(TextRef name) {
    Path target = makePlaceFor(folderOf(name.view()));
    const int result = openerSettings.copyExact ? platform::copyFiles(name.view(), target)
                                                : copyAllOfBaseName(name, target);
    if (result == platform::kNotStarted) {
        stopWith(
            "ERROR 0006 - Could not copy the file below while making a copy of the input files.",
            kAdvice, QuotedNames("\"", name.view(), "\" \"", target, "\""));
    }
    rememberCopy(target, name.view());
}

void redirectOutput(TextRef name) {
    const Path target = makePlaceFor(folderOf(name.view()));
    rememberCopy(target, name.view());
    name.assign(openerSettings.copyLast);
}

}  // namespace vantelgis
