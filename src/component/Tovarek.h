// The component: generates the device-interface file (XIF) of a LonWorks device and, on demand, the LonMark
// resource files of its own types.
//
// Life of an object: creation makes the workers (profile, template, catalog, types, string tables, error
// raiser), which live as long as the object. Properties are set in any order; no setter trims, completes or
// checks its value. Generate does the work and can be called again. One object serves one caller at a time;
// objects share nothing.
//
// Text is UTF-8. Every failure is an exception of the class Error: number, message, source, and a context
// that tells where the fault lies. Setters other than those of the catalog raise nothing but runtime error 7
// (out of memory).
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "component/JobFiles.h"
#include "profile/CProfile.h"
#include "support/CErrorHandler.h"
#include "support/CResources.h"
#include "support/Findings.h"
#include "system/Clock.h"
#include "template/CTemplate.h"
#include "types/CTypes.h"
#include "types/TypeFilesSettings.h"
#include "types/catalog/CCatalog.h"
#include "xml/Xml.h"

namespace tovarek {

class Readings;         // support/Readings.h
class StandardCatalog;  // control/StandardCatalog.h
class TrialOutput;      // system/TrialOutput.h

class Tovarek {
  public:
    Tovarek();
    Tovarek(const Tovarek&) = delete;
    Tovarek& operator=(const Tovarek&) = delete;

    // Reads and checks the template, then writes what is asked for: the resource files, the XIF. The first
    // error ends it; files that were finished before stay. Raises one of eErrors or a runtime error.
    void Generate();
    // Reads and checks everything that Generate does, writes nothing, and tells `findings` all that is wrong,
    // in the order in which Generate meets it: the first error is the one that it raises.
    void Check(FindingSink& findings);

    // ---- the standard type catalog ----
    // Folder and file name ("ldrf.cat" by default). Each write opens the catalog anew and raises error 130
    // when that or an earlier opening failed; the value stays stored.
    const std::string& catalogDir() const { return catalog_.catalogDir(); }
    void catalogDir(const std::string& value);
    const std::string& catalogFile() const { return catalog_.catalogFile(); }
    void catalogFile(const std::string& value);

    // ---- what to generate ----
    bool mustGenerateXif() const { return mustGenerateXif_; }
    void mustGenerateXif(bool value) { mustGenerateXif_ = value; }
    bool mustGenerateTypes() const { return mustGenerateTypes_; }
    void mustGenerateTypes(bool value) { mustGenerateTypes_ = value; }

    // ---- the device profile; setting one source empties the other three, the node's name stands apart ----
    const std::string& iniProfileFile() const { return profile_.iniFile; }
    void iniProfileFile(const std::string& value);
    const std::string& xmlProfileFile() const { return profile_.xmlFile; }
    void xmlProfileFile(const std::string& value);
    const std::string& xmlProfileNodeName() const { return profile_.xmlNodeName; }
    void xmlProfileNodeName(const std::string& value) { profile_.xmlNodeName = value; }
    const XmlNode& xmlProfileNode() const { return profile_.xmlNode; }
    void xmlProfileNode(const XmlNode& value);
    const std::string& xifProfileFile() const { return profile_.xifFile; }
    void xifProfileFile(const std::string& value);

    // ---- the application template; likewise ----
    const std::string& iniTemplateFile() const { return template_.iniFile; }
    void iniTemplateFile(const std::string& value);
    const std::string& xmlTemplateFile() const { return template_.xmlFile; }
    void xmlTemplateFile(const std::string& value);
    const std::string& xmlTemplateNodeName() const { return template_.xmlNodeName; }
    void xmlTemplateNodeName(const std::string& value) { template_.xmlNodeName = value; }
    const XmlNode& xmlTemplateNode() const { return template_.xmlNode; }
    void xmlTemplateNode(const XmlNode& value);

    // ---- outputs ----
    const std::string& outputXIFfile() const { return outputXIFfile_; }
    void outputXIFfile(const std::string& value) { outputXIFfile_ = value; }
    const std::string& typeFilesDirectory() const { return typeFiles_.typeFilesDirectory; }
    void typeFilesDirectory(const std::string& value) { typeFiles_.typeFilesDirectory = value; }
    const std::string& typeFilesBaseName() const { return typeFiles_.typeFilesBaseName; }
    void typeFilesBaseName(const std::string& value) { typeFiles_.typeFilesBaseName = value; }

