#include "mend/MendedBytes.h"

#include <algorithm>
#include <utility>

#include "base/Text.h"

namespace tovarek {
namespace {

bool Touch(const ByteChange& a, const ByteChange& b) {
    return a.start <= b.End() && b.start <= a.End();
}

}  // namespace

MendedBytes::MendedBytes(std::string bytes) : bytes_(std::move(bytes)), text_(bytes_) {
    const bool isXml = LooksLikeXml(bytes_);
    using namespace std::string_view_literals;
    const std::string_view view = bytes_;
    const bool hasWideMark = view.starts_with("\xFF\xFE") || view.starts_with("\xFE\xFF");
    isBigEndian_ = view.starts_with("\xFE\xFF") || (isXml && view.starts_with("\0<"sv));
    if (hasWideMark || (isXml && (isBigEndian_ || view.starts_with("<\0"sv))))
        width_ = 2;
    first_ = hasWideMark ? 2 : view.starts_with(kUtf8Mark) ? 3 : 0;
    FindLines();
}

// The code unit at `at`.
std::size_t MendedBytes::Unit(std::size_t at) const {
    const auto byte = [&](std::size_t i) {
        return static_cast<std::size_t>(static_cast<unsigned char>(bytes_[i]));
    };
    if (width_ == 1)
        return byte(at);
    return isBigEndian_ ? byte(at) * 256 + byte(at + 1) : byte(at + 1) * 256 + byte(at);
}

void MendedBytes::FindLines() {
    const auto isAt = [&](std::size_t at, char c) {
        return at + width_ <= bytes_.size() && Unit(at) == static_cast<unsigned char>(c);
    };
    for (std::size_t at = first_; at + width_ <= bytes_.size();) {
        ByteLine& line = lines_.emplace_back(ByteLine{at, 0, 0});
        while (at + width_ <= bytes_.size() && !isAt(at, '\r') && !isAt(at, '\n'))
            at += width_;
        line.size = at - line.start;
        if (isAt(at, '\r') || isAt(at, '\n'))
            line.endSize = isAt(at, '\r') && isAt(at + width_, '\n') ? 2 * width_ : width_;
        at += line.endSize;
    }
}

// Where the characters of the line begin, and where the last one ends. False for an encoding in which some of
// its characters have several bytes, but for UTF-8 and UTF-16.
bool MendedBytes::FindOffsets(const ByteLine& line, std::string_view text,
                              std::vector<std::size_t>& offsets) const {
    const std::string_view bytes = std::string_view(bytes_).substr(line.start, line.size);
    for (std::size_t at = 0; at < bytes.size();) {
        offsets.push_back(line.start + at);
        if (width_ == 2) {
            const auto isIn = [&](std::size_t unit, std::size_t first) {
                return unit >= first && unit < first + 0x400;
            };
            const bool isPair = at + 4 <= bytes.size() && isIn(Unit(line.start + at), 0xD800) &&
                                isIn(Unit(line.start + at + 2), 0xDC00);
            at += isPair ? 4 : 2;
        } else if (bytes == text) {
            NextCharacter(bytes, at);
        } else {
            ++at;
        }
    }
    offsets.push_back(line.start + line.size);
    return offsets.size() == CharacterCount(text) + 1;
}

// The end of the line, or of one in front of it where it has none.
std::string MendedBytes::LineEnd(std::size_t line) const {
    for (std::size_t i = line + 1; i-- > 0;)
        if (lines_[i].endSize > 0)
            return bytes_.substr(lines_[i].start + lines_[i].size, lines_[i].endSize);
    return width_ == 1 ? "\n" : ToUtf16("\n", isBigEndian_);
}

std::string MendedBytes::Encoded(const Piece& piece, std::size_t line) const {
    std::string bytes;
    for (const char c : piece.text) {
        if (c == '\n')
            bytes += LineEnd(line);
        else
            bytes += width_ == 1 ? std::string(1, c) : ToUtf16(std::string_view(&c, 1), isBigEndian_);
    }
    return bytes;
}

// Fills the change that the piece means; answers why there is none.
std::string MendedBytes::Place(const Piece& piece, ByteChange& change) const {
    if (piece.text == kUtf8Mark) {
        change = {0, 0, piece.text};
        return first_ == 0 && width_ == 1 ? "" : "the file has a mark of its encoding";
    }
    const auto number = static_cast<std::size_t>(std::max(piece.line, 1)) - 1;
    if (piece.line < 1 || piece.column < 1 || piece.width < 0 || number >= lines_.size() ||
        lines_.size() != text_.Lines().size() || !IsAscii(piece.text))
        return "its place is not in the file";
    std::vector<std::size_t> offsets;
    if (!FindOffsets(lines_[number], text_.Lines()[number], offsets))
        return "characters of its line have several bytes in the encoding of the file, so mend it by hand";
    const auto start = static_cast<std::size_t>(piece.column) - 1;
    const auto end = start + static_cast<std::size_t>(piece.width);
    if (end >= offsets.size())
        return "its place is not in the file";
    change = {offsets[start], offsets[end] - offsets[start], Encoded(piece, number)};
    return {};
}

std::string MendedBytes::Add(const std::vector<Piece>& pieces) {
    std::vector<ByteChange> changes = changes_;
    for (const Piece& piece : pieces) {
        ByteChange change;
        if (std::string reason = Place(piece, change); !reason.empty())
            return reason;
        if (std::find(changes.begin(), changes.end(), change) != changes.end())
            continue;
        if (std::any_of(changes.begin(), changes.end(),
                        [&](const ByteChange& other) { return Touch(change, other); }))
            return "another mend changes the same place; check again behind it";
        changes.insert(
            std::upper_bound(changes.begin(), changes.end(), change,
                             [](const ByteChange& a, const ByteChange& b) { return a.start < b.start; }),
            std::move(change));
    }
    changes_ = std::move(changes);
    return {};
}

std::string MendedBytes::New() const {
    std::string bytes;
    std::size_t at = 0;
    for (const ByteChange& change : changes_) {
        bytes.append(bytes_, at, change.start - at).append(change.bytes);
        at = change.End();
    }
    return bytes.append(bytes_, at);
}

std::string MendedBytes::LineWith(int number, const std::vector<Piece>& pieces) const {
    std::string line;
    std::string_view rest = Line(number);
    int column = 1;
    const auto take = [&](int characters) {
        const std::string_view taken =
            FirstCharacters(rest, static_cast<std::size_t>(std::max(characters, 0)));
        rest.remove_prefix(taken.size());
        return taken;
    };
    for (const Piece& piece : pieces) {
        if (piece.line != number)
            continue;
        line.append(take(piece.column - column)).append(piece.text);
        take(piece.width);
        column = piece.column + piece.width;
    }
    return line.append(rest);
}

}  // namespace tovarek
