#include "gpkg/to_archive/package_to_archive.h"

#include <string>

#include "gpkg/package/database.h"
#include "gpkg/plain_file.h"
#include "gpkg/report.h"
#include "gpkg/result_file.h"
#include "gpkg/to_archive/write_archive.h"
#include "gpkg/transcoding.h"
#include "run/platform.h"
#include "text/paths.h"

namespace vantelgis::gpkg {

namespace {

std::string targetOf(const Options& options) {
    if (!options.output.empty()) return options.output;
    return joined(withoutExtension(options.inputs.front()), ".12da");
}

void reportCounts(const std::string& target, const WriteCounts& counts) {
    reportChanges(counts.changes);
    if (counts.empty > 0)
        reportWarning(joined(counted(counts.empty, "feature has", "features have"),
                             " no geometry and can't be written"));
    if (counts.droppedZ > 0)
        reportWarning(joined(counted(counts.droppedZ, "feature", "features"),
                             " of type 2d had elevations, which a 2d string can't hold"));
    if (counts.nullLike > 0)
        reportWarning(joined(counted(counts.nullLike, "elevation", "elevations"),
                             " of -999 will be read as missing"));
    reportVerdict(joined(target, ": ", counted(counts.strings, "string", "strings"), " in ",
                         counted(counts.models, "model", "models")));
}

void transcode(const std::string& text, Encoding encoding, const std::string& target) {
    const std::int64_t unknown = transcodeFromUtf8(text, encoding, target);
    if (unknown > 0)
        reportWarning(joined(counted(unknown, "character", "characters"),
                             " that the encoding doesn't know became question marks"));
}

void writeProjection(const CoordinateSystem& system, const std::string& archive) {
    if (system.wkt.empty()) {
        reportNote("no .prj is written: the coordinate system is undefined");
        return;
    }
    ResultFile result{joined(withoutExtension(archive), ".prj")};
    writeWhole(result.scratchName(), system.wkt + "\n");
    result.publish();
}

}  // namespace

void packageToArchive(const Options& options) {
    const std::string& package = options.inputs.front();
    if (!vantelgis::platform::inputExists(package)) fail(package, " isn't there, or is no file");
    Database database = Database::openForReading(package);
    const std::string target = targetOf(options);
    WrittenArchive written;
    {
        ResultFile result{target};
        const bool plain =
            options.encoding == Encoding::automatic || options.encoding == Encoding::utf8;
        if (plain) {
            written = writeArchive(database, options, result.scratchName());
        } else {
            const ScratchFile text{result.scratchName() + ".text"};
            written = writeArchive(database, options, text.name());
            transcode(text.name(), options.encoding, result.scratchName());
        }
        result.publish();
    }
    if (options.prj) writeProjection(written.system, target);
    reportCounts(target, written.counts);
}

}  // namespace vantelgis::gpkg
