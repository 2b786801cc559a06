// The application template: the device's application interface as the XIF file describes it.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "support/Findings.h"
#include "template/CCp.h"
#include "template/CNv.h"
#include "types/catalog/CCatalog.h"
#include "xml/Xml.h"

namespace tovarek {

struct TemplateSource;
class Readings;    // support/Readings.h
class IniReading;  // support/IniReading.h
class IniText;     // support/IniText.h
class XmlReading;  // support/XmlReading.h

// One message tag.
struct CTag {
    std::string name;
    std::int32_t avgRate = 0;   // encoded rate, 0 = not given
    std::int32_t maxRate = 0;   // encoded rate, 0 = not given
    std::int32_t bindable = 1;  // flag
    std::int32_t index = 0;     // position in the file, from 0
    int line = 0;               // of the XML element, for error messages; 0 = unknown
};

// Holds one load at a time. What Load stores is as the source has it; VerifyData tells whether a device can
// have it, and completes it.
class CTemplate {
  public:
    // ---- the source; Load takes the first that is set: INI, node, XML file ----
    std::string iniFile;      // an INI template
    std::string xmlFile;      // an XML file that holds the template element
    std::string xmlNodeName;  // name of the template element in xmlFile
    XmlNode xmlNode;          // a template element that is loaded already

    // The user type file that the template names. Kept from load to load when a template names none.
    std::string userTypeFile;

    // Raises every error of the template's own; set before Load and VerifyData.
    const CErrorHandler* errorHandler = nullptr;

    // ---- the content ----
    std::string selfDocumentation;
    std::int32_t numberStaticNvs = 0;
    std::int32_t maximumNumberOfNvs = 0;
    std::string programID;  // 16 hexadecimal digits in upper case once validated
    std::int32_t numberOfMessageTags = 0;
    std::int32_t numberOfCps = 0;
    std::string versionCP;  // version of the configuration-property file
    std::vector<CNv> nvs;
    std::vector<CTag> tags;
    std::vector<CCp> cps;

    // Standard type catalog that VerifyData looks types up in.
    CCatalog* catalog = nullptr;

    // Fills the template from its source; everything of an earlier load but userTypeFile is gone. Values are
    // not checked. Raises error 50 without a source, the errors of CTools::SearchXmlNode for XML, and runtime
    // error 6 for a number of an XML template or an index of the variable table beyond 32 bits.
    void Load();

    // The same, with numbers that are refused told to `findings`; they count as 0 then.
    void Load(FindingSink& findings);
    // Tells what the last load read otherwise than it was written.
    void TellReadings(Readings& readings) const;

    // Checks the template in a fixed order, raises the first fault, and completes what a template may leave
    // out: the program ID in upper case, lengths of standard types from the catalog, absent property values.
    // What was completed before a fault stays.
    void VerifyData();
    // The same, with every fault told to `findings`. A record is left at the fault that keeps the rest of it
    // from being judged.
    void VerifyData(FindingSink& findings);

    // Adds the names of the configuration properties to their declarations.
    void AddNameInCp();
    // Tells whether names in declarations leave properties that nobody can read; called before they are
    // added.
    void TellJoinedNames(FindingSink& findings) const;

    // The program ID in groups of two characters joined by ":", e.g. "90:00:01:0A:0B:04:01:00". Characters 1
    // to 16 of whatever programID holds; a shorter one leaves groups empty.
    std::string displayPID() const;

    // Where a field of the configuration property `position`, from 0, or the type of the network variable
    // `position` is told: field, value as typed, file and line, for messages about it.
    ErrorContext PlaceOf(std::size_t position, std::string CCp::*member) const;
    ErrorContext PlaceOf(std::size_t position, std::int32_t CCp::*member) const;
    ErrorContext PlaceOfNvType(std::size_t position) const;

    // What was loaded last, for messages; put together when it is asked for the first time.
    const TemplateSource& Source() const;

  private:
    void ResetTemplate();
    void LoadTemplateFromIni(FindingSink& findings);
    void LoadTemplateFromXmlNode(const XmlNode& node, FindingSink& findings);
    void TellIniReadings(IniReading& ini, FindingSink& findings) const;
    void TellXmlReadings(XmlReading& reading, FindingSink& findings) const;
    void TellTexts(FindingSink& findings) const;

    void VerifyTemplate(FindingSink& findings);
    // `isCatalogMissed`: that no catalog is open was told.
    void VerifyNv(CNv& nv, std::size_t position, bool& isCatalogMissed, FindingSink& findings);
    void VerifyTag(const CTag& tag, std::size_t position, FindingSink& findings);
    template <class Record>
    void TellOverruled(const Record& record, std::size_t position, std::int32_t Record::*member,
                       std::int32_t counting, std::string_view source, FindingSink& findings) const;
    // The characters of each value of the property; nothing where its declaration tells none.
    std::optional<std::int32_t> VerifyDeclaration(CCp& cp, std::size_t position, FindingSink& findings) const;
    void VerifyCp(CCp& cp, std::size_t position, std::int64_t& zeros, FindingSink& findings);

    XmlNode loadedNode_;
    std::shared_ptr<const IniText> loadedIni_;
    mutable std::shared_ptr<const TemplateSource> source_;
};

}  // namespace tovarek
