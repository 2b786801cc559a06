// Profiles and templates as people would have written them: in the order of the documents, no default values,
// types and values told in comments. UTF-8 with a mark, CR LF.
#pragma once

#include <string>
#include <string_view>

#include "control/ResourceNames.h"
#include "convert/DeviceInterface.h"

namespace tovarek {

enum class InputForm { ini, xml };

// What the outermost elements are called.
inline constexpr std::string_view kProfileElement = "DEVICEPROFILE";
inline constexpr std::string_view kTemplateElement = "DEVICE";

// Whether comments tell for those who write their first device what each key means: each where it stands for
// the first time.
enum class KeyComments { no, yes };

// The comments stand in front, line by line. With those of keys every value has its meaning and what is
// accepted.
std::string ProfileText(const ProfileValues& profile, InputForm form,
                        const std::vector<std::string>& comments = {}, KeyComments keys = KeyComments::no);

// `names` tells comments what types and values are; it holds a catalog. What the form cannot hold is written
// as near as possible.
std::string TemplateText(const CTemplate& device, InputForm form, const ResourceNames& names,
                         KeyComments keys = KeyComments::no);

// What a file that was written from `given` holds of it no more, found by reading it the way a generation
// does. Raises what loading raises.
void TellProfileLosses(const ProfileValues& given, const std::string& path, InputForm form,
                       std::vector<Loss>& losses);
void TellTemplateLosses(const CTemplate& given, const std::string& path, InputForm form,
                        std::vector<Loss>& losses);

}  // namespace tovarek
