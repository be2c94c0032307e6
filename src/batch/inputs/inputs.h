#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "batch/options.h"

/// The inputs of a batch, from what the command line names.
namespace vantelgis::batch {

struct Input {
    std::string name;          ///< as it was named or found
    std::string second;        ///< the lines of a pair
    std::uint32_t root = 0;    ///< characters of `name` in front of what an output folder repeats
    std::uint32_t number = 0;  ///< place among all inputs, those of other shares as well, from 1

    /// The folder of the input below the one that was named; empty if it lies in that itself.
    [[nodiscard]] std::string folderBelowRoot() const;
};

struct Inputs {
    std::vector<Input> items;
    std::vector<std::string> notes;  ///< what was left out, in words
    std::string refusal;             ///< why there can be no batch; empty if it can
};

/// All inputs in the order in which they are named; what folders and wildcards stand for in the
/// order of their bytes. None twice, whatever the spelling.
Inputs collectInputs(const Options& options);

/// A line of a list: a name, or two with a tab between them for a pair.
struct ListedName {
    std::string name;
    std::string second;
};
/// The names of a list: one a line without blanks at its ends, or between zero bytes, exactly as it
/// stands there. Lines that begin with "#" and empty ones are none.
std::vector<ListedName> namesInList(std::string_view text, bool zeroBytes);

/// Brings points and lines together as the patterns of --pair say: the inputs that are points get
/// their lines, all others go. What fits no pattern is noted.
void joinPairs(const std::vector<std::pair<std::string, std::string>>& patterns, Inputs& inputs);

/// Leaves out pairs that were named before, in whatever spelling.
void dropRepeatedPairs(std::vector<Input>& items);

/// Leaves out what lies beside the layers for their sake: files that give a coordinate system, and
/// check layers of earlier runs.
void leaveOutSideFiles(Inputs& inputs);

/// Every `shards`-th input from the `shard`-th on.
void takeShard(int shard, int shards, std::vector<Input>& items);

}  // namespace vantelgis::batch