    // ---- the user types ----
    const std::string& typeFilesXMLFormat() const { return typeFilesXMLFormat_; }
    void typeFilesXMLFormat(const std::string& value) { typeFilesXMLFormat_ = value; }
    const std::string& typeFilesXMLPrefix() const { return types_.prefixTypes; }
    void typeFilesXMLPrefix(const std::string& value) { types_.prefixTypes = value; }
    const std::string& userTypeFilePath() const { return userTypeFilePath_; }
    void userTypeFilePath(const std::string& value) { userTypeFilePath_ = value; }
    bool createUnitsFromReference() const { return types_.useReferenceUnits; }
    void createUnitsFromReference(bool value) { types_.useReferenceUnits = value; }

    // ---- what the resource files say of their origin ----
    const std::string& creator() const { return typeFiles_.creator; }
    void creator(const std::string& value) { typeFiles_.creator = value; }
    const std::string& creatorDescription() const { return typeFiles_.creatorDescription; }
    void creatorDescription(const std::string& value) { typeFiles_.creatorDescription = value; }
    const std::string& webPage() const { return typeFiles_.webPage; }
    void webPage(const std::string& value) { typeFiles_.webPage = value; }
    const std::string& email() const { return typeFiles_.email; }
    void email(const std::string& value) { typeFiles_.email = value; }
    const std::string& phone() const { return typeFiles_.phone; }
    void phone(const std::string& value) { typeFiles_.phone = value; }
    std::int32_t localeID() const { return typeFiles_.localeID; }
    void localeID(std::int32_t value) { typeFiles_.localeID = value; }
    const std::string& langExtension() const { return typeFiles_.langExtension; }
    void langExtension(const std::string& value) { typeFiles_.langExtension = value; }
    const std::string& typeFileDescription() const { return typeFiles_.typeFileDescription; }
    void typeFileDescription(const std::string& value) { typeFiles_.typeFileDescription = value; }
    const std::string& langFileDescription() const { return typeFiles_.langFileDescription; }
    void langFileDescription(const std::string& value) { typeFiles_.langFileDescription = value; }
    const std::string& fptFileDescription() const { return typeFiles_.fptFileDescription; }
    void fptFileDescription(const std::string& value) { typeFiles_.fptFileDescription = value; }
    std::int32_t majorVersion() const { return typeFiles_.majorVersion; }
    void majorVersion(std::int32_t value) { typeFiles_.majorVersion = value; }
    std::int32_t minorVersion() const { return typeFiles_.minorVersion; }
    void minorVersion(std::int32_t value) { typeFiles_.minorVersion = value; }

    // ---- texts ----
    // Whether the names of the configuration properties are added to their declarations.
    bool addNameInCpString() const { return addNameInCpString_; }
    void addNameInCpString(bool value) { addNameInCpString_ = value; }

    // ---- for hosts written in C++ ----
    // Looks standard types up in `catalog` until a property of the catalog is written; those stay as they
    // are. Objects of several threads may share one that is decoded as a whole.
    void UseCatalog(std::shared_ptr<const StandardCatalog> catalog);
    // The clock that dates come from; the machine's by default.
    void SetClock(std::shared_ptr<const Clock> clock);
    // Paths of the files that the last Generate finished, in order; also after a failed one.
    const std::vector<std::string>& WrittenFiles() const { return writtenFiles_; }
    // The files that Generate reads and may write with the properties as they are; the user type file is
    // known from the first template that was loaded.
    JobFiles Files() const;
    // `guard` sees them in Generate when the template is loaded and nothing is written yet; what it throws
    // ends Generate.
    void SetGuard(std::function<void(const JobFiles&)> guard) { guard_ = std::move(guard); }

    // Hears the warnings of Generate; null for nobody. It lives as long as the object or until the next call.
    void SetWarnings(FindingSink* warnings) { warnings_ = warnings; }

  private:
    enum class Purpose { generation, check };

    void RaiseWhenCatalogFailed() const;
    void Run(FindingSink& findings, Purpose purpose);
    void TellOutputs(FindingSink& findings) const;
    void ReadTemplate(Readings& readings);
    void DoTypeFiles(Readings& readings, TrialOutput* trial);
    void DoXif(Readings& readings, TrialOutput* trial);

    CProfile profile_;
    CTemplate template_;
    CCatalog catalog_;
    CTypes types_;
    CResources resources_;
    CErrorHandler errorHandler_;

    std::shared_ptr<const Clock> clock_;
    std::vector<std::string> writtenFiles_;
    std::function<void(const JobFiles&)> guard_;
    FindingSink* warnings_ = nullptr;

    std::string outputXIFfile_;
    std::string typeFilesXMLFormat_;
    std::string userTypeFilePath_;
    bool mustGenerateXif_ = true;
    bool mustGenerateTypes_ = true;
    bool addNameInCpString_ = false;
    TypeFilesSettings typeFiles_;
};

}  // namespace tovarek
