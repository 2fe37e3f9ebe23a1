// The search mask of the standard-parts catalogue: "*" any run of characters (none
// included), "?" exactly one character; the whole text must match; letters compare without
// regard to case (ASCII and Latin-1 letters such as the German umlauts).
#pragma once

#include <string>

class CNormMask {
public:
    explicit CNormMask(const std::string& mask);
    // True when the UTF-8 text matches the mask.
    bool matches(const std::string& text) const;

private:
    std::u32string m_mask;
};
