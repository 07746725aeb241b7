#include "support/cell_table_text.h"

namespace tabulon {

namespace {

std::string Quoted(const std::string& cell, char separator) {
    if (cell.find_first_of(std::string("\t\r\n\"") + separator) == std::string::npos) return cell;
    std::string out = "\"";
    for (const char c : cell) {
        if (c == '"') out += '"';
        out += c;
    }
    return out + '"';
}

std::string Joined(const CellTable& table, char separator) {
    std::string out;
    for (std::size_t r = 0; r < table.size(); ++r) {
        if (r > 0) out += "\r\n";
        for (std::size_t c = 0; c < table[r].size(); ++c) {
            if (c > 0) out += separator;
            out += Quoted(table[r][c], separator);
        }
    }
    return out;
}

std::string Escaped(const std::string& text) {
    std::string out;
    for (const char c : text) {
        switch (c) {
            case '&':
                out += "&amp;";
                break;
            case '<':
                out += "&lt;";
                break;
            case '>':
                out += "&gt;";
                break;
            case '"':
                out += "&quot;";
                break;
            default:
                out += c;
        }
    }
    return out;
}

}  // namespace

std::string ToTabSeparated(const CellTable& table) {
    return Joined(table, '\t');
}

std::string ToCsv(const CellTable& table) {
    return Joined(table, ',');
}

std::string ToHtmlTable(const CellTable& table) {
    std::string out = "<html><head><meta charset=\"utf-8\"></head><body><table>";
    for (const auto& row : table) {
        out += "<tr>";
        for (const std::string& cell : row)
            out += "<td>" + Escaped(cell) + "</td>";
        out += "</tr>";
    }
    return out + "</table></body></html>";
}

CellTable ParseTabSeparated(std::string_view text) {
    CellTable table;
    if (text.empty()) return table;
    std::vector<std::string> row;
    std::string cell;
    std::size_t i = 0;
    const auto endRow = [&] {
        row.push_back(std::move(cell));
        cell.clear();
        table.push_back(std::move(row));
        row.clear();
    };
    while (i < text.size()) {
        if (cell.empty() && text[i] == '"') {
            // A quoted cell; text after its closing quote up to the separator is kept.
            ++i;
            while (i < text.size()) {
                if (text[i] == '"') {
                    if (i + 1 < text.size() && text[i + 1] == '"') {
                        cell += '"';
                        i += 2;
                        continue;
                    }
                    ++i;
                    break;
                }
                cell += text[i++];
            }
            continue;
        }
        const char c = text[i++];
        if (c == '\t') {
            row.push_back(std::move(cell));
            cell.clear();
        } else if (c == '\r' || c == '\n') {
            if (c == '\r' && i < text.size() && text[i] == '\n') ++i;
            endRow();
            if (i == text.size()) return table;  // a final line break ends the last row
        } else {
            cell += c;
        }
    }
    endRow();
    return table;
}

bool HoldsSeveralCells(std::string_view text) {
    return text.find_first_of("\t\r\n") != std::string_view::npos;
}

}  // namespace tabulon
