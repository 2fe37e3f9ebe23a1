// Help topics: which help file a dialog opens, and the viewer that shows a topic. On this
// platform a help file is an HTML folder or file; the backend in charge shows the topic
// (a window backend opens the viewer), unless a viewer of its own is installed.
#pragma once

#include "data/CZelString.h"

#include <functional>

namespace ZEL {

// The default help file of an add-on ("QEN"): "<name in lower case>.html" in the data folder.
bool help_find(const wchar_t* addOn, CZelString& file);
// Shows a topic of a help file; false when there is no file to show.
bool help_show(const CZelString& file, const CZelString& topic);
void helpSetViewer(std::function<void(const CZelString& file, const CZelString& topic)> viewer);
// The last topic shown, as "file#topic".
const CZelString& helpLastShown();

}  // namespace ZEL
