/* A host of the routine set; its first argument says what it does. */

#include <setjmp.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <vantelgis.h>

static jmp_buf back;

static void jump(void) { longjmp(back, 1); }
static void returnToEnd(void) { printf("[end]"); }
static void atExit(void) { printf("[atexit]"); }
static void show(const char* text, size_t length) { fprintf(stderr, "%.*s", (int)length, text); }

static int32_t open(const char* mode, const char* name) {
    int32_t unit = 0;
    vg_fileopen(&unit, mode, strlen(mode), name, strlen(name));
    return unit;
}

static void writeLine(int32_t unit, const char* text) { vg_write_line(unit, text, strlen(text)); }

static void leaveOpen(const char* mine, const char* theirs) {
    fputs("host", fopen(mine, "w"));
    writeLine(open("O", theirs), "set");
}

static void print(void) {
    printf("before|");
    vg_dline(0);
    printf("between|");
    vg_set_hand_over(false);
    vg_dline(0);
    printf("behind\n");
    vg_set_console(show);
    vg_dline(0);
    vg_set_console(NULL);
    leaveOpen("mine", "theirs");
}

static void stop(void) {
    atexit(atExit);
    leaveOpen("mine", "theirs");
    vg_set_end(returnToEnd);
    printf("stop|");
    vg_exits();
}

/* Every stop comes back, and the set goes on. */
static void jumpBack(void) {
    static volatile int step;
    int32_t five = 5;
    char text[50];
    size_t used;
    const float corner[3] = {0, 1, 1};
    vg_set_end(jump);
    vg_set_unattended(true);
    setjmp(back);
    vg_filesinit(20);
    strcpy(text, "nowhere/x");
    used = strlen(text);
    switch (++step) {
        case 1: vg_readline(77, text, sizeof text, &used); break;
        case 2: vg_readline(open("O", "x"), text, sizeof text, &used); break;
        case 3: writeLine(open("I", "levels.txt"), "lost"); break;
        case 4: writeLine(21, "lost"); break;
        case 5: vg_inside_polygon(0, 0, corner, corner, 3, 0, NULL, 0); break;
        case 6: open("I", ""); break;
        case 7: vg_opener(&five, text, sizeof text, &used, "I", 1, "", 0); break;
        case 8: five = 0; vg_opener(&five, text, sizeof text, &used, "O", 1, "", 0); break;
        default:
            printf("at end: %d\n", vg_at_end(21));
            open("I", "levels.txt");
            printf("at end: %d\n", vg_at_end(21));
    }
}

/* Without vg_filesinit, on units of the host's own, both ways. */
static void units(void) {
    int32_t own = 70000, first = open("I ", "levels.txt"), both = open("IO", "both");
    char text[50] = "own";
    size_t used = 3;
    vg_opener(&own, text, sizeof text, &used, "O", 1, "", 0);
    writeLine(own, "of the host");
    writeLine(both, "first");
    vg_closer(&both);
    both = open("IO", "both");
    vg_readline(both, text, sizeof text, &used);
    writeLine(both, "second");
    vg_closer(&both);
    vg_readline(first, text, sizeof text, &used);
    printf("%d %d %.*s\n", (int)first, (int)both, (int)used, text);
    vg_closer(&own);
    own = 11;
    memcpy(text, "next", used = 4);
    vg_opener(&own, text, sizeof text, &used, "O", 1, "", 0);
    writeLine(own, "in the table");
    printf("%d\n", (int)open("I", "levels.txt"));
}

static void askForLines(void) {
    char line[20];
    for (int n = 0; n < 2; ++n) {
        printf("host read %s", fgets(line, sizeof line, stdin));
        vg_dpause();
    }
}

int main(int count, char** values) {
    static const struct { const char* name; void (*run)(void); } kRuns[] = {
        {"print", print}, {"stop", stop}, {"jump", jumpBack}, {"units", units}, {"ask", askForLines}};
    for (size_t i = 0; count == 2 && i < sizeof kRuns / sizeof *kRuns; ++i)
        if (strcmp(values[1], kRuns[i].name) == 0) kRuns[i].run();
    return 0;
}
