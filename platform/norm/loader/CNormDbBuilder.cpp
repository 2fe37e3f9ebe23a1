// The loader behind qen-normdb. The schema is the contract with CNormDatabase: nodes keyed by
// their path (the selection stack joined with "\"), properties per node, and the tables that
// the list queries read with one indexed statement each.
#include "CNormDbBuilder.h"

#include "CNormCsv.h"

#include <sqlite3.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <regex>
#include <map>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <vector>

namespace {

const char* const kSchema = R"SQL(
CREATE TABLE node(id INTEGER PRIMARY KEY, parent INTEGER, path TEXT NOT NULL UNIQUE, key TEXT NOT NULL,
                  type TEXT NOT NULL, ord INTEGER NOT NULL);
CREATE INDEX node_parent ON node(parent, ord);
CREATE TABLE prop(node INTEGER NOT NULL, name TEXT NOT NULL, value TEXT NOT NULL, PRIMARY KEY(node, name)) WITHOUT ROWID;
CREATE TABLE family(ord INTEGER PRIMARY KEY, name TEXT NOT NULL UNIQUE);
CREATE TABLE standard(node INTEGER PRIMARY KEY, key TEXT NOT NULL UNIQUE, din TEXT NOT NULL, iso TEXT NOT NULL,
                      en_iso TEXT NOT NULL, en TEXT NOT NULL, other TEXT NOT NULL, title_de TEXT NOT NULL,
                      title_en TEXT NOT NULL, category TEXT NOT NULL);
CREATE TABLE size(node INTEGER PRIMARY KEY, standard INTEGER NOT NULL, ord INTEGER NOT NULL, name TEXT NOT NULL,
                  preferred INTEGER NOT NULL, l_min REAL, l_max REAL, variant TEXT NOT NULL);
CREATE INDEX size_standard ON size(standard, ord);
CREATE TABLE length(standard INTEGER NOT NULL, ord INTEGER NOT NULL, nominal REAL NOT NULL, min REAL NOT NULL,
                    max REAL NOT NULL, min_f REAL, max_f REAL, PRIMARY KEY(standard, ord)) WITHOUT ROWID;
CREATE INDEX length_nominal ON length(standard, nominal);
CREATE TABLE material(ord INTEGER PRIMARY KEY, key TEXT NOT NULL UNIQUE, label_de TEXT NOT NULL, label_en TEXT NOT NULL);
CREATE TABLE material_standard(standard INTEGER NOT NULL, material INTEGER NOT NULL, PRIMARY KEY(standard, material)) WITHOUT ROWID;
CREATE TABLE area(ord INTEGER PRIMARY KEY, code TEXT NOT NULL UNIQUE, label_de TEXT NOT NULL, label_en TEXT NOT NULL);
)SQL";

struct Fault : std::runtime_error {
    using std::runtime_error::runtime_error;
};

std::vector<std::string> split(const std::string& text, char sep)
{
    std::vector<std::string> parts;
    if (text.empty())
        return parts;
    std::string part;
    std::istringstream in(text);
    while (std::getline(in, part, sep))
        parts.push_back(part);
    return parts;
}

double number(const CNormCsv& table, std::size_t row, std::size_t col)
{
    const std::string& cell = table.rows()[row][col];
    try {
        std::size_t used = 0;
        const double value = std::stod(cell, &used);
        if (used == cell.size())
            return value;
    } catch (const std::exception&) {
    }
    throw Fault(table.path() + ":" + std::to_string(table.line(row)) + ": \"" + cell + "\" in column " +
                table.header()[col] + " is not a number");
}

class Table {
public:
    explicit Table(const std::string& path) : m_table(load(path)) {}
    const CNormCsv& operator*() const { return m_table; }
    const CNormCsv* operator->() const { return &m_table; }
    std::size_t col(const std::string& name) const
    {
        const auto index = m_table.column(name);
        if (!index)
            throw Fault(m_table.path() + ":1: no column \"" + name + "\"");
        return *index;
    }

private:
    static CNormCsv load(const std::string& path)
    {
        std::string why;
        auto table = CNormCsv::read(path, why);
        if (!table)
            throw Fault(why);
        return std::move(*table);
    }
    CNormCsv m_table;
};

