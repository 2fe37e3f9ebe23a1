// Read-only access to the standard-parts database that qen-normdb builds: one connection
// with its prepared statements. A database that is missing or damaged leaves the object
// closed, with a message naming the path; every query then answers empty.
#pragma once

#include <optional>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

class CNormDatabase {
public:
    // One standard with its designations (empty where a family has none) and titles.
    struct Standard {
        std::string path;  // the selection stack joined with "\"
        std::string key, din, iso, enIso, en, other, titleDe, titleEn;
    };

    explicit CNormDatabase(const std::string& path);
    ~CNormDatabase();
    CNormDatabase(const CNormDatabase&) = delete;
    CNormDatabase& operator=(const CNormDatabase&) = delete;

    // The process's database, opened on first use at the path `locate()` gives.
    static CNormDatabase& instance();
    // Replaces the process's database by the one at the path (`locate()` for an empty path);
    // for tools and benchmarks that compare catalogues. References to the old one die.
    static void reopen(const std::string& path);
    // $QEN_NORM_DB when set and not empty, else "qen_norm.db" beside the shared library or
    // program that holds this code.
    static std::string locate();

    bool isOpen() const { return m_db != nullptr; }
    const std::string& path() const { return m_path; }
    // Why the database could not be opened (names the path); empty when it is open.
    const std::string& error() const { return m_error; }

    // The families in their order ("DIN", "ISO", "EN").
    std::vector<std::string> families();
    // Keys of the tree children of a node in their order (the root for an empty path);
    // sizes are not tree children.
    std::vector<std::string> children(const std::string& path);
    // A property of the node at the path; none when node or property is absent.
    std::optional<std::string> property(const std::string& path, const std::string& name);
    // The standard at the path; none when the path names no standard.
    std::optional<Standard> standard(const std::string& path);
    // Every standard at or below the node at the path (all for an empty path), in tree order.
    std::vector<Standard> standardsBelow(const std::string& path);
    // Calls `visit` for every standard at or below the node at the path, in tree order,
    // without copying them.
    template <class Visit>
    void forEachStandardBelow(const std::string& path, Visit&& visit)
    {
        const Index& index = tree();
        for (const Standard& s : index.standards)
            if (path.empty() || s.path == path || (s.path.size() > path.size() && s.path.compare(0, path.size(), path) == 0 &&
                                                   s.path[path.size()] == '\\'))
                visit(s);
    }
    // Nominal sizes of the standard at the path, in the order of its table; with a variant
    // only the sizes of that variant.
    std::vector<std::string> sizes(const std::string& path, const std::string& variant = {});
    // Standard lengths of the size at the path: the standard's series cut to the size's range.
    std::vector<double> lengths(const std::string& sizePath);
    // Material keys offered for the standard at the path, in the catalogue's order.
    std::vector<std::string> materials(const std::string& path);
    // A catalogue material's German and English label; none for an unknown key.
    std::optional<std::pair<std::string, std::string>> materialLabels(const std::string& key);
    // The areas of the standards in display order: code, German and English name.
    struct Area {
        std::string code, labelDe, labelEn;
    };
    std::vector<Area> areas();

private:
    // The tree (nodes other than sizes) and the standards, read once on first use: the tree
    // and the search walk them far more often than anything else.
    struct Index {
        bool loaded = false;
        std::unordered_map<std::string, std::vector<std::string>> children;  // path -> child keys
        std::vector<Standard> standards;                                   // tree order
        std::unordered_map<std::string, std::size_t> standardAt;           // path -> index
    };
    const Index& tree();
    Index m_index;

    enum Query {
        Families, Root, Property, Standards, Sizes, Lengths, Materials, MaterialLabel, Areas,
        QueryCount
    };
    sqlite3_stmt* prepared(Query query);
    std::vector<std::string> texts(Query query, const std::string& path);
    static Standard readStandard(sqlite3_stmt* statement);

    std::string m_path;
    std::string m_error;
    sqlite3* m_db = nullptr;
    sqlite3_stmt* m_statements[QueryCount] = {};
};
