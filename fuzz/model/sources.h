#pragma once

#include <string>
#include <vector>

#include "memory/memory_platform.h"
#include "model/choices.h"
#include "model/layers.h"

namespace vantelgis::fuzz {

// Sound inputs of all spellings that a reader accepts, together with what they say.

/// A polyline, or a part of one, and the name that its string gets.
struct NamedLine {
    std::string name;
    std::vector<Node> nodes;
};

/// A point with two values.
struct Result {
    Node node;
    float size = 0;
    float angle = 0;
};

struct LayerSource {
    memory::Files files;  ///< a.mif and a.mid, or a.shp and a.dbf
    std::vector<NamedLine> lines;
    std::vector<Result> results;
    bool withAngles = false;  ///< the second field holds angles
};

/// A layer with lines among other objects; with results, one of points whose values are such.
LayerSource mifSource(Choices& choices, bool withResults);
LayerSource shpSource(Choices& choices, bool withResults);

struct Vertex {
    Node node;
    float z = 0;
};

/// A data block of a string.
struct Block {
    std::string type;   ///< of the string
    bool flat = false;  ///< a 2d string, whose line shows the level
    bool hip = false;
    std::vector<Vertex> vertices;
};

struct ArchiveSource {
    std::string text;
    float nullValue = 0;
    std::vector<Block> blocks;
};

/// No two vertices lie in one place, but for the two ends of a closed polyline.
ArchiveSource archiveSource(Choices& choices);

}  // namespace vantelgis::fuzz
