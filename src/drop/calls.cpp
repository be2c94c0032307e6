#include "drop/calls.h"

#include <algorithm>
#include <map>

#include "drop/layer_files.h"
#include "drop/system.h"
#include "text/paths.h"

namespace vantelgis::drop {

namespace {

bool isInput(const Target& target, const std::string& name) {
    const auto has = [&](std::string_view extension) { return hasExtension(name, extension); };
    return target.takesArchives ? has(".12da") || has(".4da") : has(".mif") || has(".shp");
}

// Two layers of which one has the points for the lines of the other become one run.
std::string listOf(const Target& target, std::vector<std::string> names) {
    if (target.takesPairs && names.size() == 2) {
        if (geometryOf(names[1]) == Geometry::points) std::swap(names[0], names[1]);
        if (geometryOf(names[0]) == Geometry::points && geometryOf(names[1]) == Geometry::lines)
            return names[0] + '\t' + names[1] + '\n';
    }
    std::string list;
    for (const std::string& name : names) list += name + '\n';
    return list;
}

Call callFor(const Target& target, const std::string& program, const std::string& folder,
             const std::vector<std::string>& names) {
    Call call;
    call.report = folder + program + " report.html";
    call.list = listOf(target, names);
    call.options = {"--report", call.report};
    if (!target.takesArchives) call.options.emplace_back("--own-projection");
    call.options.insert(call.options.end(), {"-", "--"});
    if (!target.options.empty()) call.options.emplace_back(target.options);
    if (target.takesArchives)
        call.options.emplace_back(hasUsableProjection(folder) ? "-shp" : "-mif");
    return call;
}

}  // namespace

std::vector<Call> planCalls(const Target& target, const std::string& program,
                            std::span<const std::string> dropped) {
    std::map<std::string, std::vector<std::string>> folders;
    for (const std::string& name : dropped) {
        if (isFolder(name)) {
            folders[name.ends_with('\\') ? name : name + "\\"].push_back(name);
        } else if (isInput(target, name)) {
            folders[std::string(folderOf(name))].push_back(name);
        }
    }
    std::vector<Call> calls;
    for (const auto& [folder, names] : folders)
        calls.push_back(callFor(target, program, folder, names));
    return calls;
}

}  // namespace vantelgis::drop
