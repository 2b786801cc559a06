#include "support/XmlProlog.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <utility>

#include "support/Text.h"
#include "support/XmlBytes.h"

namespace tovarek {
namespace {

// What ends a name in a declaration or a reference.
constexpr bool EndsName(char c) {
    return IsXmlSpace(c) || c == ';' || c == '>' || c == '"' || c == '\'' || c == '[' || c == '&' ||
           c == '%' || c == '<';
}

// The character that a reference like "#60", "#x3C" or "lt" names, 0 for what is none.
char32_t ReferredCharacter(std::string_view reference) {
    constexpr auto kPredefined = std::to_array<std::pair<std::string_view, char32_t>>(
        {{"amp", U'&'}, {"lt", U'<'}, {"gt", U'>'}, {"quot", U'"'}, {"apos", U'\''}});
    for (const auto& [name, character] : kPredefined)
        if (reference == name)
            return character;
    if (!reference.starts_with('#'))
        return 0;
    const bool hexadecimal = reference.starts_with("#x");
    const std::string_view digits = reference.substr(hexadecimal ? 2 : 1);
    std::uint32_t value = 0;
    const auto parsed =
        std::from_chars(digits.data(), digits.data() + digits.size(), value, hexadecimal ? 16 : 10);
    return parsed.ec == std::errc() && parsed.ptr == digits.data() + digits.size() ? value : 0;
}

// Calls `visit` with the name of every "&name;" of `text`, and with the text between them.
template <class OnReference, class OnText>
void ForEachReference(std::string_view text, const OnReference& onReference, const OnText& onText) {
    while (!text.empty()) {
        const std::size_t ampersand = std::min(text.find('&'), text.size());
        const std::size_t end = text.find(';', ampersand);
        if (end == std::string_view::npos) {
            onText(text);
            return;
        }
        onText(text.substr(0, ampersand));
        onReference(text.substr(ampersand + 1, end - ampersand - 1));
        text.remove_prefix(end + 1);
    }
}

// Where the construct at the front of `text` ends: a comment, a CDATA section, an instruction, a tag, or else
// one character.
std::size_t ConstructLength(std::string_view text) {
    XmlCursor cursor(text);
    if (cursor.SkipUnparsed())
        return cursor.Position();
    if (!text.starts_with('<'))
        return 1;
    for (std::size_t i = 1; i < text.size(); ++i) {
        if (text[i] == '>')
            return i + 1;
        if (text[i] == '"' || text[i] == '\'')
            i = std::min(text.find(text[i], i + 1), text.size());
    }
    return text.size();
}

// Calls `visit(piece, isReference)` with every reference in the content of elements, and with what stands
// between.
template <class Visit>
void ForEachContentPiece(std::string_view content, const Visit& visit) {
    std::size_t start = 0;
    for (std::size_t place = 0; place < content.size();) {
        const std::size_t end = content[place] == '&' ? content.find(';', place) : std::string_view::npos;
        if (end == std::string_view::npos) {
            place += ConstructLength(content.substr(place));
            continue;
        }
        visit(content.substr(start, place - start), false);
        visit(content.substr(place, end + 1 - place), true);
        place = start = end + 1;
    }
    visit(content.substr(start), false);
}

// An entity's value as the parser keeps it: character references resolved, references to entities not.
std::string StoredValue(std::string_view literal) {
    std::string value;
    ForEachReference(
        literal,
        [&](std::string_view name) {
            // Only references by number are resolved in a declaration; "&lt;" stays one.
            const char32_t character = name.starts_with('#') ? ReferredCharacter(name) : 0;
            if (character != 0)
                AppendUtf8(value, character);
            else
                value.append("&").append(name).append(";");
        },
        [&](std::string_view text) { value += text; });
    return value;
}

}  // namespace

// How deep entities may refer to each other, and how many bytes parameter entities may stand for; more than
// people write, and little enough to be looked at in no time.
constexpr std::size_t kDeepestNesting = 100;
constexpr std::size_t kLongestExpansion = 1'000'000;

// Walks over declarations, from the front to the back.
class XmlProlog::Scanner : private XmlCursor {
  public:
    // `depth` counts the parameter entities that `text` is the value of.
    Scanner(XmlProlog& prolog, std::string_view text, std::size_t depth = 0)
        : XmlCursor(text), prolog_(prolog), depth_(depth) {}

    // The front of a document: everything up to the document type declaration and that itself.
    void Document() {
        while (true) {
            SkipSpace();
            if (Take("<?"))
                SkipBehind("?>");
            else if (Take("<!--"))
                SkipBehind("-->");
            else
                break;
        }
        if (!Take("<!DOCTYPE"))
            return;
        prolog_.hasDocumentType_ = true;
        SkipSpace();
        Name();
        if (const auto systemId = ExternalId()) {
            prolog_.systemId_ = *systemId;
            prolog_.systemIdStart_ = static_cast<std::size_t>(systemId->data() - start_);
        }
        prolog_.declarationsEnd_ = Position();
        SkipSpace();
        if (!Take("["))
            return;
        Declarations(']');
        prolog_.hasInternalPart_ = true;
        prolog_.declarationsEnd_ = Position();
    }

