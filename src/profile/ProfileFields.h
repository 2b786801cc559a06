// The table of the profile's values. All loaders and the writer work from it.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "profile/CProfile.h"

namespace tovarek {

struct ProfileField {
    std::string_view name;    // in upper case it is the XML element name
    std::string_view iniKey;  // in the INI section "Line<line>"; equal to the name but for typeNeuron
    int line;                 // XIF header line, 6 to 10; the XML element "XIF_LINE<line>"
    int token;                // 1-based place among the numbers of that line
    std::int32_t CProfile::*value;
};

// In the order of the XIF file. The places that are missing are no values of the profile: 6/4, 6/5 and 6/23
// come from the application template, 8/3 is a constant.
// clang-format off
inline constexpr auto kProfileFields = std::to_array<ProfileField>({
    {"domains", "domains", 6, 1, &CProfile::domains},
    {"addresses", "addresses", 6, 2, &CProfile::addresses},
    {"handleIncomingMessages", "handleIncomingMessages", 6, 3, &CProfile::handleIncomingMessages},
    {"numbernetworkinputbuffers", "numbernetworkinputbuffers", 6, 6, &CProfile::numbernetworkinputbuffers},
    {"numbernetworkoutputbuffers", "numbernetworkoutputbuffers", 6, 7, &CProfile::numbernetworkoutputbuffers},
    {"numberprioritynetworkbuffers", "numberprioritynetworkbuffers", 6, 8, &CProfile::numberprioritynetworkbuffers},
    {"numberpriorityapplicationbuffers", "numberpriorityapplicationbuffers", 6, 9, &CProfile::numberpriorityapplicationbuffers},
    {"numberapplicationoutputbuffers", "numberapplicationoutputbuffers", 6, 10, &CProfile::numberapplicationoutputbuffers},
    {"numberapplicationinputbuffers", "numberapplicationinputbuffers", 6, 11, &CProfile::numberapplicationinputbuffers},
    {"sizenetworkinputbuffers", "sizenetworkinputbuffers", 6, 12, &CProfile::sizenetworkinputbuffers},
    {"sizenetworkoutputbuffers", "sizenetworkoutputbuffers", 6, 13, &CProfile::sizenetworkoutputbuffers},
    {"sizeapplicationoutputbuffers", "sizeapplicationoutputbuffers", 6, 14, &CProfile::sizeapplicationoutputbuffers},
    {"sizeapplicationinputbuffers", "sizeapplicationinputbuffers", 6, 15, &CProfile::sizeapplicationinputbuffers},
    {"applicationtype", "applicationtype", 6, 16, &CProfile::applicationtype},
    {"nvConfigurationTableSizeForMIP", "nvConfigurationTableSizeForMIP", 6, 17, &CProfile::nvConfigurationTableSizeForMIP},
    {"numberReceiveTransactions", "numberReceiveTransactions", 6, 18, &CProfile::numberReceiveTransactions},
    {"numberAliases", "numberAliases", 6, 19, &CProfile::numberAliases},
    {"supportRelaxedBinding", "supportRelaxedBinding", 6, 20, &CProfile::supportRelaxedBinding},
    {"statisticsRelativeAllowed", "statisticsRelativeAllowed", 6, 21, &CProfile::statisticsRelativeAllowed},
    {"maximumSizeMemoryBlock", "maximumSizeMemoryBlock", 6, 22, &CProfile::maximumSizeMemoryBlock},
    {"typeneuron", "typeNeuron", 7, 1, &CProfile::typeneuron},
    {"protocolClockRate", "protocolClockRate", 7, 2, &CProfile::protocolClockRate},
    {"firmware", "firmware", 7, 3, &CProfile::firmware},
    {"receiveTransBlockSize", "receiveTransBlockSize", 7, 4, &CProfile::receiveTransBlockSize},
    {"transControlBlockSize", "transControlBlockSize", 7, 5, &CProfile::transControlBlockSize},
    {"onChipRAM", "onChipRAM", 7, 6, &CProfile::onChipRAM},
    {"offChipRAM", "offChipRAM", 7, 7, &CProfile::offChipRAM},
    {"domainEntrySize", "domainEntrySize", 7, 8, &CProfile::domainEntrySize},
    {"addressEntrySize", "addressEntrySize", 7, 9, &CProfile::addressEntrySize},
    {"nvConfigurationEntrySize", "nvConfigurationEntrySize", 7, 10, &CProfile::nvConfigurationEntrySize},
    {"eepromSizeStartEEPROM", "eepromSizeStartEEPROM", 7, 11, &CProfile::eepromSizeStartEEPROM},
    {"aliasTableEntrySize", "aliasTableEntrySize", 7, 12, &CProfile::aliasTableEntrySize},
    {"standardTransceiver", "standardTransceiver", 8, 1, &CProfile::standardTransceiver},
    {"standardTransceiverID", "standardTransceiverID", 8, 2, &CProfile::standardTransceiverID},
    {"transceiverInterface", "transceiverInterface", 8, 4, &CProfile::transceiverInterface},
    {"transceiverRate", "transceiverRate", 8, 5, &CProfile::transceiverRate},
    {"channelPrioritySlots", "channelPrioritySlots", 8, 6, &CProfile::channelPrioritySlots},
    {"minimumClockRate", "minimumClockRate", 8, 7, &CProfile::minimumClockRate},
    {"averagePacketSize", "averagePacketSize", 8, 8, &CProfile::averagePacketSize},
    {"oscillatorPrecision", "oscillatorPrecision", 8, 9, &CProfile::oscillatorPrecision},
    {"oscillatorWakeupTime", "oscillatorWakeupTime", 8, 10, &CProfile::oscillatorWakeupTime},
    {"channelBitsRate", "channelBitsRate", 9, 1, &CProfile::channelBitsRate},
    {"alternateBitsRate", "alternateBitsRate", 9, 2, &CProfile::alternateBitsRate},
    {"controlPreamble", "controlPreamble", 9, 3, &CProfile::controlPreamble},
    {"wakeupPinDir", "wakeupPinDir", 9, 4, &CProfile::wakeupPinDir},
    {"generalPurposeOverride", "generalPurposeOverride", 9, 5, &CProfile::generalPurposeOverride},
    {"generalData0", "generalData0", 9, 6, &CProfile::generalData0},
    {"generalData1", "generalData1", 9, 7, &CProfile::generalData1},
    {"generalData2", "generalData2", 9, 8, &CProfile::generalData2},
    {"generalData3", "generalData3", 9, 9, &CProfile::generalData3},
    {"generalData4", "generalData4", 9, 10, &CProfile::generalData4},
    {"generalData5", "generalData5", 9, 11, &CProfile::generalData5},
    {"generalData6", "generalData6", 9, 12, &CProfile::generalData6},
    {"receiveStartDelay", "receiveStartDelay", 10, 1, &CProfile::receiveStartDelay},
    {"receiveEndDelay", "receiveEndDelay", 10, 2, &CProfile::receiveEndDelay},
    {"indeterminateTime", "indeterminateTime", 10, 3, &CProfile::indeterminateTime},
    {"minimumInterPacketTime", "minimumInterPacketTime", 10, 4, &CProfile::minimumInterPacketTime},
    {"preambleLength", "preambleLength", 10, 5, &CProfile::preambleLength},
    {"turnaroundTime", "turnaroundTime", 10, 6, &CProfile::turnaroundTime},
    {"missedPreambleTime", "missedPreambleTime", 10, 7, &CProfile::missedPreambleTime},
    {"packetQualificationTime", "packetQualificationTime", 10, 8, &CProfile::packetQualificationTime},
    {"dataOverrideTiming", "dataOverrideTiming", 10, 9, &CProfile::dataOverrideTiming},
    {"rawDataClockRate", "rawDataClockRate", 10, 10, &CProfile::rawDataClockRate},
    {"rawData0", "rawData0", 10, 11, &CProfile::rawData0},
    {"rawData1", "rawData1", 10, 12, &CProfile::rawData1},
    {"rawData2", "rawData2", 10, 13, &CProfile::rawData2},
    {"rawData3", "rawData3", 10, 14, &CProfile::rawData3},
    {"rawData4", "rawData4", 10, 15, &CProfile::rawData4},
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
constexpr const ProfileField& FieldOf(std::int32_t CProfile::*value) {
    for (const ProfileField& field : kProfileFields)
        if (field.value == value)
            return field;
    return kProfileFields.front();
}

}  // namespace tovarek