// A prepared statement bound and stepped once per row.
class Insert {
public:
    Insert(sqlite3* db, const char* sql) : m_db(db)
    {
        if (sqlite3_prepare_v2(db, sql, -1, &m_stmt, nullptr) != SQLITE_OK)
            throw Fault(std::string("database: ") + sqlite3_errmsg(db));
    }
    ~Insert() { sqlite3_finalize(m_stmt); }
    Insert(const Insert&) = delete;
    Insert& operator=(const Insert&) = delete;

    Insert& text(int i, const std::string& v)
    {
        sqlite3_bind_text(m_stmt, i, v.c_str(), static_cast<int>(v.size()), SQLITE_TRANSIENT);
        return *this;
    }
    Insert& integer(int i, sqlite3_int64 v)
    {
        sqlite3_bind_int64(m_stmt, i, v);
        return *this;
    }
    Insert& real(int i, double v)
    {
        sqlite3_bind_double(m_stmt, i, v);
        return *this;
    }
    Insert& null(int i)
    {
        sqlite3_bind_null(m_stmt, i);
        return *this;
    }
    void run()
    {
        const int rc = sqlite3_step(m_stmt);
        sqlite3_reset(m_stmt);
        sqlite3_clear_bindings(m_stmt);
        if (rc != SQLITE_DONE)
            throw Fault(std::string("database: ") + sqlite3_errmsg(m_db));
    }

private:
    sqlite3* m_db;
    sqlite3_stmt* m_stmt = nullptr;
};

void exec(sqlite3* db, const char* sql)
{
    char* message = nullptr;
    if (sqlite3_exec(db, sql, nullptr, nullptr, &message) != SQLITE_OK) {
        const std::string text = message ? message : "unknown fault";
        sqlite3_free(message);
        throw Fault("database: " + text);
    }
}

class Loader {
public:
    Loader(const std::filesystem::path& folder, sqlite3* db)
        : m_folder(folder), m_db(db), m_node(db, "INSERT INTO node(id, parent, path, key, type, ord) VALUES(?,?,?,?,?,?)"),
          m_prop(db, "INSERT INTO prop(node, name, value) VALUES(?,?,?)")
    {
    }

    void run()
    {
        readTitles();
        readAdditions();
        families();
        areas();
        tree();
        materials();
        for (const auto& [key, release] : m_releases)
            throw Fault(file("releases.csv") + ": unknown standard \"" + key + "\"");
    }

private:
    std::string file(const std::string& relative) const { return (m_folder / relative).string(); }

    void readTitles()
    {
        const Table nodes(file("nodes.csv"));
        const auto d = nodes.col("domain"), c = nodes.col("category"), g = nodes.col("group");
        const auto de = nodes.col("title_de"), en = nodes.col("title_en");
        for (const auto& row : nodes->rows()) {
            std::string path = row[d];
            if (!row[c].empty())
                path += "\\" + row[c];
            if (!row[g].empty())
                path += "\\" + row[g];
            m_titles[path] = {row[de], row[en]};
        }
    }

