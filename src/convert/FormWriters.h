// Lines of INI files and elements of XML documents.
#pragma once

#include <string>
#include <string_view>
#include <utility>

namespace tovarek {

class IniWriter {
  public:
    void Comment(std::string_view text);
    // The comment stands in front of it; empty: none.
    void Section(std::string_view name, std::string_view comment = {});
    // Quotes stand around what would lose its own.
    void Key(std::string_view key, std::string_view value);
    // The file, with its mark.
    std::string Take();

  private:
    std::string text_;
};

// Some documents may have nothing in front of their first element.
enum class XmlHead { declaration, mark, none };

class XmlWriter {
  public:
    explicit XmlWriter(XmlHead head = XmlHead::declaration);
    // A name that no element can have is changed; see XmlName. The attributes stand as they are.
    void Open(std::string_view name, std::string_view attributes = {});
    void Close(std::string_view name);
    void Element(std::string_view name, std::string_view text);
    void Comment(std::string_view text);
    std::string Take() { return std::move(text_); }

  private:
    void Indent() { text_.append(2 * depth_, ' '); }

    std::string text_;
    std::size_t depth_ = 0;
};

// `name` as the name of an element: other characters become "_".
std::string XmlName(std::string_view name);

}  // namespace tovarek
