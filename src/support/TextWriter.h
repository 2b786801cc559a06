// Writes text files line by line: CR LF line ends, 8-bit code page.
#pragma once

#include <string>
#include <string_view>

#include "base/Text.h"
#include "system/CodePage.h"
#include "system/Files.h"

namespace tovarek {

class TextWriter {
  public:
    // `sink` outlives the writer; whoever made it closes it.
    explicit TextWriter(FileSink& sink) : sink_(sink) {}

    // Writes `text` (UTF-8) and a line end. Line ends inside the text are written as they are.
    void Line(std::string_view text = {}) {
        if (IsAscii(text))
            sink_.Append(text);
        else
            sink_.Append(ToCodePage(text));
        sink_.Append("\r\n");
    }

  private:
    FileSink& sink_;
};

}  // namespace tovarek
