// The lines of the inputs, to be shown beside findings, and where in its line a finding lies.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "support/Findings.h"
#include "xml/Xml.h"

namespace tovarek {

// A piece of a line, in characters: `column` from 1, 0 when nothing is known.
struct LinePlace {
    int column;
    int width;
};

class SourceLines {
  public:
    // The line as text, empty when it cannot be had: a missing file, a line behind its end.
    const std::string& Line(const std::string& file, int number);

    // Where the finding lies in its line: in an INI file the value, the key or the whole line, in an XML file
    // the start tag of the element, in a job the key.
    LinePlace PlaceOf(const Finding& finding);

  private:
    enum class Kind { ini, xml, json };
    struct File {
        Kind kind = Kind::ini;
        std::vector<std::string> lines;
    };
    const File& Read(const std::string& file);
    // The elements of an XML file whose start tags begin in the line; none when it cannot be loaded.
    const std::vector<XmlNode>& ElementsIn(const std::string& file, int line);

    std::map<std::string, File> files_;
    std::map<std::string, std::map<int, std::vector<XmlNode>>> elements_;  // by file and line
};

}  // namespace tovarek
