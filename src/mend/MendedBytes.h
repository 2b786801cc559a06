// A file with its mends, byte for byte: what they do not touch stays what it is, in every encoding.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "mend/InputText.h"
#include "mend/Piece.h"

namespace tovarek {

// Bytes of the old file, and what stands there in the new one.
struct ByteChange {
    std::size_t start = 0;
    std::size_t size = 0;
    std::string bytes;
    std::size_t End() const { return start + size; }
    bool operator==(const ByteChange&) const = default;
};

class MendedBytes {
  public:
    explicit MendedBytes(std::string bytes);

    // Makes the changes of one mend, all of them or none. Answers why they cannot be made; empty when they
    // are, or were made already.
    std::string Add(const std::vector<Piece>& pieces);

    const std::string& Old() const { return bytes_; }
    std::string New() const;
    // In the order of the file; no two of them touch.
    const std::vector<ByteChange>& Changes() const { return changes_; }

    // The line as it was, and with these pieces in it.
    std::string_view Line(int number) const { return text_.Line(number); }
    std::string LineWith(int number, const std::vector<Piece>& pieces) const;

  private:
    // The bytes of a line, and of its end.
    struct ByteLine {
        std::size_t start;
        std::size_t size;
        std::size_t endSize;
    };
    void FindLines();
    std::size_t Unit(std::size_t at) const;
    std::string Place(const Piece& piece, ByteChange& change) const;
    bool FindOffsets(const ByteLine& line, std::string_view text, std::vector<std::size_t>& offsets) const;
    std::string Encoded(const Piece& piece, std::size_t line) const;
    std::string LineEnd(std::size_t line) const;

    std::string bytes_;
    InputText text_;
    std::size_t width_ = 1;  // of a code unit, 1 or 2 bytes
    bool isBigEndian_ = false;
    std::size_t first_ = 0;  // behind the mark
    std::vector<ByteLine> lines_;
    std::vector<ByteChange> changes_;
};

// The changes as a unified diff with three lines around each, for `patch -p0`; empty without any. `name` is
// that of the file in both headers.
std::string UnifiedDiff(const std::string& name, std::string_view bytes,
                        const std::vector<ByteChange>& changes);

}  // namespace tovarek
