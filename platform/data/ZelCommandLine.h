// The host's command line: where a module tells the user what it could not do, as a CAD
// module prints to the command line. The host program decides where the lines go.
#pragma once

#include "data/CZelString.h"

#include <functional>

namespace ZEL {

void cmdPrint(const CZelString& line);
// The lines printed since the last call, and the sink that receives them as they come.
CZelString cmdTakePrinted();
void cmdSetSink(std::function<void(const CZelString&)> sink);

}  // namespace ZEL
