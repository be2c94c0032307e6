#include "toolkit/opener.h"

#include "run/opener.h"
#include "run/units.h"
#include "toolkit/host.h"

namespace vantelgis {

void FILESINIT(int base) {
    initialiseUnits(base);
}

void FILEOPEN(int& unit, std::string_view mode, std::string_view name) {
    const HandOver host;
    openUnit(unit, mode, name);
}

void OPENER(int& unit, TextRef name, std::string_view mode, std::string_view label) {
    const HandOver host;
    openOnUnit(unit, name, mode, label);
}

void CLOSER(int& unit) {
    const HandOver host;
    closeUnit(unit);
}

}  // namespace vantelgis
