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

namespace {
// The folded code point at a byte position of UTF-8 text and the position after it, with the
// same reading of invalid bytes as decode().
char32_t at(const std::string& text, std::size_t& i)
{
    const auto b = static_cast<unsigned char>(text[i]);
    if (b < 0x80) {
        ++i;
        return fold(b);
    }
    int extra = b >= 0xF0 ? 3 : b >= 0xE0 ? 2 : b >= 0xC0 ? 1 : 0;
    char32_t c = extra == 3 ? b & 0x07u : extra == 2 ? b & 0x0Fu : extra == 1 ? b & 0x1Fu : b;
    if (extra && i + extra >= text.size())
        extra = 0, c = b;
    for (int k = 1; k <= extra; ++k) {
        const auto n = static_cast<unsigned char>(text[i + k]);
        if ((n & 0xC0) != 0x80) {
            extra = 0, c = b;
            break;
        }
        c = (c << 6) | (n & 0x3Fu);
    }
    i += 1 + extra;
    return fold(c);
}
}  // namespace

bool CNormMask::matches(const std::string& text) const
{
    // Iterative wildcard match with one back-tracking point (the last "*"); the text is read
    // in place, one code point at a time, so that matching allocates nothing.
    std::size_t m = 0, t = 0, star = std::u32string::npos, resume = 0;
    while (t < text.size()) {
        std::size_t next = t;
        const char32_t c = at(text, next);
        if (m < m_mask.size() && (m_mask[m] == U'?' || m_mask[m] == c)) {
            ++m;
            t = next;
        } else if (m < m_mask.size() && m_mask[m] == U'*') {
            star = m++;
            resume = t;
        } else if (star != std::u32string::npos) {
            m = star + 1;
            at(text, resume);
            t = resume;
        } else {
            return false;
        }
    }
    while (m < m_mask.size() && m_mask[m] == U'*')
        ++m;
    return m == m_mask.size();
}