    // The project's additions beside the reference figures: release masks, section stock
    // lengths, thread variants, radius ranges, and the nut heights the clamping tables use.
    void readAdditions()
    {
        const Table releases(file("releases.csv"));
        const auto key = releases.col("key"), release = releases.col("release");
        for (const auto& row : releases->rows())
            m_releases[row[key]] = row[release];
        const Table stock(file("stock-lengths.csv"));
        const auto nominal = stock.col("nominal");
        for (std::size_t r = 0; r < stock->rows().size(); ++r) {
            const double value = number(*stock, r, nominal);
            if (value <= 0 || (!m_stock.empty() && value <= m_stock.back()))
                throw Fault(stock->path() + ":" + std::to_string(stock->line(r)) + ": stock lengths must increase and be above 0");
            m_stock.push_back(value);
        }
        const Table variants(file("variants.csv"));
        const auto name = variants.col("variant"), de = variants.col("label_de"), en = variants.col("label_en");
        const auto fine = variants.col("fine");
        for (const auto& row : variants->rows())
            m_variants.push_back({row[name], row[de], row[en], row[fine] == "1"});
        const Table radii(file("radii.csv"));
        const auto rKey = radii.col("key"), rCol = radii.col("column"), rMin = radii.col("min_factor"),
                   rMax = radii.col("max_factor");
        for (std::size_t r = 0; r < radii->rows().size(); ++r) {
            const auto& row = radii->rows()[r];
            m_radii[row[rKey]] = {row[rCol], number(*radii, r, rMin), number(*radii, r, rMax)};
        }
        const Table nuts(file("pieces/ISO4032.csv"));
        const auto size = nuts.col("size"), m = nuts.col("m");
        for (std::size_t r = 0; r < nuts->rows().size(); ++r)
            m_nutHeight[nuts->rows()[r][size]] = number(*nuts, r, m);
    }

    void areas()
    {
        const Table table(file("areas.csv"));
        const auto code = table.col("code"), de = table.col("label_de"), en = table.col("label_en");
        Insert area(m_db, "INSERT INTO area(ord, code, label_de, label_en) VALUES(?,?,?,?)");
        for (std::size_t r = 0; r < table->rows().size(); ++r) {
            const auto& row = table->rows()[r];
            area.integer(1, static_cast<sqlite3_int64>(r)).text(2, row[code]).text(3, row[de]).text(4, row[en]).run();
        }
    }

    void families()
    {
        Insert family(m_db, "INSERT INTO family(ord, name) VALUES(?,?)");
        const char* names[] = {"DIN", "ISO", "EN"};
        for (int i = 0; i < 3; ++i)
            family.integer(1, i).text(2, names[i]).run();
    }

    sqlite3_int64 node(sqlite3_int64 parent, const std::string& path, const std::string& key, const std::string& type, int ord)
    {
        const sqlite3_int64 id = ++m_lastId;
        if (parent == 0)
            m_node.null(2);
        else
            m_node.integer(2, parent);
        m_node.integer(1, id).text(3, path).text(4, key).text(5, type).integer(6, ord).run();
        prop(id, "TYPE", type);
        return id;
    }
    void prop(sqlite3_int64 id, const std::string& name, const std::string& value)
    {
        m_prop.integer(1, id).text(2, name).text(3, value).run();
    }
    // An inner node with its titles from nodes.csv.
    sqlite3_int64 inner(sqlite3_int64 parent, const std::string& path, const std::string& key, const std::string& type, int ord)
    {
        const auto title = m_titles.find(path);
        if (title == m_titles.end())
            throw Fault(file("nodes.csv") + ": no titles for the node " + path);
        const sqlite3_int64 id = node(parent, path, key, type, ord);
        prop(id, "LABEL", title->second.first);
        prop(id, "LABEL_EN", title->second.second);
        prop(id, "PROTOTYPE", key);
        return id;
    }

