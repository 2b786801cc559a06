// The table of the profile's values. All loaders and the writer work from it.
#pragma once

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
};

// In the order of the XIF file. The places that are missing are no values of the profile: 6/4, 6/5 and 6/23
// come from the application template, 8/3 is a constant.
// clang-format off
inline constexpr auto kProfileFields = std::to_array<ProfileField>({
    {"domains", "domains", 6, 1, &ProfileValues::domains},
    {"addresses", "addresses", 6, 2, &ProfileValues::addresses},
    {"handleIncomingMessages", "handleIncomingMessages", 6, 3, &ProfileValues::handleIncomingMessages},
    {"numbernetworkinputbuffers", "numbernetworkinputbuffers", 6, 6, &ProfileValues::numbernetworkinputbuffers},
    {"numbernetworkoutputbuffers", "numbernetworkoutputbuffers", 6, 7, &ProfileValues::numbernetworkoutputbuffers},
    {"numberprioritynetworkbuffers", "numberprioritynetworkbuffers", 6, 8, &ProfileValues::numberprioritynetworkbuffers},
    {"numberpriorityapplicationbuffers", "numberpriorityapplicationbuffers", 6, 9, &ProfileValues::numberpriorityapplicationbuffers},
    {"numberapplicationoutputbuffers", "numberapplicationoutputbuffers", 6, 10, &ProfileValues::numberapplicationoutputbuffers},
    {"numberapplicationinputbuffers", "numberapplicationinputbuffers", 6, 11, &ProfileValues::numberapplicationinputbuffers},
    {"sizenetworkinputbuffers", "sizenetworkinputbuffers", 6, 12, &ProfileValues::sizenetworkinputbuffers},
    {"sizenetworkoutputbuffers", "sizenetworkoutputbuffers", 6, 13, &ProfileValues::sizenetworkoutputbuffers},
    {"sizeapplicationoutputbuffers", "sizeapplicationoutputbuffers", 6, 14, &ProfileValues::sizeapplicationoutputbuffers},
    {"sizeapplicationinputbuffers", "sizeapplicationinputbuffers", 6, 15, &ProfileValues::sizeapplicationinputbuffers},
    {"applicationtype", "applicationtype", 6, 16, &ProfileValues::applicationtype},
    {"nvConfigurationTableSizeForMIP", "nvConfigurationTableSizeForMIP", 6, 17, &ProfileValues::nvConfigurationTableSizeForMIP},
    {"numberReceiveTransactions", "numberReceiveTransactions", 6, 18, &ProfileValues::numberReceiveTransactions},
    {"numberAliases", "numberAliases", 6, 19, &ProfileValues::numberAliases},
    {"supportRelaxedBinding", "supportRelaxedBinding", 6, 20, &ProfileValues::supportRelaxedBinding},
    {"statisticsRelativeAllowed", "statisticsRelativeAllowed", 6, 21, &ProfileValues::statisticsRelativeAllowed},
    {"maximumSizeMemoryBlock", "maximumSizeMemoryBlock", 6, 22, &ProfileValues::maximumSizeMemoryBlock},
    {"typeneuron", "typeNeuron", 7, 1, &ProfileValues::typeneuron},
    {"protocolClockRate", "protocolClockRate", 7, 2, &ProfileValues::protocolClockRate},
    {"firmware", "firmware", 7, 3, &ProfileValues::firmware},
    {"receiveTransBlockSize", "receiveTransBlockSize", 7, 4, &ProfileValues::receiveTransBlockSize},
    {"transControlBlockSize", "transControlBlockSize", 7, 5, &ProfileValues::transControlBlockSize},
    {"onChipRAM", "onChipRAM", 7, 6, &ProfileValues::onChipRAM},
    {"offChipRAM", "offChipRAM", 7, 7, &ProfileValues::offChipRAM},
    {"domainEntrySize", "domainEntrySize", 7, 8, &ProfileValues::domainEntrySize},
    {"addressEntrySize", "addressEntrySize", 7, 9, &ProfileValues::addressEntrySize},
    {"nvConfigurationEntrySize", "nvConfigurationEntrySize", 7, 10, &ProfileValues::nvConfigurationEntrySize},
    {"eepromSizeStartEEPROM", "eepromSizeStartEEPROM", 7, 11, &ProfileValues::eepromSizeStartEEPROM},
    {"aliasTableEntrySize", "aliasTableEntrySize", 7, 12, &ProfileValues::aliasTableEntrySize},
    {"standardTransceiver", "standardTransceiver", 8, 1, &ProfileValues::standardTransceiver},
    {"standardTransceiverID", "standardTransceiverID", 8, 2, &ProfileValues::standardTransceiverID},
    {"transceiverInterface", "transceiverInterface", 8, 4, &ProfileValues::transceiverInterface},
    {"transceiverRate", "transceiverRate", 8, 5, &ProfileValues::transceiverRate},
    {"channelPrioritySlots", "channelPrioritySlots", 8, 6, &ProfileValues::channelPrioritySlots},
    {"minimumClockRate", "minimumClockRate", 8, 7, &ProfileValues::minimumClockRate},
    {"averagePacketSize", "averagePacketSize", 8, 8, &ProfileValues::averagePacketSize},
    {"oscillatorPrecision", "oscillatorPrecision", 8, 9, &ProfileValues::oscillatorPrecision},
    {"oscillatorWakeupTime", "oscillatorWakeupTime", 8, 10, &ProfileValues::oscillatorWakeupTime},
    {"channelBitsRate", "channelBitsRate", 9, 1, &ProfileValues::channelBitsRate},
    {"alternateBitsRate", "alternateBitsRate", 9, 2, &ProfileValues::alternateBitsRate},
    {"controlPreamble", "controlPreamble", 9, 3, &ProfileValues::controlPreamble},
    {"wakeupPinDir", "wakeupPinDir", 9, 4, &ProfileValues::wakeupPinDir},
    {"generalPurposeOverride", "generalPurposeOverride", 9, 5, &ProfileValues::generalPurposeOverride},
    {"generalData0", "generalData0", 9, 6, &ProfileValues::generalData0},
    {"generalData1", "generalData1", 9, 7, &ProfileValues::generalData1},
    {"generalData2", "generalData2", 9, 8, &ProfileValues::generalData2},
    {"generalData3", "generalData3", 9, 9, &ProfileValues::generalData3},
    {"generalData4", "generalData4", 9, 10, &ProfileValues::generalData4},
    {"generalData5", "generalData5", 9, 11, &ProfileValues::generalData5},
    {"generalData6", "generalData6", 9, 12, &ProfileValues::generalData6},
    {"receiveStartDelay", "receiveStartDelay", 10, 1, &ProfileValues::receiveStartDelay},
    {"receiveEndDelay", "receiveEndDelay", 10, 2, &ProfileValues::receiveEndDelay},
    {"indeterminateTime", "indeterminateTime", 10, 3, &ProfileValues::indeterminateTime},
    {"minimumInterPacketTime", "minimumInterPacketTime", 10, 4, &ProfileValues::minimumInterPacketTime},
    {"preambleLength", "preambleLength", 10, 5, &ProfileValues::preambleLength},
    {"turnaroundTime", "turnaroundTime", 10, 6, &ProfileValues::turnaroundTime},
    {"missedPreambleTime", "missedPreambleTime", 10, 7, &ProfileValues::missedPreambleTime},
    {"packetQualificationTime", "packetQualificationTime", 10, 8, &ProfileValues::packetQualificationTime},
    {"dataOverrideTiming", "dataOverrideTiming", 10, 9, &ProfileValues::dataOverrideTiming},
    {"rawDataClockRate", "rawDataClockRate", 10, 10, &ProfileValues::rawDataClockRate},
    {"rawData0", "rawData0", 10, 11, &ProfileValues::rawData0},
    {"rawData1", "rawData1", 10, 12, &ProfileValues::rawData1},
    {"rawData2", "rawData2", 10, 13, &ProfileValues::rawData2},
    {"rawData3", "rawData3", 10, 14, &ProfileValues::rawData3},
    {"rawData4", "rawData4", 10, 15, &ProfileValues::rawData4},
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
    for (const ProfileField& field : kProfileFields)
        if (field.value == value)
            return field;
    return kProfileFields.front();
}

}  // namespace tovarek
