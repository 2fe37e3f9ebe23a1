// The queries over the process's one database connection.
#include "ZelNorm.h"

#include "CNormDatabase.h"
#include "CNormMask.h"
#include "ZelNormDetail.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <limits>

using namespace ZEL::normdetail;

namespace {
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

bool offered(CNormDatabase& db, const std::string& standardPath, const std::string& material)
{
    if (material.empty())
        return true;
    const auto materials = db.materials(standardPath);
    if (std::find(materials.begin(), materials.end(), material) != materials.end())
        return true;
    const auto standard = db.standard(standardPath);
    if (!standard)
        return false;
    const auto added = addedMaterials(standard->key);
    return std::find(added.begin(), added.end(), material) != added.end();
}

// Whether an article key names the material (empty: any) and size.
bool articleOf(const std::string& key, const std::string& material, const std::string& size)
{
    const auto parts = split(key, ':');
    // DIN : NORM : MAT : ND [: LEN=…]
    if (parts.size() < 4)
        return false;
    if (!material.empty() && parts[2] != keyPart(material))
        return false;
    return parts[3] == keyPart(size);
}

std::vector<double> numbers(const std::string& text, char separator)
{
    std::vector<double> out;
    for (const auto& part : split(text, separator)) {
        const auto value = toNumber(part);
        if (!value)
            return {};
        out.push_back(*value);
    }
    return out;
}
}  // namespace

