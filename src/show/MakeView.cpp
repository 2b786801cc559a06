#include "show/MakeView.h"

#include <algorithm>
#include <utility>

#include "show/BlockBoxes.h"
#include "show/Facts.h"
#include "show/Records.h"

namespace tovarek {
namespace {

void AddTable(std::vector<ViewTable>& tables, ViewTable table) {
    if (!table.rows.empty())
        tables.push_back(std::move(table));
}

}  // namespace

View MakeView(const ShownDevice& device, const StandardCatalog* catalog, StandardTexts texts) {
    const XifFile& file = device.file;
    const DeviceTypes types(catalog, texts, device.own, file);
    const DeviceRecords records = RecordsOf(file, types);
    View view;
    view.title = ShownText(device.title);
    const std::size_t end = std::min(file.documentation.find(';'), file.documentation.size());
    view.text = ShownText(file.documentation.substr(std::min(end + 1, file.documentation.size())));
    AddTable(view.facts, ProgramIdTable(file));
    if (device.hasParameters) {
        AddTable(view.facts, HardwareTable(file));
        AddTable(view.facts, BufferTable(file));
    }
    view.blocks = BoxesOf(file.documentation, records);
    AddTable(view.records, VariableTable(records));
    AddTable(view.records, PropertyTable(records));
    AddTable(view.records, TagTable(file));
    view.types = types.Trees();
    return view;
}

}  // namespace tovarek
