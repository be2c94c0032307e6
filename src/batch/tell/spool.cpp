#include "batch/tell/spool.h"

#include <algorithm>
#include <numeric>

#include "batch/files.h"

namespace vantelgis::batch {

namespace platform = vantelgis::platform;

std::int64_t Summary::done() const {
    return std::accumulate(verdicts.begin(), verdicts.end(), std::int64_t{0});
}

Spool::~Spool() {
    if (file_ != platform::kNoFile) static_cast<void>(platform::closeFile(file_));
}

bool Spool::add(const Record& record) {
    if (file_ == platform::kNoFile) file_ = openNamelessFile();
    if (file_ == platform::kNoFile) return false;
    const std::string line = recordLine(record, true);
    if (!platform::seekFile(file_, end_) || !platform::writeFile(file_, line.data(), line.size()))
        return false;
    places_.push_back(
        {record.number, end_, static_cast<std::uint32_t>(line.size()), record.verdict});
    end_ += static_cast<std::int64_t>(line.size());
    ++summary.verdicts[static_cast<std::size_t>(record.verdict)];
    return true;
}

bool Spool::read(const Place& place, Record& record) {
    buffer_.resize(place.length);
    if (!platform::seekFile(file_, place.start)) return false;
    std::size_t length = 0;
    while (length < buffer_.size()) {
        const std::int64_t count =
            platform::readFile(file_, buffer_.data() + length, buffer_.size() - length);
        if (count <= 0) return false;
        length += static_cast<std::size_t>(count);
    }
    return readRecord(buffer_, record);
}

void Spool::sort() {
    const auto before = [](const Place& a, const Place& b) { return a.number < b.number; };
    if (!std::is_sorted(places_.begin(), places_.end(), before))
        std::stable_sort(places_.begin(), places_.end(), before);
}

bool Spool::each(const std::function<bool(const Record&)>& take) {
    sort();
    Record record;
    for (const Place& place : places_) {
        if (!read(place, record)) return false;
        if (!take(record)) return true;
    }
    return true;
}

bool Spool::each(Verdict verdict, const std::function<bool(const Record&)>& take) {
    sort();
    Record record;
    for (const Place& place : places_) {
        if (place.verdict != verdict) continue;
        if (!read(place, record)) return false;
        if (!take(record)) return true;
    }
    return true;
}

}  // namespace vantelgis::batch
