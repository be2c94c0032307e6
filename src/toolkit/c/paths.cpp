#include "toolkit/paths.h"
#include "toolkit/c/out_text.h"
#include "toolkit/c/vantelgis.h"

using namespace vantelgis;

size_t vg_fileext(char* out, size_t out_capacity, const char* path, size_t path_length) {
    return given(FILEEXT, out, out_capacity, view(path, path_length));
}

size_t vg_fileextkc(char* out, size_t out_capacity, const char* path, size_t path_length) {
    return given(FILEEXTKC, out, out_capacity, view(path, path_length));
}

size_t vg_file___ext(char* out, size_t out_capacity, const char* path, size_t path_length) {
    return given(FILE___EXT, out, out_capacity, view(path, path_length));
}

size_t vg_filename(char* out, size_t out_capacity, const char* path, size_t path_length) {
    return given(FILENAME, out, out_capacity, view(path, path_length));
}

size_t vg_filenameext(char* out, size_t out_capacity, const char* path, size_t path_length) {
    return given(FILENAMEEXT, out, out_capacity, view(path, path_length));
}

size_t vg_filenameno_(char* out, size_t out_capacity, const char* path, size_t path_length) {
    return given(FILENAMENO_, out, out_capacity, view(path, path_length));
}

size_t vg_filenamepath(char* out, size_t out_capacity, const char* path, size_t path_length) {
    return given(FILENAMEPATH, out, out_capacity, view(path, path_length));
}

size_t vg_filenamepathno_(char* out, size_t out_capacity, const char* path, size_t path_length) {
    return given(FILENAMEPATHNO_, out, out_capacity, view(path, path_length));
}

size_t vg_filefolderpath(char* out, size_t out_capacity, const char* path, size_t path_length) {
    return given(FILEFOLDERPATH, out, out_capacity, view(path, path_length));
}

size_t vg_addfolder(char* out, size_t out_capacity, const char* folder, size_t folder_length,
                    const char* name, size_t name_length) {
    return given(ADDFOLDER, out, out_capacity, view(folder, folder_length),
                 view(name, name_length));
}

size_t vg_removedotdot(char* out, size_t out_capacity, const char* path, size_t path_length) {
    return given(REMOVEDOTDOT, out, out_capacity, view(path, path_length));
}

size_t vg_cleanpath(char* out, size_t out_capacity, char* path, size_t path_capacity,
                    size_t* path_used) {
    return given(CLEANPATH, out, out_capacity, OutText::holding(path, path_capacity, path_used));
}
