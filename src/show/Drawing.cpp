#include "show/Drawing.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "base/Text.h"

namespace tovarek {
namespace {

constexpr int kMargin = 8;  // between texts and the frame
constexpr int kSpace = 16;  // between boxes
constexpr int kTitle = 30;  // heights of rows
constexpr int kLine = 16;
constexpr int kGap = 4;  // behind a row of ports
constexpr int kFrameWidth = kBoxWidth - 2 * kArrowLength;
constexpr int kInside = kFrameWidth - 2 * kMargin;
constexpr int kHalf = (kInside - kMargin) / 2;
constexpr int kLeft = kArrowLength + kMargin;
constexpr int kRightHalf = kLeft + kInside - kHalf;

std::string WordsOf(std::string_view what, const std::vector<ViewPort>& ports) {
    std::string words;
    for (const ViewPort& port : ports)
        words += (words.empty() ? std::string(what) + ": " : ", ") + port.name +
                 (port.type.empty() ? "" : " (" + port.TypeAndUnit() + ")");
    return words.empty() ? words : words + ". ";
}

std::size_t MostCharacters(DrawnText::Kind kind, int width) {
    constexpr int kHundredths = 100;
    return static_cast<std::size_t>(width * kHundredths / (SizeOf(kind) * kCharacterWidth));
}

// Adds rows to boxes; begins a new one where the last is full.
class BoxDrawer {
  public:
    BoxDrawer(const ViewBlock& block, std::vector<DrawnBox>& boxes) : block_(block), boxes_(boxes) {}

    void Draw() {
        first_ = boxes_.size();
        Begin();
        for (std::size_t i = 0; i < std::max(block_.inputs.size(), block_.outputs.size()); ++i)
            AddPorts(i);
        for (const ViewPort& property : block_.properties)
            AddProperty(property);
        End();
        boxes_[first_].description = WordsOf("Inputs", block_.inputs) + WordsOf("Outputs", block_.outputs) +
                                     WordsOf("Properties", block_.properties);
    }

  private:
    void Begin() {
        DrawnBox& box = boxes_.emplace_back();
        const std::size_t part = boxes_.size() - first_;
        box.title = block_.title + (part > 1 ? " (part " + std::to_string(part) + ")" : "");
        if (part > 1)
            box.description = "Goes on with what did not fit.";
        y_ = kMargin;
        AddText(box.title, DrawnText::Kind::title, {kLeft, y_, kInside, kTitle - kMargin}, false);
        y_ += kTitle;
    }

    void End() {
        DrawnBox& box = boxes_.back();
        box.place = {0, 0, kBoxWidth, y_ + kMargin};
        box.frame = {kArrowLength, 0, kFrameWidth, y_ + kMargin};
    }

    // Room for so many lines.
    void Claim(int lines) {
        if (y_ + lines * kLine + kGap + kMargin <= kTallestBox)
            return;
        End();
        Begin();
    }

    static bool Fits(const std::string& text, DrawnText::Kind kind, int width) {
        return CharacterCount(text) <= MostCharacters(kind, width);
    }

    void AddText(const std::string& text, DrawnText::Kind kind, Rectangle place, bool isAtRight) {
        if (text.empty())
            return;
        DrawnText drawn{place, text, text, kind, isAtRight};
        if (!Fits(text, kind, place.width))
            drawn.shown = std::string(FirstCharacters(text, MostCharacters(kind, place.width) - 1)) + "…";
        boxes_.back().texts.push_back(std::move(drawn));
    }

    void AddPort(const ViewPort& port, int x, bool isOutput) {
        int y = y_;
        boxes_.back().arrows.push_back({isOutput ? kBoxWidth - kArrowLength : 0, y + kLine / 2});
        AddText(port.name, DrawnText::Kind::name, {x, y, kHalf, kLine}, isOutput);
        for (const std::string* const text : {&port.type, &port.unit})
            AddText(*text, DrawnText::Kind::type, {x, y += kLine, kHalf, kLine}, isOutput);
    }

    void AddPorts(std::size_t row) {
        const auto in = [&](const std::vector<ViewPort>& ports) {
            return row < ports.size() ? &ports[row] : nullptr;
        };
        const ViewPort* const input = in(block_.inputs);
        const ViewPort* const output = in(block_.outputs);
        const bool hasUnit =
            (input != nullptr && !input->unit.empty()) || (output != nullptr && !output->unit.empty());
        const int lines = hasUnit ? 3 : 2;
        Claim(lines);
        if (input != nullptr)
            AddPort(*input, kLeft, false);
        if (output != nullptr)
            AddPort(*output, kRightHalf, true);
        y_ += lines * kLine + kGap;
    }

    // The value stands on the right, in a line of its own where there is no room.
    void AddProperty(const ViewPort& property) {
        constexpr auto kKind = DrawnText::Kind::type;
        const bool isWide = !Fits(property.name, kKind, kHalf) || !Fits(property.type, kKind, kHalf);
        const bool isTwo = isWide && !property.type.empty();
        Claim(isTwo ? 2 : 1);
        AddText(property.name, kKind, {kLeft, y_, isWide ? kInside : kHalf, kLine}, false);
        y_ += isTwo ? kLine : 0;
        AddText(property.type, kKind, {isWide ? kLeft : kRightHalf, y_, isWide ? kInside : kHalf, kLine},
                true);
        y_ += kLine;
    }

    const ViewBlock& block_;
    std::vector<DrawnBox>& boxes_;
    std::size_t first_ = 0;
    int y_ = 0;
};

void Move(Rectangle& rectangle, int x, int y) {
    rectangle.x += x;
    rectangle.y += y;
}

void Move(DrawnBox& box, int x, int y) {
    Move(box.place, x, y);
    Move(box.frame, x, y);
    for (DrawnText& text : box.texts)
        Move(text.place, x, y);
    for (DrawnArrow& arrow : box.arrows) {
        arrow.x += x;
        arrow.y += y;
    }
}

}  // namespace

int SizeOf(DrawnText::Kind kind) {
    constexpr int kLarge = 13;
    constexpr int kSmall = 11;
    return kind == DrawnText::Kind::type ? kSmall : kLarge;
}

std::vector<DrawnBox> DrawBoxes(const View& view) {
    std::vector<DrawnBox> boxes;
    for (const ViewBlock& block : view.blocks)
        BoxDrawer(block, boxes).Draw();
    return boxes;
}

DrawnPicture ArrangeBoxes(std::vector<DrawnBox> boxes, int columns) {
    std::vector<int> heights(static_cast<std::size_t>(columns), 0);
    for (DrawnBox& box : boxes) {
        const auto shortest = std::min_element(heights.begin(), heights.end());
        const auto column = static_cast<int>(shortest - heights.begin());
        Move(box, column * (kBoxWidth + kSpace), *shortest);
        *shortest += box.place.height + kSpace;
    }
    const int tallest = *std::max_element(heights.begin(), heights.end());
    return {std::move(boxes), columns * (kBoxWidth + kSpace) - kSpace, std::max(tallest - kSpace, 0)};
}

}  // namespace tovarek
