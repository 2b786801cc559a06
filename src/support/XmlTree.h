// The tree that the reader keeps of a document; inside the XML reader only.
#pragma once

#include <libxml/tree.h>

#include <string>
#include <utility>

#include "support/Xml.h"

namespace tovarek {

struct XmlNode::Owner {
    Owner(xmlDocPtr tree, std::string path) : document(tree), file(std::move(path)) {}
    ~Owner() { xmlFreeDoc(document); }
    Owner(const Owner&) = delete;
    Owner& operator=(const Owner&) = delete;

    xmlDocPtr document;
    std::string file;
};

// Loads the document at `path`. Throws an XmlFault, or raises a runtime error when the file cannot be read.
xmlDocPtr ParseXmlFile(const std::string& path);

}  // namespace tovarek
