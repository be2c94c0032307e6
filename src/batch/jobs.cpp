#include <algorithm>

#include "batch/json.h"
#include "batch/worker.h"

namespace vantelgis::batch {

namespace {

constexpr std::string_view kTaskNames[] = {"run", "check", "sections"};

}  // namespace

std::string jobLine(Task task, const Job& job) {
    std::string line;
    JsonWriter json(line);
    json.begin('{');
    json.key("task").text(kTaskNames[static_cast<std::size_t>(task)]);
    json.key("number").integer(job.number);
    json.key("input").text(job.input);
    json.key("second").text(job.second);
    json.key("below").text(job.below);
    json.key("alone").boolean(job.alone);
    json.end('}');
    return line;
}

bool readJobLine(std::string_view line, Task& task, Job& job) {
    JsonReader json(line);
    std::string name;
    job = {};
    for (bool open = false; json.nextMember(open, name);) {
        if (name == "task") {
            const auto* const found =
                std::find(std::begin(kTaskNames), std::end(kTaskNames), json.text());
            if (found == std::end(kTaskNames)) return false;
            task = static_cast<Task>(found - std::begin(kTaskNames));
        } else if (name == "number") {
            job.number = json.integer();
        } else if (name == "input") {
            job.input = json.text();
        } else if (name == "second") {
            job.second = json.text();
        } else if (name == "below") {
            job.below = json.text();
        } else if (name == "alone") {
            job.alone = json.boolean();
        } else {
            json.skip();
        }
    }
    return !json.failed();
}

}  // namespace vantelgis::batch
