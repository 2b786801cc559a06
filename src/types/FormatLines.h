// The lines of the format file: how tools display the values of the user types.
//
//   UNVT_count: int;                      one whole number; "real;" for one with a fraction
//   UNVT_temp#US: text("%f",*1.8+32);     ! F   a named display format: factor, offset and unit
//   UNVT_ctrl: text("%m %d",              several values, one line each with its path in the type
//              mode,
//              level);
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "control/StandardCatalog.h"
#include "support/TextWriter.h"
#include "types/CType.h"

namespace tovarek {

// One value that a format line shows. The views live as long as the types and the catalog.
struct CParam {
    std::string_view format;  // "%d" integer, "%f" real, "%m" enumeration, "%s" text
    std::string expression;   // path of the value inside the type
    bool withFormat = false;  // shown through a named display format
    double formatCoefA = 1.0;
    double formatCoefC = 0.0;
    std::string_view comment;  // unit of the display format
};

// What standard types show, from the catalog; each is looked up once.
class StandardFormats {
  public:
    explicit StandardFormats(const StandardCatalog* catalog) : catalog_(catalog) {}

    // The values of the default format of a standard type; none when the catalog lacks it.
    const std::vector<FormatParameter>& Default(std::int32_t index);
    // Those of its display format `name`, or null when it has none of that name.
    const std::vector<FormatParameter>* Named(std::int32_t index, const std::string& name) const;

  private:
    const StandardCatalog* catalog_;
    std::unordered_map<std::int32_t, std::vector<FormatParameter>> defaults_;
};

class FormatLines {
  public:
    // Writes to `sink`; references are looked up in `catalog`, null when none is open.
    FormatLines(FileSink& sink, const StandardCatalog* catalog) : out_(sink), standard_(catalog) {}

    // The lines of `type` for the display format `formatName`, empty for the default one; none when the type
    // shows no value.
    void WriteGroup(const CType& type, const std::string& formatName);

  private:
    void WriteSingle(const CParam& param);
    void WriteSeveral(std::size_t indent);
    void OpenText();
    void AppendValue(const CParam& param);
    void AppendComment(const CParam& param);

    TextWriter out_;
    StandardFormats standard_;
    std::vector<CParam> params_;  // of the group that is being written
    std::string prefix_;
    std::string line_;
};

}  // namespace tovarek
