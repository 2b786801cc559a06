#include "show/Svg.h"

#include "show/ViewForms.h"

namespace tovarek {
namespace {

std::string Attribute(std::string_view name, int value) {
    return ' ' + std::string(name) + "=\"" + std::to_string(value) + '"';
}

std::string_view ClassOf(DrawnText::Kind kind) {
    switch (kind) {
        case DrawnText::Kind::title:
            return "t";
        case DrawnText::Kind::name:
            return "n";
        case DrawnText::Kind::type:
            return "y";
    }
    return {};
}

std::string TextElement(const DrawnText& text) {
    // Where the letters stand: as far below the middle of the place as they reach above it.
    const int baseline = text.place.y + (text.place.height + SizeOf(text.kind)) / 2 - 2;
    std::string element = "<text class=\"" + std::string(ClassOf(text.kind)) + (text.isAtRight ? " r" : "") +
                          '"' + Attribute("x", text.place.x + (text.isAtRight ? text.place.width : 0)) +
                          Attribute("y", baseline) + '>' + Escaped(text.shown);
    if (text.shown != text.whole)
        element += "<title>" + Escaped(text.whole) + "</title>";
    return element + "</text>\n";
}

std::string ArrowElement(const DrawnArrow& arrow) {
    return "<path d=\"M" + std::to_string(arrow.x) + ' ' + std::to_string(arrow.y) + "h" +
           std::to_string(kArrowLength) + "m-5-4 5 4-5 4\"/>\n";
}

}  // namespace

std::string Escaped(std::string_view text) {
    std::string escaped;
    for (const char c : text) {
        switch (c) {
            case '&':
                escaped += "&amp;";
                break;
            case '<':
                escaped += "&lt;";
                break;
            case '>':
                escaped += "&gt;";
                break;
            case '"':
                escaped += "&quot;";
                break;
            case '\'':
                escaped += "&#39;";
                break;
            default:
                escaped += c;
        }
    }
    return escaped;
}

std::string_view Colours() {
    return ":root{color-scheme:light "
           "dark;--ink:#1b1f24;--soft:#545b64;--line:#8a929c;--paper:#fff;--band:#f1f3f5}\n"
           "@media(prefers-color-scheme:dark){:root{--ink:#e8eaed;--soft:#a9b1ba;--line:#6b747e;--paper:#"
           "16191d;"
           "--band:#22272d}}\n";
}

std::string_view DrawingStyle() {
    return "svg text{font:11px ui-monospace,Menlo,Consolas,\"DejaVu Sans Mono\",monospace;fill:var(--soft)}\n"
           "svg .t,svg .n{font-size:13px;fill:var(--ink)}svg .t{font-weight:bold}svg .r{text-anchor:end}\n"
           "svg rect{fill:var(--paper);stroke:var(--line)}svg path{fill:none;stroke:var(--ink)}\n";
}

std::string BoxContent(const DrawnBox& box) {
    std::string content = "<rect" + Attribute("x", box.frame.x) + Attribute("y", box.frame.y) +
                          Attribute("width", box.frame.width) + Attribute("height", box.frame.height) +
                          " rx=\"4\"/>\n";
    for (const DrawnText& text : box.texts)
        content += TextElement(text);
    for (const DrawnArrow& arrow : box.arrows)
        content += ArrowElement(arrow);
    return content;
}

std::string SvgForm(const View& view) {
    constexpr int kColumns = 2;
    const DrawnPicture picture = ArrangeBoxes(DrawBoxes(view), kColumns);
    const std::string size = std::to_string(picture.width) + "\"" + Attribute("height", picture.height);
    std::string words;
    for (const DrawnBox& box : picture.boxes)
        words += box.title + ". " + box.description + '\n';
    std::string svg = "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" + size + " viewBox=\"-1 -1 " +
                      std::to_string(picture.width + 2) + ' ' + std::to_string(picture.height + 2) +
                      "\" role=\"img\" aria-labelledby=\"t d\">\n<title id=\"t\">" + Escaped(view.title) +
                      "</title>\n<desc id=\"d\">" + Escaped(words) + "</desc>\n<style>\n" +
                      std::string(Colours()) + std::string(DrawingStyle()) + "</style>\n";
    for (const DrawnBox& box : picture.boxes)
        svg += BoxContent(box);
    return svg + "</svg>\n";
}

}  // namespace tovarek
