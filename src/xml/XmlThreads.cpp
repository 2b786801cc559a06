#include "xml/XmlThreads.h"

#include <libxml/parser.h>

namespace tovarek {

void PrepareXmlForThreads() {
    xmlInitParser();
}

}  // namespace tovarek
