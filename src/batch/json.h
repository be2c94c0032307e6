#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// JSON as RFC 8259 describes it, as far as the reports need it. A byte of a name that is no UTF-8
/// is written as the escape of a lone surrogate from U+DC80 on, and read back as that byte, so that
/// every file name survives.
namespace vantelgis::batch {

/// Appends JSON to a text; the commas come by themselves.
class JsonWriter {
  public:
    explicit JsonWriter(std::string& out) : out_(out) {}

    JsonWriter& key(std::string_view name);
    void text(std::string_view value);
    void integer(std::int64_t value);
    void real(double value);  ///< null when it is no number
    void boolean(bool value);
    void begin(char bracket);  ///< { or [
    void end(char bracket);    ///< } or ]

  private:
    void separate();
    std::string& out_;
};

/// Reads JSON from a text, one piece after the other. Once something isn't as it was asked for, the
/// reader has failed and gives empty values from then on.
class JsonReader {
  public:
    explicit JsonReader(std::string_view text) : rest_(text) {}

    /// Moves to the next member of an object (or item of an array); the first call begins it. False
    /// at its end. `open` is the caller's own, false at first.
    bool nextMember(bool& open, std::string& name);
    bool nextItem(bool& open);

    std::string text();
    double real();
    std::int64_t integer();
    bool boolean();
    /// Passes over a value of any kind.
    void skip();

    [[nodiscard]] bool failed() const { return failed_; }

  private:
    bool nextOf(bool& open, char opening, char closing);
    bool take(char expected);
    void passBlanks();
    void takeEscape(std::string& out);
    unsigned hexDigits();
    void fail();

    std::string_view rest_;
    int depth_ = 0;
    bool failed_ = false;
};

}  // namespace vantelgis::batch
