#include "component/Tovarek.h"

#include <new>
#include <optional>
#include <stdexcept>
#include <utility>

#include "component/FilesList.h"
#include "component/XifWriter.h"
#include "contradictions/Contradictions.h"
#include "support/Readings.h"
#include "system/TrialOutput.h"

namespace tovarek {
namespace {

// Sets one of the profile's sources: all are emptied, then the one is stored.
template <class Value>
void SetSource(CProfile& profile, Value CProfile::*source, const Value& value) {
    // The value may live in one of the members that are emptied.
    Value kept = value;
    profile.iniFile.clear();
    profile.xmlFile.clear();
    profile.xifFile.clear();
    profile.xmlNode = {};
    profile.*source = std::move(kept);
}

template <class Value>
void SetSource(CTemplate& target, Value CTemplate::*source, const Value& value) {
    Value kept = value;
    target.iniFile.clear();
    target.xmlFile.clear();
    target.xmlNode = {};
    target.*source = std::move(kept);
}

}  // namespace

Tovarek::Tovarek() : clock_(SystemClock()) {}

void Tovarek::SetClock(std::shared_ptr<const Clock> clock) {
    clock_ = std::move(clock);
    catalog_.types.SetClock(clock_);
}

void Tovarek::UseCatalog(std::shared_ptr<const StandardCatalog> catalog) {
    catalog_.types.UseCatalog(std::move(catalog));
}

void Tovarek::RaiseWhenCatalogFailed() const {
    if (catalog_.errorOpeningCatalog())
        errorHandler_.RaiseError(eQVXIFerr_erroraccessingSNVTmasterlist, catalog_.OpeningFailure());
}

void Tovarek::catalogDir(const std::string& value) {
    catalog_.catalogDir(value);
    RaiseWhenCatalogFailed();
}

void Tovarek::catalogFile(const std::string& value) {
    catalog_.catalogFile(value);
    RaiseWhenCatalogFailed();
}

void Tovarek::iniProfileFile(const std::string& value) {
    SetSource(profile_, &CProfile::iniFile, value);
}
void Tovarek::xmlProfileFile(const std::string& value) {
    SetSource(profile_, &CProfile::xmlFile, value);
}
void Tovarek::xmlProfileNode(const XmlNode& value) {
    SetSource(profile_, &CProfile::xmlNode, value);
}
void Tovarek::xifProfileFile(const std::string& value) {
    SetSource(profile_, &CProfile::xifFile, value);
}

void Tovarek::iniTemplateFile(const std::string& value) {
    SetSource(template_, &CTemplate::iniFile, value);
}
void Tovarek::xmlTemplateFile(const std::string& value) {
    SetSource(template_, &CTemplate::xmlFile, value);
}
void Tovarek::xmlTemplateNode(const XmlNode& value) {
    SetSource(template_, &CTemplate::xmlNode, value);
}

void Tovarek::Generate() {
    RaisingSink raise(errorHandler_, warnings_);
    Run(raise, Purpose::generation);
}

void Tovarek::Check(FindingSink& findings) {
    Run(findings, Purpose::check);
}

void Tovarek::Run(FindingSink& findings, Purpose purpose) {
    writtenFiles_.clear();
    try {
        Readings readings(findings);
        std::optional<TrialOutput> trial;
        if (purpose == Purpose::check)
            trial.emplace(mustGenerateTypes_ ? typeFiles_.typeFilesDirectory : "");
        TrialOutput* const output = trial ? &*trial : nullptr;
        if (findings.WantsWarnings())
            TellOutputs(findings);
        bool isTemplateRead = false;
        TellingErrors(findings, [&] {
            ReadTemplate(readings);
            isTemplateRead = true;
        });
        if (guard_ && purpose == Purpose::generation)
            guard_(Files());
        if (mustGenerateTypes_ && isTemplateRead)
            TellingErrors(findings, [&] { DoTypeFiles(readings, output); });
        if (mustGenerateXif_)
            TellingErrors(findings, [&] { DoXif(readings, output); });
        else
            profile_.SkipReadings(readings);
        if (findings.WantsWarnings())
            readings.TellUnread();
    } catch (const std::bad_alloc&) {
        RaiseRuntimeError(RuntimeError::outOfMemory);
    } catch (const std::length_error&) {
        RaiseRuntimeError(RuntimeError::outOfMemory);
    }
}

void Tovarek::ReadTemplate(Readings& readings) {
    FindingSink& findings = readings.Findings();
    template_.errorHandler = &errorHandler_;
    template_.catalog = &catalog_;
    template_.Load(findings);
    if (findings.WantsWarnings())
        template_.TellReadings(readings);
    template_.VerifyData(findings);
    if (findings.WantsWarnings())
        TellTemplateContradictions(template_, findings);
    if (addNameInCpString_ && mustGenerateXif_ && findings.WantsWarnings())
        template_.TellJoinedNames(findings);
    if (addNameInCpString_)
        template_.AddNameInCp();
}

void Tovarek::DoTypeFiles(Readings& readings, TrialOutput* trial) {
    std::vector<std::string> tried;
    GenerateTypeFilesAndList(types_,
                             {template_, catalog_, errorHandler_, typeFiles_, typeFilesXMLFormat_,
                              userTypeFilePath_, readings.Findings().WantsWarnings() ? &readings : nullptr},
                             {readings.Findings(), trial != nullptr ? tried : writtenFiles_, trial});
}

void Tovarek::DoXif(Readings& readings, TrialOutput* trial) {
    FindingSink& findings = readings.Findings();
    profile_.errorHandler = &errorHandler_;
    profile_.Load(findings);
    if (findings.WantsWarnings())
        profile_.TellReadings(readings);
    profile_.VerifyData(findings);
    if (outputXIFfile_.empty())
        RaiseRuntimeError(RuntimeError::fileNotFound,
                          {.field = "outputXIFfile",
                           .reason = "the name of the output file is empty; set outputXIFfile, or "
                                     "mustGenerateXif to false"});
    if (trial != nullptr) {
        trial->Open(outputXIFfile_);
        return;
    }
    WriteXif(outputXIFfile_, profile_, template_, resources_, *clock_);
    writtenFiles_.push_back(outputXIFfile_);
}

}  // namespace tovarek
