// Changes of inputs that mend findings, told by whoever writes the sentence about them.
#pragma once

#include <string>

namespace tovarek {

// The piece that an edit changes. In an INI file it lies in the edit's line, in an XML file it belongs to the
// element whose start tag stands at its line and column.
enum class EditPart {
    value,      // between blanks and quotes; of an element its text, without white space around it
    valueEnd,   // behind the value
    name,       // the key, or what stands between the brackets of a header; of an element in both tags
    content,    // of an element: its text with the white space around it
    comment,    // of an element: all of it becomes a comment
    separator,  // of a line without '=': what stands between its first word and the rest
    line,       // what stands in it, without white space around it
    lineStart,  // in front of what stands in the line
    lineEnd,    // behind it
    fileStart,  // in front of everything
};

// `text` stands in place of the piece afterwards: ASCII, with LF for the line ends of the file; at the start
// of a file it may be the mark of UTF-8.
struct Edit {
    EditPart part;
    int line;    // from 1
    int column;  // of an XML element, in characters from 1; 0 in an INI file
    std::string text;
};

// What is told of a value that is no number.
struct Advice {
    std::string text;  // what it is read as means, what to write: "an input; for an output write direction=1"
    std::string value{};  // what the text says to write; empty where nothing is or more than one thing may be
};

}  // namespace tovarek
