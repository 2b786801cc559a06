#include "support/XmlPrefixes.h"

#include <algorithm>
#include <set>

#include "support/XmlBytes.h"

namespace tovarek {
namespace {

// Walks over the tags of a document.
class TagScanner : private XmlCursor {
  public:
    explicit TagScanner(std::string_view text) : XmlCursor(text) {}

    // False when the document has a document type declaration.
    bool Run() {
        while (!rest_.empty()) {
            rest_.remove_prefix(std::min(rest_.find('<'), rest_.size()));
            if (SkipUnparsed())
                continue;
            if (rest_.starts_with("<!"))
                return false;
            if (Take("</"))
                SkipBehind(">");
            else if (Take("<"))
                Element();
        }
        return true;
    }

    // Where a declaration can be added, 0 when there is no element.
    std::size_t Place() const { return place_; }

    std::string Declarations() const {
        std::string declarations;
        for (const std::string_view prefix : used_)
            if (!declared_.contains(prefix))
                declarations.append(" xmlns:").append(prefix).append("=\"urn:").append(prefix).append("\"");
        return declarations;
    }

  private:
    void Element() {
        Use(Name());
        if (place_ == 0)
            place_ = Position();
        while (!rest_.empty() && !Take(">")) {
            const std::string_view name = Name();
            constexpr std::string_view kDeclaration = "xmlns:";
            if (name.starts_with(kDeclaration))
                declared_.insert(name.substr(kDeclaration.size()));
            else
                Use(name);
            if (name.empty())
                SkipLiteralOrCharacter();
        }
    }

    void Use(std::string_view name) {
        const std::size_t colon = name.find(':');
        if (colon != std::string_view::npos && colon > 0)
            used_.insert(name.substr(0, colon));
    }

    std::string_view Name() {
        const auto endsName = [](char c) {
            return IsXmlSpace(c) || c == '=' || c == '/' || c == '>' || c == '<' || c == '"' || c == '\'';
        };
        const auto* const end = std::find_if(rest_.begin(), rest_.end(), endsName);
        const std::string_view name = rest_.substr(0, static_cast<std::size_t>(end - rest_.begin()));
        rest_.remove_prefix(name.size());
        return name;
    }

    void SkipLiteralOrCharacter() {
        const char first = rest_.empty() ? '\0' : rest_.front();
        if (first == '"' || first == '\'')
            rest_.remove_prefix(std::min(rest_.find(first, 1), rest_.size() - 1));
        rest_.remove_prefix(std::min<std::size_t>(1, rest_.size()));
    }

    std::size_t place_ = 0;
    std::set<std::string_view> used_;
    std::set<std::string_view> declared_ = {"xml", "xmlns"};
};

}  // namespace

std::string WithPrefixesDeclared(std::string_view document) {
    const ReadableXml readable(document);
    TagScanner scanner(readable.Text());
    if (!scanner.Run() || scanner.Place() == 0 || scanner.Declarations().empty())
        return std::string(document);
    std::string text(readable.Text());
    text.insert(scanner.Place(), scanner.Declarations());
    return readable.Encode(text);
}

}  // namespace tovarek
