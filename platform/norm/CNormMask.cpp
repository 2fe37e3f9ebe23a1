#include "CNormMask.h"


namespace {
// Decodes UTF-8; a byte that starts no valid sequence stands for itself, so that any text
// can be matched.
std::u32string decode(const std::string& text)
{
    std::u32string out;
    for (std::size_t i = 0; i < text.size();) {
        const auto b = static_cast<unsigned char>(text[i]);
        int extra = b >= 0xF0 ? 3 : b >= 0xE0 ? 2 : b >= 0xC0 ? 1 : 0;
        char32_t c = extra == 3 ? b & 0x07u : extra == 2 ? b & 0x0Fu : extra == 1 ? b & 0x1Fu : b;
        if (extra && i + extra >= text.size())
            extra = 0, c = b;
        bool valid = true;
        for (int k = 1; k <= extra; ++k) {
            const auto n = static_cast<unsigned char>(text[i + k]);
            if ((n & 0xC0) != 0x80) {
                valid = false;
                break;
            }
            c = (c << 6) | (n & 0x3Fu);
        }
        if (!valid)
            extra = 0, c = b;
        out += c;
        i += 1 + extra;
    }
    return out;
}

char32_t fold(char32_t c)
{
    if (c >= U'A' && c <= U'Z')
        return c + 32;
    if (c >= 0xC0 && c <= 0xDE && c != 0xD7)
        return c + 32;
    return c;
}

std::u32string folded(const std::string& text)
{
    std::u32string out = decode(text);
    for (auto& c : out)
        c = fold(c);
    return out;
}
}  // namespace

CNormMask::CNormMask(const std::string& mask) : m_mask(folded(mask)) {}

bool CNormMask::matches(const std::string& utf8) const
{
    const std::u32string text = folded(utf8);
    // Iterative wildcard match with one back-tracking point (the last "*").
    std::size_t m = 0, t = 0, star = std::u32string::npos, resume = 0;
    while (t < text.size()) {
        if (m < m_mask.size() && (m_mask[m] == U'?' || m_mask[m] == text[t])) {
            ++m;
            ++t;
        } else if (m < m_mask.size() && m_mask[m] == U'*') {
            star = m++;
            resume = t;
        } else if (star != std::u32string::npos) {
            m = star + 1;
            t = ++resume;
        } else {
            return false;
        }
    }
    while (m < m_mask.size() && m_mask[m] == U'*')
        ++m;
    return m == m_mask.size();
}
