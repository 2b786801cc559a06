// The numbers on the parameter lines of an XIF file, by line and place.
#pragma once

#include <array>
#include <span>
#include <string_view>

namespace tovarek {

// How a number is to be read: as it is, or as the code of a buffer count or size.
enum class XifCode { none, count, size };

struct XifParameterName {
    std::string_view name;
    XifCode code = XifCode::none;
};

inline constexpr std::array<XifParameterName, 23> kXifLine6 = {{
    {"domains"},
    {"addresses"},
    {"handlesIncomingMessages"},
    {"staticNetworkVariables"},
    {"messageTags"},
    {"networkInputBuffers", XifCode::count},
    {"networkOutputBuffers", XifCode::count},
    {"priorityNetworkOutputBuffers", XifCode::count},
    {"priorityApplicationOutputBuffers", XifCode::count},
    {"applicationOutputBuffers", XifCode::count},
    {"applicationInputBuffers", XifCode::count},
    {"networkInputBufferSize", XifCode::size},
    {"networkOutputBufferSize", XifCode::size},
    {"applicationOutputBufferSize", XifCode::size},
    {"applicationInputBufferSize", XifCode::size},
    {"applicationType"},
    {"networkInterfaceVariables"},
    {"receiveTransactions"},
    {"aliases"},
    {"relaxedBinding"},
    {"statisticsRelativeAddressing"},
    {"largestMemoryWrite"},
    {"maximumNetworkVariables"},
}};

inline constexpr std::array<XifParameterName, 12> kXifLine7 = {{
    {"neuronType"},
    {"clockCode"},
    {"firmware"},
    {"receiveTransactionSize"},
    {"transactionControlBlockSize"},
    {"freeOnChipRam"},
    {"freeOffChipRam"},
    {"domainEntrySize"},
    {"addressEntrySize"},
    {"variableConfigurationEntrySize"},
    {"domainTableToUserEeprom"},
    {"aliasEntrySize"},
}};

inline constexpr std::array<XifParameterName, 10> kXifLine8 = {{
    {"standardTransceiver"},
    {"standardTransceiverId"},
    {"transceiverType"},
    {"transceiverInterface"},
    {"interfaceRateCode"},
    {"prioritySlots"},
    {"minimumClockCode"},
    {"averagePacketSize"},
    {"oscillatorAccuracy"},
    {"oscillatorWakeUpTime"},
}};

inline constexpr std::array<XifParameterName, 12> kXifLine9 = {{
    {"bitRate"},
    {"specialBitRate"},
    {"specialPreambleControl"},
    {"wakeUpPinDirection"},
    {"overridesGeneralPurposeData"},
    {"generalPurposeData1"},
    {"generalPurposeData2"},
    {"generalPurposeData3"},
    {"generalPurposeData4"},
    {"generalPurposeData5"},
    {"generalPurposeData6"},
    {"generalPurposeData7"},
}};

inline constexpr std::array<XifParameterName, 15> kXifLine10 = {{
    {"receiveStartDelay"},
    {"receiveEndDelay"},
    {"indeterminateTime"},
    {"minimumInterpacketTime"},
    {"preambleLength"},
    {"turnaroundTime"},
    {"missedPreambleTime"},
    {"packetQualificationTime"},
    {"overridesRawData"},
    {"rawDataClockCode"},
    {"rawData1"},
    {"rawData2"},
    {"rawData3"},
    {"rawData4"},
    {"rawData5"},
}};

// The names of a line's numbers; later versions of the format have more numbers than names.
constexpr std::span<const XifParameterName> XifParameterNames(int line) {
    switch (line) {
        case 6:
            return kXifLine6;
        case 7:
            return kXifLine7;
        case 8:
            return kXifLine8;
        case 9:
            return kXifLine9;
        case 10:
            return kXifLine10;
        default:
            return {};
    }
}

}  // namespace tovarek
