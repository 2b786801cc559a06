// Types as the files of a set hold them, with the texts of their units.
#pragma once

#include "formats/language/LanguageFile.h"
#include "formats/type/TypeFile.h"

namespace tovarek {

struct OwnTypes {
    TypeFile types;
    LanguageFile texts;
};

}  // namespace tovarek