    void tree()
    {
        const Table standards(file("standards.csv"));
        const auto colDomain = standards.col("domain"), colCategory = standards.col("category");
        const auto colGroup = standards.col("group");
        // Inner nodes are created on first use, so that they keep the order of standards.csv;
        // the domains come first, in their fixed order, so that the ids follow the tree.
        std::map<std::string, sqlite3_int64> ids;
        std::map<sqlite3_int64, int> childCount;
        int domainOrd = 0;
        for (const char* domain : {"BAR", "PIECE"})
            ids[domain] = inner(0, domain, domain, "DOMAIN", domainOrd++);
        // Walk the standards grouped by domain, category and group in order of first
        // appearance, so that node ids are a pre-order of the tree.
        std::vector<std::string> groups;
        std::map<std::string, std::vector<std::size_t>> members;
        for (std::size_t r = 0; r < standards->rows().size(); ++r) {
            const auto& row = standards->rows()[r];
            if (row[colDomain] != "BAR" && row[colDomain] != "PIECE")
                throw Fault(standards->path() + ":" + std::to_string(standards->line(r)) + ": unknown domain \"" +
                            row[colDomain] + "\"");
            const std::string path = row[colDomain] + "\\" + row[colCategory] + "\\" + row[colGroup];
            if (!members.count(path))
                groups.push_back(path);
            members[path].push_back(r);
        }
        for (const char* domain : {"BAR", "PIECE"}) {
            std::vector<std::string> categories;
            for (const auto& path : groups) {
                const auto parts = split(path, '\\');
                if (parts[0] != domain)
                    continue;
                const std::string categoryPath = parts[0] + "\\" + parts[1];
                if (!ids.count(categoryPath)) {
                    const sqlite3_int64 parent = ids[parts[0]];
                    ids[categoryPath] = inner(parent, categoryPath, parts[1], "CATEGORY", childCount[parent]++);
                    categories.push_back(categoryPath);
                }
            }
            for (const auto& categoryPath : categories)
                for (const auto& path : groups) {
                    if (path.rfind(categoryPath + "\\", 0) != 0)
                        continue;
                    const sqlite3_int64 parent = ids[categoryPath];
                    const sqlite3_int64 group = inner(parent, path, split(path, '\\')[2], "GROUP", childCount[parent]++);
                    int ord = 0;
                    for (const std::size_t r : members[path])
                        standard(*standards, r, group, path, ord++);
                }
        }
    }

    void standard(const CNormCsv& table, std::size_t r, sqlite3_int64 parent, const std::string& parentPath, int ord)
    {
        const auto& row = table.rows()[r];
        auto cell = [&](const char* name) -> const std::string& {
            const auto c = table.column(name);
            if (!c)
                throw Fault(table.path() + ":1: no column \"" + std::string(name) + "\"");
            return row[*c];
        };
        const std::string key = cell("key");
        const std::string path = parentPath + "\\" + key;
        const sqlite3_int64 id = node(parent, path, key, "NORM", ord);
        m_standards[key] = {id, cell("category")};
        Insert insert(m_db, "INSERT INTO standard(node, key, din, iso, en_iso, en, other, title_de, title_en, category) "
                            "VALUES(?,?,?,?,?,?,?,?,?,?)");
        insert.integer(1, id).text(2, key).text(3, cell("din")).text(4, cell("iso")).text(5, cell("en_iso"));
        insert.text(6, cell("en")).text(7, cell("other")).text(8, cell("title_de")).text(9, cell("title_en"));
        insert.text(10, cell("category")).run();
        const bool bar = cell("domain") == "BAR";
        prop(id, "LABEL", cell("title_de"));
        prop(id, "LABEL_EN", cell("title_en"));
        prop(id, "PROTOTYPE", key);
        prop(id, "BARP", bar ? "1" : "0");
        prop(id, "INSUNIT", "4");
        prop(id, "NODIN_LEN", "0");
        prop(id, "AXIS", "-1");
        prop(id, "GRP_IDX", "0");
        const auto radius = m_radii.find(key);
        const std::string further = radius != m_radii.end() ? std::string("RAD") : cell("further_dim");
        prop(id, "FURTHER", further);
        const auto release = m_releases.find(key);
        if (release == m_releases.end())
            throw Fault(file("releases.csv") + ": no release for the standard " + key);
        prop(id, "RELEASE", release->second);
        m_releases.erase(release);

        std::string dimensions, lengths, ranges;
        for (const auto& f : split(cell("files"), ';')) {
            if (f.size() > 12 && f.ends_with("-lengths.csv"))
                lengths = f;
            else if (f.size() > 11 && f.ends_with("-ranges.csv"))
                ranges = f;
            else if (dimensions.empty())
                dimensions = f;
            else
                throw Fault(table.path() + ":" + std::to_string(table.line(r)) + ": more than one dimension table");
        }
        if (dimensions.empty())
            throw Fault(table.path() + ":" + std::to_string(table.line(r)) + ": no dimension table");
        if (lengths.empty() != ranges.empty())
            throw Fault(table.path() + ":" + std::to_string(table.line(r)) + ": a length series needs its ranges file");
        std::vector<double> series;
        if (!lengths.empty())
            series = lengthSeries(id, lengths);
        else if (bar)
            series = stockLengths(id);
        Sizes sizesOf{id, path, dimensions, ranges, further, bar, series,
                      radius != m_radii.end() ? &radius->second : nullptr};
        sizes(sizesOf);
    }

