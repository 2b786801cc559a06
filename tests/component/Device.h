// A small device as files, and a component that is set up to generate it.
#pragma once

#include <string>

#include "Scratch.h"
#include "component/Tovarek.h"

namespace tovarek::test {

inline constexpr const char* kProfileIni =
    "[Line6]\r\ndomains=2\r\naddresses=15\r\nhandleIncomingMessages=0\r\nnumbernetworkinputbuffers=9\r\n"
    "numbernetworkoutputbuffers=9\r\nnumberprioritynetworkbuffers=3\r\nnumberpriorityapplicationbuffers=3\r\n"
    "numberapplicationoutputbuffers=5\r\nnumberapplicationinputbuffers=5\r\nsizenetworkinputbuffers=11\r\n"
    "sizenetworkoutputbuffers=11\r\nsizeapplicationoutputbuffers=10\r\nsizeapplicationinputbuffers=10\r\n"
    "applicationtype=0\r\nnvConfigurationTableSizeForMIP=0\r\nnumberReceiveTransactions=16\r\nnumberAliases="
    "15\r\n"
    "supportRelaxedBinding=1\r\nstatisticsRelativeAllowed=1\r\nmaximumSizeMemoryBlock=11\r\n"
    "[Line7]\r\ntypeNeuron=0\r\nprotocolClockRate=5\r\nfirmware=7\r\nreceiveTransBlockSize=13\r\n"
    "transControlBlockSize=28\r\nonChipRAM=0\r\noffChipRAM=0\r\ndomainEntrySize=15\r\naddressEntrySize=5\r\n"
    "nvConfigurationEntrySize=3\r\neepromSizeStartEEPROM=284\r\naliasTableEntrySize=4\r\n"
    "[Line8]\r\nstandardTransceiver=1\r\nstandardTransceiverID=7\r\ntransceiverInterface=-"
    "1\r\ntransceiverRate=4\r\n"
    "channelPrioritySlots=4\r\nminimumClockRate=4\r\naveragePacketSize=15\r\noscillatorPrecision=200\r\n"
    "oscillatorWakeupTime=0\r\n"
    "[Line9]\r\nchannelBitsRate=78125\r\nalternateBitsRate=0\r\ncontrolPreamble=0\r\nwakeupPinDir=0\r\n"
    "generalPurposeOverride=0\r\ngeneralData0=1\r\ngeneralData1=2\r\ngeneralData2=3\r\ngeneralData3=4\r\n"
    "generalData4=5\r\ngeneralData5=6\r\ngeneralData6=300\r\n"
    "[Line10]\r\nreceiveStartDelay=90\r\nreceiveEndDelay=0\r\nindeterminateTime="
    "240\r\nminimumInterPacketTime=0\r\n"
    "preambleLength=0\r\nturnaroundTime=0\r\nmissedPreambleTime=40\r\npacketQualificationTime=40\r\n"
    "dataOverrideTiming=0\r\nrawDataClockRate=5\r\nrawData0=1\r\nrawData1=2\r\nrawData2=5\r\nrawData3=0\r\n"
    "rawData4=1\r\n";

inline constexpr const char* kTemplateIni =
    "[general]\r\nprogramID=9000010a0b040100\r\nselfDoc=&3.2@0,1 fan coil unit\r\n"
    "[nvs]\r\nnumberOfStaticNvs=3\r\nmaximumNumberOfNvs=5\r\n"
    "[nv1]\r\nname=nviTemp\r\ntype=105\r\ndirection=0\r\narraySize=1\r\n"
    "selfdoc=@0|1 room temperature in \xB0"
    "C, twelve characters behind sixty:123456789012\r\n"
    "[nv2]\r\nname=nvoFlows\r\ntype=300\r\nlength=1\r\ndirection=1\r\narraySize=4\r\navgRate=8\r\nmaxRate="
    "16\r\n"
    "offline=1\r\ndefaultService=2\r\nserviceCanBeChanged=0\r\ndefaultAuth=1\r\nauthCanBeChanged=0\r\n"
    "defaultPriority=1\r\npriorityCanBeChanged=0\r\npolled=1\r\nsynchronized=1\r\nconfiguration=0\r\n"
    "[nv3]\r\nname=nciMode\r\ntype=108\r\ndirection=0\r\nconfiguration=1\r\n"
    "[tags]\r\nnumberOfTags=2\r\n[tag1]\r\nname=myTag\r\nbindable=1\r\n[tag2]\r\nname=second\r\navgRate="
    "1\r\nmaxRate=2\r\n"
    "[cps]\r\nnumberOfCp=2\r\nversion=1.0\r\n"
    "[cp1]\r\ndeclaration=1,0,0\\x80,49,2\r\nvalue=0A1b\r\n"
    "[cp2]\r\ndeclaration=2,0.1,6,1,1,3;gain\r\n";

class Device {
  public:
    Device() {
        component_.SetClock(FixedClock(1795254067));  // 2026-11-21 09:41:07 UTC
        component_.catalogDir(TOVAREK_CATALOG);
        component_.mustGenerateTypes(false);
        component_.iniProfileFile(scratch_.File("profile.ini", kProfileIni));
        component_.iniTemplateFile(scratch_.File("template.ini", kTemplateIni));
        component_.outputXIFfile(scratch_.Path("node.xif"));
    }

    Tovarek& Component() { return component_; }
    const Scratch& Files() const { return scratch_; }
    std::string Xif() const { return ReadFile(component_.outputXIFfile()); }
    int Generate() {
        return RaisedNumber([this] { component_.Generate(); });
    }

  private:
    Scratch scratch_;
    Tovarek component_;
};

}  // namespace tovarek::test
