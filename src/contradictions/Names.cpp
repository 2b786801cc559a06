#include "contradictions/Names.h"

#include <string_view>
#include <unordered_map>

#include "base/Text.h"
#include "support/XmlReading.h"
#include "template/TemplatePlaces.h"

namespace tovarek {
namespace {

template <class Record>
Finding AtName(const CTemplate& source, Warning warning, const std::vector<Record>& records, std::size_t i,
               const std::string& reason) {
    return TemplatePlaces(source).Warn(warning, records[i], i, &Record::name, reason);
}

// The name of a property is that of its element; an INI template has none.
template <>
Finding AtName(const CTemplate& source, Warning warning, const std::vector<CCp>& records, std::size_t i,
               const std::string& reason) {
    Finding finding = AtElement(warning, TemplatePlaces(source).ElementOf<CCp>(i), reason);
    finding.context.record = RecordTitle(records[i], i);
    return finding;
}

template <class Record>
void TellDuplicates(const CTemplate& source, const std::vector<Record>& records, FindingSink& findings) {
    std::unordered_map<std::string_view, std::size_t> firsts;
    firsts.reserve(records.size());
    for (std::size_t i = 0; i < records.size(); ++i) {
        if (records[i].name.empty())
            continue;
        const auto [first, isNew] = firsts.try_emplace(records[i].name, i);
        if (isNew)
            continue;
        const std::string kind(RecordNames<Record>::kind);
        const std::string name = QuotedExcerpt(records[i].name);
        std::string reason = name + " is the name of ";
        reason.append(kind).append(" ").append(std::to_string(first->second + 1));
        reason.append(" as well; other programs find a ").append(kind);
        reason.append(" by its name: give each a name of its own");
        const ErrorContext other = AtName(source, Warning::duplicateName, records, first->second, "").context;
        Finding finding = AtName(source, Warning::duplicateName, records, i, reason);
        finding.notes.push_back({other.file, other.line, "the first " + name});
        findings.Take(std::move(finding));
    }
}

}  // namespace

void TellDuplicateNames(const CTemplate& source, FindingSink& findings) {
    TellDuplicates(source, source.nvs, findings);
    TellDuplicates(source, source.tags, findings);
    TellDuplicates(source, source.cps, findings);
}

}  // namespace tovarek
