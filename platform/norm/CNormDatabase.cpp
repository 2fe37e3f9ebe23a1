// One connection, opened read-only; the statements are prepared once at opening and reset
// after each use. Nothing here writes: the database is a build product.
#include "CNormDatabase.h"

#include <sqlite3.h>

#include <dlfcn.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>

namespace {
const char* const kSql[] = {
    // Families
    "SELECT name FROM family ORDER BY ord",
    // Root: every tree node (no sizes) with its parent's path, children in their order
    "SELECT n.key, coalesce(p.path, '') FROM node n LEFT JOIN node p ON p.id = n.parent WHERE n.type <> 'SIZE' "
    "ORDER BY n.parent, n.ord",
    // Property
    "SELECT v.value FROM node n JOIN prop v ON v.node = n.id WHERE n.path = ?1 AND v.name = ?2",
    // Standards: every standard, in the order the tree was built
    "SELECT n.path, s.key, s.din, s.iso, s.en_iso, s.en, s.other, s.title_de, s.title_en "
    "FROM standard s JOIN node n ON s.node = n.id ORDER BY n.id",
    // Sizes
    "SELECT z.name FROM node n JOIN size z ON z.standard = n.id WHERE n.path = ?1 AND (?2 = '' OR z.variant = ?2) "
    "ORDER BY z.ord",
    // Lengths
    "SELECT l.nominal FROM node n JOIN size z ON z.node = n.id JOIN length l ON l.standard = z.standard "
    "WHERE n.path = ?1 AND l.nominal >= z.l_min AND l.nominal <= z.l_max ORDER BY l.ord",
    // Materials
    "SELECT m.key FROM node n JOIN material_standard ms ON ms.standard = n.id JOIN material m ON m.ord = ms.material "
    "WHERE n.path = ?1 ORDER BY m.ord",
    // MaterialLabel
    "SELECT label_de, label_en FROM material WHERE key = ?1",
    // Areas
    "SELECT code, label_de, label_en FROM area ORDER BY ord",
};
static_assert(sizeof(kSql) / sizeof(kSql[0]) == 9);

std::string column(sqlite3_stmt* statement, int index)
{
    const auto* text = sqlite3_column_text(statement, index);
    return text ? reinterpret_cast<const char*>(text) : std::string();
}

// Resets the statement when the query is done, however it ends.
struct Reset {
    sqlite3_stmt* statement;
    ~Reset()
    {
        if (statement) {
            sqlite3_reset(statement);
            sqlite3_clear_bindings(statement);
        }
    }
};

void bind(sqlite3_stmt* statement, int index, const std::string& text)
{
    sqlite3_bind_text(statement, index, text.c_str(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
}

void anchor() {}
}  // namespace

CNormDatabase::CNormDatabase(const std::string& path) : m_path(path)
{
    std::error_code ec;
    if (!std::filesystem::is_regular_file(path, ec)) {
        m_error = "standard-parts database not found: " + path;
        return;
    }
    if (sqlite3_open_v2(path.c_str(), &m_db, SQLITE_OPEN_READONLY | SQLITE_OPEN_NOMUTEX, nullptr) != SQLITE_OK) {
        m_error = "standard-parts database cannot be opened: " + path + " (" + (m_db ? sqlite3_errmsg(m_db) : "no memory") + ")";
        sqlite3_close(m_db);
        m_db = nullptr;
        return;
    }
    for (int q = 0; q < QueryCount; ++q) {
        if (sqlite3_prepare_v3(m_db, kSql[q], -1, SQLITE_PREPARE_PERSISTENT, &m_statements[q], nullptr) != SQLITE_OK) {
            m_error = "standard-parts database damaged: " + path + " (" + sqlite3_errmsg(m_db) + ")";
            break;
        }
    }
    if (m_error.empty() && families().empty())
        m_error = "standard-parts database damaged: " + path + " (no families)";
    if (!m_error.empty()) {
        for (auto*& statement : m_statements) {
            sqlite3_finalize(statement);
            statement = nullptr;
        }
        sqlite3_close(m_db);
        m_db = nullptr;
    }
}

CNormDatabase::~CNormDatabase()
{
    for (auto* statement : m_statements)
        sqlite3_finalize(statement);
    sqlite3_close(m_db);
}

namespace {
std::unique_ptr<CNormDatabase>& current()
{
    static std::unique_ptr<CNormDatabase> database;
    return database;
}
}  // namespace

CNormDatabase& CNormDatabase::instance()
{
    auto& database = current();
    if (!database) {
        database = std::make_unique<CNormDatabase>(locate());
        // Reported once: the dialogs ask again and again, and every answer is empty anyway.
        if (!database->isOpen())
            std::fprintf(stderr, "%s\n", database->error().c_str());
    }
    return *database;
}

void CNormDatabase::reopen(const std::string& path)
{
    current() = std::make_unique<CNormDatabase>(path.empty() ? locate() : path);
}

std::string CNormDatabase::locate()
{
    if (const char* env = std::getenv("QEN_NORM_DB"); env && *env)
        return env;
    std::filesystem::path holder;
    Dl_info info{};
    if (dladdr(reinterpret_cast<void*>(&anchor), &info) && info.dli_fname && std::string(info.dli_fname).find('/') != std::string::npos)
        holder = info.dli_fname;
    else {
        std::error_code ec;
        holder = std::filesystem::read_symlink("/proc/self/exe", ec);
    }
    return (holder.parent_path() / "qen_norm.db").string();
}

sqlite3_stmt* CNormDatabase::prepared(Query query)
{
    return m_db ? m_statements[query] : nullptr;
}

std::vector<std::string> CNormDatabase::texts(Query query, const std::string& path)
{
    std::vector<std::string> out;
    sqlite3_stmt* statement = prepared(query);
    if (!statement)
        return out;
    Reset reset{statement};
    if (query != Families && query != Root)
        bind(statement, 1, path);
    while (sqlite3_step(statement) == SQLITE_ROW)
        out.push_back(column(statement, 0));
    return out;
}

std::vector<std::string> CNormDatabase::families()
{
    return texts(Families, {});
}

const CNormDatabase::Index& CNormDatabase::tree()
{
    if (m_index.loaded || !m_db)
        return m_index;
    m_index.loaded = true;
    if (sqlite3_stmt* statement = prepared(Root)) {
        Reset reset{statement};
        while (sqlite3_step(statement) == SQLITE_ROW)
            m_index.children[column(statement, 1)].push_back(column(statement, 0));
    }
    if (sqlite3_stmt* statement = prepared(Standards)) {
        Reset reset{statement};
        while (sqlite3_step(statement) == SQLITE_ROW) {
            m_index.standards.push_back(readStandard(statement));
            m_index.standardAt[m_index.standards.back().path] = m_index.standards.size() - 1;
        }
    }
    return m_index;
}

std::vector<std::string> CNormDatabase::children(const std::string& path)
{
    const Index& index = tree();
    const auto found = index.children.find(path);
    return found == index.children.end() ? std::vector<std::string>() : found->second;
}

std::optional<std::string> CNormDatabase::property(const std::string& path, const std::string& name)
{
    sqlite3_stmt* statement = prepared(Property);
    if (!statement)
        return std::nullopt;
    Reset reset{statement};
    bind(statement, 1, path);
    bind(statement, 2, name);
    if (sqlite3_step(statement) != SQLITE_ROW)
        return std::nullopt;
    return column(statement, 0);
}

CNormDatabase::Standard CNormDatabase::readStandard(sqlite3_stmt* statement)
{
    Standard s;
    s.path = column(statement, 0);
    s.key = column(statement, 1);
    s.din = column(statement, 2);
    s.iso = column(statement, 3);
    s.enIso = column(statement, 4);
    s.en = column(statement, 5);
    s.other = column(statement, 6);
    s.titleDe = column(statement, 7);
    s.titleEn = column(statement, 8);
    return s;
}

std::optional<CNormDatabase::Standard> CNormDatabase::standard(const std::string& path)
{
    const Index& index = tree();
    const auto found = index.standardAt.find(path);
    if (found == index.standardAt.end())
        return std::nullopt;
    return index.standards[found->second];
}

std::vector<CNormDatabase::Standard> CNormDatabase::standardsBelow(const std::string& path)
{
    std::vector<Standard> out;
    forEachStandardBelow(path, [&](const Standard& s) { out.push_back(s); });
    return out;
}

std::vector<std::string> CNormDatabase::sizes(const std::string& path, const std::string& variant)
{
    std::vector<std::string> out;
    sqlite3_stmt* statement = prepared(Sizes);
    if (!statement)
        return out;
    Reset reset{statement};
    bind(statement, 1, path);
    bind(statement, 2, variant);
    while (sqlite3_step(statement) == SQLITE_ROW)
        out.push_back(column(statement, 0));
    return out;
}

std::vector<double> CNormDatabase::lengths(const std::string& sizePath)
{
    std::vector<double> out;
    sqlite3_stmt* statement = prepared(Lengths);
    if (!statement)
        return out;
    Reset reset{statement};
    bind(statement, 1, sizePath);
    while (sqlite3_step(statement) == SQLITE_ROW)
        out.push_back(sqlite3_column_double(statement, 0));
    return out;
}

std::vector<std::string> CNormDatabase::materials(const std::string& path)
{
    return texts(Materials, path);
}

std::optional<std::pair<std::string, std::string>> CNormDatabase::materialLabels(const std::string& key)
{
    sqlite3_stmt* statement = prepared(MaterialLabel);
    if (!statement)
        return std::nullopt;
    Reset reset{statement};
    bind(statement, 1, key);
    if (sqlite3_step(statement) != SQLITE_ROW)
        return std::nullopt;
    return std::make_pair(column(statement, 0), column(statement, 1));
}

std::vector<CNormDatabase::Area> CNormDatabase::areas()
{
    std::vector<Area> out;
    sqlite3_stmt* statement = prepared(Areas);
    if (!statement)
        return out;
    Reset reset{statement};
    while (sqlite3_step(statement) == SQLITE_ROW)
        out.push_back({column(statement, 0), column(statement, 1), column(statement, 2)});
    return out;
}
