// A type file whose tables and record heads are verified and whose descriptions are decoded one by one on
// demand: a program that asks for one type of the standard set pays for one.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "formats/records/ResourceFile.h"
#include "formats/type/TypeFile.h"

namespace tovarek {

class TypeFileView {
  public:
    // What stands before a type's description; a deleted number has no record.
    struct Entry {
        bool exists = false;
        std::uint16_t size = 0;
        std::string_view name;                  // in the code page
        ByteReader record{std::string_view()};  // behind the name
        std::uint8_t reservedByte = 0;
        std::uint16_t reservedWord = 0;
    };

    // Opens a file that stays in memory as long as the view is used. Codes as ReadTypeFile, but for those of
    // damaged descriptions and enumerations.
    static Outcome Open(std::string_view bytes, TypeFileView& view);

    const ResourceHeader& Header() const { return header_; }
    const HeaderMarks& Marks() const { return marks_; }
    // Entry n - 1 is number n.
    const std::vector<Entry>& NvTypes() const { return nvTypes_; }
    const std::vector<Entry>& CpTypes() const { return cpTypes_; }
    std::size_t EnumerationCount() const { return enumerations_.size(); }
    bool HasEnumeration(std::size_t number) const { return enumerations_[number - 1].exists; }

    // Decode what exists; false when it is damaged.
    static bool DecodeNv(const Entry& entry, NvType& type);
    static bool DecodeCp(const Entry& entry, CpType& type);
    bool DecodeEnumeration(std::size_t number, Enumeration& enumeration) const;

  private:
    struct EnumerationEntry {
        bool exists = false;
        ByteReader record{std::string_view()};
    };

    Outcome ReadTypes(const ResourceFileView& file, const std::vector<std::uint32_t>& table,
                      std::vector<Entry>& types, std::size_t& total) const;
    Outcome ReadEnumerations(const ResourceFileView& file, const std::vector<std::uint32_t>& table,
                             std::size_t& total);

    ResourceHeader header_;
    HeaderMarks marks_ = kUsualMarks;
    std::vector<Entry> nvTypes_;
    std::vector<Entry> cpTypes_;
    std::vector<EnumerationEntry> enumerations_;
};

}  // namespace tovarek
