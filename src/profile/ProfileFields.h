// The table of the profile's values. All loaders and the writer work from it.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>

#include "profile/ProfileValues.h"

namespace tovarek {

struct ProfileField {
    std::string_view name;    // in upper case it is the XML element name
    std::string_view iniKey;  // in the INI section "Line<line>"; equal to the name but for typeNeuron
    int line;                 // XIF header line, 6 to 10; the XML element "XIF_LINE<line>"
    int token;                // 1-based place among the numbers of that line
    std::int32_t ProfileValues::*value;
    std::string_view meaning;  // for people, in the words of the documents
};

// In the order of the XIF file. The places that are missing are no values of the profile: 6/4, 6/5 and 6/23
// come from the application template, 8/3 is a constant.
// clang-format off
inline constexpr auto kProfileFields = std::to_array<ProfileField>({
    {"domains", "domains", 6, 1, &ProfileValues::domains, "entries of the domain table"},
    {"addresses", "addresses", 6, 2, &ProfileValues::addresses, "entries of the address table"},
    {"handleIncomingMessages", "handleIncomingMessages", 6, 3, &ProfileValues::handleIncomingMessages, "1: the application handles incoming explicit messages"},
    {"numbernetworkinputbuffers", "numbernetworkinputbuffers", 6, 6, &ProfileValues::numbernetworkinputbuffers, "network input buffers (count code)"},
    {"numbernetworkoutputbuffers", "numbernetworkoutputbuffers", 6, 7, &ProfileValues::numbernetworkoutputbuffers, "network output buffers (count code)"},
    {"numberprioritynetworkbuffers", "numberprioritynetworkbuffers", 6, 8, &ProfileValues::numberprioritynetworkbuffers, "priority network output buffers (count code)"},
    {"numberpriorityapplicationbuffers", "numberpriorityapplicationbuffers", 6, 9, &ProfileValues::numberpriorityapplicationbuffers, "priority application output buffers (count code)"},
    {"numberapplicationoutputbuffers", "numberapplicationoutputbuffers", 6, 10, &ProfileValues::numberapplicationoutputbuffers, "application output buffers (count code)"},
    {"numberapplicationinputbuffers", "numberapplicationinputbuffers", 6, 11, &ProfileValues::numberapplicationinputbuffers, "application input buffers (count code)"},
    {"sizenetworkinputbuffers", "sizenetworkinputbuffers", 6, 12, &ProfileValues::sizenetworkinputbuffers, "size of a network input buffer (size code)"},
    {"sizenetworkoutputbuffers", "sizenetworkoutputbuffers", 6, 13, &ProfileValues::sizenetworkoutputbuffers, "size of a network output buffer (size code)"},
    {"sizeapplicationoutputbuffers", "sizeapplicationoutputbuffers", 6, 14, &ProfileValues::sizeapplicationoutputbuffers, "size of an application output buffer (size code)"},
    {"sizeapplicationinputbuffers", "sizeapplicationinputbuffers", 6, 15, &ProfileValues::sizeapplicationinputbuffers, "size of an application input buffer (size code)"},
    {"applicationtype", "applicationtype", 6, 16, &ProfileValues::applicationtype, "0 unknown, 1 MIP, 2 Neuron, 3 host selection, 4 host with network-interface selection"},
    {"nvConfigurationTableSizeForMIP", "nvConfigurationTableSizeForMIP", 6, 17, &ProfileValues::nvConfigurationTableSizeForMIP, "NV table entries that the network interface handles"},
    {"numberReceiveTransactions", "numberReceiveTransactions", 6, 18, &ProfileValues::numberReceiveTransactions, "receive transaction records"},
    {"numberAliases", "numberAliases", 6, 19, &ProfileValues::numberAliases, "entries of the alias table"},
    {"supportRelaxedBinding", "supportRelaxedBinding", 6, 20, &ProfileValues::supportRelaxedBinding, "1: relaxed binding"},
    {"statisticsRelativeAllowed", "statisticsRelativeAllowed", 6, 21, &ProfileValues::statisticsRelativeAllowed, "1: statistics may be addressed relatively"},
    {"maximumSizeMemoryBlock", "maximumSizeMemoryBlock", 6, 22, &ProfileValues::maximumSizeMemoryBlock, "largest memory write, bytes (mostly 11)"},
    {"typeneuron", "typeNeuron", 7, 1, &ProfileValues::typeneuron, "chip: 0 = 3150, 14 = FT 3120 E4; 10 and 11 occur on I/O modules"},
    {"protocolClockRate", "protocolClockRate", 7, 2, &ProfileValues::protocolClockRate, "clock code: 1 = 0.625 MHz, each step doubles, 4 = 5, 5 = 10, 6 = 20, 7 = 40 MHz"},
    {"firmware", "firmware", 7, 3, &ProfileValues::firmware, "firmware revision"},
    {"receiveTransBlockSize", "receiveTransBlockSize", 7, 4, &ProfileValues::receiveTransBlockSize, "size of a receive transaction record"},
    {"transControlBlockSize", "transControlBlockSize", 7, 5, &ProfileValues::transControlBlockSize, "size of a transaction control block"},
    {"onChipRAM", "onChipRAM", 7, 6, &ProfileValues::onChipRAM, "free RAM on the chip, bytes"},
    {"offChipRAM", "offChipRAM", 7, 7, &ProfileValues::offChipRAM, "free RAM off the chip, bytes"},
    {"domainEntrySize", "domainEntrySize", 7, 8, &ProfileValues::domainEntrySize, "size of a domain table entry"},
    {"addressEntrySize", "addressEntrySize", 7, 9, &ProfileValues::addressEntrySize, "size of an address table entry"},
    {"nvConfigurationEntrySize", "nvConfigurationEntrySize", 7, 10, &ProfileValues::nvConfigurationEntrySize, "size of an NV configuration table entry"},
    {"eepromSizeStartEEPROM", "eepromSizeStartEEPROM", 7, 11, &ProfileValues::eepromSizeStartEEPROM, "bytes from the domain table to the user's EEPROM"},
    {"aliasTableEntrySize", "aliasTableEntrySize", 7, 12, &ProfileValues::aliasTableEntrySize, "size of an alias table entry"},
    {"standardTransceiver", "standardTransceiver", 8, 1, &ProfileValues::standardTransceiver, "1: a standard transceiver is used"},
    {"standardTransceiverID", "standardTransceiverID", 8, 2, &ProfileValues::standardTransceiverID, "its number: 7 = 78,125 bit/s free topology, 6 = 1.25 Mbit/s, 8 and 9 = power line"},
    {"transceiverInterface", "transceiverInterface", 8, 4, &ProfileValues::transceiverInterface, "interface: 0, 1; 2 = special purpose"},
    {"transceiverRate", "transceiverRate", 8, 5, &ProfileValues::transceiverRate, "interface rate code"},
    {"channelPrioritySlots", "channelPrioritySlots", 8, 6, &ProfileValues::channelPrioritySlots, "priority slots of the channel"},
    {"minimumClockRate", "minimumClockRate", 8, 7, &ProfileValues::minimumClockRate, "smallest clock code on the channel"},
    {"averagePacketSize", "averagePacketSize", 8, 8, &ProfileValues::averagePacketSize, "average packet size, bytes"},
    {"oscillatorPrecision", "oscillatorPrecision", 8, 9, &ProfileValues::oscillatorPrecision, "accuracy of the oscillator, ppm"},
    {"oscillatorWakeupTime", "oscillatorWakeupTime", 8, 10, &ProfileValues::oscillatorWakeupTime, "wake-up time of the oscillator"},
    {"channelBitsRate", "channelBitsRate", 9, 1, &ProfileValues::channelBitsRate, "bit rate of the channel, bit/s"},
    {"alternateBitsRate", "alternateBitsRate", 9, 2, &ProfileValues::alternateBitsRate, "special bit rate, 0 or 1"},
    {"controlPreamble", "controlPreamble", 9, 3, &ProfileValues::controlPreamble, "1: special preamble control"},
    {"wakeupPinDir", "wakeupPinDir", 9, 4, &ProfileValues::wakeupPinDir, "wake-up pin: 0 input, 1 output"},
    {"generalPurposeOverride", "generalPurposeOverride", 9, 5, &ProfileValues::generalPurposeOverride, "1: general-purpose data overridden"},
    {"generalData0", "generalData0", 9, 6, &ProfileValues::generalData0, "general-purpose data, byte 1"},
    {"generalData1", "generalData1", 9, 7, &ProfileValues::generalData1, "general-purpose data, byte 2"},
    {"generalData2", "generalData2", 9, 8, &ProfileValues::generalData2, "general-purpose data, byte 3"},
    {"generalData3", "generalData3", 9, 9, &ProfileValues::generalData3, "general-purpose data, byte 4"},
    {"generalData4", "generalData4", 9, 10, &ProfileValues::generalData4, "general-purpose data, byte 5"},
    {"generalData5", "generalData5", 9, 11, &ProfileValues::generalData5, "general-purpose data, byte 6"},
    {"generalData6", "generalData6", 9, 12, &ProfileValues::generalData6, "general-purpose data, byte 7"},
    {"receiveStartDelay", "receiveStartDelay", 10, 1, &ProfileValues::receiveStartDelay, "start delay of the receiver"},
    {"receiveEndDelay", "receiveEndDelay", 10, 2, &ProfileValues::receiveEndDelay, "end delay of the receiver"},
    {"indeterminateTime", "indeterminateTime", 10, 3, &ProfileValues::indeterminateTime, "indeterminate time"},
    {"minimumInterPacketTime", "minimumInterPacketTime", 10, 4, &ProfileValues::minimumInterPacketTime, "minimum time between packets"},
    {"preambleLength", "preambleLength", 10, 5, &ProfileValues::preambleLength, "length of the preamble"},
    {"turnaroundTime", "turnaroundTime", 10, 6, &ProfileValues::turnaroundTime, "turnaround time"},
    {"missedPreambleTime", "missedPreambleTime", 10, 7, &ProfileValues::missedPreambleTime, "missed-preamble time"},
    {"packetQualificationTime", "packetQualificationTime", 10, 8, &ProfileValues::packetQualificationTime, "packet qualification time"},
    {"dataOverrideTiming", "dataOverrideTiming", 10, 9, &ProfileValues::dataOverrideTiming, "1: raw data override the timing"},
    {"rawDataClockRate", "rawDataClockRate", 10, 10, &ProfileValues::rawDataClockRate, "clock code of the raw data"},
    {"rawData0", "rawData0", 10, 11, &ProfileValues::rawData0, "raw timing data, byte 1"},
    {"rawData1", "rawData1", 10, 12, &ProfileValues::rawData1, "raw timing data, byte 2"},
    {"rawData2", "rawData2", 10, 13, &ProfileValues::rawData2, "raw timing data, byte 3"},
    {"rawData3", "rawData3", 10, 14, &ProfileValues::rawData3, "raw timing data, byte 4"},
    {"rawData4", "rawData4", 10, 15, &ProfileValues::rawData4, "raw timing data, byte 5"},
});
// clang-format on

inline constexpr int kFirstProfileLine = 6;
inline constexpr int kLastProfileLine = 10;

consteval bool ProfileFieldsRiseByPlace() {
    for (std::size_t i = 1; i < kProfileFields.size(); ++i) {
        const ProfileField& a = kProfileFields[i - 1];
        const ProfileField& b = kProfileFields[i];
        if (a.line > b.line || (a.line == b.line && a.token >= b.token))
            return false;
    }
    return true;
}
static_assert(kProfileFields.size() == 68);
static_assert(ProfileFieldsRiseByPlace());

// The row of a value; the pointer must be one of the table's.
constexpr const ProfileField& FieldOf(std::int32_t ProfileValues::*value) {
    return *std::find_if(kProfileFields.begin(), kProfileFields.end(),
                         [value](const ProfileField& field) { return field.value == value; });
}

}  // namespace tovarek
