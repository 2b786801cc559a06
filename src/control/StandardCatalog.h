// The standard resource set (scope 0) of an open catalog: every standard network-variable type (SNVT),
// configuration-property type (SCPT), enumeration, text and display format that it knows.
//
// Opening reads and verifies the type file alone. Descriptions, texts and formats are decoded on the first
// call that needs them, also by const functions: an instance belongs to one thread at a time, unless
// DecodeAll made it one for all. Pointers and references that are handed out live as long as the catalog. A
// text or format file that is missing or damaged reads as an empty one.
//
//   std::unique_ptr<StandardCatalog> catalog;
//   if (StandardCatalog::Open("share\\catalog\\ldrf.cat", catalog).Ok())
//       for (const CatalogEntry& entry : catalog->NvTypes())
//           Show(entry.name, entry.size, catalog->Nv(entry.index), catalog->Formats(entry.name));
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "formats/format/FormatFile.h"
#include "formats/records/Outcome.h"
#include "formats/type/TypeFile.h"

namespace tovarek {

// A type as lists show it.
struct CatalogEntry {
    std::uint16_t index = 0;  // from 1; there are gaps
    std::string name;         // whole, e.g. "SNVT_temp_p" or "SCPTlocation"
    std::uint16_t size = 0;   // bytes
};

// A single value of a type, as display formats show it: what is left when references are followed, and
// structures, unions and arrays are taken apart.
struct CatalogField {
    std::string path;        // e.g. "time_value[2].hour"; empty when the type is one value
    std::string conversion;  // "%d" integers, "%f" scaled numbers and floats, "%m" enumerations, "%s" texts
    std::string unit;        // text; empty when none is known
    // A number, a float, a bit field, an enumeration, or a text (an array of characters).
    TypeDescription type;
};

// The files of a standard set that a program holds. The bytes live as long as the program.
struct StandardSetBytes {
    std::string_view types;    // standard.typ
    std::string_view texts;    // standard.enu
    std::string_view formats;  // standard.fmt
};

class StandardCatalog {
  public:
    // Opens the standard set behind the catalog file `path`. A catalog of ours is a text that names the
    // folders of resource sets; behind any other file the set is looked for in the file's own folder
    // (standard.typ, any letter case, scope 0). Codes: 5 the file, or a standard set, cannot be read; else
    // those of ReadTypeFile.
    static Outcome Open(const std::string& path, std::unique_ptr<StandardCatalog>& catalog);

    // The same for a set in memory, which no file stands for. Codes: those of ReadTypeFile.
    static Outcome Open(const StandardSetBytes& set, std::unique_ptr<StandardCatalog>& catalog);

    // Decodes all that would be decoded later: from now on many threads may use the instance at a time.
    void DecodeAll();

    ~StandardCatalog();
    StandardCatalog(const StandardCatalog&) = delete;
    StandardCatalog& operator=(const StandardCatalog&) = delete;

    // ---- what there is ----

    // Paths of all files that the catalog is read from: the catalog file, then those of the standard set.
    // None for a set in memory.
    std::vector<std::string> Files() const;
    // All types by index; those that the set has deleted or lacks are left out.
    std::vector<CatalogEntry> NvTypes() const;
    std::vector<CatalogEntry> CpTypes() const;

    // ---- lookups, all in constant time; null or 0 when the set has no such type ----

    bool HasNv(std::int32_t index) const;
    // Size in bytes; cheap, nothing is decoded.
    std::uint16_t NvSize(std::int32_t index) const;
    std::uint16_t CpSize(std::int32_t index) const;
    // Whole name; empty when there is none.
    std::string NvName(std::int32_t index) const;
    std::string CpName(std::int32_t index) const;
    // Index of a whole name, letter case counts ("SNVT_temp"); 0 when there is none.
    std::int32_t NvIndex(std::string_view name) const;
    std::int32_t CpIndex(std::string_view name) const;
    // The type whose whole name is nearest to a mistyped one (base/Nearest.h); index 0 when none is near.
    CatalogEntry NearestNv(std::string_view name) const;

    // The whole type, described. Null also when the description is damaged or of a kind that is not known.
    const NvType* Nv(std::int32_t index) const;
    const CpType* Cp(std::int32_t index) const;
    // Enumeration set by its number, as the target of an enumeration names it.
    const Enumeration* EnumerationSet(std::int32_t number) const;
    // The text of a string of scope 0; empty when there is none.
    std::string Text(const StringRef& string) const;
    // True when a display format refers to the string. Those numbers are the same in every standard set; the
    // other strings of a set that was made from published facts have numbers of its own.
    bool IsFormatString(const StringRef& string) const;

    // ---- values and display formats ----

    // All values inside a type in the order of their bytes, references to other standard types resolved.
    // Empty when there is no such type. At most 100,000 values are listed.
    std::vector<CatalogField> NvFields(std::int32_t index) const;
    std::vector<CatalogField> CpFields(std::int32_t index) const;

    // All formats of the type with this whole name, in the order of the file, the default one (empty name)
    // included. Units of string references are filled in.
    const std::vector<DisplayFormat>& Formats(std::string_view typeName) const;

    // What the default display of a network-variable type shows, value by value: the parameters of its
    // default format where the format file has one with parameters, else one parameter per field without
    // factor, offset and unit. "int" and "real" are one parameter without expression.
    std::vector<FormatParameter> DefaultParameters(std::int32_t nvIndex) const;

  private:
    StandardCatalog();
    class Impl;
    std::unique_ptr<Impl> impl_;
};

}  // namespace tovarek