    std::vector<double> stockLengths(sqlite3_int64 standard)
    {
        Insert insert(m_db, "INSERT INTO length(standard, ord, nominal, min, max, min_f, max_f) VALUES(?,?,?,?,?,NULL,NULL)");
        for (std::size_t r = 0; r < m_stock.size(); ++r)
            insert.integer(1, standard).integer(2, static_cast<sqlite3_int64>(r)).real(3, m_stock[r]).real(4, m_stock[r]).real(5, m_stock[r]).run();
        return m_stock;
    }

    std::vector<double> lengthSeries(sqlite3_int64 standard, const std::string& relative)
    {
        std::vector<double> series;
        const Table table(file(relative));
        const auto nominal = table.col("nominal"), lo = table.col("min"), hi = table.col("max");
        const auto loF = table->column("min_f"), hiF = table->column("max_f");
        Insert insert(m_db, "INSERT INTO length(standard, ord, nominal, min, max, min_f, max_f) VALUES(?,?,?,?,?,?,?)");
        for (std::size_t r = 0; r < table->rows().size(); ++r) {
            insert.integer(1, standard).integer(2, static_cast<sqlite3_int64>(r)).real(3, number(*table, r, nominal));
            insert.real(4, number(*table, r, lo)).real(5, number(*table, r, hi));
            if (loF && hiF)
                insert.real(6, number(*table, r, *loF)).real(7, number(*table, r, *hiF));
            else
                insert.null(6).null(7);
            insert.run();
            series.push_back(number(*table, r, nominal));
        }
        return series;
    }

    struct Radius {
        std::string column;
        double minFactor, maxFactor;
    };
    struct Sizes {
        sqlite3_int64 standard;
        std::string path, dimensions, rangesFile, further;
        bool bar;
        std::vector<double> series;  // the standard's lengths (stock lengths for a section)
        const Radius* radius;
    };

    static std::string figure(double value)
    {
        char text[32];
        std::snprintf(text, sizeof text, "%.10g", value);
        return text;
    }

    static bool fineThread(const std::string& size)
    {
        static const std::regex pattern(R"(M[0-9.]+x[0-9.]+)");
        return std::regex_match(size, pattern);
    }

    // The clamping-length table of a bolt or screw size: for each standard length l of the
    // size, the clamped thickness runs from l - b (the thread must reach into the clamped
    // parts, so that the nut bears on thread) to l - m (the bolt ends flush with the nut),
    // b the thread length for that length (ISO 4014: b1 up to 125 mm, b2 up to 200 mm, b3
    // beyond; fully threaded screws: the whole length) and m the height of the ISO 4032 nut
    // of the size. Negative minima become 0; lengths that leave no room for the nut are left out.
    std::string clampingTable(const CNormCsv& table, std::size_t r, const std::string& sizeName, double lMin, double lMax,
                              const std::vector<double>& series) const
    {
        const auto nut = m_nutHeight.find(sizeName);
        if (nut == m_nutHeight.end())
            throw Fault(table.path() + ":" + std::to_string(table.line(r)) + ": no ISO 4032 nut height for the size " + sizeName);
        const auto b1 = table.column("b1"), b2 = table.column("b2"), b3 = table.column("b3");
        std::string rows;
        for (const double l : series) {
            if (l < lMin || l > lMax)
                continue;
            double thread = l;
            if (b1 && b2 && b3)
                thread = number(table, r, l <= 125 ? *b1 : l <= 200 ? *b2 : *b3);
            const double lo = std::max(0.0, l - thread), hi = l - nut->second;
            if (hi <= 0 || hi < lo)
                continue;
            rows += (rows.empty() ? "" : ";") + figure(l) + "," + figure(lo) + "," + figure(hi);
        }
        return rows;
    }

