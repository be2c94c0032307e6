#include "gpkg/package/style_document.h"

#include "gpkg/report.h"

namespace vantelgis::gpkg {

namespace {

constexpr std::string_view kStart =
    "<!DOCTYPE qgis PUBLIC 'http://mrcc.com/qgis.dtd' 'SYSTEM'>\n"
    "<qgis version=\"3.22.0\" styleCategories=\"Symbology|Labeling\" labelsEnabled=\"1\">\n";
constexpr std::string_view kEnd = "</qgis>\n";

// Names along their lines at scales nearer than 1 : 5000.
constexpr std::string_view kLineLabels =
    R"(<labeling type="simple"><settings calloutType="simple">)"
    R"(<text-style fieldName="name" isExpression="0" fontSize="8" fontSizeUnit="Point" )"
    R"(textColor="40,40,40,255" textOpacity="1"><text-buffer bufferDraw="1" bufferSize="0.7" )"
    R"(bufferSizeUnits="MM" bufferColor="255,255,255,255" bufferOpacity="0.8"/></text-style>)"
    R"(<placement placement="2" placementFlags="10" dist="0.3" distUnits="MM" priority="5"/>)"
    R"(<rendering scaleVisibility="1" scaleMin="0" scaleMax="5000" drawLabels="1"/>)"
    "</settings></labeling>\n";
constexpr std::string_view kPointLabels =
    R"(<labeling type="simple"><settings calloutType="simple">)"
    R"(<text-style fieldName="name" isExpression="0" fontSize="8" fontSizeUnit="Point" )"
    R"(textColor="40,40,40,255" textOpacity="1"><text-buffer bufferDraw="1" bufferSize="0.7" )"
    R"(bufferSizeUnits="MM" bufferColor="255,255,255,255" bufferOpacity="0.8"/></text-style>)"
    R"(<placement placement="6" dist="1" distUnits="MM" priority="5"/>)"
    R"(<rendering scaleVisibility="1" scaleMin="0" scaleMax="5000" drawLabels="1"/>)"
    "</settings></labeling>\n";

constexpr Colour kEdge{90, 90, 90};
constexpr Colour kMissing{255, 0, 0};

std::string escaped(std::string_view text) {
    std::string result;
    for (const char c : text) {
        switch (c) {
            case '&': result += "&amp;"; break;
            case '<': result += "&lt;"; break;
            case '>': result += "&gt;"; break;
            case '"': result += "&quot;"; break;
            default: result += static_cast<unsigned char>(c) < 0x20 ? ' ' : c;
        }
    }
    return result;
}

std::string option(std::string_view name, std::string_view value) {
    return joined("<Option name=\"", name, "\" type=\"QString\" value=\"", value, "\"/>");
}

std::string textOf(Colour colour) {
    return joined(int{colour.red}, ",", int{colour.green}, ",", int{colour.blue}, ",255");
}

std::string symbolLayer(std::string_view kind, std::string_view options,
                        std::string_view expression = {}) {
    std::string layer = joined("<layer class=\"", kind,
                               "\" enabled=\"1\" locked=\"0\" pass=\"0\"><Option type=\"Map\">",
                               options, "</Option>");
    if (!expression.empty())
        layer += joined(
            R"(<data_defined_properties><Option type="Map"><Option name="name" type="QString" )"
            R"(value=""/><Option name="properties" type="Map"><Option name="enabled" type="Map">)"
            R"(<Option name="active" type="bool" value="true"/><Option name="expression" )"
            R"(type="QString" value=")",
            escaped(expression),
            R"("/><Option name="type" type="int" value="3"/></Option></Option><Option name="type" )"
            R"(type="QString" value="collection"/></Option></data_defined_properties>)");
    return layer + "</layer>";
}

std::string lineLayer(Colour colour, std::string_view width) {
    return symbolLayer("SimpleLine",
                       option("line_color", textOf(colour)) + option("line_width", width) +
                           option("line_width_unit", "MM") + option("capstyle", "round") +
                           option("joinstyle", "round"));
}

