#include "batch/inputs/inputs.h"

#include <algorithm>
#include <functional>
#include <unordered_map>

#include "batch/files.h"
#include "batch/inputs/globs.h"
#include "text/characters.h"

namespace vantelgis::batch {

namespace {

constexpr std::size_t kMostListBytes = std::size_t{256} << 20;

std::uint32_t lengthBeforeName(std::string_view name) {
    return static_cast<std::uint32_t>(name.size() - namePart(name).size());
}

class Collector {
  public:
    explicit Collector(const Options& options) : options_(options) {}

    void takeArgument(const std::string& argument) {
        const FileStatus status = statusOf(argument);
        if (status.isFolder()) {
            takeFolder(argument, static_cast<std::uint32_t>(inFolder(argument, "").size()));
        } else if (!status.exists() && argument == "-") {
            takeList(readStandardInput(), options_.zeroBytes);
        } else if (!status.exists() && argument.starts_with('@')) {
            takeListFile(argument.substr(1));
        } else if (!status.exists() && isWildcard(argument)) {
            takeWildcard(argument);
        } else {
            add(argument, {}, lengthBeforeName(argument));  // the look says when it isn't there
        }
    }
    Inputs take() { return std::move(inputs_); }

  private:
    // An input that was named before, in whatever spelling, is not added again.
    void add(const std::string& name, const std::string& second, std::uint32_t root) {
        const std::size_t hash = std::hash<std::string>{}(keyOf(name));
        const auto [first, last] = places_.equal_range(hash);
        for (auto place = first; place != last; ++place) {
            const Input& other = inputs_.items[place->second];
            if (keyOf(other.name) == keyOf(name) && other.second == second) return;
        }
        places_.emplace(hash, inputs_.items.size());
        inputs_.items.push_back({name, second, root, 0});
    }

    std::string keyOf(const std::string& name) {
        const std::string folder = folderPart(name);
        if (folder != folder_) {
            folder_ = folder;
            absoluteFolder_ = absoluteName(inFolder(folder, "."));
        }
        return nameKey(
            inFolder(absoluteFolder_.empty() ? folder : absoluteFolder_, namePart(name)));
    }

    [[nodiscard]] bool excluded(std::string_view name) const {
        return std::any_of(options_.exclude.begin(), options_.exclude.end(),
                           [name](const std::string& glob) { return fitsGlob(glob, name); });
    }

    // A folder gives the files that its conversion takes.
    [[nodiscard]] bool wanted(std::string_view name) const {
        const InputKind kind = inputKindOf(name);
        const bool archives = options_.converter.takesArchives() || options_.toGeoPackage;
        if (kind == InputKind::other || (kind == InputKind::archive) != archives) return false;
        if (excluded(name)) return false;
        return options_.include.empty() ||
               std::any_of(options_.include.begin(), options_.include.end(),
                           [name](const std::string& glob) { return fitsGlob(glob, name); });
    }

    void takeFolder(const std::string& folder, std::uint32_t root) {
        std::vector<FolderEntry> entries;  // a list of all would be much larger
        const auto takeWanted = [&](FolderEntry&& entry) {
            const bool goes = entry.isFolder ? options_.recursive && entry.name.front() != '.' &&
                                                   !excluded(entry.name)
                                             : wanted(entry.name);
            if (goes) entries.push_back(std::move(entry));
        };
        if (!visitFolder(folder, takeWanted)) return add(folder, {}, root);
        std::sort(entries.begin(), entries.end(),
                  [](const FolderEntry& a, const FolderEntry& b) { return a.name < b.name; });
        for (const FolderEntry& entry : entries) {
            const std::string name = inFolder(folder, entry.name);
            if (entry.isFolder)
                takeFolder(name, root);
            else
                add(name, {}, root);
        }
    }

    // The same as if its names stood on the command line, as a shell would have put them there.
    void takeWildcard(const std::string& pattern) {
        const std::vector<std::string> names = expandWildcard(pattern);
        for (const std::string& name : names) {
            if (!excluded(namePart(name))) add(name, {}, rootOfWildcard(pattern));
        }
        if (names.empty()) add(pattern, {}, 0);  // the look says that it isn't there
    }

    // What stands in front of a wildcard's first part that stands for several names.
    static std::uint32_t rootOfWildcard(std::string_view pattern) {
        return lengthBeforeName(pattern.substr(0, pattern.find_first_of("*?[")));
    }

    void takeListFile(const std::string& file) {
        const auto text = readWholeFile(file, kMostListBytes);
        if (text) return takeList(*text, false);
        inputs_.refusal = "the list " + file + " can't be read: " + lastFailure();
    }

    void takeList(std::string_view text, bool zeroBytes) {
        for (const ListedName& listed : namesInList(text, zeroBytes)) {
            if (!listed.second.empty()) {
                add(listed.name, listed.second, lengthBeforeName(listed.name));
            } else if (listed.name != "-" && !listed.name.starts_with('@')) {
                takeArgument(listed.name);
            } else {
                add(listed.name, {}, 0);
            }
        }
    }

