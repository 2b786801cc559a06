// The drawing of a device: where boxes and texts lie. Lengths are in pixels of the page, from the upper left
// corner of a box or of the picture. How it is painted is decided elsewhere.
#pragma once

#include <string>
#include <vector>

#include "show/View.h"

namespace tovarek {

struct Rectangle {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
};

// The font has characters of the same width: so many hundredths of its size in the widest one that browsers
// take for it.
inline constexpr int kCharacterWidth = 61;

struct DrawnText {
    enum class Kind { title, name, type };
    Rectangle place;    // of the text as it is cut; one that is no longer than its place has room around it
    std::string shown;  // cut with an ellipsis where it is too long
    std::string whole;
    Kind kind;
    bool isAtRight;  // ends at the right of its place
};

// The size of the font.
int SizeOf(DrawnText::Kind kind);

// A line through the frame, with its head on the right end.
struct DrawnArrow {
    int x;
    int y;
};
inline constexpr int kArrowLength = 12;

// A box, or the part of one: boxes that are higher than a sheet of paper are taken apart.
struct DrawnBox {
    Rectangle place;  // with the arrows
    Rectangle frame;
    std::vector<DrawnText> texts;
    std::vector<DrawnArrow> arrows;
    std::string title;
    std::string description;  // all of it in words
};

inline constexpr int kBoxWidth = 344;
inline constexpr int kTallestBox = 820;

// The boxes, each from its own upper left corner.
std::vector<DrawnBox> DrawBoxes(const View& view);

// The boxes in one picture, in columns that are filled evenly, each box in the shortest one.
struct DrawnPicture {
    std::vector<DrawnBox> boxes;
    int width = 0;
    int height = 0;
};
DrawnPicture ArrangeBoxes(std::vector<DrawnBox> boxes, int columns);

}  // namespace tovarek
