// The 68 values of a device profile, by line of the XIF header, under the names of the interface.
#pragma once

#include <cstdint>

namespace tovarek {

struct ProfileValues {
    // line 6
    std::int32_t domains = 0;
    std::int32_t addresses = 0;
    std::int32_t handleIncomingMessages = 0;
    std::int32_t numbernetworkinputbuffers = 0;
    std::int32_t numbernetworkoutputbuffers = 0;
    std::int32_t numberprioritynetworkbuffers = 0;
    std::int32_t numberpriorityapplicationbuffers = 0;
    std::int32_t numberapplicationoutputbuffers = 0;
    std::int32_t numberapplicationinputbuffers = 0;
    std::int32_t sizenetworkinputbuffers = 0;
    std::int32_t sizenetworkoutputbuffers = 0;
    std::int32_t sizeapplicationoutputbuffers = 0;
    std::int32_t sizeapplicationinputbuffers = 0;
    std::int32_t applicationtype = 0;
    std::int32_t nvConfigurationTableSizeForMIP = 0;
    std::int32_t numberReceiveTransactions = 0;
    std::int32_t numberAliases = 0;
    std::int32_t supportRelaxedBinding = 0;
    std::int32_t statisticsRelativeAllowed = 0;
    std::int32_t maximumSizeMemoryBlock = 0;
    // line 7
    std::int32_t typeneuron = 0;
    std::int32_t protocolClockRate = 0;
    std::int32_t firmware = 0;
    std::int32_t receiveTransBlockSize = 0;
    std::int32_t transControlBlockSize = 0;
    std::int32_t onChipRAM = 0;
    std::int32_t offChipRAM = 0;
    std::int32_t domainEntrySize = 0;
    std::int32_t addressEntrySize = 0;
    std::int32_t nvConfigurationEntrySize = 0;
    std::int32_t eepromSizeStartEEPROM = 0;
    std::int32_t aliasTableEntrySize = 0;
    // line 8
    std::int32_t standardTransceiver = 0;
    std::int32_t standardTransceiverID = 0;
    std::int32_t transceiverInterface = 0;
    std::int32_t transceiverRate = 0;
    std::int32_t channelPrioritySlots = 0;
    std::int32_t minimumClockRate = 0;
    std::int32_t averagePacketSize = 0;
    std::int32_t oscillatorPrecision = 0;
    std::int32_t oscillatorWakeupTime = 0;
    // line 9
    std::int32_t channelBitsRate = 0;
    std::int32_t alternateBitsRate = 0;
    std::int32_t controlPreamble = 0;
    std::int32_t wakeupPinDir = 0;
    std::int32_t generalPurposeOverride = 0;
    std::int32_t generalData0 = 0;
    std::int32_t generalData1 = 0;
    std::int32_t generalData2 = 0;
    std::int32_t generalData3 = 0;
    std::int32_t generalData4 = 0;
    std::int32_t generalData5 = 0;
    std::int32_t generalData6 = 0;
    // line 10
    std::int32_t receiveStartDelay = 0;
    std::int32_t receiveEndDelay = 0;
    std::int32_t indeterminateTime = 0;
    std::int32_t minimumInterPacketTime = 0;
    std::int32_t preambleLength = 0;
    std::int32_t turnaroundTime = 0;
    std::int32_t missedPreambleTime = 0;
    std::int32_t packetQualificationTime = 0;
    std::int32_t dataOverrideTiming = 0;
    std::int32_t rawDataClockRate = 0;
    std::int32_t rawData0 = 0;
    std::int32_t rawData1 = 0;
    std::int32_t rawData2 = 0;
    std::int32_t rawData3 = 0;
    std::int32_t rawData4 = 0;
};

}  // namespace tovarek
