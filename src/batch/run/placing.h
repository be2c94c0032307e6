#pragma once

#include <string>
#include <vector>

/// Brings the files of a run from its scratch folder to their places, all of them or none. A result
/// that was there before is never lost: it is replaced by a rename, and while several files are
/// being replaced it has a second name in the scratch folder, which a journal there tells of.
namespace vantelgis::batch {

/// A file that is to be moved, as names relative to the scratch folder and the target folder.
struct Move {
    std::string from;
    std::string to;
};

enum class Placed {
    all,
    none,     ///< all is as it was before
    halfway,  ///< neither way could be gone to its end: the scratch folder must stay as it is
};

/// The folders of the targets must be there. `failure` gets the reason in words.
Placed placeResults(const std::string& scratch, const std::string& target,
                    const std::vector<Move>& moves, std::string& failure);

/// Finishes, or undoes, what the journal in a scratch folder says was begun and not finished.
/// Placed::all as well when there is no journal.
Placed recoverPlacing(const std::string& scratch, const std::string& target);

}  // namespace vantelgis::batch
