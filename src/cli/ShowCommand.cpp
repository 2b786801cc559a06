#include "cli/ShowCommand.h"

#include <array>
#include <cstdlib>
#include <ostream>

#include "base/Numbers.h"
#include "base/Text.h"
#include "cli/Assignments.h"
#include "cli/Json.h"
#include "cli/ProgramFile.h"
#include "cli/ShowInputs.h"
#include "show/ViewForms.h"

namespace tovarek {
namespace {

// Characters of a line: what the user says, what the terminal says, or what is usual.
std::size_t LineWidth(bool outIsTerminal) {
    constexpr std::size_t kUsual = 80;
    constexpr std::size_t kMost = 1000;
    std::size_t width = outIsTerminal ? TerminalWidth() : 0;
    if (const char* const columns = std::getenv("COLUMNS"); columns != nullptr)
        width = ExactNumber<std::size_t>(columns).value_or(width);
    return width == 0 || width > kMost ? kUsual : width;
}

struct Form {
    std::string_view name;
    std::string (*write)(const View& view, std::size_t width);
};
constexpr auto kForms = std::to_array<Form>(
    {{"text", TextForm},
     {"markdown", [](const View& view, std::size_t /*width*/) { return MarkdownForm(view); }},
     {"html", [](const View& view, std::size_t /*width*/) { return HtmlForm(view); }},
     {"svg", [](const View& view, std::size_t /*width*/) { return SvgForm(view); }}});

const Form& FormNamed(const std::string& name) {
    std::string choice;
    for (const Form& form : kForms) {
        if (form.name == name)
            return form;
        choice += (choice.empty() ? "" : " or ") + ("--as " + std::string(form.name));
    }
    throw WrongUse("there is no form '" + Excerpt(name) + "' of a device; give " + choice);
}

int Show(const ShowOptions& options, OutputFormat format, Streams streams) {
    const Form& form = FormNamed(options.form);
    const std::unique_ptr<CCatalog> catalog = OpenCatalog(options.place);
    const ShownDevice device = ReadShownDevice(options.inputs, options.place, *catalog);
    const View view =
        MakeView(device, catalog->types.Catalog(),
                 options.place.IsShipped() && !device.areTypesGenerated ? StandardTexts::published
                                                                        : StandardTexts::all);
    const std::string text = form.write(view, LineWidth(streams.outIsTerminal));
    if (format == OutputFormat::json)
        streams.out << JsonText({{"as", form.name}, {"content", text}}) << '\n';
    else
        streams.out << text;
    return kDone;
}

}  // namespace

int RunShow(const ShowOptions& options, OutputFormat format, Streams streams) {
    return ReportingFaults(format, streams, [&] { return Show(options, format, streams); });
}

}  // namespace tovarek
