// Entries of folders: removed, renamed and linked.
#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include "batch/files.h"
#include "run/platform_windows_names.h"

namespace vantelgis::batch {

namespace {

using vantelgis::platform::systemName;

// A scanner, or a process that is just ending, may hold a file for a moment.
template <typename Attempt>
bool patiently(Attempt attempt) {
    constexpr DWORD kPauses[] = {1, 5, 20, 80, 300};  // milliseconds
    for (const DWORD pause : kPauses) {
        if (attempt()) return true;
        const DWORD failure = GetLastError();
        if (failure != ERROR_SHARING_VIOLATION && failure != ERROR_ACCESS_DENIED) return false;
        Sleep(pause);
    }
    return attempt();
}

}  // namespace

bool removeFile(const std::string& path) {
    const std::wstring name = systemName(path);
    return patiently([&] { return DeleteFileW(name.c_str()) != 0; });
}

bool removeEmptyFolder(const std::string& path) {
    const std::wstring name = systemName(path);
    return patiently([&] { return RemoveDirectoryW(name.c_str()) != 0; });
}

bool renameFile(const std::string& from, const std::string& to) {
    const std::wstring old = systemName(from), name = systemName(to);
    return patiently(
        [&] { return MoveFileExW(old.c_str(), name.c_str(), MOVEFILE_REPLACE_EXISTING) != 0; });
}

bool linkSecondName(const std::string& file, const std::string& name) {
    return CreateHardLinkW(systemName(name).c_str(), systemName(file).c_str(), nullptr) != 0;
}

bool linkForReading(const std::string& file, const std::string& name) {
    return linkSecondName(file, name) ||
           CopyFileW(systemName(file).c_str(), systemName(name).c_str(), TRUE) != 0;
}

bool isLinkTo(const std::string& /*name*/, const std::string& /*file*/) {
    return false;  // none is made here
}

}  // namespace vantelgis::batch
