#include "Fuzzing.h"
#include "formats/format/FormatFile.h"

std::vector<std::string> tovarek::fuzz::Seeds() {
    return {
        "set program_id 90:00:01:0A:0B:04:01:00;\r\nset selector MANUFACTURER;\r\n\r\n"
        "UNVT_count: int;\r\nUNVT_speed: real;\r\nUNVT_temp#US: text(\"%f\",*1.8+32(0:855));\r\n"
        "UNVT_pair: text(\"%d %m\",\r\n                level*2+0,\t! volts\r\n                mode);\r\n"
        "UNVT_name: text(\"%s\",name[2]);\r\n",
        "! a comment\nUNVT_date: date(year,month,day);\nUNVT_x#a b: text(\"100%% \\\"%5.2f\\\"\", "
        "a.b[3]*1E-3-2);",
        "UNVT_t: text(\"%d\",\n level\t! unit\n );\n",
    };
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tovarek;
    FormatFile file;
    if (!ReadFormatFile(fuzz::View(data, size), file).Ok())
        return 0;
    const std::string written = WriteFormatFile(file);
    FormatFile again;
    fuzz::Require(ReadFormatFile(written, again).Ok(), "a written file can be read");
    fuzz::Require(again.formats.size() == file.formats.size(), "a written file has as many formats");
    fuzz::Require(WriteFormatFile(again) == written, "writing what was written changes nothing");
    return 0;
}
