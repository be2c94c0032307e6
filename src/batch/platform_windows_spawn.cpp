#include "batch/platform_windows_spawn.h"

#include "run/platform_windows_names.h"

namespace vantelgis::batch {

namespace {

// As the run-time of the program takes a command line apart again: quotes are marked by a
// backslash, and backslashes in front of a quote are doubled.
void appendArgument(std::wstring& line, const std::wstring& argument) {
    if (!line.empty()) line += L' ';
    line += L'"';
    std::size_t backslashes = 0;
    for (const wchar_t c : argument) {
        if (c == L'"') line.append(backslashes + 1, L'\\');
        backslashes = c == L'\\' ? backslashes + 1 : 0;
        line += c;
    }
    line.append(backslashes, L'\\');
    line += L'"';
}

HANDLE inheritable(HANDLE handle) {
    HANDLE twin = nullptr;
    const HANDLE self = GetCurrentProcess();
    DuplicateHandle(self, handle, self, &twin, 0, TRUE, DUPLICATE_SAME_ACCESS);
    return twin;
}

HANDLE newJob() {
    const HANDLE job = CreateJobObjectW(nullptr, nullptr);
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
    SetInformationJobObject(job, JobObjectExtendedLimitInformation, &limits, sizeof limits);
    return job;
}

}  // namespace

Spawned spawn(const std::string& program, const std::vector<std::string>& arguments, HANDLE input,
              HANDLE output, HANDLE error) {
    const std::wstring file = vantelgis::platform::systemName(program);
    std::wstring line;
    appendArgument(line, vantelgis::platform::wideText(program));
    for (const std::string& argument : arguments)
        appendArgument(line, vantelgis::platform::wideText(argument));

    HANDLE streams[] = {inheritable(input), inheritable(output), inheritable(error)};
    STARTUPINFOEXW start{};
    start.StartupInfo.cb = sizeof start;
    start.StartupInfo.dwFlags = STARTF_USESTDHANDLES;
    start.StartupInfo.hStdInput = streams[0];
    start.StartupInfo.hStdOutput = streams[1];
    start.StartupInfo.hStdError = streams[2];
    SIZE_T size = 0;
    InitializeProcThreadAttributeList(nullptr, 1, 0, &size);
    std::vector<char> room(size);
    start.lpAttributeList = reinterpret_cast<LPPROC_THREAD_ATTRIBUTE_LIST>(room.data());
    InitializeProcThreadAttributeList(start.lpAttributeList, 1, 0, &size);
    UpdateProcThreadAttribute(start.lpAttributeList, 0, PROC_THREAD_ATTRIBUTE_HANDLE_LIST, streams,
                              sizeof streams, nullptr, nullptr);

    Spawned spawned;
    PROCESS_INFORMATION child{};
    if (CreateProcessW(file.c_str(), line.data(), nullptr, nullptr, TRUE,
                       CREATE_SUSPENDED | CREATE_NEW_PROCESS_GROUP | EXTENDED_STARTUPINFO_PRESENT,
                       nullptr, nullptr, &start.StartupInfo, &child)) {
        spawned = {child.hProcess, newJob(), child.dwProcessId};
        AssignProcessToJobObject(spawned.job, child.hProcess);
        ResumeThread(child.hThread);
        CloseHandle(child.hThread);
    }
    const DWORD reason = GetLastError();
    DeleteProcThreadAttributeList(start.lpAttributeList);
    for (const HANDLE stream : streams) CloseHandle(stream);
    SetLastError(reason);
    return spawned;
}

HANDLE openNowhere() {
    return CreateFileW(L"NUL", GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                       nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
}

std::wstring endEventName(DWORD process) {
    return L"Local\\vantelgis-batch-end-" + std::to_wstring(process);
}

}  // namespace vantelgis::batch
