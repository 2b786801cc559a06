#include "Runs.h"

std::vector<std::string> tovarek::fuzz::Seeds() {
    return {
        "<P><XIF_LINE6><DOMAINS>2</DOMAINS><ADDRESSES>&amp;HF</ADDRESSES><w><APPLICATIONTYPE>0</"
        "APPLICATIONTYPE>"
        "</w></XIF_LINE6><xif_line7><TypeNeuron>8</TypeNeuron><FIRMWARE>&amp;O17</FIRMWARE></xif_line7>"
        "<XIF_LINE8><TRANSCEIVERRATE>11.5</TRANSCEIVERRATE></XIF_LINE8><XIF_LINE9><GENERALDATA0>-1"
        "</GENERALDATA0></XIF_LINE9><XIF_LINE10><RAWDATA4>1E2</RAWDATA4></XIF_LINE10></P>",
        "<a><b><P><XIF_LINE6><XIF_LINE7><FIRMWARE>1</FIRMWARE></XIF_LINE7></XIF_LINE6></P></b></a>",
        "<!DOCTYPE P [<!ELEMENT P (XIF_LINE6)><!ELEMENT XIF_LINE6 (DOMAINS)><!ELEMENT DOMAINS (#PCDATA)>]>"
        "<P><XIF_LINE6><DOMAINS>1</DOMAINS></XIF_LINE6></P>",
    };
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tovarek;
    fuzz::RunProfile(&CProfile::xmlFile, fuzz::InputFile(fuzz::View(data, size)).Path());
    return 0;
}
