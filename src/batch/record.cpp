#include "batch/record.h"

#include <algorithm>

namespace vantelgis::batch {

namespace {

constexpr std::string_view kVerdictNames[] = {"ready", "well", "suspicious", "not run", "failed"};
constexpr std::string_view kLevelNames[] = {"note", "warning", "error"};

struct TextMember {
    std::string_view name;
    std::string Record::*member;
};
constexpr TextMember kTexts[] = {
    {"input", &Record::input},
    {"second", &Record::second},
    {"output", &Record::output},
    {"kind", &Record::kind},
    {"reason", &Record::reason},
    {"cure", &Record::cure},
    {"not_looked_at", &Record::notLookedAt},
    {"plan", &Record::plan},
};

struct NumberMember {
    std::string_view name;
    std::int64_t Record::*member;
};
constexpr NumberMember kNumbers[] = {
    {"number", &Record::number},          {"objects", &Record::objects},
    {"converted", &Record::converted},    {"vertices", &Record::vertices},
    {"exit_status", &Record::exitStatus},
};

template <typename Enum, std::size_t N>
Enum namedValue(const std::string_view (&names)[N], std::string_view name) {
    const auto found = std::find(std::begin(names), std::end(names), name);
    const auto place = static_cast<std::size_t>(found - std::begin(names));
    return static_cast<Enum>(std::min(place, N - 1));
}

void writeFindings(const Record& record, JsonWriter& json) {
    json.key("findings").begin('[');
    for (const Finding& finding : record.findings) {
        json.begin('{');
        json.key("name").text(finding.name);
        json.key("level").text(levelName(finding.level));
        json.key("words").text(finding.words);
        json.key("cure").text(finding.cure);
        json.end('}');
    }
    json.end(']');
}

Finding readFinding(JsonReader& json) {
    Finding finding;
    std::string name;
    for (bool open = false; json.nextMember(open, name);) {
        if (name == "name")
            finding.name = json.text();
        else if (name == "level")
            finding.level = namedValue<Level>(kLevelNames, json.text());
        else if (name == "words")
            finding.words = json.text();
        else if (name == "cure")
            finding.cure = json.text();
        else
            json.skip();
    }
    return finding;
}

void readBox(JsonReader& json, Box& box) {
    double* const corners[] = {&box.xMin, &box.yMin, &box.xMax, &box.yMax};
    std::size_t i = 0;
    for (bool open = false; json.nextItem(open); ++i) {
        const double value = json.real();
        if (i < 4) *corners[i] = value;
    }
}

void readLists(std::string_view name, JsonReader& json, Record& record) {
    bool open = false;
    if (name == "findings") {
        while (json.nextItem(open)) record.findings.push_back(readFinding(json));
    } else if (name == "files") {
        while (json.nextItem(open)) record.files.push_back(json.text());
    } else {
        for (std::string key; json.nextMember(open, key);)
            record.counts.emplace_back(key, json.integer());
    }
}

}  // namespace

std::string_view verdictName(Verdict verdict) {
    return kVerdictNames[static_cast<std::size_t>(verdict)];
}

std::string_view levelName(Level level) {
    return kLevelNames[static_cast<std::size_t>(level)];
}

void Box::add(double x, double y) {
    if (empty()) {
        xMin = xMax = x;
        yMin = yMax = y;
        return;
    }
    xMin = std::min(xMin, x);
    xMax = std::max(xMax, x);
    yMin = std::min(yMin, y);
    yMax = std::max(yMax, y);
}

void Record::addCount(std::string_view name, std::int64_t value) {
    if (value > 0) counts.emplace_back(name, value);
}

void writeMembers(const Record& record, JsonWriter& json, bool withPlan) {
    for (const NumberMember& number : kNumbers)
        json.key(number.name).integer(record.*number.member);
    for (const TextMember& text : kTexts) {
        const std::string& value = record.*text.member;
        if (!value.empty() && (withPlan || text.name != "plan")) json.key(text.name).text(value);
    }
    json.key("verdict").text(verdictName(record.verdict));
    json.key("seconds").real(record.seconds);
    if (!record.box.empty()) {
        json.key("box").begin('[');
        for (const double value :
             {record.box.xMin, record.box.yMin, record.box.xMax, record.box.yMax})
            json.real(value);
        json.end(']');
    }
    writeFindings(record, json);
    json.key("counts").begin('{');
    for (const auto& [name, value] : record.counts) json.key(name).integer(value);
    json.end('}');
    json.key("files").begin('[');
    for (const std::string& file : record.files) json.text(file);
    json.end(']');
}

bool readMember(std::string_view name, JsonReader& json, Record& record) {
    for (const NumberMember& number : kNumbers) {
        if (name != number.name) continue;
        record.*number.member = json.integer();
        return true;
    }
    for (const TextMember& text : kTexts) {
        if (name != text.name) continue;
        record.*text.member = json.text();
        return true;
    }
    if (name == "verdict") {
        record.verdict = namedValue<Verdict>(kVerdictNames, json.text());
    } else if (name == "seconds") {
        record.seconds = json.real();
    } else if (name == "box") {
        readBox(json, record.box);
    } else if (name == "findings" || name == "files" || name == "counts") {
        readLists(name, json, record);
    } else {
        return false;
    }
    return true;
}

std::string recordLine(const Record& record, bool withPlan) {
    std::string line;
    JsonWriter json(line);
    json.begin('{');
    writeMembers(record, json, withPlan);
    json.end('}');
    return line;
}

bool readRecord(std::string_view line, Record& record) {
    JsonReader json(line);
    record = {};
    std::string name;
    for (bool open = false; json.nextMember(open, name);)
        if (!readMember(name, json, record)) json.skip();
    return !json.failed() && record.number > 0;
}

}  // namespace vantelgis::batch
