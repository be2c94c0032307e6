/* Reads a file line by line through the opener, adds up the first number of each line, and writes the
   sum to a second file with the same base name. With pkg-config:
   cc levels.c $(pkg-config --cflags --libs vantelgis) */

#include <stdio.h>
#include <string.h>
#include <vantelgis.h>

int main(int count, char** values) {
    const char* name = count > 1 ? values[1] : "levels.txt";
    char line[200], result[200];
    size_t length;
    int32_t unit = 0;
    float sum = 0, level;

    printf("vantelgis %s, reading %s\n", vg_version(), name);
    vg_filesinit(100);
    vg_fileopen(&unit, "I", 1, name, strlen(name));
    while (!vg_at_end(unit)) {
        if (!vg_readline(unit, line, sizeof line, &length)) continue; /* a comment */
        if (vg_csvvalue(line, length, 1, &level)) sum += level;
    }
    vg_closer(&unit);

    length = vg_filenamepath(result, sizeof result - 4, name, strlen(name));
    memcpy(result + length, ".sum", 4);
    vg_fileopen(&unit, "O", 1, result, length + 4);
    length = vg_areal(line, sizeof line, sum);
    vg_write_line(unit, line, length);
    vg_closer(&unit);
    printf("sum %.*s\n", (int)length, line);
    return 0;
}
