#include "listing/ResourceListing.h"

#include <algorithm>
#include <array>
#include <map>

#include "base/Text.h"
#include "listing/Checksum.h"
#include "listing/RecordListing.h"
#include "system/CodePage.h"

namespace tovarek {
namespace {

constexpr std::size_t kTextBlock = 256;
constexpr std::size_t kChecksumAt = 0x318;
constexpr std::uint64_t kOldTypeFormat = 3;

std::string Offset(std::uint64_t offset) {
    std::string text = "0x";
    AppendHex(text, offset, 4);
    return text;
}

// A table of offsets: of which records, and sorted by what.
struct TableRow {
    RecordKind records;
    std::string_view order;
};

class ResourceLister {
  public:
    explicit ResourceLister(std::string_view bytes) : bytes_(bytes), cursor_(bytes, 0, bytes.size(), rows_) {}

    std::vector<ByteRow> List() {
        TextBlocks();
        CommonHeader();
        KindHeader();
        DataSection();
        return std::move(rows_);
    }

  private:
    void TextBlocks() {
        for (const char* name : {"title", "contact", "web page"}) {
            const std::string_view block = cursor_.Peek(kTextBlock - 1);
            const std::string_view text = block.substr(0, block.find_last_not_of(' ') + 1);
            cursor_.Field(name, kTextBlock - 1, '"' + Printable(FromCodePage(text)) + '"');
            cursor_.Unsigned(std::string(name) + ", end", 1);
        }
    }

    void CommonHeader() {
        cursor_.Reference("description", 4);
        cursor_.Reference("creator", 4);
        cursor_.Unsigned("data version, major", 2);
        cursor_.Unsigned("saved, year (UTC)", 2);
        for (const char* part : {"month", "day", "hour", "minute", "second"})
            cursor_.Unsigned(std::string("saved, ") + part, 1);
        cursor_.Unsigned("data version, minor", 1);
        formatVersion_ = cursor_.Unsigned("format version, major", 1);
        cursor_.Unsigned("format version, minor", 1);
        headerEnd_ = OffsetField("header end");
        HeaderChecksum();
        dataStart_ = OffsetField("data start");
        dataLength_ = cursor_.Unsigned("data length", 4);
        cursor_.Hex("program ID", 8);
        cursor_.Unsigned("scope", 1);
    }

    std::uint64_t OffsetField(std::string_view field) {
        const std::uint64_t offset = cursor_.Unsigned(field, 4);
        cursor_.Value(Offset(offset));
        return offset;
    }

    // Covers all before the slack but the checksum itself.
    void HeaderChecksum() {
        const std::uint64_t stored = cursor_.Unsigned("header checksum", 2);
        if (headerEnd_ < kChecksumAt + 2 || headerEnd_ > bytes_.size()) {
            cursor_.Value("not checked, the header ends outside the file");
            return;
        }
        const std::size_t rest = kChecksumAt + 2;
        CheckSum(stored, BitwiseCrc(bytes_.substr(rest, static_cast<std::size_t>(headerEnd_) - rest),
                                    BitwiseCrc(bytes_.substr(0, kChecksumAt))));
    }

    void CheckSum(std::uint64_t stored, std::uint64_t right) {
        cursor_.Value(stored == right ? "right" : "wrong, should be " + Offset(right));
    }

    void KindHeader() {
        if (bytes_.starts_with("URES"))
            LanguageHeader();
        else if (bytes_.starts_with("UTYP"))
            TypeHeader();
        else
            ProfileHeader();
        if (!cursor_.IsCut() && cursor_.Position() != headerEnd_)
            cursor_.Value(rows_.back().value + "; the tables end at " + Offset(cursor_.Position()) +
                          ", the header says " + Offset(headerEnd_));
    }

    void LanguageHeader() {
        const std::string letters = FromCodePage(cursor_.Peek(3));
        cursor_.Field("language", 3, '"' + Printable(letters) + '"');
        cursor_.Unsigned("language, end", 1);
        const std::uint64_t count = cursor_.Unsigned("strings", 3);
        cursor_.Unsigned("deleted strings", 3);
        Table({RecordKind::string, "by number"}, count);
    }

    void Marks() {
        for (const char* table : {"first", "second"})
            for (int i = 1; i <= 7; ++i)
                cursor_.Unsigned("mark " + std::to_string(i) + " of the " + table + " seven", 2);
    }

