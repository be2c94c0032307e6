// Takes a path apart, measures a line, and reads a file through the opener with a log of what the
// opener says.

#include <iostream>
#include <string_view>

#include "run/opener_settings.h"
#include "text/text.h"
#include "toolkit/geometry.h"
#include "toolkit/lines.h"
#include "toolkit/numbers.h"
#include "toolkit/opener.h"
#include "toolkit/paths.h"

using namespace vantelgis;

namespace {

void takePathApart(std::string_view path) {
    Text<100> name;
    Text<16> extension;
    Text<100> sibling;
    FILENAME(name, path);
    FILEEXT(extension, path);
    FILEFOLDERPATH(sibling, path);
    ADDFOLDER(sibling, sibling, "..\\gis\\lines.mif");
    std::cout << name.view() << " | " << extension.view() << " | " << sibling.view() << '\n';
}

void measure() {
    Text<20> length;
    AREAL(length, DISTANCE_8(300000.0, 6000000.0, 300003.0, 6000004.0));
    float area = 0;
    float width = 0;
    float perimeter = 0;
    HYD_PARAM(0.0F, 2.0F, 4.0F, 0.0F, 1.0F, 0.03F, area, width, perimeter);
    std::cout << "length " << length.view() << ", wet area " << area << ", width " << width << '\n';
}

void readWithLog(std::string_view name) {
    FILESINIT(100);
    int log = 0;
    FILEOPEN(log, "O ", "opener.log");
    openerSettings.logUnit = log;
    int unit = 0;
    FILEOPEN(unit, "I ", name);
    Text<200> line;
    const bool data = READLINE(unit, line);
    CLOSER(unit);
    openerSettings.logUnit = 0;
    CLOSER(log);
    std::cout << (data ? "data: " : "comment: ") << line.view() << '\n';
}

}  // namespace

int main(int count, char** values) {
    takePathApart("C:\\flood\\site.v2\\Creek.12da");
    measure();
    if (count > 1) readWithLog(values[1]);
}
