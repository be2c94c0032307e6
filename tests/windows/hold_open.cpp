// Holds a file open until a line arrives on standard input, as another program would.
// Usage: hold_open reader|writer FILE   where a reader shares it with nobody, a writer with all

#include <windows.h>

#include <cstdio>
#include <string_view>

int main(int count, char** arguments) {
    if (count != 3) return 2;
    const bool writer = std::string_view(arguments[1]) == "writer";
    const HANDLE file = CreateFileA(arguments[2], writer ? GENERIC_WRITE : GENERIC_READ,
                                    writer ? FILE_SHARE_READ | FILE_SHARE_WRITE : 0, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return 1;
    std::puts("held");
    std::fflush(stdout);
    std::getchar();
    CloseHandle(file);
    return 0;
}