    // Declarations up to `end`, or all of them.
    void Declarations(char end = '\0') {
        while (!rest_.empty() && (end == '\0' || rest_.front() != end)) {
            if (Take("<!--"))
                SkipBehind("-->");
            else if (Take("<?"))
                SkipBehind("?>");
            else if (Take("<!ENTITY"))
                Entity();
            else if (Take("<!["))
                Section();
            else if (Take("<!"))
                SkipDeclaration();
            else if (Take("%"))
                Parameter();
            else
                rest_.remove_prefix(1);
        }
    }

  private:
    void Entity() {
        SkipSpace();
        const bool isParameter = Take("%");
        SkipSpace();
        std::string name = Name();
        SkipSpace();
        std::optional<std::string> value;
        const auto literal = Literal();
        if (literal) {
            const bool hasParameters = literal->find('%') != std::string_view::npos;
            if (hasParameters)
                Scanner(prolog_, *literal, depth_).Parameters();
            // The references in a parameter entity are looked at again where it is referred to.
            if (isParameter || !hasParameters)
                value = StoredValue(*literal);
        }
        if (isParameter)
            prolog_.parameters_.try_emplace(std::move(name), std::move(value));
        else if (const auto [place, isNew] = prolog_.general_.try_emplace(name, std::move(value));
                 isNew && place->second && prolog_.readsExternalPart_)
            Announce(name, *literal, place->second);
        SkipDeclaration();
    }

    // Keeps an entity of the external part for the document that is parsed; its value is lost where its
    // characters are not known.
    void Announce(const std::string& name, std::string_view literal, std::optional<std::string>& value) {
        if (!prolog_.isUnicode_ && !(IsAscii(name) && IsAscii(literal))) {
            value.reset();
            return;
        }
        const char quote = literal.find('"') == std::string_view::npos ? '"' : '\'';
        prolog_.outerEntities_.append("<!ENTITY ").append(name).append(" ");
        prolog_.outerEntities_.append(1, quote).append(literal).append(1, quote).append(">");
    }

    // The references to parameter entities in the value of an entity.
    void Parameters() {
        while (!rest_.empty())
            if (Take("%"))
                Parameter();
            else
                rest_.remove_prefix(1);
    }

    // A reference to a parameter entity, where one stands behind "%": what it stands for is declarations, or
    // a piece of one. Answers its value, null when there is none.
    const std::string* Parameter() {
        const std::string name = Name();
        if (name.empty() || !Take(";") || prolog_.usesExternalParameters_)
            return nullptr;
        const auto found = prolog_.parameters_.find(name);
        if (found != prolog_.parameters_.end() && found->second && depth_ < kDeepestNesting) {
            const std::string& value = *found->second;
            prolog_.expandedParameters_ += value.size() + 1;
            if (prolog_.expandedParameters_ <= kLongestExpansion) {
                Scanner(prolog_, value, depth_ + 1).Declarations();
                return &value;
            }
        }
        prolog_.usesExternalParameters_ = true;
        return nullptr;
    }

    // A section of an external part, behind its "<![": declarations that count, or such that do not.
    void Section() {
        SkipSpace();
        std::string keyword = Name();
        if (Take("%"))
            if (const std::string* value = Parameter())
                keyword = *value;
        if (keyword.find("IGNORE") == std::string::npos)
            return;
        for (int open = 1; open > 0 && !rest_.empty();) {
            if (Take("<!["))
                ++open;
            else if (Take("]]>"))
                --open;
            else
                rest_.remove_prefix(1);
        }
    }

    // The system identifier of SYSTEM "..." or PUBLIC "..." "...", nothing when neither stands there.
    std::optional<std::string_view> ExternalId() {
        SkipSpace();
        const bool isPublic = Take("PUBLIC");
        if (!isPublic && !Take("SYSTEM"))
            return std::nullopt;
        SkipSpace();
        auto literal = Literal();
        if (isPublic) {
            SkipSpace();
            literal = Literal();
        }
        return literal;
    }

    std::string Name() {
        const auto* const end = std::find_if(rest_.begin(), rest_.end(), EndsName);
        const auto length = static_cast<std::size_t>(end - rest_.begin());
        std::string name(rest_.substr(0, length));
        rest_.remove_prefix(length);
        return name;
    }

    // What stands between two quotes, or nothing when no quote comes next.
    std::optional<std::string_view> Literal() {
        if (rest_.empty() || (rest_.front() != '"' && rest_.front() != '\''))
            return std::nullopt;
        const std::size_t end = std::min(rest_.find(rest_.front(), 1), rest_.size());
        const std::string_view literal = rest_.substr(1, end - 1);
        rest_.remove_prefix(std::min(end + 1, rest_.size()));
        return literal;
    }

