// The text of an input, as its loader reads it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tovarek {

// Whether a file is read as XML: a "<" stands first in it, in some encoding.
bool LooksLikeXml(std::string_view bytes);

// An INI or an XML file in UTF-8, without a mark. Lines end in CR LF, LF or CR.
class InputText {
  public:
    // An XML file that does not decode has no text.
    explicit InputText(std::string bytes);
    InputText(const InputText&) = delete;
    InputText& operator=(const InputText&) = delete;

    std::string_view Text() const { return text_; }
    // Their line ends left out.
    const std::vector<std::string_view>& Lines() const { return lines_; }
    // The line with the number, from 1; a view of null where there is none.
    std::string_view Line(int number) const;

  private:
    std::string text_;
    std::vector<std::string_view> lines_;
};

}  // namespace tovarek
