// Archives of strings, with coordinates and elevations in millimetres as surveyors have them.

#include "generate/mif.h"
#include "generate/places.h"
#include "generate/recipes.h"

namespace bench {

namespace {

void putPlace(Output& out, const Place& place) {
    out << "    ";
    out.decimal(place.x / kMillimetre, 3) << " ";
    out.decimal(place.y / kMillimetre, 3);
}

void putVertex(Output& out, Random& random, const Place& place) {
    putPlace(out, place);
    out << " ";
    out.decimal(5000 + random.below(200'000), 3) << "\r\n";
}

std::int64_t vertexCount(Random& random) {
    return 50 + random.below(451);
}

// The archive's head, and the projections for either form of layer beside it.
void putHead(Output& out, const std::string& folder, std::string_view nullKeyword) {
    Output(folder + "/Header.mif") << kCoordSys;
    Output(folder + "/Header.prj") << "PROJCS[\"GDA2020_MGA_Zone_56\"]\n";
    out << "// archive_version 14.0\r\n// null_keyword " << nullKeyword
        << "\r\n// output_hex_floats false\r\n\r\nmodel \"SURVEY\"\r\n\r\n";
}

void beginString(Output& out, std::string_view type, std::int64_t number) {
    out << "string " << type << " {\r\n  chainage 0\r\n  breakline line\r\n  colour \"green\"\r\n"
        << "  name \"LINE " << number << "\"\r\n  style \"1\"\r\n";
}

void putAttributes(Output& out, std::int64_t number) {
    constexpr std::string_view kNames[] = {"kind",  "surveyor", "surveyed", "width", "state",
                                           "sheet", "remark",   "owner",    "layer", "source"};
    out << "  attributes {\r\n";
    for (const std::string_view name : kNames)
        out << "    text \"" << name << "\" \"value " << number << "\"\r\n";
    out << "  }\r\n";
}

void put3dData(Output& out, Random& random, std::int64_t count) {
    out << "  data {\r\n";
    Place place = somewhere(random);
    for (std::int64_t i = 0; i < count; ++i) {
        putVertex(out, random, place);
        step(random, place);
    }
    out << "  }\r\n}\r\n";
}

}  // namespace

std::int64_t archiveOf3dStrings(const std::string& folder, std::int64_t wanted) {
    Random random;
    Output out(folder + "/site.12da");
    putHead(out, folder, "false");
    std::int64_t vertices = 0;
    for (std::int64_t string = 1; vertices < wanted; ++string) {
        const std::int64_t count = vertexCount(random);
        beginString(out, "3d", string);
        put3dData(out, random, count);
        vertices += count;
    }
    return vertices;
}

std::int64_t archiveOfShortStrings(const std::string& folder, std::int64_t wanted) {
    constexpr std::int64_t kVertices = 4;
    Random random;
    Output out(folder + "/site.12da");
    putHead(out, folder, "false");
    std::int64_t vertices = 0;
    for (std::int64_t string = 1; vertices < wanted; ++string) {
        beginString(out, "3d", string);
        putAttributes(out, string);
        put3dData(out, random, kVertices);
        vertices += kVertices;
    }
    return vertices;
}

std::int64_t archiveOfSuperStrings(const std::string& folder, std::int64_t wanted) {
    constexpr std::int64_t kVerticesToANull = 5;
    Random random;
    Output out(folder + "/site.12da");
    putHead(out, folder, "true");
    std::int64_t vertices = 0;
    for (std::int64_t string = 1; vertices < wanted; ++string) {
        const std::int64_t count = vertexCount(random);
        beginString(out, "super", string);
        out << "  z " << random.below(200) << ".5\r\n  data_2d {\r\n";
        Place place = somewhere(random);
        for (std::int64_t i = 0; i < count; ++i) {
            putPlace(out, place);
            out << "\r\n";
            step(random, place);
        }
        out << "  }\r\n  data_3d {\r\n";
        for (std::int64_t i = 0; i < count; ++i) {
            if (random.below(kVerticesToANull) == 0) {
                putPlace(out, place);
                out << " null\r\n";
            } else {
                putVertex(out, random, place);
            }
            step(random, place);
        }
        out << "  }\r\n}\r\n";
        vertices += 2 * count;
    }
    return vertices;
}

namespace {

std::int64_t archiveOfEqualStrings(const std::string& folder, std::int64_t wanted,
                                   std::int64_t count) {
    Random random;
    Output out(folder + "/site.12da");
    putHead(out, folder, "false");
    Output mif(folder + "/lines.mif"), mid(folder + "/lines.mid");
    putMifHead(mif, 1, "  Number Decimal(10,0)\n");
    std::int64_t vertices = 0;
    for (std::int64_t string = 1; vertices < wanted; ++string, vertices += count) {
        beginString(out, "3d", string);
        out << "  data {\r\n";
        mif << "Pline " << count << "\n";
        mid << string << "\n";
        Place place = somewhere(random);
        for (std::int64_t i = 0; i < count; ++i) {
            putVertex(out, random, place);
            mif << place;
            step(random, place);
        }
        out << "  }\r\n}\r\n";
    }
    return vertices;
}

}  // namespace

std::int64_t archiveOfForties(const std::string& folder, std::int64_t wanted) {
    return archiveOfEqualStrings(folder, wanted, 40);
}

std::int64_t archiveOfFours(const std::string& folder, std::int64_t wanted) {
    return archiveOfEqualStrings(folder, wanted, 4);
}

std::int64_t archiveOfOneString(const std::string& folder, std::int64_t vertices) {
    Random random;
    Output out(folder + "/site.12da");
    putHead(out, folder, "false");
    beginString(out, "3d", 1);
    put3dData(out, random, vertices);
    return vertices;
}

}  // namespace bench