    void sizes(const Sizes& in)
    {
        const Table table(file(in.dimensions));
        const bool piece = table->column("size").has_value();
        const std::size_t name = piece ? table.col("size") : table.col("name");
        const auto preferred = table->column("preferred");
        const std::size_t firstData = piece ? table.col("d") : name + 1;
        const bool senk = in.further == "SENK";
        const std::size_t senkCol = senk ? table.col("csh_height") : 0;
        const std::size_t radiusCol = in.radius ? table.col(in.radius->column) : 0;
        std::string columns;
        for (std::size_t c = firstData; c < table->header().size(); ++c)
            columns += (c == firstData ? "" : ";") + table->header()[c];
        prop(in.standard, "COLUMNS", columns);
        bool variants = false;
        for (const auto& row : table->rows())
            variants = variants || (piece && fineThread(row[name]));
        if (variants) {
            std::string list;
            for (const auto& v : m_variants) {
                list += (list.empty() ? "" : ";") + v.name;
                prop(in.standard, "VAR\\" + v.name + "\\LABEL", v.labelDe);
                prop(in.standard, "VAR\\" + v.name + "\\LABEL_EN", v.labelEn);
            }
            prop(in.standard, "VARIANTS", list);
        } else {
            // The one variant of every other standard is the empty one; it is named, so that
            // the dialog's (disabled) variant line says what the part is.
            prop(in.standard, "VAR\\\\LABEL", "Standard");
            prop(in.standard, "VAR\\\\LABEL_EN", "Standard");
        }
        std::map<std::string, std::pair<double, double>> ranges;
        if (!in.rangesFile.empty()) {
            const Table rangeTable(file(in.rangesFile));
            const auto size = rangeTable.col("size"), lo = rangeTable.col("l_min"), hi = rangeTable.col("l_max");
            for (std::size_t r = 0; r < rangeTable->rows().size(); ++r) {
                const std::string& sizeName = rangeTable->rows()[r][size];
                ranges[sizeName] = {number(*rangeTable, r, lo), number(*rangeTable, r, hi)};
            }
        }
        Insert insert(m_db, "INSERT INTO size(node, standard, ord, name, preferred, l_min, l_max, variant) VALUES(?,?,?,?,?,?,?,?)");
        for (std::size_t r = 0; r < table->rows().size(); ++r) {
            const auto& row = table->rows()[r];
            const std::string& sizeName = row[name];
            if (sizeName.empty() || sizeName.find('\\') != std::string::npos)
                throw Fault(table->path() + ":" + std::to_string(table->line(r)) + ": unusable size name \"" + sizeName + "\"");
            const bool isPreferred = !preferred || row[*preferred] != "0";
            const sqlite3_int64 id = node(in.standard, in.path + "\\" + sizeName, sizeName, "SIZE", static_cast<int>(r));
            if (!isPreferred)
                prop(id, "AVOID", "1");
            std::string data;
            for (std::size_t c = firstData; c < row.size(); ++c)
                data += (c == firstData ? "" : ";") + row[c];
            prop(id, "DATA", data);
            if (senk)
                prop(id, "SENK", row[senkCol]);
            if (in.radius) {
                const double basis = number(*table, r, radiusCol);
                prop(id, "RAD", figure(basis * in.radius->minFactor) + ";" + figure(basis * in.radius->maxFactor));
            }
            std::string variant;
            for (const auto& v : m_variants)
                if (variants && v.fine == fineThread(sizeName) && variant.empty())
                    variant = v.name;
            insert.integer(1, id).integer(2, in.standard).integer(3, static_cast<sqlite3_int64>(r)).text(4, sizeName);
            insert.integer(5, isPreferred ? 1 : 0);
            const auto range = ranges.find(sizeName);
            std::optional<std::pair<double, double>> limits;
            if (range != ranges.end())
                limits = range->second;
            else if (in.bar && !in.series.empty())
                limits = std::make_pair(in.series.front(), in.series.back());
            if (limits)
                insert.real(6, limits->first).real(7, limits->second);
            else
                insert.null(6).null(7);
            insert.text(8, variant).run();
            if (in.further == "KLM" && limits) {
                const std::string rows = clampingTable(*table, r, sizeName, limits->first, limits->second, in.series);
                if (!rows.empty())
                    prop(id, "KLM\\LST", rows);
            }
        }
    }

