#include "starter/Starter.h"

namespace tovarek {
namespace {

constexpr StarterVariable kSwitchVariables[] = {
    {"nviRequest", 0, 92, "@0|1"},
    {"nvoStatus", 1, 93, "@0|2"},
    {"nvoSwitch1", 1, 95, "@1|1"},
    {"nviSwitch1Fb", 0, 95, "@1|2"},
    {"nvoSwitch2", 1, 95, "@2|1"},
    {"nviSwitch2Fb", 0, 95, "@2|2"},
    {"nviLampValue", 0, 95, "@3|1"},
    {"nvoLampValueFb", 1, 95, "@3|2"},
    {"nviLight", 0, 95, "@0#1;Indicator lights of the buttons", 2},
    {"nvoButton", 1, 300, "@0#2;The button that was pressed last", 0, 2},
};

constexpr StarterProperty kSwitchProperties[] = {
    {"cpLocation", R"(0,,0\x80,17,31;)", "526F6F6D203100000000000000000000000000000000000000000000000000"},
    {"cpStepValue", R"(1,1.2,0\x80,92,1;)", "14"},
    {"cpMaxOut", R"(1,3,0\x80,93,1;)", "C8"},
    {"cpMaxSendTime", R"(2,7,0\x80,49,2;)", "0258"},
    {"cpHoldTimes", R"(1,0,3\x80,1,1,2;)", "0505"},
    {"cpSentAction", R"(1,0,6\x80,1,1;)", "01", 302, "00", "02"},
};

constexpr std::string_view kSwitchTypes = R"(<TYPES>
  <!-- Types of the device's own, by number. Nothing may stand in front of TYPES. -->

  <!-- a pressed button, the type of nvoButton: each member has the number of its type -->
  <SNVT_300>
    <TYPE>STRUCT</TYPE>
    <NAME>buttonEvent</NAME>
    <LONGNAME>A pressed button</LONGNAME>
    <FIELDS>
      <button>301</button>
      <action>302</action>
    </FIELDS>
  </SNVT_300>
  <SNVT_301>
    <TYPE>UNSIGNEDNUMERIC</TYPE>
    <LENGTH>1</LENGTH>
    <MIN>1</MIN>
    <MAX>2</MAX>
  </SNVT_301>

  <!-- how it was pressed, also the type of cpSentAction -->
  <SNVT_302>
    <TYPE>ENUM</TYPE>
    <NAME>buttonAction</NAME>
    <LONGNAME>How a button was pressed</LONGNAME>
    <ENUMS>
      <BA_RELEASED>0</BA_RELEASED>
      <BA_PRESSED>1</BA_PRESSED>
      <BA_HELD>2</BA_HELD>
      <BA_NUL>-1</BA_NUL>
    </ENUMS>
  </SNVT_302>

  <!-- time until a button counts as held, of the property type in user-types.xml: value = A_COEF x 10^B_COEF x raw -->
  <SNVT_303>
    <TYPE>UNSIGNEDNUMERIC</TYPE>
    <NAME>holdTime</NAME>
    <LENGTH>1</LENGTH>
    <MIN>0</MIN>
    <MAX>25</MAX>
    <A_COEF>1</A_COEF>
    <B_COEF>-1</B_COEF>
    <UNIT>s</UNIT>
    <LONGNAME>Time until a button counts as held</LONGNAME>
  </SNVT_303>
</TYPES>
)";

}  // namespace

constexpr Starter kSwitchStarter = {
    .name = "switch",
    .title = "wall switch with two buttons and a lamp actuator with feedback",
    .programId = "9FFFFF2000030401",
    .selfDocumentation = "&3.0@0Node,3200[2]Switch,3040Lamp;Wall switch with lamp actuator",
    .tag = "serviceTag",
    .variables = kSwitchVariables,
    .properties = kSwitchProperties,
    .formatFile = kSwitchTypes,
    .makersType = {"holdTime", 303, "01", "FA", "05"}};

}  // namespace tovarek
