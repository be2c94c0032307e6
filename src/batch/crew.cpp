#include "batch/crew.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <set>
#include <thread>

#include "batch/files.h"
#include "batch/json.h"
#include "batch/processes.h"

namespace vantelgis::batch {

namespace {

constexpr std::chrono::milliseconds kTick{50};
constexpr int kMostStarts = 3;  // of a worker in a row, none of which answers

// One answer of a worker, by its only member.
struct Answer {
    std::string member;
    std::string_view text;  // the whole line
};

Answer answerIn(std::string_view line) {
    JsonReader json(line);
    Answer answer{{}, line};
    bool open = false;
    json.nextMember(open, answer.member);
    return answer;
}

// What stands behind the colon of an object with one member.
std::string_view valueIn(std::string_view line) {
    const std::size_t colon = line.find(':');
    return colon == std::string_view::npos ? line : line.substr(colon + 1, line.size() - colon - 2);
}

class Shift {
  public:
    using TakeAnswer = std::function<bool(std::size_t place, const Answer& answer)>;

    Shift(const Crew& crew, Task task, ProgressTeller& teller, TakeAnswer take)
        : crew_(crew), task_(task), teller_(teller), take_(std::move(take)) {}

    void run() {
        const auto count = std::min<std::size_t>(static_cast<std::size_t>(crew_.options.jobs),
                                                 crew_.inputs.size());
        workers_ = std::vector<WorkerProcess>(count);
        std::vector<std::thread> threads;
        busy_ = count;
        for (WorkerProcess& worker : workers_)
            threads.emplace_back([this, &worker] { serve(worker); });
        std::unique_lock lock(mutex_);
        while (busy_ > 0) {
            done_.wait_for(lock, kTick);
            teller_.tick();
            if (interruption() == 0) continue;
            for (const WorkerProcess& worker : workers_) worker.interrupt();
        }
        lock.unlock();
        for (std::thread& thread : threads) thread.join();
    }

  private:
    // Hands out jobs to one worker until there are none, or an end is asked for.
    void serve(WorkerProcess& worker) {
        for (;;) {
            const std::size_t place = next_++;
            if (place >= crew_.inputs.size() || interruption() != 0) break;
            doJob(worker, place);
        }
        worker.finish();
        const std::lock_guard lock(mutex_);
        --busy_;
        done_.notify_one();
    }

    void doJob(WorkerProcess& worker, std::size_t place) {
        const Job job = jobOf(crew_, place);
        if (task_ != Task::sections) {
            const std::lock_guard lock(mutex_);
            teller_.begun(job.number, job.input);
        }
        std::string failure = "the worker can't be started";
        for (int start = 0; start < kMostStarts && interruption() == 0; ++start) {
            if (!worker.running() && !startWorker(worker)) continue;
            if (!worker.send(jobLine(task_, job))) {
                worker.finish();
                continue;
            }
            if (takeAnswers(worker, place)) return;
            failure = "the look at it ended with status " + std::to_string(worker.finish());
            break;
        }
        if (interruption() != 0) return;
        Record record;
        record.number = job.number;
        record.input = job.input;
        record.reason = "Nothing is known of this input: " + failure + ".";
        const std::string line = "{\"record\":" + recordLine(record, false) + "}";
        const std::lock_guard lock(mutex_);
        take_(place, answerIn(line));
    }

    bool startWorker(WorkerProcess& worker) {
        const std::lock_guard lock(mutex_);
        return worker.start(crew_.ownProgram, crew_.arguments);
    }

    // True when the answer that ends the job has come.
    bool takeAnswers(WorkerProcess& worker, std::size_t place) {
        std::string line;
        while (worker.receive(line)) {
            const Answer answer = answerIn(line);
            const std::lock_guard lock(mutex_);
            if (answer.member == kProgressMember) {
                teller_.progress(crew_.inputs[place].number, valueIn(line));
            } else if (answer.member == kNoteMember) {
                JsonReader json(valueIn(line));
                const std::string note = json.text();
                if (notes_.insert(note).second) teller_.note(note);
            } else {
                return take_(place, answer);
            }
        }
        return false;
    }

    const Crew& crew_;
    Task task_;
    ProgressTeller& teller_;
    TakeAnswer take_;
    std::vector<WorkerProcess> workers_;
    std::atomic<std::size_t> next_ = 0;
    std::size_t busy_ = 0;
    std::set<std::string> notes_;  // each is told once
    std::mutex mutex_;
    std::condition_variable done_;
};

}  // namespace

Job jobOf(const Crew& crew, std::size_t place) {
    const Input& input = crew.inputs[place];
    return {input.number, input.name, input.second, input.folderBelowRoot(),
            crew.inputs.size() == 1 && crew.options.shards == 1};
}

bool workThrough(const Crew& crew, Task task, Spool& spool, ProgressTeller& teller) {
    bool kept = true;
    Shift shift(crew, task, teller, [&](std::size_t, const Answer& answer) {
        Record record;
        if (answer.member != kRecordMember || !readRecord(valueIn(answer.text), record))
            return false;
        if (!spool.add(record)) kept = false;
        teller.verdict(record);
        return true;
    });
    shift.run();
    return kept;
}

void findSections(const Crew& crew, ProgressTeller& teller,
                  const std::function<void(std::size_t, const std::vector<std::string>&)>& take) {
    Shift shift(crew, Task::sections, teller, [&](std::size_t place, const Answer& answer) {
        std::vector<std::string> names;
        JsonReader json(valueIn(answer.text));
        if (answer.member == kSectionsMember)
            for (bool open = false; json.nextItem(open);) names.push_back(json.text());
        take(place, names);
        return true;
    });
    shift.run();
}

}  // namespace vantelgis::batch
