// Many jobs in one call. These tests are built a second time for the thread sanitizer (tests/threads).
#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <nlohmann/json.hpp>
#include <sstream>

#include "Scratch.h"
#include "cli/BatchCommand.h"
#include "system/Files.h"

namespace tovarek::test {
namespace {

namespace fs = std::filesystem;

struct BatchAnswer {
    int status = 0;
    std::string out;
    std::string error;
};

BatchAnswer RunJobs(const BatchWishes& wishes, OutputFormat format = OutputFormat::text) {
    std::ostringstream out;
    std::ostringstream error;
    const int status = RunBatch(wishes, format, {out, error, false, "batch"});
    return {status, out.str(), error.str()};
}

std::string Shape(int kind) {
    switch (kind % 4) {
        case 0:
            return R"("iniTemplateFile": "template.ini", "iniProfileFile": "profile.ini", "mustGenerateTypes": false)";
        case 1:
            return R"("xmlTemplateFile": "template.xml", "xmlTemplateNodeName": "DEVICE",
                      "xifProfileFile": "profile.xif", "mustGenerateTypes": false)";
        case 2:
            return R"("iniTemplateFile": "none.ini", "iniProfileFile": "profile.ini")";
        default:
            return R"("xmlTemplateFile": "template.xml", "xmlTemplateNodeName": "DEVICE",
                      "xmlProfileFile": "profile.xml", "xmlProfileNodeName": "DEVICEPROFILE",
                      "typeFilesXMLFormat": "format.xml", "userTypeFilePath": ".", "typeFilesBaseName": "b",
                      "localeID": 1031, "langExtension": "DEU")";
    }
}

class Batches : public testing::Test {
  protected:
    Batches() {
        SetVariable("SOURCE_DATE_EPOCH", "1795254067");
        fs::copy(TOVAREK_EXAMPLE, scratch_.Folder(), fs::copy_options::recursive);
    }
    ~Batches() override { UnsetVariable("SOURCE_DATE_EPOCH"); }

    // A job that writes into the folder `to`; one kind of four fails. Some jobs open a catalog, the others
    // share the one that comes with the program.
    std::string Job(int number, const std::string& to, std::string output = "") const {
        const std::string name = to + std::to_string(number);
        const std::string folder = scratch_.Path(name);
        MakeDirectory(folder);
        if (output.empty())
            output = folder + "/n.xif";
        auto job = nlohmann::ordered_json::parse("{" + Shape(number) + "}");
        job["outputXIFfile"] = output;
        job["typeFilesDirectory"] = folder;
        if (number % 8 >= 4)
            job["catalogDir"] = TOVAREK_CATALOG;
        return scratch_.File(name + ".json", job.dump());
    }

    static std::map<std::string, std::string> Outputs(const std::string& folder) {
        std::map<std::string, std::string> files;
        for (const auto& entry : fs::directory_iterator(folder))
            files[entry.path().filename().string()] = ReadFile(entry.path().string());
        return files;
    }

    Scratch scratch_;
};

TEST_F(Batches, ManyThreadsWriteWhatSingleRunsWrite) {
    constexpr int kJobs = 64;
    BatchWishes wishes{.threads = "16"};
    for (int i = 0; i < kJobs; ++i)
        wishes.jobs.push_back(Job(i, "many"));
    const BatchAnswer many = RunJobs(wishes);
    EXPECT_EQ(many.status, kFailed);
    EXPECT_TRUE(many.out.ends_with("64 jobs: 48 done, 16 failed\n")) << many.out;
    for (int i = 0; i < kJobs; ++i) {
        std::ostringstream out;
        std::ostringstream error;
        const int status = RunGenerate({{Setting::Kind::job, {}, Job(i, "one")}}, {}, OutputFormat::text,
                                       {out, error, false, "generate"});
        EXPECT_EQ(status, i % 4 == 2 ? kFailed : kDone) << error.str();
        const std::string number = std::to_string(i);
        EXPECT_EQ(Outputs(scratch_.Path("many" + number)), Outputs(scratch_.Path("one" + number))) << i;
        EXPECT_EQ(fs::is_empty(scratch_.Path("one" + number)), i % 4 == 2);
    }
}

TEST_F(Batches, EachJobHasItsNameAndItsLine) {
    scratch_.File("fleet.txt", "# the fleet\n\n  many1.json\r\nmany2.json\n");
    Job(1, "many");
    Job(2, "many");
    BatchWishes wishes{.jobs = {"@" + scratch_.Path("fleet.txt"), Job(0, "many")}, .threads = "3"};
    const BatchAnswer text = RunJobs(wishes);
    EXPECT_EQ(text.status, kFailed);
    const std::string failed = scratch_.Path("many2.json");
    EXPECT_NE(text.error.find(failed + ":\ntovarek: error"), std::string::npos) << text.error;
    EXPECT_TRUE(text.out.ends_with("3 jobs: 2 done, 1 failed\n")) << text.out;
    std::istringstream lines(RunJobs(wishes, OutputFormat::json).out);
    std::vector<std::pair<std::string, int>> told;
    for (std::string line; std::getline(lines, line);) {
        const auto json = nlohmann::json::parse(line);
        told.emplace_back(json["job"], json["status"]);
        EXPECT_EQ(json.contains("error"), json["status"] != 0);
        EXPECT_EQ(json["written"].empty(), json["status"] != 0);
    }
    EXPECT_EQ(told, (std::vector<std::pair<std::string, int>>{
                        {scratch_.Path("many1.json"), 0}, {failed, 1}, {scratch_.Path("many0.json"), 0}}));
}

TEST_F(Batches, AFailureEndsOnlyAFastOne) {
    BatchWishes wishes{.jobs = {Job(0, "a"), Job(2, "a"), Job(1, "a")}, .threads = "1", .failFast = true};
    EXPECT_TRUE(RunJobs(wishes).out.ends_with("3 jobs: 1 done, 1 failed, 1 not begun\n"));
    EXPECT_TRUE(fs::is_empty(scratch_.Path("a1")));
    wishes.jobs.erase(wishes.jobs.begin() + 1);
    EXPECT_EQ(RunJobs(wishes).status, kDone);
}

TEST_F(Batches, TwoJobsDoNotWriteOneFile) {
    const std::string same = scratch_.Path("same.xif");
    const BatchAnswer answer = RunJobs({.jobs = {Job(0, "x", same), Job(4, "x", same)}, .threads = "2"});
    EXPECT_EQ(answer.status, kFailed);
    EXPECT_NE(answer.error.find("same.xif' is also one of '"), std::string::npos) << answer.error;
    EXPECT_TRUE(answer.out.ends_with("2 jobs: 1 done, 1 failed\n"));
}

TEST_F(Batches, WrongUseIsRefusedBeforeAnythingRuns) {
    const std::pair<BatchWishes, const char*> rows[] = {
        {{}, "batch needs job files"},
        {{.jobs = {"@" + scratch_.Path("none.txt")}}, "none.txt': No such file"},
        {{.jobs = {Job(0, "w")}, .threads = "0"}, "--jobs is '0'"},
        {{.jobs = {Job(0, "w")}, .threads = "257"}, "1 to 256"},
    };
    for (const auto& [wishes, hint] : rows) {
        const BatchAnswer answer = RunJobs(wishes);
        EXPECT_EQ(answer.status, kWrongUse) << hint;
        EXPECT_NE(answer.error.find(hint), std::string::npos) << answer.error;
    }
    EXPECT_TRUE(fs::is_empty(scratch_.Path("w0")));
}

}  // namespace
}  // namespace tovarek::test