    static std::string readStandardInput() {
        std::string text;
        char block[65536];
        while (const std::size_t count =
                   vantelgis::platform::readStandardInput(block, sizeof block)) {
            text.append(block, count);
            if (text.size() > kMostListBytes) break;
        }
        return text;
    }

    const Options& options_;
    Inputs inputs_;
    std::unordered_multimap<std::size_t, std::size_t>
        places_;  // hash of a name, place of the input
    std::string folder_;
    std::string absoluteFolder_;
};

bool endsIgnoringCase(std::string_view text, std::string_view end) {
    return text.size() > end.size() && sameIgnoringCase(text.substr(text.size() - end.size()), end);
}

// The stem of the lines that a check layer was made for; empty if it is none.
std::string_view checkedStem(std::string_view stem) {
    for (const std::string_view end : {"_dangles", "_unsnapped_points"}) {
        for (const std::string_view family : {"", "_L", "_P"}) {
            const std::string whole = std::string(end).append(family);
            if (endsIgnoringCase(stem, whole)) return stem.substr(0, stem.size() - whole.size());
        }
    }
    return {};
}

bool givesProjection(std::string_view name) {
    const std::string_view stem = stemPart(namePart(name));
    return sameIgnoringCase(stem, "header") || sameIgnoringCase(stem, "projection");
}

std::string stemKey(const std::string& name) {
    return nameKey(inFolder(folderPart(name), stemPart(namePart(name))));
}

std::size_t hashOf(const std::string& text) {
    return std::hash<std::string>{}(text);
}

// Files that lie beside the layers for their sake.
constexpr std::string_view kSideFiles[] = {
    "of Header and Projection", "check layers of earlier runs", "files that belong to a layer"};

// Which of them an input is; the number of them when it is none. `stems` are sorted.
std::size_t sideOf(const Input& input, const std::vector<std::size_t>& stems) {
    constexpr std::size_t kNone = std::size(kSideFiles);
    const InputKind kind = inputKindOf(input.name);
    const auto isStem = [&](const std::string& key) {
        return std::binary_search(stems.begin(), stems.end(), hashOf(key));
    };
    if (kind == InputKind::other) {
        constexpr std::string_view kSisters[] = {".mid", ".dbf", ".shx", ".prj",
                                                 ".cpg", ".qix", ".sbn", ".sbx"};
        const bool sister =
            std::any_of(std::begin(kSisters), std::end(kSisters), [&](std::string_view extension) {
                return sameIgnoringCase(extension, extensionPart(namePart(input.name)));
            });
        return sister && isStem(stemKey(input.name)) ? 2 : kNone;
    }
    if (kind == InputKind::archive) return kNone;
    if (givesProjection(input.name)) return 0;
    const std::string_view stem = checkedStem(stemPart(namePart(input.name)));
    return !stem.empty() && isStem(nameKey(inFolder(folderPart(input.name), stem))) ? 1 : kNone;
}

}  // namespace

std::string Input::folderBelowRoot() const {
    const std::string_view below = std::string_view(name).substr(root);
    return std::string(below.substr(0, lengthBeforeName(below)));
}

Inputs collectInputs(const Options& options) {
    Collector collector(options);
    for (const std::string& argument : options.inputs) collector.takeArgument(argument);
    Inputs inputs = collector.take();
    leaveOutSideFiles(inputs);
    if (!options.pairs.empty()) joinPairs(options.pairs, inputs);
    dropRepeatedPairs(inputs.items);
    std::uint32_t number = 0;
    for (Input& input : inputs.items) input.number = ++number;
    return inputs;
}

void leaveOutSideFiles(Inputs& inputs) {
    if (inputs.items.size() == 1) return;
    std::vector<std::size_t> stems;  // of layers and archives
    for (const Input& input : inputs.items) {
        if (inputKindOf(input.name) != InputKind::other)
            stems.push_back(hashOf(stemKey(input.name)));
    }
    std::sort(stems.begin(), stems.end());
    std::size_t counts[std::size(kSideFiles)] = {};
    std::erase_if(inputs.items, [&](const Input& input) {
        const std::size_t side = sideOf(input, stems);
        if (side == std::size(kSideFiles)) return false;
        ++counts[side];
        return true;
    });
    for (std::size_t side = 0; side < std::size(kSideFiles); ++side) {
        if (counts[side] > 0)
            inputs.notes.push_back("left out: " + std::to_string(counts[side]) + " " +
                                   std::string(kSideFiles[side]));
    }
}

void takeShard(int shard, int shards, std::vector<Input>& items) {
    std::size_t kept = 0;
    const auto step = static_cast<std::size_t>(shards);
    for (std::size_t i = static_cast<std::size_t>(shard) - 1; i < items.size(); i += step, ++kept) {
        if (i != kept) items[kept] = std::move(items[i]);
    }
    items.resize(kept);
}

}  // namespace vantelgis::batch
