#include <algorithm>

#include "show/Svg.h"
#include "show/ViewForms.h"

namespace tovarek {
namespace {

// Narrow screens show a row as a small list, with the name of the column in front of each cell.
constexpr std::string_view kStyle = R"(
body{margin:0 auto;padding:12px;max-width:1080px;background:var(--paper);color:var(--ink);font:16px/1.45 system-ui,sans-serif;overflow-wrap:anywhere}
h1{font-size:1.5em;margin:.3em 0}h2{font-size:1.2em;margin:1.6em 0 .5em}
nav ul{padding:0;display:flex;flex-wrap:wrap;gap:.2em 1em;list-style:none}a{color:inherit}
table{border-collapse:collapse;width:100%}caption{text-align:left;color:var(--soft);padding:.2em 0}
th,td{text-align:left;vertical-align:top;padding:.3em .6em;border-bottom:1px solid var(--line);font-weight:normal}
thead th{font-weight:bold;background:var(--band)}
.boxes svg{display:inline-block;vertical-align:top;margin:0 8px 12px 0;max-width:100%;overflow:visible}
.types,.types ul{padding-left:1.2em}
[hidden]{display:none!important}
label{display:block;margin:.5em 0}input{font:inherit;width:100%;max-width:24em;box-sizing:border-box;padding:.3em;color:inherit;background:var(--paper);border:1px solid var(--line)}
:focus-visible{outline:2px solid currentColor;outline-offset:2px}
@media screen and (max-width:640px){thead{position:absolute;clip-path:inset(50%);height:1px;width:1px;overflow:hidden}
tbody,tr,th,td,table{display:block}tr{border-bottom:1px solid var(--line);padding:.4em 0}th,td{border:0;padding:.05em 0}tbody th{font-weight:bold}
td:empty{display:none}td::before{content:var(--name) ": ";color:var(--soft)}}
@media print{@page{size:A4;margin:14mm}body{font-size:10pt;max-width:none;padding:0}nav,label,output{display:none}tr,svg{break-inside:avoid}h2,caption{break-after:avoid}thead{display:table-header-group}}
)";

// Long tables get a field that leaves the rows that hold all of its words. Without scripts all rows are
// there.
constexpr std::string_view kScript = R"(
for(const table of document.querySelectorAll("table[data-long]")){
const label=document.createElement("label"),field=document.createElement("input"),told=document.createElement("output");
const rows=[...table.tBodies[0].rows];
label.textContent="Filter "+table.caption.textContent.split(",")[0].toLowerCase()+" ";field.type="search";field.id="filter-"+table.id;
label.append(field);told.setAttribute("for",field.id);table.before(label,told);
field.addEventListener("input",()=>{const words=field.value.toLowerCase().split(/\s+/);let shown=0;
for(const row of rows){const text=row.textContent.toLowerCase();row.hidden=!words.every(word=>text.includes(word));shown+=row.hidden?0:1}
told.textContent=field.value.trim()?shown+" of "+rows.length+" rows":""})}
)";

constexpr std::size_t kLong = 20;  // rows that are seen at a glance

class HtmlWriter {
  public:
    std::string Write(const View& view) {
        const std::string title = Escaped(view.title);
        out_ =
            "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
            "<meta name=\"viewport\" content=\"width=device-width,initial-scale=1\">\n<title>" +
            title + "</title>\n<style>\n";
        out_.append(Colours()).append(DrawingStyle()).append(kStyle);
        ColumnNames(view);
        out_ += "</style>\n</head>\n<body>\n<header>\n<h1>" + title + "</h1>\n";
        if (!view.text.empty())
            out_ += "<p>" + Escaped(view.text) + "</p>\n";
        Contents(view);
        out_ += "</header>\n<main>\n";
        for (const ViewTable& table : view.facts)
            Table(table);
        Drawing(view);
        for (const ViewTable& table : view.records)
            Table(table);
        Types(view);
        out_.append("</main>\n<script>").append(kScript).append("</script>\n</body>\n</html>\n");
        return std::move(out_);
    }

  private:
    static std::string IdOf(std::string title) {
        std::replace(title.begin(), title.end(), ' ', '-');
        return title;
    }

