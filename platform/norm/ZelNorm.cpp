// The queries over the process's one database connection.
#include "ZelNorm.h"

#include "CNormDatabase.h"
#include "CNormMask.h"

#include <algorithm>

namespace {
std::string pathOf(const ZEL::NormStack& stack)
{
    std::string path;
    for (std::size_t i = 0; i < stack.size(); ++i)
        path += (i == 0 ? "" : "\\") + stack[i];
    return path;
}

ZEL::NormStack stackOf(const std::string& path)
{
    ZEL::NormStack stack;
    std::size_t start = 0;
    for (;;) {
        const std::size_t end = path.find('\\', start);
        stack.push_back(path.substr(start, end - start));
        if (end == std::string::npos)
            return stack;
        start = end + 1;
    }
}

// The designation in the family, with the fall-back that always gives a standard a name.
std::string designation(const CNormDatabase::Standard& s, const std::string& family)
{
    const std::string& wanted = family == "ISO" ? s.iso : family == "EN" ? s.enIso : s.din;
    if (!wanted.empty())
        return wanted;
    for (const std::string* any : {&s.din, &s.iso, &s.enIso, &s.en, &s.other})
        if (!any->empty())
            return *any;
    return s.key;
}

bool offered(CNormDatabase& db, const std::string& standardPath, const std::string& material)
{
    if (material.empty())
        return true;
    const auto materials = db.materials(standardPath);
    return std::find(materials.begin(), materials.end(), material) != materials.end();
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
    return CNormDatabase::instance().property(pathOf(stack), name);
}

std::vector<std::string> norm_nd_lst(const NormStack& stack, const std::string& material, const std::string& variant,
                                     bool onlyArticles)
{
    auto& db = CNormDatabase::instance();
    const std::string path = pathOf(stack);
    if (!offered(db, path, material))
        return {};
    return db.sizes(path);
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
    return CNormDatabase::instance().materials(pathOf(stack));
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
    for (const auto& s : db.standardsBelow(path)) {
        for (const std::string* text : {&s.din, &s.iso, &s.enIso, &s.en, &s.other, &s.key, &s.titleDe, &s.titleEn}) {
            if (!text->empty() && matcher.matches(*text)) {
                results.push_back(stackOf(s.path));
                break;
            }
        }
    }
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
}  // namespace QEN
