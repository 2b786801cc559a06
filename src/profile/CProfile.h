// The hardware and communication parameters of a device: the values of XIF header lines 6 to 10.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "profile/ProfileValues.h"
#include "support/Findings.h"
#include "support/InputPlace.h"
#include "xml/Xml.h"

namespace tovarek {

struct ProfileField;
class Readings;    // support/Readings.h
class IniReading;  // support/IniReading.h
class IniText;     // support/IniText.h
class XmlReading;  // support/XmlReading.h

// Holds one load at a time. The values are whole numbers without a unit, encoded as the XIF format encodes
// them; Load stores what it reads, VerifyData tells whether a device can have it.
class CProfile : public ProfileValues {
  public:
    // ---- the source; Load takes the first that is set: INI, XIF, then node and XML file ----
    std::string iniFile;      // an INI profile
    std::string xmlFile;      // an XML file that contains the profile element
    std::string xmlNodeName;  // name of the profile element in xmlFile
    XmlNode xmlNode;          // a profile element that is loaded already
    std::string xifFile;      // an existing XIF file whose lines 6 to 10 are taken over

    // Raises every error of the profile's own; set before Load and VerifyData.
    const CErrorHandler* errorHandler = nullptr;

    // Fills the values from the source. Stores what it reads without a check; an INI key that is missing
    // gives -1, fields that an XML source lacks keep their values. Raises error 51 without a source or with a
    // node alone, the errors of CTools::SearchXmlNode for XML, runtime errors for an XIF file (53, 70, 75, 76
    // cannot be read, 62 fewer than 10 lines, 9 too few numbers on a line) and 6 for a number beyond 32 bits.
    void Load();
    // The same, with numbers that are refused told to `findings`; they count as 0 then.
    void Load(FindingSink& findings);
    // Tells what the last load read otherwise than it was written.
    void TellReadings(Readings& readings) const;
    // In a job that reads no profile: what stands in a file of another loader for the profile is no finding.
    void SkipReadings(Readings& readings) const;

    // Checks the values in a fixed order and raises the first fault. Changes nothing.
    void VerifyData() const;
    // The same, with every fault told to `findings`.
    void VerifyData(FindingSink& findings) const;

  private:
    void LoadFromIni();
    void LoadFromXif(FindingSink& findings);
    void LoadFromXmlNode(const XmlNode& profile, FindingSink& findings);
    void TellIniReadings(IniReading& ini, FindingSink& findings) const;
    void TellXifReadings(FindingSink& findings) const;
    void TellXifLine(std::string_view line, int number, FindingSink& findings) const;
    void TellXmlReadings(XmlReading& reading, FindingSink& findings) const;
    void TellMissingElements(const std::array<XmlNode, 5>& lines, FindingSink& findings) const;
    // Whether a check refuses the value.
    bool IsRefused(const ProfileField& field) const;
    // The number that `text` begins with, as the value of the field.
    void Store(const ProfileField& field, std::string_view text, FindingSink& findings);
    // The context of a value that was refused; `read` is what it was taken for.
    ErrorContext ContextOfFault(const ProfileField& field, std::string_view read,
                                const Expected& expected) const;
    InputPlace PlaceOf(const ProfileField& field) const;
    // Whether the source has none of the lines, so that it is hardly a profile.
    bool HasNoLine() const;
    InputPlace XmlPlaceOf(const ProfileField& field) const;

    // Where the values of the last load come from, for error messages.
    XmlNode loadedXml_;
    std::shared_ptr<const IniText> loadedIni_;
    std::array<XmlNode, kProfileValueCount> elements_;    // by field, empty = no element
    std::array<std::string, kProfileValueCount> tokens_;  // of an XIF file, by field
    bool wasLoaded_ = false;                              // before the load at hand
    bool isLoaded_ = false;
};

}  // namespace tovarek
