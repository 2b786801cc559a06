// The layout that language, type and profile files share: three text blocks, a header, tables of file
// offsets, and a data section with a checksum that holds the records. Reading verifies all of it; the readers
// and writers of the single kinds deal with their own header fields and records only.
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "formats/records/ByteReader.h"
#include "formats/records/ByteWriter.h"
#include "formats/records/Outcome.h"
#include "formats/records/ResourceModel.h"

namespace tovarek {

// A file whose header, sizes and checksums are right. It looks into the bytes that it was opened on.
class ResourceFileView {
  public:
    // Codes: 5 cut or no resource file, 12 another kind of file, 6 sizes that contradict one another, 10 a
    // wrong checksum.
    static Outcome Open(std::string_view bytes, ResourceKind kind, ResourceFileView& view);

    const ResourceHeader& Header() const { return header_; }
    // The header fields of the kind, then the tables.
    ByteReader KindFields() const;

    // Takes a table of `count` offsets. `fields` fails when the table does not fit.
    static std::vector<std::uint32_t> Table(ByteReader& fields, std::size_t count);
    // True when `fields` ends where the header says that the tables end.
    bool EndsWithTables(const ByteReader& fields) const {
        return !fields.Failed() && fields.Remaining() == 0;
    }

    // The record at `offset` whose number, of `numberSize` bytes, must be `number`: the reader stands behind
    // the record's length. A failed reader means that offset, number or length are wrong.
    ByteReader Record(std::uint32_t offset, std::size_t numberSize, std::uint32_t number) const;

    // Bytes of all records together; live records cannot take more, so that tables whose entries overlap do
    // not make a reader work longer than the file is.
    std::size_t DataLength() const { return dataEnd_ - dataStart_; }

  private:
    Outcome ReadFields();
    Outcome CheckSections() const;

    std::string_view bytes_;
    ResourceHeader header_;
    ResourceKind kind_ = ResourceKind::language;
    std::uint16_t checksum_ = 0;
    std::size_t headerEnd_ = 0;
    std::size_t dataStart_ = 0;
    std::size_t dataEnd_ = 0;
};

// ---- records: number (two bytes, of strings three), length (two bytes), content ----

inline constexpr std::size_t kMostRecords = 0xFFFF;  // of one table
inline constexpr std::size_t kRecordHead = 4;        // positions inside a record count from the number
inline constexpr std::size_t kLongestRecord = 0xFFFF;
inline constexpr std::size_t kLongestName = 0xFF;  // in bytes of the code page; a length byte stands in front

// Which limits of a value are stored.
inline constexpr unsigned kHasMaximum = 0x01;
inline constexpr unsigned kHasMinimum = 0x02;

// Begins a record; its length is patched when it ends. Answers where it stands.
std::size_t BeginRecord(ByteWriter& records, std::size_t number);
// False when the record is longer than kLongestRecord.
bool EndRecord(ByteWriter& records, std::size_t start);

// A name in the code page; false when it is longer than kLongestName.
bool WriteName(const std::string& name, ByteWriter& record);

// True when a sorted table names the records of the table by number (0: deleted), each once.
bool SameRecords(std::vector<std::uint32_t> byNumber, std::vector<std::uint32_t> sorted);

// Takes the two tables of seven numbers.
HeaderMarks ReadMarks(ByteReader& fields);

// A table entry of a record that does not exist.
inline constexpr std::uint32_t kDeletedRecord = std::numeric_limits<std::uint32_t>::max();

// What a kind adds to a fresh file. Table entries count from the start of `records`.
struct ResourceFileParts {
    std::string kindFields;
    std::vector<std::vector<std::uint32_t>> tables;
    std::string records;
};

// Lays the file out: text blocks, header, tables, room for the tables to grow, records, one final zero byte.
// Codes: 6 a header text is too long, or the file would exceed 4 GiB.
Outcome AssembleResourceFile(const ResourceHeader& header, std::uint8_t formatVersion,
                             const ResourceFileParts& parts, std::string& bytes);

// Puts zeros for the date in the header of a resource file and for the checksum that counts it in; leaves
// what does not begin as a resource file.
void BlankResourceDate(std::string& bytes);

// The header's marks as header fields.
std::string MarkFields(const HeaderMarks& marks);

}  // namespace tovarek
