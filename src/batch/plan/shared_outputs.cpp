#include "batch/plan/shared_outputs.h"

#include <algorithm>
#include <functional>

#include "batch/files.h"
#include "batch/utf8.h"

namespace vantelgis::batch {

namespace {

std::size_t hashOf(const std::string& file) {
    return std::hash<std::string>{}(nameKey(file));
}

// One name of each layer and each other file.
std::vector<std::string> mainResults(const RunPlan& plan) {
    std::vector<std::string> files = resultFiles(plan);
    std::erase_if(files, [](const std::string& file) {
        const std::string_view extension = extensionPart(file);
        return extension == ".mid" || extension == ".shx" || extension == ".dbf" ||
               extension == ".prj";
    });
    return files;
}

}  // namespace

bool SharedOutputs::takeOne(std::size_t place, const std::string& file) {
    const std::size_t hash = hashOf(file);
    const auto input = inputs_.find(hash);
    if (input != inputs_.end() && input->second != place) {
        refusal_ = "the result of " + readable(crew_.inputs[place].name) +
                   " would take the place of the input " +
                   readable(crew_.inputs[input->second].name) +
                   ": give it another one with --output-folder or --name";
        return false;
    }
    const auto [writer, first] = writers_.emplace(hash, static_cast<std::uint32_t>(place));
    if (first || writer->second == place) return true;
    refusal_ = readable(crew_.inputs[writer->second].name) + " and " +
               readable(crew_.inputs[place].name) + " would both write " + readable(file) +
               ": tell them apart with --output-folder or --name";
    return false;
}

bool SharedOutputs::takeAll() {
    for (std::size_t place = 0; place < crew_.inputs.size(); ++place) {
        const RunPlan plan = planRun(crew_.options, jobOf(crew_, place));
        inputs_.emplace(hashOf(plan.input), static_cast<std::uint32_t>(place));
        if (!plan.second.empty() && plan.secondHasLines)
            inputs_.emplace(hashOf(plan.second), static_cast<std::uint32_t>(place));
    }
    for (std::size_t place = 0; place < crew_.inputs.size(); ++place) {
        const RunPlan plan = planRun(crew_.options, jobOf(crew_, place));
        if (plan.conversion == Conversion::none) continue;
        for (const std::string& file : mainResults(plan))
            if (!takeOne(place, inFolder(plan.targetFolder, file))) return false;
    }
    return true;
}

bool SharedOutputs::take(std::size_t place, const std::vector<std::string>& names) {
    const RunPlan plan = planRun(crew_.options, jobOf(crew_, place));
    return std::all_of(names.begin(), names.end(), [&](const std::string& name) {
        return takeOne(place, inFolder(plan.targetFolder, name));
    });
}

}  // namespace vantelgis::batch
