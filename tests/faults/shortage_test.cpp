#include <gtest/gtest.h>

#include <cstdlib>
#include <new>
#include <string>

#include "memory/memory_run.h"
#include "memory/sample_runs.h"

namespace {

// Allocations that the program still gets; below 0 it gets all it wants.
std::int64_t granted = -1;
bool refused = false;

void* allocate(std::size_t size) {
    if (vantelgis::memory::system.programRuns && granted >= 0) {
        refused = granted == 0;
        if (refused) throw std::bad_alloc{};
        --granted;
    }
    void* const place = std::malloc(size);
    if (place == nullptr) throw std::bad_alloc{};
    return place;
}

}  // namespace

// The forms for arrays go through these.
void* operator new(std::size_t size) {
    return allocate(size);
}
void operator delete(void* place) noexcept {
    std::free(place);
}
void operator delete(void* place, std::size_t) noexcept {
    std::free(place);
}

namespace vantelgis {

namespace {

bool consoleHas(std::string_view text) {
    return memory::system.console.find(text) != std::string::npos;
}

void runAfresh(const SampleRun& run) {
    memory::system = {};
    memory::system.files = run.files;
    memory::runProgramInMemory(run.arguments);
}

TEST(TooLittleMemory, EndsTheRunWithAWord) {
    for (const SampleRun& run : sampleRuns()) {
        refused = true;
        for (std::int64_t n = 0; refused; ++n) {
            granted = n;
            refused = false;
            runAfresh(run);
            const bool told = memory::system.console.ends_with(
                                  "\nERROR - Out of memory\n\nPress Enter to Close\n") ||
                              consoleHas("\nERROR - Could not allocate enough memory (RAM).\n");
            granted = -1;
            ASSERT_EQ(told, refused) << run.name << n << memory::system.console;
            ASSERT_NE(told, consoleHas("\nFinished.\n")) << run.name << n;
        }
    }
}

TEST(AFullDisk, IsNeverTakenForAGoodEnd) {
    for (const SampleRun& run : sampleRuns()) {
        runAfresh(run);
        const memory::Files expected = memory::system.files;
        std::size_t size = 0;
        for (const auto& [name, bytes] : run.files) size += bytes.size();
        for (bool finished = false; !finished; size += 13) {
            memory::system = {};
            memory::system.files = run.files;
            memory::system.diskSize = size;
            memory::runProgramInMemory(run.arguments);
            finished = memory::system.files == expected;
            ASSERT_EQ(consoleHas("\nFinished.\n"), finished) << run.name << size;
            ASSERT_NE(consoleHas("\nERROR "), finished) << run.name << size;
        }
    }
}

}  // namespace

}  // namespace vantelgis
