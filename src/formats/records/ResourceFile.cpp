#include "formats/records/ResourceFile.h"

#include <algorithm>

#include "base/Text.h"
#include "formats/records/Crc16.h"
#include "system/CodePage.h"

namespace tovarek {
namespace {

constexpr std::size_t kTextBlock = 256;
constexpr std::size_t kHeaderStart = 3 * kTextBlock;
constexpr std::size_t kSaved = 0x30A;  // the date, seven bytes
constexpr std::size_t kSavedSize = 7;
constexpr std::size_t kChecksum = 0x318;    // the header's, left out of its own sum
constexpr std::size_t kKindFields = 0x32B;  // where the kinds begin to differ
constexpr std::size_t kTableReserve = 44;   // editors leave room for eleven entries of every table

std::string BlockText(std::string_view bytes, std::size_t block) {
    std::string_view text = bytes.substr(block * kTextBlock, kTextBlock - 1);
    text = text.substr(0, text.find_last_not_of(' ') + 1);
    return FromCodePage(text);
}

std::uint16_t HeaderChecksum(std::string_view bytes, std::size_t headerEnd) {
    return Crc16(bytes.substr(kChecksum + 2, headerEnd - kChecksum - 2), Crc16(bytes.substr(0, kChecksum)));
}

const ResourceKindRow* RowOfFile(std::string_view bytes) {
    return std::find_if(kResourceKinds.begin(), kResourceKinds.end(),
                        [bytes](const ResourceKindRow& row) { return bytes.starts_with(row.magic); });
}

}  // namespace

void BlankResourceDate(std::string& bytes) {
    if (bytes.size() < kKindFields || RowOfFile(bytes) == kResourceKinds.end())
        return;
    bytes.replace(kSaved, kSavedSize, kSavedSize, '\0');
    bytes.replace(kChecksum, 2, 2, '\0');
}

Outcome ResourceFileView::Open(std::string_view bytes, ResourceKind kind, ResourceFileView& view) {
    view.bytes_ = bytes;
    view.kind_ = kind;
    if (bytes.size() < kKindFields)
        return Failure(resultErrorOpenFile, "the file is too short for a resource file");
    const ResourceKindRow* const found = RowOfFile(bytes);
    if (found == kResourceKinds.end())
        return Failure(resultErrorOpenFile, "the file does not begin as a resource file does");
    if (found->kind != kind)
        return Failure(resultInvalidForCurrentFile, "the file is a resource file of another kind");
    const Outcome fields = view.ReadFields();
    return fields.Ok() ? view.CheckSections() : fields;
}

Outcome ResourceFileView::ReadFields() {
    header_.title = BlockText(bytes_, 0);
    header_.contact = BlockText(bytes_, 1);
    header_.webPage = BlockText(bytes_, 2);

    ByteReader reader(bytes_.substr(kHeaderStart));
    header_.description = reader.String();
    header_.creator = reader.String();
    header_.majorVersion = reader.U16();
    header_.saved.year = reader.U16();
    header_.saved.month = reader.U8();
    header_.saved.day = reader.U8();
    header_.saved.hour = reader.U8();
    header_.saved.minute = reader.U8();
    header_.saved.second = reader.U8();
    header_.minorVersion = reader.U8();
    header_.formatVersion = reader.U8();
    header_.formatMinor = reader.U8();
    headerEnd_ = reader.U32();
    checksum_ = reader.U16();
    dataStart_ = reader.U32();
    const std::uint64_t dataEnd = std::uint64_t{dataStart_} + reader.U32();
    for (std::uint8_t& byte : header_.programId)
        byte = reader.U8();
    header_.scope = reader.U8();

    if (headerEnd_ < kKindFields || headerEnd_ > bytes_.size())
        return Failure(resultErrorSettingHeader, "the header does not end inside the file");
    if (dataStart_ < headerEnd_ || dataEnd < dataStart_ + 2)
        return Failure(resultErrorSettingHeader, "the data section lies inside the header");
    dataEnd_ = static_cast<std::size_t>(dataEnd);
    return {};
}

Outcome ResourceFileView::CheckSections() const {
    if (HeaderChecksum(bytes_, headerEnd_) != checksum_)
        return Failure(resultCrcError, "the header's checksum is wrong");
    if (header_.scope > 6)
        return Failure(resultBadScope, "the header's scope is not 0 to 6");
    // Without records editors stop two zero bytes behind the tables; the data section then lies beyond the
    // end.
    if (DataLength() == 2 && bytes_.size() >= headerEnd_ + 2 && bytes_.size() < dataEnd_)
        return {};
    // A byte follows the data section, so that a file that lost its end is noticed whatever it lost.
    if (dataEnd_ >= bytes_.size())
        return Failure(resultErrorOpenFile, "the file ends before its data section does");
    ByteReader data(bytes_.substr(dataStart_, DataLength()));
    const std::uint16_t expected = data.U16();
    if (Crc16(data.Bytes(data.Remaining())) != expected)
        return Failure(resultCrcError, "the checksum of the data section is wrong");
    return {};
}

ByteReader ResourceFileView::KindFields() const {
    return ByteReader(bytes_.substr(kKindFields, headerEnd_ - kKindFields));
}

std::vector<std::uint32_t> ResourceFileView::Table(ByteReader& fields, std::size_t count) {
    std::vector<std::uint32_t> offsets;
    if (count > fields.Remaining() / 4) {
        fields.Fail();
        return offsets;
    }
    offsets.reserve(count);
    for (std::size_t i = 0; i < count; ++i)
        offsets.push_back(fields.U32());
    return offsets;
}

ByteReader ResourceFileView::Record(std::uint32_t offset, std::size_t numberSize,
                                    std::uint32_t number) const {
    ByteReader nothing{std::string_view()};
    nothing.Fail();
    if (offset < dataStart_ + 2 || offset >= dataEnd_ || dataEnd_ > bytes_.size())
        return nothing;
    ByteReader record(bytes_.substr(offset, dataEnd_ - offset));
    const std::uint32_t found = numberSize == 3 ? record.U24() : record.U16();
    const std::string_view body = record.Bytes(record.U16());
    return record.Failed() || found != number ? nothing : ByteReader(body);
}

std::size_t BeginRecord(ByteWriter& records, std::size_t number) {
    const std::size_t start = records.Size();
    records.U16(static_cast<std::uint32_t>(number));
    records.U16(0);
    return start;
}

bool EndRecord(ByteWriter& records, std::size_t start) {
    const std::size_t length = records.Size() - start - kRecordHead;
    records.PatchU16(start + 2, static_cast<std::uint32_t>(length));
    return length <= kLongestRecord;
}

bool WriteName(const std::string& name, ByteWriter& record) {
    const std::string bytes = ToCodePage(name);
    if (bytes.size() > kLongestName)
        return false;
    record.Name(bytes);
    return true;
}

bool SameRecords(std::vector<std::uint32_t> byNumber, std::vector<std::uint32_t> sorted) {
    std::erase(byNumber, 0U);
    std::sort(byNumber.begin(), byNumber.end());
    std::sort(sorted.begin(), sorted.end());
    return byNumber == sorted;
}

HeaderMarks ReadMarks(ByteReader& fields) {
    HeaderMarks marks{};
    for (std::uint16_t& mark : marks)
        mark = fields.U16();
    return marks;
}

std::string MarkFields(const HeaderMarks& marks) {
    ByteWriter fields;
    for (const std::uint16_t mark : marks)
        fields.U16(mark);
    return fields.Take();
}

namespace {

bool AppendTextBlock(ByteWriter& file, const std::string& text) {
    std::string block = ToCodePage(text);
    if (block.size() >= kTextBlock)
        return false;
    block.resize(kTextBlock - 1, ' ');
    file.Append(block);
    file.U8(0);
    return true;
}

void AppendHeader(ByteWriter& file, const ResourceHeader& header, std::uint8_t formatVersion) {
    file.String(header.description);
    file.String(header.creator);
    file.U16(header.majorVersion);
    const CivilTime& saved = header.saved;
    file.U16(static_cast<std::uint32_t>(saved.year));
    for (const int part : {saved.month, saved.day, saved.hour, saved.minute, saved.second})
        file.U8(static_cast<std::uint32_t>(part));
    file.U8(header.minorVersion);
    file.U8(formatVersion);
    file.U8(0);
}

}  // namespace

Outcome AssembleResourceFile(const ResourceHeader& header, std::uint8_t formatVersion,
                             const ResourceFileParts& parts, std::string& bytes) {
    std::size_t entries = 0;
    for (const auto& table : parts.tables)
        entries += table.size();
    const std::size_t tablesStart = kKindFields + parts.kindFields.size();
    const std::size_t headerEnd = tablesStart + 4 * entries;
    const std::size_t dataStart = std::max(headerEnd, tablesStart + kTableReserve * parts.tables.size());
    const std::size_t dataLength = 2 + parts.records.size();
    if (dataStart + dataLength >= std::numeric_limits<std::uint32_t>::max())
        return Failure(resultErrorSettingHeader, "the file would be larger than its offsets can tell");

    ByteWriter file;
    for (const std::string* text : {&header.title, &header.contact, &header.webPage}) {
        if (!AppendTextBlock(file, *text))
            return Failure(resultErrorSettingHeader, "a text of the header has more than 255 bytes");
    }
    AppendHeader(file, header, formatVersion);
    file.U32(static_cast<std::uint32_t>(headerEnd));
    file.U16(0);
    file.U32(static_cast<std::uint32_t>(dataStart));
    file.U32(static_cast<std::uint32_t>(dataLength));
    for (const std::uint8_t byte : header.programId)
        file.U8(byte);
    file.U8(header.scope);
    file.Append(parts.kindFields);
    const auto firstRecord = static_cast<std::uint32_t>(dataStart + 2);
    for (const auto& table : parts.tables) {
        for (const std::uint32_t offset : table)
            file.U32(offset == kDeletedRecord ? 0 : offset + firstRecord);
    }
    file.PatchU16(kChecksum, HeaderChecksum(file.Bytes(), headerEnd));

    if (entries == 0 && parts.records.empty()) {
        file.Zeros(2);
    } else {
        file.Zeros(dataStart - headerEnd);
        file.U16(Crc16(parts.records));
        file.Append(parts.records);
        file.U8(0);
    }
    bytes = file.Take();
    return {};
}

}  // namespace tovarek
