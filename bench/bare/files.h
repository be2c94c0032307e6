#pragma once

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

// Files of the bare loops: read and written in blocks, with nothing in between.
namespace bench {

inline constexpr std::size_t kBlock = std::size_t{256} * 1024;

[[noreturn]] inline void giveUp(const std::string& why) {
    std::fprintf(stderr, "bench_bare: %s\n", why.c_str());
    std::exit(1);
}

class Descriptor {
  public:
    Descriptor(const std::string& name, int flags) : number_(open(name.c_str(), flags, 0666)) {
        if (number_ < 0) giveUp("can't open " + name);
    }
    ~Descriptor() { close(number_); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    operator int() const { return number_; }

  private:
    int number_;
};

// Gives the bytes of a file in order. Behind those that it gives stand others that may be read, as
// many as a line or a word is long.
class Input {
  public:
    explicit Input(const std::string& name) : file_(name, O_RDONLY) {}

    // The start of the next line, all of which is at hand; null at the end. Whoever has used it
    // says so with `leave`.
    const char* line() {
        if (at_ == complete_ && !readLines()) return nullptr;
        return at_;
    }
    // Goes on behind the line's end, which comes at `p` or later.
    void leave(const char* p) { at_ = static_cast<const char*>(std::memchr(p, '\n', kBlock)) + 1; }
    // The same where `p` is the line's end, with or without a carriage return.
    void leaveAtEnd(const char* p) { at_ = p + (*p == '\r' ? 2 : 1); }

    // The next `size` (at most kBlock) bytes together, null when there are fewer.
    const char* take(std::size_t size) {
        while (static_cast<std::size_t>(end_ - at_) < size)
            if (!readMore()) return nullptr;
        at_ += size;
        return at_ - size;
    }

  private:
    static constexpr std::size_t kBehind = 512;

    // Moves what is left to the front and reads behind it.
    bool readMore() {
        const auto kept = static_cast<std::size_t>(end_ - at_);
        std::memmove(block_.get(), at_, kept);
        at_ = block_.get();
        end_ = block_.get() + kept;
        const ssize_t got = read(file_, end_, kBlock - kept);
        if (got > 0) end_ += got;
        return got > 0;
    }
    bool readLines() {
        while (readMore()) {
            const void* last = memrchr(at_, '\n', static_cast<std::size_t>(end_ - at_));
            if (last != nullptr) {
                complete_ = static_cast<const char*>(last) + 1;
                return true;
            }
        }
        if (end_ == at_) return false;
        *end_++ = '\n';
        complete_ = end_;
        return true;
    }

    Descriptor file_;
    std::unique_ptr<char[]> block_ = std::make_unique<char[]>(kBlock + kBehind);
    const char* at_ = block_.get();
    char* end_ = block_.get();
    const char* complete_ = block_.get();  // behind the last line that is whole
};

// Composes a file.
class Output {
  public:
    explicit Output(const std::string& name) : file_(name, O_WRONLY | O_CREAT | O_TRUNC) {}
    ~Output() { flush(); }
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;

    // A place with room for kRoom bytes; `done` says how far it was filled.
    char* room() {
        if (used_ > kBlock) flush();
        return block_.get() + used_;
    }
    void done(const char* end) { used_ = static_cast<std::size_t>(end - block_.get()); }

    // Bytes of any number.
    void put(const char* from, std::size_t size) {
        if (size > kRoom) {
            flush();
            writeAll(from, size);
        } else {
            done(static_cast<char*>(std::memcpy(room(), from, size)) + size);
        }
    }

    static constexpr std::size_t kRoom = 4096;

  private:
    void flush() {
        writeAll(block_.get(), used_);
        used_ = 0;
    }
    void writeAll(const char* from, std::size_t size) {
        while (size > 0) {
            const ssize_t written = write(file_, from, size);
            if (written <= 0) giveUp("can't write");
            from += written;
            size -= static_cast<std::size_t>(written);
        }
    }

    Descriptor file_;
    std::unique_ptr<char[]> block_ = std::make_unique<char[]>(kBlock + kRoom);
    std::size_t used_ = 0;
};

}  // namespace bench