namespace ZEL {

std::vector<std::string> norm_types()
{
    return CNormDatabase::instance().families();
}

std::vector<std::string> norm_dir(const NormStack& stack)
{
    return CNormDatabase::instance().children(pathOf(stack));
}

std::string norm_tree_txt(const NormStack& stack, const std::string& family)
{
    auto& db = CNormDatabase::instance();
    const std::string path = pathOf(stack);
    if (const auto standard = db.standard(path))
        return designation(*standard, family) + " " + standard->titleDe;
    if (db.property(path, "TYPE").value_or("") == "SIZE")
        return stack.back();
    return db.property(path, "LABEL").value_or("");
}

std::optional<std::string> norm_get(const NormStack& stack, const std::string& name)
{
    auto& db = CNormDatabase::instance();
    const auto blank = std::find(stack.begin(), stack.end(), std::string());
    if (blank != stack.end()) {
        std::string property;
        for (auto it = blank + 1; it != stack.end(); ++it)
            property += *it + "\\";
        return db.property(pathOf(NormStack(stack.begin(), blank)), property + name);
    }
    if (auto value = db.property(pathOf(stack), name))
        return value;
    if (db.property(pathOf(stack), "TYPE"))
        return std::nullopt;  // the node exists and lacks the property
    // Nested property: the longest prefix that names a node, the rest leading to the name.
    for (std::size_t n = stack.size(); n-- > 1;) {
        const std::string node = pathOf(NormStack(stack.begin(), stack.begin() + static_cast<std::ptrdiff_t>(n)));
        if (!db.property(node, "TYPE"))
            continue;
        std::string property;
        for (std::size_t i = n; i < stack.size(); ++i)
            property += stack[i] + "\\";
        return db.property(node, property + name);
    }
    return std::nullopt;
}

std::vector<std::string> norm_nd_lst(const NormStack& stack, const std::string& material, const std::string& variant,
                                     bool onlyArticles)
{
    auto& db = CNormDatabase::instance();
    const std::string path = pathOf(stack);
    if (!offered(db, path, material))
        return {};
    const auto variants = split(db.property(path, "VARIANTS").value_or(""), ';');
    const bool narrow = !variant.empty() && std::find(variants.begin(), variants.end(), variant) != variants.end();
    auto sizes = db.sizes(path, narrow ? variant : std::string());
    if (onlyArticles) {
        const auto standard = db.standard(path);
        const auto keys = standard ? articleKeys(standard->key) : std::vector<std::string>();
        std::erase_if(sizes, [&](const std::string& size) {
            return std::none_of(keys.begin(), keys.end(),
                                [&](const std::string& key) { return articleOf(key, material, size); });
        });
    }
    return sizes;
}

std::vector<double> norm_len_lst(const NormStack& sizeStack, const std::string& material, const std::string& variant)
{
    if (sizeStack.empty())
        return {};
    auto& db = CNormDatabase::instance();
    const NormStack standard(sizeStack.begin(), sizeStack.end() - 1);
    if (!offered(db, pathOf(standard), material))
        return {};
    return db.lengths(pathOf(sizeStack));
}

std::vector<std::string> norm_mat_lst(const NormStack& stack, bool onlyArticles)
{
    auto& db = CNormDatabase::instance();
    const std::string path = pathOf(stack);
    auto materials = db.materials(path);
    const auto standard = db.standard(path);
    if (!standard)
        return materials;
    for (const auto& added : addedMaterials(standard->key))
        if (std::find(materials.begin(), materials.end(), added) == materials.end())
            materials.push_back(added);
    if (onlyArticles) {
        const auto keys = articleKeys(standard->key);
        std::erase_if(materials, [&](const std::string& material) {
            const std::string prefix = objectKey2(standard->key) + ":" + keyPart(material) + ":";
            return std::none_of(keys.begin(), keys.end(), [&](const std::string& key) { return key.rfind(prefix, 0) == 0; });
        });
    }
    return materials;
}

std::vector<std::string> norm_var_lst(const NormStack& stack, const std::string& material, bool onlyArticles)
{
    auto& db = CNormDatabase::instance();
    const std::string path = pathOf(stack);
    if (!db.standard(path) || !offered(db, path, material))
        return {};
    const auto variants = split(db.property(path, "VARIANTS").value_or(""), ';');
    if (variants.empty())
        return {std::string()};
    if (!onlyArticles)
        return variants;
    std::vector<std::string> out;
    for (const auto& v : variants)
        if (!norm_nd_lst(stack, material, v, true).empty())
            out.push_back(v);
    return out;
}

int norm_len_near(double value, const std::vector<double>& lengths)
{
    if (std::isnan(value) || lengths.empty())
        return -1;
    int best = -1;
    double bestDistance = 0;
    for (std::size_t i = 0; i < lengths.size(); ++i) {
        if (std::isnan(lengths[i]))
            continue;
        const double distance = std::fabs(std::fabs(lengths[i]) - std::fabs(value));
        if (best < 0 || distance < bestDistance) {
            best = static_cast<int>(i);
            bestDistance = distance;
        }
    }
    return best;
}

NormTable norm_klm_lst(const NormStack& sizeStack)
{
    NormTable table;
    const auto text = norm_get(sizeStack, "KLM\\LST");
    if (!text)
        return table;
    for (const auto& row : split(*text, ';')) {
        const auto values = numbers(row, ',');
        if (values.size() == 3)
            table.push_back(values);
    }
    return table;
}

namespace {
// The clamping range of a length: the row of the length, else of the next shorter table
// length (the first row below the first length), shifted by the difference.
std::optional<std::pair<double, double>> clampingRange(double length, const NormTable& table)
{
    const std::vector<double>* row = nullptr;
    for (const auto& r : table) {
        if (r.size() < 3)
            continue;
        if (!row || r[0] <= length)
            row = &r;
        if (r[0] >= length)
            break;
    }
    if (!row)
        return std::nullopt;
    // No clamped thickness below 0: a length below the first row's gives the range from 0.
    const double shift = length - (*row)[0];
    return std::make_pair(std::max(0.0, (*row)[1] + shift), (*row)[2] + shift);
}
}  // namespace

NormTable norm_klm(double length, double clamping, const NormTable& table)
{
    if (!std::isfinite(length))
        return {};
    const auto range = clampingRange(std::fabs(length), table);
    if (!range || range->second < range->first)
        return {};
    double use = clamping;
    if (std::isnan(use) || use <= 0)
        use = range->second;
    use = std::clamp(use, range->first, range->second);
    return {{use}, {range->first, range->second}};
}

std::vector<double> norm_rad_lst(const NormStack& sizeStack)
{
    const auto text = norm_get(sizeStack, "RAD");
    if (!text)
        return {};
    auto range = numbers(*text, ';');
    return range.size() == 2 ? range : std::vector<double>();
}

double norm_radius(const NormStack&, double radius, const std::vector<double>& range)
{
    if (range.size() < 2)
        return radius;
    const double lo = std::min(range[0], range[1]), hi = std::max(range[0], range[1]);
    if (std::isnan(radius) || radius <= 0)
        return lo;
    return std::clamp(radius, lo, hi);
}

std::optional<double> norm_senk(const NormStack& sizeStack)
{
    const auto text = norm_get(sizeStack, "SENK");
    return text ? toNumber(*text) : std::nullopt;
}

std::vector<std::pair<std::string, double>> norm_size_dims(const NormStack& sizeStack)
{
    std::vector<std::pair<std::string, double>> out;
    if (sizeStack.size() < 2)
        return out;
    const auto data = norm_get(sizeStack, "DATA");
    const auto columns = norm_get(NormStack(sizeStack.begin(), sizeStack.end() - 1), "COLUMNS");
    if (!data || !columns)
        return out;
    const auto cells = split(*data, ';');
    const auto names = split(*columns, ';');
    for (std::size_t i = 0; i < cells.size() && i < names.size(); ++i)
        if (const auto value = toNumber(cells[i]))
            out.emplace_back(names[i], *value);
    return out;
}

bool norm_tree_leaves(const NormStack& stack, const std::string& mask, std::vector<NormStack>& results)
{
    results.clear();
    auto& db = CNormDatabase::instance();
    if (!db.isOpen())
        return false;
    const std::string path = pathOf(stack);
    if (!path.empty() && !db.property(path, "TYPE"))
        return false;
    const CNormMask matcher(mask);
    db.forEachStandardBelow(path, [&](const CNormDatabase::Standard& s) {
        for (const std::string* text : {&s.din, &s.iso, &s.enIso, &s.en, &s.other, &s.key, &s.titleDe, &s.titleEn}) {
            if (!text->empty() && matcher.matches(*text)) {
                results.push_back(stackOf(s.path));
                break;
            }
        }
    });
    return true;
}

std::string norm_db_error()
{
    return CNormDatabase::instance().error();
}

}  // namespace ZEL

