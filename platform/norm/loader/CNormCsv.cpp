// The catalogue's CSV dialect: comma-separated, a cell quoted only when it holds a comma
// (a doubled quote inside a quoted cell stands for one quote), UTF-8, "\n" or "\r\n" lines.
#include "CNormCsv.h"

#include <fstream>
#include <sstream>

namespace {
// Splits one line into cells; false on an unterminated quote.
bool splitLine(const std::string& line, std::vector<std::string>& cells)
{
    cells.clear();
    std::string cell;
    bool quoted = false;
    for (std::size_t i = 0; i < line.size(); ++i) {
        const char c = line[i];
        if (quoted) {
            if (c == '"' && i + 1 < line.size() && line[i + 1] == '"') {
                cell += '"';
                ++i;
            } else if (c == '"') {
                quoted = false;
            } else {
                cell += c;
            }
        } else if (c == '"') {
            quoted = true;
        } else if (c == ',') {
            cells.push_back(cell);
            cell.clear();
        } else {
            cell += c;
        }
    }
    cells.push_back(cell);
    return !quoted;
}
}  // namespace

std::optional<CNormCsv> CNormCsv::read(const std::string& path, std::string& why)
{
    std::ifstream in(path, std::ios::binary);
    if (!in) {
        why = path + ": cannot be read";
        return std::nullopt;
    }
    std::ostringstream text;
    text << in.rdbuf();
    return parse(text.str(), path, why);
}

std::optional<CNormCsv> CNormCsv::parse(const std::string& text, const std::string& path, std::string& why)
{
    CNormCsv table;
    table.m_path = path;
    std::istringstream in(text);
    std::string line;
    std::size_t number = 0;
    std::vector<std::string> cells;
    while (std::getline(in, line)) {
        ++number;
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
        if (line.empty())
            continue;
        if (!splitLine(line, cells)) {
            why = path + ":" + std::to_string(number) + ": unterminated quote";
            return std::nullopt;
        }
        if (number == 1) {
            table.m_header = cells;
            continue;
        }
        if (cells.size() != table.m_header.size()) {
            why = path + ":" + std::to_string(number) + ": " + std::to_string(cells.size()) + " cells, the header has " +
                  std::to_string(table.m_header.size());
            return std::nullopt;
        }
        table.m_rows.push_back(cells);
    }
    if (table.m_header.empty()) {
        why = path + ": empty, no header line";
        return std::nullopt;
    }
    return table;
}

std::optional<std::size_t> CNormCsv::column(const std::string& name) const
{
    for (std::size_t i = 0; i < m_header.size(); ++i)
        if (m_header[i] == name)
            return i;
    return std::nullopt;
}
