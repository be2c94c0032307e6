#include "batch/look/section_names.h"

#include <algorithm>
#include <cstdio>

#include "batch/files.h"
#include "batch/utf8.h"
#include "text/paths.h"

namespace vantelgis::batch {

namespace {

constexpr std::size_t kSectionIdWidth = 12;

// A name that stays below the archive's folder, with forward slashes; empty when it doesn't.
std::string nameBelow(std::string path) {
    std::replace(path.begin(), path.end(), '\\', '/');
    if (path.starts_with('/') || path.find(':') != std::string::npos) return {};
    const std::string between = "/" + path;
    return between.find("/../") == std::string::npos ? path : "";
}

}  // namespace

void SectionNames::take(D12Object& object) {
    if (object.name.blank()) {
        char number[32];
        std::snprintf(number, sizeof number, "xs%06lld", static_cast<long long>(++nameless_));
        object.name = number;
    }
    name_ = object.name.view();
    if (long_.empty() && baseNameOf(name_).size() > kSectionIdWidth) long_ = name_;
}

void SectionNames::takeFile(Look& look) {
    const Path joined = joinedPath({}, name_);
    std::string file(joined.view());
    if (!hasExtension(file, ".csv")) file += ".csv";
    const std::string below = nameBelow(inOwnForm(file));
    if (below.empty()) {
        if (outside_.empty()) outside_ = name_;
        return;
    }
    if (!keys_.insert(nameKey(below)).second) {
        if (twice_.empty()) twice_ = below;
        return;
    }
    look.sections.push_back(below);
    if (below.find('/') == std::string::npos) return;
    const std::string folder = folderPart(below);
    if (std::find(look.folders.begin(), look.folders.end(), folder) == look.folders.end())
        look.folders.push_back(folder);
}

void SectionNames::tell(Look& look) const {
    if (!long_.empty()) look.find(Find::longSectionName, {readable(inOwnForm(long_))});
    if (!twice_.empty()) look.find(Find::sectionTwice, {readable(twice_)});
    if (outside_.empty()) return;
    look.find(Find::sectionOutside, {readable(inOwnForm(outside_))});
    look.neverRun = true;
}

}  // namespace vantelgis::batch
