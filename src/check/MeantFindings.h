// Which warnings are meant: a comment "tovarek: ignore NAME" in an input says so, or an option.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "support/Findings.h"
#include "xml/Xml.h"

namespace tovarek {

class MeantFindings {
  public:
    // Reads the comments of `inputs`, INI and XML files; what cannot be read has none. `names` are left out
    // everywhere.
    MeantFindings(const std::vector<std::string>& inputs, const std::vector<std::string>& names);

    // Whether the warning is meant; never of an error. What says so counts as used.
    bool Covers(const Finding& finding);

    // A warning for each comment and name that no finding made use of.
    std::vector<Finding> TakeUnused() const;

  private:
    using Position = std::pair<int, int>;  // line and column, from 1
    // What a comment covers: from `first` to in front of `end`.
    struct Mark {
        std::string name;
        int line = 0;  // of the comment
        Position first;
        Position end;
        bool isUsed = false;
        std::size_t outer = 0;  // 1 + the place of the innermost mark around it; 0: there is none
    };
    using Marks = std::vector<Mark>;
    static constexpr Position kEnd = {1 << 30, 0};

    void ReadIni(const std::string& text, Marks& marks) const;
    void ReadXml(const XmlNode& parent, Position end, Marks& marks) const;
    static void AddMarks(std::string_view comment, const Mark& place, Marks& marks);
    static void Nest(Marks& marks);

    std::map<std::string, Marks> marks_;  // by file and name
    std::vector<std::pair<std::string, bool>> names_;
};

}  // namespace tovarek
