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

// The comments stand in front, line by line.
std::string ProfileText(const ProfileValues& profile, InputForm form,
                        const std::vector<std::string>& comments = {});

// `names` tells comments what types and values are; it holds a catalog. What the form cannot hold is written
// as near as possible.
std::string TemplateText(const CTemplate& device, InputForm form, const ResourceNames& names);

// What a file that was written from `given` holds of it no more, found by reading it the way a generation
// does. Raises what loading raises.
void TellProfileLosses(const ProfileValues& given, const std::string& path, InputForm form,
                       std::vector<Loss>& losses);
void TellTemplateLosses(const CTemplate& given, const std::string& path, InputForm form,
                        std::vector<Loss>& losses);

}  // namespace tovarek
