#include "starter/Starter.h"

namespace tovarek {
namespace {

constexpr StarterVariable kSensorVariables[] = {
    {"nviRequest", 0, 92, "@0|1"},
    {"nvoStatus", 1, 93, "@0|2"},
    {"nvoTemp", 1, 105, "@1|1"},
    {"nvoHumidity", 1, 81, "@2|1"},
    {"nvoCO2", 1, 29, "@3|1"},
    {"nvoLux", 1, 79, "@4|1"},
    {"nvoOccup", 1, 109, "@5|1"},
    {"nvoZoneOccup", 1, 109, "@5#1;Occupancy by the four detectors", 4},
    {"nvoAirQuality", 1, 300, "@3#1;Quality of the air", 0, 5},
};

constexpr StarterProperty kSensorProperties[] = {
    {"cpLocation", R"(0,,0\x80,17,31;)", "526F6F6D203100000000000000000000000000000000000000000000000000"},
    {"cpMaxSendTime", R"(1,1.2.3.4.5,0\x80,49,2;)", "0258"},
    {"cpOffsetTemp", R"(1,1,0\x80,70,2;)", "0000"},
    {"cpMinDeltaTemp", R"(2,2,0\x80,64,2;)", "0014"},
    {"cpDetectorGain", R"(1,5,3\x80,1,1,4;)", "64646464"},
    {"cpAlarmGrade", R"(1,3,6\x80,1,1;)", "02", 301, "00", "02"},
};

constexpr std::string_view kSensorTypes = R"(<TYPES>
  <!-- Types of the device's own, by number. Nothing may stand in front of TYPES. -->

  <!-- standard types that a structure uses: the catalog has the rest -->
  <SNVT_29><TYPE>UNSIGNEDNUMERIC</TYPE></SNVT_29>
  <SNVT_81><TYPE>SIGNEDNUMERIC</TYPE></SNVT_81>

  <!-- air quality, the type of nvoAirQuality: each member has the number of its type -->
  <SNVT_300>
    <TYPE>STRUCT</TYPE>
    <NAME>airQuality</NAME>
    <LONGNAME>Quality of the air</LONGNAME>
    <FIELDS>
      <grade>301</grade>
      <co2>29</co2>
      <humidity>81</humidity>
    </FIELDS>
  </SNVT_300>

  <!-- its grade, also the type of cpAlarmGrade -->
  <SNVT_301>
    <TYPE>ENUM</TYPE>
    <NAME>airGrade</NAME>
    <LONGNAME>Grade of the air</LONGNAME>
    <ENUMS>
      <AG_GOOD>0</AG_GOOD>
      <AG_FAIR>1</AG_FAIR>
      <AG_POOR>2</AG_POOR>
      <AG_NUL>-1</AG_NUL>
    </ENUMS>
  </SNVT_301>

  <!-- gain of a detector, of the property type in user-types.xml: value = A_COEF x 10^B_COEF x raw -->
  <SNVT_302>
    <TYPE>UNSIGNEDNUMERIC</TYPE>
    <NAME>detectorGain</NAME>
    <LENGTH>1</LENGTH>
    <MIN>0</MIN>
    <MAX>200</MAX>
    <A_COEF>1</A_COEF>
    <B_COEF>0</B_COEF>
    <UNIT>%</UNIT>
    <LONGNAME>Gain of a detector</LONGNAME>
  </SNVT_302>
</TYPES>
)";

}  // namespace

constexpr Starter kSensorStarter = {
    .name = "sensor",
    .title = "room sensor for temperature, humidity, CO2, light and occupancy",
    .programId = "9FFFFF0A28030401",
    .selfDocumentation =
        "&3.0@0Node,1040Temperature,1050Humidity,1070CO2,1010Light,1060Occupancy;Room sensor",
    .tag = "serviceTag",
    .variables = kSensorVariables,
    .properties = kSensorProperties,
    .formatFile = kSensorTypes,
    .makersType = {"detectorGain", 302, "00", "C8", "64"}};

}  // namespace tovarek
