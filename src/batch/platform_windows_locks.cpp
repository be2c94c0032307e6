#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include "batch/files.h"
#include "run/platform_windows_names.h"

namespace vantelgis::batch {

namespace {

using vantelgis::platform::FileHandle;
using vantelgis::platform::kNoFile;

// While the handle is open nobody else gets one that may write; anybody may read.
FileHandle openAlone(const std::string& path, DWORD disposition) {
    return reinterpret_cast<FileHandle>(CreateFileW(
        vantelgis::platform::systemName(path).c_str(), GENERIC_READ | GENERIC_WRITE | DELETE,
        FILE_SHARE_READ, nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr));
}

}  // namespace

bool LockFile::create(const std::string& path, std::string_view text) {
    file_ = openAlone(path, CREATE_NEW);
    path_ = path;
    return file_ != kNoFile && vantelgis::platform::writeFile(file_, text.data(), text.size());
}

bool LockFile::take(const std::string& path) {
    file_ = openAlone(path, OPEN_EXISTING);
    path_ = path;
    return file_ != kNoFile;
}

// In one step, so that nobody takes the file in between and keeps it from being removed.
void LockFile::removeAndRelease() {
    FILE_DISPOSITION_INFO removed{TRUE};
    const bool done =
        SetFileInformationByHandle(reinterpret_cast<HANDLE>(file_), FileDispositionInfo, &removed,
                                   sizeof removed) != 0;
    release();
    if (!done) removeFile(path_);
}

void LockFile::release() {
    if (file_ != kNoFile) CloseHandle(reinterpret_cast<HANDLE>(file_));
    file_ = kNoFile;
}

}  // namespace vantelgis::batch