    void TypeHeader() {
        Marks();
        isOldFormat_ = formatVersion_ == kOldTypeFormat;
        std::array<std::uint64_t, 3> live{};
        std::array<std::uint64_t, 3> all{};
        constexpr std::array kGroups = {RecordKind::nvType, RecordKind::cpType, RecordKind::enumeration};
        for (std::size_t i = 0; i < 3; ++i)
            live[i] = all[i] = cursor_.Unsigned(std::string(RecordName(kGroups.at(i))) + "s", 2);
        for (std::size_t i = 0; i < 3 && !isOldFormat_; ++i) {
            const std::uint64_t deleted =
                cursor_.Unsigned("deleted " + std::string(RecordName(kGroups.at(i))) + "s", 2);
            live[i] -= std::min(live[i], deleted);
        }
        for (std::size_t i = 0; i < 3; ++i) {
            Table({kGroups.at(i), "by number"}, all[i]);
            Table({kGroups.at(i), "by name"}, live[i]);
        }
        Table({RecordKind::enumeration, "by file name"}, live[2]);
    }

    void ProfileHeader() {
        Marks();
        const std::uint64_t count = cursor_.Unsigned("profiles", 2);
        const std::uint64_t deleted = cursor_.Unsigned("deleted profiles", 2);
        const std::uint64_t live = count - std::min(count, deleted);
        Table({RecordKind::profile, "by number"}, count);
        Table({RecordKind::profile, "by name"}, live);
        Table({RecordKind::profile, "by key"}, live);
    }

    void Table(const TableRow& table, std::uint64_t count) {
        const std::string name = std::string(RecordName(table.records)) + "s " + std::string(table.order);
        for (std::uint64_t i = 0; i < count && !cursor_.IsCut(); ++i) {
            const std::uint64_t offset = OffsetField(name + ' ' + std::to_string(i + 1));
            if (offset == 0)
                cursor_.Value("deleted");
            else
                records_.emplace(offset, table.records);
        }
    }

    // Slack, the data section with its records and what lies between them, and the rest of the file.
    void DataSection() {
        const std::uint64_t size = bytes_.size();
        const std::uint64_t start = std::clamp<std::uint64_t>(dataStart_, cursor_.Position(), size);
        const std::uint64_t end = std::clamp<std::uint64_t>(dataStart_ + dataLength_, start, size);
        cursor_.UpTo(static_cast<std::size_t>(start), "slack");
        if (cursor_.IsCut())
            return;
        if (end - start >= 2)
            DataChecksum(static_cast<std::size_t>(start), static_cast<std::size_t>(end));
        for (auto record = records_.lower_bound(cursor_.Position());
             record != records_.end() && record->first < end; ++record) {
            // An entry that points into the middle of a record cannot be shown as a record of its own.
            if (record->first < cursor_.Position())
                continue;
            cursor_.UpTo(static_cast<std::size_t>(record->first), "unreferenced");
            Record(record->second, static_cast<std::size_t>(end));
        }
        cursor_.UpTo(static_cast<std::size_t>(end), "unreferenced");
        cursor_.UpTo(bytes_.size(), "behind the data section");
    }

    void DataChecksum(std::size_t start, std::size_t end) {
        const std::uint64_t stored = cursor_.Unsigned("data checksum", 2);
        if (dataStart_ == start && dataStart_ + dataLength_ == end)
            CheckSum(stored, BitwiseCrc(bytes_.substr(start + 2, end - start - 2)));
        else
            cursor_.Value("not checked, the data section lies outside the file");
    }

    // A record gets a cursor that ends where its length says.
    void Record(RecordKind kind, std::size_t end) {
        const std::size_t start = cursor_.Position();
        const std::size_t head = kind == RecordKind::string ? 5 : 4;
        const std::string_view bytes = cursor_.Peek(head);
        std::size_t number = 0;
        std::size_t length = 0;
        for (std::size_t i = 0; i < bytes.size(); ++i) {
            std::size_t& value = i + 2 < head ? number : length;
            value = (value << 8U) | static_cast<unsigned char>(bytes[i]);
        }
        const std::size_t recordEnd = std::min(start + head + length, end);
        ByteCursor record(bytes_, start, recordEnd, rows_);
        record.Record(std::string(RecordName(kind)) + ' ' + std::to_string(number));
        ListRecord(record, kind, isOldFormat_);
        record.UpTo(recordEnd, "left in the record");
        cursor_.Skip(recordEnd);
    }

    std::string_view bytes_;
    std::vector<ByteRow> rows_;
    ByteCursor cursor_;
    std::uint64_t formatVersion_ = 0;
    std::uint64_t headerEnd_ = 0;
    std::uint64_t dataStart_ = 0;
    std::uint64_t dataLength_ = 0;
    bool isOldFormat_ = false;
    std::map<std::uint64_t, RecordKind> records_;
};

}  // namespace

std::vector<ByteRow> ListResourceFile(std::string_view bytes) {
    return ResourceLister(bytes).List();
}

}  // namespace tovarek
