// Generating a standard part from "*NM*" or from a node of the catalogue.
#include "ZelNormGen.h"

#include "CNormDatabase.h"
#include "ZelNormDetail.h"

#include "data/CConfig.h"
#include "data/CZelDataDir.h"
#include "data/ZelDataAccess.h"
#include "obj/ZelObjKey.h"
#include "obj/ZelObjOrder.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>

using namespace ZEL::normdetail;

namespace {
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

// The catalogue data of the last standard generated, kept until norm_gen_init(false).
struct Cache {
    std::string path;
    CNormDatabase::Standard standard;
};
Cache& cache()
{
    static Cache c;
    return c;
}

std::optional<CNormDatabase::Standard> standardAt(const std::string& path)
{
    Cache& c = cache();
    if (!c.path.empty() && c.path == path)
        return c.standard;
    auto standard = CNormDatabase::instance().standard(path);
    if (standard) {
        c.path = path;
        c.standard = *standard;
    }
    return standard;
}

CZelDataKey key(const wchar_t* name)
{
    return CZelDataKey(name);
}

CZelString wide(const std::string& text)
{
    return CZelString::fromUtf8(text);
}

// What the caller asks for; the resolution keeps what the catalogue offers.
struct Wanted {
    std::string size, material, variant;
    double length = kNaN, clamping = kNaN, radius = kNaN, depth = kNaN;
    bool freeLength = false;
};

struct Resolved {
    std::string size, material, variant;
    std::optional<double> length, clamping, radius, depth;
};

std::string readString(const CZelDataItem* item, const wchar_t* name)
{
    CZelString value;
    const CZelDataKey k = key(name);
    return item && item->get(value, &k) ? value.toUtf8() : std::string();
}

double readReal(const CZelDataItem* item, const wchar_t* name)
{
    double value = 0;
    int whole = 0;
    const CZelDataKey k = key(name);
    if (item && item->get(value, &k))
        return value;
    if (item && item->get(whole, &k))
        return whole;
    return kNaN;
}

ZEL::NormStack readStack(const CZelDataItem* item)
{
    ZEL::NormStack stack;
    if (!item)
        return stack;
    CZelArrayTempl<CZelString> list;
    CZelString single;
    const CZelDataKey k = key(L"STACK");
    if (item->get(list, &k)) {
        for (int i = 0; i < list.count(); ++i)
            stack.push_back(list[i].toUtf8());
    } else if (item->get(single, &k) && !single.isEmpty()) {
        stack.push_back(single.toUtf8());
    }
    return stack;
}

// The default length of a size: the first length greater than 0 from the position of the
// smallest absolute value on; none when no such length follows.
std::optional<double> firstPositive(const std::vector<double>& lengths)
{
    if (lengths.empty())
        return std::nullopt;
    std::size_t at = 0;
    for (std::size_t i = 1; i < lengths.size(); ++i)
        if (std::fabs(lengths[i]) < std::fabs(lengths[at]))
            at = i;
    for (std::size_t i = at; i < lengths.size(); ++i)
        if (lengths[i] > 0)
            return lengths[i];
    return std::nullopt;
}

double resolveLength(double wanted, const std::vector<double>& lengths, bool standardLengths)
{
    double length = std::isfinite(wanted) && wanted >= 0 ? wanted : 0;
    const bool given = std::isfinite(wanted) && wanted > 0;
    double minimum = std::fabs(lengths.front());
    for (const double l : lengths)
        minimum = std::min(minimum, std::fabs(l));
    if (given) {
        if (length <= minimum)
            length = minimum;
    } else if (const auto start = firstPositive(lengths); start && length <= *start) {
        length = *start;
    }
    if (standardLengths && length > 0) {
        const int near = ZEL::norm_len_near(length, lengths);
        if (near >= 0)
            length = std::fabs(lengths[static_cast<std::size_t>(near)]);
    }
    return length;
}

std::string pick(const std::string& wanted, const std::vector<std::string>& offered)
{
    if (std::find(offered.begin(), offered.end(), wanted) != offered.end())
        return wanted;
    return offered.empty() ? std::string() : offered.front();
}

Resolved resolve(const ZEL::NormStack& stack, const Wanted& in, bool onlyArticles)
{
    Resolved out;
    out.material = pick(in.material, ZEL::norm_mat_lst(stack, onlyArticles));
    out.variant = pick(in.variant, ZEL::norm_var_lst(stack, out.material, onlyArticles));
    const auto sizes = ZEL::norm_nd_lst(stack, out.material, out.variant, onlyArticles);
    if (std::find(sizes.begin(), sizes.end(), in.size) != sizes.end()) {
        out.size = in.size;
    } else {
        for (const auto& size : sizes) {
            ZEL::NormStack sizeStack = stack;
            sizeStack.push_back(size);
            if (!ZEL::norm_get(sizeStack, "AVOID")) {
                out.size = size;
                break;
            }
        }
        if (out.size.empty() && !sizes.empty())
            out.size = sizes.front();
    }
    if (out.size.empty())
        return out;
    ZEL::NormStack sizeStack = stack;
    sizeStack.push_back(out.size);
    const auto lengths = ZEL::norm_len_lst(sizeStack, out.material, out.variant);
    if (!lengths.empty()) {
        const bool onlyStandard = ZEL::norm_get(stack, "NODIN_LEN").value_or("0") == "1";
        out.length = resolveLength(in.length, lengths, onlyArticles || onlyStandard || !in.freeLength);
    }
    const auto table = ZEL::norm_klm_lst(sizeStack);
    if (!table.empty()) {
        const auto rows = ZEL::norm_klm(out.length.value_or(0), in.clamping, table);
        if (rows.size() == 2 && !rows[0].empty())
            out.clamping = rows[0][0];
    }
    const auto range = ZEL::norm_rad_lst(sizeStack);
    if (!range.empty())
        out.radius = ZEL::norm_radius(stack, in.radius, range);
    if (const auto depth = ZEL::norm_senk(sizeStack))
        out.depth = std::isfinite(in.depth) && in.depth > 0 ? in.depth : *depth;
    return out;
}

void setString(CZelDataItem* part, const wchar_t* name, const std::string& value)
{
    const CZelDataKey k = key(name);
    ZEL::dataItemSet(part, &k, wide(value));
}

void setReal(CZelDataItem* part, const wchar_t* name, std::optional<double> value)
{
    const CZelDataKey k = key(name);
    if (value)
        ZEL::dataItemSet(part, &k, *value);
    else
        part->remove(&k);
}

void setInt(CZelDataItem* part, const wchar_t* name, int value)
{
    const CZelDataKey k = key(name);
    ZEL::dataItemSet(part, &k, value);
}

// Writes the resolved values and what the catalogue knows of the standard into the part.
void fill(CZelDataItem* part, const ZEL::NormStack& stack, const CNormDatabase::Standard& standard, const Resolved& r)
{
    part->mkDir();
    setString(part, L"TYPE", "DIN");
    CZelArrayTempl<CZelString> stackList;
    for (const auto& element : stack)
        stackList.add(wide(element));
    const CZelDataKey stackKey = key(L"STACK");
    part->put(&stackKey, ZEL::mkResbuf(stackList));
    setString(part, L"NORM", standard.key);
    setString(part, L"CATEGORY", stack.size() > 1 ? stack[1] : std::string());
    setString(part, L"GROUP", stack.size() > 2 ? stack[2] : std::string());
    setInt(part, L"BARP", ZEL::norm_get(stack, "BARP").value_or("0") == "1" ? 1 : 0);
    setString(part, L"ND", r.size);
    setString(part, L"MAT", r.material);
    setString(part, L"VAR", r.variant);
    setReal(part, L"LEN", r.length);
    setReal(part, L"KLM", r.clamping);
    setReal(part, L"RAD", r.radius);
    setReal(part, L"SENK", r.depth);
    const CZelDataKey dimKey = key(L"DIM");
    part->remove(&dimKey);
    CZelDataItem* dims = part->make(&dimKey);
    dims->mkDir();
    if (!r.size.empty()) {
        ZEL::NormStack sizeStack = stack;
        sizeStack.push_back(r.size);
        for (const auto& [name, value] : ZEL::norm_size_dims(sizeStack)) {
            const CZelDataKey k(wide(name));
            ZEL::dataItemSet(dims, &k, value);
        }
    }
    setString(part, L"DES_DIN", designation(standard, "DIN"));
    setString(part, L"DES_ISO", designation(standard, "ISO"));
    setString(part, L"DES_EN", designation(standard, "EN"));
    setString(part, L"TITLE", standard.titleDe);
    setString(part, L"TITLE_EN", standard.titleEn);
    setString(part, L"MAT_LABEL", QEN::norm_mat_label(r.material, "de"));
    setString(part, L"MAT_LABEL_EN", QEN::norm_mat_label(r.material, "en"));
    // View and display flags as the dialog validates them.
    int view = 0;
    const CZelDataKey viewKey = key(L"VIEW");
    if (!part->get(view, &viewKey) || (view != 0 && view != 1 && view != 2 && view != 3 && view != 32 && view != 33 && view != 34))
        view = 0;
    setInt(part, L"VIEW", view);
    int axis = 0;
    const CZelDataKey axisKey = key(L"AXIS");
    if (!part->get(axis, &axisKey)) {
        const int own = static_cast<int>(toNumber(ZEL::norm_get(stack, "AXIS").value_or("-1")).value_or(-1));
        setInt(part, L"AXIS", own != -1 ? own : 1);
    }
    CZelString draw;
    const CZelDataKey drawKey = key(L"DRAW");
    if (part->find(&drawKey) && !(part->get(draw, &drawKey) && draw == L"SMDB"))
        part->remove(&drawKey);
    // The article number of exactly this part, when the table has one.
    const CZelDataKey orderKey = key(L"ORDER");
    part->remove(&orderKey);
    CZelString article;
    if (!r.size.empty() && ZEL::obj_order_get(ZEL::objKey(part, 4), article) && !article.isEmpty())
        ZEL::dataItemSet(part, &orderKey, article);
}

std::string stackPath(const ZEL::NormStack& stack)
{
    return stack.size() >= 2 ? pathOf(stack) : std::string();
}

// In only-articles mode the default part is the first one, in catalogue order of material,
// size and length, that has an article.
std::optional<Wanted> firstArticle(const ZEL::NormStack& stack, const CNormDatabase::Standard& standard)
{
    const auto keys = articleKeys(standard.key);
    if (keys.empty())
        return std::nullopt;
    for (const auto& material : ZEL::norm_mat_lst(stack, true))
        for (const auto& variant : ZEL::norm_var_lst(stack, material, true))
            for (const auto& size : ZEL::norm_nd_lst(stack, material, variant, true)) {
                Wanted w;
                w.material = material;
                w.variant = variant;
                w.size = size;
                const std::string prefix = objectKey2(standard.key) + ":" + keyPart(material) + ":" + keyPart(size);
                ZEL::NormStack sizeStack = stack;
                sizeStack.push_back(size);
                for (const double l : ZEL::norm_len_lst(sizeStack, material, variant))
                    if (std::find(keys.begin(), keys.end(), prefix + ":LEN=" + figure(std::fabs(l))) != keys.end()) {
                        w.length = std::fabs(l);
                        return w;
                    }
                return w;
            }
    return std::nullopt;
}
}  // namespace

