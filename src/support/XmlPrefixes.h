// Name-space prefixes of XML documents. Names count as they are written here, prefix included, and nobody
// asks what a prefix stands for; parsers that know name spaces want every one declared.
#pragma once

#include <string>
#include <string_view>

namespace tovarek {

// `document` with a declaration in its first element for every prefix that it uses and declares nowhere; as
// it stands when there is none, or when it has a document type declaration, which would have to allow the
// addition.
std::string WithPrefixesDeclared(std::string_view document);

}  // namespace tovarek
