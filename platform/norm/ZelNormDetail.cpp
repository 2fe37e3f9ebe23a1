#include "ZelNormDetail.h"

#include "data/CConfig.h"
#include "data/CStoreFile.h"
#include "data/CZelDataDir.h"
#include "obj/ZelObjOrder.h"

#include <cctype>
#include <cstdio>
#include <memory>
#include <sys/stat.h>

namespace ZEL::normdetail {

std::string pathOf(const NormStack& stack)
{
    std::string path;
    for (std::size_t i = 0; i < stack.size(); ++i)
        path += (i == 0 ? "" : "\\") + stack[i];
    return path;
}

NormStack stackOf(const std::string& path)
{
    NormStack stack;
    std::size_t start = 0;
    for (;;) {
        const std::size_t end = path.find('\\', start);
        stack.push_back(path.substr(start, end - start));
        if (end == std::string::npos)
            return stack;
        start = end + 1;
    }
}

std::vector<std::string> split(const std::string& text, char separator)
{
    std::vector<std::string> parts;
    if (text.empty())
        return parts;
    std::size_t start = 0;
    for (;;) {
        const std::size_t end = text.find(separator, start);
        parts.push_back(text.substr(start, end - start));
        if (end == std::string::npos)
            return parts;
        start = end + 1;
    }
}

std::optional<double> toNumber(const std::string& text)
{
    if (text.empty())
        return std::nullopt;
    char* end = nullptr;
    const double value = std::strtod(text.c_str(), &end);
    if (end != text.c_str() + text.size())
        return std::nullopt;
    return value;
}

std::string figure(double value)
{
    char text[32];
    std::snprintf(text, sizeof text, "%.10g", value);
    return text;
}

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

std::string keyPart(const std::string& value)
{
    std::string out = value;
    for (auto& c : out) {
        if (c == '\\' || c == ':')
            c = '_';
        else
            c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    }
    return out;
}

std::string objectKey2(const std::string& standardKey)
{
    return "DIN:" + keyPart(standardKey);
}

std::vector<std::string> articleKeys(const std::string& standardKey)
{
    std::vector<std::string> keys;
    const std::string path = obj_order_file();
    struct stat st {};
    if (::stat(path.c_str(), &st) != 0 || !S_ISREG(st.st_mode))
        return keys;
    std::unique_ptr<CZelDataItem> table(CStoreFile::load(path));
    if (!table || !table->isDir())
        return keys;
    const std::string prefix = objectKey2(standardKey) + ":";
    for (CDataIterator it(table.get()); !it.done(); it.next()) {
        const std::string key = it.name().toUtf8();
        CZelString article;
        if (key.rfind(prefix, 0) == 0 && it.item() && it.item()->get(article) && !article.isEmpty())
            keys.push_back(key);
    }
    return keys;
}

std::vector<std::string> addedMaterials(const std::string& standardKey)
{
    std::vector<std::string> out;
    CZelDataKey key;
    key.set(5005, L"*QEN_NM_PROP*", 5005, CZelString::fromUtf8(objectKey2(standardKey)).c_str(), 5005, L"MAT", 0);
    const CZelDataItem* item = cfg_get(key);
    if (!item)
        return out;
    CZelArrayTempl<CZelString> list;
    CZelString single;
    if (item->get(list)) {
        for (int i = 0; i < list.count(); ++i)
            if (!list[i].isEmpty())
                out.push_back(list[i].toUtf8());
    } else if (item->get(single) && !single.isEmpty()) {
        out.push_back(single.toUtf8());
    }
    return out;
}

}  // namespace ZEL::normdetail