namespace ZEL {

CZelDataItem* norm_gen(bool onlyArticles)
{
    const CZelDataItem* nm = cfg_get(L"*NM*");
    const NormStack stack = readStack(nm);
    const std::string path = stackPath(stack);
    const auto standard = path.empty() ? std::nullopt : standardAt(path);
    if (!standard)
        return nullptr;
    Wanted in;
    in.size = readString(nm, L"ND");
    in.material = readString(nm, L"MAT");
    in.variant = readString(nm, L"VAR");
    in.length = readReal(nm, L"LEN");
    in.clamping = readReal(nm, L"KLM");
    in.radius = readReal(nm, L"RAD");
    in.depth = readReal(nm, L"SENK");
    int nodin = 0;
    const CZelDataKey nodinKey(L"NODIN");
    in.freeLength = nm && nm->get(nodin, &nodinKey) && nodin == 1;
    auto part = std::make_unique<CZelDataItem>();
    if (nm && nm->isDir())
        part->assign(*nm);
    fill(part.get(), stack, *standard, resolve(stack, in, onlyArticles));
    return part.release();
}

CZelDataItem* norm_gen_from_stack(const NormStack& stack, bool onlyArticles)
{
    const std::string path = stackPath(stack);
    const auto standard = path.empty() ? std::nullopt : CNormDatabase::instance().standard(path);
    if (!standard)
        return nullptr;
    Wanted in;
    if (onlyArticles)
        in = firstArticle(stack, *standard).value_or(Wanted{});
    auto part = std::make_unique<CZelDataItem>();
    fill(part.get(), stack, *standard, resolve(stack, in, onlyArticles));
    return part.release();
}

void norm_gen_init(bool keep)
{
    if (!keep)
        cache() = Cache{};
}

void norm_obj_release(CZelDataItem* part)
{
    if (!part)
        return;
    // Chosen values: only where "*NM*" has none. Derived texts: always, so that labels of
    // "*NM*" follow the standard.
    static const wchar_t* const kWhereAbsent[] = {L"TYPE", L"STACK", L"ND", L"MAT", L"VAR", L"LEN", L"KLM",
                                                  L"RAD",  L"SENK",  L"VIEW", L"AXIS"};
    static const wchar_t* const kAlways[] = {L"NORM", L"DES_DIN", L"DES_ISO", L"DES_EN", L"TITLE", L"TITLE_EN",
                                             L"MAT_LABEL", L"MAT_LABEL_EN"};
    for (const wchar_t* name : kWhereAbsent) {
        const CZelDataKey k(name);
        const CZelDataItem* value = part->find(&k);
        if (!value)
            continue;
        const CZelDataKey target = CZelDataKey::twoPart(L"*NM*", name);
        if (!cfg_get(target))
            cfg_set(target, value->clone(), true);
    }
    for (const wchar_t* name : kAlways) {
        const CZelDataKey k(name);
        if (const CZelDataItem* value = part->find(&k))
            cfg_set(CZelDataKey::twoPart(L"*NM*", name), value->clone(), true);
    }
}

}  // namespace ZEL

