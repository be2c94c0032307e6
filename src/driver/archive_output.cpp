#include "driver/archive_output.h"

#include <algorithm>

#include "run/opener.h"
#include "run/unit_writing.h"
#include "text/number_field.h"
#include "text/paths.h"
#include "text/strings.h"

namespace vantelgis {

namespace {

// The model line is made of pieces so that a long path isn't cut at the capacity of a model name.
void putModelName(int unit, const RunSettings& run, std::string_view sourceFile) {
    Path name;
    if (run.haveModel) {
        ALPHANUMERICONLY(name, run.modelName, " ");
        put(unit, name);
        return;
    }
    FILENAMEPATH(name, sourceFile);
    ALPHANUMERICONLY(name, name, " ");
    put(unit, "from ");
    put(unit, name);
    put(unit, " gis");
}

}  // namespace

void openArchive(int& unit, const RunSettings& run, std::string_view sourceFile) {
    FILEOPEN(unit, "O ", run.outputFile);
    put(unit, "null -999\r\nmodel \"");
    putModelName(unit, run, sourceFile);
    put(unit, "\"\r\n\r\n");
}

void beginString(int unit, std::string_view type, std::string_view name) {
    put(unit, "string ");
    put(unit, type);
    put(unit, " {\r\n  name      \"");
    put(unit, name);
    put(unit,
        "\"\r\n"
        "  chainage  0\r\n"
        "  breakline line\r\n"
        "  colour    red\r\n"
        "  style     1\r\n"
        "\r\n"
        "  data {\r\n");
}

char* composeNode(char* out, double x, double y) {
    constexpr std::string_view kIndent = "    ";
    constexpr int kWidth = 16;
    constexpr int kDecimals = 5;
    out = std::copy(kIndent.begin(), kIndent.end(), out);
    out = fixedField(out, x, kWidth, kDecimals);
    return fixedField(out, y, kWidth, kDecimals);
}

void commitLine(int unit, char* end) {
    *end++ = '\r';
    *end++ = '\n';
    commit(unit, end);
}

void endString(int unit) {
    put(unit, "  }\r\n}\r\n\r\n");
}

}  // namespace vantelgis
