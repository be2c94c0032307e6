// The archives of the benchmarks.

#include "generator.h"

namespace bench {

namespace {

constexpr std::int64_t kMillimetre = kMetre / 1000;

// A length in millimetres, as a surveyor's file has it in metres.
void putMilli(Output& out, std::int64_t milli) {
    const std::string fraction = std::to_string(1000 + milli % 1000);
    out << milli / 1000 << "." << std::string_view(fraction).substr(1);
}

void putPlace(Output& out, const Place& place) {
    out << "    ";
    putMilli(out, place.x / kMillimetre);
    out << " ";
    putMilli(out, place.y / kMillimetre);
}

void putPlaceAndHeight(Output& out, Random& random, const Place& place) {
    putPlace(out, place);
    out << " ";
    putMilli(out, 5000 + random.below(200'000));
    out << "\r\n";
}

std::int64_t vertexCount(Random& random) {
    return 50 + random.below(451);
}

void head(Output& out, std::string_view nullKeyword) {
    out << "// archive_version 14.0\r\n// null_keyword " << nullKeyword
        << "\r\n// output_hex_floats false\r\n\r\nmodel \"SURVEY\"\r\n\r\n";
}

void beginString(Output& out, std::string_view type, std::int64_t number) {
    out << "string " << type << " {\r\n  chainage 0\r\n  breakline line\r\n  colour \"green\"\r\n"
        << "  name \"LINE " << number << "\"\r\n  style \"1\"\r\n";
}

void put3dString(Output& out, Random& random, std::int64_t number, std::int64_t count) {
    beginString(out, "3d", number);
    out << "  data {\r\n";
    Place place = somewhere(random);
    for (std::int64_t i = 0; i < count; ++i) {
        putPlaceAndHeight(out, random, place);
        step(random, place);
    }
    out << "  }\r\n}\r\n";
}

}  // namespace

std::int64_t archiveOf3dStrings(const std::string& folder) {
    Random random;
    Output out(folder + "/site.12da");
    head(out, "false");
    std::int64_t vertices = 0;
    for (std::int64_t string = 1; string <= 10'500; ++string) {
        const std::int64_t count = vertexCount(random);
        put3dString(out, random, string, count);
        vertices += count;
    }
    return vertices;
}

std::int64_t archiveOfSuperStrings(const std::string& folder) {
    constexpr std::int64_t kVerticesToANull = 5;
    Random random;
    Output out(folder + "/site.12da");
    head(out, "true");
    std::int64_t vertices = 0;
    for (std::int64_t string = 1; string <= 5800; ++string) {
        beginString(out, "super", string);
        out << "  z " << random.below(200) << ".5\r\n  data_2d {\r\n";
        Place place = somewhere(random);
        const std::int64_t count = vertexCount(random);
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
                putPlaceAndHeight(out, random, place);
            }
            step(random, place);
        }
        out << "  }\r\n}\r\n";
        vertices += 2 * count;
    }
    return vertices;
}

std::int64_t archiveOfLongestString(const std::string& folder) {
    constexpr std::int64_t kMostVertices = 1'000'000;
    Random random;
    Output out(folder + "/site.12da");
    head(out, "false");
    put3dString(out, random, 1, kMostVertices);
    return kMostVertices;
}

}  // namespace bench
