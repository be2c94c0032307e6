#include <algorithm>
#include <string>

#include "batch/files.h"
#include "batch/look/coordinate_system.h"
#include "batch/look/look.h"
#include "batch/look/sisters.h"

namespace vantelgis::batch {

namespace {

// The results that have a coordinate system of their own.
bool resultCarriesProjection(Conversion conversion) {
    return conversion == Conversion::breaklines3d || conversion == Conversion::strings ||
           conversion == Conversion::sections;
}

// The files in which the run looks for a coordinate system, the first of them first, and the one
// that it takes.
struct Search {
    bool mif = false;     ///< a CoordSys line is wanted, else one with PROJCS
    std::string file;     ///< empty when there is none
    bool chosen = false;  ///< the command line names it: a text that can't be taken stops the run
};

std::string headerIn(const RunPlan& plan, std::string_view extension, Look& look) {
    std::string first;
    for (const std::string_view stem : {"Header", "Projection"}) {
        const std::string name = std::string(stem).append(extension);
        const Sister found = findInFolder(plan.folder, name);
        if (found.file.empty()) continue;
        const auto sameName = [&](const FileLink& link) {
            return nameKey(link.name) == nameKey(name);
        };
        if (std::none_of(look.links.begin(), look.links.end(), sameName))
            look.links.push_back({found.file, name});
        if (first.empty()) first = found.file;
    }
    return first;
}

// Beside a File 2 the .prj of that, then the usual ones, the first that has a projection.
std::string projectionOfShpPair(const RunPlan& plan, Look& look) {
    std::string own = findSister(plan.second, ".prj").file;
    if (!own.empty() && own != plan.second) {
        const std::string folder = plan.link2.starts_with("2/") ? "2/" : "";
        look.links.push_back({own, folder + std::string(stemPart(namePart(plan.link2))) + ".prj"});
    }
    if (!own.empty() && !readCoordinateSystem(own, false).line.empty()) return own;
    return headerIn(plan, ".prj", look);
}

Search searchProjection(const Options& options, const RunPlan& plan, Look& look) {
    Search search;
    const InputKind kind = inputKindOf(plan.input);
    search.mif = kind == InputKind::mif ||
                 (kind == InputKind::archive && options.converter.layerExtension() == ".mif");
    const bool zln = plan.conversion == Conversion::breaklines3d;
    if (!plan.second.empty()) {
        search.chosen = search.mif || kind == InputKind::archive;
        search.file = search.chosen ? plan.second : projectionOfShpPair(plan, look);
    } else if (zln && kind == InputKind::mif) {
        search.file = plan.input;
    } else if (zln && kind == InputKind::shp) {
        search.file = findSister(plan.input, ".prj").file;
        const std::string link = std::string(stemPart(plan.link1)) + ".prj";
        if (!search.file.empty()) look.links.push_back({search.file, link});
    } else {
        search.file = headerIn(plan, search.mif ? ".mif" : ".prj", look);
    }
    return search;
}

std::string ownSource(const RunPlan& plan) {
    const InputKind kind = inputKindOf(plan.input);
    if (kind == InputKind::mif) return plan.input;
    return kind == InputKind::shp ? findSister(plan.input, ".prj").file : "";
}

// The layer's own coordinate system where the run looks for one, if it can be taken.
bool takeOwnProjection(const RunPlan& plan, const Search& search, Look& look) {
    const std::string source = ownSource(plan);
    if (source.empty() || !plan.second.empty()) return false;
    const CoordinateSystem own = readCoordinateSystem(source, search.mif);
    if (own.joined.empty()) return false;
    const std::string name = search.mif ? "Header.mif" : "Header.prj";
    std::erase_if(look.links,
                  [&](const FileLink& link) { return nameKey(link.name) == nameKey(name); });
    const bool shpLines = plan.conversion == Conversion::breaklines3d && !search.mif;
    look.ownFiles.emplace_back(shpLines ? std::string(stemPart(plan.link1)) + ".prj" : name,
                               own.joined + "\r\n");
    if (shpLines)
        std::erase_if(look.links, [&](const FileLink& link) { return link.file == source; });
    return true;
}

// What a run without one needs: -zln looks beside the layer, the others in the folder.
void tellNoProjection(const RunPlan& plan, Look& look) {
    const std::string own = std::string(stemPart(namePart(plan.input))) + ".prj";
    const bool beside = plan.conversion == Conversion::breaklines3d;
    look.find(Find::noProjection,
              {beside ? own + " beside the layer" : "Header.prj or Projection.prj in the folder"});
    if (beside)
        look.cure("Copy the .prj of a layer in the same system to " + own + ".");
    else if (!ownSource(plan).empty())
        look.cure("Use --own-projection, which takes " + own + ".");
    else
        look.cure("Copy the .prj of a layer in the same system to Header.prj.");
}

// What can't be taken whole stops the run, or doesn't matter to it.
void tellForm(const RunPlan& plan, const Search& search, const CoordinateSystem& taken,
              Look& look) {
    const bool stops = taken.line.empty() || resultCarriesProjection(plan.conversion);
    const std::string name(namePart(search.file));
    look.find(stops ? Find::projectionForm : Find::projectionFormUnused, {name, taken.fault});
    if (!stops) return;
    if (search.mif)
        look.cure("Copy the CoordSys clause of a layer in the same system, on one line, to it.");
    else if (taken.fault.find("GEOGCS") != std::string::npos)
        look.cure(std::string(rowOf(Find::degrees).cure));
    else
        look.cure("gdalsrsinfo -o wkt_esri --single-line " + name +
                  " > plain.prj, and rename "
                  "plain.prj to " +
                  name + ".");
}

void compareWithOwn(const RunPlan& plan, const Search& search, const CoordinateSystem& taken,
                    Look& look) {
    const std::string source = ownSource(plan);
    if (source.empty() || source == search.file) return;
    const CoordinateSystem own = readCoordinateSystem(source, search.mif);
    if (own.joined.empty() || sameCoordinateSystem(own.joined, taken.joined)) return;
    const bool carried = resultCarriesProjection(plan.conversion);
    look.find(carried ? Find::otherProjection : Find::otherProjectionUnused,
              {namePart(search.file)});
}

}  // namespace

void lookAtProjection(const Options& options, const RunPlan& plan, Look& look) {
    const ConverterArguments& converter = options.converter;
    const bool archive = inputKindOf(plan.input) == InputKind::archive;
    if (archive && !converter.wantMif && !converter.wantShp) {
        look.find(Find::noCoordSys, {"with -out alone none is looked for; add -mif or -shp"});
        return;
    }
    const Search search = searchProjection(options, plan, look);
    if (options.ownProjection && takeOwnProjection(plan, search, look)) return;
    if (search.file.empty()) {
        if (search.mif)
            look.find(Find::noCoordSys, {"the folder has no Header.mif or Projection.mif"});
        else if (plan.second.empty())
            tellNoProjection(plan, look);
        return;
    }
    const CoordinateSystem taken = readCoordinateSystem(search.file, search.mif);
    if (!taken.fault.empty()) return tellForm(plan, search, taken, look);
    compareWithOwn(plan, search, taken, look);
}

}  // namespace vantelgis::batch