    void SkipSpace() {
        while (!rest_.empty() && IsXmlSpace(rest_.front()))
            rest_.remove_prefix(1);
    }

    // Up to the ">" that is in no literal.
    void SkipDeclaration() {
        while (!rest_.empty() && !Take(">"))
            if (Take("%"))
                Parameter();
            else if (!Literal())
                rest_.remove_prefix(1);
    }

    XmlProlog& prolog_;
    std::size_t depth_;
};

XmlProlog::XmlProlog(std::string_view document) {
    const ReadableXml readable(document);
    isUnicode_ = readable.IsUnicode();
    Scanner(*this, readable.Text()).Document();
}

std::string XmlProlog::ForParser(std::string_view document, std::string_view systemId) const {
    const ReadableXml readable(document);
    std::string moved(readable.Text());
    if (!outerEntities_.empty())
        moved.insert(declarationsEnd_, hasInternalPart_ ? outerEntities_ : "[" + outerEntities_ + "]");
    moved.replace(systemIdStart_, systemId_.size(), systemId);
    return readable.Encode(moved);
}

void XmlProlog::ReadExternalPart(std::string_view declarations) {
    const ReadableXml readable(declarations);
    isUnicode_ = isUnicode_ && readable.IsUnicode();
    readsExternalPart_ = true;
    Scanner(*this, readable.Text()).Declarations();
}

bool XmlProlog::IsPlainText(const std::string& name) const {
    std::map<std::string, bool> known;
    return IsPlainText(name, known, 0);
}

bool XmlProlog::IsPlainText(const std::string& name, std::map<std::string, bool>& known,
                            std::size_t depth) const {
    if (ReferredCharacter(name) != 0)
        return true;
    // An entity that is asked for again while it is looked at contains itself.
    const auto [seen, isNew] = known.try_emplace(name, false);
    if (!isNew)
        return seen->second;
    const auto found = general_.find(name);
    if (found == general_.end() || !found->second || depth >= kDeepestNesting ||
        found->second->find('<') != std::string::npos)
        return false;
    bool plain = true;
    ForEachReference(
        *found->second,
        [&](std::string_view inner) { plain = plain && IsPlainText(std::string(inner), known, depth + 1); },
        [](std::string_view /*text*/) {});
    known[name] = plain;
    return plain;
}

std::optional<std::string> XmlProlog::TextOf(const std::string& name) const {
    std::string text;
    std::size_t steps = 0;
    if (!IsPlainText(name) || !AppendText(name, text, steps))
        return std::nullopt;
    return text;
}

bool XmlProlog::AppendText(const std::string& name, std::string& text, std::size_t& steps) const {
    if (const char32_t character = ReferredCharacter(name); character != 0) {
        AppendUtf8(text, character);
        return true;
    }
    const std::string& value = *general_.find(name)->second;
    steps += value.size() + 1;
    if (steps > kLongestExpansion)
        return false;
    bool isWhole = true;
    ForEachReference(
        value,
        [&](std::string_view inner) { isWhole = isWhole && AppendText(std::string(inner), text, steps); },
        [&](std::string_view piece) { text += piece; });
    return isWhole;
}

bool XmlProlog::AppendMarkup(const std::string& name, std::string& text, std::size_t& steps,
                             std::size_t depth) const {
    const auto found = general_.find(name);
    if (found == general_.end() || !found->second || depth >= kDeepestNesting)
        return false;
    const std::string& value = *found->second;
    steps += value.size() + 1;
    // Characters that were told by number may not be those that the document's bytes mean.
    if (steps > kLongestExpansion || !(isUnicode_ || IsAscii(value)))
        return false;
    bool isWhole = true;
    ForEachReference(
        value,
        [&](std::string_view reference) {
            const std::string inner(reference);
            if (IsPlainText(inner))
                text.append("&").append(inner).append(";");
            else
                isWhole = isWhole && AppendMarkup(inner, text, steps, depth + 1);
        },
        [&](std::string_view piece) { text += piece; });
    return isWhole;
}

std::string XmlProlog::WithMarkupExpanded(std::string_view document) const {
    const ReadableXml readable(document);
    const std::string_view text = readable.Text();
    std::string expanded(text.substr(0, declarationsEnd_));
    std::size_t steps = 0;
    ForEachContentPiece(text.substr(declarationsEnd_), [&](std::string_view piece, bool isReference) {
        const std::string name(isReference ? piece.substr(1, piece.size() - 2) : std::string_view());
        std::string markup;
        if (isReference && !IsPlainText(name) && AppendMarkup(name, markup, steps, 0))
            expanded += markup;
        else
            expanded += piece;
    });
    return readable.Encode(expanded);
}

}  // namespace tovarek
