// What XML needs before several threads of a program read it.
#pragma once

namespace tovarek {

// Called once, before the threads begin: the library's first use is not safe among several.
void PrepareXmlForThreads();

}  // namespace tovarek