namespace QEN {

void norm_prop_save()
{
    std::unique_ptr<CZelDataItem> part(ZEL::norm_gen(false));
    const CZelDataItem* nm = ZEL::cfg_get(L"*NM*");
    if (!part || !nm || !nm->isDir())
        return;
    const CZelString key3 = ZEL::objKey(part.get(), 3);
    if (key3.isEmpty())
        return;
    static const wchar_t* const kChoice[] = {L"STACK", L"ND",    L"LEN",  L"KLM", L"RAD", L"SENK", L"VAR",   L"MAT",
                                             L"MAT_CUR", L"NODIN", L"ORDER", L"MODE", L"DSP", L"SEARCH", L"OBJ"};
    auto props = std::make_unique<CZelDataItem>();
    props->assign(*nm);
    for (const wchar_t* name : kChoice) {
        const CZelDataKey k(name);
        props->remove(&k);
    }
    CZelDataKey target;
    target.set(5005, L"*QEN_OBJ_PROP*", 5005, key3.c_str(), 0);
    ZEL::cfg_set(target, props.release(), true);
}

void norm_grp_reset()
{
    ZEL::norm_gen_init(false);
    const CZelDataItem* nm = ZEL::cfg_get(L"*NM*");
    const ZEL::NormStack stack = readStack(nm);
    if (stackPath(stack).empty() || !CNormDatabase::instance().standard(pathOf(stack)))
        return;
    const auto materials = ZEL::norm_mat_lst(stack, false);
    const std::string material = readString(nm, L"MAT");
    if (materials.empty() || std::find(materials.begin(), materials.end(), material) != materials.end())
        return;
    auto value = std::make_unique<CZelDataItem>(ZEL::mkResbuf(wide(materials.front()).c_str()));
    ZEL::cfg_set(CZelDataKey::twoPart(L"*NM*", L"MAT"), value.release(), true);
}

}  // namespace QEN
