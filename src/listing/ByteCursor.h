// Walks over the bytes of a file and turns them into rows. Whatever it is asked for, each byte from its start
// to its end becomes part of exactly one row.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "listing/ByteRow.h"

namespace tovarek {

class ByteCursor {
  public:
    ByteCursor(std::string_view bytes, std::size_t start, std::size_t end, std::vector<ByteRow>& rows)
        : bytes_(bytes), position_(start), end_(end), rows_(rows) {}

    std::size_t Position() const { return position_; }
    std::size_t Remaining() const { return end_ - position_; }
    // A field did not fit; everything up to the end has become a row, and further fields are ignored.
    bool IsCut() const { return cut_; }

    // What the rows from here on belong to.
    void Record(std::string name) { record_ = std::move(name); }
    void Deeper() { ++depth_; }
    void Higher() { --depth_; }

    // The next `size` bytes, for a look; fewer when there are not so many.
    std::string_view Peek(std::size_t size) const;
    // A row of the next `size` bytes, which may be 0: then there is none. Answers the bytes.
    std::string_view Field(std::string_view field, std::size_t size, std::string value);
    // A big-endian number of 1 to 8 bytes, shown in decimal. `Value` replaces what the last row shows.
    std::uint64_t Unsigned(std::string_view field, std::size_t size);
    std::int64_t Signed(std::string_view field, std::size_t size);
    void Value(std::string value);
    void Hex(std::string_view field, std::size_t size);
    // A length byte and a name, one row each.
    std::string Name(std::string_view field);
    // Scope and number of a string (4 bytes) or type (3 bytes).
    void Reference(std::string_view field, std::size_t size);
    // All bytes up to `end`, unless there are none.
    void UpTo(std::size_t end, std::string_view field);
    // Goes on at `position`: another cursor has listed what lies before it.
    void Skip(std::size_t position) { position_ = position; }
    // All that is left; further fields are ignored.
    void GiveUp(std::string_view field);

  private:
    std::string_view bytes_;
    std::size_t position_;
    std::size_t end_;
    std::vector<ByteRow>& rows_;
    std::string record_;
    int depth_ = 0;
    bool cut_ = false;
};

}  // namespace tovarek