// A string with a vertex that has no elevation is broken by white dashes.
std::string missingLayer() {
    return symbolLayer("SimpleLine",
                       option("line_color", "255,255,255,255") + option("line_width", "0.26") +
                           option("line_width_unit", "MM") + option("use_custom_dash", "1") +
                           option("customdash", "1;3") + option("customdash_unit", "MM") +
                           option("capstyle", "flat"),
                       R"("z" IS NULL AND "length_3d" IS NULL)");
}

std::string markerLayer(std::string_view shape, Colour colour, std::string_view size) {
    return symbolLayer("SimpleMarker",
                       option("name", shape) + option("color", textOf(colour)) +
                           option("outline_color", textOf(shape == "circle" ? kEdge : colour)) +
                           option("outline_width", shape == "circle" ? "0.15" : "0.4") +
                           option("size", size) + option("size_unit", "MM"));
}

std::string symbol(std::size_t number, std::string_view type, std::string_view layers) {
    return joined("<symbol name=\"", number, "\" type=\"", type,
                  "\" alpha=\"1\" clip_to_extent=\"1\" force_rhr=\"0\">", layers, "</symbol>\n");
}

std::string lineSymbol(std::size_t number, Colour colour) {
    const std::string edge = needsEdge(colour) ? lineLayer(kEdge, "0.5") : "";
    return symbol(number, "line", edge + lineLayer(colour, "0.3") + missingLayer());
}

std::string pointSymbol(std::size_t number, Colour colour) {
    return symbol(number, "marker", markerLayer("circle", colour, "1.8"));
}

// The last class takes what the others leave: strings without a colour, and those that are drawn
// in the GIS later on.
std::string renderer(const std::vector<ColourClass>& classes,
                     std::string (*symbolOf)(std::size_t, Colour)) {
    std::string categories;
    std::string symbols;
    std::size_t number = 0;
    for (const ColourClass& each : classes) {
        if (each.name.empty()) continue;
        const std::string name = escaped(each.name);
        categories += joined("<category symbol=\"", number, "\" value=\"", name, "\" label=\"",
                             name, "\" render=\"true\" type=\"string\"/>\n");
        symbols += symbolOf(number++, each.colour.value_or(kUnknownColour));
    }
    categories += joined("<category symbol=\"", number,
                         "\" value=\"\" label=\"other\" render=\"true\" type=\"string\"/>\n");
    symbols += symbolOf(number, kUnknownColour);
    return joined(
        "<renderer-v2 type=\"categorizedSymbol\" attr=\"colour\" symbollevels=\"0\" "
        "enableorderby=\"0\" forceraster=\"0\">\n<categories>\n",
        categories, "</categories>\n<symbols>\n", symbols, "</symbols>\n</renderer-v2>\n");
}

}  // namespace

std::string lineStyle(const std::vector<ColourClass>& classes) {
    return joined(kStart, renderer(classes, lineSymbol), kLineLabels, kEnd);
}

std::string pointStyle(const std::vector<ColourClass>& classes) {
    return joined(kStart, renderer(classes, pointSymbol), kPointLabels, kEnd);
}

std::string vertexStyle() {
    constexpr std::string_view kRules =
        "<renderer-v2 type=\"RuleRenderer\" symbollevels=\"0\" enableorderby=\"0\" "
        "forceraster=\"0\">\n<rules key=\"root\">\n"
        "<rule key=\"none\" symbol=\"0\" label=\"no elevation\" "
        "filter=\"&quot;z&quot; IS NULL\"/>\n"
        "<rule key=\"some\" symbol=\"1\" label=\"elevation\" "
        "filter=\"ELSE\"/>\n</rules>\n<symbols>\n";
    return joined(kStart, kRules, symbol(0, "marker", markerLayer("cross2", kMissing, "2.2")),
                  symbol(1, "marker", markerLayer("circle", kUnknownColour, "1")),
                  "</symbols>\n</renderer-v2>\n", kEnd);
}

}  // namespace vantelgis::gpkg
