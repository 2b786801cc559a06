#include "cli/OutputGuard.h"

#include "cli/Assignments.h"
#include "system/Files.h"

namespace tovarek {
namespace {

struct KnownFile {
    JobFile file;
    FileIdentity identity;
};

std::vector<KnownFile> Identify(const std::vector<JobFile>& files) {
    std::vector<KnownFile> known;
    for (const JobFile& file : files)
        if (const auto identity = IdentityOf(file.path))
            known.push_back({file, *identity});
    return known;
}

std::string Title(const JobFile& file) {
    return file.role + " '" + SystemPath(file.path) + "'";
}

// The profile is read whole before the file is written.
bool MayBeOneFile(const JobFile& input, const JobFile& output) {
    return input.role == "xifProfileFile" && output.role == "outputXIFfile";
}

}  // namespace

void RefuseOverwriting(const JobFiles& files, const std::vector<std::string>& jobs) {
    std::vector<JobFile> read = files.inputs;
    for (const std::string& job : jobs)
        read.push_back({"job file", job});
    const std::vector<KnownFile> inputs = Identify(read);
    const std::vector<KnownFile> outputs = Identify(files.outputs);
    for (auto output = outputs.begin(); output != outputs.end(); ++output) {
        for (const KnownFile& input : inputs)
            if (input.identity == output->identity && !MayBeOneFile(input.file, output->file))
                throw WrongUse("the output " + Title(output->file) + " would overwrite the input " +
                               Title(input.file) + "; give the output another name or folder");
        for (auto other = outputs.begin(); other != output; ++other)
            if (other->identity == output->identity)
                throw WrongUse("the outputs " + Title(other->file) + " and " + Title(output->file) +
                               " are one file; give one of them another name or folder");
    }
}

}  // namespace tovarek
