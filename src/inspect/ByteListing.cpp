#include "inspect/ByteListing.h"

#include <algorithm>

#include "base/Text.h"
#include "inspect/InspectNode.h"
#include "inspect/InspectText.h"
#include "inspect/TextListing.h"
#include "listing/ResourceListing.h"

namespace tovarek {
namespace {

constexpr std::size_t kBytesInLine = 8;

std::string OffsetText(std::size_t offset) {
    std::string text;
    AppendHex(text, offset, 8);
    return text;
}

std::string Heading(const ByteRow& row) {
    std::string text = row.record.empty() ? std::string() : row.record + ": ";
    text.append(2 * static_cast<std::size_t>(row.depth), ' ');
    text += row.field;
    return row.value.empty() ? text : text + " = " + row.value;
}

// Offset and bytes in columns of their own, the rest behind the first line.
void AppendBinaryRow(const ByteRow& row, std::string_view bytes, std::string& text) {
    for (std::size_t done = 0; done < row.length; done += kBytesInLine) {
        const std::size_t size = std::min(kBytesInLine, row.length - done);
        std::string hex = HexText(bytes.substr(row.offset + done, size));
        text += OffsetText(row.offset + done) + "  " + hex;
        if (done == 0) {
            text.append(3 * kBytesInLine + 1 - hex.size(), ' ');
            text += Heading(row);
        }
        text += '\n';
    }
}

}  // namespace

ByteListing ListBytes(std::string_view bytes, FileKind kind) {
    if (IsTextKind(kind))
        return {true, ListLines(bytes, kind)};
    return {false, ListResourceFile(bytes)};
}

std::string ListingText(const ByteListing& listing, std::string_view bytes) {
    std::string text;
    for (const ByteRow& row : listing.rows) {
        if (!listing.isText || row.value == kNoText) {
            AppendBinaryRow(row, bytes, text);
            continue;
        }
        text += OffsetText(row.offset) + "  " + row.field + ": " + row.value + '\n';
    }
    return text;
}

}  // namespace tovarek
