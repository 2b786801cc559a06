// How the inputs of one job were read: loaders tell it after they have loaded, when somebody listens.
#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "support/Findings.h"
#include "support/IniReading.h"
#include "support/XmlReading.h"

namespace tovarek {

class Readings {
  public:
    explicit Readings(FindingSink& findings) : findings_(findings) {}

    // Where the findings go.
    FindingSink& Findings() const { return findings_; }

    // The one reading of an INI file, whichever loaders ask for it: a file may be profile and template.
    // `text`: as the loader that asks has read it.
    IniReading& Ini(const std::string& path, std::shared_ptr<const IniText> text);

    // The reading of an INI file that some loader has asked for; null for any other.
    IniReading* FindIni(const std::string& path) const;

    // The reading of an element that a loader was given. Readings of one file share what they read.
    XmlReading& Xml(const XmlNode& root);

    // What no loader of the job asked for; called when all have loaded.
    void TellUnread();

  private:
    FindingSink& findings_;
    std::vector<std::unique_ptr<IniReading>> ini_;
    std::vector<std::unique_ptr<XmlReading>> xml_;
    std::vector<std::pair<std::string, std::shared_ptr<XmlMarks>>> marks_;  // by file
};

}  // namespace tovarek
