// A host in C++ that prints in each of its ways before, between and behind what the set prints;
// with an argument its std::cout has a buffer of its own. A stop of the set is an exception to it.

#include <vantelgis.h>

#include <cstdio>
#include <iostream>

int main(int count, char** /*values*/) {
    std::ios::sync_with_stdio(count == 1);
    std::cout << "before|";
    vg_dline(0);
    std::printf("between|");
    vg_dline(0);
    std::cout << "behind|";
    vg_dline(0);
    std::cout << "end\n";
    vg_set_unattended(true);
    vg_set_end([] { throw 1; });
    try {
        vg_exits();
    } catch (int) {
        vg_filesinit(20);
        vg_dline(0);
    }
    return 0;
}
