#include "inspect/TextListing.h"

#include <algorithm>

#include "base/Text.h"
#include "formats/xif/XifFile.h"
#include "inspect/InspectText.h"
#include "system/CodePage.h"

namespace tovarek {
namespace {

// What may stand around the content of a line.
constexpr std::string_view kAround = " \t\r\n\x1A";

// What a line of a format file is by its looks: statements may take several lines.
std::string FormatRole(std::string_view line) {
    const std::string_view text = Trim(line, kAround);
    if (text.empty())
        return "empty";
    if (text.starts_with('!'))
        return "comment";
    if (text.starts_with("set ") || text.starts_with("set\t"))
        return "setting";
    const std::string_view head = text.substr(0, text.find_first_of(":(\""));
    if (head.size() < text.size() && text[head.size()] == ':')
        return "format " + FromCodePage(Trim(head, kAround));
    return "continued";
}

std::string CatalogRole(std::string_view line) {
    const std::string_view text = Trim(line, kAround);
    if (text.empty())
        return "empty";
    return text.starts_with('#') ? "comment" : "folder";
}

class LineLister {
  public:
    LineLister(std::string_view bytes, FileKind kind)
        : bytes_(bytes),
          kind_(kind),
          isUtf8_(kind == FileKind::catalog && IsUtf8(bytes)),
          textEnd_(bytes.size()) {
        if (kind == FileKind::xif) {
            const bool isWhole = ReadXifFile(bytes, xif_).Ok();
            if (isWhole && !xif_.attached.empty())
                textEnd_ = xif_.attachedAt;
        }
    }

    std::vector<ByteRow> List() {
        std::size_t position = 0;
        while (position < textEnd_) {
            const std::size_t end = std::min(bytes_.find('\n', position), textEnd_ - 1) + 1;
            const std::string_view line = bytes_.substr(position, end - position);
            std::string role = Role(line, rows_.size());
            rows_.push_back({position, line.size(), 0, "", std::move(role), Printable(Text(line))});
            position = end;
        }
        if (position < bytes_.size())
            rows_.push_back({position, bytes_.size() - position, 0, "", "attached", std::string(kNoText)});
        return std::move(rows_);
    }

  private:
    // Catalogs alone may be UTF-8.
    std::string Text(std::string_view line) const { return isUtf8_ ? std::string(line) : FromCodePage(line); }

    std::string Role(std::string_view line, std::size_t number) const {
        if (kind_ == FileKind::format)
            return FormatRole(line);
        if (kind_ == FileKind::catalog)
            return CatalogRole(line);
        if (number < xif_.lineRoles.size())
            return xif_.lineRoles[number];
        return Trim(line, kAround).empty() ? "end of the text" : "not understood";
    }

    std::string_view bytes_;
    FileKind kind_;
    bool isUtf8_;
    std::size_t textEnd_;
    XifFile xif_;
    std::vector<ByteRow> rows_;
};

}  // namespace

std::vector<ByteRow> ListLines(std::string_view bytes, FileKind kind) {
    return LineLister(bytes, kind).List();
}

}  // namespace tovarek
