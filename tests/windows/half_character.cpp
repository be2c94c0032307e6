// Starts the named program with an argument that is no text, as half a surrogate pair stands in it,
// and ends with the program's status.

#include <process.h>

#include <string>

int main(int /*count*/, char** values) {
    const std::string program = values[1];
    return static_cast<int>(_wspawnl(_P_WAIT, std::wstring(program.begin(), program.end()).c_str(),
                                     L"program",
                                     L"\xD83D"
                                     L"creek.mif",
                                     nullptr));
}
