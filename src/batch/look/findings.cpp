#include "batch/look/findings.h"

#include <algorithm>

namespace vantelgis::batch {

namespace {

constexpr FindingRow kRows[] = {
    {Find::missing, "missing", Level::error, "There is no file {}.", "Correct the name."},
    {Find::unreadable, "unreadable", Level::error, "{} can't be read: {}.",
     "Change its permissions, or copy it to another disk."},
    {Find::unfitKind, "unfit-kind", Level::error,
     "With these options the converter takes no file of this kind.",
     "Name a .mif or .shp without -mif and -shp, or an archive with one of them behind \"--\"."},
    {Find::sisterMissing, "sister-missing", Level::error,
     "{} is missing, which belongs to the layer.",
     "Copy the whole set: .mif with .mid, or .shp with .shx and .dbf."},
    {Find::sisterCase, "sister-case", Level::error,
     "Several files differ from {} only in the case of their letters.",
     "Rename all but the one that belongs to the layer."},
    {Find::sisterUnreadable, "sister-unreadable", Level::error, "{} can't be read: {}.",
     "Change its permissions, or copy the layer to another disk."},
    {Find::sisterOlder, "sister-older", Level::error,
     "{} was saved {} before {}: it may be of an earlier state of the layer.",
     "Save the layer again in the GIS. If only shapes were moved, run it with --anyway."},
    {Find::resultIsInput, "result-is-input", Level::error,
     "The result {} would take the place of an input.",
     "Give it another place or name with --output-folder or --name."},
    {Find::resultIsNewer, "result-is-newer", Level::note,
     "There is a result {} already, newer than the input.", "Nothing: a good result replaces it."},
    {Find::resultIsOlder, "result-is-older", Level::note,
     "There is a result {} already, older than the input.", "Nothing: a good result replaces it."},
    {Find::folderNotWritable, "folder-not-writable", Level::error,
     "No file can be made in the folder {}.",
     "Change its permissions, or choose another with --output-folder."},
    {Find::noRoom, "no-room", Level::error,
     "The result takes about {} MB, and {} MB are free in {}.",
     "Make room, or choose another disk with --output-folder."},

    {Find::shapesWithZ, "shapes-with-z", Level::error,
     "The shapes are of the kind {}, with heights or measures that the converter doesn't take.",
     "ogr2ogr -dim XY plain.shp layer.shp, or in QGIS: Processing > Drop M/Z values."},
    {Find::collection, "collection", Level::error,
     "Object {} is a Collection, which the converter doesn't take.",
     "Disaggregate it in the GIS, in QGIS with Processing > Multipart to singleparts."},
    {Find::columnType, "column-type", Level::error,
     "The column {} is of the type {}; the columns of results must be Float, Decimal or Char.",
     "In QGIS: Processing > Refactor fields, and save the layer again."},
    {Find::tooManyNodes, "too-many-nodes", Level::error,
     "Object {} has a part of more than {} vertices, the most that this conversion takes.",
     "In QGIS: Processing > Split lines by maximum length, or Simplify. -zln takes 100000."},
    {Find::tooManyParts, "too-many-parts", Level::error,
     "Object {} has more parts than the converter takes.",
     "In QGIS: Processing > Multipart to singleparts."},
    {Find::tooManyFields, "too-many-fields", Level::error, "The table has more than 128 fields.",
     "In QGIS: Processing > Drop field(s)."},
    {Find::tooManyPoints, "too-many-points", Level::error,
     "The layer has {}, and the conversion takes 1,000,000.",
     "Split the layer, for instance by tiles."},
    {Find::wouldStop, "would-stop", Level::error, "The converter would stop {}: {}",
     "Write the layer again in the GIS."},

    {Find::deletedRows, "deleted-rows", Level::error,
     "{} of {} marked as deleted: the records behind would go to other objects.",
     "ogr2ogr clean.shp layer.shp, or in QGIS: Export > Save features as."},
    {Find::fewRecords, "few-records", Level::error, "The layer has {} and only {}.",
     "Copy the whole set again, or in QGIS: Export > Save features as."},
    {Find::manyRecords, "many-records", Level::error,
     "The layer has {} and {}: they may belong to other objects.",
     "Copy the whole set again, or in QGIS: Export > Save features as."},
    {Find::quotedLineBreak, "quoted-line-break", Level::error,
     "Record {} has a line break within quotes: the records behind it would go to other objects.",
     "Take the line breaks out of the text in the GIS and save the layer again."},

    {Find::noProjection, "no-projection", Level::error,
     "There is no {} to take the coordinate system from, and the run would stop.",
     "Copy the .prj of a layer in the same system to Header.prj, or use --own-projection."},
    {Find::noCoordSys, "no-coordsys", Level::warning, "No coordinate system is taken: {}.",
     "Copy a .mif in the same system to Header.mif, or use --own-projection for layers."},
    {Find::projectionForm, "projection-form", Level::error,
     "The coordinate system in {} can't be taken: {}.",
     "gdalsrsinfo -o wkt_esri --single-line layer.prj > plain.prj, and put plain.prj in its "
     "place."},
    {Find::projectionFormUnused, "projection-form-unused", Level::note,
     "The coordinate system in {} can't be taken whole: {}. The result carries none.",
     "Nothing: this conversion needs none."},
    {Find::otherProjection, "other-projection", Level::warning,
     "The result would get the coordinate system of {}, which is not the layer's own.",
     "Use --own-projection, or reproject the layer."},
    {Find::otherProjectionUnused, "other-projection-unused", Level::note,
     "The coordinate system of {} is not the layer's own. The result carries none.",
     "Look whether the layer is where it should be; this conversion needs no coordinate system."},
    {Find::degrees, "degrees", Level::warning,
     "The coordinates look like degrees ({}), and the archive is in metres.",
     "Reproject the layer: ogr2ogr -t_srs EPSG:28355 metres.shp layer.shp, with your own system."},
    {Find::outsideColumns, "outside-columns", Level::error,
     "The coordinate {} of object {} is too long for the columns of the result.",
     "Correct the coordinate, or look whether the layer is in the right units."},
    {Find::longNumber, "long-number", Level::error,
     "{} with {} that is too long for its columns in the result; the first is object {} with {}.",
     "Correct the numbers, or leave out objects that have none."},

    {Find::notANumber, "not-a-number", Level::error,
     "{} without a number where {} should be; the first is object {} with {}.",
     "Make it the first column, of a numeric type: in QGIS with Processing > Refactor fields."},
    {Find::blankRecord, "blank-record", Level::error,
     "The record of object {} has no value where {} should be.",
     "Fill the first column of the table."},
    {Find::keptValue, "kept-value", Level::warning,
     "{} without {}: that of the object before is taken.", "Fill the first column of the table.",
     Doubt::yes},
    {Find::emptyValue, "empty-value", Level::warning, "{} without {}: 0 is taken.",
     "Fill the column, or delete these points.", Doubt::yes},
    {Find::asteriskNumber, "asterisk-number", Level::warning,
     "{} of the table with asterisks for a number, which read as 0.",
     "Widen the column and fill it again.", Doubt::yes},
    {Find::longName, "long-name", Level::warning, "{} of more than 100 characters, cut there.",
     "Shorten them."},
    {Find::quotedName, "quoted-name", Level::warning,
     "{} with a double quote inside, which ends a name in the archive.",
     "Take the quotes out of the names."},

    {Find::nothingToConvert, "nothing-to-convert", Level::warning,
     "There are no {} here, and the result would be empty. What there is: {}.",
     "Name the layer that has them, or choose another conversion."},
    {Find::noPoints, "no-points", Level::warning,
     "There are no points to take elevations from. What there is: {}.",
     "Name the layer of points first and that of lines second."},
    {Find::passedOver, "passed-over", Level::note, "{} passed over: {}.",
     "Nothing, if the result doesn't need them.", Doubt::yes},

    {Find::utf16, "utf-16", Level::error, "The archive is written in UTF-16.",
     "Write it as UTF-8 or plain text: iconv -f UTF-16 -t UTF-8."},
    {Find::cutArchive, "cut-archive", Level::error, "The archive ends within the string {}.",
     "Write or copy the archive again."},
    {Find::noModel, "no-model", Level::warning,
     "The archive has no \"model\" line, so that nothing of it is read.",
     "Write it again with a model."},
    {Find::ignoredStrings, "ignored-strings", Level::note, "{} ignored: {}.",
     "Nothing, if the result doesn't need them.", Doubt::yes},
    {Find::longSectionName, "long-section-name", Level::error,
     "The name of the cross-section {} has more than 12 characters.", "Shorten it in the archive."},
    {Find::sectionTwice, "section-twice", Level::error,
     "Two cross-sections would write the file {}.", "Give one of them another name."},
    {Find::sectionOutside, "section-outside", Level::error,
     "The name of the cross-section {} leads out of the archive's folder.",
     "Take the folder out of its name, or convert this archive by hand."},
};

static_assert(std::size(kRows) == static_cast<std::size_t>(Find::sectionOutside) + 1);

}  // namespace

std::span<const FindingRow> findingRows() {
    return kRows;
}

const FindingRow& rowOf(Find find) {
    return kRows[static_cast<std::size_t>(find)];
}

const FindingRow& rowNamed(std::string_view name) {
    const auto* const found =
        std::find_if(std::begin(kRows), std::end(kRows),
                     [name](const FindingRow& row) { return row.name == name; });
    return found == std::end(kRows) ? kRows[0] : *found;
}

Finding makeFinding(Find find, std::initializer_list<std::string_view> seen) {
    const FindingRow& row = rowOf(find);
    Finding finding{std::string(row.name), row.level, {}, std::string(row.cure)};
    std::string_view words = row.words;
    for (const std::string_view text : seen) {
        const std::size_t place = words.find("{}");
        if (place == std::string_view::npos) break;
        finding.words.append(words.substr(0, place)).append(text);
        words.remove_prefix(place + 2);
    }
    finding.words.append(words);
    return finding;
}

}  // namespace vantelgis::batch
