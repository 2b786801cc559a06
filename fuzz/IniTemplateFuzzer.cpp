#include "Runs.h"

std::vector<std::string> tovarek::fuzz::Seeds() {
    return {
        "[general]\r\nprogramID=9000010A0B040100\r\nselfDoc=&3.4@0NodeObject\r\nuserTypeFile=types.xml\r\n"
        "[nvs]\r\nnumberOfStaticNvs=3\r\nmaximumNumberOfNvs=3\r\n[tags]\r\nnumberOfTags=1\r\n"
        "[cps]\r\nnumberOfCp=2\r\nversion=1.0\r\n"
        "[nv1]\r\nname=nviTemp\r\ndirection=0\r\ntype=105\r\nselfdoc=@1|1;Temperature of the space, which is "
        "longer than a line of the file holds\r\n"
        "[nv2]\r\nname=nvoMode\r\ndirection=1\r\ntype=300\r\nlength=4\r\narraySize=3\r\navgRate=10\r\n"
        "[nv3]\r\nname=nvoSwitch\r\ndirection=1\r\ntype=95\r\npolled=1\r\ndefaultService=2\r\n"
        "[tag1]\r\nname=mt\r\nbindable=1\r\n"
        "[cp1]\r\ndeclaration=1,0,0\\x80,17,2;\r\nvalue=0A1B\r\nminRawVal=0000\r\n"
        "[cp2]\r\ndeclaration=1,1,6,3,1,4;\r\narraySize=4\r\ntypeIndex=301\r\n",
        "[general]\nprogramID=9000010A0B040100\n[nvs]\nnumberOfStaticNvs=2147483647\n[nv5000]\narraySize=7\n",
        "[general]\nprogramID=9000010A0B040100\n[cps]\nnumberOfCp=2147483647\nversion=1\n[cp1]\n"
        "declaration=a,b,6,1,600,20\n",
    };
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tovarek;
    fuzz::RunTemplate(&CTemplate::iniFile, fuzz::View(data, size));
    return 0;
}
