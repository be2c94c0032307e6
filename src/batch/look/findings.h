#pragma once

#include <initializer_list>
#include <span>
#include <string>
#include <string_view>

#include "batch/record.h"

/// All that a look can find in an input before it is run. The guide and every report take the words
/// from here.
namespace vantelgis::batch {

enum class Find {
    // the files
    missing,
    unreadable,
    unfitKind,
    sisterMissing,
    sisterCase,
    sisterUnreadable,
    sisterOlder,
    resultIsInput,
    resultIsNewer,
    resultIsOlder,
    folderNotWritable,
    noRoom,
    // what the converter's readers refuse
    shapesWithZ,
    collection,
    columnType,
    tooManyNodes,
    tooManyParts,
    tooManyFields,
    tooManyPoints,
    wouldStop,
    // the table
    deletedRows,
    fewRecords,
    manyRecords,
    quotedLineBreak,
    // the coordinate system
    noProjection,
    noCoordSys,
    projectionForm,
    projectionFormUnused,
    otherProjection,
    otherProjectionUnused,
    degrees,
    outsideColumns,
    // the attributes
    longNumber,
    notANumber,
    blankRecord,
    keptValue,
    emptyValue,
    asteriskNumber,
    longName,
    quotedName,
    // what is taken
    nothingToConvert,
    noPoints,
    passedOver,
    // archives
    utf16,
    cutArchive,
    noModel,
    ignoredStrings,
    longSectionName,
    sectionTwice,
    sectionOutside,
};

/// What makes a run suspicious although it went through.
enum class Doubt { no, yes };

struct FindingRow {
    Find find;
    std::string_view name;  ///< stable: programs may rely on it
    Level level;
    std::string_view words;  ///< "{}" is where the look puts what it saw
    std::string_view cure;
    Doubt doubt = Doubt::no;
};

std::span<const FindingRow> findingRows();
const FindingRow& rowOf(Find find);
/// The row of a finding in a report; the first row when there is none.
const FindingRow& rowNamed(std::string_view name);

/// The row's words with these texts in their places.
Finding makeFinding(Find find, std::initializer_list<std::string_view> seen);

}  // namespace vantelgis::batch