namespace QEN {
std::string norm_diniso1(const ZEL::NormStack& stack, int familyFlags)
{
    const auto standard = CNormDatabase::instance().standard(pathOf(stack));
    if (!standard)
        return {};
    const std::string family = (familyFlags & 0x20) ? "ISO" : (familyFlags & 0x40) ? "EN" : "DIN";
    return designation(*standard, family);
}

namespace {
// The lengths from which a free length is taken, and the shortest length in [from, to]
// whose clamping range holds the clamping length (with the row's shifted range).
std::optional<double> shortestFree(double clamping, const ZEL::NormTable& table)
{
    for (std::size_t i = 0; i < table.size(); ++i) {
        const auto& row = table[i];
        if (row.size() < 3)
            continue;
        // The row serves the lengths from its own up to the next table length (the last
        // row only its own); the range moves with the length.
        const double from = row[0];
        const double to = i + 1 < table.size() ? table[i + 1][0] : row[0];
        const double low = std::max(from, row[0] + clamping - row[2]);
        const double high = std::min(to, row[0] + clamping - row[1]);
        if (low <= high)
            return low;
    }
    return std::nullopt;
}
}  // namespace

double norm_klm_len(double clamping, double length, const ZEL::NormTable& table, bool freeLength)
{
    if (!std::isfinite(clamping) || table.empty())
        return kNaN;
    const double first = table.front().empty() ? kNaN : table.front()[0];
    const double last = table.back().empty() ? kNaN : table.back()[0];
    auto holds = [&](double l) {
        const auto rows = ZEL::norm_klm(l, clamping, table);
        return rows.size() == 2 && rows[1][0] <= clamping && clamping <= rows[1][1];
    };
    if (std::isfinite(length)) {
        const double l = std::fabs(length);
        const bool inTable = std::any_of(table.begin(), table.end(), [&](const auto& r) { return !r.empty() && r[0] == l; });
        if ((freeLength ? (l >= first && l <= last) : inTable) && holds(l))
            return l;
    }
    if (freeLength)
        return shortestFree(clamping, table).value_or(kNaN);
    for (const auto& row : table)
        if (row.size() >= 3 && row[1] <= clamping && clamping <= row[2])
            return row[0];
    return kNaN;
}

std::vector<std::string> norm_nd_txt(const ZEL::NormStack& stack, const std::vector<std::string>& sizes)
{
    std::vector<std::string> out;
    out.reserve(sizes.size());
    for (const auto& size : sizes) {
        ZEL::NormStack sizeStack = stack;
        sizeStack.push_back(size);
        out.push_back(ZEL::norm_get(sizeStack, "AVOID") ? "(" + size + ")" : size);
    }
    return out;
}

std::string norm_len_str(double length, int unit)
{
    if (std::isnan(length))
        return {};
    char text[48];
    const double value = std::fabs(length);
    if (unit == 1) {
        std::snprintf(text, sizeof text, "%.3f", value / 25.4);
        std::string s = text;
        while (!s.empty() && s.back() == '0')
            s.pop_back();
        if (!s.empty() && s.back() == '.')
            s.pop_back();
        s += "\"";
        return length < 0 ? "(" + s + ")" : s;
    }
    std::snprintf(text, sizeof text, "%g", value);
    return length < 0 ? "(" + std::string(text) + ")" : std::string(text);
}

void norm_spheres(std::map<std::string, std::string>& names, std::vector<std::string>& codes)
{
    names.clear();
    codes.clear();
    for (const auto& area : CNormDatabase::instance().areas()) {
        names[area.code] = area.labelDe;
        codes.push_back(area.code);
    }
}

std::string norm_mat_label(const std::string& material, const std::string& country)
{
    const auto labels = CNormDatabase::instance().materialLabels(material);
    if (!labels)
        return {};
    const bool english = country.size() >= 2 && (country[0] == 'e' || country[0] == 'E') && (country[1] == 'n' || country[1] == 'N');
    return english && !labels->second.empty() ? labels->second : labels->first;
}

unsigned long rel_parse(const char* mask)
{
    return mask ? rel_parse(std::string(mask)) : 0;
}

unsigned long rel_parse(const std::string& mask)
{
    auto digit = [](char c) -> int {
        if (c >= '0' && c <= '9')
            return c - '0';
        if (c >= 'a' && c <= 'f')
            return c - 'a' + 10;
        if (c >= 'A' && c <= 'F')
            return c - 'A' + 10;
        return -1;
    };
    unsigned long value = 0;
    if (mask.size() >= 2 && mask[0] == '0' && (mask[1] == 'x' || mask[1] == 'X')) {
        for (std::size_t i = 2; i < mask.size() && digit(mask[i]) >= 0; ++i)
            value = (value << 4) | static_cast<unsigned long>(digit(mask[i]));
        return value & 0xFFFFFFFFul;
    }
    // Reversed: the first digit is the least significant; at most eight digits count.
    std::size_t count = 0;
    while (count < mask.size() && digit(mask[count]) >= 0)
        ++count;
    for (std::size_t i = std::min<std::size_t>(count, 8); i-- > 0;)
        value = (value << 4) | static_cast<unsigned long>(digit(mask[i]));
    return value;
}

std::string rel_format(unsigned long value)
{
    value &= 0xFFFFFFFFul;
    std::string out;
    while (value) {
        out += "0123456789abcdef"[value & 0xF];
        value >>= 4;
    }
    return out;
}

std::string rel_and(const std::string& a, const std::string& b)
{
    return rel_format(rel_parse(a) & rel_parse(b));
}

std::string rel_or(const std::string& a, const std::string& b)
{
    return rel_format(rel_parse(a) | rel_parse(b));
}

std::string rel_andnot(const std::string& a, const std::string& b)
{
    return rel_format(rel_parse(a) & ~rel_parse(b));
}
}  // namespace QEN
