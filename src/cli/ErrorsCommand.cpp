#include "cli/ErrorsCommand.h"

#include <nlohmann/json.hpp>
#include <ostream>

#include "base/ErrorTable.h"

namespace tovarek {

int RunErrors(OutputFormat format, Streams streams) {
    using Json = nlohmann::ordered_json;
    if (format == OutputFormat::json) {
        Json list = Json::array();
        for (const ErrorRow& row : kErrorTable)
            list.push_back({{"n", row.number},
                            {"error", static_cast<std::int32_t>(row.code)},
                            {"code", ErrorNumberText(row.code)},
                            {"name", row.name},
                            {"description", row.message}});
        streams.out << list.dump(2) << '\n';
        return kDone;
    }
    for (const ErrorRow& row : kErrorTable)
        streams.out << row.number << '\t' << ErrorNumberText(row.code) << '\t' << row.name << '\t'
                    << row.message << '\n';
    return kDone;
}

}  // namespace tovarek
