#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "batch/tell/spool.h"

/// The reports of a batch. Each file appears whole, by a rename, or not at all.
namespace vantelgis::batch {

/// Writes each report in the form that its extension names. False, with a line on standard error,
/// when one can't be written.
bool writeReports(const std::vector<std::string>& files, Spool& spool);

/// A file that is being written.
class ReportFile {
  public:
    explicit ReportFile(std::string path);
    ~ReportFile();
    ReportFile(const ReportFile&) = delete;
    ReportFile& operator=(const ReportFile&) = delete;

    void put(std::string_view text);
    [[nodiscard]] std::size_t size() const { return size_; }
    /// Gives it its name. False when something of it couldn't be written.
    bool finish();

  private:
    std::string path_;
    std::string draft_;
    vantelgis::platform::FileHandle file_;
    std::string waiting_;
    std::size_t size_ = 0;
    bool failed_ = false;
};

void writeCsv(Spool& spool, ReportFile& out);
void writeJson(Spool& spool, ReportFile& out);
void writeHtml(Spool& spool, ReportFile& out);

/// The members of a report's head.
void writeSummary(const Summary& summary, JsonWriter& json);

}  // namespace vantelgis::batch
