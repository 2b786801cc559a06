#include "cli/Mending.h"

#include <algorithm>
#include <ostream>
#include <utility>

#include "base/Text.h"
#include "explain/ErrorNames.h"
#include "mend/MendedBytes.h"
#include "report/FindingText.h"

namespace tovarek {
namespace {

// Pieces with a mark put them in front of everything.
bool IsMark(const std::vector<Piece>& mend) {
    return mend.front().text == kUtf8Mark;
}

MendedFinding Described(const CheckedFinding& finding, const MendedBytes& file) {
    const int line = finding.mend.front().line;
    MendedFinding mended{finding, std::string(Trim(file.Line(line))), {}, {}};
    mended.after =
        IsMark(finding.mend) ? mended.before : std::string(Trim(file.LineWith(line, finding.mend)));
    return mended;
}

using Group = std::vector<const CheckedFinding*>;

// The mends of one file.
class FileMends {
  public:
    FileMends(const std::string& path, MendRun& run) : path_(path), run_(run) {}

    void Make(const Group& findings, const FileStamps& stamps, bool isTrial) {
        try {
            const auto stamp = stamps.find(path_);
            if (stamp == stamps.end())
                return Leave(findings, "the file is no input of the job");
            if (!FileExists(path_))
                return Leave(findings, "the file is no regular file");
            MendedBytes file(ReadFile(path_));
            if (StampOf(path_) != stamp->second)
                return Leave(findings, "the file has changed since it was checked");
            std::vector<MendedFinding> made;
            for (const CheckedFinding* finding : findings) {
                if (std::string reason = file.Add(finding->mend); !reason.empty())
                    Leave({finding}, reason);
                else
                    made.push_back(Described(*finding, file));
            }
            if (isTrial)
                run_.diff += UnifiedDiff(FromCurrentFolder(path_), file.Old(), file.Changes());
            else if (!made.empty())
                RewriteFile(path_, file.New());
            run_.made.insert(run_.made.end(), made.begin(), made.end());
        } catch (const Error& error) {
            run_.hasFailed = true;
            Leave(findings, "the file cannot be changed: " + error.Description() +
                                (error.Context().reason.empty() ? "" : " (" + error.Context().reason + ")"));
        }
    }

  private:
    void Leave(const Group& findings, const std::string& reason) {
        for (const CheckedFinding* finding : findings)
            run_.left.push_back({*finding, {}, {}, reason});
    }

    const std::string& path_;
    MendRun& run_;
};

}  // namespace

void AddStamps(const std::vector<std::string>& files, FileStamps& stamps) {
    for (const std::string& file : files)
        stamps.try_emplace(file, StampOf(file));
}

MendRun MendFindings(const std::vector<CheckedFinding>& findings, const FileStamps& stamps, bool isTrial) {
    std::map<std::string, Group> groups;
    for (const CheckedFinding& finding : findings)
        if (!finding.mend.empty())
            groups[finding.context.file].push_back(&finding);
    MendRun run;
    for (const auto& [path, group] : groups)
        FileMends(path, run).Make(group, stamps, isTrial);
    return run;
}

void WriteMends(const std::vector<MendedFinding>& mends, std::ostream& out) {
    for (const MendedFinding& mended : mends) {
        const CheckedFinding& finding = mended.finding;
        out << PlaceText(finding.context.file, finding.context.line, finding.column);
        if (!mended.refusal.empty())
            out << ": not mended: " << OneLine(mended.refusal);
        else if (IsMark(finding.mend))
            out << ": mended: the mark of UTF-8 stands in front of the file";
        else
            out << ": mended: \"" << OneLine(Excerpt(mended.before)) << "\" is now \""
                << OneLine(Excerpt(mended.after)) << '"';
        out << " [" << finding.name << "]\n";
    }
}

Json MendsJson(const std::vector<MendedFinding>& mends) {
    Json list = Json::array();
    for (const MendedFinding& mended : mends) {
        const CheckedFinding& finding = mended.finding;
        Json& json = list.emplace_back(Json{{"name", finding.name},
                                            {"file", SystemPath(finding.context.file)},
                                            {"line", finding.context.line},
                                            {"column", finding.column}});
        if (mended.refusal.empty()) {
            json["before"] = mended.before;
            json["after"] = mended.after;
        } else {
            json["reason"] = mended.refusal;
        }
    }
    return list;
}

}  // namespace tovarek
