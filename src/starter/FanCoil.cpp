#include "starter/Starter.h"

namespace tovarek {
namespace {

constexpr StarterVariable kFanCoilVariables[] = {
    {"nviRequest", 0, 92, "@0|1"},
    {"nvoStatus", 1, 93, "@0|2"},
    {"nviSpaceTemp", 0, 105, "@1|1"},
    {"nviSetpoint", 0, 105, "@1|2"},
    {"nvoSpaceTemp", 1, 105, "@1|3"},
    {"nvoUnitStatus", 1, 112, "@1|4"},
    {"nviWindow", 0, 95, "@1#1;Window contacts", 4},
    {"nviFanMode", 0, 300, "@1#2;Fan mode from the room unit", 0, 1},
    {"nvoFanSpeed", 1, 95, "@1#3;Speed of the fan"},
    {"nvoHeatValve", 1, 81, "@1#4;Opening of the heating valve"},
    {"nvoCoolValve", 1, 81, "@1#5;Opening of the cooling valve"},
};

constexpr StarterProperty kFanCoilProperties[] = {
    {"cpLocation", R"(0,,0\x80,17,31;)", "526F6F6D203100000000000000000000000000000000000000000000000000"},
    {"cpMaxSendTime", R"(1,1,0\x80,49,2;)", "0258"},
    {"cpSetPoints", R"(1,1,0\x80,60,12;)", "08FC09C40AF00834076C0640"},
    {"cpMinDeltaTemp", R"(2,4,0\x80,64,2;)", "0014"},
    {"cpFanLevels", R"(1,1,3\x80,1,1,3;)", "19324B"},
    {"cpStartFanMode", R"(1,1,6\x80,1,1;)", "04", 300, "00", "04"},
};

constexpr std::string_view kFanCoilTypes = R"(<TYPES>
  <!-- Types of the device's own, by number. Nothing may stand in front of TYPES. -->

  <!-- fan mode: the type of nviFanMode and of cpStartFanMode -->
  <SNVT_300>
    <TYPE>ENUM</TYPE>
    <NAME>fanMode</NAME>
    <LONGNAME>Fan mode</LONGNAME>
    <ENUMS>
      <FM_OFF>0</FM_OFF>
      <FM_LOW>1</FM_LOW>
      <FM_MEDIUM>2</FM_MEDIUM>
      <FM_HIGH>3</FM_HIGH>
      <FM_AUTO>4</FM_AUTO>
      <FM_NUL>-1</FM_NUL>
    </ENUMS>
  </SNVT_300>

  <!-- level of the fan, of the property type in user-types.xml: value = A_COEF x 10^B_COEF x raw -->
  <SNVT_301>
    <TYPE>UNSIGNEDNUMERIC</TYPE>
    <NAME>fanLevel</NAME>
    <LENGTH>1</LENGTH>
    <MIN>0</MIN>
    <MAX>100</MAX>
    <A_COEF>1</A_COEF>
    <B_COEF>0</B_COEF>
    <UNIT>%</UNIT>
    <LONGNAME>Level of the fan</LONGNAME>
  </SNVT_301>
</TYPES>
)";

}  // namespace

constexpr Starter kFanCoilStarter = {.name = "fan-coil",
                                     .title = "fan-coil unit controller",
                                     .programId = "9FFFFF5501030401",
                                     .selfDocumentation = "&3.0@0Node,8501FanCoil;Fan-coil unit controller",
                                     .tag = "serviceTag",
                                     .variables = kFanCoilVariables,
                                     .properties = kFanCoilProperties,
                                     .formatFile = kFanCoilTypes,
                                     .makersType = {"fanLevel", 301, "00", "64", "32"}};

}  // namespace tovarek
