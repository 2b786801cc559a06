#include "cli/BatchCommand.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <map>
#include <mutex>
#include <new>
#include <ostream>
#include <sstream>
#include <thread>
#include <tuple>
#include <utility>

#include "base/Numbers.h"
#include "base/Path.h"
#include "base/Text.h"
#include "cli/Assignments.h"
#include "cli/JobList.h"
#include "cli/Json.h"
#include "cli/OpenCatalog.h"
#include "cli/Progress.h"
#include "control/StandardCatalog.h"
#include "system/Files.h"
#include "xml/XmlThreads.h"

namespace tovarek {
namespace {

constexpr unsigned kMostThreads = 256;

unsigned ThreadCount(const std::string& text) {
    if (text.empty())
        return std::clamp(std::thread::hardware_concurrency(), 1U, kMostThreads);
    const unsigned count = ExactNumber<unsigned>(text).value_or(0);
    if (count < 1 || count > kMostThreads)
        throw WrongUse("--jobs is '" + Excerpt(text) + "'; give how many jobs run at a time, 1 to 256");
    return count;
}

// Which job writes which file. Two jobs with one output would leave whatever the last one wrote. A file is
// known by its folder and name: whether it exists changes while jobs run.
class OutputClaims {
  public:
    void Claim(std::size_t number, const std::string& job, const JobFiles& files) {
        const std::lock_guard lock(mutex_);
        for (const JobFile& file : files.outputs) {
            const std::string folder = FolderOf(file.path);
            const FileStamp stamp = StampOf(folder.empty() ? "." : folder);
            const auto [place, isNew] = owners_.try_emplace(
                std::tuple(stamp.device, stamp.inode, std::string(NameOf(file.path))), number, job);
            if (!isNew && place->second.first != number)
                throw WrongUse("the output " + file.role + " '" + SystemPath(file.path) +
                               "' is also one of '" + place->second.second +
                               "'; give one of them another name or folder");
        }
    }

  private:
    std::mutex mutex_;
    std::map<std::tuple<std::uint64_t, std::uint64_t, std::string>, std::pair<std::size_t, std::string>>
        owners_;
};

struct JobResult {
    bool isDone = false;
    int status = kDone;
    std::string out;
    std::string error;
};

class BatchRun {
  public:
    BatchRun(std::vector<std::string> jobs, const BatchWishes& wishes, OutputFormat format, Streams streams)
        : jobs_(std::move(jobs)),
          results_(jobs_.size()),
          wishes_(wishes),
          streams_(streams),
          progress_(streams, format, jobs_.size()),
          format_(format) {}

    int Run(unsigned threads) {
        PrepareXmlForThreads();
        if (const std::shared_ptr<StandardCatalog> shared = OpenUsualCatalog()) {
            shared->DecodeAll();
            catalog_ = shared;
        }
        const std::size_t helperCount = std::min<std::size_t>(threads, jobs_.size()) - 1;
        std::vector<std::thread> helpers;
        helpers.reserve(helperCount);
        try {
            while (helpers.size() < helperCount)
                helpers.emplace_back([this] { WorkToTheEnd(); });
        } catch (const std::exception&) {
            // The system gives no more of them: the others do the work.
        }
        WorkToTheEnd();
        for (std::thread& helper : helpers)
            helper.join();
        if (end_ != nullptr)
            std::rethrow_exception(end_);
        return Summary();
    }

  private:
    // What ends the work of one thread, such as memory that ends, ends the batch when all have come to
    // theirs.
    void WorkToTheEnd() noexcept {
        try {
            Work();
        } catch (...) {
            const std::lock_guard lock(mutex_);
            end_ = std::current_exception();
            next_ = jobs_.size();
        }
    }

    void Work() {
        while (!(wishes_.failFast && failed_ > 0)) {
            const std::size_t number = next_++;
            if (number >= jobs_.size())
                return;
            try {
                Generate(number);
            } catch (const std::bad_alloc&) {
                TellNoMemory(number);
            }
            TellFinished(number);
        }
    }

