#include "toolkit/opener.h"

#include "run/opener.h"
#include "run/units.h"

namespace vantelgis {

void FILESINIT(int base) {
    initialiseUnits(base);
}

void FILEOPEN(int& unit, std::string_view mode, std::string_view name) {
    openUnit(unit, mode, name);
}

void OPENER(int& unit, TextRef name, std::string_view mode, std::string_view label) {
    openOnUnit(unit, name, mode, label);
}

void CLOSER(int& unit) {
    closeUnit(unit);
}

}  // namespace vantelgis