    void ColumnNames(const View& view) {
        for (const auto* tables : {&view.facts, &view.records})
            for (const ViewTable& table : *tables)
                for (std::size_t i = 1; i < table.columns.size(); ++i)
                    out_ += "#" + IdOf(table.title) + " td:nth-child(" + std::to_string(i + 1) +
                            "){--name:\"" + table.columns[i] + "\"}\n";
    }

    void Entry(const std::string& title) {
        out_ += "<li><a href=\"#h-" + IdOf(title) + "\">" + title + "</a></li>\n";
    }

    void Contents(const View& view) {
        out_ += "<nav aria-label=\"Contents\">\n<ul>\n";
        for (const ViewTable& table : view.facts)
            Entry(table.title);
        if (!view.blocks.empty())
            Entry(kObjects);
        for (const ViewTable& table : view.records)
            Entry(table.title);
        if (!view.types.empty())
            Entry(kTypes);
        out_ += "</ul>\n</nav>\n";
    }

    void Heading(const std::string& title) {
        out_ += "<h2 id=\"h-" + IdOf(title) + "\">" + title + "</h2>\n";
    }

    void Table(const ViewTable& table) {
        Heading(table.title);
        out_ += "<table id=\"" + IdOf(table.title) + "\"" + (table.rows.size() > kLong ? " data-long" : "") +
                ">\n<caption>" + table.title + ", " + std::to_string(table.rows.size()) +
                (table.rows.size() == 1 ? " row" : " rows") + "</caption>\n<thead><tr>";
        for (const std::string& column : table.columns)
            out_ += "<th scope=\"col\">" + column + "</th>";
        out_ += "</tr></thead>\n<tbody>\n";
        for (const auto& row : table.rows) {
            out_ += "<tr>";
            for (std::size_t i = 0; i < row.size(); ++i)
                out_ += i == 0 ? "<th scope=\"row\">" + Escaped(row[i]) + "</th>"
                               : "<td>" + Escaped(row[i]) + "</td>";
            out_ += "</tr>\n";
        }
        out_ += "</tbody>\n</table>\n";
    }

    void Box(const DrawnBox& box, const std::string& id) {
        const std::string width = std::to_string(box.place.width + 2);
        const std::string height = std::to_string(box.place.height + 2);
        out_.append("<svg width=\"").append(width).append("\" height=\"").append(height);
        out_.append("\" viewBox=\"-1 -1 ").append(width).append(" ").append(height);
        out_.append("\" role=\"img\" aria-labelledby=\"").append(id).append("t ").append(id).append("d\">\n");
        out_.append("<title id=\"").append(id).append("t\">").append(Escaped(box.title)).append("</title>\n");
        out_.append("<desc id=\"").append(id).append("d\">").append(Escaped(box.description));
        out_.append("</desc>\n").append(BoxContent(box)).append("</svg>\n");
    }

    void Drawing(const View& view) {
        if (view.blocks.empty())
            return;
        Heading(kObjects);
        out_ += "<div class=\"boxes\">\n";
        std::size_t number = 0;
        for (const DrawnBox& box : DrawBoxes(view))
            Box(box, "b" + std::to_string(++number));
        out_ += "</div>\n";
    }

    // Of the line; the one behind the last is as deep as a type.
    static std::size_t DepthOf(const ViewType& type, std::size_t line) {
        return line < type.lines.size() ? std::min(type.lines[line].depth, kDeepest) : 0;
    }

    // Lists inside lists, as the depths of the lines tell.
    void Types(const View& view) {
        if (view.types.empty())
            return;
        Heading(kTypes);
        out_ += "<ul class=\"types\">\n";
        for (const ViewType& type : view.types)
            for (std::size_t i = 0; i < type.lines.size(); ++i) {
                const std::size_t depth = DepthOf(type, i);
                const std::size_t next = DepthOf(type, i + 1);
                out_ += "<li>" + Escaped(type.lines[i].text) + (next > depth ? "\n<ul>\n" : "</li>\n");
                for (std::size_t open = depth; open > next; --open)
                    out_ += "</ul></li>\n";
            }
        out_ += "</ul>\n";
    }

    static constexpr const char* kObjects = "Objects";
    static constexpr const char* kTypes = "Own types";
    // Further in there is no room on a narrow screen.
    static constexpr std::size_t kDeepest = 12;

    std::string out_;
};

}  // namespace

std::string HtmlForm(const View& view) {
    return HtmlWriter().Write(view);
}

}  // namespace tovarek
