// Where the edits of findings lie in their files.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "mend/InputText.h"
#include "mend/Piece.h"
#include "support/Edit.h"

namespace tovarek {

class EditPieces {
  public:
    // The pieces that the edits change, in the order of the file. None when one of the edits has no piece of
    // its own, such as the text of an element that spans lines or holds a comment.
    std::vector<Piece> Of(const std::string& file, const std::vector<Edit>& edits);

  private:
    const InputText& Read(const std::string& file);

    std::map<std::string, std::unique_ptr<InputText>> files_;
};

}  // namespace tovarek
