#include <sanitizer/asan_interface.h>

#include <cstddef>
#include <cstdlib>
#include <new>

// The buffers of files, kept from one run to the next. The sanitizer's allocator asks the system
// for each block of such a size and gives it back soon, which took half the time of a run. What
// lies behind a block that is in use, and all of one that isn't, stays poisoned as it is there.

namespace {

constexpr std::size_t kSmallest = std::size_t{200} * 1024;
constexpr std::size_t kPlaceSize = std::size_t{448} * 1024;
constexpr std::size_t kPlaces = 64;

alignas(64) char arena[kPlaces][kPlaceSize];
bool used[kPlaces];
std::size_t next = 0;

// The places are taken in turn, so that one which was left is poisoned for long.
void* takePlace(std::size_t size) {
    for (std::size_t tried = 0; tried < kPlaces; ++tried) {
        const std::size_t place = next++ % kPlaces;
        if (used[place]) continue;
        used[place] = true;
        ASAN_POISON_MEMORY_REGION(arena[place], kPlaceSize);
        ASAN_UNPOISON_MEMORY_REGION(arena[place], size);
        return arena[place];
    }
    return nullptr;
}

bool leavePlace(void* block) {
    const auto offset = static_cast<char*>(block) - arena[0];
    if (offset < 0 || offset >= static_cast<std::ptrdiff_t>(sizeof arena)) return false;
    const auto place = static_cast<std::size_t>(offset) / kPlaceSize;
    used[place] = false;
    ASAN_POISON_MEMORY_REGION(arena[place], kPlaceSize);
    return true;
}

}  // namespace

// The forms for arrays go through these.
void* operator new(std::size_t size) {
    void* block = nullptr;
    if (size >= kSmallest && size < kPlaceSize) block = takePlace(size);
    if (block == nullptr) block = std::malloc(size);
    if (block == nullptr) throw std::bad_alloc{};
    return block;
}
void operator delete(void* block) noexcept {
    if (!leavePlace(block)) std::free(block);
}
void operator delete(void* block, std::size_t) noexcept {
    operator delete(block);
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return std::malloc(size);
}
