#include "profile/ProfileRules.h"

#include <limits>

namespace tovarek {
namespace {

constexpr std::int32_t kNoLimit = std::numeric_limits<std::int32_t>::max();

template <auto Field, std::int32_t Low, std::int32_t High>
constexpr bool Within(const ProfileValues& profile) {
    return profile.*Field >= Low && profile.*Field <= High;
}

template <auto Field>
constexpr ProfileRule Flag(eErrors error) {
    return {Field, Within<Field, 0, 1>, error, "0 or 1"};
}

template <auto Field>
constexpr ProfileRule NotNegative(eErrors error) {
    return {Field, Within<Field, 0, kNoLimit>, error, "0 and above"};
}

// Counts and sizes of buffers are stored in their 4-bit encoded form.
template <auto Field>
constexpr ProfileRule Buffer() {
    return {Field, Within<Field, 0, 15>, eQVXIFerr_buffers,
            "0 to 15, the encoded form of a buffer count or size"};
}

template <auto Field>
constexpr ProfileRule ClockRate(eErrors error) {
    return {Field, Within<Field, 1, 7>, error, "1 to 7 (4, 5, 6, 7 = 5, 10, 20, 40 MHz)"};
}

// Deliberate: each of generalData1 to generalData6 is only bounded below and checked together with the upper
// bound of generalData0, which in turn has no lower bound. Profiles in the field rely on both.
template <auto Field>
constexpr ProfileRule GeneralData() {
    return {Field,
            [](const ProfileValues& profile) { return profile.*Field >= 0 && profile.generalData0 <= 255; },
            eQVXIFerr_generalData, "generalData0 up to 255, generalData1 to generalData6 from 0",
            &ProfileValues::generalData0};
}

template <auto Field>
constexpr ProfileRule RawData() {
    return {Field, Within<Field, 0, 255>, eQVXIFerr_rawData, "0 to 255"};
}

using P = ProfileValues;

constexpr ProfileRule kRules[] = {
    {&P::domains, Within<&P::domains, 1, 2>, eQVXIFerr_domainnumber, "1 or 2"},
    {&P::addresses, Within<&P::addresses, 0, 15>, eQVXIFerr_addrnumber, "0 to 15"},
    Flag<&P::handleIncomingMessages>(eQVXIFerr_handleIncomingMessages),
    {&P::applicationtype, Within<&P::applicationtype, 0, 4>, eQVXIFerr_applicationtype,
     "0 to 4; the application types from 5 on, which current development tools write, do not exist in an "
     "interface file of version 4.0"},
    NotNegative<&P::nvConfigurationTableSizeForMIP>(eQVXIFerr_nvConfigurationTableSizeForMIP),
    NotNegative<&P::numberReceiveTransactions>(eQVXIFerr_numberReceiveTransactions),
    {&P::numberAliases, Within<&P::numberAliases, 0, 4096>, eQVXIFerr_numberAliases, "0 to 4096"},
    Flag<&P::supportRelaxedBinding>(eQVXIFerr_supportRelaxedBinding),
    Flag<&P::statisticsRelativeAllowed>(eQVXIFerr_statisticsRelativeAllowed),
    NotNegative<&P::maximumSizeMemoryBlock>(eQVXIFerr_maximumSizeMemoryBlock),
    Buffer<&P::numbernetworkinputbuffers>(),
    Buffer<&P::numbernetworkoutputbuffers>(),
    Buffer<&P::numberprioritynetworkbuffers>(),
    Buffer<&P::numberpriorityapplicationbuffers>(),
    Buffer<&P::numberapplicationoutputbuffers>(),
    Buffer<&P::numberapplicationinputbuffers>(),
    Buffer<&P::sizenetworkinputbuffers>(),
    Buffer<&P::sizenetworkoutputbuffers>(),
    Buffer<&P::sizeapplicationoutputbuffers>(),
    Buffer<&P::sizeapplicationinputbuffers>(),
    {&P::typeneuron,
     [](const ProfileValues& profile) {
         return profile.typeneuron == 0 || (profile.typeneuron >= 8 && profile.typeneuron <= 14);
     },
     eQVXIFerr_typeneuron,
     "0 and 8 to 14; newer chips (15 and above) and host stacks (115), which current development "
     "tools write, do not exist in an interface file of version 4.0"},
    ClockRate<&P::protocolClockRate>(eQVXIFerr_protocolClockRate),
    NotNegative<&P::firmware>(eQVXIFerr_firmware),
    NotNegative<&P::receiveTransBlockSize>(eQVXIFerr_receiveTransBlockSize),
    NotNegative<&P::transControlBlockSize>(eQVXIFerr_transControlBlockSize),
    NotNegative<&P::onChipRAM>(eQVXIFerr_onChipRAM),
    NotNegative<&P::offChipRAM>(eQVXIFerr_offChipRAM),
    NotNegative<&P::domainEntrySize>(eQVXIFerr_domainEntrySize),
    NotNegative<&P::addressEntrySize>(eQVXIFerr_addressEntrySize),
    NotNegative<&P::nvConfigurationEntrySize>(eQVXIFerr_nvConfigurationEntrySize),
    NotNegative<&P::eepromSizeStartEEPROM>(eQVXIFerr_eepromSizeStartEEPROM),
    NotNegative<&P::aliasTableEntrySize>(eQVXIFerr_aliasTableEntrySize),
    Flag<&P::standardTransceiver>(eQVXIFerr_standardTransceiver),
    NotNegative<&P::standardTransceiverID>(eQVXIFerr_standardTransceiverID),
    // Deliberate: every interface passes. The rule asks for a number that is below 0 and above 2 at once.
    {&P::transceiverInterface,
     [](const ProfileValues& profile) {
         const std::int32_t value = profile.transceiverInterface;
         const bool below = value < 0;
         const bool above = value > 2 && value != 5;
         return !(below && above);
     },
     eQVXIFerr_transceiverInterface, "every value"},
    {&P::transceiverRate, Within<&P::transceiverRate, 0, 11>, eQVXIFerr_transceiverRate, "0 to 11"},
    {&P::channelPrioritySlots, Within<&P::channelPrioritySlots, 0, 127>, eQVXIFerr_channelPrioritySlots,
     "0 to 127"},
    // Deliberate: the upper bound looks at transceiverRate; minimumClockRate itself has none.
    {&P::minimumClockRate,
     [](const ProfileValues& profile) {
         return profile.minimumClockRate >= 0 && profile.transceiverRate <= 11;
     },
     eQVXIFerr_minimumClockRate, "0 and above, beside a transceiverRate up to 11",
     &ProfileValues::transceiverRate},
    NotNegative<&P::averagePacketSize>(eQVXIFerr_averagePacketSize),
    NotNegative<&P::oscillatorPrecision>(eQVXIFerr_oscillatorPrecision),
    NotNegative<&P::oscillatorWakeupTime>(eQVXIFerr_oscillatorWakeupTime),
    NotNegative<&P::channelBitsRate>(eQVXIFerr_channelBitsRate),
    NotNegative<&P::alternateBitsRate>(eQVXIFerr_alternateBitsRate),
    Flag<&P::controlPreamble>(eQVXIFerr_controlPreamble),
    Flag<&P::wakeupPinDir>(eQVXIFerr_wakeupPinDir),
    Flag<&P::generalPurposeOverride>(eQVXIFerr_generalPurposeOverride),
    GeneralData<&P::generalData1>(),
    GeneralData<&P::generalData2>(),
    GeneralData<&P::generalData3>(),
    GeneralData<&P::generalData4>(),
    GeneralData<&P::generalData5>(),
    GeneralData<&P::generalData6>(),
    NotNegative<&P::receiveStartDelay>(eQVXIFerr_receiveStartDelay),
    NotNegative<&P::receiveEndDelay>(eQVXIFerr_receiveEndDelay),
    NotNegative<&P::indeterminateTime>(eQVXIFerr_indeterminateTime),
    NotNegative<&P::minimumInterPacketTime>(eQVXIFerr_minimumInterPacketTime),
    NotNegative<&P::preambleLength>(eQVXIFerr_preambleLength),
    NotNegative<&P::turnaroundTime>(eQVXIFerr_turnaroundTime),
    NotNegative<&P::missedPreambleTime>(eQVXIFerr_missedPreambleTime),
    NotNegative<&P::packetQualificationTime>(eQVXIFerr_packetQualificationTime),
    Flag<&P::dataOverrideTiming>(eQVXIFerr_dataOverrideTiming),
    ClockRate<&P::rawDataClockRate>(eQVXIFerr_rawDataClockRate),
    RawData<&P::rawData0>(),
    RawData<&P::rawData1>(),
    RawData<&P::rawData2>(),
    RawData<&P::rawData3>(),
    RawData<&P::rawData4>(),
};

}  // namespace

std::span<const ProfileRule> ProfileRules() {
    return kRules;
}

std::int32_t ProfileValues::*FaultyField(const ProfileRule& rule, const ProfileValues& profile) {
    return rule.upperBound != nullptr && profile.*rule.field >= 0 ? rule.upperBound : rule.field;
}

}  // namespace tovarek