    void Generate(std::size_t number) {
        const std::string& job = jobs_[number];
        std::ostringstream out;
        std::ostringstream error;
        GenerateWishes wishes = wishes_.generate;
        wishes.catalog = catalog_;
        wishes.guard = [&](const JobFiles& files) {
            claims_.Claim(number, job, files);
            if (wishes_.generate.guard)
                wishes_.generate.guard(files);
        };
        JobResult& result = results_[number];
        result.status = RunGenerate({{Setting::Kind::job, {}, job}}, wishes, format_,
                                    {out, error, false, streams_.command});
        result.out = std::move(out).str();
        result.error = std::move(error).str();
    }

    // By now the job has given back what it had.
    void TellNoMemory(std::size_t number) {
        constexpr auto kNumber = RuntimeError::outOfMemory;
        std::ostringstream out;
        std::ostringstream error;
        JobResult& result = results_[number];
        result.status =
            ReportFailedRun({static_cast<std::int32_t>(kNumber), RuntimeErrorMessage(kNumber)},
                            {.format = format_, .streams = {out, error, false, streams_.command}});
        result.out = std::move(out).str();
        result.error = std::move(error).str();
    }

    // The results come in the order of the jobs, whichever was ready first.
    void TellFinished(std::size_t number) {
        const std::lock_guard lock(mutex_);
        results_[number].isDone = true;
        failed_ += results_[number].status == kDone ? 0 : 1;
        for (; told_ < jobs_.size() && results_[told_].isDone; ++told_)
            Tell(told_);
        progress_.Show(++ready_);
    }

    void Tell(std::size_t number) {
        JobResult& result = results_[number];
        ++finished_;
        if (format_ == OutputFormat::json) {
            Json line = {{"job", jobs_[number]}, {"status", result.status}};
            line.update(Json::parse(result.out));
            streams_.out << line.dump(-1, ' ', false, Json::error_handler_t::replace) << '\n';
        } else {
            progress_.Clear();
            streams_.out << result.out;
            // On one terminal the line about the progress stands behind it.
            if (streams_.errorIsTerminal)
                streams_.out << std::flush;
            if (!result.error.empty())
                streams_.error << SystemPath(jobs_[number]) << ":\n" << result.error;
        }
        result.out = {};
        result.error = {};
    }

    int Summary() {
        progress_.Clear();
        // Behind one that never began others may have come to their end.
        for (std::size_t i = told_; i < jobs_.size(); ++i)
            if (results_[i].isDone)
                Tell(i);
        if (format_ != OutputFormat::json) {
            streams_.out << jobs_.size() << " jobs: " << finished_ - failed_ << " done, " << failed_
                         << " failed";
            if (finished_ < jobs_.size())
                streams_.out << ", " << jobs_.size() - finished_ << " not begun";
            streams_.out << '\n';
        }
        return failed_ == 0 ? kDone : kFailed;
    }

    const std::vector<std::string> jobs_;
    std::vector<JobResult> results_;
    const BatchWishes& wishes_;
    Streams streams_;
    Progress progress_;
    std::shared_ptr<const StandardCatalog> catalog_;
    OutputClaims claims_;
    std::mutex mutex_;
    std::exception_ptr end_;
    std::size_t told_ = 0;
    std::size_t finished_ = 0;
    std::size_t ready_ = 0;  // finished, whether or not told
    std::atomic<std::size_t> next_ = 0;
    std::atomic<std::size_t> failed_ = 0;
    OutputFormat format_;
};

}  // namespace

int RunBatch(const BatchWishes& wishes, OutputFormat format, Streams streams) {
    return ReportingFaults(format, streams, [&] {
        const unsigned threads = ThreadCount(wishes.threads);
        return BatchRun(AllJobs(wishes.jobs), wishes, format, streams).Run(threads);
    });
}

}  // namespace tovarek
