// Plays the converter's part: does what the lines of its first file that begin with "do " say.

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <string>
#include <thread>

namespace {

std::string unescaped(const std::string& text) {
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool lineEnd = text.compare(i, 2, "\\n") == 0;
        plain += lineEnd ? '\n' : text[i];
        i += lineEnd ? 1 : 0;
    }
    return plain;
}

void act(const std::string& verb, const std::string& rest) {
    if (verb == "print") std::cout << unescaped(rest) << std::flush;
    if (verb == "sleep") std::this_thread::sleep_for(std::chrono::milliseconds(std::stoi(rest)));
    if (verb == "exit") std::exit(std::stoi(rest));
    if (verb == "crash") std::abort();
    if (verb == "write") {
        const std::size_t blank = rest.find(' ');
        std::ofstream{rest.substr(0, blank), std::ios::binary} << unescaped(rest.substr(blank + 1));
    }
    if (verb == "wait") {  // until a file is there
        while (!std::ifstream{rest}) std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
}

}  // namespace

int main(int count, char** values) {
    for (int i = 1; i < count; ++i) std::cout << "<" << values[i] << ">";
    std::string typed;
    std::cout << "[" << (std::getline(std::cin, typed) ? typed : "") << "]\n" << std::flush;
    std::ifstream file{values[1]};
    for (std::string line; std::getline(file, line);) {
        if (line.ends_with('\r')) line.pop_back();
        if (!line.starts_with("do ")) continue;
        const std::size_t blank = line.find(' ', 3);
        const bool alone = blank == std::string::npos;
        act(line.substr(3, alone ? blank : blank - 3), alone ? "" : line.substr(blank + 1));
    }
}
