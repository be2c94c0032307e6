#include "toolkit/host.h"

#include "run/console.h"
#include "run/stop.h"
#include "run/unit_writing.h"
#include "text/joined.h"

namespace vantelgis {

namespace {

bool handsOver = true;

}  // namespace

HandOver::~HandOver() {
    if (handsOver) consoleFlush();
}

void setHandOver(bool atOnce) {
    handsOver = atOnce;
}

void writeLineTo(int unit, std::string_view text) {
    if (!isOpen(unit)) stopWritingFile(Joined<40>("unit ", IntegerText(unit)));
    putLine(unit, text);
}

}  // namespace vantelgis