    void materials()
    {
        const Table table(file("materials.csv"));
        const auto key = table.col("key"), de = table.col("label_de"), en = table.col("label_en");
        const auto categories = table.col("categories"), standards = table.col("standards");
        Insert material(m_db, "INSERT INTO material(ord, key, label_de, label_en) VALUES(?,?,?,?)");
        Insert link(m_db, "INSERT INTO material_standard(standard, material) VALUES(?,?)");
        for (std::size_t r = 0; r < table->rows().size(); ++r) {
            const auto& row = table->rows()[r];
            material.integer(1, static_cast<sqlite3_int64>(r)).text(2, row[key]).text(3, row[de]).text(4, row[en]).run();
            const auto cats = split(row[categories], ';');
            const auto listed = split(row[standards], ';');
            for (const auto& name : listed)
                if (!m_standards.count(name))
                    throw Fault(table->path() + ":" + std::to_string(table->line(r)) + ": unknown standard \"" + name + "\"");
            for (const auto& [name, standard] : m_standards) {
                const bool applies = listed.empty() ? std::find(cats.begin(), cats.end(), standard.second) != cats.end()
                                                    : std::find(listed.begin(), listed.end(), name) != listed.end();
                if (applies)
                    link.integer(1, standard.first).integer(2, static_cast<sqlite3_int64>(r)).run();
            }
        }
    }

    std::filesystem::path m_folder;
    sqlite3* m_db;
    Insert m_node;
    Insert m_prop;
    sqlite3_int64 m_lastId = 0;
    std::map<std::string, std::pair<std::string, std::string>> m_titles;
    std::map<std::string, std::pair<sqlite3_int64, std::string>> m_standards;  // key -> node, category
    struct Variant {
        std::string name, labelDe, labelEn;
        bool fine;
    };
    std::map<std::string, std::string> m_releases;  // standard key -> release mask, until used
    std::vector<double> m_stock;
    std::vector<Variant> m_variants;
    std::map<std::string, Radius> m_radii;
    std::map<std::string, double> m_nutHeight;  // ISO 4032 size -> m
};

}  // namespace

bool CNormDbBuilder::build(const std::string& folder, const std::string& dbPath, std::string& why)
{
    const std::string temporary = dbPath + ".part";
    std::error_code ignored;
    std::filesystem::remove(temporary, ignored);
    sqlite3* db = nullptr;
    if (sqlite3_open_v2(temporary.c_str(), &db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr) != SQLITE_OK) {
        why = temporary + ": " + (db ? sqlite3_errmsg(db) : "cannot be created");
        sqlite3_close(db);
        return false;
    }
    bool done = false;
    try {
        exec(db, "PRAGMA journal_mode=OFF; PRAGMA synchronous=OFF; BEGIN;");
        exec(db, kSchema);
        {
            Loader loader(folder, db);
            loader.run();
        }
        exec(db, "COMMIT;");
        done = true;
    } catch (const Fault& fault) {
        why = fault.what();
    }
    sqlite3_close(db);
    if (done) {
        std::filesystem::rename(temporary, dbPath, ignored);
        if (ignored) {
            why = dbPath + ": " + ignored.message();
            done = false;
        }
    }
    if (!done)
        std::filesystem::remove(temporary, ignored);
    return done;
}
