#include "cli/ConvertCommand.h"

#include <algorithm>
#include <ostream>

#include "base/Text.h"
#include "cli/Assignments.h"
#include "cli/Json.h"

namespace tovarek {
namespace {

Json LossJson(const Loss& loss) {
    return {{"record", loss.record},
            {"field", loss.field},
            {"value", loss.value},
            {"reason", loss.reason},
            {"counts", loss.counts}};
}

std::string LossText(const Loss& loss) {
    std::string text = "not held: " + loss.record;
    text += loss.field.empty() ? "" : ", " + loss.field;
    text += loss.value.empty() ? "" : " \"" + Printable(loss.value) + "\"";
    return text + ": " + loss.reason;
}

}  // namespace

int ReportConversion(const ConversionResult& result, bool isStrict, OutputFormat format, Streams streams) {
    const std::vector<Loss>& losses = result.losses;
    if (format == OutputFormat::json) {
        Json list = Json::array();
        for (const Loss& loss : losses)
            list.push_back(LossJson(loss));
        streams.out << JsonText({{"written", WrittenJson(result.written)},
                                 {"replaced", result.replaced},
                                 {"losses", std::move(list)}})
                    << '\n';
    } else {
        for (const std::string& replaced : result.replaced)
            streams.error << "tovarek: replaced: " << replaced << '\n';
        for (const Loss& loss : losses)
            streams.error << "tovarek: " << LossText(loss) << '\n';
        WriteWritten(result.written, streams.out);
    }
    const bool counts =
        std::any_of(losses.begin(), losses.end(), [](const Loss& loss) { return loss.counts; });
    return isStrict && counts ? kFailed : kDone;
}

int RunConvert(const ConvertOptions& options, OutputFormat format, Streams streams) {
    if (options.inputs.empty())
        return ReportWrongUse("convert needs an input: an XIF file, a profile or a template", format,
                              streams);
    if ((options.profile + options.deviceTemplate + options.formatFile).empty())
        return ReportWrongUse(
            "convert needs to know what to write: --profile FILE, --template FILE, each .ini "
            "or .xml; of resource files --format-file FILE",
            format, streams);
    return ReportingFaults(format, streams, [&] {
        const std::unique_ptr<CCatalog> catalog = OpenCatalog(options.place);
        Conversion conversion(options, *catalog);
        conversion.Write();
        return ReportConversion(conversion.Result(), options.isStrict, format, streams);
    });
}

}  // namespace tovarek
