// One table of the catalogue folder: a CSV file with one header line, read whole.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

class CNormCsv {
public:
    // Reads the file; on failure returns none and `why` names the file, the line and the fault.
    static std::optional<CNormCsv> read(const std::string& path, std::string& why);
    // Parses text that came from `path` (the name is used in messages only).
    static std::optional<CNormCsv> parse(const std::string& text, const std::string& path, std::string& why);

    const std::vector<std::string>& header() const { return m_header; }
    const std::vector<std::vector<std::string>>& rows() const { return m_rows; }
    // Index of a column, or none.
    std::optional<std::size_t> column(const std::string& name) const;
    // The file line of a row (1 is the header).
    std::size_t line(std::size_t row) const { return row + 2; }
    const std::string& path() const { return m_path; }

private:
    std::string m_path;
    std::vector<std::string> m_header;
    std::vector<std::vector<std::string>> m_rows;
};
